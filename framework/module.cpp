#include "framework/module.h"

// The linker puts this at the start of the image, so its address is the module handle.
extern "C" IMAGE_DOS_HEADER
    __ImageBase;  // NOLINT(bugprone-reserved-identifier,readability-identifier-naming)

namespace vmk {

Module* Module::s_module = nullptr;

Module::Module() noexcept : m_instance(reinterpret_cast<HINSTANCE>(&__ImageBase)) {
    s_module = this;
}

std::wstring Module::Path() const {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(m_instance, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

Module::~Module() {
    s_module = nullptr;
}

}  // namespace vmk
