#include "database/Import.h"

#include "core/Etude.h"
#include "database/BaseEtudesSql.h"

namespace tournesol {

void PreparerImport(Etude& e) {
    e.id_ligne = e.id_poste = e.id_depart = e.id_piquage = e.id_reglage = 0;
    if (e.ProtectionChoisie == 0 && e.id_protection >= 1 && e.id_protection <= NOMBRE_RELAIS)
        e.ProtectionChoisie = e.id_protection; // the relay choice of the study
}

bool ImporterEtude(BaseEtudesSql& base, Etude& e, Dialogue& d) {
    PreparerImport(e);
    e.Sauvegarde = true;
    return base.Sauver(e, d);
}

} // namespace tournesol
