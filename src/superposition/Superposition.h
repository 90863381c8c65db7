// Two relays on one diagram: each in a place (1 or 2) with its own line, settings, position and
// colour. A place's values wait in its setting block and go through the working variables
// whenever the place is built, set, saved or printed; its image is drawn by the relay's own
// trace, then turned and moved by the table of positions.
#pragma once

#include "core/Magasin.h"
#include "diagram/Plan.h"
#include "superposition/Positions.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace tournesol {

struct Etude;

// The six classes of a place's figures, which are also its six display flags, in the order of
// the click areas autL1 and autL2 (index 1 to 6 there, 0 to 5 here).
enum ClasseFigure : int {
    CLASSE_LIGNE = 0,    // CouleurTransit2, the line image
    CLASSE_ANTIPOMPAGE,  // CouleurAntipompage
    CLASSE_MONOPHASE,    // CouleurMonophase
    CLASSE_TRIPHASE,     // CouleurTriphase
    CLASSE_ZONES,        // CouleurZones
    CLASSE_DIRECTIONNEL, // CouleurDirectionnel
    NOMBRE_CLASSES,
    CLASSE_AUCUNE = -1, // a colour of none of them: never drawn
};
// The class a figure's colour picks.
int ClasseDeCouleur(const Etude& e, Couleur couleur);

// A figure of a place's image: where it stands on the common plane, and its class.
struct TraitPlace {
    SegmentImage Segment;
    int Classe = CLASSE_AUCUNE;
};
struct ArcPlace {
    ArcImage Arc;
    int Classe = CLASSE_AUCUNE;
};

struct Place {
    // The names and the number of the relay, as the opening dialog gave them.
    std::string Poste, Depart, Piquage, Protection;
    Entier16 IdxProtection = 0;
    Entier16 Numero = 0;
    int IdProtection = 0; // Protection1, Protection2
    int Position = POSITION_DROITE;
    // The keys of the relay in the base, so that the place is saved without a look-up.
    Entier32 id_ligne = 0, id_reglage = 0, id_poste = 0, id_depart = 0, id_piquage = 0;
    // The place's values, once kept.
    BlocReglages Bloc;
    bool Gardee = false;
    bool Calculee = false; // the relay's settings were computed: it has a characteristic
    // Its image on the common plane and its extent.
    std::vector<TraitPlace> Traits;
    std::vector<ArcPlace> Arcs;
    LignePlacee Ligne;
    Etendue Boite;
    // The display flags, all shown at the start.
    std::array<bool, NOMBRE_CLASSES> Affichage{true, true, true, true, true, true};

    double R() const { return Bloc.RL_eq; }
    double X() const { return Bloc.XL_eq; }
};

// The place colours must be told apart: two equal ones (both black by default) become blue and
// red.
void CouleursDesPlaces(Etude& e);

class Superposition {
public:
    explicit Superposition(Etude& e);
    Etude& etude() { return e_; }
    const Etude& etude() const { return e_; }

    Place& PlaceNumero(int n) { return places_[n == 2 ? 1 : 0]; }
    const Place& PlaceNumero(int n) const { return places_[n == 2 ? 1 : 0]; }
    int PlaceCourante = 1;

    // The names of the two places from those of the opening dialog (Nom1Poste..., Nom2Poste...,
    // Numero1, Numero2).
    void NommerPlaces();
    // ChargerPlace: the place's names into NomPoste and its fellows, the study read and
    // computed by `ouvrir` (false: it could not be), then the relay, its number and its keys
    // taken into the place (the names too, when `ouvrir` read them from a file).
    using Ouvreur = std::function<bool(Etude&)>;
    bool ChargerPlace(int n, const Ouvreur& ouvrir);
    // SauverPlace: the working variables kept into the block of PlaceCourante.
    void SauverPlace();
    // A place's block, names, number, relay and keys back into the working variables; false
    // for a place not kept.
    bool RestaurerPlace(int n);

    // The layout in force (1 to 7), and a new one: false, and nothing changed, for the layout
    // already in force or a number outside 1 to 7.
    int Disposition() const;
    bool ChoisirDisposition(int n);
    // The first layout, from the names of the places.
    void DispositionInitiale();

    // ConstruireImage: the image of PlaceCourante from its block, at its position.
    void ConstruireImage();
    // AjusterFenetre: both images built, then the plane fitted to their common box.
    void AjusterFenetre();

    // RetracerTout: the plane, the two lines, the two images.
    void RetracerTout(Plan& plan) const;
    void DessinerLignes(Plan& plan) const;
    void DessinerImages(Plan& plan) const;

    // The display flags: a click on a sample line of a place (autL1, autL2), or on a label that
    // serves both places (shown when either was, then hidden on both; shown on both otherwise).
    void Basculer(int place, int classe);
    void BasculerLesDeux(int classe);
    bool LesDeuxCaches(int classe) const;
    // The status line over a sample line and over a label.
    std::string AideTrait(int place, int classe) const;
    std::string AideEtiquette(int classe) const;

    // Which place a colour stands for: its substations, relay and number.
    std::string Identification(int place) const;
    // The same as a legend in the place's colour, at the upper left of a surface.
    void EcrireLegende(Surface& surface) const;

private:
    // The place's names and number into the study's.
    void NommerEtude(const Place& p);
    Etude& e_;
    std::array<Place, 2> places_;
};

} // namespace tournesol
