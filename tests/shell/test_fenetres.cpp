// The opening dialog, the relay choice, the working window and the loop between them, driven
// through the scripted dialogue.
#include "Ligne225.h"
#include "core/BaseEtudes.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "relays/Relais.h"
#include "shell/Application.h"
#include "shell/PanneauDemarre.h"
#include "shell/PanneauTitre.h"

#include <gtest/gtest.h>

using namespace tournesol;

namespace {
void Saisir(Panneau& p, const std::string& champ, const std::string& texte) {
    p.Entrer(champ);
    p.Trouver(champ)->DefinirTexte(texte);
    p.Changer(champ);
    p.Quitter(champ);
}

// The opening dialog: a line and its relay typed, then Open.
void Ouvrir(Panneau& t, const std::string& poste, const std::string& depart,
            const std::string& relais) {
    Saisir(t, "txtposte", poste);
    Saisir(t, "txtDépart", depart);
    Saisir(t, "txtProtection", relais);
    t.Entrer("txtposte");
    t.Cliquer("cmdOK");
}

// The relay choice answered with that relay.
void ChoisirRelais(DialogueScripte& d, int id) {
    d.QuandPanneau("frmChoixProtection", [id](Panneau& p) {
        p.Cliquer("Option3D1(" + std::to_string(id) + ")");
        p.Cliquer("Command1");
    });
}
} // namespace

TEST(Titre, IndicesEtBoutonOuvrir) {
    Etude e;
    DialogueSansFenetre d;
    PanneauTitre t(e, d, nullptr);
    EXPECT_EQ(t.Titre(), "TOURNESOL");
    EXPECT_EQ(t.Trouver("Status")->Texte(), "You must previously choose the substations A and B");
    EXPECT_FALSE(t.Trouver("cmdOK")->Actif);

    t.Entrer("txtDépart");
    EXPECT_EQ(t.Trouver("Status")->Texte(), "Tu dois sélectionner un poste préalablement");
    Saisir(t, "txtposte", "CHAMPAGNIER");
    EXPECT_EQ(e.NomPoste, "CHAMPAGNIER");
    t.Entrer("txtPiquage");
    EXPECT_EQ(t.Trouver("Status")->Texte(),
              "Tu dois sélectionner un poste et un départ préalablement");
    Saisir(t, "txtDépart", "GRANDE-ILE");
    t.Entrer("txtPiquage");
    EXPECT_FALSE(t.Trouver("Status")->Visible);
    EXPECT_FALSE(t.Trouver("cmdOK")->Actif); // no relay yet

    t.Touche(Panneau::TOUCHE_ENTREE); // Enter with Open disabled does nothing
    EXPECT_FALSE(e.OuvertureOK);
    Saisir(t, "txtProtection", "PD3A");
    t.Entrer("txtposte");
    EXPECT_TRUE(t.Trouver("cmdOK")->Actif);
    EXPECT_TRUE(t.Trouver("txtnuméro")->Visible);
    Saisir(t, "txtProtection", NOUVELLE_PROTECTION);
    EXPECT_FALSE(t.Trouver("txtnuméro")->Visible);

    // A change of letter case is a change: the later boxes are emptied.
    Saisir(t, "txtposte", "Champagnier");
    EXPECT_TRUE(t.Trouver("txtDépart")->Texte().empty());

    // Two relays: the second page's tab, deletion off, boxes emptied.
    t.Trouver("chksuperposer")->Valeur = true;
    t.Cliquer("chksuperposer");
    EXPECT_TRUE(t.Trouver("TitreOnglet(1)")->Visible);
    EXPECT_FALSE(t.Trouver("cmdSupprimer")->Actif);
    EXPECT_TRUE(t.Trouver("txtposte")->Texte().empty());
    EXPECT_TRUE(e.Superposition);

    Saisir(t, "txtnuméro", "4");
    EXPECT_EQ(e.id_numero, 4);
    Saisir(t, "txtnuméro", "7");
    EXPECT_EQ(e.id_numero, 0);
    t.Touche(Panneau::TOUCHE_ECHAP);
    EXPECT_TRUE(e.QuitterAppli);
    EXPECT_TRUE(t.Ferme());
}

TEST(Titre, ChoixDeLaProtectionAnnuleOuValide) {
    Etude e;
    DialogueScripte d;
    int passages = 0;
    d.QuandPanneau("frmChoixProtection", [&passages](Panneau& p) {
        if (passages++ == 0) {
            p.Cliquer("Command2"); // cancel: the dialog stays with its entries
            return;
        }
        p.Cliquer("Option3D1(11)");
        p.Cliquer("Command1");
    });
    PanneauTitre t(e, d, nullptr);
    Ouvrir(t, "A", "B", "RXAP");
    EXPECT_FALSE(e.OuvertureOK);
    EXPECT_FALSE(t.Ferme());
    EXPECT_EQ(e.ErrCalcul, -1);
    t.Cliquer("cmdOK");
    EXPECT_TRUE(e.OuvertureOK);
    EXPECT_TRUE(t.Ferme());
    EXPECT_EQ(e.id_protection, 11);
    EXPECT_EQ(e.ProtectionChoisie, 11);
    EXPECT_EQ(e.NomProtection, "RXAP");
    EXPECT_EQ(e.Ligne_Ex, (Entiers16x3{1, 2, 3}));
    EXPECT_EQ(e.ScaleWidth, 40.0f);
    EXPECT_EQ(e.Ligne_XL[0], 1.0); // zero reactances become 1
    EXPECT_EQ(e.Nom1Depart, "B");
    EXPECT_FALSE(e.LigneTroisBouts);
}

TEST(Demarre, BoucleEtOptionsDeReport) {
    Etude e;
    RemplirLigne225(e);
    DialogueScripte d;
    int titres = 0, fenetres = 0;
    d.QuandPanneau("frmtitre", [&](Panneau& p) {
        if (titres++ == 1) {
            p.Cliquer("cmdQuitter");
            return;
        }
        Ouvrir(p, "CHAMPAGNIER", "GRANDE-ILE", "PD3A");
    });
    ChoisirRelais(d, 7); // PXLN: no single phase report
    d.QuandPanneau("frmDémarre", [&](Panneau& p) {
        ++fenetres;
        auto& w = dynamic_cast<PanneauDemarre&>(p);
        EXPECT_EQ(w.Titre(), "TOURNESOL [CHAMPAGNIER]");
        EXPECT_FALSE(w.Trouver("txtmono")->Visible);
        EXPECT_FALSE(w.Trouver("chkmonophasé")->Actif);
        EXPECT_TRUE(w.Trouver("chktriphasé")->Valeur);
        const int version = w.Version();
        w.Cliquer("chkmaximal");
        EXPECT_EQ(e.TypeReportCharge, 2);
        EXPECT_EQ(e.It, 1900.0);
        EXPECT_TRUE(w.Trouver("chkmaximal")->Valeur);
        EXPECT_GT(w.Version(), version); // redrawn
        // The plane fitted to the relay's zones, then zoomed in twice.
        const float largeur = e.ScaleWidth;
        w.Cliquer("mnuZoomIn");
        EXPECT_FLOAT_EQ(e.ScaleWidth, largeur / 2.0f);
        w.Cliquer("mnuChangerPoste");
        EXPECT_EQ(e.sTitre, "TOURNESOL : Change...");
    });
    Application app(e, d, nullptr, std::nullopt);
    app.Main();
    EXPECT_EQ(titres, 2); // back to the opening dialog, then Leave
    EXPECT_EQ(fenetres, 1);
    EXPECT_TRUE(e.QuitterAppli);
    EXPECT_EQ(e.NomsProtection[11], "S321-5");
    EXPECT_FALSE(e.ReportAdmis[6][1]);
}

TEST(Demarre, OutilsDeDessinEtCoordonnees) {
    EXPECT_EQ(PanneauDemarre::TexteCoordonnees(12.5, 30.0),
              "12.5 \xCE\xA9 ; 30. \xCE\xA9\n32.5 \xCE\xA9 \xE2\x88\xA0 67.4 \xC2\xB0");
    EXPECT_EQ(PanneauDemarre::TexteOutil(3), "Drawing option : rubber");

    Etude e;
    PlanDeDepart(e);
    DialogueSansFenetre d;
    OptionsReport options;
    PanneauDemarre w(e, d, options, nullptr, std::nullopt);
    w.ChoisirOutil(0);
    w.SourisBouge(1.0, 1.0);
    EXPECT_EQ(w.Trouver("status")->Texte(), "Drawing area (Shift : coordinates)");

    w.ChoisirOutil(5); // a straight line from one end to the other
    w.SourisBas(0.0, 0.0);
    w.SourisBouge(3.0, 4.0);
    ASSERT_TRUE(w.Ebauche().has_value());
    w.SourisHaut(3.0, 4.0);
    ASSERT_EQ(w.Annotations().size(), 1u);
    EXPECT_EQ(w.Annotations()[0].b.Re, 3.0);

    w.ChoisirOutil(1); // text: Enter keeps it, Escape discards it
    w.SourisBas(5.0, 5.0);
    w.SourisHaut(5.0, 5.0);
    w.Caractere("N");
    w.Caractere("é");
    w.Caractere("\b");
    w.Caractere("1");
    w.Touche(Panneau::TOUCHE_ENTREE);
    ASSERT_EQ(w.Annotations().size(), 2u);
    EXPECT_EQ(w.Annotations()[1].texte, "N1");
    w.SourisBas(6.0, 6.0);
    w.SourisHaut(6.0, 6.0);
    w.Caractere("x");
    w.Touche(Panneau::TOUCHE_ECHAP);
    EXPECT_EQ(w.Annotations().size(), 2u);

    w.Cliquer("mnuCustomZoom"); // a square dragged from its centre
    w.SourisBas(2.0, 2.0);
    w.SourisHaut(5.0, 3.0);
    EXPECT_EQ(e.ScaleLeft, -1.0f);
    EXPECT_EQ(e.ScaleWidth, 6.0f);
    EXPECT_FALSE(e.EnZoom);

    w.Fermer();
    EXPECT_EQ(e.sTitre, "TOURNESOL : Close");
    EXPECT_TRUE(e.QuitterAppli);
}

TEST(Demarre, LOutilEnForceResteEnfonceEtLaLigneDEtatLeDit) {
    Etude e;
    PlanDeDepart(e);
    DialogueSansFenetre d;
    OptionsReport options;
    PanneauDemarre w(e, d, options, nullptr, std::nullopt);
    auto enfonces = [&w] {
        std::vector<int> bas;
        for (int i = 0; i < 6; ++i)
            if (w.Trouver("cmdoption(" + std::to_string(i) + ")")->Valeur) bas.push_back(i);
        return bas;
    };
    auto statut = [&w] { return w.Trouver("status")->Texte(); };
    // At start: text insertion, its button down and named on the status line.
    EXPECT_EQ(w.Outil(), 1);
    EXPECT_EQ(enfonces(), std::vector<int>{1});
    EXPECT_EQ(statut(), "welcome\nDrawing option : text insertion");

    w.Cliquer("cmdoption(4)"); // another tool: it alone is down
    EXPECT_EQ(enfonces(), std::vector<int>{4});
    EXPECT_EQ(statut(), "Drawing option : circles (Shift-click for the drawing menu)");
    // On the diagram the status line gives the tool's hint; off it, the tool again.
    w.SourisBouge(1.0, 1.0);
    EXPECT_EQ(statut(), "Drawing area : click on the centre of the circle, maintain to enlarge");
    w.SourisSortie();
    EXPECT_EQ(statut(), "Drawing option : circles (Shift-click for the drawing menu)");

    w.Cliquer("cmdoption(4)"); // the tool in force, clicked again, is released: "none"
    EXPECT_EQ(w.Outil(), 0);
    EXPECT_EQ(enfonces(), std::vector<int>{0});
    EXPECT_EQ(statut(), "Drawing option : no drawing");
}

TEST(Demarre, ImpressionApresLeDialogueDImpression) {
    Etude e;
    RemplirLigne225(e);
    PlanDeDepart(e);
    DialogueScripte d;
    int annulations = 0;
    d.QuandPanneau("frmPrint", [&annulations](Panneau& p) {
        if (annulations-- > 0)
            p.Cliquer("cmd(1)"); // cancel
        else
            p.Cliquer("cmd(0)"); // OK
    });
    OptionsReport options;
    PanneauDemarre w(e, d, options, nullptr, std::nullopt);
    EXPECT_FALSE(w.Trouver("cmdprint")->Actif); // nothing to print on yet
    int impressions = 0;
    w.DefinirImprimeur([&impressions](PanneauDemarre&) { ++impressions; });
    EXPECT_TRUE(w.Trouver("cmdprint")->Actif);
    annulations = 1;
    w.Cliquer("cmdprint");
    EXPECT_EQ(impressions, 0);
    w.Cliquer("mnuImprimer");
    EXPECT_EQ(impressions, 1);
    EXPECT_EQ(e.ErrCalcul, 0);
    EXPECT_FALSE(e.ArretImpression);
}

namespace {
// A base that knows no line: every line opened is a new one.
class BaseSansLigne : public BaseEtudes {
public:
    std::vector<std::string> Postes() override { return {}; }
    std::vector<std::string> Departs(const std::string&) override { return {}; }
    std::vector<std::string> Piquages(const std::string&, const std::string&) override {
        return {};
    }
    std::vector<std::string> Protections(const std::string&, const std::string&,
                                         const std::string&) override {
        return {};
    }
    std::vector<int> Numeros(const std::string&, const std::string&, const std::string&,
                             const std::string&) override {
        return {};
    }
    void Ouvrir(Etude& e, Dialogue&) override { e.NouvelleLigne = true; }
    bool Sauver(Etude& e, Dialogue&) override {
        ++sauvegardes;
        e.EtudeModifiee = false;
        return true;
    }
    int sauvegardes = 0;
    bool SauverDepuisSuperposition(Etude&, Dialogue&) override { return true; }
    std::unique_ptr<Panneau> PanneauSuppression(Etude&, Dialogue&) override { return nullptr; }
    MagasinReglages& Magasin() override { return magasin_; }

private:
    MagasinMemoire magasin_;
};
} // namespace

TEST(Demarre, UneNouvelleLigneMailleeJusquAuReportTriphase) {
    InscrireRelais();
    Etude e;
    RemplirLigne225(e); // the line studied before
    e.Ligne_XLA = 20.0;
    e.Ligne_CRt = 1.3;
    BaseSansLigne base;
    DialogueScripte d;
    std::vector<std::string> panneaux;
    d.QuandPanneau("frmtitre", [](Panneau& p) { Ouvrir(p, "BAYET", "COMMENTRY", "PD3A"); });
    ChoisirRelais(d, 3);
    d.QuandPanneau("frmRéseauOptions", [&](Panneau& p) {
        panneaux.push_back(p.Nom());
        p.Valider();
    });
    d.QuandPanneau("frmréseauvaleurs", [&](Panneau& p) {
        panneaux.push_back(p.Nom());
        Saisir(p, "txtlongueur(0)", "40");
        Saisir(p, "txtrl(0)", "3.4");
        Saisir(p, "txtxl(0)", "16.2");
        p.Valider();
    });
    d.QuandPanneau("frmReportCharge", [&](Panneau& p) {
        panneaux.push_back(p.Nom());
        if (e.TypeReportCharge == 1) { // then the single phase case, computed at once
            EXPECT_FALSE(p.Trouver("lblErreur")->Visible);
            p.Cliquer("Command2");
            return;
        }
        // The neighbour reactance is still 0: the panel comes up all the same, the division
        // error shown, and takes the value typed.
        EXPECT_TRUE(p.Trouver("lblErreur")->Visible);
        EXPECT_NE(p.Trouver("lblErreur")->Texte().find("Division by zero"), std::string::npos);
        Saisir(p, "txtxla", "0");
        p.Cliquer("Command2");
        EXPECT_FALSE(p.Ferme()); // 0 again: the error once more, the panel stays
        Saisir(p, "txtxla", "25");
        p.Cliquer("Command2");
        EXPECT_TRUE(p.Ferme());
    });
    d.QuandPanneau("frmDémarre", [&](Panneau& p) {
        auto& w = dynamic_cast<PanneauDemarre&>(p);
        // Nothing of the line before: the defaults of a new line, no length, no neighbour.
        EXPECT_TRUE(w.NouvelleLigne());
        EXPECT_EQ(e.Ligne_Longueur[0], 0.0);
        EXPECT_EQ(e.Ligne_XL[0], 1.0);
        EXPECT_EQ(e.Ligne_XLA, 0.0);
        EXPECT_NE(e.Ligne_CRt, 1.3);
        EXPECT_EQ(e.Ligne_Up, 225);
        EXPECT_EQ(e.Ligne_Ittri, 1000.0);
        EXPECT_EQ(e.Ligne_Ex, (Entiers16x3{1, 2, 3}));
        w.Demarrer();
        EXPECT_FALSE(w.NouvelleLigne());
        EXPECT_EQ(e.ErrCalcul, 0);
        EXPECT_EQ(e.TypeReportCharge, 0);
        EXPECT_EQ(e.Ligne_XLA, 25.0);
        EXPECT_GT(e.Ligne_CRt, 1.0);
        EXPECT_TRUE(w.Trouver("chktriphasé")->Valeur);
        EXPECT_TRUE(e.RelaisPret);
        w.Cliquer("mnuQuitter");
    });
    Application app(e, d, &base, std::nullopt);
    app.Main();
    EXPECT_EQ(panneaux, (std::vector<std::string>{"frmRéseauOptions", "frmréseauvaleurs",
                                                  "frmReportCharge", "frmReportCharge"}));
}

TEST(Demarre, QuitterUneEtudeModifieeDemandeSiLOnSauve) {
    Etude e;
    RemplirLigne225(e);
    BaseSansLigne base;
    DialogueScripte d;
    OptionsReport options;
    PanneauDemarre w(e, d, options, &base, std::nullopt);
    EXPECT_EQ(w.TitreAffiche(), "TOURNESOL []");
    e.NomPoste = "BAYET";
    e.NomDepart = "COMMENTRY";
    e.id_protection = 3;
    e.id_numero = 2;
    e.EtudeModifiee = true;
    PanneauDemarre fenetre(e, d, options, &base, std::nullopt);
    EXPECT_EQ(fenetre.TitreAffiche(), "TOURNESOL [BAYET] COMMENTRY, PD3A n° 2 *");
    // Cancel: the window stays, whether left by its command or by its close box.
    d.AjouterReponses({2});
    fenetre.Cliquer("cmdquitter");
    EXPECT_FALSE(fenetre.Ferme());
    EXPECT_EQ(d.Messages().back().BoutonsQuestion, (Boutons{"&Save", "&Don't save", "&Cancel"}));
    d.AjouterReponses({2});
    EXPECT_FALSE(fenetre.Fermer()); // the close box asks too
    d.AjouterReponses({0});
    fenetre.Cliquer("mnuChangerPoste"); // save, then change
    EXPECT_EQ(base.sauvegardes, 1);
    EXPECT_TRUE(fenetre.Ferme());
    EXPECT_TRUE(e.ChangerPoste);
    // A saved study goes without a question.
    const auto questions = d.Messages().size();
    PanneauDemarre sauvee(e, d, options, &base, std::nullopt);
    EXPECT_EQ(sauvee.TitreAffiche(), "TOURNESOL [BAYET] COMMENTRY, PD3A n° 2");
    sauvee.Cliquer("mnuQuitter");
    EXPECT_TRUE(sauvee.Ferme());
    EXPECT_EQ(d.Messages().size(), questions);
}

TEST(Titre, EchapDemandeSiLOnSauveUneEtudeModifiee) {
    Etude e;
    BaseSansLigne base;
    DialogueScripte d;
    e.EtudeModifiee = true;
    {
        PanneauTitre t(e, d, &base);
        d.AjouterReponses({2}); // cancel: the dialog stays
        t.Touche(Panneau::TOUCHE_ECHAP);
        EXPECT_FALSE(t.Ferme());
        EXPECT_FALSE(e.QuitterAppli);
        ASSERT_EQ(d.Messages().size(), 1u);
        EXPECT_EQ(d.Messages().back().sMessage,
                  "The study has changed since it was last saved.\r\nSave the changes?");
        // Not saved: the study is left, and the next door out does not ask again.
        d.AjouterReponses({1});
        t.Touche(Panneau::TOUCHE_ECHAP);
        EXPECT_TRUE(t.Ferme());
        EXPECT_FALSE(e.EtudeModifiee);
        PanneauTitre ensuite(e, d, &base);
        ensuite.Touche(Panneau::TOUCHE_ECHAP);
        EXPECT_TRUE(ensuite.Ferme());
        EXPECT_EQ(d.Messages().size(), 2u);
        EXPECT_EQ(base.sauvegardes, 0);
    }
}

namespace {
// A base that holds the PD3A number 2 of one line, saved by one user.
class BaseUnRelaisSigne : public BaseSansLigne {
public:
    std::vector<std::string> Protections(const std::string&, const std::string&,
                                         const std::string&) override {
        return {"PD3A", NOUVELLE_PROTECTION};
    }
    SignatureSauvegarde DerniereSauvegarde(const std::string& poste, const std::string& depart,
                                           const std::string& piquage,
                                           const std::string& protection, int numero) override {
        if (poste == "BAYET" && depart == "COMMENTRY" && piquage.empty() && protection == "PD3A" &&
            numero == 2)
            return {"jdupont", "2026-03-14T09:26:53Z"};
        return {};
    }
};
} // namespace

TEST(Titre, LeRelaisChoisiDitQuiLAEnregistreEtQuand) {
    Etude e;
    DialogueSansFenetre d;
    BaseUnRelaisSigne base;
    PanneauTitre t(e, d, &base);
    EXPECT_FALSE(t.Trouver("lblsauvé")->Visible);
    Saisir(t, "txtposte", "BAYET");
    Saisir(t, "txtDépart", "COMMENTRY");
    Saisir(t, "txtProtection", "PD3A");
    EXPECT_FALSE(t.Trouver("lblsauvé")->Visible); // no number yet
    Saisir(t, "txtnuméro", "2");
    EXPECT_TRUE(t.Trouver("lblsauvé")->Visible);
    EXPECT_EQ(t.Trouver("lblsauvé")->Texte(), "saved by jdupont on 2026-03-14 09:26:53 UTC");
    // Another number, or another relay, that the base does not sign: nothing is said.
    Saisir(t, "txtnuméro", "3");
    EXPECT_FALSE(t.Trouver("lblsauvé")->Visible);
    Saisir(t, "txtnuméro", "2");
    Saisir(t, "txtProtection", NOUVELLE_PROTECTION);
    EXPECT_FALSE(t.Trouver("lblsauvé")->Visible);
    EXPECT_FALSE(t.Trouver("lblsauvé2")->Visible);
}
