#pragma once

#include <windows.h>

// The mouse, on what is on screen:
//
//     ClickScreen(CentreOf(page.Control(IDC_SAVE_RUN)));
//     ClickScreen({.x = 10, .y = 10});
//     page.MouseClick(IDC_SAVE_RUN);  // the same in the words of live_window.h

namespace vmk::test {

inline POINT CentreOf(HWND hwnd) {
    RECT rect{};
    GetWindowRect(hwnd, &rect);
    return {.x = (rect.left + rect.right) / 2, .y = (rect.top + rect.bottom) / 2};
}

// Clicks at a position of the screen, which the system is given in 65,536ths. Each event carries the
// position: the real pointer of the display may interfere between them.
inline void ClickScreen(POINT point) {
    INPUT inputs[2]{};
    for (INPUT& input : inputs) {
        input.type = INPUT_MOUSE;
        input.mi.dx = MulDiv(point.x, 65536, GetSystemMetrics(SM_CXSCREEN));
        input.mi.dy = MulDiv(point.y, 65536, GetSystemMetrics(SM_CYSCREEN));
        input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;
    }
    inputs[0].mi.dwFlags |= MOUSEEVENTF_LEFTDOWN;
    inputs[1].mi.dwFlags |= MOUSEEVENTF_LEFTUP;
    SendInput(2, inputs, sizeof(INPUT));
}

}  // namespace vmk::test
