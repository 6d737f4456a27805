#pragma once

#include "settings/printer_settings.h"
#include "tests/chaos/raw_values.h"

// What loading and storing are to make of any bytes, told without the component's own code.

namespace vmk::test {

// A record that has none of its defaults, and that every page shows and stores as it is.
PrinterSettings UndamagedSettings();

// The record after loading the values into one that held `before`.
PrinterSettings Reading(const RawValues& values, const PrinterSettings& before);

// How a record lies in the registry.
RawValues Stored(const PrinterSettings& settings);

}  // namespace vmk::test
