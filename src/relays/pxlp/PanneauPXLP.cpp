#include "relays/pxlp/PanneauPXLP.h"

#include "core/Etude.h"
#include "relays/ChampsPXL.h"
#include "relays/pxlp/CalculPXLP.h"

namespace tournesol {

namespace {

const Signalisation& SignalisationPXLP() {
    static const Signalisation s = SignalisationPXL(&Etude::PXLP);
    return s;
}

const TableChamps& ChampsPXLP() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t;
        for (auto&& partie :
             {ChampsPompagePXL(&Etude::PXLP), ChampsResistancesPXL(&Etude::PXLP),
              ChampsZonesPXL(&Etude::PXLP, {200.0, 500.0, 1000.0, 1000.0, 200.0}),
              ChampsTemposPXL(&Etude::PXLP), ChampsSignalPXL(&Etude::PXLP, SignalisationPXLP())})
            t.insert(t.end(), partie.begin(), partie.end());
        return TableChamps(std::move(t));
    }();
    return table;
}

} // namespace

PanneauPXLP::PanneauPXLP(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_PXLP) {
    DeclarerOnglets({POMPAGE_PXL, RESISTANCE_PXL, ZONES_PXL, TEMPOS_PXL, SIGNAL_PXL});
    DeclarerChamps(ChampsPXLP());
    DeclarerTeleaction(SignalisationPXLP());
    DeclarerEtapes({{"Pompage", [this] { CalculPompagePXLP(e_, d_); }},
                    {"Resistance", [this] { ResistancesPrimairesPXLP(e_); }},
                    {"Zones", [this] { CalculZonesPXLP(e_); }},
                    // The timers and the signal compute nothing of their own: their fields went
                    // into the study at their exit.
                    {"Tempos", [] {}},
                    {"Signal", [] {}},
                    {"Diag", [this] { CalculDiagPXLP(e_); }}});
}

CadrePlan PanneauPXLP::CadreDuPlan() {
    return CadrePlan::Carre(DemiLargeurPXLP(e_));
}

void PanneauPXLP::LireOptions() {
    if (ModeRetour()) DefautsPXLP(e_);
}

void PanneauPXLP::RecalculZones() {
    RecalculDepuis("Zones");
}

void PanneauPXLP::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    if (champ.Nom == TXT_DELTAR_PXL) {
        // The resistances follow the band at once, from the load area, in every mode.
        ResistancesDepuisBandePXLP(e_, d_);
        remarqueDeltaR_ = true;
        Afficher();
    } else if (EstZonePXL(champ.Nom)) {
        RapportRsurXPXLP(e_);
        Afficher();
    }
}

void PanneauPXLP::Afficher() {
    AfficherChamps();
    Trouver(LBL_REMARQUE_PXL)->Visible = remarqueDeltaR_;
    AfficherResistancesPXL(*this, e_.PXLP);
}

} // namespace tournesol
