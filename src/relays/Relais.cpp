#include "relays/Relais.h"

#include "relays/pd3a/CalculPD3A.h"

namespace tournesol {

void InscrireRelais() {
    static const bool inscrits = [] {
        InscrirePD3A();
        return true;
    }();
    (void)inscrits;
}

} // namespace tournesol
