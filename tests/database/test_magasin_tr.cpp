// The setting store on table TR: values back in the type they were written, missing values,
// relays kept apart, rows written over in place.
#include "BaseEssai.h"
#include "network/PanneauxBouts.h"

namespace essai {

class MagasinTR : public BaseEssai {
protected:
    void SetUp() override {
        BaseEssai::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        Etude vide;
        ASSERT_TRUE(base_->OuvrirConnexion(vide, d_)); // a base with its tables
        base_->FermerConnexion(vide);
    }

    // The values of a setting row, read from its start.
    std::vector<ValeurTR> Lire(Etude& e, int n) {
        std::vector<ValeurTR> v;
        DebutTR(e);
        for (int i = 0; i < n; ++i)
            v.push_back(LireTR(e, base_->Magasin()));
        return v;
    }
};

TEST_F(MagasinTR, LesValeursRevienentDansLeurType) {
    const std::vector<ValeurTR> ecrites = {
        0.1, 0.1f, std::int16_t{-1}, 0.0 /* a value */, 1.0 / 3.0, std::int16_t{32767}};
    Etude e;
    e.id_reglage = 5;
    DebutTR(e);
    for (const ValeurTR& v : ecrites)
        EcrireTR(e, base_->Magasin(), v);
    EXPECT_EQ(e.PositionTR, 6);
    EXPECT_EQ(Lire(e, 6), ecrites); // same type, same bits
    EXPECT_FALSE(e.FinTR);

    // Past the end: missing, and FinTR stays set.
    EXPECT_EQ(LireTR(e, base_->Magasin()), ValeurTR{});
    EXPECT_TRUE(e.FinTR);
    Lire(e, 1);
    EXPECT_TRUE(e.FinTR);
}

TEST_F(MagasinTR, UnVideUnNulOuUnReglageJamaisSauveSontManquants) {
    Etude e;
    e.id_reglage = 9;
    DebutTR(e);
    EcrireTR(e, base_->Magasin(), ValeurTR{});
    if (!SurServeur()) // a number column of the server takes no text
        Executer(
            R"(INSERT INTO "TR" ("id_key", "id_pos", "Valeur", "TypeValeur") VALUES (9, 1, '', 5))");
    EXPECT_EQ(Lire(e, 2), std::vector<ValeurTR>(2));
    EXPECT_TRUE(e.FinTR);
    e.FinTR = false;
    e.id_reglage = 10;
    EXPECT_EQ(Lire(e, 3), std::vector<ValeurTR>(3));
    EXPECT_TRUE(e.FinTR);
}

TEST_F(MagasinTR, UneListeReecriteGardeSesLignesEtDeuxReglagesSontSepares) {
    Etude e;
    auto ecrire = [&](int reglage, std::initializer_list<double> valeurs) {
        e.id_reglage = reglage;
        DebutTR(e);
        for (double x : valeurs)
            EcrireTR(e, base_->Magasin(), x);
    };
    ecrire(1, {1.0, 2.0, 3.0});
    ecrire(2, {10.0, 20.0});
    ecrire(1, {4.0, 5.0}); // shorter: the tail stays, unread
    EXPECT_EQ(Compter("TR"), 5);
    EXPECT_EQ(Lire(e, 3), (std::vector<ValeurTR>{4.0, 5.0, 3.0}));
    e.id_reglage = 2;
    EXPECT_EQ(Lire(e, 3), (std::vector<ValeurTR>{10.0, 20.0, {}}));
}

TEST_F(MagasinTR, LesReglagesDeDeuxRelaisDUneLigneSontSauvesApart) {
    Etude pd3a = Etude_("A", "B", "", PD3A);
    ASSERT_TRUE(OuvrirEtSauver(pd3a));
    Etude rxap = Etude_("A", "B", "", RXAP);
    rxap.X1reg_HT = 99.5;
    rxap.Teleaction = false;
    ASSERT_TRUE(OuvrirEtSauver(rxap));
    EXPECT_NE(pd3a.id_reglage, rxap.id_reglage);
    ASSERT_TRUE(base_->Sauver(rxap, d_));
    ASSERT_TRUE(base_->Sauver(pd3a, d_));
    EXPECT_EQ(Compter("TR"), 12);                            // five values and the end of each
    EXPECT_EQ(Compter("TR", "WHERE \"TypeValeur\" = 4"), 2); // Rreg_HT of each, 32-bit
    EXPECT_EQ(Lire(rxap, 5),
              (std::vector<ValeurTR>{99.5, 5.5f, std::int16_t{350}, std::int16_t{0}, 0.0}));
    EXPECT_EQ(Lire(pd3a, 5),
              (std::vector<ValeurTR>{12.34, 5.5f, std::int16_t{350}, std::int16_t{-1}, 0.0}));
}

} // namespace essai

namespace essai {

// The three-ended line panel's values belong to the study: the save writes them under the key of
// the relay saved, and a relay not saved yet never sees what another left in the store.
TEST_F(MagasinTR, LaListeDesTroisBoutsEstSauveeSousLeRelais) {
    // What an earlier version wrote at the panel's OK for a relay not saved yet.
    Executer(R"(INSERT INTO "TR" ("id_key", "id_pos", "Valeur", "TypeValeur") VALUES)"
             R"( (0, 100, 2, 2), (0, 101, -1, 2), (0, 102, 4321.0, 5))");
    Etude nouvelle = Etude_("A", "B", "C");
    nouvelle.LigneTroisBouts = true;
    base_->Ouvrir(nouvelle, d_);
    {
        PanneauTroisBouts panneau(nouvelle, &base_->Magasin());
        EXPECT_EQ(panneau.Trouver("placerprotection")->IndexListe, 0);
        EXPECT_FALSE(panneau.Trouver("chkcourcirc")->Valeur);
    }
    nouvelle.Ligne_pp = 1;
    nouvelle.Ligne_cc = -1;
    nouvelle.Ligne_ICCACM = 1234.5;
    nouvelle.Ligne_IPCABT = 678.0;
    ASSERT_TRUE(base_->Sauver(nouvelle, d_));
    EXPECT_EQ(Compter("TR", R"(WHERE "id_key" = 0)"), 0);
    EXPECT_EQ(Compter("TR"), 5 + 22);
    DebutTR(nouvelle, DEBUT_LISTE_BOUTS);
    EXPECT_EQ(LireTR(nouvelle, base_->Magasin()), ValeurTR{std::int16_t{1}});
    EXPECT_EQ(LireTR(nouvelle, base_->Magasin()), ValeurTR{std::int16_t{-1}});
    EXPECT_EQ(LireTR(nouvelle, base_->Magasin()), ValeurTR{1234.5});
    DebutTR(nouvelle, DEBUT_LISTE_BOUTS + 21);
    EXPECT_EQ(LireTR(nouvelle, base_->Magasin()), ValeurTR{678.0});

    // Reopened, the panel shows what was saved for this relay.
    Etude relue = Etude_("A", "B", "C");
    relue.LigneTroisBouts = true;
    base_->Ouvrir(relue, d_);
    PanneauTroisBouts panneau(relue, &base_->Magasin());
    EXPECT_EQ(panneau.Trouver("placerprotection")->IndexListe, 1);
    EXPECT_TRUE(panneau.Trouver("chkcourcirc")->Valeur);
}

} // namespace essai
