#pragma once

#include <windows.h>

#include "controls/bound_dialog.h"

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

// The base of every page with content. A page has its bound controls as members, binds and shows them in
// LoadPage and copies them into the settings in StorePage.
class CPage : public PageWindow, public BoundDialog {
  public:
    HWND CreatePage(const CDialogEnv& env, HWND frame) override;

  protected:
    explicit CPage(UINT templateId) : m_templateId(templateId) {}

    // Binds every control to its setting and shows the stored values. The page's texts are translated
    // already.
    virtual void LoadPage() = 0;

    // Writes every control into the settings. Called on Apply and when the page is destroyed, if there is
    // anything to store. What it throws undoes all of it.
    virtual void StorePage() = 0;

    // Whether the page stores also when Apply is disabled, that is, when nothing was changed or all was
    // cancelled.
    virtual bool StoresAlways() const { return false; }

    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;

  private:
    void OnInitDialog() final;
    bool StoreIfChanged() noexcept;

    UINT m_templateId;
    bool m_isLoaded = false;
};

}  // namespace vmk
