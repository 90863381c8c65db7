#include "relays/pxlc/CalculPXLC.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "diagnostics/Diagnostics.h"

namespace tournesol {

void DefautsPXLC(Etude& e) {
    RelaisPXLC& r = e.PXLC;
    r.deltaF = 2.0;
    r.ZonesBloquees = 2;
    r.TypeDecl = 1;
    r.FeuilleReglages = true;
}

void CalculPompagePXLC(Etude& e, Dialogue& d) {
    CalculPompagePXL(e, e.PXLC, d, PAS_PXLC);
}

void ResistancesPrimairesPXLC(Etude& e) {
    ResistancesPrimairesPXL(e, e.PXLC);
}

void CalculZonesPXLC(Etude& e) {
    CalculZonesPXL(e, e.PXLC, PAS_PXLC);
}

void RapportRsurXPXLC(Etude& e) {
    RapportRsurXPXL(e, e.PXLC);
}

void ResistancesDepuisBandePXLC(Etude& e, Dialogue& d) {
    ResistancesDepuisBandePXL(e, e.PXLC, d, PAS_PXLC);
}

void CalculDiagPXLC(Etude& e) {
    RelaisPXLC& r = e.PXLC;
    ZonesEnOhmsPXL(e, r);
    EffacerReglesRelais(e, ID_PXLC);
    ReglesCommunesPXL(e, REGLES_PXLC, r.ZonesHT, r.deltaR_HT);
}

double DemiLargeurPXLC(const Etude& e) {
    return DemiLargeurPXL(e.PXLC);
}

std::vector<std::pair<std::string, std::string>> FeuilleReglagesPXLC(const Etude& e) {
    const RelaisPXLC& r = e.PXLC;
    std::vector<std::pair<std::string, std::string>> f{
        {"PXLC-PSEL setting sheet", ""},
        {"", ""},
        {"Rated secondary current", FormaterNombre(e.Is, "#0") + " A"},
        {"Out of step band deltaR", FormaterNombre(r.deltaR_BT, "#0.0") + " ohm"},
        {"Phase to earth loop resistance", FormaterNombre(r.Rmoc_BT, "##0") + " ohm"},
        {"Phase to phase loop resistance", FormaterNombre(r.Rbic_BT, "##0") + " ohm"},
    };
    static const char* const zones[5] = {"X1", "X2", "X3", "Xav", "Xar"};
    for (std::size_t i = 0; i < 5; ++i)
        f.push_back({std::string("Reach ") + zones[i], FormaterNombre(r.XPct[i], "##0") + " %"});
    const Entier16 tempos[4] = {e.T1, e.T2, e.T3, e.T4};
    for (std::size_t i = 0; i < 4; ++i)
        f.push_back({"Timer T" + std::to_string(i + 1), FormaterNombre(tempos[i], "###0") + " ms"});
    f.push_back({"Signalling scheme", !e.Teleaction    ? "none"
                                      : e.Acceleration ? "acceleration"
                                                       : "blocking overreach"});
    f.push_back({"Single phase tripping", r.TypeDecl == 1 ? "zone 1" : "none"});
    return f;
}

} // namespace tournesol
