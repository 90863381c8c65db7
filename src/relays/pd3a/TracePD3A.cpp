#include "relays/pd3a/TracePD3A.h"

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"

#include <cmath>

namespace tournesol {

namespace {

constexpr double RACINE3 = 1.7320508075688772;

struct Trace {
    std::vector<SegmentImage>& segments;
    Couleur couleur;
    int style;
    int largeur;

    void Segment(const Complexe& a, const Complexe& b) {
        segments.emplace_back();
        SetSegment(segments.back(), a, b, couleur, style, largeur);
    }
    void Vides(int n) {
        for (int i = 0; i < n; ++i)
            Segment(Cart(0.0, 0.0), Cart(0.0, 0.0));
    }
    // The closed parallelogram of half width r between the forward reach haut and the backward
    // reach bas, its sides along the angle of tangent t.
    void Parallelogramme(double r, double haut, double bas, double t) {
        PoserParallelogramme(segments, r, haut, bas, t, couleur, style, largeur);
    }
};

} // namespace

void PoserParallelogramme(std::vector<SegmentImage>& s, double r, double haut, double bas, double t,
                          Couleur couleur, int style, int largeur) {
    const Complexe p[4] = {Cart(r - bas / t, -bas), Cart(r + haut / t, haut),
                           Cart(-r + haut / t, haut), Cart(-r - bas / t, -bas)};
    for (int i = 0; i < 4; ++i) {
        s.emplace_back();
        SetSegment(s.back(), p[i], p[(i + 1) % 4], couleur, style, largeur);
    }
}

std::vector<SegmentImage> SegmentsPD3A(const Etude& e) {
    std::vector<SegmentImage> s;
    const RelaisPD3A& r = e.PD3A;
    const double t = std::tan(DegToRad(e.teta));
    if (t == 0.0) LeverErreur(ERR_DIVISION);
    const double cotg3 = Div(1.0, RACINE3 * t) + 1.0;
    const double rm = Div(e.Rreg_HT * e.Ligne_CRm, e.CRcourant);
    const double rt = e.Rreg_HT / 2.0 * cotg3;
    const double dr = r.BandeR * cotg3;
    const double zc = Div(1000.0 * e.Vmin, e.Ligne_CRt * e.It);
    const bool mono = e.TypeReportCharge == 1;
    const bool tri = e.TypeReportCharge == 0 || e.TypeReportCharge == 2;

    Trace directionnel{s, e.CouleurDirectionnel, 1, 1};
    directionnel.Segment(Polar(zc, e.PHI_eq + PI / 2.0), Polar(zc, e.PHI_eq - PI / 2.0));

    Trace monophase{s, e.CouleurMonophase, 0, 1};
    if (mono)
        monophase.Parallelogramme(rm, e.X3reg_HT, e.X4reg_HT, t);
    else
        monophase.Vides(4);

    Trace antipompage{s, e.CouleurAntipompage, 0, 1};
    if (e.Pompage && tri) {
        antipompage.Vides(3);
        antipompage.Parallelogramme(rt + dr, e.X3reg_HT, r.BandeX + e.X4reg_HT, t);
    } else {
        antipompage.Vides(4);
    }

    Trace triphase{s, e.CouleurTriphase, 0, 1};
    triphase.Vides(1);
    if (tri) triphase.Parallelogramme(rt, e.X3reg_HT, e.X4reg_HT, t);

    Trace zones{s, e.CouleurZones, 1, 1};
    const double largeur = mono ? rm : rt;
    for (const double x : {e.X1reg_HT, e.X2reg_HT, e.X3reg_HT})
        zones.Segment(Cart(largeur + x / t, x), Cart(-largeur + x / t, x));
    zones.Segment(Cart(largeur - e.X4reg_HT / t, -e.X4reg_HT),
                  Cart(-largeur - e.X4reg_HT / t, -e.X4reg_HT));
    return s;
}

void DrawPD3A(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    ZoneColours(e);
    DessinerFigure(plan, options, {}, SegmentsPD3A(e));
}

} // namespace tournesol
