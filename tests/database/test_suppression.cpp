// The deletion dialog (frmSupprimerPoste) and its three cascades.
#include "BaseEssai.h"
#include "database/PanneauSupprimerPoste.h"

namespace essai {

class Suppression : public BaseEssai {
protected:
    // Saves the lines A-B-T (RXAP 1), A-B (PD3A 1 and 2, RXAP 1), A-C (PD3A 1) and X-Y (PD3A 1).
    void SetUp() override {
        BaseEssai::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        // The teed line first: its RXAP 1 is not the RXAP 1 of the line of two ends.
        for (Etude e : {Etude_("A", "B", "T", RXAP, 1), Etude_("A", "B", "", PD3A, 1),
                        Etude_("A", "B", "", PD3A, 2), Etude_("A", "B", "", RXAP, 1),
                        Etude_("A", "C"), Etude_("X", "Y")})
            ASSERT_TRUE(OuvrirEtSauver(e));
        ASSERT_EQ(Comptes(),
                  "Poste 2 Départ 3 Piquage 1 Protection 2 Tournesol 6 Réglage 6 TR 36 Ligne 4");
        d_ = DialogueScripte();
    }

    // The dialog as the opening dialog shows it, with `option` chosen and cmdok answered with
    // `reponse`.
    std::unique_ptr<PanneauSupprimerPoste> Supprimer(Etude& e, const char* option,
                                                     int reponse = 0) {
        std::unique_ptr<Panneau> p = base_->PanneauSuppression(e, d_);
        auto* panneau = dynamic_cast<PanneauSupprimerPoste*>(p.get());
        EXPECT_NE(panneau, nullptr);
        p.release();
        std::unique_ptr<PanneauSupprimerPoste> s(panneau);
        EXPECT_TRUE(s->Trouver("chksupprimerprotection")->Valeur); // opens on the relay option
        s->Cliquer(option);
        d_.AjouterReponses({reponse});
        s->Cliquer("cmdok");
        return s;
    }

    int Liens(const std::string& condition) { return Compter("Tournesol", "WHERE " + condition); }
};

TEST_F(Suppression, UnRelaisParmiPlusieursPartAvecSesReglages) {
    const int reglage =
        Valeur(R"(SELECT "id_réglage" FROM "Tournesol" WHERE "id_numéro" = 2)").toInt();
    Etude e = Etude_("A", "B", "", PD3A, 2);
    const auto p = Supprimer(e, "chksupprimerprotection");
    ASSERT_EQ(d_.Messages().size(), 1u);
    EXPECT_EQ(d_.Messages()[0].sTitre, "TOURNESOL : Suppression de protection");
    EXPECT_EQ(d_.Messages()[0].sMessage,
              "STP Confirme la suppression du poste A, départ B, protection PD3A");
    EXPECT_EQ(d_.Messages()[0].BoutonsQuestion, (Boutons{"&Supprimer", "&Annuler", ""}));
    EXPECT_TRUE(p->Ferme());
    EXPECT_FALSE(p->ViderDepartPiquage());
    EXPECT_EQ(Compter("Tournesol"), 5);
    EXPECT_EQ(Compter("Réglage", "WHERE \"id\" = " + std::to_string(reglage)), 0);
    EXPECT_EQ(Compter("TR", "WHERE \"id_key\" = " + std::to_string(reglage)), 0);
    EXPECT_EQ(Compter("TR"), 30);
    EXPECT_EQ(base_->Numeros("A", "B", "", "PD3A"), std::vector<int>{1});

    // The RXAP 1 of the line of two ends, not the one of the teed line.
    Etude rxap = Etude_("A", "B", "", RXAP, 1);
    Supprimer(rxap, "chksupprimerprotection");
    EXPECT_EQ(base_->Protections("A", "B", ""),
              (std::vector<std::string>{"PD3A", NOUVELLE_PROTECTION}));
    EXPECT_EQ(base_->Protections("A", "B", "T"),
              (std::vector<std::string>{"RXAP", NOUVELLE_PROTECTION}));
    EXPECT_EQ(Compter("TR"), 24);
}

TEST_F(Suppression, LeSeulRelaisDUneLigneGardeSonLien) {
    const std::string lienXY = R"(SELECT "id_réglage" FROM "Tournesol" WHERE "id_poste" =)"
                               R"( (SELECT "id" FROM "Poste" WHERE "nom" = 'X'))";
    Etude e = Etude_("X", "Y");
    Supprimer(e, "chksupprimerprotection");
    EXPECT_EQ(Liens(R"("id_poste" = 2)"), 1); // the line stays in the base
    EXPECT_EQ(Valeur(lienXY).toInt(), 0);
    EXPECT_EQ(Comptes(),
              "Poste 2 Départ 3 Piquage 1 Protection 2 Tournesol 6 Réglage 5 TR 30 Ligne 4");

    // Saved again, the relay gets a setting row of its own.
    Etude f = Etude_("X", "Y");
    ASSERT_TRUE(OuvrirEtSauver(f));
    EXPECT_FALSE(f.NouvelleLigne);
    EXPECT_EQ(Compter("Réglage"), 6);
    EXPECT_EQ(Valeur(lienXY).toInt(), f.id_reglage);
    EXPECT_EQ(Compter("TR", "WHERE \"id_key\" = " + std::to_string(f.id_reglage)), 6);
}

TEST_F(Suppression, UneLigneEmporteSesRelaisSesPiquagesEtSaLigne) {
    Etude e = Etude_("A", "B", "", PD3A, 1);
    const auto p = Supprimer(e, "chksupprimerdépart");
    EXPECT_EQ(d_.Messages()[0].sTitre, "TOURNESOL : Suppression de départ");
    EXPECT_EQ(d_.Messages()[0].sMessage, "STP Confirme la suppression du poste A, départ B");
    EXPECT_TRUE(p->ViderDepartPiquage());
    EXPECT_FALSE(p->ViderPoste());
    EXPECT_TRUE(e.NomDepart.empty());
    EXPECT_EQ(e.NomPoste, "A");

    EXPECT_EQ(base_->Departs("A"), std::vector<std::string>{"C"});
    // A-C and X-Y remain.
    EXPECT_EQ(Comptes(),
              "Poste 2 Départ 2 Piquage 0 Protection 2 Tournesol 2 Réglage 2 TR 12 Ligne 2");
    EXPECT_EQ(Compter("Ligne", R"(WHERE "id" IN (SELECT "id_ligne" FROM "Tournesol"))"), 2);
    EXPECT_EQ(base_->Postes(), (std::vector<std::string>{"A", "X"}));
}

TEST_F(Suppression, UneLigneEnPiquageLaisseLaLigneDeDeuxBouts) {
    Etude e = Etude_("A", "B", "T", RXAP);
    Supprimer(e, "chksupprimerdépart");
    EXPECT_EQ(d_.Messages()[0].sMessage,
              "STP Confirme la suppression du poste A, départ B, piquage T");
    EXPECT_EQ(Comptes(),
              "Poste 2 Départ 3 Piquage 0 Protection 2 Tournesol 5 Réglage 5 TR 30 Ligne 3");
    EXPECT_EQ(base_->Departs("A"), (std::vector<std::string>{"B", "C"}));
    EXPECT_EQ(base_->Protections("A", "B", ""),
              (std::vector<std::string>{"PD3A", "RXAP", NOUVELLE_PROTECTION}));
}

TEST_F(Suppression, UnPosteEmporteToutesSesLignes) {
    Executer(R"(INSERT INTO "Poste" ("id", "nom") VALUES (20, 'seul'))");
    Etude e = Etude_("A", "B");
    const auto p = Supprimer(e, "chksupprimerposte");
    EXPECT_EQ(d_.Messages()[0].sTitre, "TOURNESOL : Suppression de poste");
    EXPECT_EQ(d_.Messages()[0].sMessage, "STP Confirme la suppression du poste A");
    EXPECT_TRUE(p->ViderPoste());
    EXPECT_TRUE(e.NomPoste.empty());
    EXPECT_EQ(base_->Postes(), (std::vector<std::string>{"X", "seul"}));
    EXPECT_EQ(Comptes(),
              "Poste 2 Départ 1 Piquage 0 Protection 2 Tournesol 1 Réglage 1 TR 6 Ligne 1");

    // A substation without a link row goes at once.
    Etude seul = Etude_("seul", "");
    Supprimer(seul, "chksupprimerposte");
    EXPECT_EQ(base_->Postes(), std::vector<std::string>{"X"});
}

TEST_F(Suppression, AnnulerGardeLeDialogueEtLaBase) {
    const std::string avant = Contenu();
    Etude e = Etude_("A", "B");
    const auto p = Supprimer(e, "chksupprimerposte", 1);
    EXPECT_FALSE(p->Ferme());
    EXPECT_EQ(Contenu(), avant);
    p->Cliquer("cmdcancel");
    EXPECT_TRUE(p->Ferme());
    EXPECT_EQ(Contenu(), avant);

    // Names the base does not know delete nothing, without a word.
    Etude inconnu = Etude_("A", "Z");
    Supprimer(inconnu, "chksupprimerdépart");
    Etude tee = Etude_("A", "B", "inconnu", RXAP);
    Supprimer(tee, "chksupprimerdépart");
    EXPECT_EQ(Contenu(), avant);
    EXPECT_EQ(d_.Messages().size(), 3u); // the three confirmations only
}

} // namespace essai
