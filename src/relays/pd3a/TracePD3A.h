// The PD3A's characteristic on the plane, in primary ohms: the directional line, the
// single-phase parallelogram (report case 1), the out-of-step and three-phase parallelograms
// (report cases 0 and 2), then the zone limits.
#pragma once

#include "diagram/Plan.h"

#include <vector>

namespace tournesol {

// The segments in the order they are laid, empty ones (both ends at the origin) included.
std::vector<SegmentImage> SegmentsPD3A(const Etude& e);

// Lays the closed parallelogram of half width r along R between the forward reach haut and the
// backward reach bas (primary ohms), its sides along the angle of tangent t: four segments from
// the lower right corner, counter-clockwise. The EPAC draws its own with it.
void PoserParallelogramme(std::vector<SegmentImage>& s, double r, double haut, double bas, double t,
                          Couleur couleur, int style, int largeur);

// Draws them, each whose colour is shown.
void DrawPD3A(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
