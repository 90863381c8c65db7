// Who saved a relay and when: kept on its link row and on its line by every save, told to the
// opening dialog; and a server that stops in the middle of a save.
#include "BaseEssai.h"
#include "database/Schema.h"

#include <QDateTime>
#include <cstdlib>

namespace essai {

namespace {

// The save as another login.
class Utilisateur {
public:
    explicit Utilisateur(const char* nom) {
        if (const char* avant = std::getenv("USER")) avant_ = avant;
        setenv("USER", nom, 1);
    }
    ~Utilisateur() {
        if (avant_)
            setenv("USER", avant_->c_str(), 1);
        else
            unsetenv("USER");
    }

private:
    std::optional<std::string> avant_;
};

QDateTime Date(const std::string& texte) {
    return QDateTime::fromString(QString::fromStdString(texte), Qt::ISODate);
}

} // namespace

using Signature = BaseEssai;

TEST_F(Signature, ChaqueSauvegardeDitQuiEtQuandSurLeLienEtLaLigne) {
    const QDateTime debut = QDateTime::currentDateTimeUtc().addSecs(-1);
    Etude e = Etude_("A", "B");
    Etude f = Etude_("A", "B", "", RXAP);
    {
        Utilisateur u("adupont");
        ASSERT_TRUE(OuvrirEtSauver(e));
    }
    {
        Utilisateur u("bmartin");
        ASSERT_TRUE(OuvrirEtSauver(f));
    }
    const QDateTime fin = QDateTime::currentDateTimeUtc().addSecs(1);

    // Each relay says who saved it; the line, who saved it last.
    const SignatureSauvegarde pd3a = base_->DerniereSauvegarde("A", "B", "", "PD3A", 1);
    const SignatureSauvegarde rxap = base_->DerniereSauvegarde("A", "B", "", "RXAP", 1);
    EXPECT_EQ(pd3a.auteur, "adupont");
    EXPECT_EQ(rxap.auteur, "bmartin");
    for (const std::string& date : {pd3a.date, rxap.date}) {
        EXPECT_EQ(date.size(), 20u) << date; // 2026-03-14T09:26:53Z
        EXPECT_EQ(Date(date).timeSpec(), Qt::UTC) << date;
        EXPECT_TRUE(Date(date) >= debut && Date(date) <= fin) << date;
    }
    EXPECT_EQ(Valeur(R"(SELECT "sauvé_par" FROM "Ligne")").toString(), "bmartin");
    EXPECT_EQ(Valeur(R"(SELECT "sauvé_le" FROM "Ligne")").toString().toStdString(), rxap.date);

    // A relay the base does not hold, or a line it does not know, does not say.
    EXPECT_TRUE(base_->DerniereSauvegarde("A", "B", "", "PD3A", 2).Vide());
    EXPECT_TRUE(base_->DerniereSauvegarde("A", "X", "", "PD3A", 1).Vide());
    EXPECT_TRUE(base_->DerniereSauvegarde("A", "B", "T", "PD3A", 1).Vide());

    // The superposition's save signs the relay it writes, not the line it does not write.
    {
        Utilisateur u("cbernard");
        e.X1reg_HT = 8.0;
        ASSERT_TRUE(base_->SauverDepuisSuperposition(e, d_));
    }
    EXPECT_EQ(base_->DerniereSauvegarde("A", "B", "", "PD3A", 1).auteur, "cbernard");
    EXPECT_EQ(base_->DerniereSauvegarde("A", "B", "", "RXAP", 1).auteur, "bmartin");
    EXPECT_EQ(Valeur(R"(SELECT "sauvé_par" FROM "Ligne")").toString(), "bmartin");

    // A save that fails signs nothing.
    Refuser("TR", "UPDATE", "refused");
    {
        Utilisateur u("dlefevre");
        EXPECT_FALSE(base_->Sauver(f, d_));
    }
    EXPECT_EQ(base_->DerniereSauvegarde("A", "B", "", "RXAP", 1).auteur, "bmartin");
    EXPECT_EQ(Valeur(R"(SELECT "sauvé_par" FROM "Ligne")").toString(), "bmartin");
}

// A base of an earlier version, without the columns, the index of the link rows by their setting
// row and, in a file, the count of the changes of the substations: read as it is (its list of
// substations following every change), and given them by the next save, its rows kept.
TEST_F(Signature, UneBaseSansLesColonnesLesRecoitALaSauvegarde) {
    Etude e = Etude_("A", "B");
    ASSERT_TRUE(OuvrirEtSauver(e));
    for (const ColonneHistorique& h : ColonnesHistorique())
        Executer(std::string("ALTER TABLE \"") + h.table + "\" DROP COLUMN \"" + h.colonne + "\"");
    Executer(R"(DROP INDEX "Tournesol_réglage")");
    if (!SurServeur()) {
        for (const char* declencheur : {"Poste_ajouté", "Poste_retiré", "Poste_renommé"})
            Executer(std::string("DROP TRIGGER \"") + declencheur + "\"");
        Executer(R"(DROP TABLE "Changements")");
        Executer("PRAGMA user_version = 1");
    }
    auto index = [&] {
        return Valeur(SurServeur() ? R"(SELECT COUNT(*) FROM pg_catalog.pg_class WHERE)"
                                     R"( "relname" = 'Tournesol_réglage' AND "relkind" = 'i')"
                                   : R"(SELECT COUNT(*) FROM "sqlite_master" WHERE)"
                                     R"( "type" = 'index' AND "name" = 'Tournesol_réglage')")
            .toInt();
    };
    EXPECT_EQ(base_->Postes(), std::vector<std::string>{"A"});
    Executer(R"(UPDATE "Poste" SET "nom" = 'A2')");
    EXPECT_EQ(base_->Postes(), std::vector<std::string>{"A2"});
    Executer(R"(UPDATE "Poste" SET "nom" = 'A')");
    FermerControle();
    const QByteArray avant = Empreinte();
    EXPECT_EQ(base_->Postes(), std::vector<std::string>{"A"});
    EXPECT_TRUE(base_->DerniereSauvegarde("A", "B", "", "PD3A", 1).Vide());
    Etude relue = Etude_("A", "B");
    base_->Ouvrir(relue, d_);
    EXPECT_EQ(relue.id_reglage, e.id_reglage);
    FermerControle();
    EXPECT_EQ(Empreinte(), avant); // reading wrote nothing

    Utilisateur u("adupont");
    relue.Sauvegarde = true;
    ASSERT_TRUE(base_->Sauver(relue, d_));
    EXPECT_EQ(base_->DerniereSauvegarde("A", "B", "", "PD3A", 1).auteur, "adupont");
    EXPECT_EQ(Comptes(),
              "Poste 1 Départ 1 Piquage 0 Protection 1 Tournesol 1 Réglage 1 TR 6 Ligne 1");
    EXPECT_EQ(index(), 1);
    if (!SurServeur()) {
        EXPECT_EQ(Valeur("PRAGMA user_version").toInt(), VERSION_SCHEMA);
        EXPECT_EQ(Compter("Changements"), 1);
        Executer(R"(UPDATE "Poste" SET "nom" = 'A3')");
        EXPECT_EQ(base_->Postes(), std::vector<std::string>{"A3"});
    }
}

// The server stops while a save is under way (the connection is cut between two settings): the
// base is as it was, and the user is told.
TEST_F(Signature, UnServeurQuiSArreteEnPleineSauvegardeLaisseLaBaseCommeAvant) {
    const char* arret = std::getenv("TOURNESOL_SERVEUR_ARRET");
    const char* reprise = std::getenv("TOURNESOL_SERVEUR_REPRISE");
    if (!SurServeur() || !arret || !reprise)
        GTEST_SKIP() << "a server that the test may stop (TOURNESOL_SERVEUR_ARRET, _REPRISE)";
    Etude e = Etude_("A", "B");
    ASSERT_TRUE(OuvrirEtSauver(e));
    const std::string avant = Contenu();
    FermerControle();

    static const char* commande = nullptr;
    commande = arret;
    InscrireReglagesRelais(
        PD3A,
        [](Etude& etude, MagasinReglages& m) {
            DebutTR(etude);
            EcrireTR(etude, m, etude.X1reg_HT);
            EcrireTR(etude, m, etude.Rreg_HT);
            if (commande) { // the server goes
                EXPECT_EQ(std::system(commande), 0);
                commande = nullptr;
            }
            EcrireTR(etude, m, etude.T1);
        },
        LireListeEssai);
    e.X1reg_HT = 77.0;
    e.Ligne_Up = 63;
    e.EtudeModifiee = true;
    EXPECT_FALSE(base_->Sauver(e, d_));
    ASSERT_FALSE(d_.Messages().empty());
    EXPECT_EQ(d_.Messages().back().sTitre, "TOURNESOL : Attention !");
    EXPECT_NE(d_.Messages().back().sMessage.find("The study is not saved"), std::string::npos);
    EXPECT_TRUE(e.EtudeModifiee);

    ASSERT_EQ(std::system(reprise), 0);
    EXPECT_EQ(Contenu(), avant);
    // The server back, the same save goes through.
    EXPECT_TRUE(base_->Sauver(e, d_));
    Etude relue = Etude_("A", "B");
    base_->Ouvrir(relue, d_);
    EXPECT_EQ(relue.X1reg_HT, 77.0);
    EXPECT_EQ(relue.Ligne_Up, 63);
}

} // namespace essai
