// frmPrint: what it shows of the study, the settings box by relay, OK and cancel.
#include "core/Etude.h"
#include "printing/PanneauImpression.h"

#include <gtest/gtest.h>

using namespace tournesol;

TEST(PanneauImpression, MontreLesOptionsDeLEtude) {
    Etude e;
    e.ImpNoir = true;
    e.ImpNoDots = true;
    e.ImpParties = {true, false, true};
    PanneauImpression p(e);
    EXPECT_EQ(p.Nom(), "frmPrint");
    EXPECT_EQ(p.Titre(), "TOURNESOL : imprimer");
    EXPECT_EQ(p.Trouver("txtcopies")->Texte(), "1"); // 0 copies shows as 1
    EXPECT_EQ(p.Trouver("txtcopies")->Legende, "Number of copies");
    EXPECT_FALSE(p.Trouver("chkblack")->Valeur); // printing in black: "Colour" unticked
    EXPECT_TRUE(p.Trouver("chknodots")->Valeur);
    EXPECT_EQ(p.Trouver("chkpart(1)")->Texte(), "line and relay characteristics");
    EXPECT_TRUE(p.Trouver("chkpart(0)")->Valeur);
    EXPECT_FALSE(p.Trouver("chkpart(1)")->Valeur);
    const char* const textes[][2] = {{"chkblack", "Colour"},
                                     {"chknodots", "full line"},
                                     {"chkpart(0)", "Drawing + diagnostics"},
                                     {"chkpart(2)", "Relay settings"},
                                     {"cmd(0)", "&OK"},
                                     {"cmd(1)", "cancel"}};
    for (const auto& [nom, texte] : textes)
        EXPECT_EQ(p.Trouver(nom)->Texte(), texte) << nom;
}

TEST(PanneauImpression, LaFeuilleDeReglagesSelonLeRelais) {
    Etude e;
    for (const int id : {3, 4, 11, 1, 2, 6, 8, 10, 12, 7, 9}) {
        e.id_protection = id;
        EXPECT_EQ(PanneauImpression(e).Trouver("chkpart(2)")->Actif, id != 3 && id != 4 && id != 11)
            << id;
    }
    e.id_protection = 5;
    e.PXLC.FeuilleReglages = false;
    EXPECT_FALSE(PanneauImpression(e).Trouver("chkpart(2)")->Actif);
    e.PXLC.FeuilleReglages = true;
    EXPECT_TRUE(PanneauImpression(e).Trouver("chkpart(2)")->Actif);
    e.Superposition = true; // two relays superposed: the box is left as it is
    e.id_protection = 3;
    EXPECT_TRUE(PanneauImpression(e).Trouver("chkpart(2)")->Actif);
}

TEST(PanneauImpression, OkEtAnnulerPrennentLesOptions) {
    Etude e;
    e.ErrCalcul = 6;
    PanneauImpression p(e);
    p.Trouver("txtcopies")->DefinirTexte("2");
    p.Trouver("chkblack")->Valeur = true;
    p.Trouver("chknodots")->Valeur = true;
    p.Trouver("chkpart(1)")->Valeur = true;
    p.Cliquer("cmd(0)");
    EXPECT_TRUE(p.Ferme());
    EXPECT_EQ(e.ImpCopies, 2);
    EXPECT_FALSE(e.ImpNoir); // a ticked "Colour" prints in colour
    EXPECT_TRUE(e.ImpNoDots);
    EXPECT_EQ(e.ImpParties, (Booleens3{false, true, false}));
    EXPECT_EQ(e.ErrCalcul, 0);

    PanneauImpression noir(e);
    EXPECT_EQ(noir.Trouver("txtcopies")->Texte(), "2");
    noir.Trouver("chkblack")->Valeur = false;
    noir.Trouver("txtcopies")->DefinirTexte("250");
    noir.Touche(Panneau::TOUCHE_ENTREE);
    EXPECT_TRUE(e.ImpNoir); // an unticked box gives true
    EXPECT_EQ(e.ImpCopies, PanneauImpression::COPIES_MAX);

    // Cancel takes the options all the same and stops the print.
    PanneauImpression annuler(e);
    annuler.Trouver("chkpart(2)")->Valeur = true;
    annuler.Cliquer("cmd(1)");
    EXPECT_TRUE(annuler.Ferme());
    EXPECT_EQ(e.ErrCalcul, -1);
    EXPECT_TRUE(e.ImpParties[2]);
    for (const bool croix : {false, true}) {
        e.ErrCalcul = 0;
        PanneauImpression q(e);
        if (croix) {
            EXPECT_TRUE(q.Fermer());
        } else {
            q.Touche(Panneau::TOUCHE_ECHAP);
        }
        EXPECT_EQ(e.ErrCalcul, -1);
    }
}
