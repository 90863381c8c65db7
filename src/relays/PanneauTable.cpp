#include "relays/PanneauTable.h"

#include "core/Etude.h"

#include <cmath>

namespace tournesol {

PanneauTable::PanneauTable(std::string nom, Etude& e) : Panneau(std::move(nom)), e_(e) {}

const DescriptionChamp* PanneauTable::Description(const std::string& nom) const {
    return table_ ? table_->Trouver(nom) : nullptr;
}

void PanneauTable::DeclarerOnglets(std::vector<std::string> titres) {
    onglets_ = std::move(titres);
}

void PanneauTable::DeclarerChamps(const TableChamps& table) {
    table_ = &table;
    const auto& lignes = table.Lignes();
    PrevoirChamps(lignes.size());
    debutTable_ = NombreChamps();
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        const DescriptionChamp& d = lignes[i];
        // The table's texts are seen where they stand: the table outlives every panel.
        Champ& c = Ajouter(d.Genre, d.Nom, "");
        c.Groupe = TexteFixe::Vue(d.Groupe);
        c.Aide = TexteFixe::Vue(d.Aide);
        c.Format = d.Format;
        if (d.Genre == GenreChamp::Texte || d.Genre == GenreChamp::Liste) {
            c.Legende = TexteFixe::Vue(table.LegendeComplete(i));
            c.Actif = d.Saisie;
        } else {
            c.DefinirTexte(table.LegendeComplete(i));
        }
        if (!d.Choix.empty()) c.Liste = d.Choix;
    }
}

void PanneauTable::AfficherLigne(const DescriptionChamp& d, Champ& c) {
    if (d.Texte) {
        c.DefinirTexte(d.Texte.Lire(e_));
        return;
    }
    if (!d.Valeur) return;
    const double valeur = d.Valeur.Lire(e_);
    if (d.Genre == GenreChamp::Option && d.ValeurOption) {
        c.Valeur = valeur == *d.ValeurOption;
    } else if (d.Genre == GenreChamp::Case || d.Genre == GenreChamp::Option) {
        c.Valeur = valeur != 0.0;
    } else if (!d.Choix.empty()) {
        const double indice = std::round(valeur);
        const bool connu = indice >= 0.0 && indice < static_cast<double>(d.Choix.size());
        c.IndexListe = connu ? static_cast<int>(indice) : -1;
        c.DefinirTexte(connu ? d.Choix[static_cast<std::size_t>(indice)] : std::string());
    } else {
        ChampEcrire(c, valeur);
    }
}

void PanneauTable::AfficherChamps() {
    const std::vector<DescriptionChamp> aucune;
    const std::vector<DescriptionChamp>& lignes = table_ ? table_->Lignes() : aucune;
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        const DescriptionChamp& d = lignes[i];
        AfficherLigne(d, ChampDeLigne(i));
        // A twin that has no variable of its own shows the image of this value.
        if (!d.Valeur || d.Jumeau.empty()) continue;
        const DescriptionChamp* dj = table_->Trouver(d.Jumeau);
        Champ* jumeau = Trouver(d.Jumeau);
        if (!dj || !jumeau || dj->Valeur || dj->Texte) continue;
        ChampEcrire(*jumeau, ImageJumeau(e_, d.Rapport, d.Valeur.Lire(e_),
                                         d.Colonne == ColonneOhms::Primaire));
    }
    AfficherOptionsLiees();
}

double PanneauTable::ValeurDuChamp(const DescriptionChamp& d, Champ& champ) {
    return ArrondirAuPas(d, LimiterValeur(d, ChampLire(champ)));
}

int PanneauTable::EntreeChoisie(const DescriptionChamp& d, const Champ& champ) {
    const int n = static_cast<int>(d.Choix.size());
    if (champ.IndexListe >= 0 && champ.IndexListe < n &&
        d.Choix[static_cast<std::size_t>(champ.IndexListe)] == champ.Texte())
        return champ.IndexListe;
    for (int i = 0; i < n; ++i)
        if (d.Choix[static_cast<std::size_t>(i)] == champ.Texte()) return i;
    return -1;
}

void PanneauTable::EcrireVariable(const DescriptionChamp& d, Champ& champ) {
    if (d.Texte) {
        d.Texte.Ecrire(e_, champ.Texte());
        return;
    }
    if (!d.Valeur) return;
    if (d.Genre == GenreChamp::Option && d.ValeurOption) {
        if (champ.Valeur) d.Valeur.Ecrire(e_, *d.ValeurOption);
    } else if (d.Genre == GenreChamp::Case || d.Genre == GenreChamp::Option) {
        d.Valeur.Ecrire(e_, champ.Valeur ? 1.0 : 0.0);
    } else if (!d.Choix.empty()) {
        if (const int i = EntreeChoisie(d, champ); i >= 0) d.Valeur.Ecrire(e_, i);
    } else {
        d.Valeur.Ecrire(e_, ValeurDuChamp(d, champ));
    }
}

void PanneauTable::ClicOption(const DescriptionChamp& d, Champ& champ, bool dansEtude) {
    if (d.Genre == GenreChamp::Option && champ.Valeur && table_) {
        // The options of one frame exclude each other.
        for (const DescriptionChamp& autre : table_->Lignes()) {
            if (autre.Genre != GenreChamp::Option || autre.Groupe != d.Groupe || autre.Nom == d.Nom)
                continue;
            if (Champ* c = Trouver(autre.Nom)) c->Valeur = false;
            // Options that set one number share its variable: the chosen one writes it.
            if (dansEtude && autre.Valeur && !autre.ValeurOption) autre.Valeur.Ecrire(e_, 0.0);
        }
    }
    if (dansEtude) EcrireVariable(d, champ);
}

void PanneauTable::Entrer(const std::string& champ) {
    if (Champ* c = Trouver(champ)) ChampSelection(*c);
}

} // namespace tournesol
