// The PD3A's characteristic on the plane, in primary ohms: the directional line, the
// single-phase parallelogram (report case 1), the out-of-step and three-phase parallelograms
// (report cases 0 and 2), then the zone limits.
#pragma once

#include "diagram/Plan.h"

#include <vector>

namespace tournesol {

// The segments in the order they are laid, empty ones (both ends at the origin) included.
std::vector<SegmentImage> SegmentsPD3A(const Etude& e);

// Draws them, each whose colour is shown.
void DrawPD3A(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
