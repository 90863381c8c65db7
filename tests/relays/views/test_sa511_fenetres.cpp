// The 7SA511's panel in its window, offscreen, on the double circuit line: every field has its
// widget and every widget its field, the five sheets in the order of the chain, the parameter
// codes in the captions, a reactance typed with its primary image beside it, the signalling
// options and the timers of the scheme chosen.
#include "Parcours.h"
#include "relays/sa511/PanneauSA511.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

// The panel in mode "Return", its window shown.
struct FenetreSA511 : FenetreSurExemple<PanneauSA511> {
    FenetreSA511() : FenetreSurExemple("chesnoy-villevaude-400kV-double.json", true, true) {}
    // A caption of the window that reads exactly that.
    bool Legende(const QString& texte) {
        for (QLabel* l : fenetre->findChildren<QLabel*>())
            if (l->text() == texte) return true;
        return false;
    }
};

TEST_F(FenetreSA511, ChaqueChampASonWidgetEtLesCodesSontDansLesLegendes) {
    ASSERT_EQ(e.ErrCalcul, 0);
    LiaisonComplete(*fenetre);
    QTabWidget* onglets = Onglets();
    ASSERT_NE(onglets, nullptr);
    ASSERT_EQ(onglets->count(), 5);
    EXPECT_EQ(onglets->tabText(0), "&Out of step");
    EXPECT_EQ(onglets->tabText(4), "Signal");
    for (const char* texte : {"Out of tep bandwidth (2003)",
                              "Ra1 = Phase to phase pick up resistance (phi < phia)(1624)",
                              "X1 = First zone reactance (1302)", "Phia(1628)",
                              "timer for tripping by backward pick up (1204)"})
        EXPECT_TRUE(Legende(QString::fromUtf8(texte))) << texte;
    EXPECT_EQ(Trouver<QRadioButton>("chktoutessauf1")->text(),
              "out of step blocks every zone but the first zone");
    EXPECT_TRUE(Trouver<QRadioButton>("chktoutessauf1")->isChecked());
    EXPECT_EQ(Trouver("lblX1")->text(), "23.10");
    EXPECT_EQ(Trouver<QLabel>("lblRelais")->text(), "7 SA 511");
}

TEST_F(FenetreSA511, UneReactanceSaisieEtLaSignalisation) {
    QTabWidget* onglets = Onglets();
    onglets->setCurrentIndex(2); // forward: no question
    EXPECT_EQ(relais->OngletCourant(), 2);
    QLineEdit* x2 = Trouver("txtx2");
    TaperLigne(x2, "150", true);
    EXPECT_EQ(x2->text(), "130.00");
    EXPECT_EQ(Trouver("lblX2")->text(), "260.00");
    EXPECT_EQ(e.SA511.X2, 130.0);

    onglets->setCurrentIndex(3);
    onglets->setCurrentIndex(4);
    ASSERT_EQ(relais->OngletCourant(), 4);
    // The long line accelerates; the blocking's timers are hidden until it is chosen.
    EXPECT_FALSE(Trouver("txttve")->isVisibleTo(fenetre.get()));
    EXPECT_TRUE(Trouver("txtte")->isVisibleTo(fenetre.get()));
    // In mode "Return" the scheme chosen runs the signalling alone: the timers stay.
    e.SA511.Tempo[0] = 120.0;
    auto* teleaction = Trouver<QCheckBox>("chkTéléaction");
    EXPECT_FALSE(Trouver<QCheckBox>("chkportéeétendue")->isEnabled());
    teleaction->click();
    EXPECT_TRUE(e.Teleaction);
    EXPECT_EQ(e.SA511.Tempo[0], 120.0);
    auto* blocage = Trouver<QCheckBox>("chkportéeétendue");
    ASSERT_TRUE(blocage->isEnabled());
    blocage->click();
    EXPECT_FALSE(e.Acceleration);
    EXPECT_TRUE(Trouver("txttve")->isVisibleTo(fenetre.get()));
    EXPECT_FALSE(Trouver("txtte")->isVisibleTo(fenetre.get()));
    EXPECT_TRUE(Trouver<QCheckBox>("Checkindépendante")->isVisibleTo(fenetre.get()));
}

} // namespace
