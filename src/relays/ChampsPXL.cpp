#include "relays/ChampsPXL.h"

#include <algorithm>

namespace tournesol {

DescriptionChamp SaisiePXL(std::string nom, std::string legende, std::string unite,
                           std::string format, std::string groupe, Variable v, double min,
                           double max) {
    DescriptionChamp d = ChampValeur(std::move(nom), std::move(legende), std::move(format),
                                     std::move(groupe), std::move(v), true, std::move(unite));
    d.Min = min;
    d.Max = max;
    return d;
}

bool EstZonePXL(const std::string& nom) {
    return std::find(ZONES_X_PXL.begin(), ZONES_X_PXL.end(), nom) != ZONES_X_PXL.end();
}

std::vector<DescriptionChamp> ChampsTemposPXL(Variable td, Variable maitre) {
    const std::string cadre = GroupeFeuille(TEMPOS_PXL, "Step timers");
    std::vector<DescriptionChamp> t{
        SaisiePXL("txtT1", "First step timer", "ms", "###0", cadre, Lien(&Etude::T1), 0.0, 10000.0),
        SaisiePXL("txtT2", "Second step timer", "ms", "###0", cadre, Lien(&Etude::T2), 0.0,
                  10000.0),
        SaisiePXL("txtT3", "Third step timer", "ms", "###0", cadre, Lien(&Etude::T3), 0.0, 10000.0),
        SaisiePXL("txtT4", "fourth step timer", "ms", "###0", cadre, Lien(&Etude::T4), 0.0,
                  10000.0),
        ChampEtiquette("lblTempoMax", "(Value maxi. 10000 ms)", cadre),
    };
    const std::string ligne = GroupeFeuille(TEMPOS_PXL, "Double circuit two ended line ");
    t.push_back(SaisiePXL("txtTd", "Hilt for inversion of direction", "ms", "###0", ligne,
                          std::move(td), 0.0, 1000.0));
    t.push_back(ChampOption("chkmaître", "Master", ligne, maitre, 1.0));
    t.push_back(ChampOption("chkEsclave", "slave", ligne, maitre, 0.0));
    return t;
}

std::vector<DescriptionChamp> ChampsSignalPXL(const Signalisation& s, Variable declRapide,
                                              Variable signal) {
    std::vector<DescriptionChamp> t =
        ChampsTeleaction(GroupeFeuille(SIGNAL_PXL, "Signalling scheme"),
                         "Presence of signalling scheme", "Acceleration", "Blocking overreach", s);
    t.push_back(
        ChampCase("chkDéclenchementRapide",
                  "Quick tripping on multiphase fault in the second zone and loss of carrier",
                  GroupeFeuille(SIGNAL_PXL, "Signalling scheme"), std::move(declRapide)));
    const std::string groupe = GroupeFeuille(SIGNAL_PXL, "Signal");
    t.push_back(
        ChampOption("chkSignal1", "Signal elaborated by the first zone", groupe, signal, 1.0));
    t.push_back(
        ChampOption("chkSignal2", "Signal elaborated by the second zone", groupe, signal, 2.0));
    return t;
}

} // namespace tournesol
