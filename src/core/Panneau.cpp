#include "core/Panneau.h"

#include <algorithm>
#include <utility>

namespace tournesol {

Champ* Panneau::Trouver(std::string_view nom) {
    if (indexes_ != champs_.size()) {
        // The names are those of the fields themselves: made again whenever the fields moved.
        index_.clear();
        index_.reserve(champs_.size());
        for (std::size_t i = 0; i < champs_.size(); ++i)
            index_.emplace_back(champs_[i].Nom, i);
        std::sort(index_.begin(), index_.end()); // by name, then in the order made
        indexes_ = champs_.size();
    }
    const auto it = std::lower_bound(index_.begin(), index_.end(), nom,
                                     [](const auto& a, std::string_view n) { return a.first < n; });
    return it != index_.end() && it->first == nom ? &champs_[it->second] : nullptr;
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
