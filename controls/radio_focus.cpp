#include "controls/radio_focus.h"

#include "controls/check_state.h"

namespace vmk {
namespace {

LONG StyleOf(HWND window) noexcept {
    return GetWindowLongW(window, GWL_STYLE);
}

// A radio button that checks itself when it is clicked; the other kind leaves that to its dialog.
bool IsRadioButton(HWND window) noexcept {
    return (StyleOf(window) & BS_TYPEMASK) == BS_AUTORADIOBUTTON &&
           (SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

void MakeTabStop(HWND window, bool stop) noexcept {
    const LONG style = StyleOf(window);
    const LONG wanted = stop ? style | WS_TABSTOP : style & ~WS_TABSTOP;
    if (style != wanted) SetWindowLongW(window, GWL_STYLE, wanted);
}

}  // namespace

void PrepareRadioButtons(std::span<const HWND> controls) noexcept {
    HWND stop = nullptr;  // of the group so far
    for (HWND child : controls) {
        if (StyleOf(child) & WS_GROUP) stop = nullptr;
        if (!IsRadioButton(child)) continue;
        SendMessageW(child, BM_SETDONTCLICK, TRUE, 0);
        const bool isBetter = !stop || IsChecked(child);
        if (stop && isBetter) MakeTabStop(stop, false);
        MakeTabStop(child, isBetter);
        if (isBetter) stop = child;
    }
}

bool HasOnlyGotFocus(HWND clicked) noexcept {
    return IsRadioButton(clicked) && !IsChecked(clicked);
}

}  // namespace vmk
