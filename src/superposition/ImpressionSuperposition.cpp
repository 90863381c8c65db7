#include "superposition/ImpressionSuperposition.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "core/Registre.h"
#include "superposition/Superposition.h"

#include <ctime>

namespace tournesol {

namespace {

constexpr const char* FORMAT_OHMS = "##0.00";
constexpr Stylo TRAIT_EXTERIEUR{0, TRAIT_PLEIN, 4.0};
constexpr Stylo TRAIT_CADRE{0, TRAIT_PLEIN, 1.0};
constexpr int COLONNE_PLACE2 = 66;  // the second place's names, beside the first's
constexpr int COLONNE_NOMS = 24;    // a name after its caption
constexpr int COLONNE_VALEURS = 80; // the values of a short settings page

void Encadrer(Page& page, const CadreImpression& c, const Stylo& stylo) {
    page.Cadre(c.Left, c.Top, c.Width, c.Height, stylo);
}

std::string NomDuModele(const Etude& e) {
    if (e.id_protection == 5) return "PXLC-PSEL";
    if (!RelaisConnu(e.id_protection)) return {};
    const auto i = static_cast<std::size_t>(e.id_protection - 1);
    return e.NomsProtection[i].empty() ? std::string(LEGENDES_PROTECTION[i]) : e.NomsProtection[i];
}

// The first page: the two places named in the head and under the drawing, each in its colour.
void PremierePage(ContexteImpression& c, Superposition& s) {
    Etude& e = c.e;
    Page& page = c.page;
    const CadresPage& k = c.cadres;
    NouvellePageImpression(c);
    // The drawing, on paper, clipped to its square.
    {
        SurfacePage surface(page, k.CadreDessin);
        Plan plan(e, surface);
        plan.Papier = true;
        plan.PrintFrame = k.CadreDessin;
        s.RetracerTout(plan);
    }
    for (const CadreImpression* cadre :
         {&k.CadreDessin, &k.CadrePied, &k.CadreTitre, &k.CadreEntete})
        Encadrer(page, *cadre, TRAIT_CADRE);
    Encadrer(page, k.CadrePage, TRAIT_EXTERIEUR);
    page.ChoisirTaille(14.0);
    page.ChoisirGras(true);
    page.Placer(k.CadreTitre.Left + e.Pas, k.CadreTitre.Top + e.Pas);
    page.Ecrire("TOURNESOL");
    page.ChoisirTaille(9.0);
    page.ChoisirGras(false);
    const double ligne = page.HauteurTexte(" ");
    auto ecrire = [&](double haut, int rang, int colonne, const std::string& texte,
                      Couleur couleur) {
        if (e.ArretImpression) return;
        page.CurrentY = haut + rang * ligne;
        AllerColonne(c, colonne);
        page.TexteEn(page.CurrentX, page.CurrentY, texte, e.ImpNoir ? 0 : couleur);
    };
    const double haut = k.CadreEntete.Top + e.Pas;
    ecrire(haut, 0, 0, "   Superposition of two settings", 0);
    ecrire(haut, 1, 0, "   The two superposed substations are :", 0);
    ecrire(haut, 0, 90, c.dateHeure, 0);
    // Under the drawing, the names of each place in its colour.
    const double pied = k.CadrePied.Top + e.Pas;
    for (const int n : {1, 2}) {
        const Place& p = s.PlaceNumero(n);
        const Couleur couleur = n == 1 ? e.CouleurPoste1 : e.CouleurPoste2;
        const int colonne = n == 1 ? 0 : COLONNE_PLACE2;
        const std::string i = std::to_string(n);
        const std::string libelles[] = {"substation A" + i + " :", "substation B" + i + " :",
                                        "substation C" + i + " :", "Relay " + i + " :"};
        const std::string valeurs[] = {
            p.Poste, p.Depart, p.Piquage,
            s.Identification(n).substr(s.Identification(n).rfind(", ") + 2)};
        for (int r = 0; r < 4; ++r) {
            ecrire(pied, r, colonne, libelles[r], couleur);
            ecrire(pied, r, colonne + COLONNE_NOMS, valeurs[r], couleur);
        }
    }
}

// The short settings page of a place: its reaches, resistance and timers as the relay set them,
// and its line.
void PageCourte(ContexteImpression& c, Superposition& s, int n) {
    Etude& e = c.e;
    s.RestaurerPlace(n);
    CommencerPage(c, GenrePage::Texte);
    if (e.ArretImpression) return;
    Page& page = c.page;
    page.Placer(c.cadres.CadreTexte.Left + e.Pas, c.cadres.CadreTexte.Top + 2.0 * e.Pas);
    page.ChoisirGras(true);
    ImprimerCellules(c, {{0, "Settings of substation A" + std::to_string(n) + ": " + e.NomPoste}},
                     12.0);
    page.ChoisirGras(false);
    ImprimerCellules(c, {{0, ""}});
    ImprimerCellules(c,
                     {{0, "protective relay"},
                      {COLONNE_VALEURS, NomDuModele(e) + "  n°  " + std::to_string(e.id_numero)}});
    AvancerProgression(e, c.etat, 1);
    auto ohms = [&](const char* libelle, double valeur) {
        if (valeur != 0.0)
            ImprimerCellules(
                c,
                {{0, libelle}, {COLONNE_VALEURS, FormaterNombre(valeur, FORMAT_OHMS), true, " P"}});
    };
    for (const ValeurResumee& v : ResumeDuRelais(e))
        ohms(v.Libelle.c_str(), v.Ohms);
    AvancerProgression(e, c.etat, 1);
    const Entier16 tempos[] = {e.T1, e.T2, e.T3, e.T4};
    for (int t = 0; t < 4; ++t)
        if (tempos[t] != 0)
            ImprimerCellules(c, {{0, "Timer T" + std::to_string(t + 1)},
                                 {COLONNE_VALEURS, FormaterNombre(tempos[t], "###0") + " ms"}});
    ImprimerCellules(c, {{0, ""}});
    ohms("Line resistance", e.RL_eq);
    ohms("Line reactance", e.XL_eq);
    AvancerProgression(e, c.etat, 1);
}

} // namespace

void ImprimerSuperposition(Superposition& s, Dialogue& d, Page& page, EtatImpression& etat,
                           const std::string& dateHeure) {
    Etude& e = s.etude();
    if (e.ArretImpression) return;
    page.ChoisirPolice(POLICE_IMPRESSION);
    page.ChoisirTaille(10.0);
    page.ChoisirGras(false);
    if (e.ImpCopies <= 0) e.ImpCopies = 1;
    e.Pas = 1.0;
    if (!etat.MargeMesuree) MesurerMarge(page, etat);
    ContexteImpression c{e,
                         d,
                         page,
                         etat,
                         {},
                         {},
                         dateHeure.empty() ? DateHeureCourte(std::time(nullptr)) : dateHeure};
    page.ChoisirTaille(14.0);
    page.ChoisirGras(true);
    const double hauteurTitre = page.HauteurTexte("TOURNESOL");
    page.ChoisirTaille(10.0);
    page.ChoisirGras(false);
    c.cadres = CalculerCadres({0.0, 0.0, page.Largeur(), page.Hauteur()}, etat.MargeImpression,
                              etat.DemiMarge, e.Pas, hauteurTitre);
    for (int copie = 0; copie < e.ImpCopies; ++copie) {
        e.PageImpression = 1;
        if (DoitImprimer(e)) {
            DebutProgression(e, etat, 100, "Page 1 : drawing");
            PremierePage(c, s);
        }
        // The short pages are the relays' settings.
        e.PageImpression = 3;
        for (const int n : {1, 2})
            if (DoitImprimer(e)) {
                DebutProgression(e, etat, 3,
                                 n == 1 ? "Page 1 : superposed settings"
                                        : "Page 2 : superposed settings");
                PageCourte(c, s, n);
            }
        if (e.ArretImpression) {
            page.Abandonner();
            break;
        }
        page.Terminer();
    }
    FinProgression(e, etat);
}

} // namespace tournesol
