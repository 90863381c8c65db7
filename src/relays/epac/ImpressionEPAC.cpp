#include "relays/epac/ImpressionEPAC.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "printing/Impression.h"

#include <string>

namespace tournesol {

namespace {

constexpr int COLONNE_SECONDAIRE = 80;
constexpr int COLONNE_PRIMAIRE = 106;
constexpr double TAILLE = 8.0;
constexpr const char* FORMAT_OHMS = "##0.00";

void Rangee(ContexteImpression& c, const std::vector<CelluleReglage>& cellules) {
    ImprimerCellules(c, cellules, TAILLE);
}

// A set value in secondary ohms (per phase or per loop) and in primary ohms.
void Ohms(ContexteImpression& c, const std::string& libelle, double secondaire, double primaire,
          const char* suite) {
    Rangee(c, {{0, libelle},
               {COLONNE_SECONDAIRE, FormaterNombre(secondaire, FORMAT_OHMS), true, suite},
               {COLONNE_PRIMAIRE, FormaterNombre(primaire, FORMAT_OHMS), true}});
}

void Reglages(ContexteImpression& c) {
    const Etude& e = c.e;
    const RelaisEPAC& r = e.EPAC;
    Page& page = c.page;
    page.CurrentY = c.cadres.CadreSuite.Top + e.Pas;
    page.ChoisirGras(true);
    Rangee(c, {{0, "characteristics"}});
    page.ChoisirGras(false);
    Rangee(c, {{0, "EPAC"},
               {COLONNE_SECONDAIRE - 30, e.Pompage ? "out of step" : "no out of step"},
               {COLONNE_SECONDAIRE, "I secondary = " + FormaterNombre(e.Is, "#0.0") + " A"}});
    AvancerProgression(c.e, c.etat, 1);
    Rangee(c, {{COLONNE_SECONDAIRE, "Secondary values"}, {COLONNE_PRIMAIRE, "Primary values"}});
    Ohms(c, "Resistive reach per loop : R", e.Rreg_BT, e.Rreg_HT, "/l");
    Ohms(c, "first zone reactance : X1", e.X1reg_BT, e.X1reg_HT, "/ph");
    Ohms(c, "second zone reactance : X2", e.X2reg_BT, e.X2reg_HT, "/ph");
    Ohms(c, "Third zone reactance : X3", e.X3reg_BT, e.X3reg_HT, "/ph");
    Ohms(c, "Fourth zone reactance (backward): X4", e.X4reg_BT, e.X4reg_HT, "/ph");
    if (e.Pompage && e.Kz != 0.0) {
        Ohms(c, "Out of step band along X", r.BandeX / e.Kz, r.BandeX, "/ph");
        Ohms(c, "Out of step band along R", r.BandeR / e.Kz, r.BandeR, "/l");
    }
    AvancerProgression(c.e, c.etat, 1);
    Rangee(c, {{0, "Earth factor: ko"}, {COLONNE_PRIMAIRE, FormaterNombre(e.ko_reg, "0.00")}});
    Rangee(c,
           {{0, "Angle of the sides : "}, {COLONNE_PRIMAIRE, FormaterNombre(e.teta, "#0") + " °"}});
    Rangee(c, {{0, "ratio R / X1"}, {COLONNE_PRIMAIRE, FormaterNombre(r.RsurX, "##.##")}});
    AvancerProgression(c.e, c.etat, 1);
    page.ALaLigne();
    page.ChoisirGras(true);
    Rangee(c, {{0, "Timers "}});
    page.ChoisirGras(false);
    const struct {
        const char* libelle;
        Entier16 t;
    } tempos[] = {{"1st step: T1", e.T1},
                  {"2nd step: T2", e.T2},
                  {"3rd step: T3", e.T3},
                  {"4th step: T4", e.T4}};
    for (const auto& t : tempos)
        Rangee(c, {{0, t.libelle}, {COLONNE_PRIMAIRE, FormaterNombre(t.t, "###0") + " ms"}});
    const char* schema = !e.Teleaction    ? "no signal"
                         : e.Acceleration ? "acceleration"
                                          : "blocking overreach";
    Rangee(c, {{0, schema}});
    AvancerProgression(c.e, c.etat, 1);
}

} // namespace

void ImprimerEPAC(ContexteImpression& c) {
    // The diagnostics and the line page as every relay prints them, then the settings.
    ImpressionSansReglages(c);
    if (c.e.ArretImpression || !DoitImprimer(c.e)) return;
    DebutProgression(c.e, c.etat, 4, "Page 2 : settings");
    Reglages(c);
}

} // namespace tournesol
