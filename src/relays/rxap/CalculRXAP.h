// The RXAP's rules: the zones set on its coding wheels, the pick-up (a circle, with or without
// the image, or an ellipse) as large as the load points allow, the common parameters with the
// detectable fault resistances and the reaches, the commercial variant deduced from the options,
// and its rules of the setting guide (71 to 76).
#pragma once

#include <array>
#include <string>

namespace tournesol {

struct Etude;

inline constexpr int ID_RXAP = 11;

// The 71 values of the coding wheels, index 1 to 71; index 0 reads 0. Single precision, as the
// relay's table holds them.
extern const std::array<float, 72> TAB_N_RXAP;
// The ellipse's rows 1 to 5 (index 0 unused): pick-up and out-of-step eccentricities.
extern const std::array<double, 6> EXCENTRICITE_MR;
extern const std::array<double, 6> EXCENTRICITE_AP;

// The RXAP's values at the start of a study in mode "Return": type 5 A, image, out of step and
// circle.
void DefautsRXAP(Etude& e);

// Zones: in mode "Return" the desired reactances from the line; each zone set on the wheels, in
// series or in parallel, the first one below, the second one above.
void ZonesRXAP(Etude& e);
// The zones on the wheels from the desired reactances X1_BT and X2_BT as they stand (typed).
// A type other than 5 A (1) or 3.3 A (1.5) is taken as 5 A.
void RouesRXAP(Etude& e);

// Pick-up of the circle or the ellipse on a meshed line, of the circle on a customer link, from
// the load points of the three-phase and maximal cases pulled to the 30-degree sectors. On a
// meshed line the maximal case (2) and its area stay in force.
void PriseRXAP(Etude& e);

// Common parameters: the earth factor K, the detectable fault resistances, the ratio R/X and the
// reaches forward and backward (secondary ohms).
void CommunRXAP(Etude& e);
// The same from the earth factor K as it stands (typed).
void PorteesRXAP(Etude& e);

// The commercial variant the options give, as the "choice" sheet shows it; and as the report
// prints it ("Incompatible data" has no printed form: empty).
std::string VarianteRXAP(const Etude& e);
std::string VarianteImprimeeRXAP(const Etude& e);
// Only the RXAP 6755 has its first-step timer.
bool TempoT1RXAP(const Etude& e);

// Rules 71 to 76.
void DiagRXAP(Etude& e);

// The plane's box on OK: 1.2 (Image + MRAP) above, 1.2 MRAP below, primary ohms (the panel
// framework caps each side).
double HautPlanRXAP(const Etude& e);
double BasPlanRXAP(const Etude& e);

// Registers the RXAP's panel, characteristic, store list, settings page and rule texts.
void InscrireRXAP();

} // namespace tournesol
