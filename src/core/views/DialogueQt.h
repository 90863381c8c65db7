// The dialogue of the desktop application: frmMessage and frmQuery, the panels' windows, the
// hourglass.
#pragma once

#include "core/Dialogue.h"

#include <QDialog>
#include <functional>
#include <map>
#include <memory>
#include <vector>

class QLabel;

namespace tournesol {

class FenetrePanneau;

class DialogueQt : public Dialogue {
public:
    using FabriqueVue = std::function<std::unique_ptr<FenetrePanneau>(Panneau&, DialogueQt&)>;

    DialogueQt();
    // The dedicated window of a panel; the others are built from their fields.
    void Inscrire(const std::string& panneau, FabriqueVue fabrique);
    // The window of a kind of panel (the relay panels, say): the fabrique answers nullptr for a
    // panel of another kind. Tried in order for a panel without a window of its own name.
    void InscrireGenre(FabriqueVue fabrique);

    void Message(const std::string& titre, const std::string& texte, int icone) override;
    int Question(const std::string& titre, const std::string& texte, int icone,
                 const Boutons& boutons) override;
    void MontrerPanneau(Panneau& panneau) override;
    bool Sablier(bool actif) override;
    void LaisserPasserEvenements() override;
    void Bip() override;

private:
    std::map<std::string, FabriqueVue> fabriques_;
    std::vector<FabriqueVue> genres_;
    bool sablier_ = false;
};

// frmMessage and frmQuery.
class FenetreMessage : public QDialog {
    Q_OBJECT
public:
    // No buttons: a message, closed by Enter or a click on its text. Buttons: a question that
    // only its buttons close; Result() is the index pressed.
    FenetreMessage(const QString& titre, const QString& texte, int icone,
                   const QStringList& boutons, QWidget* parent = nullptr);
    int Reponse() const { return reponse_; }

protected:
    void keyPressEvent(QKeyEvent* evenement) override;
    void closeEvent(QCloseEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;
    void reject() override;
    void showEvent(QShowEvent* evenement) override;

private:
    bool question_;
    int reponse_ = 0;
};

} // namespace tournesol
