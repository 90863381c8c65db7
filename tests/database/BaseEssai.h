// What the tests of the study base share: a base file in a temporary folder, a connection of
// their own to look into it, studies as the opening dialog leaves them, and a relay setting list.
// With TOURNESOL_ESSAI_SUR_SERVEUR=1 the same tests run on a PostgreSQL server instead, in a
// database of their own (essai_base) made on the server that TOURNESOL_SERVEUR_ESSAI names
// (postgresql://user@host:port/base); every table is dropped before each test.
#pragma once

#include "ListeEssai.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Panneau.h"
#include "database/BaseEtudesSql.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QUrl>
#include <QVariant>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace essai {

using namespace tournesol;

// The server of the tests, when they run on one: its address, empty otherwise.
inline std::string ServeurEssai() {
    const char* sur = std::getenv("TOURNESOL_ESSAI_SUR_SERVEUR");
    const char* adresse = std::getenv("TOURNESOL_SERVEUR_ESSAI");
    if (!sur || std::string(sur) != "1" || !adresse) return {};
    return adresse;
}

// The address of another database on the same server.
inline std::string AutreBase(const std::string& adresse, const std::string& base) {
    QUrl url(QString::fromStdString(adresse));
    url.setPath(QString::fromStdString("/" + base));
    return url.toString().toStdString();
}

// A connection of the tests to a base named by its address.
inline QSqlDatabase ConnexionServeur(const QString& nom, const std::string& adresse) {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), nom);
    const QUrl url(QString::fromStdString(adresse));
    db.setHostName(url.host());
    db.setPort(url.port(5432));
    db.setUserName(url.userName());
    db.setDatabaseName(url.path().mid(1));
    return db;
}

// Makes the database `base` on the server of `adresse`, empty; its address.
inline std::string BaseNeuve(const std::string& adresse, const std::string& base) {
    {
        QSqlDatabase db = ConnexionServeur(QStringLiteral("essai-creation"), adresse);
        EXPECT_TRUE(db.open()) << db.lastError().text().toStdString();
        QSqlQuery q(db);
        const QString nom = QString::fromStdString(base);
        EXPECT_TRUE(q.exec(QStringLiteral("DROP DATABASE IF EXISTS \"%1\" WITH (FORCE)").arg(nom)))
            << q.lastError().text().toStdString();
        EXPECT_TRUE(q.exec(QStringLiteral("CREATE DATABASE \"%1\"").arg(nom)))
            << q.lastError().text().toStdString();
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("essai-creation"));
    return AutreBase(adresse, base);
}

inline constexpr int PD3A = 3;
inline constexpr int RXAP = 11;

class BaseEssai : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier_.isValid());
        rep_ = dossier_.path().toStdString() + "/";
        if (const char* sur = std::getenv("TOURNESOL_ESSAI_SUR_SERVEUR");
            sur && std::string(sur) == "1") {
            const std::string serveur = ServeurEssai();
            if (serveur.empty()) GTEST_SKIP() << "no server: TOURNESOL_SERVEUR_ESSAI is not set";
            static const std::string base = BaseNeuve(serveur, "essai_base");
            rep_ = base;
            for (const char* table : {"Poste", "Départ", "Piquage", "Protection", "Tournesol",
                                      "Réglage", "TR", "Ligne", "Client"})
                Executer(std::string("DROP TABLE IF EXISTS \"") + table + "\"");
            Executer("DROP FUNCTION IF EXISTS \"refus\"() CASCADE");
            FermerControle();
        }
        base_ = std::make_unique<BaseEtudesSql>(rep_, 20);
        InscrireReglagesRelais(PD3A, EcrireListeEssai, LireListeEssai);
        InscrireReglagesRelais(RXAP, EcrireListeEssai, LireListeEssai);
    }

    void TearDown() override {
        InscrireReglagesRelais(PD3A, nullptr, nullptr);
        InscrireReglagesRelais(RXAP, nullptr, nullptr);
        base_.reset();
        if (!controle_.isEmpty()) QSqlDatabase::removeDatabase(controle_);
    }

    // A study as the opening dialog and the relay choice leave it.
    static Etude Etude_(const std::string& poste, const std::string& depart,
                        const std::string& piquage = "", int protection = PD3A, int numero = 1) {
        Etude e;
        e.NomPoste = poste;
        e.NomDepart = depart;
        e.NomPiquage = piquage;
        e.id_protection = e.ProtectionChoisie = protection;
        e.NomProtection = protection == PD3A ? "PD3A" : protection == RXAP ? "RXAP" : "";
        e.id_numero = static_cast<Entier16>(numero);
        e.ScaleLeft = -20.0f;
        e.ScaleWidth = 40.0f;
        e.ScaleTop = 20.0f;
        e.ScaleHeight = -40.0f;
        e.X1reg_HT = 12.34;
        e.Rreg_HT = 5.5f;
        e.T1 = 350;
        e.Teleaction = true;
        e.X2reg_HT = 0.0;
        return e;
    }

    // Opens the study and saves it, as a user who opens a line and clicks save.
    bool OuvrirEtSauver(Etude& e) {
        base_->Ouvrir(e, d_);
        e.Sauvegarde = true;
        return base_->Sauver(e, d_);
    }

    bool SurServeur() const { return EstAdresseServeur(rep_); }

    // The base as the shared-base message names it.
    std::string NomDansLeMessage() const {
        return SurServeur() ? base_->Fichier() : rep_ + "\\bd1.mdb";
    }

    // The base as a second user sees it.
    QSqlDatabase Controle() {
        if (controle_.isEmpty()) {
            static int numero = 0;
            controle_ = QStringLiteral("controle-%1").arg(++numero);
            if (SurServeur()) {
                ConnexionServeur(controle_, rep_);
            } else {
                QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), controle_);
                db.setDatabaseName(QString::fromStdString(rep_ + "bd1.mdb"));
            }
        }
        QSqlDatabase db = QSqlDatabase::database(controle_, false);
        if (!db.isOpen()) {
            EXPECT_TRUE(db.open());
        }
        return db;
    }

    // Closes the second user's connection, so that the file can be replaced.
    void FermerControle() {
        if (controle_.isEmpty()) return;
        QSqlDatabase::database(controle_, false).close();
    }

    // Another user starts writing: the base is theirs until Executer("COMMIT") or "ROLLBACK".
    void EcrireCommeUnAutre() {
        if (!SurServeur()) {
            Executer("BEGIN IMMEDIATE");
            return;
        }
        Executer("BEGIN");
        Executer(R"(LOCK TABLE "Poste", "Départ", "Piquage", "Protection", "Tournesol",)"
                 R"( "Réglage", "TR", "Ligne" IN EXCLUSIVE MODE)");
    }

    // The base refuses `operation` (INSERT or UPDATE) on `table`, when `condition` holds, with
    // `texte`; Permettre(table) lifts it.
    void Refuser(const std::string& table, const std::string& operation, const std::string& texte,
                 const std::string& condition = "") {
        if (!SurServeur()) {
            Executer("CREATE TRIGGER \"refus\" BEFORE " + operation + " ON \"" + table + "\"" +
                     (condition.empty() ? "" : " WHEN " + condition) +
                     " BEGIN SELECT RAISE(ABORT, '" + texte + "'); END");
            return;
        }
        Executer("CREATE OR REPLACE FUNCTION \"refus\"() RETURNS trigger LANGUAGE plpgsql AS"
                 " $$ BEGIN RAISE EXCEPTION '" +
                 texte + "'; END $$");
        Executer("CREATE TRIGGER \"refus\" BEFORE " + operation + " ON \"" + table +
                 "\" FOR EACH ROW" + (condition.empty() ? "" : " WHEN (" + condition + ")") +
                 " EXECUTE FUNCTION \"refus\"()");
    }
    void Permettre(const std::string& table) {
        Executer(SurServeur() ? "DROP TRIGGER \"refus\" ON \"" + table + "\""
                              : std::string("DROP TRIGGER \"refus\""));
    }

    // The SHA-256 of the base file, to tell a file left byte for byte as it was; on a server,
    // of every row of every table.
    QByteArray Empreinte() {
        if (SurServeur())
            return QCryptographicHash::hash(QByteArray::fromStdString(Contenu()),
                                            QCryptographicHash::Sha256)
                .toHex();
        QFile f(QString::fromStdString(base_ ? base_->Fichier() : rep_ + "bd1.mdb"));
        if (!f.open(QIODevice::ReadOnly)) return {};
        return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256).toHex();
    }

    void Executer(const std::string& sql) {
        QSqlQuery q(Controle());
        EXPECT_TRUE(q.exec(QString::fromStdString(sql)))
            << sql << ": " << q.lastError().text().toStdString();
    }

    // The first value of the first row; invalid when there is no row.
    QVariant Valeur(const std::string& sql) {
        QSqlQuery q(Controle());
        EXPECT_TRUE(q.exec(QString::fromStdString(sql))) << sql;
        return q.next() ? q.value(0) : QVariant();
    }

    int Compter(const std::string& table, const std::string& condition = "") {
        return Valeur("SELECT COUNT(*) FROM \"" + table + "\" " + condition).toInt();
    }

    // The number of rows of every table.
    std::string Comptes() {
        std::string texte;
        for (const char* table :
             {"Poste", "Départ", "Piquage", "Protection", "Tournesol", "Réglage", "TR", "Ligne"})
            texte += std::string(texte.empty() ? "" : " ") + table + " " +
                     std::to_string(Compter(table));
        return texte;
    }

    // Every row of every table but who saved it and when, to tell a base left as it was.
    std::string Contenu() {
        std::string texte;
        for (const char* table :
             {"Poste", "Départ", "Piquage", "Protection", "Tournesol", "Réglage", "TR", "Ligne"}) {
            QSqlQuery q(Controle());
            EXPECT_TRUE(q.exec(QStringLiteral("SELECT * FROM \"%1\" ORDER BY 1, 2")
                                   .arg(QString::fromUtf8(table))));
            texte += std::string(table) + ":";
            while (q.next()) {
                for (int i = 0; i < q.record().count(); ++i) {
                    // Who saved and when change with every save; their own tests look at them.
                    const QString nom = q.record().fieldName(i);
                    if (nom == QString::fromUtf8("sauvé_par") ||
                        nom == QString::fromUtf8("sauvé_le"))
                        continue;
                    texte += q.value(i).toString().toStdString() + ";";
                }
                texte += "\n";
            }
        }
        return texte;
    }

    QTemporaryDir dossier_;
    std::string rep_;
    std::unique_ptr<BaseEtudesSql> base_;
    DialogueScripte d_;
    QString controle_;
};

} // namespace essai
