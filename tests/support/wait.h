#pragma once

#include <windows.h>

namespace vmk::test {

// Waits until the condition holds; false when it still does not after ten seconds.
template <typename Condition>
bool WaitUntil(Condition&& condition) {
    constexpr ULONGLONG kPatience = 10'000;
    for (const ULONGLONG start = GetTickCount64(); GetTickCount64() - start < kPatience; Sleep(2)) {
        if (condition()) return true;
    }
    return condition();
}

}  // namespace vmk::test
