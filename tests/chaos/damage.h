#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/chaos/raw_values.h"

namespace vmk::test {

// What may have become of a stored value: other bytes, or nothing at all.
struct Damage {
    std::string kind;
    std::optional<RawValue> value;
};

// Every kind of damage, for values of any sort: each type of the registry with bytes that do not fit it,
// lengths of all sorts, texts without an end, numbers out of all limits.
const std::vector<Damage>& AllDamages();

}  // namespace vmk::test
