// The PDS's part of the report: the diagnostics, the line page and its
// settings, plug by plug, as the engineer sets them on the relay.
#pragma once

namespace tournesol {

struct ContexteImpression;

void ImprimerPDS(ContexteImpression& c);

} // namespace tournesol
