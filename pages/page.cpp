#include "pages/page.h"

namespace vmk {

HWND CPage::CreatePage(const CDialogEnv& env, HWND frame) {
    SetEnvironment(env.ForChild());
    return Create(m_templateId, frame);
}

std::optional<LRESULT> CPage::ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case WM_PAGE_APPLY:
        case WM_DESTROY:
            StoreIfChanged();
            return 0;
        default:
            return BoundDialog::ProcessWindowMessage(hwnd, msg, wParam, lParam);
    }
}

void CPage::StoreIfChanged() {
    if (StoresAlways() || IsApplyEnabled()) StorePage();
}

}  // namespace vmk
