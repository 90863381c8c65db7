// A panel whose fields are the rows of a table made once for the program: what a relay's panel
// and the sheets it opens share. The panel makes its fields from the table, shows the study
// through it (numbers, texts, lists of choices, options that set one number, twins in the other
// column) and reads a field back by it (limited to its range, taken to its step).
#pragma once

#include "core/Panneau.h"
#include "relays/ChampRelais.h"

#include <string>
#include <vector>

namespace tournesol {

struct Etude;

class PanneauTable : public Panneau {
public:
    PanneauTable(std::string nom, Etude& e);

    // The row of the table that declared a field; nullptr for a field declared otherwise.
    const DescriptionChamp* Description(const std::string& nom) const;
    // The sheets, left to right, and the one in front.
    int NombreOnglets() const { return static_cast<int>(onglets_.size()); }
    const std::vector<std::string>& Onglets() const { return onglets_; }
    int OngletCourant() const { return ongletCourant_; }
    // The sheet in front is enabled, the others are not.
    bool OngletActif(int i) const { return i == ongletCourant_; }

    void Entrer(const std::string& champ) override; // the field's text is selected

protected:
    void DeclarerOnglets(std::vector<std::string> titres);
    // Makes the fields of the table, in its order. The table outlives the panel: a relay keeps it
    // in a static, made at the first opening.
    void DeclarerChamps(const TableChamps& table);

    // Every field of the table that shows a study variable shows it again; a twin that has no
    // variable of its own shows the image of its value.
    void AfficherChamps();
    // The number a value field holds, read, limited to its range and taken to its step.
    double ValeurDuChamp(const DescriptionChamp& d, Champ& champ);
    // What a field holds, put into its study variable: a number, a text, the index of a list's
    // entry, an option or a check box.
    void EcrireVariable(const DescriptionChamp& d, Champ& champ);
    // A click on an option or a check box of the table: the other options of its frame are
    // released; with `dansEtude` the variables follow at once.
    void ClicOption(const DescriptionChamp& d, Champ& champ, bool dansEtude);
    // The entry of a list chosen by the user, by index or by its text; -1 when none matches.
    static int EntreeChoisie(const DescriptionChamp& d, const Champ& champ);
    // The field of row i of the table.
    Champ& ChampDeLigne(std::size_t i) { return ChampNumero(debutTable_ + i); }
    const TableChamps* Table() const { return table_; }
    // The sheet in front becomes i.
    void MettreDevant(int i) { ongletCourant_ = i; }

    // After AfficherChamps: what a panel shows beside its table's rows.
    virtual void AfficherOptionsLiees() {}

    Etude& e_;

private:
    void AfficherLigne(const DescriptionChamp& d, Champ& c);

    std::vector<std::string> onglets_;
    int ongletCourant_ = 0;
    const TableChamps* table_ = nullptr;
    std::size_t debutTable_ = 0; // the field of the table's first row; the others follow it
};

} // namespace tournesol
