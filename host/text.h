#pragma once

#include <string>
#include <string_view>

namespace vmk {

// Conversions between the console's UTF-8, Windows' UTF-16 and the ANSI code page that settings are stored
// in. Characters that the target cannot hold become its replacement character; nothing fails.
std::string Utf8FromWide(std::wstring_view text);
std::wstring WideFromUtf8(std::string_view text);
std::string AnsiFromWide(std::wstring_view text);
std::wstring WideFromAnsi(std::string_view text);

// Comparisons of names in which the case of the letters A to Z does not count.
bool EqualsIgnoringCase(std::string_view left, std::string_view right);
bool StartsWithIgnoringCase(std::string_view name, std::string_view start);
bool EndsWithIgnoringCase(std::string_view name, std::string_view end);
bool IsBeforeIgnoringCase(std::string_view left, std::string_view right);

}  // namespace vmk
