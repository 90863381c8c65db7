// The REZ1's characteristic on the plane, in primary ohms: the quadrilateral pick-up, the
// internal out-of-step quadrilateral (Zpi forward and backward, 1.15 times the resistive reach),
// the external one 1.25 times larger, the directional line and the first and second zones.
#pragma once

#include "diagram/Plan.h"

#include <vector>

namespace tournesol {

// The segments in the order they are drawn.
std::vector<SegmentImage> SegmentsREZ1(const Etude& e);

// Draws them, each whose colour is shown.
void DrawREZ1(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
