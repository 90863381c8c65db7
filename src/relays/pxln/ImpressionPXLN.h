// The PXLN's pages of the report: the diagnostics and the line as every relay prints them, its
// settings in secondary and primary ohms and in per cent of the line, then its parameter listing
// over the pages of the relay's settings.
#pragma once

namespace tournesol {

struct ContexteImpression;

void ImprimerPXLN(ContexteImpression& c);

} // namespace tournesol
