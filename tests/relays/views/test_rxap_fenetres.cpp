// An RXAP set through the windows, offscreen: from the opening dialog to its panel on a new
// 90 kV line, the shape changed to the ellipse in mode "Modify", the diagram following, then the
// study saved and opened again with the same settings.
#include "../../core/views/Pilote.h"
#include "../../shell/views/Gestes.h"
#include "../../shell/views/Vues.h"
#include "Parcours.h"
#include "core/Etude.h"
#include "core/views/DialogueQt.h"
#include "database/BaseEtudesSql.h"
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

int PixelsChanges(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return -1;
    int n = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            n += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    return n;
}

} // namespace

TEST(FenetresRXAP, DuTitreALEllipsePuisALaBaseEtRetour) {
    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    BaseEtudesSql base(dossier.path().toStdString() + "/");
    Etude e;
    RemplirLigne90(e);
    DialogueQt d;
    InscrireVues(d, e);
    Application app(e, d, &base, std::nullopt);

    int titres = 0, fenetres = 0, panneaux = 0, attentes = 0, changes = 0;
    Reglages cercle{}, sauves{}, rouverts{};
    std::function<void(QWidget*)> agir = [&](QWidget* w) {
        const QString nom = w->objectName();
        if (nom == "frmtitre") {
            ++titres;
            if (titres == 1) {
                NommerEtude(w, "PONTCHARRA", "VALLON", "RXAP", "1");
            } else if (titres == 2) {
                EXPECT_TRUE(ChoisirEtude(w, "PONTCHARRA", "VALLON", "RXAP", "1"));
                e.RXAP = RelaisRXAP{};
                e.X1reg_HT = e.X2reg_HT = 0.0;
                e.T3 = 0;
            } else {
                QuitterTitre(w);
                return;
            }
            ConfirmerTitre(w);
        } else if (nom == "frmChoixProtection") {
            ChoisirRelais(w, 11);
        } else if (nom == "frmRXAP") {
            ++panneaux;
            if (fenetres == 1 && panneaux == 2) {
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
            }
            QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
        } else if (nom == "frmDémarre") {
            if (AttendreFenetre(w, e, fenetres, panneaux, attentes, agir)) return;
            ++fenetres;
            auto* diagramme = w->findChild<QWidget*>("imgCaractéristique");
            if (fenetres == 1) {
                cercle = LireReglages(e);
                const QImage avant = diagramme->grab().toImage();
                QTest::mouseClick(w->findChild<QPushButton*>("cmdextra"), Qt::LeftButton);
                sauves = LireReglages(e);
                changes = PixelsChanges(avant, diagramme->grab().toImage());
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
    // A new line starts on the circle; the ellipse then found a focal distance of the table.
    EXPECT_TRUE(cercle.cercle);
    EXPECT_FALSE(sauves.cercle);
    EXPECT_GE(sauves.focale, 3.0);
    EXPECT_NE(sauves.arg, cercle.arg);
    EXPECT_EQ(sauves.t3, 650);
    EXPECT_GT(changes, 500);
    EXPECT_EQ(rouverts, sauves);
}
