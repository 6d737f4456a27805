#include "pages/page.h"

#include "settings/all_or_nothing.h"

namespace vmk {

HWND CPage::CreatePage(const CDialogEnv& env, HWND frame) {
    SetEnvironment(env.ForChild());
    return Create(m_templateId, frame);
}

std::optional<LRESULT> CPage::ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case WM_PAGE_APPLY:
        case WM_DESTROY:
            return StoreIfChanged() ? 0 : 1;
        default:
            return BoundDialog::ProcessWindowMessage(hwnd, msg, wParam, lParam);
    }
}

void CPage::OnInitDialog() {
    LoadPage();
    m_isLoaded = true;
}

// The window of a page that could not be loaded is destroyed like any other, but its controls show nothing
// that could be stored.
bool CPage::StoreIfChanged() noexcept {
    if (!m_isLoaded || (!StoresAlways() && !IsApplyEnabled())) return true;
    try {
        AllOrNothing(*settings, [this] { StorePage(); });
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace vmk
