#include "relays/pxln/CalculPXLN.h"

#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "network/Transit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tournesol {

namespace {

constexpr double MARGE_TRANSIT = 0.9 / 1.1;
// The out-of-step band per ohm of source and line and per hertz of slip: 3 pi / 200, the angle
// the swing travels in 15 ms at 1 Hz.
constexpr double BANDE_PAR_HERTZ = 0.0471238898038;
constexpr double RESISTANCE_MAX = 200.0;

// The distance of a load point to the line image, along R, with the margin.
double Distance(double phi, const Complexe& point) {
    return std::fabs(Div(std::sin(phi - point.Argument), std::sin(phi))) * point.Module *
           MARGE_TRANSIT;
}

// The load area of the report case in force.
void Transit(Etude& e) {
    TransitCalc(e);
    if (e.ErrCalcul != 0) LeverErreur(e.ErrCalcul);
}

// A plant link whose load lies beyond the third zone: the two first load points, else the
// generator's circle (feed 1) or the line's (feed 2).
std::vector<double> DistancesCentrale(const Etude& e) {
    const Complexe& n1 = e.PointsTransit[0];
    const Complexe& n2 = e.PointsTransit[1];
    const double hauteur = std::fabs(std::sin(n1.Argument)) * n1.Module;
    const double xprim3 = e.Ligne_Xprim3;
    const bool auDela =
        e.Ligne_alim == 1 ? xprim3 / MARGE_TRANSIT > hauteur : MARGE_TRANSIT * xprim3 > hauteur;
    if (auDela) return {Distance(e.PHI_eq, n1), Distance(e.PHI_eq, n2)};
    if (e.Ligne_alim == 1) {
        const double c = Div(1.5 * Carre(e.Vmin), e.Ligne_Pmax);
        const double d = (Racine(Carre(c) - Carre(xprim3)) + c) * MARGE_TRANSIT;
        return {d, d};
    }
    const double y = xprim3 - e.XL_eq;
    const double decalage = Div(e.XL_eq, std::tan(e.PHI_eq));
    return {Racine(Carre(n1.Module) - Carre(y)) + decalage,
            Racine(Carre(n2.Module) - Carre(y)) + decalage};
}

} // namespace

void DefautsPXLN(Etude& e) {
    RelaisPXLN& r = e.PXLN;
    r.deltaF = 2.0;
    r.OptIp = r.OptIi = r.OptIo = true;
    r.Ip_pct = 20.0;
    r.Ii_pct = 20.0;
    r.Io_pct = 4.0;
    r.TempoBlocage = 4000.0;
    r.VerrEmission = r.VerrReception = false;
    r.ZonesBloquees = 2;
    r.Td = 50.0;
    r.Signal = 2;
    e.Teleaction = true;
    r.DeclRapide = true;
    r.PorteeReduite = e.Ligne_lc;
    r.TypeDecl = 1;
    r.Capacitif = true;
}

double DistanceTransitPXLN(Etude& e, Dialogue& d) {
    const Entier16 cas = e.TypeReportCharge;
    std::vector<double> distances;
    switch (e.Ligne_alim) {
    case 0:
        // The three phase and the maximal report cases, each area pulled to its sectors.
        for (const Entier16 c : {Entier16{0}, Entier16{2}}) {
            e.TypeReportCharge = c;
            Transit(e);
            const std::array<Complexe, 9> points = PointsTransitTires(e);
            for (std::size_t i = 0; i < 6; ++i)
                distances.push_back(Distance(e.PHI_eq, points[i]));
        }
        break;
    case 1:
    case 2:
        Transit(e);
        distances = DistancesCentrale(e);
        break;
    case 3: {
        Transit(e);
        // The third zone's percentage against an impedance, as the relay's rule compares them.
        const double l = e.PointsTransit[0].Module * MARGE_TRANSIT;
        const double x3 = e.PXLN.XPct[2];
        if (l < x3) d.Message("TOURNESOL", DONNEES_INCOMPATIBLES_PXLN, 0);
        distances.push_back(Racine(std::fabs(Carre(x3) - Carre(l))) - Div(x3, std::tan(e.PHI_eq)));
        break;
    }
    default:
        LeverErreur(ERR_INDICE);
    }
    e.TypeReportCharge = cas;
    if (e.Ligne_alim == 0) Transit(e); // the area of the case in force, as it was
    return Verifier(*std::min_element(distances.begin(), distances.end()));
}

void ResistancesPXLN(Etude& e, double distance) {
    RelaisPXLN& r = e.PXLN;
    r.Rmoc_BT = std::min(PartieEntiere(Div(distance, e.Kz) - r.deltaR_BT), RESISTANCE_MAX);
    r.Rbic_BT = r.Rmoc_BT;
    r.Rmor_BT = std::min(2.0 * r.Rmoc_BT, RESISTANCE_MAX);
    r.Rbir_BT = r.Rmoc_BT;
}

void ResistancesPrimairesPXLN(Etude& e) {
    RelaisPXLN& r = e.PXLN;
    r.deltaR_HT = Verifier(r.deltaR_BT * e.Kz);
    r.Rmoc_HT = Verifier(r.Rmoc_BT * e.Kz);
    r.Rbic_HT = Verifier(r.Rbic_BT * e.Kz);
    r.Rmor_HT = Verifier(r.Rmor_BT * e.Kz);
    r.Rbir_HT = Verifier(r.Rbir_BT * e.Kz);
}

void CalculPompagePXLN(Etude& e, Dialogue& d) {
    RelaisPXLN& r = e.PXLN;
    double distance = 0.0;
    if (e.PanneauRelais) {
        distance = DistanceTransitPXLN(e, d);
        r.deltaR_HT = Verifier((e.Ligne_XS + e.XL_eq) * r.deltaF * BANDE_PAR_HERTZ);
        r.deltaR_BT = Div(r.deltaR_HT, e.Kz);
    }
    r.deltaR_BT = std::clamp(r.deltaR_BT, 0.2, 25.0);
    if (e.PanneauRelais) ResistancesPXLN(e, distance);
    ResistancesPrimairesPXLN(e);
}

void RapportRsurXPXLN(Etude& e) {
    RelaisPXLN& r = e.PXLN;
    r.RsurX = Div(r.Rmoc_HT, e.XL_eq * r.XPct[0] / 100.0);
}

void CalculZonesPXLN(Etude& e) {
    RelaisPXLN& r = e.PXLN;
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
    RapportRsurXPXLN(e);
}

void CalculDiagPXLN(Etude& e) {
    RelaisPXLN& r = e.PXLN;
    for (std::size_t i = 0; i < 5; ++i) {
        r.ZonesHT[i] = Verifier(r.XPct[i] / 100.0 * e.XL_eq);
        r.ZonesBT[i] = Div(r.ZonesHT[i], e.Kz);
    }
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
    const RelaisPXLN& r = e.PXLN;
    double l = 1.2 * r.ZonesHT[3];
    if (l < 1.2 * r.Rmoc_HT) l = 1.2 * r.Rmoc_HT;
    l = std::max(l, 1.2 * r.ZonesHT[4]);
    return std::min(l, 1000.0);
}

} // namespace tournesol
