// frmSupprimerPoste: the deletion dialog of the opening dialog. It deletes the relay shown, the
// whole line (substation B, and C), or the whole substation A, after a confirmation.
#pragma once

#include "core/Panneau.h"

namespace tournesol {

struct Etude;
class Dialogue;
class BaseEtudesSql;

class PanneauSupprimerPoste : public Panneau {
public:
    PanneauSupprimerPoste(Etude& e, Dialogue& d, BaseEtudesSql& base);

    // The three options, cmdok, cmdcancel.
    void Cliquer(const std::string& nom) override;
    // cmdok: asks the confirmation; on "&Supprimer" runs the cascade of the option and closes,
    // on "&Annuler" the dialog stays.
    void Valider() override;

    // Once the dialog is closed by cmdok, the opening dialog's relay list loses its selection,
    // and these of its boxes are emptied (the study's names are emptied with them).
    bool ViderDepartPiquage() const { return viderDepart_; }
    bool ViderPoste() const { return viderPoste_; }

private:
    std::string Option() const;

    Etude& e_;
    Dialogue& d_;
    BaseEtudesSql& base_;
    bool viderDepart_ = false;
    bool viderPoste_ = false;
};

} // namespace tournesol
