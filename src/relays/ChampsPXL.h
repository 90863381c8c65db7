// The sheets the PXL family's panels (PXLN, PXLP, PXLC) share: the out-of-step band and the blocked
// zones, the four loop resistances, the five reaches in percent of the line reactance, the step
// timers with the double circuit frame, and the signalling scheme. Each panel takes them for its
// own record, whose settings bear the same names, and adds the sheets of its own.
#pragma once

#include "core/Champ.h"
#include "core/Etude.h"
#include "core/Format.h"
#include "relays/FamillePXL.h"
#include "relays/PanneauProtection.h"

#include <array>
#include <string>
#include <vector>

namespace tournesol {

inline constexpr const char* POMPAGE_PXL = "&Out of step";
inline constexpr const char* RESISTANCE_PXL = "&Resistance";
inline constexpr const char* ZONES_PXL = "&Zones";
inline constexpr const char* TEMPOS_PXL = "&Timers";
inline constexpr const char* SIGNAL_PXL = "Signal";
inline constexpr const char* TXT_DELTAR_PXL = "txt_deltar";
inline constexpr const char* LBL_REMARQUE_PXL = "lblRemarque";
inline constexpr const char* REMARQUE_DELTAR_PXL =
    "If you change deltaR, the program re-reckon the fault résistance values";
inline constexpr std::array<const char*, 5> ZONES_X_PXL{"txtX(0)", "txtX(1)", "txtX(2)", "txtX(3)",
                                                        "txtX(4)"};

// An entry in ohms or percent with its range, and its step when the relay has one.
DescriptionChamp SaisiePXL(std::string nom, std::string legende, std::string unite,
                           std::string format, std::string groupe, Variable v, double min,
                           double max, double pas = 0.0);

// Whether the field is one of the five reaches (its exit re-computes the ratio R/X).
bool EstZonePXL(const std::string& nom);

// One loop resistance: its secondary entry, its primary twin and the label "(... ohm HT)".
template <class R> struct ResistancePXL {
    const char* bt;
    const char* ht;
    const char* etiquette;
    const char* legende;
    const char* cadre;
    double R::*vBT;
    double R::*vHT;
};

// The classic criterion's two loops, then the quick criterion's on the relays that have it; a
// relay with the classic criterion only shows its loops under "Maximal detectable resistance".
template <class R> std::vector<ResistancePXL<R>> ResistancesPXLTable() {
    const char* classique =
        CritereRapidePXL<R> ? "classic criterion" : "Maximal detectable resistance";
    std::vector<ResistancePXL<R>> t{
        {"txt_rmoc_bt", "txt_Rmoc_HT", "lbl_Rmoc_HT", "phase to earth loop", classique, &R::Rmoc_BT,
         &R::Rmoc_HT},
        {"txt_rbic_bt", "txt_Rbic_HT", "lbl_Rbic_HT", "phase to phase loop", classique, &R::Rbic_BT,
         &R::Rbic_HT},
    };
    if constexpr (CritereRapidePXL<R>) {
        t.push_back({"txt_rmor_bt", "txt_Rmor_HT", "lbl_Rmor_HT", "phase to earth loop",
                     "quick criterion", &R::Rmor_BT, &R::Rmor_HT});
        t.push_back({"txt_rbir_bt", "txt_Rbir_HT", "lbl_Rbir_HT", "phase to phase loop",
                     "quick criterion", &R::Rbir_BT, &R::Rbir_HT});
    }
    return t;
}

// The signalling options: the acceleration is the reduced reach, the blocking its negation.
template <class R> Signalisation SignalisationPXL(R Etude::*relais) {
    return Signalisation{.Teleaction = "chkTéléaction",
                         .Acceleration = "chkPortéeRéduite",
                         .Verrouillage = "chkPortéeEtendue",
                         .VTeleaction = Lien(&Etude::Teleaction),
                         .VAcceleration = Lien(relais, &R::PorteeReduite),
                         .VVerrouillage = {}};
}

// The out-of-step band (secondary entry, primary twin, slip, the remark) and the blocked zones.
template <class R>
std::vector<DescriptionChamp> ChampsPompagePXL(R Etude::*relais, const PasPXL& pas = {}) {
    const std::string bande = GroupeFeuille(POMPAGE_PXL, "Out of step band");
    DescriptionChamp deltar =
        SaisiePXL(TXT_DELTAR_PXL, "deltaR", "", "#0.0#", bande, Lien(relais, &R::deltaR_BT),
                  pas.BandeMin, BANDE_MAX_PXL, pas.Bande);
    deltar.Colonne = ColonneOhms::Secondaire;
    deltar.Jumeau = "txt_deltar_HT";
    std::vector<DescriptionChamp> t{
        deltar,
        {.Nom = "txt_deltar_HT",
         .Legende = "deltaR",
         .Format = "##0.0#",
         .Colonne = ColonneOhms::Primaire,
         .Groupe = bande,
         .Valeur = Lien(relais, &R::deltaR_HT)},
        SaisiePXL("Txtdeltaf", "slip", "Hz", "#0.0#", bande, Lien(relais, &R::deltaF), 0.0, 10.0),
        ChampEtiquette(LBL_REMARQUE_PXL, REMARQUE_DELTAR_PXL, bande),
    };
    const std::string bloquees = GroupeFeuille(POMPAGE_PXL, "Blocked zones");
    const Variable zones = Lien(relais, &R::ZonesBloquees);
    t.push_back(ChampOption("chk_Aucune", "None", bloquees, zones, 0.0));
    t.push_back(ChampOption("chk_Zone1", "Zones 2,3,4,5", bloquees, zones, 1.0));
    t.push_back(ChampOption("chk_zone2", "Zones 3,4,5", bloquees, zones, 2.0));
    t.push_back(ChampOption("chk_Zone3", "Zones 4,5", bloquees, zones, 3.0));
    t.push_back(ChampOption("chk_MiseEnRoute", "Pick up", bloquees, zones, 4.0));
    return t;
}

// The loop resistances, whole secondary ohms on the relays that take steps.
template <class R>
std::vector<DescriptionChamp> ChampsResistancesPXL(R Etude::*relais, const PasPXL& pas = {}) {
    std::vector<DescriptionChamp> t;
    for (const ResistancePXL<R>& r : ResistancesPXLTable<R>()) {
        const std::string cadre = GroupeFeuille(RESISTANCE_PXL, r.cadre);
        DescriptionChamp bt = SaisiePXL(r.bt, r.legende, "", "##0", cadre, Lien(relais, r.vBT), 0.0,
                                        pas.ResistanceMax, pas.PourcentsEntiers ? 1.0 : 0.0);
        bt.Colonne = ColonneOhms::Secondaire;
        bt.Jumeau = r.ht;
        t.push_back(bt);
        t.push_back({.Nom = r.ht,
                     .Legende = r.legende,
                     .Format = "###0.0",
                     .Colonne = ColonneOhms::Primaire,
                     .Groupe = cadre,
                     .Valeur = Lien(relais, r.vHT)});
        t.push_back(ChampEtiquette(r.etiquette, "", cadre));
    }
    return t;
}

// The five reaches with their upper limits in percent, in whole per cents on the relays that
// take them so, and the ratio R/X.
template <class R>
std::vector<DescriptionChamp> ChampsZonesPXL(R Etude::*relais, const std::array<double, 5>& maxima,
                                             const PasPXL& pas = {}) {
    static const std::array<const char*, 5> legendes{"First zone", "Second zone", "Third zone",
                                                     "Limit of forward pick up",
                                                     "Limit of backward pick up"};
    const std::string cadre = GroupeFeuille(ZONES_PXL, "Reactances in % of the line reactance");
    std::vector<DescriptionChamp> t;
    for (std::size_t i = 0; i < 5; ++i)
        t.push_back(SaisiePXL(
            ZONES_X_PXL[i], legendes[i], "%", pas.PourcentsEntiers ? "##0" : "##0.##", cadre,
            Lien(relais, &R::XPct, i), 0.0, maxima[i], pas.PourcentsEntiers ? 1.0 : 0.0));
    t.push_back({.Nom = "txtro",
                 .Legende = "Ratio R/X",
                 .Format = "#0.##",
                 .Groupe = cadre,
                 .Valeur = Lien(relais, &R::RsurX)});
    return t;
}

// The four step timers, to the relay's step.
std::vector<DescriptionChamp> ChampsTemposPXL(double pas = 0.0);
// The four step timers, then Td and master or slave on a double circuit line.
std::vector<DescriptionChamp> ChampsTemposPXL(Variable td, Variable maitre);

template <class R> std::vector<DescriptionChamp> ChampsTemposPXL(R Etude::*relais) {
    return ChampsTemposPXL(Lien(relais, &R::Td), Lien(relais, &R::Maitre));
}

// The signalling scheme with its quick tripping, then the zone elaborating the signal.
std::vector<DescriptionChamp> ChampsSignalPXL(const Signalisation& s, Variable declRapide,
                                              Variable signal);

template <class R>
std::vector<DescriptionChamp> ChampsSignalPXL(R Etude::*relais, const Signalisation& s) {
    return ChampsSignalPXL(s, Lien(relais, &R::DeclRapide), Lien(relais, &R::Signal));
}

// The four labels "(... ohm HT)" after the primary resistances.
template <class R> void AfficherResistancesPXL(Panneau& p, const R& r) {
    for (const ResistancePXL<R>& x : ResistancesPXLTable<R>())
        p.Trouver(x.etiquette)->DefinirTexte("(" + FormaterNombre(r.*x.vHT, "###0.0") + " ohm HT)");
}

} // namespace tournesol
