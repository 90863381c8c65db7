#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Numerique.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

TEST(Complexe, LimiteSurLePremierArgumentSeulement) {
    Complexe c;
    CplxCart(c, 1500.0, 2000.0);
    EXPECT_EQ(c.Re, 1000.0);
    EXPECT_EQ(c.Im, 2000.0);
    EXPECT_NEAR(c.Module, 2236.07, 0.005);
    EXPECT_NEAR(c.Argument, 1.1071, 0.00005);

    CplxCart(c, -2500.0, -1.0);
    EXPECT_EQ(c.Re, -1000.0);

    CplxPolar(c, 5000.0, PI / 2.0);
    EXPECT_EQ(c.Module, 1000.0);
    EXPECT_NEAR(c.Im, 1000.0, 1e-9);

    // A sum is not limited.
    Complexe somme = Cart(900.0, 0.0);
    CplxAdd(somme, Cart(900.0, 10.0));
    EXPECT_EQ(somme.Re, 1800.0);
    EXPECT_NEAR(somme.Module, std::hypot(1800.0, 10.0), 1e-9);
}

TEST(Complexe, ModuleNegatifEtNormalisation) {
    Complexe c;
    CplxPolar(c, -2.0, 0.0);
    EXPECT_EQ(c.Module, 2.0);
    EXPECT_EQ(c.Argument, PI);
    EXPECT_EQ(c.Re, -2.0);

    c.Module = 1.0;
    c.Argument = 2.0 * PI;
    CplxNormalise(c);
    EXPECT_EQ(c.Argument, 0.0);

    c.Argument = -PI / 2.0;
    CplxNormalise(c);
    EXPECT_DOUBLE_EQ(c.Argument, 3.0 * PI / 2.0);

    // Far outside the circle the reduction still ends, in range.
    c.Argument = 1e18;
    CplxNormalise(c);
    EXPECT_GE(c.Argument, 0.0);
    EXPECT_LT(c.Argument, 2.0 * PI);
}

TEST(Complexe, ArgumentSurLAxeX) {
    // A null number points down: 3 pi / 2, not 0.
    EXPECT_EQ(Cart(0.0, 0.0).Module, 0.0);
    EXPECT_EQ(Cart(0.0, 0.0).Argument, 3.0 * PI / 2.0);
    EXPECT_EQ(Cart(0.0, 5.0).Argument, PI / 2.0);
    EXPECT_EQ(Cart(0.0, -5.0).Argument, 3.0 * PI / 2.0);
    // Each quadrant lands in [0, 2 pi).
    EXPECT_NEAR(Cart(-1.0, 1.0).Argument, 3.0 * PI / 4.0, 1e-12);
    EXPECT_NEAR(Cart(-1.0, -1.0).Argument, 5.0 * PI / 4.0, 1e-12);
    EXPECT_NEAR(Cart(1.0, -1.0).Argument, 7.0 * PI / 4.0, 1e-12);
    EXPECT_EQ(Cart(-3.0, 0.0).Argument, PI);
}

TEST(Numerique, AnglesAvecLeLitteralDePi) {
    EXPECT_EQ(PI, 3.14159265358979);
    EXPECT_EQ(DegToRad(180.0), 3.14159265358979);
    EXPECT_EQ(RadToDeg(PI), 180.0);
    EXPECT_EQ(DegToRad(30.0), 30.0 * 3.14159265358979 / 180.0);
}

TEST(Numerique, ArcSinusEtArcCosinus) {
    EXPECT_EQ(ArcSinus(1.0), PI / 2.0);
    EXPECT_EQ(ArcSinus(-1.0), -PI / 2.0);
    EXPECT_NEAR(ArcSinus(0.5), PI / 6.0, 1e-12);
    EXPECT_EQ(ArcCosinus(1.0), 0.0);
    EXPECT_EQ(ArcCosinus(-1.0), PI);
    EXPECT_NEAR(ArcCosinus(0.5), PI / 3.0, 1e-12);
    EXPECT_NEAR(ArcCosinus(-0.5), 2.0 * PI / 3.0, 1e-12);

    EXPECT_EQ(ExecuterEtape([] { ArcCosinus(1.0000001); }), ERR_INDICE);
    EXPECT_EQ(ExecuterEtape([] { ArcSinus(-1.0000001); }), ERR_INDICE);
    EXPECT_EQ(ExecuterEtape([] { ArcCosinus(0.9999999); }), 0);
}
