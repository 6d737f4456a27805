#include "controls/bound_dialog.h"

#include <commctrl.h>

#include "controls/focus.h"
#include "controls/radio_focus.h"
#include "framework/reflection.h"

namespace vmk {

bool BoundDialog::IsItemChecked(UINT id) const noexcept {
    return SendMessageW(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void BoundDialog::CheckItem(UINT id, bool check) const noexcept {
    SendMessageW(Item(id), BM_SETCHECK, check ? BST_CHECKED : BST_UNCHECKED, 0);
}

void BoundDialog::ClickItem(UINT id) const noexcept {
    HWND focus = GetFocus();
    SendMessageW(Item(id), BM_CLICK, 0, 0);
    // While the dialog opens, the focus may still be outside; the dialog manager places it then.
    if (GetFocus() != focus && IsChild(GetAncestor(Handle(), GA_ROOT), focus)) SetFocus(focus);
}

std::optional<LRESULT> BoundDialog::ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case WM_INITDIALOG:
            TranslateWindowTexts(hwnd);
            OnInitDialog();
            PrepareRadioButtons(hwnd);
            return TRUE;
        case WM_COMMAND:
            return HandleCommand(wParam, lParam);
        case WM_NOTIFY: {
            const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
            if (StepOnSpin(header) || OnNotify(header)) return 0;
            break;
        }
        default:
            break;
    }
    return ReflectNotification(hwnd, msg, wParam, lParam);
}

std::optional<LRESULT> BoundDialog::HandleCommand(WPARAM wParam, LPARAM lParam) {
    HWND sender = reinterpret_cast<HWND>(lParam);
    HWND owner = CommandOwner(Handle(), sender);
    if (owner != Handle()) return SendMessageW(owner, WM_COMMAND, wParam, lParam);
    const Command command = CommandOf(wParam);
    if (command.code == BN_CLICKED && HasOnlyGotFocus(sender)) return 0;
    const FocusKeeper focus(sender);
    if (OnCommand(command)) return 0;
    return ReflectNotification(Handle(), WM_COMMAND, wParam, lParam);
}

bool BoundDialog::ReturnFocus(HWND control) noexcept {
    if (!TakesKeys(control)) return false;
    m_isFocusReturning = true;
    SetFocus(control);
    m_isFocusReturning = false;
    return GetFocus() == control;
}

bool BoundDialog::StepOnSpin(const NMHDR& header) {
    if (header.code != UDN_DELTAPOS) return false;
    for (const Spin& spin : Spins()) {
        if (spin.id == header.idFrom)
            return spin.edit.StepBy(reinterpret_cast<const NMUPDOWN&>(header).iDelta);
    }
    return false;
}

}  // namespace vmk
