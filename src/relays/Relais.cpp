#include "relays/Relais.h"

#include "relays/pd3a/CalculPD3A.h"
#include "relays/pxln/CalculPXLN.h"

namespace tournesol {

void InscrireRelais() {
    static const bool inscrits = [] {
        InscrirePD3A();
        InscrirePXLN();
        return true;
    }();
    (void)inscrits;
}

} // namespace tournesol
