// The one binder between a panel model and its window: every widget (or menu action) whose
// objectName is a field's name shows that field, and forwards focus, typing, clicks to the
// model's handlers. After each handler the whole window is brought up to date.
#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace tournesol {

class Panneau;

class Lieur : public QObject {
    Q_OBJECT
public:
    // `apres` runs after every handler (the window closes when the model asks it).
    Lieur(QWidget* racine, Panneau& modele, std::function<void()> apres);
    // Model to widgets.
    void Rafraichir();
    // A frame whose fields are all hidden (that does not apply to this line) goes with them;
    // one that the model shows or hides by its own field keeps the model's word. A window that
    // hides captions of its own after Rafraichir calls it again.
    void AjusterCadres();
    // Names of the model's fields that have no widget, and of named input widgets that have no
    // field.
    QStringList ChampsSansWidget() const;
    QStringList WidgetsSansChamp() const;

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void Apres();

    QWidget* racine_;
    Panneau& modele_;
    std::function<void()> apres_;
    bool occupe_ = false;
};

} // namespace tournesol
