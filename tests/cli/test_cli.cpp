// The command line as a user runs it: exit codes, what it prints, what it refuses.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <sys/wait.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Resultat {
    int code = -1;
    std::string sortie;
    std::string erreurs;
};

std::string Lire(const fs::path& chemin) {
    std::ifstream f(chemin, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

Resultat Lancer(const std::string& arguments) {
    const fs::path erreurs = fs::temp_directory_path() / "tournesol-cli-test.err";
    const std::string commande =
        std::string(TOURNESOL_CLI) + " " + arguments + " 2>" + erreurs.string();
    Resultat r;
    FILE* tube = popen(commande.c_str(), "r");
    if (!tube) return r;
    char tampon[4096];
    std::size_t n = 0;
    while ((n = fread(tampon, 1, sizeof tampon, tube)) > 0)
        r.sortie.append(tampon, n);
    const int statut = pclose(tube);
    r.code = WIFEXITED(statut) ? WEXITSTATUS(statut) : -1;
    r.erreurs = Lire(erreurs);
    return r;
}

fs::path Ecrire(const std::string& nom, const std::string& contenu) {
    const fs::path chemin = fs::temp_directory_path() / nom;
    std::ofstream(chemin) << contenu;
    return chemin;
}

} // namespace

TEST(LigneDeCommande, MauvaiseEntreeCode2) {
    const struct {
        std::string arguments;
        std::string message;
    } cas[] = {
        {"calc " + Ecrire("inconnue.json", R"({"Ligne_Tl": 0, "Ligne_Tz": 1})").string(),
         "unknown key \"Ligne_Tz\""},
        {"calc " + Ecrire("type.json", R"({"NomPoste": 12})").string(),
         "key \"NomPoste\": expected a text"},
        {"calc " + Ecrire("tronque.json", "{\"Ligne_Tl\": ").string(),
         "malformed JSON: parse error at line 1, column 14"},
        {"calc " + Ecrire("vide.json", "").string(), "malformed JSON"},
        {"calc /nonexistent/etude.json", "cannot read the file /nonexistent/etude.json"},
        {"calc", "usage: tournesol-cli calc STUDY.json"},
        {"frobnicate x.json", "usage:"},
    };
    for (const auto& c : cas) {
        const Resultat r = Lancer(c.arguments);
        EXPECT_EQ(r.code, 2) << c.arguments;
        EXPECT_NE(r.erreurs.find(c.message), std::string::npos) << r.erreurs;
        EXPECT_TRUE(r.sortie.empty()) << c.arguments;
    }
}

// Every example runs from Open to the first drawing without error, prints the whole study, and
// its output, read back, gives the same output; saved into a new base and opened again by its
// names, it comes back as it was.
TEST(LigneDeCommande, CalcSaveEtOpenSurChaqueExemple) {
    int exemples = 0;
    for (const auto& entree : fs::directory_iterator(TOURNESOL_EXEMPLES)) {
        if (entree.path().extension() != ".json") continue;
        ++exemples;
        const std::string nom = entree.path().filename().string();
        const Resultat premier = Lancer("calc " + entree.path().string());
        ASSERT_EQ(premier.code, 0) << nom << ": " << premier.erreurs;
        EXPECT_TRUE(premier.erreurs.empty()) << nom;
        const auto j = nlohmann::json::parse(premier.sortie);
        EXPECT_EQ(j.at("ErrCalcul"), 0) << nom;
        EXPECT_EQ(j.at("PointsTransit").size(), 9u) << nom;
        EXPECT_EQ(j.at("PointsTransit")[0].size(), 2u) << nom;
        EXPECT_GT(j.at("XL_eq").get<double>(), 0.1) << nom;
        EXPECT_GT(j.at("Kz").get<double>(), 0.0) << nom;
        for (const char* cle : {"fNoIntersect", "fNoUp", "fNoDown", "fNoP", "messages",
                                "DiagDrapeaux", "DiagValeurs", "NomsProtection", "Ceq"})
            EXPECT_TRUE(j.contains(cle)) << nom << " " << cle;

        const fs::path sortie = Ecrire("tournesol-cli-" + nom, premier.sortie);
        const Resultat second = Lancer("calc " + sortie.string());
        ASSERT_EQ(second.code, 0) << second.erreurs;
        EXPECT_EQ(second.sortie, premier.sortie) << nom;

        const fs::path base = fs::temp_directory_path() / ("tournesol-base-" + nom);
        fs::remove_all(base);
        fs::create_directories(base);
        const Resultat save = Lancer("save " + entree.path().string() + " --base " + base.string());
        ASSERT_EQ(save.code, 0) << nom << ": " << save.erreurs;
        const auto sauvee = nlohmann::json::parse(save.sortie);
        EXPECT_TRUE(fs::exists(base / "bd1.mdb"));

        std::string args = "open --base " + base.string() + " --poste '" +
                           sauvee["NomPoste"].get<std::string>() + "' --depart '" +
                           sauvee["NomDepart"].get<std::string>() + "' --protection '" +
                           sauvee["NomProtection"].get<std::string>() + "' --numero " +
                           std::to_string(sauvee["id_numero"].get<int>());
        if (!sauvee["NomPiquage"].get<std::string>().empty())
            args += " --piquage '" + sauvee["NomPiquage"].get<std::string>() + "'";
        const Resultat open = Lancer(args);
        ASSERT_EQ(open.code, 0) << nom << ": " << open.erreurs;
        const auto ouverte = nlohmann::json::parse(open.sortie);
        for (const auto& [cle, valeur] : sauvee.items()) {
            if (cle != "messages") {
                EXPECT_EQ(ouverte[cle], valeur) << nom << " " << cle;
            }
        }
        fs::remove_all(base);
    }
    EXPECT_GE(exemples, 5);
}

// Files beyond the reader's bounds are refused by every verb that reads a study, with exit 2
// and the place named: a number beyond a double, nesting past the bound, a file too large.
TEST(LigneDeCommande, BornesDuFichierEtude) {
    const std::string profond =
        "{\"a\": " + std::string(200000, '[') + std::string(200000, ']') + ", \"b\": 1}";
    const struct {
        fs::path fichier;
        std::string message;
    } cas[] = {
        {Ecrire("depasse.json", "1e999"),
         "at line 1, column 1: the number 1e999 is beyond the range of a double"},
        {Ecrire("depasse-cle.json", "{\n  \"Ligne_Up\": 225,\n  \"Ligne_XL\": [1, -1e400, 0]}"),
         "at line 3, column 19: the number -1e400 is beyond the range of a double"},
        {Ecrire("chiffres.json", "{\"Ligne_Icc\": " + std::string(400, '9') + "}"),
         "at line 1, column 15: the number 99999"},
        {Ecrire("profond.json", profond), "at line 1, column 22: nesting deeper than 16 levels"},
        {Ecrire("gros.json", "{\"NomPoste\": \"" + std::string(1 << 20, 'a') + "\"}"),
         "the file is larger than 1048576 bytes"},
    };
    const fs::path base = fs::temp_directory_path() / "tournesol-base-bornes";
    fs::create_directories(base);
    for (const auto& c : cas) {
        for (const std::string verbe : {"calc ", "svg ", "report ", "save "}) {
            std::string arguments = verbe + c.fichier.string();
            if (verbe == "report ") arguments += " -o " + (base / "r.pdf").string();
            if (verbe == "save ") arguments += " --base " + base.string();
            const Resultat r = Lancer(arguments);
            EXPECT_EQ(r.code, 2) << arguments.substr(0, 80);
            EXPECT_NE(r.erreurs.find(c.message), std::string::npos) << r.erreurs.substr(0, 200);
            EXPECT_TRUE(r.sortie.empty());
        }
    }
    // A number too small for a double is 0, as the library reads it.
    const Resultat petit =
        Lancer("calc " + Ecrire("petit.json", "{\"Ligne_XLA\": 1e-999}").string());
    EXPECT_EQ(petit.code, 0) << petit.erreurs;
    fs::remove_all(base);
}

// A computation that fails at opening is a result, not a usage error: exit 0, the fixed message
// once in `messages`, and ErrCalcul set beside the values the failure left (an overflowed zone
// reactance is written null).
TEST(LigneDeCommande, EchecDeCalculDansLesMessages) {
    const fs::path exemples = TOURNESOL_EXEMPLES;
    auto etude = [&](const char* nom) {
        std::ifstream f(exemples / nom);
        return nlohmann::json::parse(f);
    };
    auto tensions = etude("champagnier-grande-ile-225kV.json");
    tensions["Ligne_Up"] = 0;
    tensions["Ligne_UnA"] = 0;
    auto reactance = etude("beaurepaire-montmeyran-laroche-90kV-3bouts.json");
    reactance["Ligne_XL"][2] = 1e308;
    for (const auto& [nom, j] : {std::pair{"tensions-nulles.json", tensions},
                                 std::pair{"reactance-1e308.json", reactance}}) {
        const Resultat r = Lancer("calc " + Ecrire(nom, j.dump()).string());
        ASSERT_EQ(r.code, 0) << nom << r.erreurs;
        const auto sortie = nlohmann::json::parse(r.sortie);
        EXPECT_NE(sortie["ErrCalcul"], 0) << nom;
        EXPECT_FALSE(sortie["TransitOK1"].get<bool>()) << nom;
        int echecs = 0;
        for (const auto& m : sortie["messages"])
            echecs += m["sMessage"].get<std::string>().rfind(
                          "The reckon is impossible with the entered data.", 0) == 0;
        EXPECT_EQ(echecs, 1) << nom << " " << sortie["messages"].dump();
    }
}

// The report of an example as a PDF, its pages read back as text: the fixed texts of the report,
// and of each relay's own pages (the RAZOA's characteristics under the line's and its settings on
// a third page; the 7SA511's parameter codes). Without a file to write, the usage error.
TEST(LigneDeCommande, RapportPdf) {
    const struct {
        const char* exemple;
        bool colonnes; // the text laid out as on the page
        int pages;     // 0: not counted
        std::vector<const char*> attendus;
    } cas[] = {
        // The example's third zone goes beyond the remote transformers on the 6062's coarse
        // wheel.
        {"champagnier-grande-ile-225kV.json",
         true,
         0,
         {"TOURNESOL", "CHAMPAGNIER", "Line characteristics", "Characteristics of the cell",
          "Diagnostics",
          "The forward pick up risks to see the faults beyond the transformers of the remote end",
          "It might not overcome:", "characteristics", "PD3A 6062", "Potentiometers",
          "Maximal detectable fault resistance", "zone reactance : X1", "K1 = 8", "Timers",
          "acceleration"}},
        {"bayet-saint-pourcain-225kV.json",
         true,
         3,
         {"RAZOA n° 1", "The forward reach on phase to phase loop is lower than 1.2 times the",
          "Relay characteristics", "the out of step is enabled", "circular characteristic",
          "angle of the characteristic on balanced operation: 105°", "Acceleration", "Settings",
          "Forward pick up : Zf", "A = 20", "Common zone parameters", "a=69", "p1=20",
          "(str26) = 0N", "(T2) = 3", "Tripping timer of relay RGZ30"}},
        {"saint-alban-centrale-225kV-sa511.json",
         false,
         0,
         {"SA 511", "settings", "Secondary values", "(1117)", "(1124)",
          "X1 = First zone reactance (1302)", "Ra1 = Phase to phase pick up resistance", "(1624)",
          "Phia(1628)", "T1 1ph = first zone timer, phase to earth fault (1305)",
          "out of step blocks the first zone", "Out of tep bandwidth (2003)", "no signal",
          "Relay performances", "phase to earth loop"}},
    };
    for (const auto& c : cas) {
        SCOPED_TRACE(c.exemple);
        const fs::path pdf = fs::temp_directory_path() / "tournesol-rapport.pdf";
        const fs::path texte = fs::temp_directory_path() / "tournesol-rapport.txt";
        fs::remove(pdf);
        const fs::path exemple = fs::path(TOURNESOL_EXEMPLES) / c.exemple;
        const Resultat r = Lancer("report " + exemple.string() + " -o " + pdf.string());
        ASSERT_EQ(r.code, 0) << r.erreurs;
        EXPECT_EQ(Lire(pdf).substr(0, 4), "%PDF");
        const std::string commande = std::string("pdftotext ") + (c.colonnes ? "-layout " : "") +
                                     pdf.string() + " " + texte.string();
        ASSERT_EQ(std::system(commande.c_str()), 0);
        const std::string contenu = Lire(texte);
        if (c.pages > 0) {
            EXPECT_EQ(std::count(contenu.begin(), contenu.end(), '\f'), c.pages);
        }
        for (const char* attendu : c.attendus)
            EXPECT_NE(contenu.find(attendu), std::string::npos) << attendu;
    }
    const Resultat sans =
        Lancer("report " + (fs::path(TOURNESOL_EXEMPLES) / cas[0].exemple).string());
    EXPECT_EQ(sans.code, 2);
}

// The PXLN's parameter listing: one line per line of the listing, the same into a file, the
// values of the run; another relay has none.
TEST(LigneDeCommande, ListingDuPXLN) {
    const std::string exemple =
        std::string(TOURNESOL_EXEMPLES) + "/champagnier-grande-ile-225kV-pxln.json";
    const Resultat r = Lancer("listing " + exemple);
    ASSERT_EQ(r.code, 0) << r.erreurs;
    std::vector<std::string> lignes;
    std::istringstream flux(r.sortie);
    for (std::string l; std::getline(flux, l);)
        lignes.push_back(l);
    ASSERT_EQ(lignes.size(), 80u); // 16 groups of lines, 15 empty lines between them
    EXPECT_EQ(lignes.front(), ".PARA\\PXLN parameters");
    EXPECT_EQ(lignes.at(1), "");
    EXPECT_EQ(lignes.back().substr(0, 29), std::string(20, ' ') + "**EMISSIO");
    // The first zone of the run, 80 % of the line, in the value column.
    const auto j = nlohmann::json::parse(Lancer("calc " + exemple).sortie);
    EXPECT_EQ(j.at("XPct")[0].get<double>(), 80.0);
    const std::string x1 = std::string(20, ' ') + "**X1" + std::string(36, ' ') + "80.\\     in %";
    EXPECT_NE(std::find(lignes.begin(), lignes.end(), x1), lignes.end());
    const std::string rmoc = std::string(20, ' ') + "**RMOC" + std::string(34, ' ') +
                             std::to_string(j.at("Rmoc_BT").get<int>()) + "\\    in Ω/b.";
    EXPECT_NE(std::find(lignes.begin(), lignes.end(), rmoc), lignes.end());

    const fs::path fichier = fs::temp_directory_path() / "tournesol-cli-listing.txt";
    ASSERT_EQ(Lancer("listing " + exemple + " -o " + fichier.string()).code, 0);
    EXPECT_EQ(Lire(fichier), r.sortie);

    const Resultat pd3a =
        Lancer("listing " + std::string(TOURNESOL_EXEMPLES) + "/champagnier-grande-ile-225kV.json");
    EXPECT_EQ(pd3a.code, 2);
    EXPECT_TRUE(pd3a.sortie.empty());
    EXPECT_NE(pd3a.erreurs.find("is not a PXLN"), std::string::npos) << pd3a.erreurs;
}

// Two studies on one diagram: the layout the names give or the one asked, both places in their
// colours with their legend; a bad layout, a missing file or a third file is refused in one line.
TEST(LigneDeCommande, SuperposeDeuxEtudes) {
    const fs::path exemples = TOURNESOL_EXEMPLES;
    const std::string a = (exemples / "champagnier-grande-ile-225kV.json").string();
    const std::string b = (exemples / "grande-ile-champagnier-225kV-s321.json").string();
    auto couleurs = [](const std::string& svg) {
        return std::make_pair(
            svg.find("#0000c0") != std::string::npos || svg.find("#0000C0") != std::string::npos,
            svg.find("#c00000") != std::string::npos || svg.find("#C00000") != std::string::npos);
    };
    const Resultat par = Lancer("superpose " + a + " " + b);
    ASSERT_EQ(par.code, 0) << par.erreurs;
    EXPECT_NE(par.sortie.find("<svg"), std::string::npos);
    EXPECT_NE(par.sortie.find("Place 1 : CHAMPAGNIER - GRANDE-ILE, PD3A"), std::string::npos);
    EXPECT_NE(par.sortie.find("Place 2 : GRANDE-ILE - CHAMPAGNIER, S321-5"), std::string::npos);
    const auto [bleu, rouge] = couleurs(par.sortie);
    EXPECT_TRUE(bleu && rouge) << "the two places in two colours";

    // The layout the names give is the second: asking for it draws the same.
    const fs::path fichier = fs::temp_directory_path() / "tournesol-superpose.svg";
    ASSERT_EQ(Lancer("superpose " + a + " " + b + " --position 2 -o " + fichier.string()).code, 0);
    EXPECT_EQ(Lire(fichier), par.sortie);
    const Resultat autre = Lancer("superpose " + a + " " + b + " --position 6");
    ASSERT_EQ(autre.code, 0);
    EXPECT_NE(autre.sortie, par.sortie);

    for (const std::string& mauvais :
         {"superpose " + a + " " + b + " --position 8",
          "superpose " + a + " " + b + " --position x", "superpose " + a,
          "superpose " + a + " " + b + " " + a, "superpose " + a + " /nulle/part.json",
          "superpose " + a + " " + b + " --zoom 2"}) {
        const Resultat r = Lancer(mauvais);
        EXPECT_EQ(r.code, 2) << mauvais;
        EXPECT_EQ(std::count(r.erreurs.begin(), r.erreurs.end(), '\n'), 1) << r.erreurs;
        EXPECT_TRUE(r.sortie.empty()) << mauvais;
    }
}
