#include "core/FichierIni.h"

#include "core/Dialogue.h"
#include "core/Etude.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <sstream>
#include <vector>

namespace tournesol {

namespace {

std::string Minuscules(std::string s) {
    for (char& c : s)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

std::string Rogner(const std::string& s) {
    const auto debut = s.find_first_not_of(" \t\r");
    if (debut == std::string::npos) return {};
    const auto fin = s.find_last_not_of(" \t\r");
    return s.substr(debut, fin - debut + 1);
}

std::vector<std::string> Lignes(const std::filesystem::path& fichier) {
    std::vector<std::string> lignes;
    std::ifstream f(fichier, std::ios::binary);
    std::string ligne;
    while (std::getline(f, ligne)) {
        if (!ligne.empty() && ligne.back() == '\r') ligne.pop_back();
        lignes.push_back(ligne);
    }
    return lignes;
}

bool EstSection(const std::string& ligne, std::string* nom = nullptr) {
    const std::string r = Rogner(ligne);
    if (r.size() < 2 || r.front() != '[' || r.back() != ']') return false;
    if (nom) *nom = r.substr(1, r.size() - 2);
    return true;
}

// The key of a "key=value" line, empty for any other line.
std::string CleDe(const std::string& ligne) {
    const auto egal = ligne.find('=');
    return egal == std::string::npos ? std::string() : Rogner(ligne.substr(0, egal));
}

// Replaces the file at once, so that a failure never leaves half a file.
bool Remplacer(const std::filesystem::path& fichier, const std::vector<std::string>& lignes) {
    std::filesystem::path temporaire = fichier;
    temporaire += ".~tmp";
    {
        std::ofstream f(temporaire, std::ios::binary | std::ios::trunc);
        for (const std::string& l : lignes)
            f << l << "\r\n";
        if (!f.flush()) return false;
    }
    std::error_code erreur;
    std::filesystem::rename(temporaire, fichier, erreur);
    if (erreur) std::filesystem::remove(temporaire, erreur);
    return !erreur;
}

std::string Entier(long long v) {
    return std::to_string(v);
}
std::string Booleen16(bool b) {
    return std::to_string(b ? -1 : 0);
}

// The three sections of the user's settings, key by key, with the variable each fills.
struct CleCouleur {
    const char* cle;
    Couleur Etude::*couleur;
};
constexpr CleCouleur COULEURS[] = {
    {"Transit 1", &Etude::CouleurTransit1},
    {"Transit 2", &Etude::CouleurTransit2},
    {"Antipompage", &Etude::CouleurAntipompage},
    {"Monophasé", &Etude::CouleurMonophase},
    {"Transit 3", &Etude::CouleurTransit3},
    {"Triphasé", &Etude::CouleurTriphase},
    {"Zones", &Etude::CouleurZones},
    {"Directionnel", &Etude::CouleurDirectionnel},
    {"Poste1", &Etude::CouleurPoste1},
    {"Poste2", &Etude::CouleurPoste2},
    {"Ligne", &Etude::CouleurLigne},
    {"PosteAval", &Etude::CouleurPosteAval},
};
struct CleEntier16 {
    const char* cle;
    Entier16 Etude::*valeur;
};
constexpr CleEntier16 PLUME[] = {
    {"Rouge", &Etude::PlumeRouge}, {"Vert", &Etude::PlumeVert},
    {"Bleu", &Etude::PlumeBleu},   {"Epaisseur", &Etude::PlumeEpaisseur},
    {"Style", &Etude::PlumeStyle},
};
constexpr const char* PARTIES[] = {"Tracé", "Diagnostics", "Réglages"};

std::optional<long long> LireEntier(const std::filesystem::path& f, const char* section,
                                    const char* cle) {
    const auto texte = LireProfil(f, section, cle);
    if (!texte) return std::nullopt;
    try {
        std::size_t lu = 0;
        const long long v = std::stoll(*texte, &lu, 0);
        return lu == texte->size() ? std::optional<long long>(v) : std::nullopt;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

std::string AvecSeparateur(std::string chemin) {
    if (!chemin.empty() && chemin.back() != '/' && chemin.back() != '\\') chemin.push_back('/');
    return chemin;
}

} // namespace

bool EcrireProfil(const std::filesystem::path& fichier, const std::string& section,
                  const std::string& cle, const std::string& valeur) {
    std::vector<std::string> lignes = Lignes(fichier);
    const std::string ligneCle = cle + "=" + valeur;
    std::size_t fin = lignes.size(); // where the section ends
    bool dansSection = false, trouvee = false;
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        std::string nom;
        if (EstSection(lignes[i], &nom)) {
            if (dansSection) {
                fin = i;
                break;
            }
            dansSection = Minuscules(nom) == Minuscules(section);
            trouvee = trouvee || dansSection;
            continue;
        }
        if (dansSection && Minuscules(CleDe(lignes[i])) == Minuscules(cle)) {
            lignes[i] = ligneCle;
            return Remplacer(fichier, lignes);
        }
    }
    if (!trouvee) {
        if (!lignes.empty() && !lignes.back().empty()) lignes.emplace_back();
        lignes.push_back("[" + section + "]");
        lignes.push_back(ligneCle);
    } else {
        // After the section's last value, before the blank lines that close it.
        while (fin > 0 && Rogner(lignes[fin - 1]).empty())
            --fin;
        lignes.insert(lignes.begin() + static_cast<std::ptrdiff_t>(fin), ligneCle);
    }
    return Remplacer(fichier, lignes);
}

std::optional<std::string> LireProfil(const std::filesystem::path& fichier,
                                      const std::string& section, const std::string& cle) {
    bool dansSection = false;
    for (const std::string& ligne : Lignes(fichier)) {
        std::string nom;
        if (EstSection(ligne, &nom)) {
            dansSection = Minuscules(nom) == Minuscules(section);
            continue;
        }
        if (dansSection && Minuscules(CleDe(ligne)) == Minuscules(cle))
            return Rogner(ligne.substr(ligne.find('=') + 1));
    }
    return std::nullopt;
}

std::filesystem::path FichierReglages(const Etude& e) {
    return e.Rep_loc + "TOUR.INI";
}

bool EcrireReglagesUtilisateur(const Etude& e, const std::filesystem::path& f) {
    bool ok = true;
    for (const CleCouleur& c : COULEURS)
        ok = EcrireProfil(f, "Couleurs", c.cle, Entier(e.*c.couleur)) && ok;
    ok = EcrireProfil(f, "Impression", "Noir", Booleen16(e.ImpNoir)) && ok;
    ok = EcrireProfil(f, "Impression", "NoDots", Booleen16(e.ImpNoDots)) && ok;
    ok = EcrireProfil(f, "Impression", "Copies", Entier(e.ImpCopies)) && ok;
    for (std::size_t i = 0; i < 3; ++i)
        ok = EcrireProfil(f, "Impression", PARTIES[i], Booleen16(e.ImpParties[i])) && ok;
    for (const CleEntier16& p : PLUME)
        ok = EcrireProfil(f, "Tracé", p.cle, Entier(e.*p.valeur)) && ok;
    return ok;
}

void LireReglagesUtilisateur(Etude& e, const std::filesystem::path& f) {
    for (const CleCouleur& c : COULEURS)
        if (const auto v = LireEntier(f, "Couleurs", c.cle))
            e.*c.couleur = static_cast<Couleur>(*v);
    if (const auto v = LireEntier(f, "Impression", "Noir")) e.ImpNoir = *v != 0;
    if (const auto v = LireEntier(f, "Impression", "NoDots")) e.ImpNoDots = *v != 0;
    if (const auto v = LireEntier(f, "Impression", "Copies"))
        e.ImpCopies = static_cast<Entier16>(*v);
    for (std::size_t i = 0; i < 3; ++i)
        if (const auto v = LireEntier(f, "Impression", PARTIES[i])) e.ImpParties[i] = *v != 0;
    for (const CleEntier16& p : PLUME)
        if (const auto v = LireEntier(f, "Tracé", p.cle)) e.*p.valeur = static_cast<Entier16>(*v);
}

bool SauverColonnesPostes(const Etude& e, const std::filesystem::path& f) {
    bool ok = EcrireProfil(f, "Postes", "Poste", e.NomPoste);
    ok = EcrireProfil(f, "Postes", "Départ", e.NomDepart) && ok;
    ok = EcrireProfil(f, "Postes", "Piquage", e.NomPiquage) && ok;
    ok = EcrireProfil(f, "Postes", "idxProtection", Entier(e.IdxProtection)) && ok;
    ok = EcrireProfil(f, "Postes", "id_Protection", Entier(e.id_protection)) && ok;
    ok = EcrireProfil(f, "Postes", "id_numéro", Entier(e.id_numero)) && ok;
    return ok;
}

bool LireFichierChemins(Etude& e, Dialogue& d, const std::filesystem::path& fichier) {
    if (!std::filesystem::exists(fichier)) return true;
    const auto appli = LireProfil(fichier, "Tournesol", "Rep_appli");
    const auto loc = LireProfil(fichier, "Tournesol", "Rep_loc");
    if (appli) e.Rep_appli = AvecSeparateur(*appli);
    if (loc) e.Rep_loc = AvecSeparateur(*loc);
    if (appli && loc) return true;
    const std::string nom = fichier.filename().string();
    std::ostringstream texte;
    texte << "Please create under C:\\WINDOWS the file " << nom << " with the path names\r\n\r\n"
          << "Structure of " << nom << " :\r\n"
          << "[Tournesol]\r\n"
          << "Rep_appli = <lecteur> :<common data base path>" << (appli ? "" : " (error Rep_appli)")
          << "\r\n"
          << "Rep_loc = <lecteur> : <private data base path>" << (loc ? "" : " (error Rep_loc)");
    d.Message("Tournesol : error", texte.str(), 2);
    return false;
}

} // namespace tournesol
