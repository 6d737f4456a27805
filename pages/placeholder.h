#pragma once

#include <windows.h>

#include "framework/dialog.h"
#include "pages/page.h"

namespace vmk {

// A page that is listed but has no content: an empty dialog that handles nothing.
class PlaceholderPage : public PageWindow, public Dialog {
  public:
    HWND CreatePage(const CDialogEnv& env, HWND frame) final;

  protected:
    explicit PlaceholderPage(UINT templateId) : m_templateId(templateId) {}

  private:
    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) final;

    UINT m_templateId;
};

class CDlgCustForm final : public PlaceholderPage {
  public:
    CDlgCustForm();
};

class CDlgProfiles final : public PlaceholderPage {
  public:
    CDlgProfiles();
};

}  // namespace vmk
