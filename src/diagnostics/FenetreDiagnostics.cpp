#include "diagnostics/FenetreDiagnostics.h"

#include "core/ChampIndice.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Format.h"
#include "diagnostics/Diagnostics.h"

#include <cmath>
#include <vector>

namespace tournesol {

std::string FenetreDiagnostics::NomCadre(int id) {
    return NomIndice("fraDiagnostics", id);
}
std::string FenetreDiagnostics::NomConforme(int id) {
    return NomIndice("lblConforme", id);
}
std::string FenetreDiagnostics::NomTexte(int regle) {
    return NomIndice("lblRegle", regle);
}
std::string FenetreDiagnostics::NomValeur(int regle) {
    return NomIndice("lblValeur", regle);
}
std::string FenetreDiagnostics::NomUnite(int regle) {
    return NomIndice("lblUnite", regle);
}

FenetreDiagnostics::FenetreDiagnostics(Etude& e, bool& diagnosticsOuverts)
    : Panneau("frmDiagnostics"), e_(e), ouverts_(diagnosticsOuverts) {
    DefinirTitre("TOURNESOL [" + e.NomPoste + "]");
    for (int id = 1; id <= NOMBRE_RELAIS; ++id) {
        const BlocRegles& bloc = *BlocDuRelais(id);
        const std::string cadre = NomCadre(id);
        // The frame's own field gives its title and its visibility.
        Ajouter(GenreChamp::Etiquette, cadre, bloc.TitreFeuille, cadre).Visible = false;
        Ajouter(GenreChamp::Etiquette, NomConforme(id), CONFORME_AU_GUIDE, cadre);
        for (int n = bloc.PremiereAffichee; n <= bloc.DerniereAffichee; ++n) {
            Ajouter(GenreChamp::Etiquette, NomTexte(n), TexteFenetre(n), cadre).Visible = false;
            Ajouter(GenreChamp::Etiquette, NomValeur(n), "", cadre).Visible = false;
            Ajouter(GenreChamp::Etiquette, NomUnite(n), UniteFenetre(n), cadre).Visible = false;
        }
    }
    Ajouter(GenreChamp::Etiquette, "lblNonCalcule", "").Visible = false;
    Ajouter(GenreChamp::Bouton, "cmdOK", "&OK");
}

void FenetreDiagnostics::Montrer() {
    DefinirTitre("TOURNESOL [" + e_.NomPoste + "]");
    ouverts_ = true;
    MajDiagnostics();
}

void FenetreDiagnostics::MajDiagnostics() {
    ExecuterCalcul(e_, [this] {
        // What the window will show, worked out whole before any field changes.
        struct Etat {
            Champ* champ;
            bool visible;
            std::string texte;
        };
        std::vector<Etat> etats;
        auto montrer = [&](const std::string& nom, bool visible, std::string texte) {
            Champ* c = Trouver(nom);
            if (!c) LeverErreur(ERR_INDICE);
            etats.push_back({c, visible, std::move(texte)});
        };
        for (int id = 1; id <= NOMBRE_RELAIS; ++id) {
            const BlocRegles& bloc = *BlocDuRelais(id);
            const bool courant = id == e_.id_protection;
            montrer(NomCadre(id), courant, bloc.TitreFeuille);
            if (!courant) continue;
            bool conforme = true;
            for (int n = bloc.PremiereAffichee; n <= bloc.DerniereAffichee; ++n) {
                const bool active = RegleActive(e_, n);
                const double valeur = ValeurRegle(e_, n);
                if (!std::isfinite(valeur)) LeverErreur(ERR_DEPASSEMENT);
                if (active) conforme = false;
                montrer(NomTexte(n), active, TexteFenetre(n));
                montrer(NomValeur(n), active, FormaterNombre(valeur, FORMAT_FENETRE));
                montrer(NomUnite(n), active, UniteFenetre(n));
            }
            // Without settings nothing was compared: no verdict.
            montrer(NomConforme(id), conforme && !ReglagesNonCalcules(e_), CONFORME_AU_GUIDE);
        }
        montrer("lblNonCalcule", ReglagesNonCalcules(e_), TexteReglagesNonCalcules(e_));
        for (Etat& etat : etats) {
            etat.champ->Visible = etat.visible;
            etat.champ->DefinirTexte(std::move(etat.texte));
        }
    });
}

void FenetreDiagnostics::Cliquer(const std::string& nom) {
    if (nom == "cmdOK") FermerFenetre();
}

void FenetreDiagnostics::FermerFenetre() {
    ouverts_ = false;
    FermerPanneau();
}

} // namespace tournesol
