#include "core/Champ.h"

#include "core/Erreurs.h"
#include "core/Format.h"

namespace tournesol {

namespace {
int LongueurCaracteres(const std::string& texte) {
    int n = 0;
    for (const char c : texte)
        n += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    return n;
}
} // namespace

void ChampEcrire(Champ& champ, double valeur) {
    const bool enErreur = ErreurEnAttente() != 0;
    EffacerErreurEnAttente();
    champ.Texte = FormaterNombre(enErreur ? 0.0 : valeur, champ.Format);
}

void ChampEcrire(Champ& champ, std::string_view valeur) {
    const bool enErreur = ErreurEnAttente() != 0;
    EffacerErreurEnAttente();
    if (enErreur || valeur.empty()) {
        champ.Texte = FormaterNombre(0.0, champ.Format);
        return;
    }
    // A text that is not a number is shown as it stands.
    const auto nombre = LireNombre(valeur);
    champ.Texte = nombre ? FormaterNombre(*nombre, champ.Format) : std::string(valeur);
}

double ChampLire(Champ& champ) {
    const std::size_t virgule = champ.Texte.find(',');
    if (virgule != std::string::npos) champ.Texte[virgule] = SeparateurDecimal();
    if (champ.Texte == "0" || champ.Texte == "," || champ.Texte.empty()) return 0.0;
    const auto nombre = LireNombre(champ.Texte);
    if (!nombre) return 0.0;
    return ArrondirSelonFormat(*nombre, champ.Format);
}

void ChampSelection(Champ& champ) {
    champ.SelDebut = 0;
    champ.SelLongueur = LongueurCaracteres(champ.Texte);
}

std::string Remplacer(std::string_view texte, std::string_view cherche,
                      std::string_view remplacement) {
    std::string resultat(texte);
    if (cherche.empty()) return resultat;
    std::size_t position = resultat.find(cherche);
    while (position != std::string::npos) {
        resultat.replace(position, cherche.size(), remplacement);
        position = resultat.find(cherche, position + remplacement.size());
    }
    return resultat;
}

} // namespace tournesol
