#include "relays/rxap/ImpressionRXAP.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "printing/Impression.h"
#include "relays/rxap/CalculRXAP.h"

#include <string>

namespace tournesol {

namespace {

constexpr int COLONNE_COMMUTATEURS = 56;
constexpr int COLONNE_SECONDAIRE = 80;
constexpr int COLONNE_PRIMAIRE = 106;
constexpr double TAILLE = 8.0;
constexpr const char* FORMAT_OHMS = "##0.00";

void Rangee(ContexteImpression& c, const std::vector<CelluleReglage>& cellules) {
    ImprimerCellules(c, cellules, TAILLE);
}

// A switch of the relay and the value it is set to.
void Commutateur(ContexteImpression& c, const std::string& libelle, const std::string& nom,
                 double valeur, const char* format) {
    Rangee(c, {{0, libelle}, {COLONNE_COMMUTATEURS, nom + FormaterNombre(valeur, format)}});
}

// An impedance in secondary ohms per phase and in primary ohms.
void Ohms(ContexteImpression& c, const std::string& libelle, const std::string& commutateur,
          double secondaire, double primaire) {
    Rangee(c, {{0, libelle},
               {COLONNE_COMMUTATEURS, commutateur},
               {COLONNE_SECONDAIRE, FormaterNombre(secondaire, FORMAT_OHMS), true, "/ph"},
               {COLONNE_PRIMAIRE, FormaterNombre(primaire, FORMAT_OHMS), true}});
}

void Tempo(ContexteImpression& c, const std::string& libelle, int valeur) {
    Rangee(c, {{0, libelle}, {COLONNE_PRIMAIRE, FormaterNombre(valeur, "###0") + " ms"}});
}

void Reglages(ContexteImpression& c) {
    const Etude& e = c.e;
    const RelaisRXAP& r = e.RXAP;
    Page& page = c.page;
    page.CurrentY = c.cadres.CadreSuite.Top + e.Pas;
    page.ChoisirGras(true);
    Rangee(c, {{0, "Type of relay:"}});
    page.ChoisirGras(false);
    Rangee(c, {{0, VarianteImprimeeRXAP(e)}});
    page.ALaLigne();
    page.ChoisirGras(true);
    Rangee(c, {{0, "Settings"},
               {COLONNE_COMMUTATEURS, "switches"},
               {COLONNE_SECONDAIRE, "Secondary values"},
               {COLONNE_PRIMAIRE, "Primary values"}});
    page.ChoisirGras(false);
    AvancerProgression(c.e, c.etat, 1);
    Commutateur(c, "earth factor : ko", "(K) = ", r.K, "0.0");
    Rangee(c, {{0, "Argument retained :"},
               {COLONNE_COMMUTATEURS, FormaterNombre(r.Arg, "00") + " °"}});
    if (r.Cercle) {
        Commutateur(c, "image", "(Image) = ", r.Image, FORMAT_OHMS);
        Commutateur(c, "radius of pick up circle", "(MR) = ", r.MR, FORMAT_OHMS);
        if (r.AvecPompage)
            Commutateur(c, "radius of out of step circle", "(MRAP) = ", r.MRAP, FORMAT_OHMS);
        else
            Rangee(c, {{0, "radius of out of step circle"},
                       {COLONNE_COMMUTATEURS, "out of step disabled"}});
    } else {
        Commutateur(c, "focale", "(focale) = ", r.focale, "#0.0");
        Commutateur(c, "pick up eccentricity", "(exmr) = ", r.exmr, "0.00");
        if (r.AvecPompage)
            Commutateur(c, "out of step eccentricity", "(exap) = ", r.exap, "0.00");
        else
            Rangee(c, {{0, "out of step eccentricity"},
                       {COLONNE_COMMUTATEURS, "out of step disabled"}});
    }
    AvancerProgression(c.e, c.etat, 1);
    const double kz = e.Kz;
    auto zone = [&](const char* libelle, const char* n, float valeur, bool parallele,
                    double secondaire, double primaire) {
        Ohms(c, libelle, n + FormaterNombre(valeur, "0.0##"), secondaire, primaire);
        if (parallele) Rangee(c, {{COLONNE_COMMUTATEURS, "Parallel connection"}});
    };
    zone("First zone reactance : X1", "N1 = ", r.N1, r.X1Parallele, e.X1reg_BT, e.X1reg_HT);
    zone("Second zone reactance : X2", "N2 = ", r.N2, r.X2Parallele, e.X2reg_BT, e.X2reg_HT);
    Ohms(c, "Maxximal detectable fault resistance on the close end", {}, r.RfProche / kz,
         r.RfProche);
    Ohms(c, "Maximal detectable fault resistance on the remote end", {}, r.RfLoin / kz, r.RfLoin);
    Rangee(c,
           {{0, "Ratio R/X"}, {COLONNE_PRIMAIRE, FormaterNombre(r.RsurX * 100.0, "##0") + " %"}});
    AvancerProgression(c.e, c.etat, 1);
    const char* portees[] = {"Forward phase to phase reach", "Forward three phase reach",
                             "Forward phase to earth reach", "Backward phase to phase reach",
                             "Backward three phase reach",   "Backward phase to earth reach"};
    for (std::size_t i = 0; i < 6; ++i) {
        const double p = i < 3 ? r.PorteeAv[i] : r.PorteeAr[i - 3];
        Ohms(c, portees[i], {}, p, p * kz);
    }
    AvancerProgression(c.e, c.etat, 1);
    page.ALaLigne();
    if (TempoT1RXAP(e)) Tempo(c, "First step timer", e.T1);
    Tempo(c, "2nd step timer", e.T2);
    Tempo(c, "3rd step timer", e.T3);
    Tempo(c, "4th step timer", e.T4);
    AvancerProgression(c.e, c.etat, 1);
}

} // namespace

void ImprimerRXAP(ContexteImpression& c) {
    ImpressionSansReglages(c);
    if (c.e.ArretImpression || !DoitImprimer(c.e)) return;
    DebutProgression(c.e, c.etat, 5, "Page 2 : Settings");
    Reglages(c);
}

} // namespace tournesol
