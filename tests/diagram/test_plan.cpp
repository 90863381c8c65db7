// The plane: scale, zoom, graduations and the plotting primitives on screen and paper.
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagram/Plan.h"
#include "diagram/SurfaceEnregistree.h"
#include "diagram/SurfaceSvg.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {
// A plane from -50 to 50 ohms on a surface of 1000 pixels: 10 pixels an ohm.
struct PlanEssai : ::testing::Test {
    Etude e;
    SurfaceEnregistree surface{1000.0, 1000.0};
    Plan plan{e, surface};
    void SetUp() override { Echelle(-50.0f, 50.0f, 100.0f); }
    // A square plane of that side, its upper left corner at (gauche, haut).
    void Echelle(float gauche, float haut, float cote) {
        e.ScaleLeft = gauche;
        e.ScaleTop = haut;
        e.ScaleWidth = cote;
        e.ScaleHeight = -cote;
    }
    std::vector<Trace> DuGenre(Trace::Genre g) const {
        std::vector<Trace> r;
        for (const Trace& t : surface.traces)
            if (t.genre == g) r.push_back(t);
        return r;
    }
};
} // namespace

TEST(Graduations, PasSelonLaTailleDuPlan) {
    EXPECT_EQ(PasGraduation(8.0, -8.0), 1);            // s = 1
    EXPECT_EQ(PasGraduation(25.0, -25.0), 5);          // s = 3
    EXPECT_EQ(PasGraduation(120.0, -120.0), 10);       // s = 12
    EXPECT_EQ(PasGraduation(20.0, -20.0), 1);          // s = 2 gives a step of 0
    EXPECT_EQ(PasGraduation(1000.0, -600.0), 50);      // the smaller side: s = 60, 2 x 25
    EXPECT_EQ(PasGraduation(3000.0, -3000.0), 300);    // s = 300, 3 x 100
    EXPECT_EQ(PasGraduation(20000.0, -20000.0), 2000); // s = 2000, 2 x 1000
}

TEST_F(PlanEssai, DessinDuPlan) {
    Echelle(-12.0f, 12.0f, 24.0f);
    plan.DrawPlan();
    EXPECT_EQ(e.PasGrad, 1); // s = 2
    ASSERT_EQ(plan.Segments().size(), 2u);
    EXPECT_EQ(plan.Segments()[0].A.Re, -12.0);
    EXPECT_EQ(plan.Segments()[1].B.Im, -12.0);
    // 13 graduations right (0 to 12), 13 left, 13 down, 13 up; a label for all but 0.
    EXPECT_EQ(plan.Marques().size(), 52u);
    std::size_t valeurs = 0;
    for (const EtiquettePlan& l : plan.Etiquettes())
        valeurs += l.Texte == "-7";
    EXPECT_EQ(valeurs, 2u);
    EXPECT_EQ(plan.Etiquettes()[0].Texte, "\xCE\xA9"); // the unit: primary ohms
    EXPECT_EQ(plan.Etiquettes()[1].Texte, " \xCE\xA0");
    EXPECT_EQ(surface.traces.front().genre, Trace::Effacement);

    // A second drawing starts from an empty plane.
    plan.DrawPlan();
    EXPECT_EQ(plan.Marques().size(), 52u);

    // A plane of no size comes back to the start values.
    e.ScaleWidth = 0.0f;
    plan.DrawPlan();
    EXPECT_EQ(e.ScaleWidth, 40.0f);
    EXPECT_EQ(e.ScaleLeft, -20.0f);
}

TEST_F(PlanEssai, LesValeursDesBordsSeLisentEntieres) {
    // -80 and 80 on the edges of a plane of 160 ohms on 400 pixels: their labels, centred on
    // their tick, would lose half of their text; they are moved inside the surface.
    SurfaceEnregistree petite(400.0, 400.0);
    Plan p(e, petite);
    Echelle(-80.0f, 80.0f, 160.0f);
    p.DrawPlan();
    int bords = 0;
    for (const Trace& t : petite.traces) {
        if (t.genre != Trace::Texte || (t.texte != "-80" && t.texte != "80")) continue;
        ++bords;
        const double demi = 0.3 * t.police.taille * static_cast<double>(t.texte.size());
        EXPECT_GE(t.x1 - demi, 0.0) << t.texte;
        EXPECT_LE(t.x1 + demi, 400.0) << t.texte;
        EXPECT_GE(t.y1 - t.police.taille / 2.0, 0.0) << t.texte;
        EXPECT_LE(t.y1 + t.police.taille / 2.0, 400.0) << t.texte;
    }
    EXPECT_EQ(bords, 4); // left, right, bottom, top
}

TEST_F(PlanEssai, Zoom) {
    e.PointsTransit[0] = Polar(500.0, 0.3);
    ZoomIdeal(e);
    EXPECT_EQ(e.ScaleWidth, 600.0f); // the load point counts for 200 at most
    EXPECT_EQ(e.ScaleLeft, -300.0f);
    EXPECT_EQ(e.ScaleHeight, -600.0f);

    ASSERT_TRUE(ZoomCarre(e, 100.0, 50.0, 110.0, 70.0));
    EXPECT_EQ(e.ScaleLeft, 80.0f); // a square of 2 x 20 centred on the first point
    EXPECT_EQ(e.ScaleTop, 70.0f);
    EXPECT_EQ(e.ScaleWidth, 40.0f);
    ZoomPlus(e); // the origin comes back to the centre
    EXPECT_EQ(e.ScaleLeft, -10.0f);
    EXPECT_EQ(e.ScaleTop, 10.0f);
    EXPECT_EQ(e.ScaleWidth, 20.0f);
    EXPECT_EQ(e.ScaleHeight, -20.0f);
    ZoomMoins(e);
    EXPECT_EQ(e.ScaleLeft, -20.0f);
    EXPECT_EQ(e.ScaleWidth, 40.0f);

    EXPECT_FALSE(ZoomCarre(e, 5.0, 5.0, 5.0, 5.0)); // no size: nothing changes
    EXPECT_EQ(e.ScaleWidth, 40.0f);
}

TEST_F(PlanEssai, SegmentSurPapier) {
    // A frame of 300 page units showing 0 to 3 ohms: 100 units an ohm.
    Echelle(0.0f, 1.5f, 3.0f);
    plan.PrintFrame = {100.0, 200.0, 300.0, 300.0};
    EXPECT_EQ(plan.PlanToPrintX(1.0), 200.0);
    EXPECT_EQ(plan.PlanToPrintY(0.5), 300.0);
    EXPECT_EQ(plan.PrintToPlanX(200.0), 1.0);
    EXPECT_EQ(plan.PrintToPlanY(300.0), 0.5);

    SegmentImage s;
    SetSegment(s, Cart(5.0, 0.0), Cart(-5.0, 0.0), 0x123456, TRAIT_TIRET, 2);
    plan.DrawSegment(s, true);
    auto lignes = DuGenre(Trace::Ligne);
    ASSERT_EQ(lignes.size(), 1u);
    EXPECT_DOUBLE_EQ(lignes[0].x1, 100.0); // clipped to the two edges
    EXPECT_DOUBLE_EQ(lignes[0].x2, 400.0);
    EXPECT_DOUBLE_EQ(lignes[0].y1, 350.0);
    EXPECT_EQ(lignes[0].stylo.couleur, 0x123456);
    EXPECT_EQ(lignes[0].stylo.style, TRAIT_TIRET);
    EXPECT_EQ(lignes[0].stylo.largeur, 6.0); // a wide pen is tripled on paper
    EXPECT_EQ(s.A.Re, 5.0);                  // the record stays as it was

    SetSegment(s, Cart(4.0, 0.0), Cart(6.0, 1.0), 0, TRAIT_PLEIN, 1);
    plan.DrawSegment(s, true);
    EXPECT_EQ(DuGenre(Trace::Ligne).size(), 1u); // wholly beyond the right edge

    // A sloped segment leaving by the top is cut there; a vertical one too.
    SetSegment(s, Cart(1.0, 0.0), Cart(2.0, 2.0), 0, TRAIT_PLEIN, 1);
    plan.DrawSegment(s, true);
    EXPECT_DOUBLE_EQ(DuGenre(Trace::Ligne).back().x2, plan.PlanToPrintX(1.75));
    EXPECT_DOUBLE_EQ(DuGenre(Trace::Ligne).back().y2, 200.0);
    SetSegment(s, Cart(1.0, -3.0), Cart(1.0, 3.0), 0, TRAIT_PLEIN, 1);
    plan.DrawSegment(s, true);
    EXPECT_DOUBLE_EQ(DuGenre(Trace::Ligne).back().y1, 500.0);
    EXPECT_DOUBLE_EQ(DuGenre(Trace::Ligne).back().y2, 200.0);

    // Colours on paper: the background prints white, black printing, no dots.
    SetSegment(s, Cart(1.0, 0.0), Cart(2.0, 0.0), plan.Fond, TRAIT_POINT, 1);
    plan.DrawSegment(s, true);
    EXPECT_EQ(DuGenre(Trace::Ligne).back().stylo.couleur, 0xFFFFFF);
    e.ImpNoir = true;
    e.ImpNoDots = true;
    SetSegment(s, Cart(1.0, 0.0), Cart(2.0, 0.0), 0x00FF00, TRAIT_POINT, 1);
    plan.DrawSegment(s, true);
    EXPECT_EQ(DuGenre(Trace::Ligne).back().stylo.couleur, 0);
    EXPECT_EQ(DuGenre(Trace::Ligne).back().stylo.style, TRAIT_PLEIN);
}

TEST(SegmentCross, CasDuSysteme) {
    SegmentImage quasiVertical, penche, autre, parallele;
    SetSegment(quasiVertical, Cart(10.0, -5.0), Cart(10.05, 5.0), 0, 0, 1);
    SetSegment(penche, Cart(0.0, 0.0), Cart(20.0, 20.0), 0, 0, 1);
    Complexe p;
    p.Re = 4.0; // the R held on entry enters the point's X
    EXPECT_TRUE(SegmentCross(quasiVertical, penche, p));
    EXPECT_EQ(p.Re, 10.0);
    EXPECT_EQ(p.Im, 4.0);

    SetSegment(parallele, Cart(0.0, 5.0), Cart(20.0, 25.0), 0, 0, 1);
    EXPECT_FALSE(SegmentCross(penche, parallele, p));

    // The lines cut at (15, 15): within the first, beyond the second; "or" counts it.
    SetSegment(autre, Cart(20.0, 10.0), Cart(30.0, 0.0), 0, 0, 1);
    EXPECT_TRUE(SegmentCross(penche, autre, p));
    EXPECT_DOUBLE_EQ(p.Re, 15.0);
    EXPECT_DOUBLE_EQ(p.Im, 15.0);
    SegmentImage court;
    SetSegment(court, Cart(0.0, 0.0), Cart(5.0, 5.0), 0, 0, 1);
    EXPECT_FALSE(SegmentCross(court, autre, p)); // beyond both

    SegmentImage v2;
    SetSegment(v2, Cart(3.0, 0.0), Cart(3.0, 9.0), 0, 0, 1);
    p = Cart(7.0, 7.0);
    EXPECT_FALSE(SegmentCross(quasiVertical, v2, p));
    EXPECT_EQ(p.Re, 7.0); // left alone
}

TEST_F(PlanEssai, Arcs) {
    ArcImage arc;
    // 0.5 degree apart: a whole circle.
    SetArc(arc, Cart(0.0, 0.0), Polar(10.0, 0.0), Polar(10.0, DegToRad(0.5)), 0xFF, 0, 1);
    plan.DrawArc(arc, true, false);
    ASSERT_EQ(DuGenre(Trace::Cercle).size(), 1u);
    EXPECT_DOUBLE_EQ(DuGenre(Trace::Cercle)[0].rayon, 100.0);
    EXPECT_TRUE(DuGenre(Trace::Arc).empty());

    // A quarter circle, then the rest in dots with the whole-circle flag.
    SetArc(arc, Cart(10.0, 0.0), Cart(20.0, 0.0), Cart(10.0, 10.0), 0xFF, 0, 1);
    plan.DrawArc(arc, true, false);
    const auto arcs = DuGenre(Trace::Arc);
    ASSERT_EQ(arcs.size(), 2u);
    EXPECT_DOUBLE_EQ(arcs[0].x1, 600.0);
    EXPECT_DOUBLE_EQ(arcs[0].debut, 0.0);
    EXPECT_DOUBLE_EQ(arcs[0].fin, PI / 2.0);
    EXPECT_EQ(arcs[0].stylo.style, TRAIT_PLEIN);
    EXPECT_DOUBLE_EQ(arcs[1].debut, PI / 2.0);
    EXPECT_DOUBLE_EQ(arcs[1].fin, 0.0);
    EXPECT_EQ(arcs[1].stylo.style, TRAIT_POINT);

    // A radius beyond 2000 ohms is drawn at 2000.
    SetArc(arc, Cart(0.0, 0.0), Cart(0.0, 0.0), Cart(0.0, 0.0), 0, 0, 1);
    arc.Debut.Re = 5000.0;
    arc.Fin.Im = 5000.0;
    plan.DrawArc(arc, false, false);
    EXPECT_DOUBLE_EQ(DuGenre(Trace::Arc).back().rayon, 20000.0);

    // On paper only what lies inside the frame is drawn.
    plan.PrintFrame = {0.0, 0.0, 100.0, 100.0}; // the whole plane, one unit an ohm
    SetArc(arc, Cart(45.0, 0.0), Cart(55.0, 0.0), Cart(55.0, 0.0), 0, 0, 1);
    plan.DrawArc(arc, false, true); // a circle cut by the right edge
    const auto morceaux = DuGenre(Trace::Arc);
    EXPECT_NEAR(morceaux.back().debut, std::acos(0.5), 1e-12);
    EXPECT_NEAR(morceaux.back().fin, 2.0 * PI - std::acos(0.5), 1e-12);
    const std::size_t avant = surface.traces.size();
    SetArc(arc, Cart(80.0, 0.0), Cart(85.0, 0.0), Cart(85.0, 0.0), 0, 0, 1);
    plan.DrawArc(arc, false, true); // wholly beyond the right edge
    EXPECT_EQ(surface.traces.size(), avant);
}

TEST_F(PlanEssai, MarquesEtCouleursDesZones) {
    plan.DrawMark(plan.NewMark(10.0, 20.0), 0xFF, false);
    const auto lignes = DuGenre(Trace::Ligne);
    ASSERT_EQ(lignes.size(), 2u);
    const double u = 100.0 / 994.0; // one pixel in ohms
    EXPECT_DOUBLE_EQ(lignes[0].y1, plan.VersEcranY(20.0 - 3.0 * u));
    EXPECT_DOUBLE_EQ(lignes[1].x2, plan.VersEcranX(10.0 + 4.0 * u));
    EXPECT_EQ(plan.CurMark.Re, 10.0);

    e.CouleurAntipompage = 5;
    e.CouleurMonophase = 7;
    e.CouleurTriphase = 5;
    e.CouleurZones = 7;
    e.CouleurDirectionnel = 9;
    ZoneColours(e); // each against the values on entry of the ones after it
    EXPECT_EQ(e.CouleurAntipompage, 6);
    EXPECT_EQ(e.CouleurMonophase, 8);
    EXPECT_EQ(e.CouleurTriphase, 5);
    EXPECT_EQ(e.CouleurZones, 7);
    EXPECT_EQ(e.CouleurDirectionnel, 9);
}

namespace {
// Each text drawn on a recording surface and the room it takes there, as the surface measures.
std::vector<std::pair<std::string, Plan::Boite>> Textes(const SurfaceEnregistree& s) {
    std::vector<std::pair<std::string, Plan::Boite>> textes;
    for (const Trace& t : s.traces) {
        if (t.genre != Trace::Texte) continue;
        const TailleTexte taille = s.Mesurer(t.texte, t.police);
        const double gauche = t.alignement == Alignement::Centre ? t.x1 - taille.largeur / 2 : t.x1;
        textes.push_back({t.texte,
                          {gauche, t.y1 - taille.hauteur / 2, gauche + taille.largeur,
                           t.y1 + taille.hauteur / 2}});
    }
    return textes;
}
bool SeRecouvrent(const Plan::Boite& a, const Plan::Boite& b) {
    const double marge = 1e-9;
    return a.gauche < b.droite - marge && b.gauche < a.droite - marge && a.haut < b.bas - marge &&
           b.haut < a.bas - marge;
}
bool EstUnNombre(const std::string& t) {
    return !t.empty() && (std::isdigit(static_cast<unsigned char>(t.back())) != 0) &&
           t.find_first_not_of("-0123456789.") == std::string::npos;
}
} // namespace

TEST_F(PlanEssai, LesNomsDesPointsSeLisentEntiersEtSeparement) {
    // 100 ohms on 300 pixels: two pairs of points a fraction of an ohm apart, a point on a
    // graduation of the R axis, one in the upper right corner, one alone.
    SurfaceEnregistree petite(300.0, 300.0);
    Plan p(e, petite);
    p.DrawPlan();
    const std::pair<std::string, Complexe> points[] = {
        {"N1", Cart(20.0, 5.0)},   {"N3", Cart(20.6, 5.4)}, {"N2", Cart(-20.0, -5.0)},
        {"N6", Cart(-20.0, -4.2)}, {"C3", Cart(10.0, 0.0)}, {"N4", Cart(49.0, 49.0)},
        {"N5", Cart(-30.0, 30.0)}};
    for (const auto& [nom, point] : points) {
        p.DrawMark(p.NewMark(point.Re, point.Im), 0xFF, false);
        p.NewPointLabel(nom, point);
    }
    const std::size_t avant = Textes(petite).size(); // the names wait for every mark
    p.PlacerEtiquettesPoints();
    const auto textes = Textes(petite);
    EXPECT_EQ(textes.size(), avant + 7);
    int noms = 0;
    for (const auto& [texte, boite] : textes) {
        if (texte.size() != 2 || (texte[0] != 'N' && texte[0] != 'C')) continue;
        ++noms;
        EXPECT_GE(boite.gauche, 0.0) << texte;
        EXPECT_LE(boite.droite, 300.0) << texte;
        EXPECT_GE(boite.haut, 0.0) << texte;
        EXPECT_LE(boite.bas, 300.0) << texte;
        for (const auto& [autre, sienne] : textes) {
            if (&sienne == &boite) continue;
            EXPECT_FALSE(SeRecouvrent(boite, sienne)) << texte << "/" << autre;
        }
        for (const Complexe& m : p.Marques()) {
            const double x = p.VersEcranX(m.Re), y = p.VersEcranY(m.Im);
            EXPECT_FALSE(SeRecouvrent(boite, {x - 3, y - 4, x + 4, y + 3}))
                << texte << " on the mark at " << m.Re << ", " << m.Im;
        }
    }
    EXPECT_EQ(noms, 7);
    // A name with room stands at the upper right of its point.
    const auto n5 =
        std::find_if(textes.begin(), textes.end(), [](const auto& t) { return t.first == "N5"; });
    ASSERT_NE(n5, textes.end());
    EXPECT_GT(n5->second.gauche, p.VersEcranX(-30.0));
    EXPECT_LT(n5->second.bas, p.VersEcranY(30.0));
}

TEST_F(PlanEssai, LesValeursDesGraduationsNeSeTouchentPas) {
    // 200 ohms on 200 pixels: a graduation every 20 ohms, 20 pixels, less than "-100" is wide;
    // along R a value every second graduation, along X, a line high, every one.
    SurfaceEnregistree etroite(200.0, 200.0);
    Plan p(e, etroite);
    Echelle(-100.0f, 100.0f, 200.0f);
    p.DrawPlan();
    ASSERT_EQ(e.PasGrad, 20);
    EXPECT_EQ(p.Marques().size(), 24u); // every graduation keeps its tick
    std::vector<std::pair<std::string, Plan::Boite>> valeurs;
    for (const auto& t : Textes(etroite))
        if (EstUnNombre(t.first)) valeurs.push_back(t);
    auto combien = [&valeurs](const std::string& v) {
        return std::count_if(valeurs.begin(), valeurs.end(),
                             [&v](const auto& t) { return t.first == v; });
    };
    EXPECT_EQ(combien("-100"), 1); // on X; on R the widest value would touch its neighbours
    EXPECT_EQ(combien("-80"), 2);
    EXPECT_EQ(combien("40"), 2);
    EXPECT_EQ(combien("20"), 1);
    for (std::size_t i = 0; i < valeurs.size(); ++i)
        for (std::size_t j = i + 1; j < valeurs.size(); ++j)
            EXPECT_FALSE(SeRecouvrent(valeurs[i].second, valeurs[j].second))
                << valeurs[i].first << "/" << valeurs[j].first;
}

TEST(SurfaceSvg, Document) {
    SurfaceSvg svg(200.0, 100.0);
    svg.Effacer(0xFFFFFF);
    svg.Ligne(0, 0, 10, 10, Stylo{0x0000FF, TRAIT_TIRET_POINT, 1.0});
    svg.Arc(50, 50, 10, 0.0, PI / 2.0, Stylo{0x00FF00, TRAIT_PLEIN, 1.0});
    svg.Texte(5, 5, "N1 <&>", 0, Police{}, Alignement::Centre);
    const std::string doc = svg.Document();
    EXPECT_NE(doc.find("stroke=\"#ff0000\" stroke-width=\"1\" stroke-dasharray=\"8,3,2,3\""),
              std::string::npos);
    EXPECT_NE(doc.find("<path d=\"M 60 50 A 10 10 0 0 0 50 40\""), std::string::npos);
    EXPECT_NE(doc.find(">N1 &lt;&amp;&gt;</text>"), std::string::npos);
    EXPECT_NE(doc.find("viewBox=\"0 0 200 100\""), std::string::npos);
}
