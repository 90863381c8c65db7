// Two relays on one plane: the table of positions, the seven layouts, the first layout from the
// names, the common box, the setting blocks of every relay, the images and their display flags.
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "diagram/Plan.h"
#include "diagram/SurfaceEnregistree.h"
#include "printing/PageEnregistree.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"
#include "superposition/ImpressionSuperposition.h"
#include "superposition/PanneauSuperposer.h"
#include "superposition/Positions.h"
#include "superposition/Superposition.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>

using namespace tournesol;
namespace fs = std::filesystem;

namespace {

const fs::path EXEMPLES = TOURNESOL_EXEMPLES;
// The two ends of one 225 kV line: the PD3A at CHAMPAGNIER, the S 321-5 at GRANDE ILE.
const fs::path BOUTS[2] = {EXEMPLES / "champagnier-grande-ile-225kV.json",
                           EXEMPLES / "grande-ile-champagnier-225kV-s321.json"};

// An example study run from Open to the first drawing, as the command line runs it.
bool Charger(Etude& e, const fs::path& fichier) {
    InscrireRelais();
    InitRegistre(e);
    PreparerOuverture(e);
    LireFichierEtude(fichier, e);
    DialogueSansFenetre d;
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    InitEtude(e, d, options);
    return e.ErrCalcul == 0;
}

std::vector<ValeurTR> Valeurs(const BlocReglages& bloc) {
    std::vector<ValeurTR> v;
    MagasinBloc copie = bloc.Reglages;
    for (std::size_t i = 0; i < copie.Taille(); ++i)
        v.push_back(copie.LireValeur(0, static_cast<std::int32_t>(i)));
    return v;
}

// The characteristic of the working relay, figure by figure.
std::vector<std::array<double, 4>> Figure(Etude& e) {
    SurfaceEnregistree surface(400.0, 400.0);
    Plan plan(e, surface);
    e.RelaisPret = true;
    e.ErrCalcul = 0;
    DrawCaracteristique(plan, OptionsAffichage{});
    std::vector<std::array<double, 4>> f;
    for (const SegmentImage& s : plan.Segments())
        f.push_back({s.A.Re, s.A.Im, s.B.Re, s.B.Im});
    for (const ArcImage& a : plan.Arcs())
        f.push_back({a.Centre.Re, a.Centre.Im, a.Debut.Re, a.Fin.Im});
    return f;
}

bool Proche(const Complexe& c, double r, double x) {
    return std::fabs(c.Re - r) < 1e-9 && std::fabs(c.Im - x) < 1e-9;
}

} // namespace

TEST(Positions, LesQuatrePositionsDUnePlaceEtLesSeptDispositions) {
    // In each position, the point (2, 5) of an image and the line image (R, X) = (1, 4), the far
    // end of the other line at (3, 10).
    const struct {
        int position;
        double pr, px, der, dex, ar, ax;
    } places[] = {{1, 2.0, 5.0, 0.0, 0.0, 1.0, 4.0},
                  {2, 1.0, 5.0, 3.0, 10.0, 2.0, 6.0},
                  {3, 5.0, 15.0, 3.0, 10.0, 4.0, 14.0},
                  {4, -2.0, -5.0, 0.0, 0.0, -1.0, -4.0}};
    for (const auto& c : places) {
        EXPECT_TRUE(Proche(PlacerPoint(Cart(2.0, 5.0), c.position, 3.0, 10.0), c.pr, c.px))
            << c.position;
        const LignePlacee l = PlacerLigne(c.position, 1.0, 4.0, 3.0, 10.0);
        EXPECT_TRUE(Proche(l.De, c.der, c.dex)) << c.position;
        EXPECT_TRUE(Proche(l.A, c.ar, c.ax)) << c.position;
    }

    // The seven layout buttons and their positions.
    const int attendues[7][2] = {{1, 1}, {1, 2}, {2, 1}, {1, 3}, {3, 1}, {1, 4}, {4, 1}};
    Etude e;
    Superposition s(e);
    EXPECT_EQ(s.Disposition(), 1);
    EXPECT_FALSE(s.ChoisirDisposition(1)); // in force at the start
    for (int n = 7; n >= 1; --n) {
        EXPECT_TRUE(s.ChoisirDisposition(n));
        EXPECT_EQ(s.PlaceNumero(1).Position, attendues[n - 1][0]) << BOUTONS_DISPOSITION[n - 1];
        EXPECT_EQ(s.PlaceNumero(2).Position, attendues[n - 1][1]) << BOUTONS_DISPOSITION[n - 1];
        EXPECT_EQ(s.Disposition(), n);
    }
    // The layout already pressed, or one that does not exist, changes nothing.
    EXPECT_FALSE(s.ChoisirDisposition(1));
    EXPECT_FALSE(s.ChoisirDisposition(8));
    EXPECT_FALSE(s.ChoisirDisposition(0));
    EXPECT_EQ(s.Disposition(), 1);
}

TEST(Positions, PremiereDispositionDesSixCasDeNoms) {
    // Another line, nowhere near the first.
    EXPECT_EQ(PremiereDisposition("A", "B", "C", "D"), 1);
    // The second relay at C on the line C - A: it looks at the first relay's substation.
    EXPECT_EQ(PremiereDisposition("A", "B", "C", "A"), 5);
    // At the far end B, on another line B - D: beyond the first line.
    EXPECT_EQ(PremiereDisposition("A", "B", "B", "D"), 4);
    // At the far end B of the same line, looking back at A.
    EXPECT_EQ(PremiereDisposition("A", "B", "B", "A"), 2);
    // At the same substation on another line: looking backwards.
    EXPECT_EQ(PremiereDisposition("A", "B", "A", "D"), 6);
    // The same names: both images on one another.
    EXPECT_EQ(PremiereDisposition("A", "B", "A", "B"), 1);
    // The comparison is exact, letter case included.
    EXPECT_EQ(PremiereDisposition("A", "B", "b", "a"), 1);
}

TEST(Positions, BoiteCommuneCarreeEnOhmsEntiersAvecSaMarge) {
    Etendue a, b;
    a.Ajouter(-3.2, 40.5);
    a.Ajouter(10.1, -5.0);
    b.Ajouter(2.0, 60.2);
    // The box -4 to 11 by -5 to 61: 15 ohms wide, 66 high; squared to 66 about its middle,
    // then 4 ohms of margin on each side (a twentieth of 66, in whole ohms).
    const FenetrePlan f = AjusterBoite(a, b);
    EXPECT_FLOAT_EQ(f.Width, 74.0f);
    EXPECT_FLOAT_EQ(f.Height, -74.0f);
    EXPECT_FLOAT_EQ(f.Left, -4.0f - 25.0f - 4.0f);
    EXPECT_FLOAT_EQ(f.Top, 61.0f + 4.0f);
    // Both boxes inside.
    for (const Etendue& e : {a, b}) {
        EXPECT_GE(e.Gauche, f.Left);
        EXPECT_LE(e.Droite, f.Left + f.Width);
        EXPECT_LE(e.Haut, f.Top);
        EXPECT_GE(e.Bas, f.Top + f.Height);
    }
    // A wide box grows in height, equally up and down.
    Etendue large;
    large.Ajouter(0.0, 0.0);
    large.Ajouter(100.0, 10.0);
    const FenetrePlan g = AjusterBoite(large, Etendue{});
    EXPECT_FLOAT_EQ(g.Width, 110.0f);
    EXPECT_FLOAT_EQ(g.Top, 10.0f + 45.0f + 5.0f);
    // Nothing to fit: the start window.
    const FenetrePlan vide = AjusterBoite(Etendue{}, Etendue{});
    EXPECT_FLOAT_EQ(vide.Left, -20.0f);
    EXPECT_FLOAT_EQ(vide.Width, 40.0f);
}

// Every example study: its block kept, the working variables then taken by another study, the
// block restored: the same list value for value and type for type, the same line, the same
// characteristic.
TEST(BlocsDeReglages, ChaqueRelaisDesExemplesRevientTelQuel) {
    std::map<fs::path, int> exemples;
    for (const auto& entree : fs::directory_iterator(EXEMPLES))
        if (entree.path().extension() == ".json") exemples[entree.path()] = 0;
    ASSERT_GE(exemples.size(), 2u);
    std::set<int> relais;
    const fs::path autre = EXEMPLES / "saint-marcel-papeteries-63kV-client.json";
    for (auto& [chemin, id] : exemples) {
        SCOPED_TRACE(chemin.filename().string());
        Etude e;
        ASSERT_TRUE(Charger(e, chemin));
        id = e.id_protection;
        BlocReglages bloc;
        if (!SauverReglage(e, bloc)) continue;
        relais.insert(id);
        const auto figure = Figure(e);
        EXPECT_FALSE(figure.empty()); // a characteristic compared, not an empty figure
        const double xl = e.XL_eq, kz = e.Kz, vmin = e.Vmin;
        const Entier16 pp = e.Ligne_pp;

        Etude f;
        ASSERT_TRUE(Charger(f, chemin == autre ? BOUTS[0] : autre));
        f.id_protection = bloc.IdProtection;
        ASSERT_TRUE(RestaurerReglage(f, bloc));
        BlocReglages encore;
        ASSERT_TRUE(SauverReglage(f, encore));
        EXPECT_EQ(Valeurs(encore), Valeurs(bloc));
        EXPECT_EQ(f.XL_eq, xl);
        EXPECT_EQ(f.Kz, kz);
        EXPECT_EQ(f.Vmin, vmin);
        EXPECT_EQ(f.Ligne_pp, pp);
        EXPECT_EQ(Figure(f), figure);
    }
    // Every relay has an example and a list.
    EXPECT_EQ(relais.size(), 12u);
}

// Every relay that registered a list, examples or not: a block of values all different, restored
// and kept again, gives the same list, in the same types.
TEST(BlocsDeReglages, ChaqueListeInscriteEstUnMiroir) {
    InscrireRelais();
    int listes = 0;
    for (int id = 1; id <= NOMBRE_RELAIS; ++id) {
        SCOPED_TRACE(id);
        Etude e;
        e.id_protection = id;
        BlocReglages modele;
        if (!SauverReglage(e, modele)) continue;
        ++listes;
        for (std::size_t i = 0; i < modele.Reglages.Taille(); ++i) {
            const auto pos = static_cast<std::int32_t>(i);
            ValeurTR v = modele.Reglages.LireValeur(0, pos);
            const double k = static_cast<double>(i);
            if (std::holds_alternative<double>(v))
                v = 1.5 + k;
            else if (std::holds_alternative<float>(v))
                v = static_cast<float>(0.25 + k);
            else if (std::holds_alternative<std::int16_t>(v))
                v = static_cast<std::int16_t>(i % 2 ? -1 : 0); // a Boolean keeps -1 and 0
            else if (std::holds_alternative<std::int32_t>(v))
                v = static_cast<std::int32_t>(100 + i);
            modele.Reglages.EcrireValeur(0, pos, v);
        }
        Etude f;
        f.id_protection = id;
        ASSERT_TRUE(RestaurerReglage(f, modele));
        BlocReglages garde;
        ASSERT_TRUE(SauverReglage(f, garde));
        Etude g;
        g.id_protection = id;
        ASSERT_TRUE(RestaurerReglage(g, garde));
        BlocReglages encore;
        ASSERT_TRUE(SauverReglage(g, encore));
        EXPECT_EQ(Valeurs(encore), Valeurs(garde));
        EXPECT_EQ(Valeurs(garde).size(), Valeurs(modele).size());
        // Only the line values that the list holds too may differ from the model's.
        std::size_t egales = 0;
        const auto a = Valeurs(garde), b = Valeurs(modele);
        for (std::size_t i = 0; i < a.size(); ++i)
            egales += a[i] == b[i];
        EXPECT_GE(egales + 8, a.size());
    }
    EXPECT_GE(listes, 11);
}

TEST(BlocsDeReglages, DeuxPlacesDuMemeRelaisRestentSeparees) {
    Etude e;
    ASSERT_TRUE(Charger(e, BOUTS[0]));
    Superposition s(e);
    s.NommerPlaces();
    s.PlaceCourante = 1;
    s.SauverPlace();
    // Place 2: the same relay on another line, with another reach.
    e.X1reg_HT += 3.0;
    e.RL_eq += 1.0;
    e.XL_eq += 2.0;
    e.Ligne_pp = 1;
    s.PlaceCourante = 2;
    s.SauverPlace();
    ASSERT_TRUE(s.RestaurerPlace(1));
    const double x1 = e.X1reg_HT, r1 = e.RL_eq;
    const Entier16 pp1 = e.Ligne_pp;
    ASSERT_TRUE(s.RestaurerPlace(2));
    EXPECT_DOUBLE_EQ(e.X1reg_HT, x1 + 3.0);
    EXPECT_DOUBLE_EQ(e.RL_eq, r1 + 1.0);
    EXPECT_EQ(e.Ligne_pp, 1);
    EXPECT_DOUBLE_EQ(s.PlaceNumero(1).R(), r1);
    EXPECT_DOUBLE_EQ(s.PlaceNumero(2).X(), s.PlaceNumero(1).X() + 2.0);
    ASSERT_TRUE(s.RestaurerPlace(1));
    EXPECT_EQ(e.X1reg_HT, x1);
    EXPECT_EQ(e.Ligne_pp, pp1);
}

// The two ends of the line superposed.
class DeuxBoutsSuperposes : public ::testing::Test {
protected:
    void SetUp() override {
        s.PlaceNumero(1).IdProtection = 0;
        for (const int n : {1, 2}) {
            const fs::path& fichier = BOUTS[n - 1];
            ASSERT_TRUE(s.ChargerPlace(n, [&](Etude& x) { return Charger(x, fichier); }));
            s.PlaceCourante = n;
            s.SauverPlace();
            figures[n - 1] = Figure(e);
        }
        CouleursDesPlaces(e);
        s.DispositionInitiale();
        s.AjusterFenetre();
    }
    // What the two places draw, by colour.
    std::map<Couleur, int> Dessin() {
        SurfaceEnregistree surface(600.0, 600.0);
        Plan plan(e, surface);
        plan.ClearPlan();
        s.DessinerImages(plan);
        std::map<Couleur, int> n;
        for (const SegmentImage& seg : plan.Segments())
            ++n[seg.Couleur];
        for (const ArcImage& a : plan.Arcs())
            ++n[a.Couleur];
        return n;
    }
    Etude e;
    Superposition s{e};
    std::array<std::vector<std::array<double, 4>>, 2> figures;
};

TEST_F(DeuxBoutsSuperposes, LesNomsDonnentLaDispositionEtLImageSeRetourne) {
    EXPECT_EQ(s.PlaceNumero(1).Poste, "CHAMPAGNIER");
    EXPECT_EQ(s.PlaceNumero(2).Poste, "GRANDE-ILE");
    EXPECT_EQ(s.PlaceNumero(2).IdProtection, 12);
    // The second relay at the far end of the line, looking back: cmdPlace2.
    EXPECT_EQ(s.Disposition(), 2);
    const Place& p1 = s.PlaceNumero(1);
    const Place& p2 = s.PlaceNumero(2);
    ASSERT_FALSE(p1.Traits.empty());
    // The S 321-5 draws circles and segments: every one of them is in the image.
    const auto& f2 = figures[1];
    ASSERT_EQ(p2.Traits.size() + p2.Arcs.size(), f2.size());
    ASSERT_FALSE(p2.Arcs.empty());
    // Place 2 turned about and moved to the far end of line 1: its segments' ends and its
    // arcs' centres.
    const double ro = p1.R(), xo = p1.X();
    for (std::size_t i = 0; i < p2.Traits.size(); ++i) {
        EXPECT_NEAR(p2.Traits[i].Segment.A.Re, ro - f2[i][0], 1e-9);
        EXPECT_NEAR(p2.Traits[i].Segment.A.Im, xo - f2[i][1], 1e-9);
    }
    for (std::size_t i = 0; i < p2.Arcs.size(); ++i) {
        const auto& f = f2[p2.Traits.size() + i];
        EXPECT_NEAR(p2.Arcs[i].Arc.Centre.Re, ro - f[0], 1e-9);
        EXPECT_NEAR(p2.Arcs[i].Arc.Centre.Im, xo - f[1], 1e-9);
    }
    EXPECT_TRUE(Proche(p2.Ligne.De, ro, xo));
    EXPECT_NEAR(p2.Ligne.A.Re, ro - p2.R(), 1e-9);
    // Place 1 as it stands.
    EXPECT_NEAR(p1.Traits[0].Segment.B.Re, figures[0][0][2], 1e-9);

    // The plane holds both images whole, and is square.
    EXPECT_FLOAT_EQ(e.ScaleWidth, -e.ScaleHeight);
    for (const Place* p : {&p1, &p2})
        for (const TraitPlace& t : p->Traits)
            for (const Complexe& c : {t.Segment.A, t.Segment.B}) {
                EXPECT_GE(c.Re, e.ScaleLeft);
                EXPECT_LE(c.Re, e.ScaleLeft + e.ScaleWidth);
                EXPECT_LE(c.Im, e.ScaleTop);
                EXPECT_GE(c.Im, e.ScaleTop + e.ScaleHeight);
            }

    // Another layout: place 2 as it stands, on top of place 1.
    ASSERT_TRUE(s.ChoisirDisposition(1));
    s.AjusterFenetre();
    EXPECT_NEAR(s.PlaceNumero(2).Arcs[0].Arc.Centre.Re, f2[p2.Traits.size()][0], 1e-9);
    // The working variables hold the place handled last.
    EXPECT_EQ(e.id_protection, 12);
    EXPECT_EQ(e.NomPoste, "GRANDE-ILE");
}

TEST_F(DeuxBoutsSuperposes, DrapeauxDAffichageParPlaceEtPourLesDeux) {
    const std::map<Couleur, int> tout = Dessin();
    ASSERT_NE(e.CouleurPoste1, e.CouleurPoste2);
    ASSERT_GT(tout.at(e.CouleurPoste1), 0);
    ASSERT_GT(tout.at(e.CouleurPoste2), 0);
    // Each figure is drawn in its place's colour, never in its own.
    EXPECT_EQ(tout.size(), 2u);

    // The zones of place 1 hidden: fewer figures of place 1, all of place 2.
    int zones1 = 0;
    for (const TraitPlace& t : s.PlaceNumero(1).Traits)
        zones1 += t.Classe == CLASSE_ZONES;
    ASSERT_GT(zones1, 0);
    EXPECT_EQ(s.AideTrait(1, CLASSE_ZONES),
              "si tu cliques sur le trait, les limites de zones de la protection n° 1 ne sera "
              "plus visible");
    s.Basculer(1, CLASSE_ZONES);
    EXPECT_EQ(s.AideTrait(1, CLASSE_ZONES),
              "si tu cliques sur le trait, les limites de zones de la protection n° 1 sera "
              "visible");
    std::map<Couleur, int> sans = Dessin();
    EXPECT_EQ(sans[e.CouleurPoste1], tout.at(e.CouleurPoste1) - zones1);
    EXPECT_EQ(sans[e.CouleurPoste2], tout.at(e.CouleurPoste2));

    // A label of both: one of them still shown, so both are hidden; then both shown again.
    EXPECT_EQ(s.AideEtiquette(CLASSE_ZONES),
              "si tu cliques, les limites de zone des deux protections ne seront plus visibles");
    s.BasculerLesDeux(CLASSE_ZONES);
    EXPECT_TRUE(s.LesDeuxCaches(CLASSE_ZONES));
    EXPECT_EQ(s.AideEtiquette(CLASSE_ZONES),
              "si tu cliques, les limites de zone des deux protections seront visibles");
    s.BasculerLesDeux(CLASSE_ZONES);
    EXPECT_EQ(Dessin(), tout);
    EXPECT_EQ(s.AideTrait(2, CLASSE_LIGNE),
              "si tu cliques sur le trait, l'image de la ligne 2 ne sera plus visible");

    // A figure whose colour is of none of the six classes is not drawn.
    Place& p1 = s.PlaceNumero(1);
    const int avant = Dessin()[e.CouleurPoste1];
    p1.Traits.push_back({p1.Traits.front().Segment, ClasseDeCouleur(e, 0x123456)});
    EXPECT_EQ(p1.Traits.back().Classe, CLASSE_AUCUNE);
    EXPECT_EQ(Dessin()[e.CouleurPoste1], avant);
    p1.Traits.back().Classe = CLASSE_TRIPHASE; // the same figure of a class is drawn
    EXPECT_EQ(Dessin()[e.CouleurPoste1], avant + 1);
}

// The print: the head of the two places and their drawing, then a short page of each place
// under its own head; Escape stops the copy.
TEST_F(DeuxBoutsSuperposes, ImpressionDesDeuxPlaces) {
    e.ImpParties = {true, true, true};
    e.ImpCopies = 1;
    e.ArretImpression = false;
    DialogueSansFenetre d;
    PageEnregistree page;
    EtatImpression etat;
    ImprimerSuperposition(s, d, page, etat, "24/11/2026 - 10:00");
    ASSERT_EQ(page.Imprimes.size(), 1u);
    const DocumentImprime& doc = page.Imprimes[0];
    ASSERT_EQ(doc.size(), 3u);
    auto contient = [](const PageImprimee& p, const std::string& texte) {
        for (const std::string& l : PageEnregistree::Lignes(p))
            if (l.find(texte) != std::string::npos) return true;
        return false;
    };
    EXPECT_TRUE(contient(doc[0], "   Superposition of two settings"));
    EXPECT_TRUE(contient(doc[0], "   The two superposed substations are :"));
    EXPECT_TRUE(contient(doc[0], "substation A1 :"));
    EXPECT_TRUE(contient(doc[0], "Relay 2 :"));
    EXPECT_TRUE(contient(doc[0], "GRANDE-ILE"));
    int lignes = 0;
    for (const ElementPage& el : doc[0])
        lignes += el.genre != ElementPage::Texte;
    EXPECT_GT(lignes, 30); // the frames, the axes and both images
    EXPECT_TRUE(contient(doc[1], "Settings of substation A1: CHAMPAGNIER"));
    EXPECT_TRUE(contient(doc[1], "protective relay"));
    EXPECT_TRUE(contient(doc[1], "PD3A"));
    EXPECT_TRUE(contient(doc[1], "First zone reach"));
    EXPECT_TRUE(contient(doc[2], "Settings of substation A2: GRANDE-ILE"));
    EXPECT_TRUE(contient(doc[2], "S321-5"));
    // The S 321-5 keeps its reaches in its own record: its page reads them there.
    EXPECT_TRUE(contient(doc[2], "First zone reach"));
    EXPECT_TRUE(contient(doc[2], "Maximal detectable resistance"));

    // Escape at the first turn of events: nothing of the copy goes to paper.
    class Echap : public DialogueSansFenetre {
    public:
        explicit Echap(Etude& x) : x_(x) {}
        void LaisserPasserEvenements() override { x_.ArretImpression = true; }

    private:
        Etude& x_;
    } echap(e);
    PageEnregistree arretee;
    ImprimerSuperposition(s, echap, arretee, etat, "24/11/2026 - 10:00");
    EXPECT_TRUE(arretee.Imprimes.empty());
    EXPECT_EQ(arretee.Abandons, 1);
}

// The window's model on the two ends of the line: the three frames in one place and the captions
// that name the next, the layout buttons and their help, the display areas, setting place 2
// through its relay (a longer second zone), leaving.
TEST(PanneauSuperposer, CadresDispositionsAffichageEtReglage) {
    Etude e;
    InscrireRelais();
    InitRegistre(e);
    DialogueSansFenetre d;
    PanneauSuperposer::Services services;
    services.OuvrirPlace = [](Etude& x, int place) {
        Etude lue;
        const bool ok = Charger(lue, BOUTS[place - 1]);
        x = std::move(lue);
        return ok;
    };
    int reglages = 0;
    services.ReglerRelais = [&reglages](Etude& x) {
        ++reglages;
        x.S321.Z2MG *= 1.5;
        return true;
    };
    PanneauSuperposer m(e, d, nullptr, services, std::nullopt);
    auto texte = [&m](const char* nom) { return m.Trouver(nom)->Texte(); };
    auto visible = [&m](const char* nom) { return m.Trouver(nom)->Visible; };

    EXPECT_EQ(m.Titre(), "TOURNESOL [CHAMPAGNIER]");
    EXPECT_EQ(m.CadreMontre(), "frmposition");
    EXPECT_TRUE(visible("frmposition"));
    EXPECT_FALSE(visible("frmaffiche"));
    EXPECT_EQ(texte("cmdaffiche"), "Modifier l'affichage");
    EXPECT_EQ(texte("cmdpostes"), "Détail des Postes");
    m.Cliquer("cmdaffiche");
    EXPECT_TRUE(visible("frmaffiche"));
    EXPECT_FALSE(visible("frmposition"));
    EXPECT_EQ(texte("cmdaffiche"), "Position des postes");
    m.Cliquer("cmdpostes");
    EXPECT_TRUE(visible("frmpostsélec"));
    EXPECT_FALSE(visible("frmaffiche"));
    EXPECT_EQ(texte("cmdaffiche"), "Modifier l'affichage");
    EXPECT_EQ(texte("cmdpostes"), "Position des postes");
    EXPECT_EQ(texte("RapPoste2"), "GRANDE-ILE");
    m.Cliquer("cmdpostes");
    EXPECT_EQ(m.CadreMontre(), "frmposition");
    EXPECT_NE(texte("lblPlace1").find("CHAMPAGNIER - GRANDE-ILE, PD3A n° 1"), std::string::npos);

    // The layouts: the one in force pressed, the others raised, each with its help.
    EXPECT_TRUE(m.Trouver("cmdPlace2")->Valeur);
    m.Survoler("cmdPlace2");
    EXPECT_EQ(texte("status"), "cette disposition est celle qui est choisie");
    m.Survoler("CmdPlace4");
    EXPECT_EQ(texte("status"),
              "cette disposition n'est pas choisie. Clique sur elle si tu veux la choisir");
    const int version = m.Version();
    m.Cliquer("CmdPlace4");
    EXPECT_EQ(m.Superposer().Disposition(), 4);
    EXPECT_TRUE(m.Trouver("CmdPlace4")->Valeur);
    EXPECT_FALSE(m.Trouver("cmdPlace2")->Valeur);
    EXPECT_NE(m.Version(), version);
    // A click on the pressed one leaves it pressed.
    m.Trouver("CmdPlace4")->Valeur = false;
    m.Cliquer("CmdPlace4");
    EXPECT_TRUE(m.Trouver("CmdPlace4")->Valeur);

    // A display area of one place and a label of both.
    m.Cliquer("autL2(5)");
    EXPECT_FALSE(m.Trouver("autL2(5)")->Valeur);
    EXPECT_TRUE(m.Trouver("autL1(5)")->Valeur);
    EXPECT_EQ(
        texte("status"),
        "si tu cliques sur le trait, les limites de zones de la protection n° 2 sera visible");
    m.Cliquer("txtdir");
    EXPECT_FALSE(m.Trouver("autL1(6)")->Valeur);
    EXPECT_FALSE(m.Trouver("autL2(6)")->Valeur);
    m.Survoler("txtdir");
    EXPECT_EQ(texte("status"), "si tu cliques, les caractéristiques directionnelles des deux "
                               "protections seront visibles");

    // Place 2 set: its image moves, place 1's stays; the working variables hold place 2.
    auto figures = [&m](int n) {
        std::vector<double> v;
        for (const ArcPlace& a : m.Superposer().PlaceNumero(n).Arcs)
            v.push_back(a.Arc.Debut.Module);
        for (const TraitPlace& t : m.Superposer().PlaceNumero(n).Traits)
            v.push_back(t.Segment.A.Re);
        return v;
    };
    const auto avant1 = figures(1), avant2 = figures(2);
    const double z2 = m.Superposer().PlaceNumero(2).Bloc.Ligne.XL_eq;
    m.Cliquer("cmdregposte2");
    EXPECT_EQ(reglages, 1);
    EXPECT_NE(figures(2), avant2);
    EXPECT_EQ(figures(1), avant1);
    EXPECT_EQ(e.id_protection, 12);
    EXPECT_EQ(m.Superposer().PlaceNumero(2).Bloc.Ligne.XL_eq, z2);
    // Without a base there is nothing to save to.
    EXPECT_FALSE(m.Trouver("mnusauve2")->Actif);

    // The zoom by a drag: a square about its first point; a move alone changes nothing.
    const float largeur = e.ScaleWidth;
    m.SourisBas(1.0, 1.0);
    m.SourisHaut(30.0, 30.0);
    EXPECT_EQ(e.ScaleWidth, largeur);
    m.Cliquer("mnucustomzoom");
    m.SourisBas(2.0, 3.0);
    m.SourisHaut(12.0, 8.0);
    EXPECT_FLOAT_EQ(e.ScaleLeft, -8.0f);
    EXPECT_FLOAT_EQ(e.ScaleTop, 13.0f);
    EXPECT_FLOAT_EQ(e.ScaleWidth, 20.0f);
    EXPECT_FALSE(e.EnZoom);

    m.Cliquer("mnuquitter");
    EXPECT_TRUE(m.Ferme());
    EXPECT_TRUE(e.QuitterAppli);
}
