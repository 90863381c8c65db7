#include "core/Complexe.h"

#include "core/Numerique.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

namespace {
double Limiter(double v) {
    return std::clamp(v, -LIMITE_PLAN, LIMITE_PLAN);
}
} // namespace

void CplxCart(Complexe& c, double re, double im) {
    c.Re = Limiter(re);
    c.Im = im;
    CplxToPolar(c);
}

void CplxPolar(Complexe& c, double module, double argument) {
    c.Module = Limiter(module);
    c.Argument = argument;
    CplxToRect(c);
}

void CplxAdd(Complexe& c, const Complexe& terme) {
    c.Re += terme.Re;
    c.Im += terme.Im;
    CplxToPolar(c);
}

void CplxToPolar(Complexe& c) {
    c.Module = std::sqrt(std::fabs(c.Re * c.Re + c.Im * c.Im));
    if (c.Re != 0.0) {
        c.Argument = std::atan(c.Im / c.Re);
        if (c.Re < 0.0) c.Argument += PI;
        if (c.Argument < 0.0) c.Argument += 2.0 * PI;
    } else {
        // A null number, and any point on the negative X axis, points down.
        c.Argument = c.Im > 0.0 ? PI / 2.0 : 3.0 * PI / 2.0;
    }
}

void CplxNormalise(Complexe& c) {
    if (c.Module < 0.0) {
        c.Module = -c.Module;
        c.Argument += PI;
    }
    if (!std::isfinite(c.Argument)) return;
    // Far from the circle, reduce in one step: repeated subtraction would never end.
    if (std::fabs(c.Argument) > 64.0 * PI) c.Argument = std::fmod(c.Argument, 2.0 * PI);
    while (c.Argument < 0.0)
        c.Argument += 2.0 * PI;
    while (c.Argument >= 2.0 * PI)
        c.Argument -= 2.0 * PI;
}

void CplxToRect(Complexe& c) {
    CplxNormalise(c);
    c.Re = std::cos(c.Argument) * c.Module;
    c.Im = std::sin(c.Argument) * c.Module;
}

Complexe Cart(double re, double im) {
    Complexe c;
    CplxCart(c, re, im);
    return c;
}

Complexe Polar(double module, double argument) {
    Complexe c;
    CplxPolar(c, module, argument);
    return c;
}

} // namespace tournesol
