// A PXLN set through its windows, offscreen: its panel, "&Parameters...", the rated voltage changed
// on the sheet "Line" and confirmed, then the report written to PDF shows the change in the
// listing (its parameters saved and opened again are checked with every example by the command
// line's tests, and through the windows with every relay).
#include "Parcours.h"
#include "diagnostics/Diagnostics.h"
#include "printing/views/RapportPdf.h"
#include "relays/pxln/CalculPXLN.h"
#include "relays/pxln/PanneauPXLN.h"
#include "relays/pxln/ParametresPXLN.h"

#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

// The lines of the PDF as they stand on the page, every run of blanks made one blank.
QStringList LignesDuPdf(const QString& pdf) {
    QProcess p;
    p.start("pdftotext", {"-layout", "-enc", "UTF-8", pdf, "-"});
    p.waitForFinished(30000);
    QStringList lignes;
    for (const QString& l : QString::fromUtf8(p.readAllStandardOutput()).split('\n'))
        lignes << l.simplified();
    return lignes;
}

} // namespace

TEST(FenetresPXLN, ParametreChangeImprimeSauveEtRelu) {
    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    Etude e;
    DialogueSansFenetre sans; // the opening, headless
    OuvrirExemple(e, sans, "champagnier-grande-ile-225kV-pxln.json");
    DialogueQt d;
    InscrireFenetreRelais(d);
    ASSERT_EQ(e.ErrCalcul, 0);
    e.Is = 5.0F; // the panel says so, and computes all the same

    bool parametresVus = false, erreurIn = false;
    QStringList onglets;
    std::function<void(QWidget*)> agir = [&](QWidget* w) {
        const QString nom = w->objectName();
        if (nom == "frmPXLN") {
            auto* feuilles = w->findChild<QTabWidget*>();
            onglets.clear();
            for (int i = 0; feuilles && i < feuilles->count(); ++i)
                onglets << feuilles->tabText(i);
            auto* erreur = w->findChild<QLabel*>("txtInerr");
            erreurIn = erreur && erreur->isVisibleTo(w) &&
                       erreur->text().startsWith("Error: the implemented rated");
            if (!parametresVus) {
                QTest::mouseClick(w->findChild<QPushButton*>("cmdParametres"), Qt::LeftButton);
                return;
            }
            QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
        } else if (nom == "frmPXLN_p") {
            parametresVus = true;
            EXPECT_EQ(w->windowTitle(), "PXLN : parameters");
            auto* feuilles = w->findChild<QTabWidget*>();
            ASSERT_NE(feuilles, nullptr);
            ASSERT_EQ(feuilles->count(), 5);
            feuilles->setCurrentIndex(2); // "Line"
            EXPECT_EQ(feuilles->tabText(2), "Line");
            // 130 V is beyond the relay: the sheet takes 120.
            TaperLigne(w->findChild<QLineEdit*>("Tension"), "130", true);
            EXPECT_EQ(w->findChild<QLineEdit*>("Tension")->text(), "120");
            QTest::mouseClick(w->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
            // The panel is the active window again: OK on it.
            QTimer::singleShot(50, [&agir] {
                if (QWidget* panneau = QApplication::activeModalWidget()) agir(panneau);
            });
        }
    };
    {
        Pilote pilote(agir);
        e.PanneauRelais = false;
        PanneauPXLN panneau(e, d);
        panneau.Ouvrir();
        d.MontrerPanneau(panneau);
    }
    EXPECT_TRUE(parametresVus);
    EXPECT_TRUE(erreurIn);
    EXPECT_EQ(onglets, (QStringList{"&Out of step", "&Resistance", "&Zones", "&Timers", "Signal",
                                    "T&ypes..."}));
    EXPECT_DOUBLE_EQ(ParametrePXLN(e, P_TENSION), 120.0);
    EXPECT_DOUBLE_EQ(e.PXLN.XPct[0], 80.0);

    // The report's listing, in the PDF, has the voltage typed.
    e.Is = 1.0F;
    PreparerRapport(e);
    OptionsImpression impression;
    impression.textesRegles = [](int regle) { return TextesRegleRapport(regle); };
    const QString pdf = dossier.filePath("pxln.pdf");
    ASSERT_TRUE(EcrireRapportPdf(e, sans, pdf, impression));
    const QStringList lignes = LignesDuPdf(pdf);
    EXPECT_TRUE(lignes.contains("**UN 120\\ secondary rated voltage TT in V"))
        << lignes.join('\n').toStdString();
    EXPECT_TRUE(lignes.contains("*LIGN\\acquisition of line parameters"));
    EXPECT_TRUE(lignes.contains("First zone reactance 11.05 Ω/ph. 24.30 Ω P 80. %"));
}
