#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace vmk {
struct NumberValues;
}

namespace vmk::policy {

// A number, or a text in UTF-8.
using Value = std::variant<std::int32_t, std::string>;

struct Setting {
    std::string_view name;   // as stored
    std::string_view group;  // identifier
    std::wstring_view groupName;
    Value byDefault;
    bool mayBeNumber = false;
    bool mayBeText = false;

    // What it may be as a number; null for a text.
    const NumberValues* Numbers() const;
};

// Every setting, in the order of storing.
const std::vector<Setting>& AllSettings();

// The setting of a stored name; null when there is none.
const Setting* FindSetting(std::string_view name);

// Whether it is turned on and off, and nothing else.
bool IsSwitch(const Setting& setting);
bool IsPassword(std::string_view name);

using Assignment = std::pair<const Setting*, Value>;

// "NAME=VALUE": a number in decimal for a number, everything behind the "=" for a text. Throws Refusal for an
// unknown name, a password, and a number that the setting may not have.
Assignment ReadAssignment(std::string_view text);

// Every setting but the passwords with its default.
std::vector<Assignment> Defaults();

}  // namespace vmk::policy
