#include "relays/pds/TracePDS.h"

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"

#include <cmath>

namespace tournesol {

FigurePDS FigureDuPDS(const Etude& e) {
    FigurePDS f;
    const double teta = DegToRad(e.teta);
    const double avant = e.X3reg_HT, arriere = e.X4reg_HT;
    // The circle through the forward reach and the backward reach along the
    // angle.
    const Complexe centre = Polar((avant - arriere) / 2.0, teta);
    const double rayon = (avant + arriere) / 2.0;
    const Complexe passage = Polar(avant, teta);
    f.Arcs.emplace_back();
    SetArc(f.Arcs.back(), centre, passage, passage,
           e.TypeReportCharge == 1 ? e.CouleurMonophase : e.CouleurTriphase, TRAIT_PLEIN, 1);

    const double zc = Div(1000.0 * e.Vmin, e.Ligne_CRt * e.It);
    f.Segments.emplace_back();
    SetSegment(f.Segments.back(), Polar(zc, e.PHI_eq + PI / 2.0), Polar(zc, e.PHI_eq - PI / 2.0),
               e.CouleurDirectionnel, 1, 1);
    for (const double x : {e.X1reg_HT, e.X2reg_HT}) {
        f.Segments.emplace_back();
        const double h = x - centre.Im;
        // A reactance beyond the circle is no zone the relay can reach: its slot
        // stays empty.
        if (std::fabs(h) > rayon) {
            SetSegment(f.Segments.back(), Cart(0.0, 0.0), Cart(0.0, 0.0), e.CouleurZones, 1, 1);
            continue;
        }
        const double dr = std::sqrt(rayon * rayon - h * h);
        SetSegment(f.Segments.back(), Cart(centre.Re + dr, x), Cart(centre.Re - dr, x),
                   e.CouleurZones, 1, 1);
    }
    return f;
}

void DrawPDS(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    ZoneColours(e);
    const FigurePDS f = FigureDuPDS(e);
    DessinerFigure(plan, options, f.Arcs, f.Segments);
}

} // namespace tournesol
