// The S 321-5's report: the diagnostics and the line page as every relay prints them, then its
// settings (zones and earth factors; out of step, directional module, thresholds, timers,
// performances and the relay's identity on the next page).
#pragma once

namespace tournesol {

struct ContexteImpression;

void ImprimerS321(ContexteImpression& c);

} // namespace tournesol
