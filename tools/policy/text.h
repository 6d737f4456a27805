#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

// The texts of the files are UTF-8 while they are put together.

namespace vmk::policy {

// What somebody asked for cannot be made.
class Refusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The UTF-8 form of UTF-16 code units, one a wchar_t. Throws Refusal for half a surrogate pair, which none of
// the files can hold.
std::string Utf8(std::wstring_view units);

// The bytes of UTF-16, low byte first, of UTF-8. Throws Refusal for what is none.
std::string Utf16Bytes(std::string_view utf8);

// The text as it stands in XML, in quotes as well as between tags. Throws Refusal for characters that XML
// cannot hold.
std::string Xml(std::string_view utf8);

// ` name="value"`, the value as XML holds it.
std::string Attribute(std::string_view name, std::string_view value);

// The text with the marks %1, %2 and %3 replaced; what replaces one is not looked at again.
std::string Filled(std::string_view text, std::string_view first, std::string_view second = {},
                   std::string_view third = {});

std::string Replaced(std::string_view text, char from, std::string_view to);

}  // namespace vmk::policy
