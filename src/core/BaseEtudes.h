// What the application asks of the study base. The store layer implements it on the base file;
// the engine's panels (the opening dialog, the working window) only see this.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace tournesol {

struct Etude;
class Dialogue;
class MagasinReglages;
class Panneau;

// The entry that ends the relay list of a line, for a relay not yet in the base.
inline constexpr const char* NOUVELLE_PROTECTION = "(Nouvelle Protection)";

// Who saved a relay last, by the login of the user, and when, as the UTC time of the save in
// ISO 8601 (2026-03-14T09:26:53Z). Both empty when the base does not say (a relay never saved, a
// base made before they were kept).
struct SignatureSauvegarde {
    std::string auteur;
    std::string date;
    bool Vide() const { return auteur.empty() && date.empty(); }
};

class BaseEtudes {
public:
    virtual ~BaseEtudes() = default;

    // The lists of the opening dialog.
    virtual std::vector<std::string> Postes() = 0;
    virtual std::vector<std::string> Departs(const std::string& poste) = 0;
    virtual std::vector<std::string> Piquages(const std::string& poste,
                                              const std::string& depart) = 0;
    // The relays of a line, then NOUVELLE_PROTECTION.
    virtual std::vector<std::string> Protections(const std::string& poste,
                                                 const std::string& depart,
                                                 const std::string& piquage) = 0;
    // The numbers (1 to 6) already used by that relay on that line.
    virtual std::vector<int> Numeros(const std::string& poste, const std::string& depart,
                                     const std::string& piquage, const std::string& protection) = 0;

    // Who saved that relay of that line last, and when.
    virtual SignatureSauvegarde DerniereSauvegarde(const std::string& poste,
                                                   const std::string& depart,
                                                   const std::string& piquage,
                                                   const std::string& protection, int numero) {
        (void)poste, (void)depart, (void)piquage, (void)protection, (void)numero;
        return {};
    }

    // On Open, once the names and the relay are known: the keys of the named line and relay, and
    // what was saved of them (the Ligne row, the Réglage row with its report case and scale,
    // the relay's settings) put back into the study. A line unknown to the base gets a new
    // Ligne row and NouvelleLigne; a relay unknown gets ProtectionInconnue.
    virtual void Ouvrir(Etude& e, Dialogue& d) = 0;

    // The save command: the whole study in one transaction. On failure the base is left as it
    // was, the user has been told, and the result is false.
    virtual bool Sauver(Etude& e, Dialogue& d) = 0;
    // The save of the superposition window: the setting row and the settings only.
    virtual bool SauverDepuisSuperposition(Etude& e, Dialogue& d) = 0;

    // The deletion dialog (frmSupprimerPoste).
    virtual std::unique_ptr<Panneau> PanneauSuppression(Etude& e, Dialogue& d) = 0;

    // The relay setting store of this base.
    virtual MagasinReglages& Magasin() = 0;
};

} // namespace tournesol
