#include "relays/s321/TraceS321.h"

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"

#include <cmath>

namespace tournesol {

namespace {

constexpr std::size_t ARCS = 4;
constexpr std::size_t SEGMENTS = 24;

struct Remplissage {
    FigureS321& f;
    std::size_t segment = 0;

    void Segment(const Complexe& a, const Complexe& b, Couleur couleur) {
        SetSegment(f.Segments.at(segment++), a, b, couleur, TRAIT_PLEIN, 1);
    }
    // The closed rectangle of those sides.
    void Rectangle(double droite, double gauche, double haut, double bas, Couleur couleur) {
        const Complexe p[4] = {Cart(droite, haut), Cart(-gauche, haut), Cart(-gauche, -bas),
                               Cart(droite, -bas)};
        for (int i = 0; i < 4; ++i)
            Segment(p[i], p[(i + 1) % 4], couleur);
    }
    // A zone of reactance x and resistance r: its top, its left side and its right side in the
    // zone's colour, its bottom, the directional line, in the directional colour.
    void Quadrilatere(const Etude& e, double x, double r, Couleur couleur) {
        const double phi = e.PHI_eq;
        const double kr = e.S321.KR;
        const double decalage = Div(x, std::tan(phi));
        const Complexe droite = Cart(kr * r + decalage, x);
        const Complexe gauche = Cart(-kr * r + decalage, x);
        const Complexe basGauche = Polar(kr * r * std::sin(phi), PI / 2.0 + phi);
        const Complexe basDroite = Polar(kr * r * std::sin(phi), phi - PI / 2.0);
        Segment(droite, gauche, couleur);
        Segment(basGauche, gauche, couleur);
        Segment(basGauche, basDroite, e.CouleurDirectionnel);
        Segment(droite, basDroite, couleur);
    }
};

} // namespace

FigureS321 FigureDuS321(const Etude& e) {
    FigureS321 f;
    f.Arcs.resize(ARCS);
    f.Segments.resize(SEGMENTS);
    const RelaisS321& r = e.S321;
    Remplissage remplir{f};
    if (e.TypeReportCharge == 1) {
        remplir.Quadrilatere(e, r.XG1, r.RG1, e.CouleurZones);
        remplir.Quadrilatere(e, r.XG2, r.RG2, e.CouleurZones);
        remplir.Quadrilatere(e, -r.XG3, r.RG3, e.CouleurMonophase);
        remplir.Quadrilatere(e, r.XG4, r.RG4, e.CouleurMonophase);
        return f;
    }
    // Circles through the origin, each along its angle.
    const double phi = e.PHI_eq;
    const struct {
        double z, angle;
        Couleur couleur;
    } cercles[ARCS] = {{r.Z1MG, phi, e.CouleurZones},
                       {r.Z2MG, phi, e.CouleurZones},
                       {r.Z3MG, phi + PI, e.CouleurTriphase},
                       {r.Z4MG, phi, e.CouleurTriphase}};
    for (std::size_t i = 0; i < ARCS; ++i) {
        const Complexe passage = Polar(cercles[i].z, cercles[i].angle);
        SetArc(f.Arcs[i], Polar(cercles[i].z / 2.0, cercles[i].angle), passage, passage,
               cercles[i].couleur, TRAIT_PLEIN, 1);
    }
    if (r.AvecPompage) {
        remplir.Rectangle(r.R1R6, r.R1L6, r.X1T6, r.X1B6, e.CouleurAntipompage);
        remplir.Rectangle(r.R1R5, r.R1L5, r.X1T5, r.X1B5, e.CouleurAntipompage);
    }
    return f;
}

void DrawS321(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    ZoneColours(e);
    const auto f = FigureDuS321(e);
    DessinerFigure(plan, options, f.Arcs, f.Segments);
}

} // namespace tournesol
