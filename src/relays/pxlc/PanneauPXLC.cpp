#include "relays/pxlc/PanneauPXLC.h"

#include "core/Etude.h"
#include "relays/ChampsPXL.h"
#include "relays/pxlc/CalculPXLC.h"

namespace tournesol {

namespace {

// The common signalling options, the phase selector and whether the setting sheet is printed.
std::vector<DescriptionChamp> ChampsSignalPXLC() {
    std::vector<DescriptionChamp> t =
        ChampsTeleaction(GroupeFeuille(SIGNAL_PXL, "Signalling scheme"),
                         "Presence of signalling scheme", "Acceleration", "Blocking overreach");
    const std::string selecteur = GroupeFeuille(SIGNAL_PXL, "Phase selector");
    const Variable type = Lien(&Etude::PXLC, &RelaisPXLC::TypeDecl);
    t.push_back(ChampOption("chkMono1", "Single phase tripping  on zone 1", selecteur, type, 1.0));
    t.push_back(ChampOption("chkPasMono", "No single phase tripping", selecteur, type, 3.0));
    t.push_back(ChampCase("chkFeuille", "Settings sheet in the report",
                          GroupeFeuille(SIGNAL_PXL, "Report"),
                          Lien(&Etude::PXLC, &RelaisPXLC::FeuilleReglages)));
    return t;
}

const TableChamps& ChampsPXLC() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t;
        for (auto&& partie :
             {ChampsPompagePXL(&Etude::PXLC, PAS_PXLC),
              ChampsResistancesPXL(&Etude::PXLC, PAS_PXLC),
              ChampsZonesPXL(&Etude::PXLC, {200.0, 500.0, 1000.0, 1000.0, 200.0}, PAS_PXLC),
              ChampsTemposPXL(PAS_PXLC.Tempo), ChampsSignalPXLC()})
            t.insert(t.end(), partie.begin(), partie.end());
        return TableChamps(std::move(t));
    }();
    return table;
}

} // namespace

PanneauPXLC::PanneauPXLC(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_PXLC) {
    DeclarerOnglets({POMPAGE_PXL, RESISTANCE_PXL, ZONES_PXL, TEMPOS_PXL, SIGNAL_PXL});
    DeclarerChamps(ChampsPXLC());
    DeclarerTeleaction();
    DeclarerEtapes({{"Pompage", [this] { CalculPompagePXLC(e_, d_); }},
                    {"Resistance", [this] { ResistancesPrimairesPXLC(e_); }},
                    {"Zones", [this] { CalculZonesPXLC(e_); }},
                    // The timers and the signal compute nothing of their own: their fields went
                    // into the study at their exit.
                    {"Tempos", [] {}},
                    {"Signal", [] {}},
                    {"Diag", [this] { CalculDiagPXLC(e_); }}});
}

CadrePlan PanneauPXLC::CadreDuPlan() {
    return CadrePlan::Carre(DemiLargeurPXLC(e_));
}

void PanneauPXLC::LireOptions() {
    if (ModeRetour()) DefautsPXLC(e_);
}

void PanneauPXLC::RecalculZones() {
    RecalculDepuis("Zones");
}

void PanneauPXLC::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    if (champ.Nom == TXT_DELTAR_PXL) {
        // The resistances follow the band at once, from the load area, in every mode.
        ResistancesDepuisBandePXLC(e_, d_);
        remarqueDeltaR_ = true;
        Afficher();
    } else if (EstZonePXL(champ.Nom)) {
        RapportRsurXPXLC(e_);
        Afficher();
    }
}

void PanneauPXLC::Afficher() {
    AfficherChamps();
    Trouver(LBL_REMARQUE_PXL)->Visible = remarqueDeltaR_;
    AfficherResistancesPXL(*this, e_.PXLC);
}

} // namespace tournesol
