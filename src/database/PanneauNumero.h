// frmnuméro: the number of the relay, asked by the save when the study has none.
#pragma once

#include "core/Panneau.h"

namespace tournesol {

struct Etude;

class PanneauNumero : public Panneau {
public:
    explicit PanneauNumero(Etude& e);

    void Entrer(const std::string& champ) override;
    void Cliquer(const std::string& nom) override;
    // "OK": id_numero takes the numeric value of the text, with no range test; an empty box
    // gives no number, as cancel.
    void Valider() override;
    // "cancel": id_numero stays as it was.
    void Annuler() override;
    // OK was pressed on a number.
    bool Donne() const { return donne_; }

private:
    Etude& e_;
    bool donne_ = false;
};

// The numeric value at the head of a text, as the run-time reads it ("3" 3, " 2.5x" 2.5, "abc"
// 0).
double ValeurNumerique(const std::string& texte);

} // namespace tournesol
