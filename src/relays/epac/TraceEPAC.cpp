#include "relays/epac/TraceEPAC.h"

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "relays/pd3a/TracePD3A.h"

#include <cmath>

namespace tournesol {

namespace {

constexpr double RACINE3 = 1.7320508075688772;

void Vides(std::vector<SegmentImage>& s, int n, Couleur couleur) {
    for (int i = 0; i < n; ++i) {
        s.emplace_back();
        SetSegment(s.back(), Cart(0.0, 0.0), Cart(0.0, 0.0), couleur, 0, 1);
    }
}

} // namespace

std::vector<SegmentImage> SegmentsEPAC(const Etude& e) {
    std::vector<SegmentImage> s;
    const RelaisEPAC& r = e.EPAC;
    const double t = std::tan(DegToRad(e.teta));
    if (t == 0.0) LeverErreur(ERR_DIVISION);
    // The resistive reach is set per loop: on a phase-to-earth loop it stands as the load
    // report factors share it, on a phase-to-phase loop half of it seen along the angle.
    const double cotg3 = Div(1.0, RACINE3 * t) + 1.0;
    const double rm = Div(e.Rreg_HT * e.Ligne_CRm, e.CRcourant);
    const double rt = e.Rreg_HT / 2.0 * cotg3;
    const double zc = Div(1000.0 * e.Vmin, e.Ligne_CRt * e.It);
    const bool mono = e.TypeReportCharge == 1;

    s.emplace_back();
    SetSegment(s.back(), Polar(zc, e.PHI_eq + PI / 2.0), Polar(zc, e.PHI_eq - PI / 2.0),
               e.CouleurDirectionnel, 1, 1);

    if (mono)
        PoserParallelogramme(s, rm, e.X3reg_HT, e.X4reg_HT, t, e.CouleurMonophase, 0, 1);
    else
        Vides(s, 4, e.CouleurMonophase);

    // The out-of-step zone surrounds the three-phase pick-up by its bands on every side.
    if (e.Pompage && !mono)
        PoserParallelogramme(s, rt + r.BandeR * cotg3, e.X3reg_HT + r.BandeX, e.X4reg_HT + r.BandeX,
                             t, e.CouleurAntipompage, 0, 1);
    else
        Vides(s, 4, e.CouleurAntipompage);

    if (mono)
        Vides(s, 4, e.CouleurTriphase);
    else
        PoserParallelogramme(s, rt, e.X3reg_HT, e.X4reg_HT, t, e.CouleurTriphase, 0, 1);

    const double largeur = mono ? rm : rt;
    for (const double x : {e.X1reg_HT, e.X2reg_HT, e.X3reg_HT}) {
        s.emplace_back();
        SetSegment(s.back(), Cart(largeur + x / t, x), Cart(-largeur + x / t, x), e.CouleurZones, 1,
                   1);
    }
    s.emplace_back();
    SetSegment(s.back(), Cart(largeur - e.X4reg_HT / t, -e.X4reg_HT),
               Cart(-largeur - e.X4reg_HT / t, -e.X4reg_HT), e.CouleurZones, 1, 1);
    return s;
}

void DrawEPAC(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    ZoneColours(e);
    DessinerFigure(plan, options, {}, SegmentsEPAC(e));
}

} // namespace tournesol
