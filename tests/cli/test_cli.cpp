// The command line as a user runs it: exit codes, what it prints, what it refuses.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace {

struct Resultat {
    int code = -1;
    std::string sortie;
    std::string erreurs;
};

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
    std::ifstream f(erreurs);
    r.erreurs.assign(std::istreambuf_iterator<char>(f), {});
    return r;
}

fs::path Ecrire(const std::string& nom, const std::string& contenu) {
    const fs::path chemin = fs::temp_directory_path() / nom;
    std::ofstream(chemin) << contenu;
    return chemin;
}

} // namespace

TEST(LigneDeCommande, CalcRelitSaPropreSortie) {
    const fs::path exemple = fs::path(TOURNESOL_EXEMPLES) / "champagnier-grande-ile-225kV.json";
    const Resultat premier = Lancer("calc " + exemple.string());
    ASSERT_EQ(premier.code, 0) << premier.erreurs;
    EXPECT_TRUE(premier.erreurs.empty());
    EXPECT_NE(premier.sortie.find("\"NomPoste\": \"CHAMPAGNIER\""), std::string::npos);
    EXPECT_NE(premier.sortie.find("\"NomsProtection\": ["), std::string::npos);
    EXPECT_NE(premier.sortie.find("\"messages\": []"), std::string::npos);

    const fs::path sortie = Ecrire("tournesol-cli-sortie.json", premier.sortie);
    const Resultat second = Lancer("calc " + sortie.string());
    ASSERT_EQ(second.code, 0) << second.erreurs;
    EXPECT_EQ(second.sortie, premier.sortie);
}

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
