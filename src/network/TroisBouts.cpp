// A three-ended line: whether the first stage of the relays is assured in the presence of the
// third end's infeed, the zone reactances from the fault currents, and the equivalent two-ended
// line seen from the relay's end.
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "network/Calcul.h"
#include "network/PanneauxControle.h"

#include <algorithm>
#include <array>

namespace tournesol {

namespace {

const char* const MONO_ASSURE = "Premier stade toujours assuré sur défaut monophasé";
const char* const MONO_NON_ASSURE = "Premier stade pas toujours assuré sur défaut monophasé";
const char* const TRI_ASSURE = "Premier stade toujours assuré sur défaut triphasé";
const char* const TRI_NON_ASSURE = "Premier stade pas toujours assuré sur défaut triphasé";

// What the currents of one kind of fault say of the infeed of the third end.
struct Infeed {
    double y1, y2, k;
};

Infeed InfeedDe(const Etude& e, double iccBC, double iccAC, double iccCB, double iccAB) {
    const auto& xl = e.Ligne_XL;
    const double q = Div(iccBC, iccAC);
    const double t = Div(0.89 * iccCB, iccAB);
    return {Div(1.89 * xl[1] - xl[0], q + 1.0), Div((1.89 * xl[0] - xl[1]) * q, q + 1.0),
            Div(t + 1.89, 1.0 - t)};
}

void TestsPremierStade(Etude& e) {
    auto& xl = e.Ligne_XL;
    for (int i = 0; i < 2; ++i)
        if (xl[static_cast<std::size_t>(i)] == 0.0) xl[static_cast<std::size_t>(i)] = 0.1;
    for (double* i : {&e.Ligne_ICCACM, &e.Ligne_ICCABM, &e.Ligne_ICCACT, &e.Ligne_ICCABT})
        if (*i == 0.0) *i = 1.0;

    const double p = Div(xl[0] * xl[1], xl[0] + xl[1]);
    const double s = Div(xl[0], xl[1]) + Div(xl[1], xl[0]);
    const double ya = p * (5.13 - 2.12 * s);
    const double yb = p * (1.77 - 0.73 * s);
    const Infeed m = InfeedDe(e, e.Ligne_ICCBCM, e.Ligne_ICCACM, e.Ligne_ICCCBM, e.Ligne_ICCABM);
    const Infeed t = InfeedDe(e, e.Ligne_ICCBCT, e.Ligne_ICCACT, e.Ligne_ICCCBT, e.Ligne_ICCABT);

    const double a = 1.89 * xl[0];
    const bool loin = a > xl[1]; // the fault seen beyond the tee point
    // Near the tee point, the single phase currents give R for both fault types; both sides
    // of each "or" are evaluated, so R is needed whatever the other side says.
    const double r = loin ? 0.0 : Div(e.Ligne_ICCABM, e.Ligne_ICCCBM);

    bool monoNonAssure = false, triNonAssure = false;
    if (e.BoutMort) {
        auto mort = [&](const Infeed& f) {
            if (loin)
                return a <= xl[2] && a + ya <= xl[2] && a + f.y1 <= xl[2] && a + f.y2 <= xl[2];
            return (a * f.y1 <= xl[2] || r >= 0.89) && f.k * xl[0] <= xl[1];
        };
        monoNonAssure = mort(m);
        triNonAssure = mort(t);
    } else {
        // Three live ends: the single phase quantities give the three phase result, and the
        // other way round.
        auto vivant = [&](const Infeed& f) {
            if (loin)
                return (xl[2] <= 0.0 || xl[2] >= yb) && f.y1 / 2.89 <= xl[2] &&
                       f.y2 / 2.89 <= xl[2];
            return (f.y1 / 2.89 <= xl[2] || r >= 0.89) && f.k * xl[0] <= xl[1];
        };
        triNonAssure = vivant(m);
        monoNonAssure = vivant(t);
    }
    e.StadeMono = monoNonAssure ? MONO_NON_ASSURE : MONO_ASSURE;
    e.StadeTri = triNonAssure ? TRI_NON_ASSURE : TRI_ASSURE;
}

int BoutDuRelais(const Etude& e) {
    return std::clamp<int>(e.Ligne_pp, 0, 2);
}

void ReactancesSelonCourants(Etude& e) {
    const auto& xl = e.Ligne_XL;
    const int pp = BoutDuRelais(e);
    e.Ligne_Xprim1 = 0.8 * (xl[0] + (pp == 2 ? xl[2] : xl[1]));
    // Each candidate: the near section plus the far one raised by the infeed ratio.
    struct Candidat {
        double loin;
        double courant, reference;
    };
    std::array<Candidat, 4> c{};
    double proche = 0.0;
    switch (pp) {
    case 0:
        proche = xl[0];
        c = {{{xl[1], e.Ligne_IPCCBM, e.Ligne_IPCABM},
              {xl[1], e.Ligne_IPCCBT, e.Ligne_IPCABT},
              {xl[2], e.Ligne_IPCBCM, e.Ligne_IPCACM},
              {xl[2], e.Ligne_IPCBCT, e.Ligne_IPCACT}}};
        break;
    case 1:
        proche = xl[1];
        c = {{{xl[0], e.Ligne_IPCCAM, e.Ligne_IPCBAM},
              {xl[0], e.Ligne_IPCCAT, e.Ligne_IPCBAT},
              {xl[2], e.Ligne_IPCACM, e.Ligne_IPCBCM},
              {xl[2], e.Ligne_IPCACT, e.Ligne_IPCBCT}}};
        break;
    default:
        proche = xl[2];
        c = {{{xl[0], e.Ligne_IPCBAM, e.Ligne_IPCCAM},
              {xl[0], e.Ligne_IPCBAT, e.Ligne_IPCCAT},
              {xl[1], e.Ligne_IPCABM, e.Ligne_IPCCBM},
              {xl[1], e.Ligne_IPCABT, e.Ligne_IPCCBT}}};
        break;
    }
    double plusGrand = 0.0;
    for (std::size_t i = 0; i < c.size(); ++i) {
        const double x = 1.2 * ((Div(c[i].courant, c[i].reference) + 1.0) * c[i].loin + proche);
        plusGrand = i == 0 ? x : std::max(plusGrand, x);
    }
    e.Ligne_Xprim2 = plusGrand;
}

void ReactancesSansEtude(Etude& e) {
    const auto& xl = e.Ligne_XL;
    switch (BoutDuRelais(e)) {
    case 0:
        e.Ligne_Xprim1 = 0.8 * (xl[0] + xl[1]);
        e.Ligne_Xprim2 = 1.2 * (xl[0] + 2.0 * xl[2]);
        break;
    case 1:
        e.Ligne_Xprim1 = 0.8 * (xl[0] + xl[1]);
        e.Ligne_Xprim2 = 1.2 * (xl[1] + 2.0 * xl[2]);
        break;
    default:
        e.Ligne_Xprim1 = 0.8 * (xl[0] + xl[2]);
        e.Ligne_Xprim2 = 1.2 * 3.0 * xl[2];
        break;
    }
}

void LigneEquivalente(Etude& e, Dialogue& d) {
    if (e.ShowValeurs) {
        e.ErrCalcul = 0;
        PanneauValeurTroisBouts panneau(e);
        d.MontrerPanneau(panneau);
    }
    if (e.Ligne_pp > 2) e.Ligne_pp = 2;
    const std::size_t a = 0;
    const std::size_t b = e.Ligne_pp == 2 ? 2 : 1;
    const auto& l = e.Ligne_Longueur;
    auto somme = [a, b](const Reels3& v) { return v[a] + v[b]; };
    auto moyenne = [&](const Reels3& v) { return Div(v[a] * l[a] + v[b] * l[b], l[a] + l[b]); };
    e.XL_eq = somme(e.Ligne_XL);
    e.RL_eq = somme(e.Ligne_RL);
    e.ZL_eq = somme(e.Ligne_ZL);
    e.Longueur_eq = somme(e.Ligne_Longueur);
    e.Xd_eq = somme(e.Ligne_Xd);
    e.Rd_eq = somme(e.Ligne_Rd);
    e.PHI_eq = moyenne(e.Ligne_PHI);
    e.ko_eq = moyenne(e.Ligne_ko);
    e.ako_eq = moyenne(e.Ligne_ako);
    e.Xo_eq = moyenne(e.Ligne_Xo);
    e.Ro_eq = moyenne(e.Ligne_Ro);
    e.PHIo_eq = moyenne(e.PHIo);
    const double defaut = DegToRad(75.0);
    if (e.PHI_eq == 0.0) e.PHI_eq = defaut;
    // From end B the second test falls on PHI_eq again, and PHIo_eq keeps what it has.
    if (e.Ligne_pp == 1) {
        if (e.PHI_eq == 0.0) e.PHI_eq = defaut;
    } else if (e.PHIo_eq == 0.0) {
        e.PHIo_eq = defaut;
    }
}

void TransitDuBout(Etude& e) {
    switch (e.Ligne_pp) {
    case 0:
        e.ItP = std::max(e.Ligne_ItB, e.Ligne_ItC);
        e.It = std::max(e.Ligne_ItA, e.ItP);
        e.ItP = e.It;
        break;
    case 1:
        e.ItP = std::max(e.Ligne_ItA, e.Ligne_ItC);
        e.It = std::max(e.Ligne_ItB, e.ItP);
        break;
    default:
        e.ItP = std::max(e.Ligne_ItA, e.Ligne_ItB);
        e.It = std::max(e.Ligne_ItC, e.ItP);
        break;
    }
}

} // namespace

void CalculTroisBouts(Etude& e, Dialogue& d) {
    if (e.Ligne_cc) {
        TestsPremierStade(e);
        if (e.XprimFige == 0.0) ReactancesSelonCourants(e);
    } else if (e.XprimFige == 0.0) {
        ReactancesSansEtude(e);
    }
    e.Ligne_Xprim3 = 1.25 * e.Ligne_Xprim2;
    LigneEquivalente(e, d);
    TransitDuBout(e);
}

bool PremierStadeAssure(const Etude& e) {
    return e.Ligne_Tl != 3 || (e.StadeMono != MONO_NON_ASSURE && e.StadeTri != TRI_NON_ASSURE);
}

} // namespace tournesol
