#include "core/views/FenetrePanneau.h"

#include "core/Panneau.h"
#include "core/views/Lieur.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <map>

namespace tournesol {

namespace {
QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

// The room a window's frame and title take around it on a desktop.
constexpr int CADRE_LARGEUR = 16;
constexpr int CADRE_HAUTEUR = 48;

// A scroll area that asks for the whole of its content (the toolkit's own asks for a small
// fixed size) and leaves the room of its vertical bar, so that no horizontal bar is needed once
// the content is cut in height.
class ZoneDefilante : public QScrollArea {
public:
    explicit ZoneDefilante(QWidget* parent) : QScrollArea(parent) {}
    QSize sizeHint() const override {
        if (!widget()) return QScrollArea::sizeHint();
        const int cadre = 2 * frameWidth();
        return widget()->sizeHint().expandedTo(widget()->minimumSize()) +
               QSize(cadre + Barre(), cadre);
    }
    QSize minimumSizeHint() const override {
        if (!widget()) return QScrollArea::minimumSizeHint();
        const int cadre = 2 * frameWidth();
        const QSize contenu = widget()->minimumSizeHint().expandedTo(widget()->minimumSize());
        return {contenu.width() + cadre + Barre(), std::min(contenu.height() + cadre, 120)};
    }

private:
    int Barre() const { return verticalScrollBar()->sizeHint().width() + 4; }
};

std::map<std::string, FenetrePanneau::FabriqueWidget>& WidgetsInscrits() {
    static std::map<std::string, FenetrePanneau::FabriqueWidget> widgets;
    return widgets;
}
} // namespace

void FenetrePanneau::InscrireWidget(const std::string& nomChamp, FabriqueWidget fabrique) {
    WidgetsInscrits()[nomChamp] = std::move(fabrique);
}

FenetrePanneau::FenetrePanneau(Panneau& modele, QWidget* parent)
    : QDialog(parent), modele_(modele) {
    setObjectName(Q(modele.Nom()));
    setWindowTitle(Q(modele.Titre()));
}

QWidget* FenetrePanneau::CreerWidget(Panneau& modele, const Champ& c, QWidget* parent) {
    QWidget* w = nullptr;
    switch (c.Genre) {
    case GenreChamp::Texte:
        w = new QLineEdit(parent);
        break;
    case GenreChamp::Liste: {
        auto* liste = new QComboBox(parent);
        liste->setEditable(true);
        liste->setInsertPolicy(QComboBox::NoInsert);
        liste->setMinimumWidth(220);
        w = liste;
        break;
    }
    case GenreChamp::Option:
        w = new QRadioButton(Q(c.Texte()), parent);
        break;
    case GenreChamp::Case:
        w = new QCheckBox(Q(c.Texte()), parent);
        break;
    case GenreChamp::Bouton: {
        auto* bouton = new QPushButton(Q(c.Texte()), parent);
        bouton->setAutoDefault(false);
        w = bouton;
        break;
    }
    case GenreChamp::Etiquette: {
        const auto& widgets = WidgetsInscrits();
        if (const auto it = widgets.find(c.Nom); it != widgets.end())
            return it->second(modele, c, parent);
        auto* etiquette = new QLabel(Q(c.Texte()), parent);
        etiquette->setWordWrap(true);
        w = etiquette;
        break;
    }
    }
    w->setObjectName(Q(c.Nom));
    if (!c.Aide.empty()) w->setToolTip(Q(c.Aide.Texte()));
    return w;
}

void FenetrePanneau::Construire(Panneau& modele, const std::string& groupe, QFormLayout* formulaire,
                                QBoxLayout* boutons, QWidget* parent) {
    for (const Champ& c : modele.Champs()) {
        if (c.Groupe != groupe || (c.Genre == GenreChamp::Etiquette && c.Nom == groupe)) continue;
        QWidget* w = CreerWidget(modele, c, parent);
        if (c.Genre == GenreChamp::Texte || c.Genre == GenreChamp::Liste)
            formulaire->addRow(Q(c.Legende.Texte()), w);
        else if (c.Genre == GenreChamp::Bouton && boutons)
            boutons->addWidget(w);
        else
            formulaire->addRow(w);
    }
}

QScrollArea* FenetrePanneau::Defilante(QWidget* contenu, QWidget* parent) {
    auto* zone = new ZoneDefilante(parent);
    zone->setObjectName(contenu->objectName().isEmpty() ? QString("zoneDefilante")
                                                        : contenu->objectName() + "_zone");
    zone->setWidgetResizable(true);
    zone->setFrameShape(QFrame::NoFrame);
    zone->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // its width is asked for
    zone->setWidget(contenu);
    return zone;
}

QSize FenetrePanneau::TailleSurEcran(const QWidget& fenetre) {
    QSize taille = fenetre.sizeHint().expandedTo(fenetre.minimumSizeHint());
    if (const QScreen* ecran = fenetre.screen()) {
        const QSize place = ecran->availableGeometry().size() - QSize(CADRE_LARGEUR, CADRE_HAUTEUR);
        taille = taille.boundedTo(place).expandedTo(fenetre.minimumSizeHint());
    }
    return taille;
}

void FenetrePanneau::setVisible(bool visible) {
    if (visible && !testAttribute(Qt::WA_Resized)) {
        ensurePolished();
        if (layout()) layout()->activate();
        resize(TailleSurEcran(*this));
    }
    QDialog::setVisible(visible);
    // A window of options alone (the relay choice) starts on the option chosen, so that the
    // arrow keys move the choice from there.
    if (visible && !findChild<QLineEdit*>() && !findChild<QComboBox*>())
        for (QRadioButton* option : findChildren<QRadioButton*>())
            if (option->isChecked()) {
                option->setFocus();
                break;
            }
}

void FenetrePanneau::ConstruireGenerique() {
    auto* fenetre = new QVBoxLayout(this);
    // Everything but the command buttons scrolls when the screen is too small.
    auto* corps = new QWidget(this);
    auto* pile = new QVBoxLayout(corps);
    pile->setContentsMargins(0, 0, 0, 0);
    fenetre->addWidget(Defilante(corps, this), 1);
    std::vector<std::string> groupes;
    for (const Champ& c : modele_.Champs())
        if (std::find(groupes.begin(), groupes.end(), c.Groupe) == groupes.end())
            groupes.push_back(c.Groupe.Texte());
    // A group written "Tab/Group" stands in the page of that tab.
    QTabWidget* onglets = nullptr;
    std::map<QString, QVBoxLayout*> pages;
    auto page = [&](const QString& titre) -> QVBoxLayout* {
        if (!onglets) {
            onglets = new QTabWidget(this);
            onglets->setObjectName("Onglets");
            onglets->setUsesScrollButtons(false); // every tab's title in full
            onglets->tabBar()->setMouseTracking(true);
            onglets->tabBar()->installEventFilter(this);
            pile->addWidget(onglets);
        }
        if (!pages.count(titre)) {
            auto* feuille = new QWidget(onglets);
            auto* disposition = new QVBoxLayout(feuille);
            onglets->addTab(feuille, titre);
            pages[titre] = disposition;
        }
        return pages[titre];
    };
    auto* boutons = new QHBoxLayout;
    for (const std::string& groupe : groupes) {
        if (groupe.empty()) {
            auto* formulaire = new QFormLayout;
            Construire(modele_, groupe, formulaire, boutons, this);
            pile->addLayout(formulaire);
            continue;
        }
        const QString nom = Q(groupe);
        const qsizetype barre = nom.indexOf('/');
        QVBoxLayout* cible = barre >= 0 ? page(nom.left(barre)) : pile;
        auto* cadre = new QGroupBox(barre >= 0 ? nom.mid(barre + 1) : QString(), this);
        if (Champ* titre = modele_.Trouver(groupe); titre && titre->Genre == GenreChamp::Etiquette)
            cadre->setObjectName(nom);
        auto* formulaire = new QFormLayout(cadre);
        Construire(modele_, groupe, formulaire, nullptr, cadre);
        cible->addWidget(cadre);
    }
    for (auto& [titre, disposition] : pages)
        disposition->addStretch();
    boutons->addStretch();
    fenetre->addLayout(boutons);
    Lier();
}

void FenetrePanneau::Lier() {
    lieur_ = new Lieur(this, modele_, [this] { Apres(); });
    ApresHandler();
}

void FenetrePanneau::Apres() {
    ApresHandler();
    update();
    if (modele_.Ferme()) accept();
}

bool FenetrePanneau::eventFilter(QObject* objet, QEvent* evenement) {
    if (auto* barre = qobject_cast<QTabBar*>(objet);
        barre && (evenement->type() == QEvent::MouseMove || evenement->type() == QEvent::Leave)) {
        const int onglet =
            evenement->type() == QEvent::Leave
                ? -1
                : barre->tabAt(static_cast<QMouseEvent*>(evenement)->position().toPoint());
        if (onglet != ongletSurvole_) {
            ongletSurvole_ = onglet;
            if (onglet >= 0) {
                modele_.Entrer(barre->tabText(onglet).toStdString());
                if (lieur_) lieur_->Rafraichir();
                ApresHandler();
            }
        }
    }
    return QDialog::eventFilter(objet, evenement);
}

void FenetrePanneau::keyPressEvent(QKeyEvent* evenement) {
    if (evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter) {
        // The field being typed in is left first, as when the user moves away from it.
        if (QWidget* focus = focusWidget()) focus->clearFocus();
        modele_.Touche(Panneau::TOUCHE_ENTREE);
        lieur_->Rafraichir();
        ApresHandler();
        if (modele_.Ferme()) accept();
        return;
    }
    QDialog::keyPressEvent(evenement);
}

void FenetrePanneau::reject() {
    modele_.Touche(Panneau::TOUCHE_ECHAP);
    if (lieur_) lieur_->Rafraichir();
    ApresHandler();
    if (modele_.Ferme()) QDialog::accept();
}

void FenetrePanneau::closeEvent(QCloseEvent* evenement) {
    if (modele_.Ferme() || modele_.Fermer()) {
        evenement->accept();
        QDialog::accept();
        return;
    }
    if (lieur_) lieur_->Rafraichir();
    evenement->ignore();
}

} // namespace tournesol
