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

const std::string& Champ::Texte() const {
    if (aFormater_) {
        texte_ = FormaterNombre(nombre_, Format);
        aFormater_ = false;
    }
    return texte_;
}

void Champ::DefinirTexte(std::string texte) {
    texte_ = std::move(texte);
    aFormater_ = false;
}

void ChampEcrire(Champ& champ, double valeur) {
    const bool enErreur = ErreurEnAttente() != 0;
    EffacerErreurEnAttente();
    champ.nombre_ = enErreur ? 0.0 : valeur;
    champ.aFormater_ = true;
}

void ChampEcrire(Champ& champ, std::string_view valeur) {
    const bool enErreur = ErreurEnAttente() != 0;
    EffacerErreurEnAttente();
    if (enErreur || valeur.empty()) {
        champ.DefinirTexte(FormaterNombre(0.0, champ.Format));
        return;
    }
    // A text that is not a number is shown as it stands.
    const auto nombre = LireNombre(valeur);
    champ.DefinirTexte(nombre ? FormaterNombre(*nombre, champ.Format) : std::string(valeur));
}

double ChampLire(Champ& champ) {
    std::string texte = champ.Texte();
    const std::size_t virgule = texte.find(',');
    if (virgule != std::string::npos) {
        texte[virgule] = SeparateurDecimal();
        champ.DefinirTexte(texte);
    }
    if (texte == "0" || texte == "," || texte.empty()) return 0.0;
    const auto nombre = LireNombre(texte);
    if (!nombre) return 0.0;
    return ArrondirSelonFormat(*nombre, champ.Format);
}

void ChampSelection(Champ& champ) {
    champ.SelDebut = 0;
    champ.SelLongueur = LongueurCaracteres(champ.Texte());
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
