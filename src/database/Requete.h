// The one way the store speaks SQL: a prepared statement whose values are all bound, never
// pasted into the text, and whose failure is an exception that only the command level catches.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <memory>
#include <stdexcept>
#include <string>
#include <unordered_map>

namespace tournesol {

// A statement the base refused. Never leaves the store: the command that ran it rolls back and
// tells the user.
class ErreurBase : public std::runtime_error {
public:
    explicit ErreurBase(const QSqlError& erreur);
    explicit ErreurBase(const std::string& texte) : std::runtime_error(texte) {}
    // The base is held by another writer.
    bool Verrou() const { return verrou_; }
    // The file is not an SQLite base.
    bool PasUneBase() const { return pasUneBase_; }
    // The base may be read but not written.
    bool LectureSeule() const { return lectureSeule_; }

private:
    bool verrou_ = false;
    bool pasUneBase_ = false;
    bool lectureSeule_ = false;
};

// The base is held by another writer (SQLite busy or locked, PostgreSQL lock not available).
bool EstVerrou(const QSqlError& erreur);
// The base refused a write because it may only be read (an SQLite file opened read-only, as
// SQLite does itself with a file the user may not write; on a server, a read-only transaction or
// a role without the right to write).
bool EstLectureSeule(const QSqlError& erreur);

class Requete {
public:
    // A statement prepared for this use only.
    Requete(const QSqlDatabase& db, const char* sql);
    // A statement prepared once for the connection (see CacheRequetes), used again from its first
    // value.
    explicit Requete(QSqlQuery& preparee) : q_(&preparee) {}
    ~Requete() { q_->finish(); }
    Requete(const Requete&) = delete;
    Requete& operator=(const Requete&) = delete;

    // The next value of the statement, in the order of its '?'.
    Requete& operator<<(const QVariant& valeur);
    Requete& operator<<(const std::string& texte);
    Requete& operator<<(int entier);
    Requete& operator<<(double reel);

    Requete& Executer();
    // The next row of the result; false at the end.
    bool Suivante() { return q_->next(); }
    QVariant Valeur(int colonne) const { return q_->value(colonne); }
    int Entier(int colonne) const { return q_->value(colonne).toInt(); }
    // A text column; read as bytes (a text cast to a BLOB on SQLite), its UTF-8 as it stands,
    // without the round trip through UTF-16 of a text value.
    std::string Texte(int colonne) const;
    int LignesTouchees() const { return q_->numRowsAffected(); }

private:
    QSqlQuery propre_;
    QSqlQuery* q_ = &propre_;
    int valeurs_ = 0;
};

// The statements of one connection, each prepared the first time its text is used; emptied
// before the connection closes.
class CacheRequetes {
public:
    QSqlQuery& Preparee(const QSqlDatabase& db, const std::string& sql);
    void Vider() { requetes_.clear(); }

private:
    std::unordered_map<std::string, std::unique_ptr<QSqlQuery>> requetes_;
};

// A typed Null, for the drivers that want to know the column's type.
QVariant NulReel();

} // namespace tournesol
