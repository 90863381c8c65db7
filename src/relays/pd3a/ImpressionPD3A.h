// The PD3A's part of the report: the diagnostics, the line page and its settings, wheel by
// wheel, as the engineer copies them onto the relay.
#pragma once

namespace tournesol {

struct ContexteImpression;

void ImprimerPD3A(ContexteImpression& c);

} // namespace tournesol
