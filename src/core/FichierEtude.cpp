#include "core/FichierEtude.h"

#include "core/Etude.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <fstream>
#include <functional>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>

namespace tournesol {

using Json = nlohmann::ordered_json;

namespace {

// Keys that a run writes beside the study state and that a study file may carry back.
constexpr const char* CLE_MESSAGES = "messages";
constexpr const char* CLE_DRAPEAUX = "DiagDrapeaux";
constexpr const char* CLE_VALEURS = "DiagValeurs";

[[noreturn]] void Refuser(const std::string& cle, const std::string& attendu, const Json& j) {
    throw ErreurFichierEtude(
        "key \"" + cle + "\": expected " + attendu + ", found " +
        (j.is_number() ? "the number " + j.dump() : std::string(j.type_name())));
}

// ---- JSON to values ----

double Nombre(const Json& j, const std::string& cle) {
    if (j.is_null()) return std::numeric_limits<double>::quiet_NaN();
    if (!j.is_number()) Refuser(cle, "a number", j);
    return j.get<double>();
}

template <class Entier> Entier EntierDe(const Json& j, const std::string& cle, const char* nom) {
    if (j.is_number()) {
        const double v = j.get<double>();
        if (v == std::floor(v) && v >= std::numeric_limits<Entier>::min() &&
            v <= std::numeric_limits<Entier>::max())
            return static_cast<Entier>(v);
    }
    Refuser(cle, nom, j);
}

void Lire(const Json& j, const std::string& cle, Booleen& v) {
    if (j.is_boolean()) {
        v = j.get<bool>();
        return;
    }
    if (j.is_number() && (j.get<double>() == -1.0 || j.get<double>() == 0.0)) {
        v = j.get<double>() != 0.0;
        return;
    }
    Refuser(cle, "a Boolean (true, false, -1 or 0)", j);
}
void Lire(const Json& j, const std::string& cle, Entier16& v) {
    v = EntierDe<Entier16>(j, cle, "a 16-bit integer");
}
void Lire(const Json& j, const std::string& cle, Entier32& v) {
    v = EntierDe<Entier32>(j, cle, "a 32-bit integer");
}
void Lire(const Json& j, const std::string& cle, Reel& v) {
    v = Nombre(j, cle);
}
void Lire(const Json& j, const std::string& cle, Reel32& v) {
    const double d = Nombre(j, cle);
    if (std::isfinite(d) && std::fabs(d) > std::numeric_limits<float>::max())
        Refuser(cle, "a number within the range of a 32-bit float", j);
    v = static_cast<float>(d);
}
void Lire(const Json& j, const std::string& cle, Texte& v) {
    if (!j.is_string()) Refuser(cle, "a text", j);
    v = j.get<std::string>();
}
void Lire(const Json& j, const std::string& cle, Complexe& v) {
    if (!j.is_array() || j.size() != 2 || !j[0].is_number() || !j[1].is_number())
        Refuser(cle, "a complex number [Re, Im]", j);
    v.Re = j[0].get<double>();
    v.Im = j[1].get<double>();
    CplxToPolar(v);
}
template <class T, std::size_t N>
void Lire(const Json& j, const std::string& cle, std::array<T, N>& v) {
    if (!j.is_array() || j.size() != N)
        Refuser(cle, "an array of " + std::to_string(N) + " elements", j);
    for (std::size_t i = 0; i < N; ++i)
        Lire(j[i], cle + "[" + std::to_string(i) + "]", v[i]);
}

// ---- values to JSON ----

Json Ecrire(Booleen v) {
    return v;
}
Json Ecrire(Entier16 v) {
    return v;
}
Json Ecrire(Entier32 v) {
    return v;
}
Json Ecrire(Reel v) {
    return std::isfinite(v) ? Json(v) : Json(nullptr);
}
Json Ecrire(Reel32 v) {
    if (!std::isfinite(v)) return nullptr;
    // The shortest text that reads back to the same float, kept as the double it spells.
    char tampon[32];
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, v).ptr;
    double d = 0.0;
    std::from_chars(tampon, fin, d);
    return d;
}
Json Ecrire(const Texte& v) {
    return v;
}
Json Ecrire(const Complexe& v) {
    return Json::array({Ecrire(v.Re), Ecrire(v.Im)});
}
template <class T, std::size_t N> Json Ecrire(const std::array<T, N>& v) {
    Json tableau = Json::array();
    for (const T& x : v)
        tableau.push_back(Ecrire(x));
    return tableau;
}

// ---- the rule flags and their limits: the rule numbers that are set ----

void LireDrapeaux(const Json& j, Booleens100& drapeaux) {
    if (!j.is_array()) Refuser(CLE_DRAPEAUX, "the list of the rule numbers that are set", j);
    drapeaux.fill(false);
    for (const Json& n : j) {
        const auto regle = EntierDe<Entier16>(n, CLE_DRAPEAUX, "a rule number from 1 to 100");
        if (regle < 1 || regle > NOMBRE_REGLES)
            Refuser(CLE_DRAPEAUX, "a rule number from 1 to 100", n);
        drapeaux[static_cast<std::size_t>(regle - 1)] = true;
    }
}

void LireValeurs(const Json& j, Reels100& valeurs) {
    if (!j.is_object()) Refuser(CLE_VALEURS, "an object from rule numbers to limits", j);
    for (const auto& [regle, valeur] : j.items()) {
        int n = 0;
        const auto [fin, ec] = std::from_chars(regle.data(), regle.data() + regle.size(), n);
        if (ec != std::errc() || fin != regle.data() + regle.size() || n < 1 || n > NOMBRE_REGLES)
            throw ErreurFichierEtude("key \"" + std::string(CLE_VALEURS) + "\": \"" + regle +
                                     "\" is not a rule number from 1 to 100");
        valeurs[static_cast<std::size_t>(n - 1)] =
            Nombre(valeur, std::string(CLE_VALEURS) + "." + regle);
    }
}

Json EcrireDrapeaux(const Etude& e) {
    Json liste = Json::array();
    for (int n = 1; n <= NOMBRE_REGLES; ++n)
        if (e.DiagDrapeaux[static_cast<std::size_t>(n - 1)]) liste.push_back(n);
    return liste;
}

Json EcrireValeurs(const Etude& e) {
    Json objet = Json::object();
    for (int n = 1; n <= NOMBRE_REGLES; ++n)
        if (e.DiagDrapeaux[static_cast<std::size_t>(n - 1)])
            objet[std::to_string(n)] = Ecrire(e.DiagValeurs[static_cast<std::size_t>(n - 1)]);
    return objet;
}

Json EcrireMessage(const MessageAffiche& m) {
    Json objet = {{"sTitre", m.sTitre}, {"sMessage", m.sMessage}, {"IconeMessage", m.IconeMessage}};
    if (m.Question) {
        objet["BoutonsQuestion"] = Ecrire(m.BoutonsQuestion);
        objet["ReponseQuestion"] = m.Reponse;
    }
    return objet;
}

using Lecteur = std::function<void(const Json&)>;

// Readers of every name a study file may hold for the relay `id`.
std::map<std::string, Lecteur> Lecteurs(Etude& e, int id) {
    std::map<std::string, Lecteur> lecteurs;
    auto ajouter = [&lecteurs](const char* nom, auto& variable) {
        lecteurs[nom] = [nom, &variable](const Json& j) { Lire(j, nom, variable); };
    };
    e.Visiter(ajouter);
    e.VisiterRelais(id, ajouter);
    lecteurs[CLE_DRAPEAUX] = [&e](const Json& j) { LireDrapeaux(j, e.DiagDrapeaux); };
    lecteurs[CLE_VALEURS] = [&e](const Json& j) { LireValeurs(j, e.DiagValeurs); };
    lecteurs[CLE_MESSAGES] = [](const Json& j) {
        if (!j.is_array()) Refuser(CLE_MESSAGES, "a list of messages", j);
    };
    return lecteurs;
}

// Where a character of the text stands, as an editor shows it: line and column from 1.
struct Position {
    std::size_t ligne = 1;
    std::size_t colonne = 1;
};

std::string Texte(const Position& p) {
    return "line " + std::to_string(p.ligne) + ", column " + std::to_string(p.colonne);
}

// A number too large in magnitude for a double; one too small is read as 0, as the library does.
bool AuDelaDUnDouble(const std::string& nombre) {
    double v = 0.0;
    const char* fin = nombre.data() + nombre.size();
    if (std::from_chars(nombre.data(), fin, v).ec != std::errc::result_out_of_range) return false;
    // Out of range either way: the decimal order of the first significant digit tells which.
    std::size_t i = nombre[0] == '-' ? 1 : 0;
    long long ordre = 0;
    bool significatif = false, fraction = false;
    for (; i < nombre.size() && nombre[i] != 'e' && nombre[i] != 'E'; ++i) {
        if (nombre[i] == '.') {
            fraction = true;
        } else if (significatif) {
            if (!fraction) ++ordre;
        } else if (nombre[i] != '0') {
            significatif = true;
        } else if (fraction) {
            --ordre;
        }
    }
    long long exposant = 0;
    if (i + 1 < nombre.size()) {
        const char* debut = nombre.data() + i + 1 + (nombre[i + 1] == '+' ? 1 : 0);
        if (std::from_chars(debut, fin, exposant).ec == std::errc::result_out_of_range)
            exposant = nombre[i + 1] == '-' ? -1'000'000 : 1'000'000;
    }
    return ordre + exposant > 0;
}

// The bounds that the JSON library does not hold by itself: a number must fit in a double, and
// the nesting stays shallow (a study file holds arrays of pairs in an object, a message's buttons
// in a list of objects). Runs over the text once before the library parses it, so that the
// refusal names the place; what is malformed otherwise is left to the library.
void VerifierBornes(const std::string& texte) {
    Position p;
    int profondeur = 0;
    bool dansTexte = false;
    for (std::size_t i = 0; i < texte.size(); ++i) {
        const char c = texte[i];
        const Position ici = p;
        if (c == '\n') {
            ++p.ligne;
            p.colonne = 1;
        } else {
            ++p.colonne;
        }
        if (dansTexte) {
            if (c == '\\' && i + 1 < texte.size() && texte[i + 1] != '\n') {
                ++i;
                ++p.colonne;
            } else if (c == '"') {
                dansTexte = false;
            }
            continue;
        }
        if (c == '"') {
            dansTexte = true;
        } else if (c == '[' || c == '{') {
            if (++profondeur > PROFONDEUR_ETUDE_MAX)
                throw ErreurFichierEtude("at " + Texte(ici) + ": nesting deeper than " +
                                         std::to_string(PROFONDEUR_ETUDE_MAX) + " levels");
        } else if (c == ']' || c == '}') {
            --profondeur;
        } else if ((c == '-' || (c >= '0' && c <= '9')) &&
                   (i == 0 || std::isalnum(static_cast<unsigned char>(texte[i - 1])) == 0)) {
            std::size_t fin = i + 1;
            while (fin < texte.size() &&
                   (std::isdigit(static_cast<unsigned char>(texte[fin])) != 0 ||
                    texte[fin] == '.' || texte[fin] == 'e' || texte[fin] == 'E' ||
                    texte[fin] == '+' || texte[fin] == '-'))
                ++fin;
            const std::string nombre = texte.substr(i, fin - i);
            if (AuDelaDUnDouble(nombre))
                throw ErreurFichierEtude(
                    "at " + Texte(ici) + ": the number " +
                    (nombre.size() > 40 ? nombre.substr(0, 40) + "..." : nombre) +
                    " is beyond the range of a double");
            p.colonne += fin - i - 1;
            i = fin - 1;
        }
    }
}

std::string PositionLisible(const nlohmann::json::parse_error& err) {
    // The library's text says where ("at line 3, column 14") and what; drop its own prefix.
    std::string texte = err.what();
    const std::size_t debut = texte.find("] ");
    if (debut != std::string::npos) texte.erase(0, debut + 2);
    return "malformed JSON: " + texte;
}

} // namespace

void LireEtude(const std::string& texte, Etude& e) {
    if (texte.size() > TAILLE_ETUDE_MAX)
        throw ErreurFichierEtude("the file holds " + std::to_string(texte.size()) +
                                 " bytes, more than the " + std::to_string(TAILLE_ETUDE_MAX) +
                                 " of a study file");
    VerifierBornes(texte);
    Json j;
    try {
        j = Json::parse(texte);
    } catch (const nlohmann::json::parse_error& err) {
        throw ErreurFichierEtude(PositionLisible(err));
    } catch (const nlohmann::json::exception& err) {
        // Any other refusal of the library (a number it cannot hold) is a malformed file too.
        throw ErreurFichierEtude(std::string("malformed JSON: ") + err.what());
    }
    if (!j.is_object())
        throw ErreurFichierEtude("a study file is one JSON object, found " +
                                 std::string(j.type_name()));
    // Work on a copy so that a refused file changes nothing. The relay is known first, since
    // its own names depend on it.
    Etude lue = e;
    if (const auto it = j.find("id_protection"); it != j.end())
        Lire(*it, "id_protection", lue.id_protection);
    const auto lecteurs = Lecteurs(lue, lue.id_protection);
    for (const auto& [cle, valeur] : j.items()) {
        const auto lecteur = lecteurs.find(cle);
        if (lecteur == lecteurs.end()) throw ErreurFichierEtude("unknown key \"" + cle + "\"");
        lecteur->second(valeur);
    }
    e = std::move(lue);
}

void LireFichierEtude(const std::filesystem::path& chemin, Etude& e) {
    std::ifstream fichier(chemin, std::ios::binary);
    if (!fichier) throw ErreurFichierEtude("cannot read the file " + chemin.string());
    // One byte beyond the bound is enough to refuse; a device that never ends is read no further.
    std::string contenu(TAILLE_ETUDE_MAX + 1, '\0');
    fichier.read(contenu.data(), static_cast<std::streamsize>(contenu.size()));
    if (fichier.bad()) throw ErreurFichierEtude("cannot read the file " + chemin.string());
    contenu.resize(static_cast<std::size_t>(fichier.gcount()));
    if (contenu.size() > TAILLE_ETUDE_MAX)
        throw ErreurFichierEtude("the file is larger than " + std::to_string(TAILLE_ETUDE_MAX) +
                                 " bytes, the bound of a study file");
    LireEtude(contenu, e);
}

std::string EcrireEtude(const Etude& etude, const std::vector<MessageAffiche>& messages) {
    Etude e = etude; // visiting hands out references
    Json j = Json::object();
    e.Visiter([&j](const char* nom, const auto& variable) { j[nom] = Ecrire(variable); });
    e.VisiterRelais(e.id_protection,
                    [&j](const char* nom, const auto& variable) { j[nom] = Ecrire(variable); });
    j[CLE_DRAPEAUX] = EcrireDrapeaux(e);
    j[CLE_VALEURS] = EcrireValeurs(e);
    Json liste = Json::array();
    for (const MessageAffiche& m : messages)
        liste.push_back(EcrireMessage(m));
    j[CLE_MESSAGES] = liste;
    return j.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

void PreparerImport(Etude& e) {
    e.id_ligne = e.id_poste = e.id_depart = e.id_piquage = e.id_reglage = 0;
    if (e.ProtectionChoisie == 0 && e.id_protection >= 1 && e.id_protection <= NOMBRE_RELAIS)
        e.ProtectionChoisie = e.id_protection; // the relay choice of the study
}

} // namespace tournesol
