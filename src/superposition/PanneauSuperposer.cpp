#include "superposition/PanneauSuperposer.h"

#include "core/BaseEtudes.h"
#include "core/Couleurs.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierIni.h"
#include "core/Format.h"
#include "core/Numerique.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/PanneauImpression.h"

#include <cmath>

namespace tournesol {

namespace {

const char* const AFFICHAGE = "frmaffiche";
const char* const POSTES = "frmpostsélec";
const char* const POSITION = "frmposition";

// The labels of the six classes, which serve both places.
const char* const ETIQUETTES[NOMBRE_CLASSES] = {"txtTransit2", "txtZoneanti", "txtmono",
                                                "txttri",      "txtZones",    "txtdir"};
const char* const TEXTES_ETIQUETTES[NOMBRE_CLASSES] = {
    "line image", "anti-out of step", "Mise en route boucle mono", "phase to phase pick up",
    "Zones",      "Directional"};

// The colour menu's entries.
constexpr Couleur Etude::*COULEURS[] = {&Etude::CouleurPoste1, &Etude::CouleurPoste2,
                                        &Etude::CouleurLigne, &Etude::CouleurPosteAval};
const char* const TEXTES_COULEURS[] = {"Poste &1", "poste &2", "Image de la &Ligne",
                                       "Origine du poste aval"};

std::string Menu(int i) {
    return "mnucouleur(" + std::to_string(i) + ")";
}

// The names of the place's labels in the frame of the selected substations.
std::string Rap(const char* quoi, int place) {
    return std::string("Rap") + quoi + std::to_string(place);
}

} // namespace

std::string PanneauSuperposer::NomZone(int place, int classe) {
    return "autL" + std::to_string(place) + "(" + std::to_string(classe + 1) + ")";
}

std::string PanneauSuperposer::NomTrait(int place, int classe) {
    return "Line" + std::to_string(place) + "(" + std::to_string(classe + 1) + ")";
}

const char* PanneauSuperposer::NomEtiquette(int classe) {
    return classe >= 0 && classe < NOMBRE_CLASSES ? ETIQUETTES[classe] : "";
}

PanneauSuperposer::PanneauSuperposer(Etude& e, Dialogue& d, BaseEtudes* base, Services services,
                                     std::optional<std::filesystem::path> reglages)
    : Panneau("frmsuperposer"), e_(e), d_(d), base_(base), services_(std::move(services)),
      reglages_(std::move(reglages)), s_(e) {
    e_.ChargementFenetre = true;
    e_.OptionDessin = 1;
    Ajouter(GenreChamp::Etiquette, "status", "");
    Ajouter(GenreChamp::Etiquette, "coordonnées", "");
    // Which colour is which place, beside the diagram at all times.
    Ajouter(GenreChamp::Etiquette, "lblPlace1", "", "legende");
    Ajouter(GenreChamp::Etiquette, "lblPlace2", "", "legende");
    Ajouter(GenreChamp::Bouton, "cmdregposte1", "poste 1", "relais");
    Ajouter(GenreChamp::Bouton, "cmdregposte2", "poste2", "relais");
    Ajouter(GenreChamp::Bouton, "cmdaffiche", "Modifier l'affichage", "commandes");
    Ajouter(GenreChamp::Bouton, "cmdpostes", "Détail des Postes", "commandes");
    Ajouter(GenreChamp::Bouton, "cmdprint", "Impression", "commandes").Actif = false;
    Ajouter(GenreChamp::Bouton, "cmdquitter", "&Quitter", "commandes");
    // The three frames of the shared place.
    Ajouter(GenreChamp::Etiquette, AFFICHAGE, "Affichage des postes sélectionnés", "cadres");
    for (int c = 0; c < NOMBRE_CLASSES; ++c) {
        Ajouter(GenreChamp::Bouton, ETIQUETTES[c], TEXTES_ETIQUETTES[c], AFFICHAGE);
        for (const int p : {1, 2})
            Ajouter(GenreChamp::Bouton, NomZone(p, c), "", AFFICHAGE).Valeur = true;
    }
    Ajouter(GenreChamp::Etiquette, POSTES, "Postes sélectionnés", "cadres");
    for (const int p : {1, 2})
        for (const char* quoi : {"Poste", "Départ", "Piquage", "Protection"})
            Ajouter(GenreChamp::Etiquette, Rap(quoi, p), "", POSTES);
    Ajouter(GenreChamp::Etiquette, POSITION, "Position des protections", "cadres");
    for (const std::string_view bouton : BOUTONS_DISPOSITION)
        Ajouter(GenreChamp::Bouton, std::string(bouton), "", POSITION);
    // The menus.
    Ajouter(GenreChamp::Bouton, "mnusauve1", "sauvegarder les réglages du poste 1", "mnufichier")
        .Actif = base_ != nullptr;
    Ajouter(GenreChamp::Bouton, "mnusauve2", "sauvegarder les réglages du poste 2", "mnufichier")
        .Actif = base_ != nullptr;
    Ajouter(GenreChamp::Bouton, "mnuimprimer", "&Imprimer", "mnufichier").Actif = false;
    Ajouter(GenreChamp::Bouton, "mnuchangerposte", "&Changer", "mnufichier");
    Ajouter(GenreChamp::Bouton, "mnuquitter", "&Quitter", "mnufichier");
    for (int i = 1; i <= 4; ++i)
        Ajouter(GenreChamp::Bouton, Menu(i), TEXTES_COULEURS[i - 1], "mnucouleurs");
    Ajouter(GenreChamp::Bouton, "mnuclearscreen", "&Redessiner", "mnuzoom");
    Ajouter(GenreChamp::Bouton, "mnuzoomidéal", "ideal zoom ", "mnuzoom");
    Ajouter(GenreChamp::Bouton, "mnuzoomin", "Zoom +", "mnuzoom");
    Ajouter(GenreChamp::Bouton, "mnuzoomout", "Zoom -", "mnuzoom");
    Ajouter(GenreChamp::Bouton, "mnucustomzoom", "&Zoom...", "mnuzoom");
    Ajouter(GenreChamp::Bouton, "mnuapropos", "&A propos", "mnuaide");

    e_.ChargementFenetre = false;
    e_.RelaisPret = true;
    e_.DiagramActuel = false;
    e_.ImpressionActuelle = false;
    e_.PanneauRelais = false;
    e_.ErrCalcul = 0;

    // Both places read, computed and kept.
    s_.NommerPlaces();
    for (const int p : {1, 2}) {
        s_.PlaceCourante = p;
        s_.ChargerPlace(p, [this, p](Etude& x) {
            return services_.OuvrirPlace ? services_.OuvrirPlace(x, p) : true;
        });
        // A place without a relay (its choice cancelled) keeps nothing and draws nothing.
        if (RelaisConnu(s_.PlaceNumero(p).IdProtection)) s_.SauverPlace();
    }
    DefinirTitre("TOURNESOL [" + s_.PlaceNumero(1).Poste + "]");
    // The colours of the user, the two places told apart; the images take their classes from
    // them.
    InitCouleurs(e_);
    if (reglages_) LireReglagesUtilisateur(e_, *reglages_);
    CouleursDesPlaces(e_);
    for (const int p : {1, 2}) {
        const Place& place = s_.PlaceNumero(p);
        Trouver(Rap("Poste", p))->DefinirTexte(place.Poste);
        Trouver(Rap("Départ", p))->DefinirTexte(place.Depart);
        Trouver(Rap("Piquage", p))->DefinirTexte(place.Piquage);
        Trouver(Rap("Protection", p))
            ->DefinirTexte(s_.Identification(p).substr(s_.Identification(p).rfind(", ") + 2));
        Trouver("lblPlace" + std::to_string(p))
            ->DefinirTexte("Place " + std::to_string(p) + " : " + s_.Identification(p));
    }
    s_.DispositionInitiale();
    s_.AjusterFenetre();
    Montrer(POSITION);
    // A place whose relay was not computed is told in the status line at once.
    for (const int p : {1, 2})
        if (!s_.PlaceNumero(p).Gardee)
            Trouver("status")->DefinirTexte("Place " + std::to_string(p) + " : no relay chosen.");
        else if (!s_.PlaceNumero(p).Calculee)
            Trouver("status")->DefinirTexte("Place " + std::to_string(p) +
                                            " : the relay's settings are not computed; only its "
                                            "line is drawn.");
}

void PanneauSuperposer::Montrer(const std::string& cadre) {
    cadre_ = cadre;
    MettreAJour();
}

void PanneauSuperposer::MettreAJour() {
    for (const char* c : {AFFICHAGE, POSTES, POSITION})
        Trouver(c)->Visible = cadre_ == c;
    Trouver("cmdaffiche")
        ->DefinirTexte(cadre_ == AFFICHAGE ? "Position des postes" : "Modifier l'affichage");
    Trouver("cmdpostes")
        ->DefinirTexte(cadre_ == POSTES ? "Position des postes" : "Détail des Postes");
    const int disposition = s_.Disposition();
    for (int n = 1; n <= NOMBRE_DISPOSITIONS; ++n)
        Trouver(BOUTONS_DISPOSITION[static_cast<std::size_t>(n - 1)])->Valeur = n == disposition;
    for (int c = 0; c < NOMBRE_CLASSES; ++c)
        for (const int p : {1, 2})
            Trouver(NomZone(p, c))->Valeur =
                s_.PlaceNumero(p).Affichage[static_cast<std::size_t>(c)];
    ++version_;
}

void PanneauSuperposer::Survoler(const std::string& nom) {
    std::string aide;
    if (nom == AFFICHAGE)
        aide = "choix des caractéristiques tracées sur le diagramme";
    else if (nom == POSTES)
        aide = "référence des départs étudiés";
    else if (nom == POSITION)
        aide = "la position choisie est celle qui apparaît en relief";
    else if (nom == "cmdaffiche")
        aide = "fait apparaître le tableau permettant le choix des caractéristiques tracées";
    else if (nom == "cmdpostes")
        aide = "fait apparaître l'identification de chacun des départs";
    else if (nom == "cmdregposte1" || nom == "cmdregposte2")
        aide = "appel du réglage de chacun des départs";
    else if (nom == "cmdprint")
        aide = "commande de l'impression sommaire des deux départs";
    for (int n = 1; n <= NOMBRE_DISPOSITIONS; ++n)
        if (nom == BOUTONS_DISPOSITION[static_cast<std::size_t>(n - 1)])
            aide = n == s_.Disposition() ? "cette disposition est celle qui est choisie"
                                         : "cette disposition n'est pas choisie. Clique sur elle "
                                           "si tu veux la choisir";
    for (int c = 0; c < NOMBRE_CLASSES; ++c) {
        if (nom == ETIQUETTES[c]) aide = s_.AideEtiquette(c);
        for (const int p : {1, 2})
            if (nom == NomZone(p, c)) aide = s_.AideTrait(p, c);
    }
    if (!aide.empty()) Trouver("status")->DefinirTexte(aide);
}

void PanneauSuperposer::SourisBouge(double r, double x) {
    const double module = std::sqrt(r * r + x * x);
    const double angle = r != 0.0 ? RadToDeg(std::atan2(x, r)) : (x > 0 ? 90.0 : -90.0);
    const char* format = "#####0.## \xCE\xA9";
    Trouver("coordonnées")
        ->DefinirTexte(FormaterNombre(r, format) + " ; " + FormaterNombre(x, format) + "\n" +
                       FormaterNombre(module, format) + " \xE2\x88\xA0 " +
                       FormaterNombre(module == 0.0 ? 0.0 : angle, "##0.# \xC2\xB0"));
}

void PanneauSuperposer::SourisBas(double r, double x) {
    if (e_.EnZoom) depart_ = Cart(r, x);
}

void PanneauSuperposer::SourisHaut(double r, double x) {
    if (!depart_) return;
    // A drag of no size leaves the window as it was.
    ZoomCarre(e_, depart_->Re, depart_->Im, r, x);
    depart_.reset();
    e_.EnZoom = false;
    MettreAJour();
}

void PanneauSuperposer::ReglerPlace(int place) {
    e_.RelaisPret = true;
    e_.DiagramActuel = false;
    e_.ImpressionActuelle = false;
    e_.PanneauRelais = false;
    if (!s_.RestaurerPlace(place)) return;
    if (!PanneauRelaisInscrit(e_.id_protection)) {
        // Nothing to open: the engineer is told why nothing comes up.
        Trouver("status")->DefinirTexte(TexteReglagesNonCalcules(e_));
        d_.Message("TOURNESOL : Attention", TexteReglagesNonCalcules(e_), 3);
        return;
    }
    if (services_.ReglerRelais) services_.ReglerRelais(e_);
    s_.PlaceCourante = place;
    s_.SauverPlace();
    s_.AjusterFenetre();
    ++version_;
}

void PanneauSuperposer::SauverPlace(int place) {
    if (!base_ || !s_.RestaurerPlace(place)) return;
    if (e_.id_reglage < 1) {
        // The base holds no setting row of this relay: the reduced save would keep nothing.
        d_.Message("TOURNESOL : Attention",
                   "The relay of place " + std::to_string(place) +
                       " has no settings saved in the base yet: save it once from the working "
                       "window of that relay.",
                   3);
        return;
    }
    e_.ProtectionChoisie = e_.id_protection;
    base_->SauverDepuisSuperposition(e_, d_);
}

void PanneauSuperposer::Cliquer(const std::string& nom) {
    for (int n = 1; n <= NOMBRE_DISPOSITIONS; ++n)
        if (nom == BOUTONS_DISPOSITION[static_cast<std::size_t>(n - 1)]) {
            if (s_.ChoisirDisposition(n)) s_.AjusterFenetre();
            MettreAJour();
            Survoler(nom);
            return;
        }
    for (int c = 0; c < NOMBRE_CLASSES; ++c) {
        if (nom == ETIQUETTES[c]) {
            s_.BasculerLesDeux(c);
            MettreAJour();
            Survoler(nom);
            return;
        }
        for (const int p : {1, 2})
            if (nom == NomZone(p, c)) {
                s_.Basculer(p, c);
                MettreAJour();
                Survoler(nom);
                return;
            }
    }
    for (int i = 1; i <= 4; ++i)
        if (nom == Menu(i)) return; // the view asks the colour, then ChangerCouleur
    if (nom == "cmdaffiche") {
        Montrer(cadre_ == AFFICHAGE ? POSITION : AFFICHAGE);
    } else if (nom == "cmdpostes") {
        Montrer(cadre_ == POSTES ? POSITION : POSTES);
    } else if (nom == "cmdregposte1" || nom == "cmdregposte2") {
        ReglerPlace(nom == "cmdregposte1" ? 1 : 2);
        MettreAJour();
    } else if (nom == "mnusauve1" || nom == "mnusauve2") {
        SauverPlace(nom == "mnusauve1" ? 1 : 2);
    } else if (nom == "cmdprint" || nom == "mnuimprimer") {
        if (!imprimeur_) return;
        e_.ArretImpression = false;
        e_.ErrCalcul = 0;
        PanneauImpression impression(e_);
        d_.MontrerPanneau(impression);
        if (reglages_) EcrireReglagesUtilisateur(e_, *reglages_);
        if (e_.ErrCalcul != 0) return;
        Trouver("status")->DefinirTexte("Impression du réglage : ESC pour annuler");
        imprimeur_(*this);
        Trouver("status")->DefinirTexte("");
    } else if (nom == "mnuchangerposte") {
        e_.QuitterAppli = false;
        e_.ChangerPoste = true;
        e_.sTitre = "TOURNESOL : Change...";
        FermerPanneau();
    } else if (nom == "mnuquitter" || nom == "cmdquitter") {
        e_.ChangerPoste = false;
        e_.QuitterAppli = true;
        e_.sTitre = "TOURNESOL : Leave";
        FermerPanneau();
    } else if (nom == "mnuclearscreen") {
        s_.AjusterFenetre();
        MettreAJour();
    } else if (nom == "mnuzoomidéal") {
        ZoomIdeal(e_);
        MettreAJour();
    } else if (nom == "mnuzoomin") {
        ZoomPlus(e_);
        MettreAJour();
    } else if (nom == "mnuzoomout") {
        ZoomMoins(e_);
        MettreAJour();
    } else if (nom == "mnucustomzoom") {
        e_.EnZoom = true;
        Trouver("status")->DefinirTexte(
            "Drawing area : click on the centre of the square, maintain to enlarge");
    } else if (nom == "mnuapropos") {
        d_.Message("TOURNESOL : About ...",
                   "Programme d'aide au calcul des réglages des protections de distance sur les "
                   "réseaux de transport d'énergie à haute et très haute tension.",
                   0);
    }
}

void PanneauSuperposer::Touche(int code) {
    if (code == TOUCHE_ECHAP && e_.ProgressionActive) e_.ArretImpression = true;
}

bool PanneauSuperposer::Fermer() {
    e_.ChangerPoste = false;
    e_.QuitterAppli = true;
    e_.sTitre = "TOURNESOL : Close";
    FermerPanneau();
    return true;
}

Couleur PanneauSuperposer::CouleurMenu(int i) const {
    return i >= 1 && i <= 4 ? e_.*COULEURS[i - 1] : 0;
}

void PanneauSuperposer::ChangerCouleur(int i, Couleur couleur) {
    if (i < 1 || i > 4) return;
    e_.*COULEURS[i - 1] = couleur;
    if (reglages_) EcrireReglagesUtilisateur(e_, *reglages_);
    ++version_;
}

void PanneauSuperposer::DefinirImprimeur(Imprimeur imprimeur) {
    imprimeur_ = std::move(imprimeur);
    Trouver("cmdprint")->Actif = Trouver("mnuimprimer")->Actif = imprimeur_ != nullptr;
}

} // namespace tournesol
