#include "superposition/Superposition.h"

#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

namespace {

constexpr Couleur BLEU = 0xC00000;
constexpr Couleur ROUGE = 0x0000C0;
constexpr double RAYON_MAX = 2000.0;

// A surface that keeps nothing: a place's image is read from the plane's lists.
class SurfaceMuette : public Surface {
public:
    double Largeur() const override { return 1000.0; }
    double Hauteur() const override { return 1000.0; }
    void Effacer(Couleur) override {}
    void Ligne(double, double, double, double, const Stylo&) override {}
    void Arc(double, double, double, double, double, const Stylo&) override {}
    void Cercle(double, double, double, const Stylo&) override {}
    void Texte(double, double, const std::string&, Couleur, const Police&, Alignement) override {}
};

// The subjects of the status texts, by class: of one place's sample line (with its number) and
// of a label of both places.
std::string SujetTrait(int classe, int place) {
    const std::string n = std::to_string(place);
    switch (classe) {
    case CLASSE_LIGNE:
        return "l'image de la ligne " + n;
    case CLASSE_ANTIPOMPAGE:
        return "la zone antipompage de la protection n° " + n;
    case CLASSE_MONOPHASE:
        return "la mise en route monophasée de la protection n° " + n;
    case CLASSE_TRIPHASE:
        return "la mise en route triphasée de la protection n° " + n;
    case CLASSE_ZONES:
        return "les limites de zones de la protection n° " + n;
    case CLASSE_DIRECTIONNEL:
        return "la caractéristique directionnelle de la protection n° " + n;
    default:
        return {};
    }
}

const char* const SUJETS_DEUX[NOMBRE_CLASSES] = {
    "les images des deux lignes",
    "les caractéristiques d'antipompage des deux protections",
    "les mises en route monophasées des deux protections",
    "les mises en route triphasées des deux protections",
    "les limites de zone des deux protections",
    "les caractéristiques directionnelles des deux protections"};

bool ClasseValide(int classe) {
    return classe >= 0 && classe < NOMBRE_CLASSES;
}

// The extent of an arc: its ends and the points where it passes right, top, left and bottom.
void AjouterArc(Etendue& boite, const ArcImage& a) {
    const double dr = a.Debut.Re - a.Centre.Re, dx = a.Debut.Im - a.Centre.Im;
    const double fr = a.Fin.Re - a.Centre.Re, fx = a.Fin.Im - a.Centre.Im;
    const double rayon = std::min(std::hypot(dr, dx), RAYON_MAX);
    if (!std::isfinite(rayon)) return;
    const double debut = std::atan2(dx, dr);
    double etendue = std::atan2(fx, fr) - debut;
    while (etendue < 0.0)
        etendue += 2.0 * PI;
    if (etendue < PI / 180.0) etendue = 2.0 * PI; // an arc of nothing is a circle
    auto point = [&](double angle) {
        boite.Ajouter(a.Centre.Re + rayon * std::cos(angle), a.Centre.Im + rayon * std::sin(angle));
    };
    point(debut);
    point(debut + etendue);
    for (int k = 0; k < 4; ++k) {
        double relatif = std::fmod(k * PI / 2.0 - debut, 2.0 * PI);
        if (relatif < 0.0) relatif += 2.0 * PI;
        if (relatif <= etendue) point(k * PI / 2.0);
    }
}

} // namespace

int ClasseDeCouleur(const Etude& e, Couleur couleur) {
    if (couleur == e.CouleurTransit2) return CLASSE_LIGNE;
    if (couleur == e.CouleurAntipompage) return CLASSE_ANTIPOMPAGE;
    if (couleur == e.CouleurMonophase) return CLASSE_MONOPHASE;
    if (couleur == e.CouleurTriphase) return CLASSE_TRIPHASE;
    if (couleur == e.CouleurZones) return CLASSE_ZONES;
    if (couleur == e.CouleurDirectionnel) return CLASSE_DIRECTIONNEL;
    return CLASSE_AUCUNE;
}

void CouleursDesPlaces(Etude& e) {
    if (e.CouleurPoste1 != e.CouleurPoste2) return;
    e.CouleurPoste1 = BLEU;
    e.CouleurPoste2 = ROUGE;
}

Superposition::Superposition(Etude& e) : e_(e) {}

void Superposition::NommerPlaces() {
    Place& p1 = places_[0];
    p1.Poste = e_.Nom1Poste;
    p1.Depart = e_.Nom1Depart;
    p1.Piquage = e_.Nom1Piquage;
    p1.Protection = e_.Nom1Protection;
    p1.IdxProtection = e_.Idx1Protection;
    p1.Numero = e_.Numero1;
    Place& p2 = places_[1];
    p2.Poste = e_.Nom2Poste;
    p2.Depart = e_.Nom2Depart;
    p2.Piquage = e_.Nom2Piquage;
    p2.Protection = e_.Nom2Protection;
    p2.IdxProtection = e_.Idx2Protection;
    p2.Numero = e_.Numero2;
}

void Superposition::NommerEtude(const Place& p) {
    e_.NomPoste = p.Poste;
    e_.NomDepart = p.Depart;
    e_.NomPiquage = p.Piquage;
    e_.NomProtection = p.Protection;
    e_.IdxProtection = p.IdxProtection;
    e_.id_numero = p.Numero;
    e_.LigneTroisBouts = !p.Piquage.empty();
}

bool Superposition::ChargerPlace(int n, const Ouvreur& ouvrir) {
    Place& p = PlaceNumero(n);
    NommerEtude(p);
    if (p.IdProtection != 0) e_.id_protection = p.IdProtection;
    const bool ouvert = ouvrir ? ouvrir(e_) : true;
    p.Poste = e_.NomPoste;
    p.Depart = e_.NomDepart;
    p.Piquage = e_.NomPiquage;
    p.Protection = e_.NomProtection;
    p.Numero = e_.id_numero;
    p.IdProtection = e_.id_protection;
    p.id_ligne = e_.id_ligne;
    p.id_reglage = e_.id_reglage;
    p.id_poste = e_.id_poste;
    p.id_depart = e_.id_depart;
    p.id_piquage = e_.id_piquage;
    return ouvert;
}

void Superposition::SauverPlace() {
    Place& p = PlaceNumero(PlaceCourante);
    e_.id_protection = p.IdProtection;
    SauverReglage(e_, p.Bloc);
    p.Gardee = true;
    // A relay without a panel has no settings computed: nothing of it is drawn.
    p.Calculee = e_.ErrCalcul == 0 && e_.RelaisPret && !ReglagesNonCalcules(e_);
}

bool Superposition::RestaurerPlace(int n) {
    Place& p = PlaceNumero(n);
    if (!p.Gardee) return false;
    e_.id_protection = p.IdProtection;
    RestaurerReglage(e_, p.Bloc);
    NommerEtude(p);
    e_.id_ligne = p.id_ligne;
    e_.id_reglage = p.id_reglage;
    e_.id_poste = p.id_poste;
    e_.id_depart = p.id_depart;
    e_.id_piquage = p.id_piquage;
    return true;
}

int Superposition::Disposition() const {
    return DispositionDe(places_[0].Position, places_[1].Position);
}

bool Superposition::ChoisirDisposition(int n) {
    if (n < 1 || n > NOMBRE_DISPOSITIONS || n == Disposition()) return false;
    const tournesol::Disposition& d = DISPOSITIONS[static_cast<std::size_t>(n - 1)];
    places_[0].Position = d.Position1;
    places_[1].Position = d.Position2;
    return true;
}

void Superposition::DispositionInitiale() {
    const tournesol::Disposition& d = DISPOSITIONS[static_cast<std::size_t>(
        PremiereDisposition(places_[0].Poste, places_[0].Depart, places_[1].Poste,
                            places_[1].Depart) -
        1)];
    places_[0].Position = d.Position1;
    places_[1].Position = d.Position2;
}

void Superposition::ConstruireImage() {
    Place& p = PlaceNumero(PlaceCourante);
    const Place& autre = PlaceNumero(PlaceCourante == 1 ? 2 : 1);
    p.Traits.clear();
    p.Arcs.clear();
    p.Boite = Etendue{};
    if (!RestaurerPlace(PlaceCourante)) return;
    const double ro = autre.Gardee ? autre.R() : 0.0, xo = autre.Gardee ? autre.X() : 0.0;
    p.Ligne = PlacerLigne(p.Position, p.R(), p.X(), ro, xo);
    p.Boite.Ajouter(p.Ligne.De.Re, p.Ligne.De.Im);
    p.Boite.Ajouter(p.Ligne.A.Re, p.Ligne.A.Im);

    // The relay's own trace, on a plane that keeps the figures and shows nothing.
    e_.ErrCalcul = 0;
    e_.RelaisPret = p.Calculee;
    SurfaceMuette muette;
    Plan plan(e_, muette);
    DrawCaracteristique(plan, OptionsAffichage{});
    e_.ErrCalcul = 0; // a figure that failed is left out; the place's settings stand
    for (const SegmentImage& s : plan.Segments()) {
        TraitPlace t{s, ClasseDeCouleur(e_, s.Couleur)};
        t.Segment.A = PlacerPoint(s.A, p.Position, ro, xo);
        t.Segment.B = PlacerPoint(s.B, p.Position, ro, xo);
        p.Boite.Ajouter(t.Segment.A.Re, t.Segment.A.Im);
        p.Boite.Ajouter(t.Segment.B.Re, t.Segment.B.Im);
        p.Traits.push_back(t);
    }
    for (const ArcImage& a : plan.Arcs()) {
        ArcPlace arc{a, ClasseDeCouleur(e_, a.Couleur)};
        arc.Arc.Centre = PlacerPoint(a.Centre, p.Position, ro, xo);
        arc.Arc.Debut = PlacerPoint(a.Debut, p.Position, ro, xo);
        arc.Arc.Fin = PlacerPoint(a.Fin, p.Position, ro, xo);
        AjouterArc(p.Boite, arc.Arc);
        p.Arcs.push_back(arc);
    }
}

void Superposition::AjusterFenetre() {
    for (const int n : {1, 2}) {
        PlaceCourante = n;
        ConstruireImage();
    }
    const FenetrePlan f = AjusterBoite(places_[0].Boite, places_[1].Boite);
    e_.ScaleLeft = f.Left;
    e_.ScaleTop = f.Top;
    e_.ScaleWidth = f.Width;
    e_.ScaleHeight = f.Height;
}

void Superposition::RetracerTout(Plan& plan) const {
    plan.DrawPlan();
    DessinerLignes(plan);
    DessinerImages(plan);
}

void Superposition::DessinerLignes(Plan& plan) const {
    for (const Place& p : places_) {
        if (!p.Gardee || !p.Affichage[CLASSE_LIGNE]) continue;
        plan.DrawSegment(plan.NewSegment(p.Ligne.De, p.Ligne.A, e_.CouleurLigne, TRAIT_PLEIN, 2),
                         plan.Papier);
        // A relay standing at the far end of the other line: its origin is marked there.
        if (p.Position == POSITION_LOIN || p.Position == POSITION_RETOURNEE_LOIN)
            plan.DrawMark(plan.NewMark(p.Ligne.De.Re, p.Ligne.De.Im), e_.CouleurPosteAval,
                          plan.Papier);
    }
}

void Superposition::DessinerImages(Plan& plan) const {
    for (int n = 1; n <= 2; ++n) {
        const Place& p = PlaceNumero(n);
        const Couleur couleur = n == 1 ? e_.CouleurPoste1 : e_.CouleurPoste2;
        auto montre = [&p](int classe) {
            return ClasseValide(classe) && p.Affichage[static_cast<std::size_t>(classe)];
        };
        for (const ArcPlace& a : p.Arcs)
            if (montre(a.Classe))
                plan.DrawArc(plan.NewArc(a.Arc.Centre, a.Arc.Debut, a.Arc.Fin, couleur, a.Arc.Style,
                                         a.Arc.Largeur),
                             false, plan.Papier);
        for (const TraitPlace& t : p.Traits)
            if (montre(t.Classe))
                plan.DrawSegment(plan.NewSegment(t.Segment.A, t.Segment.B, couleur, t.Segment.Style,
                                                 t.Segment.Largeur),
                                 plan.Papier);
    }
}

void Superposition::Basculer(int place, int classe) {
    if (!ClasseValide(classe) || (place != 1 && place != 2)) return;
    bool& drapeau = PlaceNumero(place).Affichage[static_cast<std::size_t>(classe)];
    drapeau = !drapeau;
}

bool Superposition::LesDeuxCaches(int classe) const {
    if (!ClasseValide(classe)) return true;
    const auto i = static_cast<std::size_t>(classe);
    return !places_[0].Affichage[i] && !places_[1].Affichage[i];
}

void Superposition::BasculerLesDeux(int classe) {
    if (!ClasseValide(classe)) return;
    const bool montrer = LesDeuxCaches(classe);
    for (Place& p : places_)
        p.Affichage[static_cast<std::size_t>(classe)] = montrer;
}

std::string Superposition::AideTrait(int place, int classe) const {
    if (!ClasseValide(classe) || (place != 1 && place != 2)) return {};
    const bool montre = PlaceNumero(place).Affichage[static_cast<std::size_t>(classe)];
    return "si tu cliques sur le trait, " + SujetTrait(classe, place) +
           (montre ? " ne sera plus visible" : " sera visible");
}

std::string Superposition::AideEtiquette(int classe) const {
    if (!ClasseValide(classe)) return {};
    return std::string("si tu cliques, ") + SUJETS_DEUX[classe] +
           (LesDeuxCaches(classe) ? " seront visibles" : " ne seront plus visibles");
}

std::string Superposition::Identification(int n) const {
    const Place& p = PlaceNumero(n);
    std::string ligne = p.Poste + " - " + p.Depart;
    if (!p.Piquage.empty()) ligne += " - " + p.Piquage;
    std::string relais = p.Protection;
    if (RelaisConnu(p.IdProtection))
        relais = LEGENDES_PROTECTION[static_cast<std::size_t>(p.IdProtection - 1)];
    return ligne + ", " + relais + " n° " + std::to_string(p.Numero);
}

void Superposition::EcrireLegende(Surface& surface) const {
    const Police police{"Arial", 9.0};
    for (int n = 1; n <= 2; ++n)
        surface.Texte(8.0, 8.0 + 16.0 * n, "Place " + std::to_string(n) + " : " + Identification(n),
                      n == 1 ? e_.CouleurPoste1 : e_.CouleurPoste2, police, Alignement::Gauche);
}

} // namespace tournesol
