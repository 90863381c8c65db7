// The RAZOA's rules worked out by hand: the coding of the zones as integer fractions (between
// two fractions, on the bounds, on ties), the out-of-step and pick-up codings, the shapes and
// the reaches they give, each rule of the setting guide, the characteristic, the store, and the
// panel on the example lines (each line kind, the stops and the failures).
#include "EtudeRelais.h"
#include "relays/razoa/CalculRAZOA.h"
#include "relays/razoa/PanneauRAZOA.h"
#include "relays/razoa/TraceRAZOA.h"

#include <filesystem>

using namespace tournesol;

namespace {

const double RACINE2 = std::sqrt(2.0);
const double RACINE3 = std::sqrt(3.0);

void AttendrePaire(double inX, int aMax, int a, int p) {
    const auto f = CoderZoneRAZOA(inX, aMax);
    ASSERT_TRUE(f.has_value()) << inX;
    EXPECT_EQ(f->a, a) << inX;
    EXPECT_EQ(f->p, p) << inX;
}

} // namespace

TEST(CodageRAZOA, LaPaireLaPlusProcheSansDepasser) {
    // In X = 3.2: the reach 1 exactly, a/p = 1; of all the pairs a = p, the largest denominator
    // the numerator allows.
    AttendrePaire(3.2, NUMERATEUR_COURT, 49, 49);
    AttendrePaire(3.2, NUMERATEUR_LONG, 99, 99);
    // 3.3 / 3.2 = 33/32; on a long line 99/96 reaches as far with a larger denominator.
    AttendrePaire(3.3, NUMERATEUR_COURT, 33, 32);
    AttendrePaire(3.3, NUMERATEUR_LONG, 99, 96);
    // 4 / 3.2 = 5/4, whose denominator is below the wheel: 45/36 is the same reach.
    AttendrePaire(4.0, NUMERATEUR_COURT, 45, 36);
    // 10 / 3.2 = 25/8; on a long line 75/24 (100/32 would need a = 100).
    AttendrePaire(10.0, NUMERATEUR_COURT, 25, 8);
    AttendrePaire(10.0, NUMERATEUR_LONG, 75, 24);
    // sqrt(2) falls between fractions: 41/29 = 1.41379 below it (99/70 = 1.41429 would exceed);
    // on a long line the same reach as 82/58.
    AttendrePaire(3.2 * RACINE2, NUMERATEUR_COURT, 41, 29);
    AttendrePaire(3.2 * RACINE2, NUMERATEUR_LONG, 82, 58);
    // Just below a fraction the fraction is not taken: 3.2 * 33/32 less a little gives a reach
    // below 33/32.
    const auto f = CoderZoneRAZOA(3.3 - 1e-6, NUMERATEUR_COURT);
    ASSERT_TRUE(f);
    EXPECT_LT(static_cast<double>(f->a) / f->p, 33.0 / 32.0);

    // The bounds: the largest reach 49/5, the smallest 5/99; beyond either, nothing.
    AttendrePaire(3.2 * 49.0 / 5.0, NUMERATEUR_COURT, 49, 5);
    EXPECT_FALSE(CoderZoneRAZOA(3.2 * 49.0 / 5.0 + 0.01, NUMERATEUR_COURT));
    AttendrePaire(3.2 * 5.0 / 99.0, NUMERATEUR_COURT, 5, 99);
    EXPECT_FALSE(CoderZoneRAZOA(3.2 * 5.0 / 99.0 - 0.001, NUMERATEUR_COURT));
    EXPECT_FALSE(CoderZoneRAZOA(0.0, NUMERATEUR_COURT));
    EXPECT_FALSE(CoderZoneRAZOA(std::nan(""), NUMERATEUR_COURT));
}

TEST(CodageRAZOA, NeFaillitJamaisDansLaPlageGarantie) {
    // From 3.3 to 0.32 a0, on both kinds of line: a pair is found and never exceeds; its error
    // stays below 1 / (a0 - t), t = In X / 3.2 (the numerator below a0 / t times t is short of
    // it by less than one); and the numerator found leaves the two other zones room for any
    // reach of that range.
    for (const int a0 : {NUMERATEUR_COURT, NUMERATEUR_LONG}) {
        const double haut = 0.32 * a0;
        for (int i = 0; i <= 2000; ++i) {
            const double inX = 3.3 + (haut - 3.3) * i / 2000.0;
            const auto f = CoderZoneRAZOA(inX, a0);
            ASSERT_TRUE(f) << inX;
            const double portee = 3.2 * f->a / f->p;
            EXPECT_LE(portee, inX * (1.0 + 1e-9)) << inX;
            EXPECT_LT((inX - portee) / inX, 1.0 / (a0 - inX / 3.2)) << inX;
            EXPECT_TRUE(DenominateurRAZOA(3.3, f->a)) << inX;
            EXPECT_TRUE(DenominateurRAZOA(haut, f->a)) << inX;
        }
    }
}

TEST(CodageRAZOA, LeDenominateurDUneZoneAPartirDuNumerateur) {
    // a = 49: 3.2 * 49 / 30 exactly is p = 30, a little less is 31.
    EXPECT_EQ(DenominateurRAZOA(3.2 * 49.0 / 30.0, 49), 30);
    EXPECT_EQ(DenominateurRAZOA(3.2 * 49.0 / 30.0 - 1e-6, 49), 31);
    // Beyond the reach of p = 5, or below that of p = 99: nothing.
    EXPECT_EQ(DenominateurRAZOA(3.2 * 49.0 / 5.0, 49), 5);
    EXPECT_FALSE(DenominateurRAZOA(3.2 * 49.0 / 5.0 + 0.01, 49));
    EXPECT_FALSE(DenominateurRAZOA(3.2 * 49.0 / 99.0 - 0.01, 49));
}

TEST(ZonesRAZOA, LesTroisZonesEtLesResistances) {
    // Is 5 and X1 = 0.64: In X1 = 3.2, the reach 1 exactly; a short line.
    Etude e;
    e.Is = 5.0F;
    e.Kz = 2.0;
    e.X1_BT = 0.64;
    e.X2_BT = 1.0; // In X2 = 5: 49 / p <= 1.5625, p = 32 (1.53)
    e.X3_BT = 1.6; // In X3 = 8: 49 / p <= 2.5, p = 20
    ASSERT_TRUE(ZonesRAZOA(e));
    const RelaisRAZOA& r = e.RAZOA;
    EXPECT_EQ(r.a, 49);
    EXPECT_EQ(r.p1, 49);
    EXPECT_EQ(r.p2, 32);
    EXPECT_EQ(r.p3, 20);
    EXPECT_NEAR(e.X1reg_BT, 0.64, 1e-12);
    EXPECT_NEAR(e.X2reg_BT, 3.2 * 49.0 / (32.0 * 5.0), 1e-12);
    EXPECT_NEAR(e.X3reg_BT, 1.568, 1e-12);
    EXPECT_NEAR(e.X3reg_HT, 3.136, 1e-12);
    // A short line: b = a and the resistances equal the reactances; R1 = R1reg.
    EXPECT_EQ(r.b, 49);
    EXPECT_NEAR(r.R2reg, e.X2reg_BT, 1e-12);
    EXPECT_NEAR(r.R1, e.X1reg_BT, 1e-12);

    // A long line: a up to 99, b = 2 a, each resistance twice its reactance.
    e.Ligne_lc = true;
    ASSERT_TRUE(ZonesRAZOA(e));
    EXPECT_EQ(r.a, 99);
    EXPECT_EQ(r.b, 198);
    EXPECT_NEAR(r.R3reg, 2.0 * e.X3reg_BT, 1e-12);

    // In mode "Return" the desired reactances come from the line, divided by Kz.
    e.PanneauRelais = true;
    e.Ligne_Xprim1 = 1.28;
    e.Ligne_Xprim2 = 2.0;
    e.Ligne_Xprim3 = 3.2;
    ASSERT_TRUE(ZonesRAZOA(e));
    EXPECT_DOUBLE_EQ(e.X1_BT, 0.64);
    EXPECT_DOUBLE_EQ(e.X3_BT, 1.6);

    // A third zone beyond the wheel for that numerator cannot be set; nor can a first zone
    // below the smallest reach (X1 is not left below 0.01).
    e.PanneauRelais = false;
    e.X3_BT = 3.2 * 99.0 / 5.0 / 5.0 + 0.1;
    EXPECT_FALSE(ZonesRAZOA(e));
    e.X3_BT = 1.6;
    e.X1_BT = 0.0;
    EXPECT_FALSE(ZonesRAZOA(e));
    EXPECT_DOUBLE_EQ(e.X1_BT, 0.01);
}

TEST(PompageRAZOA, LaPremierePaireDontQNeDepassePas30) {
    Etude e;
    e.Is = 1.0F;
    RelaisRAZOA& r = e.RAZOA;
    // Z2 = 8: q = 22 with m = 1, d = 1; q1 = 22, q2 = 0.
    r.Z2 = 8.0;
    CodagePompageRAZOA(e);
    EXPECT_EQ(r.m, 1);
    EXPECT_FLOAT_EQ(r.d, 1.0F);
    EXPECT_EQ(r.q1, 22);
    EXPECT_EQ(r.q2, 0);
    EXPECT_NEAR(r.Z2reg, 8.0, 1e-12);
    EXPECT_FALSE(Q1TropFaibleRAZOA(e));
    // Z2 = 8.7: q = 24 (23.925), q1 = 22 and q2 = 2.
    r.Z2 = 8.7;
    CodagePompageRAZOA(e);
    EXPECT_EQ(r.q1, 22);
    EXPECT_EQ(r.q2, 2);
    EXPECT_NEAR(r.Z2reg, 8.0 * 24.0 / 22.0, 1e-12);
    // q = 31 with m = 1, d = 1 moves on to d = sqrt(2): q = 22 (21.92).
    r.Z2 = 31.0 * 8.0 / 22.0;
    CodagePompageRAZOA(e);
    EXPECT_EQ(r.m, 1);
    EXPECT_FLOAT_EQ(r.d, static_cast<float>(RACINE2));
    EXPECT_EQ(r.q1 + r.q2, 22);
    EXPECT_NEAR(r.Z2reg, 8.0 * RACINE2, 1e-12);
    // Wide: m = 4, d = 1 (In Z2 = 40: q = 27.5, rounded 28): q1 = 28, q2 = 0.
    r.Z2 = 40.0;
    CodagePompageRAZOA(e);
    EXPECT_EQ(r.m, 4);
    EXPECT_FLOAT_EQ(r.d, 1.0F);
    EXPECT_EQ(r.q1, 28);
    // Beyond the last pair q stays at 30.
    r.Z2 = 1000.0;
    CodagePompageRAZOA(e);
    EXPECT_EQ(r.m, 4);
    EXPECT_EQ(r.q1 + r.q2, 30);
    // Narrow: Z2 = 5 gives q = 14, q1 = 13, below 22.
    r.Z2 = 5.0;
    CodagePompageRAZOA(e);
    EXPECT_EQ(r.q1, 13);
    EXPECT_EQ(r.q2, 1);
    EXPECT_TRUE(Q1TropFaibleRAZOA(e));
}

TEST(PriseRAZOA, LeCodageParAEtB) {
    Etude e;
    e.Is = 1.0F;
    RelaisRAZOA& r = e.RAZOA;
    r.D = 0.5;
    // Zf = 3: A = 5, B = 25 / 3; the set reach is the desired one.
    r.Zf = 3.0;
    CodagePriseRAZOA(e);
    EXPECT_EQ(r.A, 5);
    EXPECT_NEAR(r.B, 25.0 / 3.0, 1e-6);
    EXPECT_NEAR(r.Zfreg, 3.0, 1e-12);
    EXPECT_NEAR(r.Zr, 1.5, 1e-12);
    EXPECT_NEAR(r.Zrreg, 1.5, 1e-12);
    // Zf = 2: B = 12.5 is cut to 10.5, the set reach 25 / 10.5.
    r.Zf = 2.0;
    CodagePriseRAZOA(e);
    EXPECT_EQ(r.A, 5);
    EXPECT_FLOAT_EQ(r.B, 10.5F);
    EXPECT_NEAR(r.Zfreg, 25.0 / 10.5, 1e-12);
    // Zf = 10: B = 2.5 is below 4.5, A = 10 gives B = 5.
    r.Zf = 10.0;
    CodagePriseRAZOA(e);
    EXPECT_EQ(r.A, 10);
    EXPECT_FLOAT_EQ(r.B, 5.0F);
    // Zf = 100: A = 80 still leaves B = 4 below 4.5: B = 4.5, the set reach below the desired.
    r.Zf = 100.0;
    CodagePriseRAZOA(e);
    EXPECT_EQ(r.A, 80);
    EXPECT_FLOAT_EQ(r.B, 4.5F);
    EXPECT_NEAR(r.Zfreg, 400.0 / 4.5, 1e-9);
    // A backward reach typed gives D; Zf is not left below 0.01.
    r.Zf = 4.0;
    r.Zr = 1.0;
    CodagePriseRAZOA(e, true);
    EXPECT_NEAR(r.D, 0.25, 1e-12);
    r.Zf = 0.0;
    CodagePriseRAZOA(e);
    EXPECT_DOUBLE_EQ(r.Zf, 0.01);
}

TEST(FormeRAZOA, CercleEtLentille) {
    // The circle of forward reach 1 and backward reach D: the distance along phi is
    // ((1 - D) cos(phi) + sqrt(((1 - D) cos(phi))^2 + 4 D)) / 2.
    const FormeRAZOA cercle = FormeDeLaPriseRAZOA(false, 0.25);
    EXPECT_NEAR(DistanceAuBordRAZOA(cercle, 0, 0, 0.0), 1.0, 1e-12);
    EXPECT_NEAR(DistanceAuBordRAZOA(cercle, 0, 0, PI), 0.25, 1e-12);
    EXPECT_NEAR(DistanceAuBordRAZOA(cercle, 0, 0, PI / 2.0), 0.5, 1e-12); // sqrt(D)
    const double c = 0.75 * std::cos(1.0);
    EXPECT_NEAR(DistanceAuBordRAZOA(cercle, 0, 0, 1.0), (c + std::sqrt(c * c + 1.0)) / 2.0, 1e-12);
    // A point outside whose line misses the circle: 0.
    EXPECT_DOUBLE_EQ(DistanceAuBordRAZOA(cercle, 0.0, 5.0, 0.0), 0.0);

    // The lens through 1 and -1: arcs of radius sqrt(2) centred at (0, -1) and (0, 1); it
    // reaches 1 along the axis and sqrt(2) - 1 across.
    const FormeRAZOA lentille = FormeDeLaPriseRAZOA(true, 1.0);
    ASSERT_EQ(lentille.Nombre, 2);
    EXPECT_NEAR(DistanceAuBordRAZOA(lentille, 0, 0, 0.0), 1.0, 1e-12);
    EXPECT_NEAR(DistanceAuBordRAZOA(lentille, 0, 0, PI), 1.0, 1e-12);
    EXPECT_NEAR(DistanceAuBordRAZOA(lentille, 0, 0, PI / 2.0), RACINE2 - 1.0, 1e-12);
    EXPECT_NEAR(DistanceAuBordRAZOA(lentille, 0, 0, -PI / 2.0), RACINE2 - 1.0, 1e-12);
}

namespace {

// A centred circle (D = 1) of 10 primary ohms (Zfreg 5, Kz 2) on a line at 75 degrees.
Etude CercleCentre() {
    Etude e;
    e.Is = 1.0F;
    e.Kz = 2.0;
    e.teta = 75.0F;
    e.PHI_eq = DegToRad(75.0);
    e.ZL_eq = 4.0;
    e.XL_eq = 4.0 * std::sin(e.PHI_eq);
    e.X1reg_BT = 1.0;
    RelaisRAZOA& r = e.RAZOA;
    r.Cercle = true;
    r.D = 1.0;
    r.Zfreg = 5.0;
    r.Zrreg = 5.0;
    r.Y = 5;
    r.Z2reg = 4.0;
    r.AvecPompage = true;
    return e;
}

} // namespace

TEST(AutresRAZOA, LesPorteesDUnCercleCentre) {
    Etude e = CercleCentre();
    AutresRAZOA(e);
    const RelaisRAZOA& r = e.RAZOA;
    EXPECT_DOUBLE_EQ(r.K, 0.5);
    // Every direction reaches the radius, 10: the detectable resistance is twice it.
    EXPECT_NEAR(r.RfProche, 20.0, 1e-9);
    EXPECT_NEAR(r.RsurX, 10.0, 1e-9); // 20 / (Kz X1reg)
    for (const Reels3* p : {&r.PorteeAv, &r.PorteeAr}) {
        EXPECT_NEAR((*p)[0], 10.0, 1e-9);
        EXPECT_NEAR((*p)[1], 20.0 / RACINE3, 1e-9);
        EXPECT_NEAR((*p)[2], 20.0 / 1.5, 1e-9);
    }
    EXPECT_NEAR(r.PorteePompage, 16.0, 1e-12); // 2 Z2reg Kz
    // The remote end: u = 2 f, v = (K + 1) ZL sin(phi), then sqrt(u^2 - v^2) - (K + 1) ZL cos.
    const double l = 6.0, phi = DegToRad(75.0);
    EXPECT_NEAR(r.RfLoin,
                std::sqrt(400.0 - l * l * std::sin(phi) * std::sin(phi)) - l * std::cos(phi), 1e-9);
    // In mode "Return" Jo is 1; Y above 15 is 15.
    e.PanneauRelais = true;
    e.RAZOA.Jo = 6;
    e.RAZOA.Y = 30;
    AutresRAZOA(e);
    EXPECT_EQ(r.Jo, 1);
    EXPECT_DOUBLE_EQ(r.K, 1.5);
}

TEST(AutresRAZOA, LesPorteesDUnCercleDecale) {
    // D = 0.25, forward 10 primary ohms, teta 75, line at 75: along the line the phase to
    // phase reach is the forward diameter's end, 10; backward 2.5.
    Etude e = CercleCentre();
    e.RAZOA.D = 0.25;
    AutresRAZOA(e);
    const RelaisRAZOA& r = e.RAZOA;
    EXPECT_NEAR(r.PorteeAv[0], 10.0, 1e-9);
    EXPECT_NEAR(r.PorteeAr[0], 2.5, 1e-9);
    // Against the close substation, R(teta) f with R(phi) = (1 - D) cos + sqrt(... + 4 D).
    const double c = 0.75 * std::cos(DegToRad(75.0));
    EXPECT_NEAR(r.RfProche, (c + std::sqrt(c * c + 1.0)) * 10.0, 1e-9);
    // Three phase: R(30 degrees) f / sqrt(3); backward with (D - 1) in the first term.
    const double t = 0.75 * std::cos(DegToRad(30.0));
    EXPECT_NEAR(r.PorteeAv[1], (t + std::sqrt(t * t + 1.0)) * 10.0 / RACINE3, 1e-9);
    EXPECT_NEAR(r.PorteeAr[1], (-t + std::sqrt(t * t + 1.0)) * 10.0 / RACINE3, 1e-9);
}

TEST(DiagnosticsRAZOA, ChaqueRegleSePoseEtSEfface) {
    // The centred circle of radius 10 on a line at 75 degrees: S = sin 75.
    Etude e = CercleCentre();
    AutresRAZOA(e);
    const double s = std::sin(DegToRad(75.0));
    e.X2reg_HT = 5.0;
    e.X3reg_HT = 5.0;
    e.XL_eq = 2.0;
    e.Ligne_XAV = 100.0F; // far transformers: nothing seen beyond them
    e.Ligne_XAM = 100.0F;
    e.Ligne_X1PB = 1.0F;
    DiagRAZOA(e);
    Regles(e, 50, 56, {});

    // 50: the phase to phase reach times S below 1.2 X2reg.
    e.X2reg_HT = 10.0 * s / 1.2 + 0.01;
    DiagRAZOA(e);
    Regles(e, 50, 56, {50});
    EXPECT_NEAR(ValeurRegle(e, 50), 1.2 * e.X2reg_HT, 1e-12);
    e.X2reg_HT = 5.0;

    // 51, 52: near transformers at the remote end.
    e.Ligne_XAV = 10.0F;
    DiagRAZOA(e);
    const double rf2 = 0.8 * e.XtrDistant + 0.9 * 2.0;
    ASSERT_LT(rf2, 1.15 * (20.0 / 1.5) * s);
    Regles(e, 50, 56, {51, 52}); // 52: 1.15 * 16 * S = 17.8 above Rf
    // Zf limit: ((K + 1) Rf / (1.15 S)) / R(phi - teta), R = 2 for the centred circle, in the
    // primary ohms of Zf.
    EXPECT_NEAR(ValeurRegle(e, 51), 1.5 * rf2 / (1.15 * s) / 2.0, 1e-9);
    EXPECT_NEAR(ValeurRegle(e, 52), rf2 / (2.3 * s), 1e-9);
    // Without out of step its zone sees nothing.
    e.RAZOA.AvecPompage = false;
    DiagRAZOA(e);
    Regles(e, 50, 56, {51});
    e.RAZOA.AvecPompage = true;
    e.Ligne_XAV = 100.0F;

    // 53: 1.8 Z2reg (8 primary) below 1.1 X3reg.
    e.X3reg_HT = 1.8 * 8.0 / 1.1 + 0.01;
    DiagRAZOA(e);
    Regles(e, 50, 56, {53});
    EXPECT_NEAR(ValeurRegle(e, 53), 1.1 * e.X3reg_HT / 1.8, 1e-12);
    e.X3reg_HT = 5.0;

    // 54, 55: near transformers behind the relay.
    e.Ligne_XAM = 10.0F;
    DiagRAZOA(e);
    const double rb = 0.8 * e.XtrProche;
    Regles(e, 50, 56, {54, 55});
    EXPECT_NEAR(ValeurRegle(e, 54), rb / 1.15, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 55), rb / (2.3 * s), 1e-12);
    e.Ligne_XAM = 100.0F;

    // 56: the remote relay's first zone beyond the smallest backward reach (13.33).
    e.Ligne_X1PB = 12.0F;
    DiagRAZOA(e);
    Regles(e, 50, 56, {56});
    EXPECT_NEAR(ValeurRegle(e, 56), 1.3 * 12.0 - 1.06 * 2.0, 1e-5);
    e.Ligne_X1PB = 1.0F;
    DiagRAZOA(e);
    Regles(e, 50, 56, {});
}

TEST(CaracteristiqueRAZOA, CercleOuLentilleParCasDeReport) {
    Etude e = CercleCentre();
    e.RAZOA.D = 0.5;
    e.RAZOA.Zrreg = 2.5;
    e.CouleurTriphase = 0x00FF00;
    e.CouleurMonophase = 0xFF0000;
    const double q = 2.0 / RACINE3;
    const double axe = DegToRad(105.0);
    // Three phase: one whole circle through q Zf on teta + 30, centred at (q Zf - q Zr) / 2.
    e.TypeReportCharge = 0;
    auto arcs = ArcsRAZOA(e);
    ASSERT_EQ(arcs.size(), 1u);
    EXPECT_EQ(arcs[0].Couleur, 0x00FF00);
    EXPECT_NEAR(arcs[0].Centre.Module, (q * 10.0 - q * 5.0) / 2.0, 1e-9);
    EXPECT_NEAR(arcs[0].Centre.Argument, axe, 1e-9);
    EXPECT_TRUE(Au(arcs[0].Debut, q * 10.0 * std::cos(axe), q * 10.0 * std::sin(axe)));
    EXPECT_NEAR(arcs[0].Fin.Re, arcs[0].Debut.Re, 1e-12);
    // Earth, report case 1: reaches 2 Zf CRm / Ceq and 2 Zr CRm / Ceq on teta.
    e.TypeReportCharge = 1;
    e.Ligne_CRm = 1.5;
    e.Ceq = 3.0;
    arcs = ArcsRAZOA(e);
    ASSERT_EQ(arcs.size(), 1u);
    EXPECT_EQ(arcs[0].Couleur, 0xFF0000);
    EXPECT_NEAR(arcs[0].Debut.Module, 10.0, 1e-9);
    EXPECT_NEAR(arcs[0].Debut.Argument, DegToRad(75.0), 1e-9);
    EXPECT_NEAR(arcs[0].Centre.Module, (10.0 - 5.0) / 2.0, 1e-9);
    // The lens: two arcs between the same two reaches, the upper one first.
    e.RAZOA.Cercle = false;
    e.RAZOA.Lentille = true;
    e.TypeReportCharge = 2;
    arcs = ArcsRAZOA(e);
    ASSERT_EQ(arcs.size(), 2u);
    EXPECT_NEAR(arcs[0].Debut.Module, q * 10.0, 1e-9);
    EXPECT_NEAR(arcs[0].Fin.Module, q * 5.0, 1e-9);
    EXPECT_NEAR(arcs[1].Debut.Re, arcs[0].Fin.Re, 1e-9);
    EXPECT_NEAR(arcs[1].Fin.Re, arcs[0].Debut.Re, 1e-9);
    // Both arcs' centres at the radius from either reach.
    for (const ArcImage& a : arcs) {
        const double r1 = std::hypot(a.Debut.Re - a.Centre.Re, a.Debut.Im - a.Centre.Im);
        const double r2 = std::hypot(a.Fin.Re - a.Centre.Re, a.Fin.Im - a.Centre.Im);
        EXPECT_NEAR(r1, r2, 1e-9);
        EXPECT_NEAR(r1, q * 7.5 * RACINE2, 1e-9); // half chord / sin 45
    }
}

TEST(MagasinRAZOA, LaListeRevientAvecSesTypes) {
    Etude e;
    e.id_protection = ID_RAZOA;
    e.id_reglage = 4;
    RelaisRAZOA& r = e.RAZOA;
    r.Y = 7;
    r.a = 49;
    r.p3 = 20;
    r.Zf = 3.25;
    r.Lentille = true;
    r.Dmini = 0.35F;
    e.X2reg_BT = 1.53;
    e.teta = 60.0F;
    e.Teleaction = true;
    e.Acceleration = false;
    e.T3 = 800;
    r.TReg = 800;
    r.RGZA = 2;
    e.Is = 5.0F;
    MagasinMemoire m;
    const Etude relue = AllerRetour(e, m, 43);
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 0)), 7);
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 23)), -1); // Lentille
    EXPECT_EQ(std::get<float>(m.LireValeur(4, 20)), 60.0F);     // teta
    EXPECT_EQ(std::get<float>(m.LireValeur(4, 41)), 5.0F);      // Is
    EXPECT_EQ(relue.RAZOA.a, 49);
    EXPECT_EQ(relue.RAZOA.p3, 20);
    EXPECT_EQ(relue.RAZOA.Zf, 3.25);
    EXPECT_TRUE(relue.RAZOA.Lentille);
    EXPECT_FALSE(relue.RAZOA.Cercle);
    EXPECT_EQ(relue.RAZOA.Dmini, 0.35F);
    EXPECT_EQ(relue.X2reg_BT, 1.53);
    EXPECT_TRUE(relue.Verrouillage);
    EXPECT_EQ(relue.RAZOA.RGZA, 2);
}

// The panel on the example lines, headless.
struct PanneauDuRAZOA : EtudeEtPanneau<PanneauRAZOA> {
    void Charger(const char* fichier) {
        InscrireRelais();
        InitRegistre(e);
        PreparerOuverture(e);
        LireFichierEtude(std::string(TOURNESOL_EXEMPLES "/") + fichier, e);
        options.Choisir(e.TypeReportCharge);
    }
    void Ouvrir() { InitEtude(e, d, options); }
};

TEST_F(PanneauDuRAZOA, LeursDefautsAvantLesValeursDuFichier) {
    Charger("saint-marcel-papeteries-63kV-client.json");
    EXPECT_EQ(e.RAZOA.q1, 22);
    EXPECT_EQ(e.RAZOA.str26, "0N");
    EXPECT_EQ(e.RAZOA.str28, "OFF");
    // A file's own value stands over the default.
    Etude f;
    InscrireRelais();
    PreparerOuverture(f);
    LireEtude(R"({"id_protection": 8, "str27": "ON"})", f);
    EXPECT_EQ(f.RAZOA.str27, "ON");
    EXPECT_EQ(f.RAZOA.str26, "0N");
}

TEST_F(PanneauDuRAZOA, LigneMailleeEnModeRetour) {
    Charger("bayet-saint-pourcain-225kV.json");
    ASSERT_TRUE(e.PanneauRelais);
    Ouvrir();
    ASSERT_EQ(e.ErrCalcul, 0);
    ASSERT_TRUE(e.RelaisPret);
    const RelaisRAZOA& r = e.RAZOA;
    // The zones coded from the line, never beyond the desired reaches.
    EXPECT_NEAR(e.X1_BT, e.Ligne_Xprim1 / e.Kz, 1e-9);
    EXPECT_LE(e.X1reg_BT, e.X1_BT * (1.0 + 1e-9));
    EXPECT_LE(e.X3reg_BT, e.X3_BT * (1.0 + 1e-9));
    EXPECT_EQ(r.b, 2 * r.a); // a long line
    // The circle: D among the candidates from Dmini, the pick-up coded.
    EXPECT_TRUE(r.Cercle);
    EXPECT_GE(r.D, r.Dmini - 1e-9);
    EXPECT_LE(r.D, 1.0 + 1e-9);
    EXPECT_GT(r.Zf, 0.01);
    EXPECT_NEAR(r.Zfreg, 5.0 * r.A / (e.Is * r.B), 1e-5);
    // "Return": signalling on, acceleration from the long line, Jo 1.
    EXPECT_TRUE(e.Teleaction);
    EXPECT_TRUE(e.Acceleration);
    EXPECT_FALSE(e.Verrouillage);
    EXPECT_EQ(r.Jo, 1);
    // The case in force and its area are those the study showed.
    EXPECT_EQ(e.TypeReportCharge, options.Cas());

    // The lens on the same line: D is Dmini and the pick-up is no wider than the circle's
    // limits allow.
    e.RAZOA.Cercle = false;
    e.RAZOA.Lentille = true;
    e.PanneauRelais = true;
    OuvrirPanneau(e, d, options, true);
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_NEAR(r.D, r.Dmini, 1e-6);
    EXPECT_GT(r.Zf, 0.01);
}

TEST_F(PanneauDuRAZOA, UnFacteurDeReportTropGrandEstUnEchec) {
    // A large single-phase report factor: Ceq = (3 - 2 / (ko - kom + 1)) (CRm - 1) ko + CRm
    // leaves Fc = Int(1.1 / 0.9 CRm / Ceq) at 0; the division by it is the run-time error,
    // reported, and nothing is ready.
    Charger("bayet-saint-pourcain-225kV.json");
    Ouvrir();
    ASSERT_EQ(e.ErrCalcul, 0);
    e.Ligne_CRm = 2.5;
    e.PanneauRelais = true;
    OuvrirPanneau(e, d, options, true);
    EXPECT_NE(e.ErrCalcul, 0);
    EXPECT_FALSE(e.RelaisPret);
    EXPECT_TRUE(e.PanneauRelais);
}

TEST_F(PanneauDuRAZOA, LiaisonClienteEtLiaisonCentrale) {
    // The customer link: D = 1, Zf from point 1 with the margin 0.9 / 1.1.
    Charger("saint-marcel-papeteries-63kV-client.json");
    e.PanneauRelais = true;
    Ouvrir();
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_DOUBLE_EQ(e.RAZOA.D, 1.0);
    EXPECT_NEAR(e.RAZOA.Zr, e.RAZOA.Zf, 1e-12);

    // A plant link: the notice, and the pick-up kept from the study.
    e.Ligne_alim = 1;
    e.RAZOA.Zf = 2.5;
    e.RAZOA.D = 0.5;
    const std::size_t avant = d.Messages().size();
    OuvrirPanneau(e, d, options, true);
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_DOUBLE_EQ(e.RAZOA.Zf, 2.5);
    EXPECT_DOUBLE_EQ(e.RAZOA.D, 0.5);
    bool avis = false;
    for (std::size_t i = avant; i < d.Messages().size(); ++i)
        avis |= d.Messages()[i].sMessage ==
                "Attention, the case of the plant - substation links is not studied for the RAZOA.";
    EXPECT_TRUE(avis);
}

TEST_F(PanneauDuRAZOA, UneZoneImpossibleArreteLaChaine) {
    Charger("bayet-saint-pourcain-225kV.json");
    Ouvrir();
    ASSERT_EQ(e.ErrCalcul, 0);
    Panneau(e.PanneauRelais);
    const std::size_t avant = d.Messages().size();
    // A third zone far beyond the wheel: the box, the chain stopped, no failure.
    Saisir("txtX3_bt", "5000");
    EXPECT_TRUE(p->ChaineArretee());
    EXPECT_EQ(e.ErrCalcul, 0);
    ASSERT_GT(d.Messages().size(), avant);
    EXPECT_EQ(d.Messages().back().sMessage, REGLAGE_IMPOSSIBLE);
    // Typed back within the wheel, the chain runs to the end again.
    p->Trouver("txtX3_bt")->DefinirTexte("20");
    p->Quitter("txtX3_bt");
    EXPECT_FALSE(p->ChaineArretee());
    EXPECT_EQ(e.RAZOA.p3, 12); // In X3 = 20: 69 / 12 = 5.75, at most 6.25
}
