// frmsa511: the 7SA511's panel, five sheets in the order of its chain: out of step, pick-up,
// zones, timers, signalling. Each field is one of the relay's numbered parameters and carries
// its code.
#pragma once

#include "relays/PanneauProtection.h"
#include "relays/sa511/CalculSA511.h"

namespace tournesol {

class PanneauSA511 : public PanneauProtection {
public:
    PanneauSA511(Etude& e, Dialogue& d);

    // The relay's name on the panel.
    static constexpr const char* LIBELLE = "7 SA 511";
    // The text of the label shown when the rated secondary current is not 1 A.
    static constexpr const char* ERREUR_IN =
        "Error: the implemented rated secondary current must be  1 A";

protected:
    CadrePlan CadreDuPlan() override;
    void LireOptions() override;
    // A change of the signalling options runs the signalling step again.
    void RecalculZones() override;
    void ApresSaisie(const DescriptionChamp& champ, double valeur) override;
    bool TeleactionParDefaut() const override { return false; }
    void Afficher() override;

private:
    void HorsPompage();
    void MiseEnRoute();
    void Zones();
    void Tempos();
    void Signalisation();
    // The program of blocking by out of step, from its three options.
    void LireProgramme();
    // Which fields show: the timers of the scheme chosen, the error of the rated current.
    void MontrerSelonReglages();

    DistancesCharge distances_;
};

} // namespace tournesol
