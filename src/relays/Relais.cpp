#include "relays/Relais.h"

#include "relays/pd3a/CalculPD3A.h"
#include "relays/rxap/CalculRXAP.h"

namespace tournesol {

void InscrireRelais() {
    static const bool inscrits = [] {
        InscrirePD3A();
        InscrireRXAP();
        return true;
    }();
    (void)inscrits;
}

} // namespace tournesol
