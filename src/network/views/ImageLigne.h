// The picture of a line in the two- and three-ended panels: its ends A, B (and C around the tee
// point P), the relay's end marked. A click near an end puts the relay there.
#pragma once

#include <QWidget>
#include <functional>

namespace tournesol {

struct Champ;

class ImageLigne : public QWidget {
    Q_OBJECT
public:
    // The field's text names the ends ("A-B" or "A-B-C"); its list index is the relay's end.
    ImageLigne(const Champ& champ, QWidget* parent);
    std::function<void(int)> Choisir;

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent*) override;

private:
    std::vector<QPointF> Bouts() const;
    const Champ& champ_;
};

// Registers the picture for the field placerprotection of the line panels.
void InscrireVuesReseau();

} // namespace tournesol
