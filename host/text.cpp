#include "host/text.h"

#include <windows.h>

#include <algorithm>

#include "base/code_page.h"

namespace vmk {
namespace {

// The component converts what it stores with the thread's code page, which may differ from the system's.
constexpr UINT kAnsi = CP_THREAD_ACP;

constexpr char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string Utf8FromWide(std::wstring_view text) {
    return Narrow(text, CP_UTF8);
}

std::wstring WideFromUtf8(std::string_view text) {
    return Widen(text, CP_UTF8);
}

std::string AnsiFromWide(std::wstring_view text) {
    return Narrow(text, kAnsi);
}

std::wstring WideFromAnsi(std::string_view text) {
    return Widen(text, kAnsi);
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, Lower, Lower);
}

bool StartsWithIgnoringCase(std::string_view name, std::string_view start) {
    return EqualsIgnoringCase(name.substr(0, start.size()), start);
}

bool EndsWithIgnoringCase(std::string_view name, std::string_view end) {
    return name.size() >= end.size() && EqualsIgnoringCase(name.substr(name.size() - end.size()), end);
}

bool IsBeforeIgnoringCase(std::string_view left, std::string_view right) {
    return std::ranges::lexicographical_compare(left, right, {}, Lower, Lower);
}

}  // namespace vmk
