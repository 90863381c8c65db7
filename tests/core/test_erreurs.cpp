#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {
// Values the optimiser cannot fold, so the arithmetic happens at run time.
volatile double zero = 0.0;
volatile double un = 1.0;
volatile double enorme = 1e300;
} // namespace

TEST(Erreurs, ArithmetiqueDuRuntime) {
    EXPECT_EQ(ExecuterEtape([] { Div(1.0, 0.0); }), ERR_DIVISION);
    EXPECT_EQ(ExecuterEtape([] { Div(-3.0, 0.0); }), ERR_DIVISION);
    EXPECT_EQ(ExecuterEtape([] { Div(0.0, 0.0); }), ERR_DEPASSEMENT);
    EXPECT_EQ(ExecuterEtape([] { Div(1e300, 1e-300); }), ERR_DEPASSEMENT);
    EXPECT_EQ(ExecuterEtape([] { Racine(-1.0); }), ERR_ARGUMENT);
    EXPECT_EQ(ExecuterEtape([] { EXPECT_EQ(Div(6.0, 3.0), 2.0); }), 0);

    // A plain division or overflow left in the floating-point flags is caught too.
    double r = 0.0;
    EXPECT_EQ(ExecuterEtape([&] { r = un / zero; }), ERR_DIVISION);
    EXPECT_EQ(ExecuterEtape([&] { r = zero / zero; }), ERR_DEPASSEMENT);
    EXPECT_EQ(ExecuterEtape([&] { r = enorme * enorme; }), ERR_DEPASSEMENT);
    EXPECT_EQ(ExecuterEtape([&] { r = std::sqrt(un); }), 0);

    // An error met by an inner step stays there.
    EXPECT_EQ(ExecuterEtape([] { ContinuerSurErreur([] { Div(1.0, 0.0); }); }), 0);
    EffacerErreurEnAttente();
}

TEST(Erreurs, CalculSurLEtude) {
    Etude e;
    EXPECT_TRUE(ExecuterCalcul(e, [] {}));
    EXPECT_EQ(e.ErrCalcul, 0);
    EXPECT_FALSE(ExecuterCalcul(e, [] { Div(2.0, 0.0); }));
    EXPECT_EQ(e.ErrCalcul, ERR_DIVISION);
}

TEST(Erreurs, SignalerErreurCalcul) {
    struct Attendu {
        int numero;
        const char* cause;
    };
    const Attendu attendus[] = {
        {ERR_DEPASSEMENT, "(overflow)"},
        {ERR_MEMOIRE, "(Insufficient memory)"},
        {ERR_DIVISION, "(Division by zero)"},
        {ERR_INDICE, "(Error \"Subscript out of range\")"},
        {ERR_ARGUMENT, "(Error \"Invalid procedure call or argument\")"},
    };
    for (const Attendu& a : attendus) {
        Etude e;
        e.ShowValeurs = true;
        e.ErrCalcul = static_cast<Entier16>(a.numero);
        DialogueSansFenetre d;
        SignalerErreurCalcul(e, d);
        ASSERT_EQ(d.Messages().size(), 1u);
        const MessageAffiche& m = d.Messages()[0];
        EXPECT_EQ(m.sTitre, "TOURNESOL : Attention !");
        EXPECT_EQ(m.sMessage,
                  std::string("The reckon is impossible with the entered data.\r\n\r\n") + a.cause);
        EXPECT_EQ(m.IconeMessage, 1);
        EXPECT_EQ(e.ErrCalcul, ERR_SIGNALEE);
        // A failure is told once: a second report shows nothing, and the error stays set.
        SignalerErreurCalcul(e, d);
        SignalerEchec(e, d);
        EXPECT_EQ(d.Messages().size(), 1u);
        EXPECT_EQ(e.ErrCalcul, ERR_SIGNALEE);
    }

    Etude muet;
    muet.ErrCalcul = ERR_DIVISION;
    DialogueSansFenetre d;
    SignalerErreurCalcul(muet, d); // ShowValeurs is false: nothing shown, nothing changed
    EXPECT_TRUE(d.Messages().empty());
    EXPECT_EQ(muet.ErrCalcul, ERR_DIVISION);
    // A failure of a computation without a panel of its own is told whatever ShowValeurs says;
    // no failure, nothing.
    SignalerEchec(muet, d);
    ASSERT_EQ(d.Messages().size(), 1u);
    EXPECT_NE(d.Messages()[0].sMessage.find("(Division by zero)"), std::string::npos);
    EXPECT_EQ(muet.ErrCalcul, ERR_SIGNALEE);
    Etude sain;
    SignalerEchec(sain, d);
    EXPECT_EQ(d.Messages().size(), 1u);
    EXPECT_EQ(sain.ErrCalcul, 0);
}
