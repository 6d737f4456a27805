#include "host/text.h"

#include <windows.h>

#include <algorithm>

namespace vmk {
namespace {

// The component converts what it stores with the thread's code page, which may differ from the system's.
constexpr UINT kAnsi = CP_THREAD_ACP;

std::string FromWide(std::wstring_view text, UINT codePage) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), length, result.data(), size, nullptr, nullptr);
    return result;
}

std::wstring ToWide(std::string_view text, UINT codePage) {
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), length, result.data(), size);
    return result;
}

constexpr char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string Utf8FromWide(std::wstring_view text) {
    return FromWide(text, CP_UTF8);
}

std::wstring WideFromUtf8(std::string_view text) {
    return ToWide(text, CP_UTF8);
}

std::string AnsiFromWide(std::wstring_view text) {
    return FromWide(text, kAnsi);
}

std::wstring WideFromAnsi(std::string_view text) {
    return ToWide(text, kAnsi);
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
