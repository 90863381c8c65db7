#include "database/Requete.h"

namespace tournesol {

namespace {
// The base's own words; the driver's ("Unable to fetch row") only when the base said nothing.
std::string Texte(const QSqlError& erreur) {
    QString texte = erreur.databaseText().trimmed();
    if (texte.isEmpty()) texte = erreur.driverText().trimmed();
    return texte.isEmpty() ? std::string("unknown error of the base") : texte.toStdString();
}
// A PostgreSQL server's error: its code is an SQLSTATE, which may be all digits ("25006").
bool DuServeur(const QSqlError& erreur) {
    return erreur.driverText().startsWith(QLatin1String("QPSQL"));
}

} // namespace

ErreurBase::ErreurBase(const QSqlError& erreur)
    : std::runtime_error(Texte(erreur)), verrou_(EstVerrou(erreur)),
      pasUneBase_(erreur.nativeErrorCode() == QLatin1String("26")), // SQLITE_NOTADB
      lectureSeule_(EstLectureSeule(erreur)) {}

bool EstLectureSeule(const QSqlError& erreur) {
    const QString code = erreur.nativeErrorCode();
    if (DuServeur(erreur)) // a read-only transaction, a role without the right
        return code == QLatin1String("25006") || code == QLatin1String("42501");
    return (code.toInt() & 0xFF) == 8; // SQLITE_READONLY and its extended codes
}

bool EstVerrou(const QSqlError& erreur) {
    const QString code = erreur.nativeErrorCode();
    if (DuServeur(erreur)) return code == QLatin1String("55P03") || code == QLatin1String("40P01");
    // SQLite: extended codes keep the primary in the low byte.
    const int primaire = code.toInt() & 0xFF;
    return primaire == 5 || primaire == 6; // SQLITE_BUSY, SQLITE_LOCKED
}

Requete::Requete(const QSqlDatabase& db, const char* sql) : propre_(db) {
    if (!propre_.prepare(QString::fromUtf8(sql))) throw ErreurBase(propre_.lastError());
}

Requete& Requete::operator<<(const QVariant& valeur) {
    q_->bindValue(valeurs_++, valeur);
    return *this;
}

Requete& Requete::operator<<(const std::string& texte) {
    return *this << QVariant(QString::fromStdString(texte));
}

Requete& Requete::operator<<(int entier) {
    return *this << QVariant(entier);
}

Requete& Requete::operator<<(double reel) {
    return *this << QVariant(reel);
}

std::string Requete::Texte(int colonne) const {
    const QVariant v = q_->value(colonne);
    if (v.typeId() == QMetaType::QByteArray) {
        const QByteArray octets = v.toByteArray();
        return std::string(octets.constData(), static_cast<std::size_t>(octets.size()));
    }
    return v.toString().toStdString();
}

Requete& Requete::Executer() {
    if (!q_->exec()) throw ErreurBase(q_->lastError());
    valeurs_ = 0;
    return *this;
}

QSqlQuery& CacheRequetes::Preparee(const QSqlDatabase& db, const std::string& sql) {
    auto& q = requetes_[sql];
    if (!q) {
        auto nouvelle = std::make_unique<QSqlQuery>(db);
        nouvelle->setForwardOnly(true);
        if (!nouvelle->prepare(QString::fromStdString(sql))) {
            const QSqlError erreur = nouvelle->lastError();
            requetes_.erase(sql);
            throw ErreurBase(erreur);
        }
        q = std::move(nouvelle);
    }
    return *q;
}

QVariant NulReel() {
    return QVariant(QMetaType(QMetaType::Double));
}

} // namespace tournesol
