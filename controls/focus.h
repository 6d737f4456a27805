#pragma once

#include <windows.h>

namespace vmk {

// Where keys go in a dialog that has pages inside.

// Whether a window can have the focus: it and all around it are visible and enabled.
bool TakesKeys(HWND window) noexcept;

// Moves the focus as a click does: a push button that gets it becomes the default button, and what a box of
// one line holds is selected, so that typing replaces it.
void GiveFocus(HWND window) noexcept;

// The same as a key does: from now on the dialog shows focus rectangles and access keys.
void MoveFocusByKeyboard(HWND window) noexcept;

// Lives while a command of a control is handled, which may disable or hide what has the focus, and no key
// would arrive any more. The focus then goes to the control, or to the next tab stop if that takes no keys
// either.
class FocusKeeper {
  public:
    explicit FocusKeeper(HWND sender) noexcept;
    ~FocusKeeper();
    FocusKeeper(const FocusKeeper&) = delete;
    FocusKeeper& operator=(const FocusKeeper&) = delete;

  private:
    HWND m_sender;
    HWND m_before;
};

// The window that a command is for: the parent of the control that it comes from, or the whole dialog when it
// comes from none. For Enter and Escape the system asks one dialog, which need not be the one with the
// button.
HWND CommandOwner(HWND dialog, HWND sender) noexcept;

}  // namespace vmk
