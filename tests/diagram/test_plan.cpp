// The plane: scale, zoom, graduations and the plotting primitives on screen and paper.
#include "core/Etude.h"
#include "core/Numerique.h"
#include "diagram/Plan.h"
#include "diagram/SurfaceEnregistree.h"
#include "diagram/SurfaceSvg.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {
// A plane from -50 to 50 ohms on a surface of 1000 pixels: 10 pixels an ohm.
struct PlanEssai : ::testing::Test {
    Etude e;
    SurfaceEnregistree surface{1000.0, 1000.0};
    Plan plan{e, surface};
    void SetUp() override {
        e.ScaleLeft = -50.0f;
        e.ScaleTop = 50.0f;
        e.ScaleWidth = 100.0f;
        e.ScaleHeight = -100.0f;
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
    e.ScaleLeft = -12.0f;
    e.ScaleWidth = 24.0f;
    e.ScaleTop = 12.0f;
    e.ScaleHeight = -24.0f;
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
    e.ScaleLeft = -80.0f;
    e.ScaleWidth = 160.0f;
    e.ScaleTop = 80.0f;
    e.ScaleHeight = -160.0f;
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
    e.ScaleLeft = 0.0f;
    e.ScaleWidth = 3.0f;
    e.ScaleTop = 1.5f;
    e.ScaleHeight = -3.0f;
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
