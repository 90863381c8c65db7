// The RAZOA's panel in its window, offscreen, on the meshed example line: its five sheets, a
// first zone typed and coded again as a fraction, the warning of a narrow out-of-step width,
// and the lens chosen.
#include "Parcours.h"
#include "relays/razoa/PanneauRAZOA.h"
#include "relays/razoa/TraceRAZOA.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

// The panel opened in mode "Modify" on the example's settings, then its window.
struct FenetreRAZOA : FenetreSurExemple<PanneauRAZOA> {
    FenetreRAZOA() : FenetreSurExemple("bayet-saint-pourcain-225kV.json", false, false) {}
};

} // namespace

TEST_F(FenetreRAZOA, CinqOngletsEtChaqueChampASonWidget) {
    ASSERT_EQ(e.ErrCalcul, 0);
    EXPECT_EQ(fenetre->objectName(), "frmRAZOA");
    LiaisonComplete(*fenetre);
    QTabWidget* onglets = Onglets();
    ASSERT_NE(onglets, nullptr);
    ASSERT_EQ(onglets->count(), 5);
    const char* titres[] = {"Zones", "pick up", "out of step", "Others", "Timers"};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(onglets->tabText(i).toStdString(), titres[i]);
    // The example's coding, shown: a = 69, p1 = 20 (In X1 = 11.05, 69 / 20 = 3.45 times 3.2).
    EXPECT_EQ(Trouver("txta")->text(), "69");
    EXPECT_EQ(Trouver("txtp1")->text(), "20");
    EXPECT_EQ(Trouver("txtX1reg_BT")->text(), "11.04");
    EXPECT_FALSE(Trouver("txtX1reg_BT")->isEnabled());
}

TEST_F(FenetreRAZOA, UneZoneSaisieEstCodeeDeNouveau) {
    // 3.3 ohms on Is 1: 33 / 32 on a short line, 99 / 96 on this long one.
    TaperLigne(Trouver("txtX1_bt"), "3.3", true);
    EXPECT_EQ(Trouver("txta")->text(), "99");
    EXPECT_EQ(Trouver("txtp1")->text(), "96");
    EXPECT_EQ(Trouver("txtX1reg_BT")->text(), "3.30");
    EXPECT_EQ(Trouver("txtX1_HT")->text(), "7.26"); // times Kz 2.2
    EXPECT_EQ(e.RAZOA.b, 198);
}

TEST_F(FenetreRAZOA, UneLargeurTropEtroiteEstSignalee) {
    QLabel* erreur = fenetre->findChild<QLabel*>("txtq1err");
    ASSERT_NE(erreur, nullptr);
    EXPECT_TRUE(erreur->isHidden());
    Onglets()->setCurrentIndex(2);
    ASSERT_EQ(relais->OngletCourant(), 2);
    // 5 secondary ohms on Is 1: q = 14, q1 = 13, below 22.
    TaperLigne(Trouver("txtZ2_bt"), "5", true);
    EXPECT_EQ(Trouver("txtq1")->text(), "13");
    EXPECT_FALSE(erreur->isHidden());
    EXPECT_EQ(erreur->text(), "q1 cannot be lower than 22.");
}

TEST_F(FenetreRAZOA, LaLentilleChoisie) {
    auto* lentille = Trouver<QRadioButton>("chkmrl");
    ASSERT_NE(lentille, nullptr);
    // Only the sheet in front takes a click.
    EXPECT_FALSE(lentille->isEnabled());
    Onglets()->setCurrentIndex(1);
    ASSERT_TRUE(lentille->isEnabled());
    lentille->click();
    EXPECT_TRUE(e.RAZOA.Lentille);
    EXPECT_FALSE(e.RAZOA.Cercle);
    EXPECT_FALSE(Trouver<QRadioButton>("chkmrc")->isChecked());
    // The characteristic drawn next is the lens's two arcs.
    EXPECT_EQ(ArcsRAZOA(e).size(), 2u);
}
