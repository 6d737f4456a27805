#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Windows by what they are:
//
//     HWND dialog = FindTopWindow(threadId, IsDialog);
//     HWND box = FindVisibleControl(dialog, IDC_WATERMARKS_PRINT);
//     for (HWND child : ChildrenOf(page)) EXPECT_TRUE(IsWindowVisible(child));

namespace vmk::test {

// One of the system's enumerations, up to the first window that is wanted; null when none is.
template <typename Enumerate, typename Predicate>
HWND FirstWindow(Enumerate&& enumerate, Predicate& isWanted) {
    struct Search {
        Predicate& isWanted;
        HWND found;
    } search{.isWanted = isWanted, .found = nullptr};
    enumerate(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto& current = *reinterpret_cast<Search*>(parameter);
            if (!current.isWanted(window)) return TRUE;
            current.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// Among the top-level windows of all programs, or of one thread.
template <typename Predicate>
HWND FindTopWindow(Predicate&& isWanted) {
    return FirstWindow([](WNDENUMPROC each, LPARAM parameter) { EnumWindows(each, parameter); }, isWanted);
}
template <typename Predicate>
HWND FindTopWindow(DWORD thread, Predicate&& isWanted) {
    return FirstWindow(
        [=](WNDENUMPROC each, LPARAM parameter) { EnumThreadWindows(thread, each, parameter); }, isWanted);
}

// Among the children of a window and theirs; no window has none.
template <typename Predicate>
HWND FindDescendant(HWND window, Predicate&& isWanted) {
    if (!window) return nullptr;
    return FirstWindow([=](WNDENUMPROC each, LPARAM parameter) { EnumChildWindows(window, each, parameter); },
                       isWanted);
}

// The children of a window themselves, in z-order, which is the tab order.
inline std::vector<HWND> ChildrenOf(HWND window) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

// The pages have numbers in common: only a control on screen counts.
inline HWND FindVisibleControl(HWND dialog, int id) {
    return FindDescendant(
        dialog, [id](HWND control) { return GetDlgCtrlID(control) == id && IsWindowVisible(control); });
}

inline std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

inline bool IsDialog(HWND window) {
    return ClassOf(window) == L"#32770";
}

}  // namespace vmk::test
