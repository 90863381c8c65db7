// The RXAP's list in the setting store and the registration of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "relays/rxap/CalculRXAP.h"
#include "relays/rxap/ImpressionRXAP.h"
#include "relays/rxap/PanneauRXAP.h"
#include "relays/rxap/TraceRXAP.h"

namespace tournesol {

namespace {

// Every value of the list, in its order and with the type it is stored in.
template <class V> void ListeRXAP(Etude& e, V&& valeur) {
    RelaisRXAP& r = e.RXAP;
    valeur(e.X1_BT);
    valeur(e.X2_BT);
    valeur(r.MR);
    valeur(r.MRAP);
    valeur(r.Image);
    valeur(r.focale);
    valeur(r.exmr);
    valeur(r.exap);
    valeur(r.AvecImage);
    valeur(r.AvecPompage);
    valeur(r.Cercle);
    valeur(r.K);
    valeur(r.TypeIn);
    valeur(e.Ligne_CRm);
    valeur(e.Ligne_CRt);
    valeur(r.Arg);
    valeur(e.X1reg_HT);
    valeur(e.X2reg_HT);
    valeur(e.T1);
    valeur(e.T2);
    valeur(e.T3);
    valeur(e.T4);
    valeur(e.RL_eq);
    valeur(e.XL_eq);
    valeur(e.Ligne_pp);
    valeur(e.Is);
}

void EcrireListeRXAP(Etude& e, MagasinReglages& m) {
    EcrireListe(e, m, [](Etude& x, auto&& f) { ListeRXAP(x, f); });
}

void LireListeRXAP(Etude& e, MagasinReglages& m) {
    LireListe(e, m, [](Etude& x, auto&& f) { ListeRXAP(x, f); });
}

} // namespace

void InscrireRXAP() {
    InscrirePanneauRelais(ID_RXAP, &FabriquerPanneau<PanneauRXAP>);
    InscrireTraceRelais(ID_RXAP, &DrawRXAP);
    InscrireReglagesRelais(ID_RXAP, &EcrireListeRXAP, &LireListeRXAP);
    InscrireImpressionRelais(ID_RXAP, &ImprimerRXAP);
    InscrireReglesRelais(
        ID_RXAP,
        {{.Numero = 71,
          .Rapport = {"The third zone is lower than 1.2 times the second zone, i.e. "}},
         {.Numero = 72,
          .Rapport = {"The forward pick up of phase to phase loops risks to see the faults beyond "
                      "the transformers of the remote end.",
                      "Zf might not overcome "}},
         {.Numero = 73,
          .Rapport = {"The forward out of step zone of phase to phase loop risks to see the faults "
                      "beyond the ",
                      "transformers of the remote substation,", "It must not overcome "}},
         {.Numero = 74,
          .Rapport = {"The backward pick up risks to see the faults beyond the transformers of the "
                      "close substation.",
                      "It must not overcome "}},
         {.Numero = 75,
          .Rapport = {"The backward out of step zone risks to see the faults beyond the "
                      "transformers of the close end ",
                      "It must not overcome "}},
         {.Numero = 76,
          .Rapport = {"the first zone of the relay located at the remote end risks to overcome the "
                      "backward zone of the relay.",
                      "That last one must be greater than "}}});
}

} // namespace tournesol
