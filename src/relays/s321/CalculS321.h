// The S 321-5's rules: a digital relay whose settings are named parameters, kept at their
// format's precision and only limited. Its forward and backward phase-to-phase zones and its
// out-of-step rectangles come from the load points, its phase-to-earth quadrilaterals from the
// line, its thresholds from the relay's defaults; rules 79 to 87 of the setting guide.
#pragma once

#include <optional>

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr int ID_S321 = 12;
inline constexpr const char* DONNEES_INCOMPATIBLES_S321 = "incompatible data";

// Mode "Return", when the options are loaded: the current thresholds at their defaults (0.2 Is,
// 0.5 Is for the directional module), A2 0.1, out of step on short lines only.
void DefautsS321(Etude& e);

// Out of step and forward zones from the load, in mode "Return" on a meshed line or a customer
// link: the out-of-step rectangles, Z4MG and Z3MG, KR (meshed only) and the resistance RZ of the
// quadrilaterals, which it returns (nothing when it does not run). The report case in force is
// put back at the end. On a customer link a forward zone shorter than the line says
// DONNEES_INCOMPATIBLES_S321, once, and goes on.
std::optional<double> ChargeS321(Etude& e, Dialogue& d);

// Reaches: in mode "Return" from the line (and RZ for the resistances, when it was computed),
// then the limits.
void PorteesS321(Etude& e, std::optional<double> rz);
// The limits of the reaches alone: 0.05 to 64 secondary ohms for the zones, at most 70 for the
// out-of-step resistances, 96 for their reactances.
void LimitesPorteesS321(Etude& e);

// Thresholds: in mode "Return" the compensations and earth factors from the line, OSBD 15, then
// the limits and the line angle kept within 40 to 90 degrees.
void SeuilsS321(Etude& e);
void LimitesSeuilsS321(Etude& e);

// Rules 79 to 87.
void DiagS321(Etude& e);

// Registers the S 321-5's panel, characteristic, store list, settings pages and rule texts.
void InscrireS321();

} // namespace tournesol
