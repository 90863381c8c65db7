// The list of substations kept between two reads and brought up to date by the file's journal of
// the names changed since: it must always be the list a whole read gives.
#include "BaseEssai.h"

#include <string>
#include <vector>

namespace essai {

using JournalPostes = BaseEssai;
using Noms = std::vector<std::string>;

TEST_F(JournalPostes, LaListeGardeeSuitLeJournalCommeUneLectureEntiere) {
    for (Etude e : {Etude_("B", "X"), Etude_("D", "X")})
        ASSERT_TRUE(OuvrirEtSauver(e));
    EXPECT_EQ(base_->Postes(), (Noms{"B", "D"}));
    // A name held twice, one of the two removed: the name stays.
    Executer(R"(INSERT INTO "Poste" ("id", "nom") VALUES (10, 'C'), (11, 'C'), (12, 'A'))");
    EXPECT_EQ(base_->Postes(), (Noms{"A", "B", "C", "D"}));
    Executer(R"(DELETE FROM "Poste" WHERE "id" = 10)");
    EXPECT_EQ(base_->Postes(), (Noms{"A", "B", "C", "D"}));
    // Renamed onto a name that exists, then away from it.
    Executer(R"(UPDATE "Poste" SET "nom" = 'B' WHERE "id" = 11)");
    EXPECT_EQ(base_->Postes(), (Noms{"A", "B", "D"}));
    Executer(R"(UPDATE "Poste" SET "nom" = 'É' WHERE "id" = 11)");
    EXPECT_EQ(base_->Postes(), (Noms{"A", "B", "D", "É"}));
    // More changes than the journal is followed for: the list is read whole, and is the same.
    std::string valeurs;
    for (int i = 0; i < 700; ++i)
        valeurs += (i ? ", (" : "(") + std::to_string(100 + i) + ", 'P" + std::to_string(i) + "')";
    Executer(R"(INSERT INTO "Poste" ("id", "nom") VALUES )" + valeurs);
    Executer(R"(DELETE FROM "Poste" WHERE "id" >= 100 AND "id" <> 150)");
    EXPECT_EQ(base_->Postes(), (Noms{"A", "B", "D", "P50", "É"}));
    // Then followed again from there.
    Executer(R"(DELETE FROM "Poste" WHERE "id" = 150)");
    EXPECT_EQ(base_->Postes(), (Noms{"A", "B", "D", "É"}));
}

} // namespace essai
