#pragma once

#include <windows.h>

#include "base/library.h"
#include "framework/module.h"

namespace vmk {

// A library of the system's own that is loaded on its first use, because loading it along with this module
// would cost every host that never gets there. Between its uses it stays loaded while the module is locked.
class SystemLibrary {
  public:
    explicit SystemLibrary(const wchar_t* name) noexcept : m_library(Load(name)) {
        if (m_library) Module::Get().KeepLoaded(Load(name));
    }

    // Null when the library or the function is not there. The function's type is named by its declaration:
    // Find<decltype(ChooseColorW)>("ChooseColorW").
    template <typename Function>
    Function* Find(const char* name) const noexcept {
        return m_library ? EntryPoint<Function>(m_library.get(), name) : nullptr;
    }

  private:
    static UniqueLibrary Load(const wchar_t* name) noexcept {
        return UniqueLibrary(LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
    }

    UniqueLibrary m_library;
};

}  // namespace vmk
