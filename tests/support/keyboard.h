#pragma once

#include <windows.h>

namespace vmk::test {

// Presses a key of the keyboard, which types into the foreground window, or with KEYEVENTF_KEYUP lets it go.
inline void SendKey(WORD virtualKey, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof(input));
}

}  // namespace vmk::test
