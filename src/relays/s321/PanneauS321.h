// frmS321: the S 321-5's panel, five sheets ("Zones", "Other parameters", "Current thresholds",
// "Timers", "Out of step") on the relay panel framework. The chain runs the load (out of step and
// forward zones), the reaches, the thresholds, then the diagnostics.
#pragma once

#include "relays/PanneauProtection.h"

#include <optional>

namespace tournesol {

class PanneauS321 : public PanneauProtection {
public:
    PanneauS321(Etude& e, Dialogue& d);

protected:
    CadrePlan CadreDuPlan() override;
    void LireOptions() override;
    void ApresSaisie(const DescriptionChamp& champ, double valeur) override;
    void ApresClic(const std::string& nom) override;

private:
    // The resistance of the quadrilaterals found from the load, for the reaches in "Return".
    std::optional<double> rz_;
};

} // namespace tournesol
