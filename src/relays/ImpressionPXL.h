// The settings page the PXL family's relays (PXLN, PXLP) print alike: the four loop resistances,
// the five reaches in secondary and primary ohms and in percent of the line, the ratio R/X at
// the first zone's limit, the out-of-step band and the four step timers.
#pragma once

#include <array>

namespace tournesol {

struct ContexteImpression;

struct ReglagesImprimesPXL {
    std::array<double, 4> ResistancesBT{}; // Rmoc, Rbic, Rmor, Rbir
    std::array<double, 4> ResistancesHT{};
    std::array<double, 5> ZonesBT{};
    std::array<double, 5> ZonesHT{};
    std::array<double, 5> Pourcentages{};
    double BandeBT = 0.0;
    double BandeHT = 0.0;
};

template <class R> ReglagesImprimesPXL ReglagesImprimes(const R& r) {
    return {.ResistancesBT = {r.Rmoc_BT, r.Rbic_BT, r.Rmor_BT, r.Rbir_BT},
            .ResistancesHT = {r.Rmoc_HT, r.Rbic_HT, r.Rmor_HT, r.Rbir_HT},
            .ZonesBT = r.ZonesBT,
            .ZonesHT = r.ZonesHT,
            .Pourcentages = r.XPct,
            .BandeBT = r.deltaR_BT,
            .BandeHT = r.deltaR_HT};
}

// Prints the page's settings, after its head, with three steps of progress.
void ImprimerReglagesPXL(ContexteImpression& c, const ReglagesImprimesPXL& r);

} // namespace tournesol
