#pragma once

#include <windows.h>
// commdlg.h needs windows.h before it.
#include <commdlg.h>

#include "framework/window.h"

namespace vmk {

// The system's colour dialog, opened at a place of the caller's choice. Custom colours that the user defines
// are offered again in every later opening, until the module is unloaded. Lives on the caller's stack for one
// run.
class CMyColorDialog final : public Window {
  public:
    // `initial`: the colour that is selected at first; 0, which is also black, selects none. `owner`: null
    // for the active window. `topLeft`: where the dialog's corner is to be, in screen coordinates, on the
    // screen or not.
    CMyColorDialog(COLORREF initial, HWND owner, POINT topLeft) noexcept;

    // Runs the dialog. True when the user has chosen a colour with OK.
    bool Run() noexcept;

    COLORREF Color() const noexcept { return m_request.rgbResult; }

  private:
    static UINT_PTR CALLBACK Hook(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept;

    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;

    CHOOSECOLORW m_request{};
    POINT m_topLeft;
};

}  // namespace vmk
