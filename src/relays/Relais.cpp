#include "relays/Relais.h"

#include "relays/pd3a/CalculPD3A.h"
#include "relays/razoa/CalculRAZOA.h"

namespace tournesol {

void InscrireRelais() {
    static const bool inscrits = [] {
        InscrirePD3A();
        InscrireRAZOA();
        return true;
    }();
    (void)inscrits;
}

} // namespace tournesol
