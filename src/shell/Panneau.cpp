#include "shell/Panneau.h"

namespace tournesol {

Champ* Panneau::Trouver(const std::string& nom) {
    for (Champ& c : champs_)
        if (c.Nom == nom) return &c;
    return nullptr;
}

Champ& Panneau::AjouterChamp(Champ champ) {
    return champs_.emplace_back(std::move(champ));
}

} // namespace tournesol
