#include "relays/rez1/ImpressionREZ1.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "printing/Impression.h"
#include "relays/rez1/CalculREZ1.h"

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
void Ohms(ContexteImpression& c, const std::string& libelle, double primaire) {
    const double secondaire = c.e.Kz != 0.0 ? primaire / c.e.Kz : 0.0;
    Rangee(c, {{0, libelle},
               {COLONNE_SECONDAIRE, FormaterNombre(secondaire, FORMAT_OHMS), true, "/ph"},
               {COLONNE_PRIMAIRE, FormaterNombre(primaire, FORMAT_OHMS), true}});
}

void Titre(ContexteImpression& c, const std::string& titre) {
    c.page.ChoisirGras(true);
    Rangee(c, {{0, titre}});
    c.page.ChoisirGras(false);
}

void Reglages(ContexteImpression& c) {
    const Etude& e = c.e;
    const RelaisREZ1& r = e.REZ1;
    c.page.CurrentY = c.cadres.CadreSuite.Top + e.Pas;
    Titre(c, "characteristics");
    Rangee(c, {{0, "REZ1"},
               {COLONNE_SECONDAIRE, "I secondary = " + FormaterNombre(e.Is, "#0.0") + " A"}});
    AvancerProgression(c.e, c.etat, 1);
    Rangee(c, {{COLONNE_SECONDAIRE, "Secondary values"}, {COLONNE_PRIMAIRE, "Primary values"}});
    Ohms(c, "First zone reactance : X1", e.X1reg_HT);
    Ohms(c, "Second zone reactance : X2", e.X2reg_HT);
    Ohms(c, "Third zone reactance : X3", e.X3reg_HT);
    Ohms(c, "Backward reactance : Xar", e.X4reg_HT);
    Ohms(c, "Pick up resistance : R", e.Rreg_HT);
    AvancerProgression(c.e, c.etat, 1);
    c.page.ALaLigne();
    Titre(c, "Out of step");
    Ohms(c, "Internal reach : Zpi", r.Zpireg_HT);
    Ohms(c, "Internal resistance : Rpi", r.Rpi_HT);
    Ohms(c, "External reach : Zpe", FACTEUR_EXTERNE_REZ1 * r.Zpireg_HT);
    Ohms(c, "External resistance : Rpe", FACTEUR_EXTERNE_REZ1 * r.Rpi_HT);
    AvancerProgression(c.e, c.etat, 1);
    Rangee(c,
           {{0, "Characteristic angle"}, {COLONNE_PRIMAIRE, FormaterNombre(e.teta, "#0") + " °"}});
    Rangee(c, {{0, "Earth factor: ko"}, {COLONNE_PRIMAIRE, FormaterNombre(e.ko_reg, "0.0")}});
    Rangee(c, {{0, "ratio R / X1"}, {COLONNE_PRIMAIRE, FormaterNombre(r.RsurX, "#0.##")}});
    c.page.ALaLigne();
    Titre(c, "Timers ");
    for (const auto& [libelle, t] :
         {std::pair{"First zone: T1", e.T1}, std::pair{"Second zone: T2", e.T2},
          std::pair{"Third zone: T3", e.T3}, std::pair{"Backward zone: T4", e.T4}})
        Rangee(c, {{0, libelle}, {COLONNE_PRIMAIRE, FormaterNombre(t, "###0") + " ms"}});
    const char* schema = !e.Teleaction    ? "no signal"
                         : e.Acceleration ? "acceleration"
                                          : "blocking overreach";
    Rangee(c, {{0, schema}});
    AvancerProgression(c.e, c.etat, 1);
}

} // namespace

void ImprimerREZ1(ContexteImpression& c) {
    // The diagnostics and the line page as every relay prints them, then the settings.
    ImpressionSansReglages(c);
    if (c.e.ArretImpression || !DoitImprimer(c.e)) return;
    DebutProgression(c.e, c.etat, 4, "Page 2 : settings");
    Reglages(c);
}

} // namespace tournesol
