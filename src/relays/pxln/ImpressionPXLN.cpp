#include "relays/pxln/ImpressionPXLN.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "printing/Impression.h"
#include "printing/Redacteur.h"
#include "relays/pxln/ParametresPXLN.h"

#include <string>

namespace tournesol {

namespace {

constexpr double TAILLE = 10.0;
constexpr double TAILLE_LISTING = 8.0;
constexpr const char* FORMAT_OHMS = "##0.00";
constexpr const char* FORMAT_POURCENT = "##0.##";

void Rangee(ContexteImpression& c, const std::vector<CelluleReglage>& cellules) {
    ImprimerCellules(c, cellules, TAILLE);
}

// A value in secondary ohms (per loop or per phase) and in primary ohms, and its percentage of
// the line when it has one.
void Ohms(ContexteImpression& c, const std::string& libelle, double secondaire, double primaire,
          const char* par, const std::string& pourcentage = {}) {
    std::vector<CelluleReglage> cellules{
        {0, libelle},
        {COLONNE_SECONDAIRE_REGLAGES, FormaterNombre(secondaire, FORMAT_OHMS), true, par},
        {COLONNE_PRIMAIRE_REGLAGES, FormaterNombre(primaire, FORMAT_OHMS), true, " P"}};
    if (!pourcentage.empty()) cellules.push_back({COLONNE_POURCENTAGE_REGLAGES, pourcentage});
    Rangee(c, cellules);
}

void Tempo(ContexteImpression& c, const std::string& libelle, double ms) {
    Rangee(c, {{0, libelle}, {COLONNE_PRIMAIRE_REGLAGES, FormaterNombre(ms, "###0") + " ms"}});
}

void Reglages(ContexteImpression& c) {
    const Etude& e = c.e;
    const RelaisPXLN& r = e.PXLN;
    Page& page = c.page;
    ImprimerTeteReglages(c);
    page.ALaLigne();
    page.ChoisirGras(true);
    Rangee(c, {{0, "Maximal detectable resistance on slow measurement"}});
    page.ChoisirGras(false);
    Ohms(c, "phase to earth loop", r.Rmoc_BT, r.Rmoc_HT, "/l.");
    Ohms(c, "phase to phase loop", r.Rbic_BT, r.Rbic_HT, "/l.");
    page.ChoisirGras(true);
    Rangee(c, {{0, "Maximal detectable resistance on quick measurement"}});
    page.ChoisirGras(false);
    Ohms(c, "phase to earth loop", r.Rmor_BT, r.Rmor_HT, "/l.");
    Ohms(c, "phase to phase loop", r.Rbir_BT, r.Rbir_HT, "/l.");
    AvancerProgression(c.e, c.etat, 1);
    page.ALaLigne();
    static const char* const zones[5] = {"First zone reactance", "Second zone reactance",
                                         "Third zone reactance", "Forward pick up reactance",
                                         "Backward pick up reactance"};
    for (std::size_t i = 0; i < 5; ++i)
        Ohms(c, zones[i], r.ZonesBT[i], r.ZonesHT[i], "/ph.",
             FormaterNombre(r.XPct[i], FORMAT_POURCENT) + " %");
    AvancerProgression(c.e, c.etat, 1);
    const double z1 = r.ZonesHT[0];
    Rangee(c, {{0, "Ratio R/X on the limit of first zone reach (quick)"},
               {COLONNE_PRIMAIRE_REGLAGES,
                z1 == 0.0 ? std::string() : FormaterNombre(r.Rmor_HT / z1, "#0.##")}});
    Ohms(c, "Out of step bandwidth", r.deltaR_BT, r.deltaR_HT, "/ph.");
    page.ALaLigne();
    Tempo(c, "First step timer", e.T1);
    Tempo(c, "Second step timer", e.T2);
    Tempo(c, "3rd step timer", e.T3);
    Tempo(c, "4th step timer", e.T4);
    AvancerProgression(c.e, c.etat, 1);
}

// The listing of the relay's setting tool, on pages of text.
void Listing(ContexteImpression& c) {
    Etude& e = c.e;
    DebutProgression(e, c.etat, 2, "Page 3 : Settings");
    CommencerPage(c, GenrePage::Texte);
    c.page.ChoisirTaille(TAILLE_LISTING);
    c.page.ChoisirGras(false);
    Redacteur redacteur(c, &CadresPage::CadreTexte, GenrePage::Texte);
    const std::vector<LigneListing> lignes = ListingPXLN(e);
    bool suite = false;
    for (const LigneListing& ligne : lignes) {
        if (e.ArretImpression) return;
        if (ligne.empty())
            redacteur.LigneVide();
        else
            redacteur.Ligne(ligne);
        if (!suite && redacteur.PagesTournees() > 0) {
            suite = true;
            AvancerProgression(e, c.etat, 1);
            DebutProgression(e, c.etat, 1, "Page 4 : Settings");
        }
    }
    AvancerProgression(e, c.etat, 1);
}

} // namespace

void ImprimerPXLN(ContexteImpression& c) {
    ImpressionSansReglages(c);
    Etude& e = c.e;
    if (e.ArretImpression) return;
    if (DoitImprimer(e)) {
        DebutProgression(e, c.etat, 3, "Page 2 : settings");
        Reglages(c);
    }
    if (e.ArretImpression) return;
    ++e.PageImpression;
    if (DoitImprimer(e)) Listing(c);
}

} // namespace tournesol
