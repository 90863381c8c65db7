// SauverEtude: the study written table by table, in the system's order, as one transaction.
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "database/BaseEtudesSql.h"
#include "database/Cles.h"
#include "database/PanneauNumero.h"
#include "database/Requete.h"
#include "database/Schema.h"
#include "network/PanneauxBouts.h"

#include <QDateTime>
#ifndef _WIN32
#include <pwd.h>
#include <unistd.h>
#endif

namespace tournesol {

namespace {

// The scale a new setting row starts with, in ohms.
constexpr double LEFT_DEPART = -20.0;
constexpr double WIDTH_DEPART = 40.0;
constexpr double TOP_DEPART = 20.0;
constexpr double HEIGHT_DEPART = -40.0;

const std::string& MiseAJourLigne() {
    static const std::string sql = [] {
        std::string s = R"(UPDATE "Ligne" SET )";
        bool premiere = true;
        for (const ColonneLigne& c : ColonnesLigne()) {
            if (!c.Lire) continue;
            if (!premiere) s += ", ";
            s += "\"" + c.Nom + "\" = ?";
            premiere = false;
        }
        return s + R"(, "sauvé_par" = ?, "sauvé_le" = ? WHERE "id" = ?)";
    }();
    return sql;
}

// The login of the user who saves: the account of the session.
std::string Utilisateur() {
    for (const char* variable : {"USER", "LOGNAME", "USERNAME"}) {
        const QString nom = qEnvironmentVariable(variable).trimmed();
        if (!nom.isEmpty()) return nom.toStdString();
    }
#ifndef _WIN32
    if (const passwd* pw = getpwuid(geteuid()); pw && pw->pw_name) return pw->pw_name;
#endif
    return "?";
}

} // namespace

bool BaseEtudesSql::Sauver(Etude& e, Dialogue& d) {
    return Enregistrer(e, d, false);
}

bool BaseEtudesSql::SauverDepuisSuperposition(Etude& e, Dialogue& d) {
    return Enregistrer(e, d, true);
}

bool BaseEtudesSql::DemanderNumero(Etude& e, Dialogue& d) {
    // Asked again as long as the user confirms a number below 1; cancel (or OK on an empty box)
    // gives up the save, and the next save asks again.
    while (e.id_numero < 1) {
        e.sTitre = "TOURNESOL";
        e.IconeMessage = 0;
        e.sMessage = "choisis un numéro de 1 à 6 dans la table suivante";
        const bool sablier = d.Sablier(false);
        AfficherMessage(e, d);
        PanneauNumero numero(e);
        d.MontrerPanneau(numero);
        d.Sablier(sablier);
        if (!numero.Donne()) return false;
    }
    return true;
}

bool BaseEtudesSql::Enregistrer(Etude& e, Dialogue& d, bool superposition) {
    const bool sablier = d.Sablier(true);
    d.LaisserPasserEvenements();
    // Every question comes before the base is taken: no message is up while it is held.
    if (!superposition && !DemanderNumero(e, d)) {
        echec_ = {EtatBase::Genre::Autre, "the relay has no number from 1 to 32767"};
        d.Sablier(sablier);
        return false;
    }
    const ClesEtude avant = ClesEtude::De(e);
    relaisInconnu_ = false;
    // Who saves, and when: the time the save was asked, in UTC, to the second.
    auteur_ = Utilisateur();
    horodatage_ = QDateTime::currentDateTimeUtc().toString(Qt::ISODate).toStdString();
    const bool ok = Commande(
        e, d,
        [&] {
            if (!superposition) {
                ChercherClesSauvegarde(e);
                SauverLigne(e);
                SauverDepart(e);
                SauverPiquage(e);
                SauverPoste(e);
                SauverProtection(e);
                SauverTournesol(e);
            }
            SauverReglage(e, superposition);
        },
        "The study is not saved: the master base is left as it was.");
    if (ok) {
        e.EtudeModifiee = false;
        if (relaisInconnu_) {
            // The system's one refusal: told once the base is released; the save stands.
            e.sTitre = "TOURNESOL : unknown relay";
            e.IconeMessage = 3;
            e.sMessage =
                "the relay\"" + e.NomProtection + "\" is not managed by " + "TOURNESOL" + ".";
            const bool pointeur = d.Sablier(false);
            AfficherMessage(e, d);
            d.Sablier(pointeur);
            e.ErrCalcul = -1;
        }
    } else {
        avant.Remettre(e);
    }
    d.Sablier(sablier);
    d.LaisserPasserEvenements();
    return ok;
}

void BaseEtudesSql::ChercherClesSauvegarde(Etude& e) {
    if ((e.id_poste < 1 || !Existe(Table::Poste, e.id_poste)) && !e.NomPoste.empty())
        e.id_poste = CleDuPoste(e.NomPoste);
    if ((e.id_depart < 1 || !Existe(Table::Depart, e.id_depart)) && !e.NomDepart.empty())
        e.id_depart = e.id_poste >= 1 ? CleDuDepart(e.NomDepart, e.id_poste) : 0;
    if ((e.id_piquage < 1 || !Existe(Table::Piquage, e.id_piquage)) && !e.NomPiquage.empty())
        e.id_piquage = e.id_depart >= 1 ? CleDuPiquage(e.NomPiquage, e.id_depart, e.id_poste) : 0;
    if (e.NomPiquage.empty()) e.id_piquage = 0;
    if (e.id_ligne < 1 || !Existe(Table::Ligne, e.id_ligne))
        e.id_ligne = e.id_depart >= 1 ? LigneDesLiens(e) : 0;
}

// Ligne: the row of id_ligne takes every column; a line without one gets it here, under the
// next key. A row that cannot be made or written fails the save.
void BaseEtudesSql::SauverLigne(Etude& e) {
    if (e.id_ligne < 1) {
        e.id_ligne = ProchainId(Table::Ligne);
        Requete r(Q(R"(INSERT INTO "Ligne" ("id") VALUES (?))"));
        r << e.id_ligne;
        r.Executer();
    }
    Requete r(Q(MiseAJourLigne()));
    for (const ColonneLigne& c : ColonnesLigne())
        if (c.Lire) r << c.Lire(e);
    r << auteur_ << horodatage_ << e.id_ligne;
    r.Executer();
    if (r.LignesTouchees() != 1) throw ErreurBase("the row of the line was not written");
}

// Départ: an empty name leaves the table alone; a known key is updated, a new line end gets the
// next key.
void BaseEtudesSql::SauverDepart(Etude& e) {
    const bool nouveau = e.id_depart < 1;
    if (nouveau) e.id_depart = 1;
    if (e.NomDepart.empty()) return;
    if (!nouveau && Existe(Table::Depart, e.id_depart)) {
        Requete r(Q(R"(UPDATE "Départ" SET "nom" = ?, "id_poste" = ? WHERE "id" = ?)"));
        r << e.NomDepart << e.id_poste << e.id_depart;
        r.Executer();
        return;
    }
    e.id_depart = ProchainId(Table::Depart);
    Requete r(Q(R"(INSERT INTO "Départ" ("id", "id_poste", "nom") VALUES (?, ?, ?))"));
    r << e.id_depart << e.id_poste << e.NomDepart;
    r.Executer();
}

// Piquage: the row is looked for first, then the name decides whether anything is written.
void BaseEtudesSql::SauverPiquage(Etude& e) {
    const bool existe = e.id_piquage >= 1 && Existe(Table::Piquage, e.id_piquage);
    if (e.NomPiquage.empty()) return;
    if (existe) {
        Requete r(Q(R"(UPDATE "Piquage" SET "nom" = ?, "id_départ" = ?, "id_poste" = ?)"
                    R"( WHERE "id" = ?)"));
        r << e.NomPiquage << e.id_depart << e.id_poste << e.id_piquage;
        r.Executer();
        return;
    }
    e.id_piquage = ProchainId(Table::Piquage);
    Requete r(Q(R"(INSERT INTO "Piquage" ("id", "id_départ", "id_poste", "nom"))"
                R"( VALUES (?, ?, ?, ?))"));
    r << e.id_piquage << e.id_depart << e.id_poste << e.NomPiquage;
    r.Executer();
}

// Poste: a known key takes the name, even an empty one; an empty name prevents an insert.
void BaseEtudesSql::SauverPoste(Etude& e) {
    const bool nouveau = e.id_poste < 1;
    if (nouveau) e.id_poste = 1;
    bool ecrit = false;
    if (!nouveau && Existe(Table::Poste, e.id_poste)) {
        Requete r(Q(R"(UPDATE "Poste" SET "nom" = ? WHERE "id" = ?)"));
        r << e.NomPoste << e.id_poste;
        r.Executer();
        ecrit = true;
    } else if (!e.NomPoste.empty()) {
        e.id_poste = ProchainId(Table::Poste);
        Requete r(Q(R"(INSERT INTO "Poste" ("id", "nom") VALUES (?, ?))"));
        r << e.id_poste << e.NomPoste;
        r.Executer();
        ecrit = true;
    }
    if (!ecrit) return;
    // The line end and the tee were saved first, while a new substation had no key yet: they
    // take it now, in the same transaction.
    Requete depart(Q(R"(UPDATE "Départ" SET "id_poste" = ? WHERE "id" = ? AND "id_poste" < 1)"));
    depart << e.id_poste << e.id_depart;
    depart.Executer();
    Requete piquage(Q(R"(UPDATE "Piquage" SET "id_poste" = ? WHERE "id" = ? AND "id_poste" < 1)"));
    piquage << e.id_poste << e.id_piquage;
    piquage.Executer();
}

// Protection: a relay type the base does not hold is added under the registry's number.
void BaseEtudesSql::SauverProtection(Etude& e) {
    if (e.id_protection != 0) {
        const bool nom = !e.NomProtection.empty() && e.NomProtection != NOUVELLE_PROTECTION;
        if (Existe(Table::Protection, e.id_protection)) {
            if (nom) {
                Requete r(Q(R"(UPDATE "Protection" SET "nom" = ? WHERE "id" = ?)"));
                r << e.NomProtection << e.id_protection;
                r.Executer();
            }
        } else if (nom && e.ProtectionChoisie != 0) {
            if (!Existe(Table::Protection, e.ProtectionChoisie)) {
                Requete r(Q(R"(INSERT INTO "Protection" ("id", "nom") VALUES (?, ?))"));
                r << e.ProtectionChoisie << e.NomProtection;
                r.Executer();
            }
            e.id_protection = e.ProtectionChoisie;
        }
    }
    e.Sauvegarde = false;
    if (e.ProtectionChoisie == 0) relaisInconnu_ = true;
}

void BaseEtudesSql::NouveauReglage(const Etude& e) {
    Requete r(Q(R"(INSERT INTO "Réglage" ("id", "TypeReportCharge", "Left", "Width", "Top",)"
                R"( "Height") VALUES (?, ?, ?, ?, ?, ?))"));
    r << e.id_reglage << static_cast<int>(e.TypeReportCharge) << LEFT_DEPART << WIDTH_DEPART
      << TOP_DEPART << HEIGHT_DEPART;
    r.Executer();
}

// Tournesol: the link row of the relay, made with its setting row when the base has none.
void BaseEtudesSql::SauverTournesol(Etude& e) {
    // By the five keys, the tee included even when it is 0: a relay of the line of two ends is
    // not the relay of the same type and number on a line teed on it.
    std::int32_t id = 0;
    {
        Requete lien(Q(R"(SELECT "id", "id_réglage" FROM "Tournesol" WHERE "id_poste" = ?)"
                       R"( AND "id_départ" = ? AND "id_piquage" = ? AND "id_protection" = ?)"
                       R"( AND "id_numéro" = ? ORDER BY "id")"));
        lien << e.id_poste << e.id_depart << e.id_piquage << e.id_protection
             << static_cast<int>(e.id_numero);
        lien.Executer();
        if (lien.Suivante()) {
            id = lien.Entier(0);
            e.id_reglage = lien.Entier(1);
        }
    }
    if (id == 0) {
        id = ProchainId(Table::Tournesol);
        e.id_reglage = ProchainId(Table::Reglage);
        Requete r(Q(R"(INSERT INTO "Tournesol" ("id", "id_poste", "id_départ", "id_piquage",)"
                    R"( "id_protection", "id_ligne", "id_réglage", "id_numéro", "sauvé_par",)"
                    R"( "sauvé_le") VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?))"));
        r << id << e.id_poste << e.id_depart << e.id_piquage << e.id_protection << e.id_ligne
          << e.id_reglage << static_cast<int>(e.id_numero) << auteur_ << horodatage_;
        r.Executer();
        NouveauReglage(e);
        return;
    }
    // The relay is in the base: its link row stays as it is but for who saved it and when,
    // and its settings are the ones written over. A link row that lost its line (a row of an
    // earlier version) takes the row of this save.
    {
        Requete r(Q(R"(UPDATE "Tournesol" SET "id_ligne" = ?, "sauvé_par" = ?, "sauvé_le" = ?)"
                    R"( WHERE "id" = ?)"));
        r << e.id_ligne << auteur_ << horodatage_ << id;
        r.Executer();
    }
    if (e.id_reglage < 1 || !Existe(Table::Reglage, e.id_reglage)) {
        // Its setting row went with the relay's deletion: a new one, and the link points at it.
        e.id_reglage = ProchainId(Table::Reglage);
        NouveauReglage(e);
        Requete r(Q(R"(UPDATE "Tournesol" SET "id_réglage" = ? WHERE "id" = ?)"));
        r << e.id_reglage << id;
        r.Executer();
    }
}

// Réglage: the report case and the scale (not from the superposition window), then the relay's
// settings in TR.
void BaseEtudesSql::SauverReglage(Etude& e, bool superposition) {
    if (!superposition) {
        Requete r(Q(R"(UPDATE "Réglage" SET "TypeReportCharge" = ?, "Left" = ?, "Width" = ?,)"
                    R"( "Top" = ?, "Height" = ? WHERE "id" = ?)"));
        r << static_cast<int>(e.TypeReportCharge) << static_cast<double>(e.ScaleLeft)
          << static_cast<double>(e.ScaleWidth) << static_cast<double>(e.ScaleTop)
          << static_cast<double>(e.ScaleHeight) << e.id_reglage;
        r.Executer();
    } else {
        // The superposition's save writes no link row but the settings of one: that relay is
        // the one saved, by this user, now.
        Requete r(Q(R"(UPDATE "Tournesol" SET "sauvé_par" = ?, "sauvé_le" = ?)"
                    R"( WHERE "id_réglage" = ? AND "id_réglage" >= 1)"));
        r << auteur_ << horodatage_ << e.id_reglage;
        r.Executer();
    }
    EcrireReglagesRelais(e, magasin_);
    // The list of the line's panel, under the key of the relay being saved; the cursor stays
    // where the relay's list left it.
    if (!superposition) {
        const Entier32 position = e.PositionTR;
        EcrireListeBouts(e, magasin_, e.LigneTroisBouts ? 3 : 2);
        e.PositionTR = position;
    }
    // Values that earlier versions wrote under no setting row (key 0) belong to no relay.
    Requete r(Q(R"(DELETE FROM "TR" WHERE "id_key" = 0)"));
    r.Executer();
}

} // namespace tournesol
