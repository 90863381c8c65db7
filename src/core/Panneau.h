// A window or panel of the system as a model: its fields by name and its handlers. Views show
// a panel's fields and forward the user's actions to these handlers.
#pragma once

#include "core/Champ.h"

#include <deque>
#include <string>
#include <unordered_map>

namespace tournesol {

class Panneau {
public:
    explicit Panneau(std::string nom) : nom_(std::move(nom)) {}
    virtual ~Panneau() = default;
    Panneau(const Panneau&) = delete;
    Panneau& operator=(const Panneau&) = delete;

    static constexpr int TOUCHE_ENTREE = 13;
    static constexpr int TOUCHE_ECHAP = 27;

    const std::string& Nom() const { return nom_; }

    // The field of that name; nullptr when the panel has none.
    Champ* Trouver(const std::string& nom);
    const std::deque<Champ>& Champs() const { return champs_; }

    // The window's title.
    const std::string& Titre() const { return titre_; }

    virtual void Entrer(const std::string& /*champ*/) {}
    virtual void Quitter(const std::string& /*champ*/) {}
    // The user changed the text of a field (typing, or an entry of its list).
    virtual void Changer(const std::string& /*champ*/) {}
    virtual void Cliquer(const std::string& /*nom*/) {}
    // A key the window did not use: Enter confirms, Escape cancels.
    virtual void Touche(int code) {
        if (code == TOUCHE_ENTREE)
            Valider();
        else if (code == TOUCHE_ECHAP)
            Annuler();
    }
    // OK: the user confirms what the panel shows.
    virtual void Valider() { FermerPanneau(); }
    virtual void Annuler() { FermerPanneau(); }
    // The close box; false when the panel stays up.
    virtual bool Fermer() {
        FermerPanneau();
        return true;
    }

    // The panel asked to be closed.
    bool Ferme() const { return ferme_; }

protected:
    // The OK (Command1) and cancel (Command2) buttons of a panel; true when `nom` was one.
    bool BoutonsOkAnnuler(const std::string& nom) {
        if (nom == "Command1")
            Valider();
        else if (nom == "Command2")
            Annuler();
        else
            return false;
        return true;
    }

    Champ& AjouterChamp(Champ champ);
    Champ& Ajouter(GenreChamp genre, const std::string& nom, const std::string& texte,
                   const std::string& groupe = {});
    void FermerPanneau() { ferme_ = true; }
    void DefinirTitre(std::string titre) { titre_ = std::move(titre); }

private:
    std::string nom_;
    std::string titre_;
    bool ferme_ = false;
    std::deque<Champ> champs_; // stable references for the views
    // The first field of each name; a field keeps its name for the panel's life.
    std::unordered_map<std::string, Champ*> index_;
};

} // namespace tournesol
