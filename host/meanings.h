#pragma once

#include <vector>

#include "host/stored_settings.h"

namespace vmk {

// Adds to what is shown of each number its meaning, as in "1 (Auto)": the dialog's English text for it, or
// the unit. A number that is neither a choice nor in the range gets "(not a known value)", a mere count
// nothing.
void AddMeanings(std::vector<StoredSetting>& settings);

}  // namespace vmk
