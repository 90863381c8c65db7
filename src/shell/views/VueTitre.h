// The opening dialog's window: two pages of boxes, the options and the commands.
#pragma once

#include "core/views/FenetrePanneau.h"

class QTabWidget;

namespace tournesol {

class PanneauTitre;
class PanneauAPropos;

class VueTitre : public FenetrePanneau {
    Q_OBJECT
public:
    explicit VueTitre(PanneauTitre& modele);

protected:
    void ApresHandler() override;

private:
    PanneauTitre& titre_;
    QTabWidget* onglets_;
};

// frmAPropos: the logo, the year and the text; any click or key closes it.
class VueAPropos : public FenetrePanneau {
    Q_OBJECT
public:
    explicit VueAPropos(PanneauAPropos& modele);

protected:
    void keyPressEvent(QKeyEvent* evenement) override;
    void mousePressEvent(QMouseEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;
};

} // namespace tournesol
