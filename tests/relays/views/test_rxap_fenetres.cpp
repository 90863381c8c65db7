// An RXAP set through the windows, offscreen: from the opening dialog to its panel on a new
// 90 kV line, the shape changed to the ellipse in mode "Modify", the diagram following, then the
// study saved and opened again with the same settings.
#include "Parcours.h"
#include "core/Etude.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

struct Reglages {
    bool cercle;
    double focale, exmr, exap, k, x1reg, x2reg;
    float arg;
    int t3;
    bool operator==(const Reglages&) const = default;
};
Reglages LireReglages(const Etude& e) {
    const RelaisRXAP& r = e.RXAP;
    return {r.Cercle, r.focale, r.exmr, r.exap, r.K, e.X1reg_HT, e.X2reg_HT, r.Arg, e.T3};
}

} // namespace

TEST(FenetresRXAP, DuTitreALEllipsePuisALaBaseEtRetour) {
    Etude e;
    RemplirLigne90(e);
    e.Is = 5.0F;
    int changes = 0;
    Reglages cercle{}, sauves{}, rouverts{};
    TitreBaseEtRetour p{.poste = "PONTCHARRA",
                        .depart = "VALLON",
                        .relais = "RXAP",
                        .numero = "1",
                        .id = 11,
                        .panneau = "frmRXAP"};
    p.brouiller = [&](QWidget*) {
        e.RXAP = RelaisRXAP{};
        e.X1reg_HT = e.X2reg_HT = 0.0;
        e.T3 = 0;
    };
    p.surPanneau = [&](QWidget* w) {
        if (p.fenetres != 1 || p.panneaux != 2) return;
        // In "Modify": the ellipse, and a timer on the third sheet.
        EXPECT_FALSE(e.PanneauRelais);
        // Each sheet's fields are enabled once it is in front.
        auto* feuilles = w->findChild<QTabWidget*>();
        ASSERT_NE(feuilles, nullptr);
        feuilles->setCurrentIndex(1);
        EXPECT_TRUE(w->findChild<QLineEdit*>("txtmr")->isVisibleTo(w));
        w->findChild<QRadioButton*>("chkmrl")->click();
        EXPECT_FALSE(w->findChild<QLineEdit*>("txtmr")->isVisibleTo(w));
        EXPECT_TRUE(w->findChild<QLineEdit*>("txtfocale")->isVisibleTo(w));
        feuilles->setCurrentIndex(2);
        TaperLigne(w->findChild<QLineEdit*>("txtt3"), "650", true);
    };
    p.premiere = [&](QWidget* w) {
        cercle = LireReglages(e);
        changes = PixelsChangesPar(w, [w] { ReglerLeRelais(w); });
        sauves = LireReglages(e);
    };
    p.seconde = [&](QWidget*) { rouverts = LireReglages(e); };
    p.Mener(e);
    EXPECT_EQ(p.fenetres, 2);
    // A new line starts on the circle; the ellipse then found a focal distance of the table.
    EXPECT_TRUE(cercle.cercle);
    EXPECT_FALSE(sauves.cercle);
    EXPECT_GE(sauves.focale, 3.0);
    EXPECT_NE(sauves.arg, cercle.arg);
    EXPECT_EQ(sauves.t3, 650);
    EXPECT_GT(changes, 500);
    EXPECT_EQ(rouverts, sauves);
}
