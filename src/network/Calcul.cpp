#include "network/Calcul.h"

#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "network/PanneauxControle.h"
#include "network/ReportCharge.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

namespace {

const double RACINE3 = std::sqrt(3.0);
const double ANGLE_DEFAUT = DegToRad(75.0);

struct Niveau {
    int up;
    double umin, umax, nominale, xd, rd;
};

// Voltage levels of the network: limits of the line voltage, rated voltage of the VTs, and the
// per-km positive sequence reactance and resistance of the level's lines.
constexpr Niveau NIVEAUX[] = {
    {400, 360.0, 420.0, 400.0, 0.3, 0.032},
    {225, 200.0, 245.0, 220.0, 0.405, 0.085},
    {90, 77.8, 100.0, 90.0, 0.405, 0.15},
    {63, 54.0, 72.5, 60.0, 0.405, 0.18},
};

bool Fige(const Etude& e) {
    return e.XprimFige != 0.0;
}

void Defaut(double& v, double defaut) {
    if (v == 0.0) v = defaut;
}

// The check panel of a two-ended line, while the user wants to see the values.
void ControleDeuxBouts(Etude& e, Dialogue& d) {
    if (!e.ShowValeurs) return;
    e.ErrCalcul = 0;
    PanneauValeurs panneau(e);
    d.MontrerPanneau(panneau);
}

} // namespace

double ArrondiPair(double x) {
    return std::nearbyint(x);
}

double PlancherNiveau(int up) {
    switch (up) {
    case 63:
        return ArrondiPair(2.4);
    case 90:
        return ArrondiPair(3.5);
    case 225:
        return ArrondiPair(4.3);
    case 400:
        return ArrondiPair(3.9);
    default:
        return 0.0;
    }
}

void CalculNiveau(Etude& e) {
    for (double& l : e.Ligne_Longueur)
        Defaut(l, 1.0);
    double nominale = e.Ligne_Up;
    e.Umin = 0.88 * e.Ligne_Up;
    e.Umax = 1.1 * e.Ligne_Up;
    for (const Niveau& n : NIVEAUX) {
        if (n.up != e.Ligne_Up) continue;
        e.Umin = n.umin;
        e.Umax = n.umax;
        nominale = n.nominale;
        e.Ligne_Xd.fill(n.xd);
        e.Ligne_Rd.fill(n.rd);
    }
    Defaut(nominale, 1.0);
    e.Kv = nominale / 0.1;
    if (e.Ligne_Ip == 0) e.Ligne_Ip = 1;
    if (e.Is == 0.0f) e.Is = 1.0f;
    Defaut(e.Ligne_Icc, 1.0);
    Defaut(e.It, 1.0);
    Defaut(e.Umin, 1.0);
    Defaut(e.Umax, 2.0);
    e.Ki = Div(e.Ligne_Ip, e.Is);
    e.Kz = Div(e.Kv, e.Ki);
    e.Vmin = e.Umin / RACINE3;
    e.Vmax = e.Umax / RACINE3;
    e.Ligne_XSmini = Div(e.Ligne_Up, RACINE3 * e.Ligne_Icc);
    // The source reactance uses the equivalent reactance of the previous run.
    e.Ligne_XS = ReactanceSource(e);
}

double TermeSource(const Etude& e) {
    return std::sqrt(std::fabs(Div(4.0 * (Carre(e.Vmax) - Carre(e.Vmin)), Carre(e.It / 1000.0)) +
                               Carre(e.XL_eq)));
}

double ReactanceSource(const Etude& e) {
    return Verifier(0.5 * (TermeSource(e) - e.XL_eq) + 2.0 * e.Ligne_XSmini);
}

namespace {
// A line of one section: the equivalents are the values of section 0.
void EquivalentsSection0(Etude& e) {
    e.XL_eq = e.Ligne_XL[0];
    e.RL_eq = e.Ligne_RL[0];
    e.ZL_eq = e.Ligne_ZL[0];
    e.Longueur_eq = e.Ligne_Longueur[0];
    e.Xd_eq = e.Ligne_Xd[0];
    e.Rd_eq = e.Ligne_Rd[0];
    e.PHI_eq = e.Ligne_PHI[0];
    e.ko_eq = e.Ligne_ko[0];
    e.ako_eq = e.Ligne_ako[0];
    e.Xo_eq = e.Ligne_Xo[0];
    e.Ro_eq = e.Ligne_Ro[0];
    e.PHIo_eq = e.PHIo[0];
}

// The defaults of the lines on common towers.
void DefautsCircuitDouble(Etude& e) {
    Defaut(e.XL_eq, 0.1);
    Defaut(e.RL_eq, 0.01);
    Defaut(e.ZL_eq, 0.1);
    Defaut(e.Longueur_eq, 1.0);
}
} // namespace

void CalculLigneSimple(Etude& e) {
    EquivalentsSection0(e);
    Defaut(e.PHI_eq, ANGLE_DEFAUT);
    Defaut(e.ko_eq, 2.0 / 3.0);
    Defaut(e.PHIo_eq, ANGLE_DEFAUT);
}

void CalculDoubleCircuit(Etude& e) {
    EquivalentsSection0(e);
    e.PHIo_eq = std::atan(Div(e.Ligne_Xo[0], e.Ligne_Ro[0]));
    e.kom_eq = e.Ligne_kom;
    DefautsCircuitDouble(e);
    Defaut(e.PHI_eq, ANGLE_DEFAUT);
    Defaut(e.PHIo_eq, ANGLE_DEFAUT);
}

void CalculDeuxTroncons(Etude& e) {
    const auto& l = e.Ligne_Longueur;
    e.XL_eq = e.Ligne_XL[0] + e.Ligne_XL[1];
    e.RL_eq = e.Ligne_RL[0] + e.Ligne_RL[1];
    e.ZL_eq = std::sqrt(std::fabs(Carre(e.RL_eq) + Carre(e.XL_eq)));
    e.Longueur_eq = l[0] + l[1];
    e.Xd_eq = Div(e.XL_eq, e.Longueur_eq);
    e.Rd_eq = Div(e.RL_eq, e.Longueur_eq);
    e.PHI_eq = std::atan(Div(e.XL_eq, e.RL_eq));
    Defaut(e.PHI_eq, ANGLE_DEFAUT);
    e.PHIo_eq = std::atan(Div(e.Ligne_Xo[1] * l[1] + e.Ligne_Xo[0] * l[0],
                              e.Ligne_Ro[1] * l[1] + e.Ligne_Ro[0] * l[0]));
    e.ko_eq = Div(e.Ligne_ko[1] * e.Ligne_XL[1] + e.Ligne_ko[0] * e.Ligne_XL[0], e.XL_eq);
    e.ako_eq = Div(e.Ligne_ako[1] * e.Ligne_XL[1] + e.Ligne_ako[0] * e.Ligne_XL[0], e.XL_eq);
    e.Xo_eq = (3.0 * e.ko_eq + 1.0) * e.Xd_eq;
    e.Ro_eq = Div(e.Xo_eq, std::tan(e.PHIo_eq));
    e.kom_eq = Div(e.Ligne_kom * l[0], l[1] + l[0]);
    DefautsCircuitDouble(e);
    Defaut(e.PHIo_eq, ANGLE_DEFAUT);
}

void CalculReactancesZones(Etude& e) {
    if (Fige(e)) return;
    const auto& xl = e.Ligne_XL;
    const double plancher = PlancherNiveau(e.Ligne_Up);
    auto courte = [plancher](double x) { return std::max(ArrondiPair(x), plancher); };
    switch (e.Ligne_Tl) {
    case 0:
        if (e.Ligne_lc) {
            e.Ligne_Xprim1 = 0.8 * e.XL_eq;
            e.Ligne_Xprim2 = 1.2 * e.XL_eq;
        } else {
            e.Ligne_Xprim1 = e.Ligne_Xprim2 = courte(2.4 * e.XL_eq);
        }
        break;
    case 1:
        if (!e.Ligne_lc) {
            e.Ligne_Xprim1 = e.Ligne_Xprim2 = courte(3.4 * xl[0]);
        } else if (e.Ligne_cdg) {
            e.Ligne_Xprim1 = 0.7 * xl[0];
            e.Ligne_Xprim2 = 1.7 * xl[0];
        } else {
            e.Ligne_Xprim1 = 0.6 * xl[0];
            e.Ligne_Xprim2 = 1.9 * xl[0];
        }
        break;
    case 2:
        if (!e.Ligne_lc) {
            e.Ligne_Xprim1 = e.Ligne_Xprim2 = courte(3.4 * e.XL_eq);
        } else if (e.Ligne_cdg) {
            e.Ligne_Xprim1 = 0.7 * xl[0] + 0.8 * xl[1];
            e.Ligne_Xprim2 = 1.7 * xl[0] + 1.2 * xl[1];
        } else {
            e.Ligne_Xprim1 = 0.6 * xl[0] + 0.8 * xl[1];
            e.Ligne_Xprim2 = 1.9 * xl[0] + 1.2 * xl[1];
        }
        break;
    default:
        return;
    }
    e.Ligne_Xprim3 = 1.25 * e.Ligne_Xprim2;
}

void Calcul(Etude& e, Dialogue& d) {
    ExecuterCalcul(e, [&] {
        e.StadeMono.clear();
        e.StadeTri.clear();
        CalculNiveau(e);
        for (double& x : e.Ligne_XL)
            x = std::max(x, 0.1);
        for (double& r : e.Ligne_RL)
            r = std::max(r, 0.01);
        switch (e.Ligne_Tl) {
        case 0:
            CalculLigneSimple(e);
            break;
        case 1:
            CalculDoubleCircuit(e);
            break;
        case 2:
            CalculDeuxTroncons(e);
            break;
        case 3:
            CalculTroisBouts(e, d);
            EtapeReport(e, d);
            return;
        default:
            return;
        }
        CalculReactancesZones(e);
        ControleDeuxBouts(e, d);
        EtapeReport(e, d);
    });
}

} // namespace tournesol
