// The window of every relay panel. One tab per sheet of the panel; in a sheet, its frames (the
// part of a field's group after '/'); in a frame, a row per value: the secondary ohms on the
// left, the primary ohms of the same value (its twin) on the right, each followed by its unit,
// under the headers "secondary" and "primary" where the frame has both. Desired values are
// typed in, set values only shown, as the model says. Changing the tab asks the model, which
// may refuse; letters typed with Alt down and Enter go to the model. A dialog of a relay's own
// sheets (a PanneauFeuilles) opens in the same window, its commands under the sheets.
#pragma once

#include "core/views/FenetrePanneau.h"

#include <vector>

class QLabel;
class QTabWidget;

namespace tournesol {

class PanneauTable;
class DialogueQt;

class FenetreRelais : public FenetrePanneau {
    Q_OBJECT
public:
    explicit FenetreRelais(PanneauTable& modele, QWidget* parent = nullptr);

protected:
    void ApresHandler() override;
    void keyPressEvent(QKeyEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void ChangerOnglet(int i);
    void Raccourci(int touche, bool alt);
    void HauteurTexte(QLabel* texte);

    // A row of a frame: its caption, and each field with its unit.
    struct LigneCadre {
        QLabel* legende = nullptr;
        std::vector<std::pair<QWidget*, QLabel*>> champs;
    };

    PanneauTable& relais_;
    QTabWidget* onglets_ = nullptr;
    std::vector<LigneCadre> lignes_;
    std::vector<QLabel*> textes_; // the texts across a frame, wrapped
    bool synchro_ = false;        // the tab is being set from the model
};

// Every relay panel (a PanneauProtection) and every dialog of a relay's sheets (a
// PanneauFeuilles) shown by the dialogue opens in a FenetreRelais.
void InscrireFenetreRelais(DialogueQt& dialogue);

} // namespace tournesol
