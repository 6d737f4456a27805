#pragma once

#include <string>
#include <vector>

#include "host/catalogue.h"

namespace vmk {

// A stored value that is not what its setting may be.
struct Damage {
    const SettingInfo* setting = nullptr;
    std::string stored;  // as it is shown; a password is asterisks
    std::string reason;
    std::string read;  // what a host reads instead, as it is shown
};

// The damaged settings of a key, in the order of storing. Throws Failure when there is no such key.
std::vector<Damage> FindDamage(const std::wstring& subKey);

}  // namespace vmk
