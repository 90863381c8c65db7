// The RXAP's rules worked out by hand: the zones on the wheels (series and parallel, the two
// directions, the ends of the table), the common step's earth factor and reaches of a circle,
// the variant deduced from the options, and its rules of the setting guide.
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "relays/rxap/CalculRXAP.h"
#include "shell/Ouverture.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

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
    Etude e = EtudeRXAP();
    e.PHI_eq = DegToRad(90.0); // sin 1
    e.XL_eq = 10.0;
    e.X2reg_HT = 10.0;
    e.Ligne_lc = true;
    e.Ligne_X1PB = 20.0F;
    RelaisRXAP& r = e.RXAP;
    r.PorteeAv = {5.0, 20.0, 5.0, 20.0};
    r.PorteeAr = {5.0, 5.0, 5.0, 5.0};
    DiagRXAP(e);
    // 71: 5 x 2 < 1.2 x 10.
    EXPECT_TRUE(RegleActive(e, 71));
    EXPECT_DOUBLE_EQ(ValeurRegle(e, 71), 12.0);
    // 76 on a long line: the smallest backward reach, 10 primary, below 1.3 x 20 - 1.06 x 10.
    EXPECT_TRUE(RegleActive(e, 76));
    EXPECT_NEAR(ValeurRegle(e, 76), 26.0 - 10.6, 1e-12);
    e.Ligne_lc = false;
    r.PorteeAv[0] = 7.0;
    DiagRXAP(e);
    EXPECT_FALSE(RegleActive(e, 71));
    EXPECT_FALSE(RegleActive(e, 76));
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

    // The ellipse: on this line even the smallest focal distance (3) is beyond the largest
    // ellipse the load points allow, so that the search of the row runs past the table's fifth
    // row: the computation ends with error 9, as the relay's table leaves it.
    r.Cercle = false;
    EXPECT_FALSE(ExecuterCalcul(e, [&] { PriseRXAP(e); }));
    EXPECT_EQ(e.ErrCalcul, ERR_INDICE);
    EXPECT_DOUBLE_EQ(r.focale, 3.0);
}
