// A point or complex quantity of the R-X plane, kept in both forms.
#pragma once

namespace tournesol {

struct Complexe {
    double Re = 0.0;
    double Im = 0.0;
    double Module = 0.0;
    double Argument = 0.0;
};

// The first argument (Re, Module) is held within -1000 to +1000 ohms.
inline constexpr double LIMITE_PLAN = 1000.0;

void CplxCart(Complexe& c, double re, double im);
void CplxPolar(Complexe& c, double module, double argument);
void CplxAdd(Complexe& c, const Complexe& terme);
void CplxToPolar(Complexe& c);
void CplxToRect(Complexe& c);
void CplxNormalise(Complexe& c);

// Value-returning forms for expressions.
Complexe Cart(double re, double im);
Complexe Polar(double module, double argument);

} // namespace tournesol
