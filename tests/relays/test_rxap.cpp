// The RXAP's rules worked out by hand: the zones on the wheels (series and parallel, the two
// directions, the ends of the table), the common step's earth factor and reaches of a circle,
// the variant deduced from the options, and its rules of the setting guide.
#include "EtudeRelais.h"
#include "network/Transit.h"
#include "relays/rxap/CalculRXAP.h"
#include "relays/rxap/PanneauRXAP.h"
#include "relays/rxap/TraceRXAP.h"

#include <filesystem>

using namespace tournesol;

namespace {

Etude EtudeRXAP() {
    Etude e;
    e.id_protection = ID_RXAP;
    e.Kz = 2.0;
    DefautsRXAP(e);
    return e;
}

// The zones of desired secondary reactances x1, x2.
Etude Zones(double x1, double x2, float typeIn = 1.0F) {
    Etude e = EtudeRXAP();
    e.RXAP.TypeIn = typeIn;
    e.X1_BT = x1;
    e.X2_BT = x2;
    ZonesRXAP(e);
    return e;
}

} // namespace

TEST(RXAP, ZonesSurLesRoues) {
    // 3.2 is in series: the first zone takes the value below (3.04), the second the value found.
    Etude e = Zones(3.2, 3.2);
    EXPECT_FALSE(e.RXAP.X1Parallele);
    EXPECT_FLOAT_EQ(e.RXAP.N1, 3.04F);
    EXPECT_NEAR(e.X1reg_BT, 3.04, 1e-6);
    EXPECT_FLOAT_EQ(e.RXAP.N2, 3.2F);
    EXPECT_NEAR(e.X2reg_BT, 3.2, 1e-6);
    EXPECT_NEAR(e.X2reg_HT, 6.4, 1e-6); // times Kz

    // Just below 3.2: in parallel, searched at twice the value (6.38, found at 6.4).
    e = Zones(3.19, 3.19);
    EXPECT_TRUE(e.RXAP.X1Parallele);
    EXPECT_FLOAT_EQ(e.RXAP.N1, 6.1F);
    EXPECT_NEAR(e.X1reg_BT, 3.05, 1e-6);
    EXPECT_TRUE(e.RXAP.X2Parallele);
    EXPECT_FLOAT_EQ(e.RXAP.N2, 6.4F);
    EXPECT_NEAR(e.X2reg_BT, 3.2, 1e-6);

    // Beyond the table both zones stop on its last row, 6.4 times the type.
    e = Zones(10.0, 12.0, 1.5F);
    EXPECT_FLOAT_EQ(e.RXAP.N1, 6.4F);
    EXPECT_FLOAT_EQ(e.RXAP.N2, 6.4F);
    EXPECT_NEAR(e.X1reg_BT, 9.6, 1e-6);
    EXPECT_NEAR(e.X2reg_BT, 9.6, 1e-6);

    // The 3.3 A type divides by 1.5 first: 4.8 is 3.2, in series.
    e = Zones(4.8, 4.8, 1.5F);
    EXPECT_NEAR(e.X1reg_BT, 1.5 * 3.04, 1e-6);

    // A first zone below the first step is set to 0.01, not 0.
    e = Zones(0.05, 0.05);
    EXPECT_FLOAT_EQ(e.RXAP.N1, 0.0F);
    EXPECT_DOUBLE_EQ(e.X1reg_BT, 0.01);
    EXPECT_NEAR(e.X2reg_BT, 0.1, 1e-7); // in parallel: 0.2 / 2

    // In mode "Return" the desired values come from the line.
    e = EtudeRXAP();
    e.PanneauRelais = true;
    e.Ligne_Xprim1 = 8.0;
    e.Ligne_Xprim2 = 12.0;
    ZonesRXAP(e);
    EXPECT_DOUBLE_EQ(e.X1_BT, 4.0);
    EXPECT_DOUBLE_EQ(e.X2_BT, 6.0);
}

TEST(RXAP, CommunCercleSansImage) {
    Etude e = EtudeRXAP();
    e.PanneauRelais = true;
    e.ko_eq = 0.87; // cut to tenths: 0.8
    e.ZL_eq = 5.0;
    e.XL_eq = 4.5;
    e.PHI_eq = DegToRad(80.0);
    RelaisRXAP& r = e.RXAP;
    r.Image = 0.0;
    r.MR = 3.0;
    r.MRAP = 4.5;
    r.Arg = 85.0F;
    CommunRXAP(e);
    EXPECT_DOUBLE_EQ(r.K, 0.8);
    // A circle centred on the origin reaches its radius along every direction.
    EXPECT_NEAR(r.PorteeAv[0], 3.0, 1e-12);
    EXPECT_NEAR(r.PorteeAv[1], 3.0 * 2.0 / std::sqrt(3.0), 1e-12);
    EXPECT_NEAR(r.PorteeAv[2], 2.0 / 1.8 * 3.0, 1e-12);
    EXPECT_NEAR(r.PorteeAv[3], 4.5 * 2.0 / std::sqrt(3.0), 1e-12);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(r.PorteeAr[i], r.PorteeAv[i], 1e-12) << i;
    EXPECT_NEAR(r.RfProche, 2.0 * 3.0 * 2.0, 1e-12); // 2 M Kz
    // Far end: b = -L cos(phi), c = L^2 - 4 (Kz M)^2, RfLoin = sqrt(b^2 - c) + b.
    const double l = 1.8 * 5.0;
    const double b = -l * std::cos(DegToRad(80.0));
    const double c = l * l - 4.0 * 36.0;
    EXPECT_NEAR(r.RfLoin, std::sqrt(b * b - c) + b, 1e-12);
    EXPECT_NEAR(r.RsurX, r.RfLoin / 4.5, 1e-12);

    // The earth factor is kept within 0.4 and 1, to the nearest tenth.
    e.PanneauRelais = false;
    r.K = 0.35;
    CommunRXAP(e);
    EXPECT_DOUBLE_EQ(r.K, 0.4);
    r.K = 1.3;
    CommunRXAP(e);
    EXPECT_DOUBLE_EQ(r.K, 1.0);
    r.K = 0.66;
    CommunRXAP(e);
    EXPECT_DOUBLE_EQ(r.K, 0.7);
}

TEST(RXAP, VarianteDeduiteDesOptions) {
    Etude e = EtudeRXAP();
    e.Ligne_lc = false;
    EXPECT_EQ(VarianteRXAP(e),
              "RXAP 6755, without image, 5 A, with blocking overreach, for short line");
    EXPECT_TRUE(TempoT1RXAP(e));
    e.Ligne_lc = true;
    EXPECT_EQ(VarianteRXAP(e),
              "RXAP 6205, with image, 5 A, with or without acceleration, for long line");
    EXPECT_EQ(VarianteImprimeeRXAP(e),
              "RXAP 6205 with image, 5A, with or without acceleration, for long line");
    EXPECT_FALSE(TempoT1RXAP(e));
    e.RXAP.AvecImage = false;
    e.RXAP.TypeIn = 1.5F;
    EXPECT_EQ(VarianteRXAP(e),
              "RXAP 6005,without image, 3.3 A, with or without acceleration, for long line");
    e.RXAP.Cercle = false;
    EXPECT_EQ(VarianteRXAP(e), "Incompatible data"); // no elliptic 3.3 A
    EXPECT_EQ(VarianteImprimeeRXAP(e), "");
    e.RXAP.TypeIn = 1.0F;
    EXPECT_EQ(VarianteRXAP(e),
              "RXAP 7000, elliptic, 5 A, with or without acceleration, for long line");
}

TEST(RXAP, ReglesDuGuide) {
    Etude e = EtudeRXAP();     // Kz 2
    e.PHI_eq = DegToRad(90.0); // sin 1
    e.XL_eq = 10.0;
    e.X2reg_HT = 10.0;
    e.Ligne_lc = true;
    e.Ligne_X1PB = 20.0F;
    e.Ligne_XAV = 20.0; // forward limit (0.8 x 20 + 0.9 x 10) / 1.15 = 25 / 1.15
    e.Ligne_XAM = 25.0; // backward limit 0.8 x 25 / 1.15 = 20 / 1.15
    RelaisRXAP& r = e.RXAP;
    // Every reach beyond its limit: 71 phase to phase below 1.2 X2, 72 and 73 forward three
    // phase and out of step beyond 25 / 1.15, 74 and 75 backward beyond 20 / 1.15, 76 the smallest
    // backward reach below 1.3 X1PB - 1.06 XL.
    r.PorteeAv = {5.0, 12.6, 5.0, 12.6};
    r.PorteeAr = {5.0, 9.0, 5.0, 9.0};
    DiagRXAP(e);
    Regles(e, 71, 76, {71, 72, 73, 74, 75, 76});
    EXPECT_DOUBLE_EQ(ValeurRegle(e, 71), 12.0);
    EXPECT_NEAR(ValeurRegle(e, 72), 25.0 / 1.15, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 73), 25.0 / 1.15, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 74), 20.0 / 1.15, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 75), 20.0 / 1.15, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 76), 26.0 - 10.6, 1e-12);
    // Each just inside its limit: 2 x 6.1 > 12, 1.15 x 2 x 10.8 < 25, 1.15 x 2 x 8.6 < 20,
    // 2 x 7.8 > 15.4.
    r.PorteeAv = {6.1, 10.8, 5.0, 10.8};
    r.PorteeAr = {7.8, 8.6, 7.8, 8.6};
    DiagRXAP(e);
    Regles(e, 71, 76, {});
    // 76 is for long lines only; the out-of-step rules look at the out-of-step reaches alone.
    r.PorteeAr = {5.0, 8.6, 5.0, 9.0};
    r.PorteeAv[3] = 12.6;
    e.Ligne_lc = false;
    DiagRXAP(e);
    Regles(e, 71, 76, {73, 75});
}

TEST(RXAP, PriseSurUneLigneMaillee) {
    // The 225 kV example line: the circle's radii within the type's limits, the out-of-step
    // circle 1.5 times the pick-up where the limits leave it so, the maximal case left in force.
    Etude e;
    PreparerOuverture(e);
    LireFichierEtude(
        std::filesystem::path(TOURNESOL_EXEMPLES) / "champagnier-grande-ile-225kV.json", e);
    e.id_protection = ID_RXAP;
    DialogueSansFenetre d;
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    InitEtude(e, d, options);
    ASSERT_EQ(e.ErrCalcul, 0);
    DefautsRXAP(e);
    RelaisRXAP& r = e.RXAP;
    ASSERT_TRUE(ExecuterCalcul(e, [&] { PriseRXAP(e); }));
    EXPECT_EQ(e.TypeReportCharge, 2); // the maximal case stays in force
    EXPECT_GE(r.MR, 2.0);
    EXPECT_LE(r.MR, 6.0);
    EXPECT_GE(r.MRAP, 4.0);
    EXPECT_LE(r.MRAP, 8.0);
    if (r.MRAP > 4.0 && r.MRAP < 8.0 && r.MR > 2.0 && r.MR < 6.0) {
        EXPECT_NEAR(r.MRAP, 1.5 * r.MR, 1e-12);
    }
    EXPECT_FLOAT_EQ(r.Arg, 85.0F);
    EXPECT_NEAR(r.Image, (std::trunc(e.ZL_eq / (e.Kz * 0.3)) + 1.0 - 1.0) * 0.15, 1e-12);
}

namespace {

// The 90 kV example line with its RXAP, opened as the program opens it.
struct EtudeRXAP90 : EtudeEtPanneau<PanneauRXAP> {
    EtudeRXAP90() {
        Charger("pontcharra-vallon-90kV-rxap.json");
        DefautsRXAP(e);
    }
    // The smallest of the values f over the six load points of the cases 0 and 2.
    template <class F> double PlusPetitSurLesCharges(F f) {
        double m = 1e300;
        for (const Entier16 cas : {Entier16{0}, Entier16{2}}) {
            e.TypeReportCharge = cas;
            TransitCalc(e);
            const auto points = PointsTransitTires(e);
            for (std::size_t i = 0; i < 6; ++i)
                m = std::min(m, f(points[i]));
        }
        return m;
    }
    // An option pressed, as the window presses it before it tells the panel.
    void Choisir(const std::string& option) {
        p->Trouver(option)->Valeur =
            !p->Trouver(option)->Valeur || p->Description(option)->Genre == GenreChamp::Option;
        p->Cliquer(option);
    }
};

} // namespace

TEST_F(EtudeRXAP90, LaPriseGardeSaMargeAuPointDeChargeLePlusProche) {
    ASSERT_EQ(e.ErrCalcul, 0);
    RelaisRXAP& r = e.RXAP;
    // Without image the out-of-step circle is centred on the origin: its radius is sqrt(3)/2 of
    // the nearest load point with the margin 0.9 / 1.1, the pick-up circle 1.5 times smaller.
    r.AvecImage = false;
    ASSERT_TRUE(ExecuterCalcul(e, [&] { PriseRXAP(e); }));
    EXPECT_EQ(e.TypeReportCharge, 2);
    const double w = PlusPetitSurLesCharges(
        [](const Complexe& c) { return std::sqrt(3.0) / 2.0 * c.Module * 0.9 / 1.1; });
    EXPECT_NEAR(r.MRAP, w / e.Kz, 1e-9);
    EXPECT_GT(r.MRAP, 4.0); // within the 5 A limits: nothing cut
    EXPECT_LT(r.MRAP, 8.0);
    EXPECT_NEAR(r.MR, r.MRAP / 1.5, 1e-12);
    EXPECT_DOUBLE_EQ(r.Image, 0.0);

    // With the image the centre moves along the line by steps of 0.15, one step for each 0.3
    // secondary ohm of line; the out-of-step radius keeps the margin from that centre.
    r.AvecImage = true;
    ASSERT_TRUE(ExecuterCalcul(e, [&] { PriseRXAP(e); }));
    const double m = std::trunc(e.ZL_eq / (e.Kz * 0.3)) + 1.0;
    EXPECT_NEAR(r.Image, (m - 1.0) * 0.15, 1e-12);
    const double im = r.Image * e.Kz;
    const double wi = PlusPetitSurLesCharges([&](const Complexe& c) {
        const double zs = c.Module * 0.9 / 1.1;
        return std::sqrt(im * im + 0.75 * zs * zs -
                         im * std::sqrt(3.0) * zs * std::cos(55.0 * PI / 180.0 - c.Argument));
    });
    EXPECT_NEAR(r.MRAP, std::clamp(wi / e.Kz, 4.0, 8.0), 1e-9);
    EXPECT_FLOAT_EQ(r.Arg, 85.0F);
}

TEST_F(EtudeRXAP90, LEllipsePrendLaFocaleDuTableauSousLaPlusGrande) {
    RelaisRXAP& r = e.RXAP;
    r.Cercle = false;
    r.Arg = 85.0F;
    ASSERT_TRUE(ExecuterCalcul(e, [&] { PriseRXAP(e); }));
    const std::vector<double> focales{3, 3.5, 4, 5, 6, 7, 8.5, 10, 12};
    EXPECT_NE(std::find(focales.begin(), focales.end(), r.focale), focales.end());
    // The eccentricities of one row of the relay's table.
    bool rangee = false;
    for (std::size_t k = 1; k <= 5; ++k)
        rangee |= r.exmr == EXCENTRICITE_MR[k] && r.exap == EXCENTRICITE_AP[k];
    EXPECT_TRUE(rangee);
    // The argument is the line's, cut to a whole degree and kept within 70 to 85.
    EXPECT_FLOAT_EQ(r.Arg, static_cast<float>(std::trunc(e.PHI_eq * 180.0 / PI)));
    EXPECT_EQ(e.TypeReportCharge, 2);
}

TEST_F(EtudeRXAP90, LiaisonClienteEtLiaisonDeCentrale) {
    RelaisRXAP& r = e.RXAP;
    e.Ligne_alim = 3;
    e.TypeReportCharge = 0;
    ASSERT_TRUE(ExecuterCalcul(e, [&] { PriseRXAP(e); }));
    TransitCalc(e);
    const double z1 = PointsTransitTires(e)[0].Module;
    const double mrap = std::sqrt(3.0) / 2.0 * 0.9 * z1 / (e.Kz * 1.1);
    EXPECT_NEAR(r.MRAP, std::clamp(mrap, 4.0, 8.0), 1e-9);
    EXPECT_NEAR(r.MR, std::clamp(mrap / 1.5, 2.0, 6.0), 1e-9);
    // Without out of step both radii are the pick-up's, within its limits alone.
    r.AvecPompage = false;
    ASSERT_TRUE(ExecuterCalcul(e, [&] { PriseRXAP(e); }));
    EXPECT_NEAR(r.MR, std::clamp(mrap, 2.0, 6.0), 1e-9);
    EXPECT_DOUBLE_EQ(r.MRAP, r.MR);

    // The ellipse is not foreseen on a customer link: the panel says so and changes nothing.
    e.RXAP = RelaisRXAP{};
    DefautsRXAP(e);
    Panneau(true);
    const RelaisRXAP avant = e.RXAP;
    const auto drapeaux = e.DiagDrapeaux;
    p->ChoixOnglet(1);
    Choisir("chkmrl");
    EXPECT_TRUE(p->ChaineArretee());
    EXPECT_EQ(d.Messages().back().sMessage, PanneauRXAP::ELLIPSE_CLIENT);
    EXPECT_EQ(d.Messages().back().sTitre, "TOURNESOL : Attention");
    EXPECT_DOUBLE_EQ(e.RXAP.MR, avant.MR);
    EXPECT_EQ(e.DiagDrapeaux, drapeaux);

    // On a plant link every change of sheet warns; the ellipse stops with its own message.
    e.Ligne_alim = 1;
    e.RXAP.Cercle = true;
    Panneau(false);
    ASSERT_EQ(e.ErrCalcul, 0);
    const std::size_t n = d.Messages().size();
    p->ChoixOnglet(1);

    ASSERT_GT(d.Messages().size(), n);
    EXPECT_EQ(d.Messages()[n].sMessage, PanneauRXAP::AVIS_CENTRALE_RXAP);
    Choisir("chkmrl");
    EXPECT_EQ(d.Messages().back().sMessage, PanneauRXAP::ELLIPSE_CENTRALE);
}

TEST_F(EtudeRXAP90, LePanneauCalculeEtMontreLaVariante) {
    PanneauRXAP& panneau = Panneau(true);
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_EQ(panneau.Trouver("Label7")->Texte(),
              "RXAP 6205, with image, 5 A, with or without acceleration, for long line");
    EXPECT_FALSE(panneau.Trouver("txtt1")->Visible); // only the 6755 has it
    EXPECT_FALSE(panneau.Trouver("txtfocale")->Visible);
    // A desired first zone of 2.5 typed: below 3.2 it is in parallel, searched at 5, and the
    // first zone takes the value below it, 4.75.
    Saisir("txtx1_bt", "2.5");
    EXPECT_FLOAT_EQ(e.RXAP.N1, 4.75F);
    EXPECT_NEAR(e.X1reg_BT, 4.75 / 2.0, 1e-6);
    EXPECT_TRUE(panneau.Trouver("lblParallele1")->Visible);
    EXPECT_FALSE(panneau.Trouver("lblSerie1")->Visible);
    // The earth factor to its tenth within 0.4 to 1.
    panneau.ChoixOnglet(2);
    Saisir("txtkoprot", "1.34");
    EXPECT_DOUBLE_EQ(e.RXAP.K, 1.0);
    // Without image the variant is the 6005; the ellipse hides the type and the image.
    panneau.ChoixOnglet(1);
    Choisir("chkimag(1)");
    EXPECT_EQ(VarianteRXAP(e),
              "RXAP 6005, without image, 5 A, with or without acceleration, for long line");
    EXPECT_FALSE(panneau.Trouver("txtimag")->Visible);
    Choisir("chkmrl");
    EXPECT_FALSE(panneau.Trouver("chkimag(0)")->Visible);
    EXPECT_TRUE(panneau.Trouver("txtfocale")->Visible);
    // OK in mode "Return" fits the plane on the out-of-step circle.
    Choisir("chkmrc");
    panneau.Cliquer("Command1");
    EXPECT_NEAR(e.ScaleTop, 1.2 * (e.RXAP.Image + e.RXAP.MRAP) * e.Kz, 1e-3);
}

TEST(RXAP, CaracteristiqueCercleEtEllipse) {
    Etude e = EtudeRXAP();
    RelaisRXAP& r = e.RXAP;
    r.Image = 1.0;
    r.MR = 3.0;
    r.MRAP = 4.5;
    r.Arg = 85.0F;
    e.X1reg_HT = 4.0;
    e.X2reg_HT = 7.0;
    const double q = 2.0 * e.Kz / std::sqrt(3.0);
    FigureRXAP f = FigureDuRXAP(e);
    ASSERT_EQ(f.Arcs.size(), 2u);
    ASSERT_EQ(f.Segments.size(), 3u); // directional, two zones
    const double a30 = 55.0 * PI / 180.0;
    EXPECT_TRUE(Au(f.Arcs[0].Centre, q * std::cos(a30), q * std::sin(a30)));
    EXPECT_NEAR(f.Arcs[0].Debut.Module, q * 4.0, 1e-9); // through Image + MR
    EXPECT_NEAR(f.Arcs[1].Debut.Module, q * 5.5, 1e-9);
    // Each zone line ends on the pick-up circle on its right.
    const SegmentImage& z1 = f.Segments[1];
    EXPECT_DOUBLE_EQ(z1.A.Im, 4.0);
    EXPECT_NEAR(std::hypot(z1.B.Re - f.Arcs[0].Centre.Re, z1.B.Im - f.Arcs[0].Centre.Im), q * 3.0,
                1e-9);
    // Without out of step its slot stays, empty and dotted.
    r.AvecPompage = false;
    f = FigureDuRXAP(e);
    EXPECT_DOUBLE_EQ(f.Arcs[1].Debut.Module, 0.0);
    EXPECT_EQ(f.Arcs[1].Style, TRAIT_POINT);

    // The ellipse: a stadium of half width n f a along the angle Arg - 30.
    r.AvecPompage = true;
    r.Cercle = false;
    r.focale = 5.0;
    r.exmr = 0.8;
    r.exap = 0.73;
    f = FigureDuRXAP(e);
    ASSERT_EQ(f.Arcs.size(), 4u);
    ASSERT_EQ(f.Segments.size(), 7u); // directional, 2 x 2 tangents, two zones
    const double a = std::sqrt(1.0 / (3.0 * 0.73 * 0.73) - 0.25);
    const double nf = e.Kz * 5.0;
    const ArcImage& bout = f.Arcs[2]; // out of step, near end
    EXPECT_NEAR(std::hypot(bout.Debut.Re - bout.Centre.Re, bout.Debut.Im - bout.Centre.Im), nf * a,
                1e-9);
    const SegmentImage& cote = f.Segments[3];
    EXPECT_NEAR(std::atan2(cote.B.Im - cote.A.Im, cote.B.Re - cote.A.Re), a30, 1e-9);
    // The zone ends lie on the two tangents of the out-of-step stadium.
    const SegmentImage& zone = f.Segments[5];
    for (const auto& [bord, point] : {std::pair{f.Segments[3], zone.A}, {f.Segments[4], zone.B}}) {
        const double t = (point.Im - bord.A.Im) / (bord.B.Im - bord.A.Im);
        EXPECT_NEAR(point.Re, bord.A.Re + t * (bord.B.Re - bord.A.Re), 1e-9);
    }
}

TEST(RXAP, LaListeDuMagasinRevientAvecSesTypes) {
    InscrireRelais();
    Etude e = EtudeRXAP();
    RelaisRXAP& r = e.RXAP;
    e.X1_BT = 1.25;
    e.X2_BT = 2.5;
    r.MR = 3.3;
    r.MRAP = 5.1;
    r.Image = 0.45;
    r.focale = 8.5;
    r.exmr = 0.87;
    r.exap = 0.71;
    r.AvecImage = false;
    r.Cercle = false;
    r.K = 0.7;
    r.TypeIn = 1.5F;
    r.Arg = 78.0F;
    e.T4 = 1500;
    e.Is = 5.0F;
    BlocReglages bloc;
    ASSERT_TRUE(SauverReglage(e, bloc));
    EXPECT_EQ(bloc.Reglages.Taille(), 26u);
    EXPECT_TRUE(std::holds_alternative<std::int16_t>(bloc.Reglages.LireValeur(0, 8))); // AvecImage
    EXPECT_TRUE(std::holds_alternative<float>(bloc.Reglages.LireValeur(0, 12)));       // TypeIn
    Etude f = EtudeRXAP();
    ASSERT_TRUE(RestaurerReglage(f, bloc));
    EXPECT_EQ(f.X1_BT, 1.25);
    EXPECT_EQ(f.RXAP.focale, 8.5);
    EXPECT_EQ(f.RXAP.exap, 0.71);
    EXPECT_FALSE(f.RXAP.AvecImage);
    EXPECT_FALSE(f.RXAP.Cercle);
    EXPECT_EQ(f.RXAP.TypeIn, 1.5F);
    EXPECT_EQ(f.RXAP.Arg, 78.0F);
    EXPECT_EQ(f.T4, 1500);
}
