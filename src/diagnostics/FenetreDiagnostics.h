// frmDiagnostics: the discordances of the current relay with the setting guide, shown beside the
// diagram. One frame a relay, titled by its sheet; in it the label "In accordance with the setting
// guide" and, for each rule of the relay's window, its text, its limit and its unit, shown while
// the rule is set.
//
// The working window makes it when cmdDiagnostics goes down, shows it with Montrer, calls
// MajDiagnostics after each computation of the relay while DiagnosticsOuverts is set, and lets
// cmdDiagnostics come up when the window has closed (Ferme()).
#pragma once

#include "core/Panneau.h"

#include <string>

namespace tournesol {

struct Etude;

class FenetreDiagnostics : public Panneau {
public:
    // diagnosticsOuverts: the study's flag DiagnosticsOuverts, true while the window is open.
    FenetreDiagnostics(Etude& e, bool& diagnosticsOuverts);

    // The window comes up: its title, the flag, then MajDiagnostics.
    void Montrer();
    // The frame of the current relay with its rules, from id_protection, DiagDrapeaux and
    // DiagValeurs. A failure is stored in ErrCalcul and the window stays as it was.
    void MajDiagnostics();

    void Cliquer(const std::string& nom) override; // cmdOK closes the window
    void Valider() override { FermerFenetre(); }
    void Annuler() override { FermerFenetre(); }
    bool Fermer() override {
        FermerFenetre();
        return true;
    }

    // Names of the fields.
    static std::string NomCadre(int id);     // fraDiagnostics(id), the relay's frame
    static std::string NomConforme(int id);  // lblConforme(id)
    static std::string NomTexte(int regle);  // lblRegle(n)
    static std::string NomValeur(int regle); // lblValeur(n)
    static std::string NomUnite(int regle);  // lblUnite(n)

private:
    void FermerFenetre();

    Etude& e_;
    bool& ouverts_;
};

} // namespace tournesol
