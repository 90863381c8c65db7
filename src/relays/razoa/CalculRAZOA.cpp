#include "relays/razoa/CalculRAZOA.h"

#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "network/Transit.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tournesol {

namespace {

const double RACINE3 = std::sqrt(3.0);
const double RACINE2 = std::sqrt(2.0);
// A reach that falls on a fraction up to the noise of binary arithmetic (In X = 3.2 exactly)
// is that fraction's.
constexpr double TOLERANCE = 1e-9;
// The number of load points of the meshed area: N1 to N6.
constexpr std::size_t POINTS_MAILLES = 6;
// The arcs of the lens meet the axis at this angle.
const double ANGLE_LENTILLE = PI / 4.0;

double Rad(double degres) {
    return DegToRad(degres);
}

// The whole part, as the relay's makers took it: the greatest integer not above x, up to the
// noise of binary arithmetic ((1 - 0.7) * 20 is 6).
double PartieEntiere(double x) {
    return std::floor(Verifier(x) + TOLERANCE);
}

// The distance along the angle phi from the origin to the circle of forward reach 1 and
// backward reach D, times 2: (1 - D) cos(phi) + sqrt(((1 - D) cos(phi))^2 + 4 D).
double FacteurCercle(double D, double phi) {
    const double c = (1.0 - D) * std::cos(phi);
    return c + Racine(c * c + 4.0 * D);
}

// The circle on a meshed line: for each report case the candidate D whose smallest reach over
// the load points is the greatest; the smallest of the three cases in the order 0, 2, 1.
void CercleMaille(Etude& e, double& zf, double& D) {
    const RelaisRAZOA& r = e.RAZOA;
    const int n = static_cast<int>(PartieEntiere((1.0 - r.Dmini) * 20.0)) + 1;
    // The greatest over the candidates of the smallest over the points; a tie keeps the first
    // candidate.
    auto meilleur = [&](const std::array<Complexe, 9>& p, double axe, double numerateur,
                        double diviseur) {
        double gMax = 0.0, dRetenu = r.Dmini;
        for (int k = 1; k <= n; ++k) {
            const double dk = (r.Dmini - 0.05) + 0.05 * k;
            double g = 0.0;
            for (std::size_t i = 0; i < POINTS_MAILLES; ++i) {
                const double gi = Div(Div(numerateur * p[i].Module, diviseur),
                                      FacteurCercle(dk, axe - p[i].Argument));
                if (i == 0 || gi < g) g = gi;
            }
            if (k == 1 || g > gMax) {
                gMax = g;
                dRetenu = dk;
            }
        }
        return std::pair{gMax, dRetenu};
    };
    const double axe3 = Rad(e.teta + 30.0);
    const double marge = RACINE3 * (0.9 / 1.1);
    const auto c0 = meilleur(PointsTransitTiresDuCas(e, 0), axe3, marge, 1.0);
    const auto c2 = meilleur(PointsTransitTiresDuCas(e, 2), axe3, marge, 1.0);
    const std::array<Complexe, 9> p1 = PointsTransitTiresDuCas(e, 1);
    // The single-phase case divides by the whole part of its factor, which a large report
    // factor takes to 0: a failure of the computation, not a reach.
    const double fc = PartieEntiere(Div((1.1 / 0.9) * e.Ligne_CRm, e.Ceq));
    if (fc == 0.0) LeverErreur(ERR_DIVISION);
    const auto c1 = meilleur(p1, Rad(e.teta), 1.0, fc);
    zf = c0.first;
    D = c0.second;
    for (const auto& c : {c2, c1})
        if (c.first < zf) {
            zf = c.first;
            D = c.second;
        }
}

// The lens on a meshed line: from point 4 of the three-phase and maximal cases and point 3 of
// the single-phase case.
double LentilleMaillee(Etude& e) {
    const double teta = e.teta;
    const double marge = 0.9 / 1.15;
    auto triphase = [&](const std::array<Complexe, 9>& p) {
        const double z4 = p[3].Module, a4 = p[3].Argument;
        if (teta == 60.0F) return marge * 2.25 * z4;
        const double axe = Rad(teta + 30.0);
        return -2.0 * RACINE3 * marge * z4 * std::sin(axe - a4) * std::sin(axe);
    };
    const double fa = triphase(PointsTransitTiresDuCas(e, 0));
    const double fb = triphase(PointsTransitTiresDuCas(e, 2));
    const std::array<Complexe, 9> p1 = PointsTransitTiresDuCas(e, 1);
    const double z3 = p1[2].Module, a3 = p1[2].Argument;
    const double fm = marge * 0.5 * z3 * std::sin(Rad(teta) - a3) * Div(4.0 * e.Ceq, e.Ligne_CRm) *
                      std::sin(Rad(teta));
    return std::min({fa, fb, fm});
}

} // namespace

int NumerateurMaxRAZOA(const Etude& e) {
    return e.Ligne_lc ? NUMERATEUR_LONG : NUMERATEUR_COURT;
}

double PorteeCodeeRAZOA(int a, int p, double in) {
    return Div(3.2 * a, p * in);
}

std::optional<FractionRAZOA> CoderZoneRAZOA(double inX, int aMax) {
    if (!std::isfinite(inX) || !(inX > 0.0) || aMax < NUMERATEUR_MIN) return std::nullopt;
    const double cible = inX / 3.2 * (1.0 + TOLERANCE);
    // Beyond the largest reach the wheels cannot go.
    if (cible > static_cast<double>(aMax) / DENOMINATEUR_MIN * (1.0 + 2.0 * TOLERANCE))
        return std::nullopt;
    // For each denominator, the greatest numerator that does not exceed; from the largest
    // denominator down, a pair replaces the best only when it reaches strictly further, so that
    // of equal reaches the larger denominator stays.
    FractionRAZOA meilleure{};
    for (int p = DENOMINATEUR_MAX; p >= DENOMINATEUR_MIN; --p) {
        const double plafond = std::floor(cible * p);
        if (plafond < NUMERATEUR_MIN) continue;
        const int a = static_cast<int>(std::min(plafond, static_cast<double>(aMax)));
        if (meilleure.p == 0 || a * meilleure.p > meilleure.a * p) meilleure = {a, p};
    }
    if (meilleure.p == 0) return std::nullopt;
    return meilleure;
}

std::optional<int> DenominateurRAZOA(double inX, int a) {
    if (!std::isfinite(inX) || !(inX > 0.0) || a <= 0) return std::nullopt;
    const double cible = inX / 3.2 * (1.0 + TOLERANCE);
    // Beyond the reach of the smallest denominator the wheel cannot go.
    if (a / cible < DENOMINATEUR_MIN * (1.0 - 2.0 * TOLERANCE)) return std::nullopt;
    const double p = std::max(std::ceil(a / cible), static_cast<double>(DENOMINATEUR_MIN));
    if (p > DENOMINATEUR_MAX) return std::nullopt;
    return static_cast<int>(p);
}

void DefautsRAZOA(Etude& e) {
    RelaisRAZOA& r = e.RAZOA;
    r.q1 = 22;
    r.str26 = "0N";
    r.str27 = "OFF";
    r.str28 = "OFF";
}

void OptionsRAZOA(Etude& e) {
    RelaisRAZOA& r = e.RAZOA;
    if (r.Cercle == r.Lentille) {
        r.Cercle = true;
        r.Lentille = false;
    }
    e.teta = e.teta == 60.0F ? 60.0F : 75.0F;
    if (!(r.Dmini >= 0.05F)) r.Dmini = 0.05F; // a D of 0 is a circle through the origin
    r.Dmini = std::min(r.Dmini, 1.0F);
    r.Y = std::clamp<Entier16>(r.Y, 1, 15);
    if (r.RGZA != 2) r.RGZA = 1;
}

bool ZonesRAZOA(Etude& e) {
    if (e.PanneauRelais) {
        e.X1_BT = Div(e.Ligne_Xprim1, e.Kz);
        e.X2_BT = Div(e.Ligne_Xprim2, e.Kz);
        e.X3_BT = Div(e.Ligne_Xprim3, e.Kz);
    }
    return CoderZonesRAZOA(e);
}

bool CoderZonesRAZOA(Etude& e) {
    RelaisRAZOA& r = e.RAZOA;
    for (double* x : {&e.X1_BT, &e.X2_BT, &e.X3_BT})
        *x = std::max(Verifier(*x), 0.01);
    const double in = e.Is;
    const std::optional<FractionRAZOA> premiere =
        CoderZoneRAZOA(in * e.X1_BT, NumerateurMaxRAZOA(e));
    if (!premiere) return false;
    const std::optional<int> p2 = DenominateurRAZOA(in * e.X2_BT, premiere->a);
    const std::optional<int> p3 = DenominateurRAZOA(in * e.X3_BT, premiere->a);
    if (!p2 || !p3) return false;
    r.a = static_cast<Entier16>(premiere->a);
    r.p1 = static_cast<Entier16>(premiere->p);
    r.p2 = static_cast<Entier16>(*p2);
    r.p3 = static_cast<Entier16>(*p3);
    e.X1reg_BT = PorteeCodeeRAZOA(r.a, r.p1, in);
    e.X2reg_BT = PorteeCodeeRAZOA(r.a, r.p2, in);
    e.X3reg_BT = PorteeCodeeRAZOA(r.a, r.p3, in);
    // The resistances share the denominators; their numerator is twice a on a long line.
    r.b = static_cast<Entier16>(e.Ligne_lc ? 2 * r.a : r.a);
    r.R1reg = PorteeCodeeRAZOA(r.b, r.p1, in);
    r.R2reg = PorteeCodeeRAZOA(r.b, r.p2, in);
    r.R3reg = PorteeCodeeRAZOA(r.b, r.p3, in);
    r.R1 = std::max(r.R1reg, 0.01);
    const double kz = e.Kz;
    e.X1_HT = Verifier(e.X1_BT * kz);
    e.X2_HT = Verifier(e.X2_BT * kz);
    e.X3_HT = Verifier(e.X3_BT * kz);
    e.X1reg_HT = Verifier(e.X1reg_BT * kz);
    e.X2reg_HT = Verifier(e.X2reg_BT * kz);
    e.X3reg_HT = Verifier(e.X3reg_BT * kz);
    return true;
}

void LargeurPompageRAZOA(Etude& e) {
    RelaisRAZOA& r = e.RAZOA;
    if (!e.PanneauRelais || !r.AvecPompage) return;
    if (e.Ligne_alim != 0 && e.Ligne_alim != 3) return; // a plant link: nothing from the load
    const Entier16 cas = e.TypeReportCharge;
    if (e.Ligne_alim == 0) {
        double z2 = std::numeric_limits<double>::infinity();
        for (const int c : {0, 2}) {
            const std::array<Complexe, 9> p = PointsTransitTiresDuCas(e, c);
            for (std::size_t i = 0; i < POINTS_MAILLES; ++i) {
                const double w = std::fabs(std::cos(Rad(10.0) + p[i].Argument)) * (0.9 / 1.375) *
                                 p[i].Module / std::cos(Rad(10.0));
                z2 = std::min(z2, w);
            }
        }
        r.Z2 = Div(Verifier(z2), e.Kz);
    } else {
        r.Z2 = Div(PointsTransitTiresDuCas(e, cas)[0].Module * 0.9 / 2.75, e.Kz);
    }
    RemettreCasDeReport(e, cas);
}

void CodagePompageRAZOA(Etude& e) {
    RelaisRAZOA& r = e.RAZOA;
    r.Z2 = std::max(Verifier(r.Z2), 0.0);
    const double in = e.Is;
    const std::pair<int, double> paires[] = {{1, 1.0},     {1, RACINE2}, {2, 1.0},
                                             {2, RACINE2}, {4, 1.0},     {4, RACINE2}};
    // The first pair whose q is at most 30; past the last one, q stays at 30.
    int m = 4;
    double d = RACINE2;
    double q = 30.0;
    for (const auto& [mk, dk] : paires) {
        const double qk = std::round(Verifier(Div(in * r.Z2, 8.0 * mk) * (22.0 / dk)));
        if (qk <= 30.0) {
            m = mk;
            d = dk;
            q = qk;
            break;
        }
    }
    r.m = m;
    r.d = static_cast<float>(d);
    r.q1 = static_cast<Entier16>(std::floor((q - 1.0) / 3.0) * 3.0 + 1.0);
    r.q2 = static_cast<Entier16>(q - r.q1);
    r.Z2reg = Div(8.0 * m * d * (r.q1 + r.q2), 22.0 * in);
}

bool Q1TropFaibleRAZOA(const Etude& e) {
    return e.RAZOA.q1 < 22;
}

void PriseRAZOA(Etude& e) {
    RelaisRAZOA& r = e.RAZOA;
    const bool maille = e.Ligne_alim == 0, client = e.Ligne_alim == 3;
    if (e.PanneauRelais && (maille || client)) {
        const double kz = e.Kz;
        const double z2 = r.Z2 * kz; // the width in primary ohms, as the reaches it limits
        const bool limite = r.AvecPompage && z2 / std::cos(Rad(10.0)) < 1.15 * r.R2reg * kz;
        const double dmini = r.Dmini;
        const Entier16 cas = e.TypeReportCharge;
        double zf = 0.0, D = dmini, lm = 0.0;
        if (maille && r.Cercle) {
            lm = RACINE3 * z2 / ((1.0 - dmini) * std::sin(Rad(10.0)) + (dmini + 1.0) * 1.15);
            CercleMaille(e, zf, D);
        } else if (maille) {
            lm = 1.685 * z2;
            zf = LentilleMaillee(e);
        } else {
            // A customer link: the circle is centred (D = 1), the lens keeps Dmini.
            D = r.Cercle ? 1.0 : dmini;
            lm = r.Cercle ? 0.753 * z2 : 1.685 * z2;
            zf = PointsTransitTiresDuCas(e, cas)[0].Module * 0.9 / 1.1;
        }
        if (limite && zf > lm) zf = lm;
        r.Zf = Div(Verifier(zf), kz);
        r.D = D;
        RemettreCasDeReport(e, cas);
    }
    CodagePriseRAZOA(e);
}

void CodagePriseRAZOA(Etude& e, bool zrSaisi) {
    RelaisRAZOA& r = e.RAZOA;
    r.Zf = std::max(Verifier(r.Zf), 0.01);
    if (zrSaisi) {
        r.Zr = std::max(Verifier(r.Zr), 0.0);
    } else {
        r.Zr = r.D * r.Zf;
    }
    r.D = Div(r.Zr, r.Zf);
    const double in = e.Is;
    int A = 5;
    double B = Div(25.0, in * r.Zf);
    if (B > 10.5) B = 10.5;
    for (const int a : {10, 20, 40, 80}) {
        if (B >= 4.5) break;
        A = a;
        B = Div(5.0 * a, in * r.Zf);
    }
    if (B < 4.5) B = 4.5;
    r.A = A;
    r.B = static_cast<float>(B);
    r.Zfreg = Div(5.0 * A, in * B);
    r.Zrreg = r.D * r.Zfreg;
}

FormeRAZOA FormeDeLaPriseRAZOA(bool lentille, double D) {
    FormeRAZOA f;
    const double milieu = (1.0 - D) / 2.0, demiCorde = (1.0 + D) / 2.0;
    if (!lentille) {
        f.Disques[0] = {milieu, 0.0, demiCorde};
        f.Nombre = 1;
        return f;
    }
    // Two discs through both reaches, their centres on either side of the axis.
    const double rayon = demiCorde / std::sin(ANGLE_LENTILLE);
    const double ecart = demiCorde / std::tan(ANGLE_LENTILLE);
    f.Disques[0] = {milieu, -ecart, rayon};
    f.Disques[1] = {milieu, ecart, rayon};
    f.Nombre = 2;
    return f;
}

double DistanceAuBordRAZOA(const FormeRAZOA& forme, double x, double y, double angle) {
    const double ux = std::cos(angle), uy = std::sin(angle);
    double t = std::numeric_limits<double>::infinity();
    for (int i = 0; i < forme.Nombre; ++i) {
        const DisqueRAZOA& c = forme.Disques[static_cast<std::size_t>(i)];
        const double cx = c.Xc - x, cy = c.Yc - y;
        const double projection = cx * ux + cy * uy;
        const double discriminant =
            projection * projection - (cx * cx + cy * cy) + c.Rayon * c.Rayon;
        if (!(discriminant >= 0.0)) return 0.0;
        t = std::min(t, projection + std::sqrt(discriminant));
    }
    return std::isfinite(t) ? t : 0.0;
}

void AutresRAZOA(Etude& e) {
    RelaisRAZOA& r = e.RAZOA;
    if (e.PanneauRelais) r.Jo = 1;
    r.Jo = std::clamp<Entier16>(r.Jo, 1, 8);
    r.Y = std::clamp<Entier16>(r.Y, 1, 15);
    r.K = r.Y / 10.0;
    const FormeRAZOA forme = FormeDeLaPriseRAZOA(r.Lentille, r.D);
    const double kz = e.Kz;
    const double f = r.Zfreg * kz;
    const double teta = Rad(e.teta), phi = e.PHI_eq;
    auto rayon = [&](double angle) { return f * DistanceAuBordRAZOA(forme, 0.0, 0.0, angle); };
    r.RfProche = Verifier(2.0 * rayon(teta));
    r.RsurX = Div(r.RfProche, kz * e.X1reg_BT);
    // The end of the line on the phase to earth loop, whose characteristic is twice as large,
    // and the resistance from there to the edge along R.
    const double l = (r.K + 1.0) * e.ZL_eq;
    const double echelle = 2.0 * f;
    if (echelle > 0.0) {
        const double px = l * std::cos(phi - teta) / echelle,
                     py = l * std::sin(phi - teta) / echelle;
        r.RfLoin = Verifier(echelle * DistanceAuBordRAZOA(forme, px, py, -teta));
    } else {
        r.RfLoin = 0.0;
    }
    for (const double sens : {0.0, PI}) {
        Reels3& portees = sens == 0.0 ? r.PorteeAv : r.PorteeAr;
        portees[0] = Verifier(rayon(sens + teta - phi));
        portees[1] = Verifier(2.0 / RACINE3 * rayon(sens + teta - phi + Rad(30.0)));
        portees[2] = Verifier(2.0 * rayon(sens + teta - phi) / (r.K + 1.0));
    }
    r.PorteePompage = Verifier(2.0 * r.Z2reg * kz);
}

int PositionCommutateurRAZOA(int t) {
    return t / 100;
}

void TemposRAZOA(Etude& e) {
    RelaisRAZOA& r = e.RAZOA;
    e.T1 = std::clamp<Entier16>(e.T1, 0, 9990);
    auto centaines = [](Entier16& t) {
        t = static_cast<Entier16>(std::clamp<int>(t, 0, 9900) / 100 * 100);
    };
    centaines(e.T2);
    centaines(e.T3);
    centaines(e.T4);
    r.TReg = r.RGZA == 2 ? e.T3 : e.T2;
}

void DiagRAZOA(Etude& e) {
    const RelaisRAZOA& r = e.RAZOA;
    TransformateursDesBouts(e);
    EffacerReglesRelais(e, ID_RAZOA);
    const double s = std::sin(e.PHI_eq);
    const double avant = 0.8 * e.XtrDistant + 0.9 * e.XL_eq;
    const double arriere = 0.8 * e.XtrProche;
    const double oppose = 1.3 * e.Ligne_X1PB - 1.06 * e.XL_eq;
    const double x2 = e.X2reg_HT, x3 = e.X3reg_HT;
    const bool pompage = r.AvecPompage;
    DefinirRegle(e, 50, r.PorteeAv[0] * s < 1.2 * x2, 1.2 * x2);
    const FormeRAZOA forme = FormeDeLaPriseRAZOA(r.Lentille, r.D);
    const double facteur = 2.0 * DistanceAuBordRAZOA(forme, 0.0, 0.0, e.PHI_eq - Rad(e.teta));
    DefinirRegle(e, 51, avant < 1.15 * r.PorteeAv[2] * s,
                 Div(Div((r.K + 1.0) * avant, 1.15 * s), facteur));
    DefinirRegle(e, 52, pompage && avant < 1.15 * r.PorteePompage * s, Div(avant, 2.3 * s));
    DefinirRegle(e, 53, pompage && 1.8 * r.Z2reg * e.Kz < 1.1 * x3, 1.1 * x3 / 1.8);
    DefinirRegle(e, 54, arriere < 1.15 * r.PorteeAr[2] * s, arriere / 1.15);
    DefinirRegle(e, 55, pompage && arriere < 1.15 * r.PorteePompage * s, Div(arriere, 2.3 * s));
    const double plusPetite = std::min({r.PorteeAr[2], r.PorteeAr[0], r.PorteeAr[1]});
    DefinirRegle(e, 56, oppose > plusPetite, oppose);
}

double DemiLargeurRAZOA(const Etude& e) {
    const RelaisRAZOA& r = e.RAZOA;
    const double kz = e.Kz;
    const double q = 2.0 / RACINE3;
    double l = std::max({e.X3reg_HT, q * r.Zfreg * kz, q * r.Zrreg * kz});
    if (r.AvecPompage) l = std::max(l, 2.0 * r.Z2reg * kz);
    if (e.Ceq > 0.0) l = std::max(l, 2.0 * r.Zfreg * kz * e.Ligne_CRm / e.Ceq);
    return std::min(1.2 * l, 1000.0);
}

} // namespace tournesol
