// The relays the system knows, registered with the panels, the plane, the setting store, the
// diagnostics and the report. The programs register them once at their start.
#pragma once

namespace tournesol {

void InscrireRelais();

} // namespace tournesol
