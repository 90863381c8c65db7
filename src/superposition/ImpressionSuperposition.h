// The print of the superposition window: a first page with the head of the two places and the
// common drawing, then a short settings page of each place.
#pragma once

#include "printing/Impression.h"

#include <string>

namespace tournesol {

class Superposition;

// ImpCopies copies (0 prints one), each a document; Escape (ArretImpression) aborts the copy
// under way and the rest. The working variables hold place 2 afterwards. `dateHeure`: now when
// empty.
void ImprimerSuperposition(Superposition& s, Dialogue& d, Page& page, EtatImpression& etat,
                           const std::string& dateHeure = {});

} // namespace tournesol
