// frmImpress: the progress panel of a print, its text (printstatus) above its bar (printbar), as
// the engine's progress leaves them. Escape on the panel asks the print to stop.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

class QLabel;
class QProgressBar;

namespace tournesol {

class FenetreProgression : public QDialog {
    Q_OBJECT
public:
    explicit FenetreProgression(QWidget* parent);
    // What the engine tells (EtatImpression::SuiviProgression): the panel shown with that text
    // and value, or closed.
    void Suivre(bool ouvert, double valeur, const std::string& texte);
    // Escape or the close box while the panel is up; true when the print stops, and the panel
    // then closes at once.
    std::function<bool()> Echap;

protected:
    void reject() override;
    void closeEvent(QCloseEvent* evenement) override;

private:
    QLabel* texte_;
    QProgressBar* barre_;
};

} // namespace tournesol
