#include "relays/sa511/ImpressionSA511.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "core/Numerique.h"
#include "printing/Impression.h"
#include "printing/Redacteur.h"

#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace tournesol {

namespace {

// The columns of the values: secondary, primary, percentage. On the line's page they stand
// under the settings' head; the settings' own pages give the captions more room.
struct Colonnes {
    int Secondaire;
    int Primaire;
    int Pourcentage;
};
constexpr Colonnes COLONNES_TETE{50, 80, 108};
constexpr Colonnes COLONNES_PAGE{70, 94, 116};
constexpr double TAILLE = 8.0;
// The room kept between a caption and the first value, in millimetres.
constexpr double ECART = 3.0;
constexpr const char* FORMAT_OHMS = "##0.00";
constexpr const char* FORMAT_RAPPORT = "#0.00";

std::string Ohms(double v) {
    return FormaterNombre(v, FORMAT_OHMS) + " #W";
}

std::string Oui(bool b) {
    return b ? "yes" : "no";
}

// The ratio of two values, blank when the second is null.
std::string Rapport(double a, double b) {
    return b == 0.0 ? std::string() : FormaterNombre(a / b, FORMAT_RAPPORT);
}

// The rows of a settings page: a caption, then its values in the columns.
class Feuille {
public:
    Feuille(ContexteImpression& c, Redacteur& r, Colonnes colonnes) : c_(c), r_(r), k_(colonnes) {}

    // A caption that runs into the first value's column stands on a line of its own, the values
    // under it.
    void Rangee(std::vector<std::pair<int, std::string>> morceaux) {
        if (morceaux.size() > 1 && morceaux.front().first == 0 &&
            c_.page.LargeurTexte(TexteSymboles(morceaux.front().second)) + ECART >
                morceaux[1].first * c_.e.Pas) {
            r_.Ligne(morceaux.front().second);
            morceaux.erase(morceaux.begin());
        }
        r_.Ligne(morceaux);
    }
    // A secondary value and its primary image, in ohms; a reactance also as a share of the
    // line's.
    void Impedance(const std::string& libelle, double secondaire, bool pourcentage = false) {
        const double primaire = secondaire * c_.e.Kz;
        std::vector<std::pair<int, std::string>> morceaux{
            {0, libelle}, {k_.Secondaire, Ohms(secondaire)}, {k_.Primaire, Ohms(primaire)}};
        if (pourcentage && c_.e.XL_eq != 0.0)
            morceaux.emplace_back(k_.Pourcentage,
                                  FormaterNombre(100.0 * primaire / c_.e.XL_eq, "##0") + " #%");
        Rangee(std::move(morceaux));
    }
    void Valeur(const std::string& libelle, const std::string& valeur) {
        Rangee({{0, libelle}, {k_.Secondaire, valeur}});
    }
    // Two values, secondary and primary.
    void Valeurs(const std::string& libelle, const std::string& secondaire,
                 const std::string& primaire) {
        Rangee({{0, libelle}, {k_.Secondaire, secondaire}, {k_.Primaire, primaire}});
    }
    void Texte(const std::string& texte) { r_.Ligne(texte); }
    void Titre(const std::string& titre) {
        r_.LigneVide();
        c_.page.ChoisirGras(true);
        r_.Ligne(titre);
        c_.page.ChoisirGras(false);
    }
    void Vide() { r_.LigneVide(); }

private:
    ContexteImpression& c_;
    Redacteur& r_;
    Colonnes k_;
};

// The line's parameters, then the zones, on the line page.
void ReglagesLigneEtZones(ContexteImpression& c) {
    const Etude& e = c.e;
    const RelaisSA511& s = e.SA511;
    ImprimerTeteReglages(c);
    c.page.ChoisirTaille(TAILLE);
    Redacteur r(c, &CadresPage::CadreSuite, &CadresPage::CadreTexte, GenrePage::Texte);
    r.Depuis(c.page.CurrentY);
    Feuille f(c, r, COLONNES_TETE);
    // The mutual impedance of the parallel line in the line's angle: kom = Zm / 3 Zd.
    const std::string mutuelle = FormaterNombre(3.0 * e.kom_eq, FORMAT_RAPPORT);
    // The zero sequence by the earth factor, Xo = (3 ko + 1) Xd, each resistance under its
    // reactance at the angle of its sequence.
    const double xo = 3.0 * e.ko_eq + 1.0;
    f.Valeur("Ro/Rd                        (1117)",
             Rapport(xo * std::tan(e.PHI_eq), std::tan(e.PHIo_eq)));
    f.Valeur("Xo/Xd                        (1118)", FormaterNombre(xo, FORMAT_RAPPORT));
    f.Valeur("Rm/Rd                        (1119)", mutuelle);
    f.Valeur("Xm/Xd                        (1120)", mutuelle);
    if (e.Kz != 0.0)
        f.Valeurs("Positive sequence reactance per km   (1122)",
                  FormaterNombre(e.Xd_eq / e.Kz, "##0.0000") + " #W/km",
                  FormaterNombre(e.Xd_eq, "##0.0000") + " #W/km");
    f.Valeur("Line length   (1124)", FormaterNombre(e.Longueur_eq, "##0.0#") + " km");
    AvancerProgression(c.e, c.etat, 1);
    f.Vide();
    f.Impedance("X1 = First zone reactance (1302)", s.X1, true);
    f.Impedance("X2 = Second zone reactance(1312)", s.X2, true);
    f.Impedance("R1E = First zone phase to earth resistance(1303)", s.R1E);
    f.Impedance("R1 = First zone phase to phase resistance (1301)", s.R1);
    f.Impedance("R2E = Second zone phase to earth resistance(1313)", s.R2E);
    f.Impedance("R2 = Second zone phase to phase resistance(1311)", s.R2);
    f.Impedance("R1be = Lengthened 1st zone ph-to-earth resistance (1403)", s.R1BE);
    f.Impedance("R1b = Lengthened 1st zone ph-to-ph resistance(1401)", s.R1B);
    f.Impedance("X1B = Lengthened 1st zone reactance(1402)", s.X1B, true);
    f.Valeur("Ratio R/X", FormaterNombre(s.RsurX, "#0.##"));
    AvancerProgression(c.e, c.etat, 1);
}

void Courants(const Etude& e, Feuille& f) {
    const double tc = e.Is != 0.0F ? e.Ligne_Ip / e.Is : 0.0;
    auto courant = [&](const std::string& libelle, double i) {
        f.Valeurs(libelle, FormaterNombre(i, "#0.00") + " A",
                  FormaterNombre(i * tc, "###0") + " A");
    };
    f.Texte("Minimal currents");
    courant("Ie>  = minimal earth current (1602)", e.SA511.Ie);
    courant("Iph> = minimal phase current (1621)", e.SA511.Iph);
}

void MiseEnRoute(const Etude& e, Feuille& f) {
    const RelaisSA511& s = e.SA511;
    f.Titre("Pick up setting");
    f.Impedance("Ra1 = Phase to phase pick up resistance (phi < phia)(1624)", s.RA1);
    f.Impedance("Ra2 = Phase to phase pick up resistance (phi > phia)(1625)", s.RA2);
    f.Impedance("Ra1e= Phase to earth pick up resistance (phi <phiae)(1626)", s.RA1E);
    f.Impedance("Ra2e= Phase to earth pick up resistance (phi >phiae)(1627)", s.RA2E);
    f.Impedance("X+A = Forward pick up reactance (1622)", s.XV, true);
    f.Impedance("X-A = Backward pick up reactance (1623)", s.XM, true);
    f.Valeur("Phia(1628)", FormaterNombre(RadToDeg(s.Phia), "#0.00") + " °");
    f.Valeur("Phiae(1629)", FormaterNombre(RadToDeg(s.Phiae), "#0.00") + " °");
}

void Tempos(const Etude& e, Feuille& f) {
    static const std::array<const char*, 8> libelles{
        "T1 1ph = first zone timer, phase to earth fault (1305)",
        "T1 = first zone timer, multiphase fault (1306)",
        "T2 1ph = second zone timer, phase to earth fault (1315)",
        "T2 = second zone timer, multiphase fault (1316)",
        "T1B 1ph = lengthened 1st zone timer, ph-to-earth fault (1405)",
        "T1B>1ph = lengthened 1st zone timer, multiph. fault (1406)",
        "timer for tripping by forward pick up (1203)",
        "timer for tripping by backward pick up (1204)"};
    f.Titre("Timers");
    for (std::size_t i = 0; i < libelles.size(); ++i)
        f.Valeur(libelles[i], FormaterNombre(e.SA511.Tempo[i], "###0") + " ms");
}

void HorsPompageEtSignal(ContexteImpression& c, Feuille& f) {
    const Etude& e = c.e;
    const RelaisSA511& s = e.SA511;
    f.Titre("Program of blocking by out-of-step - code 2002");
    f.Texte(s.ProgBlocage == 1   ? "out of step blocks the first zone"
            : s.ProgBlocage == 2 ? "out of step blocks any zone"
                                 : "out of step blocks every zone but the first zone");
    f.Impedance("Out of tep bandwidth (2003)", s.deltaR);
    f.Valeurs("Impedance variation speed (2004)", FormaterNombre(s.derivR, "##0") + " #W/s",
              FormaterNombre(s.derivR_HT, "###0") + " #W/s");
    f.Valeur("Relay blocking duration (2005)", FormaterNombre(s.Tact, "#0.00") + " s");
    AvancerProgression(c.e, c.etat, 1);
    f.Titre("Signalling scheme");
    if (!e.Teleaction) {
        f.Texte("no signal");
        return;
    }
    auto secondes = [](double t) { return FormaterNombre(t, "#0.000") + " s"; };
    f.Valeur("acceleration enabled (2101)", Oui(e.Acceleration));
    if (e.Acceleration) {
        f.Valeur("delay extension on signal emission (2103)", secondes(s.Te));
        f.Valeur("delay extension on signal reception (2104)", secondes(s.Ts));
    } else {
        f.Valeur("delay extension on blocking signal emission (2106)", secondes(s.Tve));
        f.Valeur("independent first zone (2201)", Oui(s.Independante));
        f.Valeur("blocking on lengthened first zone (2202)", Oui(s.BlocageEtendu));
        f.Valeur("delay extension on blocking signal reception (2203)", secondes(s.Tvs));
    }
}

// The fault resistance the first zone sees, at the relay and at the end of its reach: at its
// reach the line's image has moved X1 / tan(phi) to the right of the substation.
void Performances(ContexteImpression& c, Feuille& f) {
    const Etude& e = c.e;
    const RelaisSA511& s = e.SA511;
    f.Titre(" Relay performances");
    const double t = std::tan(e.PHI_eq);
    const double decalage = t != 0.0 && std::isfinite(t) ? s.X1 / t : 0.0;
    auto boucles = [&](const std::string& titre, double terre, double phases) {
        f.Texte(titre);
        f.Impedance("phase to earth loop", terre);
        f.Impedance("phase to phase loop", phases);
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
    Feuille f(c, r, COLONNES_PAGE);
    Courants(e, f);
    MiseEnRoute(e, f);
    Tempos(e, f);
    AvancerProgression(e, c.etat, 1);
    HorsPompageEtSignal(c, f);
    Performances(c, f);
}

} // namespace tournesol
