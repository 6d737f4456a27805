#pragma once

#include <windows.h>

#include <string>

namespace vmk {

// The whole text of a window.
std::wstring WindowText(HWND hwnd);

// At most `limit` characters of a window's text.
std::wstring WindowText(HWND hwnd, int limit);

// Shows a text in a control whose text is read again. Throws std::bad_alloc where the control does not take
// it: what would be read then is not what was meant.
void ShowText(HWND control, const wchar_t* text);

}  // namespace vmk
