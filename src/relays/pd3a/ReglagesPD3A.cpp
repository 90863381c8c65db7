// The PD3A's list in the setting store and the registration of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "relays/pd3a/CalculPD3A.h"
#include "relays/pd3a/ImpressionPD3A.h"
#include "relays/pd3a/PanneauPD3A.h"
#include "relays/pd3a/TracePD3A.h"

namespace tournesol {

namespace {

// Every value of the list, in its order and with the type it is stored in. The position of a
// value is its only name: the order never changes, the list only grows at its end.
template <class V> void ListePD3A(Etude& e, V&& valeur) {
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
    valeur(e.PD3A.PosTeta);
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
    valeur(e.PD3A.BandeR);
    valeur(e.PD3A.BandeX);
    valeur(e.RL_eq);
    valeur(e.XL_eq);
    valeur(e.Teleaction);
    valeur(e.Acceleration);
    valeur(e.Verrouillage);
    valeur(e.Is);
    // The variant, so that a 6562 opens again as a 6562.
    valeur(e.PD3A.Type6562);
}

void EcrireListePD3A(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    ListePD3A(e, [&](auto& v) { EcrireTR(e, m, ValeurStockee(v)); });
}

void LireListePD3A(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    ListePD3A(e, [&](auto& v) { LireDans(LireTR(e, m), v); });
    e.PD3A.Type6062 = !e.PD3A.Type6562;
    e.X3_commun = e.X3_HT;
    e.X4_commun = e.X4_HT;
}

} // namespace

void InscrirePD3A() {
    InscrirePanneauRelais(ID_PD3A, &FabriquerPanneau<PanneauPD3A>);
    InscrireTraceRelais(ID_PD3A, &DrawPD3A);
    InscrireReglagesRelais(ID_PD3A, &EcrireListePD3A, &LireListePD3A);
    InscrireImpressionRelais(ID_PD3A, &ImprimerPD3A);
    InscrireReglesRelais(
        ID_PD3A,
        {{.Numero = 15,
          .Rapport = {"The third zone is lower than 1.2 times the second zone, i.e. :    "}},
         {.Numero = 16,
          .Rapport = {"The gap between second and third zone is lower than the backward out of "
                      "step bandwidth. i.e.:    "}},
         {.Numero = 17,
          .Rapport = {"The forward pick up risks to see the faults beyond the transformers of the "
                      "remote end",
                      "It might not overcome:    "}},
         // Its limit is printed as that of rule 17.
         {.Numero = 18,
          .Rapport = {"The backward pick up risks to see the faults beyond the transformers of "
                      "the close substation.",
                      "It must not overcome:    "},
          .ValeurImprimee = 17},
         {.Numero = 19,
          .Rapport = {"The backward out of step bandwidth risks to see the faults beyond the "
                      "tranformers of the close substation.",
                      "It must not overcome:    "}},
         {.Numero = 20,
          .Rapport = {"The forward reactance is too weak in relation with the fault resistance",
                      "That resitance might not overcome:    "}},
         {.Numero = 21,
          .Rapport = {"The first zone of the relay located at the remote end risks to overcome "
                      "the backward zone of the relay",
                      "That last one must be greater than "}}});
}

} // namespace tournesol
