#pragma once

#include <windows.h>

#include <span>

namespace vmk {

// Radio buttons report a click that nobody has made when the focus comes to them unchecked, which a walk by
// keyboard would store.

// Gives each group of radio buttons among a dialog's controls its one tab stop, the checked button, or the
// first one while none is, and asks the buttons not to click themselves. By itself the system moves the tab
// stop only between buttons that are enabled.
void PrepareRadioButtons(std::span<const HWND> controls) noexcept;

// Whether a control that reports a click has merely got the focus: whatever clicks a radio button checks it
// first. Not every system listens to the request above.
bool HasOnlyGotFocus(HWND clicked) noexcept;

}  // namespace vmk
