#include "diagnostics/ReglesGuide.h"

#include "core/Etude.h"
#include "diagnostics/Diagnostics.h"

#include <cmath>

namespace tournesol {

MargesGuide Marges(const Etude& e) {
    MargesGuide m;
    m.Rf = 0.8 * e.Ligne_XAV + 0.9 * e.XL_eq;
    m.Rb = 0.8 * e.Ligne_XAM;
    m.T = 1.3 * e.Ligne_X1PB - 1.06 * e.XL_eq;
    m.S = std::sin(e.PHI_eq);
    return m;
}

void Diagnostics7SA511(Etude& e, double X2, double Xav, double Xar, double dZ) {
    const MargesGuide m = Marges(e);
    const double kz = e.Kz;
    DefinirRegle(e, 1, Xav < 1.2 * X2, 1.2 * X2 * kz);
    DefinirRegle(e, 2, m.Rf < 1.15 * Xav * kz, m.Rf / 1.15);
    // The line term alone is taken along the line's angle in this test, not in its value.
    DefinirRegle(e, 3, 0.8 * e.Ligne_XAV + 0.9 * e.XL_eq * m.S < 1.15 * (dZ + Xav) * kz,
                 m.Rf / 1.15);
    DefinirRegle(e, 4, m.Rb < 1.15 * Xar * kz, m.Rb / 1.15);
    DefinirRegle(e, 5, m.Rb < 1.15 * (Xar + dZ) * kz, m.Rb / 1.15);
    DefinirRegle(e, 6, e.Ligne_lc && Xar * kz < m.T, m.T);
}

void DiagnosticsREL100(Etude& e, double X2, double X3, double X4) {
    const MargesGuide m = Marges(e);
    const double kz = e.Kz;
    DefinirRegle(e, 57, X3 < 1.2 * X2, 1.2 * X2 * kz);
    DefinirRegle(e, 58, m.Rf < 1.15 * X3 * kz, m.Rf / 1.15);
    DefinirRegle(e, 59, m.Rf < 1.15 * 1.25 * X3 * kz, m.Rf / 1.15);
    DefinirRegle(e, 60, m.Rb < 1.15 * X4 * kz, m.Rb / 1.15);
    DefinirRegle(e, 61, m.Rb < 1.15 * 1.25 * X4 * kz, m.Rb / 1.15);
    DefinirRegle(e, 62, e.Ligne_lc && kz * X4 < m.T, m.T);
}

void DiagnosticsREZ1(Etude& e, double X2, double X3, double Xar, double Zpi) {
    const MargesGuide m = Marges(e);
    DefinirRegle(e, 64, X3 < 1.2 * X2, 1.2 * X2);
    DefinirRegle(e, 65, m.Rf < 1.15 * X3, 0.9 * m.Rf / 1.1);
    DefinirRegle(e, 66, m.Rf < 1.4375 * Zpi, 0.9 * m.Rf / 1.1);
    DefinirRegle(e, 67, Zpi < 1.15 * X3, 0.9 * Zpi / 1.1);
    DefinirRegle(e, 68, m.Rb < 1.15 * Xar, 0.9 * m.Rb / 1.1);
    DefinirRegle(e, 69, m.Rb < 1.4375 * Zpi, 0.9 * m.Rb / 1.1);
    DefinirRegle(e, 70, e.Ligne_lc && Xar < m.T, m.T);
}

} // namespace tournesol
