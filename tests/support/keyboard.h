#pragma once

#include <windows.h>

#include <string_view>
#include <vector>

// The keyboard, which types into the foreground window:
//
//     PressKey(VK_TAB);
//     PressKey(VK_TAB, {VK_SHIFT});
//     TypeText(L"Report 7");

namespace vmk::test {

// Presses a key, or with KEYEVENTF_KEYUP lets it go.
inline void SendKey(WORD virtualKey, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof(input));
}

// Presses and releases a key, other keys being held.
inline void PressKey(WORD virtualKey, const std::vector<WORD>& held = {}) {
    for (const WORD key : held) SendKey(key, 0);
    SendKey(virtualKey, 0);
    SendKey(virtualKey, KEYEVENTF_KEYUP);
    for (const WORD key : held) SendKey(key, KEYEVENTF_KEYUP);
}

// Types what the keyboard has keys for, capital letters with Shift.
inline void TypeText(std::wstring_view text) {
    for (const wchar_t character : text) {
        const SHORT key = VkKeyScanW(character);
        const bool shifted = (HIBYTE(key) & 1) != 0;
        PressKey(LOBYTE(key), shifted ? std::vector<WORD>{VK_SHIFT} : std::vector<WORD>{});
    }
}

}  // namespace vmk::test
