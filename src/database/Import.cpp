#include "database/Import.h"

#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "database/BaseEtudesSql.h"

namespace tournesol {

bool ImporterEtude(BaseEtudesSql& base, Etude& e, Dialogue& d) {
    PreparerImport(e);
    e.Sauvegarde = true;
    return base.Sauver(e, d);
}

} // namespace tournesol
