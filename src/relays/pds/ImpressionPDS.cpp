#include "relays/pds/ImpressionPDS.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "printing/Impression.h"

#include <string>

namespace tournesol {

namespace {

constexpr int COLONNE_PRISES = 56;
constexpr int COLONNE_SECONDAIRE = 80;
constexpr int COLONNE_PRIMAIRE = 106;
constexpr double TAILLE = 8.0;
constexpr const char* FORMAT_OHMS = "##0.00";

void Rangee(ContexteImpression& c, const std::vector<CelluleReglage>& cellules) {
    ImprimerCellules(c, cellules, TAILLE);
}

std::string Prise(double base, int pct) {
    return FormaterNombre(base, "#0.0#") + " x " + FormaterNombre(pct, "##0") + " %";
}

void Portee(ContexteImpression& c, const std::string& libelle, const std::string& prise,
            double secondaire, double primaire) {
    Rangee(c, {{0, libelle},
               {COLONNE_PRISES, prise},
               {COLONNE_SECONDAIRE, FormaterNombre(secondaire, FORMAT_OHMS), true, "/ph"},
               {COLONNE_PRIMAIRE, FormaterNombre(primaire, FORMAT_OHMS), true}});
}

void Reglages(ContexteImpression& c) {
    const Etude& e = c.e;
    const RelaisPDS& r = e.PDS;
    Page& page = c.page;
    page.CurrentY = c.cadres.CadreSuite.Top + e.Pas;
    page.ChoisirGras(true);
    Rangee(c, {{0, "characteristics"}});
    page.ChoisirGras(false);
    Rangee(c, {{0, "PDS"},
               {COLONNE_SECONDAIRE, "I secondary = " + FormaterNombre(e.Is, "#0.0") + " A"}});
    AvancerProgression(c.e, c.etat, 1);
    Rangee(c, {{COLONNE_PRISES, "Plugs"},
               {COLONNE_SECONDAIRE, "Secondary values"},
               {COLONNE_PRIMAIRE, "Primary values"}});
    Portee(c, "first zone reactance : X1", Prise(r.BaseX1, r.PctX1), e.X1reg_BT, e.X1reg_HT);
    Portee(c, "second zone reactance : X2", Prise(r.BaseX2, r.PctX2), e.X2reg_BT, e.X2reg_HT);
    Portee(c, "Starting circle, forward reach : Zav", Prise(r.BaseZav, r.PctZav), e.X3reg_BT,
           e.X3reg_HT);
    Portee(c, "Starting circle, backward reach : Zar",
           "offset " + FormaterNombre(r.Decalage, "#0") + " %", e.X4reg_BT, e.X4reg_HT);
    AvancerProgression(c.e, c.etat, 1);
    Rangee(c, {{0, "Characteristic angle : "},
               {COLONNE_PRIMAIRE, FormaterNombre(e.teta, "#0") + " °"}});
    Rangee(c, {{0, "Earth factor: ko"}, {COLONNE_PRIMAIRE, FormaterNombre(e.ko_reg, "0.0")}});
    AvancerProgression(c.e, c.etat, 1);
    page.ALaLigne();
    page.ChoisirGras(true);
    Rangee(c, {{0, "Timers "}});
    page.ChoisirGras(false);
    Rangee(c, {{0, "1st step: T1"}, {COLONNE_PRIMAIRE, "instantaneous"}});
    const struct {
        const char* libelle;
        Entier16 t;
    } tempos[] = {{"2nd step: T2", e.T2}, {"3rd step: T3", e.T3}, {"4th step: T4", e.T4}};
    for (const auto& t : tempos)
        Rangee(c, {{0, t.libelle}, {COLONNE_PRIMAIRE, FormaterNombre(t.t, "###0") + " ms"}});
    const char* schema = !e.Teleaction    ? "no signal"
                         : e.Acceleration ? "acceleration"
                                          : "blocking overreach";
    Rangee(c, {{0, schema}});
    AvancerProgression(c.e, c.etat, 1);
}

} // namespace

void ImprimerPDS(ContexteImpression& c) {
    // The diagnostics and the line page as every relay prints them, then the
    // settings.
    ImpressionSansReglages(c);
    if (c.e.ArretImpression || !DoitImprimer(c.e)) return;
    DebutProgression(c.e, c.etat, 4, "Page 2 : settings");
    Reglages(c);
}

} // namespace tournesol
