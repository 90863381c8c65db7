// The load area, with points worked out from the geometry of each feed.
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "network/Transit.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

// A line of 20 ohms at 1.2 rad on a level of Vmin 100 kV, Vmax 115 kV (phase to earth).
Etude Maillee() {
    Etude e;
    e.Vmin = 100.0;
    e.Vmax = 115.0;
    e.ZL_eq = 20.0;
    e.PHI_eq = 1.2;
    e.RL_eq = 20.0 * std::cos(1.2);
    e.XL_eq = 20.0 * std::sin(1.2);
    e.ko_eq = 0.5;
    e.Ligne_Itmax = 1000.0;
    e.TypeReportCharge = 2;
    return e;
}

void Point(const Etude& e, int n, double re, double im) {
    const Complexe& p = e.PointsTransit[static_cast<std::size_t>(n - 1)];
    EXPECT_NEAR(p.Re, re, 1e-9) << "N" << n;
    EXPECT_NEAR(p.Im, im, 1e-9) << "N" << n;
}

} // namespace

TEST(Transit, LigneMaillee) {
    Etude e = Maillee();
    TransitCalc(e);
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_EQ(e.It, 1000.0);
    EXPECT_EQ(e.Ceq, 1.0);
    EXPECT_FALSE(e.fNoIntersect);
    // R = 100 000 / 1000 = 100; ang1 = acos(1000 x 20 / 200 000); k = 3225e3 / 4e6 - 0.1.
    const double ang1 = std::acos(0.1);
    const double ang2 = std::acos(3225.0 / 4000.0 - 0.1);
    Point(e, 1, 100.0 * std::cos(1.2 - ang1), 100.0 * std::sin(1.2 - ang1));
    Point(e, 2, 100.0 * std::cos(1.2 + ang1), 100.0 * std::sin(1.2 + ang1));
    Point(e, 3, 100.0 * std::cos(1.2 - ang2) + e.RL_eq, 100.0 * std::sin(1.2 - ang2) + e.XL_eq);
    Point(e, 4, 100.0 * std::cos(1.2 + ang2) + e.RL_eq, 100.0 * std::sin(1.2 + ang2) + e.XL_eq);
    Point(e, 5, -100.0 * std::cos(1.2 + ang2), -100.0 * std::sin(1.2 + ang2));
    Point(e, 6, -100.0 * std::cos(1.2 - ang2), -100.0 * std::sin(1.2 - ang2));
    EXPECT_GE(e.PointsTransit[0].Argument, 0.0); // kept in [0, 2 pi)

    // A short line: the two circles do not cut, only N1 and N2 exist.
    Etude courte = Maillee();
    courte.ZL_eq = 2.0;
    TransitCalc(courte);
    EXPECT_TRUE(courte.fNoIntersect);
    EXPECT_EQ(courte.PointsTransit[2].Module, 0.0);

    // A current too high for the line: the arccosine is out of range.
    Etude forte = Maillee();
    forte.Ligne_Itmax = 100000.0;
    TransitCalc(forte);
    EXPECT_EQ(forte.ErrCalcul, ERR_INDICE);
}

TEST(Transit, CourantEtFacteurParCas) {
    Etude tri = Maillee();
    tri.TypeReportCharge = 0;
    tri.Ligne_Ittri = 800.0;
    tri.Ligne_CRt = 1.25;
    tri.Ligne_CRm = 0.5;
    TransitCalc(tri);
    EXPECT_EQ(tri.It, 800.0);
    EXPECT_EQ(tri.Ceq, 1.25);
    EXPECT_EQ(tri.Ligne_CRm, 1.0); // a factor below 1 comes back to 1

    Etude mono = Maillee();
    mono.TypeReportCharge = 1;
    mono.Ligne_Itmono = 700.0;
    mono.Ligne_CRm = 1.5;
    mono.Ligne_kom = 0.3;
    TransitCalc(mono);
    EXPECT_EQ(mono.It, 700.0);
    EXPECT_EQ(mono.Ligne_kom, 0.0); // single circuit: no mutual
    EXPECT_DOUBLE_EQ(mono.Ceq, (3.0 - 2.0 / 1.5) * 0.5 * 0.5 + 1.5);

    Etude client = Maillee();
    client.Ligne_alim = 3;
    client.Ligne_itclient = 400.0;
    client.Ceq = 1.7; // stays as it was
    TransitCalc(client);
    EXPECT_EQ(client.It, 400.0);
    EXPECT_EQ(client.Ceq, 1.7);
    Point(client, 1, 250.0, 0.0); // one circle of radius Vmin / It
    EXPECT_EQ(client.PointsTransit[1].Module, 0.0);

    // Three ends: the current starts as ItP.
    Etude t3 = Maillee();
    t3.Ligne_Tl = 3;
    t3.ItP = 600.0;
    t3.TypeReportCharge = 1;
    t3.Ligne_CRm = 2.0;
    TransitCalc(t3);
    EXPECT_EQ(t3.It, 600.0);
    EXPECT_DOUBLE_EQ(t3.Ceq, (0.5 * 2.0 / 2.0 + 4.0) / 2.0);
}

TEST(Transit, TroisBoutsSansReportSelonLeRelais) {
    struct Cas {
        int id;
        double itp, attendu;
    };
    // S 321-5 with CRm 1: (25 - 4 - 1/3) / 18 x Itmono; 7SA511: (8 - 1) / 6 x Itmono.
    const Cas cas[] = {{12, 1000.0, 900.0 * (25.0 - 4.0 - 1.0 / 3.0) / 18.0},
                       {12, 1100.0, 1100.0},
                       {1, 1000.0, 1050.0},
                       {11, 1100.0, 1100.0},
                       {3, 1000.0, 1000.0},
                       {2, 1000.0, 1000.0}};
    for (const Cas& c : cas) {
        Etude e = Maillee();
        e.Ligne_Tl = 3;
        e.id_protection = c.id;
        e.ItP = c.itp;
        e.Ligne_Itmono = 900.0;
        e.Ligne_CRm = 1.0;
        e.ZL_eq = 1.0;
        TransitCalc(e);
        EXPECT_DOUBLE_EQ(e.It, c.attendu) << c.id << " " << c.itp;
        EXPECT_EQ(e.Ceq, 1.0);
    }
}

namespace {
// A generator of 300 MW, 400 MVA at the end of the line.
Etude Centrale(int alim) {
    Etude e = Maillee();
    e.Vmax = 120.0;
    e.Ligne_alim = static_cast<Entier16>(alim);
    e.Ligne_Pmax = 300.0f;
    e.Ligne_Smax = 400.0f;
    return e;
}
} // namespace

TEST(Transit, LiaisonCentrale) {
    Etude e = Centrale(1);
    TransitCalc(e);
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_DOUBLE_EQ(e.It, 400.0 * 1000.0 / 300.0);
    // c = 3 x 100^2 / 400 = 75, D = 4400, a = 14400 x 20 / D, b = 20 x 100 x 120 / D.
    const double c = 75.0, d = 4400.0, a = 14400.0 * 20.0 / d, b = 240000.0 / d, a2 = 200000.0 / d;
    const double ang1 = std::acos(0.75);
    EXPECT_FALSE(e.fNoUp);
    EXPECT_FALSE(e.fNoDown);
    EXPECT_FALSE(e.fNoP);
    Point(e, 4, (a + b) * std::cos(1.2), (a + b) * std::sin(1.2));
    Point(e, 6, -(b + a2) * std::cos(1.2), -(b + a2) * std::sin(1.2));
    // N1 lies above N3: the upper side stops at N7, and N1, N3 move there.
    const double t = (c * c + a * a - b * b) / 2.0 / a / c;
    EXPECT_GT(c * std::sin(ang1), c * std::sin(1.2 - std::acos(t)));
    const double h = 1.5 * 10000.0 / 300.0;
    const double ep = std::sqrt(a * a + h * h - 2.0 * a * h * std::cos(1.2));
    const double u = (2.0 * h * h + a * a - 2.0 * a * h * std::cos(1.2) - b * b) / (2.0 * h * ep);
    const double theta = PI - std::acos((h - a * std::cos(1.2)) / ep) - std::acos(u);
    Point(e, 7, h * std::cos(theta) + h, h * std::sin(theta));
    Point(e, 1, h * std::cos(theta) + h, h * std::sin(theta));
    Point(e, 3, h * std::cos(theta) + h, h * std::sin(theta));

    // Seen from the other end, the area is the mirror through the middle of the line.
    Etude loin = Centrale(2);
    TransitCalc(loin);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_NEAR(loin.PointsTransit[i].Re, e.RL_eq - e.PointsTransit[i].Re, 1e-9) << i;
        EXPECT_NEAR(loin.PointsTransit[i].Im, e.XL_eq - e.PointsTransit[i].Im, 1e-9) << i;
    }

    // Pmax equal to Smax: Smax is raised by 1 % before the arccosine.
    Etude egal = Centrale(1);
    egal.Ligne_Smax = 300.0f;
    TransitCalc(egal);
    EXPECT_EQ(egal.Ligne_Smax, static_cast<float>(1.01 * 300.0f));
    EXPECT_GT(std::fabs(egal.PointsTransit[0].Im), 0.0);

    // A short line: the voltage circles are small and cut neither side.
    Etude courte = Centrale(1);
    courte.ZL_eq = 1.0;
    TransitCalc(courte);
    EXPECT_TRUE(courte.fNoUp);
    EXPECT_TRUE(courte.fNoDown);
    const Complexe n1 = courte.PointsTransit[0];
    Point(courte, 3, n1.Re, n1.Im);
    Point(courte, 4, n1.Module * std::cos(1.2), n1.Module * std::sin(1.2));
    Point(courte, 7, n1.Re, n1.Im);
}
