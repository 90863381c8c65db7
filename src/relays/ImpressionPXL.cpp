#include "relays/ImpressionPXL.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "printing/Impression.h"

#include <string>
#include <vector>

namespace tournesol {

namespace {

constexpr double TAILLE = 10.0;
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

} // namespace

void ImprimerReglagesPXL(ContexteImpression& c, const ReglagesImprimesPXL& r) {
    const Etude& e = c.e;
    Page& page = c.page;
    ImprimerTeteReglages(c);
    page.ALaLigne();
    page.ChoisirGras(true);
    Rangee(c, {{0, "Maximal detectable resistance on slow measurement"}});
    page.ChoisirGras(false);
    Ohms(c, "phase to earth loop", r.ResistancesBT[0], r.ResistancesHT[0], "/l.");
    Ohms(c, "phase to phase loop", r.ResistancesBT[1], r.ResistancesHT[1], "/l.");
    page.ChoisirGras(true);
    Rangee(c, {{0, "Maximal detectable resistance on quick measurement"}});
    page.ChoisirGras(false);
    Ohms(c, "phase to earth loop", r.ResistancesBT[2], r.ResistancesHT[2], "/l.");
    Ohms(c, "phase to phase loop", r.ResistancesBT[3], r.ResistancesHT[3], "/l.");
    AvancerProgression(c.e, c.etat, 1);
    page.ALaLigne();
    static const char* const zones[5] = {"First zone reactance", "Second zone reactance",
                                         "Third zone reactance", "Forward pick up reactance",
                                         "Backward pick up reactance"};
    for (std::size_t i = 0; i < 5; ++i)
        Ohms(c, zones[i], r.ZonesBT[i], r.ZonesHT[i], "/ph.",
             FormaterNombre(r.Pourcentages[i], FORMAT_POURCENT) + " %");
    AvancerProgression(c.e, c.etat, 1);
    const double z1 = r.ZonesHT[0];
    Rangee(c, {{0, "Ratio R/X on the limit of first zone reach (quick)"},
               {COLONNE_PRIMAIRE_REGLAGES,
                z1 == 0.0 ? std::string() : FormaterNombre(r.ResistancesHT[2] / z1, "#0.##")}});
    Ohms(c, "Out of step bandwidth", r.BandeBT, r.BandeHT, "/ph.");
    page.ALaLigne();
    Tempo(c, "First step timer", e.T1);
    Tempo(c, "Second step timer", e.T2);
    Tempo(c, "3rd step timer", e.T3);
    Tempo(c, "4th step timer", e.T4);
    AvancerProgression(c.e, c.etat, 1);
}

} // namespace tournesol
