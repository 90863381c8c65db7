#include "relays/rez1/TraceREZ1.h"

#include "core/Etude.h"
#include "core/Numerique.h"
#include "relays/rel100/TraceREL100.h"
#include "relays/rez1/CalculREZ1.h"

namespace tournesol {

std::vector<SegmentImage> SegmentsREZ1(const Etude& e) {
    std::vector<SegmentImage> s;
    const RelaisREZ1& r = e.REZ1;
    const double angle = DegToRad(e.teta);
    AjouterQuadrilatere(s, e.Rreg_HT, e.X3reg_HT, e.X4reg_HT, angle, e.CouleurTriphase,
                        TRAIT_PLEIN);
    AjouterQuadrilatere(s, r.Rpi_HT, r.Zpireg_HT, r.Zpireg_HT, angle, e.CouleurAntipompage,
                        TRAIT_PLEIN);
    const double k = FACTEUR_EXTERNE_REZ1;
    AjouterQuadrilatere(s, k * r.Rpi_HT, k * r.Zpireg_HT, k * r.Zpireg_HT, angle,
                        e.CouleurAntipompage, 1);
    AjouterDirectionnelEtZones(s, e);
    return s;
}

void DrawREZ1(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    ZoneColours(e);
    DessinerFigure(plan, options, {}, SegmentsREZ1(e));
}

} // namespace tournesol
