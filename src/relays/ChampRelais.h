// The fields of a relay panel, declared as the rows of a table: name, caption, unit, format,
// range, column (secondary or primary ohms), desired or set value, and the study variable the
// field shows. The panel makes its fields from the table, shows the study through it and handles
// the exit of every field by it.
#pragma once

#include "core/Champ.h"
#include "core/Etude.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <vector>

namespace tournesol {

// Where an impedance stands: secondary ohms (a name ending in _BT) or primary ohms (_HT);
// primary = secondary times Kz.
enum class ColonneOhms { Aucune, Secondaire, Primaire };

// A desired value (what the rules or the user ask for) or a set value (the nearest value the
// relay's steps can give). Set values are display-only.
enum class NatureValeur { Autre, Souhaitee, Reglee };

// How a value is taken to the relay's step.
enum class ModeArrondi { Proche, Dessous, Dessus };

// How the twin of a field (the same value in the other column) is worked out from it, a
// secondary value to its primary image: an impedance by Kz, a current by Ip / Is, a timer in
// milliseconds to whole cycles of 20 ms (shown only, never read back).
enum class RapportJumeau { Kz, Courant, Cycles };

// Unit captions of the two columns of ohms: the ohm sign, then P for primary or S for secondary.
inline constexpr const char* UNITE_SECONDAIRE = "Ω S";
inline constexpr const char* UNITE_PRIMAIRE = "Ω P";

// A variable of the study that a field shows, read and written as a number.
struct Variable {
    std::function<double(const Etude&)> Lire;
    std::function<void(Etude&, double)> Ecrire;
    explicit operator bool() const { return static_cast<bool>(Lire) && static_cast<bool>(Ecrire); }
};

// A variable of the study that a field shows as a text (a strap's position, "0N", "OFF").
struct VariableTexte {
    std::function<std::string(const Etude&)> Lire;
    std::function<void(Etude&, const std::string&)> Ecrire;
    explicit operator bool() const { return static_cast<bool>(Lire) && static_cast<bool>(Ecrire); }
};

// A number put into a variable of the study's type: a Boolean is true for any non-zero value,
// an integer takes the nearest whole value within the integer's range.
template <class T> void AffecterNombre(T& cible, double valeur) {
    if constexpr (std::is_same_v<T, bool>) {
        cible = valeur != 0.0;
    } else if constexpr (std::is_integral_v<T>) {
        const double entier = std::round(valeur);
        if (!(entier == entier)) return; // not a number: the variable stays
        cible =
            static_cast<T>(std::clamp(entier, static_cast<double>(std::numeric_limits<T>::min()),
                                      static_cast<double>(std::numeric_limits<T>::max())));
    } else {
        cible = static_cast<T>(valeur);
    }
}

// A shared variable of the study: Lien(&Etude::X1_BT).
template <class T> Variable Lien(T Etude::*membre) {
    static_assert(std::is_arithmetic_v<T>, "a field shows a number or a Boolean");
    return {[membre](const Etude& e) { return static_cast<double>(e.*membre); },
            [membre](Etude& e, double v) { AffecterNombre(e.*membre, v); }};
}

// A variable of a relay's own record: Lien(&Etude::PD3A, &RelaisPD3A::K1).
template <class R, class T> Variable Lien(R Etude::*relais, T R::*membre) {
    static_assert(std::is_arithmetic_v<T>, "a field shows a number or a Boolean");
    return {[relais, membre](const Etude& e) { return static_cast<double>((e.*relais).*membre); },
            [relais, membre](Etude& e, double v) { AffecterNombre((e.*relais).*membre, v); }};
}

// An element of an array of the study: Lien(&Etude::Tempo, 3).
template <class T, std::size_t N> Variable Lien(std::array<T, N> Etude::*tableau, std::size_t i) {
    static_assert(std::is_arithmetic_v<T>, "a field shows a number or a Boolean");
    return {[tableau, i](const Etude& e) { return static_cast<double>((e.*tableau).at(i)); },
            [tableau, i](Etude& e, double v) { AffecterNombre((e.*tableau).at(i), v); }};
}

// An element of an array of a relay's record: Lien(&Etude::PXLN, &RelaisPXLN::XPct, 0).
template <class R, class T, std::size_t N>
Variable Lien(R Etude::*relais, std::array<T, N> R::*tableau, std::size_t i) {
    static_assert(std::is_arithmetic_v<T>, "a field shows a number or a Boolean");
    return {[relais, tableau, i](const Etude& e) {
                return static_cast<double>(((e.*relais).*tableau).at(i));
            },
            [relais, tableau, i](Etude& e, double v) {
                AffecterNombre(((e.*relais).*tableau).at(i), v);
            }};
}

// A text of a relay's record: LienTexte(&Etude::RAZOA, &RelaisRAZOA::str26).
template <class R> VariableTexte LienTexte(R Etude::*relais, std::string R::*membre) {
    return {[relais, membre](const Etude& e) { return (e.*relais).*membre; },
            [relais, membre](Etude& e, const std::string& t) { (e.*relais).*membre = t; }};
}

// The same variable seen through a factor: the field shows the value times `facteur` and
// writes back its quotient (an angle kept in radians, shown in degrees).
Variable Echelle(Variable v, double facteur);
// An angle kept in radians, shown in degrees.
Variable EnDegres(Variable v);
// A value kept in primary ohms, shown in secondary ohms (divided by Kz).
Variable ParKz(Variable v);

// One row of a relay panel's table of fields.
struct DescriptionChamp {
    std::string Nom{};           // the control's name, accents kept ("txtX1_bt", "chkTéléaction")
    std::string Legende{};       // caption; the text of an option or a check box
    std::string Unite{};         // unit, shown after the caption; by the column when left empty
    std::string Format{};        // picture format of a value field
    std::optional<double> Min{}; // range: a value beyond it is replaced by the limit, silently
    std::optional<double> Max{};
    ColonneOhms Colonne = ColonneOhms::Aucune;
    NatureValeur Nature = NatureValeur::Autre;
    std::string Groupe{}; // "sheet title/frame title"
    bool Saisie = false;  // the user may type in it (never for a set value)
    GenreChamp Genre = GenreChamp::Texte;
    Variable Valeur{};    // the study variable shown; none for a field the relay writes itself
    std::string Jumeau{}; // the field of the same value in the other column of ohms
    double Pas = 0.0;     // the relay's step; 0 when the format's decimals are the only rounding
    ModeArrondi Arrondi = ModeArrondi::Proche;
    // An option of a group that sets one number (ZonesBloquees 0 to 4, TypeIn 1 or 1.5): the
    // value this option puts into the group's variable; the option shows it is chosen when the
    // variable holds it.
    std::optional<double> ValeurOption{};
    // A list of choices: its entries; the variable holds the index of the entry chosen, the
    // field shows the entry's text.
    std::vector<std::string> Choix{};
    // A value that is a text, not a number; the field shows it as it stands.
    VariableTexte Texte{};
    RapportJumeau Rapport = RapportJumeau::Kz; // how the twin is worked out
    std::string Aide{};                        // the hint shown where the pointer rests
};

// The frame of a field: "sheet title/frame title".
std::string GroupeFeuille(std::string_view feuille, std::string_view cadre);

// Rows of the usual kinds. A number shown through its format (typed when `saisie`); an option of
// a frame that puts `valeur` into the frame's variable; a check box on a Boolean; a text across
// its frame.
DescriptionChamp ChampValeur(std::string nom, std::string legende, std::string format,
                             std::string groupe, Variable v, bool saisie = false,
                             std::string unite = {});
DescriptionChamp ChampOption(std::string nom, std::string legende, std::string groupe, Variable v,
                             double valeur);
DescriptionChamp ChampCase(std::string nom, std::string legende, std::string groupe, Variable v);
DescriptionChamp ChampEtiquette(std::string nom, std::string texte, std::string groupe);
// A timer typed in milliseconds, within 0 to `max`, taken down to the relay's step `pas` (none
// for 0).
DescriptionChamp ChampTempo(std::string nom, std::string legende, std::string groupe,
                            Entier16 Etude::*t, double max, double pas = 0.0);
// A value the panel shows and nobody types: ChampValeur without typing.
DescriptionChamp ChampAffiche(std::string nom, std::string legende, std::string format,
                              std::string groupe, Variable v, std::string unite = {});

// The table of a relay's fields, made once for the program (a relay keeps it in a static) and
// shared by every panel of that relay: the rows in their order, each with its caption as the
// panel shows it, and an index by name.
class TableChamps {
public:
    explicit TableChamps(std::vector<DescriptionChamp> lignes);
    TableChamps(const TableChamps&) = delete;
    TableChamps& operator=(const TableChamps&) = delete;

    const std::vector<DescriptionChamp>& Lignes() const { return lignes_; }
    // The row of that name; nullptr for none.
    const DescriptionChamp* Trouver(std::string_view nom) const;
    // The caption of row i with its unit (LegendeAvecUnite), worked out once.
    const std::string& LegendeComplete(std::size_t i) const { return legendes_[i]; }

private:
    std::vector<DescriptionChamp> lignes_;
    std::vector<std::string> legendes_;
    std::unordered_map<std::string_view, std::size_t> index_; // names held by lignes_
};

// The image of a value in the twin column: by Kz for an impedance, Ip / Is for a current, in
// whole cycles of 20 ms for a timer. From the secondary column to the primary one unless
// `versSecondaire`.
double ImageJumeau(const Etude& e, RapportJumeau rapport, double valeur, bool versSecondaire);

// The unit of a field: its own, or that of its column of ohms; empty for none.
std::string UniteDuChamp(const DescriptionChamp& d);

// The caption of a field as the panel shows it: the caption, then the unit in brackets.
std::string LegendeAvecUnite(const DescriptionChamp& d);

// A value kept within the field's range.
double LimiterValeur(const DescriptionChamp& d, double valeur);

// A value taken to the field's step (nothing without a step).
double ArrondirAuPas(const DescriptionChamp& d, double valeur);
// A value taken to a step that is not a field's (a relay whose steps follow its rated current):
// a multiple of it up to the noise of the division stays where it is; nothing without a step.
double ArrondirAuPas(double valeur, double pas, ModeArrondi arrondi);

// The four reaches the zone relays share (X1 to X4, desired then set): in mode "Return" the
// desired ones from the line (zones 1 to 3, the backward zone the third less the line), then
// their secondary values.
void ZonesSouhaiteesDeLaLigne(Etude& e);
// The primary images of the four desired and the four set reaches.
void ZonesEnPrimaire(Etude& e);

} // namespace tournesol
