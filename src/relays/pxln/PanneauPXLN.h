// frmPXLN: the PXLN's panel, six sheets ("&Out of step", "&Resistance", "&Zones", "&Timers",
// "Signal", "T&ypes...") on the relay panel framework, and the command "&Parameters..." that
// opens the relay's parameter sheet (frmPXLN_p). The chain runs the band and the resistances,
// the zones, then the zones in ohms and the diagnostics.
#pragma once

#include "relays/ChampsPXL.h"
#include "relays/PanneauProtection.h"

namespace tournesol {

class PanneauPXLN : public PanneauProtection {
public:
    static constexpr const char* BOUTON_PARAMETRES = "cmdParametres";
    static constexpr const char* REMARQUE_DELTAR = REMARQUE_DELTAR_PXL;

    PanneauPXLN(Etude& e, Dialogue& d);

protected:
    CadrePlan CadreDuPlan() override;
    void LireOptions() override;
    void RecalculZones() override;
    void ApresSaisie(const DescriptionChamp& champ, double valeur) override;
    void ApresClic(const std::string& nom) override;
    void Afficher() override;

private:
    bool remarqueDeltaR_ = false; // deltaR was changed: the remark stays shown
};

} // namespace tournesol
