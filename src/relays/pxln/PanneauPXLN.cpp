#include "relays/pxln/PanneauPXLN.h"

#include "core/Champ.h"
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Format.h"
#include "relays/PanneauFeuilles.h"
#include "relays/pxln/CalculPXLN.h"
#include "relays/pxln/ParametresPXLN.h"

#include <array>

namespace tournesol {

namespace {

constexpr const char* POMPAGE = "&Out of step";
constexpr const char* RESISTANCE = "&Resistance";
constexpr const char* ZONES = "&Zones";
constexpr const char* TEMPOS = "&Timers";
constexpr const char* SIGNAL = "Signal";
constexpr const char* TYPES = "T&ypes...";
constexpr const char* TXT_DELTAR = "txt_deltar";
constexpr const char* LBL_REMARQUE = "lblRemarque";
constexpr const char* TXT_INERR = "txtInerr";

template <class T> Variable Pxln(T RelaisPXLN::*membre) {
    return Lien(&Etude::PXLN, membre);
}

DescriptionChamp Saisie(std::string nom, std::string legende, std::string unite, std::string format,
                        std::string groupe, Variable v, double min, double max) {
    DescriptionChamp d = ChampValeur(std::move(nom), std::move(legende), std::move(format),
                                     std::move(groupe), std::move(v), true, std::move(unite));
    d.Min = min;
    d.Max = max;
    return d;
}

// The signalling options: the acceleration is the reduced reach, the blocking its negation.
const Signalisation& SignalisationPXLN() {
    static const Signalisation s{.Teleaction = "chkTéléaction",
                                 .Acceleration = "chkPortéeRéduite",
                                 .Verrouillage = "chkPortéeEtendue",
                                 .VTeleaction = Lien(&Etude::Teleaction),
                                 .VAcceleration = Pxln(&RelaisPXLN::PorteeReduite),
                                 .VVerrouillage = {}};
    return s;
}

struct Resistance {
    const char* bt;
    const char* ht;
    const char* etiquette;
    const char* legende;
    const char* cadre;
    double RelaisPXLN::*vBT;
    double RelaisPXLN::*vHT;
};

const std::array<Resistance, 4> RESISTANCES{{
    {"txt_rmoc_bt", "txt_Rmoc_HT", "lbl_Rmoc_HT", "phase to earth loop", "classic criterion",
     &RelaisPXLN::Rmoc_BT, &RelaisPXLN::Rmoc_HT},
    {"txt_rbic_bt", "txt_Rbic_HT", "lbl_Rbic_HT", "phase to phase loop", "classic criterion",
     &RelaisPXLN::Rbic_BT, &RelaisPXLN::Rbic_HT},
    {"txt_rmor_bt", "txt_Rmor_HT", "lbl_Rmor_HT", "phase to earth loop", "quick criterion",
     &RelaisPXLN::Rmor_BT, &RelaisPXLN::Rmor_HT},
    {"txt_rbir_bt", "txt_Rbir_HT", "lbl_Rbir_HT", "phase to phase loop", "quick criterion",
     &RelaisPXLN::Rbir_BT, &RelaisPXLN::Rbir_HT},
}};

constexpr std::array<const char*, 5> ZONES_X{"txtX(0)", "txtX(1)", "txtX(2)", "txtX(3)", "txtX(4)"};

std::vector<DescriptionChamp> ChampsPompage() {
    const std::string bande = GroupeFeuille(POMPAGE, "Out of step band");
    DescriptionChamp deltar =
        Saisie(TXT_DELTAR, "deltaR", "", "#0.0#", bande, Pxln(&RelaisPXLN::deltaR_BT), 0.2, 25.0);
    deltar.Colonne = ColonneOhms::Secondaire;
    deltar.Jumeau = "txt_deltar_HT";
    std::vector<DescriptionChamp> t{
        deltar,
        {.Nom = "txt_deltar_HT",
         .Legende = "deltaR",
         .Format = "##0.0#",
         .Colonne = ColonneOhms::Primaire,
         .Groupe = bande,
         .Valeur = Pxln(&RelaisPXLN::deltaR_HT)},
        Saisie("Txtdeltaf", "slip", "Hz", "#0.0#", bande, Pxln(&RelaisPXLN::deltaF), 0.0, 10.0),
        ChampEtiquette(LBL_REMARQUE, PanneauPXLN::REMARQUE_DELTAR, bande),
    };
    const std::string bloquees = GroupeFeuille(POMPAGE, "Blocked zones");
    const Variable zones = Pxln(&RelaisPXLN::ZonesBloquees);
    t.push_back(ChampOption("chk_Aucune", "None", bloquees, zones, 0.0));
    t.push_back(ChampOption("chk_Zone1", "Zones 2,3,4,5", bloquees, zones, 1.0));
    t.push_back(ChampOption("chk_zone2", "Zones 3,4,5", bloquees, zones, 2.0));
    t.push_back(ChampOption("chk_Zone3", "Zones 4,5", bloquees, zones, 3.0));
    t.push_back(ChampOption("chk_MiseEnRoute", "Pick up", bloquees, zones, 4.0));
    const std::string suppression = GroupeFeuille(POMPAGE, "Blocking suppression");
    t.push_back(ChampCase("chk_Ip", "Blocking suppresion by I phase", suppression,
                          Pxln(&RelaisPXLN::OptIp)));
    t.push_back(Saisie("txt_Ip", "", "% In (10 to 50 %)", "#0", suppression,
                       Pxln(&RelaisPXLN::Ip_pct), 10.0, 50.0));
    t.push_back(
        ChampCase("chk_Ii", "Blocking suppresion by Ii", suppression, Pxln(&RelaisPXLN::OptIi)));
    t.push_back(Saisie("txt_Ii", "", "% In (10 to 50 %)", "#0", suppression,
                       Pxln(&RelaisPXLN::Ii_pct), 10.0, 50.0));
    t.push_back(
        ChampCase("chk_Io", "Blocking suppresion by Io", suppression, Pxln(&RelaisPXLN::OptIo)));
    t.push_back(Saisie("txt_Io", "", "% In (1 to 10 %)", "#0", suppression,
                       Pxln(&RelaisPXLN::Io_pct), 1.0, 10.0));
    t.push_back(Saisie("txt_tempo", "Blocking suppression timer", "ms  (0 to 30 000)", "####0",
                       suppression, Pxln(&RelaisPXLN::TempoBlocage), 0.0, 30000.0));
    t.push_back(ChampCase("chkEmission", "Signal emission Blocking", suppression,
                          Pxln(&RelaisPXLN::VerrEmission)));
    t.push_back(ChampCase("chkRéception", "Signal reception blocking", suppression,
                          Pxln(&RelaisPXLN::VerrReception)));
    return t;
}

std::vector<DescriptionChamp> ChampsResistances() {
    std::vector<DescriptionChamp> t;
    for (const Resistance& r : RESISTANCES) {
        const std::string cadre = GroupeFeuille(RESISTANCE, r.cadre);
        DescriptionChamp bt = Saisie(r.bt, r.legende, "", "##0", cadre, Pxln(r.vBT), 0.0, 200.0);
        bt.Colonne = ColonneOhms::Secondaire;
        bt.Jumeau = r.ht;
        t.push_back(bt);
        t.push_back({.Nom = r.ht,
                     .Legende = r.legende,
                     .Format = "###0.0",
                     .Colonne = ColonneOhms::Primaire,
                     .Groupe = cadre,
                     .Valeur = Pxln(r.vHT)});
        t.push_back(ChampEtiquette(r.etiquette, "", cadre));
    }
    return t;
}

std::vector<DescriptionChamp> ChampsZones() {
    static const std::array<const char*, 5> legendes{"First zone", "Second zone", "Third zone",
                                                     "Limit of forward pick up",
                                                     "Limit of backward pick up"};
    static const std::array<double, 5> maxima{200.0, 500.0, 1000.0, 1000.0, 200.0};
    const std::string cadre = GroupeFeuille(ZONES, "Reactances in % of the line reactance");
    std::vector<DescriptionChamp> t;
    for (std::size_t i = 0; i < 5; ++i)
        t.push_back(Saisie(ZONES_X[i], legendes[i], "%", "##0.##", cadre,
                           Lien(&Etude::PXLN, &RelaisPXLN::XPct, i), 0.0, maxima[i]));
    t.push_back({.Nom = "txtro",
                 .Legende = "Ratio R/X",
                 .Format = "#0.##",
                 .Groupe = cadre,
                 .Valeur = Pxln(&RelaisPXLN::RsurX)});
    return t;
}

std::vector<DescriptionChamp> ChampsTempos() {
    const std::string cadre = GroupeFeuille(TEMPOS, "Step timers");
    std::vector<DescriptionChamp> t{
        Saisie("txtT1", "First step timer", "ms", "###0", cadre, Lien(&Etude::T1), 0.0, 10000.0),
        Saisie("txtT2", "Second step timer", "ms", "###0", cadre, Lien(&Etude::T2), 0.0, 10000.0),
        Saisie("txtT3", "Third step timer", "ms", "###0", cadre, Lien(&Etude::T3), 0.0, 10000.0),
        Saisie("txtT4", "fourth step timer", "ms", "###0", cadre, Lien(&Etude::T4), 0.0, 10000.0),
        ChampEtiquette("lblTempoMax", "(Value maxi. 10000 ms)", cadre),
    };
    const std::string ligne = GroupeFeuille(TEMPOS, "Double circuit two ended line ");
    t.push_back(Saisie("txtTd", "Hilt for inversion of direction", "ms", "###0", ligne,
                       Pxln(&RelaisPXLN::Td), 0.0, 1000.0));
    t.push_back(ChampOption("chkmaître", "Master", ligne, Pxln(&RelaisPXLN::Maitre), 1.0));
    t.push_back(ChampOption("chkEsclave", "slave", ligne, Pxln(&RelaisPXLN::Maitre), 0.0));
    return t;
}

std::vector<DescriptionChamp> ChampsSignal() {
    std::vector<DescriptionChamp> t = ChampsTeleaction(
        GroupeFeuille(SIGNAL, "Signalling scheme"), "Presence of signalling scheme", "Acceleration",
        "Blocking overreach", SignalisationPXLN());
    t.push_back(
        ChampCase("chkDéclenchementRapide",
                  "Quick tripping on multiphase fault in the second zone and loss of carrier",
                  GroupeFeuille(SIGNAL, "Signalling scheme"), Pxln(&RelaisPXLN::DeclRapide)));
    const std::string signal = GroupeFeuille(SIGNAL, "Signal");
    t.push_back(ChampOption("chkSignal1", "Signal elaborated by the first zone", signal,
                            Pxln(&RelaisPXLN::Signal), 1.0));
    t.push_back(ChampOption("chkSignal2", "Signal elaborated by the second zone", signal,
                            Pxln(&RelaisPXLN::Signal), 2.0));
    return t;
}

std::vector<DescriptionChamp> ChampsTypes() {
    const std::string decl = GroupeFeuille(TYPES, "Tripping");
    const std::string reducteur = GroupeFeuille(TYPES, "Type of reducer");
    const Variable type = Pxln(&RelaisPXLN::TypeDecl);
    return {
        ChampOption("chkMono12", "Single phase tripping  on zone 1", decl, type, 1.0),
        ChampOption("chkMonoTout", "Single phase tripping on every zone", decl, type, 2.0),
        ChampOption("chkPasMono", "No single phase tripping", decl, type, 3.0),
        ChampOption("chkCapacitif", "Capacitive", reducteur, Pxln(&RelaisPXLN::Capacitif), 1.0),
        ChampOption("chkInductif", "Inductive", reducteur, Pxln(&RelaisPXLN::Capacitif), 0.0),
    };
}

const TableChamps& ChampsPXLN() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t;
        for (auto&& partie : {ChampsPompage(), ChampsResistances(), ChampsZones(), ChampsTempos(),
                              ChampsSignal(), ChampsTypes()})
            t.insert(t.end(), partie.begin(), partie.end());
        // Under the sheets: the rated current's error and the parameter sheet's command.
        t.push_back(ChampEtiquette(TXT_INERR, ERREUR_IN_PXLN, ""));
        t.push_back({.Nom = PanneauPXLN::BOUTON_PARAMETRES,
                     .Legende = "&Parameters...",
                     .Genre = GenreChamp::Bouton});
        return TableChamps(std::move(t));
    }();
    return table;
}

} // namespace

PanneauPXLN::PanneauPXLN(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_PXLN) {
    DeclarerOnglets({POMPAGE, RESISTANCE, ZONES, TEMPOS, SIGNAL, TYPES});
    DeclarerChamps(ChampsPXLN());
    DeclarerTeleaction(SignalisationPXLN());
    DeclarerEtapes({{"Pompage", [this] { CalculPompagePXLN(e_, d_); }},
                    {"Resistance", [this] { ResistancesPrimairesPXLN(e_); }},
                    {"Zones", [this] { CalculZonesPXLN(e_); }},
                    // The timers, the signal and the types compute nothing of their own: their
                    // fields went into the study at their exit.
                    {"Tempos", [] {}},
                    {"Signal", [] {}},
                    {"Types", [] {}},
                    {"Diag", [this] { CalculDiagPXLN(e_); }}});
}

CadrePlan PanneauPXLN::CadreDuPlan() {
    return CadrePlan::Carre(DemiLargeurPXLN(e_));
}

void PanneauPXLN::LireOptions() {
    if (ModeRetour()) DefautsPXLN(e_);
    ParametresParDefautPXLN(e_);
}

void PanneauPXLN::RecalculZones() {
    RecalculDepuis("Zones");
}

void PanneauPXLN::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    if (champ.Nom == TXT_DELTAR) {
        // The resistances follow the band at once, from the load area, in every mode.
        const double distance = DistanceTransitPXLN(e_, d_);
        ResistancesPXLN(e_, distance);
        ResistancesPrimairesPXLN(e_);
        remarqueDeltaR_ = true;
        Afficher();
        return;
    }
    for (const char* x : ZONES_X)
        if (champ.Nom == x) {
            RapportRsurXPXLN(e_);
            Afficher();
            return;
        }
}

void PanneauPXLN::ApresClic(const std::string& nom) {
    if (nom != BOUTON_PARAMETRES) return;
    const std::unique_ptr<PanneauFeuilles> parametres = CreerParametresPXLN(e_);
    parametres->Ouvrir();
    d_.MontrerPanneau(*parametres);
}

void PanneauPXLN::Afficher() {
    AfficherChamps();
    const RelaisPXLN& r = e_.PXLN;
    Trouver(TXT_INERR)->Visible = e_.Is != 1.0F;
    Trouver(LBL_REMARQUE)->Visible = remarqueDeltaR_;
    for (const Resistance& x : RESISTANCES)
        Trouver(x.etiquette)->DefinirTexte("(" + FormaterNombre(r.*x.vHT, "###0.0") + " ohm HT)");
}

} // namespace tournesol
