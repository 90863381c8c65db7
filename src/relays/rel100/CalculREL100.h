// The REL 100: a static distance relay with a quadrilateral pick-up. Four reactance reaches
// (first and second zone, forward and backward reach of the pick-up) and one resistive reach
// set by potentiometers in steps that follow the rated secondary current; the resistive sides
// lean at the characteristic angle; an earth factor. Its external out-of-step zone is the
// pick-up enlarged 1.25 times. These are its computations on the study, one for each sheet of its
// panel: zones, resistance, timers, then the diagnostics.
#pragma once

#include "relays/ChampRelais.h"

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr int ID_REL100 = 9;

// The steps and ranges of a relay graduated for 1 A: each is divided by the rated secondary
// current Is.
struct GammeReglage {
    double Min = 0.0;
    double Max = 0.0;
    double Pas = 0.0;
};
// A desired secondary value kept within its range (the desired value holds the limited value
// afterwards) and the set value at the step, in the direction given, within the range.
double ReglerAuPas(double& desire, const GammeReglage& gamme, double is, ModeArrondi mode);

// The reactances: 0.2 to 150 ohms at 1 A, in steps of 0.05.
inline constexpr GammeReglage GAMME_X_REL100{0.2, 150.0, 0.05};
// The resistive reach: 0.5 to 150 ohms at 1 A, in steps of 0.1.
inline constexpr GammeReglage GAMME_R_REL100{0.5, 150.0, 0.1};
// The characteristic angle, in degrees, and the earth factor.
inline constexpr GammeReglage GAMME_ANGLE_REL100{45.0, 85.0, 5.0};
inline constexpr GammeReglage GAMME_KO_REL100{0.0, 2.5, 0.05};
// The factor of the external out-of-step zone on the pick-up.
inline constexpr double FACTEUR_POMPAGE_REL100 = 1.25;

// The text of a customer link whose third zone does not fit the load area.
inline constexpr const char* DONNEES_INCOMPATIBLES_REL100 = "incompatible data";

// The four desired reaches X1 to X4 taken to the steps of that range: X1 rounded down (it must
// not overreach), X2, X3 and X4 rounded up; the desired values limited to the range, their
// primary images, the set values in secondary and primary ohms. The REZ1 takes its reaches so.
void ArrondirReactances(Etude& e, const GammeReglage& gamme);
// The same on the REL 100's steps.
void ArrondirZonesREL100(Etude& e);
// In mode "Return" the desired reaches from the line (the backward reach is the third zone less
// the line), then their secondary images and the steps.
void CalculZonesREL100(Etude& e);

// The distance, along R and in primary ohms, that a quadrilateral pick-up may take from the line
// image without its out-of-step zone, whose forward reach is `hautPompage` (primary), reaching
// the load area (margin 0.9 / 1.1 on the load points pulled to the 30 degree sectors): on a meshed
// line the smallest of the three report cases, on a customer link the resistive side through the
// point where the out-of-step zone's top meets the load circle ("incompatible data" when it does
// not fit), on a plant link the current report case. The report case in force and the load points
// are given back as they were.
// The REL 100 and the REZ1 take their resistive reach from it.
double DistanceChargeQuadrilatere(Etude& e, Dialogue& d, double hautPompage);

// The resistance sheet. In mode "Return" the resistive reach from the load area, the
// characteristic angle from the line's angle (nearest 5 degrees within 45 to 85) and the earth
// factor from the line's; in every mode the resistance and the earth factor taken to their steps.
void CalculResistanceREL100(Etude& e, Dialogue& d);
// The desired secondary resistance to its step, rounded down (clear of the load), and the ratio
// R / X1.
void ArrondirResistanceREL100(Etude& e);

// The timers T1 to T4 within 0 to 9990 ms, down to tens (the REL 100's and the REZ1's).
void TemporisationsAuxDizaines(Etude& e);

// Rules 57 to 62 of the setting guide, on the set reactances.
void CalculDiagREL100(Etude& e);

// The half width of the plane fitted on OK, in primary ohms: 1.2 times the widest of the
// out-of-step zone's reaches.
double DemiLargeurREL100(const Etude& e);

// Registers the REL 100 with the rest of the system: panel, characteristic, setting list and
// settings page.
void InscrireREL100();

} // namespace tournesol
