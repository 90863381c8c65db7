#include "relays/ChampsPXL.h"

#include <algorithm>

namespace tournesol {

DescriptionChamp SaisiePXL(std::string nom, std::string legende, std::string unite,
                           std::string format, std::string groupe, Variable v, double min,
                           double max, double pas) {
    DescriptionChamp d = ChampValeur(std::move(nom), std::move(legende), std::move(format),
                                     std::move(groupe), std::move(v), true, std::move(unite));
    d.Min = min;
    d.Max = max;
    d.Pas = pas;
    return d;
}

bool EstZonePXL(const std::string& nom) {
    return std::find(ZONES_X_PXL.begin(), ZONES_X_PXL.end(), nom) != ZONES_X_PXL.end();
}

std::vector<DescriptionChamp> ChampsTemposPXL(double pas) {
    const std::string cadre = GroupeFeuille(TEMPOS_PXL, "Step timers");
    auto tempo = [&](const char* nom, const char* legende, Entier16 Etude::*t) {
        return SaisiePXL(nom, legende, "ms", "###0", cadre, Lien(t), 0.0, 10000.0, pas);
    };
    return {
        tempo("txtT1", "First step timer", &Etude::T1),
        tempo("txtT2", "Second step timer", &Etude::T2),
        tempo("txtT3", "Third step timer", &Etude::T3),
        tempo("txtT4", "fourth step timer", &Etude::T4),
        ChampEtiquette("lblTempoMax", "(Value maxi. 10000 ms)", cadre),
    };
}

std::vector<DescriptionChamp> ChampsTemposPXL(Variable td, Variable maitre) {
    std::vector<DescriptionChamp> t = ChampsTemposPXL();
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
