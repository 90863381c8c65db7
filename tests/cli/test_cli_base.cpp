// The verbs of the base as users run them: what they refuse, a base held by another user, and
// two users saving at the same moment.
#include <QCryptographicHash>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

struct Sortie {
    int code = -1;
    std::string sortie;
    std::string erreurs;
};

// A run of the command line started in the background; Fin() waits for it.
class Lancement {
public:
    // `avant`: shell words put before the program (limits of the process, another user).
    explicit Lancement(const std::string& arguments, const std::string& avant = "") {
        static int numero = 0;
        erreurs_ = fs::temp_directory_path() / ("tournesol-cli-base-" + std::to_string(::getpid()) +
                                                "-" + std::to_string(++numero) + ".err");
        const std::string commande =
            avant + std::string(TOURNESOL_CLI) + " " + arguments + " 2>" + erreurs_.string();
        tube_ = popen(commande.c_str(), "r");
    }
    Sortie Fin() {
        Sortie r;
        if (!tube_) return r;
        char tampon[4096];
        std::size_t n = 0;
        while ((n = fread(tampon, 1, sizeof tampon, tube_)) > 0)
            r.sortie.append(tampon, n);
        const int statut = pclose(tube_);
        tube_ = nullptr;
        r.code = WIFEXITED(statut) ? WEXITSTATUS(statut) : -1;
        std::ifstream f(erreurs_);
        r.erreurs.assign(std::istreambuf_iterator<char>(f), {});
        fs::remove(erreurs_);
        return r;
    }
    ~Lancement() {
        if (tube_) Fin();
    }

private:
    FILE* tube_ = nullptr;
    fs::path erreurs_;
};

Sortie Lancer(const std::string& arguments, const std::string& avant = "") {
    return Lancement(arguments, avant).Fin();
}

// The SHA-256 of a file; empty when it does not exist. Never while this process holds a lock
// on the base: closing any descriptor of the file drops the process's locks on it.
QByteArray Empreinte(const fs::path& chemin) {
    QFile f(QString::fromStdString(chemin.string()));
    if (!f.open(QIODevice::ReadOnly)) return {};
    return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256).toHex();
}

json Exemple() {
    std::ifstream f(fs::path(TOURNESOL_EXEMPLES) / "champagnier-grande-ile-225kV.json");
    return json::parse(f);
}

class BaseEnLigne : public ::testing::Test {
protected:
    void SetUp() override {
        dossier_ = fs::temp_directory_path() /
                   ("tournesol-cli-base-" + std::to_string(::getpid()) + "-" +
                    ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dossier_);
        fs::create_directories(dossier_);
        base_ = dossier_ / "bd1.mdb";
    }
    void TearDown() override {
        if (!connexion_.isEmpty()) {
            QSqlDatabase::database(connexion_, false).close();
            QSqlDatabase::removeDatabase(connexion_);
        }
        fs::remove_all(dossier_);
    }

    // A study file of the example under other names.
    fs::path Etude(const std::string& nom, const std::string& poste, const std::string& depart,
                   double longueur = 75.0, int numero = 1) {
        json j = Exemple();
        j["NomPoste"] = poste;
        j["NomDepart"] = depart;
        j["Ligne_Longueur"][0] = longueur;
        j["id_numero"] = numero;
        const fs::path chemin = dossier_ / (nom + ".json");
        std::ofstream(chemin) << j.dump();
        return chemin;
    }

    std::string Save(const fs::path& etude, const std::string& options = "") {
        return "save " + etude.string() + " --base " + dossier_.string() + " " + options;
    }

    std::string Open(const std::string& poste, const std::string& depart,
                     const std::string& options = "--protection PD3A --numero 1") {
        return "open --base " + dossier_.string() + " --poste '" + poste + "' --depart '" + depart +
               "' " + options;
    }

    // Another user's connection to the base.
    QSqlQuery Autre() {
        if (connexion_.isEmpty()) {
            connexion_ = QStringLiteral("autre-%1").arg(::getpid());
            QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connexion_);
            db.setDatabaseName(QString::fromStdString(base_.string()));
            EXPECT_TRUE(db.open());
        }
        return QSqlQuery(QSqlDatabase::database(connexion_, false));
    }
    void AutreExecute(const char* sql) {
        QSqlQuery q = Autre();
        EXPECT_TRUE(q.exec(QString::fromUtf8(sql)))
            << sql << ": " << q.lastError().text().toStdString();
    }
    int AutreCompte(const char* sql) {
        QSqlQuery q = Autre();
        EXPECT_TRUE(q.exec(QString::fromUtf8(sql))) << sql;
        return q.next() ? q.value(0).toInt() : -1;
    }

    fs::path dossier_, base_;
    QString connexion_;
};

// Every key of the saved study comes back from the base.
void MemeEtude(const json& ouverte, const json& sauvee, const std::string& quoi) {
    for (const auto& [cle, valeur] : sauvee.items())
        if (cle != "messages") {
            EXPECT_EQ(ouverte[cle], valeur) << quoi << " " << cle;
        }
}

} // namespace

TEST_F(BaseEnLigne, UneMauvaiseEntreeSortAvecDeuxSansRienEcrire) {
    ASSERT_EQ(Lancer(Save(Etude("a", "CHAMPAGNIER", "GRANDE-ILE"))).code, 0);
    const fs::path vide = dossier_ / "vide";
    const fs::path etrangere = dossier_ / "etrangere";
    fs::create_directories(vide);
    fs::create_directories(etrangere);
    std::ofstream(etrangere / "bd1.mdb") << std::string(300, 'x');
    const fs::path sansNumero = Etude("b", "CHAMPAGNIER", "VIF", 75.0, 0);
    const std::string d = dossier_.string();
    const std::string relais = " --protection PD3A --numero 1";

    const struct {
        std::string arguments, message;
    } cas[] = {
        {Open("CHAMPAGNIER", "GRANDE-ILE", "--protection PD3A --numero 65537"),
         "--numero needs an integer from 1 to 32767, not \"65537\""},
        {Open("CHAMPAGNIER", "GRANDE-ILE", "--protection PD3A --numero abc"), "not \"abc\""},
        {Open("CHAMPAGNIER", "GRANDE-ILE", "--protection PD3A --numero 0"), "not \"0\""},
        {Open("CHAMPAGNIER", "GRANDE-ILE", "--protection PD3A"), "open needs --numero"},
        {"open --bsae " + d + " --poste A --depart B" + relais, "unknown option --bsae"},
        {"open --poste A --depart B" + relais + " --base", "the option --base needs a value"},
        {Open("CHAMPAGNIER", "GRANDE-ILE", "--protection XYZ --numero 1"), "unknown relay \"XYZ\""},
        {Open("CHAMPAGNIER", "GRANDE-ILE", "--protection PD3A --numero 1 --wait x"),
         "--wait needs a number of seconds"},
        {"open --base " + d + "/absent --poste A --depart B" + relais, "absent/ does not exist"},
        {"open --base " + vide.string() + " --poste A --depart B" + relais, "there is no base"},
        {"open --base " + etrangere.string() + " --poste A --depart B" + relais,
         "is not a base of TOURNESOL"},
        {Open("NULLE-PART", "GRANDE-ILE"), "unknown substation \"NULLE-PART\""},
        {Open("CHAMPAGNIER", "VIF"), "unknown line end \"VIF\" at substation \"CHAMPAGNIER\""},
        {Open("CHAMPAGNIER", "GRANDE-ILE", "--piquage T" + relais),
         "unknown tee \"T\" on the line CHAMPAGNIER - GRANDE-ILE"},
        {Open("CHAMPAGNIER", "GRANDE-ILE", "--protection RXAP --numero 1"),
         "no relay RXAP number 1 on the line CHAMPAGNIER - GRANDE-ILE"},
        {Open("CHAMPAGNIER", "GRANDE-ILE", "--protection PD3A --numero 2"),
         "no relay PD3A number 2"},
        {Save(sansNumero), "id_numero 0 is not a relay number from 1 to 32767"},
        {Save(sansNumero, "--wiat 3"), "unknown option --wiat"},
        {"save " + sansNumero.string() + " --base", "the option --base needs a value"},
        {"save --base " + d, "save needs one study file"},
        {"save " + sansNumero.string() + " --base " + d + "/absent", "absent/ does not exist"},
        {"save " + sansNumero.string() + " --base " + etrangere.string(),
         "is not a base of TOURNESOL"},
        {"save " + (dossier_ / "manque.json").string() + " --base " + d, "cannot read the file"},
    };
    const QByteArray avant = Empreinte(base_);
    const QByteArray avantEtrangere = Empreinte(etrangere / "bd1.mdb");
    for (const auto& c : cas) {
        const Sortie r = Lancer(c.arguments);
        EXPECT_EQ(r.code, 2) << c.arguments << "\n" << r.erreurs;
        EXPECT_NE(r.erreurs.find(c.message), std::string::npos) << c.arguments << "\n" << r.erreurs;
        EXPECT_EQ(std::count(r.erreurs.begin(), r.erreurs.end(), '\n'), 1) << r.erreurs;
        EXPECT_TRUE(r.sortie.empty()) << c.arguments;
    }
    EXPECT_EQ(Empreinte(base_), avant);
    EXPECT_EQ(Empreinte(etrangere / "bd1.mdb"), avantEtrangere);
    EXPECT_FALSE(fs::exists(vide / "bd1.mdb"));
    EXPECT_FALSE(fs::exists(dossier_ / "absent"));
}

// Another user writing: a save waits for him, within --wait; a reader does not wait.
TEST_F(BaseEnLigne, UnEcrivainQuiTientLaBase) {
    const Sortie premiere = Lancer(Save(Etude("a", "A", "B")));
    ASSERT_EQ(premiere.code, 0) << premiere.erreurs;

    // Held for 3 s, then released: the save waits and goes through.
    const fs::path etude = Etude("c", "C", "D");
    AutreExecute("BEGIN IMMEDIATE");
    AutreExecute(R"(INSERT INTO "Poste" ("id", "nom") VALUES (500, 'autre'))");
    Lancement attente(Save(etude, "--wait 10"));
    const Sortie lecture = Lancer(Open("A", "B")); // a reader meanwhile
    EXPECT_EQ(lecture.code, 0) << lecture.erreurs;
    std::this_thread::sleep_for(std::chrono::seconds(3));
    AutreExecute("COMMIT");
    const Sortie r = attente.Fin();
    EXPECT_EQ(r.code, 0) << r.erreurs;
    EXPECT_EQ(json::parse(r.sortie)["NomPoste"], "C");
    EXPECT_EQ(AutreCompte(R"(SELECT COUNT(*) FROM "Poste")"), 3);

    // Held past --wait: exit 1 within the wait and a little, the cause said, nothing written.
    const fs::path etudeE = Etude("e", "E", "F");
    const QByteArray avant = Empreinte(base_);
    AutreExecute("BEGIN IMMEDIATE");
    const auto debut = std::chrono::steady_clock::now();
    const Sortie trop = Lancer(Save(etudeE, "--wait 1"));
    const auto duree = std::chrono::steady_clock::now() - debut;
    AutreExecute("ROLLBACK");
    EXPECT_EQ(trop.code, 1);
    EXPECT_LT(duree, std::chrono::seconds(3));
    EXPECT_NE(trop.erreurs.find("is locked by another user (waited 1 s)"), std::string::npos)
        << trop.erreurs;
    EXPECT_TRUE(trop.sortie.empty());
    EXPECT_EQ(Empreinte(base_), avant);
}

// A save that the disk or the rights refuse: exit 1, the cause on stderr, nothing on stdout, the
// base byte for byte as it was and no journal left beside it.
TEST_F(BaseEnLigne, UneSauvegardeQueLeDisqueOuLesDroitsRefusentDitPourquoi) {
    ASSERT_EQ(Lancer(Save(Etude("a", "A", "B"))).code, 0);
    const fs::path journal = dossier_ / "bd1.mdb-journal";
    auto refusee = [&](const Sortie& r, const char* cause, const char* quoi) {
        EXPECT_EQ(r.code, 1) << quoi << "\n" << r.erreurs;
        EXPECT_NE(r.erreurs.find(cause), std::string::npos) << quoi << "\n" << r.erreurs;
        EXPECT_EQ(std::count(r.erreurs.begin(), r.erreurs.end(), '\n'), 1) << r.erreurs;
        EXPECT_TRUE(r.sortie.empty()) << quoi;
        EXPECT_FALSE(fs::exists(journal)) << quoi;
    };

    // The disk full: a limit on the size of the command's files, SIGXFSZ ignored, so that a
    // write past it fails as on a full disk (SQLite then says "disk I/O error", where a full disk
    // gives "database or disk is full"). First while the journal is written, before any page of
    // the base is touched.
    auto plein = [](std::uintmax_t octets) {
        return "trap '' XFSZ; prlimit --fsize=" + std::to_string(octets) + " ";
    };
    QByteArray avant = Empreinte(base_);
    refusee(Lancer(Save(Etude("plein", "C", "D")), plein(600)), "disk I/O error", "journal");
    EXPECT_EQ(Empreinte(base_), avant);
    // Then when the base itself must grow, at the commit, its journal written and some of its
    // pages already: new lines are saved with a hundred bytes to spare until one needs a page
    // more. Those that fit are saved whole.
    int refus = 0;
    for (int i = 0; i < 20 && refus == 0; ++i) {
        avant = Empreinte(base_);
        const std::string poste = "PLEIN " + std::to_string(i);
        const Sortie r = Lancer(Save(Etude("plein" + std::to_string(i), poste, "L")),
                                plein(fs::file_size(base_) + 100));
        if (r.code == 0) {
            EXPECT_EQ(Lancer(Open(poste, "L")).code, 0) << poste;
            continue;
        }
        ++refus;
        refusee(r, "disk I/O error", "commit");
        EXPECT_EQ(Empreinte(base_), avant) << poste;
        EXPECT_NE(Lancer(Open(poste, "L")).code, 0) << poste;
    }
    EXPECT_EQ(refus, 1);

    // Read-only: the base and its folder belong to another user and may only be read. Run as
    // root, the command runs as the user "nobody", whom the file's rights do hold.
    fs::permissions(base_, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    fs::permissions(dossier_, fs::perms::owner_read | fs::perms::owner_exec |
                                  fs::perms::group_read | fs::perms::group_exec |
                                  fs::perms::others_read | fs::perms::others_exec);
    const std::string autre =
        ::geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
    avant = Empreinte(base_);
    refusee(Lancer(Save(dossier_ / "a.json"), autre), "is read-only", "read-only");
    EXPECT_EQ(Empreinte(base_), avant);
    const Sortie lue = Lancer(Open("A", "B"), autre); // reading needs no right to write
    EXPECT_EQ(lue.code, 0) << lue.erreurs;
    fs::permissions(dossier_, fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                                  fs::perms::others_read | fs::perms::others_exec);
}

TEST_F(BaseEnLigne, UnLecteurQuiTientLaBaseFaitAttendreLaSauvegarde) {
    ASSERT_EQ(Lancer(Save(Etude("a", "A", "B"))).code, 0);
    const fs::path etude = Etude("c", "C", "D");
    AutreExecute("BEGIN");
    EXPECT_EQ(AutreCompte(R"(SELECT COUNT(*) FROM "Poste")"), 1); // a shared lock, kept
    const auto avant = std::pair(fs::last_write_time(base_), fs::file_size(base_));
    Lancement sauvegarde(Save(etude, "--wait 10"));
    std::this_thread::sleep_for(std::chrono::seconds(1));
    // It cannot write while the reader reads (the file is only looked at, never opened here).
    EXPECT_EQ(std::pair(fs::last_write_time(base_), fs::file_size(base_)), avant);
    AutreExecute("COMMIT");
    const Sortie r = sauvegarde.Fin();
    EXPECT_EQ(r.code, 0) << r.erreurs;
    EXPECT_EQ(AutreCompte(R"(SELECT COUNT(*) FROM "Poste")"), 2);
}

// Two users saving two new lines of one new substation at the same moment: one substation, two
// line ends, and each study reopens by its names with its own values.
TEST_F(BaseEnLigne, DeuxSauvegardesSimultanees) {
    constexpr int TOURS = 100;
    std::vector<std::pair<fs::path, fs::path>> etudes;
    for (int t = 0; t < TOURS; ++t) {
        const std::string poste = "POSTE " + std::to_string(t);
        etudes.emplace_back(Etude("t" + std::to_string(t) + "a", poste, "L1", 30.0 + t),
                            Etude("t" + std::to_string(t) + "b", poste, "L2", 60.0 + t));
    }
    std::vector<std::pair<json, json>> sauvees;
    for (const auto& [a, b] : etudes) {
        Lancement premier(Save(a)), second(Save(b));
        const Sortie ra = premier.Fin(), rb = second.Fin();
        ASSERT_EQ(ra.code, 0) << ra.erreurs;
        ASSERT_EQ(rb.code, 0) << rb.erreurs;
        sauvees.emplace_back(json::parse(ra.sortie), json::parse(rb.sortie));
    }
    EXPECT_EQ(AutreCompte(R"(SELECT COUNT(*) FROM "Poste")"), TOURS);
    EXPECT_EQ(AutreCompte(R"(SELECT COUNT(DISTINCT "nom") FROM "Poste")"), TOURS);
    EXPECT_EQ(AutreCompte(R"(SELECT COUNT(*) FROM "Départ")"), 2 * TOURS);
    EXPECT_EQ(AutreCompte(R"(SELECT COUNT(DISTINCT "id_poste" || '/' || "nom") FROM "Départ")"),
              2 * TOURS);
    EXPECT_EQ(AutreCompte(R"(SELECT COUNT(*) FROM "Tournesol")"), 2 * TOURS);
    EXPECT_EQ(AutreCompte(R"(SELECT COUNT(DISTINCT "id_ligne") FROM "Tournesol")"), 2 * TOURS);
    EXPECT_EQ(AutreCompte(R"(SELECT COUNT(*) FROM "Ligne")"), 2 * TOURS);
    EXPECT_EQ(AutreCompte(R"(SELECT COUNT(*) FROM "Réglage")"), 2 * TOURS);
    for (int t = 0; t < TOURS; ++t) {
        const std::string poste = "POSTE " + std::to_string(t);
        for (const auto& [depart, sauvee] :
             {std::pair{"L1", sauvees[t].first}, std::pair{"L2", sauvees[t].second}}) {
            const Sortie r = Lancer(Open(poste, depart));
            ASSERT_EQ(r.code, 0) << poste << " " << depart << ": " << r.erreurs;
            MemeEtude(json::parse(r.sortie), sauvee, poste + " - " + depart);
        }
    }
}

// Two users saving the same relay: the base holds one whole study, the one or the other.
TEST_F(BaseEnLigne, DeuxSauvegardesDuMemeRelais) {
    const fs::path a = Etude("a", "A", "B", 11.0), b = Etude("b", "A", "B", 22.0);
    json sa, sb;
    for (int t = 0; t < 20; ++t) {
        Lancement premier(Save(a)), second(Save(b));
        const Sortie ra = premier.Fin(), rb = second.Fin();
        ASSERT_EQ(ra.code, 0) << ra.erreurs;
        ASSERT_EQ(rb.code, 0) << rb.erreurs;
        sa = json::parse(ra.sortie);
        sb = json::parse(rb.sortie);
    }
    for (const char* table : {"Poste", "Départ", "Ligne", "Tournesol", "Réglage", "Protection"})
        EXPECT_EQ(AutreCompte(("SELECT COUNT(*) FROM \"" + std::string(table) + "\"").c_str()), 1)
            << table;
    const Sortie r = Lancer(Open("A", "B"));
    ASSERT_EQ(r.code, 0) << r.erreurs;
    const json ouverte = json::parse(r.sortie);
    const json& sauvee = ouverte["Ligne_Longueur"][0] == 11.0 ? sa : sb;
    MemeEtude(ouverte, sauvee, "A - B");
}

namespace {

// The server of the tests (the test command starts one), in a database of this program's own.
std::string BaseDuServeur() {
    const char* serveur = std::getenv("TOURNESOL_SERVEUR_ESSAI");
    if (!serveur) return {};
    QUrl url(QString::fromUtf8(serveur));
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), "serveur-cli");
        db.setHostName(url.host());
        db.setPort(url.port(5432));
        db.setUserName(url.userName());
        db.setDatabaseName(url.path().mid(1));
        EXPECT_TRUE(db.open()) << db.lastError().text().toStdString();
        QSqlQuery q(db);
        EXPECT_TRUE(q.exec("DROP DATABASE IF EXISTS essai_cli WITH (FORCE)"));
        EXPECT_TRUE(q.exec("CREATE DATABASE essai_cli"));
        db.close();
    }
    QSqlDatabase::removeDatabase("serveur-cli");
    url.setPath("/essai_cli");
    return url.toString().toStdString();
}

} // namespace

// The verbs on a team's base on a server: the same study saved and opened again, with who saved
// it and when; an address that cannot be read is refused, a server that does not answer is told.
TEST_F(BaseEnLigne, SurUnServeurQuiEtQuandSontDits) {
    const std::string base = BaseDuServeur();
    if (base.empty()) GTEST_SKIP() << "no server: TOURNESOL_SERVEUR_ESSAI is not set";
    const fs::path etude = Etude("a", "CHAMPAGNIER", "GRANDE-ILE");
    setenv("USER", "ecadet", 1); // the login of the user who saves
    const Sortie sauvee = Lancer("save " + etude.string() + " --base " + base);
    unsetenv("USER");
    ASSERT_EQ(sauvee.code, 0) << sauvee.erreurs;
    const Sortie ouverte = Lancer("open --base " + base +
                                  " --poste CHAMPAGNIER --depart GRANDE-ILE --protection PD3A "
                                  "--numero 1");
    ASSERT_EQ(ouverte.code, 0) << ouverte.erreurs;
    MemeEtude(json::parse(ouverte.sortie), json::parse(sauvee.sortie), "server");
    EXPECT_NE(ouverte.erreurs.find("saved by ecadet on 20"), std::string::npos) << ouverte.erreurs;

    const std::string relais = " --poste A --depart B --protection PD3A --numero 1";
    const Sortie illisible = Lancer("open --base postgresql://x@127.0.0.1:99999/b" + relais);
    EXPECT_EQ(illisible.code, 2);
    EXPECT_NE(illisible.erreurs.find("does not name a base on a server"), std::string::npos)
        << illisible.erreurs;
    const Sortie absent = Lancer("open --wait 1 --base postgresql://x@127.0.0.1:1/b" + relais);
    EXPECT_EQ(absent.code, 1);
    EXPECT_NE(absent.erreurs.find("cannot be opened"), std::string::npos) << absent.erreurs;
}
