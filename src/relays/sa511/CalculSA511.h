// The 7SA511: a digital relay whose every setting is a numbered parameter. Its pick-up is a
// polygon fixed by four resistances (RA1, RA2 phase to phase, RA1E, RA2E phase to earth), two
// reactances (XV forward, XM backward) and two angles (Phia, Phiae): within the load angle the
// resistive reach is RA1, beyond it RA2. Around the pick-up lies the out-of-step band deltaR.
// These are its computations on the study, one for each sheet of its panel, in the order of the
// chain: out of step, pick-up, zones, timers, signalling.
#pragma once

#include <array>

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr int ID_SA511 = 1;

// The notice of a customer link whose third zone does not fit the load area.
inline constexpr const char* DONNEES_INCOMPATIBLES_SA511 = "incompatible data";

// The load distances along R, in primary ohms with the margin 0.9 / 1.1: D1 for the three phase
// report case, D2 for the case without report (or the only case of a plant or customer link).
struct DistancesCharge {
    std::array<double, 6> D1{};
    std::array<double, 6> D2{};
};

// The margin kept to the load points.
inline constexpr double MARGE_CHARGE_SA511 = 0.9 / 1.1;

// The out-of-step sheet: its defaults in mode "Return", the primary images of the band and of
// the speed, then the load distances of the line's feed and the load angles. The report case in
// force is given back at the end. A customer link whose third zone reaches beyond the load point
// says "incompatible data".
void CalculHorsPompageSA511(Etude& e, Dialogue& d, DistancesCharge& distances);

// The arguments of the load points N1 and N2, in [0, 2 pi), into PhiCharge1 and PhiCharge2.
void AnglesChargeSA511(Etude& e);

// The smallest load distance that the pick-up must keep clear of, by the line's feed.
double DistanceMinimaleSA511(const Etude& e, const DistancesCharge& distances);

// The pick-up sheet in mode "Return": the load angle, the four resistances from the load
// distance, the first and second zones, the forward and backward reactances.
void CalculMiseEnRouteSA511(Etude& e, const DistancesCharge& distances);

// The zones sheet in mode "Return": the zone resistances from the pick-up's, the lengthened
// first zone at the second zone's reactance, the ratio R / X.
void CalculZonesSA511(Etude& e);

// The timers sheet in mode "Return": every timer at 0, no signalling scheme, the acceleration
// on a long line, the prolongations of the acceleration signal.
void CalculTemposSA511(Etude& e);

// Rules 1 to 6 of the setting guide.
void CalculDiagSA511(Etude& e);

// A reactance typed on the zones sheet: a null value becomes 0.1; the ratio R / X follows.
void ReactanceSaisieSA511(Etude& e, double& x);

// The half width of the plane fitted on OK, in primary ohms: 1.2 times the widest of the
// phase to earth resistance and the two reactances of the pick-up.
double DemiLargeurSA511(const Etude& e);

// Registers the 7SA511 with the rest of the system: panel, characteristic, setting list and
// settings page.
void InscrireSA511();

} // namespace tournesol
