// The tables of the study base, with one spelling of every table and column: the system's,
// accents included, always between double quotes (standard SQL; "Left" is a keyword).
#pragma once

#include <QVariant>
#include <functional>
#include <string>
#include <vector>

namespace tournesol {

struct Etude;

// The mark of a base of this system, kept in the SQLite file's header (application_id), and the
// version of its tables (user_version). A file without the mark holds either nothing (a new base)
// or the tables of an earlier version of this system; anything else belongs to another program.
inline constexpr int MARQUE_BASE = 0x546F7572; // "Tour"
// Version 2 adds who saved and when to the link rows and the lines; version 3 the index of the
// link rows by their setting row and, in a file, the count of the changes of the substations.
inline constexpr int VERSION_SCHEMA = 4;

// The statements that make the tables of a new base and the indexes of every look-up of the
// store; each leaves an existing table or index alone. Run once per base: when a file has no mark
// or an earlier version's, when a server's base lacks a table, a column or an index.
const std::vector<std::string>& CreationTables();
// The names of the indexes that CreationTables makes.
const std::vector<std::string>& IndexDuSysteme();

// In a file, beside the tables: "Changements" holds, for "Poste", a count that every insert,
// deletion or renaming of a substation raises, whoever writes it (triggers of the file). It
// starts at a number drawn at random, so that two bases never show the same count by chance.
// The list of substations is read again only when that count has moved. "JournalPostes" keeps,
// in the order of the changes, the name each one touched, so that a list read before is brought
// up to date by the names changed since rather than read whole again.
const std::vector<std::string>& CreationSqlite();
inline constexpr const char* TABLE_CHANGEMENTS = "Changements";
inline constexpr const char* TABLE_JOURNAL_POSTES = "JournalPostes";

// Who saved and when, beside the columns of the system on the link rows (Tournesol) and the lines
// (Ligne): the user's login and the UTC time of the save, as text.
inline constexpr const char* COLONNE_AUTEUR = "sauvé_par";
inline constexpr const char* COLONNE_DATE = "sauvé_le";
struct ColonneHistorique {
    const char* table;
    const char* colonne;
    const char* typeSql;
};
const std::vector<ColonneHistorique>& ColonnesHistorique();

// The eight tables of the system, by their one spelling.
const std::vector<std::string>& TablesDuSysteme();

// A column of Ligne and the study variable it holds.
struct ColonneLigne {
    std::string Nom;
    const char* TypeSql;
    // The value the save writes; empty for a column the save does not write (ea).
    std::function<QVariant(const Etude&)> Lire;
    // Puts a stored value back into the study; empty for a column that is not read back (n1,
    // ea). A Null leaves the variable as it is.
    std::function<void(Etude&, const QVariant&)> Remettre;
};

// The columns of Ligne after its key, in the order in which the save writes them.
const std::vector<ColonneLigne>& ColonnesLigne();

} // namespace tournesol
