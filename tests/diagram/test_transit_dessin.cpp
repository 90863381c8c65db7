// The load area as drawn for each feed: which arcs, around which centres, with which names.
#include "LigneTransit.h"
#include "core/Etude.h"
#include "diagram/Plan.h"
#include "diagram/SurfaceEnregistree.h"

#include <cmath>
#include <gtest/gtest.h>
#include <set>

using namespace tournesol;

namespace {

struct Dessin {
    Etude e;
    SurfaceEnregistree surface{600.0, 600.0};
    Plan plan{e, surface};
    std::size_t traitsDuPlan = 0;

    Dessin(Etude etude, OptionsAffichage options = {}) : e(std::move(etude)) {
        TransitDraw(plan, options);
    }
    const Complexe& N(int n) const { return e.PointsTransit[static_cast<std::size_t>(n - 1)]; }
    std::set<std::string> Noms() const {
        std::set<std::string> noms;
        for (const EtiquettePlan& l : plan.Etiquettes())
            if (!l.Texte.empty() && (l.Texte[0] == 'N' || l.Texte[0] == 'C')) noms.insert(l.Texte);
        return noms;
    }
};

void ArcAttendu(const ArcImage& arc, const Complexe& centre, const Complexe& debut,
                const Complexe& fin) {
    EXPECT_NEAR(arc.Centre.Re, centre.Re, 1e-9);
    EXPECT_NEAR(arc.Centre.Im, centre.Im, 1e-9);
    EXPECT_NEAR(arc.Debut.Re, debut.Re, 1e-9);
    EXPECT_NEAR(arc.Debut.Im, debut.Im, 1e-9);
    EXPECT_NEAR(arc.Fin.Re, fin.Re, 1e-9);
    EXPECT_NEAR(arc.Fin.Im, fin.Im, 1e-9);
}

} // namespace

TEST(TransitDessin, LigneMaillee) {
    Dessin d(LigneTransit(0, 115.0, 20.0));
    ASSERT_FALSE(d.e.fNoIntersect);
    const auto& arcs = d.plan.Arcs();
    ASSERT_EQ(arcs.size(), 6u);
    const Complexe o = Cart(0, 0), w = Cart(d.e.RL_eq, d.e.XL_eq);
    const double k3 = 115.0 * 115.0 / (115.0 * 115.0 - 10000.0);
    const double k4 = 10000.0 / (10000.0 - 115.0 * 115.0);
    ArcAttendu(arcs[0], o, d.N(2), d.N(6));
    ArcAttendu(arcs[1], o, d.N(5), d.N(1));
    ArcAttendu(arcs[2], w, d.N(4), d.N(2));
    ArcAttendu(arcs[3], w, d.N(1), d.N(3));
    ArcAttendu(arcs[4], Cart(w.Re * k3, w.Im * k3), d.N(3), d.N(4));
    ArcAttendu(arcs[5], Cart(w.Re * k4, w.Im * k4), d.N(6), d.N(5));
    for (const ArcImage& a : arcs) {
        EXPECT_EQ(a.Couleur, d.e.CouleurTransit1);
        EXPECT_EQ(a.Style, TRAIT_PLEIN);
    }
    EXPECT_EQ(d.Noms(),
              (std::set<std::string>{"N1", "N2", "N3", "N4", "N5", "N6", "C1", "C2", "C3", "C4"}));
    // Line image, lines at 30 degrees, the two horizontal limits, after the axes.
    const auto& s = d.plan.Segments();
    ASSERT_EQ(s.size(), 2u + 2u + 2u + 2u);
    EXPECT_EQ(s[3].Largeur, 3);
    EXPECT_NEAR(s[3].B.Re, d.e.RL_eq, 1e-12);
    EXPECT_NEAR(s[4].B.Im, 150.0 * std::tan(3.14159265358979 / 6.0), 1e-9);
    EXPECT_NEAR(s[6].A.Im, (0.9 * 20.0 + 0.8 * 20.0) / 1.15, 1e-9); // far end XAV
    EXPECT_NEAR(s[7].A.Im, -(0.8 * 10.0) / 1.15, 1e-9);             // near end XAM
    EXPECT_EQ(s[6].Style, TRAIT_POINT);
    EXPECT_TRUE(d.e.ImpressionActuelle);
}

TEST(TransitDessin, CerclesQuiNeSeCoupentPas) {
    OptionsAffichage options;
    options.Cercles = true;
    Dessin d(LigneTransit(0, 115.0, 2.0), options);
    ASSERT_TRUE(d.e.fNoIntersect);
    ASSERT_EQ(d.plan.Arcs().size(), 2u);
    ArcAttendu(d.plan.Arcs()[0], Cart(0, 0), d.N(2), d.N(1));
    ArcAttendu(d.plan.Arcs()[1], Cart(d.e.RL_eq, d.e.XL_eq), d.N(1), d.N(2));
    EXPECT_EQ(d.Noms(), (std::set<std::string>{"N1", "N2", "C1", "C2"}));
    // Both arcs are "full": with chkcercles their rest is dotted.
    std::size_t pointilles = 0;
    for (const Trace& t : d.surface.traces)
        pointilles += t.genre == Trace::Arc && t.stylo.style == TRAIT_POINT;
    EXPECT_EQ(pointilles, 2u);
}

TEST(TransitDessin, LiaisonCentraleDesDeuxCotes) {
    Dessin d(LigneTransit(1, 120.0, 20.0));
    ASSERT_FALSE(d.e.fNoUp);
    ASSERT_FALSE(d.e.fNoDown);
    const double h = 1.5 * 10000.0 / 300.0;
    const double k3 = 14400.0 / 4400.0, k4 = -10000.0 / 4400.0;
    const Complexe w = Cart(d.e.RL_eq, d.e.XL_eq);
    // N1 was moved up to N7, above N3: no arc between them; N5 lies below N2.
    const auto& arcs = d.plan.Arcs();
    ASSERT_EQ(arcs.size(), 4u);
    ArcAttendu(arcs[0], Cart(0, 0), d.N(5), d.N(2));
    ArcAttendu(arcs[1], Cart(w.Re * k3, w.Im * k3), d.N(3), d.N(4));
    ArcAttendu(arcs[2], Cart(w.Re * k4, w.Im * k4), d.N(6), d.N(5));
    ArcAttendu(arcs[3], Cart(h, 0.0), d.N(2), d.N(1));
    // N3 and N7 stand on N1 and N8 on N2: they are not marked again.
    EXPECT_EQ(d.Noms(), (std::set<std::string>{"N1", "N2", "N4", "N5", "N6", "C2", "C3", "C4"}));

    // From the far end: the same arcs, turned half round about the middle of the line.
    Dessin loin(LigneTransit(2, 120.0, 20.0));
    const auto& miroir = loin.plan.Arcs();
    ASSERT_EQ(miroir.size(), 4u);
    ArcAttendu(miroir[0], w, loin.N(5), loin.N(2));
    EXPECT_NEAR(miroir[1].Centre.Re, w.Re * k4, 1e-9); // C4n in the place of C3
    EXPECT_NEAR(miroir[2].Centre.Im, w.Im * k3, 1e-9);
    ArcAttendu(miroir[3], Cart(w.Re - h, w.Im), loin.N(2), loin.N(1));
    for (std::size_t i = 0; i < 4; ++i) {
        const Complexe milieu = Cart(w.Re / 2.0, w.Im / 2.0);
        EXPECT_NEAR(miroir[i].Centre.Re + arcs[i].Centre.Re, 2.0 * milieu.Re, 1e-9) << i;
        EXPECT_NEAR(miroir[i].Debut.Im + arcs[i].Debut.Im, 2.0 * milieu.Im, 1e-9) << i;
    }
}

TEST(TransitDessin, LiaisonCentraleCourteEtLiaisonClient) {
    Dessin courte(LigneTransit(1, 120.0, 1.0));
    ASSERT_TRUE(courte.e.fNoUp);
    const auto& arcs = courte.plan.Arcs();
    ASSERT_EQ(arcs.size(), 3u);
    ArcAttendu(arcs[0], Cart(0, 0), courte.N(1), courte.N(4));
    ArcAttendu(arcs[1], Cart(0, 0), courte.N(6), courte.N(2));
    EXPECT_EQ(courte.Noms().count("C3"), 0u);
    EXPECT_EQ(courte.Noms().count("C2"), 1u);

    Etude client = LigneTransit(3, 115.0, 20.0);
    client.Ligne_itclient = 400.0;
    TransitCalc(client);
    Dessin radiale(client);
    ASSERT_EQ(radiale.plan.Arcs().size(), 1u);
    ArcAttendu(radiale.plan.Arcs()[0], Cart(0, 0), radiale.N(1), radiale.N(1));
    EXPECT_EQ(radiale.Noms(), (std::set<std::string>{"C"}));
    std::size_t cercles = 0;
    for (const Trace& t : radiale.surface.traces)
        cercles += t.genre == Trace::Cercle;
    EXPECT_EQ(cercles, 1u); // a whole circle of radius Vmin / It
}

TEST(TransitDessin, EntreesDeLaLegende) {
    OptionsAffichage options;
    options.Transit1 = false;
    options.Transit3 = false;
    options.Etiquettes = false;
    Dessin d(LigneTransit(0, 115.0, 20.0), options);
    EXPECT_TRUE(d.plan.Arcs().empty());
    EXPECT_EQ(d.plan.Segments().size(), 4u); // axes and the line image only
    EXPECT_TRUE(d.Noms().empty());
    std::size_t rouges = 0;
    for (const Trace& t : d.surface.traces)
        rouges += t.genre == Trace::Ligne && t.stylo.couleur == 255;
    EXPECT_EQ(rouges, 12u); // six neuralgic points, two strokes each
}
