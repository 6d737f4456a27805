#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "settings/choices.h"
#include "settings/page_set.h"

namespace vmk {

// A setting as it is stored: a number or a text.
using Value = std::variant<std::int32_t, std::wstring>;

enum class Kind { Number, Text, NumberOrText };

// What there is to know of a setting. Each exists once, so that its address stands for it, and addresses are
// in the order of storing.
struct SettingInfo {
    std::string_view name;
    PageSet group = 0;
    Kind kind = Kind::Number;
    bool secret = false;                    // a password
    const NumberValues* numbers = nullptr;  // what a number may be; null for a text
    Value standard;                         // the default of a fresh record

    bool TakesNumbers() const { return kind != Kind::Text; }
    bool TakesTexts() const { return kind != Kind::Number; }
};

// Every setting, in the order of storing.
const std::vector<SettingInfo>& Settings();

// The setting of a name, whose case does not count, as in the registry; null for any other name.
const SettingInfo* FindSetting(std::string_view name);

// Whether a name is that of a password, also one that is no setting of this version. The case does not count.
bool IsPassword(std::string_view name);

}  // namespace vmk
