// What the tests of the study base share: a base file in a temporary folder, a connection of
// their own to look into it, studies as the opening dialog leaves them, and a relay setting list.
#pragma once

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
#include <QVariant>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace essai {

using namespace tournesol;

// The list of a test relay: a reach (64-bit), a resistance (32-bit), a time and an option
// (16-bit), a second reach.
inline void EcrireListeEssai(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    EcrireTR(e, m, e.X1reg_HT);
    EcrireTR(e, m, e.Rreg_HT);
    EcrireTR(e, m, e.T1);
    EcrireTR(e, m, EnEntier(e.Teleaction));
    EcrireTR(e, m, e.X2reg_HT);
}

inline void LireListeEssai(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    LireDans(LireTR(e, m), e.X1reg_HT);
    LireDans(LireTR(e, m), e.Rreg_HT);
    LireDans(LireTR(e, m), e.T1);
    LireDans(LireTR(e, m), e.Teleaction);
    LireDans(LireTR(e, m), e.X2reg_HT);
}

inline constexpr int PD3A = 3;
inline constexpr int RXAP = 11;

class BaseEssai : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier_.isValid());
        rep_ = dossier_.path().toStdString() + "/";
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

    // The base as a second user sees it.
    QSqlDatabase Controle() {
        if (controle_.isEmpty()) {
            static int numero = 0;
            controle_ = QStringLiteral("controle-%1").arg(++numero);
            QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), controle_);
            db.setDatabaseName(QString::fromStdString(rep_ + "bd1.mdb"));
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

    // The SHA-256 of the base file, to tell a file left byte for byte as it was.
    QByteArray Empreinte() const {
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

    // Every row of every table, to tell a base left exactly as it was.
    std::string Contenu() {
        std::string texte;
        for (const char* table :
             {"Poste", "Départ", "Piquage", "Protection", "Tournesol", "Réglage", "TR", "Ligne"}) {
            QSqlQuery q(Controle());
            EXPECT_TRUE(q.exec(QStringLiteral("SELECT * FROM \"%1\" ORDER BY 1, 2")
                                   .arg(QString::fromUtf8(table))));
            texte += std::string(table) + ":";
            while (q.next()) {
                for (int i = 0; i < q.record().count(); ++i)
                    texte += q.value(i).toString().toStdString() + ";";
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
