#pragma once

#include <windows.h>

#include <span>
#include <vector>

namespace vmk {

// To disable what is disabled is no small thing: the system cancels menus and captures first.
inline void SetEnabled(HWND window, bool enable) noexcept {
    if ((IsWindowEnabled(window) != FALSE) != enable) EnableWindow(window, enable);
}

// The controls of a dialog's template while the dialog is being filled. Finding a control, and enabling or
// disabling it, takes the system long, and the values of a page ask for both all the time: here the controls
// are looked for once, and learn once, in the end, whether they are enabled.
class DialogItems {
  public:
    // Throws std::bad_alloc.
    explicit DialogItems(HWND dialog);

    // In the order of the template.
    std::span<const HWND> Windows() const noexcept { return m_windows; }

    // The control with this identifier; null when there is none.
    HWND Find(UINT id) const noexcept;

    bool IsEnabled(UINT id) const noexcept;
    void Enable(UINT id, bool enable) noexcept;

    // Has each control enabled or disabled that is to be and is not.
    void Settle() const noexcept;

  private:
    struct State {
        UINT id;
        bool isEnabled;
    };

    size_t Position(UINT id) const noexcept;

    std::vector<HWND> m_windows;
    std::vector<State> m_states;  // of each of them
};

}  // namespace vmk
