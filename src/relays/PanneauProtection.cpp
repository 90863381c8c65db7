#include "relays/PanneauProtection.h"

#include "core/ChampIndice.h"
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Registre.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>

namespace tournesol {

namespace {

// The quiet stop of a chain: thrown by ArreterChaine, caught where the chain runs.
struct ArretChaine {};

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

CadrePlan CadrePlan::HautBas(double haut, double bas) {
    // Each side capped first: the half width is the mean of the sides shown.
    const double h = std::min(haut, PanneauProtection::DEMI_LARGEUR_MAX);
    const double b = std::max(bas, -PanneauProtection::DEMI_LARGEUR_MAX);
    return {h, b, (std::fabs(h) + std::fabs(b)) / 2.0};
}

const Signalisation& SignalisationCommune() {
    static const Signalisation commune;
    return commune;
}

std::string PanneauProtection::AvisCentrale(const std::string& nomRelais) {
    return AVIS_CENTRALE + nomRelais + ".";
}

PanneauProtection::PanneauProtection(Etude& e, Dialogue& d, int id_protection)
    : PanneauTable(NomDuPanneau(id_protection), e), d_(d), id_(id_protection) {
    DefinirTitre("TOURNESOL [" + e.NomPoste + "]");
    Ajouter(GenreChamp::Bouton, "Command1", "OK");
}

bool PanneauProtection::ModeRetour() const {
    return e_.PanneauRelais;
}

void PanneauProtection::DeclarerEtapes(std::vector<EtapeCalcul> etapes) {
    etapes_ = std::move(etapes);
}

std::vector<DescriptionChamp> ChampsTeleaction(const std::string& groupe,
                                               const std::string& legendeTeleaction,
                                               const std::string& legendeAcceleration,
                                               const std::string& legendeVerrouillage,
                                               const Signalisation& options) {
    auto option = [&](const std::string& nom, const std::string& legende, Variable v) {
        DescriptionChamp d;
        d.Nom = nom;
        d.Legende = legende;
        d.Groupe = groupe;
        d.Genre = GenreChamp::Case;
        d.Valeur = std::move(v);
        return d;
    };
    std::vector<DescriptionChamp> lignes{
        option(options.Teleaction, legendeTeleaction, options.VTeleaction),
        option(options.Acceleration, legendeAcceleration, options.VAcceleration),
        option(options.Verrouillage, legendeVerrouillage, options.VVerrouillage)};
    // A blocking without a variable of its own is shown by the panel, as the negation.
    if (!options.VVerrouillage) lignes.back().Valeur = {};
    return lignes;
}

void PanneauProtection::DeclarerTeleaction(const Signalisation& options) {
    teleaction_ = &options;
    AfficherTeleaction();
}

void PanneauProtection::DeclarerAvisCentrale(std::string avis) {
    avisCentrale_ = std::move(avis);
}

void PanneauProtection::ArreterChaine(const std::string& message) {
    MessagesDuPanneau();
    e_.sMessage = message;
    AfficherMessage(e_, d_);
    chaineArretee_ = true;
    throw ArretChaine{};
}

bool PanneauProtection::Commande(const std::function<void()>& commande) {
    return ExecuterCalcul(e_, [&] {
        try {
            commande();
        } catch (const ArretChaine&) {
            // A stop outside a chain ends the command: nothing more runs, nothing failed.
        }
    });
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
        teleaction_->VTeleaction.Ecrire(e_, TeleactionParDefaut() ? 1.0 : 0.0);
        teleaction_->VAcceleration.Ecrire(e_, e_.Ligne_lc ? 1.0 : 0.0);
        if (teleaction_->VVerrouillage)
            teleaction_->VVerrouillage.Ecrire(e_, e_.Ligne_lc ? 0.0 : 1.0);
    }
    AfficherTeleaction();
}

void PanneauProtection::AfficherTeleaction() {
    if (!teleaction_) return;
    Champ* teleaction = Trouver(teleaction_->Teleaction);
    Champ* acceleration = Trouver(teleaction_->Acceleration);
    Champ* verrouillage = Trouver(teleaction_->Verrouillage);
    if (!teleaction || !acceleration || !verrouillage) return;
    const bool avec = teleaction_->VTeleaction.Lire(e_) != 0.0;
    teleaction->Valeur = avec;
    acceleration->Valeur = teleaction_->VAcceleration.Lire(e_) != 0.0;
    verrouillage->Valeur = teleaction_->VVerrouillage ? teleaction_->VVerrouillage.Lire(e_) != 0.0
                                                      : !acceleration->Valeur;
    acceleration->Actif = verrouillage->Actif = avec;
}

void PanneauProtection::ChoixOnglet(int i) {
    // A failed sheet is not computed again when it is left: the failure stays for the caller.
    if (e_.ErrCalcul == 0 && !Commande([this] { RecalculOnglet(OngletCourant()); })) return;
    e_.ErrCalcul = 0;
    MessagesDuPanneau();
    if (!avisCentrale_.empty() && (e_.Ligne_alim == 1 || e_.Ligne_alim == 2)) {
        e_.sMessage = avisCentrale_;
        AfficherMessage(e_, d_);
    }
    if (ModeRetour() && i < OngletCourant()) {
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
    MettreDevant(i);
}

void PanneauProtection::RecalculOnglet(int i) {
    if (i < 0 || i >= static_cast<int>(etapes_.size())) return;
    chaineArretee_ = false;
    try {
        for (auto k = static_cast<std::size_t>(i); k < etapes_.size(); ++k)
            etapes_[k].Calcul();
    } catch (const ArretChaine&) {
        // The relay stopped its chain: the later steps do not run.
    }
    Afficher();
}

void PanneauProtection::RecalculDepuis(const std::string& etape) {
    const auto it = std::find_if(etapes_.begin(), etapes_.end(),
                                 [&](const EtapeCalcul& x) { return x.Nom == etape; });
    if (it == etapes_.end()) LeverErreur(ERR_INDICE);
    RecalculOnglet(static_cast<int>(it - etapes_.begin()));
}

void PanneauProtection::ValiderBouton() {
    Commande([this] { RecalculOnglet(OngletCourant()); });
    if (ModeRetour() && e_.ErrCalcul == 0) {
        Commande([this] {
            const CadrePlan cadre = CadreDuPlan();
            const double haut = std::min(Verifier(cadre.Haut), DEMI_LARGEUR_MAX);
            const double bas = std::max(Verifier(cadre.Bas), -DEMI_LARGEUR_MAX);
            const double demiLargeur = std::min(Verifier(cadre.DemiLargeur), DEMI_LARGEUR_MAX);
            // A relay without a reach leaves the plane as it was.
            if (demiLargeur > 0.0 && haut > bas) {
                const auto l = static_cast<float>(demiLargeur);
                e_.ScaleLeft = -l;
                e_.ScaleTop = static_cast<float>(haut);
                e_.ScaleWidth = 2.0F * l;
                e_.ScaleHeight = static_cast<float>(bas - haut);
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
    if (!Commande([this] { RecalculOnglet(OngletCourant()); })) return;
    ChoixOnglet(onglet);
}

void PanneauProtection::Quitter(const std::string& champ) {
    const DescriptionChamp* d = Description(champ);
    Champ* c = Trouver(champ);
    if (!d || !c || !d->Saisie || d->Genre != GenreChamp::Texte) return;
    Commande([this, d, c] { SortieChamp(*d, *c); });
}

void PanneauProtection::Changer(const std::string& champ) {
    const DescriptionChamp* d = Description(champ);
    Champ* c = Trouver(champ);
    if (!d || !c || !d->Saisie || d->Choix.empty()) return;
    Commande([this, d, c] {
        EcrireVariable(*d, *c);
        ApresSaisie(*d, c->IndexListe);
    });
}

void PanneauProtection::SortieChamp(const DescriptionChamp& d, Champ& champ) {
    if (d.Texte) {
        // A text goes as it stands.
        EcrireVariable(d, champ);
        ApresSaisie(d, 0.0);
        return;
    }
    const double valeur = ValeurDuChamp(d, champ);
    if (d.Valeur) d.Valeur.Ecrire(e_, valeur);
    ChampEcrire(champ, valeur);
    if (Champ* jumeau = d.Jumeau.empty() ? nullptr : Trouver(d.Jumeau)) {
        double image = valeur;
        if (d.Colonne != ColonneOhms::Aucune || d.Rapport != RapportJumeau::Kz)
            image = ImageJumeau(e_, d.Rapport, valeur, d.Colonne == ColonneOhms::Primaire);
        const DescriptionChamp* dj = Description(d.Jumeau);
        if (dj && dj->Valeur && d.Rapport != RapportJumeau::Cycles) dj->Valeur.Ecrire(e_, image);
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
    if (teleaction_ && (nom == teleaction_->Teleaction || nom == teleaction_->Acceleration ||
                        nom == teleaction_->Verrouillage)) {
        ClicTeleaction(nom);
        return;
    }
    Commande([this, &nom] {
        const DescriptionChamp* d = Description(nom);
        Champ* c = Trouver(nom);
        if (d && c && (d->Genre == GenreChamp::Option || d->Genre == GenreChamp::Case))
            ClicOption(*d, *c, true);
        ApresClic(nom);
    });
}

void PanneauProtection::ClicTeleaction(const std::string& nom) {
    const Signalisation& s = *teleaction_;
    const double valeur = Trouver(nom)->Valeur ? 1.0 : 0.0;
    // The acceleration and the blocking exclude each other.
    if (nom == s.Teleaction) {
        s.VTeleaction.Ecrire(e_, valeur);
    } else if (nom == s.Acceleration) {
        s.VAcceleration.Ecrire(e_, valeur);
        if (s.VVerrouillage) s.VVerrouillage.Ecrire(e_, 1.0 - valeur);
    } else {
        if (s.VVerrouillage) s.VVerrouillage.Ecrire(e_, valeur);
        s.VAcceleration.Ecrire(e_, 1.0 - valeur);
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

namespace tournesol {

std::vector<DescriptionChamp> ChampsTemposEtTeleaction(const std::string& feuille,
                                                       const std::array<const char*, 4>& legendes,
                                                       double max, double pas) {
    static constexpr std::array<Entier16 Etude::*, 4> TEMPOS{&Etude::T1, &Etude::T2, &Etude::T3,
                                                             &Etude::T4};
    std::vector<DescriptionChamp> t;
    for (std::size_t i = 0; i < 4; ++i)
        if (legendes[i])
            t.push_back(ChampTempo("txtt" + std::to_string(i + 1), legendes[i],
                                   GroupeFeuille(feuille, "Timers"), TEMPOS[i], max, pas));
    const auto signal = ChampsTeleaction(GroupeFeuille(feuille, "Signalling scheme"));
    t.insert(t.end(), signal.begin(), signal.end());
    return t;
}

} // namespace tournesol
