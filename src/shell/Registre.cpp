#include "shell/Registre.h"

#include "relays/Relais.h"
#include "shell/Etude.h"

namespace tournesol {

void InitRegistre(Etude& e) {
    InscrireRelais();
    for (int i = 0; i < NOMBRE_RELAIS; ++i) {
        e.ReportAdmis[static_cast<std::size_t>(i)].fill(true);
        e.NomsProtection[static_cast<std::size_t>(i)] =
            std::string(LEGENDES_PROTECTION[static_cast<std::size_t>(i)]);
    }
    for (const int id : {1, 2, 6, 7, 11})
        e.ReportAdmis[static_cast<std::size_t>(id - 1)][REPORT_MONOPHASE] = false;
}

} // namespace tournesol
