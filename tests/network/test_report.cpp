// The load report step and its panel.
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "network/ReportCharge.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {
// A 225 kV line of 20 ohms with Vmin 100, Vmax 120 and a transit of 1000 A.
Etude Ligne225() {
    Etude e;
    e.Ligne_Up = 225;
    e.Ligne_Icc = 31.5;
    e.Vmin = 100.0;
    e.Vmax = 120.0;
    e.It = 1000.0;
    e.XL_eq = 20.0;
    e.Ligne_XLA = 10.0;
    return e;
}

// R = sqrt(4 x 4400 + 400); XS and the factor for a neighbour link of XLD.
double FacteurAttendu(double xld) {
    const double r = std::sqrt(17600.0 + 400.0);
    const double xsmini = 225.0 / (std::sqrt(3.0) * 31.5);
    const double xs = xld / (20.0 + xld) * (r - 20.0) + 2.0 * xsmini;
    return 20.0 / xld + 1.0 - (400.0 / xld) / (xs + 20.0);
}
} // namespace

TEST(ReportCharge, EtapeEtCalculALOuverture) {
    Etude e = Ligne225();
    DialogueSansFenetre d;
    EtapeReport(e, d);
    EXPECT_EQ(d.PanneauxMontres(), std::vector<std::string>{"frmReportCharge"});
    EXPECT_NEAR(e.Ligne_CRt, FacteurAttendu(10.0), 1e-12);
    EXPECT_TRUE(e.CRtCalcule);
    EXPECT_EQ(e.CRcalc, 1.0); // a factor only reaches CRt through the result step

    // Worked out already: no panel unless the values are to be shown.
    DialogueSansFenetre encore;
    EtapeReport(e, encore);
    EXPECT_TRUE(encore.PanneauxMontres().empty());
    e.ShowValeurs = true;
    EtapeReport(e, encore);
    EXPECT_EQ(encore.PanneauxMontres().size(), 1u);

    // The single phase case has its own flag; the maximal case never shows the panel.
    e.ShowValeurs = false;
    e.TypeReportCharge = 1;
    EtapeReport(e, encore);
    EXPECT_EQ(encore.PanneauxMontres().size(), 2u);
    EXPECT_NEAR(e.Ligne_CRm, FacteurAttendu(10.0), 1e-12);
    e.TypeReportCharge = 2;
    e.CRmCalcule = e.CRtCalcule = false;
    EtapeReport(e, encore);
    EXPECT_EQ(encore.PanneauxMontres().size(), 2u);
}

TEST(ReportCharge, CoteDeLaCentraleEtNiveauDuVoisin) {
    DialogueSansFenetre d;
    Etude centrale = Ligne225();
    centrale.Ligne_alim = 1;
    centrale.Ligne_pp = 1; // the relay at the far end: the generator is on the other side
    EtapeReport(centrale, d);
    EXPECT_EQ(centrale.Ligne_alim, 2);
    centrale.Ligne_pp = 0;
    EtapeReport(centrale, d);
    EXPECT_EQ(centrale.Ligne_alim, 1);
    EXPECT_TRUE(d.PanneauxMontres().empty());

    // A 225 kV neighbour link on a 63 kV line.
    Etude e = Ligne225();
    e.Ligne_Up = 63;
    PanneauReportCharge panneau(e, d);
    EXPECT_TRUE(panneau.Trouver("chk63kv")->Valeur);
    panneau.Cliquer("chk225kv");
    EXPECT_EQ(e.Ligne_UnA, 225);
    EXPECT_FALSE(panneau.Trouver("chk63kv")->Valeur);
    panneau.Cliquer("Command2");
    EXPECT_DOUBLE_EQ(e.Ligne_XLD, 10.0 * (63.0 / 225.0) * (63.0 / 225.0));
    EXPECT_TRUE(panneau.Ferme());
}

TEST(ReportCharge, ReactanceNulleEtFacteursSaisis) {
    // XLA 0: the factor divides by zero, and the computation stops with 11.
    Etude nul = Ligne225();
    nul.Ligne_XLA = 0.0;
    DialogueSansFenetre d;
    EXPECT_EQ(ExecuterEtape([&] { EtapeReport(nul, d); }), ERR_DIVISION);

    // In the panel, the same failure is told and the panel stays.
    Etude e = Ligne225();
    e.CRtCalcule = true;
    e.Ligne_CRt = 1.4;
    PanneauReportCharge panneau(e, d);
    EXPECT_TRUE(panneau.Trouver("chksaisie")->Valeur);
    EXPECT_EQ(panneau.Trouver("txtcrt")->Texte(), "1.400");
    panneau.Trouver("txtxla")->DefinirTexte("0");
    panneau.Cliquer("chkcalcul");
    EXPECT_EQ(e.ErrCalcul, ERR_SIGNALEE); // told, with its cause: not to be told again
    ASSERT_EQ(d.Messages().size(), 1u);
    EXPECT_EQ(d.Messages()[0].sMessage,
              "The reckon is impossible with the entered data.\r\n\r\n(Division by zero)");
    EXPECT_FALSE(panneau.Ferme());

    // Typed factors are read from both fields.
    panneau.Cliquer("chksaisie");
    panneau.Trouver("txtcrt")->DefinirTexte("1,35");
    panneau.Trouver("txtcrm")->DefinirTexte("1.2");
    panneau.Cliquer("Command2");
    EXPECT_EQ(e.Ligne_CRt, 1.35);
    EXPECT_EQ(e.Ligne_CRm, 1.2);
}

TEST(ReportCharge, QuitterSansConfirmer) {
    Etude e = Ligne225();
    e.Ligne_CRt = 1.1;
    DialogueScripte d;
    d.AjouterReponses({2, 1});
    {
        PanneauReportCharge panneau(e, d); // computes at once
        EXPECT_NE(e.Ligne_CRt, 1.1);
        EXPECT_FALSE(panneau.Fermer()); // "&Annuler": the panel stays
        EXPECT_TRUE(panneau.Fermer());  // "&Continuer": the former values come back
    }
    EXPECT_EQ(e.Ligne_CRt, 1.1);
    EXPECT_EQ(e.Ligne_UnA, 0);
    ASSERT_EQ(d.Messages().size(), 2u);
    EXPECT_EQ(d.Messages()[0].sTitre, "TOURNESOL : confirmer");
    EXPECT_EQ(d.Messages()[0].sMessage,
              "Valeurs non confirmées. Continuer avec les anciennes valeurs ?");
    EXPECT_EQ(d.Messages()[0].BoutonsQuestion, (Boutons{"Con&firmer", "&Continuer", "&Annuler"}));

    // "Con&firmer" takes what the fields show.
    d.AjouterReponses({0});
    PanneauReportCharge panneau(e, d);
    panneau.Trouver("txtxla")->DefinirTexte("40");
    EXPECT_TRUE(panneau.Fermer());
    EXPECT_EQ(e.Ligne_XLA, 40.0);
    EXPECT_NEAR(e.Ligne_CRt, FacteurAttendu(40.0), 1e-12);
    EXPECT_TRUE(panneau.Fermer()); // confirmed: no more question
    EXPECT_EQ(d.Messages().size(), 3u);
}
