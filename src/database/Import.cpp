#include "database/Import.h"

#include "core/Etude.h"
#include "database/BaseEtudesSql.h"

namespace tournesol {

bool ImporterEtude(BaseEtudesSql& base, Etude& e, Dialogue& d) {
    // Open finds the keys (and makes the row of a new line); the study's own values stay.
    Etude cles = e;
    base.Ouvrir(cles, d);
    e.id_ligne = cles.id_ligne;
    e.id_poste = cles.id_poste;
    e.id_depart = cles.id_depart;
    e.id_piquage = cles.id_piquage;
    e.id_reglage = cles.id_reglage;
    if (e.ProtectionChoisie == 0)
        e.ProtectionChoisie = e.id_protection; // the relay choice of the study
    e.Sauvegarde = true;
    return base.Sauver(e, d);
}

} // namespace tournesol
