// A window over a panel model: built from the model's fields (or by a dedicated view), bound by
// name, closed when the model asks it.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

class QBoxLayout;
class QFormLayout;
class QScrollArea;

namespace tournesol {

class Panneau;
class Lieur;
struct Champ;

class FenetrePanneau : public QDialog {
    Q_OBJECT
public:
    explicit FenetrePanneau(Panneau& modele, QWidget* parent = nullptr);
    Panneau& Modele() { return modele_; }
    Lieur* Liaison() { return lieur_; }

    // The widget of a field, named as the field: a line, a list, an option, a check box, a
    // button or a text, or the widget a subsystem registered for a text of that name.
    static QWidget* CreerWidget(Panneau& modele, const Champ& c, QWidget* parent);
    // A widget of its own for the text field of that name (the picture of a line, say): the
    // subsystem that owns the panel registers it once at the program's start.
    using FabriqueWidget =
        std::function<QWidget*(Panneau& modele, const Champ& c, QWidget* parent)>;
    static void InscrireWidget(const std::string& nomChamp, FabriqueWidget fabrique);
    // Builds the widgets of every field of a group into a layout (labels from the captions).
    static void Construire(Panneau& modele, const std::string& groupe, QFormLayout* formulaire,
                           QBoxLayout* boutons, QWidget* parent);
    // The window from the model's fields alone, group by group.
    void ConstruireGenerique();
    // A part of a window that scrolls when the screen is too small for it: it asks for the room
    // of its content, and makes do with much less.
    static QScrollArea* Defilante(QWidget* contenu, QWidget* parent);
    // The size a window takes on its screen: what it asks for, within the room the screen
    // leaves once the window's frame and title are counted.
    static QSize TailleSurEcran(const QWidget& fenetre);
    // Binds the widgets once they exist.
    void Lier();
    // After each handler: the window brought up to date, closed when the model asks it.
    void Apres();
    // Shown the first time at the size it asks for, within its screen.
    void setVisible(bool visible) override;

protected:
    // The pointer resting on a tab's title enters it, as a field (the help of the transit tab).
    bool eventFilter(QObject* objet, QEvent* evenement) override;
    void keyPressEvent(QKeyEvent* evenement) override;
    void closeEvent(QCloseEvent* evenement) override;
    void reject() override;
    // After each handler: the dedicated views bring what the binder does not know up to date.
    virtual void ApresHandler() {}

    Panneau& modele_;
    Lieur* lieur_ = nullptr;
    int ongletSurvole_ = -1;
};

} // namespace tournesol
