// The rules the PXL family's relays (PXLN, PXLP) share: reaches in percent of the line
// reactance, four loop resistances from the load area, an out-of-step band from the slip, and
// the same parallelograms on the plane. Each relay's record holds these settings under the same
// names; the routines take the record.
#pragma once

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagram/Plan.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace tournesol {

class Dialogue;

// The text shown on a link toward a customer whose third zone does not fit the load area.
inline constexpr const char* DONNEES_INCOMPATIBLES_PXL = "incompatible data";
// The out-of-step band per ohm of source and line and per hertz of slip: 3 pi / 200, the angle
// the swing travels in 15 ms at 1 Hz.
inline constexpr double BANDE_PAR_HERTZ_PXL = 0.0471238898038;
inline constexpr double RESISTANCE_MAX_PXL = 200.0;

// The defaults the family's panels take in mode "Return": slip 2 Hz, zones 3, 4, 5 blocked
// during a swing, Td 50 ms, the signal elaborated by the second zone, signalling with quick
// tripping, the acceleration (reduced reach) on a long line.
template <class R> void DefautsPXL(Etude& e, R& r) {
    r.deltaF = 2.0;
    r.ZonesBloquees = 2;
    r.Td = 50.0;
    r.Signal = 2;
    e.Teleaction = true;
    r.DeclRapide = true;
    r.PorteeReduite = e.Ligne_lc;
}

// The smallest distance of the load area to the line image, along R, with the margin 0.9 / 1.1,
// by the feed of the line: over the three phase and the maximal report cases on a meshed line,
// the generator's area on a plant link, the third zone's percentage x3 against the load on a
// customer link (where "incompatible data" is shown when it does not fit). The report case in
// force and its area are put back afterwards.
double DistanceTransitPXL(Etude& e, Dialogue& d, double x3);

// The four resistances from the distance D to the load area and the band: Rmoc the whole part
// of D / Kz less the band, at most 200, Rbic and Rbir equal to it, Rmor twice it, at most 200.
template <class R> void ResistancesPXL(const Etude& e, R& r, double distance) {
    r.Rmoc_BT = std::min(PartieEntiere(Div(distance, e.Kz) - r.deltaR_BT), RESISTANCE_MAX_PXL);
    r.Rbic_BT = r.Rmoc_BT;
    r.Rmor_BT = std::min(2.0 * r.Rmoc_BT, RESISTANCE_MAX_PXL);
    r.Rbir_BT = r.Rmoc_BT;
}

// The primary images of the band and of the four resistances.
template <class R> void ResistancesPrimairesPXL(const Etude& e, R& r) {
    r.deltaR_HT = Verifier(r.deltaR_BT * e.Kz);
    r.Rmoc_HT = Verifier(r.Rmoc_BT * e.Kz);
    r.Rbic_HT = Verifier(r.Rbic_BT * e.Kz);
    r.Rmor_HT = Verifier(r.Rmor_BT * e.Kz);
    r.Rbir_HT = Verifier(r.Rbir_BT * e.Kz);
}

// The out-of-step sheet's step: in mode "Return" the band from the slip and the four resistances
// from the load area; in every mode the band within 0.2 to 25 secondary ohms and its primary
// image.
template <class R> void CalculPompagePXL(Etude& e, R& r, Dialogue& d) {
    double distance = 0.0;
    if (e.PanneauRelais) {
        distance = DistanceTransitPXL(e, d, r.XPct[2]);
        r.deltaR_HT = Verifier((e.Ligne_XS + e.XL_eq) * r.deltaF * BANDE_PAR_HERTZ_PXL);
        r.deltaR_BT = Div(r.deltaR_HT, e.Kz);
    }
    r.deltaR_BT = std::clamp(r.deltaR_BT, 0.2, 25.0);
    if (e.PanneauRelais) ResistancesPXL(e, r, distance);
    ResistancesPrimairesPXL(e, r);
}

// Rmoc_HT over the first zone's reactance.
template <class R> void RapportRsurXPXL(const Etude& e, R& r) {
    r.RsurX = Div(r.Rmoc_HT, e.XL_eq * r.XPct[0] / 100.0);
}

// The zone percentages from the line in mode "Return" (the backward one kept clear of the
// resistance), then the ratio R/X.
template <class R> void CalculZonesPXL(const Etude& e, R& r) {
    auto& x = r.XPct;
    if (e.PanneauRelais) {
        const double xl = e.XL_eq;
        x[0] = std::min(PartieEntiere(Div(1000.0 * e.Ligne_Xprim1, xl)) / 10.0, 200.0);
        x[1] = std::min(PartieEntiere(Div(1000.0 * e.Ligne_Xprim2, xl) + 1.0) / 10.0, 500.0);
        x[2] =
            e.Ligne_Tl == 3 ? 1.25 * x[1] : PartieEntiere(Div(1000.0 * e.Ligne_Xprim3, xl)) / 10.0;
        x[2] = std::min(x[2], 1000.0);
        x[3] = x[2];
        x[4] = x[3] - 100.0;
        // The backward reach is kept clear of the resistance: a quarter of Rmoc, or 1.1 times
        // the reactance where the pick-up's side at 30 degrees meets the line's image.
        const double ohmsParPourcent = Div(xl, e.Kz) / 100.0;
        const double b = x[4] * ohmsParPourcent;
        const double t = std::tan(e.PHI_eq);
        const double t30 = std::tan(PI / 6.0);
        const double quart = r.Rmoc_BT / 4.0;
        const double rencontre = Div(r.Rmoc_BT * t * t30, t30 + t);
        if (quart > b || rencontre > b)
            x[4] = Div(rencontre < quart ? quart : 1.1 * rencontre, ohmsParPourcent);
        x[4] = std::min(x[4], 200.0);
    }
    RapportRsurXPXL(e, r);
}

// The five reaches in primary and secondary ohms from their percentages.
template <class R> void ZonesEnOhmsPXL(const Etude& e, R& r) {
    for (std::size_t i = 0; i < 5; ++i) {
        r.ZonesHT[i] = Verifier(r.XPct[i] / 100.0 * e.XL_eq);
        r.ZonesBT[i] = Div(r.ZonesHT[i], e.Kz);
    }
}

// The half width of the plane fitted on OK, in primary ohms: 1.2 times the largest of the
// forward pick-up, Rmoc and the backward pick-up, at most 1000.
template <class R> double DemiLargeurPXL(const R& r) {
    double l = 1.2 * r.ZonesHT[3];
    if (l < 1.2 * r.Rmoc_HT) l = 1.2 * r.Rmoc_HT;
    l = std::max(l, 1.2 * r.ZonesHT[4]);
    return std::min(l, 1000.0);
}

// The characteristic in primary ohms, in the order it is laid: the directional line, the
// forward and backward pick-up parallelogram, the out-of-step parallelogram around it by the
// band, then the limits of zones 1, 2 and 3.
std::vector<SegmentImage> SegmentsPXL(const Etude& e, double rmoc, double bande,
                                      const std::array<double, 5>& zonesHT);

// Draws them, each whose colour is shown.
void DessinerPXL(Plan& plan, const OptionsAffichage& options,
                 const std::vector<SegmentImage>& segments);

} // namespace tournesol
