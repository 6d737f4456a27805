#pragma once

#include <windows.h>

#include "framework/handle.h"

namespace vmk {

// A library of the system's own that is loaded for one use, because loading it along with this module would
// cost every host that never gets there.
class SystemLibrary {
  public:
    explicit SystemLibrary(const wchar_t* name) noexcept
        : m_module(LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {}

    // Null when the library or the function is not there. The function's type is named by its declaration:
    // Find<decltype(ChooseColorW)>("ChooseColorW").
    template <typename Function>
    Function* Find(const char* name) const noexcept {
        if (!m_module) return nullptr;
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_module.get(), name)));
    }

  private:
    struct ModuleTraits {
        using Value = HMODULE;
        static constexpr Value None() noexcept { return nullptr; }
        static void Close(Value value) noexcept { FreeLibrary(value); }
    };

    UniqueHandle<ModuleTraits> m_module;
};

}  // namespace vmk
