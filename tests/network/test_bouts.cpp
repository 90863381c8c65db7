// frmdeuxbouts and frmtroisbouts: the relay's end, the fault currents, the setting store.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "network/PanneauxBouts.h"

#include <gtest/gtest.h>

using namespace tournesol;

namespace {

void Saisir(Panneau& p, const std::string& nom, const std::string& texte) {
    p.Trouver(nom)->DefinirTexte(texte);
    p.Changer(nom);
}

// A teed line whose every three phase current is well above the dead-end limit.
Etude LigneEnPiquage() {
    Etude e;
    e.NomPoste = "MARMAGNE";
    e.NomDepart = "EGUZON";
    e.NomPiquage = "ARGENTON";
    e.Ligne_Tl = 3;
    e.Ligne_Ex = {1, 2, 3};
    e.id_reglage = 7;
    return e;
}

void RemplirCourants(PanneauTroisBouts& p) {
    for (const char* nom : PanneauTroisBouts::ChampsCourants())
        Saisir(p, nom, "2500");
}

// The value at `pos` of the panels' list, which starts after the relay's own list.
template <class T> T Valeur(MagasinMemoire& m, int key, int pos) {
    const ValeurTR v = m.LireValeur(key, DEBUT_LISTE_BOUTS + pos);
    EXPECT_TRUE(std::holds_alternative<T>(v)) << "position " << pos;
    return std::holds_alternative<T>(v) ? std::get<T>(v) : T{};
}

} // namespace

TEST(DeuxBouts, LeClicSurLImagePlaceLeRelais) {
    Etude e = LigneEnPiquage();
    e.NomPiquage.clear();
    e.Ligne_Tl = 0;
    MagasinMemoire m;
    PanneauDeuxBouts p(e, &m);
    EXPECT_EQ(p.Nom(), "frmdeuxbouts");
    EXPECT_EQ(p.Trouver("placerprotection")->Texte(), "A-B");
    EXPECT_EQ(p.Trouver("placerprotection")->Genre, GenreChamp::Etiquette);
    EXPECT_EQ(p.Trouver("lblnom(0)")->Texte(), "A : MARMAGNE");
    EXPECT_EQ(p.Trouver("lblnom(1)")->Texte(), "B : EGUZON");
    EXPECT_EQ(p.Trouver("Fraoption")->Texte(), "choose one end");
    EXPECT_EQ(p.Trouver("chkbout(1)")->Groupe, "Fraoption");
    EXPECT_EQ(p.Bout(), 0);
    EXPECT_TRUE(p.Trouver("chkbout(0)")->Valeur);

    p.Cliquer("placerprotection(1)");
    EXPECT_EQ(p.Bout(), 1);
    EXPECT_EQ(p.Trouver("placerprotection")->IndexListe, 1);
    EXPECT_TRUE(p.Trouver("chkbout(1)")->Valeur);
    EXPECT_FALSE(p.Trouver("chkbout(0)")->Valeur);
    p.Cliquer("placerprotection(2)"); // no third end on this line
    EXPECT_EQ(p.Bout(), 1);
    p.Cliquer("Command1");
    EXPECT_TRUE(p.Ferme());
    EXPECT_EQ(e.Ligne_pp, 1);
    EXPECT_EQ(Valeur<std::int16_t>(m, 7, 0), 1);
    EXPECT_EQ(m.Taille(), 1u);

    // Read back from the store, whatever the study holds.
    e.Ligne_pp = 0;
    PanneauDeuxBouts q(e, &m);
    EXPECT_EQ(q.Bout(), 1);
    q.Cliquer("chkbout(0)");
    q.Cliquer("Command2");
    EXPECT_EQ(e.Ligne_pp, 0);
    EXPECT_EQ(Valeur<std::int16_t>(m, 7, 0), 1);
}

TEST(DeuxBouts, LiaisonCentraleSuitLeBoutEtSansMagasin) {
    Etude e;
    e.Ligne_alim = 1;
    PanneauDeuxBouts p(e, nullptr);
    p.Cliquer("chkbout(1)");
    p.Valider();
    EXPECT_EQ(e.Ligne_pp, 1);
    EXPECT_EQ(e.Ligne_alim, 2);

    // A store holding a relay's list, whose first value could pass for an end, and no list of
    // this panel.
    MagasinMemoire m;
    m.EcrireValeur(e.id_reglage, 0, std::int16_t{1});
    e.Ligne_pp = 0;
    PanneauDeuxBouts q(e, &m);
    EXPECT_EQ(q.Bout(), 0);
}

TEST(TroisBouts, OngletsEtCourantsActivesParLEtude) {
    Etude e = LigneEnPiquage();
    PanneauTroisBouts p(e, nullptr);
    EXPECT_EQ(p.Trouver("placerprotection")->Texte(), "A-B-C");
    EXPECT_EQ(p.Trouver("lblnom(2)")->Texte(), "C : ARGENTON");
    EXPECT_EQ(p.Trouver("chkcourcirc")->Groupe.Vue().substr(0, 15), "Relay position/");
    EXPECT_EQ(p.Trouver("txticcabt")->Groupe, "reckoned Icc/Icctri");
    EXPECT_EQ(p.Trouver("txticcabt")->Legende, "A - B");
    EXPECT_EQ(p.Trouver("txtipcbam")->Groupe, "Reckoned Ipc/IPC mono");
    EXPECT_EQ(p.Trouver("txtipccat")->Legende, "C - A");
    for (const char* nom : PanneauTroisBouts::ChampsCourants())
        EXPECT_FALSE(p.Trouver(nom)->Actif) << nom;
    p.Trouver("chkcourcirc")->Valeur = true;
    p.Cliquer("chkcourcirc");
    for (const char* nom : PanneauTroisBouts::ChampsCourants())
        EXPECT_TRUE(p.Trouver(nom)->Actif) << nom;
    p.Cliquer("placerprotection(2)");
    EXPECT_EQ(p.Trouver("placerprotection")->IndexListe, 2);
    EXPECT_TRUE(p.Trouver("chkbout(2)")->Valeur);
    p.Valider();
    EXPECT_EQ(e.Ligne_pp, 2);
    EXPECT_EQ(e.Ligne_cc, -1);
}

TEST(TroisBouts, BoutMortJusquADixAmperes) {
    for (const char* triphase : {"txticcact", "txticcbct", "txticcabt", "txticccbt"}) {
        Etude e = LigneEnPiquage();
        PanneauTroisBouts p(e, nullptr);
        RemplirCourants(p);
        Saisir(p, triphase, "10");
        p.Valider();
        EXPECT_TRUE(e.BoutMort) << triphase;

        PanneauTroisBouts q(e, nullptr);
        RemplirCourants(q);
        Saisir(q, triphase, "10.5");
        q.Valider();
        EXPECT_FALSE(e.BoutMort) << triphase;
    }
    // A single phase current of 10 A is no dead end.
    Etude e = LigneEnPiquage();
    PanneauTroisBouts p(e, nullptr);
    RemplirCourants(p);
    Saisir(p, "txticcabm", "10");
    p.Valider();
    EXPECT_FALSE(e.BoutMort);
}

TEST(TroisBouts, CourantsNulsAUn) {
    Etude e = LigneEnPiquage();
    e.Ligne_IPCCBT = 4300.0;
    PanneauTroisBouts p(e, nullptr);
    EXPECT_EQ(p.Trouver("txtipccbt")->Texte(), "4300.0");
    Saisir(p, "txticcacm", "0");
    Saisir(p, "txtipcabm", "");
    p.Valider();
    EXPECT_TRUE(e.BoutMort); // the three phase currents were 0 before they became 1
    EXPECT_DOUBLE_EQ(e.Ligne_ICCACM, 1.0);
    EXPECT_DOUBLE_EQ(e.Ligne_ICCCBT, 1.0);
    EXPECT_DOUBLE_EQ(e.Ligne_IPCABM, 1.0);
    EXPECT_DOUBLE_EQ(e.Ligne_IPCCBT, 4300.0);
}

TEST(TroisBouts, ValeursEcritesPuisRelues) {
    Etude e = LigneEnPiquage();
    MagasinMemoire m;
    PanneauTroisBouts p(e, &m);
    EXPECT_TRUE(e.FinTR); // nothing stored yet for this relay
    p.Cliquer("placerprotection(1)");
    p.Trouver("chkcourcirc")->Valeur = true;
    p.Cliquer("chkcourcirc");
    const auto& champs = PanneauTroisBouts::ChampsCourants();
    for (std::size_t i = 0; i < champs.size(); ++i)
        Saisir(p, champs[i], std::to_string(100 * (i + 1)));
    p.Cliquer("Command1");

    // pp, cc, the eight ICC, the twelve IPC.
    ASSERT_EQ(m.Taille(), 22u);
    EXPECT_EQ(Valeur<std::int16_t>(m, 7, 0), 1);
    EXPECT_EQ(Valeur<std::int16_t>(m, 7, 1), -1);
    for (std::size_t i = 0; i < champs.size(); ++i)
        EXPECT_DOUBLE_EQ(Valeur<double>(m, 7, static_cast<int>(i) + 2), 100.0 * (i + 1))
            << champs[i];
    EXPECT_DOUBLE_EQ(Valeur<double>(m, 7, 2), e.Ligne_ICCACM);
    EXPECT_DOUBLE_EQ(Valeur<double>(m, 7, 9), e.Ligne_ICCCBT);
    EXPECT_DOUBLE_EQ(Valeur<double>(m, 7, 12), e.Ligne_IPCBAM);
    EXPECT_DOUBLE_EQ(Valeur<double>(m, 7, 21), e.Ligne_IPCABT);

    // Another study of the same relay: the panel shows what was stored.
    Etude f = LigneEnPiquage();
    PanneauTroisBouts q(f, &m);
    EXPECT_EQ(q.Bout(), 1);
    EXPECT_TRUE(q.Trouver("chkcourcirc")->Valeur);
    EXPECT_TRUE(q.Trouver("txticcacm")->Actif);
    for (std::size_t i = 0; i < champs.size(); ++i)
        EXPECT_EQ(q.Trouver(champs[i])->Texte(), std::to_string(100 * (i + 1)) + ".0") << champs[i];
    EXPECT_EQ(f.Ligne_pp, 0); // the study takes them only on OK
    q.Valider();
    EXPECT_EQ(f.Ligne_pp, 1);
    EXPECT_DOUBLE_EQ(f.Ligne_IPCCAT, 1800.0);

    // Another relay's row is not seen.
    Etude g = LigneEnPiquage();
    g.id_reglage = 8;
    g.Ligne_ICCACM = 333.0;
    PanneauTroisBouts r(g, &m);
    EXPECT_EQ(r.Bout(), 0);
    EXPECT_EQ(r.Trouver("txticcacm")->Texte(), "333.0");
}
