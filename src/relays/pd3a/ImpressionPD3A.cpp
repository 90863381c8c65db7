#include "relays/pd3a/ImpressionPD3A.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "core/Numerique.h"
#include "printing/Impression.h"

#include <cmath>
#include <string>

namespace tournesol {

namespace {

constexpr int COLONNE_ROUES = 56;
constexpr int COLONNE_SECONDAIRE = 80;
constexpr int COLONNE_PRIMAIRE = 106;
constexpr double TAILLE = 8.0;
constexpr const char* FORMAT_OHMS = "##0.00";
constexpr const char* FORMAT_ROUE = "#0";

void Rangee(ContexteImpression& c, const std::vector<CelluleReglage>& cellules) {
    ImprimerCellules(c, cellules, TAILLE);
}

std::string Roue(const std::string& nom, double valeur) {
    return nom + FormaterNombre(valeur, FORMAT_ROUE);
}

// A reach: its wheels, then the set value in secondary ohms per phase and in primary ohms.
void Reactance(ContexteImpression& c, const std::string& libelle, const std::string& roues,
               double secondaire, double primaire) {
    Rangee(c, {{0, libelle},
               {COLONNE_ROUES, roues},
               {COLONNE_SECONDAIRE, FormaterNombre(secondaire, FORMAT_OHMS), true, "/ph"},
               {COLONNE_PRIMAIRE, FormaterNombre(primaire, FORMAT_OHMS), true}});
}

void Tempo(ContexteImpression& c, const std::string& libelle, const std::string& roues,
           int valeur) {
    Rangee(c, {{0, libelle},
               {COLONNE_ROUES, roues},
               {COLONNE_PRIMAIRE, FormaterNombre(valeur, "###0") + " ms"}});
}

void Reglages(ContexteImpression& c) {
    const Etude& e = c.e;
    const RelaisPD3A& r = e.PD3A;
    Page& page = c.page;
    page.CurrentY = c.cadres.CadreSuite.Top + e.Pas;
    page.ChoisirGras(true);
    Rangee(c, {{0, "characteristics"}});
    page.ChoisirGras(false);
    Rangee(c, {{0, r.Type6562 ? "PD3A  6562" : "PD3A  6062"},
               {COLONNE_ROUES, e.Pompage ? "out of step" : "no out of step"},
               {COLONNE_SECONDAIRE, "I secondary = " + FormaterNombre(e.Is, "#0.0") + " A"}});
    AvancerProgression(c.e, c.etat, 1);
    Rangee(c, {{COLONNE_ROUES, "Potentiometers"},
               {COLONNE_SECONDAIRE, "Secondary values"},
               {COLONNE_PRIMAIRE, "Primary values"}});
    Rangee(c, {{0, "Maximal detectable fault resistance "}});
    Rangee(c, {{0, "against the close substation"},
               {COLONNE_ROUES, Roue("Rd = ", r.Rd)},
               {COLONNE_SECONDAIRE, FormaterNombre(e.Rreg_BT, FORMAT_OHMS), true, "/l"},
               {COLONNE_PRIMAIRE, FormaterNombre(e.Rreg_HT, FORMAT_OHMS), true}});
    // At the first zone's limit the resistive side stands X1 (cot q - cot phi) further from the
    // line's image than at the substation: its sides follow the angle q, the line's phi.
    const double tq = std::tan(DegToRad(e.teta));
    const double tp = std::tan(e.PHI_eq);
    const double ecart = 1.0 / tq - 1.0 / tp;
    if (tq != 0.0 && tp != 0.0 && std::isfinite(ecart))
        Rangee(c, {{0, "On the limit of first zone reach"},
                   {COLONNE_SECONDAIRE, FormaterNombre(e.Rreg_BT + e.X1reg_BT * ecart, FORMAT_OHMS),
                    true, "/l"},
                   {COLONNE_PRIMAIRE, FormaterNombre(e.Rreg_HT + e.X1reg_HT * ecart, FORMAT_OHMS),
                    true}});
    else
        Rangee(c, {{0, "On the limit of first zone reach"}});
    AvancerProgression(c.e, c.etat, 1);
    Reactance(c, "first zone reactance : X1", Roue("K1 = ", r.K1) + "  " + Roue("M1 = ", r.m1),
              e.X1reg_BT, e.X1reg_HT);
    std::string roues2 = Roue("K2 = ", r.K2);
    if (r.Type6562) roues2 += "  " + Roue("M2 = ", r.m2);
    Reactance(c, "second zone reactance : X2", roues2, e.X2reg_BT, e.X2reg_HT);
    Reactance(c, "Third zone reactance : X3", Roue("K3 = ", r.K3), e.X3reg_BT, e.X3reg_HT);
    Reactance(c, "Fourth zone reactance (backward): X4", Roue("K4 = ", r.K4), e.X4reg_BT,
              e.X4reg_HT);
    AvancerProgression(c.e, c.etat, 1);
    Rangee(c, {{0, "Earth factor: ko"},
               {COLONNE_ROUES, Roue("Ko1 = ", e.Ko1) + "  " + Roue("Ko2 = ", e.Ko2)},
               {COLONNE_PRIMAIRE, FormaterNombre(e.ko_reg, "0.0")}});
    Rangee(c, {{0, "Line argument : "},
               {COLONNE_ROUES, Roue("position ", r.PosTeta)},
               {COLONNE_PRIMAIRE, FormaterNombre(e.teta, "#0") + " °"}});
    Rangee(c, {{0, "ratio Rd / X1"}, {COLONNE_PRIMAIRE, FormaterNombre(r.RsurX, "##.##")}});
    AvancerProgression(c.e, c.etat, 1);
    page.ALaLigne();
    page.ChoisirGras(true);
    Rangee(c, {{0, "Timers "}});
    page.ChoisirGras(false);
    Tempo(c, "1st step: T1",
          "T1 =" + FormaterNombre(r.TA, "00") + "  C=" + FormaterNombre(r.C1, FORMAT_ROUE), e.T1);
    Tempo(c, "2nd step: T2", "T2 =" + FormaterNombre(r.TB, "00"), e.T2);
    Tempo(c, "3rd step: T3", "T3 =" + FormaterNombre(r.TC, "00"), e.T3);
    Tempo(c, "4th step: T4", "T4 =" + FormaterNombre(r.TD, "00"), e.T4);
    const char* schema = !e.Teleaction    ? "no signal"
                         : e.Acceleration ? "acceleration"
                                          : "blocking overreach";
    Rangee(c, {{0, schema}});
    AvancerProgression(c.e, c.etat, 1);
}

} // namespace

void ImprimerPD3A(ContexteImpression& c) {
    // The diagnostics and the line page as every relay prints them, then the settings.
    ImpressionSansReglages(c);
    if (c.e.ArretImpression || !DoitImprimer(c.e)) return;
    DebutProgression(c.e, c.etat, 5, "Page 2 : settings");
    Reglages(c);
}

} // namespace tournesol
