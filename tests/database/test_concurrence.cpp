// Two users saving at the same moment on the shared base of a server: two processes, each saving
// 200 times, on two relays of one line, then on the same relay. Nothing is lost, no key is taken
// twice, and every study reopens whole, as one save left it.
#include "BaseEssai.h"

#include <spawn.h>
#include <sys/wait.h>

extern char** environ;

namespace essai {

namespace {

constexpr int SAUVEGARDES = 200;

// A writer process started at once; Fin() waits for it and gives its exit code.
class Ecrivain {
public:
    Ecrivain(const std::string& base, int protection, int marque) {
        const std::vector<std::string> args = {
            TOURNESOL_ECRIVAIN,         base, "Champagnier",          "Grande Ile",
            std::to_string(protection), "1",  std::to_string(marque), std::to_string(SAUVEGARDES)};
        std::vector<char*> argv;
        for (const std::string& a : args)
            argv.push_back(const_cast<char*>(a.c_str()));
        argv.push_back(nullptr);
        if (posix_spawn(&pid_, TOURNESOL_ECRIVAIN, nullptr, nullptr, argv.data(), environ) != 0)
            pid_ = -1;
    }
    int Fin() {
        if (pid_ <= 0) return -1;
        int statut = 0;
        if (waitpid(pid_, &statut, 0) != pid_) return -1;
        pid_ = -1;
        return WIFEXITED(statut) ? WEXITSTATUS(statut) : -1;
    }
    ~Ecrivain() { Fin(); }

private:
    pid_t pid_ = -1;
};

} // namespace

class Concurrence : public BaseEssai {
protected:
    void SetUp() override {
        BaseEssai::SetUp();
        if (!IsSkipped() && !SurServeur()) GTEST_SKIP() << "two processes on the server's base";
        InscrireReglagesRelais(1, EcrireListeEssai, LireListeEssai);
        InscrireReglagesRelais(2, EcrireListeEssai, LireListeEssai);
    }
    void TearDown() override {
        InscrireReglagesRelais(1, nullptr, nullptr);
        InscrireReglagesRelais(2, nullptr, nullptr);
        BaseEssai::TearDown();
    }

    // The relay read back, with the mark of the writer whose save it is; that save must be its
    // writer's last, and every value of the relay must come from it.
    int Relu(int protection) {
        Etude e;
        e.NomPoste = "Champagnier";
        e.NomDepart = "Grande Ile";
        e.id_protection = e.ProtectionChoisie = protection;
        e.NomProtection = "relais " + std::to_string(protection);
        e.id_numero = 1;
        base_->Ouvrir(e, d_);
        EXPECT_FALSE(e.NouvelleLigne);
        const int marque = static_cast<int>(e.Rreg_HT);
        const double derniere = marque * 10000 + SAUVEGARDES - 1;
        EXPECT_TRUE(marque == 1 || marque == 2) << marque;
        EXPECT_EQ(e.X1reg_HT, derniere);
        EXPECT_EQ(e.X2reg_HT, derniere + 0.5);
        EXPECT_EQ(e.T1, SAUVEGARDES - 1);
        lignes_.push_back(e.Ligne_Up);
        return marque;
    }

    std::vector<int> lignes_;
};

TEST_F(Concurrence, DeuxRelaisDUneLigneSauvesEnMemeTempsRestentEntiers) {
    // An empty base: the two writers also meet on the making of the tables.
    {
        Ecrivain a(rep_, 1, 1);
        Ecrivain b(rep_, 2, 2);
        EXPECT_EQ(a.Fin(), 0);
        EXPECT_EQ(b.Fin(), 0);
    }
    EXPECT_EQ(Comptes(),
              "Poste 1 Départ 1 Piquage 0 Protection 2 Tournesol 2 Réglage 2 TR 12 Ligne 1");
    EXPECT_EQ(Compter("Tournesol", R"(WHERE "id_ligne" = 1)"), 2);
    EXPECT_EQ(Relu(1), 1);
    EXPECT_EQ(Relu(2), 2);
    // The line is the one of the last save: the last of one of the two writers.
    ASSERT_EQ(lignes_.size(), 2u);
    EXPECT_EQ(lignes_[0], lignes_[1]);
    EXPECT_TRUE(lignes_[0] == 10000 + SAUVEGARDES - 1 || lignes_[0] == 20000 + SAUVEGARDES - 1)
        << lignes_[0];
    // The keys were handed out one after the other: largest id plus one, none twice.
    EXPECT_EQ(Valeur(R"(SELECT MAX("id") FROM "Réglage")").toInt(), 2);
    EXPECT_EQ(Valeur(R"(SELECT MAX("id") FROM "Tournesol")").toInt(), 2);
}

TEST_F(Concurrence, LeMemeRelaisSauveEnMemeTempsEstCeluiDuDernier) {
    Etude premiere = Etude_("Champagnier", "Grande Ile", "", 1);
    premiere.NomProtection = "relais 1";
    ASSERT_TRUE(OuvrirEtSauver(premiere));
    {
        Ecrivain a(rep_, 1, 1);
        Ecrivain b(rep_, 1, 2);
        EXPECT_EQ(a.Fin(), 0);
        EXPECT_EQ(b.Fin(), 0);
    }
    EXPECT_EQ(Comptes(),
              "Poste 1 Départ 1 Piquage 0 Protection 1 Tournesol 1 Réglage 1 TR 6 Ligne 1");
    // The line and the relay from the same save, never a mix of the two writers.
    const int marque = Relu(1);
    ASSERT_EQ(lignes_.size(), 1u);
    EXPECT_EQ(lignes_[0], marque * 10000 + SAUVEGARDES - 1);
    EXPECT_EQ(Valeur(R"(SELECT "Ip" FROM "Ligne")").toInt(), marque);
}

} // namespace essai
