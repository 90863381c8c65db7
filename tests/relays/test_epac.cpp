// The EPAC worked out by hand: its digital steps and ranges (which follow the rated current),
// the resistive reach and the angle, the rules of the setting guide, the characteristic with its
// out-of-step band all round, the stored list and the panel on an example line.
#include "EtudeRelais.h"
#include "core/Format.h"
#include "relays/epac/CalculEPAC.h"
#include "relays/epac/PanneauEPAC.h"
#include "relays/epac/TraceEPAC.h"
#include "relays/pd3a/CalculPD3A.h"

using namespace tournesol;

namespace {

Etude Relais(float is, double kz) {
    Etude e;
    e.Is = is;
    e.Kz = kz;
    return e;
}

TEST(PasEPAC, LesReactancesSuiventLeCourantNominal) {
    // 5 A: steps of 0.01 ohm within 0.05 to 50.
    Etude e = Relais(5.0F, 2.0);
    e.X1_BT = 3.459; // down
    e.X2_BT = 3.451; // up
    e.X3_BT = 0.01;  // below the range
    e.X4_BT = 60.0;  // beyond it
    ArrondirZonesEPAC(e);
    EXPECT_NEAR(e.X1reg_BT, 3.45, 1e-9);
    EXPECT_NEAR(e.X2reg_BT, 3.46, 1e-9);
    EXPECT_NEAR(e.X3reg_BT, 0.05, 1e-9);
    EXPECT_NEAR(e.X4reg_BT, 50.0, 1e-9);
    EXPECT_NEAR(e.X4reg_HT, 100.0, 1e-9);
    // The desired values hold the limits, in both columns.
    EXPECT_EQ(e.X3_BT, 0.05);
    EXPECT_NEAR(e.X4_HT, 100.0, 1e-9);
    // A set value typed again stays where it is.
    e.X2_BT = 3.46;
    ArrondirZonesEPAC(e);
    EXPECT_NEAR(e.X2reg_BT, 3.46, 1e-9);

    // 1 A: five times the range, steps of 0.05 ohm.
    e = Relais(1.0F, 1.0);
    e.X1_BT = 12.349;
    e.X2_BT = 12.301;
    e.X3_BT = 200.0;
    e.X4_BT = 260.0;
    ArrondirZonesEPAC(e);
    EXPECT_NEAR(e.X1reg_BT, 12.30, 1e-9);
    EXPECT_NEAR(e.X2reg_BT, 12.35, 1e-9);
    EXPECT_NEAR(e.X3reg_BT, 200.0, 1e-9);
    EXPECT_NEAR(e.X4reg_BT, 250.0, 1e-9);
}

TEST(PasEPAC, ResistanceAngleFacteurDeTerreEtTemporisations) {
    Etude e = Relais(5.0F, 2.0);
    e.X1reg_BT = 4.0;
    // Typed: within 0 to 80 ohms at 5 A, down to tenths.
    e.R_BT = 85.0;
    ResistanceSaisieEPAC(e);
    EXPECT_EQ(e.R_BT, 80.0);
    EXPECT_EQ(e.R_HT, 160.0);
    EXPECT_FLOAT_EQ(e.Rreg_BT, 80.0F);
    e.R_BT = 12.37;
    ResistanceSaisieEPAC(e);
    EXPECT_FLOAT_EQ(e.Rreg_BT, 12.3F);
    EXPECT_FLOAT_EQ(e.Rreg_HT, 24.6F);
    EXPECT_NEAR(e.EPAC.RsurX, 12.3 / 4.0, 1e-6);
    // At 1 A up to 400 ohms, by half ohms; a negative reach is none.
    e = Relais(1.0F, 1.0);
    e.X1reg_BT = 10.0;
    e.R_BT = 399.9;
    ResistanceSaisieEPAC(e);
    EXPECT_FLOAT_EQ(e.Rreg_BT, 399.5F);
    e.R_BT = -3.0;
    ResistanceSaisieEPAC(e);
    EXPECT_EQ(e.Rreg_BT, 0.0F);

    // In "Return" the angle is the line's to the degree, the earth factor to the hundredth.
    e.PanneauRelais = true;
    e.PHI_eq = DegToRad(68.6);
    e.ko_eq = 0.6442;
    e.T2 = 257;
    e.T4 = 12000;
    CalculReglagesEPAC(e);
    EXPECT_FLOAT_EQ(e.teta, 69.0F);
    EXPECT_NEAR(e.ko_reg, 0.64, 1e-9);
    EXPECT_EQ(e.T2, 250);
    EXPECT_EQ(e.T4, 9990);
    // A line steeper than the relay's last degree, and an earth factor beyond its range.
    e.PHI_eq = DegToRad(89.8);
    e.ko_eq = 5.0;
    CalculReglagesEPAC(e);
    EXPECT_FLOAT_EQ(e.teta, 89.0F);
    EXPECT_EQ(e.ko_reg, 4.0);
    // In "Modify" they are kept, only limited.
    e.PanneauRelais = false;
    e.teta = 30.0F;
    e.ko_reg = 1.234;
    CalculReglagesEPAC(e);
    EXPECT_FLOAT_EQ(e.teta, 45.0F);
    EXPECT_NEAR(e.ko_reg, 1.23, 1e-9);
}

// The example line computed as the working window opens it, and the EPAC's panel on it.
struct EtudeEPAC : EtudeEtPanneau<PanneauEPAC> {
    EtudeEPAC() { Charger("le-cheylas-pontcharra-225kV-epac.json"); }
};
using PanneauDeLEPAC = EtudeEPAC;

TEST_F(EtudeEPAC, LaResistanceDeRetourEstCelleDuPD3AAvecSesBandes) {
    ASSERT_EQ(e.ErrCalcul, 0);
    ASSERT_EQ(e.Is, 5.0F);
    e.PanneauRelais = true;
    e.Pompage = false;
    CalculZonesEPAC(e);
    CalculResistanceEPAC(e, d);
    const double sansBande = e.R_HT;
    EXPECT_EQ(e.TypeReportCharge, 1);
    EXPECT_NEAR(sansBande, e.CRcourant * DistanceTransitPD3A(e) / e.Ligne_CRm, 1e-9);
    EXPECT_EQ(e.X3_commun, e.X3_HT);
    // The set reach is the desired one down to the tenth of an ohm.
    EXPECT_LE(e.Rreg_BT, e.R_BT + 1e-6);
    EXPECT_GT(e.Rreg_BT, e.R_BT - 0.1);

    e.Pompage = true;
    CalculResistanceEPAC(e, d);
    EXPECT_FLOAT_EQ(e.EPAC.BandeX, static_cast<float>(11.0 * e.Kz / 5.0));
    EXPECT_FLOAT_EQ(e.EPAC.BandeR, static_cast<float>(7.5 * e.Kz / 5.0));
    EXPECT_LE(e.R_HT, sansBande);

    // A plant link leaves the resistive reach alone.
    e.Ligne_alim = 2;
    e.R_HT = 33.0;
    CalculResistanceEPAC(e, d);
    EXPECT_NEAR(e.R_HT, 33.0, 1e-9);
}

Etude Conforme() {
    Etude e;
    e.X1reg_HT = 8.0;
    e.X2reg_HT = 10.0;
    e.X3reg_HT = 20.0;
    e.X4reg_HT = 5.0;
    e.Ligne_XAV = 40.0;
    e.Ligne_XAM = 40.0;
    e.XL_eq = 20.0;
    e.Ligne_lc = true;
    e.Ligne_X1PB = 10.0F;
    return e;
}

TEST(DiagnosticsEPAC, ChaqueRegleSePoseEtSEfface) {
    // Forward limit (0.8 x 40 + 0.9 x 20) / 1.15 = 43.48, backward 32 / 1.15 = 27.83. Each
    // sets its rule alone: without out of step, the reaches beyond the limits leave the
    // out-of-step rules 9 and 11 down.
    const std::vector<CasRegles> cas{
        {{7}, [](Etude& e) { e.X3reg_HT = 11.9; }, 12.0},
        {{8}, [](Etude& e) { e.X3reg_HT = 44.0; }, 50.0 / 1.15},
        {{9},
         [](Etude& e) {
             e.Pompage = true;
             e.X3reg_HT = 30.0;
             e.EPAC.BandeX = 20.0F;
         },
         50.0 / 1.15},
        {{10}, [](Etude& e) { e.Ligne_XAM = 4.0; }, 3.2 / 1.15},
        {{11},
         [](Etude& e) {
             e.Pompage = true;
             e.EPAC.BandeX = 23.0F;
         },
         32.0 / 1.15},
        {{12}, [](Etude& e) { e.Ligne_X1PB = 25.0F; }, 32.5 - 21.2},
    };
    ReglesPoseesEtEffacees(Conforme, CalculDiagEPAC, 7, 12, cas, 1e-6);
    // The coordination with the remote relay holds only on a long line.
    Etude court = Conforme();
    court.Ligne_lc = false;
    court.Ligne_X1PB = 25.0F;
    CalculDiagEPAC(court);
    EXPECT_FALSE(RegleActive(court, 12));
}

TEST(CaracteristiqueEPAC, ParallelogrammesEtBandeTouteAutour) {
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
    e.Pompage = true;
    e.EPAC.BandeX = 3.0F;
    e.EPAC.BandeR = 2.0F;
    e.TypeReportCharge = 0;
    auto s = SegmentsEPAC(e);
    ASSERT_EQ(s.size(), 17u);
    const double k = 1.0 / std::sqrt(3.0) + 1.0;
    const double rt = 5.0 * k;
    // The single-phase slots are empty in the three-phase case.
    EXPECT_EQ(s[1].A.Module + s[1].B.Module, 0.0);
    // Out of step: bottom right corner, then top right corner, the band on every side.
    EXPECT_TRUE(Au(s[5].A, rt + 2.0 * k - 8.0, -8.0));
    EXPECT_TRUE(Au(s[5].B, rt + 2.0 * k + 23.0, 23.0));
    // The three-phase parallelogram's top left corner, and the backward zone's limit.
    EXPECT_TRUE(Au(s[10].B, -rt + 20.0, 20.0));
    EXPECT_TRUE(Au(s[16].A, rt - 5.0, -5.0));
    EXPECT_NEAR(s[0].A.Module, 100.0, 1e-9);

    // Single phase: Rm = Rreg CRm / CRcourant = 5, no out of step drawn.
    e.TypeReportCharge = 1;
    s = SegmentsEPAC(e);
    EXPECT_NEAR(s[1].A.Re, 5.0 - 5.0, 1e-9);
    EXPECT_NEAR(s[2].B.Re, -5.0 + 20.0, 1e-9);
    EXPECT_EQ(s[5].A.Module + s[5].B.Module, 0.0);
    EXPECT_EQ(s[9].A.Module + s[9].B.Module, 0.0);
    EXPECT_NEAR(s[13].A.Re, 5.0 + 8.0, 1e-9);

    // A flat angle is a computation failure, not an infinite drawing.
    e.teta = 0.0F;
    EXPECT_ANY_THROW(SegmentsEPAC(e));
}

TEST(MagasinEPAC, LaListeRevientAvecSesTypes) {
    Etude e;
    e.id_protection = ID_EPAC;
    e.id_reglage = 4;
    e.X2_HT = 31.5;
    e.X4reg_HT = 12.25;
    e.Rreg_HT = 44.5F;
    e.Pompage = true;
    e.teta = 71.0F;
    e.ko_reg = 0.66;
    e.T3 = 800;
    e.EPAC.BandeX = 4.4F;
    e.Acceleration = true;
    e.Is = 5.0F;
    MagasinMemoire m;
    const Etude relue = AllerRetour(e, m, 29);
    EXPECT_EQ(std::get<float>(m.LireValeur(4, 8)), 44.5F);
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 10)), -1);
    EXPECT_EQ(relue.X2_HT, 31.5);
    EXPECT_EQ(relue.X4reg_HT, 12.25);
    EXPECT_TRUE(relue.Pompage);
    EXPECT_FLOAT_EQ(relue.teta, 71.0F);
    EXPECT_EQ(relue.ko_reg, 0.66);
    EXPECT_EQ(relue.T3, 800);
    EXPECT_FLOAT_EQ(relue.EPAC.BandeX, 4.4F);
    EXPECT_TRUE(relue.Acceleration);
    EXPECT_EQ(relue.Is, 5.0F);
}

TEST_F(PanneauDeLEPAC, LesSaisiesSontRameneesAuxPasDuRelais) {
    Panneau(true);
    ASSERT_EQ(e.ErrCalcul, 0);
    Saisir("txtX1_bt", "3.459");
    EXPECT_EQ(p->Trouver("txtX1reg_BT")->Texte(), "3.45");
    EXPECT_NEAR(e.X1reg_HT, 3.45 * e.Kz, 1e-9);
    EXPECT_EQ(p->Trouver("txtX1_HT")->Texte(), FormaterNombre(3.459 * e.Kz, "###0.00"));
    Saisir("txtX4_bt", "75");
    EXPECT_EQ(p->Trouver("txtX4_bt")->Texte(), "50.000");
    EXPECT_EQ(p->Trouver("txtX4reg_BT")->Texte(), "50.00");
    Saisir("Txtrd_bt", "12.37");
    EXPECT_EQ(p->Trouver("txtrreg_BT")->Texte(), "12.30");
    Saisir("Txtteta", "95");
    EXPECT_EQ(p->Trouver("Txtteta")->Texte(), "89");
    Saisir("txtt2", "257");
    EXPECT_EQ(p->Trouver("txtt2")->Texte(), "250");
}

TEST_F(PanneauDeLEPAC, LeHorsPompageSuitLaCaseEtOkCadreLePlan) {
    Panneau(true);
    ASSERT_TRUE(p->Trouver("chkPompage")->Valeur);
    EXPECT_GT(e.EPAC.BandeX, 0.0F);
    p->Trouver("chkPompage")->Valeur = false;
    p->Cliquer("chkPompage");
    EXPECT_FALSE(e.Pompage);
    EXPECT_EQ(e.EPAC.BandeX, 0.0F);
    p->ValiderBouton();
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_NEAR(e.ScaleTop, DemiLargeurEPAC(e), 1e-4);
}

TEST_F(PanneauDeLEPAC, UneLiaisonDeCentraleAvertitAChaqueFeuille) {
    e.Ligne_alim = 1;
    Panneau(true);
    p->ChoixOnglet(1);
    int avis = 0;
    for (const MessageAffiche& m : d.Messages())
        avis += m.sMessage ==
                "Attention, the case of the plant - substation links is not studied for the EPAC.";
    EXPECT_EQ(avis, 2);
}

} // namespace
