#pragma once

#include "settings/printer_settings.h"

// Settings with which a whole dialog can be walked through:
//
//     settings.Store(SettingsInFullUse());
//     LiveDialog dialog({.settings = &settings});
//     for (const std::wstring& name : dialog.PageNames()) Visit(dialog.Page(name));

namespace vmk::test {

// A record with everything in use, so that as many controls as possible are enabled. The pages store all of
// it as it was loaded. Both font lists are empty: which fonts are installed is up to the machine.
PrinterSettings SettingsInFullUse();

}  // namespace vmk::test
