// Arrays of controls: the fields "name(index)" of one array, as the network panels name them
// (indexed by section, by end, or by the value itself for the option groups of Up, Ip, Is).
#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <string_view>

namespace tournesol {

// "name(index)".
inline std::string NomIndice(std::string_view tableau, int indice) {
    return std::string(tableau) + "(" + std::to_string(indice) + ")";
}

// The index of a field of that array; nothing for a field of another name.
inline std::optional<int> IndiceDe(std::string_view nom, std::string_view tableau) {
    if (nom.size() < tableau.size() + 3 || nom.substr(0, tableau.size()) != tableau ||
        nom[tableau.size()] != '(' || nom.back() != ')')
        return std::nullopt;
    const std::string_view chiffres =
        nom.substr(tableau.size() + 1, nom.size() - tableau.size() - 2);
    int indice = 0;
    const auto [fin, erreur] =
        std::from_chars(chiffres.data(), chiffres.data() + chiffres.size(), indice);
    if (erreur != std::errc{} || fin != chiffres.data() + chiffres.size()) return std::nullopt;
    return indice;
}

} // namespace tournesol
