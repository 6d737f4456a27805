#include "framework/dpi_awareness.h"

#include "base/library.h"

namespace vmk {
namespace {

// Returns the former context of the thread; null when it stays.
DPI_AWARENESS_CONTEXT SetContext(DPI_AWARENESS_CONTEXT context) noexcept {
    using Function = DPI_AWARENESS_CONTEXT WINAPI(DPI_AWARENESS_CONTEXT);
    auto* const set = EntryPoint<Function>(GetModuleHandleW(L"user32.dll"), "SetThreadDpiAwarenessContext");
    return set ? set(context) : nullptr;
}

}  // namespace

SystemDpiAwareness::SystemDpiAwareness() noexcept
    : m_previous(SetContext(DPI_AWARENESS_CONTEXT_SYSTEM_AWARE)) {}

SystemDpiAwareness::~SystemDpiAwareness() {
    if (m_previous) SetContext(m_previous);
}

}  // namespace vmk
