#include "relays/sa511/CalculSA511.h"

#include "core/Complexe.h"
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "diagnostics/ReglesGuide.h"
#include "network/Transit.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

namespace {

constexpr double R_MIN = 0.1;
constexpr double R_MAX = 200.0;
constexpr double R_ZONE_MIN = 0.05;
constexpr double R_ZONE_MAX = 65.0;
constexpr double X_ZONE_MAX = 130.0;

// The report case in force, given back however the load computations end.
class GardeReport {
public:
    explicit GardeReport(Etude& e) : e_(e), cas_(e.TypeReportCharge) {}
    ~GardeReport() { e_.TypeReportCharge = cas_; }
    GardeReport(const GardeReport&) = delete;
    GardeReport& operator=(const GardeReport&) = delete;

private:
    Etude& e_;
    Entier16 cas_;
};

// The load area of the report case in force; its failure is the step's.
void AireDeCharge(Etude& e) {
    TransitCalc(e);
    if (e.ErrCalcul != 0) LeverErreur(e.ErrCalcul);
    AnglesChargeSA511(e);
}

// The distance along R of a load point, with the margin.
double DistanceR(const Complexe& p) {
    return std::fabs(std::cos(p.Argument)) * p.Module * MARGE_CHARGE_SA511;
}

// A resistance that the pick-up sets as soon as it is computed.
double Resistance(double r) {
    return std::clamp(Verifier(r), R_MIN, R_MAX);
}

// The resistance beyond the load angle: the side along the load angle meets the line's image.
double AuDelaDeLaCharge(double r, double phi, double phiLigne) {
    return Resistance(Div(r, 1.0 - Div(std::tan(phi), std::tan(phiLigne))));
}

} // namespace

void AnglesChargeSA511(Etude& e) {
    auto argument = [](Complexe p) {
        CplxToPolar(p); // from its coordinates, in [0, 2 pi)
        return p.Argument;
    };
    e.SA511.PhiCharge1 = argument(e.PointsTransit[0]);
    e.SA511.PhiCharge2 = argument(e.PointsTransit[1]);
}

void CalculHorsPompageSA511(Etude& e, Dialogue& d, DistancesCharge& distances) {
    RelaisSA511& r = e.SA511;
    if (e.PanneauRelais) {
        r.deltaR = 3.0;
        r.derivR = 200.0;
        r.Tact = 1.0;
    }
    r.deltaR_HT = Verifier(e.Kz * r.deltaR);
    r.derivR_HT = Verifier(e.Kz * r.derivR);

    const GardeReport garde(e);
    distances = DistancesCharge{};
    switch (e.Ligne_alim) {
    case 0:
        for (const int cas : {0, 2}) {
            e.TypeReportCharge = static_cast<Entier16>(cas);
            AireDeCharge(e);
            const std::array<Complexe, 9> points = PointsTransitTires(e);
            auto& d12 = cas == 0 ? distances.D1 : distances.D2;
            for (std::size_t i = 0; i < d12.size(); ++i)
                d12[i] = DistanceR(points[i]);
        }
        break;
    case 1:
    case 2: {
        AireDeCharge(e);
        const Complexe& n1 = e.PointsTransit[0];
        const Complexe& n2 = e.PointsTransit[1];
        const double y = std::fabs(std::sin(n1.Argument)) * n1.Module;
        // The forward reactance, on the plane in primary ohms.
        const double xv = Verifier(r.XV * e.Kz);
        if ((1.1 / 0.9) * xv < y) {
            distances.D2[0] = DistanceR(n1);
            distances.D2[1] = DistanceR(n2);
        } else {
            // Where the forward reactance cuts the circle of the generator's active power.
            const double p = Div(1.5 * Carre(e.Vmax), e.Ligne_Pmax);
            distances.D2[0] = distances.D2[1] =
                (Racine(Carre(p) - Carre(xv)) + p) * MARGE_CHARGE_SA511;
        }
        break;
    }
    case 3: {
        AireDeCharge(e);
        const double m = e.PointsTransit[0].Module * MARGE_CHARGE_SA511;
        if (m < e.Ligne_Xprim3) d.Message("TOURNESOL", DONNEES_INCOMPATIBLES_SA511, 0);
        distances.D2[0] = Racine(Carre(m) - Carre(e.Ligne_Xprim3));
        break;
    }
    default:
        break;
    }
}

double DistanceMinimaleSA511(const Etude& e, const DistancesCharge& distances) {
    switch (e.Ligne_alim) {
    case 0:
        return std::min(*std::min_element(distances.D1.begin(), distances.D1.end()),
                        *std::min_element(distances.D2.begin(), distances.D2.end()));
    case 1:
    case 2:
        return std::min(distances.D2[0], distances.D2[1]);
    default:
        return distances.D2[0];
    }
}

void CalculMiseEnRouteSA511(Etude& e, const DistancesCharge& distances) {
    RelaisSA511& r = e.SA511;
    const double rs = Div(DistanceMinimaleSA511(e, distances), e.Kz);
    r.Phia = std::clamp(std::max(r.PhiCharge1, r.PhiCharge2) + DegToRad(5.0), DegToRad(30.0),
                        DegToRad(80.0));
    r.Phiae = r.Phia;
    // RA2 starts from RA1 as limited.
    r.RA1 = Resistance(rs - r.deltaR);
    r.RA2 = AuDelaDeLaCharge(r.RA1, r.Phia, e.PHI_eq);
    r.RA1E = Resistance(rs);
    r.RA2E = AuDelaDeLaCharge(r.RA1E, r.Phiae, e.PHI_eq);
    r.X1 = std::min(Div(e.Ligne_Xprim1, e.Kz), X_ZONE_MAX);
    r.X2 = std::min(Div(e.Ligne_Xprim2, e.Kz), X_ZONE_MAX);
    r.XV = std::clamp(1.25 * r.X2, R_MIN, R_MAX);
    r.XM = r.XV - Div(e.XL_eq, e.Kz);
}

void CalculZonesSA511(Etude& e) {
    RelaisSA511& r = e.SA511;
    r.R1E = r.R1 = std::clamp(r.RA1E, R_ZONE_MIN, R_ZONE_MAX);
    r.R2E = r.R2 = r.R1BE = r.R1B = std::clamp(r.RA2E, R_ZONE_MIN, R_ZONE_MAX);
    r.X1B = r.X2;
    r.RsurX = Div(r.RA1E, r.X1);
}

void ReactanceSaisieSA511(Etude& e, double& x) {
    if (x == 0.0) x = 0.1;
    e.SA511.RsurX = Div(e.SA511.R1E, e.SA511.X1);
}

void CalculTemposSA511(Etude& e) {
    RelaisSA511& r = e.SA511;
    r.Tempo.fill(0.0);
    e.Teleaction = false;
    e.Acceleration = e.Ligne_lc;
    r.Te = 0.01;
    r.Ts = 0.0;
}

void CalculDiagSA511(Etude& e) {
    const RelaisSA511& r = e.SA511;
    EffacerReglesRelais(e, ID_SA511);
    Diagnostics7SA511(e, r.X2, r.XV, r.XM, r.deltaR);
}

double DemiLargeurSA511(const Etude& e) {
    const RelaisSA511& r = e.SA511;
    return 1.2 * e.Kz * std::max({r.RA1E, r.XV, r.XM});
}

} // namespace tournesol
