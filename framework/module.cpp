#include "framework/module.h"

#include <utility>

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

LONG Module::Unlock() noexcept {
    const CriticalSection::Lock lock(m_guard);
    // As long as the count says that the module is in use: afterwards it may be unloaded at any moment, and
    // while that happens no library may be.
    if (m_locks == 1) m_kept.reset();
    return --m_locks;
}

void Module::KeepLoaded(UniqueLibrary library) noexcept {
    // What was kept before goes outside the critical section, with the parameter.
    const CriticalSection::Lock lock(m_guard);
    std::swap(m_kept, library);
}

Module::~Module() {
    s_module = nullptr;
}

}  // namespace vmk
