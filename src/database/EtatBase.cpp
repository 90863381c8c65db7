#include "database/EtatBase.h"

#include "core/Dialogue.h"
#include "database/BaseEtudesSql.h"
#include "database/Requete.h"
#include "database/Schema.h"

#include <QFileInfo>
#include <QSqlDatabase>
#include <atomic>
#include <set>

namespace tournesol {

Contenu Reconnaitre(const QSqlDatabase& db) {
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
    if (marque == MARQUE_BASE)
        return version <= VERSION_SCHEMA ? Contenu::Systeme : Contenu::Etrangere;
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
