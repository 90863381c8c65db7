// The opening dialog (frmtitre), the relay choice (frmChoixProtection) and frmAPropos.
#pragma once

#include "core/Panneau.h"

#include <array>
#include <string_view>

namespace tournesol {

struct Etude;
class Dialogue;
class BaseEtudes;

// frmChoixProtection: twelve option buttons Option3D1(1..12), by id_protection.
class PanneauChoixProtection : public Panneau {
public:
    PanneauChoixProtection(Etude& e, Dialogue& d);
    // The captions of the twelve buttons, by id_protection - 1: read at start into the registry.
    static const std::array<std::string_view, 12>& Legendes();
    // The names of the buttons in the order they stand in the dialog.
    static std::vector<std::string> OrdreDesBoutons();

    void Cliquer(const std::string& nom) override;
    void Valider() override; // Command1 "&OK"
    void Annuler() override; // Command2 "&cancel"
    bool Fermer() override;

private:
    Etude& e_;
    bool modifieeAvant_;
    int selection_ = 0;
};

// frmAPropos.
class PanneauAPropos : public Panneau {
public:
    PanneauAPropos();
    void Cliquer(const std::string&) override { FermerPanneau(); }
    void Touche(int) override { FermerPanneau(); }
};

// frmtitre: the line by its substations, the relay and its number; a second page for the second
// relay when two are superposed.
class PanneauTitre : public Panneau {
public:
    // `base` fills the lists; without a base they stay empty.
    PanneauTitre(Etude& e, Dialogue& d, BaseEtudes* base);

    void Entrer(const std::string& champ) override;
    void Quitter(const std::string& champ) override;
    void Changer(const std::string& champ) override;
    void Cliquer(const std::string& nom) override;
    void Touche(int code) override;
    void Valider() override { Cliquer("cmdOK"); }
    bool Fermer() override;

    // The page shown, 0 or 1.
    int Page() const { return page_; }
    void ChoisirPage(int page);

    // The relay choice; `second` when only the relay of the superposition's second place is
    // chosen. False when the user cancelled.
    static bool ChoixProtection(Etude& e, Dialogue& d, bool second);

private:
    bool DeuxiemeRempli();
    void ReglerOK();
    void Indice(const std::string& message);
    void AutoriserSuppression();
    void ReglerNumero(const char* protection, const char* label, const char* numero);
    // Who saved the relay of the page last and when, once its line, relay and number are known;
    // hidden when the base does not say.
    void MontrerSignature(int page);
    void Ouvrir();
    void RemplirListe(const char* nom, std::vector<std::string> entrees);
    std::string T(const char* nom) { return Trouver(nom)->Texte(); }

    Etude& e_;
    Dialogue& d_;
    BaseEtudes* base_;
    int page_ = 0;
};

} // namespace tournesol
