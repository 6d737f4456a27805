#pragma once

#include <windows.h>

#include "base/handle.h"

namespace vmk {

struct RegistryKeyTraits {
    using Value = HKEY;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { RegCloseKey(value); }
};

// Owner of an open registry key.
using UniqueRegistryKey = UniqueHandle<RegistryKeyTraits>;

}  // namespace vmk
