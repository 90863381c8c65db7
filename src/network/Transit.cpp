#include "network/Transit.h"

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "network/Calcul.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

namespace {

// The relays whose maximal transit on a three-ended line accounts for the single phase
// reclosing current.
double CourantSansReport3Bouts(const Etude& e) {
    switch (e.id_protection) {
    case 1:
    case 6:
    case 7:
    case 11:
        return std::max(e.ItP, Div((8.0 - e.Ligne_CRm) * e.Ligne_Itmono, 8.0 - 2.0 * e.Ligne_CRm));
    case 12:
        return std::max(e.ItP, Div((25.0 - 4.0 * e.Ligne_CRm - 1.0 / 3.0) * e.Ligne_Itmono,
                                   24.0 - 6.0 * e.Ligne_CRm));
    default:
        return e.ItP;
    }
}

void ChoisirCourant(Etude& e) {
    if (e.Ligne_Tl >= 0 && e.Ligne_Tl <= 2) {
        switch (e.TypeReportCharge) {
        case 0:
            if (e.Ligne_alim != 3) e.It = e.Ligne_Ittri;
            e.Ceq = e.Ligne_CRt;
            break;
        case 1:
            if (e.Ligne_Tl == 0) e.Ligne_kom = 0.0;
            e.It = e.Ligne_Itmono;
            e.Ligne_CRm = std::max(e.Ligne_CRm, 1.0);
            e.Ceq = (3.0 - Div(2.0, e.ko_eq - e.kom_eq + 1.0)) * (e.Ligne_CRm - 1.0) * e.ko_eq +
                    e.Ligne_CRm;
            break;
        case 2:
            if (e.Ligne_alim == 0) {
                e.It = e.Ligne_Itmax;
                e.Ceq = 1.0;
            } else if (e.Ligne_alim == 3) {
                e.It = e.Ligne_itclient;
            }
            break;
        default:
            break;
        }
    } else if (e.Ligne_Tl == 3) {
        e.It = e.ItP;
        switch (e.TypeReportCharge) {
        case 0:
            e.Ceq = e.Ligne_CRt;
            break;
        case 1:
            e.Ceq = (Div(e.ko_eq * e.Ligne_CRm, 2.0 * e.ko_eq + 1.0 - 2.0 * e.kom_eq) + 4.0) *
                    Div(1.0, 4.0 - e.Ligne_CRm);
            break;
        case 2:
            e.Ceq = 1.0;
            e.It = CourantSansReport3Bouts(e);
            break;
        default:
            break;
        }
    }
    if (e.Ceq == 0.0) e.Ceq = 1.0;
    // The relays read the factor in force under this name.
    e.CRcourant = e.Ceq;
    if (e.Vmin == 0.0) e.Vmin = 1.0;
    if (e.It == 0.0) e.It = 1.0;
    if (e.ZL_eq == 0.0) e.ZL_eq = 0.001;
}

Complexe& N(Etude& e, int n) {
    return e.PointsTransit[static_cast<std::size_t>(n - 1)];
}

void LigneMaillee(Etude& e) {
    const double ci = e.Ceq * e.It;
    const double r = Div(e.Vmin * 1000.0, ci);
    const Complexe w = Cart(e.RL_eq, e.XL_eq);
    const double ang1 = ArcCosinus(Div(ci * e.ZL_eq, 2000.0 * e.Vmin));
    N(e, 1) = Polar(r, e.PHI_eq - ang1);
    N(e, 2) = Polar(r, e.PHI_eq + ang1);
    const double k = Div((Carre(e.Vmax) - Carre(e.Vmin)) * 1000.0, 2.0 * e.ZL_eq * e.Vmin * ci) -
                     Div(e.ZL_eq * ci, 2000.0 * e.Vmin);
    if (std::fabs(k) > 1.0) {
        e.fNoIntersect = true;
        return;
    }
    const double ang2 = ArcCosinus(k);
    N(e, 3) = Polar(r, e.PHI_eq - ang2);
    CplxAdd(N(e, 3), w);
    N(e, 4) = Polar(r, e.PHI_eq + ang2);
    CplxAdd(N(e, 4), w);
    N(e, 5) = Polar(-r, e.PHI_eq + ang2);
    N(e, 6) = Polar(-r, e.PHI_eq - ang2);
}

void LiaisonCentrale(Etude& e) {
    if (e.Ligne_Smax == 0.0f) e.Ligne_Smax = 2.0f;
    if (e.Ligne_Pmax == 0.0f) e.Ligne_Pmax = 1.0f;
    if (1.01 * e.Ligne_Pmax > e.Ligne_Smax) e.Ligne_Smax = static_cast<Reel32>(1.01 * e.Ligne_Pmax);
    const double pmax = e.Ligne_Pmax;
    const double smax = e.Ligne_Smax;
    const double phi = e.PHI_eq;
    e.It = Div(smax * 1000.0, 3.0 * e.Vmin);
    const double ang1 = ArcCosinus(Div(pmax, smax));

    const double c = Div(3.0 * Carre(e.Vmin), smax);
    const double d = Carre(e.Vmax) - Carre(e.Vmin);
    const double a = Div(Carre(e.Vmax) * e.ZL_eq, d);
    const double b = Div(e.ZL_eq * e.Vmin * e.Vmax, d);
    const double h = Div(1.5 * Carre(e.Vmin), pmax);

    N(e, 1) = Polar(c, ang1);
    N(e, 2) = Polar(c, -ang1);

    const double t = std::fabs(Div(Div(Div(Carre(c) + Carre(a) - Carre(b), 2.0), a), c));
    if (t > 1.0)
        e.fNoUp = true;
    else
        N(e, 3) = Polar(c, phi - ArcCosinus(t));
    N(e, 4) = Polar(a + b, phi);

    const double ep = Racine(Carre(a) + Carre(h) - 2.0 * a * h * std::cos(phi));
    const double u =
        Div(2.0 * Carre(h) + Carre(a) - 2.0 * a * h * std::cos(phi) - Carre(b), 2.0 * h * ep);
    if (u > 1.0) {
        e.fNoP = true;
    } else {
        const double theta = PI - ArcCosinus(Div(h - a * std::cos(phi), ep)) - ArcCosinus(u);
        N(e, 7) = Cart(h * std::cos(theta) + h, h * std::sin(theta));
    }

    const double a2 = Div(e.ZL_eq * Carre(e.Vmin), d);
    const double t2 = Div(Div(Div(Carre(c) + Carre(a2) - Carre(b), 2.0), a2), c);
    if (std::fabs(t2) > 1.0)
        e.fNoDown = true;
    else
        N(e, 5) = Polar(c, phi + PI + ArcCosinus(t2));
    N(e, 6) = Polar(b + a2, phi + PI);

    const double e2 = Racine(Carre(a2) + Carre(h) + 2.0 * a2 * h * std::cos(phi));
    const double u2 =
        Div(2.0 * Carre(h) + Carre(a2) + 2.0 * a2 * h * std::cos(phi) - Carre(b), 2.0 * h * e2);
    const double theta2 = ArcCosinus(Div(a2 * std::cos(phi) + h, e2)) - PI + ArcCosinus(u2);
    N(e, 8) = Cart(h * std::cos(theta2) + h, h * std::sin(theta2));

    // The upper side of the area stops where the circles cut.
    if (!e.fNoUp) {
        if (N(e, 1).Im <= N(e, 3).Im) {
            N(e, 7) = N(e, 1);
        } else {
            N(e, 3) = N(e, 7);
            N(e, 1) = N(e, 7);
        }
    } else {
        N(e, 3) = N(e, 1);
        N(e, 4) = Cart(N(e, 1).Module * std::cos(phi), N(e, 1).Module * std::sin(phi));
        N(e, 7) = N(e, 1);
    }
    // And so does the lower side.
    if (!e.fNoDown) {
        if (N(e, 5).Im <= N(e, 2).Im) {
            N(e, 8) = N(e, 2);
        } else {
            N(e, 5) = N(e, 8);
            N(e, 2) = N(e, 8);
        }
    } else {
        N(e, 5) = N(e, 2);
        N(e, 6) = Cart(-N(e, 2).Module * std::cos(phi), -N(e, 2).Module * std::sin(phi));
        N(e, 8) = N(e, 2);
    }
    if (e.fNoP) N(e, 7) = N(e, 1);
}

void Miroir(Etude& e) {
    for (int n = 1; n <= 8; ++n)
        N(e, n) = Cart(e.RL_eq - N(e, n).Re, e.XL_eq - N(e, n).Im);
}

} // namespace

void TransformateursDesBouts(Etude& e) {
    // From end C the far value is that of substation C, and the near one stays as it was.
    switch (e.Ligne_pp) {
    case 0:
        e.XtrProche = e.Ligne_XAM;
        e.XtrDistant = e.Ligne_XAV;
        break;
    case 1:
        e.XtrProche = e.Ligne_XAV;
        e.XtrDistant = e.Ligne_XAM;
        break;
    case 2:
        e.XtrDistant = e.Ligne_XAZ;
        break;
    default:
        break;
    }
}

void TransitCalc(Etude& e) {
    e.ErrCalcul = 0;
    e.fNoIntersect = e.fNoUp = e.fNoDown = e.fNoP = false;
    ExecuterCalcul(e, [&e] {
        e.Ligne_CRm = std::max(e.Ligne_CRm, 1.0);
        e.Ligne_CRt = std::max(e.Ligne_CRt, 1.0);
        if (e.PHI_eq == 0.0) e.PHI_eq = 0.1;
        ChoisirCourant(e);
        // Each feed's branch starts with the source reactance of the current in force.
        if (e.Ligne_alim >= 0 && e.Ligne_alim <= 3) e.Ligne_XS = ReactanceSource(e);
        switch (e.Ligne_alim) {
        case 0:
            LigneMaillee(e);
            break;
        case 1:
        case 2:
            LiaisonCentrale(e);
            if (e.Ligne_alim == 2) Miroir(e);
            break;
        case 3:
            N(e, 1) = Polar(Div(e.Vmin * 1000.0, e.It), 0.0);
            break;
        default:
            break;
        }
    });
}

std::array<Complexe, 9> PointsTransitTires(const Etude& e) {
    std::array<Complexe, 9> p{};
    std::copy(e.PointsTransit.begin(), e.PointsTransit.end(), p.begin());
    const bool degenere = e.fNoIntersect;
    const double phi = e.PHI_eq;
    const double m0 = p[0].Module;
    // The point on the line image's circle of radius |N1| seen at `angle` from the line.
    auto tire = [&](double angle) {
        const double r = e.ZL_eq * std::cos(angle) +
                         std::sqrt(std::fabs(Carre(m0) - Carre(e.ZL_eq * std::sin(angle))));
        return std::max(r, m0);
    };
    auto placer = [](Complexe& c, double module, double argument) {
        c.Module = module;
        c.Argument = argument;
        c.Re = module * std::cos(argument);
        c.Im = module * std::sin(argument);
    };
    if (PI / 6.0 < p[2].Argument || degenere) placer(p[2], tire(phi - PI / 6.0), PI / 6.0);
    if (5.0 * PI / 6.0 > p[3].Argument || degenere)
        placer(p[3], tire(5.0 * PI / 6.0 - phi), 5.0 * PI / 6.0);
    if (11.0 * PI / 6.0 > p[4].Argument || degenere) placer(p[4], m0, 11.0 * PI / 6.0);
    if (7.0 * PI / 6.0 < p[5].Argument || degenere) placer(p[5], m0, 7.0 * PI / 6.0);
    return p;
}

std::array<Complexe, 9> PointsTransitTiresDuCas(Etude& e, int cas) {
    RemettreCasDeReport(e, cas);
    return PointsTransitTires(e);
}

void RemettreCasDeReport(Etude& e, int cas) {
    e.TypeReportCharge = static_cast<Entier16>(cas);
    TransitCalc(e);
    if (e.ErrCalcul != 0) LeverErreur(e.ErrCalcul);
}

} // namespace tournesol
