// The settings file and the path file.
#include "core/Couleurs.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierIni.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

using namespace tournesol;
namespace fs = std::filesystem;

namespace {
struct Dossier : ::testing::Test {
    fs::path dossier;
    void SetUp() override {
        dossier = fs::temp_directory_path() /
                  ("tournesol-ini-" +
                   std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        fs::remove_all(dossier);
        fs::create_directories(dossier);
    }
    void TearDown() override { fs::remove_all(dossier); }
    std::string Contenu(const fs::path& f) const {
        std::ifstream in(f, std::ios::binary);
        std::ostringstream s;
        s << in.rdbuf();
        return s.str();
    }
};
} // namespace

TEST_F(Dossier, ReglagesUtilisateurSurvivent) {
    const fs::path f = dossier / "TOUR.INI";
    Etude e;
    InitCouleurs(e);
    e.CouleurZones = 0x123456;
    e.ImpNoir = true;
    e.ImpParties = {true, false, true};
    e.PlumeEpaisseur = 3;
    ASSERT_TRUE(EcrireReglagesUtilisateur(e, f));
    const std::string texte = Contenu(f);
    // Sections and keys in the order of the table, accents as they are, 16-bit Booleans -1/0.
    EXPECT_EQ(texte.find("[Couleurs]\r\nTransit 1=255\r\nTransit 2=65535\r\n"), 0u);
    EXPECT_NE(texte.find("Monophasé=65280\r\n"), std::string::npos);
    EXPECT_NE(texte.find("[Impression]\r\nNoir=-1\r\nNoDots=0\r\nCopies=0\r\nTracé=-1\r\n"
                         "Diagnostics=0\r\nRéglages=-1\r\n"),
              std::string::npos);
    EXPECT_NE(texte.find("[Tracé]\r\nRouge=0\r\nVert=0\r\nBleu=0\r\nEpaisseur=3\r\nStyle=0"),
              std::string::npos);

    Etude relue;
    InitCouleurs(relue);
    LireReglagesUtilisateur(relue, f);
    EXPECT_EQ(relue.CouleurZones, 0x123456);
    EXPECT_TRUE(relue.ImpNoir);
    EXPECT_EQ(relue.ImpParties, e.ImpParties);
    EXPECT_EQ(relue.PlumeEpaisseur, 3);

    // Writing again changes values in place and keeps the other sections.
    ASSERT_TRUE(SauverColonnesPostes(e, f));
    e.CouleurZones = 7;
    ASSERT_TRUE(EcrireReglagesUtilisateur(e, f));
    EXPECT_EQ(LireProfil(f, "couleurs", "ZONES"), "7");
    EXPECT_EQ(LireProfil(f, "Postes", "id_numéro"), "0");
    EXPECT_EQ(Contenu(f).find("Zones="), Contenu(f).rfind("Zones="));

    // A value that is not a number keeps the default.
    ASSERT_TRUE(EcrireProfil(f, "Couleurs", "Transit 1", "rouge"));
    Etude defaut;
    InitCouleurs(defaut);
    LireReglagesUtilisateur(defaut, f);
    EXPECT_EQ(defaut.CouleurTransit1, 0x0000FF);
}

TEST_F(Dossier, FichierDesChemins) {
    Etude e;
    DialogueSansFenetre d;
    EXPECT_TRUE(LireFichierChemins(e, d, dossier / "absent.INI"));
    EXPECT_TRUE(e.Rep_appli.empty());
    EXPECT_TRUE(d.Messages().empty());

    const fs::path f = dossier / "TOURNESO.INI";
    std::ofstream(f) << "[Tournesol]\nRep_appli=/srv/tournesol\n";
    EXPECT_FALSE(LireFichierChemins(e, d, f));
    EXPECT_EQ(e.Rep_appli, "/srv/tournesol/"); // ready for concatenation
    ASSERT_EQ(d.Messages().size(), 1u);
    EXPECT_EQ(d.Messages()[0].sTitre, "Tournesol : error");
    const std::string& texte = d.Messages()[0].sMessage;
    EXPECT_NE(
        texte.find("Please create under C:\\WINDOWS the file TOURNESO.INI with the path names"),
        std::string::npos);
    EXPECT_NE(texte.find("Rep_loc = <lecteur> : <private data base path> (error Rep_loc)"),
              std::string::npos);
    EXPECT_EQ(texte.find("(error Rep_appli)"), std::string::npos);
}
