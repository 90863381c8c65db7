#include "diagnostics/Diagnostics.h"

#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Format.h"
#include "core/Registre.h"

#include <array>
#include <map>

namespace tournesol {

namespace {

// The rule numbers by relay, in the order of id_protection. Numbers 13, 14, 26 to 28, 63, 77 and
// 78 belong to no relay; PXLP prints 42 and 43 but its window does not show them.
constexpr std::array<BlocRegles, NOMBRE_RELAIS> BLOCS = {{
    {1, 6, 1, 6, "Diagnostics concerning the  7 SA 511"},
    {7, 12, 7, 12, "Diagnostics concerning the EPAC"},
    {15, 21, 15, 21, "Diagnostics concerning the PD3A"},
    {22, 25, 22, 25, "Diagnostics concerning the PDS"},
    {29, 34, 29, 34, "Diagnostics concerning the PXLC"},
    {35, 43, 35, 41, "Diagnostics concerning the PXLP"},
    {44, 49, 44, 49, "Diagnostics concerning the PXLN"},
    {50, 56, 50, 56, "Diagnostics concerning the RAZOA"},
    {57, 62, 57, 62, "Diagnostics concerning the REL100"},
    {64, 70, 64, 70, "Diagnostics concerning the REZ1"},
    {71, 76, 71, 76, "Diagnostics concerning the RXAP"},
    {79, 87, 79, 87, "Diagnostics concerning the S 321-5"},
}};

std::size_t Indice(int n) {
    if (n < 1 || n > NOMBRE_REGLES) LeverErreur(ERR_INDICE);
    return static_cast<std::size_t>(n - 1);
}

// The texts known, by rule number; those held here come first.
std::map<int, TexteRegle>& Textes() {
    static std::map<int, TexteRegle> textes = [] {
        std::map<int, TexteRegle> t;
        for (const TexteRegle& r : TextesReglesDuGuide())
            t[r.Numero] = r;
        return t;
    }();
    return textes;
}

std::string Joindre(const std::vector<std::string>& lignes, const char* separateur) {
    std::string texte;
    for (const std::string& l : lignes) {
        if (!texte.empty()) texte += separateur;
        texte += l;
    }
    return texte;
}

} // namespace

void DefinirRegle(Etude& e, int n, bool active, double valeur) {
    const std::size_t i = Indice(n);
    e.DiagDrapeaux[i] = active;
    e.DiagValeurs[i] = valeur;
}

void PoserRegle(Etude& e, int n, double valeur) {
    DefinirRegle(e, n, true, valeur);
}

void EffacerRegle(Etude& e, int n) {
    e.DiagDrapeaux[Indice(n)] = false;
}

bool ReglagesNonCalcules(const Etude& e) {
    return RelaisConnu(e.id_protection) && !PanneauRelaisInscrit(e.id_protection);
}

std::string TexteReglagesNonCalcules(const Etude& e) {
    const auto nom = LEGENDES_PROTECTION[static_cast<std::size_t>(
        RelaisConnu(e.id_protection) ? e.id_protection - 1 : 0)];
    return "Settings of the " + std::string(nom) + " not computed (no panel for this relay yet).";
}

bool RegleActive(const Etude& e, int n) {
    return e.DiagDrapeaux[Indice(n)];
}

double ValeurRegle(const Etude& e, int n) {
    return e.DiagValeurs[Indice(n)];
}

void EffacerReglesRelais(Etude& e, int id) {
    if (const BlocRegles* bloc = BlocDuRelais(id))
        for (int n = bloc->PremiereImprimee; n <= bloc->DerniereImprimee; ++n)
            EffacerRegle(e, n);
}

const BlocRegles* BlocDuRelais(int id) {
    if (id < 1 || id > NOMBRE_RELAIS) return nullptr;
    return &BLOCS[static_cast<std::size_t>(id - 1)];
}

int RelaisDeLaRegle(int n) {
    for (int id = 1; id <= NOMBRE_RELAIS; ++id) {
        const BlocRegles& b = BLOCS[static_cast<std::size_t>(id - 1)];
        if (n >= b.PremiereImprimee && n <= b.DerniereImprimee) return id;
    }
    return 0;
}

bool InscrireReglesRelais(int id, const std::vector<TexteRegle>& regles) {
    const BlocRegles* bloc = BlocDuRelais(id);
    if (!bloc) return false;
    for (const TexteRegle& r : regles)
        if (r.Numero < bloc->PremiereImprimee || r.Numero > bloc->DerniereImprimee) return false;
    auto& textes = Textes();
    for (const TexteRegle& r : regles) {
        TexteRegle& t = textes[r.Numero];
        t.Numero = r.Numero;
        if (!r.Rapport.empty()) t.Rapport = r.Rapport;
        if (!r.Fenetre.empty()) t.Fenetre = r.Fenetre;
        if (!r.Unite.empty()) t.Unite = r.Unite;
        t.ValeurImprimee = r.ValeurImprimee;
    }
    return true;
}

std::optional<TexteRegle> TexteDeRegle(int n) {
    const auto& textes = Textes();
    const auto it = textes.find(n);
    if (it == textes.end()) return std::nullopt;
    return it->second;
}

std::string TexteFenetre(int n) {
    const auto t = TexteDeRegle(n);
    if (!t) return {};
    return t->Fenetre.empty() ? Joindre(t->Rapport, " ") : t->Fenetre;
}

std::string UniteFenetre(int n) {
    const auto t = TexteDeRegle(n);
    return t && !t->Unite.empty() ? t->Unite : UNITE_FENETRE;
}

std::vector<std::string> TextesRegleRapport(int n) {
    const auto t = TexteDeRegle(n);
    return t ? t->Rapport : std::vector<std::string>{};
}

std::optional<RegleImprimee> RegleRapport(const Etude& e, int n) {
    if (n < 1 || n > NOMBRE_REGLES) return std::nullopt;
    RegleImprimee regle;
    regle.Numero = n;
    int source = n;
    if (const auto t = TexteDeRegle(n)) {
        regle.Lignes = t->Rapport;
        if (t->ValeurImprimee >= 1 && t->ValeurImprimee <= NOMBRE_REGLES)
            source = t->ValeurImprimee;
    }
    regle.Valeur = FormaterNombre(ValeurRegle(e, source), FORMAT_RAPPORT);
    return regle;
}

std::vector<RegleImprimee> ReglesRapport(const Etude& e) {
    std::vector<RegleImprimee> regles;
    const BlocRegles* bloc = BlocDuRelais(e.id_protection);
    if (!bloc) return regles;
    for (int n = bloc->PremiereImprimee; n <= bloc->DerniereImprimee; ++n)
        if (RegleActive(e, n)) regles.push_back(*RegleRapport(e, n));
    return regles;
}

int NombreReglesImprimees(const Etude& e) {
    const BlocRegles* bloc = BlocDuRelais(e.id_protection);
    return bloc ? bloc->DerniereImprimee - bloc->PremiereImprimee + 1 : 0;
}

std::string TexteRapport(const RegleImprimee& regle) {
    return Joindre(regle.Lignes, "\r\n") + regle.Valeur + SIGNE_OHM_RAPPORT + PRIMAIRE_RAPPORT;
}

} // namespace tournesol
