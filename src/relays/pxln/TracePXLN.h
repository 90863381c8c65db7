// The PXLN's characteristic on the plane, in primary ohms: the directional line, the forward and
// backward pick-up parallelogram, the out-of-step parallelogram around it, then the limits of
// zones 1, 2 and 3.
#pragma once

#include "diagram/Plan.h"

#include <vector>

namespace tournesol {

// The segments in the order they are laid.
std::vector<SegmentImage> SegmentsPXLN(const Etude& e);

// Draws them, each whose colour is shown.
void DrawPXLN(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
