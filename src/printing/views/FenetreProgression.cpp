#include "printing/views/FenetreProgression.h"

#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <cmath>

namespace tournesol {

FenetreProgression::FenetreProgression(QWidget* parent) : QDialog(parent) {
    setObjectName("frmImpress");
    setWindowTitle("TOURNESOL");
    // While the print runs, events run between its blocks: the other windows wait.
    setWindowModality(Qt::ApplicationModal);
    auto* pile = new QVBoxLayout(this);
    texte_ = new QLabel(this);
    texte_->setObjectName("printstatus");
    texte_->setMinimumWidth(320);
    pile->addWidget(texte_);
    barre_ = new QProgressBar(this);
    barre_->setObjectName("printbar");
    barre_->setRange(0, 100);
    barre_->setValue(0);
    pile->addWidget(barre_);
}

void FenetreProgression::Suivre(bool ouvert, double valeur, const std::string& texte) {
    if (!ouvert) {
        hide();
        return;
    }
    const QString t = QString::fromStdString(texte);
    if (texte_->text() != t) texte_->setText(t);
    barre_->setValue(static_cast<int>(std::lround(valeur)));
    if (!isVisible()) show();
}

void FenetreProgression::reject() {
    if (Echap && Echap()) hide();
}

void FenetreProgression::closeEvent(QCloseEvent* evenement) {
    evenement->ignore(); // the panel goes when the print ends or stops
    reject();
}

} // namespace tournesol
