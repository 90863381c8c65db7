// Angles, inverse trigonometry and the checked arithmetic of the computations.
#pragma once

#include <string>

namespace tournesol {

// The value of pi used by every computation of the system.
inline constexpr double PI = 3.14159265358979;

double DegToRad(double degres);
double RadToDeg(double radians);

// Raise error 9 when x * x exceeds 1.
double ArcSinus(double x);
double ArcCosinus(double x);

// The whole part (the floor) of a value; a value that is whole up to the noise of binary
// arithmetic (10 x 1.7, 1000 x 0.8) is that whole value, not the one below. A value that is not
// finite is error 6.
double PartieEntiere(double x);

inline double Carre(double x) {
    return x * x;
}

} // namespace tournesol
