#pragma once

#include <windows.h>

#include <string>

namespace vmk {

// The whole text of a window.
std::wstring WindowText(HWND hwnd);

// At most `limit` characters of a window's text.
std::wstring WindowText(HWND hwnd, int limit);

}  // namespace vmk
