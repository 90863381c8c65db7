// The RAZOA's list in the setting store and the registration of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "relays/razoa/CalculRAZOA.h"
#include "relays/razoa/ImpressionRAZOA.h"
#include "relays/razoa/PanneauRAZOA.h"
#include "relays/razoa/TraceRAZOA.h"

namespace tournesol {

namespace {

// Every value of the list, in its order and with the type it is stored in. The position of a
// value is its only name: the order never changes, the list only grows at its end.
template <class V> void ListeRAZOA(Etude& e, V&& valeur) {
    RelaisRAZOA& r = e.RAZOA;
    valeur(r.Y);
    valeur(r.Jo);
    valeur(e.X1_BT);
    valeur(e.X2_BT);
    valeur(e.X3_BT);
    valeur(r.R1);
    valeur(r.a);
    valeur(r.b);
    valeur(r.p1);
    valeur(r.p2);
    valeur(r.p3);
    valeur(r.Z2);
    valeur(r.Zf);
    valeur(r.Zr);
    valeur(e.X1reg_BT);
    valeur(e.X2reg_BT);
    valeur(e.X3reg_BT);
    valeur(r.R1reg);
    valeur(r.R2reg);
    valeur(r.R3reg);
    valeur(e.teta);
    valeur(r.K);
    valeur(r.Cercle);
    valeur(r.Lentille);
    valeur(r.AvecPompage);
    // The signalling scheme and its acceleration; the blocking is the acceleration's negation.
    valeur(e.Teleaction);
    valeur(e.Acceleration);
    valeur(r.D);
    valeur(r.RfProche);
    valeur(e.Ligne_CRm);
    valeur(e.Ligne_CRt);
    valeur(e.Ligne_pp);
    valeur(e.Ceq);
    valeur(r.Dmini);
    valeur(e.RL_eq);
    valeur(e.XL_eq);
    valeur(e.T1);
    valeur(e.T2);
    valeur(e.T3);
    valeur(e.T4);
    valeur(r.TReg);
    valeur(e.Is);
    // The position of the relay RGZA30, so that the tripping timer opens again on T2 or T3.
    valeur(r.RGZA);
}

void EcrireListeRAZOA(Etude& e, MagasinReglages& m) {
    EcrireListe(e, m, [](Etude& x, auto&& f) { ListeRAZOA(x, f); });
}

void LireListeRAZOA(Etude& e, MagasinReglages& m) {
    LireListe(e, m, [](Etude& x, auto&& f) { ListeRAZOA(x, f); });
    e.Verrouillage = !e.Acceleration;
}

} // namespace

void InscrireRAZOA() {
    InscrirePanneauRelais(ID_RAZOA, &FabriquerPanneau<PanneauRAZOA>);
    InscrireDefautsRelais(ID_RAZOA, &DefautsRAZOA);
    InscrireTraceRelais(ID_RAZOA, &DrawRAZOA);
    InscrireReglagesRelais(ID_RAZOA, &EcrireListeRAZOA, &LireListeRAZOA);
    InscrireImpressionRelais(ID_RAZOA, &ImprimerRAZOA);
    InscrireReglesRelais(
        ID_RAZOA,
        {{.Numero = 50,
          .Rapport = {"The forward reach on phase to phase loop is lower than 1.2 times the "
                      "second zone, i.e. "}},
         {.Numero = 51,
          .Rapport = {"The forward pick up on phase to earth loop risks to see the faults beyond "
                      "the transformers of the remote end",
                      "Zf might not overcome "}},
         {.Numero = 52,
          .Rapport = {"The forward out of step zone on phase to phase loop risks to see the faults "
                      "beyond the transformers of the remote end",
                      "Z2 might not overcome "}},
         {.Numero = 53,
          .Rapport = {"For the faults on the limit of the third zone can be seen, the out of step "
                      "factor Z2",
                      "must be greater than: "}},
         {.Numero = 54,
          .Rapport = {"The backward pick up on phase to phase loop risks to see the faults beyond "
                      "the transformers of the close substation.",
                      "It must not overcome "}},
         {.Numero = 55,
          .Rapport = {"The backward out of step zone on phase to phase loop risks to see the "
                      "faults beyond the transformers of the close end",
                      "Z2 might not overcome "}},
         {.Numero = 56,
          .Rapport = {"the first zone of the relay located at the remote end risks to overcome "
                      "the backward zone of the relay",
                      "That last one must be greater than "}}});
}

} // namespace tournesol
