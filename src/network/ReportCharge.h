// The load report: when a neighbouring link trips, its load reports on the protected line. The
// factors CRt (three phase) and CRm (single phase) are computed from the neighbour link's
// reactance or typed in.
#pragma once

#include "core/Panneau.h"

namespace tournesol {

struct Etude;
class Dialogue;

// The last step of the line computation: the generator side follows the relay's end, and the
// panel comes up when the factor of the case is wanted.
void EtapeReport(Etude& e, Dialogue& d);

// The factor of the neighbour link (computing mode), from Ligne_XLA and Ligne_UnA.
double CalculFacteurReport(Etude& e);

// frmReportCharge.
class PanneauReportCharge : public Panneau {
public:
    PanneauReportCharge(Etude& e, Dialogue& d);

    // Option buttons and Command2.
    void Cliquer(const std::string& nom) override;
    // Command2: computes, or takes what was typed; then the panel closes.
    void Valider() override;
    // The close box. Unconfirmed values raise the question; returns false when the user
    // chooses to stay.
    bool Fermer() override;
    // Escape is the close box: unconfirmed values raise the question.
    void Annuler() override { Fermer(); }

    bool Confirme() const { return confirme_; }

private:
    void Calculer();
    void EcrireResultat();
    void LireSaisie();
    void ChoisirMode(bool calcul);
    // One of the level options; UnA follows it ("other" takes Up).
    void ChoisirNiveau(const std::string& option);

    Etude& e_;
    Dialogue& d_;
    bool confirme_ = false;
    bool erreurPosee_ = false; // ErrCalcul holds the failure of one of its commands
    // What the study held when the panel came up, for "&Continuer".
    double crt_, crm_, xla_, xld_, xs_, xsmini_;
    int una_;
};

} // namespace tournesol
