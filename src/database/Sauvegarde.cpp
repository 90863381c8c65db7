// SauverEtude: the study written table by table, in the system's order, as one transaction.
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "database/BaseEtudesSql.h"
#include "database/Cles.h"
#include "database/PanneauNumero.h"
#include "database/Requete.h"
#include "database/Schema.h"

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
        return s + R"( WHERE "id" = ?)";
    }();
    return sql;
}

} // namespace

bool BaseEtudesSql::Sauver(Etude& e, Dialogue& d) {
    return Enregistrer(e, d, false);
}

bool BaseEtudesSql::SauverDepuisSuperposition(Etude& e, Dialogue& d) {
    return Enregistrer(e, d, true);
}

bool BaseEtudesSql::Enregistrer(Etude& e, Dialogue& d, bool superposition) {
    const bool sablier = d.Sablier(true);
    d.LaisserPasserEvenements();
    const ClesEtude avant = ClesEtude::De(e);
    const bool ok = Commande(
        e, d,
        [&] {
            if (!superposition) {
                SauverLigne(e);
                SauverDepart(e);
                SauverPiquage(e);
                SauverPoste(e);
                SauverProtection(e, d);
                SauverTournesol(e, d);
            }
            SauverReglage(e, superposition);
        },
        "The study is not saved: the master base is left as it was.");
    if (ok)
        e.EtudeModifiee = false;
    else
        avant.Remettre(e);
    d.Sablier(sablier);
    d.LaisserPasserEvenements();
    return ok;
}

// Ligne: an update of the row of id_ligne; with no such row nothing is written.
void BaseEtudesSql::SauverLigne(Etude& e) {
    Requete r(Db(), MiseAJourLigne().c_str());
    for (const ColonneLigne& c : ColonnesLigne())
        if (c.Lire) r << c.Lire(e);
    r << e.id_ligne;
    r.Executer();
}

// Départ: an empty name leaves the table alone; a known key is updated, a new line end gets the
// next key.
void BaseEtudesSql::SauverDepart(Etude& e) {
    const bool nouveau = e.id_depart < 1;
    if (nouveau) e.id_depart = 1;
    if (e.NomDepart.empty()) return;
    if (!nouveau && Existe(Table::Depart, e.id_depart)) {
        Requete r(Db(), R"(UPDATE "Départ" SET "nom" = ?, "id_poste" = ? WHERE "id" = ?)");
        r << e.NomDepart << e.id_poste << e.id_depart;
        r.Executer();
        return;
    }
    e.id_depart = ProchainId(Table::Depart);
    Requete r(Db(), R"(INSERT INTO "Départ" ("id", "id_poste", "nom") VALUES (?, ?, ?))");
    r << e.id_depart << e.id_poste << e.NomDepart;
    r.Executer();
}

// Piquage: the row is looked for first, then the name decides whether anything is written.
void BaseEtudesSql::SauverPiquage(Etude& e) {
    const bool existe = e.id_piquage >= 1 && Existe(Table::Piquage, e.id_piquage);
    if (e.NomPiquage.empty()) return;
    if (existe) {
        Requete r(Db(), R"(UPDATE "Piquage" SET "nom" = ?, "id_départ" = ?, "id_poste" = ?)"
                        R"( WHERE "id" = ?)");
        r << e.NomPiquage << e.id_depart << e.id_poste << e.id_piquage;
        r.Executer();
        return;
    }
    e.id_piquage = ProchainId(Table::Piquage);
    Requete r(Db(), R"(INSERT INTO "Piquage" ("id", "id_départ", "id_poste", "nom"))"
                    R"( VALUES (?, ?, ?, ?))");
    r << e.id_piquage << e.id_depart << e.id_poste << e.NomPiquage;
    r.Executer();
}

// Poste: a known key takes the name, even an empty one; an empty name prevents an insert.
void BaseEtudesSql::SauverPoste(Etude& e) {
    const bool nouveau = e.id_poste < 1;
    if (nouveau) e.id_poste = 1;
    bool ecrit = false;
    if (!nouveau && Existe(Table::Poste, e.id_poste)) {
        Requete r(Db(), R"(UPDATE "Poste" SET "nom" = ? WHERE "id" = ?)");
        r << e.NomPoste << e.id_poste;
        r.Executer();
        ecrit = true;
    } else if (!e.NomPoste.empty()) {
        e.id_poste = ProchainId(Table::Poste);
        Requete r(Db(), R"(INSERT INTO "Poste" ("id", "nom") VALUES (?, ?))");
        r << e.id_poste << e.NomPoste;
        r.Executer();
        ecrit = true;
    }
    if (!ecrit) return;
    // The line end and the tee were saved first, while a new substation had no key yet: they
    // take it now, in the same transaction.
    Requete depart(Db(), R"(UPDATE "Départ" SET "id_poste" = ? WHERE "id" = ? AND "id_poste" < 1)");
    depart << e.id_poste << e.id_depart;
    depart.Executer();
    Requete piquage(Db(),
                    R"(UPDATE "Piquage" SET "id_poste" = ? WHERE "id" = ? AND "id_poste" < 1)");
    piquage << e.id_poste << e.id_piquage;
    piquage.Executer();
}

// Protection: a relay type the base does not hold is added under the registry's number.
void BaseEtudesSql::SauverProtection(Etude& e, Dialogue& d) {
    if (e.id_protection != 0) {
        const bool nom = !e.NomProtection.empty() && e.NomProtection != NOUVELLE_PROTECTION;
        if (Existe(Table::Protection, e.id_protection)) {
            if (nom) {
                Requete r(Db(), R"(UPDATE "Protection" SET "nom" = ? WHERE "id" = ?)");
                r << e.NomProtection << e.id_protection;
                r.Executer();
            }
        } else if (nom && e.ProtectionChoisie != 0) {
            if (!Existe(Table::Protection, e.ProtectionChoisie)) {
                Requete r(Db(), R"(INSERT INTO "Protection" ("id", "nom") VALUES (?, ?))");
                r << e.ProtectionChoisie << e.NomProtection;
                r.Executer();
            }
            e.id_protection = e.ProtectionChoisie;
        }
    }
    e.Sauvegarde = false;
    if (e.ProtectionChoisie == 0) {
        e.sTitre = "TOURNESOL : unknown relay";
        e.IconeMessage = 3;
        e.sMessage = "the relay\"" + e.NomProtection + "\" is not managed by " + "TOURNESOL" + ".";
        const bool sablier = d.Sablier(false);
        AfficherMessage(e, d);
        d.Sablier(sablier);
        e.ErrCalcul = -1;
    }
}

void BaseEtudesSql::NouveauReglage(const Etude& e) {
    Requete r(Db(), R"(INSERT INTO "Réglage" ("id", "TypeReportCharge", "Left", "Width", "Top",)"
                    R"( "Height") VALUES (?, ?, ?, ?, ?, ?))");
    r << e.id_reglage << static_cast<int>(e.TypeReportCharge) << LEFT_DEPART << WIDTH_DEPART
      << TOP_DEPART << HEIGHT_DEPART;
    r.Executer();
}

// Tournesol: the link row of the relay, made with its setting row when the base has none.
void BaseEtudesSql::SauverTournesol(Etude& e, Dialogue& d) {
    if (e.id_numero < 1) {
        e.sTitre = "TOURNESOL";
        e.IconeMessage = 0;
        e.sMessage = "choisis un numéro de 1 à 6 dans la table suivante";
        const bool sablier = d.Sablier(false);
        AfficherMessage(e, d);
        PanneauNumero numero(e);
        d.MontrerPanneau(numero);
        d.Sablier(sablier);
    }
    // By the five keys, the tee included even when it is 0: a relay of the line of two ends is
    // not the relay of the same type and number on a line teed on it.
    std::int32_t id = 0;
    {
        Requete lien(Db(), R"(SELECT "id", "id_réglage" FROM "Tournesol" WHERE "id_poste" = ?)"
                           R"( AND "id_départ" = ? AND "id_piquage" = ? AND "id_protection" = ?)"
                           R"( AND "id_numéro" = ? ORDER BY "id")");
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
        Requete r(Db(), R"(INSERT INTO "Tournesol" ("id", "id_poste", "id_départ", "id_piquage",)"
                        R"( "id_protection", "id_ligne", "id_réglage", "id_numéro"))"
                        R"( VALUES (?, ?, ?, ?, ?, ?, ?, ?))");
        r << id << e.id_poste << e.id_depart << e.id_piquage << e.id_protection << e.id_ligne
          << e.id_reglage << static_cast<int>(e.id_numero);
        r.Executer();
        NouveauReglage(e);
        return;
    }
    // The relay is in the base: its link row stays as it is, and its settings are the ones
    // written over.
    if (e.id_reglage < 1 || !Existe(Table::Reglage, e.id_reglage)) {
        // Its setting row went with the relay's deletion: a new one, and the link points at it.
        e.id_reglage = ProchainId(Table::Reglage);
        NouveauReglage(e);
        Requete r(Db(), R"(UPDATE "Tournesol" SET "id_réglage" = ? WHERE "id" = ?)");
        r << e.id_reglage << id;
        r.Executer();
    }
}

// Réglage: the report case and the scale (not from the superposition window), then the relay's
// settings in TR.
void BaseEtudesSql::SauverReglage(Etude& e, bool superposition) {
    if (!superposition) {
        Requete r(Db(), R"(UPDATE "Réglage" SET "TypeReportCharge" = ?, "Left" = ?, "Width" = ?,)"
                        R"( "Top" = ?, "Height" = ? WHERE "id" = ?)");
        r << static_cast<int>(e.TypeReportCharge) << static_cast<double>(e.ScaleLeft)
          << static_cast<double>(e.ScaleWidth) << static_cast<double>(e.ScaleTop)
          << static_cast<double>(e.ScaleHeight) << e.id_reglage;
        r.Executer();
    }
    EcrireReglagesRelais(e, magasin_);
}

} // namespace tournesol
