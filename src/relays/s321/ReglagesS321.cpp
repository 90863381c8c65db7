// The S 321-5's list in the setting store and the registration of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "relays/s321/CalculS321.h"
#include "relays/s321/ImpressionS321.h"
#include "relays/s321/PanneauS321.h"
#include "relays/s321/TraceS321.h"

namespace tournesol {

namespace {

// Every value of the list, in its order and with the type it is stored in.
template <class V> void ListeS321(Etude& e, V&& valeur) {
    RelaisS321& r = e.S321;
    for (float* seuil : {&r._50G1, &r._50G2, &r._50G3, &r._50G4, &r._50PP1, &r._50PP2, &r._50PP3,
                         &r._50PP4, &r._50L1, &r._50L2, &r._50L3, &r._50L4, &r._50QR, &r._50QF})
        valeur(*seuil);
    valeur(r.A2);
    for (double* z :
         {&r.Z1MG, &r.Z2MG, &r.Z3MG, &r.Z4MG, &r.XG1,  &r.XG2,  &r.XG3,  &r.XG4,  &r.RG1,
          &r.RG2,  &r.RG3,  &r.RG4,  &r.R1R6, &r.R1L6, &r.R1R5, &r.R1L5, &r.X1T6, &r.X1B6,
          &r.X1T5, &r.X1B5, &r.Z2F,  &r.Z2R,  &r.KO1M, &r.KOM,  &r.KO1A, &r.KOA})
        valeur(*z);
    valeur(r.AvecPompage);
    valeur(e.Ligne_CRm);
    valeur(e.Ligne_CRt);
    valeur(e.Ceq);
    valeur(r.KR);
    valeur(e.RL_eq);
    valeur(e.XL_eq);
    valeur(e.Ligne_pp);
    for (Entier16* t : {&r.Z2GD, &r.Z3GD, &r.Z4GD, &r.Z2PD, &r.Z3PD, &r.Z4PD})
        valeur(*t);
    valeur(e.Is);
    // The out-of-step timers, so that they open again as they were saved.
    valeur(r.OSBD);
    valeur(r.UBD);
}

void EcrireListeS321(Etude& e, MagasinReglages& m) {
    EcrireListe(e, m, [](Etude& x, auto&& f) { ListeS321(x, f); });
}

void LireListeS321(Etude& e, MagasinReglages& m) {
    LireListe(e, m, [](Etude& x, auto&& f) { ListeS321(x, f); });
}

} // namespace

void InscrireS321() {
    InscrirePanneauRelais(ID_S321, &FabriquerPanneau<PanneauS321>);
    InscrireTraceRelais(ID_S321, &DrawS321);
    InscrireReglagesRelais(ID_S321, &EcrireListeS321, &LireListeS321);
    InscrireImpressionRelais(ID_S321, &ImprimerS321);
    // Its impedances are kept in primary ohms; the resistance is zone 1's quadrilateral.
    InscrireResumeRelais(ID_S321, [](const Etude& e) -> std::vector<ValeurResumee> {
        const RelaisS321& r = e.S321;
        return {{"Maximal detectable resistance", r.KR * r.RG1},
                {"First zone reach", r.XG1},
                {"Second zone reach", r.XG2},
                {"Forward reach", r.XG4},
                {"Backward reach", r.XG3}};
    });
    InscrireReglesRelais(
        ID_S321,
        {{.Numero = 79,
          .Rapport = {"The forward pick up on phase to earth loop is lower than 1.2 times the "
                      "second zonef of phase to earth loops, i. e.: "}},
         {.Numero = 80,
          .Rapport = {"The forward pick up on phase to phase loop is lower than 1.2 times the "
                      "second zonef of phase to phase loops, i. e.: "}},
         {.Numero = 81,
          .Rapport = {"The forward pick up on phase to earth loop risks to see the faults beyond "
                      "the transformers of the remote end",
                      "It must not overcome "}},
         {.Numero = 82,
          .Rapport = {"The forward pick up on phase to phase loop risks to see the faults beyond "
                      "the transformers of the remote end",
                      "It must not overcome "}},
         {.Numero = 83,
          .Rapport = {"The forward out of step risks to see the faults beyond the transformers of "
                      "the remote end.",
                      "It must not overcome "}},
         {.Numero = 84,
          .Rapport = {"The backward pick up on phase to earth loop risks to see the faults beyond "
                      "the transformers of the close end. ",
                      "It must not overcome "}},
         {.Numero = 85,
          .Rapport = {"The backward pick up on phase to phase loop risks to see the faults beyond "
                      "the transformers of the close substation.",
                      "It must not overcome "}},
         {.Numero = 86,
          .Rapport = {"The backward out of step risks to see the faults beyond the transformers of "
                      "the close end.",
                      "It must not overcome "}},
         {.Numero = 87,
          .Rapport = {"the first zone of the relay located at the remote end risks to overcome",
                      "the backward zone of the relay.", "That last one must be greater than: "}}});
}

} // namespace tournesol
