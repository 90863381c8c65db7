// The superposition window (frmsuperposer): the common diagram of the two places, the three
// frames that share one place (display, selected substations, layouts), the relay buttons of
// the places, their save, the print, the colours, the zoom, change and quit.
#pragma once

#include "core/Panneau.h"
#include "superposition/Superposition.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace tournesol {

struct Etude;
class Dialogue;
class BaseEtudes;

class PanneauSuperposer : public Panneau {
public:
    // What the application around the window does for it: a place's study read and computed
    // as the opening does for one relay (false when it could not be), and the relay's panel
    // shown on the working variables (false when its computation failed).
    struct Services {
        std::function<bool(Etude&, int place)> OuvrirPlace;
        std::function<bool(Etude&)> ReglerRelais;
    };

    // The window's load: both places read, kept and built, the first layout from the names.
    // `base` saves the places; `reglages` is the user's settings file (colours); both may be
    // absent.
    PanneauSuperposer(Etude& e, Dialogue& d, BaseEtudes* base, Services services,
                      std::optional<std::filesystem::path> reglages);

    void Cliquer(const std::string& nom) override;
    void Touche(int code) override;
    bool Fermer() override;
    // The pointer resting on a field: its help in the status line.
    void Survoler(const std::string& nom);
    // The pointer over the plane, in ohms: the coordinates. A drag after "&Zoom..." gives the
    // square window centred on its first point.
    void SourisBouge(double r, double x);
    void SourisBas(double r, double x);
    void SourisHaut(double r, double x);

    Superposition& Superposer() { return s_; }
    const Superposition& Superposer() const { return s_; }
    // The diagram; the view draws again on every change of Version().
    void Dessiner(Plan& plan) const { s_.RetracerTout(plan); }
    int Version() const { return version_; }

    // The frame shown in the shared place: "frmaffiche", "frmpostsélec" or "frmposition".
    const std::string& CadreMontre() const { return cadre_; }

    // The colour menu's four entries (1 to 4: place 1, place 2, line image, far end origin).
    Couleur CouleurMenu(int i) const;
    void ChangerCouleur(int i, Couleur couleur);

    // What prints once the print dialog was confirmed: the window gives the printer.
    using Imprimeur = std::function<void(PanneauSuperposer&)>;
    void DefinirImprimeur(Imprimeur imprimeur);

    // The names of the click areas and labels of the display flags.
    static std::string NomZone(int place, int classe);  // autL1(1)...
    static std::string NomTrait(int place, int classe); // Line1(1)...
    static const char* NomEtiquette(int classe);        // txtTransit2...

private:
    void Montrer(const std::string& cadre);
    void MettreAJour();
    void ReglerPlace(int place);
    void SauverPlace(int place);

    Etude& e_;
    Dialogue& d_;
    BaseEtudes* base_;
    Services services_;
    std::optional<std::filesystem::path> reglages_;
    Superposition s_;
    std::string cadre_;
    int version_ = 0;
    Imprimeur imprimeur_;
    std::optional<Complexe> depart_; // the first point of a zoom's drag
};

} // namespace tournesol
