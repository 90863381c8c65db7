// The mechanisms the relays stand on, each tried with a small relay of its own: lists of
// choices, text values, option groups that set one number, array elements, a quiet stop, its own
// box, twins by the CT ratio and in cycles, its signalling options, a sheet dialog with Cancel,
// digit-led names in the study file, 32-bit values and a place's block in the store, the pulled
// load points, and a page that runs over two pages with wrapped lines and symbol marks.
#include "EtudeRelais.h"
#include "network/Transit.h"
#include "printing/Redacteur.h"
#include "relays/PanneauFeuilles.h"
#include "relays/PanneauProtection.h"

using namespace tournesol;

namespace {

// The signalling of a relay whose blocking is the negation of its acceleration (PXLN-like).
const Signalisation& SignalisationEssai() {
    static const Signalisation s{.Teleaction = "chktéléaction",
                                 .Acceleration = "chkPortéeRéduite",
                                 .Verrouillage = "chkPortéeEtendue",
                                 .VTeleaction = Lien(&Etude::Teleaction),
                                 .VAcceleration = Lien(&Etude::Acceleration),
                                 .VVerrouillage = {}};
    return s;
}

const TableChamps& TableEssai() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t{
            // A list whose variable keeps the index of the entry.
            {.Nom = "HF",
             .Groupe = "Signal/carrier",
             .Saisie = true,
             .Genre = GenreChamp::Liste,
             .Valeur = Lien(&Etude::Ligne_pp),
             .Choix = {"NO : none", "DE : unblocking", "HF : carrier"}},
            // A text.
            {.Nom = "txtstr26",
             .Legende = "S2:6",
             .Groupe = "Signal/straps",
             .Saisie = true,
             .Texte = LienTexte(&Etude::RAZOA, &RelaisRAZOA::str26)},
            // Options that set one number.
            {.Nom = "chk_Aucune",
             .Groupe = "Signal/blocked zones",
             .Genre = GenreChamp::Option,
             .Valeur = Lien(&Etude::TypeReportCharge),
             .ValeurOption = 0.0},
            {.Nom = "chk_Zone3",
             .Groupe = "Signal/blocked zones",
             .Genre = GenreChamp::Option,
             .Valeur = Lien(&Etude::TypeReportCharge),
             .ValeurOption = 2.0},
            // An element of an array, in degrees for a value kept in radians, with a hint.
            {.Nom = "txtangle",
             .Format = "#0.00",
             .Min = 30.0,
             .Max = 80.0,
             .Groupe = "Signal/angles",
             .Saisie = true,
             .Valeur = EnDegres(Lien(&Etude::Ligne_PHI, 1)),
             .Aide = "from 30 to 80 degrees"},
            // A current and its primary image by Ip / Is.
            {.Nom = "txtir1_bt",
             .Format = "###0.0",
             .Min = 0.1,
             .Max = 20.0,
             .Groupe = "Signal/currents",
             .Saisie = true,
             .Valeur = Lien(&Etude::S321, &RelaisS321::_50G1),
             .Jumeau = "txtir1_ht",
             .Rapport = RapportJumeau::Courant},
            {.Nom = "txtir1_ht", .Format = "###0.0", .Groupe = "Signal/currents"},
            // A timer and its cycles.
            {.Nom = "txtt2m",
             .Format = "###0",
             .Max = 40000.0,
             .Groupe = "Signal/timers",
             .Saisie = true,
             .Valeur = Lien(&Etude::T2),
             .Jumeau = "txt2m",
             .Rapport = RapportJumeau::Cycles},
            {.Nom = "txt2m", .Format = "#0", .Groupe = "Signal/timers"},
        };
        for (DescriptionChamp& d :
             ChampsTeleaction("Signal/signalling", "Presence of signalling scheme", "Acceleration",
                              "Blocking overreach", SignalisationEssai()))
            t.push_back(std::move(d));
        return TableChamps(std::move(t));
    }();
    return table;
}

// One sheet, one step that stops quietly when the line is a plant link; its box is RXAP-like.
class RelaisMecanismes : public PanneauProtection {
public:
    RelaisMecanismes(Etude& e, Dialogue& d) : PanneauProtection(e, d, 11) {
        DeclarerOnglets({"Signal"});
        DeclarerChamps(TableEssai());
        DeclarerTeleaction(SignalisationEssai());
        DeclarerAvisCentrale("Attention, the case of the plant-ubstation link is not studied for "
                             "the RXAP.");
        DeclarerEtapes({{"Zones",
                         [this] {
                             if (e_.Ligne_alim == 3) ArreterChaine("Setting impossible");
                             ++Calculs;
                         }},
                        {"Diag", [this] { ++Diagnostics; }}});
    }
    int Calculs = 0;
    int Diagnostics = 0;

protected:
    CadrePlan CadreDuPlan() override { return CadrePlan::HautBas(1.2 * 600.0, -1.2 * 2000.0); }
};

struct Mecanismes : ::testing::Test {
    Mecanismes() {
        e.NomPoste = "SAINT-ALBAN";
        e.Kz = 2.0;
        e.Ligne_Ip = 1200;
        e.Is = 5.0F;
        e.Ligne_PHI[1] = DegToRad(75.0);
        e.RAZOA.str26 = "0N";
        e.Ligne_pp = 2;
    }
    Etude e;
    DialogueScripte d;
};

} // namespace

TEST_F(Mecanismes, ChampsDeLaTable) {
    RelaisMecanismes r(e, d);
    r.Ouvrir();
    // A list shows the entry its variable names; choosing another writes its index.
    Champ& hf = *r.Trouver("HF");
    EXPECT_EQ(hf.Texte(), "HF : carrier");
    EXPECT_EQ(hf.Liste.size(), 3U);
    hf.IndexListe = 1;
    hf.DefinirTexte("DE : unblocking");
    r.Changer("HF");
    EXPECT_EQ(e.Ligne_pp, 1);
    // A text is shown and taken as it stands, "0N" included.
    EXPECT_EQ(r.Trouver("txtstr26")->Texte(), "0N");
    Saisir(r, "txtstr26", "OFF");
    EXPECT_EQ(e.RAZOA.str26, "OFF");
    // Options that set one number: the chosen one writes its value, the other is released.
    r.Trouver("chk_Zone3")->Valeur = true;
    r.Cliquer("chk_Zone3");
    EXPECT_EQ(e.TypeReportCharge, 2);
    EXPECT_FALSE(r.Trouver("chk_Aucune")->Valeur);
    // An element of an array, in degrees, limited to its range; its hint.
    EXPECT_EQ(r.Trouver("txtangle")->Texte(), "75.00");
    EXPECT_EQ(r.Trouver("txtangle")->Aide, "from 30 to 80 degrees");
    Saisir(r, "txtangle", "95");
    EXPECT_NEAR(e.Ligne_PHI[1], DegToRad(80.0), 1e-12);
    // A current's primary image by Ip / Is (1200 / 5), a timer's cycles of 20 ms.
    Saisir(r, "txtir1_bt", "0.5");
    EXPECT_FLOAT_EQ(e.S321._50G1, 0.5F);
    EXPECT_EQ(r.Trouver("txtir1_ht")->Texte(), "120.0");
    Saisir(r, "txtt2m", "259");
    EXPECT_EQ(e.T2, 259);
    EXPECT_EQ(r.Trouver("txt2m")->Texte(), "12");
}

TEST_F(Mecanismes, SignalisationArretEtCadre) {
    // Signalling options of their own names; the blocking is the negation of the acceleration.
    e.PanneauRelais = true;
    e.Ligne_lc = false;
    RelaisMecanismes r(e, d);
    r.Ouvrir();
    EXPECT_TRUE(r.Trouver("chktéléaction")->Valeur);
    EXPECT_FALSE(r.Trouver("chkPortéeRéduite")->Valeur);
    EXPECT_TRUE(r.Trouver("chkPortéeEtendue")->Valeur);
    r.Trouver("chkPortéeRéduite")->Valeur = true;
    r.Cliquer("chkPortéeRéduite");
    EXPECT_TRUE(e.Acceleration);
    EXPECT_FALSE(r.Trouver("chkPortéeEtendue")->Valeur);
    r.Trouver("chktéléaction")->Valeur = false;
    r.Cliquer("chktéléaction");
    EXPECT_FALSE(r.Trouver("chkPortéeEtendue")->Actif);

    // OK fits the plane to the relay's box: top, bottom, half width their mean, each capped.
    r.ValiderBouton();
    EXPECT_FLOAT_EQ(e.ScaleTop, 720.0F);
    EXPECT_FLOAT_EQ(e.ScaleHeight, -1720.0F);
    EXPECT_FLOAT_EQ(e.ScaleLeft, -860.0F);
    EXPECT_FLOAT_EQ(e.ScaleWidth, 1720.0F);

    // A quiet stop: its message, no later step, no failure; the panel stays up.
    e.Ligne_alim = 3;
    RelaisMecanismes arrete(e, d);
    arrete.Ouvrir();
    EXPECT_TRUE(arrete.ChaineArretee());
    EXPECT_EQ(arrete.Diagnostics, 0);
    EXPECT_EQ(e.ErrCalcul, 0);
    EXPECT_FALSE(arrete.Ferme());
    EXPECT_EQ(d.Messages().back().sMessage, "Setting impossible");
    // The relay's own notice on a plant link.
    e.Ligne_alim = 1;
    arrete.ChoixOnglet(0);
    EXPECT_EQ(d.Messages().back().sMessage,
              "Attention, the case of the plant-ubstation link is not studied for the RXAP.");
}

TEST_F(Mecanismes, FeuillesAvecAnnuler) {
    e.T2 = 100;
    PanneauFeuilles f(e, "frmPXLN_p", "PXLN : parameters", {"Signal"}, TableEssai());
    f.Ouvrir();
    EXPECT_EQ(f.Trouver("txtt2m")->Texte(), "100");
    // A value out of range takes the limit in the field only; Cancel leaves the study.
    Saisir(f, "txtt2m", "50000");
    EXPECT_EQ(f.Trouver("txtt2m")->Texte(), "40000");
    f.Trouver("chk_Zone3")->Valeur = true;
    f.Cliquer("chk_Zone3");
    f.Cliquer(PanneauFeuilles::BOUTON_ANNULER);
    EXPECT_TRUE(f.Ferme());
    EXPECT_EQ(e.T2, 100);
    EXPECT_EQ(e.TypeReportCharge, 0);
    // OK takes every field.
    PanneauFeuilles g(e, "frmPXLN_p", "PXLN : parameters", {"Signal"}, TableEssai());
    g.Ouvrir();
    Saisir(g, "txtt2m", "50000");
    g.Trouver("chk_Zone3")->Valeur = true;
    g.Cliquer("chk_Zone3");
    g.Cliquer(PanneauFeuilles::BOUTON_OK);
    EXPECT_EQ(e.T2, 32767); // the limit of the field, then the variable's 16 bits
    EXPECT_EQ(e.TypeReportCharge, 2);
}

TEST_F(Mecanismes, FichierEtMagasin) {
    // A relay parameter named with a digit first is a key of the study file under that name.
    e.id_protection = 12;
    e.S321._50G1 = 0.4F;
    const std::string texte = EcrireEtude(e);
    EXPECT_NE(texte.find("\"50G1\": 0.4"), std::string::npos);
    Etude lue;
    LireEtude(R"({"id_protection": 12, "50QF": 2.5})", lue);
    EXPECT_FLOAT_EQ(lue.S321._50QF, 2.5F);
    EXPECT_THROW(LireEtude(R"({"id_protection": 3, "50QF": 2.5})", lue), ErreurFichierEtude);

    // A 32-bit integer comes back as one.
    MagasinMemoire m;
    DebutTR(e);
    EcrireTR(e, m, std::int32_t{70000});
    DebutTR(e);
    const ValeurTR v = LireTR(e, m);
    ASSERT_TRUE(std::holds_alternative<std::int32_t>(v));
    std::int32_t t = 0;
    LireDans(v, t);
    EXPECT_EQ(t, 70000);

    // A place's block keeps the relay's list and the line, and gives them back exactly.
    RemplirEtudeImprimee(e);
    e.id_protection = 3;
    e.X1reg_HT = 12.5;
    e.XL_eq = 30.375;
    e.Ligne_pp = 1;
    BlocReglages bloc;
    ASSERT_TRUE(SauverReglage(e, bloc));
    e.X1reg_HT = 2.0;
    e.XL_eq = 1.0;
    e.Ligne_pp = 0;
    e.PositionTR = 5;
    ASSERT_TRUE(RestaurerReglage(e, bloc));
    EXPECT_DOUBLE_EQ(e.X1reg_HT, 12.5);
    EXPECT_DOUBLE_EQ(e.XL_eq, 30.375);
    EXPECT_EQ(e.Ligne_pp, 1);
    EXPECT_EQ(e.PositionTR, 5); // the store's cursor is the study's own
}

TEST_F(Mecanismes, PointsTires) {
    e.ZL_eq = 20.0;
    e.PHI_eq = DegToRad(80.0);
    const double m0 = 100.0;
    CplxPolar(e.PointsTransit[0], m0, DegToRad(10.0));
    CplxPolar(e.PointsTransit[2], 120.0, DegToRad(40.0));  // beyond 30 degrees: pulled
    CplxPolar(e.PointsTransit[3], 120.0, DegToRad(160.0)); // beyond 150 degrees: stays
    CplxPolar(e.PointsTransit[4], 90.0, DegToRad(300.0));  // below 330 degrees: pulled
    CplxPolar(e.PointsTransit[5], 90.0, DegToRad(200.0));  // below 210 degrees: stays
    const auto p = PointsTransitTires(e);
    const double a = DegToRad(50.0); // the line's angle less 30 degrees
    EXPECT_NEAR(p[2].Module,
                20.0 * std::cos(a) + std::sqrt(m0 * m0 - std::pow(20 * std::sin(a), 2)), 1e-9);
    EXPECT_NEAR(p[2].Argument, PI / 6.0, 1e-15);
    EXPECT_NEAR(p[2].Re, p[2].Module * std::cos(PI / 6.0), 1e-9);
    EXPECT_DOUBLE_EQ(p[3].Module, 120.0);
    EXPECT_DOUBLE_EQ(p[4].Module, m0);
    EXPECT_NEAR(p[4].Argument, 11.0 * PI / 6.0, 1e-15);
    EXPECT_DOUBLE_EQ(p[5].Argument, DegToRad(200.0));
    // Circles that do not cut pull all four.
    e.fNoIntersect = true;
    EXPECT_NEAR(PointsTransitTires(e)[5].Argument, 7.0 * PI / 6.0, 1e-15);
    EXPECT_DOUBLE_EQ(e.PointsTransit[2].Module, 120.0); // the area itself is left as it is
}

TEST_F(Mecanismes, PageLongueRepliee) {
    RemplirEtudeImprimee(e);
    e.Pas = 1.0;
    DialogueImpression dialogue(e);
    PageComptee page;
    page.NouvellePage();
    EtatImpression etat;
    MesurerMarge(page, etat);
    ContexteImpression c{e, dialogue, page, etat, {}, {}, "23/11/2026 - 12:00"};
    c.cadres = CalculerCadres({0, 0, page.Largeur(), page.Hauteur()}, etat.MargeImpression,
                              etat.DemiMarge, e.Pas, page.HauteurTexte("TOURNESOL"));
    Redacteur r(c, &CadresPage::CadreTexte, GenrePage::Texte);
    const std::string longue =
        "a comment long enough to run past the right edge of the frame of the page, "
        "and then some more words so that it must be wrapped twice over on this A4 sheet";
    const std::string valeur =
        "0.085\\    zero sequence resistance per unit of the line in #W/km, at #% of its length";
    for (int i = 0; i < 40; ++i)
        r.Ligne({{20, "**RO"}, {60, valeur}});
    r.Ligne(longue);
    // The frame filled up: the text went on on new pages with their frames and head.
    EXPECT_GE(r.PagesTournees(), 1);
    ASSERT_EQ(page.EnCours.size(), static_cast<std::size_t>(r.PagesTournees()) + 1);
    const CadreImpression& k = c.cadres.CadreTexte;
    int textes = 0;
    for (const PageImprimee& p : page.EnCours)
        for (const ElementPage& el : p) {
            if (el.genre != ElementPage::Texte || el.y1 < k.Top) continue; // the head
            ++textes;
            EXPECT_LE(el.x1 + page.LargeurTexte(el.texte), k.Left + k.Width + 1e-9) << el.texte;
            EXPECT_LE(el.y1 + page.HauteurTexte(el.texte), k.Top + k.Height + 1e-9) << el.texte;
            EXPECT_EQ(el.texte.find('#'), std::string::npos) << el.texte;
        }
    EXPECT_GT(textes, 40 * 3 + 2); // every keyword and its value wrapped, and the long line
    const auto lignes = PageEnregistree::Lignes(page.EnCours.back());
    EXPECT_TRUE(std::any_of(lignes.begin(), lignes.end(), [](const std::string& l) {
        return l.find("\xCE\xA9/km, at %") != std::string::npos;
    }));
}
