#include "core/Numerique.h"

#include "core/Erreurs.h"

#include <cmath>

namespace tournesol {

double DegToRad(double degres) {
    return degres * PI / 180.0;
}

double RadToDeg(double radians) {
    return radians / PI * 180.0;
}

double PartieEntiere(double x) {
    return std::floor(Verifier(x) + 1e-9);
}

double ArcSinus(double x) {
    if (x * x > 1.0) LeverErreur(ERR_INDICE);
    if (x == 1.0) return PI / 2.0;
    if (x == -1.0) return -PI / 2.0;
    return std::atan(x / std::sqrt(std::fabs(1.0 - x * x)));
}

double ArcCosinus(double x) {
    if (x * x > 1.0) LeverErreur(ERR_INDICE);
    if (x == 1.0) return 0.0;
    if (x == -1.0) return PI;
    return std::atan(-x / std::sqrt(std::fabs(1.0 - x * x))) + PI / 2.0;
}

} // namespace tournesol
