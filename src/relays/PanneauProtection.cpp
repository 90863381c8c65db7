#include "relays/PanneauProtection.h"

#include "core/ChampIndice.h"
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Registre.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace tournesol {

namespace {

constexpr const char* CHK_TELEACTION = "chkTéléaction";
constexpr const char* CHK_ACCELERATION = "chkaccélération";
constexpr const char* CHK_VERROUILLAGE = "chkVerrouillage";

TraceValidation& TraceInscrite() {
    static TraceValidation trace;
    return trace;
}

std::string NomDuPanneau(int id) {
    if (id < 1 || id > NOMBRE_RELAIS) return "frmProtection";
    return std::string(PANNEAUX_PROTECTION[static_cast<std::size_t>(id - 1)]);
}

} // namespace

void InscrireTraceValidation(TraceValidation trace) {
    TraceInscrite() = std::move(trace);
}

PanneauProtection::PanneauProtection(Etude& e, Dialogue& d, int id_protection)
    : Panneau(NomDuPanneau(id_protection)), e_(e), d_(d), id_(id_protection) {
    DefinirTitre("TOURNESOL [" + e.NomPoste + "]");
    Ajouter(GenreChamp::Bouton, "Command1", "OK");
}

bool PanneauProtection::ModeRetour() const {
    return e_.PanneauRelais;
}

const DescriptionChamp* PanneauProtection::Description(const std::string& nom) const {
    return table_ ? table_->Trouver(nom) : nullptr;
}

void PanneauProtection::DeclarerOnglets(std::vector<std::string> titres) {
    onglets_ = std::move(titres);
}

void PanneauProtection::DeclarerChamps(const TableChamps& table) {
    table_ = &table;
    const auto& lignes = table.Lignes();
    PrevoirChamps(lignes.size());
    debutTable_ = NombreChamps();
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        const DescriptionChamp& d = lignes[i];
        // The table's texts are seen where they stand: the table outlives every panel.
        Champ& c = Ajouter(d.Genre, d.Nom, "");
        c.Groupe = TexteFixe::Vue(d.Groupe);
        c.Format = d.Format;
        if (d.Genre == GenreChamp::Texte || d.Genre == GenreChamp::Liste) {
            c.Legende = TexteFixe::Vue(table.LegendeComplete(i));
            c.Actif = d.Saisie;
        } else {
            c.DefinirTexte(table.LegendeComplete(i));
        }
    }
}

void PanneauProtection::DeclarerEtapes(std::vector<EtapeCalcul> etapes) {
    etapes_ = std::move(etapes);
}

std::vector<DescriptionChamp> ChampsTeleaction(const std::string& groupe,
                                               const std::string& legendeTeleaction,
                                               const std::string& legendeAcceleration,
                                               const std::string& legendeVerrouillage) {
    auto option = [&](const char* nom, const std::string& legende, Variable v) {
        DescriptionChamp d;
        d.Nom = nom;
        d.Legende = legende;
        d.Groupe = groupe;
        d.Genre = GenreChamp::Case;
        d.Valeur = std::move(v);
        return d;
    };
    return {option(CHK_TELEACTION, legendeTeleaction, Lien(&Etude::Teleaction)),
            option(CHK_ACCELERATION, legendeAcceleration, Lien(&Etude::Acceleration)),
            option(CHK_VERROUILLAGE, legendeVerrouillage, Lien(&Etude::Verrouillage))};
}

void PanneauProtection::DeclarerTeleaction() {
    teleaction_ = true;
    AfficherTeleaction();
}

void PanneauProtection::DeclarerAvisCentrale(std::string nomRelais) {
    avisCentrale_ = std::move(nomRelais);
}

bool PanneauProtection::Commande(const std::function<void()>& commande) {
    return ExecuterCalcul(e_, commande);
}

void PanneauProtection::MessagesDuPanneau() {
    e_.sTitre = TITRE_MESSAGES;
    e_.IconeMessage = ICONE_MESSAGES;
}

void PanneauProtection::Ouvrir() {
    MessagesDuPanneau();
    if (!e_.QuestionOuverte) ChargerPanneau();
    if (e_.ErrCalcul != 0 && !e_.Superposition) FermerPanneau();
}

void PanneauProtection::Activer() {
    if (e_.QuestionOuverte) return;
    if (e_.ErrCalcul == 0) ChargerPanneau();
    if (e_.ErrCalcul != 0) FermerPanneau();
}

void PanneauProtection::ChargerPanneau() {
    Commande([this] {
        LireTeleaction();
        LireOptions();
    });
    ChoixOnglet(0);
}

void PanneauProtection::LireTeleaction() {
    if (!teleaction_) return;
    if (ModeRetour()) {
        e_.Teleaction = TeleactionParDefaut();
        e_.Acceleration = e_.Ligne_lc;
        e_.Verrouillage = !e_.Ligne_lc;
    }
    AfficherTeleaction();
}

void PanneauProtection::AfficherTeleaction() {
    Champ* teleaction = Trouver(CHK_TELEACTION);
    Champ* acceleration = Trouver(CHK_ACCELERATION);
    Champ* verrouillage = Trouver(CHK_VERROUILLAGE);
    if (!teleaction || !acceleration || !verrouillage) return;
    teleaction->Valeur = e_.Teleaction;
    acceleration->Valeur = e_.Acceleration;
    verrouillage->Valeur = e_.Verrouillage;
    acceleration->Actif = verrouillage->Actif = e_.Teleaction;
}

void PanneauProtection::ChoixOnglet(int i) {
    // A failed sheet is not computed again when it is left: the failure stays for the caller.
    if (e_.ErrCalcul == 0 && !Commande([this] { RecalculOnglet(ongletCourant_); })) return;
    e_.ErrCalcul = 0;
    MessagesDuPanneau();
    if (!avisCentrale_.empty() && (e_.Ligne_alim == 1 || e_.Ligne_alim == 2)) {
        e_.sMessage = AVIS_CENTRALE + avisCentrale_ + ".";
        AfficherMessage(e_, d_);
    }
    if (ModeRetour() && i < ongletCourant_) {
        e_.sMessage = id_ == 3 ? QUESTION_RETOUR_PD3A : QUESTION_RETOUR;
        e_.BoutonsQuestion = {"&Continue", "&cancel", ""};
        e_.QuestionOuverte = true;
        PoserQuestion(e_, d_);
        d_.LaisserPasserEvenements();
        e_.QuestionOuverte = false;
        if (e_.ReponseQuestion > 0) return;
    }
    Commande([this, i] { ChoixOngletGarde(i); });
}

void PanneauProtection::ChoixOngletGarde(int i) {
    if (i < 0 || i >= NombreOnglets()) LeverErreur(ERR_INDICE);
    ongletCourant_ = i;
}

void PanneauProtection::RecalculOnglet(int i) {
    if (i < 0 || i >= static_cast<int>(etapes_.size())) return;
    for (auto k = static_cast<std::size_t>(i); k < etapes_.size(); ++k)
        etapes_[k].Calcul();
    Afficher();
}

void PanneauProtection::RecalculDepuis(const std::string& etape) {
    const auto it = std::find_if(etapes_.begin(), etapes_.end(),
                                 [&](const EtapeCalcul& x) { return x.Nom == etape; });
    if (it == etapes_.end()) LeverErreur(ERR_INDICE);
    RecalculOnglet(static_cast<int>(it - etapes_.begin()));
}

void PanneauProtection::AfficherChamps() {
    const std::vector<DescriptionChamp>* lignes = table_ ? &table_->Lignes() : nullptr;
    for (std::size_t i = 0; lignes && i < lignes->size(); ++i) {
        const DescriptionChamp& d = (*lignes)[i];
        if (!d.Valeur) continue;
        Champ& c = ChampNumero(debutTable_ + i);
        if (d.Genre == GenreChamp::Case || d.Genre == GenreChamp::Option)
            c.Valeur = d.Valeur.Lire(e_) != 0.0;
        else
            ChampEcrire(c, d.Valeur.Lire(e_));
    }
    AfficherTeleaction();
}

void PanneauProtection::ValiderBouton() {
    Commande([this] { RecalculOnglet(ongletCourant_); });
    if (ModeRetour() && e_.ErrCalcul == 0) {
        Commande([this] {
            const double demiLargeur = std::min(Verifier(DemiLargeurPlan()), DEMI_LARGEUR_MAX);
            // A relay without a reach leaves the plane as it was.
            if (demiLargeur > 0.0) {
                const auto l = static_cast<float>(demiLargeur);
                e_.ScaleLeft = -l;
                e_.ScaleTop = l;
                e_.ScaleWidth = 2.0F * l;
                e_.ScaleHeight = -2.0F * l;
            }
            e_.DiagramActuel = false;
            if (TraceInscrite()) TraceInscrite()(e_);
            e_.EtudeModifiee = true;
        });
    }
    FermerPanneau();
}

void PanneauProtection::Raccourci(char lettre, bool altEnfonce) {
    altActif_ = altEnfonce;
    if (!altActif_ || lettre == '\0') return;
    const char majuscule = static_cast<char>(std::toupper(static_cast<unsigned char>(lettre)));
    const char* position = std::strchr(LETTRES_ONGLETS, majuscule);
    if (!position) return;
    const auto onglet = static_cast<int>(position - LETTRES_ONGLETS);
    if (onglet >= NombreOnglets()) return; // a sheet this relay does not have: nothing happens
    if (!Commande([this] { RecalculOnglet(ongletCourant_); })) return;
    ChoixOnglet(onglet);
}

void PanneauProtection::Entrer(const std::string& champ) {
    if (Champ* c = Trouver(champ)) ChampSelection(*c);
}

void PanneauProtection::Quitter(const std::string& champ) {
    const DescriptionChamp* d = Description(champ);
    Champ* c = Trouver(champ);
    if (!d || !c || !d->Saisie || d->Genre != GenreChamp::Texte) return;
    Commande([this, d, c] { SortieChamp(*d, *c); });
}

void PanneauProtection::SortieChamp(const DescriptionChamp& d, Champ& champ) {
    const double valeur = ArrondirAuPas(d, LimiterValeur(d, ChampLire(champ)));
    if (d.Valeur) d.Valeur.Ecrire(e_, valeur);
    ChampEcrire(champ, valeur);
    if (Champ* jumeau = d.Jumeau.empty() ? nullptr : Trouver(d.Jumeau)) {
        double image = valeur;
        if (d.Colonne == ColonneOhms::Secondaire) image = Verifier(valeur * e_.Kz);
        if (d.Colonne == ColonneOhms::Primaire) image = Div(valeur, e_.Kz);
        const DescriptionChamp* dj = Description(d.Jumeau);
        if (dj && dj->Valeur) dj->Valeur.Ecrire(e_, image);
        ChampEcrire(*jumeau, image);
    }
    ApresSaisie(d, valeur);
}

void PanneauProtection::Cliquer(const std::string& nom) {
    if (nom == "Command1") {
        ValiderBouton();
        return;
    }
    auto onglet = IndiceDe(nom, "Onglet");
    if (!onglet) onglet = IndiceDe(nom, "TitreOnglet");
    if (onglet) {
        ChoixOnglet(*onglet);
        return;
    }
    if (teleaction_ &&
        (nom == CHK_TELEACTION || nom == CHK_ACCELERATION || nom == CHK_VERROUILLAGE)) {
        ClicTeleaction(nom);
        return;
    }
    Commande([this, &nom] {
        const DescriptionChamp* d = Description(nom);
        Champ* c = Trouver(nom);
        if (d && c && (d->Genre == GenreChamp::Option || d->Genre == GenreChamp::Case))
            ClicOption(*d, *c);
        ApresClic(nom);
    });
}

void PanneauProtection::ClicOption(const DescriptionChamp& d, Champ& champ) {
    if (d.Genre == GenreChamp::Option && champ.Valeur) {
        // The options of one frame exclude each other.
        for (const DescriptionChamp& autre : table_->Lignes()) {
            if (autre.Genre != GenreChamp::Option || autre.Groupe != d.Groupe || autre.Nom == d.Nom)
                continue;
            if (Champ* c = Trouver(autre.Nom)) c->Valeur = false;
            if (autre.Valeur) autre.Valeur.Ecrire(e_, 0.0);
        }
    }
    if (d.Valeur) d.Valeur.Ecrire(e_, champ.Valeur ? 1.0 : 0.0);
}

void PanneauProtection::ClicTeleaction(const std::string& nom) {
    const bool valeur = Trouver(nom)->Valeur;
    if (nom == CHK_TELEACTION) {
        e_.Teleaction = valeur;
    } else if (nom == CHK_ACCELERATION) {
        e_.Acceleration = valeur;
        e_.Verrouillage = !valeur;
    } else {
        e_.Verrouillage = valeur;
        e_.Acceleration = !valeur;
    }
    AfficherTeleaction();
    Commande([this] { RecalculZones(); });
}

void PanneauProtection::Touche(int code) {
    if (code == TOUCHE_ENTREE) ValiderBouton();
}

bool PanneauProtection::Fermer() {
    ValiderBouton();
    return true;
}

} // namespace tournesol
