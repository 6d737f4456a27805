#include "pages/security_panels.h"

#include <new>

#include "resources/ids/security.h"

namespace vmk {

void SecurityPanel::CreatePanel(UINT templateId, const CDialogEnv& env, HWND container) {
    SetEnvironment(env.ForChild());
    if (!Create(templateId, container)) throw std::bad_alloc();
}

void SecurityPanel::StorePanel() {
    if (IsApplyEnabled()) StoreValues();
}

void CDlgSec40::OnInitDialog() {
    auto& permissions = settings->Security.Bits40;
    m_printing.Bind(*this, IDC_SECURITY_40_PRINTING, permissions.AllowPrinting);
    m_changing.Bind(*this, IDC_SECURITY_40_CHANGING, permissions.AllowChanging);
    m_copying.Bind(*this, IDC_SECURITY_40_COPYING, permissions.AllowCopying);
    m_comments.Bind(*this, IDC_SECURITY_40_COMMENTS, permissions.AllowComments);
    m_comments.SetNextFocus(m_printing.Handle());
}

void CDlgSec128::OnInitDialog() {
    auto& permissions = settings->Security.Bits128;
    m_access.Bind(*this, IDC_SECURITY_128_ACCESS, permissions.ContentAccess);
    m_copying.Bind(*this, IDC_SECURITY_128_COPYING, permissions.AllowCopying);
    m_changes.Bind(*this, IDC_SECURITY_128_CHANGES, permissions.Changes, ChoicesOf("Security.128.Changes"));
    m_printing.Bind(*this, IDC_SECURITY_128_PRINTING, permissions.Printing,
                    ChoicesOf("Security.128.Printing"));
    m_printing.SetNextFocus(m_access.Handle());
}

}  // namespace vmk
