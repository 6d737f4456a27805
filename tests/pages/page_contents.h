#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "tests/support/live_dialog.h"
#include "tests/support/wait.h"

namespace vmk::test {

// What a page's template holds, in z-order, which is the tab order. Controls without an identifier of their
// own appear as IDC_STATIC.
inline std::vector<int> ControlIds(const LiveWindow& page) {
    std::vector<int> ids;
    for (HWND child = GetWindow(page.Handle(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(child);
        ids.push_back(id == 0xFFFF ? -1 : id);
    }
    return ids;
}

// The controls that real Tab (or Enter) presses reach, one after the other, from the given one on.
inline std::vector<int> FocusSteps(const LiveDialog& dialog, const LiveWindow& page, UINT from, size_t steps,
                                   WORD key = VK_TAB) {
    std::vector<int> reached;
    page.Focus(from);
    while (reached.size() < steps) {
        const HWND before = dialog.Focused();
        dialog.PressKey(key);
        WaitUntil([&] { return dialog.Focused() != before; });
        reached.push_back(GetDlgCtrlID(dialog.Focused()));
    }
    return reached;
}

// The box that a spin control steps.
inline int BuddyOf(const LiveWindow& page, UINT spin) {
    return GetDlgCtrlID(reinterpret_cast<HWND>(SendMessageW(page.Control(spin), UDM_GETBUDDY, 0, 0)));
}

}  // namespace vmk::test
