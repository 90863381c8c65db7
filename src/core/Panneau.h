// A window or panel of the system as a model: its fields by name and its handlers. Views show
// a panel's fields and forward the user's actions to these handlers.
#pragma once

#include "core/Champ.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

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
    Champ* Trouver(std::string_view nom);
    // The fields in the order they were made. A panel makes its fields when it is made: the
    // views hold on to them from then on.
    const std::vector<Champ>& Champs() const { return champs_; }

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

    // A new field; the reference holds until the next field is made.
    Champ& AjouterChamp(Champ champ);
    Champ& Ajouter(GenreChamp genre, const std::string& nom, const std::string& texte,
                   const std::string& groupe = {});
    // Room for that many more fields, made in one piece.
    void PrevoirChamps(std::size_t nombre) { champs_.reserve(champs_.size() + nombre); }
    Champ& ChampNumero(std::size_t i) { return champs_[i]; }
    std::size_t NombreChamps() const { return champs_.size(); }
    void FermerPanneau() { ferme_ = true; }
    void DefinirTitre(std::string titre) { titre_ = std::move(titre); }

private:
    std::string nom_;
    std::string titre_;
    bool ferme_ = false;
    std::vector<Champ> champs_;
    // The fields by name (the first of each name), sorted; made again at the first search after
    // a field was added. A field keeps its name for the panel's life.
    std::vector<std::pair<std::string_view, std::size_t>> index_;
    std::size_t indexes_ = 0; // the fields the index knows
};

} // namespace tournesol
