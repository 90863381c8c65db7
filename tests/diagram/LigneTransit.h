// The line of the load area's tests, on a plane of 300 ohms, its area computed.
#pragma once

#include "core/Couleurs.h"
#include "core/Etude.h"
#include "network/Transit.h"

#include <cmath>

namespace tournesol {

// A line of zl ohms at 1.2 rad fed as `alim` says, Vmin 100, Vmax 115 or 120.
inline Etude LigneTransit(int alim, double vmax, double zl) {
    Etude e;
    InitCouleurs(e);
    e.Vmin = 100.0;
    e.Vmax = vmax;
    e.ZL_eq = zl;
    e.PHI_eq = 1.2;
    e.RL_eq = zl * std::cos(1.2);
    e.XL_eq = zl * std::sin(1.2);
    e.Ligne_Itmax = 1000.0;
    e.TypeReportCharge = 2;
    e.Ligne_alim = static_cast<Entier16>(alim);
    e.Ligne_Pmax = 300.0f;
    e.Ligne_Smax = 400.0f;
    e.Ligne_XAM = 10.0f;
    e.Ligne_XAV = 20.0f;
    e.ScaleLeft = -150.0f;
    e.ScaleTop = 150.0f;
    e.ScaleWidth = 300.0f;
    e.ScaleHeight = -300.0f;
    TransitCalc(e);
    return e;
}

} // namespace tournesol
