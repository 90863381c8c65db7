#include "core/Panneau.h"

namespace tournesol {

Champ* Panneau::Trouver(const std::string& nom) {
    const auto it = index_.find(nom);
    return it == index_.end() ? nullptr : it->second;
}

Champ& Panneau::AjouterChamp(Champ champ) {
    Champ& c = champs_.emplace_back(std::move(champ));
    index_.emplace(c.Nom, &c);
    return c;
}

Champ& Panneau::Ajouter(GenreChamp genre, const std::string& nom, const std::string& texte,
                        const std::string& groupe) {
    Champ& c = AjouterChamp(Champ(nom, texte, ""));
    c.Genre = genre;
    c.Groupe = groupe;
    return c;
}

} // namespace tournesol
