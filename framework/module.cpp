#include "framework/module.h"

#include "framework/library.h"

// The linker puts this at the start of the image, so its address is the module handle.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(readability-identifier-naming)

namespace vmk {

Module* Module::s_module = nullptr;

Module::Module() noexcept : m_instance(reinterpret_cast<HINSTANCE>(&__ImageBase)) {
    s_module = this;
}

std::wstring Module::Path() const {
    return PathOf(m_instance);
}

Module::~Module() {
    s_module = nullptr;
}

}  // namespace vmk
