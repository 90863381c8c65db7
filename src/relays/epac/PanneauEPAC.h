// frmEpac: the EPAC's panel, three sheets ("zones", "Pick up", "timers") on the relay panel
// framework. The chain runs the zones, the resistive reach, the settings, then the diagnostics.
#pragma once

#include "relays/PanneauProtection.h"

namespace tournesol {

class PanneauEPAC : public PanneauProtection {
public:
    PanneauEPAC(Etude& e, Dialogue& d);

protected:
    CadrePlan CadreDuPlan() override;
    void ApresSaisie(const DescriptionChamp& champ, double valeur) override;
    void ApresClic(const std::string& nom) override;
};

} // namespace tournesol
