// The one way the store speaks SQL: a prepared statement whose values are all bound, never
// pasted into the text, and whose failure is an exception that only the command level catches.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <stdexcept>
#include <string>

namespace tournesol {

// A statement the base refused. Never leaves the store: the command that ran it rolls back and
// tells the user.
class ErreurBase : public std::runtime_error {
public:
    explicit ErreurBase(const QSqlError& erreur);
    explicit ErreurBase(const std::string& texte) : std::runtime_error(texte) {}
    // The base is held by another writer.
    bool Verrou() const { return verrou_; }

private:
    bool verrou_ = false;
};

// The base is held by another writer (SQLite busy or locked, PostgreSQL lock not available).
bool EstVerrou(const QSqlError& erreur);

class Requete {
public:
    Requete(const QSqlDatabase& db, const char* sql);

    // The next value of the statement, in the order of its '?'.
    Requete& operator<<(const QVariant& valeur);
    Requete& operator<<(const std::string& texte);
    Requete& operator<<(int entier);
    Requete& operator<<(double reel);

    Requete& Executer();
    // The next row of the result; false at the end.
    bool Suivante() { return q_.next(); }
    QVariant Valeur(int colonne) const { return q_.value(colonne); }
    QVariant Valeur(const QString& colonne) const { return q_.value(colonne); }
    int Entier(int colonne) const { return q_.value(colonne).toInt(); }
    std::string Texte(int colonne) const { return q_.value(colonne).toString().toStdString(); }
    int LignesTouchees() const { return q_.numRowsAffected(); }
    bool Contient(const QString& colonne) const { return q_.record().indexOf(colonne) >= 0; }

private:
    QSqlQuery q_;
};

// A typed Null, for the drivers that want to know the column's type.
QVariant NulReel();

} // namespace tournesol
