// The EPAC's part of the report: the diagnostics, the line page and its settings, parameter by
// parameter, as the engineer enters them into the relay.
#pragma once

namespace tournesol {

struct ContexteImpression;

void ImprimerEPAC(ContexteImpression& c);

} // namespace tournesol
