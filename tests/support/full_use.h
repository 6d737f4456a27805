#pragma once

#include "settings/printer_settings.h"

namespace vmk::test {

// A record with everything in use, so that as many controls as possible are enabled. The pages store all of
// it as it was loaded. Both font lists are empty: which fonts are installed is up to the machine.
PrinterSettings SettingsInFullUse();

}  // namespace vmk::test
