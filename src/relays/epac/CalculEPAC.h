// The EPAC: the digital successor of the PD3A. Four reactance reaches (three forward, one
// backward) and a parallelogram pick-up whose resistive reach and angle are digital parameters,
// set in secondary ohms in steps proportional to 1 / Is. These are its computations on the
// study; the panel shows them (PanneauEPAC.h).
#pragma once

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr int ID_EPAC = 2;

// The unit of the relay's ranges and steps in secondary ohms: 5 / Is (the ranges are those of
// a 5 A relay, five times wider on 1 A).
double UniteEPAC(const Etude& e);
// Reaches: 0.05 to 50 units, in steps of 0.01 unit.
inline constexpr double X_MIN_EPAC = 0.05;
inline constexpr double X_MAX_EPAC = 50.0;
inline constexpr double PAS_X_EPAC = 0.01;
// Resistive reach: 0 to 80 units, in steps of 0.1 unit.
inline constexpr double R_MAX_EPAC = 80.0;
inline constexpr double PAS_R_EPAC = 0.1;
// Angle of the parallelogram's sides: 45 to 89 degrees, by whole degrees.
inline constexpr double TETA_MIN_EPAC = 45.0;
inline constexpr double TETA_MAX_EPAC = 89.0;
// Earth factor: 0 to 4 in hundredths.
inline constexpr double KO_MAX_EPAC = 4.0;
// Timers: 0 to 9990 ms in steps of 10 ms.
inline constexpr int T_MAX_EPAC = 9990;

// The four desired secondary reaches taken to the relay's steps: each within its range, X1
// rounded down (the first zone never overreaches), X2, X3 and X4 rounded up; the set values in
// secondary and primary ohms. The desired values, secondary and primary, hold the limited values
// afterwards.
void ArrondirZonesEPAC(Etude& e);

// The desired reaches from the line in mode "Return" (X4 is the third zone less the line),
// their secondary images, then the steps.
void CalculZonesEPAC(Etude& e);

// The out-of-step bands in primary ohms, from Pompage: those of the PD3A, 11 / Is along X and
// 7.5 / Is along R in secondary ohms.
void BandesPompageEPAC(Etude& e);

// The resistive reach. In mode "Return" the common zones 3 and 4, the bands and the reach kept
// clear of the load area by the PD3A's rule; in every mode R_BT within its range, rounded down to
// its step, and the set values.
void CalculResistanceEPAC(Etude& e, Dialogue& d);
// The desired secondary resistance typed by the user: within its range, its primary image and
// the set values.
void ResistanceSaisieEPAC(Etude& e);

// The angle, the earth factor (from the line in mode "Return") and the timers on their steps.
void CalculReglagesEPAC(Etude& e);
void TemporisationsEPAC(Etude& e);

// Rules 7 to 12 of the setting guide.
void CalculDiagEPAC(Etude& e);

// The half width of the plane fitted on OK, in primary ohms (before the limit of 1000): 1.2 times
// the forward reach with its band, or 1.5 times the resistive reach when the parallelogram is
// wider than high, and the backward reach with its band if larger.
double DemiLargeurEPAC(const Etude& e);

// Registers the EPAC with the rest of the system: panel, characteristic, setting list, rule
// texts and settings page.
void InscrireEPAC();

} // namespace tournesol
