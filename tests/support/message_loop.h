#pragma once

#include <windows.h>

// Waiting on the thread that the dialog belongs to:
//
//     PressKey(VK_TAB);
//     EXPECT_TRUE(RunLoopUntil(dialog, [&] { return GetFocus() == box; }));
//     // On another thread: wait.h.

namespace vmk::test {

// Runs the message loop of this thread, with the keyboard of the dialog, until the condition holds; false
// when it still does not after ten seconds.
template <typename Condition>
bool RunLoopUntil(HWND dialog, Condition&& condition) {
    constexpr ULONGLONG kPatience = 10'000;
    for (const ULONGLONG start = GetTickCount64(); GetTickCount64() - start < kPatience;) {
        if (condition()) return true;
        MSG message;
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
        } else if (!IsDialogMessageW(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return condition();
}

}  // namespace vmk::test
