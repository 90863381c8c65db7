#include "relays/sa511/ImpressionSA511.h"

#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Format.h"
#include "core/Numerique.h"
#include "printing/Impression.h"
#include "printing/Redacteur.h"

#include <array>
#include <cmath>
#include <string>

namespace tournesol {

namespace {

// The columns of the settings' head: secondary, primary, percentage.
constexpr int COLONNE_SECONDAIRE = 50;
constexpr int COLONNE_PRIMAIRE = 80;
constexpr int COLONNE_POURCENTAGE = 108;
constexpr double TAILLE = 8.0;
constexpr const char* FORMAT_OHMS = "##0.00";
constexpr const char* FORMAT_RAPPORT = "#0.00";

// A row: its caption at the margin, its values in their columns. A caption that runs into the
// first column stands on a line of its own, the values under it.
void Rangee(const ContexteImpression& c, Redacteur& r,
            std::vector<std::pair<int, std::string>> morceaux) {
    if (morceaux.size() > 1 && morceaux.front().first == 0 &&
        c.page.LargeurTexte(morceaux.front().second) > (COLONNE_SECONDAIRE - 2) * c.e.Pas) {
        r.Ligne(morceaux.front().second);
        morceaux.erase(morceaux.begin());
    }
    r.Ligne(morceaux);
}

std::string Ohms(double v) {
    return FormaterNombre(v, FORMAT_OHMS) + " #W";
}

// A value and its primary image, in ohms.
void Impedance(const ContexteImpression& c, Redacteur& r, const std::string& libelle,
               double secondaire, double kz, bool pourcentage = false, double xl = 0.0) {
    const double primaire = secondaire * kz;
    std::vector<std::pair<int, std::string>> morceaux{
        {0, libelle}, {COLONNE_SECONDAIRE, Ohms(secondaire)}, {COLONNE_PRIMAIRE, Ohms(primaire)}};
    // A reactance as a share of the line's.
    if (pourcentage && xl != 0.0)
        morceaux.emplace_back(COLONNE_POURCENTAGE,
                              FormaterNombre(100.0 * primaire / xl, "##0") + " #%");
    Rangee(c, r, morceaux);
}

void Valeur(const ContexteImpression& c, Redacteur& r, const std::string& libelle,
            const std::string& valeur) {
    Rangee(c, r, {{0, libelle}, {COLONNE_SECONDAIRE, valeur}});
}

void Titre(ContexteImpression& c, Redacteur& r, const std::string& titre) {
    r.LigneVide();
    c.page.ChoisirGras(true);
    r.Ligne(titre);
    c.page.ChoisirGras(false);
}

std::string Oui(bool b) {
    return b ? "yes" : "no";
}

// The ratio of two values, blank when the second is null.
std::string Rapport(double a, double b) {
    return b == 0.0 ? std::string() : FormaterNombre(a / b, FORMAT_RAPPORT);
}

// The line's parameters, then the zones, on the line page.
void ReglagesLigneEtZones(ContexteImpression& c) {
    const Etude& e = c.e;
    const RelaisSA511& s = e.SA511;
    ImprimerTeteReglages(c);
    c.page.ChoisirTaille(TAILLE);
    Redacteur r(c, &CadresPage::CadreSuite, &CadresPage::CadreTexte, GenrePage::Texte);
    r.Depuis(c.page.CurrentY);
    // The mutual impedance of the parallel line in the line's angle: kom = Zm / 3 Zd.
    const std::string mutuelle = FormaterNombre(3.0 * e.kom_eq, FORMAT_RAPPORT);
    Valeur(c, r, "Ro/Rd                        (1117)", Rapport(e.Ro_eq, e.Rd_eq));
    Valeur(c, r, "Xo/Xd                        (1118)", Rapport(e.Xo_eq, e.Xd_eq));
    Valeur(c, r, "Rm/Rd                        (1119)", mutuelle);
    Valeur(c, r, "Xm/Xd                        (1120)", mutuelle);
    if (e.Kz != 0.0)
        Rangee(c, r,
               {{0, "Positive sequence reactance per km   (1122)"},
                {COLONNE_SECONDAIRE, FormaterNombre(e.Xd_eq / e.Kz, "##0.0000") + " #W/km"},
                {COLONNE_PRIMAIRE, FormaterNombre(e.Xd_eq, "##0.0000") + " #W/km"}});
    Valeur(c, r, "Line length   (1124)", FormaterNombre(e.Longueur_eq, "##0.0#") + " km");
    AvancerProgression(c.e, c.etat, 1);
    r.LigneVide();
    const double kz = e.Kz, xl = e.XL_eq;
    Impedance(c, r, "X1 = First zone reactance (1302)", s.X1, kz, true, xl);
    Impedance(c, r, "X2 = Second zone reactance(1312)", s.X2, kz, true, xl);
    Impedance(c, r, "R1E = First zone phase to earth resistance(1303)", s.R1E, kz);
    Impedance(c, r, "R1 = First zone phase to phase resistance (1301)", s.R1, kz);
    Impedance(c, r, "R2E = Second zone phase to earth resistance(1313)", s.R2E, kz);
    Impedance(c, r, "R2 = Second zone phase to phase resistance(1311)", s.R2, kz);
    Impedance(c, r, "R1be = Lengthened 1st zone ph-to-earth resistance (1403)", s.R1BE, kz);
    Impedance(c, r, "R1b = Lengthened 1st zone ph-to-ph resistance(1401)", s.R1B, kz);
    Impedance(c, r, "X1B = Lengthened 1st zone reactance(1402)", s.X1B, kz, true, xl);
    Valeur(c, r, "Ratio R/X", FormaterNombre(s.RsurX, "#0.##"));
    AvancerProgression(c.e, c.etat, 1);
}

void Courants(const ContexteImpression& c, Redacteur& r) {
    const Etude& e = c.e;
    const double tc = e.Is != 0.0F ? e.Ligne_Ip / e.Is : 0.0;
    auto courant = [&](const std::string& libelle, double i) {
        Rangee(c, r,
               {{0, libelle},
                {COLONNE_SECONDAIRE, FormaterNombre(i, "#0.00") + " A"},
                {COLONNE_PRIMAIRE, FormaterNombre(i * tc, "###0") + " A"}});
    };
    r.Ligne("Minimal currents");
    courant("Ie>  = minimal earth current (1602)", e.SA511.Ie);
    courant("Iph> = minimal phase current (1621)", e.SA511.Iph);
}

void MiseEnRoute(ContexteImpression& c, Redacteur& r) {
    const Etude& e = c.e;
    const RelaisSA511& s = e.SA511;
    Titre(c, r, "Pick up setting");
    Impedance(c, r, "Ra1 = Phase to phase pick up resistance (phi < phia)(1624)", s.RA1, e.Kz);
    Impedance(c, r, "Ra2 = Phase to phase pick up resistance (phi > phia)(1625)", s.RA2, e.Kz);
    Impedance(c, r, "Ra1e= Phase to earth pick up resistance (phi <phiae)(1626)", s.RA1E, e.Kz);
    Impedance(c, r, "Ra2e= Phase to earth pick up resistance (phi >phiae)(1627)", s.RA2E, e.Kz);
    Impedance(c, r, "X+A = Forward pick up reactance (1622)", s.XV, e.Kz, true, e.XL_eq);
    Impedance(c, r, "X-A = Backward pick up reactance (1623)", s.XM, e.Kz, true, e.XL_eq);
    Valeur(c, r, "Phia(1628)", FormaterNombre(RadToDeg(s.Phia), "#0.00") + " °");
    Valeur(c, r, "Phiae(1629)", FormaterNombre(RadToDeg(s.Phiae), "#0.00") + " °");
}

void Tempos(ContexteImpression& c, Redacteur& r) {
    static const std::array<const char*, 8> libelles{
        "T1 1ph = first zone timer, phase to earth fault (1305)",
        "T1 = first zone timer, multiphase fault (1306)",
        "T2 1ph = second zone timer, phase to earth fault (1315)",
        "T2 = second zone timer, multiphase fault (1316)",
        "T1B 1ph = lengthened 1st zone timer, ph-to-earth fault (1405)",
        "T1B>1ph = lengthened 1st zone timer, multiph. fault (1406)",
        "timer for tripping by forward pick up (1203)",
        "timer for tripping by backward pick up (1204)"};
    Titre(c, r, "Timers");
    for (std::size_t i = 0; i < libelles.size(); ++i)
        Valeur(c, r, libelles[i], FormaterNombre(c.e.SA511.Tempo[i], "###0") + " ms");
}

void HorsPompageEtSignal(ContexteImpression& c, Redacteur& r) {
    const Etude& e = c.e;
    const RelaisSA511& s = e.SA511;
    Titre(c, r, "Program of blocking by out-of-step - code 2002");
    r.Ligne(s.ProgBlocage == 1   ? "out of step blocks the first zone"
            : s.ProgBlocage == 2 ? "out of step blocks any zone"
                                 : "out of step blocks every zone but the first zone");
    Impedance(c, r, "Out of tep bandwidth (2003)", s.deltaR, e.Kz);
    Rangee(c, r,
           {{0, "Impedance variation speed (2004)"},
            {COLONNE_SECONDAIRE, FormaterNombre(s.derivR, "##0") + " #W/s"},
            {COLONNE_PRIMAIRE, FormaterNombre(s.derivR_HT, "###0") + " #W/s"}});
    Valeur(c, r, "Relay blocking duration (2005)", FormaterNombre(s.Tact, "#0.00") + " s");
    AvancerProgression(c.e, c.etat, 1);
    Titre(c, r, "Signalling scheme");
    if (!e.Teleaction) {
        r.Ligne("no signal");
        return;
    }
    auto secondes = [](double t) { return FormaterNombre(t, "#0.000") + " s"; };
    Valeur(c, r, "acceleration enabled (2101)", Oui(e.Acceleration));
    if (e.Acceleration) {
        Valeur(c, r, "delay extension on signal emission (2103)", secondes(s.Te));
        Valeur(c, r, "delay extension on signal reception (2104)", secondes(s.Ts));
    } else {
        Valeur(c, r, "delay extension on blocking signal emission (2106)", secondes(s.Tve));
        Valeur(c, r, "independent first zone (2201)", Oui(s.Independante));
        Valeur(c, r, "blocking on lengthened first zone (2202)", Oui(s.BlocageEtendu));
        Valeur(c, r, "delay extension on blocking signal reception (2203)", secondes(s.Tvs));
    }
}

// The fault resistance the first zone sees, at the relay and at the end of its reach: at its
// reach the line's image has moved X1 / tan(phi) to the right of the substation.
void Performances(ContexteImpression& c, Redacteur& r) {
    const Etude& e = c.e;
    const RelaisSA511& s = e.SA511;
    Titre(c, r, " Relay performances");
    const double t = std::tan(e.PHI_eq);
    const double decalage = t != 0.0 && std::isfinite(t) ? s.X1 / t : 0.0;
    auto boucles = [&](const std::string& titre, double terre, double phases) {
        r.Ligne(titre);
        Impedance(c, r, "phase to earth loop", terre, e.Kz);
        Impedance(c, r, "phase to phase loop", phases, e.Kz);
    };
    boucles("Maximal detectable resistance against the close substation", s.R1E, s.R1);
    boucles("Maximal detectable resistance on the first zone reach limit", s.R1E - decalage,
            s.R1 - decalage);
    AvancerProgression(c.e, c.etat, 1);
}

} // namespace

void ImprimerSA511(ContexteImpression& c) {
    Etude& e = c.e;
    // The diagnostics and the line page as every relay prints them, then the settings.
    ImpressionSansReglages(c);
    if (e.ArretImpression) return;
    if (DoitImprimer(e)) {
        DebutProgression(e, c.etat, 3, "Page 2 : settings");
        ReglagesLigneEtZones(c);
    }
    if (e.ArretImpression) return;
    ++e.PageImpression;
    if (!DoitImprimer(e)) return;
    DebutProgression(e, c.etat, 4, "Page 3 : settings");
    CommencerPage(c, GenrePage::Texte);
    c.page.ChoisirTaille(TAILLE);
    Redacteur r(c, &CadresPage::CadreTexte, GenrePage::Texte);
    Courants(c, r);
    MiseEnRoute(c, r);
    Tempos(c, r);
    AvancerProgression(e, c.etat, 1);
    HorsPompageEtSignal(c, r);
    Performances(c, r);
}

} // namespace tournesol
