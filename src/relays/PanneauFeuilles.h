// A dialog of sheets opened from a relay's panel (the PXLN's parameters, say): the tabs behave
// as the relay panel's, without any computation; "&OK" takes every field into the study and
// closes, "&Cancel" closes and changes nothing. The fields are filled from the study each time
// the dialog is opened. A field left out of its range takes the limit, with no message, in the
// field only: the study waits for OK.
#pragma once

#include "relays/PanneauTable.h"

#include <string>
#include <vector>

namespace tournesol {

class PanneauFeuilles : public PanneauTable {
public:
    static constexpr const char* BOUTON_OK = "cmdOK";
    static constexpr const char* BOUTON_ANNULER = "cmdAnnuler";

    // A dialog of that name and title, its sheets and its table (which outlives it).
    PanneauFeuilles(Etude& e, std::string nom, std::string titre, std::vector<std::string> onglets,
                    const TableChamps& table);

    // The fields from the study, the first sheet in front.
    void Ouvrir();

    void Quitter(const std::string& champ) override; // limited and taken to its step
    void Cliquer(const std::string& nom) override;   // the sheets, OK, Cancel
    void Valider() override;                         // every field into the study, closed
    void Annuler() override;                         // closed, the study as it was
    bool Fermer() override;                          // the close box cancels
};

} // namespace tournesol
