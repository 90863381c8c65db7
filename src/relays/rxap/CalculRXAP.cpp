#include "relays/rxap/CalculRXAP.h"

#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "network/Transit.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

const std::array<float, 72> TAB_N_RXAP = {
    0.0F,   0.2F,   0.21F,  0.221F, 0.232F, 0.244F, 0.257F, 0.27F,  0.283F, 0.298F, 0.312F, 0.328F,
    0.345F, 0.362F, 0.381F, 0.4F,   0.42F,  0.442F, 0.464F, 0.488F, 0.512F, 0.539F, 0.566F, 0.594F,
    0.624F, 0.656F, 0.69F,  0.724F, 0.762F, 0.8F,   0.84F,  0.884F, 0.928F, 0.975F, 1.02F,  1.08F,
    1.13F,  1.19F,  1.25F,  1.31F,  1.38F,  1.45F,  1.52F,  1.6F,   1.68F,  1.77F,  1.86F,  1.95F,
    2.05F,  2.15F,  2.26F,  2.38F,  2.5F,   2.62F,  2.76F,  2.9F,   3.04F,  3.2F,   3.36F,  3.53F,
    3.71F,  3.9F,   4.1F,   4.3F,   4.52F,  4.75F,  5.0F,   5.25F,  5.52F,  5.8F,   6.1F,   6.4F};
const std::array<double, 6> EXCENTRICITE_MR = {0.0, 0.8, 0.83, 0.87, 0.88, 0.9};
const std::array<double, 6> EXCENTRICITE_AP = {0.0, 0.65, 0.68, 0.71, 0.72, 0.73};

namespace {

constexpr double MARGE = 0.9 / 1.1;
// The load points N1 to N6 of the area: the pick-up keeps its margin to each of them.
constexpr std::size_t POINTS_DE_CHARGE = 6;
const double RACINE3 = std::sqrt(3.0);

bool Type5A(const Etude& e) {
    return e.RXAP.TypeIn == 1.0F;
}

// One zone on the wheels: the value searched in the table, the value kept (the one below for
// the first zone, above for the second), and the set reactance in secondary ohms.
double ZoneSurRoues(double x, float typeIn, bool premiere, float& n, bool& parallele) {
    const double s = Div(x, typeIn);
    // 3.2 is in series: 4.8 / 1.5 is 3.2 to the engineer, whatever its last binary digit.
    parallele = s < 3.2 - 1e-9;
    const float cherche = static_cast<float>(parallele ? 2.0 * s : s);
    const std::size_t fin = premiere ? 72 : 71;
    std::size_t i = 1;
    while (i < fin && cherche > TAB_N_RXAP[i])
        ++i;
    n = premiere ? TAB_N_RXAP[i - 1] : TAB_N_RXAP[std::min<std::size_t>(i, 71)];
    const double reglee = typeIn * static_cast<double>(n) / (parallele ? 2.0 : 1.0);
    return reglee;
}

// The smallest F of the ellipse over the load points, eccentricity e and e2 across.
double PlusPetitF(const std::array<Complexe, 9>& p, double arg, double ex, double ex2) {
    double plusPetit = 0.0;
    for (std::size_t i = 0; i < POINTS_DE_CHARGE; ++i) {
        const double z = p[i].Module;
        const double psi = DegToRad(arg - 30.0) - p[i].Argument;
        const double a = 1.0 - 9.0 * std::pow(ex, 4) / 16.0;
        const double b = (3.0 * RACINE3 / 2.0) * std::pow(ex, 3) * z * std::cos(psi);
        const double c = -3.0 * Carre(ex * z * std::cos(psi)) -
                         Div(3.0 * Carre(ex2 * z * std::sin(psi)), 1.0 - 0.75 * ex * ex);
        const double f = Div((-b + Racine(b * b - 4.0 * a * c)) * MARGE, 2.0 * a);
        if (i == 0 || f < plusPetit) plusPetit = f;
    }
    return plusPetit;
}

// The eccentricities of a row for the search: the pass of the maximal case without out of step
// takes the out-of-step value across while the pick-up value stands along, as the relay's
// makers computed it.
std::pair<double, double> Excentricites(const Etude& e, std::size_t rang, int cas) {
    if (rang < 1 || rang > 5) LeverErreur(ERR_INDICE);
    const double ex = e.RXAP.AvecPompage ? EXCENTRICITE_AP[rang] : EXCENTRICITE_MR[rang];
    const double ex2 = cas == 2 && !e.RXAP.AvecPompage ? EXCENTRICITE_AP[rang] : ex;
    return {ex, ex2};
}

double FocaleDuTableau(double fmax) {
    const std::pair<double, double> bandes[] = {{3.5, 3.0}, {4.0, 3.5}, {5.0, 4.0},  {6.0, 5.0},
                                                {7.0, 6.0}, {8.5, 7.0}, {10.0, 8.5}, {12.0, 10.0}};
    for (const auto& [jusque, focale] : bandes)
        if (fmax <= jusque) return focale;
    return 12.0;
}

void EllipseMaillee(Etude& e, RelaisRXAP& r) {
    const std::array<Complexe, 9> a = PointsTransitTiresDuCas(e, 0);
    const std::array<Complexe, 9> c = PointsTransitTiresDuCas(e, 2);
    const auto [ea, ea2] = Excentricites(e, 5, 0);
    const auto [ec, ec2] = Excentricites(e, 5, 2);
    const double fmax =
        Div(std::min(PlusPetitF(a, r.Arg, ea, ea2), PlusPetitF(c, r.Arg, ec, ec2)), e.Kz);
    r.focale = FocaleDuTableau(fmax);
    // The first row whose ellipse still keeps the focal distance, for each case.
    auto rang = [&](const std::array<Complexe, 9>& p, int cas) {
        for (std::size_t k = 1;; ++k) {
            const auto [ex, ex2] = Excentricites(e, k, cas);
            if (Div(PlusPetitF(p, r.Arg, ex, ex2), e.Kz) >= r.focale) return k;
        }
    };
    const std::size_t retenu = std::max(rang(a, 0), rang(c, 2));
    r.exap = EXCENTRICITE_AP[retenu];
    r.exmr = EXCENTRICITE_MR[retenu];
    r.Arg = static_cast<float>(std::clamp(std::trunc(RadToDeg(e.PHI_eq)), 70.0, 85.0));
}

void LimitesCercle(RelaisRXAP& r, bool type5A, bool lesDeux) {
    const double mr[2] = {type5A ? 2.0 : 3.0, type5A ? 6.0 : 9.0};
    const double ap[2] = {type5A ? 4.0 : 6.0, type5A ? 8.0 : 12.0};
    r.MR = std::clamp(r.MR, mr[0], mr[1]);
    if (lesDeux) r.MRAP = std::clamp(r.MRAP, ap[0], ap[1]);
}

void CercleMaille(Etude& e, RelaisRXAP& r) {
    r.MR = r.MRAP = r.Image = 0.0;
    const double m = r.AvecImage ? std::trunc(Div(e.ZL_eq, e.Kz * 0.3)) + 1.0 : 0.0;
    auto plusPetitW = [&](int cas) {
        const std::array<Complexe, 9> p = PointsTransitTiresDuCas(e, cas);
        double w = 0.0;
        for (std::size_t i = 0; i < POINTS_DE_CHARGE; ++i) {
            const double zs = p[i].Module * MARGE;
            double wi = RACINE3 / 2.0 * zs;
            if (r.AvecImage) {
                const double im = (m - 1.0) * 0.15 * e.Kz;
                wi = Racine(im * im + 0.75 * zs * zs -
                            im * RACINE3 * zs * std::cos(DegToRad(55.0) - p[i].Argument));
            }
            if (i == 0 || wi < w) w = wi;
        }
        return w;
    };
    const double wa = plusPetitW(0);
    const double wb = plusPetitW(2);
    r.MRAP = std::min(Div(wa, e.Kz), Div(wb, e.Kz));
    r.Image = r.AvecImage ? (m - 1.0) * 0.15 : 0.0;
    r.MR = r.AvecPompage ? r.MRAP / 1.5 : r.MRAP;
    LimitesCercle(r, Type5A(e), true);
    r.Arg = 85.0F;
}

void CercleClient(Etude& e, RelaisRXAP& r) {
    RemettreCasDeReport(e, e.TypeReportCharge);
    const double z1 = PointsTransitTires(e)[0].Module;
    r.MRAP = Div(RACINE3 / 2.0 * 0.9 * z1, e.Kz * 1.1);
    if (r.AvecPompage) {
        r.MR = r.MRAP / 1.5;
        LimitesCercle(r, Type5A(e), true);
    } else {
        r.MR = r.MRAP;
        LimitesCercle(r, Type5A(e), false);
        r.MRAP = r.MR;
    }
    r.Arg = 85.0F;
}

} // namespace

void DefautsRXAP(Etude& e) {
    RelaisRXAP& r = e.RXAP;
    r.TypeIn = 1.0F;
    r.AvecImage = true;
    r.AvecPompage = true;
    r.Cercle = true;
}

void ZonesRXAP(Etude& e) {
    if (e.PanneauRelais) {
        e.X1_BT = Div(e.Ligne_Xprim1, e.Kz);
        e.X2_BT = Div(e.Ligne_Xprim2, e.Kz);
    }
    RouesRXAP(e);
}

void RouesRXAP(Etude& e) {
    RelaisRXAP& r = e.RXAP;
    if (r.TypeIn != 1.0F && r.TypeIn != 1.5F) r.TypeIn = 1.0F;
    e.X1reg_BT = ZoneSurRoues(e.X1_BT, r.TypeIn, true, r.N1, r.X1Parallele);
    if (e.X1reg_BT == 0.0) e.X1reg_BT = 0.01;
    e.X2reg_BT = ZoneSurRoues(e.X2_BT, r.TypeIn, false, r.N2, r.X2Parallele);
    e.X1_HT = Verifier(e.X1_BT * e.Kz);
    e.X2_HT = Verifier(e.X2_BT * e.Kz);
    e.X1reg_HT = Verifier(e.X1reg_BT * e.Kz);
    e.X2reg_HT = Verifier(e.X2reg_BT * e.Kz);
}

void PriseRXAP(Etude& e) {
    RelaisRXAP& r = e.RXAP;
    if (e.Ligne_alim == 0) {
        // The three-phase case, then the maximal one, which stays in force with its area.
        if (r.Cercle)
            CercleMaille(e, r);
        else
            EllipseMaillee(e, r);
    } else if (e.Ligne_alim == 3 && r.Cercle) {
        CercleClient(e, r);
    }
}

void CommunRXAP(Etude& e) {
    if (e.PanneauRelais) e.RXAP.K = std::trunc(e.ko_eq * 10.0) / 10.0;
    PorteesRXAP(e);
}

void PorteesRXAP(Etude& e) {
    RelaisRXAP& r = e.RXAP;
    r.K = std::clamp(r.K, 0.4, 1.0);
    r.K = std::trunc(r.K * 10.0 + 0.5) / 10.0;

    const double kz = e.Kz;
    const double phi = DegToRad(r.Arg);
    const double phi30 = DegToRad(r.Arg - 30.0);
    const double l = (r.K + 1.0) * e.ZL_eq;
    const double xl = e.XL_eq == 0.0 ? 0.01 : e.XL_eq;
    const double ligne = e.PHI_eq;
    if (r.Cercle) {
        const double i = r.Image, m = r.MR, p = r.MRAP;
        const double disque = m * m - Carre(i * std::sin(phi));
        if (disque > 0.0) r.RfProche = (2.0 * i * std::cos(phi) + 2.0 * std::sqrt(disque)) * kz;
        const double b = 2.0 * i * kz * std::cos(phi) - l * std::cos(ligne);
        const double c = 4.0 * Carre(kz * i) + l * l - 4.0 * i * kz * l * std::cos(ligne - phi) -
                         4.0 * Carre(kz * m);
        r.RfLoin = Racine(b * b - c) + b;
        r.RsurX = Div(r.RfLoin, xl);
        // The reaches of a circle of radius `rayon` whose centre stands at `i` on `angle`, seen
        // along the line; `sens` 1 forward, -1 backward.
        auto portee = [&](double rayon, double angle, double sens) {
            return sens * std::cos(ligne - angle) * i +
                   std::sqrt(std::fabs(rayon * rayon - Carre(std::sin(ligne - angle) * i)));
        };
        for (const double sens : {1.0, -1.0}) {
            Reels4& portees = sens > 0.0 ? r.PorteeAv : r.PorteeAr;
            portees[0] =
                std::sqrt(std::fabs(i * i + m * m + sens * 2.0 * i * m * std::cos(phi - ligne)));
            portees[1] = portee(m, phi30, sens) * 2.0 / RACINE3;
            portees[2] = 2.0 / (r.K + 1.0) * portee(m, phi, sens);
            portees[3] = portee(p, phi30, sens) * 2.0 / RACINE3;
        }
    } else {
        const double f = r.focale, ex = r.exmr, g = r.exap;
        const double ec = 1.0 - Carre(ex * std::cos(phi));
        const double u = Div((1.0 - ex * ex) * f * std::cos(phi), ec);
        const double v = Div(Carre(Div((1.0 - ex * ex) * f, ex)), ec);
        r.RfProche = (Racine(u * u + v) + u) * kz;
        const double p = l * std::cos(ligne - phi) - f * kz;
        const double q = l * std::sin(ligne - phi);
        const double u2 = Div((1.0 - ex * ex) * (std::cos(phi) * p + std::sin(phi) * q), ec);
        const double v2 =
            Div((Carre(ex * p) - Carre(f * kz)) * (1.0 - ex * ex) + Carre(ex * q), ex * ex * ec);
        r.RfLoin = -u2 + Racine(u2 * u2 - v2);
        r.RsurX = Div(r.RfLoin, xl);
        auto triphase = [&](double exc, double sens) {
            const double cosinus = std::cos(ligne - phi + DegToRad(30.0));
            return Div((4.0 - 3.0 * exc * exc) * f,
                       (4.0 * RACINE3 - sens * 6.0 * exc * cosinus) * exc);
        };
        for (const double sens : {1.0, -1.0}) {
            Reels4& portees = sens > 0.0 ? r.PorteeAv : r.PorteeAr;
            const double facteur = Div(1.0, ex) + sens;
            portees[0] = facteur * (f / 2.0) * std::sin(phi);
            portees[1] = triphase(ex, sens);
            portees[2] = Div(facteur * f * std::sin(phi), r.K + 1.0);
            portees[3] = triphase(g, sens);
        }
    }
}

std::string VarianteRXAP(const Etude& e) {
    const RelaisRXAP& r = e.RXAP;
    const bool t5 = r.TypeIn == 1.0F;
    const bool t3 = r.TypeIn == 1.5F;
    if (t5 && !e.Ligne_lc && r.Cercle)
        return "RXAP 6755, without image, 5 A, with blocking overreach, for short line";
    if (!e.Ligne_lc) return "Incompatible data";
    if (r.Cercle && !r.AvecImage && t5)
        return "RXAP 6005, without image, 5 A, with or without acceleration, for long line";
    if (r.Cercle && !r.AvecImage && t3)
        return "RXAP 6005,without image, 3.3 A, with or without acceleration, for long line";
    if (r.Cercle && r.AvecImage && t5)
        return "RXAP 6205, with image, 5 A, with or without acceleration, for long line";
    if (r.Cercle && r.AvecImage && t3)
        return "RXAP 6205, with image, 3.3 A, with or without acceleration, for long line";
    if (!r.Cercle && t5)
        return "RXAP 7000, elliptic, 5 A, with or without acceleration, for long line";
    return "Incompatible data";
}

std::string VarianteImprimeeRXAP(const Etude& e) {
    const std::string v = VarianteRXAP(e);
    const std::pair<const char*, const char*> imprimees[] = {
        {"RXAP 6755, without image, 5 A, with blocking overreach, for short line",
         "RXAP 6755 without image, 5A, with Blocking overreach, for short line"},
        {"RXAP 6005, without image, 5 A, with or without acceleration, for long line",
         "RXAP 6005 without image, 5A, with or without acceleration, for long line"},
        {"RXAP 6005,without image, 3.3 A, with or without acceleration, for long line",
         "RXAP 6005 without image, 3,3 A, with or without acceleration, for long line"},
        {"RXAP 6205, with image, 5 A, with or without acceleration, for long line",
         "RXAP 6205 with image, 5A, with or without acceleration, for long line"},
        {"RXAP 6205, with image, 3.3 A, with or without acceleration, for long line",
         "RXAP 6205 with image, 3,3A, with or without acceleration, for long line"},
        {"RXAP 7000, elliptic, 5 A, with or without acceleration, for long line",
         "RXAP 7000 elliptic, 5A, with or without acceleration, for long line"}};
    for (const auto& [panneau, rapport] : imprimees)
        if (v == panneau) return rapport;
    return {};
}

bool TempoT1RXAP(const Etude& e) {
    return VarianteRXAP(e).rfind("RXAP 6755", 0) == 0;
}

void DiagRXAP(Etude& e) {
    const RelaisRXAP& r = e.RXAP;
    TransformateursDesBouts(e);
    EffacerReglesRelais(e, ID_RXAP);
    const double s = std::sin(e.PHI_eq);
    const double kz = e.Kz;
    DefinirRegle(e, 71, r.PorteeAv[0] * kz * s < 1.2 * e.X2reg_HT, 1.2 * e.X2reg_HT);
    const double avant = 0.8 * e.XtrDistant + 0.9 * e.XL_eq;
    DefinirRegle(e, 72, avant < 1.15 * kz * r.PorteeAv[1] * s, avant / 1.15);
    DefinirRegle(e, 73, avant < 1.15 * kz * r.PorteeAv[3] * s, avant / 1.15);
    const double arriere = 0.8 * e.XtrProche;
    DefinirRegle(e, 74, arriere < 1.15 * kz * r.PorteeAr[1] * s, arriere / 1.15);
    DefinirRegle(e, 75, arriere < 1.15 * kz * r.PorteeAr[3] * s, arriere / 1.15);
    const double oppose = 1.3 * e.Ligne_X1PB - 1.06 * e.XL_eq;
    const double plusPetite = std::min({r.PorteeAr[2], r.PorteeAr[1], r.PorteeAr[0]}) * kz;
    DefinirRegle(e, 76, e.Ligne_lc && plusPetite < oppose, oppose);
}

double HautPlanRXAP(const Etude& e) {
    return 1.2 * (e.RXAP.Image + e.RXAP.MRAP) * e.Kz;
}

double BasPlanRXAP(const Etude& e) {
    return -1.2 * e.RXAP.MRAP * e.Kz;
}

} // namespace tournesol
