#include "relays/s321/PanneauS321.h"

#include "core/Champ.h"
#include "core/Etude.h"
#include "relays/s321/CalculS321.h"

#include <algorithm>
#include <array>

namespace tournesol {

namespace {

constexpr const char* ZONES = "Zones";
constexpr const char* AUTRES = "Other parameters";
constexpr const char* SEUILS = "Current thresholds";
constexpr const char* TEMPOS = "Timers";
constexpr const char* POMPAGE = "Out of step";

template <class T> Variable S321(T RelaisS321::*membre) {
    return Lien(&Etude::S321, membre);
}

// A reach kept in primary ohms, typed in secondary ohms, with its primary twin.
void Impedance(std::vector<DescriptionChamp>& t, const std::string& groupe, std::string bt,
               std::string ht, const char* legende, double RelaisS321::*membre,
               bool saisie = true) {
    // A setting of the relay itself, typed as it will be set: no desired value beside it.
    t.push_back({.Nom = bt,
                 .Legende = legende,
                 .Format = "##0.00",
                 .Colonne = ColonneOhms::Secondaire,
                 .Nature = saisie ? NatureValeur::Autre : NatureValeur::Reglee,
                 .Groupe = groupe,
                 .Saisie = saisie,
                 .Valeur = ParKz(S321(membre)),
                 .Jumeau = ht});
    t.push_back({.Nom = std::move(ht),
                 .Legende = legende,
                 .Format = "##0.00",
                 .Colonne = ColonneOhms::Primaire,
                 .Nature = NatureValeur::Reglee,
                 .Groupe = groupe,
                 .Valeur = S321(membre)});
}

// A current threshold in secondary amperes, with its primary image.
void Courant(std::vector<DescriptionChamp>& t, const std::string& groupe, std::string bt,
             std::string ht, const char* legende, float RelaisS321::*membre) {
    t.push_back({.Nom = bt,
                 .Legende = legende,
                 .Unite = "A S",
                 .Format = "###0.0",
                 .Colonne = ColonneOhms::Secondaire,
                 .Groupe = groupe,
                 .Saisie = true,
                 .Valeur = S321(membre),
                 .Jumeau = ht,
                 .Rapport = RapportJumeau::Courant});
    t.push_back({.Nom = std::move(ht),
                 .Legende = legende,
                 .Unite = "A P",
                 .Format = "###0",
                 .Colonne = ColonneOhms::Primaire,
                 .Groupe = groupe});
}

// A timer in milliseconds, with its image in cycles.
void Tempo(std::vector<DescriptionChamp>& t, const std::string& groupe, std::string ms,
           std::string cycles, const char* legende, Entier16 RelaisS321::*membre) {
    t.push_back({.Nom = ms,
                 .Legende = legende,
                 .Unite = "ms",
                 .Format = "###0",
                 .Colonne = ColonneOhms::Secondaire,
                 .Groupe = groupe,
                 .Saisie = true,
                 .Valeur = S321(membre),
                 .Jumeau = cycles,
                 .Rapport = RapportJumeau::Cycles});
    t.push_back({.Nom = std::move(cycles),
                 .Legende = legende,
                 .Unite = "cycles",
                 .Format = "###0",
                 .Colonne = ColonneOhms::Primaire,
                 .Groupe = groupe});
}

DescriptionChamp Nombre(std::string nom, std::string legende, std::string format,
                        std::string groupe, Variable v, bool saisie = true) {
    return ChampValeur(std::move(nom), std::move(legende), std::move(format), std::move(groupe),
                       std::move(v), saisie);
}

struct Zone {
    const char* z;
    const char* x;
    const char* r;
    const char* legendeZ;
    const char* legendeX;
    const char* legendeR;
    double RelaisS321::*mz;
    double RelaisS321::*mx;
    double RelaisS321::*mr;
};

const std::array<Zone, 4> ZONES_S321{{
    {"1", "1", "1", "First zone phase to phase impedance", "Phase to earth first zone reactance",
     "phase to earth first zone resistance ", &RelaisS321::Z1MG, &RelaisS321::XG1,
     &RelaisS321::RG1},
    {"2", "2", "2", "Phase to phase second zone impedance", "Phase to earth second zone reactance",
     "phase to earth second zone resistance ", &RelaisS321::Z2MG, &RelaisS321::XG2,
     &RelaisS321::RG2},
    {"3", "3", "3", "Phase to phase backward zone impedance",
     "phase to earth backward zone reactance", "phase to earth backward zone resistance",
     &RelaisS321::Z3MG, &RelaisS321::XG3, &RelaisS321::RG3},
    {"4", "4", "4", "Phase to phase forward zone impedance",
     "phase to earth forward zone reactance", "phase to earth forward zone resistance",
     &RelaisS321::Z4MG, &RelaisS321::XG4, &RelaisS321::RG4},
}};

std::vector<DescriptionChamp> ChampsDesZones() {
    std::vector<DescriptionChamp> t;
    const std::string pp = GroupeFeuille(ZONES, "Phase to phase loops");
    const std::string pt = GroupeFeuille(ZONES, "Phase to earth loops");
    for (const Zone& z : ZONES_S321)
        Impedance(t, pp, std::string("txtz") + z.z + "_bt", std::string("txtZ") + z.z + "_HT",
                  z.legendeZ, z.mz);
    for (const Zone& z : ZONES_S321)
        Impedance(t, pt, std::string("txtx") + z.x + "_bt", std::string("txtX") + z.x + "_HT",
                  z.legendeX, z.mx);
    for (const Zone& z : ZONES_S321)
        Impedance(t, pt, std::string("txtr") + z.r + "_bt", std::string("txtR") + z.r + "_HT",
                  z.legendeR, z.mr);
    t.push_back(
        Nombre("txtrap", "RG1 / XG1", "#0.00", pt,
               {[](const Etude& e) { return e.S321.XG1 == 0.0 ? 0.0 : e.S321.RG1 / e.S321.XG1; },
                [](Etude&, double) {}},
               false));
    return t;
}

std::vector<DescriptionChamp> ChampsAutres() {
    const std::string terre = GroupeFeuille(AUTRES, "Earth factors");
    const std::string inverse = GroupeFeuille(AUTRES, "Negative sequence directional modules");
    std::vector<DescriptionChamp> t{
        Nombre("txtko1", "Module of first zone ko (KO1M)", "0.000", terre, S321(&RelaisS321::KO1M)),
        Nombre("txtako1", "Argument of first zone ko (KO1A)", "#0.000", terre,
               S321(&RelaisS321::KO1A)),
        Nombre("txtko2", "Module of other zone  ko  (KOM)", "0.000", terre, S321(&RelaisS321::KOM)),
        Nombre("txtako2", "Argument of other zone ko (KOA)", "#0.000", terre,
               S321(&RelaisS321::KOA)),
    };
    Impedance(t, inverse, "txtzav_bt", "txtzav_ht", "Forward compensation", &RelaisS321::Z2F);
    Impedance(t, inverse, "txtzam_bt", "txtzam_ht", "Backward compensation", &RelaisS321::Z2R);
    Courant(t, inverse, "txtiav_bt", "txtiav_ht", "Backward directional module",
            &RelaisS321::_50QR);
    Courant(t, inverse, "txtiam_bt", "txtiam_ht", "forward directional module", &RelaisS321::_50QF);
    t.push_back(Nombre("txta2", "Minimal ratio between negative and positive sequence current",
                       "#0.00", inverse, S321(&RelaisS321::A2)));
    return t;
}

std::vector<DescriptionChamp> ChampsDesSeuils() {
    std::vector<DescriptionChamp> t;
    const std::string g = GroupeFeuille(SEUILS, "Residual current");
    Courant(t, g, "txtir1_bt", "txtir1_ht", "Ig zone 1", &RelaisS321::_50G1);
    Courant(t, g, "txtir2_bt", "txtir2_ht", "Ig zone 2", &RelaisS321::_50G2);
    Courant(t, g, "txtir3_bt", "txtir3_ht", "Ig backward zone", &RelaisS321::_50G3);
    Courant(t, g, "txtir4_bt", "txtir4_ht", "Ig forward zone", &RelaisS321::_50G4);
    const std::string pp = GroupeFeuille(SEUILS, "Phase to phase loops");
    Courant(t, pp, "txtiab1_bt", "txtiab1_ht", "Iry, or Iyb, or Ibr zone 1", &RelaisS321::_50PP1);
    Courant(t, pp, "txtiab2_bt", "txtiab2_ht", "Iry, or Iyb, or Ibr zone 2", &RelaisS321::_50PP2);
    Courant(t, pp, "txtiab3_bt", "txtiab3_ht", "Iry, or Iyb, or Ibr backward zone",
            &RelaisS321::_50PP3);
    Courant(t, pp, "txtiab4_bt", "txtiab4_ht", "Iry, or Iyb, or Ibr forward zone",
            &RelaisS321::_50PP4);
    const std::string pt = GroupeFeuille(SEUILS, "Phase to earth loops");
    Courant(t, pt, "txtia1_bt", "txtia1_ht", "Ir, or Iy, or Ib zone 1", &RelaisS321::_50L1);
    Courant(t, pt, "txtia2_bt", "txtia2_ht", "Ir, or Iy, or Ib zone 2", &RelaisS321::_50L2);
    Courant(t, pt, "txtia3_bt", "txtia3_ht", "Ir, or Iy, or Ib  backward zone", &RelaisS321::_50L3);
    Courant(t, pt, "txtia4_bt", "txtia4_ht", "Ir, or Iy, or Ib forward zone", &RelaisS321::_50L4);
    return t;
}

std::vector<DescriptionChamp> ChampsDesTempos() {
    std::vector<DescriptionChamp> t;
    const std::string pt = GroupeFeuille(TEMPOS, "Phase to earth loops");
    Tempo(t, pt, "txtt2m", "txt2m", "Phase to earth second step", &RelaisS321::Z2GD);
    Tempo(t, pt, "txtt3m", "txt3m", "Phase to earth backward step timer", &RelaisS321::Z3GD);
    Tempo(t, pt, "txtt4m", "txt4m", "Phase to earth forward step ", &RelaisS321::Z4GD);
    const std::string pp = GroupeFeuille(TEMPOS, "Phase to phase loops");
    Tempo(t, pp, "txtt2b", "txt2b", "Phase to phase second step", &RelaisS321::Z2PD);
    Tempo(t, pp, "txtt3b", "txt3b", "Phase to phase backward step", &RelaisS321::Z3PD);
    Tempo(t, pp, "txtt4b", "txt4b", "Phase to phase forward step", &RelaisS321::Z4PD);
    return t;
}

std::vector<DescriptionChamp> ChampsDuPompage() {
    std::vector<DescriptionChamp> t{{.Nom = "chkPompage",
                                     .Legende = "Out of step enabled",
                                     .Groupe = GroupeFeuille(POMPAGE, "Out of step"),
                                     .Genre = GenreChamp::Case,
                                     .Valeur = S321(&RelaisS321::AvecPompage)}};
    const std::string ext = GroupeFeuille(POMPAGE, "External characteristic");
    Impedance(t, ext, "txtr1r6_bt", "txtr1r6_ht", "External forward resistance", &RelaisS321::R1R6);
    Impedance(t, ext, "txtr1l6_bt", "txtr1l6_ht", "External backward resistance ",
              &RelaisS321::R1L6);
    Impedance(t, ext, "txtx1t6_bt", "txtx1t6_ht", "External forward reactance", &RelaisS321::X1T6);
    Impedance(t, ext, "txtx1b6_bt", "txtx1b6_ht", "External backward reactance ",
              &RelaisS321::X1B6);
    const std::string in = GroupeFeuille(POMPAGE, "Internal characteristic");
    Impedance(t, in, "txtr1r5_bt", "txtr1r5_ht", "Internal forward resistance ", &RelaisS321::R1R5);
    Impedance(t, in, "txtr1l5_bt", "txtr1l5_ht", "Internal backward resistance ",
              &RelaisS321::R1L5);
    Impedance(t, in, "txtx1t5_bt", "txtx1t5_ht", "Internal forward reactance ", &RelaisS321::X1T5);
    Impedance(t, in, "txtx1b5_bt", "txtx1b5_ht", "Internal backward reactance ", &RelaisS321::X1B5);
    const std::string tempos = GroupeFeuille(POMPAGE, "Timers");
    Tempo(t, tempos, "txtdelta", "txtdelt", "Out of step detection", &RelaisS321::OSBD);
    Tempo(t, tempos, "txtdviv", "txtdvi",
          "Out of step blocking suppression by negative sequence current", &RelaisS321::UBD);
    return t;
}

const TableChamps& ChampsS321() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t;
        for (auto&& partie : {ChampsDesZones(), ChampsAutres(), ChampsDesSeuils(),
                              ChampsDesTempos(), ChampsDuPompage()})
            t.insert(t.end(), partie.begin(), partie.end());
        return TableChamps(std::move(t));
    }();
    return table;
}

bool Parmi(const std::string& nom, const std::vector<DescriptionChamp>& lignes) {
    for (const DescriptionChamp& d : lignes)
        if (d.Nom == nom) return true;
    return false;
}

} // namespace

PanneauS321::PanneauS321(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_S321) {
    DeclarerOnglets({ZONES, AUTRES, SEUILS, TEMPOS, POMPAGE});
    DeclarerChamps(ChampsS321());
    DeclarerAvisCentrale(AvisCentrale("S 321-5"));
    DeclarerEtapes({{"Charge", [this] { rz_ = ChargeS321(e_, d_); }},
                    {"Portees", [this] { PorteesS321(e_, rz_); }},
                    {"Seuils", [this] { SeuilsS321(e_); }},
                    {"Tempos", [] {}},
                    {"Pompage", [] {}},
                    {"Diag", [this] { DiagS321(e_); }}});
}

CadrePlan PanneauS321::CadreDuPlan() {
    // Every figure drawn, forward and backward: on a meshed line the forward zone Z4MG alone
    // sits at the bottom of its range.
    const RelaisS321& r = e_.S321;
    const double haut = std::max({r.Z1MG, r.Z2MG, r.Z4MG, r.XG4, r.AvecPompage ? r.X1T6 : 0.0});
    const double bas = std::max({r.Z3MG, r.XG3, r.AvecPompage ? r.X1B6 : 0.0});
    return CadrePlan::HautBas(1.2 * haut, -1.2 * bas);
}

void PanneauS321::LireOptions() {
    if (ModeRetour()) DefautsS321(e_);
}

void PanneauS321::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    // A typed value stands, only limited; the rules follow.
    const std::string& nom = champ.Nom;
    if (Parmi(nom, ChampsDesZones()) || Parmi(nom, ChampsDuPompage())) LimitesPorteesS321(e_);
    LimitesSeuilsS321(e_);
    RecalculDepuis("Tempos");
}

void PanneauS321::ApresClic(const std::string& nom) {
    if (nom != "chkPompage") return;
    if (ModeRetour())
        RecalculOnglet(0);
    else
        RecalculDepuis("Tempos");
}

} // namespace tournesol
