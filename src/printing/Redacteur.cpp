#include "printing/Redacteur.h"

#include "core/Champ.h"
#include "core/Etude.h"

#include <algorithm>

namespace tournesol {

std::string TexteSymboles(const std::string& texte) {
    std::string t = Remplacer(texte, "#W", "\xCE\xA9"); // Ω
    return Remplacer(t, "#%", "%");
}

Redacteur::Redacteur(ContexteImpression& c, CadreImpression CadresPage::*cadre, GenrePage genre)
    : Redacteur(c, cadre, cadre, genre) {}

Redacteur::Redacteur(ContexteImpression& c, CadreImpression CadresPage::*cadre,
                     CadreImpression CadresPage::*suite, GenrePage genreSuite)
    : c_(c), cadre_(cadre), suite_(suite), genre_(genreSuite), y_((c.cadres.*cadre).Top + c.e.Pas) {
}

const CadreImpression& Redacteur::Cadre() const {
    return c_.cadres.*cadre_;
}

void Redacteur::Place(int lignes) {
    const double hauteur = c_.page.HauteurTexte(" ");
    const CadreImpression& k = Cadre();
    if (y_ + lignes * hauteur <= k.Top + k.Height - c_.e.Pas) return;
    CommencerPage(c_, genre_);
    ++pages_;
    cadre_ = suite_;
    y_ = Cadre().Top + c_.e.Pas;
}

std::vector<std::string> Redacteur::Couper(const std::string& texte, double largeur) const {
    std::vector<std::string> lignes;
    std::string reste = texte;
    while (!reste.empty() && c_.page.LargeurTexte(reste) > largeur) {
        // The longest head that fits, cut after a blank; a word longer than the line goes whole.
        std::size_t coupe = std::string::npos;
        for (std::size_t i = reste.find(' '); i != std::string::npos; i = reste.find(' ', i + 1)) {
            if (c_.page.LargeurTexte(reste.substr(0, i)) > largeur) break;
            coupe = i;
        }
        if (coupe == std::string::npos || coupe == 0) {
            coupe = reste.find(' ', 1);
            if (coupe == std::string::npos) break;
        }
        lignes.push_back(reste.substr(0, coupe));
        reste.erase(0, reste.find_first_not_of(' ', coupe));
        if (reste.find_first_not_of(' ') == std::string::npos) reste.clear();
    }
    if (!reste.empty() || lignes.empty()) lignes.push_back(reste);
    return lignes;
}

void Redacteur::Ligne(const std::vector<std::pair<int, std::string>>& morceaux) {
    if (c_.e.ArretImpression) return;
    const CadreImpression& k = Cadre();
    const double pas = c_.e.Pas;
    const double droite = k.Left + k.Width - pas;
    // Each piece cut for its own width; the line takes as many lines as its longest piece.
    std::vector<std::pair<double, std::vector<std::string>>> colonnes;
    std::size_t hauteur = 1;
    for (const auto& [colonne, texte] : morceaux) {
        const double x = k.Left + pas + colonne * pas;
        colonnes.emplace_back(x, Couper(TexteSymboles(texte), std::max(droite - x, pas)));
        hauteur = std::max(hauteur, colonnes.back().second.size());
    }
    const double interligne = c_.page.HauteurTexte(" ");
    for (std::size_t n = 0; n < hauteur; ++n) {
        Place(1);
        if (c_.e.ArretImpression) return;
        for (const auto& [x, lignes] : colonnes)
            if (n < lignes.size() && !lignes[n].empty()) c_.page.TexteEn(x, y_, lignes[n], 0);
        y_ += interligne;
    }
}

} // namespace tournesol
