// The REZ1: a static distance relay with a quadrilateral pick-up and an out-of-step detection of
// two quadrilaterals. Three forward zones (X1, X2, X3) and a backward reach (Xar), one resistive
// reach leaning at the characteristic angle, an earth factor; the internal out-of-step zone
// reaches Zpi forward and backward and 1.15 times the resistive reach, the external one lies 1.25
// times further out. These are its computations on the study, one for each sheet of its panel:
// zones, out of step, resistance, timers, then the diagnostics.
#pragma once

#include "relays/rel100/CalculREL100.h"

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr int ID_REZ1 = 10;

// The reactances and the internal out-of-step reach: 0.1 to 200 ohms at 1 A, in steps of 0.1;
// the resistive reach 0.5 to 200 ohms at 1 A, in steps of 0.5; each divided by Is.
inline constexpr GammeReglage GAMME_X_REZ1{0.1, 200.0, 0.1};
inline constexpr GammeReglage GAMME_R_REZ1{0.5, 200.0, 0.5};
// The characteristic angle in degrees, the earth factor.
inline constexpr GammeReglage GAMME_ANGLE_REZ1{50.0, 85.0, 5.0};
inline constexpr GammeReglage GAMME_KO_REZ1{0.0, 3.0, 0.1};
// The internal out-of-step zone against the pick-up, the external one against the internal one.
inline constexpr double MARGE_POMPAGE_REZ1 = 1.15;
inline constexpr double FACTEUR_EXTERNE_REZ1 = 1.25;

// The zones sheet: in mode "Return" X1 to X3 from the line and Xar the third zone less the line;
// then the steps (X1 down, the others up).
void CalculZonesREZ1(Etude& e);

// The out-of-step sheet: in mode "Return" Zpi 1.15 times the larger of the set X3 and Xar; in
// every mode Zpi taken up to its step.
void CalculPompageREZ1(Etude& e);
// A desired secondary Zpi taken to its step, its primary images.
void ArrondirPompageREZ1(Etude& e);

// The resistance sheet: in mode "Return" the resistive reach that keeps the external out-of-step
// zone clear of the load, the characteristic angle and the earth factor from the line; in every
// mode the resistance to its step and the internal out-of-step resistance.
void CalculResistanceREZ1(Etude& e, Dialogue& d);
// The desired secondary resistance taken down to its step, the internal out-of-step resistance
// and the ratio R / X1.
void ArrondirResistanceREZ1(Etude& e);

// Rules 64 to 70 of the setting guide, on the set reaches in primary ohms.
void CalculDiagREZ1(Etude& e);

// The half width of the plane fitted on OK, in primary ohms: 1.2 times the external out-of-step
// zone's widest reach.
double DemiLargeurREZ1(const Etude& e);

// Registers the REZ1 with the rest of the system: panel, characteristic, setting list and
// settings page.
void InscrireREZ1();

} // namespace tournesol
