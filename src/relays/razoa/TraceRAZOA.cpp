#include "relays/razoa/TraceRAZOA.h"

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "relays/razoa/CalculRAZOA.h"

#include <cmath>

namespace tournesol {

namespace {

// A point of the shape's own frame (forward reach at 1 on the axis) on the plane: scaled by the
// forward reach, turned to the axis.
Complexe SurLePlan(double x, double y, double portee, double axe) {
    const double c = std::cos(axe), s = std::sin(axe);
    return Cart(portee * (x * c - y * s), portee * (x * s + y * c));
}

void Forme(std::vector<ArcImage>& arcs, const Etude& e, double portee, double axe,
           Couleur couleur) {
    const RelaisRAZOA& r = e.RAZOA;
    const FormeRAZOA forme = FormeDeLaPriseRAZOA(r.Lentille, r.D);
    auto arc = [&](const DisqueRAZOA& disque, const Complexe& debut, const Complexe& fin) {
        arcs.emplace_back();
        SetArc(arcs.back(), SurLePlan(disque.Xc, disque.Yc, portee, axe), debut, fin, couleur,
               TRAIT_PLEIN, 1);
    };
    const Complexe avant = SurLePlan(1.0, 0.0, portee, axe);
    const Complexe arriere = SurLePlan(-r.D, 0.0, portee, axe);
    if (forme.Nombre == 1) {
        // A whole circle: it starts and ends at the forward reach.
        arc(forme.Disques[0], avant, avant);
        return;
    }
    // The disc whose centre stands below the axis gives the upper arc, from the forward reach to
    // the backward one; the other the lower arc, back.
    arc(forme.Disques[0], avant, arriere);
    arc(forme.Disques[1], arriere, avant);
}

} // namespace

std::vector<ArcImage> ArcsRAZOA(const Etude& e) {
    std::vector<ArcImage> arcs;
    const RelaisRAZOA& r = e.RAZOA;
    const double kz = e.Kz;
    const double zf = r.Zfreg * kz;
    if (e.TypeReportCharge == 1) {
        const double portee = 2.0 * Div(zf * e.Ligne_CRm, e.Ceq);
        Forme(arcs, e, portee, DegToRad(e.teta), e.CouleurMonophase);
    } else {
        Forme(arcs, e, 2.0 / std::sqrt(3.0) * zf, DegToRad(e.teta + 30.0), e.CouleurTriphase);
    }
    return arcs;
}

void DrawRAZOA(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    ZoneColours(e);
    for (const ArcImage& a : ArcsRAZOA(e)) {
        if (!CouleurAffichee(e, options, a.Couleur)) continue;
        plan.DrawArc(plan.NewArc(a.Centre, a.Debut, a.Fin, a.Couleur, a.Style, a.Largeur), false,
                     plan.Papier);
    }
}

} // namespace tournesol
