// The REZ1's list in the setting store and the registration of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "printing/Impression.h"
#include "relays/rez1/CalculREZ1.h"
#include "relays/rez1/ImpressionREZ1.h"
#include "relays/rez1/PanneauREZ1.h"
#include "relays/rez1/TraceREZ1.h"

namespace tournesol {

namespace {

// Every value of the list, in its order and with the type it is stored in. The position of a
// value is its only name: the order never changes, the list only grows at its end. The
// secondary values follow from the primary ones and Kz when the panel opens in mode "Modify".
template <class V> void ListeREZ1(Etude& e, V&& valeur) {
    RelaisREZ1& r = e.REZ1;
    valeur(e.X1_HT);
    valeur(e.X2_HT);
    valeur(e.X3_HT);
    valeur(e.X4_HT);
    valeur(e.X1reg_HT);
    valeur(e.X2reg_HT);
    valeur(e.X3reg_HT);
    valeur(e.X4reg_HT);
    valeur(r.Zpi_HT);
    valeur(r.Zpireg_HT);
    valeur(e.R_HT);
    valeur(e.Rreg_HT);
    valeur(r.Rpi_HT);
    valeur(e.teta);
    valeur(e.ko_reg);
    valeur(r.RsurX);
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

void EcrireListeREZ1(Etude& e, MagasinReglages& m) {
    EcrireListe(e, m, [](Etude& x, auto&& f) { ListeREZ1(x, f); });
}

void LireListeREZ1(Etude& e, MagasinReglages& m) {
    LireListe(e, m, [](Etude& x, auto&& f) { ListeREZ1(x, f); });
}

} // namespace

void InscrireREZ1() {
    InscrirePanneauRelais(ID_REZ1, &FabriquerPanneau<PanneauREZ1>);
    InscrireTraceRelais(ID_REZ1, &DrawREZ1);
    InscrireReglagesRelais(ID_REZ1, &EcrireListeREZ1, &LireListeREZ1);
    InscrireImpressionRelais(ID_REZ1, &ImprimerREZ1);
}

} // namespace tournesol
