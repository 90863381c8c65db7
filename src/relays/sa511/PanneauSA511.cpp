#include "relays/sa511/PanneauSA511.h"

#include "core/Champ.h"
#include "core/Erreurs.h"
#include "core/Etude.h"

#include <array>
#include <string>

namespace tournesol {

namespace {

constexpr const char* HORS_POMPAGE = "&Out of step";
constexpr const char* MISE_EN_ROUTE = "&Pick up";
constexpr const char* ZONES = "&Zones";
constexpr const char* TEMPOS = "&Timers";
constexpr const char* SIGNAL = "Signal";

constexpr const char* CHK_ZONE1 = "chkzone1";
constexpr const char* CHK_TOUTES = "chktouteszones";
constexpr const char* CHK_SAUF1 = "chktoutessauf1";
constexpr const char* ERREUR_IN_CHAMP = "txtInerr";
constexpr int NOMBRE_TEMPOS = 9;
// The ninth timer has no parameter of the relay behind it: kept, not shown.
constexpr int TEMPO_SANS_PARAMETRE = 8;

template <class T> Variable Sa(T RelaisSA511::*membre) {
    return Lien(&Etude::SA511, membre);
}

// A value typed on the panel.
DescriptionChamp Saisie(std::string nom, std::string legende, std::string format,
                        std::string groupe, Variable v, std::string unite = {}) {
    return ChampValeur(std::move(nom), std::move(legende), std::move(format), std::move(groupe),
                       std::move(v), true, std::move(unite));
}

// A secondary impedance typed on the panel, with the label of its primary image beside it.
DescriptionChamp Ohms(std::string nom, std::string legende, std::string groupe, Variable v,
                      std::string etiquette, std::optional<double> min, std::optional<double> max) {
    DescriptionChamp d =
        Saisie(std::move(nom), std::move(legende), "##0.00", std::move(groupe), std::move(v));
    d.Colonne = ColonneOhms::Secondaire;
    d.Min = min;
    d.Max = max;
    d.Jumeau = std::move(etiquette);
    return d;
}

// The primary image of a secondary value, shown only.
DescriptionChamp Primaire(std::string nom, std::string groupe, std::string format = "###0.00",
                          Variable v = {}) {
    DescriptionChamp d;
    d.Nom = std::move(nom);
    d.Format = std::move(format);
    d.Colonne = ColonneOhms::Primaire;
    d.Groupe = std::move(groupe);
    d.Valeur = std::move(v);
    return d;
}

DescriptionChamp Option(std::string nom, std::string legende, double valeur) {
    return ChampOption(
        std::move(nom), std::move(legende),
        GroupeFeuille(HORS_POMPAGE, "Program of blocking by out-of-step - code 2002"),
        Sa(&RelaisSA511::ProgBlocage), valeur);
}

std::vector<DescriptionChamp> ChampsHorsPompage() {
    const std::string bande = GroupeFeuille(HORS_POMPAGE, "Out of step");
    DescriptionChamp deltar = Ohms("txtdeltar", "Out of tep bandwidth (2003)", bande,
                                   Sa(&RelaisSA511::deltaR), "lbldeltar", 0.1, 50.0);
    deltar.Format = "#0.00";
    DescriptionChamp derivr = Saisie("txtderivr", "Impedance variation speed (2004)", "##0", bande,
                                     Sa(&RelaisSA511::derivR), "Ω/s S");
    derivr.Colonne = ColonneOhms::Secondaire;
    derivr.Min = 0.0;
    derivr.Max = 200.0;
    derivr.Jumeau = "lblderivr";
    DescriptionChamp tact = Saisie("txtact", "Relay blocking duration (2005)", "#0.00", bande,
                                   Sa(&RelaisSA511::Tact), "s");
    tact.Min = 0.1;
    tact.Max = 32.0;
    DescriptionChamp derivrHT = Primaire("lblderivr", bande, "###0", Sa(&RelaisSA511::derivR_HT));
    derivrHT.Unite = "Ω/s P";
    return {deltar,
            Primaire("lbldeltar", bande, "###0.00", Sa(&RelaisSA511::deltaR_HT)),
            ChampEtiquette("lbldeltarlimites", "(between 0.1 and 50 - code 2003)", bande),
            derivr,
            derivrHT,
            ChampEtiquette("lblderivrlimites", "(between 0 and 200  - code 2004)", bande),
            tact,
            ChampEtiquette("lblactlimites", "(between 0.1 and 32  - code 2005)", bande),
            Option(CHK_ZONE1, "out of step blocks the first zone", 1.0),
            Option(CHK_TOUTES, "out of step blocks any zone", 2.0),
            Option(CHK_SAUF1, "out of step blocks every zone but the first zone", 3.0)};
}

// A current in secondary amperes, its primary image beside it.
std::vector<DescriptionChamp> Courant(const char* nom, const char* legende, const char* etiquette,
                                      Variable v, const std::string& groupe) {
    DescriptionChamp d = Saisie(nom, legende, "#0.00", groupe, std::move(v), "A S");
    d.Min = 0.0;
    d.Jumeau = etiquette;
    d.Rapport = RapportJumeau::Courant;
    DescriptionChamp p;
    p.Nom = etiquette;
    p.Format = "###0";
    p.Unite = "A P";
    p.Groupe = groupe;
    return {d, p};
}

std::vector<DescriptionChamp> ChampsMiseEnRoute() {
    const std::string courants = GroupeFeuille(MISE_EN_ROUTE, "Minimal currents");
    std::vector<DescriptionChamp> t;
    for (auto&& c : {Courant("txtie", "Ie>  = minimal earth current (1602)", "lblie",
                             Sa(&RelaisSA511::Ie), courants),
                     Courant("txtiph", "Iph> = minimal phase current (1621)", "lbliph",
                             Sa(&RelaisSA511::Iph), courants)})
        t.insert(t.end(), c.begin(), c.end());
    t.push_back(ChampEtiquette(ERREUR_IN_CHAMP, PanneauSA511::ERREUR_IN, courants));

    const std::string polygone = GroupeFeuille(MISE_EN_ROUTE, "Pick up setting");
    struct Resistance {
        const char* nom;
        const char* legende;
        double RelaisSA511::*v;
        const char* etiquette;
    };
    const std::array<Resistance, 6> reaches{{
        {"txtra1", "Ra1 = Phase to phase pick up resistance (phi < phia)(1624)", &RelaisSA511::RA1,
         "lblRA1"},
        {"txtra2", "Ra2 = Phase to phase pick up resistance (phi > phia)(1625)", &RelaisSA511::RA2,
         "lblRA2"},
        {"txtra1e", "Ra1e= Phase to earth pick up resistance (phi <phiae)(1626)",
         &RelaisSA511::RA1E, "lblRA1E"},
        {"txtra2e", "Ra2e= Phase to earth pick up resistance (phi >phiae)(1627)",
         &RelaisSA511::RA2E, "lblRA2E"},
        {"txtxv", "X+A = Forward pick up reactance (1622)", &RelaisSA511::XV, "lblXV"},
        {"txtxm", "X-A = Backward pick up reactance (1623)", &RelaisSA511::XM, "lblXM"},
    }};
    for (const Resistance& r : reaches) {
        const bool libre = r.v == &RelaisSA511::XM; // the backward reactance has no limits
        t.push_back(Ohms(r.nom, r.legende, polygone, Sa(r.v), r.etiquette,
                         libre ? std::nullopt : std::optional<double>(0.1),
                         libre ? std::nullopt : std::optional<double>(200.0)));
        t.push_back(Primaire(r.etiquette, polygone));
    }
    DescriptionChamp phia = Saisie("txtphia", "Phia(1628)", "#0.00", polygone,
                                   EnDegres(Sa(&RelaisSA511::Phia)), "degrees");
    phia.Min = 30.0;
    phia.Max = 80.0;
    t.push_back(phia);
    t.push_back(Saisie("txtphiae", "Phiae(1629)", "#0.00", polygone,
                       EnDegres(Sa(&RelaisSA511::Phiae)), "degrees"));
    return t;
}

std::vector<DescriptionChamp> ChampsZones() {
    struct Zone {
        const char* nom;
        const char* legende;
        double RelaisSA511::*v;
        const char* etiquette;
        const char* cadre;
        double min, max;
    };
    constexpr double AUCUNE = -1.0;
    const std::array<Zone, 9> zones{{
        {"txtx1", "X1 = First zone reactance (1302)", &RelaisSA511::X1, "lblX1", "First zone",
         AUCUNE, 130.0},
        {"txtr1", "R1E = First zone phase to earth resistance(1303)", &RelaisSA511::R1E, "lblR1",
         "First zone", 0.05, 65.0},
        {"txtr1p", "R1 = First zone phase to phase resistance (1301)", &RelaisSA511::R1, "lblr1p",
         "First zone", 0.05, 65.0},
        {"txtx2", "X2 = Second zone reactance(1312)", &RelaisSA511::X2, "lblX2", "Second zone",
         AUCUNE, 130.0},
        {"txtr2", "R2E = Second zone phase to earth resistance(1313)", &RelaisSA511::R2E, "lblR2",
         "Second zone", 0.05, 65.0},
        {"txtr2p", "R2 = Second zone phase to phase resistance(1311)", &RelaisSA511::R2, "lblr2p",
         "Second zone", 0.05, 65.0},
        {"txtx1b", "X1B = Lengthened 1st zone reactance(1402)", &RelaisSA511::X1B, "lblX1B",
         "Lengthened first zone", AUCUNE, AUCUNE},
        {"txtr1b", "R1be = Lengthened 1st zone ph-to-earth resistance (1403)", &RelaisSA511::R1BE,
         "lblR1B", "Lengthened first zone", 0.05, 65.0},
        {"txtr1bp", "R1b = Lengthened 1st zone ph-to-ph resistance(1401)", &RelaisSA511::R1B,
         "lblr1bp", "Lengthened first zone", 0.05, 65.0},
    }};
    std::vector<DescriptionChamp> t;
    auto borne = [&](double v) { return v == AUCUNE ? std::nullopt : std::optional<double>(v); };
    for (const Zone& z : zones) {
        const std::string groupe = GroupeFeuille(ZONES, z.cadre);
        t.push_back(
            Ohms(z.nom, z.legende, groupe, Sa(z.v), z.etiquette, borne(z.min), borne(z.max)));
        t.push_back(Primaire(z.etiquette, groupe));
    }
    DescriptionChamp ratio;
    ratio.Nom = "txtro";
    ratio.Legende = "Ratio R/X";
    ratio.Format = "#0.##";
    ratio.Groupe = GroupeFeuille(ZONES, "First zone");
    ratio.Valeur = Sa(&RelaisSA511::RsurX);
    t.push_back(ratio);
    return t;
}

std::vector<DescriptionChamp> ChampsTempos() {
    static const std::array<const char*, NOMBRE_TEMPOS> legendes{
        "T1 1ph = first zone timer, phase to earth fault (1305)",
        "T1 = first zone timer, multiphase fault (1306)",
        "T2 1ph = second zone timer, phase to earth fault (1315)",
        "T2 = second zone timer, multiphase fault (1316)",
        "T1B 1ph = lengthened 1st zone timer, ph-to-earth fault (1405)",
        "T1B>1ph = lengthened 1st zone timer, multiph. fault (1406)",
        "timer for tripping by forward pick up (1203)",
        "timer for tripping by backward pick up (1204)",
        ""};
    const std::string groupe = GroupeFeuille(TEMPOS, "Timers");
    std::vector<DescriptionChamp> t;
    for (std::size_t i = 0; i < legendes.size(); ++i) {
        DescriptionChamp d = Saisie("txttempo(" + std::to_string(i) + ")", legendes[i], "###0",
                                    groupe, Lien(&Etude::SA511, &RelaisSA511::Tempo, i), "ms");
        d.Min = 0.0;
        d.Max = 32000.0;
        t.push_back(d);
    }
    t.push_back(ChampEtiquette("lbltempomax", "Maximum 32 s", groupe));
    return t;
}

// The signalling options: the scheme, the acceleration and, as its negation, the blocking.
const Signalisation& SignalisationSA511() {
    static const Signalisation s{.Teleaction = "chkTéléaction",
                                 .Acceleration = "chkportéeréduite",
                                 .Verrouillage = "chkportéeétendue",
                                 .VTeleaction = Lien(&Etude::Teleaction),
                                 .VAcceleration = Lien(&Etude::Acceleration),
                                 .VVerrouillage = {}};
    return s;
}

constexpr const char* CADRE_ACCELERATION = "Signal/Acceleration";
constexpr const char* CADRE_BLOCAGE = "Signal/Blocking overreach";
constexpr std::array<const char*, 2> CHAMPS_ACCELERATION{"txtte", "txtts"};
constexpr std::array<const char*, 4> CHAMPS_BLOCAGE{"txttve", "txttvs", "Checkindépendante",
                                                    "Checkblocage"};

std::vector<DescriptionChamp> ChampsSignal() {
    std::vector<DescriptionChamp> t =
        ChampsTeleaction(GroupeFeuille(SIGNAL, "Signalling scheme"), "Signalling scheme",
                         "Acceleration", "Blocking overreach", SignalisationSA511());
    t.push_back(Saisie("txtte", "Prolongation of acceleration signal emission", "#0.000",
                       CADRE_ACCELERATION, Sa(&RelaisSA511::Te), "s"));
    t.push_back(Saisie("txtts", "Prolongation of acceleration signal reception", "#0.000",
                       CADRE_ACCELERATION, Sa(&RelaisSA511::Ts), "s"));
    t.push_back(Saisie("txttve", "Prolongation of blocking signal emission", "#0.000",
                       CADRE_BLOCAGE, Sa(&RelaisSA511::Tve), "s"));
    t.push_back(Saisie("txttvs", "Prolongation of blocking signal reception", "#0.000",
                       CADRE_BLOCAGE, Sa(&RelaisSA511::Tvs), "s"));
    t.push_back(ChampCase("Checkindépendante", "Independant first zone", CADRE_BLOCAGE,
                          Sa(&RelaisSA511::Independante)));
    t.push_back(ChampCase("Checkblocage", "Blocking on lengthened first zone", CADRE_BLOCAGE,
                          Sa(&RelaisSA511::BlocageEtendu)));
    return t;
}

// Every field of the panel, in the order of its sheets, under the relay's label.
const TableChamps& ChampsSA511() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t{ChampEtiquette("lblRelais", PanneauSA511::LIBELLE, "")};
        for (auto&& partie : {ChampsHorsPompage(), ChampsMiseEnRoute(), ChampsZones(),
                              ChampsTempos(), ChampsSignal()})
            t.insert(t.end(), partie.begin(), partie.end());
        return TableChamps(std::move(t));
    }();
    return table;
}

} // namespace

PanneauSA511::PanneauSA511(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_SA511) {
    DeclarerOnglets({HORS_POMPAGE, MISE_EN_ROUTE, ZONES, TEMPOS, SIGNAL});
    DeclarerChamps(ChampsSA511());
    DeclarerTeleaction(SignalisationSA511());
    DeclarerEtapes({{"HorsPompage", [this] { HorsPompage(); }},
                    {"MiseEnRoute", [this] { MiseEnRoute(); }},
                    {"Zones", [this] { Zones(); }},
                    {"Tempos", [this] { Tempos(); }},
                    {"Signalisation", [this] { Signalisation(); }}});
}

CadrePlan PanneauSA511::CadreDuPlan() {
    return CadrePlan::Carre(DemiLargeurSA511(e_));
}

void PanneauSA511::LireOptions() {
    // A program of blocking other than the first two is the third.
    const Entier16 programme = e_.SA511.ProgBlocage;
    Trouver(CHK_ZONE1)->Valeur = programme == 1;
    Trouver(CHK_TOUTES)->Valeur = programme == 2;
    Trouver(CHK_SAUF1)->Valeur = programme != 1 && programme != 2;
}

void PanneauSA511::LireProgramme() {
    e_.SA511.ProgBlocage = Trouver(CHK_ZONE1)->Valeur    ? Entier16{1}
                           : Trouver(CHK_TOUTES)->Valeur ? Entier16{2}
                                                         : Entier16{3};
}

void PanneauSA511::HorsPompage() {
    CalculHorsPompageSA511(e_, d_, distances_);
}

void PanneauSA511::MiseEnRoute() {
    LireProgramme();
    if (ModeRetour()) {
        e_.SA511.Ie = 0.1 * e_.Is;
        e_.SA511.Iph = 0.1 * e_.Is;
        CalculMiseEnRouteSA511(e_, distances_);
    }
}

void PanneauSA511::Zones() {
    if (ModeRetour()) CalculZonesSA511(e_);
}

void PanneauSA511::Tempos() {
    if (ModeRetour()) CalculTemposSA511(e_);
}

void PanneauSA511::Signalisation() {
    CalculDiagSA511(e_);
}

void PanneauSA511::RecalculZones() {
    RecalculDepuis("Signalisation");
}

void PanneauSA511::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    RelaisSA511& r = e_.SA511;
    const std::string& nom = champ.Nom;
    if (nom == "txtx1" || nom == "txtx2" || nom == "txtr1") {
        if (nom == "txtx1") ReactanceSaisieSA511(e_, r.X1);
        if (nom == "txtx2") ReactanceSaisieSA511(e_, r.X2);
        if (nom == "txtr1") r.RsurX = Div(r.R1E, r.X1);
        AfficherChamps();
    } else if (nom.rfind("txttempo(", 0) == 0) {
        RecalculDepuis("Signalisation");
    }
}

void PanneauSA511::MontrerSelonReglages() {
    for (const char* nom : CHAMPS_ACCELERATION)
        Trouver(nom)->Visible = e_.Acceleration;
    for (const char* nom : CHAMPS_BLOCAGE)
        Trouver(nom)->Visible = !e_.Acceleration;
    Trouver(ERREUR_IN_CHAMP)->Visible = e_.Is != 1.0F;
    Trouver("txttempo(" + std::to_string(TEMPO_SANS_PARAMETRE) + ")")->Visible = false;
}

void PanneauSA511::Afficher() {
    AfficherChamps();
    MontrerSelonReglages();
}

} // namespace tournesol
