// The positional setting store, on the store kept in memory.
#include "core/Etude.h"
#include "core/Magasin.h"

#include <gtest/gtest.h>

using namespace tournesol;

TEST(MagasinReglages, PositionsTypesEtValeursManquantes) {
    Etude e;
    MagasinMemoire m;
    e.id_reglage = 7;
    DebutTR(e);
    EcrireTR(e, m, 12.5);
    EcrireTR(e, m, std::int16_t{-1});
    EcrireTR(e, m, 0.1f);
    EcrireTR(e, m, 0.0); // 0 is a value
    EXPECT_EQ(e.PositionTR, 4);

    DebutTR(e);
    double x = 0.0;
    bool option = false;
    float f = 0.0f;
    double zero = 3.0;
    LireDans(LireTR(e, m), x);
    LireDans(LireTR(e, m), option);
    const ValeurTR troisieme = LireTR(e, m);
    LireDans(troisieme, f);
    LireDans(LireTR(e, m), zero);
    EXPECT_EQ(x, 12.5);
    EXPECT_TRUE(option);
    EXPECT_TRUE(std::holds_alternative<float>(troisieme)); // back in the type it was written
    EXPECT_EQ(f, 0.1f);
    EXPECT_EQ(zero, 0.0);
    EXPECT_FALSE(e.FinTR);

    double reste = 5.0;
    LireDans(LireTR(e, m), reste); // past the end: missing, the variable keeps its value
    EXPECT_EQ(reste, 5.0);
    EXPECT_TRUE(e.FinTR);

    // Another setting row does not see these values; writing again replaces in place.
    e.id_reglage = 8;
    DebutTR(e);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(LireTR(e, m)));
    e.id_reglage = 7;
    DebutTR(e);
    EcrireTR(e, m, 1.0);
    EXPECT_EQ(m.Taille(), 4u);
}
