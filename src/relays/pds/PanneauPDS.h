// frmPDS: the PDS's panel, three sheets ("zones", "Pick up", "timers") on the
// relay panel framework. The chain runs the reactance zones, the starting
// circle, the timers, then the diagnostics.
#pragma once

#include "relays/PanneauProtection.h"

namespace tournesol {

class PanneauPDS : public PanneauProtection {
public:
    PanneauPDS(Etude& e, Dialogue& d);

protected:
    CadrePlan CadreDuPlan() override;
    void ApresSaisie(const DescriptionChamp& champ, double valeur) override;
};

} // namespace tournesol
