// The study base through the windows: a study typed, saved, left, and opened again by picking
// its names from the opening dialog's lists.
#include "../../core/views/Pilote.h"
#include "Gestes.h"
#include "Vues.h"
#include "core/Etude.h"
#include "core/views/DialogueQt.h"
#include "database/BaseEtudesSql.h"
#include "shell/Application.h"
#include "shell/PanneauDemarre.h"
#include "shell/PanneauTitre.h"
#include "shell/views/VueDemarre.h"
#include "shell/views/VueTitre.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tournesol;

TEST(BaseFenetres, SauverPuisRouvrirParLesListes) {
    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    BaseEtudesSql base(dossier.path().toStdString() + "/");
    Etude e;
    DialogueQt d;
    InscrireVues(d, e);
    Application app(e, d, &base, std::nullopt);

    int titres = 0, fenetres = 0;
    bool listesRemplies = false;
    std::function<void(QWidget*)> agir = [&](QWidget* w) {
        const QString nom = w->objectName();
        if (nom == "frmtitre") {
            ++titres;
            if (titres == 1) {
                NommerEtude(w, "SAINT-\"VICTOR\"", "L'ISLE", "PD3A", "2");
            } else if (titres == 2) {
                // The names come back from the base's lists.
                listesRemplies = ChoisirEtude(w, "SAINT-\"VICTOR\"", "L'ISLE", "PD3A", "2");
                // What stayed in memory from the first pass must not be what comes back.
                e.Ligne_XLA = 0.0;
                e.Ligne_Up = 400;
            } else {
                QuitterTitre(w);
                return;
            }
            ConfirmerTitre(w);
        } else if (nom == "frmChoixProtection") {
            ChoisirRelais(w, 3);
        } else if (nom == "frmDémarre") {
            ++fenetres;
            if (fenetres == 1) {
                // A value of the study changes, then the study is saved.
                e.Ligne_XLA = 17.5;
                e.Ligne_Up = 90;
                QTest::mouseClick(w->findChild<QPushButton*>("cmdsave"), Qt::LeftButton);
            } else {
                EXPECT_EQ(e.Ligne_XLA, 17.5);
                EXPECT_EQ(e.Ligne_Up, 90);
                EXPECT_EQ(e.id_numero, 2);
            }
            w->findChild<QAction*>("mnuChangerPoste")->trigger();
        } else {
            RepondreParDefaut(w);
        }
    };
    {
        Pilote pilote(agir);
        app.Main();
    }
    EXPECT_TRUE(listesRemplies);
    EXPECT_EQ(fenetres, 2);
    EXPECT_EQ(titres, 3);
}
