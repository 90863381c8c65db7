#include "diagram/Plan.h"

#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Format.h"
#include "core/Numerique.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tournesol {

namespace {

constexpr Couleur BLANC = 0xFFFFFF;
constexpr Couleur NOIR = 0;
constexpr double RAYON_MAX = 2000.0;
constexpr double UN_DEGRE = PI / 180.0;

std::array<TraceCaracteristique, NOMBRE_RELAIS> traces{};

// The difference of two points, with no limit on its size.
Complexe Ecart(const Complexe& a, const Complexe& b) {
    Complexe d;
    d.Re = a.Re - b.Re;
    d.Im = a.Im - b.Im;
    CplxToPolar(d);
    return d;
}

bool Entre(double v, double a, double b) {
    return v >= std::min(a, b) && v <= std::max(a, b);
}

bool Fini(double a, double b, double c, double d) {
    return std::isfinite(a) && std::isfinite(b) && std::isfinite(c) && std::isfinite(d);
}

} // namespace

void SetSegment(SegmentImage& s, const Complexe& a, const Complexe& b, Couleur couleur, int style,
                int largeur) {
    s.A = a;
    s.B = b;
    s.Couleur = couleur;
    s.Style = static_cast<std::int16_t>(style);
    s.Largeur = static_cast<std::int16_t>(largeur);
}

void SetArc(ArcImage& arc, const Complexe& centre, const Complexe& debut, const Complexe& fin,
            Couleur couleur, int style, int largeur) {
    arc.Centre = centre;
    arc.Debut = debut;
    arc.Fin = fin;
    arc.Couleur = couleur;
    arc.Style = static_cast<std::int16_t>(style);
    arc.Largeur = static_cast<std::int16_t>(largeur);
}

bool SegmentCross(const SegmentImage& s1, const SegmentImage& s2, Complexe& point) {
    auto vertical = [](const SegmentImage& s) { return std::fabs(s.A.Re - s.B.Re) < 0.1; };
    auto pente = [](const SegmentImage& s) { return (s.B.Im - s.A.Im) / (s.B.Re - s.A.Re); };
    const bool v1 = vertical(s1), v2 = vertical(s2);
    if (v1 && v2) return false;
    if (!v1 && !v2) {
        const double m1 = pente(s1), m2 = pente(s2);
        if (m1 == m2) return false;
        const double p1 = s1.A.Im - m1 * s1.A.Re, p2 = s2.A.Im - m2 * s2.A.Re;
        point.Re = (p2 - p1) / (m1 - m2);
        point.Im = (p2 - p1) * m2 / (m1 - m2) + p2;
        CplxToPolar(point);
        // A point on the prolongation of one of them counts.
        return Entre(point.Re, s1.A.Re, s1.B.Re) || Entre(point.Re, s2.A.Re, s2.B.Re);
    }
    const SegmentImage& droit = v1 ? s1 : s2;
    const SegmentImage& penche = v1 ? s2 : s1;
    const double m = pente(penche), p = penche.A.Im - m * penche.A.Re;
    point.Im = m * point.Re + p; // the R the point held on entry
    point.Re = droit.A.Re;
    CplxToPolar(point);
    return Entre(point.Re, penche.A.Re, penche.B.Re);
}

bool CouleurAffichee(const Etude& e, const OptionsAffichage& options, Couleur couleur) {
    if (couleur == e.CouleurAntipompage) return options.Antipompage;
    if (couleur == e.CouleurMonophase) return options.Monophase;
    if (couleur == e.CouleurTriphase) return options.Triphase;
    if (couleur == e.CouleurZones) return options.Zones;
    if (couleur == e.CouleurDirectionnel) return options.Directionnel;
    return true;
}

void ZoneColours(Etude& e) {
    std::array<Couleur*, 5> couleurs = {&e.CouleurAntipompage, &e.CouleurMonophase,
                                        &e.CouleurTriphase, &e.CouleurZones,
                                        &e.CouleurDirectionnel};
    std::array<Couleur, 5> entree{};
    for (std::size_t i = 0; i < 5; ++i)
        entree[i] = *couleurs[i];
    for (std::size_t i = 0; i < 5; ++i)
        for (std::size_t j = i + 1; j < 5; ++j)
            if (entree[i] == entree[j]) {
                *couleurs[i] = entree[i] + 1;
                break;
            }
}

int PasGraduation(double largeur, double hauteur) {
    const double s = std::floor(std::min(std::fabs(largeur), std::fabs(hauteur)) / 10.0 + 0.5);
    auto arrondi = [s](double unite) { return std::floor(s / unite + 0.5) * unite; };
    double pas = 1.0;
    if (s < 2.0)
        pas = 1.0;
    else if (s < 8.0)
        pas = arrondi(5.0);
    else if (s < 60.0)
        pas = arrondi(10.0);
    else if (s < 150.0)
        pas = arrondi(25.0);
    else if (s < 600.0)
        pas = arrondi(100.0);
    else if (s < 1500.0)
        pas = arrondi(250.0);
    else
        pas = arrondi(1000.0);
    if (pas == 0.0) pas = 1.0;
    return static_cast<int>(std::min(pas, 1e9));
}

Plan::Plan(Etude& e, Surface& surface) : e_(e), surface_(&surface) {}

// ---- scale and zoom ----

void ZoomIdeal(Etude& e) {
    const double n = std::min(e.PointsTransit[0].Module, 200.0);
    if (!(n > 0.0)) return; // no load point yet: the window stays
    e.ScaleLeft = static_cast<float>(-1.5 * n);
    e.ScaleTop = static_cast<float>(1.5 * n);
    e.ScaleHeight = static_cast<float>(-3.0 * n);
    e.ScaleWidth = static_cast<float>(3.0 * n);
}

void ZoomPlus(Etude& e) {
    const float w = std::fabs(e.ScaleWidth), h = std::fabs(e.ScaleHeight);
    e.ScaleLeft = -w / 4;
    e.ScaleTop = h / 4;
    e.ScaleWidth = w / 2;
    e.ScaleHeight = -h / 2;
}

void ZoomMoins(Etude& e) {
    const float w = std::fabs(e.ScaleWidth), h = std::fabs(e.ScaleHeight);
    e.ScaleLeft = -w;
    e.ScaleTop = h;
    e.ScaleWidth = 2 * w;
    e.ScaleHeight = -2 * h;
}

bool ZoomCarre(Etude& e, double x0, double y0, double x1, double y1) {
    const double d = std::max(std::fabs(x0 - x1), std::fabs(y0 - y1));
    if (!(d > 0.0)) return false;
    e.ScaleLeft = static_cast<float>(x0 - d);
    e.ScaleTop = static_cast<float>(y0 + d);
    e.ScaleWidth = static_cast<float>(2.0 * d);
    e.ScaleHeight = static_cast<float>(-2.0 * d);
    return true;
}

// ---- mappings ----

double Plan::VersEcranX(double r) const {
    return (r - e_.ScaleLeft) * surface_->Largeur() / e_.ScaleWidth;
}
double Plan::VersEcranY(double x) const {
    return (x - e_.ScaleTop) * surface_->Hauteur() / e_.ScaleHeight;
}
double Plan::EcranVersPlanX(double px) const {
    return px * e_.ScaleWidth / surface_->Largeur() + e_.ScaleLeft;
}
double Plan::EcranVersPlanY(double py) const {
    return py * e_.ScaleHeight / surface_->Hauteur() + e_.ScaleTop;
}
double Plan::PlanToPrintX(double r) const {
    return (r - e_.ScaleLeft) * (PrintFrame.Width / e_.ScaleWidth) + PrintFrame.Left;
}
double Plan::PlanToPrintY(double x) const {
    return (e_.ScaleTop - x) * (PrintFrame.Width / e_.ScaleWidth) + PrintFrame.Top;
}
double Plan::PrintToPlanX(double x) const {
    return (x - PrintFrame.Left) / (PrintFrame.Width / e_.ScaleWidth) + e_.ScaleLeft;
}
double Plan::PrintToPlanY(double y) const {
    return e_.ScaleTop - (y - PrintFrame.Top) / (PrintFrame.Width / e_.ScaleWidth);
}

// ---- the plane ----

void Plan::ClearPlan() {
    etiquettes_.clear();
    occupees_.clear();
    nomsEnAttente_.clear();
    segments_.clear();
    arcs_.clear();
    marques_.clear();
}

void Plan::DrawPlan() {
    if (!(e_.ScaleWidth > 0.0f) || !(e_.ScaleHeight < 0.0f) || !std::isfinite(e_.ScaleWidth) ||
        !std::isfinite(e_.ScaleHeight)) {
        // A plane of no size cannot be drawn: back to the start values.
        e_.ScaleLeft = -20.0f;
        e_.ScaleWidth = 40.0f;
        e_.ScaleTop = 20.0f;
        e_.ScaleHeight = -40.0f;
    }
    ClearPlan();
    if (!Papier) surface_->Effacer(Fond);
    const double gauche = e_.ScaleLeft, haut = e_.ScaleTop;
    const double droite = gauche + e_.ScaleWidth, bas = haut + e_.ScaleHeight;
    DrawSegment(NewSegment(Cart(gauche, 0.0), Cart(droite, 0.0), Encre, TRAIT_PLEIN, 1), Papier);
    DrawSegment(NewSegment(Cart(0.0, haut), Cart(0.0, bas), Encre, TRAIT_PLEIN, 1), Papier);

    // The unit, primary ohms, in the upper right corner; the names of the axes at their ends,
    // the R above its axis, the X right of its axis. Each is placed whole inside the drawing.
    const double w = e_.ScaleWidth, h = -e_.ScaleHeight;
    const Boite limites = Limites();
    const double croix = DemiCroix();
    auto ecrire = [this](double x, double y, const std::string& texte, const Police& police,
                         bool centre) {
        DeplacerPlume(Papier ? PrintToPlanX(x) : EcranVersPlanX(x),
                      Papier ? PrintToPlanY(y) : EcranVersPlanY(y));
        if (centre)
            NewTickLabel(texte);
        else
            NewPlaneLabel(texte, police);
    };
    const Police ohm{PoliceEtiquettes.nom, 9.0}, primaire{PoliceEtiquettes.nom, 10.0};
    const TailleTexte o = surface_->Mesurer("\xCE\xA9", ohm);
    const TailleTexte p = surface_->Mesurer(" \xCE\xA0", primaire);
    const double marge =
        0.03 * std::min(limites.droite - limites.gauche, limites.bas - limites.haut);
    const double xUnite = limites.droite - marge - o.largeur - p.largeur;
    const double yUnite = limites.haut + marge + 0.5 * p.hauteur;
    ecrire(xUnite, yUnite, "\xCE\xA9", ohm, false);
    ecrire(xUnite + o.largeur, yUnite, " \xCE\xA0", primaire, false);
    const TailleTexte r = surface_->Mesurer("R ", PoliceEtiquettes);
    ecrire(limites.droite - 0.5 * r.largeur,
           std::clamp(SurfaceY(0.0) - croix - 0.5 * r.hauteur, limites.haut + 0.5 * r.hauteur,
                      std::max(limites.haut, limites.bas - 0.5 * r.hauteur)),
           "R ", PoliceEtiquettes, true);
    const TailleTexte x = surface_->Mesurer("X ", PoliceEtiquettes);
    ecrire(std::clamp(SurfaceX(0.0) + croix + 0.5 * x.largeur, limites.gauche + 0.5 * x.largeur,
                      std::max(limites.gauche, limites.droite - 0.5 * x.largeur)),
           limites.haut + 0.5 * x.hauteur, "X ", PoliceEtiquettes, true);

    const int pas = PasGraduation(e_.ScaleWidth, e_.ScaleHeight);
    e_.PasGrad = static_cast<Entier16>(std::min(pas, 32767));
    // The values stand under the R axis and left of the X axis, clear of the ticks. Each keeps
    // room from its neighbour: a value every n graduations, n the first of 1, 2, 5, 10, 20, ...
    // that gives the widest its room along R and a line's height along X.
    const double unitesR = Papier ? PrintFrame.Width / w : surface_->Largeur() / w;
    const double unitesX = Papier ? PrintFrame.Width / w : surface_->Hauteur() / h;
    auto texteDe = [](double valeur) { return FormaterNombre(valeur, ""); };
    const double plusLoinR = std::max(std::floor(-gauche / pas), std::floor(droite / pas)) * pas;
    const double plusLoinX = std::max(std::floor(-bas / pas), std::floor(haut / pas)) * pas;
    const TailleTexte largeR = surface_->Mesurer(texteDe(-plusLoinR), PoliceEtiquettes);
    const TailleTexte largeX = surface_->Mesurer(texteDe(-plusLoinX), PoliceEtiquettes);
    auto tous = [](double place, double espacement) {
        double n = 1.0;
        for (int i = 0; n * espacement < place && i < 30; ++i)
            n *= (i % 3 == 1) ? 2.5 : 2.0; // 1, 2, 5, 10, 20, 50, ...
        return static_cast<long long>(std::llround(n));
    };
    const long long tousR = tous(largeR.largeur + 0.5 * largeR.hauteur, pas * unitesR);
    const long long tousX = tous(1.3 * largeX.hauteur, pas * unitesX);
    std::vector<Boite> valeurs; // the values written so far
    auto graduer = [&](double re, double im, double valeur, bool surR) {
        DrawMark(NewMark(re, im), Encre, Papier);
        const long long rang = std::llround(std::fabs(valeur) / pas);
        if (valeur == 0.0 || rang % (surR ? tousR : tousX) != 0) return;
        const std::string texte = texteDe(valeur);
        const TailleTexte taille = surface_->Mesurer(texte, PoliceEtiquettes);
        double x = SurfaceX(re), y = SurfaceY(im);
        if (surR)
            y += croix + 0.6 * taille.hauteur;
        else
            x -= croix + 0.5 * taille.largeur + 0.3 * taille.hauteur;
        // A value near an edge is moved inside, to be read whole: "-80" cut to "80" would lie.
        const double demiL = 0.5 * taille.largeur, demiH = 0.5 * taille.hauteur;
        x = std::clamp(x, limites.gauche + demiL, std::max(limites.gauche, limites.droite - demiL));
        y = std::clamp(y, limites.haut + demiH, std::max(limites.haut, limites.bas - demiH));
        // Moved so, it may come onto its neighbour: then the neighbour alone is read.
        const Boite boite{x - demiL, y - demiH, x + demiL, y + demiH};
        for (const Boite& autre : valeurs)
            if (boite.gauche < autre.droite && autre.gauche < boite.droite &&
                boite.haut < autre.bas && autre.haut < boite.bas)
                return;
        valeurs.push_back(boite);
        DeplacerPlume(Papier ? PrintToPlanX(x) : EcranVersPlanX(x),
                      Papier ? PrintToPlanY(y) : EcranVersPlanY(y));
        NewTickLabel(texte);
    };
    for (double v = 0.0; v <= droite; v += pas)
        graduer(v, 0.0, v, true);
    for (double v = 0.0; v >= gauche; v -= pas)
        graduer(v, 0.0, v, true);
    for (double v = 0.0; v >= bas; v -= pas)
        graduer(0.0, v, v, false);
    for (double v = 0.0; v <= haut; v += pas)
        graduer(0.0, v, v, false);
}

double Plan::SurfaceX(double r) const {
    return Papier ? PlanToPrintX(r) : VersEcranX(r);
}

double Plan::SurfaceY(double x) const {
    return Papier ? PlanToPrintY(x) : VersEcranY(x);
}

Plan::Boite Plan::Limites() const {
    if (Papier)
        return {PrintFrame.Left, PrintFrame.Top, PrintFrame.Left + PrintFrame.Width,
                PrintFrame.Top + PrintFrame.Height};
    return {0.0, 0.0, surface_->Largeur(), surface_->Hauteur()};
}

double Plan::DemiCroix() const {
    return Papier ? 1.0 : 4.0; // two page units on paper, seven pixels on screen
}

// ---- segments ----

SegmentImage& Plan::NewSegment(const Complexe& a, const Complexe& b, Couleur couleur, int style,
                               int largeur) {
    SetSegment(CurSeg, a, b, couleur, style, largeur);
    segments_.push_back(CurSeg);
    return CurSeg;
}

Stylo Plan::StyloPapier(Couleur couleur, int style, int largeur) const {
    Stylo stylo;
    stylo.couleur = couleur == Fond ? BLANC : (e_.ImpNoir ? NOIR : couleur);
    stylo.style = e_.ImpNoDots ? TRAIT_PLEIN : style;
    stylo.largeur = largeur > 1 ? 3.0 * largeur : 1.0;
    return stylo;
}

void Plan::DrawSegment(const SegmentImage& s, bool papier) {
    if (!papier) {
        const double x1 = VersEcranX(s.A.Re), y1 = VersEcranY(s.A.Im);
        const double x2 = VersEcranX(s.B.Re), y2 = VersEcranY(s.B.Im);
        if (Fini(x1, y1, x2, y2))
            surface_->Ligne(x1, y1, x2, y2, Stylo{s.Couleur, s.Style, double(s.Largeur)});
        return;
    }
    Complexe a = s.A, b = s.B;
    if (b.Re < a.Re || b.Im < a.Im) std::swap(a, b);
    const double gauche = PrintToPlanX(PrintFrame.Left);
    const double droite = PrintToPlanX(PrintFrame.Left + PrintFrame.Width);
    const double haut = PrintToPlanY(PrintFrame.Top);
    const double bas = PrintToPlanY(PrintFrame.Top + PrintFrame.Height);
    if ((a.Re < gauche && b.Re < gauche) || (a.Re > droite && b.Re > droite) ||
        (a.Im > haut && b.Im > haut) || (a.Im < bas && b.Im < bas))
        return;
    const bool vertical = a.Re == b.Re;
    const double m = vertical ? 0.0 : (b.Im - a.Im) / (b.Re - a.Re);
    const double p = a.Im - m * a.Re;
    for (Complexe* bout : {&a, &b}) {
        if (bout->Re < gauche) {
            bout->Re = gauche;
            bout->Im = m * gauche + p;
        } else if (bout->Re > droite) {
            bout->Re = droite;
            bout->Im = m * droite + p;
        }
    }
    const bool horizontal = !vertical && m == 0.0;
    for (Complexe* bout : {&a, &b}) {
        const double limite = bout->Im > haut ? haut : (bout->Im < bas ? bas : bout->Im);
        if (limite == bout->Im || horizontal) continue;
        if (!vertical) bout->Re = (limite - p) / m;
        bout->Im = limite;
    }
    const double x1 = PlanToPrintX(a.Re), y1 = PlanToPrintY(a.Im);
    const double x2 = PlanToPrintX(b.Re), y2 = PlanToPrintY(b.Im);
    if (Fini(x1, y1, x2, y2))
        surface_->Ligne(x1, y1, x2, y2, StyloPapier(s.Couleur, s.Style, s.Largeur));
}

// ---- arcs ----

ArcImage& Plan::NewArc(const Complexe& centre, const Complexe& debut, const Complexe& fin,
                       Couleur couleur, int style, int largeur) {
    SetArc(CurArc, centre, debut, fin, couleur, style, largeur);
    arcs_.push_back(CurArc);
    return CurArc;
}

void Plan::DrawArc(const ArcImage& arc, bool cercleEntier, bool papier) {
    const Complexe d = Ecart(arc.Debut, arc.Centre);
    const Complexe f = Ecart(arc.Fin, arc.Centre);
    const double rayon = std::min(d.Module, RAYON_MAX);
    const double debut = d.Argument, fin = f.Argument;
    const bool entier = std::fabs(debut - fin) < UN_DEGRE; // an arc of nothing is a circle
    if (!std::isfinite(rayon) || !std::isfinite(arc.Centre.Re) || !std::isfinite(arc.Centre.Im))
        return;
    if (papier) {
        const Stylo stylo = StyloPapier(arc.Couleur, arc.Style, arc.Largeur);
        ArcPapier(arc, rayon, debut, fin, entier, stylo);
        if (cercleEntier && !entier)
            ArcPapier(arc, rayon, fin, debut, false, StyloPapier(arc.Couleur, TRAIT_POINT, 1));
        return;
    }
    const double cx = VersEcranX(arc.Centre.Re), cy = VersEcranY(arc.Centre.Im);
    const double r = rayon * std::fabs(surface_->Largeur() / e_.ScaleWidth);
    const Stylo stylo{arc.Couleur, arc.Style, double(arc.Largeur)};
    if (entier) {
        surface_->Cercle(cx, cy, r, stylo);
        return;
    }
    surface_->Arc(cx, cy, r, debut, fin, stylo);
    if (cercleEntier) surface_->Arc(cx, cy, r, fin, debut, Stylo{arc.Couleur, TRAIT_POINT, 1.0});
}

// On paper a circle never passes the frame: only the parts of the arc inside it are drawn.
void Plan::ArcPapier(const ArcImage& arc, double rayon, double debut, double fin, bool entier,
                     const Stylo& stylo) {
    const double gauche = PrintToPlanX(PrintFrame.Left);
    const double droite = PrintToPlanX(PrintFrame.Left + PrintFrame.Width);
    const double haut = PrintToPlanY(PrintFrame.Top);
    const double bas = PrintToPlanY(PrintFrame.Top + PrintFrame.Height);
    const double cx = arc.Centre.Re, cy = arc.Centre.Im;
    if (cy - rayon > haut || cy + rayon < bas || cx + rayon < gauche || cx - rayon > droite) return;
    double etendue = entier ? 2.0 * PI : std::fmod(fin - debut, 2.0 * PI);
    if (etendue < 0.0) etendue += 2.0 * PI;
    // The angles where the circle cuts an edge split the arc; each piece is inside or out.
    std::vector<double> coupures = {0.0, etendue};
    auto couper = [&](double angle) {
        double relatif = std::fmod(angle - debut, 2.0 * PI);
        if (relatif < 0.0) relatif += 2.0 * PI;
        if (relatif > 0.0 && relatif < etendue) coupures.push_back(relatif);
    };
    for (const double y : {haut, bas}) {
        const double t = (y - cy) / rayon;
        if (std::fabs(t) < 1.0) {
            couper(std::asin(t));
            couper(PI - std::asin(t));
        }
    }
    for (const double x : {gauche, droite}) {
        const double t = (x - cx) / rayon;
        if (std::fabs(t) < 1.0) {
            couper(std::acos(t));
            couper(-std::acos(t));
        }
    }
    std::sort(coupures.begin(), coupures.end());
    const double k = PrintFrame.Width / e_.ScaleWidth;
    const double pcx = PlanToPrintX(cx), pcy = PlanToPrintY(cy);
    if (coupures.size() == 2 && entier) {
        const double a = debut + PI / 4.0;
        const double x = cx + rayon * std::cos(a), y = cy + rayon * std::sin(a);
        if (x >= gauche && x <= droite && y >= bas && y <= haut)
            surface_->Cercle(pcx, pcy, rayon * k, stylo);
        return;
    }
    for (std::size_t i = 0; i + 1 < coupures.size(); ++i) {
        const double a0 = debut + coupures[i], a1 = debut + coupures[i + 1];
        if (a1 - a0 < 1e-12) continue;
        const double milieu = (a0 + a1) / 2.0;
        const double x = cx + rayon * std::cos(milieu), y = cy + rayon * std::sin(milieu);
        if (x >= gauche && x <= droite && y >= bas && y <= haut)
            surface_->Arc(pcx, pcy, rayon * k, a0, a1, stylo);
    }
}

// ---- marks and labels ----

Complexe& Plan::NewMark(double re, double im) {
    CurMark = Complexe{};
    CurMark.Re = re;
    CurMark.Im = im;
    CplxToPolar(CurMark);
    marques_.push_back(CurMark);
    return CurMark;
}

void Plan::DrawMark(const Complexe& point, Couleur couleur, bool papier) {
    if (papier) {
        const double x = PlanToPrintX(point.Re), y = PlanToPrintY(point.Im);
        if (!(x >= PrintFrame.Left && x <= PrintFrame.Left + PrintFrame.Width &&
              y >= PrintFrame.Top && y <= PrintFrame.Top + PrintFrame.Height))
            return;
        const Stylo stylo{e_.ImpNoir ? NOIR : couleur, TRAIT_PLEIN, 1.0};
        surface_->Ligne(x, y + 1.0, x, y - 1.0, stylo);
        surface_->Ligne(x - 1.0, y, x + 1.0, y, stylo);
        occupees_.push_back({x - 1.0, y - 1.0, x + 1.0, y + 1.0});
        return;
    }
    const double u = std::fabs(e_.ScaleWidth) / (surface_->Largeur() - 6.0);
    const Stylo stylo{couleur, TRAIT_PLEIN, 1.0};
    const double x = VersEcranX(point.Re), y = VersEcranY(point.Im);
    if (!Fini(x, y, u, 0.0)) return;
    surface_->Ligne(x, VersEcranY(point.Im - 3.0 * u), x, VersEcranY(point.Im + 4.0 * u), stylo);
    surface_->Ligne(VersEcranX(point.Re - 3.0 * u), y, VersEcranX(point.Re + 4.0 * u), y, stylo);
    occupees_.push_back({VersEcranX(point.Re - 3.0 * u), VersEcranY(point.Im + 4.0 * u),
                         VersEcranX(point.Re + 4.0 * u), VersEcranY(point.Im - 3.0 * u)});
    DeplacerPlume(point.Re + 4.0 * u, point.Im);
}

void Plan::DeplacerPlume(double r, double x) {
    CurrentX = r;
    CurrentY = x;
}

Plan::Boite Plan::BoiteTexte(double x, double y, const std::string& texte, const Police& police,
                             Alignement alignement) const {
    const TailleTexte taille = surface_->Mesurer(texte, police);
    const double gauche = alignement == Alignement::Centre ? x - taille.largeur / 2.0 : x;
    return {gauche, y - taille.hauteur / 2.0, gauche + taille.largeur, y + taille.hauteur / 2.0};
}

void Plan::Etiqueter(const std::string& texte, const Police& police, Alignement alignement,
                     Couleur couleur) {
    etiquettes_.push_back({texte, CurrentX, CurrentY, couleur, alignement, police});
    const double x = SurfaceX(CurrentX), y = SurfaceY(CurrentY);
    if (!Fini(x, y, 0.0, 0.0)) return;
    surface_->Texte(x, y, texte, Papier && e_.ImpNoir ? NOIR : couleur, police, alignement);
    occupees_.push_back(BoiteTexte(x, y, texte, police, alignement));
}

void Plan::NewPointLabel(const std::string& texte, const Complexe& point) {
    nomsEnAttente_.push_back({texte, point});
}

namespace {
double Recouvrement(const Plan::Boite& a, const Plan::Boite& b) {
    const double l = std::min(a.droite, b.droite) - std::max(a.gauche, b.gauche);
    const double h = std::min(a.bas, b.bas) - std::max(a.haut, b.haut);
    return l > 0.0 && h > 0.0 ? l * h : 0.0;
}
} // namespace

void Plan::PlacerEtiquettesPoints() {
    const Boite limites = Limites();
    const std::vector<NomDePoint> noms = std::move(nomsEnAttente_);
    nomsEnAttente_.clear();
    for (const NomDePoint& nom : noms) {
        const double x = SurfaceX(nom.point.Re), y = SurfaceY(nom.point.Im);
        if (!Fini(x, y, 0.0, 0.0)) continue;
        const TailleTexte taille = surface_->Mesurer(nom.texte, PoliceEtiquettes);
        const double demiL = taille.largeur / 2.0, demiH = taille.hauteur / 2.0;
        // The places in the order of preference, each a direction from the point.
        static constexpr double DIRECTIONS[][2] = {{1, -1}, {1, 1},  {-1, -1}, {-1, 1},
                                                   {1, 0},  {-1, 0}, {0, -1},  {0, 1}};
        double meilleur = std::numeric_limits<double>::infinity();
        double cx = x + DemiCroix() + demiL, cy = y - DemiCroix() - demiH;
        for (int loin = 0; loin < 3 && meilleur > 0.0; ++loin) {
            const double ecart = DemiCroix() + 0.1 * taille.hauteur + loin * taille.hauteur;
            for (const auto& d : DIRECTIONS) {
                const double px = x + d[0] * (ecart + demiL), py = y + d[1] * (ecart + demiH);
                const Boite boite{px - demiL, py - demiH, px + demiL, py + demiH};
                // Out of the drawing counts as covering: a name cut by the edge is not read.
                const bool dedans = boite.gauche >= limites.gauche &&
                                    boite.droite <= limites.droite && boite.haut >= limites.haut &&
                                    boite.bas <= limites.bas;
                double couvert =
                    dedans ? 0.0 : taille.largeur * taille.hauteur - Recouvrement(boite, limites);
                for (const Boite& prise : occupees_)
                    couvert += Recouvrement(boite, prise);
                if (couvert < meilleur) {
                    meilleur = couvert;
                    cx = px;
                    cy = py;
                    if (couvert <= 0.0) break;
                }
            }
        }
        DeplacerPlume(Papier ? PrintToPlanX(cx) : EcranVersPlanX(cx),
                      Papier ? PrintToPlanY(cy) : EcranVersPlanY(cy));
        NewTickLabel(nom.texte);
    }
}

void Plan::NewTickLabel(const std::string& texte) {
    Etiqueter(texte, PoliceEtiquettes, Alignement::Centre, Encre);
}

void Plan::NewTickLabel(double valeur) {
    NewTickLabel(FormaterNombre(valeur, ""));
}

void Plan::NewPlaneLabel(const std::string& texte, const Police& police) {
    Etiqueter(texte, police, Alignement::Gauche, Encre);
}

// ---- the redraw ----

void InscrireTraceRelais(int id_protection, TraceCaracteristique trace) {
    if (id_protection >= 1 && id_protection <= NOMBRE_RELAIS)
        traces[static_cast<std::size_t>(id_protection - 1)] = trace;
}

bool DrawCaracteristique(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    if (e.ErrCalcul != 0 || !e.RelaisPret || plan.CaracteristiqueSuspendue || e.id_protection < 1 ||
        e.id_protection > NOMBRE_RELAIS)
        return false;
    const auto trace = traces[static_cast<std::size_t>(e.id_protection - 1)];
    if (!trace) return false;
    ExecuterEtape([&] { trace(plan, options); });
    return true;
}

void DrawRelay(Plan& plan, const OptionsAffichage& options) {
    Etude& e = plan.etude();
    ExecuterEtape([&] { TransitDraw(plan, options); });
    DrawCaracteristique(plan, options);
    e.DiagramActuel = true;
}

bool EmplacementVide(const ArcImage& a) {
    return a.Debut.Module == 0.0 && a.Fin.Module == 0.0 && a.Centre.Module == 0.0;
}

bool EmplacementVide(const SegmentImage& s) {
    return s.A.Module == 0.0 && s.B.Module == 0.0;
}

void DessinerFigure(Plan& plan, const OptionsAffichage& options, const std::vector<ArcImage>& arcs,
                    const std::vector<SegmentImage>& segments) {
    Etude& e = plan.etude();
    for (const ArcImage& a : arcs)
        if (!EmplacementVide(a) && CouleurAffichee(e, options, a.Couleur))
            plan.DrawArc(plan.NewArc(a.Centre, a.Debut, a.Fin, a.Couleur, a.Style, a.Largeur),
                         false, plan.Papier);
    for (const SegmentImage& s : segments)
        if (!EmplacementVide(s) && CouleurAffichee(e, options, s.Couleur))
            plan.DrawSegment(plan.NewSegment(s.A, s.B, s.Couleur, s.Style, s.Largeur), plan.Papier);
}

} // namespace tournesol
