#include "core/Champ.h"
#include "core/Erreurs.h"
#include "core/Format.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

using namespace tournesol;

namespace {
struct Cas {
    const char* format;
    double valeur;
    const char* attendu;
};

// Restores the point as separator after a test that changed it.
struct SeparateurPoint : ::testing::Test {
    void TearDown() override { DefinirSeparateurDecimal('.'); }
};
} // namespace

TEST(Format, ChaqueFormatDuSysteme) {
    const Cas cas[] = {
        {"##0.00", 12.5, "12.50"},
        {"##0.00", 0.0, "0.00"},
        {"##0.00", 1234.567, "1234.57"},
        {"##0.00", -3.14159, "-3.14"},
        {"##0.00", 2.675, "2.68"}, // halves up on the decimal form, not the binary one
        {"##0.00", 0.125, "0.13"},
        {"##0.00", -0.004, "0.00"}, // no negative zero
        {"##0.00", 99.995, "100.00"},
        {"#0.00", 0.5, "0.50"},
        {"##0.000", 1.0005, "1.001"},
        {"0.000", 0.0004, "0.000"},
        {"#0.000", 12.3456, "12.346"},
        {"0.00", 3.0, "3.00"},
        {"###0", 2.5, "3"},
        {"###0", 0.4, "0"},
        {"###0", 12345.0, "12345"},
        {"#0", 7.49, "7"},
        {"##0", -7.5, "-8"},
        {"0", 0.0, "0"},
        {"00", 5.0, "05"},
        {"00", 123.0, "123"},
        {"####", 0.0, ""},
        {"####", 250.0, "250"},
        {"##0.##", 12.0, "12."}, // the point stays without decimals
        {"##0.##", 12.5, "12.5"},
        {"##0.##", 0.004, "0."},
        {"##.##", 0.5, ".5"},
        {"#0.##", 3.456, "3.46"},
        {"0.##", 0.0, "0."},
        {"##0.0#", 12.0, "12.0"},
        {"##0.0#", 12.345, "12.35"},
        {"#0.0#", 3.1, "3.1"},
        {"0.0#", 0.06, "0.06"},
        {"0.0", 0.05, "0.1"},
        {"0.0", 12.34, "12.3"},
        {"###0.#", 9999.96, "10000."},
        {"#0.###", 1.23456, "1.235"},
        {"# ##0", 1250.0, "1 250"},
        {"# ##0", 400.0, "400"},
        {"# ##0", 0.0, "0"},
        {"# ##0", 1234567.0, "1 234 567"},
        {"# ##0", 999.5, "1 000"},
        {"#.", 0.0, "."},
        {"#.", 5.0, "5."},
        {"#####0.## W", 12.5, "12.5 W"},
        {"##0.# \xC2\xB0", 45.0, "45. \xC2\xB0"},
        {"0%", 0.25, "25%"},
        {";yes;No", -1.0, "yes"},
        {";yes;No", 0.0, "No"},
        {";yes;No", 1.0, "1"}, // an empty positive section shows the plain number
        {"\"   yes\"    ;\"   yes\"    ;\"   no\"", 1.0, "   yes    "},
        {"\"   yes\"    ;\"   yes\"    ;\"   no\"", -1.0, "   yes    "},
        {"\"   yes\"    ;\"   yes\"    ;\"   no\"", 0.0, "   no"},
        {"0.00;(0.00)", -2.5, "(2.50)"},
        {"", 0.1, "0.1"},
        {"", 1e20, "1E+20"},
        {"\\T0", 3.0, "T3"},
    };
    for (const Cas& c : cas)
        EXPECT_EQ(FormaterNombre(c.valeur, c.format), c.attendu)
            << "format \"" << c.format << "\" value " << c.valeur;
    EXPECT_EQ(DecimalesDuFormat("##0.0#"), 2);
    EXPECT_EQ(DecimalesDuFormat("# ##0"), 0);
}

TEST_F(SeparateurPoint, SeparateurDeLaMachine) {
    EXPECT_EQ(SeparateurDecimal(), '.');
    DefinirSeparateurDecimal(',');
    EXPECT_EQ(SeparateurDecimal(), ',');
    EXPECT_EQ(FormaterNombre(12.5, "##0.00"), "12,50");
    EXPECT_EQ(FormaterNombre(12.0, "##0.##"), "12,");

    Champ c{"txtX", "12,5", "##0.00"};
    EXPECT_EQ(ChampLire(c), 12.5);
    EXPECT_EQ(c.Texte(), "12,5");
    c.DefinirTexte("3.25"); // a point typed on such a machine is still a decimal point
    EXPECT_EQ(ChampLire(c), 3.25);
}

TEST(Champ, LectureAvecLaRegleDeLaVirgule) {
    Champ c{"txtX", "12,5", "##0.00"};
    EXPECT_EQ(ChampLire(c), 12.5);
    EXPECT_EQ(c.Texte(), "12.5"); // the field now shows the machine's form

    c.DefinirTexte("12,555"); // rounded to the field's decimals
    EXPECT_EQ(ChampLire(c), 12.56);
    c.DefinirTexte("1,2,3"); // only the first comma is replaced: not a number
    EXPECT_EQ(ChampLire(c), 0.0);
    EXPECT_EQ(c.Texte(), "1.2,3");

    for (const char* rien : {",", "", "0", "abc", "12 kV", "-", "."}) {
        c.DefinirTexte(rien);
        EXPECT_EQ(ChampLire(c), 0.0) << '"' << rien << '"';
    }

    Champ courant{"txtIn", "1 250", "# ##0"};
    EXPECT_EQ(ChampLire(courant), 1250.0);
    courant.DefinirTexte("1249,6");
    EXPECT_EQ(ChampLire(courant), 1250.0);
    Champ sansDecimale{"txtT", "-7.5", "###0"};
    EXPECT_EQ(ChampLire(sansDecimale), -8.0);
}

TEST(Champ, EcritureEtSelection) {
    Champ c{"txtX", "", "##0.00"};
    ChampEcrire(c, "");
    EXPECT_EQ(c.Texte(), "0.00");
    ChampEcrire(c, 3.14159);
    EXPECT_EQ(c.Texte(), "3.14");
    ChampEcrire(c, "7.5");
    EXPECT_EQ(c.Texte(), "7.50");

    // A value computed by a failed statement shows as 0, and the error is then cleared.
    ContinuerSurErreur([] { Div(1.0, 0.0); });
    EXPECT_EQ(ErreurEnAttente(), ERR_DIVISION);
    ChampEcrire(c, 123.0);
    EXPECT_EQ(c.Texte(), "0.00");
    EXPECT_EQ(ErreurEnAttente(), 0);
    ChampEcrire(c, 123.0);
    EXPECT_EQ(c.Texte(), "123.00");

    c.DefinirTexte("12.5 \xCE\xA9"); // Ω counts as one character
    ChampSelection(c);
    EXPECT_EQ(c.SelDebut, 0);
    EXPECT_EQ(c.SelLongueur, 6);
}

TEST(Champ, Remplacer) {
    EXPECT_EQ(Remplacer("a-b-c", "-", " - "), "a - b - c");
    EXPECT_EQ(Remplacer("aa", "a", "aa"), "aaaa"); // a replacement is not searched again
    EXPECT_EQ(Remplacer("abc", "", "x"), "abc");
    EXPECT_EQ(Remplacer("", "a", "b"), "");
}

// Random values and texts: the formatter and the reader never fail, and a value read back from
// its own text is the value rounded to the field's decimals, stable on a second round.
TEST(Champ, AllerRetourAleatoire) {
    std::mt19937_64 hasard(20261123);
    std::uniform_real_distribution<double> exposant(-8.0, 9.0);
    std::uniform_int_distribution<int> pile(0, 1);
    const char* formats[] = {"##0.00", "#0.0#",  "# ##0", "0.0",     "##0.##", "###0",
                             "0.000",  "#0.###", "00",    "##0.000", "#0",     "0.0#"};
    for (int i = 0; i < 20000; ++i) {
        const double x = (pile(hasard) ? -1.0 : 1.0) * std::pow(10.0, exposant(hasard));
        for (const char* f : formats) {
            Champ c{"txt", "", f};
            ChampEcrire(c, x);
            const double lu = ChampLire(c);
            const double pas = std::pow(10.0, -DecimalesDuFormat(f));
            ASSERT_LE(std::fabs(lu - x), pas / 2.0 * (1.0 + 1e-9) + std::fabs(x) * 1e-14)
                << f << " " << x << " -> \"" << c.Texte() << "\"";
            ASSERT_EQ(lu, ArrondirSelonFormat(x, f)) << f << " " << x;
            Champ encore{"txt", "", f};
            ChampEcrire(encore, lu);
            ASSERT_EQ(encore.Texte(), c.Texte()) << f << " " << x;
        }
    }

    const std::string lettres = "0123456789,,..--++ eE#%\"abc\xC2\xA0\xCE\xA9;";
    std::uniform_int_distribution<std::size_t> longueur(0, 12), choix(0, lettres.size() - 1);
    for (int i = 0; i < 20000; ++i) {
        std::string tape;
        for (std::size_t n = longueur(hasard); n > 0; --n)
            tape.push_back(lettres[choix(hasard)]);
        Champ c{"txt", tape, formats[i % 12]};
        ASSERT_TRUE(std::isfinite(ChampLire(c))) << c.Texte();
        ASSERT_FALSE(
            FormaterNombre(std::ldexp(1.0, static_cast<int>(i % 2000) - 1000), c.Format).empty());
    }
}
