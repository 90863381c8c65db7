#include "shell/views/VueTitre.h"

#include "core/views/Lieur.h"
#include "shell/PanneauTitre.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tournesol {

VueTitre::VueTitre(PanneauTitre& modele) : FenetrePanneau(modele), titre_(modele) {
    auto* pile = new QVBoxLayout(this);
    onglets_ = new QTabWidget(this);
    onglets_->setObjectName("Onglet");
    for (int page = 0; page < 2; ++page) {
        auto* feuille = new QWidget(onglets_);
        feuille->setObjectName(QString("options(%1)").arg(page));
        auto* formulaire = new QFormLayout(feuille);
        Construire(modele, "options(" + std::to_string(page) + ")", formulaire, nullptr, feuille);
        onglets_->addTab(feuille,
                         QString::fromStdString(
                             modele.Trouver("TitreOnglet(" + std::to_string(page) + ")")->Texte()));
    }
    pile->addWidget(onglets_);
    auto* superposer = new QCheckBox(this);
    superposer->setObjectName("chksuperposer");
    pile->addWidget(superposer);
    auto* status = new QLabel(this);
    status->setObjectName("Status");
    status->setWordWrap(true);
    pile->addWidget(status);
    auto* boutons = new QHBoxLayout;
    for (const char* nom : {"cmdOK", "cmdSupprimer", "a_propos", "cmdQuitter"}) {
        auto* bouton = new QPushButton(this);
        bouton->setObjectName(nom);
        bouton->setAutoDefault(false);
        boutons->addWidget(bouton);
    }
    pile->addLayout(boutons);
    connect(onglets_, &QTabWidget::tabBarClicked, this, [this](int page) {
        if (page < 0) return;
        titre_.Cliquer("TitreOnglet(" + std::to_string(page) + ")");
        Liaison()->Rafraichir();
        ApresHandler();
    });
    Lier();
}

void VueTitre::ApresHandler() {
    // The tabs are the pages' titles; the second shows only with two relays.
    for (int page = 0; page < 2; ++page)
        onglets_->setTabVisible(
            page, titre_.Trouver("TitreOnglet(" + std::to_string(page) + ")")->Visible);
    onglets_->setCurrentIndex(titre_.Page());
}

} // namespace tournesol
