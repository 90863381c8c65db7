#include "relays/pxln/TracePXLN.h"

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"

#include <cmath>

namespace tournesol {

std::vector<SegmentImage> SegmentsPXLN(const Etude& e) {
    const RelaisPXLN& r = e.PXLN;
    std::vector<SegmentImage> s;
    auto segment = [&s](const Complexe& a, const Complexe& b, Couleur couleur, int style) {
        s.emplace_back();
        SetSegment(s.back(), a, b, couleur, style, 1);
    };
    auto ferme = [&](const Complexe(&p)[4], Couleur couleur) {
        for (int i = 0; i < 4; ++i)
            segment(p[i], p[(i + 1) % 4], couleur, 0);
    };
    const double t = std::tan(e.PHI_eq);
    if (t == 0.0) LeverErreur(ERR_DIVISION);
    const double rr = r.Rmoc_HT;
    const double av = r.ZonesHT[3];
    const double ar = r.ZonesHT[4];

    // The directional line through the origin, at 30 degrees below the R axis, as long as the
    // load impedance: by the transit current, or by the generator's apparent power.
    const bool centrale = e.Ligne_alim == 1 || e.Ligne_alim == 2;
    const double zc = centrale ? Div(3.0 * Carre(e.Vmin), e.Ligne_Smax)
                               : Div(1000.0 * e.Vmin, e.CRcourant * e.It);
    segment(Polar(zc, -PI / 6.0), Polar(-zc, -PI / 6.0), e.CouleurDirectionnel, 0);

    const Complexe prise[4] = {Cart(rr - ar / t, -ar), Cart(rr + av / t, av),
                               Cart(-rr + av / t, av), Cart(-rr - ar / t, -ar)};
    ferme(prise, e.CouleurTriphase);

    const double d = r.deltaR_HT;
    const Complexe pompage[4] = {
        Cart(rr + d + (-d - ar) / t, -ar - d), Cart(rr + d + (d + av) / t, d + av),
        Cart(-rr - d + (d + av) / t, d + av), Cart(-rr - d + (-d - ar) / t, -ar - d)};
    ferme(pompage, e.CouleurAntipompage);

    for (std::size_t i = 0; i < 3; ++i) {
        const double x = r.ZonesHT[i];
        segment(Cart(-rr + x / t, x), Cart(rr + x / t, x), e.CouleurZones, 2);
    }
    return s;
}

void DrawPXLN(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    ZoneColours(e);
    for (const SegmentImage& s : SegmentsPXLN(e)) {
        if (!CouleurAffichee(e, options, s.Couleur)) continue;
        plan.DrawSegment(plan.NewSegment(s.A, s.B, s.Couleur, s.Style, s.Largeur), plan.Papier);
    }
}

} // namespace tournesol
