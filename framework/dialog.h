#pragma once

#include <windows.h>

#include "framework/window.h"

namespace vmk {

// A dialog box made from a template of this module. The object is attached before the window's first message,
// so that WM_INITDIALOG already reaches ProcessWindowMessage.
class Dialog : public Window {
  public:
    static constexpr INT_PTR kNotCreated = -1;

    // Runs the dialog modally. Returns what ends it (EndDialog), or kNotCreated when it cannot be created;
    // the thread's last error then says why (ERROR_OUTOFMEMORY when the object cannot be attached, or throws
    // in WM_INITDIALOG).
    INT_PTR DoModal(UINT templateId, HWND owner) noexcept;

    // Creates the dialog as a child or modeless window. Null when that fails, with the last error as above.
    HWND Create(UINT templateId, HWND parent) noexcept;

    // The control with this identifier; null when there is none.
    virtual HWND Item(UINT id) const noexcept { return GetDlgItem(Handle(), static_cast<int>(id)); }

  private:
    static INT_PTR CALLBACK StartProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept;

    void OnMessageFailed(UINT msg) noexcept override;
    void Fail(HWND hwnd) noexcept;

    bool m_failed = false;  // the window that is being made has to go
};

// The two halves of a WM_COMMAND that comes from a control.
struct Command {
    UINT id;
    UINT code;
};

constexpr Command CommandOf(WPARAM wParam) noexcept {
    return {.id = LOWORD(wParam), .code = HIWORD(wParam)};
}

}  // namespace vmk
