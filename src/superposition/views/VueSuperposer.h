// The superposition window: the common diagram, the legend of the two places beside it, the
// relay buttons, the three frames that share one place, the menus.
#pragma once

#include "core/Complexe.h"
#include "core/views/FenetrePanneau.h"

#include <QWidget>

class QPagedPaintDevice;

namespace tournesol {

struct Etude;
class DialogueQt;
class PanneauSuperposer;
class FenetreProgression;

// The common diagram: a square, one ohm equal on both axes.
class DiagrammeSuperpose : public QWidget {
    Q_OBJECT
public:
    DiagrammeSuperpose(PanneauSuperposer& modele, QWidget* parent);
    QSize sizeHint() const override { return {620, 620}; }
    std::function<void()> Apres;

protected:
    void paintEvent(QPaintEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;

private:
    QRect Carre() const;
    // The point of the plane under the pointer, in ohms.
    Complexe Point(const QMouseEvent* ev) const;
    PanneauSuperposer& modele_;
};

class VueSuperposer : public FenetrePanneau {
    Q_OBJECT
public:
    explicit VueSuperposer(PanneauSuperposer& modele);
    // The print onto a printer or a PDF file, the progress panel up while it prints.
    void ImprimerSur(QPagedPaintDevice& support);

protected:
    void ApresHandler() override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void Peindre();
    void ChoisirCouleur(int i);

    PanneauSuperposer& modele_;
    DiagrammeSuperpose* diagramme_;
    FenetreProgression* progression_;
    int version_ = -1;
};

// The window of frmsuperposer, registered in the dialogue as the program does.
void InscrireVueSuperposer(DialogueQt& d);

} // namespace tournesol
