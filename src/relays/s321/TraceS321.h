// The S 321-5's characteristic on the plane, in primary ohms: for the three-phase and maximal
// report cases the phase-to-phase circles and the out-of-step rectangles, for the single-phase
// case the phase-to-earth quadrilaterals.
#pragma once

#include "diagram/Plan.h"

#include <vector>

namespace tournesol {

struct FigureS321 {
    // Four arc slots and 24 segment slots; an empty slot (both ends at the origin) is a figure
    // not shown.
    std::vector<ArcImage> Arcs;
    std::vector<SegmentImage> Segments;
};

FigureS321 FigureDuS321(const Etude& e);

// Draws every arc, then every segment, each whose colour is shown.
void DrawS321(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
