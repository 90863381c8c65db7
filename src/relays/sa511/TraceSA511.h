// The 7SA511's characteristic on the plane, in primary ohms: the pick-up polygon, the
// out-of-step polygon around it, the directional line and the limits of the first and second
// zones (phase to earth).
#pragma once

#include "diagram/Plan.h"

#include <vector>

namespace tournesol {

// The corners of a pick-up polygon, in order around it, from the secondary values times Kz:
// the resistive reach r1 within the load angle phi, r2 beyond it, the horizontal sides at xv
// forward and xm backward; each side of R and X pushed out by the band `bande` (0 for the
// pick-up itself). The sides are cut at their crossings: a reactance below the corner of the
// load angle cuts off that corner.
std::vector<Complexe> PolygoneSA511(double r1, double r2, double xv, double xm, double phi,
                                    double bande);

// The segments in the order they are drawn.
std::vector<SegmentImage> SegmentsSA511(const Etude& e);

// Draws them, each whose colour is shown.
void DrawSA511(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
