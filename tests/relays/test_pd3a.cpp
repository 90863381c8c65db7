// The PD3A, worked out by hand from its wheel tables: the wheels of both variants and their
// limits, the resistance and its step, the angle and earth factor wheels, the timers, the rules
// of the setting guide, the characteristic, the stored list and the panel.
#include "EtudeRelais.h"
#include "diagram/SurfaceEnregistree.h"
#include "relays/pd3a/CalculPD3A.h"
#include "relays/pd3a/PanneauPD3A.h"
#include "relays/pd3a/TracePD3A.h"

using namespace tournesol;

namespace {

// A relay on 1 A secondaries with primary equal to secondary ohms.
Etude Roues(bool type6562, float is = 1.0F) {
    Etude e;
    e.Is = is;
    e.Kz = 1.0;
    e.PD3A.Type6062 = !type6562;
    e.PD3A.Type6562 = type6562;
    return e;
}

TEST(RouesPD3A, Le6062ArronditX1AuDessousEtX2X3AuDessus) {
    Etude e = Roues(false);
    // 56.5 / 5.18 = 10.907 is the last step below 11.045; 58.5 / 5.18 = 11.29 is above it.
    e.X1_BT = 11.045;
    const double x1 = 56.5 / static_cast<double>(5.18F);
    e.X2_BT = 2.0 * x1;  // between 1.8 and 2.08 times X1: K2 6
    e.X3_BT = 12.0 * x1; // beyond 10 times X1: cut to 9.99 times, K3 12
    e.X4_BT = 5.0;       // between 4.7 and 5.8: K4 5
    ArrondirZonesPD3A(e);
    EXPECT_NEAR(e.X1reg_BT, x1, 1e-9);
    EXPECT_EQ(e.PD3A.K1, 8);
    EXPECT_EQ(e.PD3A.m1, 1);
    EXPECT_EQ(e.PD3A.K2, 6);
    EXPECT_NEAR(e.X2reg_BT, 2.08 * x1, 1e-9);
    EXPECT_NEAR(e.X3_BT, 9.99 * x1, 1e-9);
    EXPECT_EQ(e.PD3A.K3, 12);
    EXPECT_NEAR(e.X3reg_BT, 10.0 * x1, 1e-9);
    EXPECT_EQ(e.PD3A.K4, 5);
    EXPECT_NEAR(e.X4reg_BT, 5.8, 1e-12);

    // The second zone at the first one's set value is the first multiple.
    e.X1_BT = 11.045;
    e.X2_BT = x1;
    ArrondirZonesPD3A(e);
    EXPECT_EQ(e.PD3A.K2, 1);
    EXPECT_NEAR(e.X2reg_BT, e.X1reg_BT, 1e-12);
}

TEST(RouesPD3A, Le6562PrendX2SurLaRoueDesReactancesSansCoefficient) {
    Etude e = Roues(true, 5.0F);
    e.Kz = 2.0;
    e.PD3A.m2 = 77;
    e.X1_BT = 2.0;  // 5 x 2 = 10: 50 / 5.12 below, 52 / 5.12 above
    e.X2_BT = 4.0;  // 5 x 4 = 20: up to 20.2, index 65
    e.X3_BT = 12.0; // above 2.5 X2: 2.49 X2, K3 12
    e.X4_BT = 1.0;  // 5 x 1 = 5: 5.8, K4 5
    ArrondirZonesPD3A(e);
    EXPECT_FLOAT_EQ(e.PD3A.CoefX1, 5.12F);
    EXPECT_NEAR(e.X1reg_BT, 50.0 / (5.0 * static_cast<double>(5.12F)), 1e-12);
    EXPECT_EQ(e.PD3A.K1, 7);
    EXPECT_EQ(e.PD3A.m1, 9); // 50 is step 93
    EXPECT_EQ(e.PD3A.K2, 5);
    EXPECT_EQ(e.PD3A.m2, 5);
    EXPECT_NEAR(e.X2reg_BT, 4.04, 1e-12);
    EXPECT_EQ(e.PD3A.K3, 12);
    EXPECT_NEAR(e.X3reg_BT, 10.1, 1e-12);
    EXPECT_NEAR(e.X4reg_BT, 1.16, 1e-12);
    EXPECT_NEAR(e.X3reg_HT, 20.2, 1e-12);

    // The wheels' ends: beyond them the reach is taken just inside.
    e.X1_BT = 100.0;
    e.X2_BT = 0.1;
    e.X4_BT = 10.0;
    ArrondirZonesPD3A(e);
    EXPECT_NEAR(e.X1_BT, 257.9 / (5.0 * static_cast<double>(5.12F)), 1e-9);
    EXPECT_EQ(e.PD3A.K1 * 12 + e.PD3A.m1, 143);
    EXPECT_NEAR(e.X2reg_BT, 2.625 / 5.0, 1e-12);
    EXPECT_EQ(e.PD3A.K4, 12);
    EXPECT_NEAR(e.X4reg_BT, 5.0, 1e-12);
}

TEST(ReglagesPD3A, AngleFacteurDeTerreEtTemporisations) {
    Etude e = Roues(false);
    e.PanneauRelais = true;
    e.PHI_eq = DegToRad(78.147);
    e.ko_eq = 0.654;
    e.T1 = 150;
    e.T2 = 257;
    e.T3 = 1200;
    e.T4 = 12345;
    CalculReglagesPD3A(e);
    EXPECT_EQ(e.PD3A.PosTeta, 8);
    EXPECT_FLOAT_EQ(e.teta, 80.0F);
    EXPECT_NEAR(e.ko_reg, 0.7, 1e-12);
    EXPECT_EQ(e.Ko2, 10.0);
    EXPECT_EQ(e.Ko1, 7.0);
    EXPECT_EQ(e.PD3A.C1, 10);
    EXPECT_EQ(e.PD3A.TA, 15);
    EXPECT_EQ(e.T1, 150);
    EXPECT_EQ(e.T2, 250);
    EXPECT_EQ(e.PD3A.TB, 25);
    EXPECT_EQ(e.T3, 990);
    EXPECT_EQ(e.T4, 9990);
    EXPECT_EQ(e.PD3A.TD, 999);

    // A whole factor: 1.0 gives the wheels 20 and 0, not 10 and 9.
    e.ko_eq = 0.95;
    e.T1 = 99;
    CalculReglagesPD3A(e);
    EXPECT_EQ(e.Ko2, 20.0);
    EXPECT_EQ(e.Ko1, 0.0);
    EXPECT_EQ(e.PD3A.C1, 1);
    EXPECT_EQ(e.PD3A.TA, 99);

    // Out of "Return" the angle and the factor stay as they were set.
    e.PanneauRelais = false;
    e.PHI_eq = DegToRad(60.0);
    e.ko_reg = 0.3;
    e.PD3A.PosTeta = 2;
    CalculReglagesPD3A(e);
    EXPECT_FLOAT_EQ(e.teta, 50.0F);
    EXPECT_EQ(e.Ko2, 10.0);
    EXPECT_EQ(e.Ko1, 3.0);

    // A typed angle goes down to its step.
    e.teta = 63.0F;
    AngleSaisiPD3A(e);
    EXPECT_EQ(e.PD3A.PosTeta, 4);
    EXPECT_FLOAT_EQ(e.teta, 60.0F);
}

TEST(ReglagesPD3A, ResistanceEtSonPas) {
    Etude e = Roues(false, 5.0F);
    e.Kz = 2.0;
    e.X1reg_BT = 4.0;
    e.R_HT = 2.0 * 23.0; // 23 secondary ohms: 5 x 23 / 5 = 23 steps, at most 11
    DialogueSansFenetre d;
    CalculResistancePD3A(e, d);
    EXPECT_EQ(e.PD3A.Rd, 11);
    EXPECT_FLOAT_EQ(e.Rreg_BT, 11.0F);
    EXPECT_FLOAT_EQ(e.Rreg_HT, 22.0F);
    EXPECT_NEAR(e.PD3A.RsurX, 11.0 / 4.0, 1e-12);

    // Typed, the resistance stays within 80 and its step goes beyond 11.
    e.R_BT = 85.0;
    ResistanceSaisiePD3A(e);
    EXPECT_EQ(e.R_BT, 80.0);
    EXPECT_EQ(e.R_HT, 160.0);
    EXPECT_EQ(e.PD3A.Rd, 80);

    // Below one step: Rd 0 and no width.
    e.R_HT = 1.0;
    CalculResistancePD3A(e, d);
    EXPECT_EQ(e.PD3A.Rd, 0);
    EXPECT_EQ(e.Rreg_HT, 0.0F);
}

// The example line computed as the working window opens it, and the PD3A's panel on it.
struct EtudePD3A : EtudeEtPanneau<PanneauPD3A> {
    EtudePD3A() { Charger("champagnier-grande-ile-225kV.json"); }
};
using PanneauDuPD3A = EtudePD3A;

TEST_F(EtudePD3A, LaResistanceDeRetourLaissePlaceALaCharge) {
    ASSERT_EQ(e.ErrCalcul, 0);
    e.PanneauRelais = true;
    e.TypeReportCharge = 0;
    CalculZonesPD3A(e);
    CalculResistancePD3A(e, d);
    // The single phase case came last and stays in force.
    EXPECT_EQ(e.TypeReportCharge, 1);
    const double d1 = DistanceTransitPD3A(e);
    EXPECT_NEAR(e.R_HT, e.CRcourant * d1 / e.Ligne_CRm, 1e-9);
    EXPECT_EQ(e.X3_commun, e.X3_HT);
    EXPECT_EQ(e.X4_commun, e.X4_HT);
    // With the out-of-step bands the three phase cases give way by twice the band.
    e.Pompage = true;
    BandesPompagePD3A(e);
    EXPECT_FLOAT_EQ(e.PD3A.BandeX, static_cast<float>(11.0 * e.Kz));
    EXPECT_FLOAT_EQ(e.PD3A.BandeR, static_cast<float>(7.5 * e.Kz));

    // A plant link leaves the resistance alone.
    e.Ligne_alim = 1;
    e.R_HT = 33.0;
    CalculResistancePD3A(e, d);
    EXPECT_NEAR(e.R_HT, 33.0, 1e-9);
}

TEST_F(EtudePD3A, UneLiaisonClienteTropChargeeEstSignalee) {
    e.PanneauRelais = true;
    e.Ligne_alim = 3;
    e.Ligne_itclient = 2000.0;
    e.TypeReportCharge = 2;
    CalculZonesPD3A(e);
    e.X3reg_HT = 500.0;
    ResistanceTransitPD3A(e, d);
    ASSERT_FALSE(d.Messages().empty());
    EXPECT_EQ(d.Messages().back().sMessage, DONNEES_INCOMPATIBLES);
}

// Settings that agree with the guide.
Etude Conforme() {
    Etude e;
    e.X1reg_HT = 8.0;
    e.X2reg_HT = 10.0;
    e.X3reg_HT = 20.0;
    e.X4reg_HT = 5.0;
    e.Ligne_XAV = 40.0;
    e.Ligne_XAM = 40.0;
    e.XL_eq = 20.0;
    e.R_HT = 10.0;
    return e;
}

TEST(DiagnosticsPD3A, ChaqueRegleSePoseEtSEfface) {
    const std::vector<CasRegles> cas{
        {{15}, [](Etude& e) { e.X3reg_HT = 11.0; }, 12.0},
        {{16},
         [](Etude& e) {
             e.Pompage = true;
             e.PD3A.BandeX = 15.0F;
         },
         15.0},
        {{17}, [](Etude& e) { e.Ligne_XAV = 0.0; }, 18.0 / 1.15},
        // The backward pick up beyond the close transformers is beyond them with its band too.
        {{18, 19}, [](Etude& e) { e.Ligne_XAM = 4.0; }, 3.2 / 1.15},
        {{19}, [](Etude& e) { e.PD3A.BandeX = 25.0F; }, 32.0 / 1.15},
        {{20}, [](Etude& e) { e.R_HT = 24.0; }, 32.0},
        {{21}, [](Etude& e) { e.Ligne_X1PB = 25.0F; }, 32.5 - 21.2},
    };
    ReglesPoseesEtEffacees(Conforme, CalculDiagPD3A, 15, 21, cas, 1e-6);
}

TEST(CaracteristiquePD3A, ParallelogrammesParCasDeReport) {
    Etude e;
    e.teta = 45.0F;
    e.Rreg_HT = 10.0F;
    e.Ligne_CRm = 2.0;
    e.CRcourant = 4.0;
    e.Ligne_CRt = 1.0;
    e.Vmin = 100.0;
    e.It = 1000.0;
    e.PHI_eq = DegToRad(80.0);
    e.X1reg_HT = 8.0;
    e.X2reg_HT = 12.0;
    e.X3reg_HT = 20.0;
    e.X4reg_HT = 5.0;
    e.CouleurTriphase = 0x00FF00;
    e.CouleurZones = 0x0000FF;
    e.TypeReportCharge = 0;
    auto s = SegmentsPD3A(e);
    ASSERT_EQ(s.size(), 18u); // 1 + 4 empty + 4 empty + (1 empty + 4) + 4
    const double rt = 5.0 * (1.0 / std::sqrt(3.0) + 1.0);
    // The three phase parallelogram's top right corner, and the first zone's limit.
    EXPECT_EQ(s[10].Couleur, 0x00FF00);
    EXPECT_TRUE(Au(s[10].B, rt + 20.0, 20.0));
    EXPECT_EQ(s[14].Couleur, 0x0000FF);
    EXPECT_NEAR(s[14].A.Re, rt + 8.0, 1e-9);
    EXPECT_NEAR(s[14].B.Re, -rt + 8.0, 1e-9);
    // The directional line crosses at 1000 Vmin / (CRt It), square to the line.
    EXPECT_NEAR(s[0].A.Module, 100.0, 1e-9);

    e.Pompage = true;
    e.PD3A.BandeX = 3.0F;
    EXPECT_EQ(SegmentsPD3A(e).size(), 21u);

    // The legend's check box of a part hides its segments, and only them.
    e.ScaleLeft = -50.0F;
    e.ScaleTop = 50.0F;
    e.ScaleWidth = 100.0F;
    e.ScaleHeight = -100.0F;
    SurfaceEnregistree surface(500.0, 500.0);
    Plan plan(e, surface);
    OptionsAffichage options;
    options.Zones = false;
    DrawPD3A(plan, options);
    int zones = 0, triphase = 0;
    for (const SegmentImage& seg : plan.Segments()) {
        zones += seg.Couleur == e.CouleurZones;
        triphase += seg.Couleur == e.CouleurTriphase;
    }
    EXPECT_EQ(zones, 0);
    EXPECT_EQ(triphase, 4); // the parallelogram; its empty slot is not drawn

    // The single phase case: the parallelogram of Rm = Rreg CRm / CRcourant.
    e.TypeReportCharge = 1;
    s = SegmentsPD3A(e);
    ASSERT_EQ(s.size(), 14u);
    EXPECT_TRUE(Au(s[1].A, 5.0 - 5.0, -5.0));
}

TEST(MagasinPD3A, LaListeRevientAvecSesTypes) {
    Etude e;
    e.id_protection = ID_PD3A;
    e.id_reglage = 7;
    e.X1_HT = 24.3;
    e.X3reg_HT = 55.4;
    e.Rreg_HT = 22.0F;
    e.Pompage = true;
    e.PD3A.PosTeta = 8;
    e.teta = 80.0F;
    e.T4 = 1200;
    e.Verrouillage = true;
    e.Is = 5.0F;
    e.PD3A.Type6562 = true;
    MagasinMemoire m;
    const Etude relue = AllerRetour(e, m, 31);
    EXPECT_EQ(std::get<float>(m.LireValeur(7, 8)), 22.0F);
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(7, 10)), -1);
    EXPECT_EQ(std::get<float>(m.LireValeur(7, 29)), 5.0F);
    EXPECT_EQ(relue.X1_HT, 24.3);
    EXPECT_EQ(relue.X3reg_HT, 55.4);
    EXPECT_TRUE(relue.Pompage);
    EXPECT_EQ(relue.PD3A.PosTeta, 8);
    EXPECT_EQ(relue.T4, 1200);
    EXPECT_TRUE(relue.Verrouillage);
    EXPECT_TRUE(relue.PD3A.Type6562);
    EXPECT_FALSE(relue.PD3A.Type6062);
}

TEST_F(PanneauDuPD3A, UneReactanceSaisieEstRameneeALaRoue) {
    Panneau(false);
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_TRUE(p->Trouver("chktype1")->Valeur);
    EXPECT_EQ(p->Trouver("txtk1")->Texte(), "8");
    // 200 secondary ohms are beyond the wheel: the field shows the limited reach.
    Saisir("txtX1_bt", "200");
    EXPECT_EQ(p->Trouver("txtX1_bt")->Texte(), "49.79"); // 257.9 / 5.18
    EXPECT_EQ(e.X1_HT, 200.0 * e.Kz);
    EXPECT_EQ(p->Trouver("txtk1")->Texte(), "11");
    // 85 typed in the resistance gives 80, and the primary image follows.
    Saisir("Txtrd_bt", "85");
    EXPECT_EQ(p->Trouver("Txtrd_bt")->Texte(), "80.00");
    EXPECT_EQ(p->Trouver("txtRd_HT")->Texte(), "176.00");
    EXPECT_EQ(e.PD3A.Rd, 16);
    // A timer goes down to tens, and its wheel follows.
    Saisir("txtt2", "257");
    EXPECT_EQ(p->Trouver("txtt2")->Texte(), "250");
    EXPECT_EQ(p->Trouver("txtTB")->Texte(), "25");
}

TEST_F(PanneauDuPD3A, LeChangementDeVarianteRecalculeLesZones) {
    Panneau(false);
    p->Trouver("chktype2")->Valeur = true;
    p->Cliquer("chktype2");
    EXPECT_TRUE(e.PD3A.Type6562);
    EXPECT_FALSE(e.PD3A.Type6062);
    EXPECT_FALSE(p->Trouver("chktype1")->Valeur);
    EXPECT_FLOAT_EQ(e.PD3A.CoefX1, 5.12F);
    EXPECT_EQ(p->Trouver("txtm2")->Texte(), std::to_string(e.PD3A.m2));
}

TEST_F(PanneauDuPD3A, UneLiaisonDeCentraleAvertitAChaqueFeuille) {
    e.Ligne_alim = 1;
    e.R_HT = 30.0;
    Panneau(true);
    p->ChoixOnglet(1);
    p->ChoixOnglet(2);
    int avis = 0;
    for (const MessageAffiche& m : d.Messages())
        if (m.sMessage == "Attention, the case of the plant - substation links is not studied "
                          "for the PD3A.")
            ++avis;
    EXPECT_EQ(avis, 3);
    EXPECT_NEAR(e.R_HT, 30.0, 1e-9);
}

TEST_F(PanneauDuPD3A, EnRetourLeHorsPompageResteCeluiDeLEtude) {
    e.Pompage = true;
    Panneau(true);
    EXPECT_TRUE(p->Trouver("chkPompage")->Valeur);
    p->ChoixOnglet(1); // each sheet's computation keeps it
    p->ChoixOnglet(0);
    p->ValiderBouton();
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_TRUE(e.Pompage);
    EXPECT_GT(e.PD3A.BandeX, 0.0F); // the bands of the out of step are there
}

TEST_F(PanneauDuPD3A, OkEnRetourCadreLePlanSurLesZones) {
    Panneau(true);
    p->ValiderBouton();
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_NEAR(e.ScaleTop, DemiLargeurPD3A(e), 1e-4);
    EXPECT_NEAR(e.ScaleTop, 1.2 * e.X3reg_HT, 1e-4);
}

} // namespace
