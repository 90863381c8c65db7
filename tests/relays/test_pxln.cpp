// The PXLN, worked out by hand: the zone percentages and their rounding, the four loop
// resistances, the out-of-step band, the rules of the setting guide, the characteristic, the
// stored list, the panel with its rated current check and its parameter sheet, and the listing
// of the relay's setting tool line by line.
#include "EtudeRelais.h"
#include "relays/PanneauFeuilles.h"
#include "relays/pxln/CalculPXLN.h"
#include "relays/pxln/PanneauPXLN.h"
#include "relays/pxln/ParametresPXLN.h"
#include "relays/pxln/TracePXLN.h"

using namespace tournesol;

namespace {

constexpr double PHI = 1.363922; // 78.15 degrees

// A 225 kV line of 30.375 ohms with a relay on 1 A secondaries and Kz 2.25.
Etude Ligne() {
    Etude e;
    e.Is = 1.0F;
    e.Kz = 2.25;
    e.XL_eq = 30.375;
    e.PHI_eq = PHI;
    e.PanneauRelais = true;
    return e;
}

TEST(ZonesPXLN, PourcentagesArrondisAuDixiemeInferieur) {
    Etude e = Ligne();
    e.Ligne_Xprim1 = 26.0; // 855.97 per mille: 85.5 %
    e.Ligne_Xprim2 = 37.0; // 1218.11 + 1 per mille: 121.9 %
    e.Ligne_Xprim3 = 1.5 * e.XL_eq;
    e.PXLN.Rmoc_BT = 20.0;
    e.PXLN.Rmoc_HT = 45.0;
    CalculZonesPXLN(e);
    const auto& x = e.PXLN.XPct;
    EXPECT_DOUBLE_EQ(x[0], 85.5);
    EXPECT_DOUBLE_EQ(x[1], 121.9);
    EXPECT_DOUBLE_EQ(x[2], 150.0); // 1.5 times the line is 150 %, not 149.9
    EXPECT_DOUBLE_EQ(x[3], 150.0);
    // 50 % backward is 6.75 ohms; the pick-up's side at 30 degrees meets the line's image at
    // E = 10.299 ohms, above a quarter of Rmoc (5): 1.1 E over 13.5 ohms per 100 %.
    EXPECT_NEAR(x[4], 83.918, 1e-3);
    EXPECT_NEAR(e.PXLN.RsurX, 45.0 / (30.375 * 0.855), 1e-12);

    // A line of three ends: the third zone is 1.25 times the second.
    e.Ligne_Tl = 3;
    CalculZonesPXLN(e);
    EXPECT_DOUBLE_EQ(x[2], 1.25 * 121.9);

    // A flat line angle: E (4.03) falls below Rmoc / 4, which is taken: 5 ohms over 13.5.
    e.Ligne_Tl = 0;
    e.PHI_eq = 0.3;
    e.Ligne_Xprim3 = 1.05 * e.XL_eq;
    CalculZonesPXLN(e);
    EXPECT_DOUBLE_EQ(x[2], 105.0);
    EXPECT_NEAR(x[4], 37.037, 1e-3);

    // The caps: 200, 500, 1000 and 200 %.
    e.Ligne_Xprim1 = 3.0 * e.XL_eq;
    e.Ligne_Xprim2 = 6.0 * e.XL_eq;
    e.Ligne_Xprim3 = 12.0 * e.XL_eq;
    e.PXLN.Rmoc_BT = 200.0;
    CalculZonesPXLN(e);
    EXPECT_DOUBLE_EQ(x[0], 200.0);
    EXPECT_DOUBLE_EQ(x[1], 500.0);
    EXPECT_DOUBLE_EQ(x[2], 1000.0);
    EXPECT_DOUBLE_EQ(x[4], 200.0);

    // In "Modify" the percentages stay; only R/X follows them.
    e.PanneauRelais = false;
    e.PXLN.XPct = {50.0, 100.0, 120.0, 130.0, 40.0};
    CalculZonesPXLN(e);
    EXPECT_DOUBLE_EQ(x[0], 50.0);
    EXPECT_DOUBLE_EQ(x[4], 40.0);
    EXPECT_NEAR(e.PXLN.RsurX, 45.0 / (30.375 * 0.5), 1e-12);
    // The zones in ohms: per cent of the line, then over Kz.
    CalculDiagPXLN(e);
    EXPECT_NEAR(e.PXLN.ZonesHT[3], 0.3 * 30.375 + 30.375, 1e-12);
    EXPECT_NEAR(e.PXLN.ZonesBT[3], 1.3 * 30.375 / 2.25, 1e-12);
}

TEST(ResistancesPXLN, ParBoucleDepuisLaChargeEtLaBande) {
    Etude e = Ligne();
    RelaisPXLN& r = e.PXLN;
    r.deltaR_BT = 4.7;
    // 100 / 2.25 = 44.44, less the band: 39.74, whole part 39.
    ResistancesPXLN(e, 100.0);
    ResistancesPrimairesPXLN(e);
    EXPECT_EQ(r.Rmoc_BT, 39.0);
    EXPECT_EQ(r.Rbic_BT, 39.0);
    EXPECT_EQ(r.Rmor_BT, 78.0);
    EXPECT_EQ(r.Rbir_BT, 39.0);
    EXPECT_DOUBLE_EQ(r.Rmoc_HT, 87.75);
    EXPECT_DOUBLE_EQ(r.Rmor_HT, 175.5);
    EXPECT_DOUBLE_EQ(r.deltaR_HT, 4.7 * 2.25);
    // Rmoc 120 gives Rmor 200, not 240.
    ResistancesPXLN(e, 280.6);
    EXPECT_EQ(r.Rmoc_BT, 120.0);
    EXPECT_EQ(r.Rmor_BT, 200.0);
    // Rmoc itself stops at 200.
    ResistancesPXLN(e, 1000.0);
    EXPECT_EQ(r.Rmoc_BT, 200.0);
    EXPECT_EQ(r.Rbir_BT, 200.0);

    // In "Modify" the band is kept within 0.2 to 25 secondary ohms, the resistances stay.
    DialogueSansFenetre d;
    e.PanneauRelais = false;
    r.deltaR_BT = 0.1;
    CalculPompagePXLN(e, d);
    EXPECT_DOUBLE_EQ(r.deltaR_BT, 0.2);
    EXPECT_DOUBLE_EQ(r.deltaR_HT, 0.45);
    r.deltaR_BT = 30.0;
    CalculPompagePXLN(e, d);
    EXPECT_DOUBLE_EQ(r.deltaR_BT, 25.0);
    EXPECT_EQ(r.Rmoc_BT, 200.0);
}

// The example line with its PXLN, computed as the working window opens it, and the panel.
struct EtudePXLN : EtudeEtPanneau<PanneauPXLN, DialogueScripte> {
    EtudePXLN() { Charger("champagnier-grande-ile-225kV-pxln.json"); }
};
using PanneauDuPXLN = EtudePXLN;

TEST_F(EtudePXLN, LaBandeEtLesResistancesDeRetourSuiventLaLigne) {
    ASSERT_EQ(e.ErrCalcul, 0);
    e.PanneauRelais = true;
    const Entier16 cas = e.TypeReportCharge;
    const double distance = DistanceTransitPXLN(e, d);
    EXPECT_EQ(e.TypeReportCharge, cas);
    CalculPompagePXLN(e, d);
    const RelaisPXLN& r = e.PXLN;
    // 3 pi / 200 per ohm of source and line per hertz of slip, 2 Hz.
    const double bande = (e.Ligne_XS + e.XL_eq) * 2.0 * 0.0471238898038 / e.Kz;
    EXPECT_NEAR(r.deltaR_BT, std::clamp(bande, 0.2, 25.0), 1e-9);
    EXPECT_EQ(r.Rmoc_BT, std::min(std::floor(distance / e.Kz - r.deltaR_BT), 200.0));
    EXPECT_GT(r.Rmoc_BT, 0.0);
    // The opening put the defaults of "Return" and the zones followed.
    EXPECT_EQ(r.ZonesBloquees, 2);
    EXPECT_EQ(r.TypeDecl, 1);
    EXPECT_EQ(r.Td, 50.0);
    EXPECT_TRUE(r.PorteeReduite); // a long line: acceleration
    EXPECT_DOUBLE_EQ(r.XPct[0], 80.0);
    EXPECT_DOUBLE_EQ(r.ZonesHT[0], 0.8 * e.XL_eq);
    EXPECT_EQ(e.T2, 250); // the study's timers stay
}

TEST_F(EtudePXLN, UneLiaisonClienteTropChargeeEstSignaleeEtLeCalculContinue) {
    e.PanneauRelais = true;
    e.Ligne_alim = 3;
    e.Ligne_itclient = 1900.0;
    e.PXLN.XPct[2] = 500.0; // per cent against ohms: the load is nearer
    const double distance = DistanceTransitPXLN(e, d);
    ASSERT_FALSE(d.Messages().empty());
    EXPECT_EQ(d.Messages().back().sMessage, "incompatible data");
    EXPECT_TRUE(std::isfinite(distance));
}

// Settings that agree with the guide: zones of 16, 24, 30, 30 and 10 ohms, a band of 2.
Etude Conforme() {
    Etude e;
    e.Kz = 1.0;
    e.XL_eq = 20.0;
    e.Ligne_lc = true;
    e.Ligne_XAV = 40.0F; // forward limit 0.8 x 40 + 0.9 x 20 = 50
    e.Ligne_XAM = 40.0F; // backward limit 32
    e.Ligne_X1PB = 10.0F;
    e.PXLN.XPct = {80.0, 120.0, 150.0, 150.0, 50.0};
    e.PXLN.deltaR_HT = 2.0;
    return e;
}

TEST(DiagnosticsPXLN, ChaqueRegleSePoseEtSEfface) {
    const std::vector<CasRegles> cas{
        // Third zone under 1.2 times the second.
        {{44}, [](Etude& e) { e.PXLN.XPct[3] = 140.0; }, 28.8},
        // Forward pick up beyond the remote transformers.
        {{45, 46}, [](Etude& e) { e.Ligne_XAV = 5.0F; }, 22.0 / 1.15},
        // External out of step alone beyond them.
        {{46}, [](Etude& e) { e.Ligne_XAV = 21.875F; }, 35.5 / 1.15},
        // Backward pick up beyond the close transformers.
        {{47, 48}, [](Etude& e) { e.Ligne_XAM = 10.0F; }, 8.0 / 1.15},
        // Backward out of step alone.
        {{48}, [](Etude& e) { e.Ligne_XAM = 15.0F; }, 12.0 / 1.15},
        // The remote first zone beyond the backward zone.
        {{49}, [](Etude& e) { e.Ligne_X1PB = 30.0F; }, 39.0 - 21.2},
    };
    ReglesPoseesEtEffacees(Conforme, CalculDiagPXLN, 44, 49, cas, 1e-5);
    // The coordination with the remote relay is a long line's only.
    Etude courte = Conforme();
    courte.Ligne_lc = false;
    courte.Ligne_X1PB = 30.0F;
    CalculDiagPXLN(courte);
    EXPECT_FALSE(RegleActive(courte, 49));
}

TEST(CaracteristiquePXLN, ParallelogrammesEtZones) {
    Etude e = Conforme();
    e.PHI_eq = std::atan(2.0); // t = 2
    e.PXLN.Rmoc_HT = 10.0;
    e.Vmin = 100.0;
    e.CRcourant = 1.0;
    e.It = 1000.0; // load impedance 100 ohms
    CalculDiagPXLN(e);
    const std::vector<SegmentImage> s = SegmentsPXLN(e);
    ASSERT_EQ(s.size(), 12u);
    // The directional line: 100 ohms at -30 degrees, through the origin.
    EXPECT_TRUE(Au(s[0].A, 100.0 * std::cos(PI / 6.0), -50.0));
    EXPECT_TRUE(Au(s[0].B, -100.0 * std::cos(PI / 6.0), 50.0));
    // The pick-up: from (10 - 10 / 2, -10) to (10 + 30 / 2, 30), then across to (-10 + 15, 30).
    EXPECT_TRUE(Au(s[1].A, 5.0, -10.0));
    EXPECT_TRUE(Au(s[1].B, 25.0, 30.0));
    EXPECT_NEAR(s[2].B.Re, 5.0, 1e-9);
    EXPECT_NEAR(s[4].B.Re, s[1].A.Re, 1e-9); // closed
    EXPECT_EQ(s[1].Couleur, e.CouleurTriphase);
    // The out of step, 2 ohms wider on every side: (12 + (-12) / 2, -12) and (12 + 32 / 2, 32).
    EXPECT_TRUE(Au(s[5].A, 6.0, -12.0));
    EXPECT_TRUE(Au(s[5].B, 28.0, 32.0));
    // Zone 2 at 24 ohms, dashed, from -10 + 12 to 10 + 12.
    EXPECT_NEAR(s[10].A.Re, 2.0, 1e-9);
    EXPECT_NEAR(s[10].B.Re, 22.0, 1e-9);
    EXPECT_NEAR(s[10].A.Im, 24.0, 1e-9);
    EXPECT_EQ(s[10].Style, 2);
    // The plane on OK: 1.2 times the forward reach (36) against 1.2 Rmoc (12).
    EXPECT_NEAR(DemiLargeurPXLN(e), 36.0, 1e-9);
    e.PXLN.Rmoc_HT = 50.0;
    EXPECT_NEAR(DemiLargeurPXLN(e), 60.0, 1e-9);
}

TEST(MagasinPXLN, LaListeRevientAvecSesTypes) {
    Etude e;
    e.id_protection = ID_PXLN;
    e.id_reglage = 4;
    e.Kz = 2.0;
    e.XL_eq = 30.0;
    e.PXLN.deltaR_BT = 4.5;
    e.PXLN.ZonesBloquees = 3;
    e.PXLN.OptIi = true;
    e.PXLN.XPct = {80.0, 120.0, 150.0, 150.0, 60.0};
    e.T2 = 250;
    e.PXLN.Maitre = true;
    e.PXLN.Capacitif = true;
    e.PXLN.ParamPXLN[P_TENSION - 1] = 110.0;
    e.PXLN.ParamPXLN[P_ENCMONO - 1] = 1.0;
    e.Is = 1.0F;
    MagasinMemoire m;
    const Etude relue = AllerRetour(e, m, 67);
    EXPECT_EQ(std::get<double>(m.LireValeur(4, 0)), 4.5);
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 3)), 3);
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 6)), -1);
    EXPECT_EQ(std::get<double>(m.LireValeur(4, 25)), 60.0);      // XPct[5], position 26
    EXPECT_EQ(std::get<std::int32_t>(m.LireValeur(4, 28)), 250); // T2, 32 bits
    EXPECT_EQ(std::get<std::int16_t>(m.LireValeur(4, 32)), -1);  // Maitre
    EXPECT_EQ(std::get<double>(m.LireValeur(4, 40)), 110.0);     // the rated voltage
    EXPECT_EQ(std::get<float>(m.LireValeur(4, 66)), 1.0F);       // Is, last

    EXPECT_EQ(relue.PXLN.ZonesBloquees, 3);
    EXPECT_TRUE(relue.PXLN.OptIi);
    EXPECT_EQ(relue.T2, 250);
    EXPECT_TRUE(relue.PXLN.Maitre);
    EXPECT_EQ(relue.PXLN.ParamPXLN, e.PXLN.ParamPXLN);
    EXPECT_DOUBLE_EQ(relue.PXLN.ZonesHT[4], 18.0);
    EXPECT_DOUBLE_EQ(relue.PXLN.ZonesBT[4], 9.0);
}

TEST_F(PanneauDuPXLN, UnCourantNominalAutreQueUnAEstSignaleEtLeCalculContinue) {
    Panneau(true);
    EXPECT_FALSE(p->Trouver("txtInerr")->Visible);
    e.Is = 5.0F;
    e.PXLN.XPct = {};
    Panneau(true);
    EXPECT_EQ(e.ErrCalcul, 0);
    EXPECT_TRUE(p->Trouver("txtInerr")->Visible);
    EXPECT_EQ(p->Trouver("txtInerr")->Texte(),
              "Error: the implemented rated secondary current must be  1 A");
    EXPECT_TRUE(d.Messages().empty()); // a label, not a message
    EXPECT_DOUBLE_EQ(e.PXLN.XPct[0], 80.0);
    EXPECT_DOUBLE_EQ(e.PXLN.ZonesHT[0], 0.8 * e.XL_eq);
}

TEST_F(PanneauDuPXLN, LesChampsSontBornesEtLeursSuitesCalculees) {
    Panneau(false);
    ASSERT_EQ(e.ErrCalcul, 0);
    const double rmoc = e.PXLN.Rmoc_BT;
    // A band below 0.2 becomes 0.2; the resistances follow and the remark comes up.
    EXPECT_FALSE(p->Trouver("lblRemarque")->Visible);
    Saisir(*p, "txt_deltar", "0,1");
    EXPECT_EQ(p->Trouver("txt_deltar")->Texte(), "0.2");
    EXPECT_DOUBLE_EQ(e.PXLN.deltaR_BT, 0.2);
    EXPECT_TRUE(p->Trouver("lblRemarque")->Visible);
    EXPECT_GE(e.PXLN.Rmoc_BT, rmoc);
    EXPECT_EQ(p->Trouver("lbl_Rmoc_HT")->Texte(),
              "(" + p->Trouver("txt_Rmoc_HT")->Texte() + " ohm HT)");
    // A resistance beyond 200 takes 200, and its primary image follows.
    Saisir(*p, "txt_rmor_bt", "240");
    EXPECT_EQ(e.PXLN.Rmor_BT, 200.0);
    EXPECT_DOUBLE_EQ(e.PXLN.Rmor_HT, 200.0 * e.Kz);
    // The first zone's percentage gives R/X at once.
    Saisir(*p, "txtX(0)", "50");
    EXPECT_NEAR(e.PXLN.RsurX, e.PXLN.Rmoc_HT / (0.5 * e.XL_eq), 1e-12);
    // The options of a frame set one number.
    p->Trouver("chkPasMono")->Valeur = true;
    p->Cliquer("chkPasMono");
    EXPECT_EQ(e.PXLN.TypeDecl, 3);
    EXPECT_FALSE(p->Trouver("chkMono12")->Valeur);
}

TEST_F(PanneauDuPXLN, LesParametresSeGardentParOKEtNonParAnnuler) {
    Panneau(false);
    ASSERT_DOUBLE_EQ(ParametrePXLN(e, P_TENSION), 100.0); // the default of a new study
    // Cancel: the value typed and limited stays in the sheet.
    d.QuandPanneau(NOM_PARAMETRES_PXLN, [](tournesol::Panneau& f) {
        Saisir(f, "Tension", "130");
        EXPECT_EQ(f.Trouver("Tension")->Texte(), "120");
        f.Cliquer(PanneauFeuilles::BOUTON_ANNULER);
    });
    p->Cliquer(PanneauPXLN::BOUTON_PARAMETRES);
    EXPECT_DOUBLE_EQ(ParametrePXLN(e, P_TENSION), 100.0);
    // OK takes the sheet: a voltage below 40 becomes 40, a list its entry's index.
    d.QuandPanneau(NOM_PARAMETRES_PXLN, [](tournesol::Panneau& f) {
        EXPECT_EQ(f.Titre(), "PXLN : parameters");
        EXPECT_EQ(f.Trouver("Intensité")->Texte(), "1");
        Saisir(f, "Tension", "12");
        Champ& vers = *f.Trouver("VERRENC");
        vers.DefinirTexte("3 : blocking for t3");
        f.Cliquer(PanneauFeuilles::BOUTON_OK);
    });
    p->Cliquer(PanneauPXLN::BOUTON_PARAMETRES);
    EXPECT_DOUBLE_EQ(ParametrePXLN(e, P_TENSION), 40.0);
    EXPECT_EQ(EntreeListePXLN(e, P_VERRENC), "3 : blocking for t3");
}

// The listing of a study set by hand, keyword by keyword: the line of 75 km of Champagnier, a
// double circuit line with a master PXLN and an overreaching blocking scheme.
Etude EtudeListee() {
    Etude e;
    e.Is = 1.0F;
    e.Kz = 2.25;
    e.Longueur_eq = 75.0;
    e.Ro_eq = 18.75;
    e.RL_eq = 6.375;
    e.Xo_eq = 90.0;
    e.XL_eq = 30.375;
    e.Ligne_Tl = 1;
    e.Teleaction = true;
    e.T2 = 250;
    e.T3 = 600;
    e.T4 = 1500;
    RelaisPXLN& r = e.PXLN;
    r.Maitre = true;
    r.PorteeReduite = false;
    r.Td = 50.0;
    r.TypeDecl = 1;
    r.ZonesBloquees = 2;
    r.VerrEmission = true;
    r.OptIp = true;
    r.Ip_pct = 20.0;
    r.Ii_pct = 15.0;
    r.OptIo = true;
    r.Io_pct = 4.0;
    r.deltaR_BT = 4.73;
    r.TempoBlocage = 4000.0;
    r.Capacitif = true;
    r.XPct = {80.0, 120.1, 150.0, 150.0, 83.92};
    r.Rmoc_BT = 39.0;
    r.Rbic_BT = 39.0;
    r.Rmor_BT = 78.0;
    r.Rbir_BT = 39.0;
    ParametresParDefautPXLN(e);
    r.ParamPXLN[P_HF - 1] = 2;
    r.ParamPXLN[P_CONFU - 1] = 1;
    r.ParamPXLN[P_SEUILCONFU - 1] = 0.25;
    r.ParamPXLN[P_VERRENC - 1] = 1;
    r.ParamPXLN[P_SEALIN - 1] = 0;
    r.ParamPXLN[P_SEALIN_SEUIL - 1] = 0.5;
    return e;
}

TEST(ListingPXLN, MotCleParMotCle) {
    const std::vector<LigneListing> attendu{
        {{0, ".PARA\\PXLN parameters"}},
        {},
        {{0, "*LIGN\\acquisition of line parameters"}},
        {{20, "**FN"}, {60, "50\\    network frequency in Hz"}},
        {{20, "**UN"}, {60, "100\\    secondary rated voltage TT in V"}},
        {{20, "**IN"}, {60, "1\\    secondary rated current TC in A"}},
        {{20, "**L"}, {60, "75.0\\    line length in km"}},
        // 18.75 / 2.25 / 75 = 0.1111; 6.375 / 168.75 = 0.0378
        {{20, "**RO"}, {60, "0.111\\    zero sequence resistance per unit in #W/km"}},
        {{20, "**RD"}, {60, "0.038\\    positive sequence resistance per unit in #W/km"}},
        // (2 x 30.375 + 90) / 3 = 50.25 over 168.75; (90 - 30.375) / 3 = 19.875 over it
        {{20, "**REAL"}, {60, "0.298\\    phase to earth loop reactance per unit in #W/km"}},
        {{20, "**REAM"}, {60, "0.118\\    mutual reactance per unit in #W/km"}},
        {{20, "**XO"}, {60, "0.533\\   zero sequence reactance per unit in #W/km "}},
        {{20, "**XD"}, {60, "0.180\\    positive sequence reactance per unit in #W/km"}},
        {},
        {{0, "*LIGD\\acquisition of double circuit line parameters"}},
        {{20, "**TYPE"}, {60, "\\    double circuit line with connection between PXLN (mater)"}},
        {{20, "**TEMPO"},
         {60, "50\\    delay for maintaining the direction oriented backwards in ms"}},
        {},
        {{0, "*TEMPOS\\acquisition of step timers"}},
        {{20, "**T1"}, {60, "0\\    First step timer in ms"}},
        {{20, "**T2"}, {60, "250\\    Second step timer in ms"}},
        {{20, "**T3"}, {60, "600\\    Third step timer in ms"}},
        {{20, "**T4"}, {60, "1500\\    Fourth step timer in ms"}},
        {},
        {{0, "*TELEAC\\acquisition of signalling parameters"}},
        {{20, "**TYPE"}, {60, "PEV\\    blocking overreach"}},
        {{20, "**DEVER"}, {60, "HF\\presence of carrier"}},
        {},
        {{0, "**WI/ECHO\\mode \"Weak Infeed\" and echo"}},
        {{30, "***SELECT"}, {60, "0\\Weak Infeed and echo mode disabled"}},
        {{30, "***CONFU"}, {60, "1 ~ 0.25\\   In"}},
        {{30, "***DECL"}, {60, "1\\three phase tripping (on signal reception)    "}},
        {{30, "***ISEUIL"}, {60, "0\\0,05 In (minimal current threshold)    "}},
        {{30, "***TEMPDEC"}, {60, "100\\   tripping delay on weak infeed in ms"}},
        {{30, "***TEMPVER"}, {60, "100\\   blocking delay on weak infeed in ms"}},
        {},
        {{20, "**EMISSIO"}, {60, "EZ2\\acceleration signal emission by zone 2"}},
        {},
        {{10, "*DECL"}, {60, "BAN2\\    Three phase tripping on zones 2, 3 et 4"}},
        {},
        {{0, "*POMP\\blocking in case of out of step"}},
        {{20, "**DECL"},
         {60, "0\\   three phase tripping in any case\\   (when fault and out of step)   "}},
        {{20, "**VERPOMP"}, {60, "3\\    blocking suppression zones 1 et 2"}},
        {{20, "**VERETEL"}, {60, "1\\    blocking of the emission of the signal if out of step"}},
        {{20, "**VERRTEL"},
         {60, "0\\    no blocking of the reception of the signal if out of step"}},
        {{20, "**VERWI"},
         {60, "0\\no blocking of Weak Infeed\\blocking of weak infeed if out of step"}},
        {{20, "**Z1IND"},
         {60, "0\\Zone 1 not independant from out of step\\zone 1 independent if out of step"}},
        {{20, "**SPIR"}, {60, "   yes    ~20.\\    in #% In"}},
        {{20, "**SPII"}, {60, "   no~15.\\    in #% In"}},
        {{20, "**SPIF"}, {60, "   yes    ~4.\\    in #% In"}},
        {{20, "**BDPOMP"}, {60, "4.73\\    out of step bandwidth in #W"}},
        {{20, "**TEMPO"}, {60, "4000\\    blocking suppression delay if out of step in ms"}},
        {},
        {{10, "*REDUC"}, {60, "\\    capacitive voltage transformer"}},
        {},
        {{0, "*ZONE\\acquistion of monitored zones"}},
        {{20, "**X1"}, {60, "80.\\     in #%"}},
        {{20, "**X2"}, {60, "120.1\\     in #%"}},
        {{20, "**X3"}, {60, "150.\\     in #%"}},
        {{20, "**X4"}, {60, "150.\\     in #%"}},
        {{20, "**X5"}, {60, "83.92\\     in #%"}},
        {},
        {{0, "*RESI\\acquistion of loop reistances"}},
        {{20, "**RMOR"}, {60, "78\\    in #W/b."}},
        {{20, "**RBIR"}, {60, "39\\    in #W/b."}},
        {{20, "**RMOC"}, {60, "39\\    in #W/b."}},
        {{20, "**RBIC"}, {60, "39\\    in #W/b."}},
        {},
        {{0, "*FFUS\\acquisition of fuse melting parameters"}},
        {{20, "**TEMPO"}, {60, "10.0\\    in s."}},
        {{20, "**ISEUIL"}, {60, "0.1\\    In"}},
        {},
        {{10, "*SEALIN"}, {60, "0~0.5\\   In"}},
        {},
        {{10, "*VERRENC"}, {60, "2\\blocking for t2"}},
        {},
        {{0, "*ENCLEN\\line enclosing parameters"}},
        {{20, "**ISEUIL"}, {60, "1.0\\    In"}},
        {{20, "**ENCMONO"}, {60, "0\\no"}},
        {{20, "**EMISSIO"}, {60, "0\\no signal emission"}},
    };
    const std::vector<LigneListing> listing = ListingPXLN(EtudeListee());
    ASSERT_EQ(listing.size(), attendu.size());
    for (std::size_t i = 0; i < attendu.size(); ++i)
        EXPECT_EQ(listing[i], attendu[i]) << "line " << i + 1;

    // As text: each piece at its column, the symbol marks in Unicode.
    EXPECT_EQ(TexteLigneListing(listing[3]), std::string(20, ' ') + "**FN" + std::string(36, ' ') +
                                                 "50\\    network frequency in Hz");
    EXPECT_EQ(TexteLigneListing(listing[7]).substr(60),
              "0.111\\    zero sequence resistance per unit in Ω/km");
    EXPECT_EQ(TexteLigneListing({{10, "*VERRENC"}, {12, "x"}}), "          *VERRENC x");
}

TEST(ListingPXLN, LesMotsClesSuiventLeSchemaEtLaLigne) {
    Etude e = EtudeListee();
    auto valeur = [&e](const std::string& motCle, int occurrence = 1) {
        for (const LigneListing& l : ListingPXLN(e))
            if (l.size() == 2 && l[0].second == motCle && --occurrence == 0) return l[1].second;
        return std::string("(none)");
    };
    e.PXLN.PorteeReduite = true;
    EXPECT_EQ(valeur("**TYPE", 2), "PRS\\    acceleration");
    e.Teleaction = false;
    EXPECT_EQ(valeur("**TYPE", 2), "PAS\\    no signal");
    EXPECT_EQ(valeur("**TYPE", 1), "\\    double circuit line without connection between PXLN");
    e.Teleaction = true;
    e.PXLN.Maitre = false;
    EXPECT_EQ(valeur("**TYPE", 1),
              "\\    double circuit line with connection between PXLN (slave)");
    e.Ligne_Tl = 0;
    EXPECT_EQ(valeur("**TYPE", 1), "\\    single circuit line");
    e.PXLN.TypeDecl = 2;
    EXPECT_EQ(valeur("*DECL"), "MONO\\    single phase tripping");
    e.PXLN.TypeDecl = 3;
    EXPECT_EQ(valeur("*DECL"), "BAN1\\    Three phase tripping on every zone");
    const std::array<const char*, 5> verpomp{
        "0\\    no blocking", "2\\   blocking suppression zone 1",
        "3\\    blocking suppression zones 1 et 2", "4\\    blocking suppression zones 1, 2 et 3",
        "1\\    général blocking"};
    for (Entier16 z = 0; z < 5; ++z) {
        e.PXLN.ZonesBloquees = z;
        EXPECT_EQ(valeur("**VERPOMP"), verpomp[static_cast<std::size_t>(z)]);
    }
    e.PXLN.Capacitif = false;
    EXPECT_EQ(valeur("*REDUC"), "\\    wounded voltage transformer");
}

} // namespace
