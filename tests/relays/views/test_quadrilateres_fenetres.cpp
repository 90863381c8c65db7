// The REL 100 and the REZ1 set through the windows, offscreen: each chosen in the opening dialog,
// its panel on a new 90 kV line, a third reach typed in mode "Modify" and taken up to its step,
// the diagram following on OK, then the study saved and opened again with the same settings.
#include "../../core/views/Pilote.h"
#include "../../shell/views/Gestes.h"
#include "../../shell/views/Vues.h"
#include "Parcours.h"
#include "core/Etude.h"
#include "core/views/DialogueQt.h"
#include "database/BaseEtudesSql.h"
#include "shell/Application.h"
#include "shell/PanneauDemarre.h"

#include <QAbstractButton>
#include <QAction>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>
#include <vector>

using namespace tournesol;

namespace {

// 32 km of 90 kV meshed line behind a CT of 800 A.
void RemplirLigne90(Etude& e) {
    e.Ligne_Up = 90;
    e.Ligne_Ip = 800;
    e.Ligne_Icc = 20;
    e.Ligne_lc = true;
    e.Ligne_Ittri = 480.0;
    e.Ligne_Itmono = 520.0;
    e.Ligne_Itmax = 560.0;
}

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

int PixelsChanges(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return -1;
    int n = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            n += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    return n;
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
    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    BaseEtudesSql base(dossier.path().toStdString() + "/");
    Etude e;
    RemplirLigne90(e);
    DialogueQt d;
    InscrireVues(d, e);
    Application app(e, d, &base, std::nullopt);

    int titres = 0, fenetres = 0, panneaux = 0, attentes = 0, changes = 0;
    bool depuisLaFenetre = false;
    std::string etiquette;
    Reglages sauves{}, rouverts{};
    std::function<void(QWidget*)> agir = [&](QWidget* w) {
        const QString nom = w->objectName();
        if (nom == "frmtitre") {
            ++titres;
            if (titres == 1) {
                NommerEtude(w, "PONTCHARRA", "VALLON", cas.relais, "3");
            } else if (titres == 2) {
                EXPECT_TRUE(ChoisirEtude(w, "PONTCHARRA", "VALLON", cas.relais, "3"));
                e.X3reg_HT = e.X1reg_HT = e.REZ1.Zpireg_HT = 0.0;
            } else {
                QuitterTitre(w);
                return;
            }
            ConfirmerTitre(w);
        } else if (nom == "frmChoixProtection") {
            ChoisirRelais(w, cas.id);
        } else if (nom == cas.panneau) {
            ++panneaux;
            etiquette = w->findChild<QLabel*>("lblRelais")->text().toStdString();
            auto* onglets = w->findChild<QTabWidget*>("Onglets");
            ASSERT_NE(onglets, nullptr);
            ASSERT_EQ(static_cast<std::size_t>(onglets->count()), cas.feuilles.size());
            for (int i = 0; i < onglets->count(); ++i)
                EXPECT_EQ(onglets->tabText(i), cas.feuilles[static_cast<std::size_t>(i)]);
            for (const char* champ : cas.champs)
                EXPECT_NE(w->findChild<QWidget*>(QString::fromUtf8(champ)), nullptr) << champ;
            if (depuisLaFenetre) {
                // In "Modify".
                EXPECT_FALSE(e.PanneauRelais);
                ASSERT_EQ(e.Is, 1.0F);
                TaperLigne(w->findChild<QLineEdit*>("txtX3_bt"), "6.01", true);
                EXPECT_EQ(w->findChild<QLineEdit*>("txtX3reg_BT")->text(), cas.regle);
            }
            QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
        } else if (nom == "frmDémarre") {
            if (AttendreFenetre(w, e, fenetres, panneaux, attentes, agir)) return;
            ++fenetres;
            auto* diagramme = w->findChild<QWidget*>("imgCaractéristique");
            if (fenetres == 1) {
                const QImage avant = diagramme->grab().toImage();
                // The panel opened in "Modify", from the settings already computed.
                auto* modifier = w->findChild<QAbstractButton*>("chkpanneauprotection");
                ASSERT_NE(modifier, nullptr);
                if (!modifier->isChecked()) modifier->click();
                depuisLaFenetre = true;
                QTest::mouseClick(w->findChild<QPushButton*>("cmdextra"), Qt::LeftButton);
                depuisLaFenetre = false;
                changes = PixelsChanges(avant, diagramme->grab().toImage());
                sauves = LireReglages(e);
                QTest::mouseClick(w->findChild<QPushButton*>("cmdsave"), Qt::LeftButton);
            } else {
                rouverts = LireReglages(e);
            }
            w->findChild<QAction*>("mnuChangerPoste")->trigger();
        } else if (RepondreReseau(w, LIGNE_90)) {
        } else {
            RepondreParDefaut(w);
        }
    };
    {
        Pilote pilote(agir);
        app.Main();
    }
    EXPECT_EQ(fenetres, 2);
    EXPECT_GE(panneaux, 1);
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
