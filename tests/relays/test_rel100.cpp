// The REL 100, worked out by hand: the reaches taken to steps that follow the rated current, in
// the direction each zone needs; the corners of the quadrilateral and of the out-of-step zone;
// each rule of the setting guide set and cleared; the load on a customer link; the stored list;
// the settings page; the panel.
#include "EtudeRelais.h"
#include "network/Transit.h"
#include "relays/rel100/CalculREL100.h"
#include "relays/rel100/PanneauREL100.h"
#include "relays/rel100/TraceREL100.h"

using namespace tournesol;

namespace {

TEST(PasREL100, LesReactancesEtLaResistanceSuiventLeCourantNominal) {
    Etude e;
    e.Is = 5.0F; // steps of 0.01 ohm, reactances within 0.04 and 30
    e.Kz = 2.0;
    e.X1_BT = 2.437;
    e.X2_BT = 2.431;
    e.X3_BT = 40.0;
    e.X4_BT = 0.01;
    ArrondirZonesREL100(e);
    EXPECT_NEAR(e.X1reg_BT, 2.43, 1e-12); // the first zone never overreaches
    EXPECT_NEAR(e.X2reg_BT, 2.44, 1e-12);
    EXPECT_NEAR(e.X3reg_BT, 30.0, 1e-12);
    EXPECT_EQ(e.X3_BT, 30.0); // the desired value holds the limit
    EXPECT_NEAR(e.X3_HT, 60.0, 1e-12);
    EXPECT_NEAR(e.X4reg_BT, 0.04, 1e-12);
    EXPECT_NEAR(e.X2reg_HT, 4.88, 1e-12);
    // A value on a step stays there, up or down.
    e.X2_BT = 2.45;
    ArrondirZonesREL100(e);
    EXPECT_NEAR(e.X2reg_BT, 2.45, 1e-12);

    // At 1 A the resistance goes by tenths, down, clear of the load.
    e.Is = 1.0F;
    e.X1_BT = 12.0;
    ArrondirZonesREL100(e);
    e.R_BT = 37.77;
    ArrondirResistanceREL100(e);
    EXPECT_NEAR(e.Rreg_BT, 37.7, 1e-5);
    EXPECT_NEAR(e.Rreg_HT, 75.4, 1e-4);
    EXPECT_NEAR(e.REL100.RsurX, 37.7 / 12.0, 1e-5);
    e.R_BT = 0.1;
    ArrondirResistanceREL100(e);
    EXPECT_NEAR(e.Rreg_BT, 0.5, 1e-6);
}

TEST(CaracteristiqueREL100, QuadrilatereZonePompageDirectionnelEtZones) {
    const double t = std::tan(DegToRad(60.0));
    const auto q = Quadrilatere(10.0, 40.0, 15.0, DegToRad(60.0));
    EXPECT_TRUE(Au(q[0], 10.0 - 15.0 / t, -15.0));
    EXPECT_TRUE(Au(q[1], 10.0 + 40.0 / t, 40.0));
    EXPECT_TRUE(Au(q[2], -10.0 + 40.0 / t, 40.0));
    EXPECT_TRUE(Au(q[3], -10.0 - 15.0 / t, -15.0));

    Etude e;
    e.teta = 60.0F;
    e.Rreg_HT = 10.0F;
    e.X1reg_HT = 20.0;
    e.X2reg_HT = 30.0;
    e.X3reg_HT = 40.0;
    e.X4reg_HT = 15.0;
    e.CouleurTriphase = 1;
    e.CouleurAntipompage = 2;
    e.CouleurDirectionnel = 3;
    e.CouleurZones = 4;
    const auto s = SegmentsREL100(e);
    ASSERT_EQ(s.size(), 11u);
    EXPECT_NEAR(s[1].A.Re, 10.0 + 40.0 / t, 1e-6);
    EXPECT_EQ(s[0].Couleur, 1);
    // The out-of-step zone: every corner 1.25 times further from the origin.
    EXPECT_EQ(s[4].Couleur, 2);
    EXPECT_NEAR(s[5].A.Re, 1.25 * (10.0 + 40.0 / t), 1e-6);
    EXPECT_NEAR(s[5].A.Im, 50.0, 1e-9);
    EXPECT_NEAR(s[7].B.Im, -18.75, 1e-9);
    // The directional line: square to the sides, touching them, 10 sin 60 from the origin.
    EXPECT_EQ(s[8].Couleur, 3);
    EXPECT_NEAR(std::hypot(s[8].A.Re, s[8].A.Im), 10.0 * std::sin(DegToRad(60.0)), 1e-6);
    EXPECT_NEAR(s[8].A.Re + s[8].B.Re, 0.0, 1e-9);
    // The second zone across the pick-up at 30.
    EXPECT_EQ(s[10].Couleur, 4);
    EXPECT_EQ(s[10].Style, 2);
    EXPECT_NEAR(s[10].A.Re, -10.0 + 30.0 / t, 1e-6);
    EXPECT_NEAR(s[10].B.Re, 10.0 + 30.0 / t, 1e-6);
    EXPECT_NEAR(s[10].B.Im, 30.0, 1e-9);
}

// Kz 2; XAV 20, XL_eq 10: Rf = 25; XAM 10: Rb = 8; X1PB 12: T = 15.6 - 10.6 = 5.
Etude EtudeDesRegles() {
    Etude e;
    e.id_protection = ID_REL100;
    e.Kz = 2.0;
    e.Ligne_XAV = 20.0;
    e.XL_eq = 10.0;
    e.Ligne_XAM = 10.0;
    e.Ligne_X1PB = 12.0;
    e.Ligne_lc = true;
    return e;
}

TEST(DiagnosticsREL100, ChaqueRegleSePoseEtSEfface) {
    Etude e = EtudeDesRegles();
    // X3 5.5 below 1.2 X2 = 6: rule 57 at 12 primary; the backward Kz X4 = 4 below T = 5.
    e.X2reg_BT = 5.0;
    e.X3reg_BT = 5.5;
    e.X4reg_BT = 2.0;
    CalculDiagREL100(e);
    Regles(e, 57, 62, {57, 62});
    EXPECT_NEAR(ValeurRegle(e, 57), 12.0, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 62), 5.0, 1e-12);
    // X3 9: 1.15 x 18 = 20.7 clears Rf, its out-of-step 1.25 x 20.7 = 25.875 does not; X4 3:
    // 6.9 clears Rb = 8, 8.625 does not; Kz X4 = 6 clears T.
    e.X2reg_BT = 4.0;
    e.X3reg_BT = 9.0;
    e.X4reg_BT = 3.0;
    CalculDiagREL100(e);
    Regles(e, 57, 62, {59, 61});
    EXPECT_NEAR(ValeurRegle(e, 59), 25.0 / 1.15, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 61), 8.0 / 1.15, 1e-12);
    // X3 11: 25.3 over Rf; X4 4: 9.2 over Rb.
    e.X3reg_BT = 11.0;
    e.X4reg_BT = 4.0;
    CalculDiagREL100(e);
    Regles(e, 57, 62, {58, 59, 60, 61});
    EXPECT_NEAR(ValeurRegle(e, 58), 25.0 / 1.15, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 60), 8.0 / 1.15, 1e-12);
    // Within every margin, and a short line asks nothing of the backward reach.
    e.X3reg_BT = 5.0;
    e.X4reg_BT = 1.0;
    e.Ligne_lc = false;
    CalculDiagREL100(e);
    Regles(e, 57, 62, {});
    EXPECT_TRUE(ReglesRapport(e).empty());
}

// An example line opened as the working window opens it, with the REL 100 in mode "Return", and
// its panel.
struct EtudeREL100 : EtudeEtPanneau<PanneauREL100> {
    void Ouvrir(const char* fichier) { Charger(fichier, ID_REL100); }
};
using PanneauDuREL100 = EtudeREL100;

TEST_F(EtudeREL100, UneLigneMailleeGardeLaZoneDePompageHorsDeLaCharge) {
    Ouvrir("pontcharra-vallon-90kV-rel100.json");
    e.TypeReportCharge = 1;
    const Complexes9 points = e.PointsTransit;
    CalculZonesREL100(e);
    CalculResistanceREL100(e, d);
    // Given back, and the load points with it: the other cases leave nothing behind.
    EXPECT_EQ(e.TypeReportCharge, 1);
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_EQ(e.PointsTransit[i].Re, points[i].Re) << i;
        EXPECT_EQ(e.PointsTransit[i].Im, points[i].Im) << i;
    }
    EXPECT_NEAR(e.X1_HT, e.Ligne_Xprim1, 1e-9);
    EXPECT_NEAR(e.X4_HT, e.Ligne_Xprim3 - e.XL_eq, 1e-9);
    // 1.25 times the resistance stays within the nearest load of the three cases.
    const double d3 = DistanceChargeQuadrilatere(e, d, 1.25 * e.X3reg_HT);
    EXPECT_NEAR(e.R_HT * 1.25, d3, 1e-6);
    EXPECT_LE(e.Rreg_HT, e.R_HT + 1e-6);
    EXPECT_GT(e.Rreg_HT, e.R_HT - 0.02 * e.Kz - 1e-6);
    // The line's angle to the nearest 5 degrees, the earth factor to the nearest 0.05.
    EXPECT_EQ(static_cast<int>(e.teta) % 5, 0);
    EXPECT_LE(std::fabs(e.teta - RadToDeg(e.PHI_eq)), 2.5);
    EXPECT_LE(std::fabs(e.ko_reg - e.ko_eq), 0.025 + 1e-12);
}

TEST_F(EtudeREL100, UneLiaisonClienteTropChargeeEstSignalee) {
    Ouvrir("saint-marcel-papeteries-63kV-client.json");
    TransitCalc(e);
    const double l = e.PointsTransit[0].Module * 0.9 / 1.1;
    // The out-of-step top at 0.4 l: the side through the point of the load circle at that height.
    const double attendu = std::sqrt(0.84) * l - 0.4 * l / std::tan(e.PHI_eq);
    EXPECT_NEAR(DistanceChargeQuadrilatere(e, d, 0.4 * l), attendu, 1e-9);
    EXPECT_TRUE(d.Messages().empty());
    DistanceChargeQuadrilatere(e, d, 1.2 * l);
    ASSERT_EQ(d.Messages().size(), 1u);
    EXPECT_EQ(d.Messages()[0].sMessage, DONNEES_INCOMPATIBLES_REL100);
}

TEST(MagasinREL100, LaListeRevientAvecSesTypesEtSesPositions) {
    Etude e;
    e.id_protection = ID_REL100;
    e.id_reglage = 6;
    e.X3_HT = 41.5;
    e.X4reg_HT = 12.25;
    e.teta = 75.0F;
    e.ko_reg = 0.65;
    e.T2 = 250;
    e.Verrouillage = true;
    e.Is = 5.0F;
    MagasinMemoire m;
    const Etude relue = AllerRetour(e, m, 23);
    EXPECT_EQ(std::get<double>(m.LireValeur(6, 2)), 41.5);
    EXPECT_EQ(std::get<float>(m.LireValeur(6, 10)), 75.0F);
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(6, 14)), 250);
    EXPECT_EQ(std::get<float>(m.LireValeur(6, 22)), 5.0F);
    EXPECT_EQ(relue.X3_HT, 41.5);
    EXPECT_EQ(relue.X4reg_HT, 12.25);
    EXPECT_EQ(relue.teta, 75.0F);
    EXPECT_EQ(relue.ko_reg, 0.65);
    EXPECT_EQ(relue.T2, 250);
    EXPECT_TRUE(relue.Verrouillage);
    EXPECT_EQ(relue.Is, 5.0F);
}

TEST(PageREL100, LesReglagesEnSecondaireEtEnPrimaire) {
    Etude e;
    RemplirEtudeImprimee(e);
    e.id_protection = ID_REL100;
    e.X3reg_BT = 8.0;
    e.X3reg_HT = 18.0;
    e.Rreg_BT = 6.5F;
    e.Rreg_HT = 14.625F;
    e.teta = 75.0F;
    e.T3 = 600;
    e.Teleaction = true;
    e.Acceleration = false;
    const std::string tout = TexteImprime(e);
    for (const char* attendu :
         {"Forward pick up reactance : X3\t8.00 Ω/ph\t18.00 Ω",
          "Pick up resistance : R\t6.50 Ω/ph\t14.63 Ω",
          "External out of step zone, forward (1.25 X3)\t10.00 Ω/ph\t22.50 Ω",
          "Characteristic angle\t75 °", "Forward pick up: T3\t600 ms", "blocking overreach"})
        EXPECT_NE(tout.find(attendu), std::string::npos) << attendu << "\n" << tout;
}

TEST_F(PanneauDuREL100, LesSaisiesVontAuxPasEtLesReglesSuivent) {
    Ouvrir("pontcharra-vallon-90kV-rel100.json");
    Panneau(false);
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_EQ(p->Nom(), "frmREL100");
    EXPECT_EQ(p->Onglets(), (std::vector<std::string>{"&Zones", "&Resistance", "&Timers"}));
    // Is 5 A: steps of 0.01, the field's own decimals; a desired third zone typed at 3.336 is
    // read as 3.34 and set there, its primary image beside it.
    Saisir("txtX3_bt", "3.336");
    EXPECT_NEAR(e.X3reg_BT, 3.34, 1e-9);
    EXPECT_EQ(p->Trouver("txtX3reg_BT")->Texte(), "3.34");
    EXPECT_NEAR(e.X3reg_HT, 3.34 * e.Kz, 1e-9);
    // A second zone above it: rule 57 at once.
    Saisir("txtX2_bt", "3.2");
    EXPECT_TRUE(RegleActive(e, 57));
    EXPECT_NEAR(ValeurRegle(e, 57), 1.2 * 3.2 * e.Kz, 1e-9);
    Saisir("txtteta", "63");
    EXPECT_EQ(e.teta, 65.0F);
    Saisir("txtt2", "257");
    EXPECT_EQ(e.T2, 250);
    Saisir("txtR_bt", "500");
    EXPECT_NEAR(e.Rreg_BT, 30.0, 1e-5);
}

TEST_F(PanneauDuREL100, OkCadreLePlanSurLaZoneDePompage) {
    Ouvrir("pontcharra-vallon-90kV-rel100.json");
    Panneau(true);
    ASSERT_EQ(e.ErrCalcul, 0);
    p->ValiderBouton();
    ASSERT_EQ(e.ErrCalcul, 0);
    const double l = 1.5 * std::max({e.X3reg_HT, e.X4reg_HT, double{e.Rreg_HT}});
    EXPECT_NEAR(e.ScaleTop, l, 1e-3);
    EXPECT_NEAR(e.ScaleLeft, -l, 1e-3);
}

} // namespace
