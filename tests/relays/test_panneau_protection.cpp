// The relay panel framework on a small relay of three sheets: the chain of steps, the sheets in
// both modes, the exit of a field, OK, the Alt shortcuts, the signalling options and failures.
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "relays/PanneauProtection.h"
#include "shell/Ouverture.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

using Journal = std::vector<std::string>;
const Journal CHAINE{"Zones", "Resistance", "Reglages", "Diag"};

// A relay of three sheets and four steps: zones, resistance, settings, diagnostics.
class RelaisEssai : public PanneauProtection {
public:
    RelaisEssai(Etude& e, Dialogue& d, int id = 11) : PanneauProtection(e, d, id) {
        DeclarerOnglets({"zones", "Pick up", "timers"});
        static const TableChamps table = [] {
            std::vector<DescriptionChamp> t{
                {.Nom = "txtX1_bt",
                 .Legende = "First zone reactance",
                 .Format = "##0.00",
                 .Min = 0.1,
                 .Max = 50.0,
                 .Colonne = ColonneOhms::Secondaire,
                 .Nature = NatureValeur::Souhaitee,
                 .Groupe = "zones/Desired",
                 .Saisie = true,
                 .Valeur = Lien(&Etude::X1_BT),
                 .Jumeau = "txtX1_HT"},
                {.Nom = "txtX1_HT", .Format = "#0.00", .Valeur = Lien(&Etude::X1_HT)},
                {.Nom = "txtX1reg_BT",
                 .Format = "#0.00",
                 .Nature = NatureValeur::Reglee,
                 .Saisie = true,
                 .Valeur = Lien(&Etude::X1reg_BT)},
                {.Nom = "txtt2",
                 .Legende = "T2 =",
                 .Unite = "ms",
                 .Format = "###0",
                 .Min = 0.0,
                 .Max = 999.0,
                 .Groupe = "timers/Quick second step timer",
                 .Saisie = true,
                 .Valeur = Lien(&Etude::T2),
                 .Pas = 10.0,
                 .Arrondi = ModeArrondi::Dessous},
            };
            for (DescriptionChamp& d : ChampsTeleaction("Pick up/signalling"))
                t.push_back(std::move(d));
            return TableChamps(std::move(t));
        }();
        DeclarerChamps(table);
        DeclarerTeleaction();
        DeclarerEtapes({{"Zones", [this] { Zones(); }},
                        {"Resistance", [this] { Journal.push_back("Resistance"); }},
                        {"Reglages", [this] { Journal.push_back("Reglages"); }},
                        {"Diag", [this] { Diag(); }}});
    }
    ::Journal Journal;
    double DemiLargeur = 30.0;

protected:
    CadrePlan CadreDuPlan() override { return CadrePlan::Carre(DemiLargeur); }
    void LireOptions() override { Journal.push_back("LireOptions"); }

private:
    void Zones() {
        Journal.push_back("Zones");
        if (ModeRetour()) e_.X1_HT = e_.Ligne_Xprim1;
        e_.X1_BT = Div(e_.X1_HT, e_.Kz);
        e_.X1reg_BT = std::floor(e_.X1_BT * 10.0) / 10.0;
    }
    void Diag() {
        Journal.push_back("Diag");
        DefinirRegle(e_, 71, e_.X1reg_BT > 5.0, 5.0);
    }
};

// Sees whether a question is open while it is asked.
class DialogueEssai : public DialogueScripte {
public:
    explicit DialogueEssai(Etude& e) : e_(e) {}
    int Question(const std::string& titre, const std::string& texte, int icone,
                 const Boutons& boutons) override {
        QuestionOuverteVue = e_.QuestionOuverte;
        return DialogueScripte::Question(titre, texte, icone, boutons);
    }
    bool QuestionOuverteVue = false;

private:
    Etude& e_;
};

struct Panneau3 : ::testing::Test {
    Panneau3() {
        e.NomPoste = "LAVEYRON";
        e.Kz = 2.0;
        e.Ligne_Xprim1 = 12.34;
        e.Ligne_lc = true;
    }
    // A panel opened in that mode, its journal emptied, at sheet `onglet`.
    RelaisEssai& Ouvrir(bool retour, int onglet = 0, int id = 11) {
        e.PanneauRelais = retour;
        p = std::make_unique<RelaisEssai>(e, d, id);
        p->Ouvrir();
        if (onglet != 0) p->ChoixOnglet(onglet);
        p->Journal.clear();
        return *p;
    }
    void Saisir(const std::string& champ, const std::string& texte) {
        p->Entrer(champ);
        p->Trouver(champ)->DefinirTexte(texte);
        p->Quitter(champ);
    }
    Etude e;
    DialogueEssai d{e};
    std::unique_ptr<RelaisEssai> p;
};

} // namespace

TEST_F(Panneau3, OuvertureCalculeLaChaineEtMontreLePremierOnglet) {
    e.PanneauRelais = true;
    RelaisEssai r(e, d);
    r.Ouvrir();
    EXPECT_EQ(r.Nom(), "frmRXAP");
    EXPECT_EQ(r.Titre(), "TOURNESOL [LAVEYRON]");
    EXPECT_EQ(e.sTitre, "TOURNESOL : Attention");
    EXPECT_EQ(e.IconeMessage, 3);
    EXPECT_EQ(r.Journal, (Journal{"LireOptions", "Zones", "Resistance", "Reglages", "Diag"}));
    EXPECT_EQ(r.OngletCourant(), 0);
    EXPECT_EQ(r.Trouver("txtX1_bt")->Texte(), "6.17");
    EXPECT_EQ(r.Trouver("txtX1reg_BT")->Texte(), "6.10");
    EXPECT_TRUE(RegleActive(e, 71));
    EXPECT_FALSE(r.Ferme());
    EXPECT_EQ(r.Trouver("txtX1_bt")->Legende, "First zone reactance (Ω S)");
    EXPECT_EQ(r.Trouver("txtt2")->Legende, "T2 = (ms)");
    EXPECT_FALSE(r.Trouver("txtX1reg_BT")->Actif); // a set value is display-only
}

TEST_F(Panneau3, LOngletQuitteEstCalculeAvecTousCeuxDeSaDroite) {
    Ouvrir(false);
    p->ChoixOnglet(2);
    EXPECT_EQ(p->Journal, CHAINE);
    EXPECT_EQ(p->OngletCourant(), 2);
    p->Journal.clear();
    p->Cliquer("TitreOnglet(1)"); // going left in mode "Modify" asks nothing
    EXPECT_EQ(p->Journal, (Journal{"Reglages", "Diag"}));
    EXPECT_EQ(p->OngletCourant(), 1);
    EXPECT_TRUE(d.Messages().empty());
}

TEST_F(Panneau3, AGaucheEnModeRetourLaQuestionEtContinuer) {
    Ouvrir(true, 2);
    d.AjouterReponses({0});
    p->Cliquer("Onglet(0)");
    ASSERT_EQ(d.Messages().size(), 1U);
    const MessageAffiche& q = d.Messages()[0];
    EXPECT_EQ(q.sTitre, "TOURNESOL : Attention");
    EXPECT_EQ(q.IconeMessage, 3);
    EXPECT_EQ(q.sMessage, "Attention, in mode \"return\"\r\nthe selection of a nail index on the "
                          "left make re-reckon all the nail indexes on the right.");
    EXPECT_EQ(q.BoutonsQuestion, (Boutons{"&Continue", "&cancel", ""}));
    EXPECT_TRUE(d.QuestionOuverteVue);
    EXPECT_FALSE(e.QuestionOuverte);
    EXPECT_EQ(p->Journal, (Journal{"Reglages", "Diag"}));
    EXPECT_EQ(p->OngletCourant(), 0);
}

TEST_F(Panneau3, AGaucheEnModeRetourAnnulerGardeLOngletMaisLeCalculAEuLieu) {
    Ouvrir(true, 2);
    d.AjouterReponses({1});
    p->ChoixOnglet(1);
    EXPECT_EQ(p->Journal, (Journal{"Reglages", "Diag"}));
    EXPECT_EQ(p->OngletCourant(), 2);
    // The PD3A asks in its own words.
    Ouvrir(true, 1, 3);
    p->ChoixOnglet(0);
    ASSERT_EQ(d.Messages().size(), 2U);
    EXPECT_EQ(d.Messages()[1].sMessage,
              "Attention, by mode \"setting\"\r\nthe selection of a thumb index on the left make "
              "re - reckon all the thumb indexes on the right.");
}

TEST_F(Panneau3, SortieDeChampLimiteSansMessageArrondiEtReecrit) {
    Ouvrir(true);
    p->Entrer("txtX1_bt");
    EXPECT_EQ(p->Trouver("txtX1_bt")->SelLongueur, 4); // "6.17" selected
    Saisir("txtX1_bt", "85");
    EXPECT_EQ(p->Trouver("txtX1_bt")->Texte(), "50.00");
    EXPECT_DOUBLE_EQ(e.X1_BT, 50.0);
    EXPECT_DOUBLE_EQ(e.X1_HT, 100.0);
    EXPECT_EQ(p->Trouver("txtX1_HT")->Texte(), "100.00");
    Saisir("txtX1_bt", "0,004");
    EXPECT_EQ(p->Trouver("txtX1_bt")->Texte(), "0.10");
    Saisir("txtX1_bt", "7.256");
    EXPECT_DOUBLE_EQ(e.X1_BT, 7.26);
    Saisir("txtt2", "1500");
    EXPECT_EQ(p->Trouver("txtt2")->Texte(), "990");
    Saisir("txtt2", "-5");
    EXPECT_EQ(e.T2, 0);
    Saisir("txtX1reg_BT", "99"); // a set value is not read back
    EXPECT_DOUBLE_EQ(e.X1reg_BT, 6.1);
    EXPECT_TRUE(d.Messages().empty());
    EXPECT_TRUE(p->Journal.empty()); // a field exit runs no chain of itself
}

TEST_F(Panneau3, OKEnModeRetourAjusteLePlan) {
    int traces = 0;
    InscrireTraceValidation([&](Etude&) { ++traces; });
    Ouvrir(true, 1);
    p->DemiLargeur = 45.5;
    p->Cliquer("Command1");
    EXPECT_EQ(p->Journal, (Journal{"Resistance", "Reglages", "Diag"}));
    EXPECT_FLOAT_EQ(e.ScaleLeft, -45.5F);
    EXPECT_FLOAT_EQ(e.ScaleTop, 45.5F);
    EXPECT_FLOAT_EQ(e.ScaleWidth, 91.0F);
    EXPECT_FLOAT_EQ(e.ScaleHeight, -91.0F);
    EXPECT_EQ(traces, 1);
    EXPECT_TRUE(e.EtudeModifiee);
    EXPECT_TRUE(p->Ferme());
    Ouvrir(true);
    p->DemiLargeur = 2500.0;
    p->Touche(Panneau::TOUCHE_ENTREE);
    EXPECT_FLOAT_EQ(e.ScaleLeft, -1000.0F);
    InscrireTraceValidation(nullptr);
}

TEST_F(Panneau3, OKEnModeModifierCalculeSansToucherAuPlan) {
    e.ScaleLeft = -7.0F;
    Ouvrir(false, 2);
    p->Touche(Panneau::TOUCHE_ECHAP); // there is no cancel
    EXPECT_FALSE(p->Ferme());
    p->ValiderBouton();
    EXPECT_EQ(p->Journal, (Journal{"Reglages", "Diag"}));
    EXPECT_FLOAT_EQ(e.ScaleLeft, -7.0F);
    EXPECT_FALSE(e.EtudeModifiee);
    EXPECT_TRUE(p->Ferme());
}

TEST_F(Panneau3, RaccourcisAlt) {
    Ouvrir(false);
    p->Raccourci('M', false);
    EXPECT_TRUE(p->Journal.empty());
    EXPECT_EQ(p->OngletCourant(), 0);
    p->Raccourci('z', true);
    EXPECT_TRUE(p->AltActif());
    EXPECT_EQ(p->OngletCourant(), 2);
    EXPECT_EQ(p->Journal.size(), 2 * CHAINE.size()); // the shortcut's, then ChoixOnglet's
    // T and L ask for a fourth and a fifth sheet, which this relay does not have: nothing is
    // computed, nothing fails, the sheet stays.
    p->Journal.clear();
    for (const char lettre : {'T', 'l'}) {
        p->Raccourci(lettre, true);
        EXPECT_TRUE(p->Journal.empty());
        EXPECT_EQ(e.ErrCalcul, 0);
        EXPECT_EQ(p->OngletCourant(), 2);
    }
    // OK then closes the panel in its mode, without a failure to report.
    p->ValiderBouton();
    EXPECT_TRUE(p->Ferme());
    EXPECT_EQ(e.ErrCalcul, 0);
}

TEST_F(Panneau3, AvisDesLiaisonsCentralePoste) {
    e.Ligne_alim = 2;
    struct RelaisAvis : RelaisEssai {
        RelaisAvis(Etude& e, Dialogue& d) : RelaisEssai(e, d, 3) {
            DeclarerAvisCentrale(AvisCentrale("PD3A"));
        }
    } r(e, d);
    r.Ouvrir();
    r.ChoixOnglet(1);
    ASSERT_EQ(d.Messages().size(), 2U);
    EXPECT_EQ(d.Messages()[1].sMessage,
              "Attention, the case of the plant - substation links is not studied for the PD3A.");
    EXPECT_EQ(r.OngletCourant(), 1); // a notice only
    e.Ligne_alim = 3;
    r.ChoixOnglet(2);
    EXPECT_EQ(d.Messages().size(), 2U);
}

TEST_F(Panneau3, VerrouillageDeLaTeleaction) {
    Ouvrir(true);
    EXPECT_TRUE(e.Teleaction);
    EXPECT_TRUE(e.Acceleration);
    EXPECT_FALSE(e.Verrouillage);
    p->Trouver("chkTéléaction")->Valeur = false;
    p->Cliquer("chkTéléaction");
    EXPECT_FALSE(e.Teleaction);
    EXPECT_FALSE(p->Trouver("chkaccélération")->Actif);
    EXPECT_FALSE(p->Trouver("chkVerrouillage")->Actif);
    EXPECT_EQ(p->Journal, CHAINE);
    p->Trouver("chkVerrouillage")->Valeur = true;
    p->Cliquer("chkVerrouillage");
    EXPECT_TRUE(e.Verrouillage);
    EXPECT_FALSE(e.Acceleration);
    EXPECT_FALSE(p->Trouver("chkaccélération")->Valeur);
}

TEST_F(Panneau3, UnEchecALOuvertureCacheLePanneau) {
    e.PanneauRelais = true;
    e.Kz = 0.0;
    RelaisEssai r(e, d);
    r.Ouvrir();
    EXPECT_EQ(e.ErrCalcul, ERR_DIVISION);
    EXPECT_EQ(r.Journal, (Journal{"LireOptions", "Zones"})); // the chain stops at the failure
    EXPECT_TRUE(r.Ferme());
    e.ErrCalcul = 0;
    e.Superposition = true; // while two relays are superposed the panel stays
    RelaisEssai s(e, d);
    s.Ouvrir();
    EXPECT_EQ(e.ErrCalcul, ERR_DIVISION);
    EXPECT_FALSE(s.Ferme());
}

TEST_F(Panneau3, OuvrirPanneauParLaFabrique) {
    e.id_protection = 11;
    e.ShowValeurs = true;
    e.PanneauRelais = true;
    const FabriquePanneauRelais rxap = InscrirePanneauRelais(11, &FabriquerPanneau<RelaisEssai>);
    OptionsReport options;
    OuvrirPanneau(e, d, options, true);
    EXPECT_EQ(e.ErrCalcul, 0);
    EXPECT_DOUBLE_EQ(e.X1reg_BT, 6.1);
    e.Kz = 0.0;
    OuvrirPanneau(e, d, options, true);
    EXPECT_TRUE(e.PanneauRelais);
    ASSERT_EQ(d.Messages().size(), 1U);
    EXPECT_EQ(d.Messages()[0].sMessage.rfind("The reckon is impossible with the entered data.", 0),
              0U);
    InscrirePanneauRelais(11, rxap); // the RXAP's own panel back
}
