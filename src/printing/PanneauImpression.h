// frmPrint, the print dialog: the number of copies, colour or black, dotted or full lines, and
// the parts of the report. OK and cancel both take the options; cancel then stops the print.
#pragma once

#include "core/Panneau.h"

namespace tournesol {

struct Etude;

class PanneauImpression : public Panneau {
public:
    // The settings part follows the relay; for the PXLC, the flag its panel keeps
    // (PXLC.FeuilleReglages).
    explicit PanneauImpression(Etude& e);

    // cmd(0) OK, cmd(1) cancel; the boxes hold their own state.
    void Cliquer(const std::string& nom) override;
    // OK: the options go to the study, ErrCalcul 0.
    void Valider() override;
    // Cancel: the options go to the study all the same, ErrCalcul -1.
    void Annuler() override;
    // The close box cancels.
    bool Fermer() override;

    static constexpr int COPIES_MAX = 99;

private:
    void Prendre();

    Etude& e_;
};

} // namespace tournesol
