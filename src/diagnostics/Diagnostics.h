// The setting diagnostics: the rule flags and limits of the study (DiagDrapeaux, DiagValeurs,
// rule n at index n - 1), the numbering of the rules by relay, the texts of every rule for the
// report and for the window, and the rules as the report prints them.
//
// A relay's last computation step clears its block and sets its rules:
//
//     EffacerReglesRelais(e, 3);
//     DefinirRegle(e, 15, 1.2 * X2reg_HT > X3reg_HT, 1.2 * X2reg_HT);
//
// A relay whose rule texts are not held here registers them once, before its panel is first
// made:
//
//     InscrireReglesRelais(3, {{.Numero = 15, .Rapport = {"The third zone is ..."}}, ...});
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tournesol {

struct Etude;

inline constexpr const char* TITRE_DIAGNOSTICS = "Diagnostics";
inline constexpr const char* AUCUNE_DISCORDANCE = "No discordance with the setting guide.";
inline constexpr const char* CONFORME_AU_GUIDE = "In accordance with the setting guide";

// A relay chosen whose panel does not exist in this program: its settings are not computed, its
// rules never tested. The window, the working window and the report then say so, and never
// give a verdict of the setting guide.
bool ReglagesNonCalcules(const Etude& e);
// "Settings of the SA 511 not computed (no panel for this relay yet)."
std::string TexteReglagesNonCalcules(const Etude& e);
// Limits in the window and in the report.
inline constexpr const char* FORMAT_FENETRE = "##0.##";
inline constexpr const char* FORMAT_RAPPORT = "##0.0#";
// The unit label of the window: the ohm sign and P (primary), both in the symbol font.
inline constexpr const char* UNITE_FENETRE = "ΩΠ";
// In the report the value is followed by the ohm sign, in the symbol font one point smaller
// than the text around it, then by " P" in the text's font.
inline constexpr const char* SIGNE_OHM_RAPPORT = " Ω";
inline constexpr const char* PRIMAIRE_RAPPORT = " P";
// Indent of the lines after the first of a rule, in the report.
inline constexpr int RETRAIT_LIGNES_SUIVANTES = 5;

// Flags and limits. n is the rule number, 1 to 100; another number is error 9.
void DefinirRegle(Etude& e, int n, bool active, double valeur);
void PoserRegle(Etude& e, int n, double valeur);
void EffacerRegle(Etude& e, int n);
bool RegleActive(const Etude& e, int n);
double ValeurRegle(const Etude& e, int n);
// Clears the flags of the rules printed for relay id (its whole block).
void EffacerReglesRelais(Etude& e, int id);

// The rules of a relay: those printed, those shown in the window, and the title of its sheet.
struct BlocRegles {
    int PremiereImprimee = 0;
    int DerniereImprimee = 0;
    int PremiereAffichee = 0;
    int DerniereAffichee = 0;
    const char* TitreFeuille = "";
};
// The block of relay id_protection; nullptr for 0 or an unknown relay.
const BlocRegles* BlocDuRelais(int id);
// The relay whose block holds rule n; 0 for a number no relay uses.
int RelaisDeLaRegle(int n);

// The texts of a rule.
struct TexteRegle {
    int Numero = 0;
    // The report's text, one string a line (one to three); the value follows the last.
    std::vector<std::string> Rapport{};
    // The window's text, on one line with its value and unit; when empty the window shows the
    // report's text.
    std::string Fenetre{};
    // The window's unit label; UNITE_FENETRE when empty.
    std::string Unite{};
    // The rule whose limit the report prints with this text; 0 for its own.
    int ValeurImprimee = 0;
};

// Registers the rule texts of relay id. A text or unit left empty keeps what is held already
// (the window texts that this module holds for RAZOA, RXAP and S 321-5 stay when their relay
// registers its report texts). False, and nothing registered, when a rule lies outside the
// relay's block.
bool InscrireReglesRelais(int id, const std::vector<TexteRegle>& regles);
// The texts of rule n; nothing when none are known.
std::optional<TexteRegle> TexteDeRegle(int n);
// The window's text of rule n.
std::string TexteFenetre(int n);
// The window's unit label of rule n.
std::string UniteFenetre(int n);

// A rule as the report prints it. Its first line stands at the left margin, every further line
// at the indent RETRAIT_LIGNES_SUIVANTES. The value follows the last line, then the ohm sign and
// " P".
struct RegleImprimee {
    int Numero = 0;
    std::vector<std::string> Lignes{};
    std::string Valeur{}; // in FORMAT_RAPPORT
};
// The report's lines of rule n, the value to follow the last one; empty when the rule has no
// text. The shape the report's page takes for its rule texts.
std::vector<std::string> TextesRegleRapport(int n);
// Rule n for the report, whether set or not, with the limit it prints (that of the rule named by
// ValeurImprimee, where there is one); nothing for a number beyond 1 to 100.
std::optional<RegleImprimee> RegleRapport(const Etude& e, int n);
// The rules set in the printed block of the current relay, in ascending order; empty when the
// setting agrees with the guide (the report then prints AUCUNE_DISCORDANCE).
std::vector<RegleImprimee> ReglesRapport(const Etude& e);
// The number of rules of the printed block of the current relay: the progress bar goes one
// step forward after each, set or not.
int NombreReglesImprimees(const Etude& e);
// A rule as plain text: its lines joined by carriage return and line feed, then the value, the
// ohm sign and " P".
std::string TexteRapport(const RegleImprimee& regle);

// The texts that this module holds itself: the rules of 7SA511, REL 100 and REZ1, and the window
// texts of RAZOA, RXAP and S 321-5.
const std::vector<TexteRegle>& TextesReglesDuGuide();

} // namespace tournesol
