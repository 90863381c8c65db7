// The walk of the relays' window tests: a relay's window on an example study; a new line through
// the opening dialog, its network panels answered as an engineer types the line, the relay's panel,
// the working window awaited until it is ready, the study saved and opened again from the base.
#pragma once

#include "../../core/views/Pilote.h"
#include "../../shell/views/Gestes.h"
#include "../../shell/views/Vues.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/views/DialogueQt.h"
#include "core/views/FenetrePanneau.h"
#include "core/views/Lieur.h"
#include "database/BaseEtudesSql.h"
#include "relays/Relais.h"
#include "relays/views/FenetreRelais.h"
#include "shell/Application.h"
#include "shell/PanneauDemarre.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QString>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace tournesol {

// Every field of the relay's window has its widget, and every widget its field.
inline void LiaisonComplete(FenetreRelais& fenetre) {
    EXPECT_TRUE(fenetre.Liaison()->ChampsSansWidget().isEmpty())
        << fenetre.Liaison()->ChampsSansWidget().join(", ").toStdString();
    EXPECT_TRUE(fenetre.Liaison()->WidgetsSansChamp().isEmpty())
        << fenetre.Liaison()->WidgetsSansChamp().join(", ").toStdString();
}

// A relay's panel opened on an example study, in mode "Return" or "Modify", then its window,
// shown or not.
template <class P> struct FenetreSurExemple : ::testing::Test {
    FenetreSurExemple(const char* fichier, bool retour, bool montrer) {
        OuvrirExemple(e, d, fichier);
        e.PanneauRelais = retour;
        relais = std::make_unique<P>(e, d);
        relais->Ouvrir();
        fenetre = std::make_unique<FenetreRelais>(*relais);
        if (montrer) fenetre->show();
    }
    template <class W = QLineEdit> W* Trouver(const char* nom) {
        auto* w = fenetre->findChild<W*>(QString::fromUtf8(nom));
        EXPECT_NE(w, nullptr) << nom;
        return w;
    }
    QTabWidget* Onglets() { return fenetre->findChild<QTabWidget*>("Onglets"); }
    Etude e;
    DialogueSansFenetre d;
    std::unique_ptr<P> relais;
    std::unique_ptr<FenetreRelais> fenetre;
};

// 32 km of 90 kV meshed line behind a CT of 800 A (its secondary current left to the caller).
inline void RemplirLigne90(Etude& e) {
    e.Ligne_Up = 90;
    e.Ligne_Ip = 800;
    e.Ligne_Icc = 20;
    e.Ligne_lc = true;
    e.Ligne_Ittri = 480.0;
    e.Ligne_Itmono = 520.0;
    e.Ligne_Itmax = 560.0;
}

// The pixels where two grabs of a widget differ; -1 when their sizes differ.
inline int PixelsChanges(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return -1;
    int n = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            n += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    return n;
}

// The pixels of the working window's diagram that a gesture changes.
inline int PixelsChangesPar(QWidget* fenetre, const std::function<void()>& geste) {
    auto* diagramme = fenetre->findChild<QWidget*>("imgCaractéristique");
    const QImage avant = diagramme->grab().toImage();
    geste();
    return PixelsChanges(avant, diagramme->grab().toImage());
}

// The relay's panel opened from the working window ("Modify" or "Return", as its box says).
inline void ReglerLeRelais(QWidget* fenetre) {
    QTest::mouseClick(fenetre->findChild<QPushButton*>("cmdextra"), Qt::LeftButton);
}

// A line as typed into the network panels of a new line: the first section's length, resistance
// and reactance, and the neighbour reactance that the load report asks for.
struct LigneTapee {
    QString longueur, rl, xl, xla;
};
// 75 km of 225 kV line; 32 km of 90 kV line.
inline const LigneTapee LIGNE_225{"75", "6.375", "30.375", "20"};
inline const LigneTapee LIGNE_90{"32", "3.84", "12.8", "14"};

// Answers the network panels of a new line; false for any other window.
inline bool RepondreReseau(QWidget* w, const LigneTapee& l) {
    const QString nom = w->objectName();
    if (nom == "frmRéseauOptions") {
        QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
    } else if (nom == "frmréseauvaleurs") {
        TaperLigne(w->findChild<QLineEdit*>("txtlongueur(0)"), l.longueur, true);
        TaperLigne(w->findChild<QLineEdit*>("txtrl(0)"), l.rl, true);
        TaperLigne(w->findChild<QLineEdit*>("txtxl(0)"), l.xl, true);
        QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
    } else if (nom == "frmReportCharge" && w->findChild<QLabel*>("lblErreur")->isVisible()) {
        // A new line has no neighbour reactance yet: the panel shows the failure and takes the
        // value typed.
        TaperLigne(w->findChild<QLineEdit*>("txtxla"), l.xla, true);
        QTest::mouseClick(w->findChild<QPushButton*>("Command2"), Qt::LeftButton);
    } else {
        return false;
    }
    return true;
}

// The working window `w` is not ready while a panel is over it or the line is new (its network
// panels come first), nor, before the first action, while the start's relay panel has not come
// and gone (a loaded machine may show the window in between; 5 s at most). Then the action is
// put back by 20 ms, and true is returned.
inline bool AttendreFenetre(QWidget* w, const Etude& e, int fenetres, int panneaux, int& attentes,
                            std::function<void(QWidget*)>& agir) {
    auto& demarre = dynamic_cast<PanneauDemarre&>(static_cast<FenetrePanneau*>(w)->Modele());
    const bool attendre = QApplication::activeModalWidget() != w || demarre.NouvelleLigne() ||
                          (fenetres == 0 && (panneaux == 0 || e.PanneauRelais) && ++attentes < 250);
    if (!attendre) return false;
    QPointer<QWidget> garde(w);
    QTimer::singleShot(20, [&agir, garde] {
        if (garde) agir(garde);
    });
    return true;
}

// A new study named in the opening dialog, its relay chosen and its line typed; its relay's panel
// confirmed each time it comes; at the first working window, saved in a base of a temporary
// folder; then opened again by its names, and the program left from the opening dialog.
struct TitreBaseEtRetour {
    QString poste, depart, relais, numero;
    int id = 0;      // the relay chosen
    QString panneau; // the relay panel's name
    const LigneTapee* ligne = &LIGNE_90;
    // On the opening dialog, once the study is chosen again: what stays in memory moved off, so
    // that what comes back cannot be it.
    std::function<void(QWidget*)> brouiller = [](QWidget*) {};
    // On the relay's panel, before OK; on the first working window, before the save; on the
    // window of the study opened again.
    std::function<void(QWidget*)> surPanneau = [](QWidget*) {}, premiere = [](QWidget*) {},
                                  seconde = [](QWidget*) {};
    int fenetres = 0, panneaux = 0;

    void Mener(Etude& e) {
        QTemporaryDir dossier;
        ASSERT_TRUE(dossier.isValid());
        BaseEtudesSql base(dossier.path().toStdString() + "/");
        DialogueQt d;
        InscrireVues(d, e);
        Application app(e, d, &base, std::nullopt);
        int titres = 0, attentes = 0;
        std::function<void(QWidget*)> agir = [&](QWidget* w) {
            const QString nom = w->objectName();
            if (nom == "frmtitre") {
                ++titres;
                if (titres == 1) {
                    NommerEtude(w, poste, depart, relais, numero);
                } else if (titres == 2) {
                    EXPECT_TRUE(ChoisirEtude(w, poste, depart, relais, numero));
                    brouiller(w);
                } else {
                    QuitterTitre(w);
                    return;
                }
                ConfirmerTitre(w);
            } else if (nom == "frmChoixProtection") {
                ChoisirRelais(w, id);
            } else if (nom == panneau) {
                ++panneaux;
                surPanneau(w);
                QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
            } else if (nom == "frmDémarre") {
                if (AttendreFenetre(w, e, fenetres, panneaux, attentes, agir)) return;
                ++fenetres;
                if (fenetres == 1) {
                    premiere(w);
                    QTest::mouseClick(w->findChild<QPushButton*>("cmdsave"), Qt::LeftButton);
                } else {
                    seconde(w);
                }
                w->findChild<QAction*>("mnuChangerPoste")->trigger();
            } else if (!RepondreReseau(w, *ligne)) {
                RepondreParDefaut(w);
            }
        };
        Pilote pilote(agir);
        app.Main();
    }
};

} // namespace tournesol
