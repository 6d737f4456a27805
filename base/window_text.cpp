#include "base/window_text.h"

#include <new>

namespace vmk {

std::wstring WindowText(HWND hwnd, int limit) {
    std::wstring text(static_cast<size_t>(limit), L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(hwnd, text.data(), limit + 1)));
    return text;
}

std::wstring WindowText(HWND hwnd) {
    return WindowText(hwnd, GetWindowTextLengthW(hwnd));
}

void ShowText(HWND control, const wchar_t* text) {
    if (!SetWindowTextW(control, text)) throw std::bad_alloc();
}

}  // namespace vmk
