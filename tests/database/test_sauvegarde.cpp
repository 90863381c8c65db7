// SauverEtude and the save of the superposition window: the rows each step makes, the number
// asked when missing (a save that fails part-way is in the tests of the faults).
#include "BaseEssai.h"

namespace essai {

using Sauvegarde = BaseEssai;

TEST_F(Sauvegarde, LaPremiereSauvegardeDansUneBaseVideFaitUneLigneParTable) {
    Etude e = Etude_("Champagnier", "Grande Ile");
    e.TypeReportCharge = 1;
    e.ScaleLeft = -35.5f;
    e.EtudeModifiee = e.Sauvegarde = true;
    ASSERT_TRUE(base_->Sauver(e, d_));

    // No tee without a name of C; the line's row, made by the save; the relay's list and its end.
    EXPECT_EQ(Comptes(),
              "Poste 1 Départ 1 Piquage 0 Protection 1 Tournesol 1 Réglage 1 TR 6 Ligne 1");

    EXPECT_EQ(Valeur(R"(SELECT "nom" FROM "Poste" WHERE "id" = 1)").toString(), "Champagnier");
    // The line end was saved before its substation and still belongs to it.
    EXPECT_EQ(Valeur(R"(SELECT "id_poste" FROM "Départ" WHERE "nom" = 'Grande Ile')").toInt(), 1);
    EXPECT_EQ(Valeur(R"(SELECT "nom" FROM "Protection" WHERE "id" = 3)").toString(), "PD3A");
    EXPECT_EQ(Valeur(R"(SELECT "id_poste" || '/' || "id_départ" || '/' || "id_piquage" || '/' ||)"
                     R"( "id_protection" || '/' || "id_réglage" || '/' || "id_numéro" || '/' ||)"
                     R"( "id_ligne" FROM "Tournesol")")
                  .toString(),
              "1/1/0/3/1/1/1");
    QSqlQuery reglage(Controle());
    ASSERT_TRUE(reglage.exec(
        R"(SELECT "TypeReportCharge", "Left", "Width", "Top", "Height" FROM "Réglage")"));
    ASSERT_TRUE(reglage.next());
    EXPECT_EQ(std::tuple(reglage.value(0).toInt(), reglage.value(1).toDouble(),
                         reglage.value(2).toDouble(), reglage.value(3).toDouble(),
                         reglage.value(4).toDouble()),
              std::tuple(1, -35.5, 40.0, 20.0, -40.0));
    reglage.finish(); // the second user's read ends
    EXPECT_EQ(std::tuple(e.id_poste, e.id_depart, e.id_reglage, e.id_protection),
              std::tuple(1, 1, 1, PD3A));
    EXPECT_FALSE(e.EtudeModifiee || e.Sauvegarde);
    EXPECT_TRUE(d_.Messages().empty());

    // A tee is saved only when it has a name, with both its owners.
    Etude t = Etude_("Champagnier", "Grande Ile", "Vif");
    ASSERT_TRUE(OuvrirEtSauver(t));
    EXPECT_EQ(Valeur(R"(SELECT "id_départ" || '/' || "id_poste" FROM "Piquage")").toString(),
              "1/1");
}

TEST_F(Sauvegarde, SauverDeuxFoisMetAJourEtNAjouteRien) {
    Etude e = Etude_("A", "B", "C");
    ASSERT_TRUE(OuvrirEtSauver(e));
    const std::string apres1 = Contenu();
    e.Sauvegarde = true;
    ASSERT_TRUE(base_->Sauver(e, d_));
    EXPECT_EQ(Contenu(), apres1);

    e.Ligne_Up = 225;
    e.TypeReportCharge = 2;
    e.X1reg_HT = 20.0;
    ASSERT_TRUE(base_->Sauver(e, d_));
    EXPECT_EQ(Comptes(),
              "Poste 1 Départ 1 Piquage 1 Protection 1 Tournesol 1 Réglage 1 TR 6 Ligne 1");
    EXPECT_EQ(Valeur(R"(SELECT "Up" FROM "Ligne")").toInt(), 225);
    EXPECT_EQ(Valeur(R"(SELECT "TypeReportCharge" FROM "Réglage")").toInt(), 2);
    EXPECT_EQ(Valeur(R"(SELECT "Valeur" FROM "TR" WHERE "id_pos" = 0)").toDouble(), 20.0);
}

TEST_F(Sauvegarde, UnNomDeBVideLaisseDepartIntact) {
    Etude e = Etude_("A", "");
    ASSERT_TRUE(base_->Sauver(e, d_));
    EXPECT_EQ(Compter("Départ"), 0);
    EXPECT_GE(e.id_depart, 1);
    EXPECT_EQ(Compter("Poste"), 1);
}

TEST_F(Sauvegarde, UneNouvelleLigneNeReprendPasLesLignesDeLaBase) {
    Etude x = Etude_("X", "Y");
    ASSERT_TRUE(OuvrirEtSauver(x));
    Etude z = Etude_("Z", "W"); // keys 0: a line the base does not hold
    ASSERT_TRUE(base_->Sauver(z, d_));
    EXPECT_EQ(base_->Postes(), (std::vector<std::string>{"X", "Z"}));
    EXPECT_EQ(base_->Departs("X"), std::vector<std::string>{"Y"});
    EXPECT_EQ(base_->Departs("Z"), std::vector<std::string>{"W"});
    EXPECT_EQ(Compter("Tournesol"), 2);
    EXPECT_EQ(Compter("Réglage"), 2);
}

TEST_F(Sauvegarde, UnNumeroManquantEstDemandeAvantLeLien) {
    Etude e = Etude_("A", "B", "", PD3A, 0);
    Etude auPanneau;
    bool fichierAuPanneau = true;
    d_.QuandPanneau("frmnuméro", [&](Panneau& p) {
        auPanneau = e; // what was saved before the question
        fichierAuPanneau = QFile::exists(QString::fromStdString(base_->Fichier()));
        p.Trouver("txtnuméro")->DefinirTexte("4");
        p.Entrer("txtnuméro");
        EXPECT_EQ(p.Trouver("txtnuméro")->SelLongueur, 1); // the text is selected
        p.Cliquer("cmdok");
        EXPECT_TRUE(p.Ferme());
    });
    ASSERT_TRUE(base_->Sauver(e, d_));
    ASSERT_EQ(d_.Messages().size(), 1u);
    EXPECT_EQ(d_.Messages()[0].sMessage, "choisis un numéro de 1 à 6 dans la table suivante");
    EXPECT_EQ(d_.PanneauxMontres(), std::vector<std::string>{"frmnuméro"});
    // Asked before the base is taken: nothing of the save was written yet.
    EXPECT_FALSE(fichierAuPanneau);
    EXPECT_EQ(auPanneau.id_poste, 0);
    EXPECT_EQ(e.id_numero, 4);
    EXPECT_EQ(Valeur(R"(SELECT "id_numéro" FROM "Tournesol")").toInt(), 4);

    // A number below 1 is asked again; cancelled, the save gives up and writes nothing.
    const QByteArray avant = Empreinte();
    Etude f = Etude_("A", "C", "", PD3A, 0);
    int questions = 0;
    d_.QuandPanneau("frmnuméro", [&](Panneau& p) {
        if (++questions == 1) {
            p.Trouver("txtnuméro")->DefinirTexte("0");
            p.Cliquer("cmdok");
        } else {
            p.Cliquer("cmdcancel");
        }
    });
    EXPECT_FALSE(base_->Sauver(f, d_));
    EXPECT_EQ(questions, 2);
    EXPECT_EQ(f.id_numero, 0);
    EXPECT_EQ(Empreinte(), avant);
    EXPECT_EQ(Compter("Tournesol", R"(WHERE "id_numéro" < 1)"), 0);
}

TEST_F(Sauvegarde, UnRelaisHorsDuRegistreEstSignaleEtLaSauvegardeContinue) {
    Etude e = Etude_("A", "B", "", 0);
    e.NomProtection = "XYZ 12";
    ASSERT_TRUE(base_->Sauver(e, d_));
    ASSERT_EQ(d_.Messages().size(), 1u);
    EXPECT_EQ(d_.Messages()[0].sTitre, "TOURNESOL : unknown relay");
    EXPECT_EQ(d_.Messages()[0].sMessage, "the relay\"XYZ 12\" is not managed by TOURNESOL.");
    EXPECT_EQ(e.ErrCalcul, -1);
    EXPECT_EQ(Compter("Protection"), 0);
    EXPECT_EQ(Compter("Tournesol"), 1); // the later steps ran
}

TEST_F(Sauvegarde, UnNomAvecDesGuillemetsEstUnNomOrdinaire) {
    const std::string poste = "Saint-Jean-d'Angély \"Nord\"";
    const std::string depart = "l'Ile'; DROP TABLE \"Poste\"; --";
    Etude e = Etude_(poste, depart);
    ASSERT_TRUE(OuvrirEtSauver(e));
    EXPECT_EQ(base_->Postes(), std::vector<std::string>{poste});
    EXPECT_EQ(base_->Departs(poste), std::vector<std::string>{depart});

    Etude f = Etude_(poste, depart);
    base_->Ouvrir(f, d_);
    EXPECT_FALSE(f.NouvelleLigne);
    EXPECT_EQ(f.id_poste, e.id_poste);
    EXPECT_EQ(f.id_reglage, e.id_reglage);
}

TEST_F(Sauvegarde, DepuisLaSuperpositionSeulsLeReglageDuRelaisEstEcrit) {
    Etude e = Etude_("A", "B");
    ASSERT_TRUE(OuvrirEtSauver(e));
    const int liens = Compter("Tournesol");
    const QVariant up = Valeur(R"(SELECT "Up" FROM "Ligne")");

    e.NomPoste = "autre nom";
    e.Ligne_Up = 90;
    e.ScaleLeft = -100.0f;
    e.TypeReportCharge = 2;
    e.X1reg_HT = 77.0;
    e.EtudeModifiee = true;
    ASSERT_TRUE(base_->SauverDepuisSuperposition(e, d_));
    EXPECT_EQ(Valeur(R"(SELECT "Up" FROM "Ligne")"), up);
    EXPECT_EQ(base_->Postes(), std::vector<std::string>{"A"});
    EXPECT_EQ(Compter("Tournesol"), liens);
    EXPECT_EQ(Valeur(R"(SELECT "Left" FROM "Réglage")").toFloat(), -20.0f);
    EXPECT_EQ(Valeur(R"(SELECT "TypeReportCharge" FROM "Réglage")").toInt(), 0);
    EXPECT_EQ(Valeur(R"(SELECT "Valeur" FROM "TR" WHERE "id_pos" = 0)").toDouble(), 77.0);
    EXPECT_FALSE(e.EtudeModifiee);
}

} // namespace essai
