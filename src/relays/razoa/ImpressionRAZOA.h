// The RAZOA's settings page of the report.
#pragma once

namespace tournesol {

struct ContexteImpression;

void ImprimerRAZOA(ContexteImpression& c);

} // namespace tournesol
