// The PXLN's list in the setting store and the registration of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "relays/FamillePXL.h"
#include "relays/pxln/CalculPXLN.h"
#include "relays/pxln/ImpressionPXLN.h"
#include "relays/pxln/PanneauPXLN.h"
#include "relays/pxln/TracePXLN.h"

namespace tournesol {

namespace {

// A timer kept by the relay's list as a 32-bit integer.
struct Tempo32 {
    Entier16& t;
};

ValeurTR Stocke(double v) {
    return v;
}
ValeurTR Stocke(float v) {
    return v;
}
ValeurTR Stocke(Entier16 v) {
    return v;
}
ValeurTR Stocke(bool v) {
    return EnEntier(v);
}
ValeurTR Stocke(Tempo32 v) {
    return static_cast<Entier32>(v.t);
}

template <class T> void Lire(const ValeurTR& v, T& cible) {
    LireDans(v, cible);
}
void Lire(const ValeurTR& v, Tempo32&& tempo) {
    LireDans(v, tempo.t);
}

// Every value of the list, in its order and with the type it is stored in. The position of a
// value is its only name: the order never changes, the list only grows at its end.
template <class V> void ListePXLN(Etude& e, V&& valeur) {
    RelaisPXLN& r = e.PXLN;
    valeur(r.deltaR_BT);
    valeur(r.deltaR_HT);
    valeur(r.deltaF);
    valeur(r.ZonesBloquees);
    valeur(r.OptIp);
    valeur(r.Ip_pct);
    valeur(r.OptIi);
    valeur(r.Ii_pct);
    valeur(r.OptIo);
    valeur(r.Io_pct);
    valeur(r.TempoBlocage);
    valeur(r.VerrReception);
    valeur(r.VerrEmission);
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
    valeur(Tempo32{e.T1});
    valeur(Tempo32{e.T2});
    valeur(Tempo32{e.T3});
    valeur(Tempo32{e.T4});
    valeur(r.Td);
    valeur(r.Maitre);
    valeur(e.Teleaction);
    valeur(r.PorteeReduite);
    valeur(r.DeclRapide);
    valeur(r.Signal);
    valeur(r.TypeDecl);
    valeur(r.Capacitif);
    for (double& p : r.ParamPXLN)
        valeur(p);
    valeur(e.Ligne_CRt);
    valeur(e.Ligne_CRm);
    valeur(e.RL_eq);
    valeur(e.XL_eq);
    valeur(e.Ligne_pp);
    valeur(e.Is);
}

void EcrireListePXLN(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    ListePXLN(e, [&](auto&& v) { EcrireTR(e, m, Stocke(v)); });
}

void LireListePXLN(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    ListePXLN(e, [&](auto&& v) { Lire(LireTR(e, m), std::forward<decltype(v)>(v)); });
    ZonesLuesPXL(e, e.PXLN);
}

} // namespace

void InscrirePXLN() {
    InscrirePanneauRelais(ID_PXLN, &FabriquerPanneau<PanneauPXLN>);
    InscrireTraceRelais(ID_PXLN, &DrawPXLN);
    InscrireReglagesRelais(ID_PXLN, &EcrireListePXLN, &LireListePXLN);
    InscrireImpressionRelais(ID_PXLN, &ImprimerPXLN);
    InscrireResumeRelais(ID_PXLN, [](const Etude& e) { return ResumePXL(e.PXLN); });
    InscrireReglesRelais(
        ID_PXLN,
        {{.Numero = 44,
          .Rapport = {"The third zone is lower than 1.2 times the second zone, i.e. "}},
         {.Numero = 45,
          .Rapport = {"The forward pick up risks to see the faults beyond the transformers of the "
                      "remote end",
                      "It must not overcome "}},
         {.Numero = 46,
          .Rapport = {"The external out of step risks to see the faults beyond the transformers "
                      "of the remote substation",
                      "Z2 might not overcome "}},
         {.Numero = 47,
          .Rapport = {"The backward pick up risks to see the faults beyond the transformers of "
                      "the close substation. ",
                      "It must not overcome "}},
         {.Numero = 48,
          .Rapport = {"The external out of step risks to see the faults beyond the transformers "
                      "of the close substation",
                      "It might not overcome "}},
         {.Numero = 49,
          .Rapport = {"the first zone of the relay located at the remote end risks to overcome",
                      "the backward zone of the relay", "That last one must be greater than "}}});
}

} // namespace tournesol
