// frmREZ1: the REZ1's panel, four sheets on the relay panel framework: the zones (desired and set
// reactances side by side, in secondary and primary ohms), the out of step (the internal reach
// Zpi and the external zone that follows it), the resistance (the resistive reach, the internal
// out-of-step resistance, the characteristic angle, the earth factor) and the timers with the
// signalling scheme. The chain runs the sheets in that order, then the diagnostics.
#pragma once

#include "relays/PanneauProtection.h"

namespace tournesol {

class PanneauREZ1 : public PanneauProtection {
public:
    PanneauREZ1(Etude& e, Dialogue& d);

    // The relay's name on the panel.
    static constexpr const char* LIBELLE = "REZ1";

protected:
    CadrePlan CadreDuPlan() override;
    void ApresSaisie(const DescriptionChamp& champ, double valeur) override;
};

} // namespace tournesol
