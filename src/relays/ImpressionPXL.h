// The settings page the PXL family's relays (PXLN, PXLP, PXLC) print alike: the loop resistances,
// the five reaches in secondary and primary ohms and in percent of the line, the ratio R/X at
// the first zone's limit, the out-of-step band, the four step timers, then the options the relay
// names.
#pragma once

#include "relays/FamillePXL.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace tournesol {

struct ContexteImpression;

struct ReglagesImprimesPXL {
    bool CritereRapide = true;             // Rmor and Rbir exist
    std::array<double, 4> ResistancesBT{}; // Rmoc, Rbic, Rmor, Rbir
    std::array<double, 4> ResistancesHT{};
    bool PourcentsEntiers = false;
    std::array<double, 5> ZonesBT{};
    std::array<double, 5> ZonesHT{};
    std::array<double, 5> Pourcentages{};
    double BandeBT = 0.0;
    double BandeHT = 0.0;
    // Rows of text after the timers: a name and its value.
    std::vector<std::pair<std::string, std::string>> Options{};
};

template <class R> ReglagesImprimesPXL ReglagesImprimes(const R& r, const PasPXL& pas = {}) {
    ReglagesImprimesPXL p{.CritereRapide = CritereRapidePXL<R>,
                          .ResistancesBT = {r.Rmoc_BT, r.Rbic_BT},
                          .ResistancesHT = {r.Rmoc_HT, r.Rbic_HT},
                          .PourcentsEntiers = pas.PourcentsEntiers,
                          .ZonesBT = r.ZonesBT,
                          .ZonesHT = r.ZonesHT,
                          .Pourcentages = r.XPct,
                          .BandeBT = r.deltaR_BT,
                          .BandeHT = r.deltaR_HT};
    if constexpr (CritereRapidePXL<R>) {
        p.ResistancesBT[2] = r.Rmor_BT;
        p.ResistancesBT[3] = r.Rbir_BT;
        p.ResistancesHT[2] = r.Rmor_HT;
        p.ResistancesHT[3] = r.Rbir_HT;
    }
    return p;
}

// Prints the page's settings, after its head, with three steps of progress.
void ImprimerReglagesPXL(ContexteImpression& c, const ReglagesImprimesPXL& r);

} // namespace tournesol
