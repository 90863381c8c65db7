#include "relays/razoa/ImpressionRAZOA.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "printing/Impression.h"
#include "relays/razoa/CalculRAZOA.h"

#include <string>

namespace tournesol {

namespace {

constexpr int COLONNE_COMMUTATEURS = 56;
constexpr int COLONNE_SECONDAIRE = 80;
constexpr int COLONNE_PRIMAIRE = 106;
constexpr double TAILLE = 8.0;
constexpr const char* FORMAT_OHMS = "##0.00";
constexpr const char* FORMAT_ENTIER = "#0";

void Rangee(ContexteImpression& c, const std::vector<CelluleReglage>& cellules) {
    ImprimerCellules(c, cellules, TAILLE);
}

void Titre(ContexteImpression& c, const std::string& texte) {
    c.page.ChoisirGras(true);
    Rangee(c, {{0, texte}});
    c.page.ChoisirGras(false);
}

std::string Entier(const std::string& nom, double valeur) {
    return nom + FormaterNombre(valeur, FORMAT_ENTIER);
}

// A setting: its switches, then its value in secondary ohms and in primary ohms.
void Ohms(ContexteImpression& c, const std::string& libelle, const std::string& commutateurs,
          double secondaire) {
    Rangee(c, {{0, libelle},
               {COLONNE_COMMUTATEURS, commutateurs},
               {COLONNE_SECONDAIRE, FormaterNombre(secondaire, FORMAT_OHMS), true},
               {COLONNE_PRIMAIRE, FormaterNombre(secondaire * c.e.Kz, FORMAT_OHMS), true}});
}

// A reach worked out in primary ohms only.
void Primaire(ContexteImpression& c, const std::string& libelle, double primaire) {
    Rangee(c, {{0, libelle}, {COLONNE_PRIMAIRE, FormaterNombre(primaire, FORMAT_OHMS), true}});
}

void Tempo(ContexteImpression& c, const std::string& libelle, const std::string& commutateurs,
           int valeur) {
    Rangee(c, {{0, libelle},
               {COLONNE_COMMUTATEURS, commutateurs},
               {COLONNE_PRIMAIRE, FormaterNombre(valeur, "###0") + " ms"}});
}

// Under the line's characteristics: what the relay is.
void Caracteristiques(ContexteImpression& c) {
    const Etude& e = c.e;
    const RelaisRAZOA& r = e.RAZOA;
    c.page.CurrentY = c.cadres.CadreSuite.Top + e.Pas;
    Titre(c, "Relay characteristics");
    Rangee(c, {{0, r.AvecPompage ? "the out of step is enabled" : "the out of step is not enabled"},
               {COLONNE_SECONDAIRE,
                r.Lentille ? "modified lens characteristic" : "circular characteristic"}});
    Rangee(c, {{0, e.teta == 60.0F ? "angle of the characteristic on balanced operation: 90°"
                                   : "angle of the characteristic on balanced operation: 105°"},
               {COLONNE_SECONDAIRE, "calibration"},
               {COLONNE_PRIMAIRE, "In = " + FormaterNombre(e.Is, "#0.0") + " A"}});
    const char* schema = !e.Teleaction    ? "No signal"
                         : e.Acceleration ? "Acceleration"
                                          : "Blocking overreach";
    Rangee(c, {{0, schema}});
    AvancerProgression(c.e, c.etat, 1);
}

void Reglages(ContexteImpression& c) {
    const Etude& e = c.e;
    const RelaisRAZOA& r = e.RAZOA;
    CommencerPage(c, GenrePage::Texte);
    c.page.CurrentY = c.cadres.CadreTexte.Top + e.Pas;
    Titre(c, "Settings");
    Rangee(c, {{COLONNE_COMMUTATEURS, "switches"},
               {COLONNE_SECONDAIRE, "Secondary values"},
               {COLONNE_PRIMAIRE, "Primary values"}});
    Primaire(c, "Maximal detectable resistance against the close substation", r.RfProche);
    Rangee(c, {{0, "earth factor : Ko"},
               {COLONNE_COMMUTATEURS, Entier("(Y) = ", r.Y)},
               {COLONNE_PRIMAIRE, FormaterNombre(r.K, "0.0")}});
    Rangee(c, {{0, "Angle:"}, {COLONNE_PRIMAIRE, FormaterNombre(e.teta, "#0") + " °"}});
    Rangee(c, {{0, "Residual current threshold : ir"},
               {COLONNE_COMMUTATEURS, Entier("(Jo) = ", r.Jo)},
               {COLONNE_PRIMAIRE, FormaterNombre(r.Jo * 0.2, "0.0") + " In"}});
    AvancerProgression(c.e, c.etat, 1);
    Ohms(c, "Forward pick up : Zf", Entier("A = ", r.A) + "  B = " + FormaterNombre(r.B, "#0.00"),
         r.Zfreg);
    Ohms(c, "Backward pick up : Zr", "D = " + FormaterNombre(r.D, "0.00"), r.Zrreg);
    Ohms(c, "out of step parameter Z2 : ",
         Entier("m = ", r.m) + "  d = " + FormaterNombre(r.d, "0.00"), r.Z2reg);
    Rangee(c, {{COLONNE_COMMUTATEURS, Entier("q = 22 + ", r.q1 + r.q2 - 22)}});
    Rangee(c, {{0, "Common zone parameters"},
               {COLONNE_COMMUTATEURS, Entier("a=", r.a) + "  " + Entier("b=", r.b)}});
    Ohms(c, "First zone reactance : X1", Entier("p1=", r.p1), e.X1reg_BT);
    Ohms(c, "Second zone reactance : X2", Entier("p2=", r.p2), e.X2reg_BT);
    Ohms(c, "Third zone reactance : X3", Entier("p3=", r.p3), e.X3reg_BT);
    Ohms(c, "First zone resistance : R1", "", r.R1reg);
    Ohms(c, "Second zone resistance : R2", "", r.R2reg);
    Ohms(c, "Third zone resistance : R3", "", r.R3reg);
    AvancerProgression(c.e, c.etat, 1);
    Primaire(c, "Forward phase to phase reach", r.PorteeAv[0]);
    Primaire(c, "Forward three phase reach", r.PorteeAv[1]);
    Primaire(c, "Forward phase to earth reach", r.PorteeAv[2]);
    Primaire(c, "Backward phase to phase reach", r.PorteeAr[0]);
    Primaire(c, "Backward three phase reach", r.PorteeAr[1]);
    Primaire(c, "Backward phase to earth reach", r.PorteeAr[2]);
    Primaire(c, "out of step forward reach", r.PorteePompage);
    Rangee(c, {{0, "ratio R/X"}, {COLONNE_PRIMAIRE, FormaterNombre(r.RsurX, "#0.00")}});
    AvancerProgression(c.e, c.etat, 1);
    c.page.ALaLigne();
    // The first timer is set by three straps, each on its row.
    Tempo(c, "First step timer", "(str26) = " + r.str26, e.T1);
    Rangee(c, {{COLONNE_COMMUTATEURS, "(str27) = " + r.str27}});
    Rangee(c, {{COLONNE_COMMUTATEURS, "(str28) = " + r.str28}});
    Tempo(c, "2nd step timer", Entier("(T2) = ", PositionCommutateurRAZOA(e.T2)), e.T2);
    Tempo(c, "3rd step timer", Entier("(T3) = ", PositionCommutateurRAZOA(e.T3)), e.T3);
    Tempo(c, "Backward pick up timer", Entier("(T4) = ", PositionCommutateurRAZOA(e.T4)), e.T4);
    Tempo(c, "Tripping timer of relay RGZ30", Entier("X1 = ", PositionCommutateurRAZOA(r.TReg)),
          r.TReg);
    AvancerProgression(c.e, c.etat, 1);
}

} // namespace

void ImprimerRAZOA(ContexteImpression& c) {
    // The diagnostics and the line page as every relay prints them, the relay's characteristics
    // under the line's, then the settings on a page of their own.
    ImpressionSansReglages(c);
    if (c.e.ArretImpression || !DoitImprimer(c.e)) return;
    DebutProgression(c.e, c.etat, 5, "Page 3 : Settings");
    Caracteristiques(c);
    if (c.e.ArretImpression) return;
    Reglages(c);
}

} // namespace tournesol
