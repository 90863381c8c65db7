// The load ("transit") area: where the load of the line can lie on the R-X plane, from the
// transit current, the voltage limits of the level and the line impedance. It fills the
// neuralgic points N1 to N8 (PointsTransit[0..7]), the report factor in force Ceq and the flags
// fNoIntersect, fNoUp, fNoDown, fNoP.
#pragma once

namespace tournesol {

struct Etude;

// Runs the computation for the report case in force; a failure (an arccosine out of range when
// the current is too high for the line) leaves its number in ErrCalcul.
void TransitCalc(Etude& e);

// The transformer reactances behind the near and far ends (XtrProche, XtrDistant), by the end
// the relay stands at; the diagram and the relays' diagnostics read them.
void TransformateursDesBouts(Etude& e);

} // namespace tournesol
