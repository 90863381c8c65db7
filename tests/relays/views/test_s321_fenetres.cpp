// An S 321-5 set through the windows, offscreen: from the opening dialog to its panel on a new
// 90 kV line, a reach typed in mode "Modify", the diagram following, the single-phase report case
// showing the quadrilaterals, then the study saved and opened again with the same settings.
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
    double xg2, z4, xg1, rg1, kr, r1r6;
    float g1;
    int ubd;
    bool operator==(const Reglages&) const = default;
};
Reglages LireReglages(const Etude& e) {
    const RelaisS321& r = e.S321;
    return {r.XG2, r.Z4MG, r.XG1, r.RG1, r.KR, r.R1R6, r._50G1, r.UBD};
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

TEST(FenetresS321, DuTitreAuxQuadrilateresPuisALaBaseEtRetour) {
    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    BaseEtudesSql base(dossier.path().toStdString() + "/");
    Etude e;
    RemplirLigne90(e);
    DialogueQt d;
    InscrireVues(d, e);
    Application app(e, d, &base, std::nullopt);

    int titres = 0, fenetres = 0, panneaux = 0, attentes = 0, changes = 0, quadrilateres = 0;
    Reglages sauves{}, rouverts{};
    int cas = -1;
    std::function<void(QWidget*)> agir = [&](QWidget* w) {
        const QString nom = w->objectName();
        if (nom == "frmtitre") {
            ++titres;
            if (titres == 1) {
                NommerEtude(w, "PONTCHARRA", "VALLON", "S321-5", "2");
            } else if (titres == 2) {
                EXPECT_TRUE(ChoisirEtude(w, "PONTCHARRA", "VALLON", "S321-5", "2"));
                e.S321 = RelaisS321{};
            } else {
                QuitterTitre(w);
                return;
            }
            ConfirmerTitre(w);
        } else if (nom == "frmChoixProtection") {
            ChoisirRelais(w, 12);
        } else if (nom == "frmS321") {
            ++panneaux;
            if (fenetres == 1 && panneaux == 3) {
                // In "Modify": a second zone of 9.5 secondary ohms for the phase to earth loops,
                // and a threshold on the third sheet, typed beyond its range.
                EXPECT_FALSE(e.PanneauRelais);
                TaperLigne(w->findChild<QLineEdit*>("txtx2_bt"), "9.5", true);
                auto* feuilles = w->findChild<QTabWidget*>();
                ASSERT_NE(feuilles, nullptr);
                feuilles->setCurrentIndex(2);
                TaperLigne(w->findChild<QLineEdit*>("txtir1_bt"), "25", true);
                EXPECT_EQ(w->findChild<QLineEdit*>("txtir1_bt")->text(), "20.0");
            }
            QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
        } else if (nom == "frmDémarre") {
            if (AttendreFenetre(w, e, fenetres, panneaux, attentes, agir)) return;
            ++fenetres;
            auto* diagramme = w->findChild<QWidget*>("imgCaractéristique");
            if (fenetres == 1) {
                // The single-phase case: the quadrilaterals in place of the circles.
                const QImage cercles = diagramme->grab().toImage();
                w->findChild<QRadioButton*>("chkmonophasé")->click();
                cas = e.TypeReportCharge;
                const QImage avant = diagramme->grab().toImage();
                quadrilateres = PixelsChanges(cercles, avant);
                QTest::mouseClick(w->findChild<QPushButton*>("cmdextra"), Qt::LeftButton);
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
    // 9.5 secondary ohms kept as typed, in primary ohms; 25 A limited to 20.
    EXPECT_NEAR(sauves.xg2, 9.5 * e.Kz, 1e-9);
    EXPECT_FLOAT_EQ(sauves.g1, 20.0F);
    EXPECT_GT(changes, 200);
    EXPECT_EQ(cas, 1);
    EXPECT_GT(quadrilateres, 200);
    EXPECT_EQ(rouverts, sauves);
}
