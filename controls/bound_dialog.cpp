#include "controls/bound_dialog.h"

#include <commctrl.h>

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
            if (CommandOf(wParam).code == BN_CLICKED && HasOnlyGotFocus(reinterpret_cast<HWND>(lParam)))
                return 0;
            if (OnCommand(CommandOf(wParam))) return 0;
            if (wParam == IDCANCEL) CancelWholeDialog();
            break;
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

// A control inside has had Escape pressed: a bound one says so itself, a plain box of several lines has the
// system say so to its parent, which is not the dialog that can be cancelled.
void BoundDialog::CancelWholeDialog() const noexcept {
    HWND root = GetAncestor(Handle(), GA_ROOT);
    if (root != Handle()) PostMessageW(root, WM_COMMAND, IDCANCEL, 0);
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
