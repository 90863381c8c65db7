// The 7SA511's part of the report: the diagnostics, the line page with the line's parameters,
// then every setting under its parameter code, as the engineer keys them into the relay.
#pragma once

namespace tournesol {

struct ContexteImpression;

void ImprimerSA511(ContexteImpression& c);

} // namespace tournesol
