#include "relays/pds/CalculPDS.h"

#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "network/Transit.h"
#include "relays/ChampRelais.h"
#include "relays/pd3a/CalculPD3A.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tournesol {

namespace {

constexpr double MARGE_TRANSIT = 0.9 / 1.1;
constexpr double INFINI = std::numeric_limits<double>::infinity();

double Unite(const Etude& e) {
    return Div(5.0, e.Is);
}

// The load area of the current report case, and the reach it allows.
double PorteeDuCas(Etude& e, double zar) {
    TransitCalc(e);
    if (e.ErrCalcul != 0) LeverErreur(e.ErrCalcul);
    return PorteeTransitPDS(e, zar);
}

} // namespace

Prise PrisePDS(double& desire, double unite, bool versLeBas) {
    // A reach that is no number has no plug: a failure, not a percentage out of nothing.
    if (!std::isfinite(desire) || !std::isfinite(unite)) LeverErreur(ERR_DEPASSEMENT);
    const double bas = BASES_PDS.front() * unite * PCT_MIN_PDS / 100.0;
    const double haut = BASES_PDS.back() * unite;
    desire = std::clamp(desire, bas, haut);
    Prise p;
    for (const double b : BASES_PDS) {
        p.Base = b * unite;
        // The smallest range that holds the reach gives the finest percentage.
        if (desire <= p.Base * (1.0 + 1e-12)) break;
    }
    const double pct = ArrondirAuPas(100.0 * desire / p.Base, 1.0,
                                     versLeBas ? ModeArrondi::Dessous : ModeArrondi::Dessus);
    p.Pct = std::clamp(static_cast<int>(pct), PCT_MIN_PDS, 100);
    return p;
}

void ArrondirZonesPDS(Etude& e) {
    RelaisPDS& r = e.PDS;
    const double unite = Unite(e);
    const Prise p1 = PrisePDS(e.X1_BT, unite, true);
    const Prise p2 = PrisePDS(e.X2_BT, unite, false);
    r.BaseX1 = p1.Base;
    r.PctX1 = static_cast<Entier16>(p1.Pct);
    r.BaseX2 = p2.Base;
    r.PctX2 = static_cast<Entier16>(p2.Pct);
    e.X1reg_BT = p1.Reglage();
    e.X2reg_BT = p2.Reglage();
    e.X1_HT = Verifier(e.X1_BT * e.Kz);
    e.X2_HT = Verifier(e.X2_BT * e.Kz);
    e.X1reg_HT = Verifier(e.X1reg_BT * e.Kz);
    e.X2reg_HT = Verifier(e.X2reg_BT * e.Kz);
}

void CalculZonesPDS(Etude& e) {
    if (e.PanneauRelais) {
        e.X1_HT = e.Ligne_Xprim1;
        e.X2_HT = e.Ligne_Xprim2;
    }
    e.X1_BT = Div(e.X1_HT, e.Kz);
    e.X2_BT = Div(e.X2_HT, e.Kz);
    ArrondirZonesPDS(e);
}

void AngleEtTerrePDS(Etude& e) {
    if (e.PanneauRelais) {
        e.teta = static_cast<float>(RadToDeg(e.PHI_eq));
        e.ko_reg = e.ko_eq;
    }
    e.teta = static_cast<float>(
        std::clamp(ArrondirAuPas(e.teta, 5.0, ModeArrondi::Proche), TETA_MIN_PDS, TETA_MAX_PDS));
    e.ko_reg = std::clamp(ArrondirAuPas(e.ko_reg, 0.1, ModeArrondi::Proche), 0.0, KO_MAX_PDS);
}

double PorteeTransitPDS(const Etude& e, double zar) {
    const std::array<Complexe, 9> points = PointsTransitTires(e);
    const double teta = DegToRad(e.teta);
    double limite = INFINI;
    for (std::size_t k = 0; k < 6; ++k) {
        // The circle through the forward reach a and the backward reach zar along
        // teta leaves out the point at distance m whose projection on teta is p
        // when m^2 - (a - zar) p - a zar > 0, that is a < (m^2 + zar p) / (p +
        // zar).
        const double m = points[k].Module * MARGE_TRANSIT;
        const double p = m * std::cos(points[k].Argument - teta);
        if (p + zar <= 0.0) continue; // behind the backward reach: no forward reach takes it in
        limite = std::min(limite, (m * m + zar * p) / (p + zar));
    }
    return limite;
}

void ArrondirDemarragePDS(Etude& e) {
    RelaisPDS& r = e.PDS;
    const Prise p = PrisePDS(e.X3_BT, Unite(e), true);
    r.BaseZav = p.Base;
    r.PctZav = static_cast<Entier16>(p.Pct);
    e.X3reg_BT = p.Reglage();
    // The offset, the first step at or above the desired backward reach, at most
    // the last one.
    e.X4_BT = std::max(e.X4_BT, 0.0);
    const double pct = 100.0 * Div(e.X4_BT, e.X3reg_BT);
    r.Decalage = static_cast<Entier16>(DECALAGES_PDS.back());
    for (const int d : DECALAGES_PDS)
        if (d >= pct - 1e-9) {
            r.Decalage = static_cast<Entier16>(d);
            break;
        }
    e.X4reg_BT = e.X3reg_BT * r.Decalage / 100.0;
    e.X3_HT = Verifier(e.X3_BT * e.Kz);
    e.X4_HT = Verifier(e.X4_BT * e.Kz);
    e.X3reg_HT = Verifier(e.X3reg_BT * e.Kz);
    e.X4reg_HT = Verifier(e.X4reg_BT * e.Kz);
}

void CalculDemarragePDS(Etude& e, Dialogue& d) {
    AngleEtTerrePDS(e);
    if (e.PanneauRelais) {
        const double s = std::sin(e.PHI_eq);
        e.X3_HT = Div(e.Ligne_Xprim3, s);
        e.X4_HT = std::max(Div(e.Ligne_Xprim3 - e.XL_eq, s), 0.0);
        e.X3_commun = e.X3_HT;
        e.X4_commun = e.X4_HT;
        double limite = INFINI;
        if (e.Ligne_alim == 0) {
            for (const Entier16 cas : {Entier16{0}, Entier16{2}, Entier16{1}}) {
                e.TypeReportCharge = cas;
                limite = std::min(limite, PorteeDuCas(e, e.X4_HT));
            }
        } else if (e.Ligne_alim == 3) {
            limite = PorteeDuCas(e, e.X4_HT);
            if (limite < e.X3_HT) d.Message("TOURNESOL", DONNEES_INCOMPATIBLES, 0);
        }
        e.PDS.ZavCharge = std::isfinite(limite) ? limite : 0.0;
        if (limite < e.X3_HT) e.X3_HT = limite;
    }
    e.X3_BT = Div(e.X3_HT, e.Kz);
    e.X4_BT = Div(e.X4_HT, e.Kz);
    ArrondirDemarragePDS(e);
}

void TemporisationsPDS(Etude& e) {
    for (Entier16* t : {&e.T2, &e.T3, &e.T4})
        *t = static_cast<Entier16>(
            ArrondirAuPas(std::clamp<double>(*t, 0.0, 9900.0), 100.0, ModeArrondi::Proche));
}

void CalculDiagPDS(Etude& e) {
    TransformateursDesBouts(e);
    EffacerReglesRelais(e, ID_PDS);
    // The reaches of the circle lie along its angle: their share along X is taken
    // with the line's angle.
    const double s = std::sin(e.PHI_eq);
    const double avant = e.X3reg_HT * s;
    const double arriere = e.X4reg_HT * s;
    DefinirRegle(e, 22, 1.2 * e.X2reg_HT > avant, 1.2 * e.X2reg_HT);
    const double rf = 0.8 * e.XtrDistant + 0.9 * e.XL_eq;
    DefinirRegle(e, 23, rf < 1.15 * avant, rf / 1.15);
    const double rb = 0.8 * e.XtrProche;
    DefinirRegle(e, 24, rb < 1.15 * arriere, rb / 1.15);
    const double oppose = 1.3 * e.Ligne_X1PB - 1.06 * e.XL_eq;
    DefinirRegle(e, 25, e.Ligne_lc && arriere < oppose, oppose);
}

double DemiLargeurPDS(const Etude& e) {
    return std::min(1.2 * std::max({e.X3reg_HT, e.X4reg_HT, e.X2reg_HT}), 1000.0);
}

} // namespace tournesol
