// The REZ1, worked out by hand: the reaches and the internal out-of-step reach taken to their
// steps, the resistance and the internal out-of-step resistance; its three quadrilaterals; each
// rule of the setting guide set and cleared on primary reaches; the resistive reach from the load
// area; the stored list; the settings page; the panel.
#include "EtudeRelais.h"
#include "core/Format.h"
#include "relays/rez1/CalculREZ1.h"
#include "relays/rez1/PanneauREZ1.h"
#include "relays/rez1/TraceREZ1.h"

using namespace tournesol;
using namespace std::string_literals;

namespace {

TEST(PasREZ1, ReactancesPompageEtResistance) {
    Etude e;
    e.Is = 1.0F; // steps of 0.1 ohm for the reaches, 0.5 for the resistance
    e.Kz = 2.0;
    e.PanneauRelais = false;
    e.X1_HT = 24.74; // 12.37 secondary
    e.X2_HT = 24.62; // 12.31
    e.X3_HT = 500.0; // 250, beyond the range
    e.X4_HT = 0.1;   // 0.05, below it
    CalculZonesREZ1(e);
    EXPECT_NEAR(e.X1reg_BT, 12.3, 1e-9); // down
    EXPECT_NEAR(e.X2reg_BT, 12.4, 1e-9); // up
    EXPECT_NEAR(e.X3reg_BT, 200.0, 1e-9);
    EXPECT_NEAR(e.X4reg_BT, 0.1, 1e-9);
    EXPECT_NEAR(e.X3_HT, 400.0, 1e-9); // the desired value holds the limit

    // Zpi 1.15 times the larger of X3 and Xar: 1.15 x 30 = 34.5 primary, 17.25 secondary, up to
    // 17.3.
    e.PanneauRelais = true;
    e.X3reg_HT = 30.0;
    e.X4reg_HT = 10.0;
    CalculPompageREZ1(e);
    EXPECT_NEAR(e.REZ1.Zpi_HT, 34.5, 1e-9);
    EXPECT_NEAR(e.REZ1.Zpireg_BT, 17.3, 1e-9);
    EXPECT_NEAR(e.REZ1.Zpireg_HT, 34.6, 1e-9);

    e.R_BT = 10.74;
    ArrondirResistanceREZ1(e);
    EXPECT_NEAR(e.Rreg_BT, 10.5, 1e-6);
    EXPECT_NEAR(e.Rreg_HT, 21.0, 1e-5);
    EXPECT_NEAR(e.REZ1.Rpi_HT, 1.15 * 21.0, 1e-5);
    EXPECT_NEAR(e.REZ1.RsurX, 10.5 / 12.3, 1e-6);

    // At 5 A every step is five times finer.
    e.Is = 5.0F;
    e.R_BT = 10.74;
    ArrondirResistanceREZ1(e);
    EXPECT_NEAR(e.Rreg_BT, 10.7, 1e-5);
}

TEST(CaracteristiqueREZ1, TroisQuadrilateresDirectionnelEtZones) {
    Etude e;
    e.teta = 75.0F;
    e.Rreg_HT = 8.0F;
    e.X1reg_HT = 10.0;
    e.X2reg_HT = 15.0;
    e.X3reg_HT = 20.0;
    e.X4reg_HT = 6.0;
    e.REZ1.Zpireg_HT = 24.0;
    e.REZ1.Rpi_HT = 9.2;
    e.CouleurTriphase = 1;
    e.CouleurAntipompage = 2;
    e.CouleurDirectionnel = 3;
    e.CouleurZones = 4;
    const double t = std::tan(DegToRad(75.0));
    const auto s = SegmentsREZ1(e);
    ASSERT_EQ(s.size(), 15u);
    // The pick-up from its bottom right corner.
    EXPECT_EQ(s[0].Couleur, 1);
    EXPECT_NEAR(s[0].A.Re, 8.0 - 6.0 / t, 1e-6);
    EXPECT_NEAR(s[0].A.Im, -6.0, 1e-9);
    // The internal out-of-step zone, Zpi forward and backward, full lines.
    EXPECT_EQ(s[4].Couleur, 2);
    EXPECT_EQ(s[4].Style, 0);
    EXPECT_NEAR(s[4].A.Re, 9.2 - 24.0 / t, 1e-6);
    EXPECT_NEAR(s[4].A.Im, -24.0, 1e-9);
    EXPECT_NEAR(s[5].A.Im, 24.0, 1e-9);
    // The external one 1.25 times larger, dashed.
    EXPECT_EQ(s[8].Couleur, 2);
    EXPECT_EQ(s[8].Style, 1);
    EXPECT_NEAR(s[9].A.Re, 1.25 * (9.2 + 24.0 / t), 1e-6);
    EXPECT_NEAR(s[9].A.Im, 30.0, 1e-9);
    EXPECT_EQ(s[12].Couleur, 3);
    EXPECT_EQ(s[14].Couleur, 4);
    EXPECT_NEAR(s[14].A.Im, 15.0, 1e-9);
}

// XAV 20, XL_eq 10: Rf = 25; XAM 10: Rb = 8; X1PB 12: T = 15.6 - 10.6 = 5. All primary.
TEST(DiagnosticsREZ1, ChaqueRegleSePoseEtSEfface) {
    Etude e;
    e.id_protection = ID_REZ1;
    e.Kz = 3.0; // the rules read primary reaches: Kz has no part in them
    e.Ligne_XAV = 20.0;
    e.XL_eq = 10.0;
    e.Ligne_XAM = 10.0;
    e.Ligne_X1PB = 12.0;
    e.Ligne_lc = true;
    auto regler = [&](double x2, double x3, double xar, double zpi) {
        e.X2reg_HT = x2;
        e.X3reg_HT = x3;
        e.X4reg_HT = xar;
        e.REZ1.Zpireg_HT = zpi;
        CalculDiagREZ1(e);
    };
    // X3 11 below 1.2 x 10; the external zone 1.4375 x 13 = 18.7 beyond Rb; Xar 4 below T.
    regler(10.0, 11.0, 4.0, 13.0);
    Regles(e, 64, 70, {64, 69, 70});
    EXPECT_NEAR(ValeurRegle(e, 64), 12.0, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 69), 0.9 * 8.0 / 1.1, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 70), 5.0, 1e-12);
    // X3 22: 25.3 beyond Rf; Zpi 20: 28.75 beyond Rf and below 1.15 X3; Xar 7.5: 8.625 beyond Rb.
    regler(10.0, 22.0, 7.5, 20.0);
    Regles(e, 64, 70, {65, 66, 67, 68, 69});
    EXPECT_NEAR(ValeurRegle(e, 65), 0.9 * 25.0 / 1.1, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 66), 0.9 * 25.0 / 1.1, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 67), 0.9 * 20.0 / 1.1, 1e-12);
    EXPECT_NEAR(ValeurRegle(e, 68), 0.9 * 8.0 / 1.1, 1e-12);
    // Within every margin on a short line.
    e.Ligne_lc = false;
    regler(3.0, 4.0, 2.0, 5.0);
    Regles(e, 64, 70, {});
}

// The panel of the REZ1 on its example line, opened in mode "Return".
struct PanneauDuREZ1 : EtudeEtPanneau<PanneauREZ1> {
    PanneauDuREZ1() { Charger("champagnier-grande-ile-225kV-rez1.json", ID_REZ1); }
};

TEST_F(PanneauDuREZ1, LaZoneExterneResteHorsDeLaChargeEtPompageAuDelaDeLaTroisiemeZone) {
    CalculZonesREZ1(e);
    CalculPompageREZ1(e);
    CalculResistanceREZ1(e, d);
    EXPECT_GE(e.REZ1.Zpireg_HT, 1.15 * e.X3reg_HT - 1e-9);
    EXPECT_GE(e.REZ1.Zpireg_HT, 1.15 * e.X4reg_HT - 1e-9);
    const double distance = DistanceChargeQuadrilatere(e, d, 1.25 * e.REZ1.Zpireg_HT);
    EXPECT_NEAR(e.R_HT * 1.25 * 1.15, distance, 1e-6);
    EXPECT_LE(e.Rreg_HT, e.R_HT + 1e-4);
    CalculDiagREZ1(e);
    EXPECT_FALSE(RegleActive(e, 67));
}

TEST(MagasinREZ1, LaListeRevientAvecSesTypesEtSesPositions) {
    Etude e;
    e.id_protection = ID_REZ1;
    e.id_reglage = 8;
    e.REZ1.Zpireg_HT = 44.5;
    e.REZ1.Rpi_HT = 30.25;
    e.X4_HT = 7.0;
    e.teta = 80.0F;
    e.T4 = 1500;
    e.Acceleration = true;
    MagasinMemoire m;
    const Etude relue = AllerRetour(e, m, 26);
    EXPECT_EQ(std::get<double>(m.LireValeur(8, 9)), 44.5);
    EXPECT_EQ(std::get<float>(m.LireValeur(8, 13)), 80.0F);
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(8, 19)), 1500);
    EXPECT_EQ(relue.REZ1.Zpireg_HT, 44.5);
    EXPECT_EQ(relue.REZ1.Rpi_HT, 30.25);
    EXPECT_EQ(relue.X4_HT, 7.0);
    EXPECT_EQ(relue.teta, 80.0F);
    EXPECT_EQ(relue.T4, 1500);
    EXPECT_TRUE(relue.Acceleration);
}

TEST(PageREZ1, LesZonesEtLePompageEnSecondaireEtEnPrimaire) {
    Etude e;
    RemplirEtudeImprimee(e);
    e.id_protection = ID_REZ1;
    const double kz = e.Kz;
    e.X3reg_HT = 20.0 * kz;
    e.REZ1.Zpireg_HT = 24.0 * kz;
    e.T3 = 800;
    e.Teleaction = false;
    const std::string tout = TexteImprime(e);
    const std::string zpe = FormaterNombre(30.0 * kz, "##0.00");
    for (const std::string& attendu :
         {"Third zone reactance : X3\t20.00 Ω/ph\t"s, "Internal reach : Zpi\t24.00 Ω/ph"s,
          "External reach : Zpe\t30.00 Ω/ph\t" + zpe + " Ω", "Third zone: T3\t800 ms"s,
          "no signal"s})
        EXPECT_NE(tout.find(attendu), std::string::npos) << attendu << "\n" << tout;
}

TEST_F(PanneauDuREZ1, LesSaisiesVontAuxPasEtLesReglesSuivent) {
    Panneau(false);
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_EQ(p->Nom(), "frmREZ1");
    EXPECT_EQ(p->Onglets(),
              (std::vector<std::string>{"&Zones", "&Out of step", "&Resistance", "&Timers"}));
    EXPECT_FALSE(RegleActive(e, 67));
    // An internal reach typed below 1.15 times the third zone, taken up to its step of 0.1: rule
    // 67 at once.
    const double zpi = std::floor(e.X3reg_BT * 10.0) / 10.0 - 0.04;
    Saisir("txtZpi_bt", FormaterNombre(zpi, "##0.00"));
    EXPECT_NEAR(e.REZ1.Zpireg_BT, std::ceil(zpi * 10.0 - 1e-9) / 10.0, 1e-9);
    EXPECT_TRUE(RegleActive(e, 67));
    EXPECT_NEAR(ValeurRegle(e, 67), 0.9 * e.REZ1.Zpireg_HT / 1.1, 1e-9);
    EXPECT_EQ(p->Trouver("txtZpe_HT")->Texte(), FormaterNombre(1.25 * e.REZ1.Zpireg_HT, "###0.00"));
    Saisir("txtR_bt", "7.9");
    EXPECT_NEAR(e.Rreg_BT, 7.5, 1e-6);
    EXPECT_NEAR(e.REZ1.Rpi_HT, 1.15 * 7.5 * e.Kz, 1e-4);
    Saisir("txtko", "0.66");
    EXPECT_NEAR(e.ko_reg, 0.7, 1e-9);
}

TEST_F(PanneauDuREZ1, OkCadreLePlanSurLaZoneExterne) {
    Panneau(true);
    ASSERT_EQ(e.ErrCalcul, 0);
    p->ValiderBouton();
    ASSERT_EQ(e.ErrCalcul, 0);
    const double l = 1.5 * std::max(e.REZ1.Zpireg_HT, e.REZ1.Rpi_HT);
    EXPECT_NEAR(e.ScaleTop, l, 1e-3);
}

} // namespace
