// The PDS's list in the setting store and the registration of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "relays/pds/CalculPDS.h"
#include "relays/pds/ImpressionPDS.h"
#include "relays/pds/PanneauPDS.h"
#include "relays/pds/TracePDS.h"

namespace tournesol {

namespace {

// Every value of the list, in its order and with the type it is stored in. The
// position of a value is its only name: the order never changes, the list only
// grows at its end.
template <class V> void ListePDS(Etude& e, V&& valeur) {
    valeur(e.X1_HT);
    valeur(e.X2_HT);
    valeur(e.X3_HT);
    valeur(e.X4_HT);
    valeur(e.X1reg_HT);
    valeur(e.X2reg_HT);
    valeur(e.X3reg_HT);
    valeur(e.X4reg_HT);
    valeur(e.teta);
    valeur(e.ko_reg);
    valeur(e.T2);
    valeur(e.T3);
    valeur(e.T4);
    valeur(e.Ligne_CRm);
    valeur(e.Ligne_CRt);
    valeur(e.Ligne_pp);
    valeur(e.CRcourant);
    valeur(e.PDS.ZavCharge);
    valeur(e.RL_eq);
    valeur(e.XL_eq);
    valeur(e.Teleaction);
    valeur(e.Acceleration);
    valeur(e.Verrouillage);
    valeur(e.Is);
}

void EcrireListePDS(Etude& e, MagasinReglages& m) {
    EcrireListe(e, m, [](Etude& x, auto&& f) { ListePDS(x, f); });
}

void LireListePDS(Etude& e, MagasinReglages& m) {
    LireListe(e, m, [](Etude& x, auto&& f) { ListePDS(x, f); });
    e.X3_commun = e.X3_HT;
    e.X4_commun = e.X4_HT;
}

} // namespace

void InscrirePDS() {
    InscrirePanneauRelais(ID_PDS, &FabriquerPanneau<PanneauPDS>);
    InscrireTraceRelais(ID_PDS, &DrawPDS);
    InscrireReglagesRelais(ID_PDS, &EcrireListePDS, &LireListePDS);
    InscrireImpressionRelais(ID_PDS, &ImprimerPDS);
    InscrireReglesRelais(
        ID_PDS, {{.Numero = 22,
                  .Rapport = {"The third zone is lower than 1.2 times the second zone, i.e. "},
                  .Fenetre = "The third zone is lower than 1.2 times the second zone, i. e.:"},
                 {.Numero = 23,
                  .Rapport = {"The forward pick up risks to see the faults beyond the "
                              "transformers of the "
                              "remote end",
                              "It might not overcome "},
                  .Fenetre = "The downstream pick up may see the faults beyond the "
                             "transformers of the "
                             "remote substation. It must not overcome:"},
                 {.Numero = 24,
                  .Rapport = {"The backward pick up risks to see the faults beyond the "
                              "transformers of "
                              "the close substation.",
                              "It must not overcome "},
                  .Fenetre = "The upstream pick up may see the faults beyond the "
                             "transformers of the "
                             "close substation. It must not overcome:"},
                 {.Numero = 25,
                  .Rapport = {"the first zone of the relay located at the remote end "
                              "risks to overcome "
                              "the backward zone of the relay",
                              "That last one must be greater than "},
                  .Fenetre = "the first zone of the remote relay may overcome the "
                             "upstream zone of the "
                             "close relay. That last one must be at least equal to:"}});
}

} // namespace tournesol
