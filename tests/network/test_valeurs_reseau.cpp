// frmréseauvaleurs: the entry forms of the positive and zero sequence, kept in step.
#include "core/Champ.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "network/PanneauValeursReseau.h"
#include "network/Sections.h"

#include <complex>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

using Cplx = std::complex<double>;

void Saisir(Panneau& p, const std::string& nom, const std::string& texte) {
    p.Trouver(nom)->DefinirTexte(texte);
    p.Changer(nom);
}

void Saisir(Panneau& p, const std::string& nom, double valeur) {
    Saisir(p, nom, std::to_string(valeur));
}

// What a field shows, as a number.
double Lu(Panneau& p, const std::string& nom) {
    Champ copie = *p.Trouver(nom);
    return ChampLire(copie);
}

Cplx Polaire(double module, double degres) {
    return std::polar(module, degres * 3.14159265358979 / 180.0);
}

// A 225 kV line of 30 km: R 3, X 12 ohm.
Etude Ligne(int tl) {
    Etude e;
    e.Ligne_Tl = static_cast<Entier16>(tl);
    e.Ligne_Ex = {1, 2, 3};
    return e;
}

} // namespace

TEST(ValeursReseau, SequenceDirecteCartesienneEtPolaire) {
    Etude e = Ligne(0);
    PanneauValeursReseau p(e);
    EXPECT_TRUE(p.Trouver("chkcart(0)")->Valeur);
    EXPECT_TRUE(p.Trouver("txtrl(0)")->Actif);
    EXPECT_FALSE(p.Trouver("txtzl(0)")->Actif);
    Saisir(p, "txtrl(0)", "3");
    Saisir(p, "txtxl(0)", "12");
    EXPECT_EQ(p.Trouver("txtzl(0)")->Texte(), "12.369");  // sqrt(153)
    EXPECT_EQ(p.Trouver("txtphi(0)")->Texte(), "75.964"); // atan(4)

    p.Cliquer("chkpol(0)");
    EXPECT_FALSE(p.Trouver("chkcart(0)")->Valeur);
    EXPECT_FALSE(p.Trouver("txtrl(0)")->Actif);
    EXPECT_TRUE(p.Trouver("txtphi(0)")->Actif);
    Saisir(p, "txtzl(0)", "10");
    Saisir(p, "txtphi(0)", "30");
    EXPECT_EQ(p.Trouver("txtrl(0)")->Texte(), "8.660");
    EXPECT_EQ(p.Trouver("txtxl(0)")->Texte(), "5.000");

    // Without a resistance the argument stays as it stands.
    p.Cliquer("chkcart(0)");
    const std::string phi = p.Trouver("txtphi(0)")->Texte();
    EXPECT_NEAR(Lu(p, "txtphi(0)"), 30.0, 2e-3); // from the resistance and reactance shown
    Saisir(p, "txtrl(0)", "0");
    EXPECT_EQ(p.Trouver("txtzl(0)")->Texte(), "5.000");
    EXPECT_EQ(p.Trouver("txtphi(0)")->Texte(), phi);
}

// ko entered at several angles: the zero sequence fields then satisfy ko = (Zo / Z1 - 1) / 3,
// and each other form of entry gives ko back within the fields' decimals (the zero sequence
// impedance shown to 3 decimals of an ohm holds the argument of ko to a few thousandths of a
// degree).
TEST(ValeursReseau, SequenceHomopolaireDansLesDeuxSens) {
    const double modules[] = {0.8, 0.35, 1.2};
    const double angles[] = {0.0, -15.0, 12.5, 45.0, -80.0, 150.0};
    for (const double k : modules)
        for (const double a : angles) {
            SCOPED_TRACE(testing::Message() << "ko " << k << " angle " << a);
            Etude e = Ligne(0);
            PanneauValeursReseau p(e);
            Saisir(p, "txtrl(0)", "3");
            Saisir(p, "txtxl(0)", "12");
            Saisir(p, "txtkto(0)", k);
            Saisir(p, "txtkao(0)", a);
            for (const char* verrouille : {"txtro(0)", "txtxo(0)", "txtzo(0)", "txtphio(0)"})
                EXPECT_FALSE(p.Trouver(verrouille)->Actif) << verrouille;

            const Cplx z1(Lu(p, "txtrl(0)"), Lu(p, "txtxl(0)"));
            const Cplx zo(Lu(p, "txtro(0)"), Lu(p, "txtxo(0)"));
            const Cplx ko = Polaire(k, a);
            EXPECT_LT(std::abs((zo / z1 - 1.0) / 3.0 - ko), 2e-4);
            // The polar form of Zo shows the same point.
            EXPECT_LT(std::abs(Polaire(Lu(p, "txtzo(0)"), Lu(p, "txtphio(0)")) - zo), 2e-3);

            p.Cliquer("chkhcart(0)");
            EXPECT_TRUE(p.Trouver("txtro(0)")->Actif);
            EXPECT_FALSE(p.Trouver("txtkto(0)")->Actif);
            EXPECT_NEAR(Lu(p, "txtkto(0)"), k, 1e-3);
            EXPECT_NEAR(Lu(p, "txtkao(0)"), a, 5e-3);

            p.Cliquer("chkhpol(0)");
            EXPECT_TRUE(p.Trouver("txtzo(0)")->Actif);
            EXPECT_FALSE(p.Trouver("txtro(0)")->Actif);
            EXPECT_NEAR(Lu(p, "txtkto(0)"), k, 1e-3);
            EXPECT_NEAR(Lu(p, "txtkao(0)"), a, 5e-3);
        }
}

TEST(ValeursReseau, KoDepuisLaSequenceHomopolaire) {
    Etude e = Ligne(0);
    PanneauValeursReseau p(e);
    Saisir(p, "txtrl(0)", "2.4");
    Saisir(p, "txtxl(0)", "12");
    p.Cliquer("chkhcart(0)");
    Saisir(p, "txtro(0)", "9.6");
    Saisir(p, "txtxo(0)", "36");
    const Cplx ko = (Cplx(9.6, 36.0) / Cplx(2.4, 12.0) - 1.0) / 3.0;
    EXPECT_NEAR(Lu(p, "txtkto(0)"), std::abs(ko), 5e-4);
    EXPECT_NEAR(Lu(p, "txtkao(0)"), std::arg(ko) * 180.0 / 3.14159265358979, 5e-4);
    EXPECT_NEAR(Lu(p, "txtzo(0)"), std::abs(Cplx(9.6, 36.0)), 5e-4);

    p.Cliquer("chkhpol(0)");
    Saisir(p, "txtzo(0)", "40");
    Saisir(p, "txtphio(0)", "70");
    const Cplx zo = Polaire(40.0, 70.0);
    const Cplx ko2 = (zo / Cplx(2.4, 12.0) - 1.0) / 3.0;
    EXPECT_NEAR(Lu(p, "txtro(0)"), zo.real(), 5e-4);
    EXPECT_NEAR(Lu(p, "txtxo(0)"), zo.imag(), 5e-4);
    EXPECT_NEAR(Lu(p, "txtkto(0)"), std::abs(ko2), 5e-4);
    EXPECT_NEAR(Lu(p, "txtkao(0)"), std::arg(ko2) * 180.0 / 3.14159265358979, 5e-4);
}

TEST(ValeursReseau, CasParticuliersDeLArgument) {
    Etude e = Ligne(0);
    PanneauValeursReseau p(e);
    Saisir(p, "txtrl(0)", "3.1");
    Saisir(p, "txtxl(0)", "12.7");
    Saisir(p, "txtkto(0)", "0.6");
    Saisir(p, "txtkao(0)", "0");
    EXPECT_EQ(p.Trouver("txtphio(0)")->Texte(), p.Trouver("txtphi(0)")->Texte());
    EXPECT_NEAR(Lu(p, "txtzo(0)"), 2.8 * Lu(p, "txtzl(0)"), 1e-3);

    // chkhcart without a resistance leaves the argument as it stands.
    p.Cliquer("chkhcart(0)");
    const std::string avant = p.Trouver("txtphio(0)")->Texte();
    Saisir(p, "txtro(0)", "0");
    Saisir(p, "txtxo(0)", "30");
    EXPECT_EQ(p.Trouver("txtphio(0)")->Texte(), avant);
    EXPECT_EQ(p.Trouver("txtzo(0)")->Texte(), "30.000");
}

TEST(ValeursReseau, OngletsParSectionEtKom) {
    Etude e0 = Ligne(0);
    PanneauValeursReseau p0(e0);
    EXPECT_EQ(p0.Sections(), 1);
    EXPECT_EQ(p0.Trouver("txtrl(1)"), nullptr);
    EXPECT_FALSE(p0.Trouver("txtkom")->Visible);
    EXPECT_EQ(p0.Trouver("txtrl(0)")->Groupe, "Line A - B/positive sequence line");

    Etude e1 = Ligne(1);
    PanneauValeursReseau p1(e1);
    EXPECT_EQ(p1.Sections(), 1);
    EXPECT_TRUE(p1.Trouver("txtkom")->Visible);

    Etude e2 = Ligne(2);
    PanneauValeursReseau p2(e2);
    EXPECT_EQ(p2.Sections(), 2);
    EXPECT_TRUE(p2.Trouver("txtkom")->Visible);
    EXPECT_EQ(p2.Trouver("txtzo(1)")->Groupe, "Section 2/zero sequence line");
    EXPECT_EQ(p2.Trouver("txtlongueur(0)")->Groupe,
              "Section 1, on common towers/total primary values");

    Etude e3 = Ligne(3);
    PanneauValeursReseau p3(e3);
    EXPECT_EQ(p3.Sections(), 3);
    EXPECT_FALSE(p3.Trouver("txtkom")->Visible);
    EXPECT_EQ(p3.Trouver("txtxl(2)")->Groupe, "Section C - P/positive sequence line");
}

TEST(ValeursReseau, TrierExRemetLesSectionsDansLOrdreDesBouts) {
    Etude direct = Ligne(3);
    direct.Ligne_Ex = {3, 1, 2};
    direct.Ligne_Longueur = {30.0, 10.0, 20.0};
    direct.Ligne_XL = {12.0, 4.0, 8.0};
    TrierEx(direct);
    EXPECT_EQ(direct.Ligne_Ex, (Entiers16x3{1, 2, 3}));
    EXPECT_EQ(direct.Ligne_Longueur, (Reels3{10.0, 20.0, 30.0}));
    EXPECT_EQ(direct.Ligne_XL, (Reels3{4.0, 8.0, 12.0}));

    // The panel opens on the sections in the order of the ends.
    Etude e = Ligne(3);
    e.Ligne_Ex = {3, 1, 2};
    e.Ligne_Longueur = {30.0, 10.0, 20.0};
    PanneauValeursReseau p(e);
    EXPECT_EQ(e.Ligne_Ex, (Entiers16x3{1, 2, 3}));
    EXPECT_EQ(p.Trouver("txtlongueur(0)")->Texte(), "10.000");
    EXPECT_EQ(p.Trouver("txtlongueur(2)")->Texte(), "30.000");

    // Two-ended kinds are left as they stand.
    Etude deux = Ligne(2);
    deux.Ligne_Ex = {2, 1, 3};
    PanneauValeursReseau q(deux);
    EXPECT_EQ(deux.Ligne_Ex, (Entiers16x3{2, 1, 3}));
}

TEST(ValeursReseau, OuvertureEnDegresEtOKEnRadians) {
    Etude e = Ligne(2);
    e.Ligne_PHI = {DegToRad(80.0), DegToRad(70.0), 0.0};
    e.PHIo = {DegToRad(72.0), 0.0, 0.0};
    e.Ligne_kom = 0.55;
    e.Ligne_ako = {-12.5, 0.0, 0.0};
    PanneauValeursReseau p(e);
    EXPECT_EQ(p.Trouver("txtphi(0)")->Texte(), "80.000");
    EXPECT_EQ(p.Trouver("txtphi(1)")->Texte(), "70.000");
    EXPECT_EQ(p.Trouver("txtphio(0)")->Texte(), "72.000");
    EXPECT_EQ(p.Trouver("txtkao(0)")->Texte(), "-12.500");
    EXPECT_EQ(p.Trouver("txtkom")->Texte(), "0.550");

    p.Cliquer("chkpol(1)");
    Saisir(p, "txtzl(1)", "20");
    Saisir(p, "txtphi(1)", "75");
    Saisir(p, "txtlongueur(1)", "14.25");
    p.Cliquer("chkhpol(1)");
    Saisir(p, "txtzo(1)", "60");
    Saisir(p, "txtphio(1)", "76");
    Saisir(p, "txtkom", "0.6");
    p.Cliquer("Command1");
    EXPECT_TRUE(p.Ferme());
    EXPECT_TRUE(e.ValeursValides);
    EXPECT_TRUE(e.EtudeModifiee);
    EXPECT_DOUBLE_EQ(e.Ligne_PHI[1], 75.0 * PI / 180.0);
    EXPECT_DOUBLE_EQ(e.PHIo[1], 76.0 * PI / 180.0);
    EXPECT_DOUBLE_EQ(e.Ligne_PHI[0], DegToRad(80.0));
    EXPECT_DOUBLE_EQ(e.Ligne_ZL[1], 20.0);
    EXPECT_DOUBLE_EQ(e.Ligne_RL[1], 5.176); // 20 cos 75, to the field's decimals
    EXPECT_DOUBLE_EQ(e.Ligne_XL[1], 19.319);
    EXPECT_DOUBLE_EQ(e.Ligne_Ro[1], 14.515);
    EXPECT_DOUBLE_EQ(e.Ligne_Xo[1], 58.218);
    EXPECT_DOUBLE_EQ(e.Ligne_Longueur[1], 14.25);
    EXPECT_DOUBLE_EQ(e.Ligne_kom, 0.6);
    EXPECT_DOUBLE_EQ(p.Zo()[1], 60.0);
    EXPECT_NEAR(e.Ligne_ko[1], std::abs((Polaire(60, 76) / Polaire(20, 75) - 1.0) / 3.0), 5e-4);

    // Cancel leaves the study alone.
    PanneauValeursReseau q(e);
    Saisir(q, "txtrl(0)", "99");
    q.Touche(Panneau::TOUCHE_ECHAP);
    EXPECT_TRUE(q.Ferme());
    EXPECT_FALSE(q.Confirme());
    EXPECT_NE(e.Ligne_RL[0], 99.0);
}
