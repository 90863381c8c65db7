#include "core/FichierIni.h"

#include "core/Dialogue.h"
#include "core/Etude.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <system_error>
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

// The lines of a file, or why it cannot be read. A file that does not exist has no lines and
// no cause.
struct Lecture {
    std::vector<std::string> lignes;
    std::string cause;
};

Lecture LireLignes(const std::filesystem::path& fichier) {
    Lecture l;
    std::error_code erreur;
    const auto etat = std::filesystem::status(fichier, erreur);
    if (etat.type() == std::filesystem::file_type::not_found) return l;
    if (erreur) {
        l.cause = erreur.message();
        return l;
    }
    std::FILE* f = std::fopen(fichier.c_str(), "rb");
    if (!f) {
        l.cause = std::generic_category().message(errno);
        return l;
    }
    std::string contenu;
    char tampon[4096];
    std::size_t n = 0;
    while ((n = std::fread(tampon, 1, sizeof tampon, f)) > 0)
        contenu.append(tampon, n);
    if (std::ferror(f)) l.cause = std::generic_category().message(errno);
    std::fclose(f);
    if (!l.cause.empty()) return l;
    std::istringstream texte(contenu);
    std::string ligne;
    while (std::getline(texte, ligne)) {
        if (!ligne.empty() && ligne.back() == '\r') ligne.pop_back();
        l.lignes.push_back(ligne);
    }
    return l;
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
    std::error_code erreur;
    {
        std::ofstream f(temporaire, std::ios::binary | std::ios::trunc);
        for (const std::string& l : lignes)
            f << l << "\r\n";
        f.close();
        if (!f) {
            std::filesystem::remove(temporaire, erreur);
            return false;
        }
    }
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
    // A file that exists but cannot be read is left alone: rewritten from nothing, it would
    // lose every section but this one.
    Lecture lecture = LireLignes(fichier);
    if (!lecture.cause.empty()) return false;
    std::vector<std::string>& lignes = lecture.lignes;
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
    for (const std::string& ligne : LireLignes(fichier).lignes) {
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

std::string CauseIllisible(const std::filesystem::path& fichier) {
    return LireLignes(fichier).cause;
}

bool LireFichierChemins(Etude& e, Dialogue& d, const std::filesystem::path& fichier) {
    std::error_code erreur;
    if (!std::filesystem::exists(fichier, erreur)) return true;
    const auto appli = LireProfil(fichier, "Tournesol", "Rep_appli");
    const auto loc = LireProfil(fichier, "Tournesol", "Rep_loc");
    if (appli) e.Rep_appli = AvecSeparateur(*appli);
    if (loc) e.Rep_loc = AvecSeparateur(*loc);
    if (appli && loc) return true;
    const std::string nom = fichier.filename().string();
    // The folder where the file is looked for on this machine.
    std::string dossier = fichier.parent_path().string();
    if (dossier.empty()) dossier = ".";
    std::ostringstream texte;
    texte << "Please create under " << dossier << " the file " << nom
          << " with the path names\r\n\r\n"
          << "Structure of " << nom << " :\r\n"
          << "[Tournesol]\r\n"
          << "Rep_appli = <lecteur> :<common data base path>" << (appli ? "" : " (error Rep_appli)")
          << "\r\n"
          << "Rep_loc = <lecteur> : <private data base path>" << (loc ? "" : " (error Rep_loc)");
    d.Message("Tournesol : error", texte.str(), 2);
    return false;
}

void PreparerConfiguration(Etude& e, Dialogue& d, const DossiersUtilisateur& dossiers) {
    const std::string appli = AvecSeparateur(dossiers.donnees.string());
    const std::string loc = AvecSeparateur(dossiers.configuration.string());
    const std::filesystem::path chemins = dossiers.configuration / FICHIER_CHEMINS;
    auto attention = [&d](const std::string& texte) {
        d.Message("TOURNESOL : Attention", texte, 3);
    };
    auto defauts = [&] {
        return "\r\n\r\nTournesol goes on with the study base " + appli +
               "bd1.mdb and the settings " + loc + "TOUR.INI.";
    };
    // Whatever the path file leaves unsaid is taken from the user's folders.
    e.Rep_appli = appli;
    e.Rep_loc = loc;
    std::error_code erreur;
    const auto etat = std::filesystem::status(chemins, erreur);
    if (etat.type() == std::filesystem::file_type::not_found) {
        // The first start: the folders, then the path file that names them.
        std::filesystem::create_directories(dossiers.configuration, erreur);
        if (!erreur) std::filesystem::create_directories(dossiers.donnees, erreur);
        if (erreur) {
            attention("The folder of the file " + chemins.string() + " cannot be made (" +
                      erreur.message() + ")." + defauts());
            return;
        }
        if (!EcrireProfil(chemins, "Tournesol", "Rep_appli", appli) ||
            !EcrireProfil(chemins, "Tournesol", "Rep_loc", loc)) {
            attention("The file " + chemins.string() + " cannot be written." + defauts());
            return;
        }
        attention("First start of Tournesol: the study base is " + appli +
                  "bd1.mdb and the settings are kept in " + loc + "TOUR.INI.\r\n\r\nThe file " +
                  chemins.string() + " names these folders.");
        return;
    }
    const std::string cause = erreur ? erreur.message() : CauseIllisible(chemins);
    if (!cause.empty()) {
        attention("The file " + chemins.string() + " cannot be read (" + cause + ")." + defauts());
        return;
    }
    LireFichierChemins(e, d, chemins);
    const std::filesystem::path reglages = FichierReglages(e);
    if (const std::string c = CauseIllisible(reglages); !c.empty())
        attention("The file " + reglages.string() + " cannot be read (" + c +
                  "). The colours, print choices and pen start from their defaults, and the "
                  "file is not written over.");
}

} // namespace tournesol
