// A save that fails at any step, for a new line and for a saved one, leaves the base file byte
// for byte as it was and says why; the study keeps its keys, and the next save succeeds.
#include "BaseEssai.h"

namespace essai {

using Fautes = BaseEssai;

namespace {

struct Faute {
    const char* table;
    const char* operation;      // INSERT or UPDATE
    bool nouvelle;              // the save of a new line (else of the line already saved)
    const char* condition = ""; // the rows refused; all when empty
};

// Every write of the save: a new line of a new substation with a tee and a relay type the base
// does not hold inserts into every table, and updates the row of its line and the owners of its
// line end and tee; a saved line updates every row it has. A setting refused in the middle of
// its list undoes the values written before it.
constexpr Faute FAUTES[] = {
    {"Ligne", "INSERT", true},       {"Ligne", "UPDATE", true},
    {"Départ", "INSERT", true},      {"Départ", "UPDATE", true},
    {"Piquage", "INSERT", true},     {"Piquage", "UPDATE", true},
    {"Poste", "INSERT", true},       {"Protection", "INSERT", true},
    {"Tournesol", "INSERT", true},   {"Réglage", "INSERT", true},
    {"TR", "INSERT", true},          {"TR", "INSERT", true, R"(NEW."id_pos" = 3)"},
    {"Ligne", "UPDATE", false},      {"Départ", "UPDATE", false},
    {"Piquage", "UPDATE", false},    {"Poste", "UPDATE", false},
    {"Protection", "UPDATE", false}, {"Tournesol", "UPDATE", false},
    {"Réglage", "UPDATE", false},    {"TR", "UPDATE", false},
};

} // namespace

TEST_F(Fautes, UneFauteAChaqueEtapeLaisseLeFichierIntact) {
    Etude sauvee = Etude_("A", "B", "T");
    ASSERT_TRUE(OuvrirEtSauver(sauvee));
    FermerControle();
    const QString journal = QString::fromStdString(base_->Fichier() + "-journal");

    for (const Faute& f : FAUTES) {
        const std::string quoi = std::string(f.operation) + " " + f.table +
                                 (f.nouvelle ? " (new line) " : " ") + f.condition;
        Refuser(f.table, f.operation, "refused by the disk", f.condition);
        FermerControle();
        const QByteArray avant = Empreinte();

        Etude e = f.nouvelle ? Etude_("N", "M", "P", RXAP) : sauvee;
        if (f.nouvelle) base_->Ouvrir(e, d_);
        e.Ligne_Up = 400;
        e.X1reg_HT = 99.0;
        e.EtudeModifiee = true;
        const Etude ouverte = e;
        EXPECT_FALSE(base_->Sauver(e, d_)) << quoi;
        EXPECT_EQ(Empreinte(), avant) << quoi;
        EXPECT_FALSE(QFile::exists(journal)) << quoi;
        ASSERT_FALSE(d_.Messages().empty()) << quoi;
        const MessageAffiche& m = d_.Messages().back();
        EXPECT_EQ(m.sTitre, "TOURNESOL : Attention !") << quoi;
        EXPECT_EQ(m.IconeMessage, 2) << quoi;
        EXPECT_NE(m.sMessage.find("The study is not saved"), std::string::npos) << quoi;
        EXPECT_NE(m.sMessage.find("refused by the disk"), std::string::npos) << quoi;
        EXPECT_EQ(std::tuple(e.id_ligne, e.id_poste, e.id_depart, e.id_piquage, e.id_reglage),
                  std::tuple(ouverte.id_ligne, ouverte.id_poste, ouverte.id_depart,
                             ouverte.id_piquage, ouverte.id_reglage))
            << quoi;
        EXPECT_TRUE(e.EtudeModifiee) << quoi;
        EXPECT_FALSE(e.ConnexionOuverte) << quoi;
        Permettre(f.table);
    }
    // Nothing of the new line was ever written; the saved line is as the first save left it.
    EXPECT_TRUE(base_->Departs("N").empty());
    EXPECT_EQ(Comptes(),
              "Poste 1 Départ 1 Piquage 1 Protection 1 Tournesol 1 Réglage 1 TR 6 Ligne 1");
    Etude relue = Etude_("A", "B", "T");
    base_->Ouvrir(relue, d_);
    EXPECT_EQ(relue.X1reg_HT, sauvee.X1reg_HT);
    EXPECT_EQ(relue.Ligne_Up, sauvee.Ligne_Up);

    // Without the faults, the same saves go through.
    Etude nouvelle = Etude_("N", "M", "P", RXAP);
    base_->Ouvrir(nouvelle, d_);
    EXPECT_TRUE(base_->Sauver(nouvelle, d_));
    EXPECT_EQ(base_->Piquages("N", "M"), std::vector<std::string>{"P"});
    EXPECT_EQ(Comptes(),
              "Poste 2 Départ 2 Piquage 2 Protection 2 Tournesol 2 Réglage 2 TR 12 Ligne 2");
}

// Writes of earlier versions under the key 0 belong to no relay: the next save removes them.
TEST_F(Fautes, LesValeursSousLaCleZeroSontRetireesParLaSauvegarde) {
    Etude e = Etude_("A", "B");
    ASSERT_TRUE(OuvrirEtSauver(e));
    Executer(R"(INSERT INTO "TR" ("id_key", "id_pos", "Valeur", "TypeValeur") VALUES)"
             R"( (0, 100, 1, 2), (0, 101, 0, 2), (0, 102, 4500.0, 5))");
    ASSERT_TRUE(base_->Sauver(e, d_));
    EXPECT_EQ(Compter("TR", R"(WHERE "id_key" = 0)"), 0);
    EXPECT_EQ(Compter("TR"), 6);
}

} // namespace essai
