#include "relays/FamillePXL.h"

#include "core/Dialogue.h"
#include "diagnostics/ReglesGuide.h"
#include "network/Transit.h"

#include <array>

namespace tournesol {

namespace {

constexpr double MARGE_TRANSIT = 0.9 / 1.1;

// The distance of a load point to the line image, along R, with the margin.
double Distance(double phi, const Complexe& point) {
    return std::fabs(Div(std::sin(phi - point.Argument), std::sin(phi))) * point.Module *
           MARGE_TRANSIT;
}

// The load area of the report case in force.
void Transit(Etude& e) {
    TransitCalc(e);
    if (e.ErrCalcul != 0) LeverErreur(e.ErrCalcul);
}

// A plant link whose load lies beyond the third zone: the two first load points, else the
// generator's circle (feed 1) or the line's (feed 2).
std::vector<double> DistancesCentrale(const Etude& e) {
    const Complexe& n1 = e.PointsTransit[0];
    const Complexe& n2 = e.PointsTransit[1];
    const double hauteur = std::fabs(std::sin(n1.Argument)) * n1.Module;
    const double xprim3 = e.Ligne_Xprim3;
    const bool auDela =
        e.Ligne_alim == 1 ? xprim3 / MARGE_TRANSIT > hauteur : MARGE_TRANSIT * xprim3 > hauteur;
    if (auDela) return {Distance(e.PHI_eq, n1), Distance(e.PHI_eq, n2)};
    if (e.Ligne_alim == 1) {
        const double c = Div(1.5 * Carre(e.Vmin), e.Ligne_Pmax);
        const double d = (Racine(Carre(c) - Carre(xprim3)) + c) * MARGE_TRANSIT;
        return {d, d};
    }
    const double y = xprim3 - e.XL_eq;
    const double decalage = Div(e.XL_eq, std::tan(e.PHI_eq));
    return {Racine(Carre(n1.Module) - Carre(y)) + decalage,
            Racine(Carre(n2.Module) - Carre(y)) + decalage};
}

} // namespace

double DistanceTransitPXL(Etude& e, Dialogue& d, double x3) {
    const Entier16 cas = e.TypeReportCharge;
    std::vector<double> distances;
    switch (e.Ligne_alim) {
    case 0:
        // The three phase and the maximal report cases, each area pulled to its sectors.
        for (const int c : {0, 2}) {
            const std::array<Complexe, 9> points = PointsTransitTiresDuCas(e, c);
            for (std::size_t i = 0; i < 6; ++i)
                distances.push_back(Distance(e.PHI_eq, points[i]));
        }
        break;
    case 1:
    case 2:
        Transit(e);
        distances = DistancesCentrale(e);
        break;
    case 3: {
        Transit(e);
        // The third zone's percentage against an impedance, as the family's rule compares them.
        const double l = e.PointsTransit[0].Module * MARGE_TRANSIT;
        if (l < x3) d.Message("TOURNESOL", DONNEES_INCOMPATIBLES_PXL, 0);
        distances.push_back(Racine(std::fabs(Carre(x3) - Carre(l))) - Div(x3, std::tan(e.PHI_eq)));
        break;
    }
    default:
        LeverErreur(ERR_INDICE);
    }
    if (e.Ligne_alim == 0)
        RemettreCasDeReport(e, cas); // the area of the case in force, as it was
    else
        e.TypeReportCharge = cas;
    return Verifier(*std::min_element(distances.begin(), distances.end()));
}

std::vector<SegmentImage> SegmentsPXL(const Etude& e, double rmoc, double bande,
                                      const std::array<double, 5>& zonesHT) {
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
    const double rr = rmoc;
    const double av = zonesHT[3];
    const double ar = zonesHT[4];

    // The directional line through the origin, at 30 degrees below the R axis, as long as the
    // load impedance: by the transit current, or by the generator's apparent power.
    const bool centrale = e.Ligne_alim == 1 || e.Ligne_alim == 2;
    const double zc = centrale ? Div(3.0 * Carre(e.Vmin), e.Ligne_Smax)
                               : Div(1000.0 * e.Vmin, e.CRcourant * e.It);
    segment(Polar(zc, -PI / 6.0), Polar(-zc, -PI / 6.0), e.CouleurDirectionnel, 0);

    const Complexe prise[4] = {Cart(rr - ar / t, -ar), Cart(rr + av / t, av),
                               Cart(-rr + av / t, av), Cart(-rr - ar / t, -ar)};
    ferme(prise, e.CouleurTriphase);

    const double d = bande;
    const Complexe pompage[4] = {
        Cart(rr + d + (-d - ar) / t, -ar - d), Cart(rr + d + (d + av) / t, d + av),
        Cart(-rr - d + (d + av) / t, d + av), Cart(-rr - d + (-d - ar) / t, -ar - d)};
    ferme(pompage, e.CouleurAntipompage);

    for (std::size_t i = 0; i < 3; ++i) {
        const double x = zonesHT[i];
        segment(Cart(-rr + x / t, x), Cart(rr + x / t, x), e.CouleurZones, 2);
    }
    return s;
}

void ReglesCommunesPXL(Etude& e, const std::array<int, 6>& n, const std::array<double, 5>& z,
                       double bande) {
    const MargesGuide m = Marges(e);
    DefinirRegle(e, n[0], 1.2 * z[1] > z[2], 1.2 * z[1]);
    DefinirRegle(e, n[1], m.Rf < 1.15 * z[3], m.Rf / 1.15);
    DefinirRegle(e, n[2], m.Rf < 1.15 * (bande + z[3]), m.Rf / 1.15);
    DefinirRegle(e, n[3], m.Rb < 1.15 * z[4], m.Rb / 1.15);
    DefinirRegle(e, n[4], m.Rb < 1.15 * (bande + z[4]), m.Rb / 1.15);
    DefinirRegle(e, n[5], e.Ligne_lc && z[4] < m.T, m.T);
}

std::vector<TexteRegle> TextesReglesCommunesPXL(const std::array<int, 6>& n) {
    return {{.Numero = n[0],
             .Rapport = {"The third zone is lower than 1.2 times the second zone, i.e. "},
             .Fenetre = "The third zone is lower than 1.2 times the second zone, i. e.:"},
            {.Numero = n[1],
             .Rapport = {"The forward pick up risks to see the faults beyond the transformers of "
                         "the remote end",
                         "It must not overcome "},
             .Fenetre = "The downstream pick up may see the faults beyond the transformers of the "
                        "remote substation. It must not overcome:"},
            {.Numero = n[2],
             .Rapport = {"The external out of step risks to see the faults beyond the "
                         "transformers of the remote substation",
                         "Z2 might not overcome "},
             .Fenetre = "The external out of step may see the faults beyond the transformers of "
                        "the remote substation. It must not overcome:"},
            {.Numero = n[3],
             .Rapport = {"The backward pick up risks to see the faults beyond the transformers of "
                         "the close substation. ",
                         "It must not overcome "},
             .Fenetre = "The upstream pick up may see the faults beyond the transformers of the "
                        "close substation. It must not overcome:"},
            {.Numero = n[4],
             .Rapport = {"The external out of step risks to see the faults beyond the "
                         "transformers of the close substation",
                         "It might not overcome "},
             .Fenetre = "The external out of step may see the faults beyond the transformers of "
                        "the close substation. It must not overcome:"},
            {.Numero = n[5],
             .Rapport = {"the first zone of the relay located at the remote end risks to overcome",
                         "the backward zone of the relay", "That last one must be greater than "},
             .Fenetre = "the first zone of the remote relay may overcome the upstream zone of the "
                        "close relay. That last one must be at least equal to:"}};
}

void DessinerPXL(Plan& plan, const OptionsAffichage& options,
                 const std::vector<SegmentImage>& segments) {
    ZoneColours(plan.etude());
    DessinerFigure(plan, options, {}, segments);
}

} // namespace tournesol
