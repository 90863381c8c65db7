// The line computation, with values worked out by hand from the rules of each line kind.
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "core/Panneau.h"
#include "network/Calcul.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {
const double R3 = std::sqrt(3.0);

// A study whose load report factors are known, so that the report panel stays down.
Etude Ligne(int tl, int up) {
    Etude e;
    e.Ligne_Tl = static_cast<Entier16>(tl);
    e.Ligne_Up = up;
    e.CRtCalcule = e.CRmCalcule = true;
    return e;
}
} // namespace

TEST(Calcul, EtudeNeuveSansRienSaisi) {
    Etude e;
    DialogueSansFenetre d;
    Calcul(e, d);
    EXPECT_EQ(e.Ligne_Longueur, (Reels3{1.0, 1.0, 1.0}));
    EXPECT_EQ(e.Ligne_XL, (Reels3{0.1, 0.1, 0.1}));
    EXPECT_EQ(e.Ligne_RL, (Reels3{0.01, 0.01, 0.01}));
    EXPECT_EQ(e.PHI_eq, 75.0 * PI / 180.0);
    EXPECT_EQ(e.ko_eq, 2.0 / 3.0);
    EXPECT_EQ(e.Kv, 10.0); // rated voltage 0 becomes 1
    EXPECT_EQ(e.Ligne_Ip, 1);
    EXPECT_EQ(e.Is, 1.0f);
    EXPECT_EQ(e.Kz, 10.0);
    EXPECT_EQ(e.Umin, 1.0);
    EXPECT_EQ(e.Umax, 2.0);
    // The load report panel came up and computed at once: Up / UnA is 0 / 0.
    EXPECT_EQ(e.ErrCalcul, ERR_DEPASSEMENT);
}

TEST(Calcul, NiveauDeTension) {
    Etude e = Ligne(0, 225);
    e.Ligne_Xd = {0.35, 0.35, 0.35};
    e.Ligne_Ip = 1000;
    e.Is = 1.0f;
    e.Ligne_Icc = 31.5;
    e.It = 1000.0;
    e.XL_eq = 20.0; // left by the previous run
    CalculNiveau(e);
    EXPECT_EQ(e.Ligne_Xd, (Reels3{0.405, 0.405, 0.405}));
    EXPECT_EQ(e.Ligne_Rd, (Reels3{0.085, 0.085, 0.085}));
    EXPECT_EQ(e.Umin, 200.0);
    EXPECT_EQ(e.Umax, 245.0);
    EXPECT_DOUBLE_EQ(e.Kv, 2200.0);
    EXPECT_DOUBLE_EQ(e.Kz, 2.2);
    EXPECT_DOUBLE_EQ(e.Vmin, 200.0 / R3);
    EXPECT_DOUBLE_EQ(e.Ligne_XSmini, 225.0 / (R3 * 31.5));
    const double r = std::sqrt(4.0 * (245.0 * 245.0 - 200.0 * 200.0) / 3.0 + 400.0);
    EXPECT_DOUBLE_EQ(e.Ligne_XS, 0.5 * (r - 20.0) + 2.0 * 225.0 / (R3 * 31.5));

    Etude autre = Ligne(0, 150);
    autre.Ligne_Xd = {0.35, 0.35, 0.35};
    CalculNiveau(autre);
    EXPECT_EQ(autre.Ligne_Xd[0], 0.35);
    EXPECT_DOUBLE_EQ(autre.Umin, 132.0);
    EXPECT_DOUBLE_EQ(autre.Umax, 165.0);
    EXPECT_DOUBLE_EQ(autre.Kv, 1500.0);
}

TEST(Calcul, ReactancesDesZonesParGenreDeLigne) {
    DialogueSansFenetre d;
    Etude courte63 = Ligne(0, 63);
    courte63.Ligne_XL[0] = 0.5;
    Calcul(courte63, d);
    EXPECT_EQ(courte63.Ligne_Xprim1, 2.0); // 2.4 x 0.5 = 1.2 gives 1, under the floor 2
    EXPECT_EQ(courte63.Ligne_Xprim2, 2.0);
    EXPECT_EQ(courte63.Ligne_Xprim3, 2.5);

    Etude courte90 = Ligne(0, 90);
    Calcul(courte90, d);
    EXPECT_EQ(courte90.Ligne_Xprim1, 4.0);

    Etude courte225 = Ligne(0, 225);
    courte225.Ligne_XL[0] = 5.0; // 12 is above the floor
    Calcul(courte225, d);
    EXPECT_EQ(courte225.Ligne_Xprim2, 12.0);

    Etude longue = Ligne(0, 225);
    longue.Ligne_lc = true;
    longue.Ligne_XL[0] = 30.0;
    Calcul(longue, d);
    EXPECT_DOUBLE_EQ(longue.Ligne_Xprim1, 24.0);
    EXPECT_DOUBLE_EQ(longue.Ligne_Xprim2, 36.0);
    EXPECT_DOUBLE_EQ(longue.Ligne_Xprim3, 45.0);

    // A double circuit, with and without earth cables, and short.
    for (const bool cdg : {true, false}) {
        Etude dc = Ligne(1, 400);
        dc.Ligne_lc = true;
        dc.Ligne_cdg = cdg;
        dc.Ligne_XL[0] = 33.0;
        dc.Ligne_Xo[0] = 100.0;
        dc.Ligne_Ro[0] = 25.0;
        dc.Ligne_kom = 0.55;
        Calcul(dc, d);
        EXPECT_DOUBLE_EQ(dc.Ligne_Xprim1, (cdg ? 0.7 : 0.6) * 33.0);
        EXPECT_DOUBLE_EQ(dc.Ligne_Xprim2, (cdg ? 1.7 : 1.9) * 33.0);
        EXPECT_DOUBLE_EQ(dc.PHIo_eq, std::atan(4.0));
        EXPECT_EQ(dc.kom_eq, 0.55);
        EXPECT_EQ(dc.ko_eq, 0.0); // no default for a double circuit
    }
    Etude dcCourt = Ligne(1, 400);
    dcCourt.Ligne_XL[0] = 1.5;
    dcCourt.Ligne_Ro[0] = 1.0;
    Calcul(dcCourt, d);
    EXPECT_EQ(dcCourt.Ligne_Xprim1, 5.0); // 3.4 x 1.5 = 5.1 gives 5

    // A second run with the zones frozen leaves them alone.
    longue.XprimFige = -1.0;
    longue.Ligne_XL[0] = 50.0;
    Calcul(longue, d);
    EXPECT_DOUBLE_EQ(longue.XL_eq, 50.0);
    EXPECT_DOUBLE_EQ(longue.Ligne_Xprim1, 24.0);
    EXPECT_DOUBLE_EQ(longue.Ligne_Xprim3, 45.0);

    EXPECT_EQ(ArrondiPair(2.5), 2.0);
    EXPECT_EQ(ArrondiPair(3.5), 4.0);
    EXPECT_EQ(PlancherNiveau(400), 4.0);
    EXPECT_EQ(PlancherNiveau(150), 0.0);
}

TEST(Calcul, DeuxTroncons) {
    Etude e = Ligne(2, 225);
    e.Ligne_lc = true;
    e.Ligne_cdg = true;
    e.Ligne_Longueur = {10.0, 30.0, 0.0};
    e.Ligne_XL = {4.0, 12.0, 0.0};
    e.Ligne_RL = {1.0, 3.0, 0.0};
    e.Ligne_Xo = {1.2, 1.2, 0.0};
    e.Ligne_Ro = {0.3, 0.3, 0.0};
    e.Ligne_ko = {0.6, 0.7, 0.0};
    e.Ligne_kom = 0.5;
    DialogueSansFenetre d;
    Calcul(e, d);
    EXPECT_EQ(e.ErrCalcul, 0);
    EXPECT_EQ(e.XL_eq, 16.0);
    EXPECT_EQ(e.RL_eq, 4.0);
    EXPECT_DOUBLE_EQ(e.ZL_eq, std::sqrt(272.0));
    EXPECT_EQ(e.Longueur_eq, 40.0);
    EXPECT_DOUBLE_EQ(e.Xd_eq, 0.4);
    EXPECT_DOUBLE_EQ(e.Rd_eq, 0.1);
    EXPECT_DOUBLE_EQ(e.PHI_eq, std::atan(4.0));
    EXPECT_DOUBLE_EQ(e.PHIo_eq, std::atan(4.0));
    EXPECT_DOUBLE_EQ(e.ko_eq, 0.675);
    EXPECT_DOUBLE_EQ(e.Xo_eq, 1.21);
    EXPECT_DOUBLE_EQ(e.Ro_eq, 0.3025);
    EXPECT_DOUBLE_EQ(e.kom_eq, 0.125);
    EXPECT_DOUBLE_EQ(e.Ligne_Xprim1, 0.7 * 4.0 + 0.8 * 12.0);
    EXPECT_DOUBLE_EQ(e.Ligne_Xprim2, 1.7 * 4.0 + 1.2 * 12.0);
}

TEST(Calcul, ErreursArretentLeCalcul) {
    DialogueSansFenetre d;
    Etude e = Ligne(1, 225);
    e.Ligne_Xo[0] = 3.0; // Ro 0: the zero sequence angle divides by zero
    Calcul(e, d);
    EXPECT_EQ(e.ErrCalcul, ERR_DIVISION);
    EXPECT_EQ(e.Ligne_Xprim1, 0.0); // stopped before the zones

    // With ShowValeurs, the check panel comes up after the zones and clears the error first.
    Etude vu = Ligne(0, 225);
    vu.ShowValeurs = true;
    vu.ErrCalcul = ERR_DIVISION;
    DialogueScripte script;
    script.QuandPanneau("frmValeurs", [](Panneau& p) {
        EXPECT_EQ(p.Trouver("txtxprim1")->Texte(), "4.");
        p.Trouver("txtxprim1")->DefinirTexte("5,25");
        p.Valider();
    });
    Calcul(vu, script);
    EXPECT_EQ(vu.ErrCalcul, 0);
    EXPECT_EQ(vu.Ligne_Xprim1, 5.25);
}

namespace {
Etude TroisBouts(Reels3 xl, bool cc, int pp) {
    Etude e = Ligne(3, 90);
    e.Ligne_XL = xl;
    e.Ligne_Longueur = {xl[0] / 0.4, xl[1] / 0.4, xl[2] / 0.4};
    e.Ligne_cc = cc;
    e.Ligne_pp = static_cast<Entier16>(pp);
    for (double* i :
         {&e.Ligne_ICCACM, &e.Ligne_ICCBCM, &e.Ligne_ICCABM, &e.Ligne_ICCCBM, &e.Ligne_ICCACT,
          &e.Ligne_ICCBCT, &e.Ligne_ICCABT, &e.Ligne_ICCCBT, &e.Ligne_IPCACM, &e.Ligne_IPCBCM,
          &e.Ligne_IPCBAM, &e.Ligne_IPCCAM, &e.Ligne_IPCCBM, &e.Ligne_IPCABM, &e.Ligne_IPCACT,
          &e.Ligne_IPCBCT, &e.Ligne_IPCBAT, &e.Ligne_IPCCAT, &e.Ligne_IPCCBT, &e.Ligne_IPCABT})
        *i = 1000.0;
    return e;
}
const std::string MONO_PAS = "Premier stade pas toujours assuré sur défaut monophasé";
const std::string MONO_OK = "Premier stade toujours assuré sur défaut monophasé";
const std::string TRI_PAS = "Premier stade pas toujours assuré sur défaut triphasé";
const std::string TRI_OK = "Premier stade toujours assuré sur défaut triphasé";
} // namespace

TEST(TroisBouts, SansEtudeDeCourtCircuit) {
    DialogueSansFenetre d;
    Etude e = TroisBouts({1.0, 5.0, 10.0}, false, 1);
    Calcul(e, d);
    EXPECT_DOUBLE_EQ(e.Ligne_Xprim1, 4.8);
    EXPECT_DOUBLE_EQ(e.Ligne_Xprim2, 30.0);
    EXPECT_DOUBLE_EQ(e.Ligne_Xprim3, 37.5);
    EXPECT_TRUE(e.StadeMono.empty());
    EXPECT_TRUE(e.StadeTri.empty());
    EXPECT_EQ(e.PHIo_eq, 0.0); // from end B no default for the zero sequence angle

    Etude c = TroisBouts({1.0, 5.0, 10.0}, false, 2);
    c.Ligne_Longueur = {3.0, 7.0, 20.0};
    Calcul(c, d);
    EXPECT_DOUBLE_EQ(c.Ligne_Xprim1, 8.8);
    EXPECT_DOUBLE_EQ(c.Ligne_Xprim2, 36.0);
    EXPECT_EQ(c.Longueur_eq, 23.0); // sections 0 and 2
    EXPECT_EQ(c.XL_eq, 11.0);
    EXPECT_DOUBLE_EQ(c.PHIo_eq, 75.0 * PI / 180.0);

    // A relay end beyond C counts as C.
    Etude p5 = TroisBouts({1.0, 5.0, 10.0}, false, 5);
    Calcul(p5, d);
    EXPECT_EQ(p5.Ligne_pp, 2);
    EXPECT_DOUBLE_EQ(p5.Ligne_Xprim2, 36.0);
}

TEST(TroisBouts, PremierStadeLoinDuPiquage) {
    // XL 2, 2, 10: A = 3.78 > 2. P = 1, S = 2, Ya = 0.89, Yb = 0.31; with equal currents
    // Ym1 = Ym2 = 0.89.
    DialogueSansFenetre d;
    Etude vivant = TroisBouts({2.0, 2.0, 10.0}, true, 0);
    Calcul(vivant, d);
    EXPECT_EQ(vivant.StadeMono, MONO_PAS);
    EXPECT_EQ(vivant.StadeTri, TRI_PAS);

    Etude mort = TroisBouts({2.0, 2.0, 10.0}, true, 0);
    mort.BoutMort = true;
    Calcul(mort, d);
    EXPECT_EQ(mort.StadeMono, MONO_PAS); // 3.78, 4.67, 4.67, 4.67 all <= 10
    EXPECT_EQ(mort.StadeTri, TRI_PAS);

    Etude court = TroisBouts({2.0, 2.0, 4.0}, true, 0);
    court.BoutMort = true;
    Calcul(court, d);
    EXPECT_EQ(court.StadeMono, MONO_OK); // A + Ya = 4.67 > 4
    EXPECT_EQ(court.StadeTri, TRI_OK);
}

TEST(TroisBouts, PremierStadePresDuPiquage) {
    // XL 1, 5, 10: A = 1.89 <= 5. Q = 1, Ym1 = 4.225.
    DialogueSansFenetre d;
    Etude e = TroisBouts({1.0, 5.0, 10.0}, true, 0);
    e.Ligne_ICCCBM = 500.0; // T = 0.445, Km = 4.207: Km XL0 <= 5
    e.Ligne_ICCCBT = 900.0; // T = 0.801, Km = 13.5: Km XL0 > 5
    Calcul(e, d);
    EXPECT_EQ(e.ErrCalcul, 0);
    // Live ends: the single phase quantities give the three phase result and back.
    EXPECT_EQ(e.StadeTri, TRI_PAS);
    EXPECT_EQ(e.StadeMono, MONO_OK);

    Etude mort = TroisBouts({1.0, 5.0, 10.0}, true, 0);
    mort.BoutMort = true;
    mort.Ligne_ICCCBM = 500.0;
    mort.Ligne_ICCCBT = 900.0;
    Calcul(mort, d);
    EXPECT_EQ(mort.StadeMono, MONO_PAS);
    EXPECT_EQ(mort.StadeTri, TRI_OK);

    // Only four currents get a default: ICCCBM 0 divides by zero in R.
    Etude zero = TroisBouts({1.0, 5.0, 10.0}, true, 0);
    zero.Ligne_ICCCBM = 0.0;
    Calcul(zero, d);
    EXPECT_EQ(zero.ErrCalcul, ERR_DIVISION);
}

TEST(TroisBouts, ZonesSelonLesCourantsEtTransit) {
    DialogueSansFenetre d;
    Etude e = TroisBouts({1.0, 5.0, 10.0}, true, 0);
    e.Ligne_IPCBCT = 3000.0; // ratio 3 on the far section C
    e.Ligne_ItA = 300.0;
    e.Ligne_ItB = 500.0;
    e.Ligne_ItC = 200.0;
    Calcul(e, d);
    EXPECT_DOUBLE_EQ(e.Ligne_Xprim1, 4.8);
    EXPECT_DOUBLE_EQ(e.Ligne_Xprim2, 1.2 * (4.0 * 10.0 + 1.0));
    EXPECT_DOUBLE_EQ(e.Ligne_Xprim3, 1.25 * 1.2 * 41.0);
    EXPECT_EQ(e.It, 500.0);
    EXPECT_EQ(e.ItP, 500.0);
    EXPECT_EQ(e.XL_eq, 6.0);
    EXPECT_EQ(e.Xd_eq, 0.81); // two values per km added, not a mean

    Etude b = TroisBouts({1.0, 5.0, 10.0}, true, 1);
    b.Ligne_ItA = 300.0;
    b.Ligne_ItB = 500.0;
    b.Ligne_ItC = 200.0;
    b.XprimFige = -1.0;
    b.Ligne_Xprim2 = 8.0;
    Calcul(b, d);
    EXPECT_EQ(b.Ligne_Xprim1, 0.0);  // frozen
    EXPECT_EQ(b.Ligne_Xprim3, 10.0); // but always 1.25 Xprim2
    EXPECT_EQ(b.It, 500.0);
    EXPECT_EQ(b.ItP, 300.0);
}
