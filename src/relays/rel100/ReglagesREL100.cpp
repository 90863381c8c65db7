// The REL 100's list in the setting store and the registration of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "printing/Impression.h"
#include "relays/rel100/CalculREL100.h"
#include "relays/rel100/ImpressionREL100.h"
#include "relays/rel100/PanneauREL100.h"
#include "relays/rel100/TraceREL100.h"

namespace tournesol {

namespace {

// Every value of the list, in its order and with the type it is stored in. The position of a
// value is its only name: the order never changes, the list only grows at its end. The
// secondary values follow from the primary ones and Kz when the panel opens in mode "Modify".
template <class V> void ListeREL100(Etude& e, V&& valeur) {
    valeur(e.X1_HT);
    valeur(e.X2_HT);
    valeur(e.X3_HT);
    valeur(e.X4_HT);
    valeur(e.X1reg_HT);
    valeur(e.X2reg_HT);
    valeur(e.X3reg_HT);
    valeur(e.X4reg_HT);
    valeur(e.R_HT);
    valeur(e.Rreg_HT);
    valeur(e.teta);
    valeur(e.ko_reg);
    valeur(e.REL100.RsurX);
    valeur(e.T1);
    valeur(e.T2);
    valeur(e.T3);
    valeur(e.T4);
    valeur(e.Teleaction);
    valeur(e.Acceleration);
    valeur(e.Verrouillage);
    valeur(e.RL_eq);
    valeur(e.XL_eq);
    valeur(e.Is);
}

void EcrireListeREL100(Etude& e, MagasinReglages& m) {
    EcrireListe(e, m, [](Etude& x, auto&& f) { ListeREL100(x, f); });
}

void LireListeREL100(Etude& e, MagasinReglages& m) {
    LireListe(e, m, [](Etude& x, auto&& f) { ListeREL100(x, f); });
}

} // namespace

void InscrireREL100() {
    InscrirePanneauRelais(ID_REL100, &FabriquerPanneau<PanneauREL100>);
    InscrireTraceRelais(ID_REL100, &DrawREL100);
    InscrireReglagesRelais(ID_REL100, &EcrireListeREL100, &LireListeREL100);
    InscrireImpressionRelais(ID_REL100, &ImprimerREL100);
}

} // namespace tournesol
