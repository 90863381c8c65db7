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
    auto resistances = [&](const char* titre, std::size_t premiere) {
        page.ChoisirGras(true);
        Rangee(c, {{0, titre}});
        page.ChoisirGras(false);
        Ohms(c, "phase to earth loop", r.ResistancesBT[premiere], r.ResistancesHT[premiere], "/l.");
        Ohms(c, "phase to phase loop", r.ResistancesBT[premiere + 1], r.ResistancesHT[premiere + 1],
             "/l.");
    };
    if (r.CritereRapide) {
        resistances("Maximal detectable resistance on slow measurement", 0);
        resistances("Maximal detectable resistance on quick measurement", 2);
    } else {
        resistances("Maximal detectable resistance", 0);
    }
    AvancerProgression(c.e, c.etat, 1);
    page.ALaLigne();
    static const char* const zones[5] = {"First zone reactance", "Second zone reactance",
                                         "Third zone reactance", "Forward pick up reactance",
                                         "Backward pick up reactance"};
    for (std::size_t i = 0; i < 5; ++i)
        Ohms(c, zones[i], r.ZonesBT[i], r.ZonesHT[i], "/ph.",
             FormaterNombre(r.Pourcentages[i], r.PourcentsEntiers ? "##0" : FORMAT_POURCENT) +
                 " %");
    AvancerProgression(c.e, c.etat, 1);
    // R/X with the resistance of the quickest measurement the relay has.
    const double z1 = r.ZonesHT[0];
    const double resistance = r.ResistancesHT[r.CritereRapide ? 2 : 0];
    Rangee(c, {{0, r.CritereRapide ? "Ratio R/X on the limit of first zone reach (quick)"
                                   : "Ratio R/X on the limit of first zone reach"},
               {COLONNE_PRIMAIRE_REGLAGES,
                z1 == 0.0 ? std::string() : FormaterNombre(resistance / z1, "#0.##")}});
    Ohms(c, "Out of step bandwidth", r.BandeBT, r.BandeHT, "/ph.");
    page.ALaLigne();
    Tempo(c, "First step timer", e.T1);
    Tempo(c, "Second step timer", e.T2);
    Tempo(c, "3rd step timer", e.T3);
    Tempo(c, "4th step timer", e.T4);
    if (!r.Options.empty()) page.ALaLigne();
    for (const auto& [nom, valeur] : r.Options)
        Rangee(c, {{0, nom}, {COLONNE_SECONDAIRE_REGLAGES, valeur}});
    AvancerProgression(c.e, c.etat, 1);
}

} // namespace tournesol
