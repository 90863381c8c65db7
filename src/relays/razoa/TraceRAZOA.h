// The RAZOA's pick-up on the plane, in primary ohms, from the set reaches Zfreg and Zrreg: the
// three-phase characteristic (report cases 0 and 2) on the direction teta + 30 degrees, scaled
// by 2 / sqrt(3), in the three-phase colour; the earth characteristic (report case 1) on the
// direction teta, its reaches twice the set ones times CRm / Ceq, in the single-phase colour.
// The circle is one whole circle, the lens two arcs.
#pragma once

#include "diagram/Plan.h"

#include <vector>

namespace tournesol {

// The arcs of the characteristic of the case in force, in the order they are laid (an arc from
// Debut to Fin counter-clockwise; a whole circle has Debut = Fin).
std::vector<ArcImage> ArcsRAZOA(const Etude& e);

// Draws them, each whose colour is shown.
void DrawRAZOA(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
