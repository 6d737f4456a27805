#pragma once

#include <windows.h>

#include "controls/bound_dialog.h"
#include "pages/page_window.h"

namespace vmk {

// The base of every page with content. A page has its bound controls as members and binds them in LoadPage,
// one line each.
class CPage : public PageWindow, public BoundDialog {
  public:
    HWND CreatePage(const CDialogEnv& env, HWND frame) override;

  protected:
    explicit CPage(UINT templateId) : m_templateId(templateId) {}

    // Binds every control to its setting, which shows the stored value. The page's texts are translated
    // already.
    virtual void LoadPage() = 0;

    // Writes every value into the settings, in the order of binding. Called on Apply and when the page is
    // destroyed, if there is anything to store. What it throws undoes all of it.
    virtual void StorePage() { StoreValues(); }

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

// The base of a page made from one of the module's templates.
template <UINT templateId>
class PageFrom : public CPage {
  public:
    PageFrom() : CPage(templateId) {}
};

}  // namespace vmk
