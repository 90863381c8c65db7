#include "relays/Relais.h"

#include "relays/epac/CalculEPAC.h"
#include "relays/pd3a/CalculPD3A.h"
#include "relays/pds/CalculPDS.h"
#include "relays/pxlc/CalculPXLC.h"
#include "relays/pxln/CalculPXLN.h"
#include "relays/pxlp/CalculPXLP.h"
#include "relays/razoa/CalculRAZOA.h"
#include "relays/rel100/CalculREL100.h"
#include "relays/rez1/CalculREZ1.h"
#include "relays/rxap/CalculRXAP.h"
#include "relays/s321/CalculS321.h"
#include "relays/sa511/CalculSA511.h"

namespace tournesol {

void InscrireRelais() {
    static const bool inscrits = [] {
        InscrireSA511();
        InscrireEPAC();
        InscrirePD3A();
        InscrirePDS();
        InscrireRXAP();
        InscrireS321();
        InscrirePXLC();
        InscrirePXLP();
        InscrirePXLN();
        InscrireRAZOA();
        InscrireREL100();
        InscrireREZ1();
        return true;
    }();
    (void)inscrits;
}

} // namespace tournesol
