// The base file, its tables, the keys handed out, and the retry dialog of a base held by another
// user or that cannot be opened.
#include "BaseEssai.h"
#include "database/EtatBase.h"
#include "database/Schema.h"

#include <QFile>
#include <QFileInfo>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace essai {

using Connexion = BaseEssai;

TEST_F(Connexion, UneBaseNeuveEstCreeeAvecLesTablesDuSysteme) {
    Etude e;
    EXPECT_FALSE(QFile::exists(QString::fromStdString(base_->Fichier())));
    ASSERT_TRUE(base_->OuvrirConnexion(e, d_));
    EXPECT_TRUE(e.ConnexionOuverte);
    EXPECT_TRUE(base_->OuvrirConnexion(e, d_)); // already open: nothing more
    EXPECT_TRUE(base_->FermerConnexion(e));
    EXPECT_FALSE(e.ConnexionOuverte);
    if (!SurServeur()) {
        EXPECT_EQ(base_->Fichier(), rep_ + "bd1.mdb");
    }

    // Every column under its one spelling.
    for (
        const char* sql :
        {R"(SELECT "id", "nom" FROM "Poste")", R"(SELECT "id", "id_poste", "nom" FROM "Départ")",
         R"(SELECT "id", "id_départ", "id_poste", "nom" FROM "Piquage")",
         R"(SELECT "id", "nom" FROM "Protection")",
         R"(SELECT "id", "id_poste", "id_départ", "id_piquage", "id_protection", "id_ligne",)"
         R"( "id_réglage", "id_numéro", "sauvé_par", "sauvé_le" FROM "Tournesol")",
         R"(SELECT "id", "TypeReportCharge", "Left", "Width", "Top", "Height" FROM "Réglage")",
         R"(SELECT "id_key", "id_pos", "Valeur", "TypeValeur" FROM "TR")",
         R"(SELECT "id", "Tl", "lc", "XL0", "Ex3", "ea", "ICCACM", "IPCABT", "n1" FROM "Ligne")"}) {
        QSqlQuery q(Controle());
        EXPECT_TRUE(q.exec(QString::fromUtf8(sql))) << sql;
    }
    QSqlQuery colonnes(Controle());
    ASSERT_TRUE(colonnes.exec(R"(SELECT * FROM "Ligne")"));
    // The key, the ninety-one columns of a line, the secondary rated current, then who saved
    // the line and when.
    EXPECT_EQ(colonnes.record().count(), 95);
    EXPECT_EQ(ColonnesLigne().size(), 92u);
    EXPECT_EQ(colonnes.record().fieldName(1), "Tl");
    EXPECT_EQ(colonnes.record().fieldName(colonnes.record().count() - 4), "n1");
    EXPECT_EQ(colonnes.record().fieldName(colonnes.record().count() - 3), "Is");
    EXPECT_EQ(colonnes.record().fieldName(colonnes.record().count() - 2), "sauvé_par");
    EXPECT_EQ(colonnes.record().fieldName(colonnes.record().count() - 1), "sauvé_le");
}

TEST_F(Connexion, ProchainIdEstLePlusGrandPlusUn) {
    Etude e;
    ASSERT_TRUE(base_->OuvrirConnexion(e, d_));
    EXPECT_EQ(base_->ProchainId(Table::Poste), 1); // empty table
    base_->FermerConnexion(e);

    Executer(R"(INSERT INTO "Poste" ("id", "nom") VALUES (0, 'a'), (-3, 'b'))");
    ASSERT_TRUE(base_->OuvrirConnexion(e, d_));
    EXPECT_EQ(base_->ProchainId(Table::Poste), 2); // the running maximum starts at 1
    base_->FermerConnexion(e);

    Executer(R"(INSERT INTO "Poste" ("id", "nom") VALUES (7, 'c'))");
    ASSERT_TRUE(base_->OuvrirConnexion(e, d_));
    EXPECT_EQ(base_->ProchainId(Table::Poste), 8);
    EXPECT_EQ(base_->ProchainId(Table::Reglage), 1);
    base_->FermerConnexion(e);
}

TEST_F(Connexion, UneBaseTenueParUnAutreEstPartageeEtLUtilisateurPeutPartir) {
    Etude vide;
    ASSERT_TRUE(base_->OuvrirConnexion(vide, d_));
    base_->FermerConnexion(vide);
    EcrireCommeUnAutre();
    Executer(R"(INSERT INTO "Poste" ("id", "nom") VALUES (40, 'autre'))");

    Etude e = Etude_("A", "B");
    d_.AjouterReponses({1}); // "&Leave"
    EXPECT_FALSE(base_->Sauver(e, d_));
    ASSERT_EQ(d_.Messages().size(), 1u);
    const MessageAffiche& q = d_.Messages()[0];
    EXPECT_TRUE(q.Question);
    EXPECT_EQ(q.sTitre, "TOURNESOL : access impossible");
    EXPECT_EQ(q.sMessage, "the master base (" + NomDansLeMessage() +
                              ") is shared.\r\n\r\nAccès momentanément impossible.");
    EXPECT_EQ(q.IconeMessage, 2);
    EXPECT_EQ(q.BoutonsQuestion, (Boutons{"&Try again", "&Leave", ""}));
    EXPECT_FALSE(e.ConnexionOuverte);
    EXPECT_EQ(e.id_poste, 0); // nothing of the save is kept

    Executer("COMMIT");
    EXPECT_EQ(Compter("Poste"), 1); // the other user's row only
    EXPECT_EQ(Compter("Tournesol"), 0);
}

// A user who clicks "&Try again" once the other user has finished.
class AttendreLAutre : public DialogueScripte {
public:
    explicit AttendreLAutre(std::function<void()> liberer) : liberer_(std::move(liberer)) {}
    int questions = 0;

protected:
    int Repondre(const MessageAffiche&) override {
        ++questions;
        liberer_();
        return 0;
    }

private:
    std::function<void()> liberer_;
};

TEST_F(Connexion, EssayerDeNouveauReussitQuandLAutreALibereLaBase) {
    Etude vide;
    ASSERT_TRUE(base_->OuvrirConnexion(vide, d_));
    base_->FermerConnexion(vide);
    EcrireCommeUnAutre();
    AttendreLAutre d([this] { Executer("COMMIT"); });

    Etude e = Etude_("A", "B");
    EXPECT_TRUE(base_->Sauver(e, d));
    EXPECT_EQ(d.questions, 1);
    EXPECT_EQ(Compter("Tournesol"), 1);
}

TEST_F(Connexion, UneBaseQuiNePeutSOuvrirEstRefusee) {
    if (SurServeur()) GTEST_SKIP() << "a folder";
    const std::string absent = rep_ + "absent/";
    BaseEtudesSql base(absent, 20);
    Etude e = Etude_("A", "B");
    EXPECT_FALSE(base.Sauver(e, d_));
    ASSERT_EQ(d_.Messages().size(), 1u);
    EXPECT_FALSE(d_.Messages()[0].Question);
    EXPECT_EQ(d_.Messages()[0].sTitre, "TOURNESOL : accès refusé");
    EXPECT_EQ(d_.Messages()[0].sMessage,
              "The master base  (" + absent + "bd1.mdb) does not exist.\r\n\r\nAccess rejected.");
    EXPECT_EQ(d_.Messages()[0].IconeMessage, 2);
    EXPECT_TRUE(base.Postes().empty());
    EXPECT_EQ(base.Protections("A", "B", ""), std::vector<std::string>{NOUVELLE_PROTECTION});

    // Reading a missing base writes nothing and makes no file: the line is new, in memory.
    Etude g = Etude_("A", "B");
    base.Ouvrir(g, d_);
    EXPECT_TRUE(g.NouvelleLigne);
    EXPECT_EQ(d_.Messages().size(), 1u);
    EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(absent)));
}

TEST_F(Connexion, UnFichierQuiNEstPasUneBaseDuSystemeEstRefuseIntact) {
    if (SurServeur()) GTEST_SKIP() << "a file";
    const QString chemin = QString::fromStdString(base_->Fichier());
    auto refuser = [&](const char* quoi) {
        const QByteArray avant = Empreinte();
        Etude e = Etude_("A", "B");
        e.id_poste = e.id_depart = e.id_ligne = 4; // what the study before left
        d_ = DialogueScripte();
        base_->Ouvrir(e, d_);
        EXPECT_TRUE(e.NouvelleLigne) << quoi;
        EXPECT_EQ(std::tuple(e.id_poste, e.id_depart, e.id_ligne), std::tuple(0, 0, 0)) << quoi;
        ASSERT_EQ(d_.Messages().size(), 1u) << quoi;
        EXPECT_NE(d_.Messages()[0].sMessage.find("is not a base of TOURNESOL"), std::string::npos)
            << quoi << ": " << d_.Messages()[0].sMessage;
        EXPECT_TRUE(base_->Postes().empty()) << quoi;
        EXPECT_FALSE(base_->Sauver(e, d_)) << quoi;
        ASSERT_EQ(d_.Messages().size(), 2u) << quoi;
        EXPECT_EQ(d_.Messages()[1].sTitre, "TOURNESOL : accès refusé") << quoi;
        EXPECT_EQ(d_.Messages()[1].sMessage, "The master base  (" + base_->Fichier() +
                                                 ") is not a base of TOURNESOL.\r\n\r\n"
                                                 "Access rejected.")
            << quoi;
        // Told at the program's start already, naming the file.
        DialogueScripte demarrage;
        EXPECT_FALSE(SignalerBaseAuDemarrage(rep_, demarrage)) << quoi;
        ASSERT_EQ(demarrage.Messages().size(), 1u) << quoi;
        EXPECT_NE(demarrage.Messages()[0].sMessage.find(base_->Fichier()), std::string::npos)
            << quoi;
        EXPECT_EQ(demarrage.Messages()[0].IconeMessage, 2) << quoi;
        EXPECT_EQ(base_->DernierEchec().genre, EtatBase::Genre::Etrangere) << quoi;
        EXPECT_EQ(ExaminerBase(rep_).genre, EtatBase::Genre::Etrangere) << quoi;
        EXPECT_EQ(Empreinte(), avant) << quoi;
    };

    QFile pasUneBase(chemin);
    ASSERT_TRUE(pasUneBase.open(QIODevice::WriteOnly));
    pasUneBase.write(QByteArray(200, 'x'));
    pasUneBase.close();
    refuser("not SQLite");

    // Another program's SQLite base: its own table, no mark.
    ASSERT_TRUE(QFile::remove(chemin));
    Executer(R"(CREATE TABLE "Client" ("id" INTEGER PRIMARY KEY, "nom" TEXT))");
    Executer(R"(INSERT INTO "Client" VALUES (1, 'Dupont'))");
    FermerControle();
    refuser("another schema");

    // A program that marked its file with a mark of its own, around tables of the same names.
    ASSERT_TRUE(QFile::remove(chemin));
    for (const std::string& creation : CreationTables())
        Executer(creation);
    Executer("PRAGMA application_id = 1234");
    FermerControle();
    refuser("another mark");
}

TEST_F(Connexion, UnFichierVideDevientUneBaseEtUneBaseAncienneEstMarqueeALaSauvegarde) {
    if (SurServeur()) GTEST_SKIP() << "a file";
    const QString chemin = QString::fromStdString(base_->Fichier());
    QFile vide(chemin);
    ASSERT_TRUE(vide.open(QIODevice::WriteOnly));
    vide.close();
    EXPECT_EQ(ExaminerBase(rep_).genre, EtatBase::Genre::Absente);
    Etude e = Etude_("A", "B");
    ASSERT_TRUE(OuvrirEtSauver(e));
    EXPECT_EQ(Valeur("PRAGMA application_id").toInt(), MARQUE_BASE);
    EXPECT_EQ(ExaminerBase(rep_).genre, EtatBase::Genre::Utilisable);
    EXPECT_TRUE(ExaminerBase(rep_).raison.empty());
    DialogueScripte demarrage;
    EXPECT_TRUE(SignalerBaseAuDemarrage(rep_, demarrage)); // a usable base: nothing to say
    EXPECT_TRUE(demarrage.Messages().empty());

    // A base of an earlier version: the tables, no mark, no index. Read as it is; the next
    // save adds the indexes and the mark.
    FermerControle();
    base_.reset();
    ASSERT_TRUE(QFile::remove(chemin));
    for (int i = 0; i < 8; ++i)
        Executer(CreationTables()[static_cast<std::size_t>(i)]);
    Executer(R"(INSERT INTO "Poste" ("id", "nom") VALUES (1, 'ancien'))");
    FermerControle();
    base_ = std::make_unique<BaseEtudesSql>(rep_, 20);
    EXPECT_EQ(ExaminerBase(rep_).genre, EtatBase::Genre::Utilisable);
    const QByteArray avant = Empreinte();
    EXPECT_EQ(base_->Postes(), std::vector<std::string>{"ancien"});
    EXPECT_EQ(Empreinte(), avant);
    Etude f = Etude_("ancien", "B");
    ASSERT_TRUE(OuvrirEtSauver(f));
    EXPECT_EQ(f.id_poste, 1);
    EXPECT_EQ(Valeur("PRAGMA application_id").toInt(), MARQUE_BASE);
    EXPECT_EQ(Compter("sqlite_master", R"(WHERE "type" = 'index' AND "name" = 'Tournesol_cles')"),
              1);
}

// A base that may only be read (opened read-only, as SQLite opens a file the user may not write;
// on a server in read-only transactions): it reads as ever; a save, of a saved line or of a new
// one, and a deletion fail at their first write, say that the base is read-only, and leave it as
// it was.
TEST_F(Connexion, UneBaseEnLectureSeuleSeLitEtNEstPasTouchee) {
    Etude e = Etude_("A", "B");
    ASSERT_TRUE(OuvrirEtSauver(e));
    FermerControle();
    const QByteArray avant = Empreinte();
    base_->LectureSeule(true);
    EXPECT_EQ(base_->Postes(), std::vector<std::string>{"A"});
    Etude relue = Etude_("A", "B");
    base_->Ouvrir(relue, d_);
    ASSERT_EQ(relue.id_reglage, e.id_reglage);

    Etude nouvelle = Etude_("N", "M");
    base_->Ouvrir(nouvelle, d_);
    for (Etude* f : {&relue, &nouvelle}) {
        f->Ligne_Up = 400;
        f->Sauvegarde = true;
        const std::string quoi = f->NomPoste;
        EXPECT_FALSE(base_->Sauver(*f, d_)) << quoi;
        EXPECT_EQ(base_->DernierEchec().genre, EtatBase::Genre::LectureSeule) << quoi;
        EXPECT_NE(base_->DernierEchec().raison.find(base_->Fichier() + " is read-only"),
                  std::string::npos)
            << base_->DernierEchec().raison;
        ASSERT_FALSE(d_.Messages().empty());
        EXPECT_NE(d_.Messages().back().sMessage.find("read-only"), std::string::npos)
            << d_.Messages().back().sMessage;
        EXPECT_EQ(Empreinte(), avant) << quoi;
    }
    EXPECT_FALSE(base_->SupprimerProtection(relue, d_));
    EXPECT_EQ(base_->DernierEchec().genre, EtatBase::Genre::LectureSeule);
    EXPECT_EQ(Empreinte(), avant);

    base_->LectureSeule(false);
    EXPECT_TRUE(base_->Sauver(relue, d_));
    EXPECT_EQ(Valeur(R"(SELECT "Up" FROM "Ligne")").toInt(), 400);
}

namespace {

// What `travail` gives (0 to 254), run as a user whom the rights of files hold: this one, or,
// when the tests run as root (whom no right stops), the user "nobody" in a child process.
template <class Travail> int CommeUnUtilisateur(Travail travail) {
    if (::geteuid() != 0) return travail();
    const pid_t enfant = ::fork();
    if (enfant == 0) {
        if (::setgroups(0, nullptr) != 0 || ::setgid(65534) != 0 || ::setuid(65534) != 0)
            ::_exit(255);
        ::_exit(travail());
    }
    int statut = 0;
    if (enfant < 0 || ::waitpid(enfant, &statut, 0) != enfant || !WIFEXITED(statut)) return 255;
    return WEXITSTATUS(statut);
}

} // namespace

TEST_F(Connexion, LEtatDuDossierDitPourquoiLaBaseNEstPasUtilisable) {
    if (SurServeur()) GTEST_SKIP() << "a folder";
    using G = EtatBase::Genre;
    EXPECT_EQ(ExaminerBase(rep_ + "absent/").genre, G::DossierAbsent);
    const EtatBase absente = ExaminerBase(rep_);
    EXPECT_EQ(absente.genre, G::Absente);
    EXPECT_NE(absente.raison.find(base_->Fichier()), std::string::npos) << absente.raison;
    EXPECT_FALSE(QFile::exists(QString::fromStdString(base_->Fichier()))); // nothing made

    Etude e = Etude_("A", "B");
    ASSERT_TRUE(OuvrirEtSauver(e));
    FermerControle();
    // The folder open to all for reading, the base readable by all and writable by none.
    using P = QFileDevice;
    ASSERT_TRUE(QFile::setPermissions(dossier_.path(), P::ReadOwner | P::WriteOwner | P::ExeOwner |
                                                           P::ReadGroup | P::ExeGroup |
                                                           P::ReadOther | P::ExeOther));
    QFile fichier(QString::fromStdString(base_->Fichier()));
    const auto droits = fichier.permissions();
    ASSERT_TRUE(fichier.setPermissions(P::ReadOwner | P::ReadGroup | P::ReadOther));
    auto genre = [&] {
        return CommeUnUtilisateur([&] { return static_cast<int>(ExaminerBase(rep_).genre); });
    };
    EXPECT_EQ(genre(), static_cast<int>(G::LectureSeule));
    // Reading still works.
    EXPECT_EQ(CommeUnUtilisateur([&] {
                  BaseEtudesSql lecteur(rep_, 20);
                  return lecteur.Postes() == std::vector<std::string>{"A"} ? 1 : 0;
              }),
              1);
    ASSERT_TRUE(fichier.setPermissions({}));
    EXPECT_EQ(genre(), static_cast<int>(G::Illisible));
    fichier.setPermissions(droits);
}

} // namespace essai
