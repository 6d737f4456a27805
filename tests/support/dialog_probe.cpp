// Tells scripts where the parts of an open preferences dialog are, so that they can use the real mouse on it.
//
//   dialog_probe dialog           waits for the dialog; prints LEFT TOP WIDTH HEIGHT of its window
//   dialog_probe pages            prints INDEX TEXT of each listed page
//   dialog_probe page INDEX       scrolls the list item into view; prints its LEFT TOP WIDTH HEIGHT
//   dialog_probe wait-page INDEX  waits until that item is selected and only one page is visible
//   dialog_probe control ID       waits for the visible control; prints LEFT TOP WIDTH HEIGHT STATE
//   dialog_probe gone             waits until there is no dialog any more
//
// Positions are in screen pixels. STATE is checked, unchecked, or - for other controls than buttons, and
// +disabled is appended to it when the control is. Exit status 0: found, 1: not found in time, 2: wrong
// usage.

#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <string>
#include <vector>

#include "base/handle.h"
#include "tests/support/window_search.h"

namespace {

using vmk::test::ClassOf;
using vmk::test::FindTopWindow;
using vmk::test::FindVisibleControl;

constexpr int kApplyId = 201;
constexpr int kFrameId = 204;
constexpr int kListId = 205;
constexpr ULONGLONG kPatience = 30'000;  // milliseconds

struct ProcessTraits {
    using Value = HANDLE;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { CloseHandle(value); }
};

// Memory of another process that a message to its window can point to.
class RemoteMemory {
  public:
    RemoteMemory(HWND window, std::size_t size) {
        DWORD processId = 0;
        GetWindowThreadProcessId(window, &processId);
        m_process.attach(
            OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId));
        m_address = VirtualAllocEx(m_process.get(), nullptr, size, MEM_COMMIT, PAGE_READWRITE);
    }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;
    ~RemoteMemory() { VirtualFreeEx(m_process.get(), m_address, 0, MEM_RELEASE); }

    BYTE* Address() const { return static_cast<BYTE*>(m_address); }
    bool Write(const void* data, std::size_t size) const {
        return WriteProcessMemory(m_process.get(), m_address, data, size, nullptr) != FALSE;
    }
    bool Read(std::size_t offset, void* data, std::size_t size) const {
        return ReadProcessMemory(m_process.get(), Address() + offset, data, size, nullptr) != FALSE;
    }

  private:
    vmk::UniqueHandle<ProcessTraits> m_process;
    void* m_address = nullptr;
};

HWND ListOf(HWND dialog) {
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        HWND list = GetDlgItem(child, kListId);
        if (list && ClassOf(list) == WC_LISTVIEWW) return list;
    }
    return nullptr;
}

HWND FindDialog() {
    return FindTopWindow([](HWND window) {
        return IsWindowVisible(window) && GetDlgItem(window, kApplyId) && ListOf(window);
    });
}

// Asks again and again until the answer is true or patience ends.
template <typename Question>
bool Wait(Question&& isSo) {
    for (const ULONGLONG end = GetTickCount64() + kPatience; !isSo(); Sleep(20)) {
        if (GetTickCount64() > end) return false;
    }
    return true;
}

void PrintRectangle(const RECT& rectangle, const char* rest) {
    std::printf("%ld %ld %ld %ld%s\n", rectangle.left, rectangle.top, rectangle.right - rectangle.left,
                rectangle.bottom - rectangle.top, rest);
}

bool PrintDialog() {
    HWND dialog = nullptr;
    if (!Wait([&] { return (dialog = FindDialog()) != nullptr; })) return false;
    RECT rectangle{};
    GetWindowRect(dialog, &rectangle);
    PrintRectangle(rectangle, "");
    return true;
}

std::wstring ItemText(HWND list, int index) {
    constexpr int kLength = 256;
    struct {
        LVITEMW item;
        wchar_t text[kLength];
    } exchange{};
    const RemoteMemory memory(list, sizeof exchange);
    exchange.item.cchTextMax = kLength;
    exchange.item.pszText = reinterpret_cast<wchar_t*>(
        memory.Address() + (reinterpret_cast<BYTE*>(exchange.text) - reinterpret_cast<BYTE*>(&exchange)));
    memory.Write(&exchange, sizeof exchange);
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(memory.Address()));
    memory.Read(0, &exchange, sizeof exchange);
    return exchange.text;
}

bool PrintPages() {
    HWND list = ListOf(FindDialog());
    if (!list) return false;
    const int count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int index = 0; index < count; ++index) {
        char text[1024] = {};
        WideCharToMultiByte(CP_UTF8, 0, ItemText(list, index).c_str(), -1, text, sizeof text, nullptr,
                            nullptr);
        std::printf("%d %s\n", index, text);
    }
    return true;
}

bool PrintPage(int index) {
    HWND list = ListOf(FindDialog());
    if (!list) return false;
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(index), FALSE);
    RECT rectangle{.left = LVIR_LABEL, .top = 0, .right = 0, .bottom = 0};
    const RemoteMemory memory(list, sizeof rectangle);
    memory.Write(&rectangle, sizeof rectangle);
    if (!SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(index),
                      reinterpret_cast<LPARAM>(memory.Address()))) {
        return false;
    }
    memory.Read(0, &rectangle, sizeof rectangle);
    MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&rectangle), 2);
    PrintRectangle(rectangle, "");
    return true;
}

int VisiblePages(HWND list) {
    int count = 0;
    HWND frame = GetDlgItem(GetParent(list), kFrameId);
    for (HWND page = GetWindow(frame, GW_CHILD); page; page = GetWindow(page, GW_HWNDNEXT)) {
        if (IsWindowVisible(page)) ++count;
    }
    return count;
}

bool WaitForPage(int index) {
    return Wait([&] {
        HWND list = ListOf(FindDialog());
        return list && SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) == index &&
               VisiblePages(list) == 1;
    });
}

std::string StateOf(HWND control) {
    std::string state = " -";
    if (ClassOf(control) == WC_BUTTONW) {
        state = SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? " checked" : " unchecked";
    }
    return IsWindowEnabled(control) ? state : state + "+disabled";
}

bool PrintControl(int id) {
    HWND control = nullptr;
    if (!Wait([&] { return (control = FindVisibleControl(FindDialog(), id)) != nullptr; })) return false;
    RECT rectangle{};
    GetWindowRect(control, &rectangle);
    PrintRectangle(rectangle, StateOf(control).c_str());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string command = argc > 1 ? argv[1] : "";
    const int number = argc > 2 ? std::atoi(argv[2]) : 0;
    bool found = false;
    if (command == "dialog") {
        found = PrintDialog();
    } else if (command == "pages") {
        found = PrintPages();
    } else if (command == "page" && argc > 2) {
        found = PrintPage(number);
    } else if (command == "wait-page" && argc > 2) {
        found = WaitForPage(number);
    } else if (command == "control" && argc > 2) {
        found = PrintControl(number);
    } else if (command == "gone") {
        found = Wait([] { return FindDialog() == nullptr; });
    } else {
        std::fputs("usage: dialog_probe dialog | pages | page INDEX | wait-page INDEX | control ID | gone\n",
                   stderr);
        return 2;
    }
    return found ? 0 : 1;
}
