#include "relays/s321/CalculS321.h"

#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "network/Transit.h"
#include "relays/PanneauProtection.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tournesol {

namespace {

constexpr double DM = 0.9 / 1.1;
// The load points N1 to N6 of the area.
constexpr std::size_t POINTS_DE_CHARGE = 6;
// The timers are 16-bit integers: the relay's 40000 ms cannot be kept.
constexpr double TEMPO_MAX = 32767.0;

// The out-of-step rectangles from the load: B over the odd points for the forward side, over the
// even ones for the backward side, never larger than what a former case gave.
void BandesPompage(const std::array<Complexe, 9>& p, RelaisS321& r, bool premier) {
    for (std::size_t i = 0; i < POINTS_DE_CHARGE; ++i) {
        const double b = std::fabs(std::cos(p[i].Argument)) * DM * p[i].Module;
        double& cote = i % 2 == 0 ? r.R1R6 : r.R1L6;
        if ((premier && i < 2) || b < cote) cote = b;
    }
}

// The inner rectangle and the reactances from the outer resistances, with the margin d.
void RectanglesPompage(RelaisS321& r, double d) {
    r.R1R5 = r.R1R6 - d;
    r.R1L5 = r.R1L6 - d;
    r.X1T6 = 2.0 * r.R1R6;
    r.X1B6 = 2.0 * r.R1L6;
    r.X1T5 = r.X1T6 - d;
    r.X1B5 = r.X1B6 - d;
}

// The smallest of the impedances seen along the line's angle with the margin.
double PlusPetitF(const Etude& e, const std::array<Complexe, 9>& p) {
    double f = 0.0;
    for (std::size_t i = 0; i < POINTS_DE_CHARGE; ++i) {
        const double fi = Div(DM * p[i].Module, std::cos(e.PHI_eq - p[i].Argument));
        if (i == 0 || fi < f) f = fi;
    }
    return f;
}

std::optional<double> ChargeMaillee(Etude& e) {
    RelaisS321& r = e.S321;
    const std::array<Complexe, 9> a = PointsTransitTiresDuCas(e, 0);
    if (r.AvecPompage) BandesPompage(a, r, true);
    const double fa = PlusPetitF(e, a);
    const std::array<Complexe, 9> c = PointsTransitTiresDuCas(e, 2);
    if (r.AvecPompage) {
        BandesPompage(c, r, false);
        RectanglesPompage(r, (2.0 * e.Ligne_XSmini + 2.0 * e.Ligne_XS + e.XL_eq) * 0.1);
    }
    r.Z4MG = std::min(fa, PlusPetitF(e, c));
    r.Z3MG = r.Z4MG - e.ZL_eq;

    const std::array<Complexe, 9> m = PointsTransitTiresDuCas(e, 1);
    const double kt = e.ko_eq;
    const double km = e.kom_eq;
    const double cr = e.Ligne_CRm;
    r.KR = Div((kt - km) * 3.0 * cr + 2.0 * cr + 1.0,
               2.0 * (3.0 * kt * (cr - 1.0) + cr) * ((kt - km) + 1.0) - 4.0 * kt * (cr - 1.0));
    double rz = 0.0;
    for (std::size_t i = 0; i < POINTS_DE_CHARGE; ++i) {
        const double g =
            std::fabs(std::sin(e.PHI_eq - m[i].Argument)) * (Div(0.9, r.KR * 1.1) * m[i].Module);
        if (i == 0 || g < rz) rz = g;
    }
    return rz;
}

std::optional<double> ChargeClient(Etude& e, Dialogue& d) {
    RelaisS321& r = e.S321;
    RemettreCasDeReport(e, e.TypeReportCharge);
    const Complexe p1 = PointsTransitTires(e)[0];
    if (r.AvecPompage) {
        r.R1R6 = DM * p1.Module * std::cos(p1.Argument);
        r.R1L6 = r.R1R6;
        RectanglesPompage(r, (2.0 * e.Ligne_XSmini + 2.0 * e.Ligne_XS + e.XL_eq) * 0.1);
    }
    r.Z4MG = DM * p1.Module;
    // The relay's own test, an angle against an impedance among them, as it stands.
    if (r.Z4MG < e.ZL_eq || p1.Argument < e.ZL_eq) {
        e.sTitre = PanneauProtection::TITRE_MESSAGES;
        e.IconeMessage = PanneauProtection::ICONE_MESSAGES;
        e.sMessage = DONNEES_INCOMPATIBLES_S321;
        AfficherMessage(e, d);
    }
    r.Z3MG = r.Z4MG - e.ZL_eq;
    return std::fabs(std::sin(e.PHI_eq - p1.Argument)) * (0.9 / (3.3 / 2.0)) * p1.Module;
}

// A value in primary ohms kept within lo to hi secondary ohms.
void Borner(double& v, double kz, std::optional<double> lo, std::optional<double> hi) {
    if (lo && v < *lo * kz) v = *lo * kz;
    if (hi && v > *hi * kz) v = *hi * kz;
}

template <class T> void BornerNombre(T& v, std::optional<double> lo, std::optional<double> hi) {
    if (lo && v < *lo) v = static_cast<T>(*lo);
    if (hi && v > *hi) v = static_cast<T>(*hi);
}

} // namespace

void DefautsS321(Etude& e) {
    RelaisS321& r = e.S321;
    const float is = e.Is;
    for (float* seuil : {&r._50G1, &r._50G2, &r._50G3, &r._50G4, &r._50PP1, &r._50PP2, &r._50PP3,
                         &r._50PP4, &r._50L1, &r._50L2, &r._50L3, &r._50L4})
        *seuil = 0.2F * is;
    r._50QR = r._50QF = 0.5F * is;
    r.A2 = 0.1;
    r.AvecPompage = !e.Ligne_lc;
}

std::optional<double> ChargeS321(Etude& e, Dialogue& d) {
    if (!e.PanneauRelais || (e.Ligne_alim != 0 && e.Ligne_alim != 3)) return std::nullopt;
    const Entier16 cas = e.TypeReportCharge;
    std::optional<double> rz;
    try {
        rz = e.Ligne_alim == 0 ? ChargeMaillee(e) : ChargeClient(e, d);
    } catch (...) {
        e.TypeReportCharge = cas;
        throw;
    }
    // The case in force and its area, as they were.
    if (e.TypeReportCharge != cas) RemettreCasDeReport(e, cas);
    return rz;
}

void PorteesS321(Etude& e, std::optional<double> rz) {
    RelaisS321& r = e.S321;
    if (e.PanneauRelais) {
        const double s = std::sin(e.PHI_eq);
        r.Z1MG = Div(e.Ligne_Xprim1, s);
        r.Z2MG = Div(e.Ligne_Xprim2, s);
        r.XG1 = e.Ligne_Xprim1;
        r.XG2 = e.Ligne_Xprim2;
        r.XG4 = e.Ligne_Xprim3;
        r.XG3 = e.Ligne_Xprim3 - e.XL_eq;
        if (rz) r.RG1 = r.RG2 = r.RG3 = r.RG4 = *rz;
    }
    LimitesPorteesS321(e);
}

void LimitesPorteesS321(Etude& e) {
    RelaisS321& r = e.S321;
    const double kz = e.Kz;
    for (double* z : {&r.Z1MG, &r.Z2MG, &r.Z3MG, &r.Z4MG, &r.XG1, &r.XG2, &r.XG3, &r.XG4, &r.RG1,
                      &r.RG2, &r.RG3, &r.RG4})
        Borner(*z, kz, 0.05, 64.0);
    for (double* rr : {&r.R1R6, &r.R1L6, &r.R1R5, &r.R1L5})
        Borner(*rr, kz, std::nullopt, 70.0);
    for (double* x : {&r.X1T6, &r.X1T5, &r.X1B6, &r.X1B5})
        Borner(*x, kz, std::nullopt, 96.0);
}

void SeuilsS321(Etude& e) {
    RelaisS321& r = e.S321;
    if (e.PanneauRelais) {
        r.Z2F = 0.25 * e.ZL_eq;
        r.Z2R = 0.75 * e.ZL_eq;
        r.KO1M = r.KOM = e.ko_eq;
        r.KO1A = r.KOA = e.ako_eq;
        r.OSBD = 15;
    }
    LimitesSeuilsS321(e);
}

void LimitesSeuilsS321(Etude& e) {
    RelaisS321& r = e.S321;
    Borner(r.Z2F, e.Kz, -64.0, 64.0);
    Borner(r.Z2R, e.Kz, -64.0, 64.0);
    BornerNombre(r.KO1M, std::nullopt, 4.0);
    BornerNombre(r.KOM, std::nullopt, 4.0);
    BornerNombre(r.KO1A, -45.0, std::nullopt);
    BornerNombre(r.KOA, -45.0, std::nullopt);
    // The relay's own oddity: an argument beyond 45 degrees puts 45 into the module.
    if (r.KO1A > 45.0) r.KO1M = 45.0;
    if (r.KOA > 45.0) r.KOM = 45.0;
    for (float* g :
         {&r._50G1, &r._50G2, &r._50G3, &r._50G4, &r._50L1, &r._50L2, &r._50L3, &r._50L4})
        BornerNombre(*g, 0.1, 20.0);
    for (float* pp : {&r._50PP1, &r._50PP2, &r._50PP3, &r._50PP4})
        BornerNombre(*pp, 0.2, 34.0);
    BornerNombre(r._50QR, 0.5, 5.0);
    BornerNombre(r._50QF, 0.5, 5.0);
    BornerNombre(r.A2, 0.02, 0.5);
    for (Entier16* t : {&r.Z2GD, &r.Z3GD, &r.Z4GD, &r.Z2PD, &r.Z3PD, &r.Z4PD})
        BornerNombre(*t, std::nullopt, TEMPO_MAX);
    BornerNombre(r.OSBD, 10.0, std::nullopt);
    BornerNombre(r.UBD, 10.0, 2400.0);
    e.PHI_eq = std::clamp(e.PHI_eq, DegToRad(40.0), DegToRad(90.0));
}

void DiagS321(Etude& e) {
    const RelaisS321& r = e.S321;
    EffacerReglesRelais(e, ID_S321);
    const double s = std::sin(e.PHI_eq);
    const double rf = 0.8 * e.Ligne_XAV + 0.9 * e.XL_eq;
    const double rb = 0.8 * e.Ligne_XAM;
    DefinirRegle(e, 79, r.XG4 < 1.2 * r.XG2, 1.2 * r.XG2);
    DefinirRegle(e, 80, r.Z4MG < 1.2 * r.Z2MG, 1.2 * r.Z2MG);
    DefinirRegle(e, 81, rf < 1.15 * r.XG4, rf / 1.15);
    DefinirRegle(e, 82, rf < 1.15 * r.Z4MG * s, rf / 1.15);
    DefinirRegle(e, 83, rf < 1.15 * r.X1T6, rf / 1.15);
    DefinirRegle(e, 84, rb < 1.15 * r.XG3, rb / 1.15);
    DefinirRegle(e, 85, rb < 1.15 * r.Z3MG * s, rb / 1.15);
    DefinirRegle(e, 86, rb < 1.15 * r.X1B6, rb / 1.15);
    const double t = 1.3 * e.Ligne_X1PB - 1.06 * e.XL_eq;
    DefinirRegle(e, 87, e.Ligne_lc && (r.Z4MG * s < t || r.XG4 < t), t);
}

} // namespace tournesol
