#include "relays/ChampRelais.h"

#include "core/Erreurs.h"
#include "core/Format.h"
#include "core/Numerique.h"

namespace tournesol {

std::string UniteDuChamp(const DescriptionChamp& d) {
    if (!d.Unite.empty()) return d.Unite;
    if (d.Colonne == ColonneOhms::Secondaire) return UNITE_SECONDAIRE;
    if (d.Colonne == ColonneOhms::Primaire) return UNITE_PRIMAIRE;
    return {};
}

std::string LegendeAvecUnite(const DescriptionChamp& d) {
    const std::string unite = UniteDuChamp(d);
    if (unite.empty()) return d.Legende;
    if (d.Legende.empty()) return unite;
    return d.Legende + " (" + unite + ")";
}

DescriptionChamp ChampAffiche(std::string nom, std::string legende, std::string format,
                              std::string groupe, Variable v, std::string unite) {
    return ChampValeur(std::move(nom), std::move(legende), std::move(format), std::move(groupe),
                       std::move(v), false, std::move(unite));
}

TableChamps::TableChamps(std::vector<DescriptionChamp> lignes) : lignes_(std::move(lignes)) {
    legendes_.reserve(lignes_.size());
    for (std::size_t i = 0; i < lignes_.size(); ++i) {
        DescriptionChamp& d = lignes_[i];
        // A set value is what the relay's steps give: nobody types it.
        if (d.Nature == NatureValeur::Reglee) d.Saisie = false;
        legendes_.push_back(LegendeAvecUnite(d));
        index_.emplace(d.Nom, i); // the first row of a name wins
    }
}

const DescriptionChamp* TableChamps::Trouver(std::string_view nom) const {
    const auto it = index_.find(nom);
    return it == index_.end() ? nullptr : &lignes_[it->second];
}

Variable Echelle(Variable v, double facteur) {
    return {[lire = v.Lire, facteur](const Etude& e) { return lire(e) * facteur; },
            [ecrire = v.Ecrire, facteur](Etude& e, double x) { ecrire(e, x / facteur); }};
}

Variable EnDegres(Variable v) {
    return Echelle(std::move(v), RadToDeg(1.0));
}

Variable ParKz(Variable v) {
    return {[lire = v.Lire](const Etude& e) { return Div(lire(e), e.Kz); },
            [ecrire = v.Ecrire](Etude& e, double x) { ecrire(e, Verifier(x * e.Kz)); }};
}

double ImageJumeau(const Etude& e, RapportJumeau rapport, double valeur, bool versSecondaire) {
    switch (rapport) {
    case RapportJumeau::Kz:
        return versSecondaire ? Div(valeur, e.Kz) : Verifier(valeur * e.Kz);
    case RapportJumeau::Courant: {
        const double rapportTC = Div(e.Ligne_Ip, e.Is);
        return versSecondaire ? Div(valeur, rapportTC) : Verifier(valeur * rapportTC);
    }
    case RapportJumeau::Cycles:
        return std::trunc(valeur / 20.0);
    }
    return valeur;
}

double LimiterValeur(const DescriptionChamp& d, double valeur) {
    if (d.Min && valeur < *d.Min) valeur = *d.Min;
    if (d.Max && valeur > *d.Max) valeur = *d.Max;
    return valeur;
}

double ArrondirAuPas(const DescriptionChamp& d, double valeur) {
    if (!(d.Pas > 0.0)) return valeur;
    const double arrondi = ArrondirAuPas(valeur, d.Pas, d.Arrondi);
    return d.Format.empty() ? arrondi : ArrondirSelonFormat(arrondi, d.Format);
}

double ArrondirAuPas(double valeur, double pas, ModeArrondi mode) {
    if (!(pas > 0.0)) return valeur;
    // A value that is a multiple of the step up to the noise of the division stays where it is.
    constexpr double bruit = 1e-9;
    const double q = valeur / pas;
    double n = 0.0;
    switch (mode) {
    case ModeArrondi::Proche:
        n = std::round(q);
        break;
    case ModeArrondi::Dessous:
        n = std::floor(q + bruit);
        break;
    case ModeArrondi::Dessus:
        n = std::ceil(q - bruit);
        break;
    }
    return n * pas;
}

std::string GroupeFeuille(std::string_view feuille, std::string_view cadre) {
    std::string g(feuille);
    g += '/';
    g += cadre;
    return g;
}

DescriptionChamp ChampValeur(std::string nom, std::string legende, std::string format,
                             std::string groupe, Variable v, bool saisie, std::string unite) {
    return {.Nom = std::move(nom),
            .Legende = std::move(legende),
            .Unite = std::move(unite),
            .Format = std::move(format),
            .Groupe = std::move(groupe),
            .Saisie = saisie,
            .Valeur = std::move(v)};
}

DescriptionChamp ChampOption(std::string nom, std::string legende, std::string groupe, Variable v,
                             double valeur) {
    return {.Nom = std::move(nom),
            .Legende = std::move(legende),
            .Groupe = std::move(groupe),
            .Genre = GenreChamp::Option,
            .Valeur = std::move(v),
            .ValeurOption = valeur};
}

DescriptionChamp ChampCase(std::string nom, std::string legende, std::string groupe, Variable v) {
    return {.Nom = std::move(nom),
            .Legende = std::move(legende),
            .Groupe = std::move(groupe),
            .Genre = GenreChamp::Case,
            .Valeur = std::move(v)};
}

DescriptionChamp ChampEtiquette(std::string nom, std::string texte, std::string groupe) {
    return {.Nom = std::move(nom),
            .Legende = std::move(texte),
            .Groupe = std::move(groupe),
            .Genre = GenreChamp::Etiquette};
}

DescriptionChamp ChampTempo(std::string nom, std::string legende, std::string groupe,
                            Entier16 Etude::*t, double max, double pas) {
    DescriptionChamp d = ChampValeur(std::move(nom), std::move(legende), "###0", std::move(groupe),
                                     Lien(t), true, "ms");
    d.Min = 0.0;
    d.Max = max;
    if (pas > 0.0) {
        d.Pas = pas;
        d.Arrondi = ModeArrondi::Dessous;
    }
    return d;
}

void ZonesSouhaiteesDeLaLigne(Etude& e) {
    if (e.PanneauRelais) {
        e.X1_HT = e.Ligne_Xprim1;
        e.X2_HT = e.Ligne_Xprim2;
        e.X3_HT = e.Ligne_Xprim3;
        e.X4_HT = e.Ligne_Xprim3 - e.XL_eq;
    }
    e.X1_BT = Div(e.X1_HT, e.Kz);
    e.X2_BT = Div(e.X2_HT, e.Kz);
    e.X3_BT = Div(e.X3_HT, e.Kz);
    e.X4_BT = Div(e.X4_HT, e.Kz);
}

void ZonesEnPrimaire(Etude& e) {
    e.X1_HT = Verifier(e.X1_BT * e.Kz);
    e.X2_HT = Verifier(e.X2_BT * e.Kz);
    e.X3_HT = Verifier(e.X3_BT * e.Kz);
    e.X4_HT = Verifier(e.X4_BT * e.Kz);
    e.X1reg_HT = Verifier(e.X1reg_BT * e.Kz);
    e.X2reg_HT = Verifier(e.X2reg_BT * e.Kz);
    e.X3reg_HT = Verifier(e.X3reg_BT * e.Kz);
    e.X4reg_HT = Verifier(e.X4reg_BT * e.Kz);
}

} // namespace tournesol
