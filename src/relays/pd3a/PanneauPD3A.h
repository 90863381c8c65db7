// frmPD3A: the PD3A's panel, three sheets ("zones", "Pick up", "timers") on the relay panel
// framework. The chain runs the zones, the resistance, the settings, then the diagnostics.
#pragma once

#include "relays/PanneauProtection.h"

namespace tournesol {

class PanneauPD3A : public PanneauProtection {
public:
    PanneauPD3A(Etude& e, Dialogue& d);

protected:
    CadrePlan CadreDuPlan() override;
    void LireOptions() override;
    void ApresSaisie(const DescriptionChamp& champ, double valeur) override;
    void ApresClic(const std::string& nom) override;
    void Afficher() override;

private:
    void CalculZones();
    void SaisieZones();
    void LireType();
    // The desired secondary fields show the limited values after an entry, the primary
    // images of the desired reaches after a computation of the zones.
    bool zonesSaisies_ = false;
};

} // namespace tournesol
