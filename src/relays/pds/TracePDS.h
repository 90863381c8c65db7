// The PDS's characteristic on the plane, in primary ohms: the starting circle
// (three-phase colour in report cases 0 and 2, single-phase colour in case 1),
// the directional line and the two reactance zones, each drawn as the chord of
// the circle at its reactance.
#pragma once

#include "diagram/Plan.h"

#include <vector>

namespace tournesol {

struct FigurePDS {
    std::vector<ArcImage> Arcs;         // the circle
    std::vector<SegmentImage> Segments; // the directional line, the zones 1 and 2
};
FigurePDS FigureDuPDS(const Etude& e);

void DrawPDS(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
