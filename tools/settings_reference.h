#pragma once

#include <string>
#include <string_view>

#include "tools/setting_descriptions.h"

namespace vmk::docs {

// The row of a stored name; null when there is none.
const SettingDescription* FindDescription(std::string_view name);

// The settings reference (settings.md): names, kinds and defaults from the field lists, what numbers may be
// from the choices, the rest from the descriptions. Throws std::logic_error for a name that one of them
// lacks.
std::string SettingsReference();

}  // namespace vmk::docs
