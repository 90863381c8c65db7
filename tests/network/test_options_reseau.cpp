// frmRéseauOptions: defaults, option groups, visibility rules and the steps of OK.
#include "core/ChampIndice.h"
#include "core/Etude.h"
#include "network/PanneauOptionsReseau.h"

#include <gtest/gtest.h>

using namespace tournesol;

namespace {

void Saisir(Panneau& p, const std::string& nom, const std::string& texte) {
    p.Trouver(nom)->DefinirTexte(texte);
    p.Changer(nom);
}

bool Visible(Panneau& p, const std::string& nom) {
    return p.Trouver(nom)->Visible;
}

// The tabs of a panel, in order of first appearance.
std::vector<std::string> Onglets(const Panneau& p) {
    std::vector<std::string> onglets;
    for (const Champ& c : p.Champs()) {
        const auto barre = c.Groupe.Vue().find('/');
        if (barre == std::string::npos) continue;
        const std::string onglet(c.Groupe.Vue().substr(0, barre));
        if (std::find(onglets.begin(), onglets.end(), onglet) == onglets.end())
            onglets.push_back(onglet);
    }
    return onglets;
}

} // namespace

TEST(OptionsReseau, DefautsDUneNouvelleLigneSansEcraserLEtude) {
    Etude neuve;
    AppliquerDefautsReseau(neuve);
    EXPECT_EQ(neuve.Ligne_Up, 225);
    EXPECT_EQ(neuve.Ligne_Ip, 1000);
    EXPECT_FLOAT_EQ(neuve.Is, 1.0F);
    EXPECT_DOUBLE_EQ(neuve.Ligne_Icc, 31.5);
    EXPECT_DOUBLE_EQ(neuve.Ligne_Ittri, 1000.0);
    EXPECT_DOUBLE_EQ(neuve.Ligne_Itmono, 1000.0);
    EXPECT_DOUBLE_EQ(neuve.Ligne_Itmax, 1200.0);
    EXPECT_EQ(neuve.Ligne_Tl, 0);
    EXPECT_EQ(neuve.Ligne_alim, 0);

    Etude etude;
    etude.Ligne_Up = 400;
    etude.Ligne_Ip = 2000;
    etude.Is = 5.0F;
    etude.Ligne_Ittri = 1800.0;
    AppliquerDefautsReseau(etude);
    EXPECT_EQ(etude.Ligne_Up, 400);
    EXPECT_EQ(etude.Ligne_Ip, 2000);
    EXPECT_FLOAT_EQ(etude.Is, 5.0F);
    EXPECT_DOUBLE_EQ(etude.Ligne_Icc, 63.0); // the level of the study's own voltage
    EXPECT_DOUBLE_EQ(etude.Ligne_Ittri, 1800.0);

    // The panel's creation applies them.
    Etude e;
    PanneauOptionsReseau p(e);
    EXPECT_EQ(e.Ligne_Up, 225);
    EXPECT_TRUE(p.Trouver("chkup(225)")->Valeur);
    EXPECT_EQ(p.Trouver("txtitmax")->Texte(), "1200");
}

TEST(OptionsReseau, QuatreOngletsEtGroupesExclusifs) {
    Etude e;
    PanneauOptionsReseau p(e);
    EXPECT_EQ(p.Nom(), "frmRéseauOptions");
    EXPECT_EQ(Onglets(p), (std::vector<std::string>{" Transit current", "Impedance or power",
                                                    "CT's and VT's", "Line type"}));
    EXPECT_EQ(p.Trouver("chkup(400)")->Groupe, "CT's and VT's/primary voltage");
    EXPECT_EQ(p.Trouver("chkip(500)")->Texte(), "  500 A");
    EXPECT_EQ(p.Trouver("chkcustomis")->Groupe, "CT's and VT's/secondary current");
    EXPECT_EQ(p.Trouver("chkliaisonclient")->Groupe, "Line type/feeding");
    EXPECT_EQ(p.Trouver("chktypeligne(2)")->Texte(), "partially double circuit line");
    EXPECT_EQ(p.Trouver("txtxam")->Format, "##0.00");
    EXPECT_EQ(p.Trouver("txtcustomis")->Format, "0.0");
    EXPECT_EQ(p.Trouver("Command1")->Genre, GenreChamp::Bouton);
    // Every option of a group is one exclusive choice.
    for (const char* groupe : {"CT's and VT's/primary voltage", "CT's and VT's/primary current",
                               "CT's and VT's/secondary current", "Line type/feeding",
                               "Line type/length", "Line type/line type"}) {
        int choisies = 0;
        for (const Champ& c : p.Champs())
            if (c.Groupe == groupe && c.Genre == GenreChamp::Option && c.Valeur) ++choisies;
        EXPECT_EQ(choisies, 1) << groupe;
    }
}

TEST(OptionsReseau, GroupesIndexesParLaValeur) {
    Etude e;
    e.Ligne_Up = 90;
    e.Ligne_Ip = 1500;
    e.Is = 5.0F;
    PanneauOptionsReseau p(e);
    EXPECT_TRUE(p.Trouver("chkup(90)")->Valeur);
    EXPECT_TRUE(p.Trouver("chkip(1500)")->Valeur);
    EXPECT_TRUE(p.Trouver("chkis(5)")->Valeur);
    EXPECT_FALSE(p.Trouver("txtcustomup")->Actif);

    Etude autre;
    autre.Ligne_Up = 150;
    autre.Ligne_Ip = 600;
    autre.Is = 2.0F;
    PanneauOptionsReseau q(autre);
    EXPECT_TRUE(q.Trouver("chkup(0)")->Valeur);
    EXPECT_TRUE(q.Trouver("chkip(0)")->Valeur);
    EXPECT_TRUE(q.Trouver("chkcustomis")->Valeur);
    EXPECT_TRUE(q.Trouver("txtcustomup")->Actif);
    EXPECT_EQ(q.Trouver("txtcustomup")->Texte(), "150");
    EXPECT_EQ(q.Trouver("txtcustomis")->Texte(), "2.0");

    // "other" chosen with a listed value beside it stays "other", and the field is typed in.
    q.Cliquer("chkip(1000)");
    EXPECT_FALSE(q.Trouver("txtcustomip")->Actif);
    EXPECT_EQ(q.Trouver("txtcustomip")->Texte(), "1000");
    q.Cliquer("chkip(0)");
    EXPECT_TRUE(q.Trouver("chkip(0)")->Valeur);
    EXPECT_FALSE(q.Trouver("chkip(1000)")->Valeur);
    Saisir(q, "txtcustomip", "800");
    q.Cliquer("Command1");
    EXPECT_EQ(autre.Ligne_Ip, 800);
    EXPECT_FLOAT_EQ(autre.Is, 2.0F);
}

TEST(OptionsReseau, LeNiveauFixeIcc) {
    Etude e;
    e.Ligne_Icc = 10.0;
    PanneauOptionsReseau p(e);
    p.Cliquer("chkup(400)");
    p.Valider();
    EXPECT_EQ(e.Ligne_Up, 400);
    EXPECT_DOUBLE_EQ(e.Ligne_Icc, 63.0);

    PanneauOptionsReseau q(e);
    EXPECT_TRUE(q.Trouver("chkup(400)")->Valeur);
    q.Cliquer("chkup(225)");
    q.Valider();
    EXPECT_DOUBLE_EQ(e.Ligne_Icc, 31.5); // whatever was stored

    PanneauOptionsReseau r(e);
    r.Cliquer("chkup(0)");
    Saisir(r, "txtcustomup", "150");
    r.Cliquer("Command1");
    EXPECT_EQ(e.Ligne_Up, 150);
    EXPECT_DOUBLE_EQ(e.Ligne_Icc, 31.5);

    // Cancel changes nothing.
    PanneauOptionsReseau s(e);
    s.Cliquer("chkup(400)");
    s.Cliquer("Command2");
    EXPECT_TRUE(s.Ferme());
    EXPECT_FALSE(s.Confirme());
    EXPECT_EQ(e.Ligne_Up, 150);
    EXPECT_DOUBLE_EQ(e.Ligne_Icc, 31.5);
}

TEST(OptionsReseau, RapportsAvecLeKvEnVigueur) {
    Etude e;
    e.Ligne_Up = 225;
    e.Kv = 2200.0;
    PanneauOptionsReseau p(e);
    p.Cliquer("chkip(2000)");
    p.Cliquer("chkis(5)");
    p.Valider();
    EXPECT_DOUBLE_EQ(e.Ki, 400.0);
    EXPECT_DOUBLE_EQ(e.Kz, 5.5);
    EXPECT_TRUE(e.EtudeModifiee);
    EXPECT_TRUE(e.OptionsValides);
}

TEST(OptionsReseau, ItmaxRelevePuisZerosAUn) {
    Etude e;
    PanneauOptionsReseau p(e);
    Saisir(p, "txtitmax", "500");
    Saisir(p, "txtittri", "800");
    Saisir(p, "txtitmono", "700");
    p.Valider();
    EXPECT_DOUBLE_EQ(e.Ligne_Itmax, 800.0); // brought up to Ittri

    PanneauOptionsReseau q(e);
    Saisir(q, "txtitmax", "500");
    Saisir(q, "txtittri", "800");
    Saisir(q, "txtitmono", "950");
    q.Valider();
    EXPECT_DOUBLE_EQ(e.Ligne_Itmax, 950.0); // then up to Itmono

    PanneauOptionsReseau r(e);
    Saisir(r, "txtitmax", "0");
    Saisir(r, "txtittri", "0");
    Saisir(r, "txtitmono", "");
    r.Valider();
    EXPECT_DOUBLE_EQ(e.Ligne_Ittri, 1.0);
    EXPECT_DOUBLE_EQ(e.Ligne_Itmono, 1.0);
    EXPECT_DOUBLE_EQ(e.Ligne_Itmax, 1.0);
    EXPECT_DOUBLE_EQ(e.Ligne_itclient, 1.0);

    // A customer link reads its own current; the reclosing currents become 1.
    PanneauOptionsReseau s(e);
    s.Cliquer("chkliaisonclient");
    Saisir(s, "txtitclient", "640");
    Saisir(s, "txtittri", "900");
    s.Valider();
    EXPECT_EQ(e.Ligne_alim, 3);
    EXPECT_DOUBLE_EQ(e.Ligne_itclient, 640.0);
    EXPECT_DOUBLE_EQ(e.Ligne_Ittri, 1.0);
    EXPECT_DOUBLE_EQ(e.Ligne_Itmono, 1.0);
}

TEST(OptionsReseau, LiaisonCentraleSelonLeBoutDuRelais) {
    Etude e;
    e.Ligne_pp = 1;
    PanneauOptionsReseau p(e);
    p.Cliquer("chkliaisoncentrale");
    p.Valider();
    EXPECT_EQ(e.Ligne_alim, 2);

    // The plant option stays selected, and follows the end on OK.
    PanneauOptionsReseau q(e);
    EXPECT_TRUE(q.Trouver("chkliaisoncentrale")->Valeur);
    e.Ligne_pp = 0;
    q.Valider();
    EXPECT_EQ(e.Ligne_alim, 1);
}

TEST(OptionsReseau, TroisBoutsForceTl3EtAlim0) {
    Etude e;
    e.NomPiquage = "SAINT-PIERRE";
    e.Ligne_Tl = 1;
    e.Ligne_alim = 3;
    PanneauOptionsReseau p(e);
    EXPECT_TRUE(p.TroisBouts());
    EXPECT_TRUE(Visible(p, "triple"));
    EXPECT_TRUE(p.Trouver("triple")->Valeur);
    EXPECT_TRUE(Visible(p, "Label13"));
    for (int k = 0; k < 3; ++k)
        EXPECT_FALSE(Visible(p, NomIndice("chktypeligne", k)));
    for (const char* nom : {"chklignelongue", "chklignecourte", "chkinterconnexion",
                            "chkliaisoncentrale", "chkliaisonclient"})
        EXPECT_FALSE(p.Trouver(nom)->Actif) << nom;
    EXPECT_FALSE(Visible(p, "chkcdg"));
    EXPECT_TRUE(Visible(p, "txtxaz"));
    EXPECT_TRUE(Visible(p, "lblxaz"));
    EXPECT_TRUE(Visible(p, "txtita"));
    EXPECT_FALSE(Visible(p, "txtx1pb")); // three-ended, even short
    p.Cliquer("chkliaisonclient");       // disabled: nothing changes
    p.Valider();
    EXPECT_EQ(e.Ligne_Tl, 3);
    EXPECT_EQ(e.Ligne_alim, 0);

    // The flag of the opening alone makes a third end too.
    Etude f;
    f.LigneTroisBouts = true;
    PanneauOptionsReseau q(f);
    q.Valider();
    EXPECT_EQ(f.Ligne_Tl, 3);

    // A line of two ends is never left three-ended.
    Etude g;
    g.Ligne_Tl = 3;
    PanneauOptionsReseau r(g);
    EXPECT_TRUE(r.Trouver("chktypeligne(0)")->Valeur);
    EXPECT_FALSE(Visible(r, "triple"));
    r.Valider();
    EXPECT_EQ(g.Ligne_Tl, 0);
}

TEST(OptionsReseau, TroisBoutsRangeLesSectionsParLongueur) {
    Etude e;
    e.LigneTroisBouts = true;
    e.Ligne_Longueur = {9.0, 4.0, 7.0};
    e.Ligne_XL = {3.6, 1.6, 2.8};
    e.Ligne_PHI = {1.3, 1.1, 1.2};
    e.PHIo = {1.0, 0.8, 0.9};
    e.Ligne_Ex = {1, 2, 3};
    PanneauOptionsReseau p(e);
    p.Valider();
    EXPECT_EQ(e.Ligne_Longueur, (Reels3{4.0, 7.0, 9.0}));
    EXPECT_EQ(e.Ligne_XL, (Reels3{1.6, 2.8, 3.6}));
    EXPECT_EQ(e.Ligne_PHI, (Reels3{1.1, 1.2, 1.3}));
    EXPECT_EQ(e.PHIo, (Reels3{0.8, 0.9, 1.0}));
    EXPECT_EQ(e.Ligne_Ex, (Entiers16x3{2, 3, 1}));
}

TEST(OptionsReseau, ReglesDeVisibilite) {
    Etude e;
    PanneauOptionsReseau p(e);
    // Earth cables: only for the two kinds of double circuit.
    EXPECT_FALSE(Visible(p, "chkcdg"));
    p.Cliquer("chktypeligne(1)");
    EXPECT_TRUE(Visible(p, "chkcdg"));
    p.Cliquer("chktypeligne(2)");
    EXPECT_TRUE(Visible(p, "chkcdg"));
    p.Cliquer("chktypeligne(0)");
    EXPECT_FALSE(Visible(p, "chkcdg"));
    EXPECT_FALSE(Visible(p, "triple"));
    EXPECT_FALSE(Visible(p, "txtxaz"));
    EXPECT_FALSE(Visible(p, "panel3d2"));

    // The remote end's first zone: a short line only.
    p.Cliquer("chklignecourte");
    EXPECT_TRUE(Visible(p, "txtx1pb"));
    EXPECT_TRUE(p.Trouver("txtx1pb")->Actif);
    EXPECT_TRUE(Visible(p, "lblX1PB"));
    p.Cliquer("chklignelongue");
    EXPECT_FALSE(Visible(p, "txtx1pb"));
    EXPECT_FALSE(p.Trouver("txtx1pb")->Actif);
    EXPECT_FALSE(Visible(p, "lblX1PB"));

    // Generator powers and the plant's help: a plant link only.
    EXPECT_FALSE(Visible(p, "txtpmax"));
    EXPECT_TRUE(p.Trouver("lblxam")->Texte().find("transformer impedance ") == 0);
    EXPECT_EQ(p.Trouver("lblxav")->Texte(),
              "transformer impedance                          on substationB");
    p.Cliquer("chkliaisoncentrale");
    for (const char* nom : {"txtpmax", "txtsmax", "lblPmax", "aidecentrale"})
        EXPECT_TRUE(Visible(p, nom)) << nom;
    for (const char* nom : {"txtitmax", "txtitmono", "txtittri", "txtitclient"})
        EXPECT_FALSE(Visible(p, nom)) << nom;
    EXPECT_EQ(p.Trouver("lblxam")->Texte(), "impedance of the transformers at substation A");
    EXPECT_EQ(p.Trouver("lblxav")->Texte(), "impedance of the transformers at substation B");

    // A customer link: its own current only.
    p.Cliquer("chkliaisonclient");
    EXPECT_TRUE(Visible(p, "txtitclient"));
    EXPECT_FALSE(Visible(p, "txtittri"));
    EXPECT_FALSE(Visible(p, "txtpmax"));
    EXPECT_FALSE(Visible(p, "aidecentrale"));
    p.Cliquer("chkinterconnexion");
    EXPECT_TRUE(Visible(p, "txtitmax"));
    EXPECT_TRUE(Visible(p, "txtitmono"));
    EXPECT_FALSE(Visible(p, "txtitclient"));
}

TEST(OptionsReseau, AideDuTransitSelonLeNiveau) {
    Etude e;
    e.Ligne_Up = 400;
    PanneauOptionsReseau p(e);
    EXPECT_EQ(p.Trouver("aidemax")->Texte(), "Point on the text to obtain its meaning");
    p.Entrer(PanneauOptionsReseau::ONGLET_TRANSIT);
    EXPECT_EQ(p.Trouver("aidetri")->Texte(), "The implementation of this value is not compulsory");
    EXPECT_EQ(p.Trouver("Aidemono")->Texte(),
              "The higher of IS2 (Winter2) and IS3 (spring-automn)");
    EXPECT_EQ(p.Trouver("aidemax")->Texte(), "IS3 (Winter2)");
    // The help on show follows the level chosen.
    p.Cliquer("chkup(63)");
    EXPECT_EQ(p.Trouver("Aidemono")->Texte(), "The implementation of this value is not compulsory");
    EXPECT_EQ(p.Trouver("aidemax")->Texte(), "1,15 x IMAP (Winter2)");
    p.Cliquer("chkup(225)");
    EXPECT_EQ(p.Trouver("aidetri")->Texte(), "IMAP (Winter2)");
    EXPECT_EQ(p.Trouver("Aidemono")->Texte(), "IMAP (Winter2)");
    EXPECT_EQ(p.Trouver("aidemax")->Texte(), "IS3 (Winter2)");
}

TEST(OptionsReseau, ReactancesEtPuissancesLues) {
    Etude e;
    PanneauOptionsReseau p(e);
    Saisir(p, "txtxam", "12,345"); // the comma rule, rounded to the field's decimals
    Saisir(p, "txtxav", "40.5");
    Saisir(p, "txtpmax", "250");
    p.Trouver("chkcdg")->Valeur = true;
    p.Touche(Panneau::TOUCHE_ENTREE);
    EXPECT_TRUE(p.Ferme());
    EXPECT_FLOAT_EQ(e.Ligne_XAM, 12.35F);
    EXPECT_FLOAT_EQ(e.Ligne_XAV, 40.5F);
    EXPECT_FLOAT_EQ(e.Ligne_Pmax, 250.0F);
    EXPECT_TRUE(e.Ligne_cdg);
}
