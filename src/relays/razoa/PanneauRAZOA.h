// frmRAZOA: the RAZOA's panel, five sheets ("Zones", "pick up", "out of step", "Others",
// "Timers") on the relay panel framework. The chain runs the zones, the out-of-step width and
// the pick-up, the out-of-step coding, the others, the timers, then the diagnostics.
#pragma once

#include "relays/PanneauProtection.h"

namespace tournesol {

class PanneauRAZOA : public PanneauProtection {
public:
    PanneauRAZOA(Etude& e, Dialogue& d);

protected:
    CadrePlan CadreDuPlan() override;
    void LireOptions() override;
    void ApresSaisie(const DescriptionChamp& champ, double valeur) override;
    void ApresClic(const std::string& nom) override;
    void Afficher() override;

private:
    void CalculZones();
    void SaisieZones();
};

} // namespace tournesol
