#pragma once

#include "settings/printer_settings.h"

namespace vmk {

// What a setting becomes when its stored value is missing or cannot be read: the default of a fresh record,
// but for the command line of the program that is run on the finished file, which is then empty.
inline PrinterSettings LoadDefaults() {
    PrinterSettings defaults;
    defaults.Save.App.Params.clear();
    return defaults;
}

}  // namespace vmk
