// What a command of the base may change in the study, kept so that a command that fails leaves
// the study as it found it, as it leaves the base.
#pragma once

#include "core/Etude.h"

namespace tournesol {

struct ClesEtude {
    Entier32 id_ligne, id_reglage, id_poste, id_depart, id_piquage, id_protection, PositionTR;
    Entier16 ErrCalcul;
    Booleen Sauvegarde, EtudeModifiee, FinTR, NouvelleLigne, ProtectionInconnue, SuppressionLigne;
    Texte NomPoste, NomDepart, NomPiquage, NomProtection;

    static ClesEtude De(const Etude& e) {
        return {e.id_ligne,           e.id_reglage,       e.id_poste,   e.id_depart,
                e.id_piquage,         e.id_protection,    e.PositionTR, e.ErrCalcul,
                e.Sauvegarde,         e.EtudeModifiee,    e.FinTR,      e.NouvelleLigne,
                e.ProtectionInconnue, e.SuppressionLigne, e.NomPoste,   e.NomDepart,
                e.NomPiquage,         e.NomProtection};
    }

    // Everything back. The relay number is not kept here: a number the user typed at the save's
    // request stays, so that the next attempt does not ask it again.
    void Remettre(Etude& e) const {
        e.id_ligne = id_ligne;
        e.id_reglage = id_reglage;
        e.id_poste = id_poste;
        e.id_depart = id_depart;
        e.id_piquage = id_piquage;
        e.id_protection = id_protection;
        e.PositionTR = PositionTR;
        e.ErrCalcul = ErrCalcul;
        e.Sauvegarde = Sauvegarde;
        e.EtudeModifiee = EtudeModifiee;
        e.FinTR = FinTR;
        e.NouvelleLigne = NouvelleLigne;
        e.ProtectionInconnue = ProtectionInconnue;
        e.SuppressionLigne = SuppressionLigne;
        e.NomPoste = NomPoste;
        e.NomDepart = NomDepart;
        e.NomPiquage = NomPiquage;
        e.NomProtection = NomProtection;
    }
};

} // namespace tournesol
