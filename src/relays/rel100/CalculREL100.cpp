#include "relays/rel100/CalculREL100.h"

#include "core/Complexe.h"
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagnostics/Diagnostics.h"
#include "diagnostics/ReglesGuide.h"
#include "network/Transit.h"
#include "relays/ChampRelais.h"
#include "relays/pd3a/CalculPD3A.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

namespace {

constexpr double MARGE_CHARGE = 0.9 / 1.1;

// The load area of the current report case and its distance to the line image.
double DistanceDuCas(Etude& e) {
    TransitCalc(e);
    if (e.ErrCalcul != 0) LeverErreur(e.ErrCalcul);
    return DistanceTransitPD3A(e);
}

} // namespace

double ReglerAuPas(double& desire, const GammeReglage& gamme, double is, ModeArrondi mode) {
    const double min = Div(gamme.Min, is), max = Div(gamme.Max, is), pas = Div(gamme.Pas, is);
    desire = std::clamp(Verifier(desire), min, max);
    return std::clamp(ArrondirAuPas(desire, pas, mode), min, max);
}

void ArrondirZonesREL100(Etude& e) {
    ArrondirReactances(e, GAMME_X_REL100);
}

void ArrondirReactances(Etude& e, const GammeReglage& gamme) {
    const double is = e.Is;
    e.X1reg_BT = ReglerAuPas(e.X1_BT, gamme, is, ModeArrondi::Dessous);
    e.X2reg_BT = ReglerAuPas(e.X2_BT, gamme, is, ModeArrondi::Dessus);
    e.X3reg_BT = ReglerAuPas(e.X3_BT, gamme, is, ModeArrondi::Dessus);
    e.X4reg_BT = ReglerAuPas(e.X4_BT, gamme, is, ModeArrondi::Dessus);
    ZonesEnPrimaire(e);
}

void CalculZonesREL100(Etude& e) {
    ZonesSouhaiteesDeLaLigne(e);
    ArrondirZonesREL100(e);
}

double DistanceChargeQuadrilatere(Etude& e, Dialogue& d, double hautPompage) {
    // The report case in force and its load points, given back however the computation ends:
    // the areas of the other cases leave no point behind them.
    struct GardeReport {
        Etude& e;
        Entier16 cas;
        Complexes9 points;
        ~GardeReport() {
            e.TypeReportCharge = cas;
            e.PointsTransit = points;
        }
    } garde{e, e.TypeReportCharge, e.PointsTransit};
    double distance = 0.0;
    {
        if (e.Ligne_alim == 0) {
            for (const Entier16 c : {Entier16{0}, Entier16{1}, Entier16{2}}) {
                e.TypeReportCharge = c;
                const double dc = DistanceDuCas(e);
                if (c == 0 || dc < distance) distance = dc;
            }
        } else if (e.Ligne_alim == 3) {
            TransitCalc(e);
            if (e.ErrCalcul != 0) LeverErreur(e.ErrCalcul);
            // The out-of-step zone's top against the load point: the resistive side through the
            // point where that top meets the circle of the load.
            const double l = e.PointsTransit[0].Module * MARGE_CHARGE;
            const double x = hautPompage;
            if (l < x) d.Message("TOURNESOL", DONNEES_INCOMPATIBLES_REL100, 0);
            const double cotg = Div(1.0, std::tan(e.PHI_eq));
            distance = std::sqrt(std::fabs(Carre(l) - Carre(x))) - x * cotg;
        } else {
            distance = DistanceDuCas(e);
        }
    }
    return Verifier(distance);
}

void ArrondirResistanceREL100(Etude& e) {
    e.Rreg_BT = static_cast<float>(ReglerAuPas(e.R_BT, GAMME_R_REL100, e.Is, ModeArrondi::Dessous));
    e.R_HT = Verifier(e.R_BT * e.Kz);
    e.Rreg_HT = static_cast<float>(Verifier(e.Rreg_BT * e.Kz));
    e.REL100.RsurX = Div(e.Rreg_BT, e.X1reg_BT);
}

void CalculResistanceREL100(Etude& e, Dialogue& d) {
    if (e.PanneauRelais) {
        e.R_HT = DistanceChargeQuadrilatere(e, d, FACTEUR_POMPAGE_REL100 * e.X3reg_HT) /
                 FACTEUR_POMPAGE_REL100;
        double angle = RadToDeg(e.PHI_eq);
        e.teta =
            static_cast<float>(ReglerAuPas(angle, GAMME_ANGLE_REL100, 1.0, ModeArrondi::Proche));
        double ko = e.ko_eq;
        e.ko_reg = ReglerAuPas(ko, GAMME_KO_REL100, 1.0, ModeArrondi::Proche);
    }
    e.R_BT = Div(e.R_HT, e.Kz);
    ArrondirResistanceREL100(e);
}

void TemporisationsAuxDizaines(Etude& e) {
    for (Entier16* t : {&e.T1, &e.T2, &e.T3, &e.T4})
        *t = static_cast<Entier16>(std::clamp<int>(*t, 0, 9990) / 10 * 10);
}

void CalculDiagREL100(Etude& e) {
    EffacerReglesRelais(e, ID_REL100);
    DiagnosticsREL100(e, e.X2reg_BT, e.X3reg_BT, e.X4reg_BT);
}

double DemiLargeurREL100(const Etude& e) {
    return 1.2 * FACTEUR_POMPAGE_REL100 *
           std::max({e.X3reg_HT, e.X4reg_HT, static_cast<double>(e.Rreg_HT)});
}

} // namespace tournesol
