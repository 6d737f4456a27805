#pragma once

#include "settings/page_set.h"
#include "settings/printer_settings.h"

namespace vmk {

// Puts the settings that a reset takes back to their defaults, for every group whose bit is set. A reset is
// partial by contract: most groups give back their first settings only, the groups of the pages Optimization,
// Overlay and Digital signature none at all. Throws std::bad_alloc; the settings copied until then stay.
void ResetToDefaults(PrinterSettings& settings, PageSet groups);

}  // namespace vmk
