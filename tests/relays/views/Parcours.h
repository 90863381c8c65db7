// The walk of the relays' window tests through a new line: the network panels answered as an
// engineer types the line, and the working window awaited until it is ready for the first action.
#pragma once

#include "../../shell/views/Gestes.h"
#include "core/Etude.h"
#include "core/views/FenetrePanneau.h"
#include "shell/PanneauDemarre.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QString>
#include <QTimer>
#include <functional>

namespace tournesol {

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

} // namespace tournesol
