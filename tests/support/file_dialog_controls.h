#pragma once

#include <windows.h>

namespace vmk::test {

// Controls of the system's open-file dialog, by the numbers that programs have always known them by.
inline constexpr int kFileTypeList = 0x470;
inline constexpr int kFileNameCombo = 0x47C;

// The box in which a file's name is typed.
inline HWND FileNameBox(HWND fileDialog) {
    HWND combo = FindWindowExW(GetDlgItem(fileDialog, kFileNameCombo), nullptr, L"ComboBox", nullptr);
    return FindWindowExW(combo, nullptr, L"Edit", nullptr);
}

}  // namespace vmk::test
