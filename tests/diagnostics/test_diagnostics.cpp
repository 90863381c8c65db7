// The diagnostics: flags and limits, the numbering by relay, the rule texts, the window
// frmDiagnostics and the rules as the report prints them.
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Panneau.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "diagnostics/FenetreDiagnostics.h"
#include "diagnostics/ReglesGuide.h"
#include "relays/Relais.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <optional>

using namespace tournesol;

namespace {

// A relay's panel withdrawn for the length of a test: it stands for a relay this program cannot
// compute.
struct SansPanneau {
    explicit SansPanneau(int id) : id_(id), panneau_(InscrirePanneauRelais(id, nullptr)) {}
    ~SansPanneau() { InscrirePanneauRelais(id_, panneau_); }
    SansPanneau(const SansPanneau&) = delete;
    SansPanneau& operator=(const SansPanneau&) = delete;
    int id_;
    FabriquePanneauRelais panneau_;
};

bool Visible(Panneau& p, const std::string& nom) {
    const Champ* c = p.Trouver(nom);
    return c && c->Visible;
}

std::string TexteDe(Panneau& p, const std::string& nom) {
    return p.Trouver(nom)->Texte();
}

} // namespace

TEST(Diagnostics, NumerotationParRelais) {
    const BlocRegles* pxlp = BlocDuRelais(6);
    ASSERT_NE(pxlp, nullptr);
    EXPECT_EQ(pxlp->PremiereImprimee, 35);
    EXPECT_EQ(pxlp->DerniereImprimee, 43);
    EXPECT_EQ(pxlp->DerniereAffichee, 41);
    EXPECT_STREQ(BlocDuRelais(1)->TitreFeuille, "Diagnostics concerning the  7 SA 511");
    EXPECT_EQ(BlocDuRelais(0), nullptr);
    EXPECT_EQ(RelaisDeLaRegle(42), 6);
    for (int n : {13, 14, 26, 27, 28, 63, 77, 78, 88})
        EXPECT_EQ(RelaisDeLaRegle(n), 0) << n;
}

TEST(Diagnostics, DrapeauxEtValeurs) {
    Etude e;
    PoserRegle(e, 15, 3.5);
    EXPECT_TRUE(e.DiagDrapeaux[14]);
    EXPECT_DOUBLE_EQ(e.DiagValeurs[14], 3.5);
    PoserRegle(e, 29, 1.0);
    EffacerReglesRelais(e, 3);
    EXPECT_FALSE(RegleActive(e, 15));
    EXPECT_DOUBLE_EQ(ValeurRegle(e, 15), 3.5); // the limit stays, the flag goes
    EXPECT_TRUE(RegleActive(e, 29));           // another relay's block is left alone
    EXPECT_EQ(ExecuterEtape([&] { PoserRegle(e, 101, 0.0); }), ERR_INDICE);
    EXPECT_EQ(ExecuterEtape([&] { RegleActive(e, 0); }), ERR_INDICE);
}

TEST(Diagnostics, TextesTenusParLeGuide) {
    EXPECT_EQ(TexteFenetre(3), "The external out of step may see the faults beyond the "
                               "transformers of the remote substation. It must not overcomer:");
    EXPECT_EQ(TextesRegleRapport(6),
              (std::vector<std::string>{"the first zone of the relay located at the remote end "
                                        "risks to overcome",
                                        "the backward zone of the relay,",
                                        "That last zone must be greater than "}));
    EXPECT_TRUE(TextesRegleRapport(13).empty());
    EXPECT_EQ(UniteFenetre(57), "ΩΠ");
    // A relay registers its report texts; the window texts held here stay.
    ASSERT_TRUE(InscrireReglesRelais(
        11, {{.Numero = 71,
              .Rapport = {"The third zone is lower than 1.2 times the second zone, "
                          "i.e. "}}}));
    EXPECT_EQ(TexteFenetre(71), "The downstream pick up on phase to phase fault is lower than 1.2 "
                                "times the second zone, i. e.:");
    EXPECT_EQ(TexteDeRegle(71)->Rapport.size(), 1U);
    // A rule outside the relay's block is refused.
    EXPECT_FALSE(InscrireReglesRelais(11, {{.Numero = 77, .Rapport = {"x"}}}));
    EXPECT_FALSE(TexteDeRegle(77));
}

TEST(Diagnostics, FenetreSansDiscordance) {
    InscrireRelais();
    Etude e;
    e.NomPoste = "BAYET";
    e.id_protection = 3;
    bool ouverts = false;
    FenetreDiagnostics f(e, ouverts);
    f.Montrer();
    EXPECT_TRUE(ouverts);
    EXPECT_EQ(f.Nom(), "frmDiagnostics");
    EXPECT_EQ(f.Titre(), "TOURNESOL [BAYET]");
    EXPECT_TRUE(Visible(f, "fraDiagnostics(3)"));
    EXPECT_EQ(TexteDe(f, "fraDiagnostics(3)"), "Diagnostics concerning the PD3A");
    EXPECT_FALSE(Visible(f, "fraDiagnostics(1)"));
    EXPECT_TRUE(Visible(f, "lblConforme(3)"));
    EXPECT_EQ(TexteDe(f, "lblConforme(3)"), "In accordance with the setting guide");
    for (int n = 15; n <= 21; ++n)
        EXPECT_FALSE(Visible(f, FenetreDiagnostics::NomTexte(n))) << n;
    EXPECT_TRUE(ReglesRapport(e).empty());
    EXPECT_EQ(NombreReglesImprimees(e), 7);
    f.Cliquer("cmdOK");
    EXPECT_FALSE(ouverts);
    EXPECT_TRUE(f.Ferme());
}

TEST(Diagnostics, UneRegleDansLaFenetreEtLeRapport) {
    InscrireRelais();
    Etude e;
    e.id_protection = 9;
    bool ouverts = false;
    FenetreDiagnostics f(e, ouverts);
    PoserRegle(e, 60, 12.3456);
    e.DiagValeurs[60] = 12.0; // rule 61, not set
    f.Montrer();
    EXPECT_FALSE(Visible(f, "lblConforme(9)"));
    EXPECT_TRUE(Visible(f, "lblRegle(60)"));
    EXPECT_TRUE(Visible(f, "lblValeur(60)"));
    EXPECT_TRUE(Visible(f, "lblUnite(60)"));
    EXPECT_EQ(TexteDe(f, "lblRegle(60)"), "The upstream pick up may see the faults beyond the "
                                          "transformers of the close substation. It must not "
                                          "overcome:");
    EXPECT_EQ(TexteDe(f, "lblValeur(60)"), "12.35");
    EXPECT_EQ(TexteDe(f, "lblValeur(61)"), "12.");
    EXPECT_EQ(TexteDe(f, "lblUnite(60)"), "ΩΠ");
    EXPECT_FALSE(Visible(f, "lblRegle(61)"));
    EXPECT_FALSE(Visible(f, "lblValeur(61)"));

    const auto regles = ReglesRapport(e);
    ASSERT_EQ(regles.size(), 1U);
    EXPECT_EQ(regles[0].Numero, 60);
    EXPECT_EQ(regles[0].Valeur, "12.35");
    EXPECT_EQ(TexteRapport(regles[0]), "The backward pick up risks to see the faults beyond the "
                                       "transformers of the close substation. \r\nIt must not "
                                       "overcome 12.35 Ω P");
    EXPECT_EQ(RegleRapport(e, 61)->Valeur, "12.0");
    // The window follows the study when brought up to date.
    EffacerRegle(e, 60);
    f.MajDiagnostics();
    EXPECT_TRUE(Visible(f, "lblConforme(9)"));
    EXPECT_FALSE(Visible(f, "lblRegle(60)"));
}

TEST(Diagnostics, PXLPImprimeLesRegles42Et43SansLesMontrer) {
    InscrireRelais();
    Etude e;
    e.id_protection = 6;
    bool ouverts = false;
    FenetreDiagnostics f(e, ouverts);
    PoserRegle(e, 42, 7.5);
    PoserRegle(e, 43, 3.25);
    f.Montrer();
    EXPECT_EQ(f.Trouver("lblRegle(42)"), nullptr);
    EXPECT_EQ(f.Trouver("lblRegle(43)"), nullptr);
    EXPECT_NE(f.Trouver("lblRegle(41)"), nullptr);
    EXPECT_TRUE(Visible(f, "lblConforme(6)"));
    const auto regles = ReglesRapport(e);
    ASSERT_EQ(regles.size(), 2U);
    EXPECT_EQ(regles[0].Lignes, TextesRegleRapport(42));
    EXPECT_EQ(regles[0].Lignes.size(), 2U);
    EXPECT_EQ(regles[0].Valeur, "7.5");
    EXPECT_EQ(regles[1].Lignes, TextesRegleRapport(43));
    EXPECT_EQ(regles[1].Valeur, "3.25");
    EXPECT_EQ(NombreReglesImprimees(e), 9);
    // A shown rule set among them takes the verdict away.
    PoserRegle(e, 41, 1.0);
    f.MajDiagnostics();
    EXPECT_FALSE(Visible(f, "lblConforme(6)"));
}

TEST(Diagnostics, UneRegleImprimeLaLimiteDUneAutre) {
    // The PXLC's own text of rule 34, if it has one, is put back at the end.
    const TexteRegle avant = TexteDeRegle(34).value_or(TexteRegle{.Numero = 34});
    ASSERT_TRUE(InscrireReglesRelais(
        5, {{.Numero = 34, .Rapport = {"Rule thirty-four, i.e. "}, .ValeurImprimee = 33}}));
    InscrireRelais();
    Etude e;
    e.id_protection = 5;
    PoserRegle(e, 33, 7.5);
    PoserRegle(e, 34, 99.0);
    EXPECT_EQ(RegleRapport(e, 34)->Valeur, "7.5");
    EXPECT_TRUE(InscrireReglesRelais(5, {avant}));
}

TEST(Diagnostics, UnRelaisSansPanneauNeDonneAucunVerdict) {
    InscrireRelais();
    std::optional<SansPanneau> sans(5);
    Etude e;
    e.id_protection = 5;
    ASSERT_FALSE(PanneauRelaisInscrit(5));
    bool ouverts = false;
    FenetreDiagnostics f(e, ouverts);
    f.Montrer();
    EXPECT_TRUE(Visible(f, "fraDiagnostics(5)"));
    EXPECT_FALSE(Visible(f, "lblConforme(5)"));
    EXPECT_TRUE(Visible(f, "lblNonCalcule"));
    EXPECT_EQ(f.Trouver("lblNonCalcule")->Texte(),
              "Settings of the PXLC not computed (no panel for this relay yet).");
    // A rule set all the same is still shown: a discordance is never hidden.
    PoserRegle(e, 31, 4.0);
    f.MajDiagnostics();
    EXPECT_TRUE(Visible(f, "lblRegle(31)"));
    EXPECT_FALSE(Visible(f, "lblConforme(5)"));
    // A relay that can be computed gives its verdict, and no such text.
    sans.reset();
    EffacerRegle(e, 31);
    f.MajDiagnostics();
    EXPECT_TRUE(Visible(f, "lblConforme(5)"));
    EXPECT_FALSE(Visible(f, "lblNonCalcule"));
    // Without a relay there is nothing to say either way.
    e.id_protection = 0;
    f.MajDiagnostics();
    EXPECT_FALSE(Visible(f, "lblNonCalcule"));
}

TEST(Diagnostics, UnEchecLaisseLaFenetreCommeElleEtait) {
    Etude e;
    e.id_protection = 10;
    bool ouverts = false;
    FenetreDiagnostics f(e, ouverts);
    PoserRegle(e, 64, 3.0);
    f.Montrer();
    e.DiagValeurs[65] = std::numeric_limits<double>::infinity();
    EffacerRegle(e, 64);
    f.MajDiagnostics();
    EXPECT_EQ(e.ErrCalcul, ERR_DEPASSEMENT);
    EXPECT_TRUE(Visible(f, "lblRegle(64)"));
    EXPECT_FALSE(Visible(f, "lblConforme(10)"));
}
