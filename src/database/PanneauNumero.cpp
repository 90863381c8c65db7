#include "database/PanneauNumero.h"

#include "core/Etude.h"

#include <cctype>
#include <cmath>
#include <limits>

namespace tournesol {

double ValeurNumerique(const std::string& texte) {
    std::size_t i = 0;
    while (i < texte.size() && (texte[i] == ' ' || texte[i] == '\t'))
        ++i;
    double signe = 1.0;
    if (i < texte.size() && (texte[i] == '-' || texte[i] == '+')) {
        if (texte[i] == '-') signe = -1.0;
        ++i;
    }
    double valeur = 0.0;
    while (i < texte.size() && std::isdigit(static_cast<unsigned char>(texte[i])))
        valeur = valeur * 10.0 + (texte[i++] - '0');
    if (i < texte.size() && texte[i] == '.') {
        double poids = 0.1;
        for (++i; i < texte.size() && std::isdigit(static_cast<unsigned char>(texte[i])); ++i) {
            valeur += (texte[i] - '0') * poids;
            poids /= 10.0;
        }
    }
    return signe * valeur;
}

PanneauNumero::PanneauNumero(Etude& e) : Panneau("frmnuméro"), e_(e) {
    DefinirTitre("TOURNESOL");
    Ajouter(GenreChamp::Texte, "txtnuméro", "").Legende = "number of the relay";
    Ajouter(GenreChamp::Bouton, "cmdok", "OK");
    Ajouter(GenreChamp::Bouton, "cmdcancel", "cancel");
}

void PanneauNumero::Entrer(const std::string& champ) {
    if (champ == "txtnuméro") ChampSelection(*Trouver(champ));
}

void PanneauNumero::Cliquer(const std::string& nom) {
    if (nom == "cmdok")
        Valider();
    else if (nom == "cmdcancel")
        Annuler();
}

void PanneauNumero::Valider() {
    // Rounded to the nearest integer as the run-time assigns a 16-bit integer; a value beyond
    // that range leaves the number as it was.
    const std::string& texte = Trouver("txtnuméro")->Texte();
    if (texte.find_first_not_of(" \t") == std::string::npos) {
        FermerPanneau();
        return;
    }
    const double n = std::nearbyint(ValeurNumerique(texte));
    if (n >= std::numeric_limits<Entier16>::min() && n <= std::numeric_limits<Entier16>::max())
        e_.id_numero = static_cast<Entier16>(n);
    donne_ = true;
    FermerPanneau();
}

void PanneauNumero::Annuler() {
    FermerPanneau();
}

} // namespace tournesol
