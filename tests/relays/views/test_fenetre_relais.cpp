// The window of a relay panel, offscreen, on a small relay of two sheets: the twins side by side,
// the exit of a field, the set values shown only, the sheets as the model allows them, the Alt
// shortcuts, and the dialogue that opens every relay panel in that window.
#include "Parcours.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/views/DialogueQt.h"
#include "core/views/Lieur.h"
#include "relays/PanneauProtection.h"
#include "relays/views/FenetreRelais.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

// Two sheets: the reach (desired and set, in both columns), then a timer and the signalling.
class RelaisDeuxOnglets : public PanneauProtection {
public:
    RelaisDeuxOnglets(Etude& e, Dialogue& d) : PanneauProtection(e, d, 11) {
        DeclarerOnglets({"zones", "timers"});
        static const TableChamps table = [] {
            std::vector<DescriptionChamp> t{
                {.Nom = "txtX1_bt",
                 .Legende = "First zone reactance",
                 .Format = "##0.00",
                 .Min = 0.1,
                 .Max = 50.0,
                 .Colonne = ColonneOhms::Secondaire,
                 .Nature = NatureValeur::Souhaitee,
                 .Groupe = "zones/Desired values",
                 .Saisie = true,
                 .Valeur = Lien(&Etude::X1_BT),
                 .Jumeau = "txtX1_HT"},
                // The twin has no frame of its own: it stands beside its secondary value.
                {.Nom = "txtX1_HT", .Format = "#0.00", .Valeur = Lien(&Etude::X1_HT)},
                {.Nom = "txtX1reg_HT",
                 .Legende = "First zone reactance",
                 .Format = "#0.00",
                 .Colonne = ColonneOhms::Primaire,
                 .Nature = NatureValeur::Reglee,
                 .Groupe = "zones/Set values",
                 .Valeur = Lien(&Etude::X1reg_HT),
                 .Jumeau = "txtX1reg_BT"},
                {.Nom = "txtX1reg_BT",
                 .Format = "#0.00",
                 .Colonne = ColonneOhms::Secondaire,
                 .Nature = NatureValeur::Reglee,
                 .Groupe = "zones/Set values",
                 .Valeur = Lien(&Etude::X1reg_BT)},
                {.Nom = "txtt2",
                 .Legende = "T2 =",
                 .Unite = "ms",
                 .Format = "###0",
                 .Min = 0.0,
                 .Max = 999.0,
                 .Groupe = "timers/Second step",
                 .Saisie = true,
                 .Valeur = Lien(&Etude::T2)},
            };
            for (DescriptionChamp& d : ChampsTeleaction("timers/Signalling"))
                t.push_back(std::move(d));
            return TableChamps(std::move(t));
        }();
        DeclarerChamps(table);
        DeclarerTeleaction();
        DeclarerEtapes({{"Zones", [this] { Zones(); }}, {"Temps", [this] { ++Temps; }}});
    }
    int Temps = 0; // runs of the timers' step

protected:
    CadrePlan CadreDuPlan() override { return CadrePlan::Carre(30.0); }

private:
    void Zones() {
        if (ModeRetour()) e_.X1_HT = e_.Ligne_Xprim1;
        e_.X1_BT = Div(e_.X1_HT, e_.Kz);
        e_.X1reg_BT = std::floor(e_.X1_BT * 10.0) / 10.0;
        e_.X1reg_HT = e_.X1reg_BT * e_.Kz;
    }
};

Etude EtudeEssai() {
    Etude e;
    e.NomPoste = "LAVEYRON";
    e.Kz = 2.0;
    e.X1_HT = 12.34;
    e.Ligne_Xprim1 = 20.0;
    return e;
}

// The panel opened in mode "Modify", then its window, as the dialogue shows it.
struct FenetreRelaisEssai : ::testing::Test {
    template <class W = QLineEdit> W* Trouver(const char* nom) {
        auto* w = fenetre.findChild<W*>(QString::fromUtf8(nom));
        EXPECT_NE(w, nullptr) << nom;
        return w;
    }
    QTabWidget* Onglets() { return fenetre.findChild<QTabWidget*>("Onglets"); }
    Etude e = EtudeEssai();
    DialogueScripte d;
    RelaisDeuxOnglets relais{e, d};
    bool ouvert = (relais.Ouvrir(), true);
    FenetreRelais fenetre{relais};
};

// Row and column of a widget in the grid of its frame.
std::pair<int, int> Place(QWidget* w) {
    auto* grille = qobject_cast<QGridLayout*>(w->parentWidget()->layout());
    if (!grille) return {-1, -1};
    int ligne = -1, colonne = -1, hauteur = 0, largeur = 0;
    grille->getItemPosition(grille->indexOf(w), &ligne, &colonne, &hauteur, &largeur);
    return {ligne, colonne};
}

// The label of that text in the frame.
QLabel* Etiquette(QWidget* cadre, const QString& texte) {
    for (QLabel* l : cadre->findChildren<QLabel*>())
        if (l->text() == texte) return l;
    return nullptr;
}

} // namespace

TEST_F(FenetreRelaisEssai, LesJumeauxCoteACoteSousLeursColonnes) {
    EXPECT_EQ(fenetre.objectName(), "frmRXAP");
    LiaisonComplete(fenetre);
    ASSERT_EQ(Onglets()->count(), 2);
    EXPECT_EQ(Onglets()->tabText(0), "zones");
    EXPECT_EQ(Onglets()->tabText(1), "timers");

    // Desired values: the secondary on the left, its twin on the same row, on the right.
    QLineEdit* x1 = Trouver("txtX1_bt");
    QLineEdit* x1p = Trouver("txtX1_HT");
    auto* souhaitees = qobject_cast<QGroupBox*>(x1->parentWidget());
    ASSERT_NE(souhaitees, nullptr);
    EXPECT_EQ(souhaitees->title(), "Desired values");
    EXPECT_EQ(souhaitees->parentWidget(), fenetre.findChild<QWidget*>("Onglet(0)"));
    EXPECT_EQ(x1p->parentWidget(), souhaitees);
    EXPECT_EQ(Place(x1).first, Place(x1p).first);
    EXPECT_LT(Place(x1).second, Place(x1p).second);
    EXPECT_EQ(x1->text(), "6.17");
    EXPECT_EQ(x1p->text(), "12.34");
    // The headers over their columns, the caption and the units on the row.
    QLabel* secondaire = Etiquette(souhaitees, "secondary");
    QLabel* primaire = Etiquette(souhaitees, "primary");
    ASSERT_TRUE(secondaire && primaire);
    EXPECT_EQ(Place(secondaire).second, Place(x1).second);
    EXPECT_EQ(Place(primaire).second, Place(x1p).second);
    QLabel* legende = Etiquette(souhaitees, "First zone reactance");
    ASSERT_NE(legende, nullptr);
    EXPECT_EQ(Place(legende).first, Place(x1).first);
    EXPECT_EQ(Place(Etiquette(souhaitees, "Ω P")), std::make_pair(Place(x1).first, 4));

    // Set values: declared primary first, shown secondary on the left all the same; read-only.
    QLineEdit* reglee = Trouver("txtX1reg_BT");
    QLineEdit* regleep = Trouver("txtX1reg_HT");
    EXPECT_EQ(Place(reglee).first, Place(regleep).first);
    EXPECT_LT(Place(reglee).second, Place(regleep).second);
    EXPECT_TRUE(x1->isEnabled());
    EXPECT_FALSE(reglee->isEnabled());
    EXPECT_FALSE(regleep->isEnabled());

    // A frame without the primary column has no headers; a check box stays a check box.
    auto* temps = qobject_cast<QGroupBox*>(Trouver("txtt2")->parentWidget());
    ASSERT_NE(temps, nullptr);
    EXPECT_EQ(Etiquette(temps, "secondary"), nullptr);
    EXPECT_NE(Etiquette(temps, "ms"), nullptr);
    EXPECT_NE(Trouver<QCheckBox>("chkTéléaction"), nullptr);
}

TEST_F(FenetreRelaisEssai, LaValeurSaisieEstLimiteeDansLesDeuxColonnes) {
    QLineEdit* x1 = Trouver("txtX1_bt");
    Focus(x1, QEvent::FocusIn);
    x1->selectAll();
    QTest::keyClicks(x1, "80");
    EXPECT_EQ(relais.Trouver("txtX1_bt")->Texte(), "80");
    Focus(x1, QEvent::FocusOut);
    EXPECT_EQ(x1->text(), "50.00");
    EXPECT_EQ(Trouver("txtX1_HT")->text(), "100.00");
    EXPECT_DOUBLE_EQ(e.X1_BT, 50.0);
    EXPECT_DOUBLE_EQ(e.X1_HT, 100.0);
}

TEST_F(FenetreRelaisEssai, LOngletEstCeluiQueLeModeleMontre) {
    Onglets()->setCurrentIndex(1);
    EXPECT_EQ(relais.OngletCourant(), 1);
    EXPECT_EQ(relais.Temps, 2); // once on opening, once when the first sheet was left
    EXPECT_FALSE(fenetre.findChild<QWidget*>("Onglet(0)")->isEnabled());
    EXPECT_TRUE(fenetre.findChild<QWidget*>("Onglet(1)")->isEnabled());

    // Going left in mode "Return", the user cancels the question: the sheet stays.
    e.PanneauRelais = true;
    d.AjouterReponses({1});
    Onglets()->setCurrentIndex(0);
    EXPECT_EQ(d.ReponsesRestantes(), 0u);
    EXPECT_EQ(relais.OngletCourant(), 1);
    EXPECT_EQ(Onglets()->currentIndex(), 1);
    d.AjouterReponses({0});
    Onglets()->setCurrentIndex(0);
    EXPECT_EQ(relais.OngletCourant(), 0);
    EXPECT_EQ(Onglets()->currentIndex(), 0);
    e.PanneauRelais = false;

    // Alt and M selects the second sheet, from a field too, where no letter is typed.
    QLineEdit* x1 = Trouver("txtX1_bt");
    const QString avant = x1->text();
    QTest::keyClick(x1, Qt::Key_M, Qt::AltModifier);
    EXPECT_EQ(x1->text(), avant);
    EXPECT_EQ(relais.OngletCourant(), 1);
    EXPECT_EQ(Onglets()->currentIndex(), 1);
    QTest::keyClick(&fenetre, Qt::Key_A); // without Alt: nothing
    EXPECT_EQ(relais.OngletCourant(), 1);
    EXPECT_FALSE(relais.AltActif());
    QTest::keyClick(&fenetre, Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(Onglets()->currentIndex(), 0);

    // Enter is OK: the panel closes.
    QTest::keyClick(&fenetre, Qt::Key_Return);
    EXPECT_TRUE(relais.Ferme());
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
}

// Every relay panel comes up in its window; a panel of another kind in the window built from
// its fields.
TEST(DialogueRelais, LesPanneauxDeRelaisSOuvrentDansLeurFenetre) {
    Etude e;
    e.Kz = 2.0;
    DialogueSansFenetre muet;
    RelaisDeuxOnglets relais(e, muet);
    relais.Ouvrir();
    class Autre : public Panneau {
    public:
        Autre() : Panneau("frmAutre") { Ajouter(GenreChamp::Bouton, "Command1", "OK"); }
        void Cliquer(const std::string& nom) override { BoutonsOkAnnuler(nom); }
    } autre;

    DialogueQt d;
    InscrireFenetreRelais(d);
    QStringList vues;
    Pilote pilote([&](QWidget* w) {
        vues << QString("%1:%2")
                    .arg(w->objectName())
                    .arg(qobject_cast<FenetreRelais*>(w) != nullptr);
        QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
    });
    d.MontrerPanneau(relais);
    d.MontrerPanneau(autre);
    EXPECT_EQ(vues, (QStringList{"frmRXAP:1", "frmAutre:0"}));
    EXPECT_TRUE(relais.Ferme());
    EXPECT_TRUE(autre.Ferme());
}
