// frmréseauvaleurs: the electrical values of each section of the line, in the forms the user
// has at hand. The positive sequence is entered by resistance and reactance or by module and
// argument; the zero sequence by the earth factor ko, by resistance and reactance, or by module
// and argument. The fields of the forms not chosen are locked and kept computed from the chosen
// ones, so that ko = (Zo / Z1 - 1) / 3 holds between them as complex numbers.
#pragma once

#include "core/Panneau.h"

#include <array>

namespace tournesol {

struct Etude;

class PanneauValeursReseau : public Panneau {
public:
    // A three-ended line's sections are first brought back to the order of the ends.
    explicit PanneauValeursReseau(Etude& e);

    // A field of a section changed: the locked fields of that section are computed again.
    void Changer(const std::string& nom) override;
    // The entry options of a section, Command1 (OK) and Command2 (cancel).
    void Cliquer(const std::string& nom) override;
    // Enter confirms, Escape cancels.
    // Reads everything back; the angles of the line back to radians.
    void Valider() override;
    void Annuler() override;

    // Sections shown: 1 for Tl 0 and 1, 2 for Tl 2, 3 for Tl 3.
    int Sections() const { return sections_; }
    bool Confirme() const { return confirme_; }
    // The zero sequence module of each section as OK read it (ohm); the study has no variable
    // of its own for it.
    const std::array<double, 3>& Zo() const { return zo_; }

    // The title of the tab of section i.
    std::string Onglet(int i) const;

private:
    void Recalculer(int section);
    void Verrouiller(int section);

    Etude& e_;
    int sections_ = 1;
    bool confirme_ = false;
    std::array<double, 3> zo_{};
};

} // namespace tournesol
