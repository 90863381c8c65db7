#include "relays/pxlp/CalculPXLP.h"

#include "core/Etude.h"
#include "diagnostics/Diagnostics.h"
#include "diagnostics/ReglesGuide.h"
#include "relays/FamillePXL.h"

#include <cmath>

namespace tournesol {

void DefautsPXLP(Etude& e) {
    DefautsPXL(e, e.PXLP);
}

void CalculPompagePXLP(Etude& e, Dialogue& d) {
    CalculPompagePXL(e, e.PXLP, d);
}

void ResistancesPrimairesPXLP(Etude& e) {
    ResistancesPrimairesPXL(e, e.PXLP);
}

void CalculZonesPXLP(Etude& e) {
    CalculZonesPXL(e, e.PXLP);
}

void RapportRsurXPXLP(Etude& e) {
    RapportRsurXPXL(e, e.PXLP);
}

void ResistancesDepuisBandePXLP(Etude& e, Dialogue& d) {
    ResistancesPXL(e, e.PXLP, DistanceTransitPXL(e, d, e.PXLP.XPct[2]));
    ResistancesPrimairesPXL(e, e.PXLP);
}

void CalculDiagPXLP(Etude& e) {
    RelaisPXLP& r = e.PXLP;
    ZonesEnOhmsPXL(e, r);
    const auto& z = r.ZonesHT;
    const MargesGuide m = Marges(e);
    const double bande = r.deltaR_HT;
    EffacerReglesRelais(e, ID_PXLP);
    DefinirRegle(e, 35, 1.2 * z[1] > z[2], 1.2 * z[1]);
    DefinirRegle(e, 36, m.Rf < 1.15 * z[2], m.Rf / 1.15);
    DefinirRegle(e, 37, m.Rf < 1.15 * z[3], m.Rf / 1.15);
    DefinirRegle(e, 38, m.Rf < 1.15 * (bande + z[3]), m.Rf / 1.15);
    DefinirRegle(e, 39, m.Rb < 1.15 * z[4], m.Rb / 1.15);
    DefinirRegle(e, 40, m.Rb < 1.15 * (bande + z[4]), m.Rb / 1.15);
    DefinirRegle(e, 41, e.Ligne_lc && z[4] < m.T, m.T);
    // The corners of the pick-up lie off the X axis: their reach is taken along the line.
    const double t = std::tan(e.PHI_eq);
    const double coinAvant = std::hypot(r.Rmoc_HT + Div(z[3], t), z[3]) * m.S;
    const double coinArriere = std::hypot(r.Rmoc_HT + Div(z[4], t), z[4]) * m.S;
    DefinirRegle(e, 42, m.Rf < 1.15 * coinAvant, m.Rf / 1.15);
    DefinirRegle(e, 43, m.Rb < 1.15 * coinArriere, m.Rb / 1.15);
}

double DemiLargeurPXLP(const Etude& e) {
    return DemiLargeurPXL(e.PXLP);
}

} // namespace tournesol
