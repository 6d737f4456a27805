#include "controls/bound_control.h"

#include <olectl.h>

#include <new>

#include "controls/focus.h"
#include "framework/reflection.h"

namespace vmk {
namespace {

// Holds for the keys as well as for their characters.
constexpr bool MovesFocus(WPARAM key) noexcept {
    return key == VK_TAB || key == VK_RETURN;
}

}  // namespace

void BoundControl::Attach(BoundDialog& page, UINT id) {
    static_cast<CDialogEnv&>(*this) = page.ForChild();
    m_page = &page;
    m_id = id;
    if (!SubclassWindow(page.Item(id))) throw std::bad_alloc();
    page.Register(*this);
}

std::optional<LRESULT> BoundControl::ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case WM_GETDLGCODE:
            // The dialog manager goes by the rest, for access keys and the default button.
            return DefaultProc(msg, wParam, lParam) | DLGC_WANTALLKEYS;
        case WM_KEYDOWN:
            if (MovesFocus(wParam)) {
                MoveFocusByKeyboard(FocusSuccessor(wParam == VK_TAB && GetKeyState(VK_SHIFT) < 0));
                return 0;
            }
            // The dialog manager, which makes this of the key, does not get to see it.
            if (Cancels(wParam)) PostMessageW(m_page->Handle(), WM_COMMAND, IDCANCEL, 0);
            return std::nullopt;
        case WM_CHAR:
            // The characters of these keys are consumed with them, or an edit box would beep.
            if (MovesFocus(wParam) || Cancels(wParam)) return 0;
            return std::nullopt;
        case WM_KILLFOCUS:
            if (KeepsFocus()) return 0;
            return std::nullopt;
        case OCM_COMMAND:
            if (OnReflectedCommand(HIWORD(wParam))) return 0;
            break;
        default:
            break;
    }
    return DefaultReflection(hwnd, msg, wParam, lParam);
}

bool BoundControl::OnReflectedCommand(UINT code) {
    if (code == EN_CHANGE) EnableApply();
    return code == EN_CHANGE;
}

// Of two boxes that want to keep the focus the first one does. The message goes on wherever the focus is
// really lost, or the control would think for ever that it has it.
bool BoundControl::KeepsFocus() {
    if (m_page->IsFocusReturning()) return false;
    return !TakeEntry() && m_page->ReturnFocus(Handle());
}

// Forwards the ring of the page's own tab stops is kept. Backwards the dialog manager's order holds, which
// leads out of the page to the page list.
HWND BoundControl::FocusSuccessor(bool backwards) const noexcept {
    HWND root = GetAncestor(Handle(), GA_ROOT);
    if (backwards) return GetNextDlgTabItem(root, Handle(), TRUE);
    HWND next = m_nextFocus;
    if (!TakesKeys(next)) next = GetNextDlgTabItem(m_page->Handle(), Handle(), FALSE);
    if (next && next != Handle()) return next;
    // A disabled Apply cannot take the focus; it must not be a dead end either.
    return IsApplyEnabled() ? applyButton : GetNextDlgTabItem(root, Handle(), FALSE);
}

}  // namespace vmk
