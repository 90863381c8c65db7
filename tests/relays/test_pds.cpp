// The PDS worked out by hand: its plugs (basic range and percentage) and their
// rounding, the offset of the starting circle, the angle and earth factor
// steps, the circle kept clear of the load, the rules of the setting guide, the
// circle and its chords on the plane, the stored list and the panel on the
// three-ended example line.
#include "EtudeRelais.h"
#include "network/Transit.h"
#include "relays/pd3a/CalculPD3A.h"
#include "relays/pds/CalculPDS.h"
#include "relays/pds/PanneauPDS.h"
#include "relays/pds/TracePDS.h"

using namespace tournesol;

namespace {

TEST(PrisesPDS, LaPlusPetiteGammeEtLePourcentage) {
    struct Cas {
        double x, facteur; // the reach, and 1 at 5 A or 5 at 1 A
        bool dessous;      // rounded down, or up
        double limitee, base;
        int pct;
        double reglage;
    };
    const Cas cas[] = {
        // 5 A: ranges 1, 2, 4, 8, 16, 32 ohms.
        {3.03, 1.0, true, 3.03, 4.0, 75, 3.0},
        {3.03, 1.0, false, 3.03, 4.0, 76, 3.04},
        // A reach equal to a range is its whole range, not the next one at half.
        {4.0, 1.0, true, 4.0, 4.0, 100, 4.0},
        // Beyond the relay's range: 40 % of the first range, the whole of the last.
        {0.1, 1.0, true, 0.4, 1.0, 40, 0.4},
        {40.0, 1.0, false, 32.0, 32.0, 100, 32.0},
        // 1 A: five times higher.
        {12.3, 5.0, true, 12.3, 20.0, 61, 12.2},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(testing::Message() << c.x << (c.dessous ? " down" : " up"));
        double x = c.x;
        const Prise p = PrisePDS(x, c.facteur, c.dessous);
        EXPECT_EQ(x, c.limitee);
        EXPECT_EQ(p.Base, c.base);
        EXPECT_EQ(p.Pct, c.pct);
        EXPECT_NEAR(p.Reglage(), c.reglage, 1e-12);
    }
    // A reach that is no number is a computation failure.
    double x = std::nan("");
    EXPECT_ANY_THROW(PrisePDS(x, 1.0, true));
}

TEST(PrisesPDS, ZonesCercleAngleEtTemporisations) {
    Etude e;
    e.Is = 5.0F;
    e.Kz = 2.0;
    e.X1_BT = 3.03;
    e.X2_BT = 3.03;
    ArrondirZonesPDS(e);
    EXPECT_NEAR(e.X1reg_BT, 3.0, 1e-12);  // down
    EXPECT_NEAR(e.X2reg_BT, 3.04, 1e-12); // up
    EXPECT_NEAR(e.X2reg_HT, 6.08, 1e-12);
    EXPECT_EQ(e.PDS.PctX1, 75);
    EXPECT_EQ(e.PDS.BaseX2, 4.0);

    // The circle: 6.1 ohms forward on the range of 8 at 76 %, the offset up to 20
    // %.
    e.X3_BT = 6.1;
    e.X4_BT = 1.0;
    ArrondirDemarragePDS(e);
    EXPECT_NEAR(e.X3reg_BT, 6.08, 1e-12);
    EXPECT_EQ(e.PDS.Decalage, 20);
    EXPECT_NEAR(e.X4reg_BT, 1.216, 1e-12);
    EXPECT_NEAR(e.X4reg_HT, 2.432, 1e-12);
    // At most half the forward reach; a negative one is no offset.
    e.X4_BT = 5.0;
    ArrondirDemarragePDS(e);
    EXPECT_EQ(e.PDS.Decalage, 50);
    e.X4_BT = -1.0;
    ArrondirDemarragePDS(e);
    EXPECT_EQ(e.PDS.Decalage, 0);
    EXPECT_EQ(e.X4reg_BT, 0.0);

    // Angle by 5 degrees from 60 to 85, earth factor by tenths up to 1.5.
    e.PanneauRelais = true;
    e.PHI_eq = DegToRad(72.4);
    e.ko_eq = 0.644;
    AngleEtTerrePDS(e);
    EXPECT_FLOAT_EQ(e.teta, 70.0F);
    EXPECT_NEAR(e.ko_reg, 0.6, 1e-12);
    e.PHI_eq = DegToRad(88.0);
    e.ko_eq = 2.0;
    AngleEtTerrePDS(e);
    EXPECT_FLOAT_EQ(e.teta, 85.0F);
    EXPECT_EQ(e.ko_reg, 1.5);
    e.PanneauRelais = false;
    e.teta = 52.0F;
    AngleEtTerrePDS(e);
    EXPECT_FLOAT_EQ(e.teta, 60.0F);

    e.T2 = 349;
    e.T3 = 351;
    e.T4 = 12000;
    TemporisationsPDS(e);
    EXPECT_EQ(e.T2, 300);
    EXPECT_EQ(e.T3, 400);
    EXPECT_EQ(e.T4, 9900);
}

// The three-ended example line computed as the working window opens it, and the PDS's panel.
struct EtudePDS : EtudeEtPanneau<PanneauPDS> {
    EtudePDS() { Charger("beaurepaire-montmeyran-laroche-90kV-3bouts.json"); }
};
using PanneauDuPDS = EtudePDS;

// The circle through a forward and a backward reach along teta leaves every
// load point of the case in force, with its margin, outside or on it.
double EcartMinimal(const Etude& e, double avant, double arriere) {
    const auto points = PointsTransitTires(e);
    const double teta = DegToRad(e.teta);
    const Complexe c = Polar((avant - arriere) / 2.0, teta);
    const double r = (avant + arriere) / 2.0;
    double ecart = 1e300;
    for (std::size_t k = 0; k < 6; ++k) {
        const Complexe p = Polar(points[k].Module * 0.9 / 1.1, points[k].Argument);
        ecart = std::min(ecart, std::hypot(p.Re - c.Re, p.Im - c.Im) - r);
    }
    return ecart;
}

TEST_F(EtudePDS, LeCercleResteHorsDeLaCharge) {
    ASSERT_EQ(e.ErrCalcul, 0);
    e.PanneauRelais = true;
    e.teta = 70.0F;
    const double zar = 3.0;
    const double a = PorteeTransitPDS(e, zar);
    ASSERT_TRUE(std::isfinite(a));
    // The largest reach touches the nearest point: a little more takes it in.
    EXPECT_NEAR(EcartMinimal(e, a, zar), 0.0, 1e-9);
    EXPECT_LT(EcartMinimal(e, a * 1.01, zar), 0.0);

    CalculDemarragePDS(e, d);
    EXPECT_EQ(e.TypeReportCharge, 1);
    const double s = std::sin(e.PHI_eq);
    EXPECT_NEAR(e.X4_HT, std::max((e.Ligne_Xprim3 - e.XL_eq) / s, 0.0), 1e-9);
    EXPECT_LE(e.X3_HT, e.Ligne_Xprim3 / s + 1e-9);
    EXPECT_LE(e.X3_HT, e.PDS.ZavCharge + 1e-9);
    // The set forward reach rounds down: still clear of the load in the case in
    // force.
    EXPECT_LE(e.X3reg_HT, e.X3_HT + 1e-9);
    EXPECT_EQ(e.X3_commun, e.X3_HT);

    // A plant link takes no limit from the load.
    e.Ligne_alim = 1;
    CalculDemarragePDS(e, d);
    EXPECT_NEAR(e.X3_HT, e.Ligne_Xprim3 / s, 1e-9);
}

TEST_F(EtudePDS, UneLiaisonClienteTropChargeeEstSignalee) {
    e.PanneauRelais = true;
    e.Ligne_alim = 3;
    e.Ligne_itclient = 3000.0;
    e.TypeReportCharge = 2;
    e.It = 3000.0;
    e.Ligne_Xprim3 = 200.0;
    CalculDemarragePDS(e, d);
    ASSERT_FALSE(d.Messages().empty());
    EXPECT_EQ(d.Messages().back().sMessage, DONNEES_INCOMPATIBLES);
}

Etude Conforme() {
    Etude e;
    e.PHI_eq = DegToRad(90.0); // S = 1: the reaches as they stand
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

TEST(DiagnosticsPDS, ChaqueRegleSePoseEtSEfface) {
    const std::vector<CasRegles> cas{
        {{22}, [](Etude& e) { e.X3reg_HT = 11.9; }, 12.0},
        {{23}, [](Etude& e) { e.X3reg_HT = 44.0; }, 50.0 / 1.15},
        {{24}, [](Etude& e) { e.Ligne_XAM = 4.0; }, 3.2 / 1.15},
        {{25}, [](Etude& e) { e.Ligne_X1PB = 25.0F; }, 32.5 - 21.2},
    };
    ReglesPoseesEtEffacees(Conforme, CalculDiagPDS, 22, 25, cas, 1e-6);
    // The circle's reaches lie along its angle: at 30 degrees of line, half of a
    // forward reach of 46 is 23, short of the forward limit.
    Etude e = Conforme();
    e.PHI_eq = DegToRad(30.0);
    e.X3reg_HT = 46.0;
    CalculDiagPDS(e);
    EXPECT_FALSE(RegleActive(e, 23));
    EXPECT_FALSE(RegleActive(e, 22));
    // The coordination with the remote relay holds on a long line only.
    e = Conforme();
    e.Ligne_lc = false;
    e.Ligne_X1PB = 25.0F;
    CalculDiagPDS(e);
    EXPECT_FALSE(RegleActive(e, 25));
}

TEST(CaracteristiquePDS, CercleDecaleEtCordesDesZones) {
    Etude e;
    e.teta = 90.0F;
    e.X1reg_HT = 8.0;
    e.X2reg_HT = 30.0; // beyond the circle
    e.X3reg_HT = 20.0;
    e.X4reg_HT = 4.0;
    e.Ligne_CRt = 1.0;
    e.Vmin = 100.0;
    e.It = 1000.0;
    e.PHI_eq = DegToRad(80.0);
    e.TypeReportCharge = 0;
    e.CouleurTriphase = 0x00FF00;
    e.CouleurMonophase = 0xFF0000;
    FigurePDS f = FigureDuPDS(e);
    ASSERT_EQ(f.Arcs.size(), 1u);
    ASSERT_EQ(f.Segments.size(), 3u);
    // Centre at 8 along the angle, radius 12: through 20 forward and 4 backward.
    EXPECT_TRUE(Au(f.Arcs[0].Centre, 0.0, 8.0));
    EXPECT_NEAR(f.Arcs[0].Debut.Im, 20.0, 1e-9);
    EXPECT_EQ(f.Arcs[0].Couleur, 0x00FF00);
    // The first zone cuts the circle at its widest: from 12 to -12.
    EXPECT_NEAR(f.Segments[1].A.Re, 12.0, 1e-9);
    EXPECT_NEAR(f.Segments[1].B.Re, -12.0, 1e-9);
    EXPECT_NEAR(f.Segments[1].A.Im, 8.0, 1e-9);
    // The second zone beyond the circle is an empty slot.
    EXPECT_EQ(f.Segments[2].A.Module + f.Segments[2].B.Module, 0.0);
    EXPECT_NEAR(f.Segments[0].A.Module, 100.0, 1e-9);
    e.TypeReportCharge = 1;
    EXPECT_EQ(FigureDuPDS(e).Arcs[0].Couleur, 0xFF0000);
}

TEST(MagasinPDS, LaListeRevientAvecSesTypes) {
    Etude e;
    e.id_protection = ID_PDS;
    e.id_reglage = 5;
    e.X1_HT = 9.5;
    e.X3reg_HT = 41.25;
    e.X4reg_HT = 8.25;
    e.teta = 75.0F;
    e.ko_reg = 0.7;
    e.T3 = 900;
    e.PDS.ZavCharge = 55.5;
    e.Verrouillage = true;
    e.Is = 1.0F;
    MagasinMemoire m;
    const Etude relue = AllerRetour(e, m, 24);
    EXPECT_EQ(relue.X1_HT, 9.5);
    EXPECT_EQ(relue.X3reg_HT, 41.25);
    EXPECT_EQ(relue.X4reg_HT, 8.25);
    EXPECT_FLOAT_EQ(relue.teta, 75.0F);
    EXPECT_EQ(relue.ko_reg, 0.7);
    EXPECT_EQ(relue.T3, 900);
    EXPECT_EQ(relue.PDS.ZavCharge, 55.5);
    EXPECT_TRUE(relue.Verrouillage);
    EXPECT_EQ(relue.Is, 1.0F);
}

TEST_F(PanneauDuPDS, LesSaisiesSontRameneesAuxPrises) {
    Panneau(true);
    ASSERT_EQ(e.ErrCalcul, 0);
    ASSERT_EQ(e.Is, 1.0F); // ranges of 5 to 160 ohms
    Saisir("txtX1_bt", "12.3");
    EXPECT_EQ(p->Trouver("txtBaseX1")->Texte(), "20.0");
    EXPECT_EQ(p->Trouver("txtPctX1")->Texte(), "61");
    EXPECT_EQ(p->Trouver("txtX1reg_BT")->Texte(), "12.20");
    Saisir("txtX3_bt", "30.1");
    EXPECT_EQ(p->Trouver("txtPctZav")->Texte(), "75"); // 30.1 / 40, down
    EXPECT_EQ(p->Trouver("txtX3reg_BT")->Texte(), "30.00");
    Saisir("Txtteta", "62");
    EXPECT_EQ(p->Trouver("Txtteta")->Texte(), "60");
    Saisir("txtt2", "1234");
    EXPECT_EQ(p->Trouver("txtt2")->Texte(), "1200");
    p->ValiderBouton();
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_NEAR(e.ScaleTop, DemiLargeurPDS(e), 1e-4);
}

TEST_F(PanneauDuPDS, UneLiaisonDeCentraleAvertitAChaqueFeuille) {
    e.Ligne_alim = 2;
    Panneau(true);
    p->ChoixOnglet(1);
    p->ChoixOnglet(2);
    int avis = 0;
    for (const MessageAffiche& m : d.Messages())
        avis += m.sMessage == "Attention, the case of the plant - substation links "
                              "is not studied for the PDS.";
    EXPECT_EQ(avis, 3);
}

} // namespace
