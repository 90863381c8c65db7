// The 7SA511's list in the setting store and the registration of the relay.
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "printing/Impression.h"
#include "relays/sa511/CalculSA511.h"
#include "relays/sa511/ImpressionSA511.h"
#include "relays/sa511/PanneauSA511.h"
#include "relays/sa511/TraceSA511.h"

namespace tournesol {

namespace {

// Every value of the list, in its order and with the type it is stored in. The position of a
// value is its only name: the order never changes, the list only grows at its end.
template <class V> void ListeSA511(Etude& e, V&& valeur) {
    RelaisSA511& r = e.SA511;
    valeur(r.deltaR);
    valeur(r.deltaR_HT);
    valeur(r.derivR);
    valeur(r.derivR_HT);
    valeur(r.ProgBlocage);
    valeur(r.RA1);
    valeur(r.RA2);
    valeur(r.RA1E);
    valeur(r.RA2E);
    valeur(r.XV);
    valeur(r.XM);
    valeur(r.Phia);
    valeur(r.Phiae);
    valeur(r.X1);
    valeur(r.X2);
    valeur(r.R1E);
    valeur(r.R2E);
    valeur(r.X1B);
    valeur(r.R1BE);
    valeur(r.RsurX);
    for (double& t : r.Tempo)
        valeur(t);
    valeur(e.Teleaction);
    valeur(e.Acceleration);
    valeur(r.Independante);
    valeur(r.BlocageEtendu);
    valeur(r.Te);
    valeur(r.Ts);
    valeur(e.Ligne_CRt);
    valeur(e.Ligne_CRm);
    valeur(e.RL_eq);
    valeur(e.XL_eq);
    valeur(r.Tve);
    valeur(r.Tvs);
    valeur(r.R1);
    valeur(r.R2);
    valeur(r.R1B);
    valeur(r.Ie);
    valeur(r.Iph);
    valeur(r.Tact);
    valeur(e.Is);
}

void EcrireListeSA511(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    ListeSA511(e, [&](auto& v) { EcrireTR(e, m, ValeurStockee(v)); });
}

void LireListeSA511(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    ListeSA511(e, [&](auto& v) { LireDans(LireTR(e, m), v); });
}

} // namespace

void InscrireSA511() {
    InscrirePanneauRelais(ID_SA511, &FabriquerPanneau<PanneauSA511>);
    InscrireTraceRelais(ID_SA511, &DrawSA511);
    InscrireReglagesRelais(ID_SA511, &EcrireListeSA511, &LireListeSA511);
    InscrireImpressionRelais(ID_SA511, &ImprimerSA511);
    // Its parameters are secondary ohms: their primary images by Kz.
    InscrireResumeRelais(ID_SA511, [](const Etude& e) -> std::vector<ValeurResumee> {
        const RelaisSA511& s = e.SA511;
        return {{"Maximal detectable resistance", s.R1 * e.Kz},
                {"First zone reach", s.X1 * e.Kz},
                {"Second zone reach", s.X2 * e.Kz},
                {"Forward pick up reach", s.XV * e.Kz},
                {"Backward reach", s.XM * e.Kz}};
    });
}

} // namespace tournesol
