// The EPAC and the PDS set through the windows, offscreen: from the opening dialog to the
// relay's panel on a new 90 kV line, a reach typed in mode "Modify" and taken to the relay's
// steps, a timer beyond its range, the diagram following, then the study saved and opened again
// with the same settings.
#include "Parcours.h"
#include "core/Etude.h"
#include "relays/pds/CalculPDS.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

// The settings both relays keep in the shared values, to compare a study with itself.
struct Reglages {
    double x2, x2reg, x3reg, x4reg, r;
    float teta;
    int t3;
    bool operator==(const Reglages&) const = default;
};
Reglages LireReglages(const Etude& e) {
    return {e.X2_HT, e.X2reg_HT, e.X3reg_HT, e.X4reg_HT, e.R_HT, e.teta, e.T3};
}

struct Parcours {
    int id;
    const char* relais;  // as typed in the opening dialog
    const char* panneau; // the panel's name
    const char* x2;      // the second zone typed, in secondary ohms
    // The set second zone the relay's steps give for it, in secondary ohms.
    std::function<double(const Etude&)> x2Regle;
    const char* t3Limite; // 12345 ms as the timer's field shows it
};

struct Resultat {
    int fenetres = 0, panneaux = 0, changes = 0;
    double x2attendu = 0.0;
    Reglages sauves{}, rouverts{};
    double kz = 0.0;
};

Resultat Parcourir(const Parcours& c) {
    Etude e;
    RemplirLigne90(e);
    Resultat r;
    TitreBaseEtRetour p{.poste = "PONTCHARRA",
                        .depart = "VALLON",
                        .relais = c.relais,
                        .numero = "1",
                        .id = c.id,
                        .panneau = c.panneau};
    p.brouiller = [&](QWidget*) {
        e.X2_HT = e.X2reg_HT = e.X3reg_HT = e.X4reg_HT = e.R_HT = 0.0;
        e.teta = 0.0F;
        e.T3 = 0;
    };
    p.surPanneau = [&](QWidget* w) {
        if (p.fenetres != 1 || p.panneaux != 3) return;
        EXPECT_FALSE(e.PanneauRelais);
        TaperLigne(w->findChild<QLineEdit*>("txtX2_bt"), c.x2, true);
        r.x2attendu = c.x2Regle(e);
        EXPECT_EQ(w->findChild<QLineEdit*>("txtX2reg_BT")->text(),
                  QString::number(r.x2attendu, 'f', 2));
        auto* feuilles = w->findChild<QTabWidget*>();
        ASSERT_NE(feuilles, nullptr);
        feuilles->setCurrentIndex(2);
        TaperLigne(w->findChild<QLineEdit*>("txtt3"), "12345", true);
        EXPECT_EQ(w->findChild<QLineEdit*>("txtt3")->text(), c.t3Limite);
    };
    p.premiere = [&](QWidget* w) {
        w->findChild<QRadioButton*>("chkmaximal")->click();
        r.changes = PixelsChangesPar(w, [w] { ReglerLeRelais(w); });
        r.sauves = LireReglages(e);
        r.kz = e.Kz;
    };
    p.seconde = [&](QWidget*) { r.rouverts = LireReglages(e); };
    p.Mener(e);
    r.fenetres = p.fenetres;
    r.panneaux = p.panneaux;
    return r;
}

void Constater(const Resultat& r, double x2tape) {
    EXPECT_EQ(r.fenetres, 2);
    EXPECT_GE(r.panneaux, 3);
    // Taken up to the step, and kept in primary ohms.
    EXPECT_GE(r.x2attendu, x2tape);
    EXPECT_NEAR(r.sauves.x2reg, r.x2attendu * r.kz, 1e-6);
    EXPECT_GT(r.sauves.x3reg, 0.0);
    EXPECT_GT(r.changes, 100);
    EXPECT_EQ(r.rouverts, r.sauves);
}

} // namespace

TEST(FenetresEPACEtPDS, LEPACDuTitreAuPanneauPuisALaBaseEtRetour) {
    // 9.451 secondary ohms: up to the step of 0.05 / Is ohm.
    const Resultat r = Parcourir({2, "EPAC", "frmEpac", "9.451",
                                  [](const Etude& e) {
                                      const double pas = 0.05 / e.Is;
                                      return std::ceil(9.451 / pas - 1e-9) * pas;
                                  },
                                  "9990"});
    Constater(r, 9.451);
    EXPECT_EQ(r.sauves.t3, 9990);
    EXPECT_GT(r.sauves.r, 0.0);
}

TEST(FenetresEPACEtPDS, LePDSDuTitreAuPanneauPuisALaBaseEtRetour) {
    // 9.45 secondary ohms: up to a whole percentage of its plug.
    const Resultat r = Parcourir({4, "PDS", "frmPDS", "9.45",
                                  [](const Etude& e) {
                                      double x = 9.45;
                                      return PrisePDS(x, 5.0 / e.Is, false).Reglage();
                                  },
                                  "9900"});
    Constater(r, 9.45);
    EXPECT_EQ(r.sauves.t3, 9900);
    EXPECT_GE(r.sauves.teta, 60.0F);
}
