// The rules the PXL family's relays (PXLN, PXLP, PXLC-PSEL) share: reaches in percent of the
// line reactance, loop resistances from the load area, an out-of-step band from the slip, and
// the same parallelograms on the plane. Each relay's record holds these settings under the same
// names; the routines take the record. The digital PXLN and PXLP measure the resistance twice
// (a classic and a quick criterion, four resistances); the static PXLC has the classic one only,
// and its own steps (`PasPXL`).
#pragma once

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "diagram/Plan.h"
#include "relays/ChampRelais.h"

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
inline constexpr double BANDE_MAX_PXL = 25.0;

// The steps and ranges of one relay of the family; the defaults are the digital relays'.
struct PasPXL {
    bool PourcentsEntiers = false; // reaches in whole per cents, else in tenths
    double Bande = 0.0;            // the band's step in secondary ohms, none when 0
    double BandeMin = 0.2;
    double ResistanceMax = RESISTANCE_MAX_PXL;
    double Tempo = 0.0; // the timers' step in ms, none when 0
};

// The relays that measure the resistance a second time, quickly (Rmor, Rbir).
template <class R>
concept CritereRapidePXL = requires(R r) {
    r.Rmor_BT;
    r.Rbir_BT;
};

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

// The resistances from the distance D to the load area and the band: Rmoc the whole part of
// D / Kz less the band, at most the relay's limit, Rbic (and Rbir) equal to it, Rmor twice it,
// at most the limit. A relay with whole steps never goes below 0.
template <class R>
void ResistancesPXL(const Etude& e, R& r, double distance, const PasPXL& pas = {}) {
    r.Rmoc_BT = std::min(PartieEntiere(Div(distance, e.Kz) - r.deltaR_BT), pas.ResistanceMax);
    if (pas.PourcentsEntiers) r.Rmoc_BT = std::max(r.Rmoc_BT, 0.0);
    r.Rbic_BT = r.Rmoc_BT;
    if constexpr (CritereRapidePXL<R>) {
        r.Rmor_BT = std::min(2.0 * r.Rmoc_BT, pas.ResistanceMax);
        r.Rbir_BT = r.Rmoc_BT;
    }
}

// The primary images of the band and of the resistances.
template <class R> void ResistancesPrimairesPXL(const Etude& e, R& r) {
    r.deltaR_HT = Verifier(r.deltaR_BT * e.Kz);
    r.Rmoc_HT = Verifier(r.Rmoc_BT * e.Kz);
    r.Rbic_HT = Verifier(r.Rbic_BT * e.Kz);
    if constexpr (CritereRapidePXL<R>) {
        r.Rmor_HT = Verifier(r.Rmor_BT * e.Kz);
        r.Rbir_HT = Verifier(r.Rbir_BT * e.Kz);
    }
}

// The out-of-step sheet's step: in mode "Return" the band from the slip and the resistances from
// the load area; in every mode the band taken to the relay's step within its range (0.2 to 25
// secondary ohms on the digital relays) and its primary image.
template <class R> void CalculPompagePXL(Etude& e, R& r, Dialogue& d, const PasPXL& pas = {}) {
    double distance = 0.0;
    if (e.PanneauRelais) {
        distance = DistanceTransitPXL(e, d, r.XPct[2]);
        r.deltaR_HT = Verifier((e.Ligne_XS + e.XL_eq) * r.deltaF * BANDE_PAR_HERTZ_PXL);
        r.deltaR_BT = Div(r.deltaR_HT, e.Kz);
    }
    r.deltaR_BT = std::clamp(ArrondirAuPas(r.deltaR_BT, pas.Bande, ModeArrondi::Proche),
                             pas.BandeMin, BANDE_MAX_PXL);
    if (e.PanneauRelais) ResistancesPXL(e, r, distance, pas);
    ResistancesPrimairesPXL(e, r);
}

// deltaR changed by hand: the resistances again from the load area, and their primary images.
template <class R>
void ResistancesDepuisBandePXL(Etude& e, R& r, Dialogue& d, const PasPXL& pas = {}) {
    ResistancesPXL(e, r, DistanceTransitPXL(e, d, r.XPct[2]), pas);
    ResistancesPrimairesPXL(e, r);
}

// Rmoc_HT over the first zone's reactance.
template <class R> void RapportRsurXPXL(const Etude& e, R& r) {
    r.RsurX = Div(r.Rmoc_HT, e.XL_eq * r.XPct[0] / 100.0);
}

// The zone percentages from the line in mode "Return" (the backward one kept clear of the
// resistance), then the ratio R/X. The first and third zones are taken down to the relay's step,
// the second one step up; on whole per cents the third zone of a teed line goes down and the
// backward pick-up up as well.
template <class R> void CalculZonesPXL(const Etude& e, R& r, const PasPXL& pas = {}) {
    auto& x = r.XPct;
    if (e.PanneauRelais) {
        const double xl = e.XL_eq;
        const double n = pas.PourcentsEntiers ? 1.0 : 10.0; // steps per per cent
        x[0] = std::min(PartieEntiere(Div(100.0 * n * e.Ligne_Xprim1, xl)) / n, 200.0);
        x[1] = std::min(PartieEntiere(Div(100.0 * n * e.Ligne_Xprim2, xl) + 1.0) / n, 500.0);
        x[2] =
            e.Ligne_Tl == 3 ? 1.25 * x[1] : PartieEntiere(Div(100.0 * n * e.Ligne_Xprim3, xl)) / n;
        if (pas.PourcentsEntiers) x[2] = PartieEntiere(x[2]);
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
        if (pas.PourcentsEntiers) x[4] = std::ceil(x[4]);
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

// The rules of the setting guide every relay of the family has, on its reaches in primary ohms
// and its band, numbered by the relay:
//   [0] the third zone at least 1.2 times the second;
//   [1] the forward pick-up, [2] the forward pick-up widened by the band, against the forward
//       side limit;
//   [3] the backward pick-up, [4] the backward pick-up widened by the band, against the backward
//       side limit;
//   [5] on a long line, the backward pick-up at least the coordination margin.
void ReglesCommunesPXL(Etude& e, const std::array<int, 6>& numeros,
                       const std::array<double, 5>& zonesHT, double bande);
// Their texts, in the report and in the window.
std::vector<TexteRegle> TextesReglesCommunesPXL(const std::array<int, 6>& numeros);

// The reaches in ohms worked out again from the percentages read back from the store; a Kz of
// zero (a line not computed yet) leaves the secondary ones 0.
template <class R> void ZonesLuesPXL(const Etude& e, R& r) {
    for (std::size_t i = 0; i < 5; ++i) {
        r.ZonesHT[i] = r.XPct[i] / 100.0 * e.XL_eq;
        r.ZonesBT[i] = e.Kz == 0.0 ? 0.0 : r.ZonesHT[i] / e.Kz;
    }
}

// The characteristic of a relay of the family from its record's set values.
template <class R> void DessinerRelaisPXL(Plan& plan, const OptionsAffichage& options, const R& r) {
    DessinerPXL(plan, options, SegmentsPXL(plan.etude(), r.Rmoc_HT, r.deltaR_HT, r.ZonesHT));
}

// The resistance and reaches of the short settings page, in primary ohms.
template <class R> std::vector<ValeurResumee> ResumePXL(const R& r) {
    return {{"Maximal detectable resistance", r.Rmoc_HT}, {"First zone reach", r.ZonesHT[0]},
            {"Second zone reach", r.ZonesHT[1]},          {"Third zone reach", r.ZonesHT[2]},
            {"Forward pick up reach", r.ZonesHT[3]},      {"Backward reach", r.ZonesHT[4]}};
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
