#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/stored_settings.h"
#include "settings/choices.h"

namespace vmk {

// Adds to what is shown of each number its meaning, as in "1 (Auto)": the dialog's English text for it, or
// the unit. A number that is neither a choice nor in the range gets "(not a known value)", a mere count
// nothing.
void AddMeanings(std::vector<StoredSetting>& settings);

// The meaning alone, empty where there is nothing to say. Which order a number means goes by the pages per
// sheet.
std::string Meaning(std::string_view name, std::int32_t number, std::int32_t pagesPerSheet);

// The choices of a setting, which of the order go by the pages per sheet.
std::span<const Choice> ChoicesFor(const NumberValues& values, std::int32_t pagesPerSheet);

}  // namespace vmk
