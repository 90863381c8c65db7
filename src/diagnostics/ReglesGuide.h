// The rules of the setting guide for the relays whose diagnostics the diagnostics module holds:
// 7SA511 (rules 1 to 6), REL 100 (57 to 62) and REZ1 (64 to 70). The relay's last computation
// step calls its function with its reaches; each rule gets its flag and its limit.
#pragma once

namespace tournesol {

struct Etude;

// The margins common to every relay, in primary ohms.
struct MargesGuide {
    double Rf = 0.0; // forward side limit: 0.8 XAV + 0.9 XL_eq
    double Rb = 0.0; // backward side limit: 0.8 XAM
    double T = 0.0;  // coordination with the opposite relay: 1.3 X1PB - 1.06 XL_eq
    double S = 0.0;  // sin(PHI_eq)
};
MargesGuide Marges(const Etude& e);

// 7SA511, reaches in secondary ohms: X2 the second zone, Xav and Xar the forward and backward
// pick-up, dZ the out-of-step width.
void Diagnostics7SA511(Etude& e, double X2, double Xav, double Xar, double dZ);

// REL 100, reactances in secondary ohms: X2 the second zone, X3 forward, X4 backward; the
// external out-of-step zone is 1.25 times the pick-up.
void DiagnosticsREL100(Etude& e, double X2, double X3, double X4);

// REZ1, reactances in primary ohms: X2 and X3 the second and third zones, Xar backward; Zpi the
// internal forward out-of-step reach.
void DiagnosticsREZ1(Etude& e, double X2, double X3, double Xar, double Zpi);

} // namespace tournesol
