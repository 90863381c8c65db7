#include "network/PanneauxControle.h"

#include "core/Etude.h"
#include "network/PanneauxBouts.h"

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

// A field in a frame of the panel.
Champ Dans(Champ c, const char* cadre) {
    c.Groupe = cadre;
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
    // Three frames: the ends of the line, the values recalled, the reactances to check.
    AjouterChamp(Dans(Etiquette("fraBouts", "ends"), "fraBouts"));
    AjouterChamp(Dans(Etiquette("label3", e.NomPoste + " - " + e.NomDepart), "fraBouts"));
    AjouterChamp(Dans(Etiquette("fraRappels", "recalls"), "fraRappels"));
    AjouterChamp(Dans(Valeur("txtUn", "##0", "Rated voltage (kV)", e.Ligne_Up), "fraRappels"));
    AjouterChamp(Dans(Valeur("txtIn", "# ##0", "Rated current (A)", e.Ligne_Ip), "fraRappels"));
    AjouterChamp(Dans(Valeur("txtkv", "# ##0", "Voltage ratio", e.Kv), "fraRappels"));
    AjouterChamp(Dans(Valeur("txtki", "# ##0", "Current ratio", e.Ki), "fraRappels"));
    AjouterChamp(Dans(Valeur("txtkz", "#0.0#", "Impedance ratio", e.Kz), "fraRappels"));
    AjouterChamp(Dans(Etiquette("fraControle", "check"), "fraControle"));
    AjouterChamp(Dans(Valeur("txtxprim1", "##0.##", "First zone reactance (Ω P)", e.Ligne_Xprim1),
                      "fraControle"));
    AjouterChamp(Dans(Valeur("txtxprim2", "##0.##", "Second zone reactance (Ω P)", e.Ligne_Xprim2),
                      "fraControle"));
    AjouterChamp(Dans(Valeur("txtxprim3", "##0.##", "third zone reactance (Ω P)", e.Ligne_Xprim3),
                      "fraControle"));
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
    AjouterChamp(Valeur("txtxprim1", "#0.###", "first zone setting (Ω)", e.Ligne_Xprim1));
    AjouterChamp(Valeur("txtxprim2", "#0.###", "second zone setting (Ω)", e.Ligne_Xprim2));
    // Each end by its name, from the order of the sections; the relay's end is marked.
    const char* const courants[] = {"txtita", "txtitb", "txtitc"};
    const char* const legendes[] = {"maximal current running through A",
                                    "maximal current running through B",
                                    "maximal current running through C"};
    const double valeurs[] = {e.Ligne_ItA, e.Ligne_ItB, e.Ligne_ItC};
    for (int i = 0; i < 3; ++i) {
        const int bout = e.Ligne_Ex[static_cast<std::size_t>(i)];
        std::string legende = legendes[i];
        if (bout >= 1 && bout <= 3) legende += " : " + NomBout(e, bout);
        if (bout == e.Ligne_pp + 1) legende += " (relay)";
        Champ c = Valeur(courants[i], "####", "", valeurs[i]);
        c.Legende = legende + " (A)";
        AjouterChamp(std::move(c));
    }
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
