// The working window: the diagram widget, the legend, the options, the tools, the menus.
#pragma once

#include "core/views/FenetrePanneau.h"

#include <QPointer>
#include <QRect>
#include <QWidget>
#include <optional>
#include <utility>

class QMenu;
class QLabel;
class QPagedPaintDevice;

namespace tournesol {

struct Etude;
class PanneauDemarre;
class FenetreProgression;

// The diagram: the plane drawn through QPainter, one ohm equal on both axes.
class Diagramme : public QWidget {
    Q_OBJECT
public:
    Diagramme(PanneauDemarre& modele, Etude& e, QWidget* parent);
    void Dessiner();
    QSize sizeHint() const override;
    QMenu* MenuZoom = nullptr;
    std::function<void()> Apres;
    std::function<void(QPoint)> MenuPlume;

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void leaveEvent(QEvent*) override;
    void keyPressEvent(QKeyEvent*) override;

private:
    double VersR(double px) const;
    double VersX(double py) const;
    void GarderProportions();

    PanneauDemarre& modele_;
    Etude& e_;
};

// Where the diagnostics window stands beside the working window, frames included: on its right
// when the screen has room; else the working window narrows, down to its minimum width, and the
// diagnostics window, down to a width where its texts still read, so that both are seen whole;
// on a screen too small for that, over the side column.
struct PlacesDiagnostics {
    QRect fenetre;
    QRect diagnostics;
};
PlacesDiagnostics PlacerDiagnostics(const QRect& ecran, const QRect& fenetre, int largeurMinimale,
                                    QSize diagnostics, int colonne);

class VueDemarre : public FenetrePanneau {
    Q_OBJECT
public:
    VueDemarre(PanneauDemarre& modele, Etude& e);
    ~VueDemarre() override;
    // The report onto a printer or a PDF file, the progress panel up while it prints.
    void ImprimerSur(QPagedPaintDevice& support);

protected:
    void ApresHandler() override;
    void showEvent(QShowEvent* evenement) override;

private:
    void ChoisirCouleur(int i);
    void MenuPlume(QPoint ou);

    PanneauDemarre& demarre_;
    Etude& e_;
    Diagramme* diagramme_;
    int version_ = -1;
    bool demarree_ = false;
    QPointer<FenetrePanneau> diagnostics_; // frmDiagnostics, beside the working window
    // The working window's place before it narrowed for the diagnostics, and whether it filled
    // the screen.
    std::optional<std::pair<QRect, bool>> avantDiagnostics_;
    FenetreProgression* progression_; // frmImpress
};

} // namespace tournesol
