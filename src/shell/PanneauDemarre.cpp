#include "shell/PanneauDemarre.h"

#include "core/BaseEtudes.h"
#include "core/Couleurs.h"
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/FichierIni.h"
#include "core/Format.h"
#include "core/Numerique.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "network/Calcul.h"
#include "network/PanneauOptionsReseau.h"
#include "network/PanneauValeursReseau.h"
#include "network/PanneauxBouts.h"
#include "printing/PanneauImpression.h"
#include "shell/PanneauTitre.h"

#include <cmath>

namespace tournesol {

namespace {

const char* const REPORTS[] = {"chktriphasé", "chkmonophasé", "chkmaximal"};

// The legend: each characteristic's entry and the colour it takes.
// An entry of the legend: its colour, and the part of the drawing its check box shows.
struct EntreeLegende {
    const char* nom;
    const char* texte;
    Couleur Etude::*couleur;
    bool OptionsAffichage::*montre;
};
constexpr EntreeLegende LEGENDE[] = {
    {"txtTransit1", "Transit", &Etude::CouleurTransit1, &OptionsAffichage::Transit1},
    {"txtTransit2", "line image", &Etude::CouleurTransit2, &OptionsAffichage::Transit2},
    {"txttransit3", "lines at 30°", &Etude::CouleurTransit3, &OptionsAffichage::Transit3},
    {"txtZoneanti", "anti-out of step", &Etude::CouleurAntipompage, &OptionsAffichage::Antipompage},
    {"txtmono", "Mise en route boucle mono", &Etude::CouleurMonophase,
     &OptionsAffichage::Monophase},
    {"txttri", "phase to phase pick up", &Etude::CouleurTriphase, &OptionsAffichage::Triphase},
    {"txtZones", "Zones", &Etude::CouleurZones, &OptionsAffichage::Zones},
    {"txtdir", "Directional", &Etude::CouleurDirectionnel, &OptionsAffichage::Directionnel},
};

// The colour menu's entries, mnucouleur(1..12).
constexpr Couleur Etude::*COULEURS_MENU[] = {
    &Etude::CouleurTransit1,  &Etude::CouleurTransit2,     &Etude::CouleurAntipompage,
    &Etude::CouleurMonophase, &Etude::CouleurTransit3,     &Etude::CouleurTriphase,
    &Etude::CouleurZones,     &Etude::CouleurDirectionnel, &Etude::CouleurPoste1,
    &Etude::CouleurPoste2,    &Etude::CouleurLigne,        &Etude::CouleurPosteAval};
const char* const TEXTES_COULEURS[] = {"Tra&nsit",
                                       "line image",
                                       "anti-out of step",
                                       "phase to earth pick up",
                                       "straight lines at 30°",
                                       "phase to phase pick up",
                                       "&Zones",
                                       "&Directional"};

const char* const OUTILS[] = {"no drawing",
                              "text insertion",
                              "free hand drawing (Shift-click for the drawing menu)",
                              "rubber",
                              "circles (Shift-click for the drawing menu)",
                              "straight lines (Shift-click for the drawing menu)"};

std::string Menu(int i) {
    return "mnucouleur(" + std::to_string(i) + ")";
}
std::string BoutonOutil(int i) {
    return "cmdoption(" + std::to_string(i) + ")";
}

constexpr int OUTIL_TEXTE = 1, OUTIL_MAIN = 2, OUTIL_GOMME = 3, OUTIL_CERCLE = 4, OUTIL_DROITE = 5,
              OUTIL_CARRE = 6;

} // namespace

PanneauDemarre::PanneauDemarre(Etude& e, Dialogue& d, OptionsReport& options, BaseEtudes* base,
                               std::optional<std::filesystem::path> reglages)
    : Panneau("frmDémarre"), e_(e), d_(d), options_(options), base_(base),
      reglages_(std::move(reglages)) {
    e_.ChargementFenetre = true;
    DefinirTitre("TOURNESOL [" + e.NomPoste + "]");
    Ajouter(GenreChamp::Etiquette, "imgCaractéristique", "");
    Ajouter(GenreChamp::Etiquette, "coordonnées", "");
    Ajouter(GenreChamp::Etiquette, "status", "welcome");
    Ajouter(GenreChamp::Case, "chkpanneauprotection", "Modify", "relais");
    Ajouter(GenreChamp::Case, "chkréglertout", "Return", "relais");
    Ajouter(GenreChamp::Bouton, "cmdextra", "set", "commandes");
    Ajouter(GenreChamp::Bouton, "cmdsave", "save the network values and the settings", "commandes")
        .Actif = base_ != nullptr;
    Ajouter(GenreChamp::Bouton, "cmdprint", "document printing", "commandes").Actif = false;
    // Printing is offered once the window has a printer to give.
    Ajouter(GenreChamp::Case, "cmdDiagnostics", "shows the setting diagnostics", "commandes");
    Ajouter(GenreChamp::Case, "cmdhelp", "?", "commandes");
    Ajouter(GenreChamp::Bouton, "cmdquitter", "leave", "commandes");
    Ajouter(GenreChamp::Etiquette, "panHelp",
            "Right button: zoom menu. Shift-click with a drawing tool: the pen. The report options "
            "choose the transit case; the legend entries show or hide their lines.")
        .Visible = false;
    Ajouter(GenreChamp::Option, "chktriphasé", "three phase report", "reports");
    Ajouter(GenreChamp::Option, "chkmonophasé", "single phase load report", "reports");
    Ajouter(GenreChamp::Option, "chkmaximal", "without load report", "reports");
    Ajouter(GenreChamp::Case, "chkcercles", "draws entirely the circles (in dotted lines)",
            "affichage")
        .Valeur = affichage_.Cercles;
    Ajouter(GenreChamp::Case, "chkpoints", "Addition of neuralgic points", "affichage").Valeur =
        affichage_.Points;
    Ajouter(GenreChamp::Case, "chklabels", "Addition of named neuralgic points", "affichage")
        .Valeur = affichage_.Etiquettes;
    const char* const boutonsOutils[] = {"none", "text", "free hand", "rubber", "circles", "lines"};
    for (int i = 0; i < 6; ++i)
        Ajouter(GenreChamp::Bouton, BoutonOutil(i), boutonsOutils[i], "outils");
    for (const EntreeLegende& l : LEGENDE)
        Ajouter(GenreChamp::Case, l.nom, l.texte, "Characteristics").Valeur = true;
    // The menus.
    Ajouter(GenreChamp::Bouton, "mnuSauvegarde", "save values...", "mnuPoste").Actif =
        base_ != nullptr;
    Ajouter(GenreChamp::Bouton, "mnuChangerPoste", "&Change...", "mnuPoste");
    Ajouter(GenreChamp::Bouton, "mnuQuitter", "leave", "mnuPoste");
    for (const auto& [nom, texte] : {std::pair{"mnuOptionsRéseau", "network options..."},
                                     std::pair{"mnuValeursRéseau", "network values..."},
                                     std::pair{"mnudeuxbouts", "two ended line"},
                                     std::pair{"mnutroisbouts", "three ended line"}})
        Ajouter(GenreChamp::Bouton, nom, texte, "mnuRéseau");
    const bool troisBouts = e.Ligne_Tl == 3 || e.LigneTroisBouts;
    Trouver("mnutroisbouts")->Visible = troisBouts;
    Trouver("mnudeuxbouts")->Visible = !troisBouts;
    for (int i = 1; i <= 8; ++i)
        Ajouter(GenreChamp::Bouton, Menu(i), TEXTES_COULEURS[i - 1], "mnuCouleurs");
    Ajouter(GenreChamp::Bouton, "mnuImprimer", "print...", "mnuCouleurs").Actif = false;

    Ajouter(GenreChamp::Bouton, "mnuAPropos", "about", "mnuCouleurs");
    Ajouter(GenreChamp::Bouton, "mnuClearScreen", "&Redraw", "mnuZoom");
    Ajouter(GenreChamp::Bouton, "mnuZoomIdéal", "ideal zoom ", "mnuZoom");
    Ajouter(GenreChamp::Bouton, "mnuZoomIn", "Zoom +", "mnuZoom");
    Ajouter(GenreChamp::Bouton, "mnuZoomOut", "Zoom -", "mnuZoom");
    Ajouter(GenreChamp::Bouton, "mnuCustomZoom", "&Zoom...", "mnuZoom");

    // The window's start.
    InitCouleurs(e_);
    if (reglages_) LireReglagesUtilisateur(e_, *reglages_);
    const bool sansMono = e.id_protection >= 1 && e.id_protection <= NOMBRE_RELAIS &&
                          !e.ReportAdmis[static_cast<std::size_t>(e.id_protection - 1)][1];
    Trouver("txtmono")->Visible = !sansMono;
    e_.OptionDessin = 1;
    MarquerOutil();
    ReglerBoutonsRelais();
    options_.Choisir(e_.TypeReportCharge);
    CalculerEtTracer(e_, d_, options_);
    if (!(e_.ScaleWidth > 0.0f))
        ZoomIdeal(e_); // a study without a scale of its own is fitted to its load point
    if (!e_.DiagramActuel && !e_.RelaisPret) e_.ImpressionActuelle = false;
    nouvelleLigne_ = e_.NouvelleLigne;
    e_.OptionsValides = e_.ValeursValides = !e_.NouvelleLigne;
    e_.NouvelleLigne = false;
    e_.ChargementFenetre = false;
    for (std::size_t i = 0; i < 3; ++i) {
        Trouver(REPORTS[i])->Valeur = options_.Coche[i];
        Trouver(REPORTS[i])->Actif = options_.Actif[i];
    }
    // The status line greets and says which tool is on, so that the first click on a tool's
    // button is not a surprise; a relay without a panel: it says at once that nothing was
    // computed.
    Trouver("status")->DefinirTexte(ReglagesNonCalcules(e_)
                                        ? TexteReglagesNonCalcules(e_)
                                        : "welcome\n" + TexteOutil(e_.OptionDessin));
    Redessiner();
}

void PanneauDemarre::Demarrer() {
    if (!nouvelleLigne_) return;
    nouvelleLigne_ = false;
    Cliquer("mnuOptionsRéseau");
    if (e_.OptionsValides && !e_.ValeursValides) Cliquer("mnuValeursRéseau");
}

void PanneauDemarre::PanneauReseau(const std::string& menu) {
    e_.ErrCalcul = 0;
    // The values of the line panels belong to the study until it is saved: the panels read and
    // write the study only, and the save writes their list with the relay's settings.
    MagasinReglages* magasin = nullptr;
    std::unique_ptr<Panneau> panneau;
    if (menu == "mnuOptionsRéseau")
        panneau = std::make_unique<PanneauOptionsReseau>(e_);
    else if (menu == "mnuValeursRéseau")
        panneau = std::make_unique<PanneauValeursReseau>(e_);
    else if (menu == "mnudeuxbouts")
        panneau = std::make_unique<PanneauDeuxBouts>(e_, magasin);
    else
        panneau = std::make_unique<PanneauTroisBouts>(e_, magasin);
    d_.MontrerPanneau(*panneau);
    ControleLongueur(e_, d_);
    if (e_.ErrCalcul != 0) return;
    e_.PanneauRelais = true;
    ReglerBoutonsRelais();
    // With the line known in full, the report case's code runs: the three cases again, the
    // transit area, the relay's panel, the drawing.
    if (e_.OptionsValides && e_.ValeursValides) {
        ChangerReport(options_.Cas());
        for (std::size_t i = 0; i < 3; ++i) {
            Trouver(REPORTS[i])->Valeur = options_.Coche[i];
            Trouver(REPORTS[i])->Actif = options_.Actif[i];
        }
    } else {
        CalculerEtTracer(e_, d_, options_);
        Redessiner();
    }
}

void PanneauDemarre::Redessiner() {
    ++version_;
    // After each computation the diagnostics window follows, while it is open; a relay panel
    // that was opened has closed it.
    if (diagnostics_ && !e_.DiagnosticsOuverts) diagnostics_.reset();
    Trouver("cmdDiagnostics")->Valeur = diagnostics_ != nullptr;
    if (diagnostics_) diagnostics_->MajDiagnostics();
}

void PanneauDemarre::ReglerBoutonsRelais() {
    Trouver("chkréglertout")->Valeur = e_.PanneauRelais;
    Trouver("chkpanneauprotection")->Valeur = !e_.PanneauRelais;
}

Couleur PanneauDemarre::CouleurLegende(const std::string& nom) const {
    for (const EntreeLegende& l : LEGENDE)
        if (nom == l.nom) return e_.*l.couleur;
    return 0;
}

Couleur PanneauDemarre::CouleurMenu(int i) const {
    return i >= 1 && i <= 12 ? e_.*COULEURS_MENU[i - 1] : 0;
}

void PanneauDemarre::ChangerCouleur(int i, Couleur couleur) {
    if (i < 1 || i > 12) return;
    e_.*COULEURS_MENU[i - 1] = couleur;
    EcrireReglages();
    if (!e_.Superposition) Redessiner();
}

void PanneauDemarre::EcrireReglages() {
    if (reglages_) EcrireReglagesUtilisateur(e_, *reglages_);
}

void PanneauDemarre::ChangerPlume(int rouge, int vert, int bleu, int epaisseur, int style) {
    e_.PlumeRouge = static_cast<Entier16>(rouge);
    e_.PlumeVert = static_cast<Entier16>(vert);
    e_.PlumeBleu = static_cast<Entier16>(bleu);
    e_.PlumeEpaisseur = static_cast<Entier16>(epaisseur);
    e_.PlumeStyle = static_cast<Entier16>(style);
    EcrireReglages();
}

void PanneauDemarre::ChangerReport(int cas) {
    e_.sReport = TitreReport(cas);
    e_.TransitOK1 = e_.TransitOK2 = false;
    e_.ErrCalcul = 0;
    // A change of case checks the line in all three cases: the new one first with the check
    // panels and the zones recomputed, then the others.
    e_.XprimFige = 0.0;
    e_.ShowValeurs = !e_.ChargementFenetre;
    e_.TypeReportCharge = static_cast<Entier16>(cas);
    e_.It = CourantDuCas(e_, cas);
    Calcul(e_, d_);
    e_.XprimFige = -1.0;
    e_.ShowValeurs = false;
    if (e_.ErrCalcul != 0) {
        e_.ShowValeurs = true;
        SignalerErreurCalcul(e_, d_);
        e_.ShowValeurs = false;
        return;
    }
    if (e_.Ligne_alim == 0) {
        for (const int autre : {2, 1, 0}) {
            if (autre == cas) continue;
            e_.TypeReportCharge = static_cast<Entier16>(autre);
            e_.It = CourantDuCas(e_, autre);
            Calcul(e_, d_);
        }
    }
    e_.ReportsCalcules = true;
    e_.TypeReportCharge = static_cast<Entier16>(cas);
    options_.Choisir(cas);
    CalculerEtTracer(e_, d_, options_);
    e_.PanneauRelais = true;
    // A transit area that failed has been told; the relay is not run on it.
    if (e_.ErrCalcul == 0) OuvrirPanneau(e_, d_, options_, e_.ChargementFenetre);
    if (e_.ErrCalcul == 0) e_.PanneauRelais = false;
    ReglerBoutonsRelais();
    e_.EtudeModifiee = true;
    Redessiner();
}

void PanneauDemarre::Cliquer(const std::string& nom) {
    for (int cas = 0; cas < 3; ++cas)
        if (nom == REPORTS[cas]) {
            ChangerReport(cas);
            for (std::size_t i = 0; i < 3; ++i) {
                Trouver(REPORTS[i])->Valeur = options_.Coche[i];
                Trouver(REPORTS[i])->Actif = options_.Actif[i];
            }
            return;
        }
    for (const EntreeLegende& l : LEGENDE)
        if (nom == l.nom) {
            affichage_.*l.montre = Trouver(nom)->Valeur;
            Redessiner();
            return;
        }
    for (int i = 0; i < 6; ++i)
        if (nom == BoutonOutil(i)) {
            ChoisirOutil(e_.OptionDessin == i ? 0 : i);
            return;
        }
    if (nom == "chkcercles" || nom == "chkpoints" || nom == "chklabels") {
        affichage_.Cercles = Trouver("chkcercles")->Valeur;
        affichage_.Points = Trouver("chkpoints")->Valeur;
        affichage_.Etiquettes = Trouver("chklabels")->Valeur;
        Redessiner();
    } else if (nom == "cmdextra") {
        if (ReglagesNonCalcules(e_)) {
            // Nothing to open: the engineer is told why nothing comes up.
            Trouver("status")->DefinirTexte(TexteReglagesNonCalcules(e_));
            d_.Message("TOURNESOL : Attention", TexteReglagesNonCalcules(e_), 3);
            return;
        }
        OuvrirPanneau(e_, d_, options_, false);
        if (e_.ErrCalcul == 0) e_.PanneauRelais = false;
        ReglerBoutonsRelais();
        Redessiner();
    } else if (nom == "chkpanneauprotection") {
        e_.PanneauRelais = !Trouver(nom)->Valeur;
        ReglerBoutonsRelais();
    } else if (nom == "chkréglertout") {
        e_.PanneauRelais = Trouver(nom)->Valeur;
        ReglerBoutonsRelais();
    } else if (nom == "cmdsave" || nom == "mnuSauvegarde") {
        if (!base_) return;
        e_.Sauvegarde = true;
        if (base_->Sauver(e_, d_))
            SauverColonnesPostes(e_, reglages_ ? *reglages_ : FichierReglages(e_));
    } else if (nom == "cmdprint" || nom == "mnuImprimer") {
        if (!imprimeur_) return;
        if (!e_.ImpressionActuelle) CalculerEtTracer(e_, d_, options_);
        e_.ArretImpression = false;
        e_.ErrCalcul = 0;
        PanneauImpression impression(e_);
        d_.MontrerPanneau(impression);
        EcrireReglages();
        if (e_.ErrCalcul == 0) imprimeur_(*this);
    } else if (nom == "cmdDiagnostics") {
        if (Trouver(nom)->Valeur && !diagnostics_) {
            diagnostics_ = std::make_unique<FenetreDiagnostics>(e_, e_.DiagnosticsOuverts);
            diagnostics_->Montrer();
        } else if (!Trouver(nom)->Valeur && diagnostics_) {
            diagnostics_->Fermer();
            diagnostics_.reset();
        }
    } else if (nom == "cmdhelp") {
        Trouver("panHelp")->Visible = Trouver("cmdhelp")->Valeur;
    } else if (nom == "mnuChangerPoste") {
        if (!PeutQuitterEtude()) return;
        e_.QuitterAppli = false;
        e_.ChangerPoste = true;
        Fermer(FaconFermer::Programme);
    } else if (nom == "mnuQuitter" || nom == "cmdquitter") {
        if (!PeutQuitterEtude()) return;
        e_.ChangerPoste = false;
        e_.QuitterAppli = true;
        Fermer(FaconFermer::Programme);
    } else if (nom == "mnuOptionsRéseau" || nom == "mnuValeursRéseau" || nom == "mnudeuxbouts" ||
               nom == "mnutroisbouts") {
        PanneauReseau(nom);
    } else if (nom == "mnuAPropos") {
        PanneauAPropos apropos;
        d_.MontrerPanneau(apropos);
    } else if (nom == "mnuClearScreen") {
        annotations_.clear();
        Redessiner();
    } else if (nom == "mnuZoomIdéal") {
        ZoomIdeal(e_);
        Redessiner();
    } else if (nom == "mnuZoomIn") {
        ZoomPlus(e_);
        Redessiner();
    } else if (nom == "mnuZoomOut") {
        ZoomMoins(e_);
        Redessiner();
    } else if (nom == "mnuCustomZoom") {
        e_.EnZoom = true;
        ChoisirOutil(OUTIL_CARRE);
    }
}

int PanneauDemarre::Outil() const {
    return e_.OptionDessin;
}

void PanneauDemarre::DefinirImprimeur(Imprimeur imprimeur) {
    imprimeur_ = std::move(imprimeur);
    Trouver("cmdprint")->Actif = Trouver("mnuImprimer")->Actif = imprimeur_ != nullptr;
}

std::string PanneauDemarre::TexteOutil(int outil) {
    return outil >= 0 && outil < 6 ? std::string("Drawing option : ") + OUTILS[outil]
                                   : std::string();
}

void PanneauDemarre::ChoisirOutil(int outil) {
    if (texte_) Caractere("\r");
    e_.OptionDessin = static_cast<Entier16>(outil);
    MarquerOutil();
    Trouver("status")->DefinirTexte(
        outil == OUTIL_CARRE
            ? "Drawing area : click on the centre of the square, maintain to enlarge"
            : TexteOutil(outil));
}

void PanneauDemarre::MarquerOutil() {
    for (int i = 0; i < 6; ++i)
        Trouver(BoutonOutil(i))->Valeur = i == e_.OptionDessin; // the tool in force stays down
}

std::string PanneauDemarre::TexteCoordonnees(double r, double x) {
    const double module = std::sqrt(r * r + x * x);
    const double angle = r != 0.0 ? RadToDeg(std::atan(x / r))
                                  : (x > 0   ? 90.0
                                     : x < 0 ? -90.0
                                             : 0.0);
    const char* format = "#####0.## \xCE\xA9";
    return FormaterNombre(r, format) + " ; " + FormaterNombre(x, format) + "\n" +
           FormaterNombre(module, format) + " \xE2\x88\xA0 " +
           FormaterNombre(angle, "##0.# \xC2\xB0");
}

Annotation PanneauDemarre::Plume(Annotation::Genre genre) const {
    Annotation a;
    a.genre = genre;
    a.couleur = e_.PlumeRouge | (e_.PlumeVert << 8) | (e_.PlumeBleu << 16);
    a.largeur = std::max<int>(1, e_.PlumeEpaisseur);
    a.style = e_.PlumeStyle;
    return a;
}

void PanneauDemarre::SourisBouge(double r, double x) {
    Trouver("coordonnées")->DefinirTexte(TexteCoordonnees(r, x));
    const Complexe point = Cart(r, x);
    if (glisse_) {
        if (e_.OptionDessin == OUTIL_MAIN || e_.OptionDessin == OUTIL_GOMME) {
            Annotation trait = Plume(Annotation::Trait);
            if (e_.OptionDessin == OUTIL_GOMME) {
                trait.couleur = 0xFFFFFF;
                trait.largeur = 18;
                trait.style = TRAIT_PLEIN;
            }
            trait.a = courant_;
            trait.b = point;
            annotations_.push_back(trait);
        }
        courant_ = point;
        Redessiner();
        return;
    }
    static const char* const AIDES[] = {"",
                                        " : click to insert a text",
                                        " : click an maintain to draw",
                                        " : click and maintain to rub out",
                                        " : click on the centre of the circle, maintain to enlarge",
                                        " : click on an end, maintain to position"};
    std::string aide = " (Shift : coordinates)";
    if (e_.OptionDessin == OUTIL_CARRE || e_.EnZoom)
        aide = " : click on the centre of the square, maintain to enlarge";
    else if (e_.OptionDessin >= 1 && e_.OptionDessin <= 5)
        aide = AIDES[e_.OptionDessin];
    Trouver("status")->DefinirTexte(texte_ ? "ESC rubs out the text" : "Drawing area" + aide);
}

void PanneauDemarre::SourisSortie() {
    if (texte_ || glisse_ || e_.OptionDessin == OUTIL_CARRE || e_.EnZoom) return;
    Trouver("status")->DefinirTexte(TexteOutil(e_.OptionDessin));
}

void PanneauDemarre::SourisBas(double r, double x) {
    if (texte_) Caractere("\r");
    if (e_.EnZoom) e_.OptionDessin = OUTIL_CARRE;
    glisse_ = true;
    if (e_.OptionDessin == 0) d_.Bip();
    depart_ = courant_ = Cart(r, x);
}

void PanneauDemarre::SourisHaut(double r, double x) {
    if (!glisse_) return;
    glisse_ = false;
    const Complexe point = Cart(r, x);
    switch (e_.OptionDessin) {
    case OUTIL_TEXTE:
        texte_ = Plume(Annotation::Texte);
        texte_->a = point;
        Trouver("status")->DefinirTexte("ESC rubs out the text");
        break;
    case OUTIL_CERCLE:
    case OUTIL_DROITE: {
        Annotation a =
            Plume(e_.OptionDessin == OUTIL_CERCLE ? Annotation::Cercle : Annotation::Trait);
        a.a = depart_;
        a.b = point;
        annotations_.push_back(a);
        break;
    }
    case OUTIL_CARRE:
        ZoomCarre(e_, depart_.Re, depart_.Im, r, x);
        e_.EnZoom = false;
        e_.OptionDessin = 0;
        MarquerOutil();
        break;
    default:
        break;
    }
    Redessiner();
}

void PanneauDemarre::Caractere(const std::string& c) {
    if (!texte_) return;
    if (c == "\r") {
        if (!texte_->texte.empty()) annotations_.push_back(*texte_);
        texte_.reset();
    } else if (c == "\x1b") {
        texte_.reset();
    } else if (c == "\b") {
        while (!texte_->texte.empty()) {
            const char dernier = texte_->texte.back();
            texte_->texte.pop_back();
            if ((static_cast<unsigned char>(dernier) & 0xC0) != 0x80)
                break; // a whole character, not a byte
        }
    } else if (!c.empty() && static_cast<unsigned char>(c[0]) >= 32) {
        texte_->texte += c;
    }
    Redessiner();
}

void PanneauDemarre::Touche(int code) {
    if (texte_) {
        Caractere(code == TOUCHE_ENTREE ? "\r" : code == TOUCHE_ECHAP ? "\x1b" : "");
        return;
    }
    if (code == TOUCHE_ENTREE) {
        Cliquer("cmdextra");
    } else if (code == TOUCHE_ECHAP && e_.ProgressionActive) {
        e_.ArretImpression = true;
    }
}

std::optional<Annotation> PanneauDemarre::Ebauche() const {
    if (texte_) return texte_;
    if (!glisse_ || (e_.OptionDessin != OUTIL_CERCLE && e_.OptionDessin != OUTIL_DROITE &&
                     e_.OptionDessin != OUTIL_CARRE))
        return std::nullopt;
    Annotation a = Plume(e_.OptionDessin == OUTIL_CERCLE ? Annotation::Cercle : Annotation::Trait);
    a.style = TRAIT_POINT;
    a.a = depart_;
    a.b = courant_;
    if (e_.OptionDessin == OUTIL_CARRE) {
        const double d =
            std::max(std::fabs(courant_.Re - depart_.Re), std::fabs(courant_.Im - depart_.Im));
        a.genre = Annotation::Carre;
        a.a = Cart(depart_.Re - d, depart_.Im + d);
        a.b = Cart(depart_.Re + d, depart_.Im - d);
    }
    return a;
}

void PanneauDemarre::Dessiner(Plan& plan) const {
    DrawRelay(plan, affichage_);
    auto tracer = [&plan](const Annotation& a) {
        switch (a.genre) {
        case Annotation::Trait:
            plan.DrawSegment(plan.NewSegment(a.a, a.b, a.couleur, a.style, a.largeur), plan.Papier);
            break;
        case Annotation::Carre: {
            const Complexe c1 = a.a, c2 = Cart(a.b.Re, a.a.Im), c3 = a.b, c4 = Cart(a.a.Re, a.b.Im);
            for (const auto& [p, q] :
                 {std::pair{c1, c2}, std::pair{c2, c3}, std::pair{c3, c4}, std::pair{c4, c1}})
                plan.DrawSegment(plan.NewSegment(p, q, a.couleur, a.style, a.largeur), plan.Papier);
            break;
        }
        case Annotation::Cercle:
            plan.DrawArc(plan.NewArc(a.a, a.b, a.b, a.couleur, a.style, a.largeur), false,
                         plan.Papier);
            break;
        case Annotation::Texte:
            plan.DeplacerPlume(a.a.Re, a.a.Im);
            plan.NewPlaneLabel(a.texte.empty() ? "|" : a.texte, plan.PoliceEtiquettes);
            break;
        }
    };
    for (const Annotation& a : annotations_)
        tracer(a);
    if (const auto ebauche = Ebauche()) tracer(*ebauche);
}

bool PanneauDemarre::Fermer() {
    if (!PeutQuitterEtude()) return false;
    Fermer(FaconFermer::MenuSysteme);
    return true;
}

std::string PanneauDemarre::TitreAffiche() const {
    std::string titre = Titre();
    if (!e_.NomDepart.empty()) {
        titre += " " + e_.NomDepart;
        if (!e_.NomPiquage.empty()) titre += " - " + e_.NomPiquage;
    }
    if (RelaisConnu(e_.id_protection)) {
        titre +=
            ", " + std::string(LEGENDES_PROTECTION[static_cast<std::size_t>(e_.id_protection - 1)]);
        if (e_.id_numero > 0) titre += " n° " + std::to_string(e_.id_numero);
    }
    return e_.EtudeModifiee ? titre + " *" : titre;
}

bool PanneauDemarre::PeutQuitterEtude() {
    return tournesol::PeutQuitterEtude(e_, d_, base_);
}

void PanneauDemarre::Fermer(FaconFermer facon) {
    std::string texte;
    switch (facon) {
    case FaconFermer::MenuSysteme:
        texte = "Close";
        break;
    case FaconFermer::Programme:
        texte = "Leave";
        break;
    case FaconFermer::FinWindows:
        texte = "Leave Windows";
        break;
    case FaconFermer::GestionnaireTaches:
        texte = "Rude closing";
        break;
    case FaconFermer::Autre:
        break;
    }
    if (e_.ChangerPoste) texte = "Change...";
    e_.sTitre = "TOURNESOL : " + texte;
    if (facon == FaconFermer::MenuSysteme && !e_.ChangerPoste) e_.QuitterAppli = true;
    FermerPanneau();
}

} // namespace tournesol
