// The RAZOA's rules. Its reaches are integer fractions: a zone reaches 3.2 a / (p In), so a
// desired reactance is coded by a search for the numerator a (common to the three zones) and
// the denominators p1, p2, p3. Its pick-up is an offset circle (backward reach D times the
// forward one) or a modified lens, coded by A and B as 5 A / (B In); its out-of-step width is
// 8 m d (q1 + q2) / (22 In). Then the reaches it gives along the line, and its rules of the
// setting guide (50 to 56).
#pragma once

#include <array>
#include <optional>

namespace tournesol {

struct Etude;

inline constexpr int ID_RAZOA = 8;

// The message that stops the chain when a zone cannot be coded.
inline constexpr const char* REGLAGE_IMPOSSIBLE = "Setting impossible";

// The ranges of the coding wheels: a from 5 to 49 on a short line (99 on a long one), p from 5
// to 99.
inline constexpr int NUMERATEUR_MIN = 5;
inline constexpr int DENOMINATEUR_MIN = 5;
inline constexpr int DENOMINATEUR_MAX = 99;
inline constexpr int NUMERATEUR_COURT = 49;
inline constexpr int NUMERATEUR_LONG = 99;

// A reach as the wheels code it: 3.2 a / (p In).
struct FractionRAZOA {
    int a = 0;
    int p = 0;
};

// The largest numerator of the line: 99 on a long line, 49 on a short one.
int NumerateurMaxRAZOA(const Etude& e);

// The reach of a pair, in secondary ohms.
double PorteeCodeeRAZOA(int a, int p, double in);

// The pair (a, p) within the wheels' ranges (a up to aMax) whose reach 3.2 a / p comes closest
// to inX (In times the desired reactance) without exceeding it; of pairs of the same reach, the
// one of the larger denominator. Nothing when inX is beyond the largest reach (3.2 aMax / 5) or
// below the smallest (3.2 * 5 / 99).
std::optional<FractionRAZOA> CoderZoneRAZOA(double inX, int aMax);

// The denominator p, for a numerator a already set, whose reach 3.2 a / p comes closest to inX
// without exceeding it; nothing when inX is beyond the reach of p = 5 or below that of p = 99.
std::optional<int> DenominateurRAZOA(double inX, int a);

// What the panel puts into the study before a study's values: q1 22 and the straps "0N",
// "OFF", "OFF".
void DefautsRAZOA(Etude& e);

// The options as the study holds them, in both modes: one shape exactly (the circle when the
// study names none or both), teta 60 or 75, Dmini within 0.05 to 1, Y within 1 to 15, the relay
// RGZA30's position 1 or 2.
void OptionsRAZOA(Etude& e);

// Zones: in mode "Return" the desired reactances from the line, then their coding. False when a
// zone cannot be coded ("Setting impossible").
bool ZonesRAZOA(Etude& e);
// The coding of the desired reactances (X1 to X3 at least 0.01): a and p1 by the search, p2 and
// p3 for that a; the resistances, b = a (2 a on a long line), R1 = R1reg. False, and the
// numerator, the denominators and the set values left as they were, when a zone cannot be
// coded.
bool CoderZonesRAZOA(Etude& e);

// The desired out-of-step width Z2 from the load points, in mode "Return" with the out of step
// (the other modes and a plant link keep Z2).
void LargeurPompageRAZOA(Etude& e);

// The out-of-step coding: m, d, q1, q2 and the set width Z2reg.
void CodagePompageRAZOA(Etude& e);
// The width is too small for the relay: q1 below 22.
bool Q1TropFaibleRAZOA(const Etude& e);

// Pick-up: in mode "Return" Zf and D from the load points of the three report cases (circle or
// lens on a meshed line, a customer link from point 1; a plant link keeps them), then the
// coding. The case in force and its area are put back at the end.
void PriseRAZOA(Etude& e);

// The coding of the pick-up from Zf (secondary) and D: Zf at least 0.01, Zr = D Zf (or, when
// `zrSaisi`, D = Zr / Zf), A and B, the set values Zfreg and Zrreg.
void CodagePriseRAZOA(Etude& e, bool zrSaisi = false);

// Others: Jo (1 in mode "Return"), K = Y / 10, the detectable resistances, the ratio R/X and the
// reaches forward and backward.
void AutresRAZOA(Etude& e);

// The timers: T1 within 0 to 9990 ms, T2 to T4 within 0 to 9900 ms down to the switch's steps of
// 100 ms, and the tripping timer T2 or T3 by the position of the relay RGZA30.
void TemposRAZOA(Etude& e);
// The position of the switch of a timer.
int PositionCommutateurRAZOA(int t);

// Rules 50 to 56.
void DiagRAZOA(Etude& e);

// The half width of the plane fitted on OK, in primary ohms (before the limit of 1000).
double DemiLargeurRAZOA(const Etude& e);

// The shape of the pick-up in its own frame: the axis of the characteristic along R, the
// forward reach at 1 and the backward one at -D. The circle is one disc; the lens is the common
// part of two discs through both reaches, whose arcs meet the axis at 45 degrees.
struct DisqueRAZOA {
    double Xc = 0.0;
    double Yc = 0.0;
    double Rayon = 0.0;
};
struct FormeRAZOA {
    std::array<DisqueRAZOA, 2> Disques{};
    int Nombre = 1;
};
FormeRAZOA FormeDeLaPriseRAZOA(bool lentille, double D);

// The distance from the point (x, y) of the frame, inside the shape, to its edge along the angle
// `angle` (radians, from the axis); 0 when that line does not cut the shape.
double DistanceAuBordRAZOA(const FormeRAZOA& forme, double x, double y, double angle);

// Registers the RAZOA: panel, characteristic, setting list, rule texts, settings page and
// defaults.
void InscrireRAZOA();

} // namespace tournesol
