#include "relays/pxln/CalculPXLN.h"

#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "network/Transit.h"
#include "relays/FamillePXL.h"

namespace tournesol {

void DefautsPXLN(Etude& e) {
    RelaisPXLN& r = e.PXLN;
    DefautsPXL(e, r);
    r.OptIp = r.OptIi = r.OptIo = true;
    r.Ip_pct = 20.0;
    r.Ii_pct = 20.0;
    r.Io_pct = 4.0;
    r.TempoBlocage = 4000.0;
    r.VerrEmission = r.VerrReception = false;
    r.TypeDecl = 1;
    r.Capacitif = true;
}

double DistanceTransitPXLN(Etude& e, Dialogue& d) {
    return DistanceTransitPXL(e, d, e.PXLN.XPct[2]);
}

void ResistancesPXLN(Etude& e, double distance) {
    ResistancesPXL(e, e.PXLN, distance);
}

void ResistancesPrimairesPXLN(Etude& e) {
    ResistancesPrimairesPXL(e, e.PXLN);
}

void CalculPompagePXLN(Etude& e, Dialogue& d) {
    CalculPompagePXL(e, e.PXLN, d);
}

void RapportRsurXPXLN(Etude& e) {
    RapportRsurXPXL(e, e.PXLN);
}

void CalculZonesPXLN(Etude& e) {
    CalculZonesPXL(e, e.PXLN);
}

void CalculDiagPXLN(Etude& e) {
    RelaisPXLN& r = e.PXLN;
    ZonesEnOhmsPXL(e, r);
    const auto& z = r.ZonesHT;
    TransformateursDesBouts(e);
    EffacerReglesRelais(e, ID_PXLN);
    DefinirRegle(e, 44, 1.2 * z[1] > z[3], 1.2 * z[1]);
    const double avant = 0.8 * e.XtrDistant + 0.9 * e.XL_eq;
    DefinirRegle(e, 45, avant < 1.15 * z[3], avant / 1.15);
    DefinirRegle(e, 46, avant < 1.15 * (r.deltaR_HT + z[3]), avant / 1.15);
    const double arriere = 0.8 * e.XtrProche;
    DefinirRegle(e, 47, arriere < 1.15 * z[4], arriere / 1.15);
    DefinirRegle(e, 48, arriere < 1.15 * (r.deltaR_HT + z[4]), arriere / 1.15);
    // Coordination with the relay at the far end, on a long line, as for every relay.
    const double oppose = 1.3 * e.Ligne_X1PB - 1.06 * e.XL_eq;
    DefinirRegle(e, 49, e.Ligne_lc && oppose > z[4], oppose);
}

double DemiLargeurPXLN(const Etude& e) {
    return DemiLargeurPXL(e.PXLN);
}

} // namespace tournesol
