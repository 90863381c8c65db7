// The relays the system knows, registered with the panels, the plane, the setting store, the
// diagnostics and the report. Start-up registers them once (InitRegistre).
#pragma once

namespace tournesol {

void InscrireRelais();

} // namespace tournesol
