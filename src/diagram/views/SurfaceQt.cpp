#include "diagram/views/SurfaceQt.h"

#include "core/Numerique.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace tournesol {

namespace {

QColor VersQt(Couleur c) {
    return QColor(Rouge(c), Vert(c), Bleu(c));
}

Qt::PenStyle StyleQt(int style) {
    switch (style) {
    case TRAIT_TIRET:
        return Qt::DashLine;
    case TRAIT_POINT:
        return Qt::DotLine;
    case TRAIT_TIRET_POINT:
        return Qt::DashDotLine;
    case TRAIT_TIRET_POINT_POINT:
        return Qt::DashDotDotLine;
    case TRAIT_INVISIBLE:
        return Qt::NoPen;
    default:
        return Qt::SolidLine;
    }
}

constexpr double DEGRES_PAR_RADIAN = 180.0 / PI;

} // namespace

SurfaceQt::SurfaceQt(QPainter& peintre, double largeur, double hauteur)
    : peintre_(peintre), largeur_(largeur), hauteur_(hauteur) {
    peintre_.setRenderHint(QPainter::Antialiasing, true);
}

void SurfaceQt::Prendre(const Stylo& stylo) {
    QPen stylet(VersQt(stylo.couleur));
    stylet.setStyle(StyleQt(stylo.style));
    stylet.setWidthF(stylo.largeur);
    stylet.setCapStyle(Qt::FlatCap);
    peintre_.setPen(stylet);
    peintre_.setBrush(stylo.style == TRAIT_INTERIEUR ? QBrush(VersQt(stylo.couleur))
                                                     : QBrush(Qt::NoBrush));
}

void SurfaceQt::Effacer(Couleur fond) {
    peintre_.fillRect(QRectF(0, 0, largeur_, hauteur_), VersQt(fond));
}

void SurfaceQt::Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) {
    Prendre(stylo);
    peintre_.drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void SurfaceQt::Arc(double cx, double cy, double rayon, double debut, double fin,
                    const Stylo& stylo) {
    Prendre(stylo);
    double etendue = std::fmod(fin - debut, 2.0 * PI);
    if (etendue < 0.0) etendue += 2.0 * PI;
    const QRectF cadre(cx - rayon, cy - rayon, 2.0 * rayon, 2.0 * rayon);
    peintre_.drawArc(cadre, static_cast<int>(std::lround(debut * DEGRES_PAR_RADIAN * 16.0)),
                     static_cast<int>(std::lround(etendue * DEGRES_PAR_RADIAN * 16.0)));
}

void SurfaceQt::Cercle(double cx, double cy, double rayon, const Stylo& stylo) {
    Prendre(stylo);
    peintre_.drawEllipse(QPointF(cx, cy), rayon, rayon);
}

double SurfaceQt::UnitesParPoint() const {
    const QPaintDevice* support = peintre_.device();
    return support ? support->logicalDpiY() / 72.0 : Surface::UnitesParPoint();
}

TailleTexte SurfaceQt::Mesurer(const std::string& texte, const Police& police) const {
    QFont fonte(QString::fromStdString(police.nom));
    fonte.setPointSizeF(police.taille);
    const QFontMetricsF mesure(fonte, peintre_.device());
    return {mesure.horizontalAdvance(QString::fromStdString(texte)), mesure.height()};
}

void SurfaceQt::Texte(double x, double y, const std::string& texte, Couleur couleur,
                      const Police& police, Alignement alignement) {
    QFont fonte(QString::fromStdString(police.nom));
    fonte.setPointSizeF(police.taille);
    peintre_.setFont(fonte);
    peintre_.setPen(VersQt(couleur));
    const QString t = QString::fromStdString(texte);
    const QFontMetricsF mesure(fonte, peintre_.device());
    const double largeur = mesure.horizontalAdvance(t);
    const double gauche = alignement == Alignement::Centre ? x - largeur / 2.0 : x;
    peintre_.drawText(QPointF(gauche, y + (mesure.ascent() - mesure.descent()) / 2.0), t);
}

} // namespace tournesol
