// The windows on a laptop's screen (1366 x 768, or 1920 x 1080 at 150 %, 1280 x 720 of room),
// the small windows of every day (message, relay choice, about) and how they close.
#include "Gestes.h"
#include "Vues.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/Registre.h"
#include "core/views/DialogueQt.h"
#include "core/views/Lieur.h"
#include "network/PanneauOptionsReseau.h"
#include "network/PanneauValeursReseau.h"
#include "network/PanneauxBouts.h"
#include "network/PanneauxControle.h"
#include "network/ReportCharge.h"
#include "relays/PanneauProtection.h"
#include "relays/Relais.h"
#include "shell/PanneauDemarre.h"
#include "shell/PanneauTitre.h"
#include "shell/views/VueDemarre.h"
#include "shell/views/VueTitre.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

// The room a window has on the smaller of the two screens, its frame and title and a task bar
// taken away.
const QSize PLACE(1280 - 16, 720 - 48);

// The window fits the room, and each of the named widgets is seen whole inside it once the
// window takes the room's size.
void Tient(QWidget& fenetre, std::initializer_list<const char*> visibles = {}) {
    const QSize minimum = fenetre.minimumSizeHint().expandedTo(fenetre.minimumSize());
    EXPECT_LE(minimum.width(), PLACE.width()) << fenetre.objectName().toStdString();
    EXPECT_LE(minimum.height(), PLACE.height()) << fenetre.objectName().toStdString();
    fenetre.resize(PLACE);
    fenetre.show();
    QApplication::processEvents();
    EXPECT_LE(fenetre.height(), PLACE.height()) << fenetre.objectName().toStdString();
    for (const char* nom : visibles) {
        auto* w = fenetre.findChild<QWidget*>(nom);
        ASSERT_NE(w, nullptr) << nom;
        const QRect ici(w->mapTo(&fenetre, QPoint(0, 0)), w->size());
        EXPECT_TRUE(w->isVisible()) << nom;
        EXPECT_TRUE(fenetre.rect().contains(ici)) << nom;
    }
    fenetre.hide();
}

} // namespace

TEST(FenetresPortables, LaFenetreDeTravailEtLePanneauDuRelaisTiennent) {
    Etude e;
    DialogueSansFenetre d;
    OuvrirExemple(e, d, "champagnier-grande-ile-225kV.json");
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    PanneauDemarre demarre(e, d, options, nullptr, std::nullopt);
    VueDemarre vue(demarre, e);
    // The commands stand at the head of the side column: seen without scrolling.
    Tient(vue, {"imgCaractéristique", "cmdextra", "cmdsave", "cmdprint", "cmdDiagnostics",
                "cmdhelp", "cmdquitter", "chkpanneauprotection", "chkréglertout", "status"});

    // The window keeps its size whatever the status line or the help say.
    vue.resize(1000, 600);
    vue.show();
    QApplication::processEvents();
    const QSize avant = vue.size();
    demarre.Trouver("status")->DefinirTexte(std::string(400, 'x') + " " + std::string(300, 'y'));
    demarre.Trouver("cmdhelp")->Valeur = true;
    demarre.Cliquer("cmdhelp");
    vue.Liaison()->Rafraichir();
    QApplication::processEvents();
    EXPECT_EQ(vue.size(), avant);

    auto panneau = CreerPanneauRelais(e, d);
    auto* relais = dynamic_cast<PanneauProtection*>(panneau.get());
    ASSERT_NE(relais, nullptr);
    FenetreRelais fenetreRelais(*relais);
    Tient(fenetreRelais, {"Command1"});
}

TEST(FenetresPortables, ChaquePanneauDuReseauTient) {
    InscrireVuesReseau();
    for (const char* exemple :
         {"champagnier-grande-ile-225kV.json", "beaurepaire-montmeyran-laroche-90kV-3bouts.json"}) {
        Etude e;
        DialogueSansFenetre d;
        OuvrirExemple(e, d, exemple);
        std::vector<std::unique_ptr<Panneau>> panneaux;
        panneaux.push_back(std::make_unique<PanneauOptionsReseau>(e));
        panneaux.push_back(std::make_unique<PanneauValeursReseau>(e));
        panneaux.push_back(std::make_unique<PanneauDeuxBouts>(e, nullptr));
        panneaux.push_back(std::make_unique<PanneauTroisBouts>(e, nullptr));
        panneaux.push_back(std::make_unique<PanneauReportCharge>(e, d));
        panneaux.push_back(std::make_unique<PanneauValeurs>(e));
        panneaux.push_back(std::make_unique<PanneauValeurTroisBouts>(e));
        for (auto& p : panneaux) {
            FenetrePanneau fenetre(*p);
            fenetre.ConstruireGenerique();
            Tient(fenetre);
        }
    }
}

TEST(FenetresPortables, UnMessageSeFermeParSonOKOuSaCase) {
    for (const bool parLaCase : {false, true}) {
        FenetreMessage message("TOURNESOL : Attention", "The reckon is impossible.", 1, {});
        message.show();
        auto* ok = message.findChild<QPushButton*>("cmdOK");
        ASSERT_NE(ok, nullptr);
        EXPECT_EQ(ok->text(), "OK");
        if (parLaCase)
            message.close();
        else
            QTest::mouseClick(ok, Qt::LeftButton);
        EXPECT_FALSE(message.isVisible());
        EXPECT_EQ(message.result(), QDialog::Accepted);
    }
    // A question keeps its buttons only, and no close box.
    FenetreMessage question("TOURNESOL : confirmer", "?", 0, {"Con&firmer", "&Continuer", ""});
    question.show();
    EXPECT_EQ(question.findChild<QPushButton*>("cmdOK"), nullptr);
    question.close();
    EXPECT_TRUE(question.isVisible());
    QTest::mouseClick(question.findChild<QPushButton*>("cmdBouton(1)"), Qt::LeftButton);
    EXPECT_EQ(question.Reponse(), 1);
}

TEST(FenetresPortables, LeRelaisTapeEstChoisiEtLesFlechesLeChangent) {
    Etude e;
    InitRegistre(e);
    e.id_protection = 3; // the relay of the study before
    e.NomProtection = "RXAP";
    DialogueSansFenetre d;
    PanneauChoixProtection choix(e, d);
    FenetrePanneau fenetre(choix);
    fenetre.ConstruireGenerique();
    fenetre.show();
    QApplication::processEvents();
    auto* rxap = fenetre.findChild<QRadioButton*>("Option3D1(11)");
    ASSERT_NE(rxap, nullptr);
    EXPECT_TRUE(rxap->isChecked());
    EXPECT_FALSE(fenetre.findChild<QRadioButton*>("Option3D1(3)")->isChecked());
    EXPECT_TRUE(rxap->hasFocus());
    // RXAP stands between RAZOA and S321-5 in the dialog's list.
    QTest::keyClick(rxap, Qt::Key_Down);
    EXPECT_TRUE(fenetre.findChild<QRadioButton*>("Option3D1(12)")->isChecked());
    choix.Valider();
    EXPECT_EQ(e.id_protection, 12);
}

TEST(FenetresPortables, LAProposSeFermeAuPremierGesteEtMontreSonLogo) {
    for (const bool clavier : {false, true}) {
        PanneauAPropos modele;
        VueAPropos apropos(modele);
        apropos.show();
        auto* logo = apropos.findChild<QLabel*>("Logo");
        ASSERT_NE(logo, nullptr);
        EXPECT_FALSE(logo->pixmap().isNull());
        if (clavier)
            QTest::keyClick(&apropos, Qt::Key_Space);
        else
            QTest::mouseClick(apropos.findChild<QLabel*>("lblTexte"), Qt::LeftButton);
        EXPECT_TRUE(modele.Ferme());
        EXPECT_FALSE(apropos.isVisible());
    }
    // The number's caption shows its shortcut letter, not the sign that makes it.
    Etude e;
    DialogueSansFenetre d;
    PanneauTitre titre(e, d, nullptr);
    VueTitre vue(titre);
    auto* numero = vue.findChild<QLabel*>("lblnuméro");
    ASSERT_NE(numero, nullptr);
    EXPECT_EQ(numero->buddy(), vue.findChild<QWidget*>("txtnuméro"));
}

TEST(FenetresPortables, LesCadresSansObjetSeCachentEtLAideSuitLePointeur) {
    Etude e;
    DialogueSansFenetre d;
    OuvrirExemple(e, d, "champagnier-grande-ile-225kV.json"); // two ends, 225 kV
    PanneauOptionsReseau options(e);
    FenetrePanneau fenetre(options);
    fenetre.ConstruireGenerique();
    fenetre.show();
    QApplication::processEvents();
    // The currents of the three ends do not apply to a line of two.
    int cadres = 0;
    for (QGroupBox* cadre : fenetre.findChildren<QGroupBox*>())
        if (cadre->title() == "maximal currents (A)") {
            ++cadres;
            EXPECT_TRUE(cadre->isHidden());
        }
    EXPECT_EQ(cadres, 1);
    auto* aide = fenetre.findChild<QLabel*>("aidetri");
    ASSERT_NE(aide, nullptr);
    EXPECT_EQ(aide->text(), "Point on the text to obtain its meaning");
    auto* barre = fenetre.findChild<QTabWidget*>("Onglets")->tabBar();
    ASSERT_EQ(barre->tabText(0), " Transit current");
    QMouseEvent survol(QEvent::MouseMove, QPointF(barre->tabRect(0).center()),
                       barre->mapToGlobal(QPointF(barre->tabRect(0).center())), Qt::NoButton,
                       Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(barre, &survol);
    EXPECT_EQ(aide->text(), "IMAP (Winter2)");
}

TEST(FenetresPortables, LOutilEnfonceEtLaLegendeEchantillonnee) {
    Etude e;
    DialogueSansFenetre d;
    OuvrirExemple(e, d, "champagnier-grande-ile-225kV.json");
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    PanneauDemarre demarre(e, d, options, nullptr, std::nullopt);
    VueDemarre vue(demarre, e);
    vue.show();
    QApplication::processEvents();
    auto enfonces = [&vue] {
        QList<int> bas;
        for (int i = 0; i < 6; ++i)
            if (vue.findChild<QPushButton*>(QString("cmdoption(%1)").arg(i))->isChecked()) bas << i;
        return bas;
    };
    // The tool in force is seen pressed, alone, from the start.
    EXPECT_EQ(enfonces(), QList<int>{1});
    QTest::mouseClick(vue.findChild<QPushButton*>("cmdoption(5)"), Qt::LeftButton);
    EXPECT_EQ(enfonces(), QList<int>{5});

    // Each entry of the legend shows a sample of its line in the entry's colour.
    for (const char* nom : {"txtTransit1", "txtTransit2", "txtZoneanti", "txtdir"}) {
        auto* entree = vue.findChild<QCheckBox*>(nom);
        const QImage echantillon = entree->icon().pixmap(entree->iconSize()).toImage();
        ASSERT_FALSE(echantillon.isNull()) << nom;
        const Couleur c = demarre.CouleurLegende(nom);
        EXPECT_EQ(echantillon.pixelColor(echantillon.width() / 2, echantillon.height() / 2),
                  QColor(Rouge(c), Vert(c), Bleu(c)))
            << nom;
    }
}

TEST(FenetresPortables, LesDiagnosticsACoteDuDessinSurChaqueEcran) {
    // A 1366 x 768 screen, the working window across it: it narrows to make room.
    const QRect laptop(0, 0, 1366, 738);
    PlacesDiagnostics p = PlacerDiagnostics(laptop, laptop, 620, QSize(560, 700), 340);
    EXPECT_EQ(p.fenetre, QRect(0, 0, 806, 738));
    EXPECT_EQ(p.diagnostics, QRect(806, 0, 560, 700));
    // Room on the right: nothing moves.
    p = PlacerDiagnostics(QRect(0, 0, 1920, 1160), QRect(100, 50, 1200, 900), 620, QSize(560, 700),
                          340);
    EXPECT_EQ(p.fenetre, QRect(100, 50, 1200, 900));
    EXPECT_EQ(p.diagnostics, QRect(1300, 50, 560, 700));
    // A window that cannot narrow so much: the diagnostics window narrows too.
    p = PlacerDiagnostics(laptop, laptop, 900, QSize(560, 700), 340);
    EXPECT_EQ(p.fenetre.width(), 900);
    EXPECT_EQ(p.diagnostics, QRect(900, 0, 466, 700));
    // A screen too small for both: over the side column only.
    p = PlacerDiagnostics(QRect(0, 0, 800, 600), QRect(0, 0, 800, 600), 620, QSize(300, 500), 340);
    EXPECT_EQ(p.fenetre, QRect(0, 0, 800, 600));
    EXPECT_EQ(p.diagnostics.left(), 800 - 340);
}
