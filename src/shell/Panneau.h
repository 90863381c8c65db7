// A window or panel of the system as a model: its fields by name and its handlers. Views show
// a panel's fields and forward the user's actions to these handlers.
#pragma once

#include "network/Champ.h"

#include <deque>
#include <string>

namespace tournesol {

class Panneau {
public:
    explicit Panneau(std::string nom) : nom_(std::move(nom)) {}
    virtual ~Panneau() = default;
    Panneau(const Panneau&) = delete;
    Panneau& operator=(const Panneau&) = delete;

    const std::string& Nom() const { return nom_; }

    // The field of that name; nullptr when the panel has none.
    Champ* Trouver(const std::string& nom);
    const std::deque<Champ>& Champs() const { return champs_; }

    virtual void Entrer(const std::string& /*champ*/) {}
    virtual void Quitter(const std::string& /*champ*/) {}
    virtual void Cliquer(const std::string& /*nom*/) {}
    // OK: the user confirms what the panel shows.
    virtual void Valider() {}
    virtual void Annuler() {}

protected:
    Champ& AjouterChamp(Champ champ);

private:
    std::string nom_;
    std::deque<Champ> champs_; // stable references for the views
};

} // namespace tournesol
