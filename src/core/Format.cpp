#include "core/Format.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace tournesol {

namespace {

char separateur = '.';

// Significant digits of a double as the run-time writes it.
constexpr int CHIFFRES_SIGNIFICATIFS = 15;

enum class Genre { Zero, Diese, Groupe, Litteral };

struct Jeton {
    Genre genre;
    std::string texte; // for a literal
};

// One section of a picture, split at its decimal point.
struct Image {
    std::vector<Jeton> entier;
    std::vector<Jeton> decimales;
    bool point = false;
    bool pourcent = false;
    bool groupe = false;
    char signeGroupe = ' ';
    int nbDecimales = 0;
    int decimalesObligatoires = 0; // up to the last '0' after the point
    int entiersObligatoires = 0;   // the '0' before the point
    bool chiffres = false;         // any digit place at all
};

bool EstChiffre(const Jeton& j) {
    return j.genre == Genre::Zero || j.genre == Genre::Diese;
}

std::vector<std::string_view> Sections(std::string_view format) {
    std::vector<std::string_view> sections;
    std::size_t debut = 0;
    bool guillemets = false;
    for (std::size_t i = 0; i < format.size(); ++i) {
        const char c = format[i];
        if (c == '"')
            guillemets = !guillemets;
        else if (c == '\\' && !guillemets)
            ++i;
        else if (c == ';' && !guillemets) {
            sections.push_back(format.substr(debut, i - debut));
            debut = i + 1;
        }
    }
    sections.push_back(format.substr(debut));
    return sections;
}

Image Analyser(std::string_view section) {
    Image image;
    auto ajouter = [&image](Jeton j) {
        (image.point ? image.decimales : image.entier).push_back(std::move(j));
    };
    auto litteral = [&ajouter](std::string texte) { ajouter({Genre::Litteral, std::move(texte)}); };
    for (std::size_t i = 0; i < section.size(); ++i) {
        const char c = section[i];
        switch (c) {
        case '#':
        case '0':
            ajouter({c == '0' ? Genre::Zero : Genre::Diese, {}});
            image.chiffres = true;
            break;
        case '.':
            if (image.point)
                litteral(".");
            else
                image.point = true;
            break;
        case '%':
            image.pourcent = true;
            litteral("%");
            break;
        case '\\':
            if (i + 1 < section.size()) litteral(std::string(1, section[++i]));
            break;
        case '"': {
            const std::size_t fin = section.find('"', i + 1);
            const std::size_t n = (fin == std::string_view::npos ? section.size() : fin) - i - 1;
            litteral(std::string(section.substr(i + 1, n)));
            i += n + 1;
            break;
        }
        case ' ':
        case ',':
            if (!image.point)
                ajouter({Genre::Groupe, std::string(1, c)});
            else
                litteral(std::string(1, c));
            break;
        default:
            litteral(std::string(1, c));
            break;
        }
    }
    // A space or comma groups digits only between two digit places of the integer part.
    for (std::size_t k = 0; k < image.entier.size(); ++k) {
        Jeton& j = image.entier[k];
        if (j.genre != Genre::Groupe) continue;
        bool avant = false, apres = false;
        for (std::size_t a = 0; a < k; ++a)
            avant = avant || EstChiffre(image.entier[a]);
        for (std::size_t a = k + 1; a < image.entier.size(); ++a)
            apres = apres || EstChiffre(image.entier[a]);
        if (avant && apres) {
            image.groupe = true;
            image.signeGroupe = j.texte[0];
        } else {
            j.genre = Genre::Litteral;
        }
    }
    for (const Jeton& j : image.entier)
        image.entiersObligatoires += j.genre == Genre::Zero;
    for (const Jeton& j : image.decimales) {
        if (!EstChiffre(j)) continue;
        ++image.nbDecimales;
        if (j.genre == Genre::Zero) image.decimalesObligatoires = image.nbDecimales;
    }
    return image;
}

// |valeur| rounded to nbDecimales, halves away from zero, on the value's decimal form of
// fifteen significant digits. Integer digits without leading zeros; exactly nbDecimales
// decimal digits.
void Decomposer(double valeur, int nbDecimales, std::string& entier, std::string& decimales) {
    entier.clear();
    decimales.clear();
    valeur = std::fabs(valeur);
    std::string chiffres;
    int avantPoint = 0; // digits of `chiffres` before the decimal point
    if (valeur != 0.0) {
        char tampon[64] = {};
        std::to_chars(tampon, tampon + sizeof tampon - 1, valeur, std::chars_format::scientific,
                      CHIFFRES_SIGNIFICATIFS - 1);
        chiffres.push_back(tampon[0]);
        chiffres.append(tampon + 2, tampon + 1 + CHIFFRES_SIGNIFICATIFS);
        avantPoint = std::atoi(tampon + 2 + CHIFFRES_SIGNIFICATIFS) + 1;
        const int garder = avantPoint + nbDecimales;
        if (garder < 0) {
            chiffres.clear();
        } else if (garder < static_cast<int>(chiffres.size())) {
            const bool haut = chiffres[static_cast<std::size_t>(garder)] >= '5';
            chiffres.resize(static_cast<std::size_t>(garder));
            if (haut) {
                int k = garder - 1;
                while (k >= 0 && chiffres[static_cast<std::size_t>(k)] == '9')
                    chiffres[static_cast<std::size_t>(k--)] = '0';
                if (k >= 0) {
                    ++chiffres[static_cast<std::size_t>(k)];
                } else {
                    chiffres.insert(chiffres.begin(), '1');
                    ++avantPoint;
                }
            }
        }
    }
    if (avantPoint > 0) {
        chiffres.resize(std::max(chiffres.size(), static_cast<std::size_t>(avantPoint)), '0');
        entier = chiffres.substr(0, static_cast<std::size_t>(avantPoint));
        decimales = chiffres.substr(static_cast<std::size_t>(avantPoint));
    } else {
        decimales = std::string(static_cast<std::size_t>(-avantPoint), '0') + chiffres;
    }
    decimales.resize(static_cast<std::size_t>(nbDecimales), '0');
    const std::size_t premier = entier.find_first_not_of('0');
    entier.erase(0, premier == std::string::npos ? entier.size() : premier);
}

std::string Groupe(const std::string& chiffres, char signe) {
    std::string resultat;
    for (std::size_t i = 0; i < chiffres.size(); ++i) {
        if (i > 0 && (chiffres.size() - i) % 3 == 0) resultat.push_back(signe);
        resultat.push_back(chiffres[i]);
    }
    return resultat;
}

std::string PartieEntiere(const Image& image, const std::string& chiffres) {
    std::size_t premier = image.entier.size();
    for (std::size_t k = 0; k < image.entier.size(); ++k)
        if (EstChiffre(image.entier[k])) {
            premier = k;
            break;
        }
    if (image.groupe) {
        // Literals around the digit places stay in place; the digits come grouped by three.
        std::string avant, apres;
        bool vu = false;
        for (const Jeton& j : image.entier) {
            if (EstChiffre(j))
                vu = true;
            else if (j.genre == Genre::Litteral)
                (vu ? apres : avant) += j.texte;
        }
        return avant + Groupe(chiffres, image.signeGroupe) + apres;
    }
    // Digits fill the places from the right; the leftmost place takes all that remain.
    std::string inverse;
    int i = static_cast<int>(chiffres.size()) - 1;
    for (std::size_t k = image.entier.size(); k-- > 0;) {
        const Jeton& j = image.entier[k];
        if (!EstChiffre(j)) {
            inverse.append(j.texte.rbegin(), j.texte.rend());
            continue;
        }
        if (k == premier) {
            for (; i >= 0; --i)
                inverse.push_back(chiffres[static_cast<std::size_t>(i)]);
        } else if (i >= 0) {
            inverse.push_back(chiffres[static_cast<std::size_t>(i--)]);
        }
    }
    return std::string(inverse.rbegin(), inverse.rend());
}

std::string Generale(double valeur) {
    char tampon[64];
    std::snprintf(tampon, sizeof tampon, "%.*G", CHIFFRES_SIGNIFICATIFS, valeur);
    std::string texte = tampon;
    for (char& c : texte)
        if (c == '.') c = separateur;
    return texte;
}

// The section that shows a value, and the value as that section takes it.
struct Choix {
    std::string_view section;
    double valeur;
    bool signe; // the section shows the minus sign itself
};

// A section's picture, analysed once: the formats are the program's own few literals.
const Image& ImageDe(std::string_view section) {
    struct Hachage {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const {
            return std::hash<std::string_view>{}(s);
        }
    };
    static std::unordered_map<std::string, Image, Hachage, std::equal_to<>> images;
    auto it = images.find(section);
    if (it == images.end()) it = images.emplace(std::string(section), Analyser(section)).first;
    return it->second;
}

Choix Choisir(double valeur, std::string_view format) {
    const auto sections = Sections(format);
    if (valeur == 0.0 && sections.size() > 2 && !sections[2].empty())
        return {sections[2], 0.0, false};
    if (valeur < 0.0 && sections.size() > 1 && !sections[1].empty())
        return {sections[1], -valeur, false};
    return {sections[0], valeur, true};
}

} // namespace

char SeparateurDecimal() {
    return FormaterNombre(0.0, "#.").front();
}

void DefinirSeparateurDecimal(char s) {
    separateur = s;
}

std::string FormaterNombre(double valeur, std::string_view format) {
    if (!std::isfinite(valeur)) return "Overflow";
    const Choix choix = Choisir(valeur, format);
    if (choix.section.empty()) return Generale(choix.valeur);
    const Image& image = ImageDe(choix.section);
    std::string entier, decimales;
    Decomposer(image.pourcent ? choix.valeur * 100.0 : choix.valeur, image.nbDecimales, entier,
               decimales);
    const bool negatif = choix.valeur < 0.0 && choix.signe && image.chiffres &&
                         (entier.find_first_not_of('0') != std::string::npos ||
                          decimales.find_first_not_of('0') != std::string::npos);
    if (entier.size() < static_cast<std::size_t>(image.entiersObligatoires))
        entier.insert(0, static_cast<std::size_t>(image.entiersObligatoires) - entier.size(), '0');
    std::size_t montrees = decimales.size();
    while (montrees > static_cast<std::size_t>(image.decimalesObligatoires) &&
           decimales[montrees - 1] == '0')
        --montrees;

    std::string texte = negatif ? "-" : "";
    texte += PartieEntiere(image, image.chiffres ? entier : std::string());
    if (image.point) texte.push_back(separateur);
    std::size_t place = 0;
    for (const Jeton& j : image.decimales) {
        if (!EstChiffre(j))
            texte += j.texte;
        else if (place++ < montrees)
            texte.push_back(decimales[place - 1]);
    }
    return texte;
}

double ArrondirSelonFormat(double valeur, std::string_view format) {
    if (!std::isfinite(valeur)) return valeur;
    const Choix choix = Choisir(valeur, format);
    const Image& image = ImageDe(choix.section);
    if (choix.section.empty() || !image.chiffres) return valeur;
    const double echelle = image.pourcent ? 100.0 : 1.0;
    std::string entier, decimales;
    Decomposer(valeur * echelle, image.nbDecimales, entier, decimales);
    const std::string texte = (entier.empty() ? "0" : entier) + "." + decimales + "0";
    double resultat = 0.0;
    std::from_chars(texte.data(), texte.data() + texte.size(), resultat);
    resultat /= echelle;
    return valeur < 0.0 ? -resultat : resultat;
}

int DecimalesDuFormat(std::string_view format) {
    return Analyser(Sections(format).front()).nbDecimales;
}

std::optional<double> LireNombre(std::string_view texte) {
    std::string propre;
    for (std::size_t i = 0; i < texte.size(); ++i) {
        const char c = texte[i];
        if (c == ' ' || c == '\t') continue;
        // No-break spaces (U+00A0, U+202F) group digits in some locales.
        if (c == '\xC2' && i + 1 < texte.size() && texte[i + 1] == '\xA0') {
            ++i;
            continue;
        }
        if (c == '\xE2' && i + 2 < texte.size() && texte[i + 1] == '\x80' &&
            texte[i + 2] == '\xAF') {
            i += 2;
            continue;
        }
        propre.push_back(c == separateur ? '.' : c);
    }
    if (!propre.empty() && propre.front() == '+') propre.erase(0, 1);
    if (propre.empty() || propre.front() == '+') return std::nullopt;
    double valeur = 0.0;
    const char* fin = propre.data() + propre.size();
    const auto [ptr, ec] = std::from_chars(propre.data(), fin, valeur);
    if (ec != std::errc() || ptr != fin || !std::isfinite(valeur)) return std::nullopt;
    return valeur;
}

} // namespace tournesol
