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

Champ& Panneau::Ajouter(GenreChamp genre, const std::string& nom, const std::string& texte,
                        const std::string& groupe) {
    Champ& c = AjouterChamp(Champ(nom, texte, ""));
    c.Genre = genre;
    c.Groupe = groupe;
    return c;
}

} // namespace tournesol
