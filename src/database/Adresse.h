// Where the study base lives: the file bd1.mdb in a folder (SQLite), or a database on a
// PostgreSQL server, named by Rep_appli (or the command line's --base) as
// postgresql://user@host:port/base. The password is never part of it: the client library reads
// it from the user's ~/.pgpass, as PostgreSQL's own tools do.
#pragma once

#include <optional>
#include <string>

namespace tournesol {

struct AdresseServeur {
    std::string utilisateur; // empty: the login of the user
    std::string hote;        // empty: the local socket
    int port = 5432;
    std::string base;

    // postgresql://user@host:port/base, without any password.
    std::string Texte() const;
};

// True when the text names a server (it starts with postgresql:// or postgres://), whether or
// not the rest can be read.
bool EstAdresseServeur(const std::string& rep_appli);

// The server named by the text; empty when it names none or cannot be read (no base, a port that
// is not a number from 1 to 65535). A trailing separator, as the path file leaves on every
// folder, is ignored; a password written in the text is dropped.
std::optional<AdresseServeur> LireAdresseServeur(const std::string& rep_appli);

} // namespace tournesol
