#include "base/window_text.h"

namespace vmk {

std::wstring WindowText(HWND hwnd, int limit) {
    std::wstring text(static_cast<size_t>(limit), L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(hwnd, text.data(), limit + 1)));
    return text;
}

std::wstring WindowText(HWND hwnd) {
    return WindowText(hwnd, GetWindowTextLengthW(hwnd));
}

}  // namespace vmk
