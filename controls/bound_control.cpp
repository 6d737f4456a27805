#include "controls/bound_control.h"

#include <commctrl.h>
#include <olectl.h>

#include <array>
#include <new>

#include "framework/reflection.h"

namespace vmk {
namespace {

bool IsBoxOfOneLine(HWND window) noexcept {
    std::array<wchar_t, 6> className{};
    GetClassNameW(window, className.data(), static_cast<int>(className.size()));
    return CompareStringOrdinal(className.data(), -1, WC_EDITW, -1, TRUE) == CSTR_EQUAL &&
           (GetWindowLongPtrW(window, GWL_STYLE) & ES_MULTILINE) == 0;
}

// Selects what a box holds, so that typing replaces it. The dialog manager does the same, but leaves boxes
// alone that ask for all keys.
void FocusOn(HWND next) noexcept {
    SetFocus(next);
    if (GetFocus() == next && IsBoxOfOneLine(next)) SendMessageW(next, EM_SETSEL, 0, -1);
}

}  // namespace

void Dependents::Set(const Dialog& page, bool on) const {
    for (const UINT id : ids) EnableWindow(page.Item(id), on == enabledWhenOn);
}

void BoundControl::Attach(BoundDialog& page, UINT id) {
    static_cast<CDialogEnv&>(*this) = page.ForChild();
    m_page = &page;
    m_id = id;
    if (!SubclassWindow(page.Item(id))) throw std::bad_alloc();
}

std::optional<LRESULT> BoundControl::ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    const bool movesFocus = wParam == VK_TAB || wParam == VK_RETURN;
    switch (msg) {
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS;
        case WM_KEYDOWN:
            // The dialog manager, which makes this of the key, does not get to see it.
            if (wParam == VK_ESCAPE && !UsesEscape()) PostMessageW(m_page->Handle(), WM_COMMAND, IDCANCEL, 0);
            if (!movesFocus) return std::nullopt;
            MoveFocus(wParam == VK_TAB && GetKeyState(VK_SHIFT) < 0);
            return 0;
        case WM_CHAR:
            // The characters of the two keys are consumed with them, or an edit box would beep.
            if (!movesFocus) return std::nullopt;
            return 0;
        case OCM_COMMAND:
            if (OnReflectedCommand(HIWORD(wParam))) return 0;
            break;
        default:
            break;
    }
    return DefaultReflection(hwnd, msg, wParam, lParam);
}

void BoundControl::TakeFocusBack() const noexcept {
    if (IsWindowVisible(Handle())) SetFocus(Handle());
}

// Forwards the ring of the page's own tab stops is kept. Backwards the dialog manager's order holds, which
// leads out of the page to the page list.
void BoundControl::MoveFocus(bool backwards) const noexcept {
    HWND root = GetAncestor(Handle(), GA_ROOT);
    if (backwards) {
        FocusOn(GetNextDlgTabItem(root, Handle(), TRUE));
        return;
    }
    HWND next = m_nextFocus;
    if (!IsWindow(next)) next = GetNextDlgTabItem(m_page->Handle(), Handle(), FALSE);
    if (!next || next == Handle()) next = applyButton;
    // A disabled Apply cannot take the focus; it must not be a dead end either.
    if (next == applyButton && !IsApplyEnabled()) next = GetNextDlgTabItem(root, Handle(), FALSE);
    FocusOn(next);
}

}  // namespace vmk
