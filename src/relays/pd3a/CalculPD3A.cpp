#include "relays/pd3a/CalculPD3A.h"

#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "network/Transit.h"
#include "relays/ChampRelais.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tournesol {

const std::array<double, 145> TableX{
    0.0,   2.54,  2.625, 2.695, 2.805, 2.905, 2.99,  3.095, 3.2,   3.305, 3.43,  3.55,  3.65,
    3.84,  3.97,  4.07,  4.235, 4.385, 4.52,  4.68,  4.84,  4.995, 5.2,   5.35,  5.5,   5.55,
    5.75,  5.9,   6.15,  6.35,  6.55,  6.8,   7.0,   7.25,  7.5,   7.8,   8.0,   8.25,  8.5,
    8.75,  9.1,   9.4,   9.7,   10.05, 10.4,  10.75, 11.1,  11.5,  11.85, 11.95, 12.35, 12.7,
    13.2,  13.65, 14.05, 14.55, 15.05, 15.55, 16.15, 16.7,  17.2,  17.7,  18.3,  18.75, 19.5,
    20.2,  20.8,  21.85, 22.3,  23.0,  23.85, 24.7,  25.4,  26.1,  27.0,  27.7,  28.85, 29.85,
    30.75, 31.85, 32.95, 34.0,  35.25, 36.5,  37.55, 38.5,  39.85, 40.85, 42.5,  44.0,  45.35,
    46.95, 48.55, 50.0,  52.0,  54.0,  55.5,  56.5,  58.5,  60.0,  62.5,  65.0,  66.5,  69.0,
    71.5,  74.0,  76.5,  79.0,  81.5,  83.5,  86.0,  88.5,  92.0,  95.0,  98.0,  101.5, 105.0,
    108.5, 112.5, 116.5, 120.0, 121.5, 125.5, 129.0, 134.0, 139.0, 143.0, 148.0, 153.0, 158.0,
    164.0, 169.5, 174.5, 180.0, 186.0, 191.0, 198.5, 205.0, 211.5, 219.5, 227.0, 234.0, 243.0,
    251.5, 258.5};
const std::array<double, 13> TableK2{0.0, 1.0,  1.15, 1.34, 1.55, 1.8, 2.08,
                                     2.4, 2.78, 3.22, 3.73, 4.32, 5.0};
const std::array<double, 13> TableK3{0.0,  1.0,  1.23, 1.51, 1.87, 2.31, 2.84,
                                     3.51, 4.32, 5.33, 6.57, 8.11, 10.0};
const std::array<double, 13> TableK3b{0.0,  1.0, 1.09, 1.18, 1.29, 1.4, 1.52,
                                      1.65, 1.8, 1.95, 2.12, 2.3,  2.5};
const std::array<double, 13> TableK4{0.0, 2.5,   3.1,   3.8,   4.7,  5.8, 7.1,
                                     8.8, 10.85, 13.35, 16.45, 20.3, 25.0};

namespace {

constexpr double RACINE3 = 1.7320508075688772;
constexpr double MARGE_TRANSIT = 0.9 / 1.1;

// The whole part as a step number.
int Entier(double x) {
    return static_cast<int>(PartieEntiere(x));
}

// The first index from 1 whose step `atteint`; a search that runs off the table is error 9.
template <std::size_t N, class Test>
int Chercher(const std::array<double, N>& table, Test atteint) {
    for (std::size_t i = 1; i < N; ++i)
        if (atteint(table[i])) return static_cast<int>(i);
    LeverErreur(ERR_INDICE);
}

double Valeur(const std::array<double, 13>& table, int i) {
    return table[static_cast<std::size_t>(i)];
}

// A reach kept on its wheel: beyond the wheel's end (is x above haut / coef) it is taken just
// inside, at hautRetenu; below its start, at basRetenu.
void Borner(double& x, double is, double coef, double haut, double hautRetenu, double bas,
            double basRetenu) {
    if (is * x > Div(haut, coef)) x = Div(hautRetenu, is * coef);
    if (is * x < Div(bas, coef)) x = Div(basRetenu, is * coef);
}

void ZoneUn(Etude& e, RelaisPD3A& r) {
    const double coef = r.CoefX1;
    const double is = e.Is;
    Borner(e.X1_BT, is, coef, 258.0, 257.9, 2.6, 2.61);
    // The first step above the desired reach, then the one below it: X1 rounds down.
    const double cible = is * e.X1_BT;
    const int j = Chercher(TableX, [&](double x) { return x / coef > cible; }) - 1;
    r.K1 = static_cast<Entier16>(j / 12);
    r.m1 = static_cast<Entier16>(j - 12 * r.K1);
    e.X1reg_BT = Div(TableX[static_cast<std::size_t>(j)], is * coef);
}

// A reach as a multiple of a set reach, rounded up, within `plafond` times it.
int Multiple(double& desire, double base, double plafond, const std::array<double, 13>& table) {
    if (plafond * base < desire) desire = (plafond - 0.01) * base;
    if (desire < base) desire = base;
    return Chercher(table, [&](double k) { return desire - k * base <= 0.0; });
}

void Zones6062(Etude& e, RelaisPD3A& r) {
    r.K2 = static_cast<Entier16>(Multiple(e.X2_BT, e.X1reg_BT, 5.0, TableK2));
    e.X2reg_BT = Valeur(TableK2, r.K2) * e.X1reg_BT;
    r.K3 = static_cast<Entier16>(Multiple(e.X3_BT, e.X1reg_BT, 10.0, TableK3));
    e.X3reg_BT = Valeur(TableK3, r.K3) * e.X1reg_BT;
}

void Zones6562(Etude& e, RelaisPD3A& r) {
    const double is = e.Is;
    Borner(e.X2_BT, is, 1.0, 258.0, 257.9, 2.6, 2.61);
    // No coefficient on the second wheel, and X2 rounds up.
    const double cible = is * e.X2_BT;
    const int i = Chercher(TableX, [&](double x) { return cible - x <= 0.0; });
    r.K2 = static_cast<Entier16>(i / 12);
    r.m2 = static_cast<Entier16>(i - 12 * r.K2);
    e.X2reg_BT = Div(TableX[static_cast<std::size_t>(i)], is);
    if (!(2.5 * e.X2reg_BT > e.X3_BT)) e.X3_BT = 2.49 * e.X2reg_BT;
    if (e.X3_BT < e.X2reg_BT) e.X3_BT = e.X2reg_BT;
    r.K3 = static_cast<Entier16>(
        Chercher(TableK3b, [&](double k) { return e.X3_BT - k * e.X2reg_BT <= 0.0; }));
    e.X3reg_BT = Valeur(TableK3b, r.K3) * e.X2reg_BT;
}

void ZoneArriere(Etude& e, RelaisPD3A& r) {
    const double is = e.Is;
    Borner(e.X4_BT, is, 1.0, 25.0, 24.9, 2.5, 2.51);
    const double cible = is * e.X4_BT;
    r.K4 = static_cast<Entier16>(Chercher(TableK4, [&](double k) { return cible - k <= 0.0; }));
    e.X4reg_BT = Div(Valeur(TableK4, r.K4), is);
}

void ReglerResistance(Etude& e, RelaisPD3A& r, bool limiterRd) {
    int rd = Entier(e.Is * e.R_BT / 5.0);
    if (limiterRd && rd > 11) rd = 11;
    r.Rd = static_cast<Entier16>(rd);
    e.Rreg_BT = static_cast<float>(Div(5.0, e.Is) * r.Rd);
    e.Rreg_HT = static_cast<float>(Verifier(e.Rreg_BT * e.Kz));
    r.RsurX = Div(e.Rreg_BT, e.X1reg_BT);
}

double UnSurTan(double phi) {
    return Div(1.0, std::tan(phi));
}

// The load area of the current report case, and its distance to the line image.
double DistanceDuCas(Etude& e) {
    TransitCalc(e);
    if (e.ErrCalcul != 0) LeverErreur(e.ErrCalcul);
    return DistanceTransitPD3A(e);
}

} // namespace

void ArrondirZonesPD3A(Etude& e) {
    RelaisPD3A& r = e.PD3A;
    r.CoefX1 = r.Type6562 ? 5.12F : 5.18F;
    ZoneUn(e, r);
    if (r.Type6062) Zones6062(e, r);
    if (r.Type6562) Zones6562(e, r);
    ZoneArriere(e, r);
    e.X1reg_HT = Verifier(e.X1reg_BT * e.Kz);
    e.X2reg_HT = Verifier(e.X2reg_BT * e.Kz);
    e.X3reg_HT = Verifier(e.X3reg_BT * e.Kz);
    e.X4reg_HT = Verifier(e.X4reg_BT * e.Kz);
}

void CalculZonesPD3A(Etude& e) {
    ZonesSouhaiteesDeLaLigne(e);
    ArrondirZonesPD3A(e);
}

void BandesPompage(const Etude& e, float& bandeX, float& bandeR) {
    if (e.Pompage) {
        bandeX = static_cast<float>(Div(11.0 * e.Kz, e.Is));
        bandeR = static_cast<float>(Div(7.5 * e.Kz, e.Is));
    } else {
        bandeX = bandeR = 0.0F;
    }
}

void BandesPompagePD3A(Etude& e) {
    BandesPompage(e, e.PD3A.BandeX, e.PD3A.BandeR);
}

double DistanceTransitPD3A(const Etude& e) {
    const std::array<Complexe, 9> points = PointsTransitTires(e);
    const double phi = e.PHI_eq;
    double m[6], a[6];
    for (std::size_t k = 0; k < 6; ++k) {
        m[k] = points[k].Module;
        a[k] = points[k].Argument;
    }
    double d = 0.0;
    for (std::size_t k = 0; k < 6; ++k) {
        const double dk =
            std::fabs(Div(std::sin(phi - a[k]), std::sin(phi))) * m[k] * MARGE_TRANSIT;
        if (k == 0 || dk < d) d = dk;
    }
    return Verifier(d);
}

void ResistanceTransitPD3A(Etude& e, Dialogue& d) {
    ResistanceTransitParallelogramme(e, d, e.PD3A.BandeR);
}

void ResistanceTransitParallelogramme(Etude& e, Dialogue& d, double bandeR) {
    const double cotg = UnSurTan(e.PHI_eq);
    if (e.Ligne_alim == 0) {
        e.TypeReportCharge = 0;
        const double ra = 2.0 * DistanceDuCas(e) * RACINE3 / (cotg + RACINE3);
        e.TypeReportCharge = 2;
        const double rc = 2.0 * DistanceDuCas(e) * RACINE3 / (cotg + RACINE3);
        e.TypeReportCharge = 1;
        // The factor in force is the one of this case: the area first.
        const double db = DistanceDuCas(e);
        const double rb = Div(e.CRcourant * db, e.Ligne_CRm);
        e.R_HT = std::min({ra - 2.0 * bandeR, rc - 2.0 * bandeR, rb});
    } else if (e.Ligne_alim == 3) {
        TransitCalc(e);
        if (e.ErrCalcul != 0) LeverErreur(e.ErrCalcul);
        const double l = e.PointsTransit[0].Module * MARGE_TRANSIT;
        if (l < e.X3reg_HT) d.Message("TOURNESOL", DONNEES_INCOMPATIBLES, 0);
        const double dist = std::sqrt(std::fabs(Carre(e.X3reg_HT) - Carre(l))) - e.X3reg_HT * cotg;
        e.R_HT = 2.0 * (RACINE3 * dist / (cotg + RACINE3) - bandeR);
    }
    e.R_HT = Verifier(e.R_HT);
}

void CalculResistancePD3A(Etude& e, Dialogue& d) {
    if (e.PanneauRelais) {
        e.X3_commun = e.X3_HT;
        e.X4_commun = e.X4_HT;
        BandesPompagePD3A(e);
        ResistanceTransitPD3A(e, d);
    }
    e.R_BT = std::clamp(Div(e.R_HT, e.Kz), 0.0, 80.0);
    e.R_HT = Verifier(e.R_BT * e.Kz);
    ReglerResistance(e, e.PD3A, true);
}

void ResistanceSaisiePD3A(Etude& e) {
    e.R_BT = std::clamp(e.R_BT, 0.0, 80.0);
    e.R_HT = Verifier(e.Kz * e.R_BT);
    // The field takes more than the eleven steps its caption tells.
    ReglerResistance(e, e.PD3A, false);
}

void TemporisationT1PD3A(Etude& e) {
    RelaisPD3A& r = e.PD3A;
    e.T1 = std::clamp<Entier16>(e.T1, 0, 999);
    r.C1 = e.T1 > 99 ? 10 : 1;
    r.TA = static_cast<Entier16>(e.T1 / r.C1);
}

void TemporisationsPD3A(Etude& e) {
    RelaisPD3A& r = e.PD3A;
    auto dizaines = [](Entier16& t, int max) {
        t = static_cast<Entier16>(std::clamp<int>(t, 0, max) / 10 * 10);
    };
    dizaines(e.T2, 999);
    dizaines(e.T3, 999);
    dizaines(e.T4, 9990);
    r.TB = static_cast<Entier16>(e.T2 / 10);
    r.TC = static_cast<Entier16>(e.T3 / 10);
    r.TD = static_cast<Entier16>(e.T4 / 10);
}

void AngleSaisiPD3A(Etude& e) {
    RelaisPD3A& r = e.PD3A;
    r.PosTeta = static_cast<Entier16>(Entier((e.teta - 40.0) / 5.0));
    e.teta = static_cast<float>(5 * r.PosTeta + 40);
}

void CalculReglagesPD3A(Etude& e) {
    RelaisPD3A& r = e.PD3A;
    if (e.PanneauRelais)
        r.PosTeta = static_cast<Entier16>(Entier((RadToDeg(e.PHI_eq) - 37.5) / 5.0));
    e.teta = static_cast<float>(40 + 5 * r.PosTeta);
    if (e.PanneauRelais) e.ko_reg = 0.1 * Entier(10.0 * e.ko_eq + 0.5);
    e.Ko2 = 10.0 * Entier(e.ko_reg + 1.0);
    e.Ko1 = Entier(10.0 * (e.ko_reg + 1.0) - e.Ko2);
    TemporisationT1PD3A(e);
    TemporisationsPD3A(e);
}

void CalculDiagPD3A(Etude& e) {
    const RelaisPD3A& r = e.PD3A;
    TransformateursDesBouts(e);
    EffacerReglesRelais(e, ID_PD3A);
    DefinirRegle(e, 15, 1.2 * e.X2reg_HT > e.X3reg_HT, 1.2 * e.X2reg_HT);
    DefinirRegle(e, 16, e.Pompage && 1.15 * e.X3reg_HT - e.X2reg_HT < r.BandeX, r.BandeX);
    const double avant = 0.8 * e.XtrDistant + 0.9 * e.XL_eq;
    DefinirRegle(e, 17, avant < 1.15 * e.X3reg_HT, avant / 1.15);
    const double arriere = 0.8 * e.XtrProche / 1.15;
    DefinirRegle(e, 18, 0.8 * e.XtrProche < 1.15 * e.X4reg_HT, arriere);
    DefinirRegle(e, 19, 0.8 * e.XtrProche < 1.15 * (r.BandeX + e.X4reg_HT), arriere);
    DefinirRegle(e, 20, e.R_HT / 4.0 > e.X4reg_HT, 4.0 * e.X1reg_HT);
    const double oppose = 1.3 * e.Ligne_X1PB - 1.06 * e.XL_eq;
    DefinirRegle(e, 21, oppose > e.X4reg_HT, oppose);
}

double DemiLargeurPD3A(const Etude& e) {
    const double seuil = Div(6.0 * e.Rreg_HT, (4.0 - e.Ligne_CRm) * e.CRcourant);
    double l = 1.2 * e.X3reg_HT >= seuil ? 1.2 * e.X3reg_HT : 1.5 * e.Rreg_HT;
    l = std::max(l, 1.2 * e.X4reg_HT);
    return std::min(l, 1000.0);
}

} // namespace tournesol
