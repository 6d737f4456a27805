#pragma once

#include <windows.h>

namespace vmk {

// Whether a check box or a radio button is checked.
inline bool IsChecked(HWND button) noexcept {
    return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

inline void SetChecked(HWND button, bool checked) noexcept {
    SendMessageW(button, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

}  // namespace vmk
