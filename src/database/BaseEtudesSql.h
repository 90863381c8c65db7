// The study base on Qt SQL: the file bd1.mdb (SQLite) in the directory of the master base, or a
// database on a PostgreSQL server, the shared base of a team; the same SQL text serves both.
// Tables are made when the file is new or empty, or the server's database holds no table. Every
// command is one transaction: a save or a deletion takes the base for writing at its start and is
// written whole or not at all; the opening and the lists read in a read transaction and never
// write.
#pragma once

#include "core/BaseEtudes.h"
#include "core/Magasin.h"
#include "database/Adresse.h"
#include "database/EtatBase.h"
#include "database/Requete.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class QSqlDatabase;

namespace tournesol {

class ErreurBase;

class BaseEtudesSql;

// The relay setting store on table TR. Inside a command its values go into the command's
// transaction; outside, each value is read or written on its own, and a base that cannot be
// reached gives a missing value.
class MagasinTR : public MagasinReglages {
public:
    explicit MagasinTR(BaseEtudesSql& base) : base_(base) {}
    void EcrireValeur(std::int32_t id_key, std::int32_t id_pos, const ValeurTR& valeur) override;
    ValeurTR LireValeur(std::int32_t id_key, std::int32_t id_pos) override;

private:
    BaseEtudesSql& base_;
};

// The tables that hand out keys.
enum class Table { Poste, Depart, Piquage, Protection, Tournesol, Reglage, Ligne };

class BaseEtudesSql : public BaseEtudes {
public:
    static constexpr const char* NOM_BASE = "bd1.mdb";

    // `rep_appli`: the directory of the master base as Rep_appli holds it, ready for plain
    // concatenation (its trailing separator included); empty for the current directory. The
    // base file is rep_appli + "bd1.mdb". An address postgresql://user@host:port/base names a
    // database on a server instead (see Adresse.h). `attenteVerrouMs`: how long one attempt waits
    // for a base held by another writer before it counts as failed (readers wait as long for a
    // writer that is committing). `question`: after three such attempts the user is asked whether
    // to try again; without it (the command line) the first failed attempt ends the command.
    explicit BaseEtudesSql(std::string rep_appli, int attenteVerrouMs = 1000, bool question = true);
    ~BaseEtudesSql() override;
    BaseEtudesSql(const BaseEtudesSql&) = delete;
    BaseEtudesSql& operator=(const BaseEtudesSql&) = delete;

    // The base file, or the server's address (without a password).
    const std::string& Fichier() const { return fichier_; }
    bool SurServeur() const { return serveur_.has_value() || adresseIllisible_; }

    // Every command opens the base for reading only, as SQLite does itself with a file the
    // user may not write (on a server, in read-only transactions): a consultation that must not
    // touch the base. A save or a deletion then fails at its first write, the base as it was,
    // with the cause "… is read-only".
    void LectureSeule(bool oui) { lectureSeule_ = oui; }

    // Whether the base can be used, read in a read-only transaction that writes nothing.
    EtatBase Examiner();

    // Why the last command failed (Genre Utilisable when it did not), with the cause.
    const EtatBase& DernierEchec() const { return echec_; }

    // The lists of the opening dialog. A base that cannot be read gives empty lists (and the
    // relay list its last entry only).
    std::vector<std::string> Postes() override;
    std::vector<std::string> Departs(const std::string& poste) override;
    std::vector<std::string> Piquages(const std::string& poste, const std::string& depart) override;
    std::vector<std::string> Protections(const std::string& poste, const std::string& depart,
                                         const std::string& piquage) override;
    std::vector<int> Numeros(const std::string& poste, const std::string& depart,
                             const std::string& piquage, const std::string& protection) override;

    SignatureSauvegarde DerniereSauvegarde(const std::string& poste, const std::string& depart,
                                           const std::string& piquage,
                                           const std::string& protection, int numero) override;

    void Ouvrir(Etude& e, Dialogue& d) override;
    // SauverEtude.
    bool Sauver(Etude& e, Dialogue& d) override;
    bool SauverEtude(Etude& e, Dialogue& d) { return Sauver(e, d); }
    bool SauverDepuisSuperposition(Etude& e, Dialogue& d) override;
    // frmSupprimerPoste.
    std::unique_ptr<Panneau> PanneauSuppression(Etude& e, Dialogue& d) override;
    MagasinReglages& Magasin() override { return magasin_; }

    // Opens the base (making its tables when the file is new or empty) and takes it for writing:
    // the command's transaction starts. A base held by another writer is tried three more times,
    // then the user is asked ("&Try again", "&Leave"); a base that cannot be opened, or a file
    // that is not a base of this system, is reported and left untouched. False when the command
    // cannot go on. Does nothing when the connection is open already.
    bool OuvrirConnexion(Etude& e, Dialogue& d);
    // Ends the command: what it wrote is committed and the base is closed. False when the commit
    // failed, in which case nothing of the command was written.
    bool FermerConnexion(Etude& e);
    // The key of a new row: the largest id of the table plus one; 1 for an empty table, and 2
    // when every id is below 1. Inside a command.
    std::int32_t ProchainId(Table table);

    // The keys of the names of the study: id_poste (NouvelleLigne when unknown), id_depart
    // (NouvelleLigne when unknown), id_piquage (0 for no name), id_protection
    // (ProtectionInconnue when unknown). Unknown names give 0.
    void ChercherIdPoste(Etude& e);
    void ChercherIdDepart(Etude& e);
    void ChercherIdPiquage(Etude& e);
    void ChercherIdProtection(Etude& e);

    // The three cascades of the deletion dialog, each one command. False when the base could not
    // be reached or refused the deletion; nothing is then deleted.
    bool SupprimerProtection(Etude& e, Dialogue& d);
    bool SupprimerDepart(Etude& e, Dialogue& d);
    bool SupprimerPoste(Etude& e, Dialogue& d);

private:
    friend class MagasinTR;
    enum class Acces { Ouvert, Vide, Partage, Refuse, Etrangere };

    QSqlDatabase Db() const;
    // The statement of that text, prepared once for the connection.
    QSqlQuery& Q(const std::string& sql) { return cache_.Preparee(Db(), sql); }
    bool OuvrirFichier(bool lecture);
    // The write transaction of an attempt, with its locks; an error when the base refused.
    QSqlError PrendreEnEcriture();
    // Makes the tables of a new base, or brings those of an earlier version up to date.
    void MettreAJourSchema(Contenu contenu);
    // Closes the connection (a failure: the session is not to be trusted).
    void Fermer();
    // The end of a command that went well: the file is closed, a server's session kept.
    void Liberer();
    // One attempt at the write transaction; the schema is made in it when the base has no mark.
    Acces Tenter();
    // The read transaction; Vide for a missing or empty file or an SQLite file without tables.
    Acces TenterLecture();
    void FinLecture();
    void NoterEchec(EtatBase::Genre genre, const std::string& cause);
    // What a failure to take the base means: a lock, a file of another program, or a base that
    // cannot be read (or written); noted, and told as the access it gives.
    Acces ClasserEchec(const ErreurBase& x, const char* acces = "read");
    // Commits the command's transaction; throws when the base refuses (then rolled back).
    void Confirmer();
    void Abandonner(Etude& e);
    // Runs `travail` as one command; on failure the base is left as it was and the user is told
    // `echec` with the cause.
    bool Commande(Etude& e, Dialogue& d, const std::function<void()>& travail,
                  const std::string& echec);
    // Runs a read: in the command's transaction when one runs, else in a read transaction of
    // its own. `defaut` when the base cannot be read or holds nothing.
    template <class R> R Lecture(const std::function<R()>& lire, R defaut);

    bool Existe(Table table, std::int32_t id);
    // The keys of the line's names (id_poste, id_depart, id_piquage, NouvelleLigne) and, with
    // `protection`, of the relay's (id_protection, ProtectionInconnue); inside a command.
    void ChercherCles(Etude& e, bool protection);
    std::int32_t CleDuPoste(const std::string& nom);
    std::int32_t CleDuDepart(const std::string& nom, std::int32_t id_poste);
    std::int32_t CleDuPiquage(const std::string& nom, std::int32_t id_depart,
                              std::int32_t id_poste);
    std::int32_t CleDeProtection(const std::string& nom);

    // The save, step by step.
    bool Enregistrer(Etude& e, Dialogue& d, bool superposition);
    // The number of the relay, asked before the save takes the base when it is below 1. False
    // when the user gave none.
    bool DemanderNumero(Etude& e, Dialogue& d);
    // The keys of the line, inside the save's transaction: a key the base does not hold is
    // looked for by the names, so that two writers never make the same row.
    void ChercherClesSauvegarde(Etude& e);
    std::int32_t LigneDesLiens(const Etude& e);
    void SauverLigne(Etude& e);
    void SauverDepart(Etude& e);
    void SauverPiquage(Etude& e);
    void SauverPoste(Etude& e);
    void SauverProtection(Etude& e);
    void SauverTournesol(Etude& e);
    void SauverReglage(Etude& e, bool superposition);
    // The setting row id_reglage, with the report case and the start scale.
    void NouveauReglage(const Etude& e);

    // The opening.
    bool LireEtude(Etude& e);
    void LireLigne(Etude& e);
    void LireReglage(Etude& e);

    // The cascades inside a command.
    void SupprimerProtectionDans(Etude& e, bool chercher);
    void SupprimerDepartDans(Etude& e, bool chercher);
    void SupprimerPosteDans(Etude& e);

    // The store's SQL.
    void EcrireValeurTR(std::int32_t id_key, std::int32_t id_pos, const ValeurTR& valeur);
    ValeurTR LireValeurTR(std::int32_t id_key, std::int32_t id_pos);

    std::string rep_;
    std::optional<AdresseServeur> serveur_;
    bool adresseIllisible_ = false; // a server's address that cannot be read
    std::string fichier_;
    // Who saves, and when, for the command under way.
    std::string auteur_;
    std::string horodatage_;
    QString nomConnexion_;
    int attente_;
    bool question_;
    bool transaction_ = false;
    bool lecture_ = false; // the transaction under way is a read
    bool lectureSeule_ = false;
    Contenu contenu_ = Contenu::Vide; // what the last transaction found in the base
    // The list of substations read last, with the file's count of their changes and the last
    // entry of its journal then (none where the file keeps no journal).
    struct PostesLus {
        std::int64_t compte = 0;
        std::optional<std::int64_t> journal;
        std::vector<std::string> noms;
    };
    std::optional<PostesLus> postes_;
    // The kept list brought up to the journal's end; false when it cannot be (no journal, or
    // more changes than a whole read costs).
    bool SuivreJournalPostes(PostesLus& lus);
    bool fichierNeuf_ = false;   // the write connection made the file
    bool relaisInconnu_ = false; // the save met a relay outside the registry
    CacheRequetes cache_;
    EtatBase echec_;
    std::optional<std::string> erreurMagasin_; // TR refused inside the command: the first cause
    MagasinTR magasin_;
};

} // namespace tournesol
