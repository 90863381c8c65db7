// frmRXAP: the RXAP's panel, four sheets ("Zones", "Pick up", "Common parameter", "choice") on
// the relay panel framework. The chain runs the zones, the pick-up, the common parameters, the
// variant, then the diagnostics.
#pragma once

#include "relays/PanneauProtection.h"

namespace tournesol {

class PanneauRXAP : public PanneauProtection {
public:
    PanneauRXAP(Etude& e, Dialogue& d);

    static constexpr const char* AVIS_CENTRALE_RXAP =
        "Attention, the case of the plant-ubstation link is not studied for the RXAP.";
    static constexpr const char* ELLIPSE_CLIENT =
        "the use of an elliptic characteristic on a customer supply link is not foreseen. Click on "
        "return, then on set to come back to the panel of the RXAP";
    static constexpr const char* ELLIPSE_CENTRALE =
        "the use of an elliptic characteristic on a plant-substation link is not foreseen. Click "
        "on return, then on set to come back to the panel of the RXAP";

protected:
    CadrePlan CadreDuPlan() override;
    void LireOptions() override;
    void ApresSaisie(const DescriptionChamp& champ, double valeur) override;
    void ApresClic(const std::string& nom) override;
    void Afficher() override;

private:
    void Prise();
    void Visibilites();
};

} // namespace tournesol
