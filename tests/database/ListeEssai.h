// The setting list of the test relays, shared by the tests of the base and their writer program.
#pragma once

#include "core/Etude.h"
#include "core/Magasin.h"

namespace essai {

using namespace tournesol;

// The list of a test relay: a reach (64-bit), a resistance (32-bit), a time and an option
// (16-bit), a second reach.
inline void EcrireListeEssai(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    EcrireTR(e, m, e.X1reg_HT);
    EcrireTR(e, m, e.Rreg_HT);
    EcrireTR(e, m, e.T1);
    EcrireTR(e, m, EnEntier(e.Teleaction));
    EcrireTR(e, m, e.X2reg_HT);
}

inline void LireListeEssai(Etude& e, MagasinReglages& m) {
    DebutTR(e);
    LireDans(LireTR(e, m), e.X1reg_HT);
    LireDans(LireTR(e, m), e.Rreg_HT);
    LireDans(LireTR(e, m), e.T1);
    LireDans(LireTR(e, m), e.Teleaction);
    LireDans(LireTR(e, m), e.X2reg_HT);
}

} // namespace essai
