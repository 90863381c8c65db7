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
    ResistancesDepuisBandePXL(e, e.PXLP, d);
}

void CalculDiagPXLP(Etude& e) {
    RelaisPXLP& r = e.PXLP;
    ZonesEnOhmsPXL(e, r);
    const auto& z = r.ZonesHT;
    const MargesGuide m = Marges(e);
    EffacerReglesRelais(e, ID_PXLP);
    ReglesCommunesPXL(e, REGLES_COMMUNES_PXLP, z, r.deltaR_HT);
    DefinirRegle(e, 36, m.Rf < 1.15 * z[2], m.Rf / 1.15);
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
