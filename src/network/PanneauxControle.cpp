#include "network/PanneauxControle.h"

#include "core/Etude.h"

namespace tournesol {

namespace {
std::string TitreEtude(const Etude& e) {
    return "TOURNESOL [" + e.NomPoste + "]";
}

Champ Valeur(const char* nom, const char* format, const char* legende, double valeur) {
    Champ c(nom, "", format);
    c.Legende = legende;
    ChampEcrire(c, valeur);
    return c;
}

Champ Etiquette(const char* nom, std::string texte, bool visible = true) {
    Champ c(nom, std::move(texte), "");
    c.Genre = GenreChamp::Etiquette;
    c.Visible = visible;
    return c;
}

Champ Bouton(const char* nom, std::string texte) {
    Champ c(nom, std::move(texte), "");
    c.Genre = GenreChamp::Bouton;
    return c;
}
} // namespace

PanneauValeurs::PanneauValeurs(Etude& e) : Panneau("frmValeurs"), e_(e) {
    DefinirTitre(TitreEtude(e));
    AjouterChamp(Etiquette("label3", e.NomPoste + " - " + e.NomDepart));
    AjouterChamp(Valeur("txtxprim1", "##0.##", "First zone reactance", e.Ligne_Xprim1));
    AjouterChamp(Valeur("txtxprim2", "##0.##", "Second zone reactance", e.Ligne_Xprim2));
    AjouterChamp(Valeur("txtxprim3", "##0.##", "third zone reactance", e.Ligne_Xprim3));
    AjouterChamp(Valeur("txtUn", "##0", "Rated voltage", e.Ligne_Up));
    AjouterChamp(Valeur("txtIn", "# ##0", "Rated current", e.Ligne_Ip));
    AjouterChamp(Valeur("txtkv", "# ##0", "Voltage ratio", e.Kv));
    AjouterChamp(Valeur("txtki", "# ##0", "Current ratio", e.Ki));
    AjouterChamp(Valeur("txtkz", "#0.0#", "Impedance ratio", e.Kz));
    AjouterChamp(Bouton("Command2", "&Continuer"));
}

void PanneauValeurs::Valider() {
    e_.Ligne_Xprim1 = ChampLire(*Trouver("txtxprim1"));
    e_.Ligne_Xprim2 = ChampLire(*Trouver("txtxprim2"));
    e_.Ligne_Xprim3 = ChampLire(*Trouver("txtxprim3"));
    FermerPanneau();
}

void PanneauValeurs::Cliquer(const std::string& nom) {
    if (nom == "Command2") Valider();
}

PanneauValeurTroisBouts::PanneauValeurTroisBouts(Etude& e) : Panneau("frmvaleurtroisbouts"), e_(e) {
    DefinirTitre(TitreEtude(e));
    AjouterChamp(
        Etiquette("fraresults", "Results of the short circuit current calculation ", e.Ligne_cc));
    AjouterChamp(Etiquette("lblresultmono", e.StadeMono));
    AjouterChamp(Etiquette("lblresulttri", e.StadeTri));
    AjouterChamp(Etiquette("txttroisexactives(0)", "at least an end is dead", e.BoutMort));
    AjouterChamp(Etiquette("txttroisexactives(1)", "tthe three ends are live", !e.BoutMort));
    AjouterChamp(Valeur("txtxprim1", "#0.###", "first zone setting", e.Ligne_Xprim1));
    AjouterChamp(Valeur("txtxprim2", "#0.###", "second zone setting", e.Ligne_Xprim2));
    AjouterChamp(Valeur("txtita", "####", "maximal current running through A", e.Ligne_ItA));
    AjouterChamp(Valeur("txtitb", "####", "maximal current running through B", e.Ligne_ItB));
    AjouterChamp(Valeur("txtitc", "####", "maximal current running through C", e.Ligne_ItC));
    AjouterChamp(Etiquette("Label12", "check please"));
    AjouterChamp(Bouton("Command2", "OK"));
}

void PanneauValeurTroisBouts::Valider() {
    e_.Ligne_Xprim1 = ChampLire(*Trouver("txtxprim1"));
    e_.Ligne_Xprim2 = ChampLire(*Trouver("txtxprim2"));
    auto courant = [this](const char* nom) {
        const double i = ChampLire(*Trouver(nom));
        return i == 0.0 ? 1.0 : i;
    };
    e_.Ligne_ItA = courant("txtita");
    e_.Ligne_ItB = courant("txtitb");
    e_.Ligne_ItC = courant("txtitc");
    FermerPanneau();
}

void PanneauValeurTroisBouts::Cliquer(const std::string& nom) {
    if (nom == "Command2") Valider();
}

} // namespace tournesol
