// The settings file and the path file.
#include "core/Couleurs.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierIni.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

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
    EXPECT_EQ(texte.find("[Couleurs]\r\nTransit 1=255\r\nTransit 2=32960\r\n"), 0u);
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
    // The folder of this machine where the file is looked for, not the original machine's.
    EXPECT_NE(texte.find("Please create under " + dossier.string() +
                         " the file TOURNESO.INI with the path names"),
              std::string::npos);
    EXPECT_NE(texte.find("Rep_loc = <lecteur> : <private data base path> (error Rep_loc)"),
              std::string::npos);
    EXPECT_EQ(texte.find("(error Rep_appli)"), std::string::npos);
}

// The first start makes the folders and the path file naming them, and says where the base is.
TEST_F(Dossier, PremierDemarrageEtRedemarrage) {
    const DossiersUtilisateur dossiers{dossier / "config" / "Tournesol",
                                       dossier / "share" / "Tournesol"};
    Etude e;
    DialogueSansFenetre d;
    PreparerConfiguration(e, d, dossiers);
    EXPECT_EQ(e.Rep_appli, dossiers.donnees.string() + "/");
    EXPECT_EQ(e.Rep_loc, dossiers.configuration.string() + "/");
    EXPECT_TRUE(fs::is_directory(dossiers.donnees));
    ASSERT_EQ(d.Messages().size(), 1u);
    EXPECT_NE(d.Messages()[0].sMessage.find("the study base is " + e.Rep_appli + "bd1.mdb"),
              std::string::npos);
    const fs::path chemins = dossiers.configuration / "TOURNESO.INI";
    EXPECT_EQ(LireProfil(chemins, "Tournesol", "Rep_appli"), e.Rep_appli);
    EXPECT_EQ(LireProfil(chemins, "Tournesol", "Rep_loc"), e.Rep_loc);

    // A key of the user's own is read over the folder; sections unknown to the program stay.
    Etude redemarre;
    DialogueSansFenetre d2;
    ASSERT_TRUE(EcrireProfil(chemins, "Tournesol", "Rep_appli", "/srv/commun"));
    ASSERT_TRUE(EcrireProfil(chemins, "Autre", "Cle", "gardée"));
    PreparerConfiguration(redemarre, d2, dossiers);
    EXPECT_EQ(redemarre.Rep_appli, "/srv/commun/");
    EXPECT_EQ(LireProfil(chemins, "Autre", "Cle"), "gardée");
    EXPECT_TRUE(d2.Messages().empty());
}

// A configuration folder that is a file, a path file or a TOUR.INI that cannot be read: the
// message names the file and the cause, the user's folders stand, and nothing is written over.
TEST_F(Dossier, ConfigurationIllisible) {
    const fs::path fichierPasDossier = dossier / "config";
    std::ofstream(fichierPasDossier) << "x";
    {
        Etude e;
        DialogueSansFenetre d;
        PreparerConfiguration(e, d, {fichierPasDossier / "Tournesol", dossier / "share"});
        ASSERT_EQ(d.Messages().size(), 1u);
        const std::string& m = d.Messages()[0].sMessage;
        EXPECT_NE(m.find((fichierPasDossier / "Tournesol" / "TOURNESO.INI").string()),
                  std::string::npos)
            << m;
        EXPECT_NE(m.find("(Not a directory)"), std::string::npos) << m;
        EXPECT_EQ(e.Rep_appli, (dossier / "share").string() + "/");
        EXPECT_EQ(Contenu(fichierPasDossier), "x");
    }
    const fs::path config = dossier / "conf";
    fs::create_directories(config / "TOURNESO.INI"); // a folder where the file should be
    {
        Etude e;
        DialogueSansFenetre d;
        PreparerConfiguration(e, d, {config, dossier / "share"});
        ASSERT_EQ(d.Messages().size(), 1u);
        EXPECT_NE(d.Messages()[0].sMessage.find("TOURNESO.INI cannot be read (Is a directory)"),
                  std::string::npos)
            << d.Messages()[0].sMessage;
        EXPECT_EQ(e.Rep_loc, config.string() + "/");
    }
    fs::remove(config / "TOURNESO.INI");
    std::ofstream(config / "TOURNESO.INI")
        << "[Tournesol]\nRep_appli=" << dossier.string() << "\nRep_loc=" << config.string() << "\n";
    fs::create_directories(config / "TOUR.INI");
    {
        Etude e;
        InitCouleurs(e);
        DialogueSansFenetre d;
        PreparerConfiguration(e, d, {config, dossier / "share"});
        ASSERT_EQ(d.Messages().size(), 1u);
        EXPECT_NE(d.Messages()[0].sMessage.find((config / "TOUR.INI").string() +
                                                " cannot be read (Is a directory)"),
                  std::string::npos);
        LireReglagesUtilisateur(e, FichierReglages(e));
        EXPECT_EQ(e.CouleurTransit1, 0x0000FF);
        EXPECT_FALSE(EcrireReglagesUtilisateur(e, FichierReglages(e)));
        EXPECT_FALSE(SauverColonnesPostes(e, FichierReglages(e)));
        EXPECT_TRUE(fs::is_directory(config / "TOUR.INI"));
    }
    if (::geteuid() != 0) {
        // A file the user may not read (the administrator reads everything).
        fs::remove(config / "TOUR.INI");
        std::ofstream(config / "TOUR.INI") << "[Couleurs]\r\nZones=7\r\n[Mien]\r\nA=1\r\n";
        fs::permissions(config / "TOUR.INI", fs::perms::none);
        Etude e;
        DialogueSansFenetre d;
        PreparerConfiguration(e, d, {config, dossier / "share"});
        ASSERT_EQ(d.Messages().size(), 1u);
        EXPECT_NE(d.Messages()[0].sMessage.find("(Permission denied)"), std::string::npos);
        EXPECT_FALSE(SauverColonnesPostes(e, FichierReglages(e)));
        fs::permissions(config / "TOUR.INI", fs::perms::owner_all);
        EXPECT_EQ(Contenu(config / "TOUR.INI"), "[Couleurs]\r\nZones=7\r\n[Mien]\r\nA=1\r\n");
    }
}
