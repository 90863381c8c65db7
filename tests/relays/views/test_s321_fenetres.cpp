// An S 321-5 set through the windows, offscreen: from the opening dialog to its panel on a new
// 90 kV line, a reach typed in mode "Modify", the diagram following, the single-phase report case
// showing the quadrilaterals, then the study saved and opened again with the same settings.
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
    double xg2, z4, xg1, rg1, kr, r1r6;
    float g1;
    int ubd;
    bool operator==(const Reglages&) const = default;
};
Reglages LireReglages(const Etude& e) {
    const RelaisS321& r = e.S321;
    return {r.XG2, r.Z4MG, r.XG1, r.RG1, r.KR, r.R1R6, r._50G1, r.UBD};
}

} // namespace

TEST(FenetresS321, DuTitreAuxQuadrilateresPuisALaBaseEtRetour) {
    Etude e;
    RemplirLigne90(e);
    e.Is = 5.0F;
    int changes = 0, quadrilateres = 0, cas = -1;
    Reglages sauves{}, rouverts{};
    TitreBaseEtRetour p{.poste = "PONTCHARRA",
                        .depart = "VALLON",
                        .relais = "S321-5",
                        .numero = "2",
                        .id = 12,
                        .panneau = "frmS321"};
    p.brouiller = [&](QWidget*) { e.S321 = RelaisS321{}; };
    p.surPanneau = [&](QWidget* w) {
        if (p.fenetres != 1 || p.panneaux != 3) return;
        // In "Modify": a second zone of 9.5 secondary ohms for the phase to earth loops, and a
        // threshold on the third sheet, typed beyond its range.
        EXPECT_FALSE(e.PanneauRelais);
        TaperLigne(w->findChild<QLineEdit*>("txtx2_bt"), "9.5", true);
        auto* feuilles = w->findChild<QTabWidget*>();
        ASSERT_NE(feuilles, nullptr);
        feuilles->setCurrentIndex(2);
        TaperLigne(w->findChild<QLineEdit*>("txtir1_bt"), "25", true);
        EXPECT_EQ(w->findChild<QLineEdit*>("txtir1_bt")->text(), "20.0");
    };
    p.premiere = [&](QWidget* w) {
        // The single-phase case: the quadrilaterals in place of the circles.
        quadrilateres = PixelsChangesPar(w, [&] {
            w->findChild<QRadioButton*>("chkmonophasé")->click();
            cas = e.TypeReportCharge;
        });
        changes = PixelsChangesPar(w, [w] { ReglerLeRelais(w); });
        sauves = LireReglages(e);
    };
    p.seconde = [&](QWidget*) { rouverts = LireReglages(e); };
    p.Mener(e);
    EXPECT_EQ(p.fenetres, 2);
    // 9.5 secondary ohms kept as typed, in primary ohms; 25 A limited to 20.
    EXPECT_NEAR(sauves.xg2, 9.5 * e.Kz, 1e-9);
    EXPECT_FLOAT_EQ(sauves.g1, 20.0F);
    EXPECT_GT(changes, 200);
    EXPECT_EQ(cas, 1);
    EXPECT_GT(quadrilateres, 200);
    EXPECT_EQ(rouverts, sauves);
}
