#include "pages/placeholder.h"

#include "resources/ids/main.h"

namespace vmk {

HWND PlaceholderPage::CreatePage(const CDialogEnv& /*env*/, HWND frame) {
    return Create(m_templateId, frame);
}

std::optional<LRESULT> PlaceholderPage::ProcessWindowMessage(HWND /*hwnd*/, UINT /*msg*/, WPARAM /*wParam*/,
                                                             LPARAM /*lParam*/) {
    return std::nullopt;
}

CDlgCustForm::CDlgCustForm() : PlaceholderPage(IDD_CUSTOM_FORMS) {}

CDlgProfiles::CDlgProfiles() : PlaceholderPage(IDD_PROFILES) {}

}  // namespace vmk
