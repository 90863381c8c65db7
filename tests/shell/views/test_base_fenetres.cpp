// The study base through the windows: a study opened from a file, saved, left, and opened again
// by picking its names from the opening dialog's lists (a study typed in the windows, saved and
// opened again is walked for every relay in the relays' window tests).
#include "../../core/views/Pilote.h"
#include "Gestes.h"
#include "Vues.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/views/DialogueQt.h"
#include "database/BaseEtudesSql.h"
#include "database/Import.h"
#include "shell/Application.h"
#include "shell/Ouverture.h"
#include "shell/PanneauDemarre.h"
#include "shell/PanneauTitre.h"
#include "shell/views/VueDemarre.h"
#include "shell/views/VueTitre.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tournesol;

// A study opened from a file saves as one opened from the base: its line row written, the same
// rows after two saves, no message; opened again from the lists it has the file's values.
TEST(BaseFenetres, UneEtudeDUnFichierSeSauveCommeUneEtudeDeLaBase) {
    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    BaseEtudesSql base(dossier.path().toStdString() + "/");
    Etude e;
    DialogueQt d;
    InscrireVues(d, e);
    Application app(e, d, &base, std::nullopt);
    // As the program does with a study file named on its command line.
    QFile fichier(QStringLiteral(TOURNESOL_EXEMPLES "/champagnier-grande-ile-225kV.json"));
    ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
    PreparerOuverture(e);
    LireEtude(fichier.readAll().toStdString(), e);
    PreparerImport(e);
    app.OuvrirAuDemarrage();

    Etude sauvee;
    std::vector<std::string> autres;
    int fenetres = 0, titres = 0;
    std::function<void(QWidget*)> agir = [&](QWidget* w) {
        const QString nom = w->objectName();
        if (nom == "frmDémarre") {
            if (++fenetres == 1) {
                auto* sauver = w->findChild<QPushButton*>("cmdsave");
                QTest::mouseClick(sauver, Qt::LeftButton);
                QTest::mouseClick(sauver, Qt::LeftButton);
                sauvee = e;
            } else {
                EXPECT_EQ(e.Ligne_Longueur, sauvee.Ligne_Longueur);
                EXPECT_EQ(e.Ligne_XL, sauvee.Ligne_XL);
                EXPECT_EQ(e.Ligne_Up, sauvee.Ligne_Up);
                EXPECT_EQ(e.Ligne_Ittri, sauvee.Ligne_Ittri);
                EXPECT_EQ(e.PD3A.K1, sauvee.PD3A.K1);
                EXPECT_EQ(e.X1reg_HT, sauvee.X1reg_HT);
                EXPECT_EQ(e.id_reglage, sauvee.id_reglage);
            }
            w->findChild<QAction*>("mnuChangerPoste")->trigger();
        } else if (nom == "frmtitre") {
            if (++titres == 1) {
                e.Ligne_Longueur.fill(0.0); // what stays in memory must not be what comes back
                e.Ligne_Up = 0;
                if (ChoisirEtude(w, "CHAMPAGNIER", "GRANDE-ILE", "PD3A", "1")) {
                    ConfirmerTitre(w);
                    return;
                }
                ADD_FAILURE() << "the saved study is not in the opening dialog's lists";
                QuitterTitre(w);
            } else {
                QuitterTitre(w);
            }
        } else if (nom == "frmChoixProtection") {
            ChoisirRelais(w, 3);
        } else {
            autres.push_back(w->windowTitle().toStdString());
            RepondreParDefaut(w);
        }
    };
    {
        Pilote pilote(agir);
        app.Main();
    }
    EXPECT_EQ(fenetres, 2);
    for (const std::string& titre : autres)
        EXPECT_EQ(titre.find("unknown relay"), std::string::npos) << titre;
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), "fichier-controle");
    db.setDatabaseName(QString::fromStdString(base.Fichier()));
    ASSERT_TRUE(db.open());
    for (const char* table : {"Poste", "Départ", "Ligne", "Tournesol", "Réglage", "Protection"}) {
        QSqlQuery q(db);
        ASSERT_TRUE(q.exec(QStringLiteral("SELECT COUNT(*) FROM \"%1\"").arg(table)));
        ASSERT_TRUE(q.next());
        EXPECT_EQ(q.value(0).toInt(), 1) << table;
    }
    db.close();
    db = QSqlDatabase();
    QSqlDatabase::removeDatabase("fichier-controle");
}
