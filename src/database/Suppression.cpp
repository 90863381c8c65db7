// The deletion dialog and its three cascades: a relay, a line, a substation. Each cascade is one
// transaction: all of it is deleted or nothing.
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "database/BaseEtudesSql.h"
#include "database/Cles.h"
#include "database/PanneauSupprimerPoste.h"
#include "database/Requete.h"

#include <vector>

namespace tournesol {

namespace {

constexpr const char* OPTION_PROTECTION = "chksupprimerprotection";
constexpr const char* OPTION_DEPART = "chksupprimerdépart";
constexpr const char* OPTION_POSTE = "chksupprimerposte";

// A WHERE clause on the link table, its values bound in order.
struct Condition {
    std::string sql;
    std::vector<int> valeurs;

    Condition& Et(const char* colonne, int valeur) {
        sql += sql.empty() ? " WHERE \"" : " AND \"";
        sql += colonne;
        sql += "\" = ?";
        valeurs.push_back(valeur);
        return *this;
    }
};

// The link rows of one line: a line of two ends has the tee 0.
Condition ConditionLigne(const Etude& e) {
    Condition c;
    c.Et("id_poste", e.id_poste).Et("id_départ", e.id_depart).Et("id_piquage", e.id_piquage);
    return c;
}

// The link rows that go with substation B: without a tee named, the lines teed on it too.
Condition ConditionDepart(const Etude& e) {
    Condition c;
    c.Et("id_poste", e.id_poste).Et("id_départ", e.id_depart);
    if (e.id_piquage != 0) c.Et("id_piquage", e.id_piquage);
    return c;
}

// Binds the condition's values and runs the statement, leaving its result to read.
void Executer(Requete& r, const Condition& c) {
    for (int v : c.valeurs)
        r << v;
    r.Executer();
}

std::string Sql(const char* debut, const Condition& c, const char* fin = "") {
    return std::string(debut) + c.sql + fin;
}

const std::string MESSAGE_ECHEC = "Nothing is deleted: the master base is left as it was.";

} // namespace

// SupprimerProtection: the relay of the five keys, its settings and its setting row. The only
// link row of a line stays, so that the line stays in the base.
void BaseEtudesSql::SupprimerProtectionDans(Etude& e, bool chercher) {
    if (chercher) {
        ChercherCles(e, true);
        if (e.id_poste < 1 || e.id_depart < 1 || (!e.NomPiquage.empty() && e.id_piquage < 1))
            return;
    }
    const Condition ligne = ConditionLigne(e);
    Condition relais = ligne;
    relais.Et("id_protection", e.id_protection).Et("id_numéro", e.id_numero);

    int liensDeLaLigne = 0;
    {
        Requete r(Q(Sql(R"(SELECT COUNT(*) FROM "Tournesol")", ligne)));
        Executer(r, ligne);
        if (r.Suivante()) liensDeLaLigne = r.Entier(0);
    }
    std::vector<std::int32_t> reglages;
    {
        Requete r(Q(Sql(R"(SELECT "id_réglage" FROM "Tournesol")", relais, R"( ORDER BY "id")")));
        Executer(r, relais);
        while (r.Suivante())
            reglages.push_back(r.Entier(0));
    }
    if (reglages.empty()) return;
    e.id_reglage = reglages.front();

    for (std::int32_t id : reglages) {
        if (id < 1) continue;
        Requete r(Q(R"(DELETE FROM "TR" WHERE "id_key" = ?)"));
        r << id;
        r.Executer();
    }
    if (liensDeLaLigne >= 2 || e.SuppressionLigne) {
        Requete r(Q(Sql(R"(DELETE FROM "Tournesol")", relais)));
        Executer(r, relais);
    } else {
        // The row kept points at no setting: the deleted key may be handed out again by
        // ProchainId, to another relay's setting row.
        Requete r(Q(Sql(R"(UPDATE "Tournesol" SET "id_réglage" = 0)", relais)));
        Executer(r, relais);
    }
    for (std::int32_t id : reglages) {
        if (id < 1) continue;
        Requete r(Q(R"(DELETE FROM "Réglage" WHERE "id" = ?)"));
        r << id;
        r.Executer();
    }
}

// SupprimerDepart: every relay of the line, then its link rows, its tees, its line end and its
// Ligne rows.
void BaseEtudesSql::SupprimerDepartDans(Etude& e, bool chercher) {
    e.id_protection = 0;
    if (chercher) {
        ChercherCles(e, true);
        if (e.id_poste < 1 || e.id_depart < 1 || (!e.NomPiquage.empty() && e.id_piquage < 1))
            return;
    }
    const Condition ligne = ConditionDepart(e);
    const Entier32 piquage = e.id_piquage;

    std::vector<std::int32_t> lignes;
    {
        Requete r(Q(Sql(R"(SELECT DISTINCT "id_ligne" FROM "Tournesol")", ligne)));
        Executer(r, ligne);
        while (r.Suivante())
            lignes.push_back(r.Entier(0));
    }

    for (;;) {
        std::int32_t lien = 0;
        {
            Requete r(Q(Sql(R"(SELECT "id", "id_protection", "id_numéro", "id_piquage")"
                            R"( FROM "Tournesol")",
                            ligne, R"( AND "id_protection" >= 1 ORDER BY "id")")));
            Executer(r, ligne);
            if (!r.Suivante()) break;
            lien = r.Entier(0);
            e.id_protection = r.Entier(1);
            e.id_numero = static_cast<Entier16>(r.Entier(2));
            e.id_piquage = r.Entier(3); // the relay's own line, when it is teed on B
        }
        {
            Requete r(Q(R"(SELECT "nom" FROM "Protection" WHERE "id" = ?)"));
            r << e.id_protection;
            r.Executer();
            e.NomProtection = r.Suivante() ? r.Texte(0) : std::string();
        }
        e.SuppressionLigne = true;
        SupprimerProtectionDans(e, false);
        e.SuppressionLigne = false;
        e.id_piquage = piquage;
        Requete reste(Q(R"(DELETE FROM "Tournesol" WHERE "id" = ?)")); // never twice the same
        reste << lien;
        reste.Executer();
    }

    // The link rows without a relay, of this line only.
    {
        Requete r(Q(Sql(R"(DELETE FROM "Tournesol")", ligne)));
        Executer(r, ligne);
    }
    bool departLibre = true;
    if (e.id_piquage != 0) {
        Requete r(Q(R"(DELETE FROM "Piquage" WHERE "id" = ?)"));
        r << e.id_piquage;
        r.Executer();
        // Substation B stays while the line of two ends (or another tee) still uses it.
        Requete reste(Q(R"(SELECT COUNT(*) FROM "Tournesol" WHERE "id_départ" = ?)"));
        reste << e.id_depart;
        reste.Executer();
        departLibre = reste.Suivante() && reste.Entier(0) == 0;
    } else {
        Requete r(Q(R"(DELETE FROM "Piquage" WHERE "id_départ" = ?)"));
        r << e.id_depart;
        r.Executer();
    }
    if (departLibre) {
        Requete r(Q(R"(DELETE FROM "Départ" WHERE "id" = ?)"));
        r << e.id_depart;
        r.Executer();
    }
    for (std::int32_t id : lignes) {
        Requete r(Q(R"(DELETE FROM "Ligne" WHERE "id" = ? AND NOT EXISTS)"
                    R"( (SELECT 1 FROM "Tournesol" WHERE "id_ligne" = ?))"));
        r << id << id;
        r.Executer();
    }
}

// SupprimerPoste: every line end of the substation, then the substation.
void BaseEtudesSql::SupprimerPosteDans(Etude& e) {
    ChercherCles(e, true);
    if (e.id_poste < 1) return;
    for (;;) {
        {
            Requete r(Q(R"(SELECT "id_départ" FROM "Tournesol" WHERE "id_poste" = ?)"
                        R"( ORDER BY "id")"));
            r << e.id_poste;
            r.Executer();
            if (!r.Suivante()) break;
            e.id_depart = r.Entier(0);
        }
        {
            Requete r(Q(R"(SELECT "nom" FROM "Départ" WHERE "id" = ?)"));
            r << e.id_depart;
            r.Executer();
            e.NomDepart = r.Suivante() ? r.Texte(0) : std::string();
        }
        e.id_piquage = 0;
        SupprimerDepartDans(e, false);
    }
    for (const char* sql : {R"(DELETE FROM "Piquage" WHERE "id_poste" = ?)",
                            R"(DELETE FROM "Départ" WHERE "id_poste" = ?)",
                            R"(DELETE FROM "Poste" WHERE "id" = ?)"}) {
        Requete r(Q(sql));
        r << e.id_poste;
        r.Executer();
    }
}

bool BaseEtudesSql::SupprimerProtection(Etude& e, Dialogue& d) {
    const ClesEtude avant = ClesEtude::De(e);
    const bool ok = Commande(
        e, d, [&] { SupprimerProtectionDans(e, true); }, MESSAGE_ECHEC);
    if (!ok) avant.Remettre(e);
    return ok;
}

bool BaseEtudesSql::SupprimerDepart(Etude& e, Dialogue& d) {
    const ClesEtude avant = ClesEtude::De(e);
    const bool ok = Commande(
        e, d, [&] { SupprimerDepartDans(e, true); }, MESSAGE_ECHEC);
    if (!ok) avant.Remettre(e);
    return ok;
}

bool BaseEtudesSql::SupprimerPoste(Etude& e, Dialogue& d) {
    const ClesEtude avant = ClesEtude::De(e);
    const bool ok = Commande(
        e, d, [&] { SupprimerPosteDans(e); }, MESSAGE_ECHEC);
    if (!ok) avant.Remettre(e);
    return ok;
}

std::unique_ptr<Panneau> BaseEtudesSql::PanneauSuppression(Etude& e, Dialogue& d) {
    return std::make_unique<PanneauSupprimerPoste>(e, d, *this);
}

// ---------------------------------------------------------------------------------------------
// frmSupprimerPoste

PanneauSupprimerPoste::PanneauSupprimerPoste(Etude& e, Dialogue& d, BaseEtudesSql& base)
    : Panneau("frmSupprimerPoste"), e_(e), d_(d), base_(base) {
    DefinirTitre("TOURNESOL : Suppression");
    Ajouter(GenreChamp::Option, OPTION_PROTECTION, "delete relay number n...", "options").Valeur =
        true;
    Ajouter(GenreChamp::Option, OPTION_DEPART, "delete substation B (and C)", "options");
    Ajouter(GenreChamp::Option, OPTION_POSTE, "delete substation A", "options");
    Ajouter(GenreChamp::Etiquette, "lblPoste", e.NomPoste);
    Ajouter(GenreChamp::Etiquette, "lblDépart", e.NomDepart);
    Ajouter(GenreChamp::Etiquette, "lblPiquage", e.NomPiquage);
    Ajouter(GenreChamp::Etiquette, "lblProtection", e.NomProtection);
    Ajouter(GenreChamp::Etiquette, "lblnuméro", std::to_string(e.id_numero));
    Ajouter(GenreChamp::Bouton, "cmdok", "OK");
    Ajouter(GenreChamp::Bouton, "cmdcancel", "cancel");
}

std::string PanneauSupprimerPoste::Option() const {
    for (const Champ& c : Champs())
        if (c.Genre == GenreChamp::Option && c.Valeur) return c.Nom;
    return OPTION_PROTECTION;
}

void PanneauSupprimerPoste::Cliquer(const std::string& nom) {
    if (nom == OPTION_PROTECTION || nom == OPTION_DEPART || nom == OPTION_POSTE) {
        for (const char* option : {OPTION_PROTECTION, OPTION_DEPART, OPTION_POSTE})
            Trouver(option)->Valeur = nom == option;
    } else if (nom == "cmdok") {
        Valider();
    } else if (nom == "cmdcancel") {
        Annuler();
    }
}

void PanneauSupprimerPoste::Valider() {
    const std::string option = Option();
    std::string texte = "STP Confirme la suppression du poste " + e_.NomPoste;
    if (option != OPTION_POSTE) {
        if (!e_.NomDepart.empty()) texte += ", départ " + e_.NomDepart;
        if (!e_.NomPiquage.empty()) texte += ", piquage " + e_.NomPiquage;
    }
    if (option == OPTION_PROTECTION) {
        texte += ", protection " + e_.NomProtection;
        e_.sTitre = "TOURNESOL : Suppression de protection";
    } else if (option == OPTION_DEPART) {
        e_.sTitre = "TOURNESOL : Suppression de départ";
    } else {
        e_.sTitre = "TOURNESOL : Suppression de poste";
    }
    e_.sMessage = texte;
    e_.IconeMessage = 3;
    e_.BoutonsQuestion = {"&Supprimer", "&Annuler", ""};
    PoserQuestion(e_, d_);
    if (e_.ReponseQuestion == 1) return; // the dialog stays

    if (e_.ReponseQuestion == 0) {
        if (option == OPTION_PROTECTION) {
            base_.SupprimerProtection(e_, d_);
        } else if (option == OPTION_DEPART) {
            if (base_.SupprimerDepart(e_, d_)) {
                viderDepart_ = true;
                e_.NomDepart.clear();
                e_.NomPiquage.clear();
            }
        } else if (base_.SupprimerPoste(e_, d_)) {
            viderDepart_ = viderPoste_ = true;
            e_.NomPoste.clear();
            e_.NomDepart.clear();
            e_.NomPiquage.clear();
        }
    }
    FermerPanneau();
}

} // namespace tournesol
