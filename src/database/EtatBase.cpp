#include "database/EtatBase.h"

#include "core/Dialogue.h"
#include "database/Adresse.h"
#include "database/BaseEtudesSql.h"
#include "database/Requete.h"
#include "database/Schema.h"

#include <QFileInfo>
#include <QSqlDatabase>
#include <atomic>
#include <set>

namespace tournesol {

namespace {

bool SurServeur(const QSqlDatabase& db) {
    return db.driverName() == QLatin1String("QPSQL");
}

// What the history columns say of a base whose tables are all there.
Contenu Historique(const QSqlDatabase& db) {
    for (const ColonneHistorique& h : ColonnesHistorique())
        if (!ColonneExiste(db, h.table, h.colonne)) return Contenu::Ancienne;
    return Contenu::Systeme;
}

// On a server the base is the current schema of the database: no table at all is a new base,
// the eight tables of the system are a base of this system, anything else belongs to another. A
// base of this system without every column and index of this version is brought up to date by
// the next save.
Contenu ReconnaitreServeur(const QSqlDatabase& db) {
    std::set<std::string> tables, index;
    {
        // The catalogue itself: its information_schema views are slow to read.
        Requete r(db, "SELECT c.relname, c.relkind = 'i' FROM pg_catalog.pg_class c JOIN"
                      " pg_catalog.pg_namespace n ON n.oid = c.relnamespace WHERE n.nspname ="
                      " current_schema() AND c.relkind IN ('r', 'p', 'v', 'm', 'f', 'i')");
        r.Executer();
        while (r.Suivante())
            (r.Valeur(1).toBool() ? index : tables).insert(r.Texte(0));
    }
    if (tables.empty()) return Contenu::Vide;
    for (const std::string& t : TablesDuSysteme())
        if (!tables.count(t)) return Contenu::Etrangere;
    for (const std::string& i : IndexDuSysteme())
        if (!index.count(i)) return Contenu::Ancienne;
    return Historique(db);
}

} // namespace

bool ColonneExiste(const QSqlDatabase& db, const std::string& table, const std::string& colonne) {
    Requete r(db, SurServeur(db)
                      ? "SELECT COUNT(*) FROM pg_catalog.pg_attribute WHERE attrelid ="
                        " to_regclass(quote_ident(current_schema()) || '.' || quote_ident(?))"
                        " AND attname = ? AND attnum > 0 AND NOT attisdropped"
                      : "SELECT COUNT(*) FROM pragma_table_info(?) WHERE \"name\" = ?");
    r << table << colonne;
    r.Executer();
    return r.Suivante() && r.Entier(0) > 0;
}

Contenu Reconnaitre(const QSqlDatabase& db) {
    if (SurServeur(db)) return ReconnaitreServeur(db);
    int marque = 0, version = 0;
    {
        Requete r(db, "PRAGMA application_id");
        r.Executer();
        if (r.Suivante()) marque = r.Entier(0);
    }
    {
        Requete r(db, "PRAGMA user_version");
        r.Executer();
        if (r.Suivante()) version = r.Entier(0);
    }
    if (marque == MARQUE_BASE) {
        if (version > VERSION_SCHEMA) return Contenu::Etrangere;
        return version == VERSION_SCHEMA ? Contenu::Systeme : Contenu::Ancienne;
    }
    if (marque != 0) return Contenu::Etrangere;
    std::set<std::string> tables;
    bool objets = false;
    {
        Requete r(db, "SELECT \"type\", \"name\" FROM sqlite_master");
        r.Executer();
        while (r.Suivante()) {
            objets = true;
            if (r.Texte(0) == "table") tables.insert(r.Texte(1));
        }
    }
    if (!objets) return Contenu::Vide;
    for (const std::string& t : TablesDuSysteme())
        if (!tables.count(t)) return Contenu::Etrangere;
    return Contenu::Ancienne;
}

EtatBase ExaminerBase(const std::string& rep_appli) {
    using G = EtatBase::Genre;
    if (EstAdresseServeur(rep_appli)) {
        BaseEtudesSql base(rep_appli, 2000, false);
        return base.Examiner();
    }
    const QString dossier = QString::fromStdString(rep_appli.empty() ? "." : rep_appli);
    const QString fichier = QString::fromStdString(rep_appli + BaseEtudesSql::NOM_BASE);
    const QFileInfo infoDossier(dossier);
    if (!infoDossier.isDir())
        return {G::DossierAbsent, "the folder " + dossier.toStdString() + " does not exist"};
    const QFileInfo info(fichier);
    if (!info.exists()) return {G::Absente, "there is no base " + fichier.toStdString()};
    if (!info.isFile()) return {G::Etrangere, fichier.toStdString() + " is not a file"};
    if (info.size() == 0) return {G::Absente, "the base " + fichier.toStdString() + " is empty"};
    if (!info.isReadable())
        return {G::Illisible, "the base " + fichier.toStdString() + " cannot be read"};

    static std::atomic<int> numero{0};
    const QString nom = QStringLiteral("tournesol-examen-%1").arg(++numero);
    EtatBase etat;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nom);
        db.setDatabaseName(fichier);
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=2000"));
        if (!db.open()) {
            etat = {G::Illisible, "the base " + fichier.toStdString() + " cannot be opened (" +
                                      db.lastError().text().toStdString() + ")"};
        } else {
            try {
                const Contenu c = Reconnaitre(db);
                if (c == Contenu::Etrangere)
                    etat = {G::Etrangere, fichier.toStdString() +
                                              " is not a base of TOURNESOL (another program's "
                                              "SQLite file, or a later version's)"};
                else if (c == Contenu::Vide)
                    etat = {G::Absente, "the base " + fichier.toStdString() + " holds no table"};
            } catch (const ErreurBase& x) {
                if (x.Verrou())
                    etat = {G::Verrou,
                            "the base " + fichier.toStdString() + " is locked by another user"};
                else if (x.PasUneBase())
                    etat = {G::Etrangere, fichier.toStdString() + " is not a base of TOURNESOL (" +
                                              x.what() + ")"};
                else
                    etat = {G::Illisible, "the base " + fichier.toStdString() +
                                              " cannot be read (" + x.what() + ")"};
            }
            db.close();
        }
    }
    QSqlDatabase::removeDatabase(nom);
    if (!etat.Utilisable()) return etat;
    if (!info.isWritable() || !infoDossier.isWritable())
        return {G::LectureSeule, "the base " + fichier.toStdString() + " is read-only"};
    return etat;
}

bool SignalerBaseAuDemarrage(const std::string& rep_appli, Dialogue& d) {
    const EtatBase etat = ExaminerBase(rep_appli);
    if (etat.Utilisable()) return true;
    d.Message("TOURNESOL : Attention !",
              etat.raison +
                  "\r\nThe lists of the opening dialog stay empty and no study can be saved "
                  "until the base is put right.",
              2);
    return false;
}

} // namespace tournesol
