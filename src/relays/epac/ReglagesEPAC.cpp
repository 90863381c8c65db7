// The EPAC's list in the setting store and the registration of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "relays/epac/CalculEPAC.h"
#include "relays/epac/ImpressionEPAC.h"
#include "relays/epac/PanneauEPAC.h"
#include "relays/epac/TraceEPAC.h"

namespace tournesol {

namespace {

// Every value of the list, in its order and with the type it is stored in. The position of a
// value is its only name: the order never changes, the list only grows at its end.
template <class V> void ListeEPAC(Etude& e, V&& valeur) {
    valeur(e.X1_HT);
    valeur(e.X2_HT);
    valeur(e.X3_HT);
    valeur(e.X4_HT);
    valeur(e.X1reg_HT);
    valeur(e.X2reg_HT);
    valeur(e.X3reg_HT);
    valeur(e.X4reg_HT);
    valeur(e.Rreg_HT);
    valeur(e.R_HT);
    valeur(e.Pompage);
    valeur(e.teta);
    valeur(e.ko_reg);
    valeur(e.T1);
    valeur(e.T2);
    valeur(e.T3);
    valeur(e.T4);
    valeur(e.Ligne_CRm);
    valeur(e.Ligne_CRt);
    valeur(e.Ligne_pp);
    valeur(e.CRcourant);
    valeur(e.EPAC.BandeR);
    valeur(e.EPAC.BandeX);
    valeur(e.RL_eq);
    valeur(e.XL_eq);
    valeur(e.Teleaction);
    valeur(e.Acceleration);
    valeur(e.Verrouillage);
    valeur(e.Is);
}

void EcrireListeEPAC(Etude& e, MagasinReglages& m) {
    EcrireListe(e, m, [](Etude& x, auto&& f) { ListeEPAC(x, f); });
}

void LireListeEPAC(Etude& e, MagasinReglages& m) {
    LireListe(e, m, [](Etude& x, auto&& f) { ListeEPAC(x, f); });
    e.X3_commun = e.X3_HT;
    e.X4_commun = e.X4_HT;
}

} // namespace

void InscrireEPAC() {
    InscrirePanneauRelais(ID_EPAC, &FabriquerPanneau<PanneauEPAC>);
    InscrireTraceRelais(ID_EPAC, &DrawEPAC);
    InscrireReglagesRelais(ID_EPAC, &EcrireListeEPAC, &LireListeEPAC);
    InscrireImpressionRelais(ID_EPAC, &ImprimerEPAC);
    InscrireReglesRelais(
        ID_EPAC,
        {{.Numero = 7,
          .Rapport = {"The third zone is lower than 1.2 times the second zone, i.e. "},
          .Fenetre = "The third zone is lower than 1.2 times the second zone, i. e.:"},
         {.Numero = 8,
          .Rapport = {"The forward pick up risks to see the faults beyond the transformers of the "
                      "remote substation",
                      "It might not overcome "},
          .Fenetre = "The downstream pick up may see the faults beyond the transformers of the "
                     "remote substation. It must not overcome:"},
         {.Numero = 9,
          .Rapport = {"The external out of step risks to see the faults beyond the transformers "
                      "of the remote substation",
                      "It might not overcome "},
          .Fenetre = "The external out of step may see the faults beyond the transformers of the "
                     "remote substation. It must not overcome:"},
         {.Numero = 10,
          .Rapport = {"The backward pick up risks to see the faults beyond the transformers of "
                      "the close substation.",
                      "It must not overcome "},
          .Fenetre = "The upstream pick up may see the faults beyond the transformers of the "
                     "close substation. It must not overcome:"},
         {.Numero = 11,
          .Rapport = {"The external out of step risks to see the faults beyond the transformers "
                      "of the close substation",
                      "It might not overcome "},
          .Fenetre = "The external out of step may see the faults beyond the transformers of the "
                     "close substation. It must not overcome:"},
         {.Numero = 12,
          .Rapport = {"the first zone of the relay located at the remote end risks to overcome "
                      "the backward zone of the relay",
                      "That last one must be greater than "},
          .Fenetre = "the first zone of the remote relay may overcome the upstream zone of the "
                     "close relay. That last one must be at least equal to:"}});
}

} // namespace tournesol
