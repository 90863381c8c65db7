// The line computation: what the user entered about the line becomes the equivalent line, the
// level values, the instrument ratios and the suggested zone reactances, for the report case in
// force (It set by the caller).
#pragma once

namespace tournesol {

struct Etude;
class Dialogue;

// Runs the whole computation; a failure stops it and leaves its number in ErrCalcul. The check
// panels are shown while ShowValeurs is set, and the load report step closes it.
void Calcul(Etude& e, Dialogue& d);

// The steps, for those who run one alone.
void CalculNiveau(Etude& e);
void CalculLigneSimple(Etude& e);             // Tl 0
void CalculDoubleCircuit(Etude& e);           // Tl 1
void CalculDeuxTroncons(Etude& e);            // Tl 2
void CalculReactancesZones(Etude& e);         // Tl 0 to 2
void CalculTroisBouts(Etude& e, Dialogue& d); // Tl 3, up to the transit of the relay's end

// R of the source reactance: sqrt(|4 (Vmax^2 - Vmin^2) / (It / 1000)^2 + XL_eq^2|).
double TermeSource(const Etude& e);
// The source reactance XS: 0.5 (R - XL_eq) + 2 XSmini.
double ReactanceSource(const Etude& e);

// The first-stage flag that a relay's zone rules read: false on a three-ended line whose
// first-stage tests found the first stage not always assured (StadeMono or StadeTri); true on
// every other line. A relay then keeps the engineer's zone settings rather than the reactances
// worked out from a first stage that cannot be relied on.
bool PremierStadeAssure(const Etude& e);

// Rounds to the nearest whole number, ties to the even one.
double ArrondiPair(double x);

// The level's floor of the zone reactances of a short line, by Up (0 off the table).
double PlancherNiveau(int up);

} // namespace tournesol
