// The tables of the study base, with one spelling of every table and column: the system's,
// accents included, always between double quotes (standard SQL; "Left" is a keyword).
#pragma once

#include <QVariant>
#include <functional>
#include <string>
#include <vector>

namespace tournesol {

struct Etude;

// The statements that make the tables of a new base; each leaves an existing table alone.
const std::vector<std::string>& CreationTables();

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
