#include "relays/rxap/TraceRXAP.h"

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

namespace {

constexpr double RACINE3 = 1.7320508075688772;

Complexe Plus(const Complexe& a, const Complexe& b) {
    return Cart(a.Re + b.Re, a.Im + b.Im);
}
Complexe Moins(const Complexe& a, const Complexe& b) {
    return Cart(a.Re - b.Re, a.Im - b.Im);
}

struct Dessin {
    FigureRXAP& f;

    void Segment(const Complexe& a, const Complexe& b, Couleur couleur, int style) {
        f.Segments.emplace_back();
        SetSegment(f.Segments.back(), a, b, couleur, style, 1);
    }
    void Arc(const Complexe& centre, const Complexe& debut, const Complexe& fin, Couleur couleur,
             int style) {
        f.Arcs.emplace_back();
        SetArc(f.Arcs.back(), centre, debut, fin, couleur, style, 1);
    }
    void ArcVide(Couleur couleur) { Arc(Cart(0, 0), Cart(0, 0), Cart(0, 0), couleur, TRAIT_POINT); }
    void SegmentVide(Couleur couleur) { Segment(Cart(0, 0), Cart(0, 0), couleur, TRAIT_POINT); }
};

// The directional line: through the pick-up circle's crossings of the 75 and 105 degree lines,
// seen at 130 and -50 degrees. A circle too small to cross them leaves the slot empty.
void Directionnel(const Etude& e, Dessin& d, double q) {
    const RelaisRXAP& r = e.RXAP;
    auto rayon = [&](double angle) {
        const double disque = r.MR * r.MR - Carre(r.Image * std::sin(DegToRad(angle)));
        if (disque < 0.0) return -1.0;
        return q * (r.Image * std::cos(DegToRad(angle)) + std::sqrt(disque));
    };
    const double haut = rayon(75.0);
    const double bas = rayon(105.0);
    if (haut < 0.0 || bas < 0.0) {
        d.SegmentVide(e.CouleurDirectionnel);
        return;
    }
    d.Segment(Polar(haut, DegToRad(130.0)), Polar(bas, DegToRad(-50.0)), e.CouleurDirectionnel,
              TRAIT_PLEIN);
}

void Cercles(const Etude& e, Dessin& d, double q, double phi30) {
    const RelaisRXAP& r = e.RXAP;
    const double image = r.AvecImage ? r.Image : 0.0;
    const Complexe centre = Polar(q * image, phi30);
    const Complexe prise = Polar(q * (image + r.MR), phi30);
    d.Arc(centre, prise, prise, e.CouleurTriphase, TRAIT_PLEIN);
    if (r.AvecPompage) {
        const Complexe pompage = Polar(q * (image + r.MRAP), phi30);
        d.Arc(centre, pompage, pompage, e.CouleurAntipompage, TRAIT_PLEIN);
    } else {
        d.ArcVide(e.CouleurAntipompage);
    }
    // Each zone from the circle's left side, or the directional line where it comes first, to
    // its right side.
    const double rayon = q * r.MR;
    const double cx = centre.Re;
    const double cy = centre.Im;
    for (const double x : {e.X1reg_HT, e.X2reg_HT}) {
        const double s = std::sqrt(std::fabs(rayon * rayon - Carre(x - cy)));
        const double gauche = std::max(cx - s, Div(x, std::tan(DegToRad(130.0))));
        d.Segment(Cart(gauche, x), Cart(cx + s, x), e.CouleurZones, TRAIT_TIRET);
    }
}

struct Stade {
    Complexe P1, P2, P3, P4;
};

// The stadium of an eccentricity: two arcs joined by two tangents along the angle phi30.
Stade Ellipse(const Etude& e, Dessin& d, double ex, double phi30, Couleur couleur) {
    const double nf = e.Kz * e.RXAP.focale;
    const double a = Racine(Div(1.0, 3.0 * ex * ex) - 0.25);
    const double decalage = Div(1.0, RACINE3 * ex);
    const Complexe c1 = Polar(nf * (a - decalage + 0.5), phi30);
    const Complexe c2 = Polar(nf * (-a + decalage + 0.5), phi30);
    const Complexe demi = Polar(nf * a, phi30 + PI / 2.0);
    const Stade s{Plus(c1, demi), Moins(c1, demi), Plus(c2, demi), Moins(c2, demi)};
    d.Arc(c1, s.P1, s.P2, couleur, TRAIT_PLEIN);
    d.Arc(c2, s.P4, s.P3, couleur, TRAIT_PLEIN);
    d.Segment(s.P1, s.P3, couleur, TRAIT_PLEIN);
    d.Segment(s.P2, s.P4, couleur, TRAIT_PLEIN);
    return s;
}

// The point of height x on the line through a and b.
double RALaHauteur(const Complexe& a, const Complexe& b, double x) {
    return a.Re + Div((x - a.Im) * (b.Re - a.Re), b.Im - a.Im);
}

void Ellipses(const Etude& e, Dessin& d, double phi30) {
    const RelaisRXAP& r = e.RXAP;
    Stade dernier = Ellipse(e, d, r.exmr, phi30, e.CouleurTriphase);
    if (r.AvecPompage) {
        dernier = Ellipse(e, d, r.exap, phi30, e.CouleurAntipompage);
    } else {
        for (int i = 0; i < 2; ++i)
            d.ArcVide(e.CouleurAntipompage);
        for (int i = 0; i < 2; ++i)
            d.SegmentVide(e.CouleurAntipompage);
    }
    for (const double x : {e.X1reg_HT, e.X2reg_HT})
        d.Segment(Cart(RALaHauteur(dernier.P1, dernier.P3, x), x),
                  Cart(RALaHauteur(dernier.P2, dernier.P4, x), x), e.CouleurZones, TRAIT_TIRET);
}

} // namespace

FigureRXAP FigureDuRXAP(const Etude& e) {
    FigureRXAP f;
    Dessin d{f};
    const double q = 2.0 * e.Kz / RACINE3;
    const double phi30 = DegToRad(e.RXAP.Arg - 30.0);
    Directionnel(e, d, q);
    if (e.RXAP.Cercle)
        Cercles(e, d, q, phi30);
    else
        Ellipses(e, d, phi30);
    return f;
}

void DrawRXAP(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    ZoneColours(e);
    const auto f = FigureDuRXAP(e);
    DessinerFigure(plan, options, f.Arcs, f.Segments);
}

} // namespace tournesol
