#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

#include "base/critical_section.h"

namespace vmk {

class Window;

// Tells which object is attached to a window. That is asked at every message, and a property of the window
// would be a call of the system each time. Windows of several threads may be in the table.
class WindowTable {
  public:
    // The guard lives longer than the table and may guard other things, too.
    explicit WindowTable(CriticalSection& guard) noexcept : m_guard(guard) {}
    ~WindowTable() = default;
    WindowTable(const WindowTable&) = delete;
    WindowTable& operator=(const WindowTable&) = delete;

    // Enters the object for the window that it has, and takes it out again.
    void Add(Window& object) noexcept;
    void Remove(const Window& object) noexcept;

    // The object of a window; null when it has none.
    Window* Find(HWND hwnd) const noexcept;

  private:
    // About as many as a dialog with all its pages has windows with objects.
    static constexpr std::size_t kChains = 256;

    static std::size_t ChainOf(HWND hwnd) noexcept;

    CriticalSection& m_guard;
    std::array<Window*, kChains> m_chains{};  // the first of each; an object knows the next
};

}  // namespace vmk
