// The study base at the size of a network region: 10,000 lines and 50,000 relays with their
// settings. Measured: saving one study, opening it again, and filling the opening dialog's
// lists for it.
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "database/BaseEtudesSql.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>
#include <benchmark/benchmark.h>
#include <cstdio>

using namespace tournesol;

namespace {

constexpr int POSTES = 2000, LIGNES = 10000, RELAIS_PAR_LIGNE = 5, VALEURS = 30;

// A relay list of thirty reaches, as a relay's writer puts it.
void EcrireListe(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    for (int i = 0; i < VALEURS; ++i)
        EcrireTR(e, m, e.X1_HT + i);
}
void LireListe(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    for (int i = 0; i < VALEURS; ++i) {
        double v = 0.0;
        LireDans(LireTR(e, m), v);
        if (i == 0) e.X1_HT = v;
    }
}

QString NomPoste(int i) {
    return QString("POSTE %1").arg(i, 4, 10, QChar('0'));
}
QString NomDepart(int l) {
    return QString("DEPART %1").arg(l, 5, 10, QChar('0'));
}

// Fills the base in one transaction, straight through SQL.
void Remplir(const QString& fichier) {
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "remplissage");
        db.setDatabaseName(fichier);
        db.open();
        db.transaction();
        QSqlQuery q(db);
        q.prepare(R"(INSERT INTO "Poste" ("id", "nom") VALUES (?, ?))");
        for (int p = 1; p <= POSTES; ++p) {
            q.addBindValue(p);
            q.addBindValue(NomPoste(p));
            q.exec();
        }
        q.prepare(R"(INSERT INTO "Protection" ("id", "nom") VALUES (?, ?))");
        for (int id = 1; id <= NOMBRE_RELAIS; ++id) {
            q.addBindValue(id);
            q.addBindValue(QString::fromUtf8(LEGENDES_PROTECTION[id - 1].data(),
                                             static_cast<int>(LEGENDES_PROTECTION[id - 1].size())));
            q.exec();
        }
        QSqlQuery depart(db), ligne(db), lien(db), reglage(db), tr(db);
        depart.prepare(R"(INSERT INTO "Départ" ("id", "id_poste", "nom") VALUES (?, ?, ?))");
        ligne.prepare(R"(INSERT INTO "Ligne" ("id", "Tl", "Up", "Ip", "XL0", "RL0", "Longueur0"))"
                      R"( VALUES (?, 0, 225, 1000, 12.0, 2.0, 30.0))");
        lien.prepare(R"(INSERT INTO "Tournesol" ("id", "id_poste", "id_départ", "id_piquage",)"
                     R"( "id_protection", "id_ligne", "id_réglage", "id_numéro"))"
                     R"( VALUES (?, ?, ?, 0, ?, ?, ?, ?))");
        reglage.prepare(R"(INSERT INTO "Réglage" ("id", "TypeReportCharge", "Left", "Width",)"
                        R"( "Top", "Height") VALUES (?, 0, -20, 40, 20, -40))");
        tr.prepare(R"(INSERT INTO "TR" ("id_key", "id_pos", "Valeur", "TypeValeur"))"
                   R"( VALUES (?, ?, ?, 5))");
        int id = 0;
        for (int l = 1; l <= LIGNES; ++l) {
            const int poste = (l - 1) % POSTES + 1;
            depart.addBindValue(l);
            depart.addBindValue(poste);
            depart.addBindValue(NomDepart(l));
            depart.exec();
            ligne.addBindValue(l);
            ligne.exec();
            for (int r = 1; r <= RELAIS_PAR_LIGNE; ++r) {
                ++id;
                for (QSqlQuery* requete : {&lien}) {
                    requete->addBindValue(id);
                    requete->addBindValue(poste);
                    requete->addBindValue(l);
                    requete->addBindValue((r - 1) % NOMBRE_RELAIS + 1 + (r > 3 ? 0 : 2));
                    requete->addBindValue(l);
                    requete->addBindValue(id);
                    requete->addBindValue(r);
                    requete->exec();
                }
                reglage.addBindValue(id);
                reglage.exec();
                for (int pos = 0; pos < VALEURS; ++pos) {
                    tr.addBindValue(id);
                    tr.addBindValue(pos);
                    tr.addBindValue(1.0 + pos);
                    tr.exec();
                }
            }
        }
        db.commit();
        db.close();
    }
    QSqlDatabase::removeDatabase("remplissage");
}

// The base of the region, made once for all the measures.
struct Region {
    QTemporaryDir dossier;
    std::unique_ptr<BaseEtudesSql> base;
    DialogueSansFenetre dialogue;
    Region() {
        InscrireReglagesRelais(3, EcrireListe, LireListe);
        base = std::make_unique<BaseEtudesSql>(dossier.path().toStdString() + "/");
        Etude e;
        base->OuvrirConnexion(e, dialogue); // the tables are made
        base->FermerConnexion(e);
        Remplir(QString::fromStdString(base->Fichier()));
    }
    // The first relay of line 4321: a PD3A numbered 1.
    Etude Etude4321() const {
        Etude e;
        InscrireRelais();
        InitRegistre(e);
        PreparerOuverture(e);
        e.NomPoste = NomPoste((4321 - 1) % POSTES + 1).toStdString();
        e.NomDepart = NomDepart(4321).toStdString();
        e.NomProtection = "PD3A";
        e.id_protection = e.ProtectionChoisie = 3;
        e.id_numero = 1;
        return e;
    }
};

Region& LaRegion() {
    static Region region;
    return region;
}

void BM_Ouvrir(benchmark::State& state) {
    Region& r = LaRegion();
    for (auto _ : state) {
        Etude e = r.Etude4321();
        r.base->Ouvrir(e, r.dialogue);
        benchmark::DoNotOptimize(e.X1_HT);
        if (e.NouvelleLigne) {
            const std::string pourquoi = r.dialogue.Messages().empty()
                                             ? "the line was not found"
                                             : r.dialogue.Messages().back().sMessage;
            state.SkipWithError(pourquoi.c_str());
        }
    }
}
BENCHMARK(BM_Ouvrir)->Unit(benchmark::kMillisecond);

void BM_Sauver(benchmark::State& state) {
    Region& r = LaRegion();
    Etude e = r.Etude4321();
    r.base->Ouvrir(e, r.dialogue);
    for (auto _ : state) {
        e.Ligne_XLA += 1.0;
        e.Sauvegarde = true;
        if (!r.base->Sauver(e, r.dialogue)) state.SkipWithError("the save failed");
    }
}
BENCHMARK(BM_Sauver)->Unit(benchmark::kMillisecond);

void BM_ListesDuDialogue(benchmark::State& state) {
    Region& r = LaRegion();
    const Etude e = r.Etude4321();
    for (auto _ : state) {
        benchmark::DoNotOptimize(r.base->Postes());
        benchmark::DoNotOptimize(r.base->Departs(e.NomPoste));
        benchmark::DoNotOptimize(r.base->Piquages(e.NomPoste, e.NomDepart));
        benchmark::DoNotOptimize(r.base->Protections(e.NomPoste, e.NomDepart, ""));
        benchmark::DoNotOptimize(r.base->Numeros(e.NomPoste, e.NomDepart, "", "PD3A"));
    }
}
BENCHMARK(BM_ListesDuDialogue)->Unit(benchmark::kMillisecond);

} // namespace
