#include "database/Schema.h"

#include "core/Etude.h"

#include <array>

namespace tournesol {

namespace {

// The SQL type of a study variable's kind.
template <class T> constexpr const char* TypeSql() {
    if constexpr (std::is_same_v<T, Booleen> || std::is_same_v<T, Entier16>)
        return "SMALLINT"; // a Boolean is stored as the system holds it, -1 / 0
    else if constexpr (std::is_same_v<T, Entier32>)
        return "INTEGER";
    else if constexpr (std::is_same_v<T, Reel32>)
        return "REAL";
    else
        return "DOUBLE PRECISION";
}

template <class T> QVariant VersSql(T v) {
    if constexpr (std::is_same_v<T, Booleen>)
        return QVariant(static_cast<int>(EnEntier(v)));
    else if constexpr (std::is_integral_v<T>)
        return QVariant(static_cast<int>(v));
    else
        return QVariant(static_cast<double>(v)); // a 32-bit float widens exactly
}

template <class T> void DepuisSql(const QVariant& q, T& v) {
    if constexpr (std::is_same_v<T, Booleen>)
        v = q.toInt() != 0;
    else if constexpr (std::is_integral_v<T>)
        v = static_cast<T>(q.toInt());
    else
        v = static_cast<T>(q.toDouble());
}

template <class T> ColonneLigne Simple(std::string nom, T Etude::*membre) {
    return {std::move(nom), TypeSql<T>(), [membre](const Etude& e) { return VersSql(e.*membre); },
            [membre](Etude& e, const QVariant& q) {
                if (!q.isNull()) DepuisSql(q, e.*membre);
            }};
}

template <class T>
ColonneLigne Element(std::string nom, std::array<T, 3> Etude::*membre, std::size_t i) {
    return {std::move(nom), TypeSql<T>(),
            [membre, i](const Etude& e) { return VersSql((e.*membre)[i]); },
            [membre, i](Etude& e, const QVariant& q) {
                if (!q.isNull()) DepuisSql(q, (e.*membre)[i]);
            }};
}

// The three columns of a stem: the stem followed by the index, from `premier`.
template <class T>
void Trois(std::vector<ColonneLigne>& c, const char* stem, std::array<T, 3> Etude::*membre,
           int premier = 0) {
    for (std::size_t i = 0; i < 3; ++i)
        c.push_back(Element(stem + std::to_string(premier + static_cast<int>(i)), membre, i));
}

std::vector<ColonneLigne> FaireColonnesLigne() {
    std::vector<ColonneLigne> c;
    c.push_back(Simple("Tl", &Etude::Ligne_Tl));
    // The long-line flag is stored negated: lc = NOT Ligne_lc.
    c.push_back({"lc", "SMALLINT",
                 [](const Etude& e) { return QVariant(static_cast<int>(EnEntier(!e.Ligne_lc))); },
                 [](Etude& e, const QVariant& q) {
                     if (!q.isNull()) e.Ligne_lc = q.toInt() == 0;
                 }});
    c.push_back(Simple("cdg", &Etude::Ligne_cdg));
    c.push_back(Simple("alim", &Etude::Ligne_alim));
    c.push_back(Simple("Up", &Etude::Ligne_Up));
    c.push_back(Simple("Ip", &Etude::Ligne_Ip));
    c.push_back(Simple("Icc", &Etude::Ligne_Icc));
    c.push_back(Simple("XAM", &Etude::Ligne_XAM));
    c.push_back(Simple("XAV", &Etude::Ligne_XAV));
    c.push_back(Simple("XAZ", &Etude::Ligne_XAZ));
    c.push_back(Simple("X1PB", &Etude::Ligne_X1PB));
    c.push_back(Simple("Pmax", &Etude::Ligne_Pmax));
    c.push_back(Simple("Smax", &Etude::Ligne_Smax));
    c.push_back(Simple("Itmono", &Etude::Ligne_Itmono));
    c.push_back(Simple("Ittri", &Etude::Ligne_Ittri));
    c.push_back(Simple("Itmax", &Etude::Ligne_Itmax));
    c.push_back(Simple("itclient", &Etude::Ligne_itclient));
    c.push_back(Simple("kom", &Etude::Ligne_kom));
    Trois(c, "XL", &Etude::Ligne_XL);
    Trois(c, "RL", &Etude::Ligne_RL);
    Trois(c, "ko", &Etude::Ligne_ko);
    Trois(c, "ako", &Etude::Ligne_ako);
    Trois(c, "ZL", &Etude::Ligne_ZL);
    Trois(c, "Longueur", &Etude::Ligne_Longueur);
    Trois(c, "PHI", &Etude::Ligne_PHI);
    Trois(c, "Xd", &Etude::Ligne_Xd);
    Trois(c, "Rd", &Etude::Ligne_Rd);
    Trois(c, "Xo", &Etude::Ligne_Xo);
    Trois(c, "Ro", &Etude::Ligne_Ro);
    Trois(c, "Ex", &Etude::Ligne_Ex, 1);
    c.push_back(Simple("pp", &Etude::Ligne_pp));
    c.push_back(Simple("cc", &Etude::Ligne_cc));
    c.push_back({"ea", "SMALLINT", {}, {}}); // belongs to the table, not written by the save
    c.push_back(Simple("ICCACM", &Etude::Ligne_ICCACM));
    c.push_back(Simple("ICCACT", &Etude::Ligne_ICCACT));
    c.push_back(Simple("ICCBCM", &Etude::Ligne_ICCBCM));
    c.push_back(Simple("ICCBCT", &Etude::Ligne_ICCBCT));
    c.push_back(Simple("ICCABM", &Etude::Ligne_ICCABM));
    c.push_back(Simple("ICCABT", &Etude::Ligne_ICCABT));
    c.push_back(Simple("ICCCBM", &Etude::Ligne_ICCCBM));
    c.push_back(Simple("ICCCBT", &Etude::Ligne_ICCCBT));
    c.push_back(Simple("IPCACM", &Etude::Ligne_IPCACM));
    c.push_back(Simple("IPCACT", &Etude::Ligne_IPCACT));
    c.push_back(Simple("IPCBCM", &Etude::Ligne_IPCBCM));
    c.push_back(Simple("IPCBCT", &Etude::Ligne_IPCBCT));
    c.push_back(Simple("IPCBAM", &Etude::Ligne_IPCBAM));
    c.push_back(Simple("IPCBAT", &Etude::Ligne_IPCBAT));
    c.push_back(Simple("IPCCAM", &Etude::Ligne_IPCCAM));
    c.push_back(Simple("IPCCAT", &Etude::Ligne_IPCCAT));
    c.push_back(Simple("IPCCBM", &Etude::Ligne_IPCCBM));
    c.push_back(Simple("IPCCBT", &Etude::Ligne_IPCCBT));
    c.push_back(Simple("IPCABM", &Etude::Ligne_IPCABM));
    c.push_back(Simple("IPCABT", &Etude::Ligne_IPCABT));
    c.push_back(Simple("Xprim1", &Etude::Ligne_Xprim1));
    c.push_back(Simple("Xprim2", &Etude::Ligne_Xprim2));
    c.push_back(Simple("Xprim3", &Etude::Ligne_Xprim3));
    c.push_back(Simple("CRm", &Etude::Ligne_CRm));
    c.push_back(Simple("CRt", &Etude::Ligne_CRt));
    c.push_back(Simple("XLA", &Etude::Ligne_XLA));
    c.push_back(Simple("XSmini", &Etude::Ligne_XSmini));
    c.push_back(Simple("XS", &Etude::Ligne_XS));
    c.push_back(Simple("XLD", &Etude::Ligne_XLD));
    c.push_back(Simple("UnA", &Etude::Ligne_UnA));
    c.push_back(Simple("ItA", &Etude::Ligne_ItA));
    c.push_back(Simple("ItB", &Etude::Ligne_ItB));
    c.push_back(Simple("ItC", &Etude::Ligne_ItC));
    // The module of the first neuralgic point: written for the record, recomputed on opening.
    c.push_back({"n1",
                 "DOUBLE PRECISION",
                 [](const Etude& e) { return QVariant(e.PointsTransit[0].Module); },
                 {}});
    // The secondary rated current: without it a 5 A relay would reopen as a 1 A one.
    c.push_back(Simple("Is", &Etude::Is));
    return c;
}

std::vector<std::string> FaireCreation() {
    std::string ligne = R"(CREATE TABLE IF NOT EXISTS "Ligne" ("id" INTEGER NOT NULL PRIMARY KEY)";
    for (const ColonneLigne& c : ColonnesLigne())
        ligne += std::string(", \"") + c.Nom + "\" " + c.TypeSql;
    for (const ColonneHistorique& h : ColonnesHistorique())
        if (std::string(h.table) == "Ligne")
            ligne += std::string(", \"") + h.colonne + "\" " + h.typeSql;
    ligne += ")";
    return {
        R"(CREATE TABLE IF NOT EXISTS "Poste" ("id" INTEGER NOT NULL PRIMARY KEY,)"
        R"( "nom" VARCHAR(255)))",
        R"(CREATE TABLE IF NOT EXISTS "Départ" ("id" INTEGER NOT NULL PRIMARY KEY,)"
        R"( "id_poste" INTEGER, "nom" VARCHAR(255)))",
        R"(CREATE TABLE IF NOT EXISTS "Piquage" ("id" INTEGER NOT NULL PRIMARY KEY,)"
        R"( "id_départ" INTEGER, "id_poste" INTEGER, "nom" VARCHAR(255)))",
        R"(CREATE TABLE IF NOT EXISTS "Protection" ("id" INTEGER NOT NULL PRIMARY KEY,)"
        R"( "nom" VARCHAR(255)))",
        R"(CREATE TABLE IF NOT EXISTS "Tournesol" ("id" INTEGER NOT NULL PRIMARY KEY,)"
        R"( "id_poste" INTEGER, "id_départ" INTEGER, "id_piquage" INTEGER,)"
        R"( "id_protection" INTEGER, "id_ligne" INTEGER, "id_réglage" INTEGER,)"
        R"( "id_numéro" SMALLINT, "sauvé_par" VARCHAR(255), "sauvé_le" VARCHAR(32)))",
        R"(CREATE TABLE IF NOT EXISTS "Réglage" ("id" INTEGER NOT NULL PRIMARY KEY,)"
        R"( "TypeReportCharge" SMALLINT, "Left" REAL, "Width" REAL, "Top" REAL, "Height" REAL))",
        // Valeur holds every value exactly as a 64-bit float; TypeValeur tells the type it was
        // written in, by the run-time's numbers: 2 16-bit integer, 4 32-bit float, 5 64-bit
        // float.
        R"(CREATE TABLE IF NOT EXISTS "TR" ("id_key" INTEGER NOT NULL, "id_pos" INTEGER NOT NULL,)"
        R"( "Valeur" DOUBLE PRECISION, "TypeValeur" SMALLINT, PRIMARY KEY ("id_key", "id_pos")))",
        ligne,
    };
}

// The indexes of the look-ups of the store, by name: names by their owner, link rows by their
// five keys, by their line, by their line end (the deletions) and by their setting row (the
// superposition's save); the settings by their key (the primary key of TR).
struct Index {
    const char* nom;
    const char* table;
    const char* colonnes;
};
constexpr Index INDEX[] = {
    {"Poste_nom", "Poste", R"("nom")"},
    {"Départ_poste_nom", "Départ", R"("id_poste", "nom")"},
    {"Piquage_départ_nom", "Piquage", R"("id_départ", "id_poste", "nom")"},
    {"Piquage_poste", "Piquage", R"("id_poste")"},
    {"Protection_nom", "Protection", R"("nom")"},
    {"Tournesol_cles", "Tournesol",
     R"("id_poste", "id_départ", "id_piquage", "id_protection", "id_numéro")"},
    {"Tournesol_ligne", "Tournesol", R"("id_ligne")"},
    {"Tournesol_départ", "Tournesol", R"("id_départ")"},
    {"Tournesol_réglage", "Tournesol", R"("id_réglage")"},
};

std::vector<std::string> FaireCreationComplete() {
    std::vector<std::string> c = FaireCreation();
    for (const Index& i : INDEX)
        c.push_back(std::string(R"(CREATE INDEX IF NOT EXISTS ")") + i.nom + R"(" ON ")" + i.table +
                    R"(" ()" + i.colonnes + ")");
    return c;
}

std::vector<std::string> FaireCreationSqlite() {
    std::vector<std::string> c = {
        std::string(R"(CREATE TABLE IF NOT EXISTS ")") + TABLE_CHANGEMENTS +
            R"(" ("nom" VARCHAR(255) NOT NULL PRIMARY KEY, "compte" INTEGER NOT NULL))",
        std::string(R"(INSERT OR IGNORE INTO ")") + TABLE_CHANGEMENTS +
            R"(" ("nom", "compte") VALUES ('Poste', abs(random() % 1000000000000)))",
    };
    const std::string compter = std::string(R"( BEGIN UPDATE ")") + TABLE_CHANGEMENTS +
                                R"(" SET "compte" = "compte" + 1 WHERE "nom" = 'Poste'; END)";
    c.push_back(R"(CREATE TRIGGER IF NOT EXISTS "Poste_ajouté" AFTER INSERT ON "Poste")" + compter);
    c.push_back(R"(CREATE TRIGGER IF NOT EXISTS "Poste_retiré" AFTER DELETE ON "Poste")" + compter);
    c.push_back(R"(CREATE TRIGGER IF NOT EXISTS "Poste_renommé" AFTER UPDATE OF "nom" ON "Poste")"
                R"( WHEN OLD."nom" IS NOT NEW."nom")" +
                compter);
    const std::string journal =
        std::string(R"(INSERT INTO ")") + TABLE_JOURNAL_POSTES + R"(" ("nom"))";
    c.push_back(std::string(R"(CREATE TABLE IF NOT EXISTS ")") + TABLE_JOURNAL_POSTES +
                R"(" ("n" INTEGER PRIMARY KEY AUTOINCREMENT, "nom" VARCHAR(255)))");
    c.push_back(R"(CREATE TRIGGER IF NOT EXISTS "Poste_ajouté_au_journal" AFTER INSERT ON "Poste")"
                R"( BEGIN )" +
                journal + R"( VALUES (NEW."nom"); END)");
    c.push_back(R"(CREATE TRIGGER IF NOT EXISTS "Poste_retiré_au_journal" AFTER DELETE ON "Poste")"
                R"( BEGIN )" +
                journal + R"( VALUES (OLD."nom"); END)");
    c.push_back(R"(CREATE TRIGGER IF NOT EXISTS "Poste_renommé_au_journal" AFTER UPDATE OF "nom")"
                R"( ON "Poste" WHEN OLD."nom" IS NOT NEW."nom" BEGIN )" +
                journal + R"( VALUES (OLD."nom"); )" + journal + R"( VALUES (NEW."nom"); END)");
    return c;
}

} // namespace

const std::vector<ColonneLigne>& ColonnesLigne() {
    static const std::vector<ColonneLigne> colonnes = FaireColonnesLigne();
    return colonnes;
}

const std::vector<ColonneHistorique>& ColonnesHistorique() {
    static const std::vector<ColonneHistorique> colonnes = {
        {"Tournesol", COLONNE_AUTEUR, "VARCHAR(255)"},
        {"Tournesol", COLONNE_DATE, "VARCHAR(32)"},
        {"Ligne", COLONNE_AUTEUR, "VARCHAR(255)"},
        {"Ligne", COLONNE_DATE, "VARCHAR(32)"},
    };
    return colonnes;
}

const std::vector<std::string>& TablesDuSysteme() {
    static const std::vector<std::string> tables = {"Poste",     "Départ",  "Piquage", "Protection",
                                                    "Tournesol", "Réglage", "TR",      "Ligne"};
    return tables;
}

const std::vector<std::string>& CreationTables() {
    static const std::vector<std::string> creation = FaireCreationComplete();
    return creation;
}

const std::vector<std::string>& IndexDuSysteme() {
    static const std::vector<std::string> noms = [] {
        std::vector<std::string> n;
        for (const Index& i : INDEX)
            n.emplace_back(i.nom);
        return n;
    }();
    return noms;
}

const std::vector<std::string>& CreationSqlite() {
    static const std::vector<std::string> creation = FaireCreationSqlite();
    return creation;
}

} // namespace tournesol
