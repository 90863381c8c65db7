#include "diagram/views/BasDuDiagramme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <string>

namespace tournesol {

QHBoxLayout* BasDuDiagramme(QWidget* parent) {
    auto* bas = new QHBoxLayout;
    for (const char* nom : {"coordonnées", "status"}) {
        auto* etiquette = new QLabel(parent);
        etiquette->setObjectName(nom);
        etiquette->setWordWrap(true);
        etiquette->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        etiquette->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        etiquette->setFixedHeight(2 * etiquette->fontMetrics().lineSpacing() + 4);
        bas->addWidget(etiquette, std::string(nom) == "status" ? 3 : 1);
    }
    return bas;
}

} // namespace tournesol
