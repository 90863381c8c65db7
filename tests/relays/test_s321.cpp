// The S 321-5's rules worked out by hand: reaches only limited (never taken to a step), the
// thresholds and their oddities, the out-of-step rectangles and forward zone from the load on a
// meshed line and on a customer link, KR, its rules of the setting guide, its circles and
// quadrilaterals, its list in the store, and its panel on a plant link.
#include "EtudeRelais.h"
#include "network/Transit.h"
#include "relays/s321/CalculS321.h"
#include "relays/s321/PanneauS321.h"
#include "relays/s321/TraceS321.h"

#include <filesystem>

using namespace tournesol;

namespace {

struct EtudeS321 : EtudeEtPanneau<PanneauS321> {
    EtudeS321() { Charger("grande-ile-champagnier-225kV-s321.json"); }
    // The smallest of f over the six load points of the report case.
    template <class F> double PlusPetit(Entier16 cas, F f) {
        e.TypeReportCharge = cas;
        TransitCalc(e);
        const auto points = PointsTransitTires(e);
        double m = 1e300;
        for (std::size_t i = 0; i < 6; ++i)
            m = std::min(m, f(points[i], i));
        return m;
    }
};

constexpr double DM = 0.9 / 1.1;

} // namespace

TEST_F(EtudeS321, LesPorteesSontBorneesJamaisArrondies) {
    ASSERT_EQ(e.ErrCalcul, 0);
    RelaisS321& r = e.S321;
    const double kz = e.Kz;
    e.PanneauRelais = true;
    e.Ligne_Xprim1 = 64.0 * kz * std::sin(e.PHI_eq); // exactly the top of the range
    e.Ligne_Xprim2 = 30.1234;
    e.Ligne_Xprim3 = 0.01;
    PorteesS321(e, 7.7777);
    EXPECT_DOUBLE_EQ(r.Z1MG, 64.0 * kz);
    EXPECT_DOUBLE_EQ(r.Z2MG, 30.1234 / std::sin(e.PHI_eq)); // kept to the last digit
    EXPECT_DOUBLE_EQ(r.XG2, 30.1234);
    EXPECT_DOUBLE_EQ(r.XG4, 0.05 * kz); // below the range: its bottom
    EXPECT_DOUBLE_EQ(r.XG3, 0.05 * kz);
    EXPECT_DOUBLE_EQ(r.RG1, 7.7777);
    EXPECT_DOUBLE_EQ(r.RG4, 7.7777);
    // Without a resistance from the load the study's stands.
    r.RG2 = 9.5;
    PorteesS321(e, std::nullopt);
    EXPECT_DOUBLE_EQ(r.RG2, 9.5);
    // The out-of-step sides are only capped: 70 for the resistances, 96 for the reactances.
    r.R1R6 = 80.0 * kz;
    r.R1L5 = -3.0;
    r.X1T6 = 100.0 * kz;
    r.X1B5 = 95.5 * kz;
    LimitesPorteesS321(e);
    EXPECT_DOUBLE_EQ(r.R1R6, 70.0 * kz);
    EXPECT_DOUBLE_EQ(r.R1L5, -3.0);
    EXPECT_DOUBLE_EQ(r.X1T6, 96.0 * kz);
    EXPECT_DOUBLE_EQ(r.X1B5, 95.5 * kz);
}

TEST_F(EtudeS321, LesSeuilsEtLeursBizarreries) {
    RelaisS321& r = e.S321;
    e.PanneauRelais = true;
    r.UBD = 0;
    SeuilsS321(e);
    EXPECT_DOUBLE_EQ(r.Z2F, 0.25 * e.ZL_eq);
    EXPECT_DOUBLE_EQ(r.Z2R, 0.75 * e.ZL_eq);
    EXPECT_DOUBLE_EQ(r.KO1M, e.ko_eq);
    EXPECT_DOUBLE_EQ(r.KOA, e.ako_eq);
    EXPECT_EQ(r.OSBD, 15);
    EXPECT_EQ(r.UBD, 10); // 0 is raised to 10

    e.PanneauRelais = false;
    r.KO1A = 50.0; // beyond 45: the module reads 45, the argument stays
    r.KOA = -60.0;
    r.KOM = 5.0;
    r.OSBD = 5;
    r.UBD = 3000;
    r._50G1 = 0.05F;
    r._50PP2 = 40.0F;
    r._50QF = 0.4F;
    r.A2 = 0.7;
    r.Z2F = -100.0 * e.Kz;
    r.Z4GD = 32767;
    e.PHI_eq = DegToRad(30.0);
    LimitesSeuilsS321(e);
    EXPECT_DOUBLE_EQ(r.KO1A, 50.0);
    EXPECT_DOUBLE_EQ(r.KO1M, 45.0);
    EXPECT_DOUBLE_EQ(r.KOA, -45.0);
    EXPECT_DOUBLE_EQ(r.KOM, 4.0);
    EXPECT_EQ(r.OSBD, 10);
    EXPECT_EQ(r.UBD, 2400);
    EXPECT_FLOAT_EQ(r._50G1, 0.1F);
    EXPECT_FLOAT_EQ(r._50PP2, 34.0F);
    EXPECT_FLOAT_EQ(r._50QF, 0.5F);
    EXPECT_DOUBLE_EQ(r.A2, 0.5);
    EXPECT_DOUBLE_EQ(r.Z2F, -64.0 * e.Kz);
    EXPECT_EQ(r.Z4GD, 32767);
    EXPECT_DOUBLE_EQ(e.PHI_eq, DegToRad(40.0)); // the shared line angle itself
    e.PHI_eq = DegToRad(95.0);
    LimitesSeuilsS321(e);
    EXPECT_DOUBLE_EQ(e.PHI_eq, DegToRad(90.0));
}

TEST_F(EtudeS321, LaChargeDUneLigneMaillee) {
    RelaisS321& r = e.S321;
    e.PanneauRelais = true;
    r.AvecPompage = true;
    const Entier16 cas = e.TypeReportCharge;
    std::optional<double> rz;
    ASSERT_TRUE(ExecuterCalcul(e, [&] { rz = ChargeS321(e, d); }));
    ASSERT_TRUE(rz.has_value());
    EXPECT_EQ(e.TypeReportCharge, cas);
    // The forward side: the smallest |cos a| Dm Z over N1, N3, N5 of the cases 0 and 2.
    const auto b = [](bool impairs) {
        return [impairs](const Complexe& p, std::size_t i) {
            return (i % 2 == 0) == impairs ? std::fabs(std::cos(p.Argument)) * DM * p.Module
                                           : 1e300;
        };
    };
    const double avant0 = PlusPetit(0, b(true));
    const double arriere0 = PlusPetit(0, b(false));
    const double avant2 = PlusPetit(2, b(true));
    const double arriere2 = PlusPetit(2, b(false));
    const double r1r6 = std::min(avant0, avant2);
    const double r1l6 = std::min(arriere0, arriere2);
    EXPECT_NEAR(r.R1R6, r1r6, 1e-9);
    EXPECT_NEAR(r.R1L6, r1l6, 1e-9);
    EXPECT_NEAR(r.X1T6, 2.0 * r1r6, 1e-9);
    // The margin with the source reactance of the maximal case, the last area computed.
    const double marge = (2.0 * e.Ligne_XSmini + 2.0 * e.Ligne_XS + e.XL_eq) * 0.1;
    EXPECT_NEAR(r.R1R5, r1r6 - marge, 1e-9);
    EXPECT_NEAR(r.X1B5, 2.0 * r1l6 - marge, 1e-9);
    // F is signed: a point behind the line's normal gives a negative distance, and the smallest
    // wins, so that the forward zone meets the bottom of its range.
    EXPECT_NEAR(r.Z3MG, r.Z4MG - e.ZL_eq, 1e-9);
    PorteesS321(e, rz);
    EXPECT_DOUBLE_EQ(r.Z4MG, 0.05 * e.Kz);
    // KR from the earth factors and the CT ratio: 0.5, 0 and 1 give 4.5 / 3.
    e.ko_eq = 0.5;
    e.kom_eq = 0.0;
    e.Ligne_CRm = 1.0;
    ASSERT_TRUE(ExecuterCalcul(e, [&] { rz = ChargeS321(e, d); }));
    EXPECT_DOUBLE_EQ(r.KR, 1.5);
    const double g = PlusPetit(1, [&](const Complexe& p, std::size_t) {
        return std::fabs(std::sin(e.PHI_eq - p.Argument)) * (0.9 / (1.5 * 1.1)) * p.Module;
    });
    EXPECT_NEAR(*rz, g, 1e-9);
    // In "Modify" nothing comes from the load.
    e.PanneauRelais = false;
    EXPECT_FALSE(ChargeS321(e, d).has_value());
}

TEST_F(EtudeS321, UneLiaisonClienteEtSesDonneesIncompatibles) {
    RelaisS321& r = e.S321;
    e.PanneauRelais = true;
    e.Ligne_alim = 3;
    r.AvecPompage = true;
    std::optional<double> rz;
    ASSERT_TRUE(ExecuterCalcul(e, [&] { rz = ChargeS321(e, d); }));
    TransitCalc(e);
    const Complexe p1 = PointsTransitTires(e)[0];
    EXPECT_NEAR(r.Z4MG, DM * p1.Module, 1e-9);
    EXPECT_NEAR(r.R1R6, DM * p1.Module * std::cos(p1.Argument), 1e-9);
    EXPECT_DOUBLE_EQ(r.R1L6, r.R1R6);
    EXPECT_DOUBLE_EQ(r.X1B6, 2.0 * r.R1R6);
    EXPECT_NEAR(*rz, std::fabs(std::sin(e.PHI_eq - p1.Argument)) * (0.9 / 1.65) * p1.Module, 1e-9);
    // The relay compares the load point's angle with the line's impedance: on this line that
    // test holds, and the box is shown once.
    const auto n = std::count_if(d.Messages().begin(), d.Messages().end(), [](const auto& m) {
        return m.sMessage == DONNEES_INCOMPATIBLES_S321;
    });
    EXPECT_EQ(n, 1);
}

TEST(S321, ReglesDuGuide) {
    Etude e;
    e.PHI_eq = DegToRad(90.0); // S = 1
    e.XL_eq = 10.0;
    e.Ligne_XAV = 20.0;   // Rf = 16 + 9 = 25
    e.Ligne_XAM = 23.0;   // Rb = 18.4
    e.Ligne_X1PB = 20.0F; // T = 26 - 10.6 = 15.4
    e.Ligne_lc = true;
    RelaisS321& r = e.S321;
    // 79 to 86 beyond their limits: the forward zones below 1.2 x 20 but beyond 25 / 1.15, the
    // backward ones beyond 18.4 / 1.15.
    r.XG2 = r.Z2MG = 20.0;
    r.XG4 = r.Z4MG = r.X1T6 = 22.0;
    r.XG3 = r.Z3MG = r.X1B6 = 16.5;
    DiagS321(e);
    Regles(e, 79, 87, {79, 80, 81, 82, 83, 84, 85, 86});
    EXPECT_DOUBLE_EQ(ValeurRegle(e, 79), 24.0);
    EXPECT_DOUBLE_EQ(ValeurRegle(e, 82), 25.0 / 1.15);
    EXPECT_DOUBLE_EQ(ValeurRegle(e, 86), 18.4 / 1.15);
    // Each just inside.
    r.XG4 = r.Z4MG = 21.7;
    r.X1T6 = 21.7;
    r.XG2 = r.Z2MG = 18.0;
    r.XG3 = r.Z3MG = r.X1B6 = 15.9;
    DiagS321(e);
    Regles(e, 79, 87, {});
    // 87 looks at the forward zone, phase to phase or phase to earth, on long lines only.
    r.XG4 = 15.0;
    DiagS321(e);
    EXPECT_TRUE(RegleActive(e, 87));
    EXPECT_NEAR(ValeurRegle(e, 87), 15.4, 1e-12);
    e.Ligne_lc = false;
    DiagS321(e);
    EXPECT_FALSE(RegleActive(e, 87));
}

TEST(S321, CerclesEtQuadrilateres) {
    Etude e;
    e.Kz = 2.0;
    e.PHI_eq = DegToRad(60.0);
    RelaisS321& r = e.S321;
    r.Z1MG = 10.0;
    r.Z2MG = 20.0;
    r.Z3MG = 4.0;
    r.Z4MG = 30.0;
    FigureS321 f = FigureDuS321(e);
    ASSERT_EQ(f.Arcs.size(), 4u);
    ASSERT_EQ(f.Segments.size(), 24u);
    // Circles through the origin: centre at half the reach along the line, the backward one
    // turned round.
    EXPECT_NEAR(f.Arcs[0].Centre.Module, 5.0, 1e-12);
    EXPECT_NEAR(f.Arcs[0].Debut.Module, 10.0, 1e-12);
    EXPECT_TRUE(Au(f.Arcs[2].Centre, -2.0 * std::cos(e.PHI_eq), -2.0 * std::sin(e.PHI_eq), 1e-12));
    EXPECT_EQ(f.Arcs[3].Couleur, e.CouleurTriphase);
    for (const SegmentImage& s : f.Segments)
        EXPECT_TRUE(EmplacementVide(s)); // no out of step
    // The out-of-step rectangles' corners.
    r.AvecPompage = true;
    r.R1R6 = 8.0;
    r.R1L6 = 6.0;
    r.X1T6 = 16.0;
    r.X1B6 = 12.0;
    f = FigureDuS321(e);
    EXPECT_DOUBLE_EQ(f.Segments[0].A.Re, 8.0);
    EXPECT_DOUBLE_EQ(f.Segments[0].A.Im, 16.0);
    EXPECT_DOUBLE_EQ(f.Segments[1].B.Re, -6.0);
    EXPECT_DOUBLE_EQ(f.Segments[2].B.Im, -12.0);
    EXPECT_EQ(f.Segments[0].Couleur, e.CouleurAntipompage);

    // The single-phase case: quadrilaterals of half width KR R along the line.
    e.TypeReportCharge = 1;
    r.KR = 0.5;
    r.XG1 = 10.0;
    r.RG1 = 4.0;
    f = FigureDuS321(e);
    for (const ArcImage& a : f.Arcs)
        EXPECT_TRUE(EmplacementVide(a));
    const double decalage = 10.0 / std::tan(e.PHI_eq);
    EXPECT_NEAR(f.Segments[0].A.Re, 2.0 + decalage, 1e-12); // top, right corner
    EXPECT_NEAR(f.Segments[0].B.Re, -2.0 + decalage, 1e-12);
    EXPECT_DOUBLE_EQ(f.Segments[0].A.Im, 10.0);
    // The bottom, the directional line, 2 sin(phi) on each side of the origin, square to the line.
    const SegmentImage& bas = f.Segments[2];
    EXPECT_EQ(bas.Couleur, e.CouleurDirectionnel);
    EXPECT_NEAR(bas.A.Module, 2.0 * std::sin(e.PHI_eq), 1e-12);
    EXPECT_NEAR(bas.A.Argument - e.PHI_eq, PI / 2.0, 1e-12);
    // The backward zone hangs below the axis.
    r.XG3 = 3.0;
    r.RG3 = 1.0;
    f = FigureDuS321(e);
    EXPECT_DOUBLE_EQ(f.Segments[8].A.Im, -3.0);
    EXPECT_EQ(f.Segments[8].Couleur, e.CouleurMonophase);
}

TEST(S321, LaListeDuMagasinRevient) {
    Etude e;
    e.id_protection = ID_S321;
    RelaisS321& r = e.S321;
    r._50G3 = 1.7F;
    r.A2 = 0.12;
    r.Z4MG = 31.25;
    r.KOA = -12.5;
    r.KR = 0.891;
    r.AvecPompage = true;
    r.Z4PD = 1500;
    r.OSBD = 40;
    r.UBD = 150;
    BlocReglages bloc;
    ASSERT_TRUE(SauverReglage(e, bloc));
    EXPECT_TRUE(std::holds_alternative<float>(bloc.Reglages.LireValeur(0, 2)));   // 50G3
    EXPECT_TRUE(std::holds_alternative<double>(bloc.Reglages.LireValeur(0, 14))); // A2
    Etude f;
    f.id_protection = ID_S321;
    ASSERT_TRUE(RestaurerReglage(f, bloc));
    EXPECT_EQ(f.S321._50G3, 1.7F);
    EXPECT_EQ(f.S321.Z4MG, 31.25);
    EXPECT_EQ(f.S321.KOA, -12.5);
    EXPECT_EQ(f.S321.KR, 0.891);
    EXPECT_TRUE(f.S321.AvecPompage);
    EXPECT_EQ(f.S321.Z4PD, 1500);
    EXPECT_EQ(f.S321.OSBD, 40);
    EXPECT_EQ(f.S321.UBD, 150);
}

TEST_F(EtudeS321, SurUneLiaisonDeCentraleLePanneauAvertitEtNeCalculeRien) {
    e.Ligne_alim = 1;
    e.PanneauRelais = true;
    const RelaisS321 avant = e.S321;
    Panneau(true);
    ASSERT_EQ(e.ErrCalcul, 0);
    const std::size_t n = d.Messages().size();
    p->ChoixOnglet(1);
    ASSERT_EQ(d.Messages().size(), n + 1);
    EXPECT_EQ(d.Messages().back().sMessage,
              "Attention, the case of the plant - substation links is not studied for the "
              "S 321-5.");
    EXPECT_EQ(d.Messages().back().sTitre, "TOURNESOL : Attention");
    // Nothing from the load: the out-of-step sides are the study's.
    EXPECT_EQ(e.S321.R1R6, avant.R1R6);
    // In "Return" the options take their defaults: out of step on a short line only.
    EXPECT_EQ(e.S321.AvecPompage, !e.Ligne_lc);
    EXPECT_FLOAT_EQ(e.S321._50QF, 0.5F * e.Is);
}
