#pragma once

#include <windows.h>

#include <string>

#include "base/handle.h"

namespace vmk {

struct LibraryTraits {
    using Value = HMODULE;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { FreeLibrary(value); }
};
// Keeps a DLL loaded.
using UniqueLibrary = UniqueHandle<LibraryTraits>;

// A function of a loaded library, whose type its declaration names: EntryPoint<decltype(ChooseColorW)>(...).
// Null when the library lacks it.
template <typename Function>
Function* EntryPoint(HMODULE library, const char* name) noexcept {
    // By way of void*: the compiler warns of a cast between function types that have nothing in common.
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

// The full path of a loaded binary, the process's program for null; empty when the system does not tell.
inline std::wstring PathOf(HMODULE binary) {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(binary, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

}  // namespace vmk
