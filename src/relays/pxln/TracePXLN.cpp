#include "relays/pxln/TracePXLN.h"

#include "core/Etude.h"
#include "relays/FamillePXL.h"

namespace tournesol {

std::vector<SegmentImage> SegmentsPXLN(const Etude& e) {
    return SegmentsPXL(e, e.PXLN.Rmoc_HT, e.PXLN.deltaR_HT, e.PXLN.ZonesHT);
}

void DrawPXLN(Plan& plan, const OptionsAffichage& options) {
    DessinerPXL(plan, options, SegmentsPXLN(plan.etude()));
}

} // namespace tournesol
