// The REL 100 and the REZ1 set through the windows, offscreen: each chosen in the opening dialog,
// its panel on a new 90 kV line, a third reach typed in mode "Modify" and taken up to its step,
// the diagram following on OK, then the study saved and opened again with the same settings.
#include "Parcours.h"
#include "core/Etude.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <gtest/gtest.h>
#include <vector>

using namespace tournesol;

namespace {

struct Reglages {
    double x1, x2, x3, x4, r;
    float teta;
    double ko, zpi, rpi;
    bool operator==(const Reglages&) const = default;
};
Reglages LireReglages(const Etude& e) {
    return {e.X1reg_HT, e.X2reg_HT, e.X3reg_HT,       e.X4reg_HT,   e.Rreg_HT,
            e.teta,     e.ko_reg,   e.REZ1.Zpireg_HT, e.REZ1.Rpi_HT};
}

// A relay of quadrilaterals, its third reach typed at 6.01 secondary ohms on this 1 A line and
// set at `regle`, the next step up.
struct Cas {
    const char* relais;
    int id;
    const char* panneau;
    const char* regle;
    double valeurRegle;
    // The sheets of the panel, and the fields that must stand on them.
    std::vector<QString> feuilles;
    std::vector<const char*> champs;
};

void TitrePanneauBaseEtRetour(const Cas& cas) {
    Etude e;
    RemplirLigne90(e);
    int changes = 0;
    bool depuisLaFenetre = false;
    std::string etiquette;
    Reglages sauves{}, rouverts{};
    TitreBaseEtRetour p{.poste = "PONTCHARRA",
                        .depart = "VALLON",
                        .relais = cas.relais,
                        .numero = "3",
                        .id = cas.id,
                        .panneau = cas.panneau};
    p.brouiller = [&](QWidget*) { e.X3reg_HT = e.X1reg_HT = e.REZ1.Zpireg_HT = 0.0; };
    p.surPanneau = [&](QWidget* w) {
        etiquette = w->findChild<QLabel*>("lblRelais")->text().toStdString();
        auto* onglets = w->findChild<QTabWidget*>("Onglets");
        ASSERT_NE(onglets, nullptr);
        ASSERT_EQ(static_cast<std::size_t>(onglets->count()), cas.feuilles.size());
        for (int i = 0; i < onglets->count(); ++i)
            EXPECT_EQ(onglets->tabText(i), cas.feuilles[static_cast<std::size_t>(i)]);
        for (const char* champ : cas.champs)
            EXPECT_NE(w->findChild<QWidget*>(QString::fromUtf8(champ)), nullptr) << champ;
        if (!depuisLaFenetre) return;
        // In "Modify".
        EXPECT_FALSE(e.PanneauRelais);
        ASSERT_EQ(e.Is, 1.0F);
        TaperLigne(w->findChild<QLineEdit*>("txtX3_bt"), "6.01", true);
        EXPECT_EQ(w->findChild<QLineEdit*>("txtX3reg_BT")->text(), cas.regle);
    };
    p.premiere = [&](QWidget* w) {
        // The panel opened in "Modify", from the settings already computed.
        auto* modifier = w->findChild<QAbstractButton*>("chkpanneauprotection");
        ASSERT_NE(modifier, nullptr);
        if (!modifier->isChecked()) modifier->click();
        depuisLaFenetre = true;
        changes = PixelsChangesPar(w, [w] { ReglerLeRelais(w); });
        depuisLaFenetre = false;
        sauves = LireReglages(e);
    };
    p.seconde = [&](QWidget*) { rouverts = LireReglages(e); };
    p.Mener(e);
    EXPECT_EQ(p.fenetres, 2);
    EXPECT_GE(p.panneaux, 1);
    EXPECT_EQ(etiquette, cas.relais);
    // The set value in primary ohms; the plane redrawn with it.
    EXPECT_NEAR(sauves.x3, cas.valeurRegle * e.Kz, 1e-9);
    EXPECT_GT(changes, 200);
    EXPECT_GT(rouverts.x1, 0.0);
    EXPECT_EQ(rouverts, sauves);
}

} // namespace

// Steps of 0.05 ohm at 1 A.
TEST(FenetresQuadrilateres, LeREL100DuTitreAuPanneauPuisALaBaseEtRetour) {
    TitrePanneauBaseEtRetour(
        {"REL 100",
         9,
         "frmREL100",
         "6.05",
         6.05,
         {"&Zones", "&Resistance", "&Timers"},
         {"txtX4reg_HT", "txtRreg_BT", "txtteta", "txtko", "txtt4", "chkTéléaction"}});
}

// Steps of 0.1 ohm at 1 A; the out-of-step reach comes back with the rest.
TEST(FenetresQuadrilateres, LeREZ1DuTitreAuPanneauPuisALaBaseEtRetour) {
    TitrePanneauBaseEtRetour({"REZ1",
                              10,
                              "frmREZ1",
                              "6.10",
                              6.1,
                              {"&Zones", "&Out of step", "&Resistance", "&Timers"},
                              {"txtZpi_bt", "txtZpireg_HT", "txtZpe_HT", "txtRpe_HT", "txtRpi_HT",
                               "txtko", "chkVerrouillage"}});
}
