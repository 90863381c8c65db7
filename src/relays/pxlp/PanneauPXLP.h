// frmPXLP: the PXLP's panel, five sheets ("&Out of step", "&Resistance", "&Zones", "&Timers",
// "Signal") on the relay panel framework, those of the PXL family. The chain runs the band and
// the resistances, the zones, then the zones in ohms and the diagnostics.
#pragma once

#include "relays/PanneauProtection.h"

namespace tournesol {

class PanneauPXLP : public PanneauProtection {
public:
    PanneauPXLP(Etude& e, Dialogue& d);

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
