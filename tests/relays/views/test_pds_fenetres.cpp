// A PDS set through the windows, offscreen: from the opening dialog to its panel on a new
// 90 kV line, a reach typed in mode "Modify" and taken to the relay's plugs, the diagram
// following, then the study saved and opened again with the same settings.
#include "../../core/views/Pilote.h"
#include "../../shell/views/Gestes.h"
#include "../../shell/views/Vues.h"
#include "core/Etude.h"
#include "core/views/DialogueQt.h"
#include "database/BaseEtudesSql.h"
#include "relays/pds/CalculPDS.h"
#include "shell/Application.h"
#include "shell/PanneauDemarre.h"

#include <QAction>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

// 32 km of 90 kV meshed line behind a CT of 800/5.
void RemplirLigne90(Etude& e) {
    e.Ligne_Up = 90;
    e.Ligne_Ip = 800;
    e.Is = 5.0F;
    e.Ligne_Icc = 20;
    e.Ligne_lc = true;
    e.Ligne_Ittri = 480.0;
    e.Ligne_Itmono = 520.0;
    e.Ligne_Itmax = 560.0;
}

struct Reglages {
    double x2, x2reg, x3reg, x4reg, ko;
    float teta;
    int t3, pct2;
    bool operator==(const Reglages&) const = default;
};
Reglages LireReglages(const Etude& e) {
    return {e.X2_HT, e.X2reg_HT, e.X3reg_HT, e.X4reg_HT, e.ko_reg, e.teta, e.T3, e.PDS.PctX2};
}

int PixelsChanges(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return -1;
    int n = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            n += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    return n;
}

} // namespace

TEST(FenetresPDS, DuTitreAuPanneauPuisALaBaseEtRetour) {
    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    BaseEtudesSql base(dossier.path().toStdString() + "/");
    Etude e;
    RemplirLigne90(e);
    DialogueQt d;
    InscrireVues(d, e);
    Application app(e, d, &base, std::nullopt);

    int titres = 0, fenetres = 0, panneaux = 0, attentes = 0, changes = 0;
    Reglages sauves{}, rouverts{};
    double x2attendu = 0.0;
    std::function<void(QWidget*)> agir = [&](QWidget* w) {
        const QString nom = w->objectName();
        if (nom == "frmtitre") {
            ++titres;
            if (titres == 1) {
                NommerEtude(w, "PONTCHARRA", "VALLON", "PDS", "1");
            } else if (titres == 2) {
                EXPECT_TRUE(ChoisirEtude(w, "PONTCHARRA", "VALLON", "PDS", "1"));
                e.X2_HT = e.X2reg_HT = e.X3reg_HT = e.X4reg_HT = e.ko_reg = 0.0;
                e.teta = 0.0F;
                e.T3 = e.PDS.PctX2 = 0;
            } else {
                QuitterTitre(w);
                return;
            }
            ConfirmerTitre(w);
        } else if (nom == "frmChoixProtection") {
            ChoisirRelais(w, 4);
        } else if (nom == "frmPDS") {
            ++panneaux;
            if (fenetres == 1 && panneaux == 3) {
                // In "Modify": a second zone of 9.45 secondary ohms, rounded up to a whole
                // percentage of its plug, and a timer beyond its range.
                EXPECT_FALSE(e.PanneauRelais);
                TaperLigne(w->findChild<QLineEdit*>("txtX2_bt"), "9.45", true);
                double x = 9.45;
                const Prise p = PrisePDS(x, 5.0 / e.Is, false);
                x2attendu = p.Reglage();
                EXPECT_EQ(w->findChild<QLineEdit*>("txtX2reg_BT")->text(),
                          QString::number(x2attendu, 'f', 2));
                EXPECT_EQ(w->findChild<QLineEdit*>("txtPctX2")->text(), QString::number(p.Pct));
                auto* feuilles = w->findChild<QTabWidget*>();
                ASSERT_NE(feuilles, nullptr);
                feuilles->setCurrentIndex(2);
                TaperLigne(w->findChild<QLineEdit*>("txtt3"), "12345", true);
                EXPECT_EQ(w->findChild<QLineEdit*>("txtt3")->text(), "9900");
            }
            QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
        } else if (nom == "frmDémarre") {
            auto& demarre =
                dynamic_cast<PanneauDemarre&>(static_cast<FenetrePanneau*>(w)->Modele());
            const bool attendre = QApplication::activeModalWidget() != w ||
                                  demarre.NouvelleLigne() ||
                                  (fenetres == 0 && panneaux == 0 && ++attentes < 250);
            if (attendre) {
                QPointer<QWidget> garde(w);
                QTimer::singleShot(20, [&agir, garde] {
                    if (garde) agir(garde);
                });
                return;
            }
            ++fenetres;
            auto* diagramme = w->findChild<QWidget*>("imgCaractéristique");
            if (fenetres == 1) {
                w->findChild<QRadioButton*>("chkmaximal")->click();
                const QImage avant = diagramme->grab().toImage();
                QTest::mouseClick(w->findChild<QPushButton*>("cmdextra"), Qt::LeftButton);
                changes = PixelsChanges(avant, diagramme->grab().toImage());
                sauves = LireReglages(e);
                QTest::mouseClick(w->findChild<QPushButton*>("cmdsave"), Qt::LeftButton);
            } else {
                rouverts = LireReglages(e);
            }
            w->findChild<QAction*>("mnuChangerPoste")->trigger();
        } else if (nom == "frmRéseauOptions") {
            QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
        } else if (nom == "frmréseauvaleurs") {
            TaperLigne(w->findChild<QLineEdit*>("txtlongueur(0)"), "32", true);
            TaperLigne(w->findChild<QLineEdit*>("txtrl(0)"), "3.84", true);
            TaperLigne(w->findChild<QLineEdit*>("txtxl(0)"), "12.8", true);
            QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
        } else if (nom == "frmReportCharge" && w->findChild<QLabel*>("lblErreur")->isVisible()) {
            TaperLigne(w->findChild<QLineEdit*>("txtxla"), "14", true);
            QTest::mouseClick(w->findChild<QPushButton*>("Command2"), Qt::LeftButton);
        } else {
            RepondreParDefaut(w);
        }
    };
    {
        Pilote pilote(agir);
        app.Main();
    }
    EXPECT_EQ(fenetres, 2);
    EXPECT_GE(panneaux, 3);
    EXPECT_GE(x2attendu, 9.45);
    EXPECT_NEAR(sauves.x2reg, x2attendu * e.Kz, 1e-6);
    EXPECT_EQ(sauves.t3, 9900);
    EXPECT_GT(sauves.x3reg, 0.0);
    EXPECT_GE(sauves.teta, 60.0F);
    EXPECT_GT(changes, 100);
    EXPECT_EQ(rouverts, sauves);
}
