#include "relays/epac/CalculEPAC.h"

#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "network/Transit.h"
#include "relays/ChampRelais.h"
#include "relays/pd3a/CalculPD3A.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

namespace {

// A secondary reach within its range and on its step.
double Portee(double& desire, double unite, ModeArrondi arrondi) {
    desire = std::clamp(desire, X_MIN_EPAC * unite, X_MAX_EPAC * unite);
    return ArrondirAuPas(desire, PAS_X_EPAC * unite, arrondi);
}

void ReglerResistance(Etude& e) {
    const double unite = UniteEPAC(e);
    // Rounded down: the pick-up stays clear of the load.
    e.Rreg_BT = static_cast<float>(ArrondirAuPas(e.R_BT, PAS_R_EPAC * unite, ModeArrondi::Dessous));
    e.Rreg_HT = static_cast<float>(Verifier(e.Rreg_BT * e.Kz));
    e.EPAC.RsurX = Div(e.Rreg_BT, e.X1reg_BT);
}

} // namespace

double UniteEPAC(const Etude& e) {
    return Div(5.0, e.Is);
}

void ArrondirZonesEPAC(Etude& e) {
    const double unite = UniteEPAC(e);
    e.X1reg_BT = Portee(e.X1_BT, unite, ModeArrondi::Dessous);
    e.X2reg_BT = Portee(e.X2_BT, unite, ModeArrondi::Dessus);
    e.X3reg_BT = Portee(e.X3_BT, unite, ModeArrondi::Dessus);
    e.X4reg_BT = Portee(e.X4_BT, unite, ModeArrondi::Dessus);
    ZonesEnPrimaire(e);
}

void CalculZonesEPAC(Etude& e) {
    ZonesSouhaiteesDeLaLigne(e);
    ArrondirZonesEPAC(e);
}

void BandesPompageEPAC(Etude& e) {
    BandesPompage(e, e.EPAC.BandeX, e.EPAC.BandeR);
}

void CalculResistanceEPAC(Etude& e, Dialogue& d) {
    if (e.PanneauRelais) {
        e.X3_commun = e.X3_HT;
        e.X4_commun = e.X4_HT;
        BandesPompageEPAC(e);
        ResistanceTransitParallelogramme(e, d, e.EPAC.BandeR);
    }
    e.R_BT = std::clamp(Div(e.R_HT, e.Kz), 0.0, R_MAX_EPAC * UniteEPAC(e));
    e.R_HT = Verifier(e.R_BT * e.Kz);
    ReglerResistance(e);
}

void ResistanceSaisieEPAC(Etude& e) {
    e.R_BT = std::clamp(e.R_BT, 0.0, R_MAX_EPAC * UniteEPAC(e));
    e.R_HT = Verifier(e.Kz * e.R_BT);
    ReglerResistance(e);
}

void TemporisationsEPAC(Etude& e) {
    for (Entier16* t : {&e.T1, &e.T2, &e.T3, &e.T4})
        *t = static_cast<Entier16>(std::clamp<int>(*t, 0, T_MAX_EPAC) / 10 * 10);
}

void CalculReglagesEPAC(Etude& e) {
    if (e.PanneauRelais) {
        e.teta = static_cast<float>(std::round(RadToDeg(e.PHI_eq)));
        e.ko_reg = ArrondirAuPas(e.ko_eq, 0.01, ModeArrondi::Proche);
    }
    e.teta =
        static_cast<float>(std::clamp(std::round(double(e.teta)), TETA_MIN_EPAC, TETA_MAX_EPAC));
    e.ko_reg = std::clamp(ArrondirAuPas(e.ko_reg, 0.01, ModeArrondi::Proche), 0.0, KO_MAX_EPAC);
    TemporisationsEPAC(e);
}

void CalculDiagEPAC(Etude& e) {
    const RelaisEPAC& r = e.EPAC;
    TransformateursDesBouts(e);
    EffacerReglesRelais(e, ID_EPAC);
    DefinirRegle(e, 7, 1.2 * e.X2reg_HT > e.X3reg_HT, 1.2 * e.X2reg_HT);
    const double avant = 0.8 * e.XtrDistant + 0.9 * e.XL_eq;
    DefinirRegle(e, 8, avant < 1.15 * e.X3reg_HT, avant / 1.15);
    DefinirRegle(e, 9, e.Pompage && avant < 1.15 * (e.X3reg_HT + r.BandeX), avant / 1.15);
    const double arriere = 0.8 * e.XtrProche;
    DefinirRegle(e, 10, arriere < 1.15 * e.X4reg_HT, arriere / 1.15);
    DefinirRegle(e, 11, e.Pompage && arriere < 1.15 * (e.X4reg_HT + r.BandeX), arriere / 1.15);
    const double oppose = 1.3 * e.Ligne_X1PB - 1.06 * e.XL_eq;
    DefinirRegle(e, 12, e.Ligne_lc && e.X4reg_HT < oppose, oppose);
}

double DemiLargeurEPAC(const Etude& e) {
    const double bande = e.Pompage ? double(e.EPAC.BandeX) : 0.0;
    const double l =
        std::max({1.2 * (e.X3reg_HT + bande), 1.2 * (e.X4reg_HT + bande), 1.5 * double(e.Rreg_HT)});
    return std::min(l, 1000.0);
}

} // namespace tournesol
