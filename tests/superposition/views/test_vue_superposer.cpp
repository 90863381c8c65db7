// The two ends of a 225 kV line saved in the base, superposed through the windows offscreen: the
// opening dialog in two-relay mode, the window with both relays in two colours, another layout,
// place 2 set through its relay's panel, saved, and opened again alone with the same settings.
#include "../../core/views/Pilote.h"
#include "../../shell/views/Gestes.h"
#include "../../shell/views/Vues.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/views/DialogueQt.h"
#include "core/views/Lieur.h"
#include "database/BaseEtudesSql.h"
#include "database/Import.h"
#include "relays/Relais.h"
#include "shell/Application.h"
#include "superposition/PanneauSuperposer.h"
#include "superposition/views/VueSuperposer.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTabWidget>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

void Importer(BaseEtudesSql& base, const char* fichier) {
    Etude e;
    DialogueSansFenetre d;
    OuvrirExemple(e, d, fichier);
    ASSERT_TRUE(ImporterEtude(base, e, d)) << fichier;
}

std::vector<ValeurTR> Liste(const BlocReglages& bloc) {
    MagasinBloc copie = bloc.Reglages;
    std::vector<ValeurTR> v;
    for (std::size_t i = 0; i < copie.Taille(); ++i)
        v.push_back(copie.LireValeur(0, static_cast<std::int32_t>(i)));
    return v;
}

// The pixels of the diagram near a colour of the system (the lines are smoothed).
int Pixels(const QImage& image, Couleur c) {
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = image.pixel(x, y);
            const int dr = qRed(p) - Rouge(c), dv = qGreen(p) - Vert(c), db = qBlue(p) - Bleu(c);
            n += dr * dr + dv * dv + db * db < 60 * 60;
        }
    return n;
}

// Where every figure of a place's image stands.
std::vector<double> Image(const Place& p) {
    std::vector<double> v;
    for (const TraitPlace& t : p.Traits)
        v.insert(v.end(), {t.Segment.A.Re, t.Segment.A.Im, t.Segment.B.Re, t.Segment.B.Im});
    for (const ArcPlace& a : p.Arcs)
        v.insert(v.end(), {a.Arc.Centre.Re, a.Arc.Centre.Im, a.Arc.Debut.Re, a.Arc.Debut.Im});
    return v;
}

} // namespace

TEST(FenetreSuperposition, DeuxReglagesSauvesSuperposesRegleEtSauvePlace2) {
    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    BaseEtudesSql base(dossier.path().toStdString() + "/");
    Importer(base, "champagnier-grande-ile-225kV.json");
    Importer(base, "grande-ile-champagnier-225kV-s321.json");

    Etude e;
    DialogueQt d;
    InscrireVues(d, e);
    Application app(e, d, &base, std::nullopt);

    int titres = 0, superpositions = 0, panneaux = 0, demarres = 0;
    int pixels1 = 0, pixels2 = 0;
    int dispositionInitiale = 0, disposition = 0;
    bool imageBougee = false, place1Fixe = false, tientSurEcran = false;
    std::pair<Couleur, Couleur> couleurs;
    std::string legende1, legende2, champsSansWidget = "?", widgetsSansChamp = "?";
    std::vector<ValeurTR> reglee, rouverte;
    std::function<void(QWidget*)> agir = [&](QWidget* w) {
        const QString nom = w->objectName();
        if (nom == "frmtitre") {
            ++titres;
            if (titres == 1) {
                w->findChild<QCheckBox*>("chksuperposer")->click();
                NommerEtude(w, "CHAMPAGNIER", "GRANDE-ILE", "PD3A", "1");
                // The second relay on the second page.
                auto* onglets = w->findChild<QTabWidget*>("Onglet");
                emit onglets->tabBarClicked(1);
                EXPECT_EQ(onglets->currentIndex(), 1);
                Taper(w, "txtposte2", "GRANDE-ILE");
                Taper(w, "txtdépart2", "CHAMPAGNIER");
                Taper(w, "txtProtection2", "S321-5");
                Taper(w, "txtnuméro2", "1");
                emit onglets->tabBarClicked(0);
            } else if (titres == 2) {
                // Place 2 alone, as it was saved from the superposition.
                NommerEtude(w, "GRANDE-ILE", "CHAMPAGNIER", "S321-5", "1");
            } else {
                QuitterTitre(w);
                return;
            }
            ConfirmerTitre(w);
        } else if (nom == "frmChoixProtection") {
            ChoisirRelais(w, titres == 1 ? 3 : 12);
        } else if (nom == "frmsuperposer") {
            ++superpositions;
            auto& modele =
                dynamic_cast<PanneauSuperposer&>(static_cast<FenetrePanneau*>(w)->Modele());
            Superposition& s = modele.Superposer();
            auto* diagramme = w->findChild<QWidget*>("imgCaractéristique");
            const QImage image = diagramme->grab().toImage();
            couleurs = {e.CouleurPoste1, e.CouleurPoste2};
            pixels1 = Pixels(image, e.CouleurPoste1);
            pixels2 = Pixels(image, e.CouleurPoste2);
            legende1 = w->findChild<QLabel*>("lblPlace1")->text().toStdString();
            legende2 = w->findChild<QLabel*>("lblPlace2")->text().toStdString();
            // Every field has its widget, every named input widget its field.
            Lieur* lieur = static_cast<FenetrePanneau*>(w)->Liaison();
            champsSansWidget = lieur->ChampsSansWidget().join(' ').toStdString();
            widgetsSansChamp = lieur->WidgetsSansChamp().join(' ').toStdString();
            const QRect cadre = w->frameGeometry();
            tientSurEcran = cadre.width() <= 1366 && cadre.height() <= 768;
            dispositionInitiale = s.Disposition();
            // Another layout: both relays as they stand.
            QTest::mouseClick(w->findChild<QPushButton*>("cmdPlace1"), Qt::LeftButton);
            disposition = s.Disposition();
            // Place 2 set through its relay's panel.
            const std::vector<double> avant = Image(s.PlaceNumero(2));
            const std::vector<double> place1 = Image(s.PlaceNumero(1));
            QTest::mouseClick(w->findChild<QPushButton*>("cmdregposte2"), Qt::LeftButton);
            imageBougee = !avant.empty() && Image(s.PlaceNumero(2)) != avant;
            place1Fixe = Image(s.PlaceNumero(1)) == place1;
            reglee = Liste(s.PlaceNumero(2).Bloc);
            w->findChild<QAction*>("mnusauve2")->trigger();
            w->findChild<QAction*>("mnuchangerposte")->trigger();
        } else if (nom == "frmS321") {
            ++panneaux;
            // The second zone of the phase to phase loops, 14 secondary ohms.
            TaperLigne(w->findChild<QLineEdit*>("txtz2_bt"), "14", true);
            QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
        } else if (nom == "frmDémarre") {
            ++demarres;
            BlocReglages bloc;
            SauverReglage(e, bloc);
            rouverte = Liste(bloc);
            w->findChild<QAction*>("mnuChangerPoste")->trigger();
        } else {
            RepondreParDefaut(w);
        }
    };
    {
        Pilote pilote(agir);
        app.Main();
    }
    ASSERT_EQ(superpositions, 1);
    EXPECT_EQ(dispositionInitiale, 2); // the far end of the same line, looking back
    EXPECT_NE(couleurs.first, couleurs.second);
    EXPECT_GT(pixels1, 50) << "place 1 not drawn in its colour";
    EXPECT_GT(pixels2, 50) << "place 2 not drawn in its colour";
    EXPECT_NE(legende1.find("CHAMPAGNIER - GRANDE-ILE, PD3A n° 1"), std::string::npos) << legende1;
    EXPECT_NE(legende2.find("GRANDE-ILE - CHAMPAGNIER, S321-5 n° 1"), std::string::npos)
        << legende2;
    EXPECT_TRUE(tientSurEcran);
    EXPECT_EQ(champsSansWidget, "");
    EXPECT_EQ(widgetsSansChamp, "");
    EXPECT_EQ(disposition, 1);
    EXPECT_EQ(panneaux, 1);
    EXPECT_TRUE(imageBougee);
    EXPECT_TRUE(place1Fixe);
    ASSERT_EQ(demarres, 1);
    ASSERT_FALSE(reglee.empty());
    EXPECT_EQ(rouverte, reglee);
}
