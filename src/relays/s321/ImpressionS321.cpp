#include "relays/s321/ImpressionS321.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "core/Numerique.h"
#include "printing/Impression.h"
#include "printing/Redacteur.h"

#include <cmath>
#include <string>

namespace tournesol {

namespace {

constexpr int COLONNE_NOM = 52;
constexpr int COLONNE_SECONDAIRE = 72;
constexpr int COLONNE_PRIMAIRE = 96;
constexpr double TAILLE = 8.0;
const std::string OHM = " \xCE\xA9";

std::string Ohms(double v) {
    return FormaterNombre(v, "##0.00") + OHM;
}

struct Feuille {
    ContexteImpression& c;
    Redacteur r;

    // A caption longer than its column goes on over the next line, at a blank, where the row's
    // values stand: the captions keep their words and the columns their place.
    std::string Libelle(const std::string& libelle) {
        constexpr std::size_t LARGEUR = 36;
        if (libelle.size() <= LARGEUR) return libelle;
        const std::size_t blanc = libelle.rfind(' ', LARGEUR);
        if (blanc == std::string::npos) return libelle;
        r.Ligne(libelle.substr(0, blanc));
        return "   " + libelle.substr(blanc + 1);
    }
    void Titre(const std::string& titre) {
        c.page.ChoisirGras(true);
        r.Ligne(titre);
        c.page.ChoisirGras(false);
    }
    void Colonnes() {
        r.Ligne({{COLONNE_SECONDAIRE, "Secondary values"}, {COLONNE_PRIMAIRE, "Primary values"}});
    }
    // An impedance kept in primary ohms: secondary per phase and primary.
    void Impedance(const std::string& libelle, const std::string& nom, double primaire) {
        r.Ligne({{0, Libelle(libelle)},
                 {COLONNE_NOM, nom},
                 {COLONNE_SECONDAIRE, Ohms(primaire / c.e.Kz) + "/ph"},
                 {COLONNE_PRIMAIRE, Ohms(primaire)}});
    }
    // A current in secondary amperes and its primary image.
    void Courant(const std::string& libelle, const std::string& nom, double secondaire) {
        const double primaire = secondaire * c.e.Ligne_Ip / c.e.Is;
        r.Ligne({{0, Libelle(libelle)},
                 {COLONNE_NOM, nom},
                 {COLONNE_SECONDAIRE, FormaterNombre(secondaire, "###0.0") + " A"},
                 {COLONNE_PRIMAIRE, FormaterNombre(primaire, "###0") + " A"}});
    }
    void Tempo(const std::string& libelle, const std::string& nom, int ms) {
        r.Ligne({{0, Libelle(libelle)},
                 {COLONNE_NOM, nom},
                 {COLONNE_SECONDAIRE, FormaterNombre(ms / 20, "###0") + " cycles"},
                 {COLONNE_PRIMAIRE, FormaterNombre(ms, "###0") + " ms"}});
    }
    void Nombre(const std::string& libelle, const std::string& nom, double v, const char* format,
                const std::string& unite = {}) {
        r.Ligne({{0, Libelle(libelle)},
                 {COLONNE_NOM, nom},
                 {COLONNE_SECONDAIRE, FormaterNombre(v, format) + unite}});
    }
};

void Zones(Feuille& f) {
    const RelaisS321& r = f.c.e.S321;
    f.Colonnes();
    f.Titre("phase to phase loop setting");
    f.Impedance("impedance zone 1", "Z1MG ", r.Z1MG);
    f.Impedance("impedance zone 2", "Z2MG ", r.Z2MG);
    f.Impedance("Backward zone impedance", "Z3MG ", r.Z3MG);
    f.Impedance("Forward zone impedance", "Z4MG ", r.Z4MG);
    AvancerProgression(f.c.e, f.c.etat, 1);
    f.Titre("Phase to earth loop setting");
    f.Impedance("reactance zone 1", "XG1 ", r.XG1);
    f.Impedance("reactance zone 2", "XG2 ", r.XG2);
    f.Impedance("backward zone reactance", "XG3 ", r.XG3);
    f.Impedance("Forward zone reactance", "XG4 ", r.XG4);
    f.Impedance("resistance zone 1", "RG1 ", r.RG1);
    f.Impedance("resistance zone 2", "RG2 ", r.RG2);
    f.Impedance("Backward zone resistance", "RG3 ", r.RG3);
    f.Impedance("Forward zone resistance", "RG4 ", r.RG4);
    AvancerProgression(f.c.e, f.c.etat, 1);
    f.Titre("Earth factor settings");
    f.r.Ligne({{0, " ko of zone 1"},
               {COLONNE_NOM, "KO1M " + FormaterNombre(r.KO1M, "0.000")},
               {COLONNE_SECONDAIRE, "KO1A " + FormaterNombre(r.KO1A, "#0.000") + " degrees"}});
    f.r.Ligne({{0, " ko of other zones"},
               {COLONNE_NOM, "KOM " + FormaterNombre(r.KOM, "0.000")},
               {COLONNE_SECONDAIRE, "KOA " + FormaterNombre(r.KOA, "#0.000") + " degrees"}});
}

void Suite(Feuille& f) {
    const Etude& e = f.c.e;
    const RelaisS321& r = e.S321;
    f.Colonnes();
    f.Titre("Setting of out of step characteristic");
    if (r.AvecPompage) {
        f.Impedance("Forward reactance zone 5", "X1T5 ", r.X1T5);
        f.Impedance("Backward reactance zone 5", "X1B5 ", r.X1B5);
        f.Impedance("Forward resistance zone 5", "R1R5 ", r.R1R5);
        f.Impedance("Backward resistance zone 5", "R1L5 ", r.R1L5);
        f.Impedance("Forward reactance zone 6", "X1T6 ", r.X1T6);
        f.Impedance("Backward reactance zone 6", "X1B6 ", r.X1B6);
        f.Impedance("Forward resistance zone 6", "R1R6 ", r.R1R6);
        f.Impedance("Backward resistance zone 6", "R1L6 ", r.R1L6);
        f.Tempo("timer to detect out of step", "OSBD ", r.OSBD);
        f.Tempo("Blocking suppression timer by negative sequence current", "UBD ", r.UBD);
    } else {
        f.r.Ligne("out of step disabled");
    }
    AvancerProgression(f.c.e, f.c.etat, 1);
    f.Titre("Thresholds of the directional relay using negative sequence components");
    f.Impedance("Forward impedance", "Z2F ", r.Z2F);
    f.Impedance("Backward impedance", "Z2R ", r.Z2R);
    f.Courant("Forward current", "50QF ", r._50QF);
    f.Courant("Backward current", "50QR ", r._50QR);
    f.Nombre("Minimal ratio (n. s. current)/(p. s. current)", "A2 ", r.A2, "#0.00");
    f.Titre("Current thresholds");
    const char* zones[] = {"zone 1", "zone 2", "backward zone", "forward zone"};
    const float pp[] = {r._50PP1, r._50PP2, r._50PP3, r._50PP4};
    const float l[] = {r._50L1, r._50L2, r._50L3, r._50L4};
    const float g[] = {r._50G1, r._50G2, r._50G3, r._50G4};
    for (int i = 0; i < 4; ++i)
        f.Courant(std::string("current Iry or Iyb ou Ibr, ") + zones[i],
                  "50PP" + std::to_string(i + 1) + " ", pp[i]);
    for (int i = 0; i < 4; ++i)
        f.Courant(std::string("current Ir or Iy or Ib, ") + zones[i],
                  "50L" + std::to_string(i + 1) + " ", l[i]);
    for (int i = 0; i < 4; ++i)
        f.Courant(std::string("current Ig, ") + zones[i], "50G" + std::to_string(i + 1) + " ",
                  g[i]);
    AvancerProgression(f.c.e, f.c.etat, 1);
    f.Titre("Timers");
    f.Tempo("Phase to phase loop second zone", "Z2PD ", r.Z2PD);
    f.Tempo("Phase to phase loop backward zone", "Z3PD ", r.Z3PD);
    f.Tempo("Phase to phase loop forward zone", "Z4PD ", r.Z4PD);
    f.Tempo("Phase to earth loop second zone", "Z2GD ", r.Z2GD);
    f.Tempo("Phase to earth loop backward zone", "Z3GD ", r.Z3GD);
    f.Tempo("Phase to earth loop forward zone", "Z4GD ", r.Z4GD);
    f.Titre("Performances");
    // The quadrilateral of zone 1 is KR RG1 wide on each side of the line.
    f.Impedance("maximal detectable resistance", "", r.KR * r.RG1);
    f.Nombre("ratio R / X", "", r.XG1 == 0.0 ? 0.0 : r.RG1 / r.XG1, "#0.00");
    f.Impedance("forward reach on phase to earth fault", "", r.XG4);
    f.Impedance("backward reach on phase to earth fault", "", r.XG3);
    f.Impedance("forward reach on multi-phase fault", "", r.Z4MG);
    f.Impedance("backward reach on multi-phase fault", "", r.Z3MG);
    AvancerProgression(f.c.e, f.c.etat, 1);
    f.r.LigneVide();
    f.r.Ligne({{0, "name of the protective relay"},
               {COLONNE_NOM, "RELID"},
               {COLONNE_SECONDAIRE, "S 321-5"}});
    f.Impedance("line positive sequence impedance module", "Z1MAG", e.ZL_eq);
    f.Nombre("line positive sequence impedance argument", "Z1ANG", RadToDeg(e.PHI_eq), "#0.0",
             " degrees");
    const double zo = std::hypot(e.Ro_eq, e.Xo_eq);
    f.Impedance("module of the zero sequence impedance of the line", "ZOMAG", zo);
    f.Nombre("argument  of the zero sequence impedance of the line", "ZOANG", RadToDeg(e.PHIo_eq),
             "#0.0", " degrees");
    AvancerProgression(f.c.e, f.c.etat, 1);
}

} // namespace

void ImprimerS321(ContexteImpression& c) {
    ImpressionSansReglages(c);
    if (c.e.ArretImpression || !DoitImprimer(c.e)) return;
    DebutProgression(c.e, c.etat, 6, "Page 2 : Settings");
    c.page.ChoisirTaille(TAILLE);
    Feuille zones{c,
                  Redacteur(c, &CadresPage::CadreSuite, &CadresPage::CadreTexte, GenrePage::Texte)};
    Zones(zones);
    if (c.e.ArretImpression) return;
    CommencerPage(c, GenrePage::Texte);
    c.page.ChoisirTaille(TAILLE);
    c.etat.TexteProgression = "Page 3 : Settings";
    Feuille suite{c, Redacteur(c, &CadresPage::CadreTexte, GenrePage::Texte)};
    Suite(suite);
}

} // namespace tournesol
