#include "database/BaseEtudesSql.h"

#include "core/Dialogue.h"
#include "core/Etude.h"
#include "database/Cles.h"
#include "database/Requete.h"
#include "database/Schema.h"

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
        Requete maj(Db(), R"(UPDATE "TR" SET "Valeur" = ?, "TypeValeur" = ?)"
                          R"( WHERE "id_key" = ? AND "id_pos" = ?)");
        maj << v << type << id_key << id_pos;
        maj.Executer();
        if (maj.LignesTouchees() < 1) {
            Requete ajout(Db(), R"(INSERT INTO "TR" ("id_key", "id_pos", "Valeur", "TypeValeur"))"
                                R"( VALUES (?, ?, ?, ?))");
            ajout << id_key << id_pos << v << type;
            ajout.Executer();
        }
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
    Lecture<bool>(ecrire, false); // on its own: a failure only shows as a missing value later
}

ValeurTR BaseEtudesSql::LireValeurTR(std::int32_t id_key, std::int32_t id_pos) {
    auto lire = [&]() -> ValeurTR {
        Requete r(Db(), R"(SELECT "Valeur", "TypeValeur" FROM "TR")"
                        R"( WHERE "id_key" = ? AND "id_pos" = ?)");
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
    if (OuvrirFichier()) {
        try {
            valeur = lire();
        } catch (const ErreurBase&) {
            valeur = std::monostate{};
        }
    }
    Db().close();
    return valeur;
}

// ---------------------------------------------------------------------------------------------
// Connection

BaseEtudesSql::BaseEtudesSql(std::string rep_appli, int attenteVerrouMs)
    : rep_(std::move(rep_appli)), fichier_(rep_ + NOM_BASE), attente_(attenteVerrouMs),
      magasin_(*this) {
    static std::atomic<int> numero{0};
    nomConnexion_ = QStringLiteral("tournesol-base-%1").arg(++numero);
    QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nomConnexion_);
}

BaseEtudesSql::~BaseEtudesSql() {
    {
        QSqlDatabase db = Db();
        if (db.isOpen()) {
            if (transaction_) Executer(db, "ROLLBACK");
            db.close();
        }
    }
    QSqlDatabase::removeDatabase(nomConnexion_);
}

QSqlDatabase BaseEtudesSql::Db() const {
    return QSqlDatabase::database(nomConnexion_, false);
}

bool BaseEtudesSql::OuvrirFichier() {
    QSqlDatabase db = Db();
    if (db.isOpen()) return true;
    db.setDatabaseName(QString::fromStdString(fichier_));
    if (EstSqlite(db))
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(attente_));
    return db.open();
}

BaseEtudesSql::Acces BaseEtudesSql::Tenter() {
    if (!OuvrirFichier()) {
        Db().close();
        return Acces::Refuse;
    }
    QSqlDatabase db = Db();
    // The write lock is taken at once, so that a base held by another writer shows here and not
    // in the middle of the command.
    QSqlError erreur = EstSqlite(db) ? Executer(db, "BEGIN IMMEDIATE")
                                     : (db.transaction() ? QSqlError() : db.lastError());
    bool debute = !erreur.isValid();
    if (debute) {
        for (const std::string& creation : CreationTables()) {
            erreur = Executer(db, creation.c_str());
            if (erreur.isValid()) break;
        }
    }
    if (!erreur.isValid()) {
        transaction_ = true;
        return Acces::Ouvert;
    }
    if (debute) Executer(db, "ROLLBACK");
    db.close();
    return EstVerrou(erreur) ? Acces::Partage : Acces::Refuse;
}

bool BaseEtudesSql::OuvrirConnexion(Etude& e, Dialogue& d) {
    if (transaction_) {
        e.ConnexionOuverte = true;
        return true;
    }
    int essais = 3;
    for (;;) {
        switch (Tenter()) {
        case Acces::Ouvert:
            e.ConnexionOuverte = true;
            return true;
        case Acces::Partage: {
            if (--essais >= 0) continue; // again at once, without a word
            e.sTitre = "TOURNESOL : access impossible";
            e.IconeMessage = 2;
            e.sMessage = "the master base (" + rep_ + "\\bd1.mdb) is shared.\r\n\r\n" +
                         "Accès momentanément impossible.";
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
        case Acces::Refuse: {
            e.sTitre = "TOURNESOL : accès refusé";
            e.IconeMessage = 2;
            e.sMessage = "The master base  (" + rep_ + "\\bd1.MDB) does not exist.\r\n\r\n" +
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
    } catch (const ErreurBase&) {
        ok = false;
    }
    Db().close();
    e.ConnexionOuverte = false;
    return ok;
}

void BaseEtudesSql::Abandonner(Etude& e) {
    {
        QSqlDatabase db = Db();
        if (transaction_) {
            if (EstSqlite(db))
                Executer(db, "ROLLBACK");
            else
                db.rollback();
        }
        transaction_ = false;
        db.close();
    }
    e.ConnexionOuverte = false;
}

bool BaseEtudesSql::Commande(Etude& e, Dialogue& d, const std::function<void()>& travail,
                             const std::string& echec) {
    if (!OuvrirConnexion(e, d)) return false;
    erreurMagasin_.reset();
    try {
        travail();
        if (erreurMagasin_) throw ErreurBase(*erreurMagasin_);
        Confirmer();
        Db().close();
        e.ConnexionOuverte = false;
        return true;
    } catch (const std::exception& x) {
        erreurMagasin_.reset();
        Abandonner(e);
        e.sTitre = "TOURNESOL : Attention !";
        e.IconeMessage = 2;
        e.sMessage = echec + "\r\n\r\n(" + x.what() + ")";
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
    if (!OuvrirFichier()) {
        Db().close();
        return defaut;
    }
    std::optional<R> r;
    try {
        r = lire();
    } catch (const ErreurBase&) {
        r.reset();
    }
    Db().close();
    return r ? std::move(*r) : defaut;
}

std::int32_t BaseEtudesSql::ProchainId(Table table) {
    const std::string sql =
        std::string(R"(SELECT COUNT(*), MAX("id") FROM ")") + NomTable(table) + "\"";
    Requete r(Db(), sql.c_str());
    r.Executer();
    if (!r.Suivante() || r.Entier(0) == 0) return 1;
    return std::max(1, r.Entier(1)) + 1; // the running maximum starts at 1
}

bool BaseEtudesSql::Existe(Table table, std::int32_t id) {
    const std::string sql =
        std::string(R"(SELECT COUNT(*) FROM ")") + NomTable(table) + R"(" WHERE "id" = ?)";
    Requete r(Db(), sql.c_str());
    r << id;
    r.Executer();
    return r.Suivante() && r.Entier(0) > 0;
}

// ---------------------------------------------------------------------------------------------
// Look-ups: a name is a bound value, so a quote in it is an ordinary character. Of two rows of
// the same name the first made counts.

std::int32_t BaseEtudesSql::CleDuPoste(const std::string& nom) {
    Requete r(Db(), R"(SELECT "id" FROM "Poste" WHERE "nom" = ? ORDER BY "id")");
    r << nom;
    r.Executer();
    return r.Suivante() ? r.Entier(0) : 0;
}

std::int32_t BaseEtudesSql::CleDuDepart(const std::string& nom, std::int32_t id_poste) {
    Requete r(Db(),
              R"(SELECT "id" FROM "Départ" WHERE "nom" = ? AND "id_poste" = ? ORDER BY "id")");
    r << nom << id_poste;
    r.Executer();
    return r.Suivante() ? r.Entier(0) : 0;
}

std::int32_t BaseEtudesSql::CleDuPiquage(const std::string& nom, std::int32_t id_depart,
                                         std::int32_t id_poste) {
    if (nom.empty()) return 0;
    Requete r(Db(), R"(SELECT "id" FROM "Piquage" WHERE "nom" = ? AND "id_départ" = ?)"
                    R"( AND "id_poste" = ? ORDER BY "id")");
    r << nom << id_depart << id_poste;
    r.Executer();
    return r.Suivante() ? r.Entier(0) : 0;
}

std::int32_t BaseEtudesSql::CleDeProtection(const std::string& nom) {
    Requete r(Db(), R"(SELECT "id" FROM "Protection" WHERE "nom" = ? ORDER BY "id")");
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

std::vector<std::string> BaseEtudesSql::Postes() {
    return Lecture<std::vector<std::string>>(
        [&] {
            std::vector<std::string> noms;
            Requete r(Db(), R"(SELECT DISTINCT "nom" FROM "Poste" WHERE "nom" IS NOT NULL)"
                            R"( ORDER BY "nom")");
            r.Executer();
            while (r.Suivante())
                noms.push_back(r.Texte(0));
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
            Requete r(Db(), R"(SELECT DISTINCT "nom" FROM "Départ" WHERE "id_poste" = ?)"
                            R"( AND "nom" IS NOT NULL ORDER BY "nom")");
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
            Requete r(Db(), R"(SELECT DISTINCT "nom" FROM "Piquage" WHERE "id_poste" = ?)"
                            R"( AND "id_départ" = ? AND "nom" IS NOT NULL ORDER BY "nom")");
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
            Requete r(Db(), R"(SELECT DISTINCT "Protection"."id", "Protection"."nom")"
                            R"( FROM "Protection" INNER JOIN "Tournesol")"
                            R"( ON "Tournesol"."id_protection" = "Protection"."id")"
                            R"( WHERE "Tournesol"."id_poste" = ? AND "Tournesol"."id_départ" = ?)"
                            R"( AND "Tournesol"."id_piquage" = ? ORDER BY "Protection"."id")");
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
            Requete r(Db(), R"(SELECT DISTINCT "id_numéro" FROM "Tournesol" WHERE "id_poste" = ?)"
                            R"( AND "id_départ" = ? AND "id_piquage" = ? AND "id_protection" = ?)"
                            R"( ORDER BY "id_numéro")");
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

void BaseEtudesSql::LireLigne(Etude& e) {
    Requete r(Db(), R"(SELECT * FROM "Ligne" WHERE "id" = ?)");
    r << e.id_ligne;
    r.Executer();
    if (!r.Suivante()) return;
    for (const ColonneLigne& c : ColonnesLigne()) {
        const QString nom = QString::fromStdString(c.Nom);
        if (c.Remettre && r.Contient(nom)) c.Remettre(e, r.Valeur(nom));
    }
    // The table keeps no zero sequence angle: it is the angle of the section's Ro + j Xo.
    for (std::size_t i = 0; i < 3; ++i)
        if (e.Ligne_Ro[i] != 0.0 || e.Ligne_Xo[i] != 0.0)
            e.PHIo[i] = std::atan2(e.Ligne_Xo[i], e.Ligne_Ro[i]);
}

void BaseEtudesSql::LireReglage(Etude& e) {
    Requete r(Db(), R"(SELECT "TypeReportCharge", "Left", "Width", "Top", "Height")"
                    R"( FROM "Réglage" WHERE "id" = ?)");
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

    // The line: the Ligne row of its first link row that has one.
    bool liens = false;
    bool ligne = false;
    if (!e.NouvelleLigne) {
        Requete r(Db(), R"(SELECT "id_ligne" FROM "Tournesol" WHERE "id_poste" = ?)"
                        R"( AND "id_départ" = ? AND "id_piquage" = ? ORDER BY "id")");
        r << e.id_poste << e.id_depart << e.id_piquage;
        r.Executer();
        while (!ligne && r.Suivante()) {
            liens = true;
            const std::int32_t id = r.Entier(0);
            if (id >= 1 && Existe(Table::Ligne, id)) {
                e.id_ligne = id;
                ligne = true;
            }
        }
    }
    if (ligne) {
        LireLigne(e);
    } else {
        // A line with nothing saved yet: its row is made now, the save fills it.
        e.NouvelleLigne = true;
        e.id_ligne = ProchainId(Table::Ligne);
        Requete r(Db(), R"(INSERT INTO "Ligne" ("id") VALUES (?))");
        r << e.id_ligne;
        r.Executer();
    }

    // The relay: its link row by the five keys, its setting row and its settings.
    if (!liens || e.id_protection < 1 || e.id_numero < 1) return false;
    Requete r(Db(), R"(SELECT "id_réglage" FROM "Tournesol" WHERE "id_poste" = ?)"
                    R"( AND "id_départ" = ? AND "id_piquage" = ? AND "id_protection" = ?)"
                    R"( AND "id_numéro" = ? ORDER BY "id")");
    r << e.id_poste << e.id_depart << e.id_piquage << e.id_protection << e.id_numero;
    r.Executer();
    if (!r.Suivante()) return true; // on a known line, a relay the base does not hold
    e.id_reglage = r.Entier(0);
    if (e.id_reglage >= 1) LireReglage(e);
    return false;
}

void BaseEtudesSql::Ouvrir(Etude& e, Dialogue& d) {
    const bool sablier = d.Sablier(true);
    const ClesEtude avant = ClesEtude::De(e);
    bool relaisAbsent = false;
    const bool ok = Commande(
        e, d, [&] { relaisAbsent = LireEtude(e); },
        "The study could not be read from the master base; it starts as a new line.");
    if (!ok) {
        // A new line: no key of the study in memory before may point the save at its rows.
        avant.Remettre(e);
        e.NouvelleLigne = true;
        e.id_ligne = e.id_reglage = e.id_poste = e.id_depart = e.id_piquage = 0;
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

} // namespace tournesol
