#include "printing/Impression.h"

#include "core/Couleurs.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/Registre.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tournesol {

namespace {

std::array<ImpressionRelais, NOMBRE_RELAIS> impressions{};

constexpr double TAILLE_TITRE = 14.0;
constexpr double TAILLE_ENTETE = 9.0;
constexpr double TAILLE_MINIMALE = 6.0;
constexpr double TAILLE_TEXTE = 10.0;
constexpr double HAUTEUR_ENTETE = 15.0;
constexpr double LIGNES_DE_MARGE = 13.0;
constexpr int COLONNE_ENTETE = 90;          // the values of the head
constexpr int COLONNE_LIBELLES_ENTETE = 55; // the captions of the substations
const char* const TITRE = "TOURNESOL";

constexpr Stylo TRAIT_EXTERIEUR{0, TRAIT_PLEIN, 4.0};
constexpr Stylo TRAIT_INTERIEUR_CADRE{0, TRAIT_PLEIN, 1.0};

// Runs `f` in the font it sets, then gives the page its font back.
template <class F> auto DansLaPolice(Page& page, double taille, bool gras, F f) {
    const PolicePage avant = page.Police();
    page.ChoisirTaille(taille);
    page.ChoisirGras(gras);
    auto resultat = f();
    page.ChoisirTaille(avant.Taille);
    page.ChoisirGras(avant.Gras);
    return resultat;
}

CadresPage CadresDeLaPage(const ContexteImpression& c) {
    const double hauteurTitre =
        DansLaPolice(c.page, TAILLE_TITRE, true, [&] { return c.page.HauteurTexte(TITRE); });
    return CalculerCadres({0.0, 0.0, c.page.Largeur(), c.page.Hauteur()}, c.etat.MargeImpression,
                          c.etat.DemiMarge, c.e.Pas, hauteurTitre);
}

void Encadrer(Page& page, const CadreImpression& cadre, const Stylo& stylo) {
    page.Cadre(cadre.Left, cadre.Top, cadre.Width, cadre.Height, stylo);
}

std::string NomDuRelais(const Etude& e) {
    if (e.id_protection == 5) return "PXLC-PSEL";
    if (e.id_protection < 1 || e.id_protection > NOMBRE_RELAIS) return {};
    const auto i = static_cast<std::size_t>(e.id_protection - 1);
    return e.NomsProtection[i].empty() ? std::string(LEGENDES_PROTECTION[i]) : e.NomsProtection[i];
}

} // namespace

CadresPage CalculerCadres(const CadreImpression& echelle, double marge, double demiMarge,
                          double pas, double hauteurTitre) {
    CadresPage c;
    c.CadrePage = {echelle.Left + marge, echelle.Top + demiMarge, echelle.Width - 1.5 * marge,
                   echelle.Height - 2.0 * demiMarge};
    const CadreImpression& page = c.CadrePage;
    c.CadreTitre = {page.Left + pas, page.Top + pas, page.Width - 2.0 * pas,
                    hauteurTitre + 2.0 * pas};
    const CadreImpression& titre = c.CadreTitre;
    c.CadreEntete = {titre.Left, titre.Top + titre.Height + pas, titre.Width, HAUTEUR_ENTETE};
    const CadreImpression& entete = c.CadreEntete;
    const double sousEntete = entete.Top + entete.Height + pas;
    const double cote = titre.Width - 50.0;
    c.CadreDessin = {titre.Left + 25.0, sousEntete, cote, cote};
    const CadreImpression& dessin = c.CadreDessin;
    c.CadrePied = {titre.Left, dessin.Top + dessin.Height + 9.0 * pas, titre.Width,
                   page.Height - titre.Height - entete.Height - dessin.Height - 13.0 * pas};
    c.CadreCaracteristiques = {titre.Left, sousEntete, titre.Width, 115.0};
    const CadreImpression& caracteristiques = c.CadreCaracteristiques;
    c.CadreSuite = {titre.Left, caracteristiques.Top + caracteristiques.Height + pas, titre.Width,
                    page.Height - caracteristiques.Height - titre.Height - entete.Height -
                        5.0 * pas};
    c.CadreTexte = {titre.Left, sousEntete, titre.Width,
                    page.Height - titre.Height - entete.Height - 5.0 * pas};
    return c;
}

void MesurerMarge(Page& page, EtatImpression& etat) {
    const std::string avant = page.Police().Nom;
    page.ChoisirPolice(POLICE_IMPRESSION);
    etat.MargeImpression = LIGNES_DE_MARGE * DansLaPolice(page, TAILLE_TEXTE, false,
                                                          [&] { return page.HauteurTexte(" "); });
    etat.DemiMarge = std::floor(etat.MargeImpression / 2.0);
    etat.MargeMesuree = true;
    page.ChoisirPolice(avant);
}

// ---- progress ----

namespace {
void Signaler(const Etude& e, const EtatImpression& etat) {
    if (etat.SuiviProgression)
        etat.SuiviProgression(e.ProgressionActive, etat.Progression, etat.TexteProgression);
}
} // namespace

void DebutProgression(Etude& e, EtatImpression& etat, int pas, const std::string& texte) {
    e.PasProgression = pas > 0 ? 100.0 / pas : 100.0;
    etat.TexteProgression = texte;
    etat.Progression = 0.0;
    e.ProgressionActive = true;
    Signaler(e, etat);
}

void AvancerProgression(Etude& e, EtatImpression& etat, int n) {
    if (!e.ProgressionActive) return;
    etat.Progression = std::clamp(etat.Progression + n * e.PasProgression, 0.0, 100.0);
    Signaler(e, etat);
}

void PlacerProgression(Etude& e, EtatImpression& etat, int n) {
    if (!e.ProgressionActive) return;
    etat.Progression = std::clamp(n * e.PasProgression, 0.0, 100.0);
    Signaler(e, etat);
}

void FinProgression(Etude& e, EtatImpression& etat) {
    e.ProgressionActive = false;
    etat.TexteProgression.clear();
    Signaler(e, etat);
}

bool DoitImprimer(const Etude& e) {
    if (e.ArretImpression) return false;
    if (e.PageImpression == 1) return e.ImpParties[0];
    if (e.PageImpression == 2) return e.ImpParties[1];
    if (e.PageImpression >= 3) return e.ImpParties[2];
    return false;
}

// ---- the page ----

void AllerColonne(ContexteImpression& c, int n) {
    if (c.e.ArretImpression) return;
    c.page.CurrentX = c.cadres.CadreSuite.Left + c.e.Pas + n * c.e.Pas;
    c.d.LaisserPasserEvenements();
}

void NouvellePageImpression(ContexteImpression& c) {
    c.page.NouvellePage();
    c.page.Placer(0.0, 0.0);
}

void ImprimerEntete(ContexteImpression& c, GenrePage genre) {
    if (c.e.ArretImpression) return;
    Page& page = c.page;
    const CadresPage& k = c.cadres;
    const double pas = c.e.Pas;
    Encadrer(page, k.CadrePage, TRAIT_EXTERIEUR);
    switch (genre) {
    case GenrePage::Dessin:
        Encadrer(page, k.CadreDessin, TRAIT_INTERIEUR_CADRE);
        Encadrer(page, k.CadrePied, TRAIT_INTERIEUR_CADRE);
        break;
    case GenrePage::Caracteristiques:
        Encadrer(page, k.CadreCaracteristiques, TRAIT_INTERIEUR_CADRE);
        Encadrer(page, k.CadreSuite, TRAIT_INTERIEUR_CADRE);
        break;
    case GenrePage::Texte:
        Encadrer(page, k.CadreTexte, TRAIT_INTERIEUR_CADRE);
        break;
    }
    Encadrer(page, k.CadreTitre, TRAIT_INTERIEUR_CADRE);
    Encadrer(page, k.CadreEntete, TRAIT_INTERIEUR_CADRE);

    const PolicePage avant = page.Police();
    // The title, a blank inside its frame.
    page.ChoisirTaille(TAILLE_TITRE);
    page.ChoisirGras(true);
    page.Placer(k.CadreTitre.Left + pas, k.CadreTitre.Top + pas);
    page.Ecrire(TITRE);
    page.ChoisirTaille(TAILLE_ENTETE);
    page.ChoisirGras(false);
    const double hauteurLigne = page.HauteurTexte(" ");
    const double haut = k.CadreEntete.Top + pas;
    auto ligne = [&](int rang, int colonne, const std::string& texte) {
        if (c.e.ArretImpression) return;
        page.CurrentY = haut + rang * hauteurLigne;
        AllerColonne(c, colonne);
        // A name too long for the frame takes smaller type, down to 6 points.
        const double place = k.CadreEntete.Left + k.CadreEntete.Width - pas - page.CurrentX;
        const double largeur = page.LargeurTexte(texte);
        if (largeur > place && place > 0.0)
            page.EcrireEnTaille(texte, std::max(TAILLE_MINIMALE, TAILLE_ENTETE * place / largeur));
        else
            page.Ecrire(texte);
    };
    // The substations, their names in column 90.
    ligne(0, COLONNE_LIBELLES_ENTETE, "Substation A :");
    ligne(0, COLONNE_ENTETE, c.e.NomPoste);
    ligne(1, COLONNE_LIBELLES_ENTETE, "Substation B:  ");
    ligne(1, COLONNE_ENTETE, c.e.NomDepart);
    if (c.e.Ligne_Tl == 3 || c.e.LigneTroisBouts || !c.e.NomPiquage.empty()) {
        ligne(2, COLONNE_LIBELLES_ENTETE, "Substation C:  ");
        ligne(2, COLONNE_ENTETE, c.e.NomPiquage);
    }
    // The date and time of the print, the relay and its number.
    ligne(0, 0, c.dateHeure);
    ligne(1, 0, NomDuRelais(c.e) + "  n°  " + std::to_string(c.e.id_numero));
    page.ChoisirTaille(avant.Taille);
    page.ChoisirGras(avant.Gras);
}

void CommencerPage(ContexteImpression& c, GenrePage genre) {
    if (c.e.ArretImpression) return;
    NouvellePageImpression(c);
    ImprimerEntete(c, genre);
}

void ImprimerDessin(ContexteImpression& c, const DessinPlan& dessin) {
    if (c.e.ArretImpression) return;
    SurfacePage surface(c.page, c.cadres.CadreDessin);
    Plan plan(c.e, surface);
    plan.Papier = true;
    plan.PrintFrame = c.cadres.CadreDessin;
    if (dessin)
        dessin(plan);
    else
        DrawRelay(plan, OptionsAffichage{}); // the plane's axes first, then the load area
    // The report case at the foot of the drawing, in the font's size: the case in force, also
    // when it was not changed since the study was opened.
    const std::string cas = c.e.sReport.empty() ? TitreReport(c.e.TypeReportCharge) : c.e.sReport;
    const CadreImpression& cadre = c.cadres.CadreDessin;
    const double largeur = c.page.LargeurTexte(cas);
    c.page.Placer(cadre.Left + (cadre.Width - largeur) / 2.0,
                  cadre.Top + cadre.Height + 2.0 * c.e.Pas);
    c.page.Ecrire(cas);
}

void EcrireOhm(Page& page) {
    page.EcrireEnTaille(" \xCE\xA9", page.Police().Taille - 1.0); // Ω
}

// ---- the relays' pages ----

void InscrireImpressionRelais(int id_protection, ImpressionRelais impression) {
    if (id_protection >= 1 && id_protection <= NOMBRE_RELAIS)
        impressions[static_cast<std::size_t>(id_protection - 1)] = impression;
}

ImpressionRelais ImpressionInscrite(int id_protection) {
    if (id_protection < 1 || id_protection > NOMBRE_RELAIS) return nullptr;
    return impressions[static_cast<std::size_t>(id_protection - 1)];
}

void ImpressionSansReglages(ContexteImpression& c) {
    Etude& e = c.e;
    if (DoitImprimer(e)) {
        c.page.ChoisirTaille(8.0);
        DebutProgression(e, c.etat, 9, "Page 1 : diagnostics");
        ImprimerDiagnostics(c);
    }
    if (e.ArretImpression) return;
    ++e.PageImpression;
    if (DoitImprimer(e)) {
        DebutProgression(e, c.etat, 13, "Page 2 : Line");
        CommencerPage(c, GenrePage::Caracteristiques);
        ImprimerCaracteristiquesLigne(c);
    }
}

void ImprimerRelais(ContexteImpression& c) {
    if (c.e.ArretImpression) return;
    const ImpressionRelais impression = ImpressionInscrite(c.e.id_protection);
    (impression ? impression : ImpressionSansReglages)(c);
}

// ---- the print ----

std::string DateHeureCourte(std::time_t moment) {
    const std::tm* local = std::localtime(&moment);
    if (!local) return {};
    char texte[32];
    const std::size_t n = std::strftime(texte, sizeof texte, "%d/%m/%Y - %H:%M", local);
    return std::string(texte, n);
}

void PreparerRapport(Etude& e) {
    // The titles of the working window's report options.
    InitCouleurs(e);
    e.ImpParties = {true, true, true};
    e.ImpCopies = 1;
    e.ArretImpression = false;
    if (!(e.ScaleWidth > 0.0f)) ZoomIdeal(e);
    if (e.sReport.empty() && e.TypeReportCharge >= 0 && e.TypeReportCharge <= 2)
        e.sReport = TitreReport(e.TypeReportCharge);
}

void Imprimer(Etude& e, Dialogue& d, Page& page, EtatImpression& etat,
              const OptionsImpression& options) {
    if (e.ArretImpression) return;
    page.ChoisirPolice(POLICE_IMPRESSION);
    page.ChoisirTaille(TAILLE_TEXTE);
    page.ChoisirGras(false);
    e.PageImpression = 1;
    if (e.ImpCopies <= 0) e.ImpCopies = 1;
    e.Pas = 1.0; // millimetres
    if (!etat.MargeMesuree) MesurerMarge(page, etat);
    ContexteImpression c{e,
                         d,
                         page,
                         etat,
                         {},
                         options.textesRegles,
                         options.dateHeure.empty() ? DateHeureCourte(std::time(nullptr))
                                                   : options.dateHeure};
    for (int copie = 0; copie < e.ImpCopies; ++copie) {
        // Every copy is the whole report.
        e.PageImpression = 1;
        page.ChoisirTaille(TAILLE_TEXTE);
        page.ChoisirGras(false);
        c.cadres = CadresDeLaPage(c);
        if (DoitImprimer(e)) {
            DebutProgression(e, etat, 100, "Page 1 : drawing");
            NouvellePageImpression(c);
            ImprimerDessin(c, options.dessin);
            ImprimerEntete(c, GenrePage::Dessin);
        }
        if (!e.ArretImpression) ImprimerRelais(c);
        if (e.ArretImpression) {
            page.Abandonner();
            break;
        }
        page.Terminer();
    }
    FinProgression(e, etat);
}

} // namespace tournesol
