// The PXLC's list in the setting store, its print pages, its characteristic and the
// registration of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "printing/Redacteur.h"
#include "relays/FamillePXL.h"
#include "relays/ImpressionPXL.h"
#include "relays/pxlc/CalculPXLC.h"
#include "relays/pxlc/PanneauPXLC.h"

namespace tournesol {

namespace {

// The column of the values on the setting sheet, in steps of the frame.
constexpr int COLONNE_FEUILLE = 70;
constexpr double TAILLE_FEUILLE = 10.0;

// Every value of the list, in its order and with the type it is stored in. The position of a
// value is its only name: the order never changes, the list only grows at its end.
template <class V> void ListePXLC(Etude& e, V&& valeur) {
    RelaisPXLC& r = e.PXLC;
    valeur(r.deltaR_BT);
    valeur(r.deltaR_HT);
    valeur(r.deltaF);
    valeur(r.ZonesBloquees);
    valeur(r.Rmoc_BT);
    valeur(r.Rmoc_HT);
    valeur(r.Rbic_BT);
    valeur(r.Rbic_HT);
    for (double& x : r.XPct)
        valeur(x);
    valeur(r.RsurX);
    valeur(e.T1);
    valeur(e.T2);
    valeur(e.T3);
    valeur(e.T4);
    valeur(e.Teleaction);
    valeur(e.Acceleration);
    valeur(e.Verrouillage);
    valeur(r.TypeDecl);
    valeur(r.FeuilleReglages);
    valeur(e.Ligne_CRt);
    valeur(e.Ligne_CRm);
    valeur(e.RL_eq);
    valeur(e.XL_eq);
    valeur(e.Ligne_pp);
    valeur(e.Is);
}

void EcrireListePXLC(Etude& e, MagasinReglages& m) {
    EcrireListe(e, m, [](Etude& x, auto&& f) { ListePXLC(x, f); });
}

void LireListePXLC(Etude& e, MagasinReglages& m) {
    LireListe(e, m, [](Etude& x, auto&& f) { ListePXLC(x, f); });
    ZonesLuesPXL(e, e.PXLC);
}

void DrawPXLC(Plan& plan, const OptionsAffichage& options) {
    DessinerRelaisPXL(plan, options, plan.etude().PXLC);
}

void ImprimerPXLC(ContexteImpression& c) {
    ImpressionSansReglages(c);
    Etude& e = c.e;
    if (e.ArretImpression) return;
    if (DoitImprimer(e)) {
        DebutProgression(e, c.etat, 3, "Page 2 : settings");
        ReglagesImprimesPXL r = ReglagesImprimes(e.PXLC, PAS_PXLC);
        r.Options = {{"Signalling scheme", !e.Teleaction    ? "No signalling scheme"
                                           : e.Acceleration ? "Acceleration"
                                                            : "Blocking overreach"},
                     {"Phase selector", e.PXLC.TypeDecl == 1 ? "Single phase tripping on zone 1"
                                                             : "No single phase tripping"}};
        ImprimerReglagesPXL(c, r);
    }
    if (e.ArretImpression) return;
    // The relay's setting sheet, on the third kind of page, which the print dialog offers as the
    // panel's box says.
    ++e.PageImpression;
    if (!DoitImprimer(e)) return;
    DebutProgression(e, c.etat, 1, "Page 3 : Settings");
    CommencerPage(c, GenrePage::Texte);
    c.page.ChoisirTaille(TAILLE_FEUILLE);
    c.page.ChoisirGras(false);
    Redacteur redacteur(c, &CadresPage::CadreTexte, GenrePage::Texte);
    for (const auto& [parametre, valeur] : FeuilleReglagesPXLC(e)) {
        if (e.ArretImpression) return;
        redacteur.Ligne({{0, parametre}, {COLONNE_FEUILLE, valeur}});
    }
    AvancerProgression(e, c.etat, 1);
}

} // namespace

void InscrirePXLC() {
    InscrirePanneauRelais(ID_PXLC, &FabriquerPanneau<PanneauPXLC>);
    InscrireTraceRelais(ID_PXLC, &DrawPXLC);
    InscrireReglagesRelais(ID_PXLC, &EcrireListePXLC, &LireListePXLC);
    InscrireImpressionRelais(ID_PXLC, &ImprimerPXLC);
    InscrireResumeRelais(ID_PXLC, [](const Etude& e) { return ResumePXL(e.PXLC); });
    InscrireReglesRelais(ID_PXLC, TextesReglesCommunesPXL(REGLES_PXLC));
}

} // namespace tournesol
