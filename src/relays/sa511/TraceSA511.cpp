#include "relays/sa511/TraceSA511.h"

#include "core/Complexe.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

namespace {

// Two corners closer than this are one.
constexpr double CONFONDUS = 1e-9;

// The part of a closed polygon on one side of a horizontal line: below `x` when `dessous`,
// above it otherwise. The corners on the other side give way to the crossings of the sides
// with the line.
std::vector<Complexe> Couper(const std::vector<Complexe>& polygone, double x, bool dessous) {
    auto dedans = [&](const Complexe& p) { return dessous ? p.Im <= x : p.Im >= x; };
    std::vector<Complexe> garde;
    for (std::size_t i = 0; i < polygone.size(); ++i) {
        const Complexe& a = polygone[i];
        const Complexe& b = polygone[(i + 1) % polygone.size()];
        if (dedans(a)) garde.push_back(a);
        if (dedans(a) != dedans(b)) {
            const double t = (x - a.Im) / (b.Im - a.Im);
            garde.push_back(Cart(a.Re + t * (b.Re - a.Re), x));
        }
    }
    return garde;
}

// The corners without repeats, a side of no length being no side.
std::vector<Complexe> SansDoublons(const std::vector<Complexe>& coins) {
    std::vector<Complexe> uniques;
    for (const Complexe& p : coins) {
        if (!uniques.empty() && std::fabs(p.Re - uniques.back().Re) < CONFONDUS &&
            std::fabs(p.Im - uniques.back().Im) < CONFONDUS)
            continue;
        uniques.push_back(p);
    }
    while (uniques.size() > 1 && std::fabs(uniques.front().Re - uniques.back().Re) < CONFONDUS &&
           std::fabs(uniques.front().Im - uniques.back().Im) < CONFONDUS)
        uniques.pop_back();
    return uniques;
}

} // namespace

std::vector<Complexe> PolygoneSA511(double r1, double r2, double xv, double xm, double phi,
                                    double bande) {
    const double c = std::cos(phi);
    if (c == 0.0) LeverErreur(ERR_DIVISION);
    // The points of radius r / cos(phi) on the load angle's lines, pushed out along R.
    auto coin = [&](double r, double t, double sens) {
        Complexe p = Polar(r / c, t);
        return Cart(p.Re + sens * bande, p.Im);
    };
    const double a = r1, b = r2;
    const double cote = r2 + bande;
    const double haut = xv + bande, bas = -(xm + bande);
    // The vertical sides at +-r2 run past the horizontal ones; cutting at them closes the figure.
    const double loin = 2.0 * (std::fabs(haut) + std::fabs(bas) + std::fabs(a * std::tan(phi)) +
                               std::fabs(b * std::tan(phi))) +
                        1.0;
    std::vector<Complexe> coins{Cart(-cote, loin),
                                Cart(cote, loin),
                                coin(b, phi, 1.0),
                                coin(a, phi, 1.0),
                                coin(a, 2.0 * PI - phi, 1.0),
                                coin(b, 2.0 * PI - phi, 1.0),
                                Cart(cote, -loin),
                                Cart(-cote, -loin),
                                coin(b, PI + phi, -1.0),
                                coin(a, PI + phi, -1.0),
                                coin(a, PI - phi, -1.0),
                                coin(b, PI - phi, -1.0)};
    coins = Couper(Couper(coins, haut, true), bas, false);
    coins = SansDoublons(coins);
    // From the top left corner, clockwise, as the figure reads.
    const auto debut =
        std::min_element(coins.begin(), coins.end(), [](const auto& p, const auto& q) {
            return p.Im != q.Im ? p.Im > q.Im : p.Re < q.Re;
        });
    std::rotate(coins.begin(), debut, coins.end());
    return coins;
}

std::vector<SegmentImage> SegmentsSA511(const Etude& e) {
    const RelaisSA511& r = e.SA511;
    const double kz = e.Kz;
    std::vector<SegmentImage> s;
    auto segment = [&](const Complexe& a, const Complexe& b, Couleur couleur, int style) {
        s.emplace_back();
        SetSegment(s.back(), a, b, couleur, style, 1);
    };
    auto polygone = [&](double bande, Couleur couleur) {
        const std::vector<Complexe> coins =
            PolygoneSA511(r.RA1 * kz, r.RA2 * kz, r.XV * kz, r.XM * kz, r.Phia, bande);
        if (coins.size() < 3) return; // nothing is left between the two reactances
        for (std::size_t i = 0; i < coins.size(); ++i)
            segment(coins[i], coins[(i + 1) % coins.size()], couleur, TRAIT_PLEIN);
    };
    polygone(0.0, e.CouleurTriphase);
    polygone(r.deltaR * kz, e.CouleurAntipompage);

    // The directional line, through the origin, along the second zone's phase to earth sides.
    const double cosE = std::cos(r.Phiae);
    const double tanE = std::tan(r.Phiae);
    const double rayon = Div(r.R2E * kz, cosE);
    segment(Polar(rayon, PI - r.Phiae), Polar(rayon, 2.0 * PI - r.Phiae), e.CouleurDirectionnel, 1);

    // The first and second zones: their reach, and their resistive side down to the line
    // through the origin at -Phiae.
    for (const auto& [x, res] : {std::pair{r.X1, r.R1E}, std::pair{r.X2, r.R2E}}) {
        const Complexe coinZone = Cart(res * kz, x * kz);
        segment(Cart(-Div(x * kz, tanE), x * kz), coinZone, e.CouleurZones, 2);
        segment(Polar(Div(res * kz, cosE), -r.Phiae), coinZone, e.CouleurZones, 2);
    }
    return s;
}

void DrawSA511(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    ZoneColours(e);
    for (const SegmentImage& s : SegmentsSA511(e)) {
        if (!CouleurAffichee(e, options, s.Couleur)) continue;
        plan.DrawSegment(plan.NewSegment(s.A, s.B, s.Couleur, s.Style, s.Largeur), plan.Papier);
    }
}

} // namespace tournesol
