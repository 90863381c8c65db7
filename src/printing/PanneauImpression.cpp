#include "printing/PanneauImpression.h"

#include "core/ChampIndice.h"
#include "core/Etude.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

namespace {

const char* const PARTIES[3] = {"Drawing + diagnostics", "line and relay characteristics",
                                "Relay settings"};

} // namespace

PanneauImpression::PanneauImpression(Etude& e) : Panneau("frmPrint"), e_(e) {
    DefinirTitre("TOURNESOL : imprimer");
    Champ& copies = Ajouter(GenreChamp::Texte, "txtcopies", "");
    copies.Format = "#0";
    copies.Legende = "Number of copies";
    ChampEcrire(copies, e.ImpCopies == 0 ? 1 : e.ImpCopies);
    Ajouter(GenreChamp::Case, "chkblack", "Colour").Valeur = !e.ImpNoir;
    Ajouter(GenreChamp::Case, "chknodots", "full line").Valeur = e.ImpNoDots;
    for (int i = 0; i < 3; ++i)
        Ajouter(GenreChamp::Case, NomIndice("chkpart", i), PARTIES[i]).Valeur =
            e.ImpParties[static_cast<std::size_t>(i)];
    Ajouter(GenreChamp::Bouton, "cmd(0)", "&OK");
    Ajouter(GenreChamp::Bouton, "cmd(1)", "cancel");

    // The settings part, by whether the relay has a setting sheet of its own.
    if (!e.Superposition) {
        Champ& reglages = *Trouver("chkpart(2)");
        switch (e.id_protection) {
        case 3:
        case 4:
        case 11:
            reglages.Actif = false;
            break;
        case 1:
        case 2:
        case 6:
        case 8:
        case 10:
        case 12:
            reglages.Actif = true;
            break;
        case 5:
            reglages.Actif = e.PXLC.FeuilleReglages;
            break;
        default: // PXLN and REL 100 leave the box as it is
            break;
        }
    }
}

void PanneauImpression::Cliquer(const std::string& nom) {
    if (nom == "cmd(0)")
        Valider();
    else if (nom == "cmd(1)")
        Annuler();
}

void PanneauImpression::Prendre() {
    const double copies = ChampLire(*Trouver("txtcopies"));
    e_.ImpCopies = static_cast<Entier16>(std::clamp(std::round(copies), 0.0, double(COPIES_MAX)));
    // The box's value minus 1: an unticked "Colour" prints in black.
    e_.ImpNoir = !Trouver("chkblack")->Valeur;
    e_.ImpNoDots = Trouver("chknodots")->Valeur;
    for (int i = 0; i < 3; ++i)
        e_.ImpParties[static_cast<std::size_t>(i)] = Trouver(NomIndice("chkpart", i))->Valeur;
}

void PanneauImpression::Valider() {
    Prendre();
    e_.ErrCalcul = 0;
    FermerPanneau();
}

void PanneauImpression::Annuler() {
    Prendre();
    e_.ErrCalcul = -1;
    FermerPanneau();
}

bool PanneauImpression::Fermer() {
    Annuler();
    return true;
}

} // namespace tournesol
