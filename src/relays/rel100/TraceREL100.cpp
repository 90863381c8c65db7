#include "relays/rel100/TraceREL100.h"

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "relays/rel100/CalculREL100.h"

#include <cmath>

namespace tournesol {

std::array<Complexe, 4> Quadrilatere(double r, double haut, double bas, double angle) {
    const double t = std::tan(angle);
    if (t == 0.0) LeverErreur(ERR_DIVISION);
    return {Cart(r - bas / t, -bas), Cart(r + haut / t, haut), Cart(-r + haut / t, haut),
            Cart(-r - bas / t, -bas)};
}

void AjouterQuadrilatere(std::vector<SegmentImage>& s, double r, double haut, double bas,
                         double angle, Couleur couleur, int style) {
    const auto coins = Quadrilatere(r, haut, bas, angle);
    for (std::size_t i = 0; i < coins.size(); ++i) {
        s.emplace_back();
        SetSegment(s.back(), coins[i], coins[(i + 1) % coins.size()], couleur, style, 1);
    }
}

void AjouterDirectionnelEtZones(std::vector<SegmentImage>& s, const Etude& e) {
    auto segment = [&](const Complexe& a, const Complexe& b, Couleur couleur, int style) {
        s.emplace_back();
        SetSegment(s.back(), a, b, couleur, style, 1);
    };
    const double angle = DegToRad(e.teta);
    const double r = e.Rreg_HT;
    // The directional line through the origin, square to the resistive sides, from one side to
    // the other.
    const double d = r * std::sin(angle);
    segment(Polar(d, angle + PI / 2.0), Polar(d, angle - PI / 2.0), e.CouleurDirectionnel, 1);
    // The first and second zones, across the pick-up.
    const double t = std::tan(angle);
    if (t == 0.0) LeverErreur(ERR_DIVISION);
    for (const double x : {e.X1reg_HT, e.X2reg_HT})
        segment(Cart(-r + x / t, x), Cart(r + x / t, x), e.CouleurZones, 2);
}

std::vector<SegmentImage> SegmentsREL100(const Etude& e) {
    std::vector<SegmentImage> s;
    const double angle = DegToRad(e.teta);
    for (const auto& [facteur, couleur] : {std::pair{1.0, e.CouleurTriphase},
                                           std::pair{FACTEUR_POMPAGE_REL100, e.CouleurAntipompage}})
        AjouterQuadrilatere(s, facteur * e.Rreg_HT, facteur * e.X3reg_HT, facteur * e.X4reg_HT,
                            angle, couleur, TRAIT_PLEIN);
    AjouterDirectionnelEtZones(s, e);
    return s;
}

void DrawREL100(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    ZoneColours(e);
    DessinerFigure(plan, options, {}, SegmentsREL100(e));
}

} // namespace tournesol
