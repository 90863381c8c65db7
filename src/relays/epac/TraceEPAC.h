// The EPAC's characteristic on the plane, in primary ohms: the directional line, the
// single-phase parallelogram (report case 1), the three-phase parallelogram and the out-of-step
// parallelogram around it (report cases 0 and 2), then the zone limits.
#pragma once

#include "diagram/Plan.h"

#include <vector>

namespace tournesol {

// The segments in the order they are laid, empty ones (both ends at the origin) included:
// 1 directional, 4 single-phase, 4 out of step, 4 three-phase, 4 zone limits.
std::vector<SegmentImage> SegmentsEPAC(const Etude& e);

// Draws them, each whose colour is shown.
void DrawEPAC(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
