// The line of the shell's tests: 75 km of 225 kV meshed line, its transits and the neighbour
// link of its load report; and the plane of the start, -20 to 20 ohms both ways.
#pragma once

#include "core/Etude.h"

namespace tournesol {

inline void RemplirLigne225(Etude& e) {
    e.Ligne_Up = 225;
    e.Ligne_Ip = 1000;
    e.Is = 1.0f;
    e.Ligne_Icc = 31.5;
    e.Ligne_lc = true;
    e.Ligne_Longueur[0] = 75.0;
    e.Ligne_XL[0] = 30.375;
    e.Ligne_RL[0] = 6.375;
    e.Ligne_ZL[0] = 31.0;
    e.Ligne_Ittri = 1450.0;
    e.Ligne_Itmono = 1700.0;
    e.Ligne_Itmax = 1900.0;
    e.Ligne_XLA = 20.0;
}

inline void PlanDeDepart(Etude& e) {
    e.ScaleLeft = -20.0f;
    e.ScaleWidth = 40.0f;
    e.ScaleTop = 20.0f;
    e.ScaleHeight = -40.0f;
}

} // namespace tournesol
