#pragma once

#include <windows.h>

namespace vmk {

// No drawing of a window between many changes. Not for a hidden one, which may come into sight at the end.
class DrawingPause {
  public:
    explicit DrawingPause(HWND window) noexcept : m_window(window) {
        SendMessageW(window, WM_SETREDRAW, FALSE, 0);
    }
    ~DrawingPause() { SendMessageW(m_window, WM_SETREDRAW, TRUE, 0); }
    DrawingPause(const DrawingPause&) = delete;
    DrawingPause& operator=(const DrawingPause&) = delete;

  private:
    HWND m_window;
};

}  // namespace vmk
