#include "shell/PanneauTitre.h"

#include "core/BaseEtudes.h"
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Registre.h"
#include "network/PanneauOptionsReseau.h"
#include "shell/Ouverture.h"

#include <algorithm>

namespace tournesol {

namespace {

const char* const PAGE1 = "options(0)";
const char* const PAGE2 = "options(1)";
const char* const INDICE_DEPART = "Tu dois sélectionner un poste préalablement";
const char* const INDICE_PIQUAGE = "Tu dois sélectionner un poste et un départ préalablement";
const char* const INDICE_PROTECTION =
    "Tu dois sélectionner un poste, un départ et un piquage (si il existe) préalablement";

std::string Option(int id) {
    return "Option3D1(" + std::to_string(id) + ")";
}

// The names of one page's boxes.
struct Boites {
    const char *poste, *depart, *piquage, *protection, *label, *numero, *signature;
};
constexpr Boites PREMIERE = {"txtposte",  "txtDépart", "txtPiquage", "txtProtection",
                             "lblnuméro", "txtnuméro", "lblsauvé"};
constexpr Boites SECONDE = {"txtposte2",  "txtdépart2", "txtPiquage2", "txtProtection2",
                            "lblnuméro2", "txtnuméro2", "lblsauvé2"};

// The relay number of the box: exactly "1" to "6", else 0.
int NumeroDe(const std::string& n) {
    return n.size() == 1 && n[0] >= '1' && n[0] <= '6' ? n[0] - '0' : 0;
}

// Who saved the relay last and when, as the dialog shows it: "saved by jdupont on 2026-03-14
// 09:26:53 UTC".
std::string TexteSignature(const SignatureSauvegarde& s) {
    std::string date = s.date;
    if (date.size() == 20 && date[10] == 'T' && date.back() == 'Z')
        date = date.substr(0, 10) + " " + date.substr(11, 8) + " UTC";
    return "saved by " + (s.auteur.empty() ? std::string("?") : s.auteur) +
           (date.empty() ? std::string() : " on " + date);
}

const Boites* PageDe(const std::string& champ) {
    for (const Boites* b : {&PREMIERE, &SECONDE})
        for (const char* nom : {b->poste, b->depart, b->piquage, b->protection, b->numero})
            if (champ == nom) return b;
    return nullptr;
}

} // namespace

// ---- frmChoixProtection ----

const std::array<std::string_view, 12>& PanneauChoixProtection::Legendes() {
    return LEGENDES_PROTECTION;
}

std::vector<std::string> PanneauChoixProtection::OrdreDesBoutons() {
    // The dialog lists the relays by name; the numbers stay those of the registry.
    std::vector<int> ids(NOMBRE_RELAIS);
    for (int i = 0; i < NOMBRE_RELAIS; ++i)
        ids[static_cast<std::size_t>(i)] = i + 1;
    std::sort(ids.begin(), ids.end(), [](int a, int b) {
        return LEGENDES_PROTECTION[static_cast<std::size_t>(a - 1)] <
               LEGENDES_PROTECTION[static_cast<std::size_t>(b - 1)];
    });
    std::vector<std::string> noms;
    for (const int id : ids)
        noms.push_back(Option(id));
    return noms;
}

PanneauChoixProtection::PanneauChoixProtection(Etude& e, Dialogue& /*d*/)
    : Panneau("frmChoixProtection"), e_(e), modifieeAvant_(e.EtudeModifiee) {
    DefinirTitre("TOURNESOL [" + e.NomPoste + "]");
    Ajouter(GenreChamp::Etiquette, "Frame1", "choose a relay...", "Frame1");
    for (const std::string& nom : OrdreDesBoutons()) {
        const int id = std::stoi(nom.substr(10));
        Champ& c =
            Ajouter(GenreChamp::Option, nom,
                    std::string(LEGENDES_PROTECTION[static_cast<std::size_t>(id - 1)]), "Frame1");
        c.Valeur = id == e.id_protection;
    }
    selection_ = e.id_protection >= 1 && e.id_protection <= NOMBRE_RELAIS ? e.id_protection : 0;
    // The relay typed in the opening dialog is the one chosen on arrival.
    for (int id = 1; id <= NOMBRE_RELAIS; ++id)
        if (!e.NomProtection.empty() &&
            e.NomProtection == LEGENDES_PROTECTION[static_cast<std::size_t>(id - 1)])
            selection_ = id;
    for (int id = 1; id <= NOMBRE_RELAIS; ++id)
        Trouver(Option(id))->Valeur = id == selection_;
    Ajouter(GenreChamp::Bouton, "Command1", "&OK");
    Ajouter(GenreChamp::Bouton, "Command2", "&cancel");
}

void PanneauChoixProtection::Cliquer(const std::string& nom) {
    if (BoutonsOkAnnuler(nom)) {
        return;
    } else if (nom.rfind("Option3D1(", 0) == 0) {
        selection_ = std::stoi(nom.substr(10));
        for (int id = 1; id <= NOMBRE_RELAIS; ++id)
            Trouver(Option(id))->Valeur = id == selection_;
        e_.EtudeModifiee = true;
        e_.NomProtection = Trouver(nom)->Texte();
    }
}

void PanneauChoixProtection::Valider() {
    e_.ProtectionChoisie = selection_;
    e_.id_protection = selection_;
    e_.DiagramActuel = false;
    e_.ImpressionActuelle = false;
    FermerPanneau();
}

void PanneauChoixProtection::Annuler() {
    e_.EtudeModifiee = modifieeAvant_;
    e_.ErrCalcul = ERR_SIGNALEE;
    FermerPanneau();
}

bool PanneauChoixProtection::Fermer() {
    Annuler();
    return true;
}

// ---- frmAPropos ----

PanneauAPropos::PanneauAPropos() : Panneau("frmAPropos") {
    DefinirTitre("TOURNESOL : About ...");
    Ajouter(GenreChamp::Etiquette, "lblAnnee", "1997");
    Ajouter(GenreChamp::Etiquette, "lblTexte",
            "Programme d'aide au calcul des réglages des protections de distance sur les réseaux "
            "de transport d'énergie à haute et très haute tension.");
}

// ---- frmtitre ----

PanneauTitre::PanneauTitre(Etude& e, Dialogue& d, BaseEtudes* base)
    : Panneau("frmtitre"), e_(e), d_(d), base_(base) {
    DefinirTitre("TOURNESOL");
    const char* const legendes[] = {"Name of substation  &A ", "Name of substation &B",
                                    "Name of substation  C", "Name of the relay"};
    const char* const legendes2[] = {"Name of substation  &A", "Name of substation &B",
                                     "Name of substation  &C", "Name of the relay"};
    for (const auto& [boites, page, noms] :
         {std::tuple{PREMIERE, PAGE1, legendes}, std::tuple{SECONDE, PAGE2, legendes2}}) {
        const char* champs[] = {boites.poste, boites.depart, boites.piquage, boites.protection};
        for (int i = 0; i < 4; ++i)
            Ajouter(GenreChamp::Liste, champs[i], "", page).Legende = noms[i];
        Ajouter(GenreChamp::Etiquette, boites.label, "Number of the r&elay", page).Visible = false;
        Ajouter(GenreChamp::Liste, boites.numero, "", page).Visible = false;
        Ajouter(GenreChamp::Etiquette, boites.signature, "", page).Visible = false;
    }
    Ajouter(GenreChamp::Case, "chksuperposer", "superpose two relays");
    Ajouter(GenreChamp::Bouton, "TitreOnglet(0)", "First relay");
    Ajouter(GenreChamp::Bouton, "TitreOnglet(1)", "Second relay").Visible = false;
    Ajouter(GenreChamp::Bouton, "cmdOK", "&Open").Actif = false;
    Ajouter(GenreChamp::Bouton, "cmdSupprimer", "&delete").Actif = base != nullptr;
    Ajouter(GenreChamp::Bouton, "cmdQuitter", "&Leave");
    Ajouter(GenreChamp::Bouton, "a_propos", "&About...");
    Ajouter(GenreChamp::Etiquette, "Status", "You must previously choose the substations A and B");
    if (base_) {
        RemplirListe(PREMIERE.poste, base_->Postes());
        RemplirListe(SECONDE.poste, base_->Postes());
    }
    ChoisirPage(0);
}

void PanneauTitre::RemplirListe(const char* nom, std::vector<std::string> entrees) {
    Champ& c = *Trouver(nom);
    c.Liste = std::move(entrees);
    c.IndexListe = -1;
    const auto it = std::find(c.Liste.begin(), c.Liste.end(), c.Texte());
    if (it != c.Liste.end()) c.IndexListe = static_cast<int>(it - c.Liste.begin());
}

bool PanneauTitre::DeuxiemeRempli() {
    return !Trouver("chksuperposer")->Valeur ||
           (!T(SECONDE.poste).empty() && !T(SECONDE.depart).empty() &&
            !T(SECONDE.protection).empty());
}

void PanneauTitre::ReglerOK() {
    Trouver("cmdOK")->Actif = !T(PREMIERE.poste).empty() && !T(PREMIERE.depart).empty() &&
                              !T(PREMIERE.protection).empty() && DeuxiemeRempli();
}

void PanneauTitre::Indice(const std::string& message) {
    Champ& status = *Trouver("Status");
    status.Visible = !message.empty();
    if (!message.empty()) status.DefinirTexte(message);
}

void PanneauTitre::AutoriserSuppression() {
    Trouver("cmdSupprimer")->Actif =
        base_ != nullptr && !e_.NouvelleLigne && !Trouver("chksuperposer")->Valeur;
}

void PanneauTitre::ReglerNumero(const char* protection, const char* label, const char* numero) {
    const std::string& texte = T(protection);
    const bool visible = !texte.empty() && texte != NOUVELLE_PROTECTION;
    Trouver(label)->Visible = visible;
    Trouver(numero)->Visible = visible;
}

void PanneauTitre::ChoisirPage(int page) {
    page_ = page == 1 ? 1 : 0;
    if (Trouver("chksuperposer")->Valeur)
        Trouver("cmdOK")->Actif = !T(PREMIERE.protection).empty() && !T(SECONDE.protection).empty();
}

void PanneauTitre::Entrer(const std::string& champ) {
    if (Champ* c = Trouver(champ)) ChampSelection(*c);
    const Boites* b = PageDe(champ);
    if (!b) return;
    const bool aVide = T(b->poste).empty(), bVide = T(b->depart).empty();
    if (champ == b->poste) {
        Indice("");
        ReglerOK();
    } else if (champ == b->depart) {
        Indice(aVide ? INDICE_DEPART : "");
        ReglerOK();
    } else if (champ == b->piquage) {
        Indice(aVide || bVide ? INDICE_PIQUAGE : "");
        ReglerOK();
    } else if (champ == b->protection) {
        e_.Superposition = Trouver("chksuperposer")->Valeur;
        if (b == &PREMIERE) {
            e_.NomPoste = T(b->poste);
            e_.NomDepart = T(b->depart);
            e_.NomPiquage = T(b->piquage);
        }
        // Once the line is named, the hint says what comes next.
        Indice(aVide || bVide ? INDICE_PROTECTION : "click on open");
        Trouver("cmdOK")->Actif =
            !T(PREMIERE.poste).empty() && !T(PREMIERE.depart).empty() && DeuxiemeRempli();
    } else if (champ == b->numero) {
        Indice("");
    }
}

void PanneauTitre::Quitter(const std::string& champ) {
    const Boites* b = PageDe(champ);
    if (!b) return;
    const bool premiere = b == &PREMIERE;
    if (champ == b->poste) {
        if (premiere && T(b->poste) != e_.NomPoste) {
            Trouver(b->depart)->DefinirTexte({});
            Trouver(b->piquage)->DefinirTexte({});
            Trouver(b->protection)->IndexListe = -1;
        }
        if (premiere) {
            e_.NomPoste = T(b->poste);
            e_.NomDepart = T(b->depart);
            e_.NomPiquage = T(b->piquage);
            AutoriserSuppression();
        }
        if (base_) RemplirListe(b->depart, base_->Departs(T(b->poste)));
    } else if (champ == b->depart) {
        if (premiere && T(b->depart) != e_.NomDepart) {
            Trouver(b->piquage)->DefinirTexte({});
            Trouver(b->protection)->IndexListe = -1;
        }
        if (premiere) {
            e_.NomDepart = T(b->depart);
            e_.NomPiquage = T(b->piquage);
            AutoriserSuppression();
        }
        if (base_) {
            RemplirListe(b->piquage, base_->Piquages(T(b->poste), T(b->depart)));
            RemplirListe(b->protection,
                         base_->Protections(T(b->poste), T(b->depart), T(b->piquage)));
        }
    } else if (champ == b->piquage) {
        if (premiere) {
            e_.NomPiquage = T(b->piquage);
            AutoriserSuppression();
        }
        if (base_)
            RemplirListe(b->protection,
                         base_->Protections(T(b->poste), T(b->depart), T(b->piquage)));
    } else if (champ == b->protection) {
        e_.Superposition = Trouver("chksuperposer")->Valeur;
        if (premiere) {
            e_.NomProtection = T(b->protection);
            e_.IdxProtection = static_cast<Entier16>(Trouver(b->protection)->IndexListe);
            AutoriserSuppression();
        }
        if (base_) {
            std::vector<std::string> numeros;
            for (const int n :
                 base_->Numeros(T(b->poste), T(b->depart), T(b->piquage), T(b->protection)))
                numeros.push_back(std::to_string(n));
            RemplirListe(b->numero, numeros);
        }
        MontrerSignature(premiere ? 0 : 1);
    } else if (champ == b->numero) {
        if (premiere) e_.id_numero = static_cast<Entier16>(NumeroDe(T(b->numero)));
        MontrerSignature(premiere ? 0 : 1);
    }
}

void PanneauTitre::MontrerSignature(int page) {
    const Boites& b = page == 0 ? PREMIERE : SECONDE;
    Champ& etiquette = *Trouver(b.signature);
    const int numero = NumeroDe(T(b.numero));
    SignatureSauvegarde s;
    if (base_ && numero > 0 && !T(b.protection).empty() && T(b.protection) != NOUVELLE_PROTECTION)
        s = base_->DerniereSauvegarde(T(b.poste), T(b.depart), T(b.piquage), T(b.protection),
                                      numero);
    etiquette.Visible = !s.Vide();
    etiquette.DefinirTexte(s.Vide() ? std::string() : TexteSignature(s));
}

void PanneauTitre::Changer(const std::string& champ) {
    if (champ == PREMIERE.protection)
        ReglerNumero(PREMIERE.protection, PREMIERE.label, PREMIERE.numero);
    else if (champ == SECONDE.protection)
        ReglerNumero(SECONDE.protection, SECONDE.label, SECONDE.numero);
}

void PanneauTitre::Cliquer(const std::string& nom) {
    if (nom == "chksuperposer") {
        const bool deux = Trouver("chksuperposer")->Valeur;
        Trouver("TitreOnglet(1)")->Visible = deux;
        e_.Superposition = deux;
        Trouver("cmdSupprimer")->Actif = !deux && base_ != nullptr;
        for (const char* boite : {PREMIERE.poste, PREMIERE.depart, PREMIERE.piquage, SECONDE.poste,
                                  SECONDE.depart, SECONDE.piquage})
            Trouver(boite)->DefinirTexte({});
        Trouver(PREMIERE.protection)->IndexListe = -1;
        Trouver(SECONDE.protection)->IndexListe = -1;
        ChoisirPage(0);
    } else if (nom == "TitreOnglet(0)" || nom == "TitreOnglet(1)") {
        ChoisirPage(nom == "TitreOnglet(1)" ? 1 : 0);
    } else if (nom == "cmdOK") {
        if (Trouver("cmdOK")->Actif) Ouvrir();
    } else if (nom == "cmdQuitter") {
        if (Trouver("cmdQuitter")->Actif && PeutQuitterEtude(e_, d_, base_)) {
            e_.QuitterAppli = true;
            FermerPanneau();
        }
    } else if (nom == "cmdSupprimer") {
        if (base_) {
            if (auto panneau = base_->PanneauSuppression(e_, d_)) {
                d_.MontrerPanneau(*panneau);
                // What was deleted is gone from the boxes and from the lists.
                Trouver(PREMIERE.poste)->DefinirTexte(e_.NomPoste);
                Trouver(PREMIERE.depart)->DefinirTexte(e_.NomDepart);
                Trouver(PREMIERE.piquage)->DefinirTexte(e_.NomPiquage);
                Trouver(PREMIERE.protection)->IndexListe = -1;
                RemplirListe(PREMIERE.poste, base_->Postes());
                RemplirListe(PREMIERE.depart, base_->Departs(e_.NomPoste));
                RemplirListe(PREMIERE.protection,
                             base_->Protections(e_.NomPoste, e_.NomDepart, e_.NomPiquage));
            }
        }
        Trouver("cmdOK")->Actif =
            !T(PREMIERE.poste).empty() && !T(PREMIERE.depart).empty() && DeuxiemeRempli();
    } else if (nom == "a_propos") {
        PanneauAPropos apropos;
        d_.MontrerPanneau(apropos);
    }
}

void PanneauTitre::Touche(int code) {
    if (code == TOUCHE_ENTREE && Trouver("cmdOK")->Actif)
        Cliquer("cmdOK");
    else if (code == TOUCHE_ECHAP)
        Cliquer("cmdQuitter");
}

bool PanneauTitre::Fermer() {
    FermerPanneau();
    return true;
}

bool PanneauTitre::ChoixProtection(Etude& e, Dialogue& d, bool second) {
    const bool sablier = d.Sablier(true);
    d.LaisserPasserEvenements();
    d.Sablier(sablier);
    PanneauChoixProtection choix(e, d);
    d.MontrerPanneau(choix);
    d.Sablier(true);
    if (e.ErrCalcul == 0 && !second) {
        for (double& x : e.Ligne_XL)
            if (x == 0.0) x = 1.0;
        e.ScaleLeft = -20.0f;
        e.ScaleWidth = 40.0f;
        e.ScaleTop = 20.0f;
        e.ScaleHeight = -40.0f;
        e.EchelleChargee1 = e.EchelleChargee2 = true;
    }
    if (e.ErrCalcul == 0) e.EtudeModifiee = false;
    d.Sablier(sablier);
    d.LaisserPasserEvenements();
    return e.ErrCalcul == 0;
}

void PanneauTitre::Ouvrir() {
    e_.ErrCalcul = 0;
    e_.Superposition = Trouver("chksuperposer")->Valeur;
    e_.EchelleChargee1 = e_.EchelleChargee2 = false;
    e_.DiagramActuel = false;

    e_.Nom1Poste = T(PREMIERE.poste);
    e_.Nom1Depart = T(PREMIERE.depart);
    e_.Nom1Piquage = T(PREMIERE.piquage);
    e_.Nom1Protection = T(PREMIERE.protection);
    e_.Nom2Poste = T(SECONDE.poste);
    e_.Nom2Depart = T(SECONDE.depart);
    e_.Nom2Piquage = T(SECONDE.piquage);
    e_.Nom2Protection = T(SECONDE.protection);
    e_.Idx1Protection = static_cast<Entier16>(Trouver(PREMIERE.protection)->IndexListe);
    e_.Idx2Protection = static_cast<Entier16>(Trouver(SECONDE.protection)->IndexListe);
    Quitter(PREMIERE.numero); // the number as the box holds it
    e_.Numero1 = e_.id_numero;
    e_.Numero2 = static_cast<Entier16>(NumeroDe(T(SECONDE.numero)));
    e_.NomPoste = e_.Nom1Poste;
    e_.NomDepart = e_.Nom1Depart;
    e_.NomPiquage = e_.Nom1Piquage;
    e_.NomProtection = e_.Nom1Protection;
    e_.IdxProtection = e_.Idx1Protection;
    e_.LigneTroisBouts = !e_.NomPiquage.empty();

    if (!ChoixProtection(e_, d_, false)) {
        Champ& protection = *Trouver(PREMIERE.protection);
        if (e_.IdxProtection >= 0 &&
            static_cast<std::size_t>(e_.IdxProtection) < protection.Liste.size())
            protection.DefinirTexte(protection.Liste[static_cast<std::size_t>(e_.IdxProtection)]);
        return;
    }
    Trouver("cmdSupprimer")->Actif = false;
    PreparerOuverture(e_);
    e_.OuvertureOK = true;
    if (base_) base_->Ouvrir(e_, d_);
    if (e_.NouvelleLigne) ViderLigne(e_);
    // The network options panel, made unseen, puts the network defaults into the study.
    const PanneauOptionsReseau options(e_);
    FermerPanneau();
}

} // namespace tournesol
