#include "shell/views/VueTitre.h"

#include "core/views/Lieur.h"
#include "shell/PanneauTitre.h"

#include <QApplication>
#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
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
    // "Number of the r&elay": the letter after & is the number box's shortcut.
    for (const auto& [etiquette, boite] :
         {std::pair{"lblnuméro", "txtnuméro"}, std::pair{"lblnuméro2", "txtnuméro2"}})
        if (auto* l = findChild<QLabel*>(etiquette)) l->setBuddy(findChild<QWidget*>(boite));
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

// ---- frmAPropos ----

namespace {
// The logo: a sunflower, the program's name.
QPixmap Tournesol(int cote) {
    QPixmap image(cote, cote);
    image.fill(Qt::transparent);
    QPainter peintre(&image);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.translate(cote / 2.0, cote / 2.0);
    peintre.setPen(QPen(QColor(150, 110, 0), 1));
    peintre.setBrush(QColor(250, 200, 20));
    for (int i = 0; i < 16; ++i) {
        peintre.save();
        peintre.rotate(i * 22.5);
        peintre.drawEllipse(QRectF(-cote * 0.07, -cote * 0.48, cote * 0.14, cote * 0.26));
        peintre.restore();
    }
    peintre.setBrush(QColor(110, 60, 20));
    peintre.drawEllipse(QPointF(0, 0), cote * 0.22, cote * 0.22);
    return image;
}
} // namespace

VueAPropos::VueAPropos(PanneauAPropos& modele) : FenetrePanneau(modele) {
    auto* ligne = new QHBoxLayout(this);
    auto* logo = new QLabel(this);
    logo->setObjectName("Logo");
    logo->setPixmap(Tournesol(96));
    ligne->addWidget(logo, 0, Qt::AlignTop);
    auto* textes = new QVBoxLayout;
    for (const char* nom : {"lblAnnee", "lblTexte"}) {
        auto* etiquette = new QLabel(this);
        etiquette->setObjectName(nom);
        etiquette->setWordWrap(true);
        etiquette->setMinimumWidth(320);
        textes->addWidget(etiquette);
    }
    textes->addStretch();
    ligne->addLayout(textes, 1);
    for (QLabel* l : findChildren<QLabel*>())
        l->installEventFilter(this);
    Lier();
}

void VueAPropos::keyPressEvent(QKeyEvent*) {
    modele_.Touche(0);
    Apres();
}

void VueAPropos::mousePressEvent(QMouseEvent*) {
    modele_.Cliquer("");
    Apres();
}

bool VueAPropos::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() == QEvent::MouseButtonPress) {
        mousePressEvent(nullptr);
        return true;
    }
    return FenetrePanneau::eventFilter(objet, evenement);
}

} // namespace tournesol
