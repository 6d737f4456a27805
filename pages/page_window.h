#pragma once

#include <windows.h>

#include "controls/dialog_env.h"

namespace vmk {

// Sent to every page when the user presses Apply, with both parameters 0. The page stores its controls and
// answers 0; when it could not, it has stored none of them and answers 1.
inline constexpr UINT WM_PAGE_APPLY = WM_USER + 1;  // NOLINT(readability-identifier-naming)

// Anything that the page list can show: a window inside the navigator's frame, created hidden. Deleted by the
// navigator after its window is destroyed.
class PageWindow {
  public:
    virtual ~PageWindow() = default;
    PageWindow(const PageWindow&) = delete;
    PageWindow& operator=(const PageWindow&) = delete;

    // Creates the page inside the frame. Null when that fails; the page is then passed over everywhere.
    virtual HWND CreatePage(const CDialogEnv& env, HWND frame) = 0;

  protected:
    PageWindow() = default;
};

}  // namespace vmk
