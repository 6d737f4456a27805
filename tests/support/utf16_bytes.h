#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

// Texts as the bytes of a file:
//
//     folder.Write(L"german.vlf", LanguageFileBytes(L"$langid = 0407"));
//     EXPECT_TRUE(ReadLanguageFile(LanguageFileBytes(L"\"OK\" = \"Ja\"")));
//     EXPECT_FALSE(ReadLanguageFile(Utf16Bytes(L"\"OK\" = \"Ja\"")));

namespace vmk::test {

// The text's code units as a file's bytes, low byte first, without a byte-order mark.
inline std::vector<std::byte> Utf16Bytes(std::wstring_view text) {
    std::vector<std::byte> bytes;
    bytes.reserve(text.size() * 2);
    for (const wchar_t unit : text) {
        bytes.push_back(static_cast<std::byte>(static_cast<unsigned>(unit) & 0xFF));
        bytes.push_back(static_cast<std::byte>(static_cast<unsigned>(unit) >> 8 & 0xFF));
    }
    return bytes;
}

// A language file's bytes: the byte-order mark and the text.
inline std::vector<std::byte> LanguageFileBytes(std::wstring_view text) {
    std::vector<std::byte> bytes{std::byte{0xFF}, std::byte{0xFE}};
    const std::vector<std::byte> units = Utf16Bytes(text);
    bytes.insert(bytes.end(), units.begin(), units.end());
    return bytes;
}

}  // namespace vmk::test
