// The load ("transit") area: where the load of the line can lie on the R-X plane, from the
// transit current, the voltage limits of the level and the line impedance. It fills the
// neuralgic points N1 to N8 (PointsTransit[0..7]), the report factor in force Ceq and the flags
// fNoIntersect, fNoUp, fNoDown, fNoP.
#pragma once

#include "core/Complexe.h"

#include <array>

namespace tournesol {

struct Etude;

// Runs the computation for the report case in force; a failure (an arccosine out of range when
// the current is too high for the line) leaves its number in ErrCalcul.
void TransitCalc(Etude& e);

// The transformer reactances behind the near and far ends (XtrProche, XtrDistant), by the end
// the relay stands at; the diagram and the relays' diagnostics read them.
void TransformateursDesBouts(Etude& e);

// The load points of the case in force as the relays' pick-up rules use them: N3 to N6 pulled to
// the 30, 150, 330 and 210 degree sectors. N3 beyond 30 degrees and N4 below 150 degrees come
// back onto the circle of radius |N1| around the line's image, along their sector (never nearer
// than |N1|); N5 below 330 and N6 beyond 210 degrees take |N1| on theirs. All four are pulled
// whatever their angle when the area's circles do not cut (fNoIntersect). The other points are
// those of PointsTransit.
std::array<Complexe, 9> PointsTransitTires(const Etude& e);

// The same pulled points for report case `cas`: the case is put in force and its area computed
// (a failure of the area is raised as a run-time error). The caller puts back the case it found.
std::array<Complexe, 9> PointsTransitTiresDuCas(Etude& e, int cas);
// The report case `cas` put back in force with its area, after passes over the other cases (a
// failure of the area is raised as a run-time error).
void RemettreCasDeReport(Etude& e, int cas);

} // namespace tournesol
