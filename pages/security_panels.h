#pragma once

#include "controls/bound_dialog.h"
#include "controls/checkbox.h"
#include "controls/combobox.h"

namespace vmk {

// The permissions that go with one encryption level: a child dialog inside the Security page, created hidden.
class SecurityPanel : public BoundDialog {
  public:
    // Creates the panel from its template inside the page's container. Throws std::bad_alloc when that fails.
    void CreatePanel(UINT templateId, const CDialogEnv& env, HWND container);

    void ShowPanel(bool show) const noexcept { ShowWindow(Handle(), show ? SW_SHOW : SW_HIDE); }

    // Writes the permissions into the settings, if there are changes that are not applied yet.
    void StorePanel();
};

class CDlgSec40 final : public SecurityPanel {
    void OnInitDialog() override;

    CMyCheckbox m_printing;
    CMyCheckbox m_changing;
    CMyCheckbox m_copying;
    CMyCheckbox m_comments;
};

class CDlgSec128 final : public SecurityPanel {
    void OnInitDialog() override;

    CMyCheckbox m_access;
    CMyCheckbox m_copying;
    CMyCombobox m_changes;
    CMyCombobox m_printing;
};

}  // namespace vmk
