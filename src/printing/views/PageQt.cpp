#include "printing/views/PageQt.h"

#include "core/Numerique.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <algorithm>
#include <cmath>

namespace tournesol {

namespace {

QColor VersQt(Couleur c) {
    return QColor(Rouge(c), Vert(c), Bleu(c));
}

constexpr double DEGRES_PAR_RADIAN = 180.0 / PI;

// Dashes of the printed styles, in millimetres: the dots of a 300 dpi pen are too small for a
// pattern counted in widths of the pen.
QList<qreal> Tirets(int style) {
    switch (style) {
    case TRAIT_TIRET:
        return {2.0, 1.0};
    case TRAIT_POINT:
        return {0.3, 0.7};
    case TRAIT_TIRET_POINT:
        return {2.0, 0.7, 0.3, 0.7};
    case TRAIT_TIRET_POINT_POINT:
        return {2.0, 0.7, 0.3, 0.7, 0.3, 0.7};
    default:
        return {};
    }
}

} // namespace

PageQt::PageQt(QPagedPaintDevice& support)
    : support_(support), pixelsParMm_(support.logicalDpiX() / 25.4) {}

PageQt::~PageQt() {
    Fermer();
}

QFont PageQt::Fonte(const PolicePage& police) {
    QFont fonte(QString::fromStdString(police.Nom));
    fonte.setStyleHint(QFont::SansSerif);
    fonte.setPointSizeF(police.Taille);
    fonte.setBold(police.Gras);
    return fonte;
}

double PageQt::Largeur() const {
    return support_.width() / pixelsParMm_;
}

double PageQt::Hauteur() const {
    return support_.height() / pixelsParMm_;
}

double PageQt::LargeurTexte(const std::string& texte) const {
    const QFontMetricsF mesure(Fonte(Police()), &support_);
    return mesure.horizontalAdvance(QString::fromStdString(texte)) / pixelsParMm_;
}

double PageQt::HauteurTexte(const std::string&) const {
    const QFontMetricsF mesure(Fonte(Police()), &support_);
    return mesure.height() / pixelsParMm_;
}

void PageQt::Garder(Trace trace) {
    if (copie_.empty()) return; // nothing is drawn outside a page
    copie_.back().push_back(std::move(trace));
}

QPen PageQt::Stylet(const Stylo& stylo) const {
    QPen stylet(VersQt(stylo.couleur));
    const double largeur = std::max(stylo.largeur, 1.0) * MM_PAR_POINT_IMPRIMANTE * pixelsParMm_;
    stylet.setWidthF(largeur);
    stylet.setCapStyle(Qt::FlatCap);
    stylet.setJoinStyle(Qt::MiterJoin);
    if (stylo.style == TRAIT_INVISIBLE) {
        stylet.setStyle(Qt::NoPen);
    } else if (const QList<qreal> tirets = Tirets(stylo.style); !tirets.isEmpty()) {
        QList<qreal> motif;
        for (const qreal mm : tirets)
            motif.append(mm * pixelsParMm_ / largeur);
        stylet.setDashPattern(motif);
    }
    return stylet;
}

void PageQt::TexteEn(double x, double y, const std::string& texte, Couleur couleur) {
    const QFont fonte = Fonte(Police());
    const double ascendant = QFontMetricsF(fonte, &support_).ascent();
    const QPointF point(x * pixelsParMm_, y * pixelsParMm_ + ascendant);
    const QString t = QString::fromStdString(texte);
    const QColor c = VersQt(couleur);
    Garder([fonte, point, t, c](QPainter& p) {
        p.setFont(fonte);
        p.setPen(c);
        p.drawText(point, t);
    });
}

void PageQt::Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) {
    const QLineF ligne(x1 * pixelsParMm_, y1 * pixelsParMm_, x2 * pixelsParMm_, y2 * pixelsParMm_);
    const QPen stylet = Stylet(stylo);
    Garder([ligne, stylet](QPainter& p) {
        p.setPen(stylet);
        p.drawLine(ligne);
    });
}

void PageQt::Arc(double cx, double cy, double rayon, double debut, double fin, const Stylo& stylo) {
    double etendue = std::fmod(fin - debut, 2.0 * PI);
    if (etendue < 0.0) etendue += 2.0 * PI;
    const QRectF cadre((cx - rayon) * pixelsParMm_, (cy - rayon) * pixelsParMm_,
                       2.0 * rayon * pixelsParMm_, 2.0 * rayon * pixelsParMm_);
    const int depart = static_cast<int>(std::lround(debut * DEGRES_PAR_RADIAN * 16.0));
    const int angle = static_cast<int>(std::lround(etendue * DEGRES_PAR_RADIAN * 16.0));
    const QPen stylet = Stylet(stylo);
    const bool plein = stylo.style == TRAIT_INTERIEUR;
    const QColor c = VersQt(stylo.couleur);
    Garder([cadre, depart, angle, stylet, plein, c](QPainter& p) {
        p.setPen(stylet);
        p.setBrush(plein ? QBrush(c) : QBrush(Qt::NoBrush));
        p.drawArc(cadre, depart, angle);
    });
}

void PageQt::Cercle(double cx, double cy, double rayon, const Stylo& stylo) {
    const QPointF centre(cx * pixelsParMm_, cy * pixelsParMm_);
    const double r = rayon * pixelsParMm_;
    const QPen stylet = Stylet(stylo);
    const bool plein = stylo.style == TRAIT_INTERIEUR;
    const QColor c = VersQt(stylo.couleur);
    Garder([centre, r, stylet, plein, c](QPainter& p) {
        p.setPen(stylet);
        p.setBrush(plein ? QBrush(c) : QBrush(Qt::NoBrush));
        p.drawEllipse(centre, r, r);
    });
}

void PageQt::NouvellePage() {
    copie_.emplace_back();
}

void PageQt::Terminer() {
    for (const std::vector<Trace>& page : copie_) {
        if (!commence_) {
            commence_ = true;
            reussi_ = peintre_.begin(&support_);
        } else if (reussi_) {
            support_.newPage();
        }
        if (!reussi_) break;
        peintre_.setRenderHint(QPainter::Antialiasing, true);
        for (const Trace& trace : page)
            trace(peintre_);
        ++pages_;
    }
    copie_.clear();
}

void PageQt::Abandonner() {
    copie_.clear();
}

void PageQt::Fermer() {
    if (peintre_.isActive()) peintre_.end();
}

} // namespace tournesol
