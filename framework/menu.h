#pragma once

#include <windows.h>

#include "base/handle.h"
#include "framework/module.h"

namespace vmk {

struct MenuTraits {
    using Value = HMENU;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { DestroyMenu(value); }
};
using UniqueMenu = UniqueHandle<MenuTraits>;

// A menu of this module's resources. Empty when it cannot be loaded.
inline UniqueMenu LoadMenuResource(UINT menuId) noexcept {
    return UniqueMenu(LoadMenuW(Module::Get().Instance(), MAKEINTRESOURCEW(menuId)));
}

}  // namespace vmk
