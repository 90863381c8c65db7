#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Panneau.h"
#include "core/Registre.h"

#include <cmath>
#include <gtest/gtest.h>
#include <set>

using namespace tournesol;

TEST(Etude, ValeursDeDepartEtRegistre) {
    Etude e;
    EXPECT_EQ(e.id_protection, 0);
    EXPECT_EQ(e.XprimFige, 0.0);
    EXPECT_FALSE(e.ReportAdmis[2][0]);
    EXPECT_TRUE(e.NomsProtection[0].empty());

    InitRegistre(e);
    const char* noms[] = {"SA 511", "EPAC",  "PD3A",    "PDS",  "PXLC", "PXLP",
                          "PXLN",   "RAZOA", "REL 100", "REZ1", "RXAP", "S321-5"};
    const std::set<int> sansMono = {1, 2, 6, 7, 11};
    for (int id = 1; id <= 12; ++id) {
        const auto i = static_cast<std::size_t>(id - 1);
        EXPECT_EQ(e.NomsProtection[i], noms[i]);
        EXPECT_TRUE(e.ReportAdmis[i][REPORT_TRIPHASE]);
        EXPECT_EQ(e.ReportAdmis[i][REPORT_MONOPHASE], !sansMono.count(id)) << id;
        EXPECT_TRUE(e.ReportAdmis[i][REPORT_SANS]);
    }
    EXPECT_EQ(EnEntier(true), -1);
    EXPECT_EQ(EnEntier(false), 0);
}

TEST(FichierEtude, AllerRetour) {
    Etude e;
    InitRegistre(e);
    LireEtude(R"({"NomPoste": "SAINT-AVOLD", "NomDepart": "L'HÔPITAL", "Ligne_Tl": 2,
                  "Ligne_lc": -1, "Ligne_cdg": true, "Ligne_XAM": 0.1, "Ligne_Ip": 1000,
                  "Ligne_XL": [12.8, 3.3333333333333335, 0], "Ligne_Ex": [1, 2, 3],
                  "XL_eq": 0.1, "PointsTransit": [[1,2],[0,0],[0,0],[0,0],[0,0],[0,0],[0,0],
                  [0,0],[-3.5, 4]], "DiagDrapeaux": [15, 21], "DiagValeurs": {"15": 12.25},
                  "messages": []})",
              e);
    EXPECT_EQ(e.NomDepart, "L'HÔPITAL");
    EXPECT_TRUE(e.Ligne_lc);
    EXPECT_EQ(e.Ligne_XAM, 0.1f);
    EXPECT_EQ(e.Ligne_XL[1], 3.3333333333333335);
    EXPECT_EQ(e.PointsTransit[8].Re, -3.5);
    EXPECT_EQ(e.PointsTransit[8].Module, 4.0 * std::sqrt(1.0 + 3.5 * 3.5 / 16.0));
    EXPECT_TRUE(e.DiagDrapeaux[14]);
    EXPECT_TRUE(e.DiagDrapeaux[20]);
    EXPECT_FALSE(e.DiagDrapeaux[15]);
    EXPECT_EQ(e.DiagValeurs[14], 12.25);

    const std::string texte = EcrireEtude(e);
    EXPECT_NE(texte.find("\"Ligne_XAM\": 0.1,"), std::string::npos); // the float's short form
    EXPECT_NE(texte.find("\"DiagDrapeaux\": [\n    15,\n    21\n  ]"), std::string::npos);
    Etude relue;
    LireEtude(texte, relue);
    EXPECT_EQ(EcrireEtude(relue), texte);
    EXPECT_EQ(relue.Ligne_XAM, e.Ligne_XAM);
    EXPECT_EQ(relue.Ligne_XL, e.Ligne_XL);
    EXPECT_EQ(relue.ReportAdmis, e.ReportAdmis);
}

TEST(FichierEtude, RefusClairSansRienChanger) {
    struct Cas {
        const char* json;
        const char* message;
    };
    const Cas cas[] = {
        {R"({"Ligne_Tl": 1, "Ligne_Foo": 2})", "unknown key \"Ligne_Foo\""},
        {R"({"Ligne_Tl": "deux"})", "key \"Ligne_Tl\": expected a 16-bit integer, found string"},
        {R"({"Ligne_Tl": 40000})", "key \"Ligne_Tl\": expected a 16-bit integer"},
        {R"({"Ligne_Tl": 1.5})", "key \"Ligne_Tl\": expected a 16-bit integer"},
        {R"({"Ligne_lc": 1})", "key \"Ligne_lc\": expected a Boolean"},
        {R"({"Ligne_XL": [1, 2]})", "key \"Ligne_XL\": expected an array of 3 elements"},
        {R"({"Ligne_XL": [1, "a", 3]})", "key \"Ligne_XL[1]\": expected a number"},
        {R"({"Ligne_XAM": 1e300})", "key \"Ligne_XAM\": expected a number within the range"},
        {R"({"DiagDrapeaux": [0]})", "key \"DiagDrapeaux\": expected a rule number"},
        {R"({"DiagValeurs": {"x": 1}})", "\"x\" is not a rule number"},
        {R"({"NomPoste": "A",
  "Ligne_Tl": 1,,})",
         "malformed JSON: parse error at line 2, column 17"},
        {"[1, 2]", "a study file is one JSON object, found array"},
    };
    for (const Cas& c : cas) {
        Etude e;
        e.Ligne_Tl = 3;
        try {
            LireEtude(c.json, e);
            ADD_FAILURE() << "accepted: " << c.json;
        } catch (const ErreurFichierEtude& err) {
            EXPECT_NE(std::string(err.what()).find(c.message), std::string::npos) << err.what();
        }
        EXPECT_EQ(e.Ligne_Tl, 3) << c.json;
        EXPECT_TRUE(e.NomPoste.empty()) << c.json;
    }
}

namespace {
class PanneauEssai : public Panneau {
public:
    PanneauEssai() : Panneau("frmEssai") { AjouterChamp({"txtValeur", "1", "##0.00"}); }
    void Valider() override { ++valide; }
    int valide = 0;
};
} // namespace

TEST(Dialogue, SansFenetreEtScripte) {
    Etude e;
    e.sTitre = "TOURNESOL : Attention";
    e.sMessage = "Continue ?";
    e.IconeMessage = 3;
    e.BoutonsQuestion = {"Yes", "No", ""};

    DialogueSansFenetre muet;
    PoserQuestion(e, muet);
    EXPECT_EQ(e.ReponseQuestion, 0);
    PanneauEssai p;
    muet.MontrerPanneau(p);
    EXPECT_EQ(p.valide, 1); // confirmed without change
    EXPECT_EQ(p.Trouver("txtValeur")->Texte(), "1");
    EXPECT_EQ(p.Trouver("txtAutre"), nullptr);
    EXPECT_FALSE(muet.Sablier(true));
    EXPECT_TRUE(muet.Sablier(false));

    DialogueScripte script;
    script.AjouterReponses({1});
    script.QuandPanneau("frmEssai",
                        [](Panneau& panneau) { panneau.Trouver("txtValeur")->DefinirTexte("2"); });
    PoserQuestion(e, script);
    EXPECT_EQ(e.ReponseQuestion, 1);
    PoserQuestion(e, script); // the script ran out: first button
    EXPECT_EQ(e.ReponseQuestion, 0);
    script.MontrerPanneau(p);
    EXPECT_EQ(p.valide, 1);
    EXPECT_EQ(p.Trouver("txtValeur")->Texte(), "2");
    AfficherMessage(e, script);

    ASSERT_EQ(script.Messages().size(), 3u);
    EXPECT_TRUE(script.Messages()[0].Question);
    EXPECT_EQ(script.Messages()[0].Reponse, 1);
    EXPECT_EQ(script.Messages()[0].BoutonsQuestion[1], "No");
    EXPECT_FALSE(script.Messages()[2].Question);
    EXPECT_EQ(script.Messages()[2].IconeMessage, 3);
    EXPECT_EQ(script.PanneauxMontres(), std::vector<std::string>{"frmEssai"});

    // The messages of a run go into the study file and are accepted back.
    const std::string texte = EcrireEtude(e, script.Messages());
    EXPECT_NE(texte.find("\"ReponseQuestion\": 1"), std::string::npos);
    Etude relue;
    LireEtude(texte, relue);
    EXPECT_EQ(relue.sMessage, "Continue ?");
}
