// A PD3A set through the windows, offscreen: from the opening dialog to its panel, a desired
// reach changed in mode "Modify", the zone on the diagram, the diagnostics, then the study saved
// and opened again with the same settings.
#include "../../shell/Ligne225.h"
#include "Parcours.h"
#include "core/Etude.h"
#include "diagnostics/FenetreDiagnostics.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

// The columns of the diagram's row at reactance x, between the resistances r1 and r2, where the
// second image differs from the first on that row or the rows beside it.
int ColonnesChangees(const QImage& avant, const QImage& apres, const Etude& e, double x, double r1,
                     double r2) {
    const int y = static_cast<int>(std::lround((x - e.ScaleTop) * apres.height() / e.ScaleHeight));
    const auto colonne = [&](double r) {
        return static_cast<int>(std::lround((r - e.ScaleLeft) * apres.width() / e.ScaleWidth));
    };
    int n = 0;
    for (int px = std::max(0, colonne(r1)); px <= std::min(apres.width() - 1, colonne(r2)); ++px)
        for (int dy = -1; dy <= 1; ++dy)
            if (y + dy >= 0 && y + dy < apres.height() &&
                apres.pixel(px, y + dy) != avant.pixel(px, y + dy)) {
                ++n;
                break;
            }
    return n;
}

// What the relay's settings are, to compare a study with itself once saved and opened again.
struct Reglages {
    double x1, x1reg, x3reg, r;
    int k1, rd, t2;
    bool operator==(const Reglages&) const = default;
};
Reglages LireReglages(const Etude& e) {
    return {e.X1_HT, e.X1reg_HT, e.X3reg_HT, e.R_HT, e.PD3A.K1, e.PD3A.Rd, e.T2};
}

} // namespace

TEST(FenetresPD3A, DuTitreAuPanneauPuisALaBaseEtRetour) {
    Etude e;
    RemplirLigne225(e);
    Reglages avant{}, sauves{}, rouverts{};
    int colonnes = 0, largeur = 0;
    bool regle17 = false, conforme = true;
    TitreBaseEtRetour p{.poste = "CHAMPAGNIER",
                        .depart = "GRANDE-ILE",
                        .relais = "PD3A",
                        .numero = "1",
                        .id = 3,
                        .panneau = "frmPD3A",
                        .ligne = &LIGNE_225};
    p.brouiller = [&](QWidget*) {
        e.X1_HT = e.X1reg_HT = e.X3reg_HT = e.R_HT = 0.0;
        e.PD3A.K1 = e.PD3A.Rd = 0;
        e.T2 = 0;
    };
    p.surPanneau = [&](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), "TOURNESOL [CHAMPAGNIER]");
        if (p.fenetres != 1 || p.panneaux != 3) return;
        // In "Modify" a desired first zone of 12 secondary ohms, and a timer.
        EXPECT_FALSE(e.PanneauRelais);
        TaperLigne(w->findChild<QLineEdit*>("txtX1_bt"), "12", true);
        // The timers are on the third sheet, enabled once it is in front.
        auto* feuilles = w->findChild<QTabWidget*>();
        ASSERT_NE(feuilles, nullptr);
        feuilles->setCurrentIndex(2);
        TaperLigne(w->findChild<QLineEdit*>("txtt2"), "257", true);
        EXPECT_EQ(w->findChild<QLineEdit*>("txtt2")->text(), "250");
    };
    p.premiere = [&](QWidget* w) {
        // A new line: its network typed in the panels that came up with the window and the
        // relay computed; a report case computes it again.
        EXPECT_EQ(p.panneaux, 1);
        w->findChild<QRadioButton*>("chkmaximal")->click();
        EXPECT_EQ(p.panneaux, 2);
        avant = LireReglages(e);
        auto* diagramme = w->findChild<QWidget*>("imgCaractéristique");
        const QImage image = diagramme->grab().toImage();
        ReglerLeRelais(w);
        sauves = LireReglages(e);
        // The new first zone on the diagram: its limit, dashed, across the parallelogram,
        // where there was none.
        const double t = std::tan(e.teta * 3.14159265358979 / 180.0);
        const double rt = e.Rreg_HT / 2.0 * (1.0 / (std::sqrt(3.0) * t) + 1.0);
        const double r1 = -rt + e.X1reg_HT / t, r2 = rt + e.X1reg_HT / t;
        const QImage apres = diagramme->grab().toImage();
        colonnes = ColonnesChangees(image, apres, e, e.X1reg_HT, r1, r2);
        largeur = static_cast<int>((r2 - r1) * apres.width() / e.ScaleWidth);
        // The diagnostics of the new settings, in their window.
        auto* bouton = w->findChild<QAbstractButton*>("cmdDiagnostics");
        bouton->click();
        if (auto* fenetre = w->findChild<QDialog*>("frmDiagnostics")) {
            auto* texte = fenetre->findChild<QLabel*>(
                QString::fromStdString(FenetreDiagnostics::NomTexte(17)));
            regle17 = texte && texte->isVisible();
            auto* ok = fenetre->findChild<QLabel*>(
                QString::fromStdString(FenetreDiagnostics::NomConforme(3)));
            conforme = ok && ok->isVisible();
        }
        bouton->click();
    };
    p.seconde = [&](QWidget*) { rouverts = LireReglages(e); };
    p.Mener(e);
    EXPECT_EQ(p.fenetres, 2);
    EXPECT_GE(p.panneaux, 2);
    // 12 secondary ohms: 12 x 5.18 = 62.16, step 99 (60) below it.
    EXPECT_NEAR(sauves.x1, 12.0 * 2.2, 1e-9);
    EXPECT_NEAR(sauves.x1reg, 60.0 / 5.18 * 2.2, 1e-3);
    EXPECT_EQ(sauves.k1, 8);
    EXPECT_EQ(sauves.t2, 250);
    EXPECT_NE(sauves.x1reg, avant.x1reg);
    // The limit is dashed: about half of its columns are drawn.
    EXPECT_GT(colonnes, largeur / 3);
    EXPECT_TRUE(regle17);
    EXPECT_FALSE(conforme);
    EXPECT_EQ(rouverts, sauves);
}
