// The REL 100's characteristic on the plane, in primary ohms: the quadrilateral pick-up, the
// external out-of-step zone around it (the pick-up enlarged 1.25 times), the directional line
// and the limits of the first and second zones.
#pragma once

#include "diagram/Plan.h"

#include <array>
#include <vector>

namespace tournesol {

// The corners of a quadrilateral whose resistive sides cross the R axis at -r and r and lean at
// the angle `angle` (radians), between the forward reach `haut` and the backward reach `bas`;
// from the bottom right corner, anticlockwise.
std::array<Complexe, 4> Quadrilatere(double r, double haut, double bas, double angle);

// Its four sides, in that colour and style, added to the segments.
void AjouterQuadrilatere(std::vector<SegmentImage>& s, double r, double haut, double bas,
                         double angle, Couleur couleur, int style);

// The directional line through the origin, square to the resistive sides at the characteristic
// angle `teta` and reaching them (Rreg_HT sin teta each way), then the first and second zones
// (X1reg_HT, X2reg_HT) across the pick-up: what the REL 100 and the REZ1 draw alike.
void AjouterDirectionnelEtZones(std::vector<SegmentImage>& s, const Etude& e);

// The segments in the order they are drawn.
std::vector<SegmentImage> SegmentsREL100(const Etude& e);

// Draws them, each whose colour is shown.
void DrawREL100(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
