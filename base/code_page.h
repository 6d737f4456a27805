#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace vmk {

// A text in a code page (CP_ACP, CP_THREAD_ACP, CP_UTF8 ...) and back. Characters that the code page lacks
// become its default character. Empty when the conversion fails. Throw std::bad_alloc.
std::string Narrow(std::wstring_view text, UINT codePage);
std::wstring Widen(std::string_view text, UINT codePage);

}  // namespace vmk
