// The report written to a PDF file: A4, the page scale in millimetres from the sheet's corner.
#pragma once

#include "printing/Impression.h"

#include <QString>

namespace tournesol {

struct Etude;
class Dialogue;

// Prints the study as Imprimer does (its copies and parts) into the file. False when the file
// cannot be written, or when no page was printed (no file is made then).
bool EcrireRapportPdf(Etude& e, Dialogue& d, const QString& chemin,
                      const OptionsImpression& options = {});

} // namespace tournesol
