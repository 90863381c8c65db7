// The drawing of the load area: first on the plane, ahead of the relay's characteristic.
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagram/Plan.h"
#include "network/Transit.h"

#include <cmath>

namespace tournesol {

namespace {

constexpr Couleur ROUGE = 255;

struct Dessin {
    Plan& plan;
    Etude& e;
    const OptionsAffichage& o;

    const Complexe& N(int n) const { return e.PointsTransit[static_cast<std::size_t>(n - 1)]; }

    // A line through the plane: from one point to another, both in ohms.
    void Trait(double r1, double x1, double r2, double x2, Couleur couleur, int style,
               int largeur) {
        plan.DrawSegment(plan.NewSegment(Cart(r1, x1), Cart(r2, x2), couleur, style, largeur),
                         plan.Papier);
    }

    // A labelled point: the name stands beside its cross, placed with the others at the end.
    void Point(const Complexe& p, Couleur couleur, const std::string& nom, bool nomme) {
        plan.DrawMark(plan.NewMark(p.Re, p.Im), couleur, plan.Papier);
        if (nomme) plan.NewPointLabel(nom, p);
    }

    void Arc(const Complexe& centre, const Complexe& debut, const Complexe& fin, bool plein) {
        plan.DrawArc(plan.NewArc(centre, debut, fin, e.CouleurTransit1, TRAIT_PLEIN, 1),
                     plein && o.Cercles, plan.Papier);
    }

    void Centre(const Complexe& c, const char* nom) {
        if (o.Points) Point(c, ROUGE, nom, o.Etiquettes);
    }
};

} // namespace

void TransitDraw(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    Dessin d{plan, e, options};

    TransformateursDesBouts(e);

    plan.DrawPlan();
    if (e.Superposition) return;

    const double gauche = e.ScaleLeft, droite = e.ScaleLeft + e.ScaleWidth;
    const double haut = e.ScaleTop, bas = e.ScaleTop + e.ScaleHeight;
    const Complexe o = Cart(0.0, 0.0);
    const Complexe w = Cart(e.RL_eq, e.XL_eq);

    if (options.Transit2) {
        const double pente = std::tan(e.PHI_eq);
        if (std::fabs(pente) > 1e-9)
            d.Trait(bas / pente, bas, haut / pente, haut, e.CouleurTransit2, TRAIT_TIRET_POINT, 1);
        else
            d.Trait(gauche, 0.0, droite, 0.0, e.CouleurTransit2, TRAIT_TIRET_POINT, 1);
        d.Trait(0.0, 0.0, w.Re, w.Im, e.CouleurTransit2, TRAIT_PLEIN, 3);
    }
    if (options.Transit3 && e.Ligne_alim == 0) {
        for (const double degres : {30.0, 150.0}) {
            const double pente = std::tan(DegToRad(degres));
            d.Trait(gauche, gauche * pente, droite, droite * pente, e.CouleurTransit3,
                    TRAIT_TIRET_POINT, 1);
        }
    }
    if (options.Transit1) {
        const double avant = (0.9 * e.ZL_eq + 0.8 * e.XtrDistant) / 1.15;
        const double arriere = -(0.8 * e.XtrProche) / 1.15;
        for (const double x : {avant, arriere})
            d.Trait(gauche, x, droite, x, e.CouleurTransit1, TRAIT_POINT, 1);
    }

    // The neuralgic points.
    if (options.Transit2 && options.Points) {
        auto marquer = [&](int n, Couleur couleur) {
            d.Point(d.N(n), couleur, "N" + std::to_string(n), options.Etiquettes);
        };
        if (e.Ligne_alim == 0) {
            for (int n = 1; n <= (e.fNoIntersect ? 2 : 6); ++n)
                marquer(n, ROUGE);
        } else if (e.Ligne_alim == 1 || e.Ligne_alim == 2) {
            const Couleur c = e.CouleurTransit2;
            marquer(1, c);
            marquer(2, c);
            if (!e.fNoUp && d.N(3).Argument != d.N(1).Argument) marquer(3, c);
            marquer(4, c);
            if (!e.fNoDown && d.N(5).Argument != d.N(2).Argument) marquer(5, c);
            marquer(6, c);
            if (!e.fNoP && d.N(7).Argument != d.N(1).Argument) marquer(7, c);
            if (d.N(8).Argument != d.N(2).Argument) marquer(8, c);
        }
    }

    if (options.Transit1) {
        const double vmax2 = Carre(e.Vmax), vmin2 = Carre(e.Vmin);
        auto echelle = [&w](double k) { return Cart(w.Re * k, w.Im * k); };
        const Complexe c3 = echelle(vmax2 / (vmax2 - vmin2));
        const Complexe c4 = echelle(vmin2 / (vmin2 - vmax2));
        const Complexe c4n = echelle(-vmin2 / (vmax2 - vmin2));
        switch (e.Ligne_alim) {
        case 0:
            if (e.fNoIntersect) {
                d.Arc(o, d.N(2), d.N(1), true);
                d.Arc(w, d.N(1), d.N(2), true);
                d.Centre(o, "C1");
                d.Centre(w, "C2");
            } else {
                d.Arc(o, d.N(2), d.N(6), true);
                d.Arc(o, d.N(5), d.N(1), false);
                d.Arc(w, d.N(4), d.N(2), true);
                d.Arc(w, d.N(1), d.N(3), false);
                d.Arc(c3, d.N(3), d.N(4), true);
                d.Arc(c4, d.N(6), d.N(5), true);
                d.Centre(o, "C1");
                d.Centre(w, "C2");
                d.Centre(c3, "C3");
                d.Centre(c4, "C4");
            }
            break;
        case 1:
        case 2: {
            // Seen from the far end, the area turns about the middle of the line.
            const bool loin = e.Ligne_alim == 2;
            const Complexe& origine = loin ? w : o;
            const Complexe& haute = loin ? c4n : c3;
            const Complexe& basse = loin ? c3 : c4n;
            const double h = 1.5 * vmin2 / e.Ligne_Pmax;
            const Complexe centreH = loin ? Cart(e.RL_eq - h, e.XL_eq) : Cart(h, 0.0);
            // "Below" is read on the area as the generator's side sees it: turned half round
            // from the far end.
            auto sous = [loin](const Complexe& a, const Complexe& b) {
                return loin ? a.Im > b.Im : a.Im < b.Im;
            };
            const bool n1SousN3 = sous(d.N(1), d.N(3));
            if (!e.fNoUp && !e.fNoDown) {
                if (n1SousN3) d.Arc(origine, d.N(1), d.N(3), true);
                if (sous(d.N(5), d.N(2))) d.Arc(origine, d.N(5), d.N(2), true);
                d.Arc(haute, d.N(3), d.N(4), true);
                d.Arc(basse, d.N(6), d.N(5), true);
                d.Centre(haute, "C3");
                d.Centre(basse, "C4");
            } else if (!e.fNoUp) {
                if (n1SousN3) {
                    d.Arc(origine, d.N(1), d.N(3), false);
                    d.Arc(origine, d.N(6), d.N(2), false);
                }
                d.Arc(haute, d.N(3), d.N(4), true);
                d.Centre(haute, "C3");
            } else {
                d.Arc(origine, d.N(1), d.N(4), true);
                d.Arc(origine, d.N(6), d.N(2), true);
            }
            d.Arc(centreH, d.N(2), d.N(1), true);
            d.Centre(centreH, "C2");
            break;
        }
        case 3:
            d.Arc(o, d.N(1), d.N(1), false);
            d.Centre(o, "C");
            break;
        default:
            break;
        }
    }
    plan.PlacerEtiquettesPoints();
    e.ImpressionActuelle = true;
}

} // namespace tournesol
