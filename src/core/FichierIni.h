// Private-profile files: "[Section]" lines and "key=value" lines under them. The user's settings
// (TOUR.INI) and the path file (TOURNESO.INI) are of this form.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace tournesol {

struct Etude;
class Dialogue;

// Writes one value, keeping everything else of the file; the file and the section are created
// when missing. Keys are compared without regard to letter case, as sections are. False when
// the file cannot be written.
bool EcrireProfil(const std::filesystem::path& fichier, const std::string& section,
                  const std::string& cle, const std::string& valeur);
std::optional<std::string> LireProfil(const std::filesystem::path& fichier,
                                      const std::string& section, const std::string& cle);

// The settings file: Rep_loc + "TOUR.INI".
std::filesystem::path FichierReglages(const Etude& e);

// Writes the "Couleurs", "Impression" and "Tracé" sections, in the order of the settings table.
bool EcrireReglagesUtilisateur(const Etude& e, const std::filesystem::path& fichier);
// Puts back what the file holds of those sections (after InitCouleurs); missing keys keep the
// defaults.
void LireReglagesUtilisateur(Etude& e, const std::filesystem::path& fichier);
// The "Postes" section: the last saved line and relay.
bool SauverColonnesPostes(const Etude& e, const std::filesystem::path& fichier);

// Why a settings file cannot be read; empty when it can, or when it does not exist.
std::string CauseIllisible(const std::filesystem::path& fichier);

// The path file: Rep_appli and Rep_loc, each made ready for plain concatenation (a trailing
// separator). A missing file leaves both as they are; a file without one of the keys is
// reported with the file's help texts, and false is returned.
bool LireFichierChemins(Etude& e, Dialogue& d, const std::filesystem::path& fichier);

inline constexpr const char* FICHIER_CHEMINS = "TOURNESO.INI";

// The user's folders on this machine: the configuration (the path file and TOUR.INI) and the
// data (the master base).
struct DossiersUtilisateur {
    std::filesystem::path configuration;
    std::filesystem::path donnees;
};

// Settles Rep_appli and Rep_loc at start. Both start as the user's folders; the path file of
// the configuration folder then says otherwise where it names a folder. Without a path file
// (the first start) the folders are made, the path file is written naming them, and the user
// is told once where the base is. A folder or file that cannot be read or made is told with the
// file and the cause, and the run goes on with the user's folders; a settings file that cannot
// be read is told too, and never written over.
void PreparerConfiguration(Etude& e, Dialogue& d, const DossiersUtilisateur& dossiers);

} // namespace tournesol
