// The report: up to three kinds of page (the diagram with the diagnostics, the line and relay
// characteristics, the relay's settings), their frames and head, the progress bar and the
// cancelling by Escape. Composed on a Page; the relays add their own pages.
#pragma once

#include "diagram/Plan.h"
#include "printing/Page.h"

#include <ctime>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr const char* POLICE_IMPRESSION = "Arial";

// The frames of a page, in millimetres (left, top, width, height).
struct CadresPage {
    CadreImpression CadrePage;             // the whole printed area
    CadreImpression CadreTitre;            // the title line
    CadreImpression CadreEntete;           // the head of the page
    CadreImpression CadreDessin;           // the diagram, a square
    CadreImpression CadrePied;             // the text under the diagram
    CadreImpression CadreCaracteristiques; // the upper block of the second page
    CadreImpression CadreSuite;            // the block under it
    CadreImpression CadreTexte;            // a full text page
};

// The frames from the page's scale, the margin and its half, the spacing unit `Pas` and the
// height of the title text.
CadresPage CalculerCadres(const CadreImpression& echelle, double marge, double demiMarge,
                          double pas, double hauteurTitre);

// What printing keeps from one print to the next.
struct EtatImpression {
    // 13 times the height of a blank in 10-point type, measured once; measured anew after a
    // change of line (ChangerPoste clears MargeMesuree).
    double MargeImpression = 0.0;
    double DemiMarge = 0.0; // its integer half
    bool MargeMesuree = false;
    // The progress panel: the bar (0 to 100) and its text (printstatus).
    double Progression = 0.0;
    std::string TexteProgression;
    // Whoever shows the progress panel follows it here: called after each start, move or
    // placing of the bar with the panel open, and once with `ouvert` false when it closes.
    std::function<void(bool ouvert, double valeur, const std::string& texte)> SuiviProgression;
};

// Measures MargeImpression and DemiMarge on the page.
void MesurerMarge(Page& page, EtatImpression& etat);

// The progress bar. The pitch PasProgression is 100 / pas; nothing moves while
// ProgressionActive is false; the bar stays within 0 to 100.
void DebutProgression(Etude& e, EtatImpression& etat, int pas, const std::string& texte);
void AvancerProgression(Etude& e, EtatImpression& etat, int n);
void PlacerProgression(Etude& e, EtatImpression& etat, int n);
// Closes the progress panel.
void FinProgression(Etude& e, EtatImpression& etat);

// Whether the part of the page kind PageImpression goes to paper: never once Escape stopped
// the print; ImpParties[0] on page 1, [1] on page 2, [2] from 3 on.
bool DoitImprimer(const Etude& e);

// The printed text of rule n of the diagnostics: its lines, the last one followed by the value;
// empty when the rule has no text.
using TextesReglesRapport = std::function<std::vector<std::string>(int regle)>;

// What the frames of a page show besides the title and the head.
enum class GenrePage { Dessin, Caracteristiques, Texte };

// One print under way: the study, the page, the frames of the current copy.
struct ContexteImpression {
    Etude& e;
    Dialogue& d;
    Page& page;
    EtatImpression& etat;
    CadresPage cadres;
    TextesReglesRapport textesRegles;
    std::string dateHeure; // "Short Date - Short Time" of the print
};

// The pen to column n of the page (the left of CadreSuite plus Pas plus n Pas); events run,
// so that Escape is seen. Nothing once Escape stopped the print.
void AllerColonne(ContexteImpression& c, int n);

// A new page of the report, the pen at its top left.
void NouvellePageImpression(ContexteImpression& c);
// The frames (outer 4 dots wide, inner 1) and the head: title, substations, date, relay.
void ImprimerEntete(ContexteImpression& c, GenrePage genre);
// A new page with its frames and head: the pages after the first of a copy.
void CommencerPage(ContexteImpression& c, GenrePage genre);

// The plane drawn on paper into CadreDessin and the report case (sReport) at its foot.
// `dessin` draws on the plane; by default DrawRelay, which draws the plane's axes first.
using DessinPlan = std::function<void(Plan&)>;
void ImprimerDessin(ContexteImpression& c, const DessinPlan& dessin);

// The line characteristics, in CadreCaracteristiques; one progress step per block.
void ImprimerCaracteristiquesLigne(ContexteImpression& c);

// The diagnostics section, at the top of CadrePied: the rules set of the current relay, or
// "No discordance with the setting guide."; one progress step per rule.
void ImprimerDiagnostics(ContexteImpression& c);
// The numbers of the first and last rules that the report prints for a relay; (1, 0) for none.
std::pair<int, int> ReglesImprimees(int id_protection);

// The columns of a relay's settings under that head, in Pas from the frame's left.
inline constexpr int COLONNE_SECONDAIRE_REGLAGES = 50;
inline constexpr int COLONNE_PRIMAIRE_REGLAGES = 80;
inline constexpr int COLONNE_POURCENTAGE_REGLAGES = 108;
// The head of a relay's settings in CadreSuite ("settings" and its three columns) and one row.
void ImprimerTeteReglages(ContexteImpression& c);
void ImprimerLigneReglage(ContexteImpression& c, const std::string& libelle,
                          const std::string& secondaire, const std::string& primaire,
                          const std::string& pourcentage);

// The ohm sign after a value: " Ω" one point smaller than the text around it.
void EcrireOhm(Page& page);

// One cell of a row of a settings page: its text at column n (AllerColonne), then the ohm
// sign where it is an impedance, then what follows it ("/ph", " P").
struct CelluleReglage {
    int Colonne = 0;
    std::string Texte{};
    bool Ohm = false;
    std::string Suite{};
};
// A row of cells in that size (the settings' size by default), then the pen to the next line.
void ImprimerCellules(ContexteImpression& c, const std::vector<CelluleReglage>& cellules,
                      double taille = 10.0);

// Each relay registers its print routine: its diagnostics, then its pages from page 2 on.
using ImpressionRelais = void (*)(ContexteImpression&);
void InscrireImpressionRelais(int id_protection, ImpressionRelais impression);
ImpressionRelais ImpressionInscrite(int id_protection);
// The current relay's routine, or, for a relay without one, the diagnostics and the line
// characteristics page as every relay prints them.
void ImprimerRelais(ContexteImpression& c);
void ImpressionSansReglages(ContexteImpression& c);

// "Short Date - Short Time" of a moment: dd/mm/yyyy - hh:mm.
std::string DateHeureCourte(std::time_t moment);

struct OptionsImpression {
    TextesReglesRapport textesRegles;
    DessinPlan dessin;     // what the working window draws; the plain diagram when empty
    std::string dateHeure; // now when empty
};

// A study made ready for the whole report, as the command line prints it: the colours and
// print choices of a new settings file, then every part and one copy, the ideal zoom when the
// study has no scale of its own, and the title of its report case when it has none.
void PreparerRapport(Etude& e);

// The print of a single relay: ImpCopies copies (0 prints one), each a document of the parts
// that ImpParties choose; Escape (ArretImpression) aborts the copy under way and the rest.
// Does nothing when ArretImpression is already set.
void Imprimer(Etude& e, Dialogue& d, Page& page, EtatImpression& etat,
              const OptionsImpression& options);

} // namespace tournesol
