// The PDS: an electromechanical distance relay. Two reactance zones measure the
// first and second steps; a starting element with an offset mho (circle)
// characteristic, set by its forward reach along the characteristic angle and a
// backward offset, gives the third (forward) and fourth (backward) steps. Each
// reach is set by a plug on a basic range and a percentage of it. These are its
// computations on the study; the panel shows them (PanneauPDS.h).
//
// The reaches of the circle are kept in the shared zone 3 and 4 values, along
// the angle teta: X3 the forward reach, X4 the backward one.
#pragma once

#include <array>

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr int ID_PDS = 4;

// The basic ranges of the plugs, in units of 5 / Is secondary ohms (the ranges
// of a 5 A relay, five times higher on 1 A); a reach is a whole percentage of
// one of them, from PCT_MIN_PDS to 100.
inline constexpr std::array<double, 6> BASES_PDS{1.0, 2.0, 4.0, 8.0, 16.0, 32.0};
inline constexpr int PCT_MIN_PDS = 40;
// The backward offset of the circle, in percent of its forward reach.
inline constexpr std::array<int, 9> DECALAGES_PDS{0, 5, 10, 15, 20, 25, 30, 40, 50};
// The characteristic angle: 60 to 85 degrees by 5 degrees.
inline constexpr double TETA_MIN_PDS = 60.0;
inline constexpr double TETA_MAX_PDS = 85.0;
// The earth factor: 0 to 1.5 by tenths.
inline constexpr double KO_MAX_PDS = 1.5;

// A reach on the plugs: the smallest basic range that holds the desired
// secondary reach and the percentage of it, rounded down or up (the desired
// value is first kept within the relay's range, 0.4 to 32 units). Returns the
// set secondary reach.
struct Prise {
    double Base = 0.0; // secondary ohms
    int Pct = 0;
    double Reglage() const { return Base * Pct / 100.0; }
};
Prise PrisePDS(double& desire, double unite, bool versLeBas);

// The zones: X1 rounded down, X2 up; the set values in both columns.
void ArrondirZonesPDS(Etude& e);
// In mode "Return" the desired reaches from the line, then the plugs.
void CalculZonesPDS(Etude& e);

// The angle and the earth factor: from the line in mode "Return", on their
// steps in every mode.
void AngleEtTerrePDS(Etude& e);

// The largest forward reach of the circle, in primary ohms, that keeps every
// load point of the current report case (pulled to the 30-degree sectors, with
// the margin 0.9 / 1.1) outside the circle whose backward reach is zar;
// infinity when no point limits it.
double PorteeTransitPDS(const Etude& e, double zar);

// The circle. In mode "Return": the angle and earth factor, the forward reach
// of the third zone along the line (Xprim3 / sin PHI_eq) and the backward one
// ((Xprim3 - XL_eq) / sin PHI_eq), the forward reach no longer than the load
// allows (the smallest of the three report cases on a meshed line, the case 1
// left in force; the current case on a customer link, with "incompatible data"
// when the third zone does not fit; none on a plant link). In every mode the
// plugs: the forward reach rounded down, the offset up.
void CalculDemarragePDS(Etude& e, Dialogue& d);
void ArrondirDemarragePDS(Etude& e);

// The timers on their steps of 100 ms within 0 to 9900 ms.
void TemporisationsPDS(Etude& e);

// Rules 22 to 25 of the setting guide.
void CalculDiagPDS(Etude& e);

// The half width of the plane fitted on OK, in primary ohms (before the limit
// of 1000).
double DemiLargeurPDS(const Etude& e);

// Registers the PDS with the rest of the system.
void InscrirePDS();

} // namespace tournesol
