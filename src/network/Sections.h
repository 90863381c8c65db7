// The sections of a three-ended line: back to the order of the ends, or in order of length.
#pragma once

namespace tournesol {

struct Etude;

// Exchanges two sections (i, j from 0): length, reactance, resistance, impedance, earth factor,
// angles, zero sequence values and the end number.
void EchangerSections(Etude& e, int i, int j);
// Brings the sections back to the order of the ends (Ex 1, 2, 3).
void TrierEx(Etude& e);
// Puts the sections in order of length, AP < BP < CP.
void TrierLongueur(Etude& e);

} // namespace tournesol
