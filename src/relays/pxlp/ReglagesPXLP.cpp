// The PXLP's list in the setting store, its print page, its characteristic and the registration
// of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "relays/FamillePXL.h"
#include "relays/ImpressionPXL.h"
#include "relays/pxlp/CalculPXLP.h"
#include "relays/pxlp/PanneauPXLP.h"

namespace tournesol {

namespace {

// Every value of the list, in its order and with the type it is stored in. The position of a
// value is its only name: the order never changes, the list only grows at its end.
template <class V> void ListePXLP(Etude& e, V&& valeur) {
    RelaisPXLP& r = e.PXLP;
    valeur(r.deltaR_BT);
    valeur(r.deltaR_HT);
    valeur(r.deltaF);
    valeur(r.ZonesBloquees);
    valeur(r.Rmoc_BT);
    valeur(r.Rmoc_HT);
    valeur(r.Rbic_BT);
    valeur(r.Rbic_HT);
    valeur(r.Rmor_BT);
    valeur(r.Rmor_HT);
    valeur(r.Rbir_BT);
    valeur(r.Rbir_HT);
    for (double& x : r.XPct)
        valeur(x);
    valeur(r.RsurX);
    valeur(e.T1);
    valeur(e.T2);
    valeur(e.T3);
    valeur(e.T4);
    valeur(r.Td);
    valeur(r.Maitre);
    valeur(e.Teleaction);
    valeur(r.PorteeReduite);
    valeur(r.DeclRapide);
    valeur(r.Signal);
    valeur(e.Ligne_CRt);
    valeur(e.Ligne_CRm);
    valeur(e.RL_eq);
    valeur(e.XL_eq);
    valeur(e.Ligne_pp);
    valeur(e.Is);
}

void EcrireListePXLP(Etude& e, MagasinReglages& m) {
    EcrireListe(e, m, [](Etude& x, auto&& f) { ListePXLP(x, f); });
}

void LireListePXLP(Etude& e, MagasinReglages& m) {
    LireListe(e, m, [](Etude& x, auto&& f) { ListePXLP(x, f); });
    ZonesLuesPXL(e, e.PXLP);
}

void DrawPXLP(Plan& plan, const OptionsAffichage& options) {
    DessinerRelaisPXL(plan, options, plan.etude().PXLP);
}

void ImprimerPXLP(ContexteImpression& c) {
    ImpressionSansReglages(c);
    Etude& e = c.e;
    if (e.ArretImpression) return;
    if (DoitImprimer(e)) {
        DebutProgression(e, c.etat, 3, "Page 2 : settings");
        ImprimerReglagesPXL(c, ReglagesImprimes(e.PXLP));
    }
}

} // namespace

void InscrirePXLP() {
    InscrirePanneauRelais(ID_PXLP, &FabriquerPanneau<PanneauPXLP>);
    InscrireTraceRelais(ID_PXLP, &DrawPXLP);
    InscrireReglagesRelais(ID_PXLP, &EcrireListePXLP, &LireListePXLP);
    InscrireImpressionRelais(ID_PXLP, &ImprimerPXLP);
    InscrireResumeRelais(ID_PXLP, [](const Etude& e) { return ResumePXL(e.PXLP); });
    std::vector<TexteRegle> regles = TextesReglesCommunesPXL(REGLES_COMMUNES_PXLP);
    regles.push_back(
        {.Numero = 36,
         .Rapport = {"The third zone risks to see the faults beyond the transformers of the "
                     "remote end.",
                     "It must not overcome "},
         .Fenetre = "The third zone may see the faults beyond the transformers of the remote "
                    "substation. It must not overcome:"});
    // The corners of the pick-up, printed in the report only.
    regles.push_back({.Numero = 42,
                      .Rapport = {"The corner of the forward pick up risks to see the faults "
                                  "beyond the transformers of the remote end",
                                  "Its reach along the line must not overcome "}});
    regles.push_back({.Numero = 43,
                      .Rapport = {"The corner of the backward pick up risks to see the faults "
                                  "beyond the transformers of the close substation",
                                  "Its reach along the line must not overcome "}});
    InscrireReglesRelais(ID_PXLP, regles);
}

} // namespace tournesol
