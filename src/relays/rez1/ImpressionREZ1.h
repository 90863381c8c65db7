// The REZ1's part of the report: the diagnostics, the line page, then its settings in secondary
// and primary ohms, the out-of-step zones among them.
#pragma once

namespace tournesol {

struct ContexteImpression;

void ImprimerREZ1(ContexteImpression& c);

} // namespace tournesol
