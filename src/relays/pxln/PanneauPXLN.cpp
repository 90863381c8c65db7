#include "relays/pxln/PanneauPXLN.h"

#include "core/Champ.h"
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Format.h"
#include "relays/ChampsPXL.h"
#include "relays/PanneauFeuilles.h"
#include "relays/pxln/CalculPXLN.h"
#include "relays/pxln/ParametresPXLN.h"

#include <array>

namespace tournesol {

namespace {

constexpr const char* TYPES = "T&ypes...";
constexpr const char* TXT_INERR = "txtInerr";

template <class T> Variable Pxln(T RelaisPXLN::*membre) {
    return Lien(&Etude::PXLN, membre);
}

const Signalisation& SignalisationPXLN() {
    static const Signalisation s = SignalisationPXL(&Etude::PXLN);
    return s;
}

// The shared band and blocked zones, then the PXLN's blocking suppressions.
std::vector<DescriptionChamp> ChampsPompage() {
    std::vector<DescriptionChamp> t = ChampsPompagePXL(&Etude::PXLN);
    const std::string suppression = GroupeFeuille(POMPAGE_PXL, "Blocking suppression");
    t.push_back(ChampCase("chk_Ip", "Blocking suppresion by I phase", suppression,
                          Pxln(&RelaisPXLN::OptIp)));
    t.push_back(SaisiePXL("txt_Ip", "", "% In (10 to 50 %)", "#0", suppression,
                          Pxln(&RelaisPXLN::Ip_pct), 10.0, 50.0));
    t.push_back(
        ChampCase("chk_Ii", "Blocking suppresion by Ii", suppression, Pxln(&RelaisPXLN::OptIi)));
    t.push_back(SaisiePXL("txt_Ii", "", "% In (10 to 50 %)", "#0", suppression,
                          Pxln(&RelaisPXLN::Ii_pct), 10.0, 50.0));
    t.push_back(
        ChampCase("chk_Io", "Blocking suppresion by Io", suppression, Pxln(&RelaisPXLN::OptIo)));
    t.push_back(SaisiePXL("txt_Io", "", "% In (1 to 10 %)", "#0", suppression,
                          Pxln(&RelaisPXLN::Io_pct), 1.0, 10.0));
    t.push_back(SaisiePXL("txt_tempo", "Blocking suppression timer", "ms  (0 to 30 000)", "####0",
                          suppression, Pxln(&RelaisPXLN::TempoBlocage), 0.0, 30000.0));
    t.push_back(ChampCase("chkEmission", "Signal emission Blocking", suppression,
                          Pxln(&RelaisPXLN::VerrEmission)));
    t.push_back(ChampCase("chkRéception", "Signal reception blocking", suppression,
                          Pxln(&RelaisPXLN::VerrReception)));
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
        for (auto&& partie : {ChampsPompage(), ChampsResistancesPXL(&Etude::PXLN),
                              ChampsZonesPXL(&Etude::PXLN, {200.0, 500.0, 1000.0, 1000.0, 200.0}),
                              ChampsTemposPXL(&Etude::PXLN),
                              ChampsSignalPXL(&Etude::PXLN, SignalisationPXLN()), ChampsTypes()})
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
    DeclarerOnglets({POMPAGE_PXL, RESISTANCE_PXL, ZONES_PXL, TEMPOS_PXL, SIGNAL_PXL, TYPES});
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
    if (champ.Nom == TXT_DELTAR_PXL) {
        // The resistances follow the band at once, from the load area, in every mode.
        const double distance = DistanceTransitPXLN(e_, d_);
        ResistancesPXLN(e_, distance);
        ResistancesPrimairesPXLN(e_);
        remarqueDeltaR_ = true;
        Afficher();
        return;
    }
    if (EstZonePXL(champ.Nom)) {
        RapportRsurXPXLN(e_);
        Afficher();
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
    Trouver(TXT_INERR)->Visible = e_.Is != 1.0F;
    Trouver(LBL_REMARQUE_PXL)->Visible = remarqueDeltaR_;
    AfficherResistancesPXL(*this, e_.PXLN);
}

} // namespace tournesol
