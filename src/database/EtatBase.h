// Whether a folder holds a study base this system can use, and if not, why. Nothing is written:
// the file is read through a read-only connection, and a missing file is not made.
#pragma once

#include <string>

class QSqlDatabase;

namespace tournesol {

class Dialogue;

struct EtatBase {
    enum class Genre {
        Utilisable,    // a base of this system, readable and writable
        DossierAbsent, // the folder does not exist
        Absente,       // no bd1.mdb there, or an empty file (a save makes a new base)
        Illisible,     // the file cannot be read (rights, a fault of the disk, a lock)
        LectureSeule,  // a base of this system that cannot be written (file or folder)
        Etrangere,     // not a base of this system: another program's file or no SQLite file
        Verrou,        // held by another writer past the wait
        Autre,         // a command that failed for another cause (a statement, the disk)
    };
    Genre genre = Genre::Utilisable;
    // What is wrong, in a sentence that names the file or the folder; empty when usable.
    std::string raison;

    bool Utilisable() const { return genre == Genre::Utilisable; }
};

// The folder as Rep_appli holds it (empty for the current directory); the base is its bd1.mdb.
// For a server's address, the base on the server, read in a read-only transaction.
EtatBase ExaminerBase(const std::string& rep_appli);

// At the program's start: one message ("TOURNESOL : Attention !", the base's icon) naming the
// base and the cause when the folder holds no base this system can use; nothing when it can.
// True when the base is usable.
bool SignalerBaseAuDemarrage(const std::string& rep_appli, Dialogue& d);

// What a connection finds in an open SQLite file.
enum class Contenu {
    Systeme,  // the mark of this system at its version (on a server: the tables and their columns)
    Ancienne, // the tables of the system made by an earlier version, to be brought up to date
    Vide,     // no mark and no table at all
    Etrangere,
};
// Reads the mark and the tables; throws ErreurBase when the file cannot be read.
Contenu Reconnaitre(const QSqlDatabase& db);
// Whether the table has that column.
bool ColonneExiste(const QSqlDatabase& db, const std::string& table, const std::string& colonne);

} // namespace tournesol
