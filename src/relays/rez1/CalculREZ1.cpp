#include "relays/rez1/CalculREZ1.h"

#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "diagnostics/ReglesGuide.h"
#include "relays/ChampRelais.h"

#include <algorithm>

namespace tournesol {

void CalculZonesREZ1(Etude& e) {
    ZonesSouhaiteesDeLaLigne(e);
    ArrondirReactances(e, GAMME_X_REZ1);
}

void ArrondirPompageREZ1(Etude& e) {
    RelaisREZ1& r = e.REZ1;
    r.Zpireg_BT = ReglerAuPas(r.Zpi_BT, GAMME_X_REZ1, e.Is, ModeArrondi::Dessus);
    r.Zpi_HT = Verifier(r.Zpi_BT * e.Kz);
    r.Zpireg_HT = Verifier(r.Zpireg_BT * e.Kz);
}

void CalculPompageREZ1(Etude& e) {
    RelaisREZ1& r = e.REZ1;
    if (e.PanneauRelais) r.Zpi_HT = MARGE_POMPAGE_REZ1 * std::max(e.X3reg_HT, e.X4reg_HT);
    r.Zpi_BT = Div(r.Zpi_HT, e.Kz);
    ArrondirPompageREZ1(e);
}

void ArrondirResistanceREZ1(Etude& e) {
    e.Rreg_BT = static_cast<float>(ReglerAuPas(e.R_BT, GAMME_R_REZ1, e.Is, ModeArrondi::Dessous));
    e.R_HT = Verifier(e.R_BT * e.Kz);
    e.Rreg_HT = static_cast<float>(Verifier(e.Rreg_BT * e.Kz));
    e.REZ1.Rpi_HT = MARGE_POMPAGE_REZ1 * e.Rreg_HT;
    e.REZ1.RsurX = Div(e.Rreg_BT, e.X1reg_BT);
}

void CalculResistanceREZ1(Etude& e, Dialogue& d) {
    if (e.PanneauRelais) {
        // The external zone reaches 1.25 x 1.15 times the pick-up's resistance.
        const double facteur = FACTEUR_EXTERNE_REZ1 * MARGE_POMPAGE_REZ1;
        e.R_HT =
            DistanceChargeQuadrilatere(e, d, FACTEUR_EXTERNE_REZ1 * e.REZ1.Zpireg_HT) / facteur;
        double angle = RadToDeg(e.PHI_eq);
        e.teta = static_cast<float>(ReglerAuPas(angle, GAMME_ANGLE_REZ1, 1.0, ModeArrondi::Proche));
        double ko = e.ko_eq;
        e.ko_reg = ReglerAuPas(ko, GAMME_KO_REZ1, 1.0, ModeArrondi::Proche);
    }
    e.R_BT = Div(e.R_HT, e.Kz);
    ArrondirResistanceREZ1(e);
}

void CalculDiagREZ1(Etude& e) {
    EffacerReglesRelais(e, ID_REZ1);
    DiagnosticsREZ1(e, e.X2reg_HT, e.X3reg_HT, e.X4reg_HT, e.REZ1.Zpireg_HT);
}

double DemiLargeurREZ1(const Etude& e) {
    return 1.2 * FACTEUR_EXTERNE_REZ1 * std::max(e.REZ1.Zpireg_HT, e.REZ1.Rpi_HT);
}

} // namespace tournesol
