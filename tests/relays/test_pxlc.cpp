// The PXLC-PSEL, worked out by hand: the zone percentages in whole per cents, the band and the two
// loop resistances taken to their steps, each rule of the setting guide set and cleared, the
// characteristic, the stored list, the panel's fields and the settings pages.
#include "EtudeRelais.h"
#include "core/Format.h"
#include "relays/FamillePXL.h"
#include "relays/pxlc/CalculPXLC.h"
#include "relays/pxlc/PanneauPXLC.h"

using namespace tournesol;

namespace {

// A 225 kV line of 30.375 ohms, Kz 2.25, in mode "Return".
Etude Ligne() {
    Etude e;
    e.Is = 1.0F;
    e.Kz = 2.25;
    e.XL_eq = 30.375;
    e.PHI_eq = 1.363922;
    e.PanneauRelais = true;
    return e;
}

TEST(ZonesPXLC, PourcentagesEntiersAuxPasDuRelais) {
    Etude e = Ligne();
    e.Ligne_Xprim1 = 26.0; // 85.60 %: 85 down
    e.Ligne_Xprim2 = 37.0; // 121.81 %, one step up: 122
    e.Ligne_Xprim3 = 1.5 * e.XL_eq;
    e.PXLC.Rmoc_BT = 20.0;
    e.PXLC.Rmoc_HT = 45.0;
    CalculZonesPXLC(e);
    const auto& x = e.PXLC.XPct;
    EXPECT_EQ(x[0], 85.0);
    EXPECT_EQ(x[1], 122.0);
    EXPECT_EQ(x[2], 150.0);
    EXPECT_EQ(x[3], 150.0);
    // The backward pick-up kept clear of the resistance: 1.1 E = 11.329 ohms over 0.135 ohm per
    // cent is 83.92 %, up to 84.
    EXPECT_EQ(x[4], 84.0);
    EXPECT_NEAR(e.PXLC.RsurX, 45.0 / (30.375 * 0.85), 1e-12);
    // A teed line: 1.25 times 122 is 152.5, down to 152.
    e.Ligne_Tl = 3;
    CalculZonesPXLC(e);
    EXPECT_EQ(x[2], 152.0);
    EXPECT_EQ(x[3], 152.0);
    // In "Modify" the percentages stay as typed; only R/X follows.
    e.PanneauRelais = false;
    e.PXLC.XPct[0] = 50.0;
    CalculZonesPXLC(e);
    EXPECT_EQ(x[0], 50.0);
    EXPECT_NEAR(e.PXLC.RsurX, 45.0 / (30.375 * 0.5), 1e-12);
}

TEST(PompagePXLC, BandeAuDemiOhmEtResistancesAuPlusCent) {
    Etude e = Ligne();
    RelaisPXLC& r = e.PXLC;
    r.deltaR_BT = 4.5;
    // 100 / 2.25 = 44.44, less the band: 39.94, whole part 39, both loops.
    ResistancesPXL(e, r, 100.0, PAS_PXLC);
    ResistancesPrimairesPXLC(e);
    EXPECT_EQ(r.Rmoc_BT, 39.0);
    EXPECT_EQ(r.Rbic_BT, 39.0);
    EXPECT_DOUBLE_EQ(r.Rmoc_HT, 87.75);
    EXPECT_DOUBLE_EQ(r.deltaR_HT, 4.5 * 2.25);
    ResistancesPXL(e, r, 300.0, PAS_PXLC); // 128.8: the relay stops at 100
    EXPECT_EQ(r.Rmoc_BT, 100.0);
    ResistancesPXL(e, r, 5.0, PAS_PXLC); // the load nearer than the band: no negative resistance
    EXPECT_EQ(r.Rmoc_BT, 0.0);

    // In "Modify" the band goes to its step of 0.5 within 0.5 to 25, the resistances stay.
    DialogueSansFenetre d;
    e.PanneauRelais = false;
    r.Rmoc_BT = 39.0;
    for (const auto& [typee, reglee] : std::vector<std::pair<double, double>>{
             {0.7, 0.5}, {0.8, 1.0}, {0.1, 0.5}, {30.0, 25.0}, {12.25, 12.5}}) {
        r.deltaR_BT = typee;
        CalculPompagePXLC(e, d);
        EXPECT_DOUBLE_EQ(r.deltaR_BT, reglee) << typee;
        EXPECT_DOUBLE_EQ(r.deltaR_HT, reglee * 2.25) << typee;
    }
    EXPECT_EQ(r.Rmoc_BT, 39.0);
}

// The example line with its PXLC, computed as the working window opens it.
struct EtudePXLC : EtudeEtPanneau<PanneauPXLC> {
    EtudePXLC() { Charger("champagnier-le-cheylas-225kV-pxlc.json"); }
};

TEST_F(EtudePXLC, EnRetourLaBandeLesResistancesEtLesZonesSuiventLaLigne) {
    ASSERT_EQ(e.ErrCalcul, 0);
    e.PanneauRelais = true;
    const double distance = DistanceTransitPXL(e, d, e.PXLC.XPct[2]);
    CalculPompagePXLC(e, d);
    const RelaisPXLC& r = e.PXLC;
    const double bande = (e.Ligne_XS + e.XL_eq) * 2.0 * 0.0471238898038 / e.Kz;
    EXPECT_DOUBLE_EQ(r.deltaR_BT, std::clamp(std::round(2.0 * bande) / 2.0, 0.5, 25.0));
    EXPECT_EQ(r.Rmoc_BT, std::min(std::floor(distance / e.Kz - r.deltaR_BT), 100.0));
    EXPECT_GT(r.Rmoc_BT, 0.0);
    EXPECT_EQ(r.Rbic_BT, r.Rmoc_BT);
    // The opening put the defaults of "Return"; the zones follow the line in whole per cents.
    EXPECT_EQ(r.TypeDecl, 1);
    EXPECT_TRUE(r.FeuilleReglages);
    EXPECT_TRUE(e.Teleaction);
    EXPECT_EQ(r.XPct[0], std::floor(100.0 * e.Ligne_Xprim1 / e.XL_eq));
    for (double x : r.XPct)
        EXPECT_EQ(x, std::floor(x));
    EXPECT_DOUBLE_EQ(r.ZonesHT[1], r.XPct[1] / 100.0 * e.XL_eq);
    EXPECT_DOUBLE_EQ(r.ZonesBT[1], r.ZonesHT[1] / e.Kz);
}

// Settings that agree with the guide: reaches of 16, 24, 30, 30 and 10 ohms, a band of 2.
Etude Conforme() {
    Etude e;
    e.Kz = 1.0;
    e.XL_eq = 20.0;
    e.Ligne_lc = true;
    e.Ligne_XAV = 40.0F; // forward limit 0.8 x 40 + 0.9 x 20 = 50
    e.Ligne_XAM = 40.0F; // backward limit 32
    e.Ligne_X1PB = 10.0F;
    e.PXLC.XPct = {80.0, 120.0, 150.0, 150.0, 50.0};
    e.PXLC.deltaR_HT = 2.0;
    return e;
}

TEST(DiagnosticsPXLC, ChaqueRegleSePoseEtSEfface) {
    const std::vector<CasRegles> cas{
        // Third zone under 1.2 times the second.
        {{29}, [](Etude& e) { e.PXLC.XPct[2] = 140.0; }, 28.8},
        // Forward pick-up and its out of step beyond the remote transformers.
        {{30, 31}, [](Etude& e) { e.Ligne_XAV = 5.0F; }, 22.0 / 1.15},
        // The out of step alone: a limit of 35.5 clears 34.5 and not 36.8.
        {{31}, [](Etude& e) { e.Ligne_XAV = 21.875F; }, 35.5 / 1.15},
        // Backward pick-up and its out of step beyond the close transformers.
        {{32, 33}, [](Etude& e) { e.Ligne_XAM = 10.0F; }, 8.0 / 1.15},
        {{33}, [](Etude& e) { e.Ligne_XAM = 15.0F; }, 12.0 / 1.15},
        // The remote first zone beyond the backward zone.
        {{34}, [](Etude& e) { e.Ligne_X1PB = 30.0F; }, 39.0 - 21.2},
    };
    ReglesPoseesEtEffacees(Conforme, CalculDiagPXLC, 29, 34, cas, 1e-5);
    // The coordination is a long line's only; the PXLN's block is not the PXLC's.
    Etude courte = Conforme();
    courte.Ligne_lc = false;
    courte.Ligne_X1PB = 30.0F;
    PoserRegle(courte, 44, 1.0);
    CalculDiagPXLC(courte);
    EXPECT_FALSE(RegleActive(courte, 34));
    EXPECT_TRUE(RegleActive(courte, 44));
}

TEST(CaracteristiquePXLC, ParallelogrammesEtZonesDeSesReglages) {
    Etude e = Conforme();
    e.PHI_eq = std::atan(2.0); // t = 2
    e.PXLC.Rmoc_HT = 10.0;
    e.Vmin = 100.0;
    e.CRcourant = 1.0;
    e.It = 1000.0;
    CalculDiagPXLC(e);
    const std::vector<SegmentImage> s = SegmentsPXL(e, e.PXLC.Rmoc_HT, 2.0, e.PXLC.ZonesHT);
    ASSERT_EQ(s.size(), 12u);
    // The pick-up from (10 - 10 / 2, -10) to (10 + 30 / 2, 30).
    EXPECT_TRUE(Au(s[1].A, 5.0, -10.0));
    EXPECT_TRUE(Au(s[1].B, 25.0, 30.0));
    // The out of step 2 ohms wider: (12 + 32 / 2, 32).
    EXPECT_TRUE(Au(s[5].B, 28.0, 32.0));
    EXPECT_EQ(s[5].Couleur, e.CouleurAntipompage);
    // Zone 1 at 16 ohms, from -10 + 8 to 10 + 8, dashed.
    EXPECT_NEAR(s[9].A.Re, -2.0, 1e-9);
    EXPECT_NEAR(s[9].B.Re, 18.0, 1e-9);
    EXPECT_NEAR(s[9].A.Im, 16.0, 1e-9);
    EXPECT_EQ(s[9].Style, 2);
    EXPECT_NEAR(DemiLargeurPXLC(e), 36.0, 1e-9);
    e.PXLC.Rmoc_HT = 50.0;
    EXPECT_NEAR(DemiLargeurPXLC(e), 60.0, 1e-9);
}

TEST(MagasinPXLC, LaListeRevientAvecSesTypes) {
    Etude e;
    e.id_protection = ID_PXLC;
    e.id_reglage = 4;
    e.Kz = 2.0;
    e.XL_eq = 30.0;
    e.PXLC.deltaR_BT = 4.5;
    e.PXLC.Rmoc_BT = 33.0;
    e.PXLC.XPct = {80.0, 120.0, 150.0, 150.0, 60.0};
    e.T3 = 700;
    e.Acceleration = true;
    e.PXLC.TypeDecl = 3;
    e.PXLC.FeuilleReglages = true;
    e.Is = 5.0F;
    MagasinMemoire m;
    const Etude relue = AllerRetour(e, m, 29);
    EXPECT_EQ(std::get<double>(m.LireValeur(4, 0)), 4.5);
    EXPECT_EQ(std::get<double>(m.LireValeur(4, 12)), 60.0);      // XPct[5]
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 16)), 700); // T3
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 19)), -1);  // acceleration
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 21)), 3);   // single phase tripping
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 22)), -1);  // the settings sheet
    EXPECT_EQ(std::get<float>(m.LireValeur(4, 28)), 5.0F);       // Is, last

    EXPECT_EQ(relue.PXLC.Rmoc_BT, 33.0);
    EXPECT_EQ(relue.T3, 700);
    EXPECT_TRUE(relue.PXLC.FeuilleReglages);
    EXPECT_EQ(relue.PXLC.TypeDecl, 3);
    EXPECT_DOUBLE_EQ(relue.PXLC.ZonesHT[4], 18.0);
    EXPECT_DOUBLE_EQ(relue.PXLC.ZonesBT[4], 9.0);
    // Read before the line's ratios are known: no failure, the secondary reaches wait.
    Etude sansRapports;
    sansRapports.id_protection = ID_PXLC;
    sansRapports.id_reglage = 4;
    ASSERT_TRUE(LireReglagesRelais(sansRapports, m));
    EXPECT_DOUBLE_EQ(sansRapports.PXLC.ZonesHT[4], 18.0);
    EXPECT_EQ(sansRapports.PXLC.ZonesBT[4], 0.0);
}

TEST_F(EtudePXLC, LesSaisiesVontAuxPasDuRelais) {
    Panneau(false);
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_FALSE(p->Trouver("lblRemarque")->Visible);
    Saisir("txt_deltar", "0,7");
    EXPECT_EQ(p->Trouver("txt_deltar")->Texte(), "0.5");
    EXPECT_DOUBLE_EQ(e.PXLC.deltaR_HT, 0.5 * e.Kz);
    EXPECT_TRUE(p->Trouver("lblRemarque")->Visible);
    Saisir("txt_rmoc_bt", "140");
    EXPECT_EQ(e.PXLC.Rmoc_BT, 100.0);
    EXPECT_DOUBLE_EQ(e.PXLC.Rmoc_HT, 100.0 * e.Kz);
    Saisir("txt_rbic_bt", "39.7"); // the dial's whole ohms
    EXPECT_EQ(e.PXLC.Rbic_BT, 40.0);
    EXPECT_EQ(p->Trouver("txt_rbic_bt")->Texte(), "40");
    Saisir("txtX(0)", "80.4"); // whole per cents
    EXPECT_EQ(e.PXLC.XPct[0], 80.0);
    EXPECT_NEAR(e.PXLC.RsurX, 100.0 * e.Kz / (0.8 * e.XL_eq), 1e-12);
    Saisir("txtX(1)", "121.6");
    EXPECT_EQ(e.PXLC.XPct[1], 122.0);
    Saisir("txtT2", "253");
    EXPECT_EQ(e.T2, 250);
    p->Trouver("chkPasMono")->Valeur = true;
    p->Cliquer("chkPasMono");
    EXPECT_EQ(e.PXLC.TypeDecl, 3);
    p->Trouver("chkFeuille")->Valeur = false;
    p->Cliquer("chkFeuille");
    EXPECT_FALSE(e.PXLC.FeuilleReglages);
    // OK computes the chain: the rules of the PXLC's block are those of its settings.
    p->ValiderBouton();
    EXPECT_EQ(e.ErrCalcul, 0);
    EXPECT_DOUBLE_EQ(e.PXLC.ZonesHT[0], 0.8 * e.XL_eq);
}

TEST(PagePXLC, ReglagesEnPageDeuxEtFeuilleDuRelaisEnPageTrois) {
    InscrireRelais();
    Etude e;
    RemplirEtudeImprimee(e);
    e.id_protection = ID_PXLC;
    e.PXLC.Rmoc_BT = 40.0;
    e.PXLC.XPct = {80.0, 120.0, 150.0, 150.0, 60.0};
    ZonesEnOhmsPXL(e, e.PXLC);
    e.T3 = 700;
    e.PXLC.TypeDecl = 3;
    const std::string z2 = FormaterNombre(1.2 * e.XL_eq / e.Kz, "##0.00");
    std::string tout = TexteImprime(e);
    for (const std::string& attendu :
         {"Second zone reactance\t" + z2 + " Ω/ph.", std::string("120 %"),
          std::string("3rd step timer\t700 ms"), std::string("No single phase tripping"),
          std::string("PXLC-PSEL setting sheet"), std::string("Reach X2\t120 %"),
          std::string("Timer T3\t700 ms")})
        EXPECT_NE(tout.find(attendu), std::string::npos) << attendu << "\n" << tout;
    // Without the third part, no setting sheet.
    e.ImpParties[2] = false;
    tout = TexteImprime(e);
    EXPECT_EQ(tout.find("PXLC-PSEL setting sheet"), std::string::npos);
    EXPECT_NE(tout.find("Second zone reactance"), std::string::npos);
}

} // namespace
