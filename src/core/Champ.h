// A field of a panel as the engine holds it, and the one way every field is written and read.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tournesol {

// What a field is on the window: a text box, a list with free text, an option of a group, a
// check box, a button or a text to read.
enum class GenreChamp { Texte, Liste, Option, Case, Bouton, Etiquette };

// A fixed text of a field, its caption or its frame: either a text of the program that stands
// elsewhere for good (a literal, a relay's table of fields made once), only seen from here, or
// a text the field keeps itself. Only a literal or an explicit Vue is seen without a copy.
class TexteFixe {
public:
    TexteFixe() = default;
    TexteFixe(const char* litteral) : vue_(litteral) {}
    TexteFixe(std::string texte) : propre_(std::move(texte)) {}
    // A text that outlives the field.
    static TexteFixe Vue(std::string_view permanent) {
        TexteFixe t;
        t.vue_ = permanent;
        return t;
    }

    std::string_view Vue() const { return propre_ ? std::string_view(*propre_) : vue_; }
    operator std::string_view() const { return Vue(); }
    std::string Texte() const { return std::string(Vue()); }
    bool empty() const { return Vue().empty(); }

    friend bool operator==(const TexteFixe& a, std::string_view b) { return a.Vue() == b; }
    friend std::ostream& operator<<(std::ostream& o, const TexteFixe& t) { return o << t.Vue(); }

private:
    std::optional<std::string> propre_;
    std::string_view vue_;
};

struct Champ {
    Champ() = default;
    Champ(std::string nom, std::string texte, std::string format)
        : Nom(std::move(nom)), Format(std::move(format)), texte_(std::move(texte)) {}

    std::string Nom;    // the name the view's widget bears
    std::string Format; // picture format of a numeric field, empty for a text
    TexteFixe Legende;  // caption
    TexteFixe Aide;     // the hint shown where the pointer rests
    bool Actif = true;  // enabled
    bool Visible = true;
    bool Valeur = false; // an option or check box: pressed
    int SelDebut = 0;    // selection, in characters
    int SelLongueur = 0;
    GenreChamp Genre = GenreChamp::Texte;
    TexteFixe Groupe;               // the frame or tab it stands in
    std::vector<std::string> Liste; // the entries of a list
    int IndexListe = -1;            // the entry chosen, -1 for a free text

    // What the field shows. A number written by ChampEcrire is put through the format only
    // here, when someone reads the field: a panel that nobody sees formats nothing.
    const std::string& Texte() const;
    void DefinirTexte(std::string texte);

private:
    friend void ChampEcrire(Champ& champ, double valeur);
    mutable std::string texte_;
    double nombre_ = 0.0;            // the number waiting to be formatted
    mutable bool aFormater_ = false; // texte_ does not show nombre_ yet
};

// Shows a value through the field's format. A pending run-time error, or an empty text,
// shows 0 instead; the pending error is cleared.
void ChampEcrire(Champ& champ, double valeur);
void ChampEcrire(Champ& champ, std::string_view valeur);

// The field's value, rounded to the decimals of its format. The first comma becomes the
// machine's decimal separator in the field itself. "0", "," and an empty field read as 0, and
// so does a text that is not a number.
double ChampLire(Champ& champ);

// Selects the whole text of the field.
void ChampSelection(Champ& champ);

// The text with every occurrence of `cherche` replaced; a replacement is not searched again.
std::string Remplacer(std::string_view texte, std::string_view cherche,
                      std::string_view remplacement);

} // namespace tournesol
