#include "core/views/Lieur.h"

#include "core/Panneau.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QWidget>

namespace tournesol {

namespace {
QString Nom(const Champ& c) {
    return QString::fromStdString(c.Nom);
}
QString Texte(const std::string& s) {
    return QString::fromStdString(s);
}
} // namespace

Lieur::Lieur(QWidget* racine, Panneau& modele, std::function<void()> apres)
    : QObject(racine), racine_(racine), modele_(modele), apres_(std::move(apres)) {
    for (const Champ& champ : modele_.Champs()) {
        const std::string nom = champ.Nom;
        if (auto* action = racine_->findChild<QAction*>(Nom(champ))) {
            connect(action, &QAction::triggered, this, [this, nom, action](bool coche) {
                if (action->isCheckable()) modele_.Trouver(nom)->Valeur = coche;
                modele_.Cliquer(nom);
                Apres();
            });
            continue;
        }
        QWidget* w = racine_->findChild<QWidget*>(Nom(champ));
        if (!w) continue;
        if (auto* ligne = qobject_cast<QLineEdit*>(w)) {
            ligne->installEventFilter(this);
            connect(ligne, &QLineEdit::textEdited, this, [this, nom](const QString& t) {
                modele_.Trouver(nom)->DefinirTexte(t.toStdString());
                modele_.Changer(nom);
                Apres();
            });
        } else if (auto* liste = qobject_cast<QComboBox*>(w)) {
            liste->installEventFilter(this);
            if (liste->lineEdit()) {
                liste->lineEdit()->setObjectName(Nom(champ) + "_texte");
                liste->lineEdit()->installEventFilter(this);
                connect(liste->lineEdit(), &QLineEdit::textEdited, this,
                        [this, nom](const QString& t) {
                            Champ& c = *modele_.Trouver(nom);
                            c.DefinirTexte(t.toStdString());
                            c.IndexListe = -1;
                            modele_.Changer(nom);
                            Apres();
                        });
            }
            connect(liste, QOverload<int>::of(&QComboBox::activated), this,
                    [this, nom, liste](int i) {
                        Champ& c = *modele_.Trouver(nom);
                        c.DefinirTexte(liste->itemText(i).toStdString());
                        c.IndexListe = i;
                        modele_.Changer(nom);
                        Apres();
                    });
        } else if (auto* bouton = qobject_cast<QAbstractButton*>(w)) {
            connect(bouton, &QAbstractButton::clicked, this, [this, nom, bouton](bool coche) {
                if (bouton->isCheckable()) modele_.Trouver(nom)->Valeur = coche;
                modele_.Cliquer(nom);
                Apres();
            });
        }
    }
    Rafraichir();
}

bool Lieur::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() != QEvent::FocusIn && evenement->type() != QEvent::FocusOut) return false;
    QString nom = objet->objectName();
    if (nom.endsWith("_texte")) nom.chop(6);
    const std::string champ = nom.toStdString();
    if (!modele_.Trouver(champ) || occupe_) return false;
    if (evenement->type() == QEvent::FocusIn)
        modele_.Entrer(champ);
    else
        modele_.Quitter(champ);
    Apres();
    return false;
}

void Lieur::Apres() {
    Rafraichir();
    if (apres_) apres_();
}

void Lieur::Rafraichir() {
    occupe_ = true;
    for (const Champ& c : modele_.Champs()) {
        if (auto* action = racine_->findChild<QAction*>(Nom(c))) {
            action->setText(Texte(c.Texte()));
            action->setEnabled(c.Actif);
            action->setVisible(c.Visible);
            if (action->isCheckable()) action->setChecked(c.Valeur);
            continue;
        }
        QWidget* w = racine_->findChild<QWidget*>(Nom(c));
        if (!w) continue;
        w->setEnabled(c.Actif);
        if (w->isVisibleTo(w->parentWidget()) != c.Visible) w->setVisible(c.Visible);
        // A field's caption in a form goes and comes with it.
        if (w->parentWidget())
            if (auto* formulaire = qobject_cast<QFormLayout*>(w->parentWidget()->layout()))
                if (QWidget* legende = formulaire->labelForField(w)) {
                    legende->setVisible(c.Visible);
                    legende->setEnabled(c.Actif);
                }
        if (auto* ligne = qobject_cast<QLineEdit*>(w)) {
            if (ligne->text() != Texte(c.Texte())) ligne->setText(Texte(c.Texte()));
        } else if (auto* liste = qobject_cast<QComboBox*>(w)) {
            QStringList entrees;
            for (const std::string& s : c.Liste)
                entrees << Texte(s);
            QStringList actuelles;
            for (int i = 0; i < liste->count(); ++i)
                actuelles << liste->itemText(i);
            if (actuelles != entrees) {
                liste->clear();
                liste->addItems(entrees);
            }
            if (liste->currentText() != Texte(c.Texte())) liste->setEditText(Texte(c.Texte()));
        } else if (auto* bouton = qobject_cast<QAbstractButton*>(w)) {
            if (!c.Texte().empty() && bouton->text() != Texte(c.Texte()))
                bouton->setText(Texte(c.Texte()));
            if (bouton->isCheckable() && bouton->isChecked() != c.Valeur)
                bouton->setChecked(c.Valeur);
        } else if (auto* etiquette = qobject_cast<QLabel*>(w)) {
            if (etiquette->text() != Texte(c.Texte())) etiquette->setText(Texte(c.Texte()));
        } else if (auto* cadre = qobject_cast<QGroupBox*>(w)) {
            cadre->setTitle(Texte(c.Texte()));
        } else {
            w->update(); // a picture drawn from its field
        }
    }
    AjusterCadres();
    occupe_ = false;
}

void Lieur::AjusterCadres() {
    for (QGroupBox* cadre : racine_->findChildren<QGroupBox*>()) {
        if (modele_.Trouver(cadre->objectName().toStdString())) continue;
        bool rempli = false;
        for (QObject* enfant : cadre->children())
            if (auto* w = qobject_cast<QWidget*>(enfant); w && !w->isHidden()) rempli = true;
        if (cadre->isHidden() == rempli) cadre->setVisible(rempli);
    }
}

QStringList Lieur::ChampsSansWidget() const {
    QStringList manquants;
    for (const Champ& c : modele_.Champs())
        if (!racine_->findChild<QWidget*>(Nom(c)) && !racine_->findChild<QAction*>(Nom(c)))
            manquants << Nom(c);
    return manquants;
}

QStringList Lieur::WidgetsSansChamp() const {
    QStringList orphelins;
    for (QWidget* w : racine_->findChildren<QWidget*>()) {
        const bool saisie = qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) ||
                            qobject_cast<QAbstractButton*>(w);
        const QString nom = w->objectName();
        // Qt's own parts of a tab bar or a list are not the system's fields.
        const bool interne = qobject_cast<QTabBar*>(w->parentWidget()) ||
                             qobject_cast<QComboBox*>(w->parentWidget());
        if (!saisie || interne || nom.isEmpty() || nom.startsWith("qt_") || nom.endsWith("_texte"))
            continue;
        if (!modele_.Trouver(nom.toStdString())) orphelins << nom;
    }
    return orphelins;
}

} // namespace tournesol
