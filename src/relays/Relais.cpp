#include "relays/Relais.h"

#include "relays/pd3a/CalculPD3A.h"
#include "relays/sa511/CalculSA511.h"

namespace tournesol {

void InscrireRelais() {
    static const bool inscrits = [] {
        InscrireSA511();
        InscrirePD3A();
        return true;
    }();
    (void)inscrits;
}

} // namespace tournesol
