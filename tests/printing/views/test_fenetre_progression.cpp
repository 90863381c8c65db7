// The progress panel of the working window (frmImpress) while the window prints a study to a PDF
// file: what it shows between the blocks of the report, and Escape.
#include "../EtudeImprimee.h"
#include "diagnostics/Diagnostics.h"
#include "shell/Ouverture.h"
#include "shell/PanneauDemarre.h"
#include "shell/views/VueDemarre.h"

#include <QDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPdfWriter>
#include <QProgressBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>

using namespace tournesol;

namespace {

// What the panel shows at one turn of events.
struct Vue {
    bool visible;
    QString texte;
    int valeur;
};

struct FenetreImprimante {
    FenetreImprimante() {
        RemplirEtudeImprimee(e);
        PreparerRapport(e);
        panneau = vue.findChild<QDialog*>("frmImpress");
        if (!panneau) return;
        texte = panneau->findChild<QLabel*>("printstatus");
        barre = panneau->findChild<QProgressBar*>("printbar");
    }
    // The report printed into a PDF file; `regarder` sees the panel at every turn of events.
    void Imprimer(const QString& chemin, const std::function<void()>& regarder) {
        QTimer tours;
        tours.setInterval(0);
        QObject::connect(&tours, &QTimer::timeout, regarder);
        tours.start();
        QPdfWriter pdf(chemin);
        pdf.setPageSize(QPageSize(QPageSize::A4));
        vue.ImprimerSur(pdf);
    }
    Vue Maintenant() const { return {panneau->isVisible(), texte->text(), barre->value()}; }

    Etude e;
    DialogueSansFenetre d;
    OptionsReport options;
    PanneauDemarre demarre{e, d, options, nullptr, std::nullopt};
    VueDemarre vue{demarre, e};
    QDialog* panneau = nullptr;
    QLabel* texte = nullptr;
    QProgressBar* barre = nullptr;
};

} // namespace

TEST(FenetreProgression, SuitLImpressionPuisSeFerme) {
    // Where the engine leaves the bar on that study.
    Etude reference;
    RemplirEtudeImprimee(reference);
    PreparerRapport(reference);
    double derniere = -1.0;
    {
        PageEnregistree page;
        EtatImpression etat;
        DialogueSansFenetre d;
        etat.SuiviProgression = [&](bool ouvert, double valeur, const std::string&) {
            if (ouvert) derniere = valeur;
        };
        OptionsImpression options;
        options.textesRegles = [](int regle) { return TextesRegleRapport(regle); };
        tournesol::Imprimer(reference, d, page, etat, options);
    }
    ASSERT_GT(derniere, 0.0);

    FenetreImprimante f;
    ASSERT_TRUE(f.panneau && f.texte && f.barre);
    EXPECT_FALSE(f.panneau->isVisible());
    QTemporaryDir dossier;
    const QString pdf = dossier.filePath("rapport.pdf");
    std::vector<Vue> vus;
    f.Imprimer(pdf, [&] { vus.push_back(f.Maintenant()); });

    ASSERT_FALSE(vus.empty());
    EXPECT_TRUE(vus.front().visible);
    EXPECT_EQ(vus.front().texte, "Page 1 : drawing");
    EXPECT_TRUE(std::all_of(vus.begin(), vus.end(), [](const Vue& v) { return v.visible; }));
    // It followed the report past its first page.
    EXPECT_TRUE(std::any_of(vus.begin(), vus.end(),
                            [](const Vue& v) { return v.texte.startsWith("Page 2 : "); }));
    EXPECT_EQ(f.barre->value(), std::lround(derniere));
    EXPECT_FALSE(f.panneau->isVisible());
    EXPECT_FALSE(f.e.ProgressionActive);
    EXPECT_GT(QFileInfo(pdf).size(), 0);
}

TEST(FenetreProgression, EchapArreteLImpressionEtFermeLePanneau) {
    FenetreImprimante f;
    ASSERT_TRUE(f.panneau && f.texte && f.barre);
    QTemporaryDir dossier;
    int tours = 0;
    std::optional<bool> visibleApresEchap;
    f.Imprimer(dossier.filePath("rapport.pdf"), [&] {
        ++tours;
        if (!visibleApresEchap && f.panneau->isVisible()) {
            QTest::keyClick(f.panneau, Qt::Key_Escape);
            visibleApresEchap = f.panneau->isVisible();
        }
    });
    ASSERT_TRUE(visibleApresEchap.has_value());
    EXPECT_FALSE(*visibleApresEchap); // closed at once
    EXPECT_TRUE(f.e.ArretImpression);
    EXPECT_LE(tours, 2); // the print stopped at the next block
    EXPECT_FALSE(f.panneau->isVisible());
}
