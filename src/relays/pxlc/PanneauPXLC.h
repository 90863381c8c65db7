// frmPXLC: the PXLC-PSEL's panel, the PXL family's five sheets ("&Out of step", "&Resistance",
// "&Zones", "&Timers", "Signal") to the relay's steps, the signal sheet with the phase selector
// and the setting sheet's box. The chain runs the band and the resistances, the zones, then the
// zones in ohms and the diagnostics.
#pragma once

#include "relays/PanneauProtection.h"

namespace tournesol {

class PanneauPXLC : public PanneauProtection {
public:
    PanneauPXLC(Etude& e, Dialogue& d);

protected:
    CadrePlan CadreDuPlan() override;
    void LireOptions() override;
    void RecalculZones() override;
    void ApresSaisie(const DescriptionChamp& champ, double valeur) override;
    void Afficher() override;

private:
    bool remarqueDeltaR_ = false; // deltaR was changed: the remark stays shown
};

} // namespace tournesol
