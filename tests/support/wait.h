#pragma once

#include <windows.h>

// Waiting for what another thread or program does:
//
//     page.MouseClick(IDC_SAVE_RUN);
//     EXPECT_TRUE(WaitUntil([&] { return page.IsChecked(IDC_SAVE_RUN); }));
//     // On the dialog's own thread: message_loop.h.

namespace vmk::test {

// Waits until the condition holds; false when it still does not after half a minute, which a program takes to
// start on a busy machine.
template <typename Condition>
bool WaitUntil(Condition&& condition) {
    constexpr ULONGLONG kPatience = 30'000;
    for (const ULONGLONG start = GetTickCount64(); GetTickCount64() - start < kPatience; Sleep(2)) {
        if (condition()) return true;
    }
    return condition();
}

}  // namespace vmk::test
