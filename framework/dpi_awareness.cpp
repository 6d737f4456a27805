#include "framework/dpi_awareness.h"

#include "base/library.h"

namespace vmk {

SystemDpiAwareness::SystemDpiAwareness() noexcept
    : m_set(EntryPoint<SetContext>(GetModuleHandleW(L"user32.dll"), "SetThreadDpiAwarenessContext")) {
    if (m_set) m_previous = m_set(DPI_AWARENESS_CONTEXT_SYSTEM_AWARE);
}

SystemDpiAwareness::~SystemDpiAwareness() {
    if (m_previous) m_set(m_previous);
}

}  // namespace vmk
