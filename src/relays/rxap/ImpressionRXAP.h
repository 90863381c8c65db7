// The RXAP's report: the diagnostics and the line page as every relay prints them, then its
// settings page (the variant, the switches, the secondary and primary values).
#pragma once

namespace tournesol {

struct ContexteImpression;

void ImprimerRXAP(ContexteImpression& c);

} // namespace tournesol
