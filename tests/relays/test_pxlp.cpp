// The PXLP, worked out by hand: its rules of the setting guide (35 to 43), its characteristic
// and plane, its stored list, and its panel on the example line.
#include "EtudeRelais.h"
#include "relays/FamillePXL.h"
#include "relays/pxlp/CalculPXLP.h"
#include "relays/pxlp/PanneauPXLP.h"

using namespace tournesol;

namespace {

// Settings that agree with the guide: zones of 16, 24, 30, 30 and 10 ohms, a band of 2, Rmoc 4,
// a line angle whose tangent is 2.
Etude Conforme() {
    Etude e;
    e.Kz = 1.0;
    e.XL_eq = 20.0;
    e.PHI_eq = std::atan(2.0);
    e.Ligne_lc = true;
    e.Ligne_XAV = 40.0F; // forward limit 0.8 x 40 + 0.9 x 20 = 50
    e.Ligne_XAM = 40.0F; // backward limit 32
    e.Ligne_X1PB = 10.0F;
    e.PXLP.XPct = {80.0, 120.0, 150.0, 150.0, 50.0};
    e.PXLP.deltaR_HT = 2.0;
    e.PXLP.Rmoc_HT = 4.0;
    return e;
}

TEST(DiagnosticsPXLP, ChaqueRegleSePoseEtSEfface) {
    const std::vector<CasRegles> cas{
        // Third zone under 1.2 times the second.
        {{35}, [](Etude& e) { e.PXLP.XPct[2] = 110.0; }, 28.8},
        // Third zone alone beyond the remote transformers.
        {{36}, [](Etude& e) { e.PXLP.XPct[2] = 230.0; }, 50.0 / 1.15},
        // Every forward reach beyond them.
        {{36, 37, 38, 42}, [](Etude& e) { e.Ligne_XAV = 5.0F; }, 22.0 / 1.15},
        // Forward out of step alone: the forward corner reaches 1.15 x hypot(19, 30) x sin(phi)
        // = 36.53; a limit of 36.7 leaves it, and catches only the pick-up widened by the band
        // (1.15 x 32 = 36.8).
        {{38}, [](Etude& e) { e.Ligne_XAV = 23.375F; }, 36.7 / 1.15},
        // Every backward reach beyond the close transformers.
        {{39, 40, 43}, [](Etude& e) { e.Ligne_XAM = 10.0F; }, 8.0 / 1.15},
        // The remote first zone beyond the backward zone.
        {{41}, [](Etude& e) { e.Ligne_X1PB = 30.0F; }, 39.0 - 21.2},
        // The backward corner alone: with Rmoc 30 it reaches 1.15 x hypot(35, 10) x sin(phi) =
        // 37.4 > 32, the forward one 55.6, under a forward limit pushed to 98.
        {{43},
         [](Etude& e) {
             e.PXLP.Rmoc_HT = 30.0;
             e.Ligne_XAV = 100.0F;
         },
         32.0 / 1.15},
        // Both corners with a wide resistance.
        {{42, 43}, [](Etude& e) { e.PXLP.Rmoc_HT = 40.0; }, 50.0 / 1.15},
    };
    ReglesPoseesEtEffacees(Conforme, CalculDiagPXLP, 35, 43, cas, 1e-5);
    // The coordination with the remote relay is a long line's only.
    Etude courte = Conforme();
    courte.Ligne_lc = false;
    courte.Ligne_X1PB = 30.0F;
    CalculDiagPXLP(courte);
    EXPECT_FALSE(RegleActive(courte, 41));
    // Only the PXLP's block is written.
    Etude autre = Conforme();
    PoserRegle(autre, 44, 1.0);
    CalculDiagPXLP(autre);
    EXPECT_TRUE(RegleActive(autre, 44));
}

TEST(CaracteristiquePXLP, ParallelogrammesZonesEtPlan) {
    Etude e = Conforme();
    e.PXLP.Rmoc_HT = 10.0;
    e.Vmin = 100.0;
    e.CRcourant = 1.0;
    e.It = 1000.0; // load impedance 100 ohms
    CalculDiagPXLP(e);
    EXPECT_DOUBLE_EQ(e.PXLP.ZonesHT[3], 30.0);
    const RelaisPXLP& r = e.PXLP;
    const std::vector<SegmentImage> s = SegmentsPXL(e, r.Rmoc_HT, r.deltaR_HT, r.ZonesHT);
    ASSERT_EQ(s.size(), 12u);
    // The pick-up: from (10 - 10 / 2, -10) to (10 + 30 / 2, 30).
    EXPECT_TRUE(Au(s[1].A, 5.0, -10.0));
    EXPECT_TRUE(Au(s[1].B, 25.0, 30.0));
    // The out of step, 2 ohms wider on every side: (12 + 32 / 2, 32).
    EXPECT_TRUE(Au(s[5].B, 28.0, 32.0));
    // Zone 1 at 16 ohms, dashed, from -10 + 8 to 10 + 8.
    EXPECT_NEAR(s[9].A.Re, -2.0, 1e-9);
    EXPECT_NEAR(s[9].B.Re, 18.0, 1e-9);
    EXPECT_EQ(s[9].Style, 2);
    // The plane on OK: 1.2 times the forward reach (36) against 1.2 Rmoc.
    EXPECT_NEAR(DemiLargeurPXLP(e), 36.0, 1e-9);
    e.PXLP.Rmoc_HT = 50.0;
    EXPECT_NEAR(DemiLargeurPXLP(e), 60.0, 1e-9);
    // A flat line angle cannot be drawn: the failure is told, not drawn at infinity.
    e.PHI_eq = 0.0;
    EXPECT_EQ(ExecuterEtape([&] { SegmentsPXL(e, 1.0, 1.0, r.ZonesHT); }), ERR_DIVISION);
}

TEST(MagasinPXLP, LaListeRevientAvecSesTypes) {
    Etude e;
    e.id_protection = ID_PXLP;
    e.id_reglage = 4;
    e.Kz = 2.0;
    e.XL_eq = 30.0;
    e.PXLP.deltaR_BT = 4.5;
    e.PXLP.ZonesBloquees = 3;
    e.PXLP.XPct = {80.0, 120.0, 150.0, 150.0, 60.0};
    e.T2 = 250;
    e.PXLP.Maitre = true;
    e.PXLP.Signal = 1;
    e.Is = 5.0F;
    MagasinMemoire m;
    const Etude relue = AllerRetour(e, m, 34);
    EXPECT_EQ(std::get<double>(m.LireValeur(4, 0)), 4.5);
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 3)), 3);
    EXPECT_EQ(std::get<double>(m.LireValeur(4, 16)), 60.0); // the backward reach
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 19)), 250);
    EXPECT_EQ(std::get<float>(m.LireValeur(4, 33)), 5.0F); // Is, last

    EXPECT_EQ(relue.PXLP.ZonesBloquees, 3);
    EXPECT_EQ(relue.T2, 250);
    EXPECT_TRUE(relue.PXLP.Maitre);
    EXPECT_EQ(relue.PXLP.Signal, 1);
    EXPECT_DOUBLE_EQ(relue.PXLP.ZonesHT[4], 18.0);
    EXPECT_DOUBLE_EQ(relue.PXLP.ZonesBT[4], 9.0);
}

// The panel on the example line.
struct PanneauDuPXLP : EtudeEtPanneau<PanneauPXLP, DialogueScripte> {
    PanneauDuPXLP() { Charger("champagnier-grande-ile-225kV-pxlp.json"); }
};

TEST_F(PanneauDuPXLP, LeRetourCalculeLaFamilleEtLesChampsSontBornes) {
    ASSERT_EQ(e.ErrCalcul, 0);
    Panneau(true);
    ASSERT_EQ(e.ErrCalcul, 0);
    const RelaisPXLP& r = e.PXLP;
    // The family's defaults and rules: the band from the slip, Rmor twice Rmoc within 200.
    EXPECT_EQ(r.deltaF, 2.0);
    EXPECT_EQ(r.ZonesBloquees, 2);
    EXPECT_EQ(r.Td, 50.0);
    EXPECT_GT(r.Rmoc_BT, 0.0);
    EXPECT_EQ(r.Rmor_BT, std::min(2.0 * r.Rmoc_BT, 200.0));
    EXPECT_DOUBLE_EQ(r.ZonesHT[0], r.XPct[0] / 100.0 * e.XL_eq);
    // Five sheets, no rated current error: the PXLP takes 1 A and 5 A.
    EXPECT_EQ(p->Trouver("txtInerr"), nullptr);
    // A band below 0.2 becomes 0.2; the resistances follow and the remark comes up.
    EXPECT_FALSE(p->Trouver("lblRemarque")->Visible);
    Saisir("txt_deltar", "0,1");
    EXPECT_DOUBLE_EQ(r.deltaR_BT, 0.2);
    EXPECT_TRUE(p->Trouver("lblRemarque")->Visible);
    EXPECT_EQ(p->Trouver("lbl_Rmoc_HT")->Texte(),
              "(" + p->Trouver("txt_Rmoc_HT")->Texte() + " ohm HT)");
    // A resistance beyond 200 takes 200.
    Saisir("txt_rmor_bt", "240");
    EXPECT_EQ(r.Rmor_BT, 200.0);
    // The first zone's percentage gives R/X at once.
    Saisir("txtX(0)", "50");
    EXPECT_NEAR(r.RsurX, r.Rmoc_HT / (0.5 * e.XL_eq), 1e-12);
}

} // namespace
