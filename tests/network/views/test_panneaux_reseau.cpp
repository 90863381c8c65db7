// The network panels opened from the working window's menus: a value changed, OK, and the load
// area moves on the diagram.
#include "../../core/views/Pilote.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Registre.h"
#include "core/views/DialogueQt.h"
#include "network/views/ImageLigne.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"
#include "shell/PanneauDemarre.h"
#include "shell/views/VueDemarre.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {
void Saisir(QWidget* fenetre, const QString& nom, const QString& texte) {
    auto* ligne = fenetre->findChild<QLineEdit*>(nom);
    ASSERT_NE(ligne, nullptr) << nom.toStdString();
    QFocusEvent entree(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(ligne, &entree);
    ligne->selectAll();
    QTest::keyClicks(ligne, texte);
    QFocusEvent sortie(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(ligne, &sortie);
}
// What the user does in a window: types what the test gives for it, then confirms.
void Confirmer(QWidget* w, const std::map<QString, std::function<void(QWidget*)>>& saisies,
               QStringList& vues) {
    vues << w->objectName();
    // TOURNESOL_CAPTURES=folder keeps a picture of each window, to look at.
    if (qEnvironmentVariableIsSet("TOURNESOL_CAPTURES"))
        w->grab().save(qEnvironmentVariable("TOURNESOL_CAPTURES") + "/" + w->objectName() + ".png");
    if (const auto it = saisies.find(w->objectName()); it != saisies.end()) it->second(w);
    for (const char* ok : {"Command1", "Command2", "cmdBouton(0)"})
        if (auto* b = w->findChild<QPushButton*>(ok)) {
            QTest::mouseClick(b, Qt::LeftButton);
            return;
        }
    QTest::keyClick(w, Qt::Key_Return); // a message
}
} // namespace

TEST(PanneauxReseau, ChaqueMenuOuvreSonPanneauEtLeDiagrammeSuit) {
    Etude e;
    InscrireRelais();
    InitRegistre(e);
    PreparerOuverture(e);
    LireFichierEtude(
        std::filesystem::path(TOURNESOL_EXEMPLES) / "champagnier-grande-ile-225kV.json", e);
    DialogueQt d;
    InscrireVuesReseau();
    // What the user types in each panel when it comes up; the other windows are confirmed.
    const std::map<QString, std::function<void(QWidget*)>> saisies = {
        {"frmRéseauOptions", [](QWidget* w) { Saisir(w, "txtittri", "1800"); }},
        {"frmréseauvaleurs", [](QWidget* w) { Saisir(w, "txtxl(0)", "40"); }},
        {"frmdeuxbouts", [](QWidget*) {}},
    };
    QStringList vues;
    Pilote pilote([&](QWidget* w) { Confirmer(w, saisies, vues); });
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    InitEtude(e, d, options);
    e.OptionsValides = e.ValeursValides = true;
    PanneauDemarre demarre(e, d, options, nullptr, std::nullopt);
    VueDemarre vue(demarre, e);

    const Complexe n1 = e.PointsTransit[0];
    vue.findChild<QAction*>("mnuOptionsRéseau")->trigger();
    EXPECT_EQ(e.Ligne_Ittri, 1800.0);
    EXPECT_NE(e.PointsTransit[0].Module, n1.Module); // a larger current: a smaller load radius
    EXPECT_LT(e.PointsTransit[0].Module, n1.Module);

    const double xl = e.XL_eq;
    vue.findChild<QAction*>("mnuValeursRéseau")->trigger();
    EXPECT_EQ(e.Ligne_XL[0], 40.0);
    EXPECT_NE(e.XL_eq, xl);

    vue.findChild<QAction*>("mnudeuxbouts")->trigger();
    EXPECT_TRUE(vues.contains("frmRéseauOptions"));
    EXPECT_TRUE(vues.contains("frmréseauvaleurs"));
    EXPECT_TRUE(vues.contains("frmdeuxbouts"));
    EXPECT_EQ(e.ErrCalcul, 0);
    EXPECT_FALSE(vues.contains("frmMessage")) << vues.join(", ").toStdString();
}

TEST(PanneauxReseau, LigneATroisBouts) {
    Etude e;
    InscrireRelais();
    InitRegistre(e);
    PreparerOuverture(e);
    LireFichierEtude(std::filesystem::path(TOURNESOL_EXEMPLES) /
                         "beaurepaire-montmeyran-laroche-90kV-3bouts.json",
                     e);
    DialogueQt d;
    InscrireVuesReseau();
    QStringList vues;
    const std::map<QString, std::function<void(QWidget*)>> saisies;
    Pilote pilote([&](QWidget* w) { Confirmer(w, saisies, vues); });
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    InitEtude(e, d, options);
    e.OptionsValides = e.ValeursValides = true;
    PanneauDemarre demarre(e, d, options, nullptr, std::nullopt);
    VueDemarre vue(demarre, e);
    EXPECT_FALSE(vue.findChild<QAction*>("mnudeuxbouts")->isVisible());
    vue.findChild<QAction*>("mnutroisbouts")->trigger();
    EXPECT_TRUE(vues.contains("frmtroisbouts")) << vues.join(", ").toStdString();
    EXPECT_FALSE(e.BoutMort); // every three phase current is well above 10 A
    EXPECT_EQ(e.ErrCalcul, 0);
    EXPECT_EQ(e.StadeTri, "Premier stade toujours assuré sur défaut triphasé");
}
