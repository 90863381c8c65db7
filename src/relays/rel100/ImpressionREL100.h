// The REL 100's part of the report: the diagnostics, the line page, then its settings in
// secondary and primary ohms as the engineer sets them on the relay.
#pragma once

namespace tournesol {

struct ContexteImpression;

void ImprimerREL100(ContexteImpression& c);

} // namespace tournesol
