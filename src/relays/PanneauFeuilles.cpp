#include "relays/PanneauFeuilles.h"

#include "core/ChampIndice.h"

namespace tournesol {

PanneauFeuilles::PanneauFeuilles(Etude& e, std::string nom, std::string titre,
                                 std::vector<std::string> onglets, const TableChamps& table)
    : PanneauTable(std::move(nom), e) {
    DefinirTitre(std::move(titre));
    DeclarerOnglets(std::move(onglets));
    DeclarerChamps(table);
    Ajouter(GenreChamp::Bouton, BOUTON_OK, "&OK");
    Ajouter(GenreChamp::Bouton, BOUTON_ANNULER, "&Cancel");
}

void PanneauFeuilles::Ouvrir() {
    AfficherChamps();
    MettreDevant(0);
}

void PanneauFeuilles::Quitter(const std::string& champ) {
    const DescriptionChamp* d = Description(champ);
    Champ* c = Trouver(champ);
    if (!d || !c || !d->Saisie || d->Genre != GenreChamp::Texte || d->Texte) return;
    ChampEcrire(*c, ValeurDuChamp(*d, *c));
}

void PanneauFeuilles::Cliquer(const std::string& nom) {
    if (nom == BOUTON_OK) {
        Valider();
        return;
    }
    if (nom == BOUTON_ANNULER) {
        Annuler();
        return;
    }
    auto onglet = IndiceDe(nom, "Onglet");
    if (!onglet) onglet = IndiceDe(nom, "TitreOnglet");
    if (onglet) {
        if (*onglet >= 0 && *onglet < NombreOnglets()) MettreDevant(*onglet);
        return;
    }
    const DescriptionChamp* d = Description(nom);
    Champ* c = Trouver(nom);
    if (d && c && (d->Genre == GenreChamp::Option || d->Genre == GenreChamp::Case))
        ClicOption(*d, *c, false);
}

void PanneauFeuilles::Valider() {
    if (const TableChamps* table = Table()) {
        const auto& lignes = table->Lignes();
        for (std::size_t i = 0; i < lignes.size(); ++i)
            if (lignes[i].Saisie || lignes[i].Genre == GenreChamp::Option ||
                lignes[i].Genre == GenreChamp::Case)
                EcrireVariable(lignes[i], ChampDeLigne(i));
    }
    FermerPanneau();
}

void PanneauFeuilles::Annuler() {
    FermerPanneau();
}

bool PanneauFeuilles::Fermer() {
    Annuler();
    return true;
}

} // namespace tournesol
