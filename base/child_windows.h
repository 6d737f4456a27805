#pragma once

#include <windows.h>

#include <vector>

namespace vmk {

// The direct children of a window as they are now, from the first in the order of tabs on: a window may
// rearrange them while something is done to one of them. Throws std::bad_alloc.
inline std::vector<HWND> ChildWindows(HWND window) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

}  // namespace vmk
