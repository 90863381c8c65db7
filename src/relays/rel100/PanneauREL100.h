// frmREL100: the REL 100's panel, three sheets on the relay panel framework: the zones (desired
// and set reactances side by side, in secondary and primary ohms), the resistance (the resistive
// reach, the characteristic angle, the earth factor, the out-of-step zone that follows the
// pick-up) and the timers with the signalling scheme. The chain runs the zones, the resistance,
// the timers, then the diagnostics.
#pragma once

#include "relays/PanneauProtection.h"
#include "relays/rel100/CalculREL100.h"

#include <string>
#include <vector>

namespace tournesol {

class PanneauREL100 : public PanneauProtection {
public:
    PanneauREL100(Etude& e, Dialogue& d);

    // The relay's name on the panel.
    static constexpr const char* LIBELLE = "REL 100";

protected:
    CadrePlan CadreDuPlan() override;
    void ApresSaisie(const DescriptionChamp& champ, double valeur) override;
};

// The frame "Characteristic angle and earth factor" of the sheet `feuille`, which the REZ1 shares:
// the angle teta in degrees and the earth factor ko, typed within their ranges to their steps.
std::vector<DescriptionChamp> ChampsAngleEtKo(const std::string& feuille, const GammeReglage& angle,
                                              const GammeReglage& ko, std::string legendeAngle,
                                              std::string legendeKo, std::string formatKo);

} // namespace tournesol
