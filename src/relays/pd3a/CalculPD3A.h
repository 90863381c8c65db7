// The PD3A: four reactance reaches set by coding wheels, a parallelogram set by a resistance
// step Rd and an angle step, in two variants (6062 and 6562) whose wheels differ. These are its
// computations on the study; the panel shows them (PanneauPD3A.h).
#pragma once

#include <array>

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr int ID_PD3A = 3;

// The wheels. TableX is the reach wheel, index 1 to 144 (index 0 is never reached); the other
// tables are index 1 to 12.
extern const std::array<double, 145> TableX;
extern const std::array<double, 13> TableK2;  // 6062: X2 as a multiple of X1
extern const std::array<double, 13> TableK3;  // 6062: X3 as a multiple of X1
extern const std::array<double, 13> TableK3b; // 6562: X3 as a multiple of X2
extern const std::array<double, 13> TableK4;  // both: X4 times Is

// The text of the customer link whose third zone does not fit the load area.
inline constexpr const char* DONNEES_INCOMPATIBLES = "incompatible data";

// The four desired reaches taken to the wheels: X1 rounded down, X2, X3 and X4 rounded up, each
// within its wheel's limits; the set values in secondary and primary ohms. The desired
// secondary values hold the limited values afterwards, the desired primary values are left.
void ArrondirZonesPD3A(Etude& e);

// The desired reaches from the line in mode "Return" (X4 is the third zone less the line),
// their secondary images, then the wheels.
void CalculZonesPD3A(Etude& e);

// The resistance reach. In mode "Return" the common zones 3 and 4, the out-of-step bands and
// the reach from the load area (ResistanceTransitPD3A); in every mode R_BT within 0 to 80, the
// step Rd (at most 11) and the set values.
void CalculResistancePD3A(Etude& e, Dialogue& d);

// The reach kept clear of the load area: the smallest of the three report cases on a meshed
// line (the report case is left at 1), the third zone against the load point on a customer
// link ("incompatible data" when it does not fit); a plant link keeps R_HT.
void ResistanceTransitPD3A(Etude& e, Dialogue& d);
// The same rule for any parallelogram pick-up whose out-of-step band along R is bandeR wide
// (primary ohms): the EPAC, the PD3A's digital successor, keeps it.
void ResistanceTransitParallelogramme(Etude& e, Dialogue& d, double bandeR);

// The distance of the load area of the current report case to the line image, along R, with
// the margin 0.9 / 1.1, once the area is pulled to the 30, 150, 210 and 330 degree sectors.
double DistanceTransitPD3A(const Etude& e);

// The out-of-step bands in primary ohms, from Pompage: 11 and 7.5 secondary ohms at 1 A; the
// EPAC's are the same.
void BandesPompage(const Etude& e, float& bandeX, float& bandeR);
void BandesPompagePD3A(Etude& e);

// The desired secondary resistance typed by the user: within 0 to 80, its primary image, the
// step Rd (without the limit of 11) and the set values.
void ResistanceSaisiePD3A(Etude& e);

// The angle step and the earth factor wheels (from the line in mode "Return"), the timers
// within their ranges and their wheels.
void CalculReglagesPD3A(Etude& e);
// The angle typed by the user: the step below it, and the angle of that step.
void AngleSaisiPD3A(Etude& e);
// The timers: T1 within 0 to 999 and its wheel with the multiplier C1; T2 and T3 within 0 to 999,
// T4 within 0 to 9990, each down to tens, and their wheels.
void TemporisationT1PD3A(Etude& e);
void TemporisationsPD3A(Etude& e);

// Rules 15 to 21 of the setting guide.
void CalculDiagPD3A(Etude& e);

// The half width of the plane fitted on OK, in primary ohms (before the limit of 1000).
double DemiLargeurPD3A(const Etude& e);

// Registers the PD3A with the rest of the system: panel, characteristic, setting list, rule
// texts and settings page.
void InscrirePD3A();

} // namespace tournesol
