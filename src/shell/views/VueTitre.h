// The opening dialog's window: two pages of boxes, the options and the commands.
#pragma once

#include "core/views/FenetrePanneau.h"

class QTabWidget;

namespace tournesol {

class PanneauTitre;

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

} // namespace tournesol
