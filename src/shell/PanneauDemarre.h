// The working window (frmDémarre): the diagram, its legend, the report options, the display
// options, the drawing tools and the commands.
#pragma once

#include "core/Panneau.h"
#include "diagnostics/FenetreDiagnostics.h"
#include "diagram/Plan.h"
#include "shell/Ouverture.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace tournesol {

struct Etude;
class Dialogue;
class BaseEtudes;

// What the user drew with the free tools, in ohms; kept across redraws.
struct Annotation {
    enum Genre { Trait, Cercle, Texte, Carre } genre = Trait;
    Complexe a, b; // ends; centre and a point of the circle; the text's place; square corners
    std::string texte;
    Couleur couleur = 0;
    int largeur = 1;
    int style = TRAIT_PLEIN;
};

// How the working window was closed.
enum class FaconFermer { MenuSysteme, Programme, FinWindows, GestionnaireTaches, Autre };

class PanneauDemarre : public Panneau {
public:
    // `base` and `reglages` (the settings file) may be absent.
    PanneauDemarre(Etude& e, Dialogue& d, OptionsReport& options, BaseEtudes* base,
                   std::optional<std::filesystem::path> reglages);

    void Cliquer(const std::string& nom) override;
    void Touche(int code) override;
    // What the window does once it is up: on a new line, the network options panel, then the
    // network values panel, so that the engineer describes the line before anything else.
    void Demarrer();
    bool NouvelleLigne() const { return nouvelleLigne_; }
    // The title the window shows: the system's, the line and the relay, and " *" while the
    // study has changes not saved.
    std::string TitreAffiche() const;
    // Before the study is left (leave, "Change...", the close box): with changes not saved and
    // a base to save them in, the engineer is asked. False when he stays.
    bool PeutQuitterEtude();
    bool Fermer() override;
    // The closing title, composed from the way the window was closed.
    void Fermer(FaconFermer facon);

    // The diagram: what to draw and how; the view draws on every change of Version().
    void Dessiner(Plan& plan) const;
    int Version() const { return version_; }
    OptionsAffichage& Affichage() { return affichage_; }

    // The legend entry of a characteristic: its colour.
    Couleur CouleurLegende(const std::string& nom) const;
    // mnucouleur(i): a new colour for entry i (1 to 12).
    void ChangerCouleur(int i, Couleur couleur);
    Couleur CouleurMenu(int i) const;

    // Mouse on the diagram, in ohms.
    void SourisBouge(double r, double x);
    void SourisBas(double r, double x);
    void SourisHaut(double r, double x);
    // The pointer left the diagram: the status line says again which tool is on.
    void SourisSortie();
    // A character typed while a text is being written (code 32 and above, 8 backspace).
    void Caractere(const std::string& c);
    // The outline of the circle, line or square being dragged, if any.
    std::optional<Annotation> Ebauche() const;
    const std::vector<Annotation>& Annotations() const { return annotations_; }
    // What prints the report once the print dialog was confirmed: the window gives the printer.
    using Imprimeur = std::function<void(PanneauDemarre&)>;
    void DefinirImprimeur(Imprimeur imprimeur);

    // The diagnostics window while cmdDiagnostics is down; null otherwise.
    FenetreDiagnostics* Diagnostics() { return diagnostics_.get(); }

    // The pen of the free tools (the Shift-click menu).
    void ChangerPlume(int rouge, int vert, int bleu, int epaisseur, int style);

    // The texts of the coordinates box for a point.
    static std::string TexteCoordonnees(double r, double x);
    // "Drawing option : " and the tool's name.
    static std::string TexteOutil(int outil);
    int Outil() const;
    void ChoisirOutil(int outil);

private:
    void ChangerReport(int cas);
    // The network menus: the panel modally, the length check, then the study computed again.
    void PanneauReseau(const std::string& menu);
    void ReglerBoutonsRelais();
    void MarquerOutil();
    void Redessiner();
    void EcrireReglages();
    Annotation Plume(Annotation::Genre genre) const;

    Etude& e_;
    Dialogue& d_;
    OptionsReport& options_;
    BaseEtudes* base_;
    std::optional<std::filesystem::path> reglages_;
    OptionsAffichage affichage_;
    int version_ = 0;
    std::vector<Annotation> annotations_;
    bool glisse_ = false;
    Complexe depart_, courant_;
    std::optional<Annotation> texte_; // the text being typed
    std::unique_ptr<FenetreDiagnostics> diagnostics_;
    bool nouvelleLigne_ = false; // the window opened on a new line and has not started yet
    Imprimeur imprimeur_;
};

} // namespace tournesol
