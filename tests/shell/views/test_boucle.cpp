// The program as a user drives it, offscreen: the opening dialog, the relay choice, the working
// window with its diagram, the report options, the way back, and leaving.
#include "../../core/views/Pilote.h"
#include "../Ligne225.h"
#include "Gestes.h"
#include "Vues.h"
#include "core/Etude.h"
#include "core/views/DialogueQt.h"
#include "core/views/Lieur.h"
#include "shell/Application.h"
#include "shell/PanneauDemarre.h"
#include "shell/PanneauTitre.h"
#include "shell/views/VueDemarre.h"
#include "shell/views/VueTitre.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

QString Status(QWidget* fenetre) {
    return fenetre->findChild<QLabel*>("Status")->text();
}

} // namespace

TEST(Boucle, DuTitreALaFenetreDeTravailEtRetour) {
    Etude e;
    RemplirLigne225(e);
    DialogueQt d;
    InscrireVues(d, e);
    Application app(e, d, nullptr, std::nullopt);

    QStringList vues;
    int titres = 0;
    std::function<void(QWidget*)> agir;
    agir = [&](QWidget* w) {
        vues << w->objectName();
        const QString nom = w->objectName();
        if (nom == "frmtitre" && titres++ == 0) {
            EXPECT_EQ(w->windowTitle(), "TOURNESOL");
            EXPECT_EQ(Status(w), "You must previously choose the substations A and B");
            auto* ok = w->findChild<QPushButton*>("cmdOK");
            EXPECT_FALSE(ok->isEnabled());
            Focus(w->findChild<QComboBox*>("txtDépart")->lineEdit(), QEvent::FocusIn);
            EXPECT_EQ(Status(w), "Tu dois sélectionner un poste préalablement");
            Taper(w, "txtposte", "CHAMPAGNIER");
            Taper(w, "txtDépart", "GRANDE-ILE");
            Taper(w, "txtProtection", "PD3A");
            EXPECT_TRUE(w->findChild<QComboBox*>("txtnuméro")->isVisibleTo(w));
            Focus(w->findChild<QComboBox*>("txtposte")->lineEdit(), QEvent::FocusIn);
            EXPECT_TRUE(ok->isEnabled());
            QTest::mouseClick(ok, Qt::LeftButton);
        } else if (nom == "frmtitre") {
            QTest::mouseClick(w->findChild<QPushButton*>("cmdQuitter"), Qt::LeftButton);
        } else if (nom == "frmMessage" || nom == "frmQuery") {
            ADD_FAILURE() << "unexpected message: "
                          << w->findChild<QLabel*>("lblMessage")->text().toStdString();
            QTest::keyClick(w, Qt::Key_Return);
        } else if (nom == "frmChoixProtection") {
            EXPECT_EQ(w->windowTitle(), "TOURNESOL [CHAMPAGNIER]");
            ChoisirRelais(w, 3);
        } else if (nom == "frmValeurs") {
            // A change of report case shows what the computation made of the line.
            EXPECT_EQ(w->findChild<QLineEdit*>("txtxprim1")->text(), "24.3");
            QTest::mouseClick(w->findChild<QPushButton*>("Command2"), Qt::LeftButton);
        } else if (nom == "frmReportCharge") {
            QTest::mouseClick(w->findChild<QPushButton*>("Command2"), Qt::LeftButton);
        } else if (nom == "frmPD3A") {
            QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
        } else if (nom == "frmDémarre") {
            EXPECT_EQ(w->windowTitle(), "TOURNESOL [CHAMPAGNIER] GRANDE-ILE, PD3A");
            QWidget* diagramme = w->findChild<QWidget*>("imgCaractéristique");
            ASSERT_NE(diagramme, nullptr);
            const QImage image = diagramme->grab().toImage();
            int rouges = 0; // the load area is drawn in red
            for (int y = 0; y < image.height(); y += 2)
                for (int x = 0; x < image.width(); x += 2)
                    rouges +=
                        image.pixelColor(x, y).red() > 200 && image.pixelColor(x, y).green() < 60;
            EXPECT_GT(rouges, 50);
            w->findChild<QRadioButton*>("chkmaximal")->click();
            EXPECT_EQ(e.TypeReportCharge, 2);
            EXPECT_EQ(e.It, 1900.0);
            QTest::mouseMove(diagramme,
                             QPoint(diagramme->width() / 2 + 40, diagramme->height() / 2));
            EXPECT_TRUE(w->findChild<QLabel*>("coordonnées")->text().contains(" ; "));
            // The diagnostics window comes beside the working window and goes with the button.
            auto* diagnostics = w->findChild<QAbstractButton*>("cmdDiagnostics");
            diagnostics->click();
            auto* fenetre = w->findChild<QDialog*>("frmDiagnostics");
            ASSERT_NE(fenetre, nullptr);
            EXPECT_TRUE(fenetre->isVisible());
            EXPECT_FALSE(fenetre->isModal());
            // Each rule shown stands on one row: its text, its limit and its unit side by side.
            int regles = 0;
            for (int n = 15; n <= 21; ++n) {
                auto* texte = fenetre->findChild<QLabel*>(QString("lblRegle(%1)").arg(n));
                if (!texte || !texte->isVisible()) continue;
                ++regles;
                auto* valeur = fenetre->findChild<QLabel*>(QString("lblValeur(%1)").arg(n));
                auto* unite = fenetre->findChild<QLabel*>(QString("lblUnite(%1)").arg(n));
                EXPECT_EQ(valeur->y(), texte->y()) << n;
                EXPECT_EQ(unite->y(), texte->y()) << n;
                EXPECT_GT(valeur->x(), texte->x() + texte->width() - 1) << n;
            }
            EXPECT_GT(regles, 0);
            // TOURNESOL_CAPTURES=folder keeps a picture of the two windows, to look at.
            if (qEnvironmentVariableIsSet("TOURNESOL_CAPTURES")) {
                const QString dossier = qEnvironmentVariable("TOURNESOL_CAPTURES");
                fenetre->grab().save(dossier + "/frmDiagnostics.png");
                w->grab().save(dossier + "/frmDémarre.png");
            }
            EXPECT_TRUE(e.DiagnosticsOuverts);
            diagnostics->click();
            EXPECT_FALSE(e.DiagnosticsOuverts);
            w->findChild<QAction*>("mnuChangerPoste")->trigger();
        }
    };
    {
        Pilote pilote(agir);
        app.Main();
    }
    EXPECT_EQ(titres, 2);
    EXPECT_TRUE(e.QuitterAppli);
    EXPECT_EQ(e.id_protection, 3);
    // Title, choice, two load report panels, the relay's panel, working window, check panel,
    // title.
    EXPECT_EQ(vues.size(), 8);
    EXPECT_TRUE(vues.contains("frmPD3A"));
}

TEST(Boucle, ChaqueChampASonWidget) {
    Etude e;
    PlanDeDepart(e);
    DialogueSansFenetre d;
    PanneauTitre titre(e, d, nullptr);
    VueTitre vueTitre(titre);
    // The page titles are the tabs themselves.
    EXPECT_EQ(vueTitre.Liaison()->ChampsSansWidget(),
              (QStringList{"TitreOnglet(0)", "TitreOnglet(1)"}));
    EXPECT_TRUE(vueTitre.Liaison()->WidgetsSansChamp().isEmpty())
        << vueTitre.Liaison()->WidgetsSansChamp().join(", ").toStdString();

    OptionsReport options;
    PanneauDemarre demarre(e, d, options, nullptr, std::nullopt);
    VueDemarre vueDemarre(demarre, e);
    EXPECT_TRUE(vueDemarre.Liaison()->ChampsSansWidget().isEmpty());
    EXPECT_TRUE(vueDemarre.Liaison()->WidgetsSansChamp().isEmpty())
        << vueDemarre.Liaison()->WidgetsSansChamp().join(", ").toStdString();

    PanneauChoixProtection choix(e, d);
    FenetrePanneau vueChoix(choix);
    vueChoix.ConstruireGenerique();
    EXPECT_TRUE(vueChoix.Liaison()->ChampsSansWidget().isEmpty());
    EXPECT_TRUE(vueChoix.Liaison()->WidgetsSansChamp().isEmpty());
}

// A study file the reader refuses, named at start: the message with its cause, then the opening
// dialog, the study state as it was.
TEST(Boucle, FichierRefuseAuDemarrage) {
    const std::filesystem::path fichier =
        std::filesystem::temp_directory_path() / "tournesol-boucle-profond.json";
    std::ofstream(fichier) << "{\"Ligne_Up\": 90, \"a\": " << std::string(100000, '[')
                           << std::string(100000, ']') << "}";
    Etude e;
    RemplirLigne225(e);
    DialogueQt d;
    InscrireVues(d, e);
    Application app(e, d, nullptr, std::nullopt);
    QStringList vues;
    QString message;
    auto agir = [&](QWidget* w) {
        vues << w->objectName();
        if (w->objectName() == "frmMessage") {
            message = w->findChild<QLabel*>("lblMessage")->text();
            QTest::keyClick(w, Qt::Key_Return);
        } else if (w->objectName() == "frmtitre") {
            QTest::mouseClick(w->findChild<QPushButton*>("cmdQuitter"), Qt::LeftButton);
        } else {
            ADD_FAILURE() << w->objectName().toStdString();
        }
    };
    {
        Pilote pilote(agir);
        EXPECT_FALSE(app.OuvrirFichier(fichier));
        app.Main();
    }
    EXPECT_EQ(vues, (QStringList{"frmMessage", "frmtitre"}));
    EXPECT_TRUE(message.contains("at line 1, column 38: nesting deeper than 16 levels"))
        << message.toStdString();
    EXPECT_EQ(e.Ligne_Up, 225);
    std::filesystem::remove(fichier);
}

// A study whose line cannot be computed (both voltages at 0), opened at start: the fixed message
// once, then the working window in the panel state, without a second message.
TEST(Boucle, EchecALOuvertureUneFois) {
    std::ifstream exemple(std::string(TOURNESOL_EXEMPLES) + "/champagnier-grande-ile-225kV.json");
    std::string texte((std::istreambuf_iterator<char>(exemple)), {});
    for (const std::string cle : {"\"Ligne_Up\": ", "\"Ligne_UnA\": "}) {
        const auto debut = texte.find(cle) + cle.size();
        texte.replace(debut, texte.find_first_of(",\n}", debut) - debut, "0");
    }
    const std::filesystem::path fichier =
        std::filesystem::temp_directory_path() / "tournesol-boucle-tensions-nulles.json";
    std::ofstream(fichier) << texte;
    Etude e;
    DialogueQt d;
    InscrireVues(d, e);
    Application app(e, d, nullptr, std::nullopt);
    QStringList messages;
    bool panneauRelais = false;
    auto agir = [&](QWidget* w) {
        const QString nom = w->objectName();
        if (nom == "frmMessage") {
            messages << w->findChild<QLabel*>("lblMessage")->text();
            QTest::keyClick(w, Qt::Key_Return);
        } else if (nom == "frmDémarre") {
            panneauRelais = w->findChild<QAbstractButton*>("chkréglertout")->isChecked();
            w->findChild<QAction*>("mnuQuitter")->trigger();
        } else if (nom == "frmReportCharge") {
            // Its computation fails again: the panel stays up with the failure; the engineer
            // leaves it with the former values.
            QTest::mouseClick(w->findChild<QPushButton*>("Command2"), Qt::LeftButton);
            if (w->isVisible()) w->close();
        } else if (nom == "frmQuery") {
            QTest::mouseClick(w->findChild<QPushButton*>("cmdBouton(1)"), Qt::LeftButton);
        } else if (auto* confirmer = w->findChild<QPushButton*>("Command2")) {
            QTest::mouseClick(confirmer, Qt::LeftButton);
        } else {
            ADD_FAILURE() << nom.toStdString();
        }
    };
    {
        Pilote pilote(agir);
        ASSERT_TRUE(app.OuvrirFichier(fichier));
        app.Main();
    }
    ASSERT_EQ(messages.size(), 1) << messages.join(" | ").toStdString();
    EXPECT_TRUE(messages[0].startsWith("The reckon is impossible with the entered data."));
    EXPECT_TRUE(panneauRelais);
    EXPECT_EQ(e.ErrCalcul, -1);
    std::filesystem::remove(fichier);
}
