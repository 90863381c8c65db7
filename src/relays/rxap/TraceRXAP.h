// The RXAP's characteristic on the plane, in primary ohms: the directional line, the pick-up and
// the out-of-step shapes (circles, or stadiums of two arcs and two tangents for the ellipse),
// then the zone limits.
#pragma once

#include "diagram/Plan.h"

#include <vector>

namespace tournesol {

struct FigureRXAP {
    // In the order they are laid; an empty slot (out of step disabled) keeps its place with a
    // radius or a length of 0 and a dotted line.
    std::vector<ArcImage> Arcs;
    std::vector<SegmentImage> Segments;
};

FigureRXAP FigureDuRXAP(const Etude& e);

// Draws every arc, then every segment, each whose colour is shown.
void DrawRXAP(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
