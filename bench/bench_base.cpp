// The study base at two sizes, side by side: 100 lines, and a network region of 100,000 lines
// and 500,000 relays, each relay with a list of thirty settings. Measured in each: saving one
// study, opening it again, the superposition window's save of its relay, and each list of the
// opening dialog for it (the substations also just after another user changed one). Saving and
// opening are also measured in a base of 10,000 lines on its file and on a PostgreSQL server side
// by side; the server is the database named by TOURNESOL_SERVEUR_BANC
// (postgresql://user@host:port/base), emptied and filled by the program.
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "database/BaseEtudesSql.h"
#include "database/Schema.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>
#include <QVariant>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>

using namespace tournesol;

namespace {

constexpr int LIGNES_PAR_POSTE = 5, RELAIS_PAR_LIGNE = 5, VALEURS = 30;

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

// The filling's connection to the base of the file or of the server.
QSqlDatabase Connexion(const std::string& fichier, const std::string& serveur) {
    if (serveur.empty()) {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "remplissage");
        db.setDatabaseName(QString::fromStdString(fichier));
        db.open();
        QSqlQuery(db).exec("PRAGMA journal_mode = OFF"); // the filling only
        QSqlQuery(db).exec("PRAGMA synchronous = OFF");
        return db;
    }
    const QUrl url(QString::fromStdString(serveur));
    QSqlDatabase db = QSqlDatabase::addDatabase("QPSQL", "remplissage");
    db.setHostName(url.host());
    db.setPort(url.port(5432));
    db.setUserName(url.userName());
    db.setDatabaseName(url.path().mid(1));
    db.open();
    return db;
}

// Fills the base with `lignes` lines in one transaction, straight through SQL.
void Remplir(const std::string& fichier, const std::string& serveur, int lignes) {
    const int postes = std::max(1, lignes / LIGNES_PAR_POSTE);
    {
        QSqlDatabase db = Connexion(fichier, serveur);
        db.transaction();
        QSqlQuery q(db);
        q.prepare(R"(INSERT INTO "Poste" ("id", "nom") VALUES (?, ?))");
        for (int p = 1; p <= postes; ++p) {
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
        // The thirty values of a relay in one statement: a server answers each statement.
        QString valeurs;
        for (int pos = 0; pos < VALEURS; ++pos)
            valeurs += pos ? ", (?, ?, ?, 5)" : "(?, ?, ?, 5)";
        tr.prepare(R"(INSERT INTO "TR" ("id_key", "id_pos", "Valeur", "TypeValeur") VALUES )" +
                   valeurs);
        int id = 0;
        for (int l = 1; l <= lignes; ++l) {
            const int poste = (l - 1) % postes + 1;
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
                }
                tr.exec();
            }
        }
        for (QSqlQuery* requete : {&q, &depart, &ligne, &lien, &reglage, &tr})
            *requete = QSqlQuery(); // each statement freed while the connection is there
        db.commit();
        db.close();
    }
    QSqlDatabase::removeDatabase("remplissage");
}

// Empties the server's base of the tables of a run before.
void Vider(const std::string& serveur) {
    {
        QSqlDatabase db = Connexion("", serveur);
        for (const std::string& table : TablesDuSysteme())
            QSqlQuery(db).exec(QString::fromStdString("DROP TABLE IF EXISTS \"" + table + "\""));
        db.close();
    }
    QSqlDatabase::removeDatabase("remplissage");
}

// A base of that many lines, made once for all the measures: in its file, or on the server.
struct Region {
    QTemporaryDir dossier;
    std::unique_ptr<BaseEtudesSql> base;
    DialogueSansFenetre dialogue;
    int lignes;
    bool prete = false;
    Region(int n, bool surServeur) : lignes(n) {
        InscrireReglagesRelais(3, EcrireListe, LireListe);
        const char* serveur = std::getenv("TOURNESOL_SERVEUR_BANC");
        if (surServeur && !serveur) return;
        if (surServeur) Vider(serveur);
        base = std::make_unique<BaseEtudesSql>(surServeur ? std::string(serveur)
                                                          : dossier.path().toStdString() + "/");
        Etude e;
        if (!base->OuvrirConnexion(e, dialogue)) return; // the tables are made
        base->FermerConnexion(e);
        Remplir(base->Fichier(), surServeur ? serveur : "", lignes);
        prete = true;
    }
    // The first relay of a line in the middle of the base: a PD3A numbered 1.
    Etude EtudeMilieu() const {
        const int postes = std::max(1, lignes / LIGNES_PAR_POSTE);
        const int l = lignes / 2 + 1;
        Etude e;
        InscrireRelais();
        InitRegistre(e);
        PreparerOuverture(e);
        e.NomPoste = NomPoste((l - 1) % postes + 1).toStdString();
        e.NomDepart = NomDepart(l).toStdString();
        e.NomProtection = "PD3A";
        e.id_protection = e.ProtectionChoisie = 3;
        e.id_numero = 1;
        return e;
    }
};

// The bases, removed with their folders before the program ends (their connections must close
// while Qt's SQL layer is still there).
std::map<std::pair<int, bool>, std::unique_ptr<Region>> regions;

// The base of the measure: its number of lines, and on the server when its second argument is 1.
Region& LaRegion(benchmark::State& state) {
    const int lignes = static_cast<int>(state.range(0));
    const bool serveur = state.range(1) == 1;
    auto& r = regions[{lignes, serveur}];
    if (!r) r = std::make_unique<Region>(lignes, serveur);
    if (!r->prete)
        state.SkipWithError(serveur ? "no server: TOURNESOL_SERVEUR_BANC names none, or it "
                                      "cannot be reached"
                                    : "the base could not be made");
    return *r;
}

void BM_Ouvrir(benchmark::State& state) {
    Region& r = LaRegion(state);
    if (!r.prete) return;
    for (auto _ : state) {
        Etude e = r.EtudeMilieu();
        r.base->Ouvrir(e, r.dialogue);
        benchmark::DoNotOptimize(e.X1_HT);
        if (e.NouvelleLigne || e.id_reglage < 1) {
            const std::string pourquoi = r.dialogue.Messages().empty()
                                             ? "the line was not found"
                                             : r.dialogue.Messages().back().sMessage;
            state.SkipWithError(pourquoi.c_str());
        }
    }
}

void BM_Sauver(benchmark::State& state) {
    Region& r = LaRegion(state);
    if (!r.prete) return;
    Etude e = r.EtudeMilieu();
    r.base->Ouvrir(e, r.dialogue);
    for (auto _ : state) {
        e.Ligne_XLA += 1.0;
        e.Sauvegarde = true;
        if (!r.base->Sauver(e, r.dialogue)) state.SkipWithError("the save failed");
    }
}

// The superposition window's save: the setting row and the settings of one relay, and who saved
// it on its link rows.
void BM_SauverDepuisSuperposition(benchmark::State& state) {
    Region& r = LaRegion(state);
    if (!r.prete) return;
    Etude e = r.EtudeMilieu();
    r.base->Ouvrir(e, r.dialogue);
    for (auto _ : state) {
        e.X1_HT += 1.0;
        if (!r.base->SauverDepuisSuperposition(e, r.dialogue))
            state.SkipWithError("the save failed");
    }
}

// A new line of a new substation each time: every key looked up and handed out.
void BM_SauverNouvelleLigne(benchmark::State& state) {
    Region& r = LaRegion(state);
    if (!r.prete) return;
    static int numero = 0;
    for (auto _ : state) {
        Etude e = r.EtudeMilieu();
        e.NomPoste = "NOUVEAU " + std::to_string(++numero);
        e.Sauvegarde = true;
        if (!r.base->Sauver(e, r.dialogue)) state.SkipWithError("the save failed");
    }
}

template <class Liste> void MesurerListe(benchmark::State& state, Liste&& liste) {
    Region& r = LaRegion(state);
    if (!r.prete) return;
    const Etude e = r.EtudeMilieu();
    for (auto _ : state)
        benchmark::DoNotOptimize(liste(*r.base, e));
}

void BM_ListePostes(benchmark::State& state) {
    MesurerListe(state, [](BaseEtudesSql& b, const Etude&) { return b.Postes(); });
}
// The list of substations when another user changed one since the last fill: brought up to date
// by the journal of the names changed.
void BM_ListePostesApresUnChangement(benchmark::State& state) {
    Region& r = LaRegion(state);
    if (!r.prete) return;
    bool bis = false;
    for (auto _ : state) {
        state.PauseTiming();
        {
            QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "autre");
            db.setDatabaseName(QString::fromStdString(r.base->Fichier()));
            db.open();
            QSqlQuery q(db);
            q.prepare(R"(UPDATE "Poste" SET "nom" = ? WHERE "id" = 1)");
            q.addBindValue(NomPoste(1) + ((bis = !bis) ? " BIS" : ""));
            if (!q.exec()) state.SkipWithError("the other user's change failed");
            q = QSqlQuery();
            db.close();
        }
        QSqlDatabase::removeDatabase("autre");
        state.ResumeTiming();
        benchmark::DoNotOptimize(r.base->Postes());
    }
}
void BM_ListeDeparts(benchmark::State& state) {
    MesurerListe(state, [](BaseEtudesSql& b, const Etude& e) { return b.Departs(e.NomPoste); });
}
void BM_ListePiquages(benchmark::State& state) {
    MesurerListe(state, [](BaseEtudesSql& b, const Etude& e) {
        return b.Piquages(e.NomPoste, e.NomDepart);
    });
}
void BM_ListeProtections(benchmark::State& state) {
    MesurerListe(state, [](BaseEtudesSql& b, const Etude& e) {
        return b.Protections(e.NomPoste, e.NomDepart, "");
    });
}
void BM_ListeNumeros(benchmark::State& state) {
    MesurerListe(state, [](BaseEtudesSql& b, const Etude& e) {
        return b.Numeros(e.NomPoste, e.NomDepart, "", "PD3A");
    });
}

// Each measure at 100 and at 100,000 lines, side by side; CPU time of the process.
#define TOURNESOL_DEUX_TAILLES(f)                                                                  \
    BENCHMARK(f)->Args({100, 0})->Args({100000, 0})->Unit(benchmark::kMillisecond)
TOURNESOL_DEUX_TAILLES(BM_Ouvrir);
TOURNESOL_DEUX_TAILLES(BM_Sauver);
// Saving and opening in 10,000 lines, on the file and on the server side by side; the time of
// the clock, as the server's share of the work is not the process's.
#define TOURNESOL_DEUX_BASES(f)                                                                    \
    BENCHMARK(f)->Args({10000, 0})->Args({10000, 1})->UseRealTime()->Unit(benchmark::kMillisecond)
TOURNESOL_DEUX_BASES(BM_Ouvrir);
TOURNESOL_DEUX_BASES(BM_Sauver);
TOURNESOL_DEUX_TAILLES(BM_SauverDepuisSuperposition);
TOURNESOL_DEUX_TAILLES(BM_ListePostes);
TOURNESOL_DEUX_TAILLES(BM_ListePostesApresUnChangement);
TOURNESOL_DEUX_TAILLES(BM_ListeDeparts);
TOURNESOL_DEUX_TAILLES(BM_ListePiquages);
TOURNESOL_DEUX_TAILLES(BM_ListeProtections);
TOURNESOL_DEUX_TAILLES(BM_ListeNumeros);
// Last: each of its saves adds a substation, which the list of substations would count.
TOURNESOL_DEUX_TAILLES(BM_SauverNouvelleLigne);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    regions.clear();
    return 0;
}
