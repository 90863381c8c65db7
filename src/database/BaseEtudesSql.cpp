#include "database/BaseEtudesSql.h"

#include "core/Dialogue.h"
#include "core/Etude.h"
#include "database/Cles.h"
#include "database/Requete.h"
#include "database/Schema.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <algorithm>
#include <atomic>
#include <cmath>

namespace tournesol {

namespace {

const char* NomTable(Table table) {
    switch (table) {
    case Table::Poste:
        return "Poste";
    case Table::Depart:
        return "Départ";
    case Table::Piquage:
        return "Piquage";
    case Table::Protection:
        return "Protection";
    case Table::Tournesol:
        return "Tournesol";
    case Table::Reglage:
        return "Réglage";
    case Table::Ligne:
        return "Ligne";
    }
    return "";
}

bool EstSqlite(const QSqlDatabase& db) {
    return db.driverName() == QLatin1String("QSQLITE");
}

// Runs a statement without values (transaction control).
QSqlError Executer(const QSqlDatabase& db, const char* sql) {
    QSqlQuery q(db);
    if (q.exec(QString::fromUtf8(sql))) return {};
    return q.lastError();
}

// Runs a statement with one bound value (a setting of the server's session).
QSqlError Executer(const QSqlDatabase& db, const char* sql, const QVariant& valeur) {
    QSqlQuery q(db);
    if (!q.prepare(QString::fromUtf8(sql))) return q.lastError();
    q.addBindValue(valeur);
    if (q.exec()) return {};
    return q.lastError();
}

// The longest wait of a statement for a lock on the server, for the rest of the transaction (0
// would be no bound).
QSqlError AttenteVerrou(const QSqlDatabase& db, int attenteMs) {
    return Executer(db, "SELECT set_config('lock_timeout', ?, true)",
                    QVariant(QString::number(std::max(1, attenteMs))));
}

// A value of the setting store as TR holds it: the value, and the run-time's number of its type.
constexpr int TYPE_ENTIER16 = 2;
constexpr int TYPE_ENTIER32 = 3;
constexpr int TYPE_REEL32 = 4;
constexpr int TYPE_REEL = 5;

std::pair<QVariant, QVariant> Coder(const ValeurTR& v) {
    if (const auto* d = std::get_if<double>(&v)) return {QVariant(*d), QVariant(TYPE_REEL)};
    if (const auto* f = std::get_if<float>(&v))
        return {QVariant(static_cast<double>(*f)), QVariant(TYPE_REEL32)};
    if (const auto* i = std::get_if<std::int16_t>(&v))
        return {QVariant(static_cast<int>(*i)), QVariant(TYPE_ENTIER16)};
    if (const auto* l = std::get_if<std::int32_t>(&v))
        return {QVariant(static_cast<int>(*l)), QVariant(TYPE_ENTIER32)};
    return {NulReel(), QVariant(0)};
}

ValeurTR Decoder(const QVariant& valeur, const QVariant& type) {
    if (valeur.isNull()) return {};
    if (valeur.typeId() == QMetaType::QString && valeur.toString().trimmed().isEmpty()) return {};
    switch (type.toInt()) {
    case TYPE_ENTIER16:
        return static_cast<std::int16_t>(valeur.toInt());
    case TYPE_ENTIER32:
        return static_cast<std::int32_t>(valeur.toInt());
    case TYPE_REEL32:
        return static_cast<float>(valeur.toDouble());
    default:
        return valeur.toDouble();
    }
}

// What a failure of a statement tells of the base.
EtatBase::Genre GenreDe(const std::exception& x) {
    const auto* base = dynamic_cast<const ErreurBase*>(&x);
    if (base && base->Verrou()) return EtatBase::Genre::Verrou;
    if (base && base->LectureSeule()) return EtatBase::Genre::LectureSeule;
    return EtatBase::Genre::Autre;
}

// The line as the messages name it.
std::string NomLigne(const Etude& e) {
    std::string nom = " " + e.NomPoste + " - " + e.NomDepart;
    if (!e.NomPiquage.empty()) nom += " - " + e.NomPiquage;
    return nom;
}

} // namespace

// ---------------------------------------------------------------------------------------------
// The setting store

void MagasinTR::EcrireValeur(std::int32_t id_key, std::int32_t id_pos, const ValeurTR& valeur) {
    base_.EcrireValeurTR(id_key, id_pos, valeur);
}

ValeurTR MagasinTR::LireValeur(std::int32_t id_key, std::int32_t id_pos) {
    return base_.LireValeurTR(id_key, id_pos);
}

void BaseEtudesSql::EcrireValeurTR(std::int32_t id_key, std::int32_t id_pos,
                                   const ValeurTR& valeur) {
    const auto [v, type] = Coder(valeur);
    auto ecrire = [&, v = v, type = type] {
        // Over the value in place; a list that grew adds rows at its end.
        Requete r(Q(R"(INSERT INTO "TR" ("id_key", "id_pos", "Valeur", "TypeValeur"))"
                    R"( VALUES (?, ?, ?, ?) ON CONFLICT ("id_key", "id_pos") DO UPDATE)"
                    R"( SET "Valeur" = excluded."Valeur", "TypeValeur" = excluded."TypeValeur")"));
        r << id_key << id_pos << v << type;
        r.Executer();
        return true;
    };
    if (transaction_) {
        // Inside a command: the first refusal fails the whole command when the writer returns.
        if (erreurMagasin_) return;
        try {
            ecrire();
        } catch (const ErreurBase& x) {
            erreurMagasin_ = x.what();
        }
        return;
    }
    // On its own: a write transaction of its own, without a word; a failure only shows as a
    // missing value later.
    echec_ = {};
    fichierNeuf_ = false;
    if (Tenter() != Acces::Ouvert) return;
    try {
        ecrire();
        Confirmer();
        Liberer();
    } catch (const ErreurBase&) {
        Executer(Db(), "ROLLBACK");
        Fermer();
    }
}

ValeurTR BaseEtudesSql::LireValeurTR(std::int32_t id_key, std::int32_t id_pos) {
    auto lire = [&]() -> ValeurTR {
        Requete r(Q(R"(SELECT "Valeur", "TypeValeur" FROM "TR")"
                    R"( WHERE "id_key" = ? AND "id_pos" = ?)"));
        r << id_key << id_pos;
        r.Executer();
        if (!r.Suivante()) return {};
        return Decoder(r.Valeur(0), r.Valeur(1));
    };
    ValeurTR valeur;
    if (transaction_) {
        // Inside a command: a refusal fails the command once the relay's reader returns.
        if (erreurMagasin_) return valeur;
        try {
            valeur = lire();
        } catch (const ErreurBase& x) {
            erreurMagasin_ = x.what();
        }
        return valeur;
    }
    // On its own: a base that cannot be read gives a missing value.
    return Lecture<ValeurTR>(lire, ValeurTR{});
}

// ---------------------------------------------------------------------------------------------
// Connection

BaseEtudesSql::BaseEtudesSql(std::string rep_appli, int attenteVerrouMs, bool question)
    : rep_(std::move(rep_appli)), serveur_(LireAdresseServeur(rep_)),
      adresseIllisible_(EstAdresseServeur(rep_) && !serveur_),
      fichier_(serveur_            ? serveur_->Texte()
               : adresseIllisible_ ? rep_
                                   : rep_ + NOM_BASE),
      attente_(std::max(0, attenteVerrouMs)), question_(question), magasin_(*this) {
    static std::atomic<int> numero{0};
    nomConnexion_ = QStringLiteral("tournesol-base-%1").arg(++numero);
    QSqlDatabase::addDatabase(SurServeur() ? QStringLiteral("QPSQL") : QStringLiteral("QSQLITE"),
                              nomConnexion_);
}

BaseEtudesSql::~BaseEtudesSql() {
    {
        QSqlDatabase db = Db();
        if (db.isOpen() && transaction_) Executer(db, "ROLLBACK");
        Fermer();
    }
    QSqlDatabase::removeDatabase(nomConnexion_);
}

QSqlDatabase BaseEtudesSql::Db() const {
    return QSqlDatabase::database(nomConnexion_, false);
}

BaseEtudesSql::Acces BaseEtudesSql::ClasserEchec(const ErreurBase& x, const char* acces) {
    using G = EtatBase::Genre;
    if (x.Verrou()) {
        NoterEchec(G::Verrou, "the base " + fichier_ + " is locked by another user");
        return Acces::Partage;
    }
    if (x.PasUneBase()) {
        NoterEchec(G::Etrangere, fichier_ + " is not a base of TOURNESOL (" + x.what() + ")");
        return Acces::Etrangere;
    }
    if (x.LectureSeule()) {
        NoterEchec(G::LectureSeule, "the base " + fichier_ + " is read-only (" + x.what() + ")");
        return Acces::Refuse;
    }
    NoterEchec(G::Illisible,
               "the base " + fichier_ + " cannot be " + acces + " (" + x.what() + ")");
    return Acces::Refuse;
}

void BaseEtudesSql::NoterEchec(EtatBase::Genre genre, const std::string& cause) {
    echec_ = {genre, cause};
}

bool BaseEtudesSql::OuvrirFichier(bool lecture) {
    QSqlDatabase db = Db();
    if (db.isOpen() && serveur_) {
        // The session kept from the last command, unless the server dropped it meanwhile.
        if (!Executer(db, "SELECT 1").isValid()) return true;
        Fermer();
    }
    if (db.isOpen()) return true;
    if (serveur_) {
        db.setDatabaseName(QString::fromStdString(serveur_->base));
        if (!serveur_->hote.empty()) db.setHostName(QString::fromStdString(serveur_->hote));
        db.setPort(serveur_->port);
        if (!serveur_->utilisateur.empty())
            db.setUserName(QString::fromStdString(serveur_->utilisateur));
        // No password: the client library takes it from ~/.pgpass. A server that does not
        // answer is given up after the wait, never waited for without bound.
        db.setConnectOptions(QStringLiteral("connect_timeout=%1;application_name=tournesol")
                                 .arg(std::max(2, (attente_ + 999) / 1000)));
        if (!db.open()) return false;
        // No statement of the store runs for long: one that does (a server in trouble) fails
        // the command instead of holding the user.
        const QSqlError e =
            Executer(db, "SELECT set_config('statement_timeout', ?, false)", QVariant("60000"));
        if (e.isValid()) db.close();
        return !e.isValid();
    }
    db.setDatabaseName(QString::fromStdString(fichier_));
    if (EstSqlite(db)) {
        QString options = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(attente_);
        if (lecture || lectureSeule_) options += QStringLiteral(";QSQLITE_OPEN_READONLY");
        db.setConnectOptions(options);
    }
    return db.open();
}

void BaseEtudesSql::Fermer() {
    cache_.Vider();
    Db().close();
    transaction_ = false;
}

void BaseEtudesSql::Liberer() {
    cache_.Vider();
    transaction_ = false;
    // The file is let go at the end of every command; a server's session stays, idle, for the
    // next one (it holds no lock outside a transaction).
    if (!serveur_) Db().close();
}

QSqlError BaseEtudesSql::PrendreEnEcriture() {
    QSqlDatabase db = Db();
    // On a file the write lock is taken at once, so that a base held by another writer shows
    // here and not in the middle of the command; the wait is SQLite's busy wait.
    if (EstSqlite(db)) return Executer(db, "BEGIN IMMEDIATE");
    // On a server, the writers of the base take their turn under one lock of the whole
    // transaction, taken first (the tables may not exist yet): the look-up of the keys and the
    // largest id plus one are then always those of the last committed save. Readers never wait
    // for it. A wait longer than the user's is the shared base of the retry dialog.
    if (!db.transaction()) return db.lastError();
    QSqlError e = lectureSeule_ ? Executer(db, "SET TRANSACTION READ ONLY") : QSqlError();
    if (!e.isValid()) e = AttenteVerrou(db, attente_);
    if (!e.isValid()) e = Executer(db, "SELECT pg_advisory_xact_lock(?)", QVariant(MARQUE_BASE));
    if (e.isValid()) db.rollback();
    return e;
}

void BaseEtudesSql::MettreAJourSchema(Contenu contenu) {
    QSqlDatabase db = Db();
    if (contenu != Contenu::Systeme) {
        // A new base, or one of an earlier version: its tables, its indexes, the columns it
        // lacks and its mark, once, in the command's transaction.
        for (const std::string& creation : CreationTables()) {
            const QSqlError e = Executer(db, creation.c_str());
            if (e.isValid()) throw ErreurBase(e);
        }
        for (const ColonneHistorique& h : ColonnesHistorique()) {
            if (ColonneExiste(db, h.table, h.colonne)) continue;
            const std::string ajout = std::string("ALTER TABLE \"") + h.table + "\" ADD COLUMN \"" +
                                      h.colonne + "\" " + h.typeSql;
            const QSqlError e = Executer(db, ajout.c_str());
            if (e.isValid()) throw ErreurBase(e);
        }
        if (EstSqlite(db)) {
            for (const std::string& creation : CreationSqlite()) {
                const QSqlError e = Executer(db, creation.c_str());
                if (e.isValid()) throw ErreurBase(e);
            }
            for (const std::string& marque :
                 {"PRAGMA application_id = " + std::to_string(MARQUE_BASE),
                  "PRAGMA user_version = " + std::to_string(VERSION_SCHEMA)}) {
                const QSqlError e = Executer(db, marque.c_str());
                if (e.isValid()) throw ErreurBase(e);
            }
        }
    }
    if (!EstSqlite(db)) {
        // The tables themselves are held against any other writer of the server (another
        // program, an administrator's session) until the commit; reading them stays free.
        const QSqlError e = Executer(
            db, R"(LOCK TABLE "Poste", "Départ", "Piquage", "Protection", "Tournesol", "Réglage",)"
                R"( "TR", "Ligne" IN EXCLUSIVE MODE)");
        if (e.isValid()) throw ErreurBase(e);
    }
}

BaseEtudesSql::Acces BaseEtudesSql::Tenter() {
    using G = EtatBase::Genre;
    if (adresseIllisible_) {
        NoterEchec(G::DossierAbsent, "the address " + rep_ +
                                         " does not name a base on a server (expected "
                                         "postgresql://user@host:port/base)");
        return Acces::Refuse;
    }
    if (!serveur_) {
        const QFileInfo dossier(QString::fromStdString(rep_.empty() ? "." : rep_));
        if (!dossier.isDir()) {
            NoterEchec(G::DossierAbsent, "the folder " + rep_ + " does not exist");
            return Acces::Refuse;
        }
    }
    fichierNeuf_ = !serveur_ && !QFileInfo::exists(QString::fromStdString(fichier_));
    if (!OuvrirFichier(false)) {
        NoterEchec(G::Illisible, "the base " + fichier_ + " cannot be opened (" +
                                     Db().lastError().text().toStdString() + ")");
        Fermer();
        return Acces::Refuse;
    }
    QSqlDatabase db = Db();
    const QSqlError erreur = PrendreEnEcriture();
    if (erreur.isValid()) {
        Fermer();
        return ClasserEchec(ErreurBase(erreur), "written");
    }
    transaction_ = true;
    lecture_ = false;
    try {
        const Contenu contenu = Reconnaitre(db);
        if (contenu == Contenu::Etrangere) {
            if (EstSqlite(db))
                Executer(db, "ROLLBACK");
            else
                db.rollback();
            Fermer();
            NoterEchec(G::Etrangere, fichier_ + (serveur_ ? " is not a base of TOURNESOL (its "
                                                            "tables are another program's)"
                                                          : " is not a base of TOURNESOL (another "
                                                            "program's SQLite file, or a later "
                                                            "version's)"));
            return Acces::Etrangere;
        }
        MettreAJourSchema(contenu);
        contenu_ = Contenu::Systeme;
    } catch (const ErreurBase& x) {
        if (EstSqlite(db))
            Executer(db, "ROLLBACK");
        else
            db.rollback();
        Fermer();
        return ClasserEchec(x);
    }
    return Acces::Ouvert;
}

BaseEtudesSql::Acces BaseEtudesSql::TenterLecture() {
    using G = EtatBase::Genre;
    if (adresseIllisible_) return Tenter(); // refused, and why
    const QFileInfo info(QString::fromStdString(fichier_));
    // A missing file is not made by a read: it is a base that holds nothing yet.
    if (!serveur_ && (!info.exists() || (info.isFile() && info.size() == 0))) return Acces::Vide;
    if (!OuvrirFichier(true)) {
        NoterEchec(G::Illisible, "the base " + fichier_ + " cannot be opened (" +
                                     Db().lastError().text().toStdString() + ")");
        Fermer();
        return Acces::Refuse;
    }
    QSqlDatabase db = Db();
    QSqlError erreur;
    if (EstSqlite(db)) {
        erreur = Executer(db, "BEGIN");
    } else if (!db.transaction()) {
        erreur = db.lastError();
    } else {
        // One snapshot for the whole read, so that a study is read as one save left it; a
        // read-only transaction never takes a writer's lock.
        erreur = Executer(db, "SET TRANSACTION ISOLATION LEVEL REPEATABLE READ, READ ONLY");
        if (!erreur.isValid()) erreur = AttenteVerrou(db, attente_);
        if (erreur.isValid()) db.rollback();
    }
    if (erreur.isValid()) {
        Fermer();
        NoterEchec(G::Illisible, "the base " + fichier_ + " cannot be read (" +
                                     erreur.text().toStdString() + ")");
        return Acces::Refuse;
    }
    transaction_ = true;
    lecture_ = true;
    try {
        contenu_ = Reconnaitre(db);
        switch (contenu_) {
        case Contenu::Systeme:
        case Contenu::Ancienne:
            return Acces::Ouvert;
        case Contenu::Vide:
            FinLecture();
            return Acces::Vide;
        case Contenu::Etrangere:
            FinLecture();
            NoterEchec(G::Etrangere, fichier_ + " is not a base of TOURNESOL (another program's "
                                                "tables or file, or a later version's)");
            return Acces::Etrangere;
        }
    } catch (const ErreurBase& x) {
        FinLecture();
        return ClasserEchec(x);
    }
    return Acces::Refuse;
}

void BaseEtudesSql::FinLecture() {
    QSqlDatabase db = Db();
    cache_.Vider();
    bool fini = true;
    if (transaction_ && db.isOpen()) {
        if (EstSqlite(db))
            fini = !Executer(db, "ROLLBACK").isValid(); // nothing was written: the end of the read
        else
            fini = db.rollback();
    }
    if (fini)
        Liberer();
    else
        Fermer();
}

bool BaseEtudesSql::OuvrirConnexion(Etude& e, Dialogue& d) {
    if (transaction_) {
        e.ConnexionOuverte = true;
        return true;
    }
    int essais = question_ ? 3 : 0;
    for (;;) {
        switch (Tenter()) {
        case Acces::Ouvert:
            e.ConnexionOuverte = true;
            return true;
        case Acces::Partage: {
            if (--essais >= 0) continue; // again at once, without a word
            if (!question_) {
                std::string secondes = std::to_string(attente_ / 1000);
                if (attente_ % 1000 != 0) secondes += "." + std::to_string(attente_ % 1000 / 100);
                echec_.raison += " (waited " + secondes + " s)";
                FermerConnexion(e);
                return false;
            }
            e.sTitre = "TOURNESOL : access impossible";
            e.IconeMessage = 2;
            e.sMessage = "the master base (" + (serveur_ ? fichier_ : rep_ + "\\bd1.mdb") +
                         ") is shared.\r\n\r\n" + "Accès momentanément impossible.";
            e.BoutonsQuestion = {"&Try again", "&Leave", ""};
            const bool sablier = d.Sablier(false);
            d.LaisserPasserEvenements();
            PoserQuestion(e, d);
            d.Sablier(sablier);
            if (e.ReponseQuestion == 1) {
                FermerConnexion(e);
                return false;
            }
            essais = 3;
            continue;
        }
        case Acces::Vide: // not given by a write attempt
        case Acces::Refuse:
        case Acces::Etrangere: {
            e.sTitre = "TOURNESOL : accès refusé";
            e.IconeMessage = 2;
            // The base as it stands on this machine, its real path, in the system's sentence.
            if (echec_.genre == EtatBase::Genre::Etrangere)
                e.sMessage = "The master base  (" + Fichier() +
                             ") is not a base of TOURNESOL.\r\n\r\n" + "Access rejected.";
            else if (echec_.genre == EtatBase::Genre::LectureSeule)
                e.sMessage = "The master base  (" + Fichier() + ") is read-only.\r\n\r\n" +
                             "Access rejected.";
            else
                e.sMessage = "The master base  (" + Fichier() + ") does not exist.\r\n\r\n" +
                             "Access rejected.";
            const bool sablier = d.Sablier(false);
            AfficherMessage(e, d);
            d.Sablier(sablier);
            FermerConnexion(e);
            return false;
        }
        }
    }
}

void BaseEtudesSql::Confirmer() {
    QSqlDatabase db = Db();
    if (!transaction_) return;
    cache_.Vider(); // every statement finished before the commit
    const QSqlError erreur =
        EstSqlite(db) ? Executer(db, "COMMIT") : (db.commit() ? QSqlError() : db.lastError());
    if (erreur.isValid()) {
        if (EstSqlite(db))
            Executer(db, "ROLLBACK");
        else
            db.rollback();
        transaction_ = false;
        throw ErreurBase(erreur);
    }
    transaction_ = false;
}

bool BaseEtudesSql::FermerConnexion(Etude& e) {
    bool ok = true;
    try {
        Confirmer();
    } catch (const ErreurBase& x) {
        NoterEchec(GenreDe(x), x.what());
        ok = false;
    }
    if (ok)
        Liberer();
    else
        Fermer();
    e.ConnexionOuverte = false;
    return ok;
}

void BaseEtudesSql::Abandonner(Etude& e) {
    {
        QSqlDatabase db = Db();
        cache_.Vider();
        if (transaction_ && db.isOpen()) {
            if (EstSqlite(db))
                Executer(db, "ROLLBACK");
            else
                db.rollback();
        }
        Fermer();
    }
    // A file this command made and left empty goes with it: the folder is as it was.
    if (fichierNeuf_) {
        QFile fichier(QString::fromStdString(fichier_));
        if (fichier.exists() && fichier.size() == 0) fichier.remove();
    }
    e.ConnexionOuverte = false;
}

bool BaseEtudesSql::Commande(Etude& e, Dialogue& d, const std::function<void()>& travail,
                             const std::string& echec) {
    echec_ = {};
    fichierNeuf_ = false;
    if (!OuvrirConnexion(e, d)) {
        if (fichierNeuf_) {
            QFile fichier(QString::fromStdString(fichier_));
            if (fichier.exists() && fichier.size() == 0) fichier.remove();
        }
        return false;
    }
    erreurMagasin_.reset();
    try {
        travail();
        if (erreurMagasin_) throw ErreurBase(*erreurMagasin_);
        Confirmer();
        Liberer();
        e.ConnexionOuverte = false;
        return true;
    } catch (const std::exception& x) {
        // A refusal of the setting store comes first: on a server, the statements after it only
        // meet the transaction it ended.
        const std::string cause = erreurMagasin_ ? *erreurMagasin_ : std::string(x.what());
        erreurMagasin_.reset();
        const EtatBase::Genre genre = GenreDe(x);
        NoterEchec(genre, genre == EtatBase::Genre::LectureSeule
                              ? "the base " + fichier_ + " is read-only (" + cause + ")"
                              : cause);
        Abandonner(e);
        e.sTitre = "TOURNESOL : Attention !";
        e.IconeMessage = 2;
        e.sMessage = echec + "\r\n\r\n(" + echec_.raison + ")";
        const bool sablier = d.Sablier(false);
        AfficherMessage(e, d);
        d.Sablier(sablier);
        return false;
    }
}

template <class R> R BaseEtudesSql::Lecture(const std::function<R()>& lire, R defaut) {
    if (transaction_) {
        try {
            return lire();
        } catch (const ErreurBase&) {
            return defaut;
        }
    }
    if (TenterLecture() != Acces::Ouvert) return defaut;
    std::optional<R> r;
    try {
        r = lire();
    } catch (const ErreurBase&) {
        r.reset();
    }
    FinLecture();
    return r ? std::move(*r) : defaut;
}

std::int32_t BaseEtudesSql::ProchainId(Table table) {
    // The largest key is read from the key's index; an empty table gives Null.
    const std::string sql = std::string(R"(SELECT MAX("id") FROM ")") + NomTable(table) + "\"";
    Requete r(Q(sql));
    r.Executer();
    if (!r.Suivante() || r.Valeur(0).isNull()) return 1;
    return std::max(1, r.Entier(0)) + 1; // the running maximum starts at 1
}

bool BaseEtudesSql::Existe(Table table, std::int32_t id) {
    const std::string sql =
        std::string(R"(SELECT COUNT(*) FROM ")") + NomTable(table) + R"(" WHERE "id" = ?)";
    Requete r(Q(sql));
    r << id;
    r.Executer();
    return r.Suivante() && r.Entier(0) > 0;
}

// ---------------------------------------------------------------------------------------------
// Look-ups: a name is a bound value, so a quote in it is an ordinary character. Of two rows of
// the same name the first made counts.

std::int32_t BaseEtudesSql::CleDuPoste(const std::string& nom) {
    Requete r(Q(R"(SELECT "id" FROM "Poste" WHERE "nom" = ? ORDER BY "id")"));
    r << nom;
    r.Executer();
    return r.Suivante() ? r.Entier(0) : 0;
}

std::int32_t BaseEtudesSql::CleDuDepart(const std::string& nom, std::int32_t id_poste) {
    Requete r(Q(R"(SELECT "id" FROM "Départ" WHERE "nom" = ? AND "id_poste" = ? ORDER BY "id")"));
    r << nom << id_poste;
    r.Executer();
    return r.Suivante() ? r.Entier(0) : 0;
}

std::int32_t BaseEtudesSql::CleDuPiquage(const std::string& nom, std::int32_t id_depart,
                                         std::int32_t id_poste) {
    if (nom.empty()) return 0;
    Requete r(Q(R"(SELECT "id" FROM "Piquage" WHERE "nom" = ? AND "id_départ" = ?)"
                R"( AND "id_poste" = ? ORDER BY "id")"));
    r << nom << id_depart << id_poste;
    r.Executer();
    return r.Suivante() ? r.Entier(0) : 0;
}

std::int32_t BaseEtudesSql::CleDeProtection(const std::string& nom) {
    Requete r(Q(R"(SELECT "id" FROM "Protection" WHERE "nom" = ? ORDER BY "id")"));
    r << nom;
    r.Executer();
    return r.Suivante() ? r.Entier(0) : 0;
}

void BaseEtudesSql::ChercherCles(Etude& e, bool protection) {
    e.id_poste = CleDuPoste(e.NomPoste);
    e.NouvelleLigne = e.id_poste == 0;
    e.id_depart = CleDuDepart(e.NomDepart, e.id_poste);
    if (e.id_depart == 0) e.NouvelleLigne = true;
    e.id_piquage = CleDuPiquage(e.NomPiquage, e.id_depart, e.id_poste);
    if (e.id_piquage == 0 && !e.NomPiquage.empty()) e.NouvelleLigne = true;
    if (protection) {
        e.id_protection = CleDeProtection(e.NomProtection);
        e.ProtectionInconnue = e.id_protection == 0;
    }
}

void BaseEtudesSql::ChercherIdPoste(Etude& e) {
    e.id_poste = Lecture<std::int32_t>([&] { return CleDuPoste(e.NomPoste); }, 0);
    e.NouvelleLigne = e.id_poste == 0;
}

void BaseEtudesSql::ChercherIdDepart(Etude& e) {
    e.id_depart = Lecture<std::int32_t>([&] { return CleDuDepart(e.NomDepart, e.id_poste); }, 0);
    if (e.id_depart == 0) e.NouvelleLigne = true;
}

void BaseEtudesSql::ChercherIdPiquage(Etude& e) {
    e.id_piquage = Lecture<std::int32_t>(
        [&] { return CleDuPiquage(e.NomPiquage, e.id_depart, e.id_poste); }, 0);
    if (e.id_piquage == 0 && !e.NomPiquage.empty()) e.NouvelleLigne = true;
}

void BaseEtudesSql::ChercherIdProtection(Etude& e) {
    e.id_protection = Lecture<std::int32_t>([&] { return CleDeProtection(e.NomProtection); }, 0);
    e.ProtectionInconnue = e.id_protection == 0;
}

// ---------------------------------------------------------------------------------------------
// The lists of the opening dialog

bool BaseEtudesSql::SuivreJournalPostes(PostesLus& lus) {
    if (!lus.journal) return false;
    // Beyond a few hundred names changed, reading the list whole is as quick.
    constexpr int MAX_CHANGES = 500;
    Requete j(Q(std::string(R"(SELECT "n", "nom" FROM ")") + TABLE_JOURNAL_POSTES +
                R"(" WHERE "n" > ? ORDER BY "n" LIMIT )" + std::to_string(MAX_CHANGES + 1)));
    j << QVariant(static_cast<qlonglong>(*lus.journal));
    j.Executer();
    std::vector<std::string> touches;
    std::int64_t fin = *lus.journal;
    int lignes = 0;
    while (j.Suivante()) {
        ++lignes;
        fin = j.Valeur(0).toLongLong();
        if (!j.Valeur(1).isNull()) touches.push_back(j.Texte(1));
    }
    if (lignes > MAX_CHANGES) return false;
    // The journal says which names changed; the table says whether each is still there (a base
    // of an earlier version may hold a name twice).
    for (const std::string& nom : touches) {
        Requete r(Q(R"(SELECT 1 FROM "Poste" WHERE "nom" = ? LIMIT 1)"));
        r << nom;
        r.Executer();
        const bool present = r.Suivante();
        auto& noms = lus.noms;
        const auto ou = std::lower_bound(noms.begin(), noms.end(), nom);
        const bool garde = ou != noms.end() && *ou == nom;
        if (present && !garde)
            noms.insert(ou, nom);
        else if (!present && garde)
            noms.erase(ou);
    }
    lus.journal = fin;
    return true;
}

std::vector<std::string> BaseEtudesSql::Postes() {
    return Lecture<std::vector<std::string>>(
        [&] {
            // A region holds thousands of substations: the list read last is given again while
            // the file's count of their changes stands where it stood, and brought up to date
            // by the file's journal of the names changed since when it moved.
            const bool compte = lecture_ && EstSqlite(Db()) && contenu_ == Contenu::Systeme;
            std::optional<std::int64_t> changements;
            if (compte) {
                Requete c(Q(std::string(R"(SELECT "compte" FROM ")") + TABLE_CHANGEMENTS +
                            R"(" WHERE "nom" = 'Poste')"));
                c.Executer();
                if (c.Suivante() && !c.Valeur(0).isNull()) changements = c.Valeur(0).toLongLong();
                if (changements && postes_) {
                    if (postes_->compte == *changements) return postes_->noms;
                    if (SuivreJournalPostes(*postes_)) {
                        postes_->compte = *changements;
                        return postes_->noms;
                    }
                }
            }
            // In the order of the names; each name once (a base of an earlier version may hold
            // one twice). A file gives the names' UTF-8 as it holds them.
            std::vector<std::string> noms;
            if (postes_) noms.reserve(postes_->noms.size() + 16);
            Requete r(Q(EstSqlite(Db()) ? R"(SELECT CAST("nom" AS BLOB) FROM "Poste")"
                                          R"( WHERE "nom" IS NOT NULL ORDER BY "nom")"
                                        : R"(SELECT "nom" FROM "Poste" WHERE "nom" IS NOT NULL)"
                                          R"( ORDER BY "nom")"));
            r.Executer();
            while (r.Suivante()) {
                std::string nom = r.Texte(0);
                if (noms.empty() || noms.back() != nom) noms.push_back(std::move(nom));
            }
            if (!changements) {
                postes_.reset();
                return noms;
            }
            // Where the journal stands, if the file keeps one.
            std::optional<std::int64_t> journal;
            Requete t(Q(R"(SELECT COUNT(*) FROM "sqlite_master" WHERE "type" = 'table')"
                        R"( AND "name" = ?)"));
            t << std::string(TABLE_JOURNAL_POSTES);
            t.Executer();
            if (t.Suivante() && t.Valeur(0).toInt() > 0) {
                Requete m(Q(std::string(R"(SELECT COALESCE(MAX("n"), 0) FROM ")") +
                            TABLE_JOURNAL_POSTES + "\""));
                m.Executer();
                journal = m.Suivante() ? m.Valeur(0).toLongLong() : 0;
            }
            postes_.emplace(PostesLus{*changements, journal, noms});
            return noms;
        },
        {});
}

std::vector<std::string> BaseEtudesSql::Departs(const std::string& poste) {
    return Lecture<std::vector<std::string>>(
        [&] {
            std::vector<std::string> noms;
            const std::int32_t id_poste = CleDuPoste(poste);
            if (id_poste == 0) return noms;
            Requete r(Q(R"(SELECT DISTINCT "nom" FROM "Départ" WHERE "id_poste" = ?)"
                        R"( AND "nom" IS NOT NULL ORDER BY "nom")"));
            r << id_poste;
            r.Executer();
            while (r.Suivante())
                noms.push_back(r.Texte(0));
            return noms;
        },
        {});
}

std::vector<std::string> BaseEtudesSql::Piquages(const std::string& poste,
                                                 const std::string& depart) {
    return Lecture<std::vector<std::string>>(
        [&] {
            std::vector<std::string> noms;
            const std::int32_t id_poste = CleDuPoste(poste);
            const std::int32_t id_depart = id_poste ? CleDuDepart(depart, id_poste) : 0;
            if (id_depart == 0) return noms;
            Requete r(Q(R"(SELECT DISTINCT "nom" FROM "Piquage" WHERE "id_poste" = ?)"
                        R"( AND "id_départ" = ? AND "nom" IS NOT NULL ORDER BY "nom")"));
            r << id_poste << id_depart;
            r.Executer();
            while (r.Suivante())
                noms.push_back(r.Texte(0));
            return noms;
        },
        {});
}

std::vector<std::string> BaseEtudesSql::Protections(const std::string& poste,
                                                    const std::string& depart,
                                                    const std::string& piquage) {
    std::vector<std::string> noms = Lecture<std::vector<std::string>>(
        [&] {
            std::vector<std::string> liste;
            const std::int32_t id_poste = CleDuPoste(poste);
            const std::int32_t id_depart = id_poste ? CleDuDepart(depart, id_poste) : 0;
            const std::int32_t id_piquage = CleDuPiquage(piquage, id_depart, id_poste);
            if (id_depart == 0 || (!piquage.empty() && id_piquage == 0)) return liste;
            // In the order of the registry.
            Requete r(Q(R"(SELECT DISTINCT "Protection"."id", "Protection"."nom")"
                        R"( FROM "Protection" INNER JOIN "Tournesol")"
                        R"( ON "Tournesol"."id_protection" = "Protection"."id")"
                        R"( WHERE "Tournesol"."id_poste" = ? AND "Tournesol"."id_départ" = ?)"
                        R"( AND "Tournesol"."id_piquage" = ? ORDER BY "Protection"."id")"));
            r << id_poste << id_depart << id_piquage;
            r.Executer();
            while (r.Suivante())
                liste.push_back(r.Texte(1));
            return liste;
        },
        {});
    noms.emplace_back(NOUVELLE_PROTECTION);
    return noms;
}

std::vector<int> BaseEtudesSql::Numeros(const std::string& poste, const std::string& depart,
                                        const std::string& piquage, const std::string& protection) {
    return Lecture<std::vector<int>>(
        [&] {
            std::vector<int> numeros;
            const std::int32_t id_poste = CleDuPoste(poste);
            const std::int32_t id_depart = id_poste ? CleDuDepart(depart, id_poste) : 0;
            const std::int32_t id_piquage = CleDuPiquage(piquage, id_depart, id_poste);
            const std::int32_t id_protection = CleDeProtection(protection);
            if (id_depart == 0 || id_protection == 0) return numeros;
            Requete r(Q(R"(SELECT DISTINCT "id_numéro" FROM "Tournesol" WHERE "id_poste" = ?)"
                        R"( AND "id_départ" = ? AND "id_piquage" = ? AND "id_protection" = ?)"
                        R"( ORDER BY "id_numéro")"));
            r << id_poste << id_depart << id_piquage << id_protection;
            r.Executer();
            while (r.Suivante())
                numeros.push_back(r.Entier(0));
            return numeros;
        },
        {});
}

// ---------------------------------------------------------------------------------------------
// Opening a study

namespace {
// The columns read back from Ligne, in the table's order, and the statement that reads them.
const std::vector<const ColonneLigne*>& ColonnesRelues() {
    static const std::vector<const ColonneLigne*> colonnes = [] {
        std::vector<const ColonneLigne*> c;
        for (const ColonneLigne& colonne : ColonnesLigne())
            if (colonne.Remettre) c.push_back(&colonne);
        return c;
    }();
    return colonnes;
}

const std::string& LectureLigne() {
    static const std::string sql = [] {
        std::string s = "SELECT ";
        for (const ColonneLigne* c : ColonnesRelues())
            s += (s.size() > 7 ? ", \"" : "\"") + c->Nom + "\"";
        return s + R"( FROM "Ligne" WHERE "id" = ?)";
    }();
    return sql;
}
} // namespace

void BaseEtudesSql::LireLigne(Etude& e) {
    Requete r(Q(LectureLigne()));
    r << e.id_ligne;
    r.Executer();
    if (!r.Suivante()) return;
    const auto& colonnes = ColonnesRelues();
    for (std::size_t i = 0; i < colonnes.size(); ++i)
        colonnes[i]->Remettre(e, r.Valeur(static_cast<int>(i)));
    // The table keeps no zero sequence angle: it is the angle of the section's Ro + j Xo.
    for (std::size_t i = 0; i < 3; ++i)
        if (e.Ligne_Ro[i] != 0.0 || e.Ligne_Xo[i] != 0.0)
            e.PHIo[i] = std::atan2(e.Ligne_Xo[i], e.Ligne_Ro[i]);
}

void BaseEtudesSql::LireReglage(Etude& e) {
    Requete r(Q(R"(SELECT "TypeReportCharge", "Left", "Width", "Top", "Height")"
                R"( FROM "Réglage" WHERE "id" = ?)"));
    r << e.id_reglage;
    r.Executer();
    if (r.Suivante()) {
        auto reel = [&](int i, Reel32& cible) {
            if (!r.Valeur(i).isNull()) cible = static_cast<Reel32>(r.Valeur(i).toDouble());
        };
        if (!r.Valeur(0).isNull()) e.TypeReportCharge = static_cast<Entier16>(r.Entier(0));
        reel(1, e.ScaleLeft);
        reel(2, e.ScaleWidth);
        reel(3, e.ScaleTop);
        reel(4, e.ScaleHeight);
    }
    LireReglagesRelais(e, magasin_);
}

bool BaseEtudesSql::LireEtude(Etude& e) {
    ChercherCles(e, false);
    // The relay keeps the number of the relay choice; the look-up only tells whether the base
    // knows it.
    e.ProtectionInconnue = CleDeProtection(e.NomProtection) == 0;
    e.id_ligne = 0;
    e.id_reglage = 0;

    // The line: the Ligne row of its first link row that has one. A line with nothing saved yet
    // opens as a new line in memory; the save makes its rows.
    e.id_ligne = e.NouvelleLigne ? 0 : LigneDesLiens(e);
    if (e.id_ligne >= 1)
        LireLigne(e);
    else
        e.NouvelleLigne = true;
    bool liens = false;
    if (e.id_depart >= 1) {
        Requete r(Q(R"(SELECT 1 FROM "Tournesol" WHERE "id_poste" = ? AND "id_départ" = ?)"
                    R"( AND "id_piquage" = ? LIMIT 1)"));
        r << e.id_poste << e.id_depart << e.id_piquage;
        r.Executer();
        liens = r.Suivante();
    }

    // The relay: its link row by the five keys, its setting row and its settings.
    if (!liens || e.id_protection < 1 || e.id_numero < 1) return false;
    Requete r(Q(R"(SELECT "id_réglage" FROM "Tournesol" WHERE "id_poste" = ?)"
                R"( AND "id_départ" = ? AND "id_piquage" = ? AND "id_protection" = ?)"
                R"( AND "id_numéro" = ? ORDER BY "id" LIMIT 1)"));
    r << e.id_poste << e.id_depart << e.id_piquage << e.id_protection << e.id_numero;
    r.Executer();
    if (!r.Suivante()) return true; // on a known line, a relay the base does not hold
    e.id_reglage = r.Entier(0);
    if (e.id_reglage >= 1) LireReglage(e);
    return false;
}

// The Ligne row of the first link row of the line that has one; 0 when none.
std::int32_t BaseEtudesSql::LigneDesLiens(const Etude& e) {
    Requete r(Q(R"(SELECT "Tournesol"."id_ligne" FROM "Tournesol" INNER JOIN "Ligne")"
                R"( ON "Ligne"."id" = "Tournesol"."id_ligne" WHERE "Tournesol"."id_poste" = ?)"
                R"( AND "Tournesol"."id_départ" = ? AND "Tournesol"."id_piquage" = ?)"
                R"( AND "Tournesol"."id_ligne" >= 1 ORDER BY "Tournesol"."id" LIMIT 1)"));
    r << e.id_poste << e.id_depart << e.id_piquage;
    r.Executer();
    return r.Suivante() ? r.Entier(0) : 0;
}

void BaseEtudesSql::Ouvrir(Etude& e, Dialogue& d) {
    const bool sablier = d.Sablier(true);
    const ClesEtude avant = ClesEtude::De(e);
    echec_ = {};
    bool relaisAbsent = false;
    bool lue = false;
    const Acces acces = TenterLecture();
    if (acces == Acces::Ouvert) {
        try {
            relaisAbsent = LireEtude(e);
            if (erreurMagasin_) throw ErreurBase(*erreurMagasin_);
            lue = true;
        } catch (const std::exception& x) {
            NoterEchec(GenreDe(x), x.what());
        }
        erreurMagasin_.reset();
        FinLecture();
    }
    e.ConnexionOuverte = false;
    if (!lue) {
        // A new line in memory: no key of the study before may point the save at its rows.
        avant.Remettre(e);
        e.NouvelleLigne = true;
        e.ProtectionInconnue = true;
        e.id_ligne = e.id_reglage = e.id_poste = e.id_depart = e.id_piquage = 0;
        relaisAbsent = false;
        if (acces != Acces::Vide) {
            // The base is there but cannot be read: the user is told, once it is closed.
            e.sTitre = "TOURNESOL : Attention !";
            e.IconeMessage = 2;
            e.sMessage = "The study could not be read from the master base; it starts as a new "
                         "line.\r\n\r\n(" +
                         echec_.raison + ")";
            const bool pointeur = d.Sablier(false);
            AfficherMessage(e, d);
            d.Sablier(pointeur);
        }
    }
    d.Sablier(sablier);
    if (relaisAbsent) {
        e.sTitre = "TOURNESOL : attention !";
        e.IconeMessage = 3;
        e.sMessage = "the relay  " + e.NomProtection + "  " + "numéro " +
                     std::to_string(e.id_numero) + "of the link" + NomLigne(e) +
                     " does not exist.\r\n" + "Create ?";
        e.BoutonsQuestion = {"&Create", "", ""};
        PoserQuestion(e, d);
    }
    e.EtudeModifiee = false;
}

// ---------------------------------------------------------------------------------------------
// Who saved

EtatBase BaseEtudesSql::Examiner() {
    using G = EtatBase::Genre;
    echec_ = {};
    switch (TenterLecture()) {
    case Acces::Ouvert:
        FinLecture();
        return {};
    case Acces::Vide:
        return {G::Absente, "the base " + fichier_ + " holds no table"};
    case Acces::Partage:
    case Acces::Refuse:
    case Acces::Etrangere:
        break;
    }
    return echec_;
}

SignatureSauvegarde BaseEtudesSql::DerniereSauvegarde(const std::string& poste,
                                                      const std::string& depart,
                                                      const std::string& piquage,
                                                      const std::string& protection, int numero) {
    return Lecture<SignatureSauvegarde>(
        [&] {
            SignatureSauvegarde s;
            const std::int32_t id_poste = CleDuPoste(poste);
            const std::int32_t id_depart = id_poste ? CleDuDepart(depart, id_poste) : 0;
            const std::int32_t id_piquage = CleDuPiquage(piquage, id_depart, id_poste);
            const std::int32_t id_protection = CleDeProtection(protection);
            if (id_depart == 0 || id_protection == 0 || (!piquage.empty() && id_piquage == 0))
                return s;
            // A base of an earlier version, read as it is, does not say.
            if (!ColonneExiste(Db(), "Tournesol", COLONNE_AUTEUR)) return s;
            Requete r(Q(R"(SELECT "sauvé_par", "sauvé_le" FROM "Tournesol" WHERE "id_poste" = ?)"
                        R"( AND "id_départ" = ? AND "id_piquage" = ? AND "id_protection" = ?)"
                        R"( AND "id_numéro" = ? ORDER BY "id" LIMIT 1)"));
            r << id_poste << id_depart << id_piquage << id_protection << numero;
            r.Executer();
            if (r.Suivante()) s = {r.Texte(0), r.Texte(1)};
            return s;
        },
        {});
}

} // namespace tournesol
