#include "relays/rel100/ImpressionREL100.h"

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

// A reach: the set value in secondary ohms per phase and in primary ohms.
void Ohms(ContexteImpression& c, const std::string& libelle, double secondaire, double primaire) {
    Rangee(c, {{0, libelle},
               {COLONNE_SECONDAIRE, FormaterNombre(secondaire, FORMAT_OHMS), true, "/ph"},
               {COLONNE_PRIMAIRE, FormaterNombre(primaire, FORMAT_OHMS), true}});
}

void Tempo(ContexteImpression& c, const std::string& libelle, int valeur) {
    Rangee(c, {{0, libelle}, {COLONNE_PRIMAIRE, FormaterNombre(valeur, "###0") + " ms"}});
}

void Titre(ContexteImpression& c, const std::string& titre) {
    c.page.ChoisirGras(true);
    Rangee(c, {{0, titre}});
    c.page.ChoisirGras(false);
}

void Reglages(ContexteImpression& c) {
    const Etude& e = c.e;
    c.page.CurrentY = c.cadres.CadreSuite.Top + e.Pas;
    Titre(c, "characteristics");
    Rangee(c, {{0, "REL 100"},
               {COLONNE_SECONDAIRE, "I secondary = " + FormaterNombre(e.Is, "#0.0") + " A"}});
    AvancerProgression(c.e, c.etat, 1);
    Rangee(c, {{COLONNE_SECONDAIRE, "Secondary values"}, {COLONNE_PRIMAIRE, "Primary values"}});
    Ohms(c, "First zone reactance : X1", e.X1reg_BT, e.X1reg_HT);
    Ohms(c, "Second zone reactance : X2", e.X2reg_BT, e.X2reg_HT);
    Ohms(c, "Forward pick up reactance : X3", e.X3reg_BT, e.X3reg_HT);
    Ohms(c, "Backward pick up reactance : X4", e.X4reg_BT, e.X4reg_HT);
    Ohms(c, "Pick up resistance : R", e.Rreg_BT, e.Rreg_HT);
    Ohms(c, "External out of step zone, forward (1.25 X3)", 1.25 * e.X3reg_BT, 1.25 * e.X3reg_HT);
    Ohms(c, "External out of step zone, backward (1.25 X4)", 1.25 * e.X4reg_BT, 1.25 * e.X4reg_HT);
    AvancerProgression(c.e, c.etat, 1);
    Rangee(c,
           {{0, "Characteristic angle"}, {COLONNE_PRIMAIRE, FormaterNombre(e.teta, "#0") + " °"}});
    Rangee(c, {{0, "Earth factor: ko"}, {COLONNE_PRIMAIRE, FormaterNombre(e.ko_reg, "0.00")}});
    Rangee(c, {{0, "ratio R / X1"}, {COLONNE_PRIMAIRE, FormaterNombre(e.REL100.RsurX, "#0.##")}});
    AvancerProgression(c.e, c.etat, 1);
    c.page.ALaLigne();
    Titre(c, "Timers ");
    Tempo(c, "First zone: T1", e.T1);
    Tempo(c, "Second zone: T2", e.T2);
    Tempo(c, "Forward pick up: T3", e.T3);
    Tempo(c, "Backward pick up: T4", e.T4);
    const char* schema = !e.Teleaction    ? "no signal"
                         : e.Acceleration ? "acceleration"
                                          : "blocking overreach";
    Rangee(c, {{0, schema}});
    AvancerProgression(c.e, c.etat, 1);
}

} // namespace

void ImprimerREL100(ContexteImpression& c) {
    // The diagnostics and the line page as every relay prints them, then the settings.
    ImpressionSansReglages(c);
    if (c.e.ArretImpression || !DoitImprimer(c.e)) return;
    DebutProgression(c.e, c.etat, 4, "Page 2 : settings");
    Reglages(c);
}

} // namespace tournesol
