// The report's frame: page frames, the parts and page kinds, the progress bar, the copies and
// the cancelling by Escape.
#include "EtudeImprimee.h"
#include "relays/Relais.h"

#include <gtest/gtest.h>

using namespace tournesol;

namespace {

void AttendreCadre(const CadreImpression& c, double gauche, double haut, double largeur,
                   double hauteur) {
    EXPECT_DOUBLE_EQ(c.Left, gauche);
    EXPECT_DOUBLE_EQ(c.Top, haut);
    EXPECT_DOUBLE_EQ(c.Width, largeur);
    EXPECT_DOUBLE_EQ(c.Height, hauteur);
}

// A print of the study on a recording page, Escape pressed at the given turn of events.
struct Essai {
    Etude e;
    PageComptee page;
    EtatImpression etat;
    DialogueImpression d{e};
    Essai() { RemplirEtudeImprimee(e); }
    void Imprimer(int escape = 0) {
        d.tours = 0;
        d.escape = escape;
        tournesol::Imprimer(e, d, page, etat, {{}, {}, "01/02/2003 - 04:05"});
    }
};

} // namespace

TEST(Impression, CadresDUnePageA4) {
    const CadresPage k = CalculerCadres({0.0, 0.0, 210.0, 297.0}, 52.0, 26.0, 1.0, 6.0);
    AttendreCadre(k.CadrePage, 52.0, 26.0, 132.0, 245.0);
    AttendreCadre(k.CadreTitre, 53.0, 27.0, 130.0, 8.0);
    AttendreCadre(k.CadreEntete, 53.0, 36.0, 130.0, 15.0);
    AttendreCadre(k.CadreDessin, 78.0, 52.0, 80.0, 80.0);
    AttendreCadre(k.CadrePied, 53.0, 141.0, 130.0, 129.0);
    AttendreCadre(k.CadreCaracteristiques, 53.0, 52.0, 130.0, 115.0);
    AttendreCadre(k.CadreSuite, 53.0, 168.0, 130.0, 102.0);
    AttendreCadre(k.CadreTexte, 53.0, 52.0, 130.0, 217.0);
    // Another scale and Pas move every frame with them.
    const CadresPage m = CalculerCadres({5.0, 4.0, 200.0, 280.0}, 40.0, 20.0, 2.0, 7.0);
    AttendreCadre(m.CadreDessin, 72.0, 56.0, 86.0, 86.0);
    EXPECT_DOUBLE_EQ(m.CadrePied.Top + m.CadrePied.Height, 24.0 + 240.0 - 2.0);
}

TEST(Impression, MargeMesureeUneFois) {
    Essai x;
    x.page.ChoisirTaille(8.0);
    MesurerMarge(x.page, x.etat);
    EXPECT_DOUBLE_EQ(x.etat.MargeImpression, 13.0 * 1.15 * 10.0 * 25.4 / 72.0);
    EXPECT_DOUBLE_EQ(x.etat.DemiMarge, 26.0); // the integer half of 52.7
    EXPECT_DOUBLE_EQ(x.page.Police().Taille, 8.0);
    x.etat.MargeImpression = 30.0; // kept from one print to the next
    x.Imprimer();
    EXPECT_DOUBLE_EQ(x.etat.MargeImpression, 30.0);
}

TEST(Impression, DoitImprimerSelonLaSorteDePage) {
    Etude e;
    e.ImpParties = {true, false, true};
    const bool attendu[] = {false, true, false, true, true};
    for (int sorte = 0; sorte <= 4; ++sorte) {
        e.PageImpression = static_cast<Entier16>(sorte);
        EXPECT_EQ(DoitImprimer(e), attendu[sorte]) << sorte;
    }
    e.ArretImpression = true;
    EXPECT_FALSE(DoitImprimer(e));
}

// The bar, and what the progress panel is told: every change of the bar while it is open, then
// its closing.
TEST(Impression, BarreDeProgressionEtSonSuivi) {
    struct Etape {
        bool ouvert;
        double valeur;
        std::string texte;
        bool operator==(const Etape&) const = default;
    };
    std::vector<Etape> suivi;
    Etude e;
    EtatImpression etat;
    etat.SuiviProgression = [&suivi](bool ouvert, double valeur, const std::string& texte) {
        suivi.push_back({ouvert, valeur, texte});
    };
    AvancerProgression(e, etat, 3); // not started: nothing moves, nothing is told
    EXPECT_DOUBLE_EQ(etat.Progression, 0.0);
    DebutProgression(e, etat, 4, "Page 2 : Line");
    EXPECT_TRUE(e.ProgressionActive);
    EXPECT_DOUBLE_EQ(e.PasProgression, 25.0);
    EXPECT_EQ(etat.TexteProgression, "Page 2 : Line");
    AvancerProgression(e, etat, 1);
    EXPECT_DOUBLE_EQ(etat.Progression, 25.0);
    AvancerProgression(e, etat, 10);
    EXPECT_DOUBLE_EQ(etat.Progression, 100.0);
    PlacerProgression(e, etat, -2);
    EXPECT_DOUBLE_EQ(etat.Progression, 0.0);
    PlacerProgression(e, etat, 7);
    EXPECT_DOUBLE_EQ(etat.Progression, 100.0);
    PlacerProgression(e, etat, 3);
    EXPECT_DOUBLE_EQ(etat.Progression, 75.0);
    FinProgression(e, etat);
    PlacerProgression(e, etat, 1);
    EXPECT_DOUBLE_EQ(etat.Progression, 75.0);
    const std::string t = "Page 2 : Line";
    EXPECT_EQ(suivi, (std::vector<Etape>{{true, 0.0, t},
                                         {true, 25.0, t},
                                         {true, 100.0, t},
                                         {true, 0.0, t},
                                         {true, 100.0, t},
                                         {true, 75.0, t},
                                         {false, 75.0, ""}}));
}

TEST(Impression, AllerColonneLaisseVoirEchap) {
    Essai x;
    x.e.Pas = 1.0;
    ContexteImpression c{x.e, x.d, x.page, x.etat, {}, {}, {}};
    c.cadres.CadreSuite = {53.0, 168.0, 130.0, 102.0};
    AllerColonne(c, 90);
    EXPECT_DOUBLE_EQ(x.page.CurrentX, 53.0 + 1.0 + 90.0);
    EXPECT_EQ(x.d.tours, 1);
    x.e.ArretImpression = true;
    AllerColonne(c, 10);
    EXPECT_DOUBLE_EQ(x.page.CurrentX, 144.0);
    EXPECT_EQ(x.d.tours, 1);
}

TEST(Impression, ZeroCopieEnImprimeUneEtChaqueCopieEstEntiere) {
    Essai x;
    x.e.ImpCopies = 0;
    x.Imprimer();
    EXPECT_EQ(x.e.ImpCopies, 1);
    ASSERT_EQ(x.page.Imprimes.size(), 1u);
    // The drawing with the diagnostics, the line with the settings, the PXLN's listing on two.
    EXPECT_EQ(x.page.Imprimes[0].size(), 4u);
    EXPECT_EQ(x.page.HorsPage, 0);
    EXPECT_FALSE(x.e.ProgressionActive);

    Essai deux;
    deux.e.ImpCopies = 2;
    deux.Imprimer();
    ASSERT_EQ(deux.page.Imprimes.size(), 2u);
    for (std::size_t p = 0; p < 4; ++p)
        EXPECT_EQ(PageEnregistree::Lignes(deux.page.Imprimes[1].at(p)),
                  PageEnregistree::Lignes(x.page.Imprimes[0][p]));
}

TEST(Impression, LesPartiesChoisies) {
    Essai aucune;
    aucune.e.ImpParties = {false, false, false};
    aucune.Imprimer();
    EXPECT_EQ(aucune.page.commencees, 0);
    EXPECT_EQ(aucune.page.HorsPage, 0);
    EXPECT_TRUE(aucune.etat.MargeMesuree); // the frames were computed all the same

    // The line's page alone is the document's first page.
    Essai ligne;
    ligne.e.ImpParties = {false, true, false};
    ligne.Imprimer();
    ASSERT_EQ(ligne.page.Imprimes.size(), 1u);
    ASSERT_EQ(ligne.page.Imprimes[0].size(), 1u);
    const auto lignes = PageEnregistree::Lignes(ligne.page.Imprimes[0][0]);
    EXPECT_TRUE(Contient(lignes, "Line characteristics"));
    EXPECT_FALSE(Contient(lignes, "Diagnostics"));
}

TEST(Impression, EchapPendantLaPremiereCopie) {
    Essai x;
    x.e.ImpCopies = 3;
    x.Imprimer(5); // Escape in the head of the first page
    EXPECT_EQ(x.page.Abandons, 1);
    EXPECT_TRUE(x.page.Imprimes.empty()); // nothing of the first copy went to paper
    EXPECT_EQ(x.page.commencees, 1);      // and no other copy began
    EXPECT_EQ(x.d.tours, 5);              // nothing ran after Escape was seen
    EXPECT_FALSE(x.e.ProgressionActive);
    // A print asked for while Escape still stands does nothing.
    x.Imprimer();
    EXPECT_EQ(x.page.commencees, 1);
    EXPECT_EQ(x.page.Abandons, 1);
}

namespace {
int appels = 0;
void ImpressionEssai(ContexteImpression& c) {
    ++appels;
    c.e.PageImpression = 3;
    if (DoitImprimer(c.e)) CommencerPage(c, GenrePage::Texte);
}
} // namespace

TEST(Impression, LaRoutineInscriteDuRelais) {
    InscrireRelais();
    appels = 0;
    const ImpressionRelais avant = ImpressionInscrite(8);
    InscrireImpressionRelais(8, ImpressionEssai);
    Essai x;
    x.e.id_protection = 8;
    x.e.ImpParties = {false, false, true};
    x.Imprimer();
    InscrireImpressionRelais(8, avant);
    EXPECT_EQ(appels, 1);
    ASSERT_EQ(x.page.Imprimes.size(), 1u);
    ASSERT_EQ(x.page.Imprimes[0].size(), 1u); // the settings sheet alone, framed and headed
    EXPECT_EQ(PageEnregistree::Lignes(x.page.Imprimes[0][0]).at(0), "TOURNESOL");
}
