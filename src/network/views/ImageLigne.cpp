#include "network/views/ImageLigne.h"

#include "core/Champ.h"
#include "core/Panneau.h"
#include "core/views/FenetrePanneau.h"
#include "core/views/Lieur.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace tournesol {

ImageLigne::ImageLigne(const Champ& champ, QWidget* parent) : QWidget(parent), champ_(champ) {
    setObjectName(QString::fromStdString(champ.Nom));
    setMinimumSize(320, 160);
    setCursor(Qt::PointingHandCursor);
}

std::vector<QPointF> ImageLigne::Bouts() const {
    const double w = width(), h = height();
    if (champ_.Texte().find('C') == std::string::npos)
        return {{0.12 * w, 0.5 * h}, {0.88 * w, 0.5 * h}};
    return {{0.1 * w, 0.35 * h}, {0.9 * w, 0.35 * h}, {0.5 * w, 0.9 * h}};
}

void ImageLigne::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), palette().base());
    const auto bouts = Bouts();
    const QPointF milieu(width() * 0.5, height() * 0.35);
    QPen ligne(palette().text().color(), 2.5);
    p.setPen(ligne);
    if (bouts.size() == 2) {
        p.drawLine(bouts[0], bouts[1]);
    } else {
        for (const QPointF& b : bouts)
            p.drawLine(milieu, b);
        p.drawText(milieu + QPointF(6, -8), "P");
        // The fault points at the first zone's limit on the sections P-B and P-C.
        p.setPen(QPen(palette().text().color(), 1.5));
        const QPointF dab = milieu + 0.6 * (bouts[1] - milieu);
        const QPointF dac = milieu + 0.6 * (bouts[2] - milieu);
        for (const QPointF& d : {dab, dac}) {
            p.drawLine(d + QPointF(-4, -4), d + QPointF(4, 4));
            p.drawLine(d + QPointF(-4, 4), d + QPointF(4, -4));
        }
        p.drawText(dab + QPointF(-12, 18), "DAB");
        p.drawText(dac + QPointF(8, 4), "DAC");
    }
    const char* noms[] = {"A", "B", "C"};
    QFont f = font();
    f.setBold(true);
    p.setFont(f);
    for (std::size_t i = 0; i < bouts.size(); ++i) {
        // A substation: a bar across the line's end.
        p.setPen(QPen(palette().text().color(), 4));
        if (i == 2)
            p.drawLine(bouts[i] + QPointF(-14, 0), bouts[i] + QPointF(14, 0));
        else
            p.drawLine(bouts[i] + QPointF(0, -14), bouts[i] + QPointF(0, 14));
        // The name above its bar; C, at the foot of the tee, beside it.
        p.drawText(bouts[i] + (i == 2 ? QPointF(20, 5) : QPointF(-4, -20)), noms[i]);
        if (static_cast<int>(i) == champ_.IndexListe) {
            // The relay: a red box beside its substation, pointing into the line.
            const double sens = bouts[i].x() < width() / 2.0 ? 1.0 : -1.0;
            const QPointF r = bouts[i] + QPointF(sens * 16.0, 0.0);
            p.setPen(QPen(Qt::red, 2));
            p.setBrush(QColor(255, 220, 220));
            p.drawRect(QRectF(r.x() - 8, r.y() - 8, 16, 16));
            p.drawText(r + QPointF(-4, 26), "R");
            p.setBrush(Qt::NoBrush);
        }
    }
}

void ImageLigne::mousePressEvent(QMouseEvent* ev) {
    const auto bouts = Bouts();
    int proche = 0;
    double meilleure = 1e300;
    for (std::size_t i = 0; i < bouts.size(); ++i) {
        const QPointF d = ev->position() - bouts[i];
        const double distance = std::hypot(d.x(), d.y());
        if (distance < meilleure) {
            meilleure = distance;
            proche = static_cast<int>(i);
        }
    }
    if (Choisir) Choisir(proche);
}

void InscrireVuesReseau() {
    FenetrePanneau::InscrireWidget(
        "placerprotection", [](Panneau& modele, const Champ& c, QWidget* parent) -> QWidget* {
            // A click on an end places the relay there.
            auto* image = new ImageLigne(c, parent);
            image->Choisir = [&modele, image](int bout) {
                modele.Cliquer("placerprotection(" + std::to_string(bout) + ")");
                if (auto* fenetre = qobject_cast<FenetrePanneau*>(image->window()))
                    fenetre->Liaison()->Rafraichir(), fenetre->Apres();
            };
            return image;
        });
}

} // namespace tournesol
