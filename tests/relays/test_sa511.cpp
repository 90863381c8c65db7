// The 7SA511, worked out by hand: the corners of its pick-up polygon and of the out-of-step band,
// the four resistances from the load distance and the load angle, the zones, the load distances
// of each kind of feed, each rule of the setting guide, the stored list, the settings page with
// the parameter codes, and the panel.
#include "EtudeRelais.h"
#include "network/Transit.h"
#include "relays/sa511/CalculSA511.h"
#include "relays/sa511/PanneauSA511.h"
#include "relays/sa511/TraceSA511.h"

#include <functional>

using namespace tournesol;

namespace {

const double T30 = std::tan(DegToRad(30.0)); // 0.57735

void Coins(const std::vector<Complexe>& coins,
           const std::vector<std::pair<double, double>>& attendus) {
    ASSERT_EQ(coins.size(), attendus.size());
    for (std::size_t i = 0; i < coins.size(); ++i) {
        EXPECT_NEAR(coins[i].Re, attendus[i].first, 1e-9) << "corner " << i;
        EXPECT_NEAR(coins[i].Im, attendus[i].second, 1e-9) << "corner " << i;
    }
}

// RA1 10, RA2 20, XV 40, XM 15, Phia 30 degrees: the load sector cut to 10 ohms within 30
// degrees, 20 ohms beyond; twelve corners clockwise from the top left.
TEST(PolygoneSA511, LesDouzeCoinsDesQuatreResistancesDeuxReactancesEtDeLAngle) {
    const double b = 20.0 * T30, a = 10.0 * T30;
    Coins(PolygoneSA511(10.0, 20.0, 40.0, 15.0, DegToRad(30.0), 0.0), {{-20, 40},
                                                                       {20, 40},
                                                                       {20, b},
                                                                       {10, a},
                                                                       {10, -a},
                                                                       {20, -b},
                                                                       {20, -15},
                                                                       {-20, -15},
                                                                       {-20, -b},
                                                                       {-10, -a},
                                                                       {-10, a},
                                                                       {-20, b}});
    // The out-of-step band: every side 3 further out along R and X, the corners of the load
    // angle shifted along R only.
    Coins(PolygoneSA511(10.0, 20.0, 40.0, 15.0, DegToRad(30.0), 3.0), {{-23, 43},
                                                                       {23, 43},
                                                                       {23, b},
                                                                       {13, a},
                                                                       {13, -a},
                                                                       {23, -b},
                                                                       {23, -18},
                                                                       {-23, -18},
                                                                       {-23, -b},
                                                                       {-13, -a},
                                                                       {-13, a},
                                                                       {-23, b}});
}

TEST(PolygoneSA511, UneReactanceSousLeCoinDeLaChargeLeCoupe) {
    const double a = 10.0 * T30;
    // The forward reactance at 8, between the two corners of the load angle: the top cuts the
    // sides along the load angle at 8 / tan 30.
    const double r8 = 8.0 / T30;
    Coins(PolygoneSA511(10.0, 20.0, 8.0, 15.0, DegToRad(30.0), 0.0), {{-r8, 8},
                                                                      {r8, 8},
                                                                      {10, a},
                                                                      {10, -a},
                                                                      {20, -20 * T30},
                                                                      {20, -15},
                                                                      {-20, -15},
                                                                      {-20, -20 * T30},
                                                                      {-10, -a},
                                                                      {-10, a}});
    // Below both: the top meets the inner vertical sides; the backward reactance as well.
    Coins(PolygoneSA511(10.0, 20.0, 4.0, 3.0, DegToRad(30.0), 0.0),
          {{-10, 4}, {10, 4}, {10, -3}, {-10, -3}});
    // A backward reactance above the forward one leaves nothing.
    EXPECT_LT(PolygoneSA511(10.0, 20.0, 4.0, -5.0, DegToRad(30.0), 0.0).size(), 3u);
}

TEST(CaracteristiqueSA511, PolygonesDirectionnelEtZones) {
    Etude e;
    e.Kz = 2.0;
    RelaisSA511& r = e.SA511;
    r.RA1 = 5.0;
    r.RA2 = 10.0;
    r.XV = 20.0;
    r.XM = 7.5;
    r.Phia = DegToRad(30.0);
    r.Phiae = DegToRad(45.0);
    r.deltaR = 1.5;
    r.X1 = 4.0;
    r.R1E = 3.0;
    r.X2 = 8.0;
    r.R2E = 6.0;
    e.CouleurTriphase = 0x00FF00;
    e.CouleurAntipompage = 0xFF0000;
    e.CouleurDirectionnel = 0x00FFFF;
    e.CouleurZones = 0x0000FF;
    const auto s = SegmentsSA511(e);
    ASSERT_EQ(s.size(), 12u + 12u + 1u + 4u);
    // The pick-up in primary ohms: its top from (-20, 40) to (20, 40).
    EXPECT_EQ(s[0].Couleur, 0x00FF00);
    EXPECT_NEAR(s[0].A.Re, -20.0, 1e-9);
    EXPECT_TRUE(Au(s[0].B, 20.0, 40.0));
    // The band 3 ohms outside it.
    EXPECT_EQ(s[12].Couleur, 0xFF0000);
    EXPECT_TRUE(Au(s[12].B, 23.0, 43.0));
    // The directional line through the origin at -45 degrees, of radius R2E Kz / cos 45.
    const SegmentImage& dir = s[24];
    EXPECT_EQ(dir.Couleur, 0x00FFFF);
    EXPECT_EQ(dir.Style, 1);
    EXPECT_TRUE(Au(dir.A, -12.0, 12.0));
    EXPECT_TRUE(Au(dir.B, 12.0, -12.0));
    // The first zone: its reach at 8 from -8 (8 / tan 45) to R1E Kz = 6, its resistive side
    // from (6, -6) up to (6, 8).
    EXPECT_EQ(s[25].Style, 2);
    EXPECT_NEAR(s[25].A.Re, -8.0, 1e-9);
    EXPECT_TRUE(Au(s[25].B, 6.0, 8.0));
    EXPECT_TRUE(Au(s[26].A, 6.0, -6.0));
    // The second zone's reach at 16.
    EXPECT_NEAR(s[27].A.Im, 16.0, 1e-9);
    EXPECT_NEAR(s[28].B.Re, 12.0, 1e-9);

    // A null Phiae gives the zones' reach no left end: the drawing fails, it draws no infinity.
    r.Phiae = 0.0;
    EXPECT_THROW(SegmentsSA511(e), ErreurExecution);
}

// Distances whose smallest is 35 primary ohms on a meshed line, Kz 2, a line at 60 degrees.
Etude MiseEnRoute(DistancesCharge& d) {
    Etude e;
    e.Kz = 2.0;
    e.PHI_eq = DegToRad(60.0);
    e.Ligne_Xprim1 = 16.0;
    e.Ligne_Xprim2 = 30.0;
    e.XL_eq = 20.0;
    e.SA511.deltaR = 3.0;
    e.SA511.PhiCharge1 = DegToRad(10.0);
    e.SA511.PhiCharge2 = DegToRad(20.0);
    d.D1 = {50, 40, 60, 70, 80, 90};
    d.D2 = {45, 35, 60, 70, 80, 90};
    return e;
}

TEST(MiseEnRouteSA511, LesQuatreResistancesLesZonesEtLesReactances) {
    DistancesCharge d;
    Etude e = MiseEnRoute(d);
    CalculMiseEnRouteSA511(e, d);
    const RelaisSA511& r = e.SA511;
    // Both load angles at most 25 degrees: Phia stays at 30. tan 30 / tan 60 = 1/3.
    EXPECT_NEAR(r.Phia, DegToRad(30.0), 1e-12);
    EXPECT_EQ(r.Phiae, r.Phia);
    EXPECT_NEAR(r.RA1, 17.5 - 3.0, 1e-9);
    EXPECT_NEAR(r.RA2, 14.5 * 1.5, 1e-9);
    EXPECT_NEAR(r.RA1E, 17.5, 1e-9);
    EXPECT_NEAR(r.RA2E, 17.5 * 1.5, 1e-9);
    EXPECT_NEAR(r.X1, 8.0, 1e-12);
    EXPECT_NEAR(r.X2, 15.0, 1e-12);
    EXPECT_NEAR(r.XV, 18.75, 1e-12);
    EXPECT_NEAR(r.XM, 18.75 - 10.0, 1e-12);

    // Plant and customer links take only the case without report.
    e.Ligne_alim = 1;
    EXPECT_EQ(DistanceMinimaleSA511(e, d), 35.0);
    d.D2[1] = 90.0;
    EXPECT_EQ(DistanceMinimaleSA511(e, d), 45.0);
    e.Ligne_alim = 3;
    EXPECT_EQ(DistanceMinimaleSA511(e, d), 45.0);
    e.Ligne_alim = 0;
    EXPECT_EQ(DistanceMinimaleSA511(e, d), 40.0);
}

TEST(MiseEnRouteSA511, LesLimitesDesResistancesEtDeLAngle) {
    struct Cas {
        const char* nom;
        std::function<void(Etude&, DistancesCharge&)> changer;
        std::function<void(const RelaisSA511&)> verifier;
    };
    const std::vector<Cas> cas{
        {"a load closer than the band",
         [](Etude&, DistancesCharge& d) { d.D2[1] = 4.0; }, // Rs 2, less 3
         [](const RelaisSA511& r) {
             EXPECT_EQ(r.RA1, 0.1);
             EXPECT_NEAR(r.RA2, 0.15, 1e-12); // from the limited RA1
             EXPECT_NEAR(r.RA1E, 2.0, 1e-12);
         }},
        {"a line below the load angle",
         [](Etude& e, DistancesCharge&) { e.PHI_eq = DegToRad(25.0); },
         [](const RelaisSA511& r) {
             EXPECT_EQ(r.RA2, 0.1);
             EXPECT_EQ(r.RA2E, 0.1);
         }},
        {"a line just above the load angle",
         [](Etude& e, DistancesCharge&) { e.PHI_eq = DegToRad(30.01); },
         [](const RelaisSA511& r) {
             EXPECT_EQ(r.RA2, 200.0);
             EXPECT_EQ(r.RA2E, 200.0);
         }},
        {"a load angle of 70 degrees",
         [](Etude& e, DistancesCharge&) { e.SA511.PhiCharge2 = DegToRad(70.0); },
         [](const RelaisSA511& r) { EXPECT_NEAR(r.Phia, DegToRad(75.0), 1e-12); }},
        {"a load point in the fourth quadrant",
         [](Etude& e, DistancesCharge&) { e.SA511.PhiCharge2 = DegToRad(340.0); },
         [](const RelaisSA511& r) { EXPECT_NEAR(r.Phia, DegToRad(80.0), 1e-12); }},
        {"long zones",
         [](Etude& e, DistancesCharge&) {
             e.Ligne_Xprim1 = 300.0;
             e.Ligne_Xprim2 = 400.0;
         },
         [](const RelaisSA511& r) {
             EXPECT_EQ(r.X1, 130.0);
             EXPECT_EQ(r.X2, 130.0);
             EXPECT_EQ(r.XV, 162.5);
         }},
        {"no second zone", [](Etude& e, DistancesCharge&) { e.Ligne_Xprim2 = 0.0; },
         [](const RelaisSA511& r) {
             EXPECT_EQ(r.XV, 0.1);
             EXPECT_NEAR(r.XM, 0.1 - 10.0, 1e-12); // the backward reactance has no limit
         }},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.nom);
        DistancesCharge d;
        Etude e = MiseEnRoute(d);
        c.changer(e, d);
        CalculMiseEnRouteSA511(e, d);
        c.verifier(e.SA511);
    }
}

TEST(ZonesSA511, LesResistancesDesZonesSuiventLaMiseEnRoute) {
    Etude e;
    RelaisSA511& r = e.SA511;
    r.RA1E = 70.0;
    r.RA2E = 0.01;
    r.X1 = 10.0;
    r.X2 = 14.0;
    CalculZonesSA511(e);
    EXPECT_EQ(r.R1E, 65.0);
    EXPECT_EQ(r.R1, 65.0);
    for (const double v : {r.R2E, r.R2, r.R1BE, r.R1B})
        EXPECT_EQ(v, 0.05);
    EXPECT_EQ(r.X1B, 14.0);
    EXPECT_NEAR(r.RsurX, 7.0, 1e-12); // the pick-up's resistance, not the zone's
    // A typed null reactance becomes 0.1, and the ratio is the zone's.
    r.X1 = 0.0;
    ReactanceSaisieSA511(e, r.X1);
    EXPECT_EQ(r.X1, 0.1);
    EXPECT_NEAR(r.RsurX, 650.0, 1e-9);

    e.Ligne_lc = true;
    r.Tempo.fill(150.0);
    e.Teleaction = true;
    CalculTemposSA511(e);
    EXPECT_EQ(r.Tempo[8], 0.0);
    EXPECT_FALSE(e.Teleaction);
    EXPECT_TRUE(e.Acceleration);
    EXPECT_EQ(r.Te, 0.01);
}

// An example line opened as the working window opens it, with the 7SA511 in mode "Return", and
// its panel.
struct EtudeSA511 : EtudeEtPanneau<PanneauSA511> {
    void Ouvrir(const char* fichier) { Charger(fichier, ID_SA511); }
    DistancesCharge distances;
};
using PanneauDuSA511 = EtudeSA511;

TEST_F(EtudeSA511, UneLigneMailleeRegardeLesDeuxCasDeReport) {
    Ouvrir("chesnoy-villevaude-400kV-double.json");
    e.TypeReportCharge = 1;
    CalculHorsPompageSA511(e, d, distances);
    EXPECT_EQ(e.TypeReportCharge, 1); // given back
    EXPECT_EQ(e.SA511.deltaR, 3.0);
    EXPECT_EQ(e.SA511.deltaR_HT, 3.0 * e.Kz);
    EXPECT_EQ(e.SA511.derivR_HT, 200.0 * e.Kz);
    // The last area computed is the case without report: its N1 and N2 give the angles, the
    // second one's in the upper left quadrant.
    e.TypeReportCharge = 2;
    TransitCalc(e);
    const Complexe n1 = e.PointsTransit[0], n2 = e.PointsTransit[1];
    EXPECT_NEAR(e.SA511.PhiCharge1, std::atan2(n1.Im, n1.Re), 1e-12);
    EXPECT_NEAR(e.SA511.PhiCharge2, std::atan2(n2.Im, n2.Re), 1e-12);
    EXPECT_GT(e.SA511.PhiCharge2, PI / 2.0);
    // Each distance is the point's R with the margin 0.9 / 1.1.
    const auto points = PointsTransitTires(e);
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_NEAR(distances.D2[i], std::fabs(points[i].Re) * 0.9 / 1.1, 1e-9) << i;
}

TEST_F(EtudeSA511, UneLiaisonDeCentraleCoupeLeCercleDePuissanceALaReactanceAvant) {
    Ouvrir("saint-alban-centrale-225kV-sa511.json");
    TransitCalc(e);
    const Complexe n1 = e.PointsTransit[0];
    const double y = std::fabs(n1.Im);
    // A small forward reach leaves the load points where they are.
    e.SA511.XV = 0.1;
    CalculHorsPompageSA511(e, d, distances);
    EXPECT_NEAR(distances.D2[0], std::fabs(n1.Re) * 0.9 / 1.1, 1e-9);
    // N2 lies below the R axis: its angle is counted from 0 to 2 pi.
    const Complexe n2 = e.PointsTransit[1];
    ASSERT_LT(n2.Im, 0.0);
    EXPECT_NEAR(e.SA511.PhiCharge2, 2.0 * PI + std::atan2(n2.Im, n2.Re), 1e-9);
    // A forward reach above the load point: the circle of active power, of radius
    // 1.5 Vmax^2 / Pmax, cut at that reach.
    const double p = 1.5 * e.Vmax * e.Vmax / e.Ligne_Pmax;
    const double xv = (y + p) / 2.0;
    ASSERT_GT(xv, y);
    e.SA511.XV = xv / e.Kz;
    CalculHorsPompageSA511(e, d, distances);
    const double attendu = (std::sqrt(p * p - xv * xv) + p) * 0.9 / 1.1;
    EXPECT_NEAR(distances.D2[0], attendu, 1e-9);
    EXPECT_NEAR(distances.D2[1], attendu, 1e-9);
    // Beyond the circle no load point is left to cut: the computation fails.
    e.SA511.XV = 2.0 * p / e.Kz;
    EXPECT_THROW(CalculHorsPompageSA511(e, d, distances), ErreurExecution);
}

TEST_F(EtudeSA511, UneLiaisonClienteTropChargeeEstSignalee) {
    Ouvrir("saint-marcel-papeteries-63kV-client.json");
    TransitCalc(e);
    const double m = e.PointsTransit[0].Module * 0.9 / 1.1;
    e.Ligne_Xprim3 = 0.6 * m;
    CalculHorsPompageSA511(e, d, distances);
    EXPECT_NEAR(distances.D2[0], 0.8 * m, 1e-9);
    EXPECT_TRUE(d.Messages().empty());
    e.Ligne_Xprim3 = 1.2 * m;
    EXPECT_THROW(CalculHorsPompageSA511(e, d, distances), ErreurExecution);
    ASSERT_EQ(d.Messages().size(), 1u);
    EXPECT_EQ(d.Messages()[0].sMessage, "incompatible data");
}

// Settings that agree with the guide: Rf = 0.8 x 40 + 0.9 x 20 = 50, Rb = 32.
Etude Conforme() {
    Etude e;
    e.Kz = 1.0;
    e.XL_eq = 20.0;
    e.PHI_eq = DegToRad(80.0);
    e.Ligne_XAV = 40.0F;
    e.Ligne_XAM = 40.0F;
    RelaisSA511& r = e.SA511;
    r.X2 = 10.0;
    r.XV = 20.0;
    r.XM = 5.0;
    r.deltaR = 1.0;
    return e;
}

TEST(DiagnosticsSA511, ChaqueRegleSePoseEtSEfface) {
    const std::vector<CasRegles> cas{
        {{1}, [](Etude& e) { e.SA511.XV = 11.0; }, 12.0},
        // Without remote transformers the forward reach and its band pass the line.
        {{2, 3}, [](Etude& e) { e.Ligne_XAV = 0.0F; }, 18.0 / 1.15},
        // The band alone: 1.15 x 43.4 = 49.91 passes 32 + 18 sin 80 = 49.73, not Rf = 50; the
        // limit is the whole of Rf.
        {{3},
         [](Etude& e) {
             e.SA511.deltaR = 23.4;
             e.Ligne_XAM = 50.0F;
         },
         50.0 / 1.15},
        {{4, 5}, [](Etude& e) { e.SA511.XM = 30.0; }, 32.0 / 1.15},
        {{5},
         [](Etude& e) {
             e.SA511.XM = 26.0;
             e.SA511.deltaR = 2.0;
         },
         32.0 / 1.15},
        {{6},
         [](Etude& e) {
             e.Ligne_lc = true;
             e.Ligne_X1PB = 50.0F;
         },
         65.0 - 21.2},
    };
    ReglesPoseesEtEffacees(Conforme, CalculDiagSA511, 1, 6, cas, 1e-5);
    // The long line alone does not set rule 6 while the backward reach covers the remote first
    // zone.
    Etude e = Conforme();
    e.Ligne_lc = true;
    e.Ligne_X1PB = 20.0F; // T = 26 - 21.2 = 4.8 < 5
    CalculDiagSA511(e);
    EXPECT_FALSE(RegleActive(e, 6));
    // Nor does a short line, however far the remote first zone reaches.
    e.Ligne_lc = false;
    e.Ligne_X1PB = 50.0F;
    CalculDiagSA511(e);
    EXPECT_FALSE(RegleActive(e, 6));
}

TEST(MagasinSA511, LaListeRevientAvecSesTypesEtSesPositions) {
    Etude e;
    e.id_protection = ID_SA511;
    e.id_reglage = 4;
    RelaisSA511& r = e.SA511;
    r.deltaR = 2.5;
    r.ProgBlocage = 2;
    r.Tempo[0] = 20.0;
    r.Tempo[8] = 900.0;
    e.Teleaction = true;
    r.BlocageEtendu = true;
    r.Tvs = 0.05;
    e.Is = 5.0F;
    MagasinMemoire m;
    const Etude relue = AllerRetour(e, m, 48);
    EXPECT_EQ(std::get<double>(m.LireValeur(4, 0)), 2.5);
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 4)), 2);
    EXPECT_EQ(std::get<double>(m.LireValeur(4, 20)), 20.0);
    EXPECT_EQ(std::get<double>(m.LireValeur(4, 28)), 900.0);
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 29)), -1);
    EXPECT_EQ(std::get<double>(m.LireValeur(4, 40)), 0.05);
    EXPECT_EQ(std::get<float>(m.LireValeur(4, 47)), 5.0F);
    EXPECT_EQ(relue.SA511.ProgBlocage, 2);
    EXPECT_EQ(relue.SA511.Tempo, r.Tempo);
    EXPECT_TRUE(relue.Teleaction);
    EXPECT_TRUE(relue.SA511.BlocageEtendu);
    EXPECT_EQ(relue.SA511.Tvs, 0.05);
    EXPECT_EQ(relue.Is, 5.0F);
}

// The settings pages of a 7SA511 computed on the report's line.
TEST(PageSA511, LesReglagesPortentLeursCodes) {
    Etude e;
    RemplirEtudeImprimee(e);
    e.id_protection = ID_SA511;
    RelaisSA511& r = e.SA511;
    r.X1 = 8.0;
    r.R1E = 12.0;
    r.ProgBlocage = 1;
    r.Tempo[2] = 400.0;
    e.Teleaction = true;
    e.Acceleration = false;
    r.Tvs = 0.02;
    e.PHI_eq = DegToRad(45.0);
    r.Phia = r.Phiae = DegToRad(45.0);
    e.XL_eq = 30.375;
    e.Longueur_eq = 75.0;
    e.ko_eq = 2.0 / 3.0;
    PageEnregistree page;
    EtatImpression etat;
    DialogueImpression d(e);
    Imprimer(e, d, page, etat, {{}, {}, "01/01/2026 - 10:00"});
    ASSERT_EQ(page.Imprimes.size(), 1u);
    const DocumentImprime& doc = page.Imprimes[0];
    // The diagram's page, the line's page with the zones, then the settings, turned onto further
    // pages where they run past the frame.
    ASSERT_GE(doc.size(), 3u);
    EXPECT_EQ(page.HorsPage, 0);
    std::string deux, suite;
    for (std::size_t i = 1; i < doc.size(); ++i)
        for (const std::string& l : PageEnregistree::Lignes(doc[i]))
            (i == 1 ? deux : suite) += l + "\n";
    const std::string tout = deux + suite;
    // A caption and its values, on one line or the values under it, where the caption runs
    // into their column.
    const auto suivi = [&](const std::string& a, const std::string& b) {
        return tout.find(a + "\t" + b) != std::string::npos ||
               tout.find(a + "\n" + b) != std::string::npos;
    };
    // The line's parameters and the zones on the line's page; X1 8 secondary is 18 primary,
    // 59 % of the line's 30.375.
    EXPECT_NE(deux.find("Ro/Rd                        (1117)"), std::string::npos);
    EXPECT_NE(deux.find("X1 = First zone reactance (1302)"), std::string::npos);
    EXPECT_TRUE(suivi("Xo/Xd                        (1118)", "3.00"));
    EXPECT_TRUE(suivi("Line length   (1124)", "75.0 km"));
    EXPECT_TRUE(suivi("X1 = First zone reactance (1302)", "8.00 Ω\t18.00 Ω\t59 %"));
    EXPECT_TRUE(suivi("T2 1ph = second zone timer, phase to earth fault (1315)", "400 ms"));
    EXPECT_TRUE(suivi("acceleration enabled (2101)", "no"));
    EXPECT_TRUE(suivi("delay extension on blocking signal reception (2203)", "0.020 s"));
    // 12 ohms at the substation, 12 - 8 / tan 45 at the first zone's reach.
    EXPECT_TRUE(suivi("phase to earth loop", "12.00 Ω\t27.00 Ω"));
    EXPECT_TRUE(suivi("phase to earth loop", "4.00 Ω\t9.00 Ω"));
    for (const char* attendu :
         {"Ratio R/X", "Ie>  = minimal earth current (1602)", "Pick up setting", "Phia(1628)",
          "out of step blocks the first zone", "Out of tep bandwidth (2003)",
          " Relay performances"})
        EXPECT_NE(tout.find(attendu), std::string::npos) << attendu;
    EXPECT_EQ(tout.find("no signal"), std::string::npos);

    // The relay's settings alone: no line page, the settings on a page of their own.
    e.ImpParties = {false, false, true};
    const std::string reglages = TexteImprime(e);
    EXPECT_EQ(reglages.find("(1117)"), std::string::npos);
    EXPECT_NE(reglages.find("Pick up setting"), std::string::npos);
}

TEST_F(PanneauDuSA511, LesFeuillesDansLOrdreDeLaChaineEtLesCodesDansLesLegendes) {
    Ouvrir("chesnoy-villevaude-400kV-double.json");
    Panneau(true);
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_EQ(p->Nom(), "frmsa511");
    EXPECT_EQ(p->Onglets(), (std::vector<std::string>{"&Out of step", "&Pick up", "&Zones",
                                                      "&Timers", "Signal"}));
    EXPECT_EQ(p->Trouver("txtra1")->Legende.Texte(),
              "Ra1 = Phase to phase pick up resistance (phi < phia)(1624) (Ω S)");
    EXPECT_EQ(p->Trouver("txtx1")->Texte(), "11.55");
    EXPECT_EQ(p->Trouver("lblX1")->Texte(), "23.10"); // Kz X1
    EXPECT_EQ(p->Trouver("txtphia")->Texte(), "80.00");
    // The error of the rated current is down on a 1 A relay; the acceleration of the long line
    // shows its timers, not those of the blocking.
    EXPECT_FALSE(p->Trouver("txtInerr")->Visible);
    EXPECT_TRUE(p->Trouver("txtte")->Visible);
    EXPECT_FALSE(p->Trouver("txttve")->Visible);
    EXPECT_FALSE(p->Trouver("txttempo(8)")->Visible);
    // No signalling scheme in mode "Return": the acceleration and the blocking are disabled.
    EXPECT_FALSE(e.Teleaction);
    EXPECT_FALSE(p->Trouver("chkportéeréduite")->Actif);
}

TEST_F(PanneauDuSA511, LesSaisiesLimitentEtSuivent) {
    Ouvrir("chesnoy-villevaude-400kV-double.json");
    Panneau(false);
    Saisir("txtx1", "0");
    EXPECT_EQ(e.SA511.X1, 0.1);
    EXPECT_EQ(p->Trouver("txtx1")->Texte(), "0.10");
    EXPECT_EQ(p->Trouver("lblX1")->Texte(), "0.20");
    EXPECT_NEAR(e.SA511.RsurX, e.SA511.R1E / 0.1, 1e-9);
    Saisir("txtdeltar", "75");
    EXPECT_EQ(e.SA511.deltaR, 50.0);
    EXPECT_EQ(e.SA511.deltaR_HT, 100.0);
    Saisir("txtphia", "20");
    EXPECT_NEAR(e.SA511.Phia, DegToRad(30.0), 1e-12);
    // A timer beyond 32 s comes back to it, and the rules are looked at again: a forward reach
    // below 1.2 times the second zone sets rule 1 at once.
    e.SA511.XV = 1.0;
    Saisir("txttempo(1)", "40000");
    EXPECT_EQ(e.SA511.Tempo[1], 32000.0);
    EXPECT_TRUE(RegleActive(e, 1));
}

TEST_F(PanneauDuSA511, LeProgrammeDeBlocageHorsDesDeuxPremiersEstLeTroisieme) {
    Ouvrir("chesnoy-villevaude-400kV-double.json");
    e.SA511.ProgBlocage = 7; // neither 1 nor 2: the third program
    Panneau(false);
    EXPECT_EQ(e.SA511.ProgBlocage, 3);
    EXPECT_TRUE(p->Trouver("chktoutessauf1")->Valeur);
    p->Trouver("chkzone1")->Valeur = true;
    p->Cliquer("chkzone1");
    EXPECT_EQ(e.SA511.ProgBlocage, 1);
    EXPECT_FALSE(p->Trouver("chktoutessauf1")->Valeur);
}

TEST_F(PanneauDuSA511, UnRelaisDe5ACalculeQuandMemeEtOkCadreLePlan) {
    Ouvrir("chesnoy-villevaude-400kV-double.json");
    e.Is = 5.0F;
    Panneau(true);
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_TRUE(p->Trouver("txtInerr")->Visible);
    EXPECT_EQ(p->Trouver("txtInerr")->Texte(), PanneauSA511::ERREUR_IN);
    EXPECT_GT(e.SA511.RA1E, 0.1);
    p->ValiderBouton();
    ASSERT_EQ(e.ErrCalcul, 0);
    const RelaisSA511& r = e.SA511;
    const double l = 1.2 * e.Kz * std::max({r.RA1E, r.XV, r.XM});
    EXPECT_NEAR(e.ScaleTop, l, 1e-3);
    EXPECT_NEAR(e.ScaleLeft, -l, 1e-3);
}

} // namespace
