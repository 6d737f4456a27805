#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vmk {

/// The language identifier of a file that names none.
inline constexpr std::uint32_t kNoLangid = 0xFFFFFFFF;

/// What a language file says about itself: its lines that begin with "$". A UTF-16 code unit is one wchar_t.
struct LanguageHeader {
    std::uint32_t langid = kNoLangid;  ///< Windows language identifier
    std::wstring langname;
    std::wstring flag;       ///< kept for other programs
    std::wstring productID;  ///< the product whose texts the file translates
    std::wstring tipsfile;   ///< kept for other programs

    bool operator==(const LanguageHeader&) const = default;
};

/// One text and its translation, both unescaped.
struct LanguageEntry {
    std::wstring_view source;  ///< never empty
    std::wstring_view translation;

    bool operator==(const LanguageEntry&) const = default;
};

/// A language file, parsed.
struct LanguageFile {
    LanguageHeader header;
    std::vector<LanguageEntry> entries;  ///< in the order of the file, repeated sources included
    std::unique_ptr<wchar_t[]> texts;    ///< what the entries point into
};

/// Reads the header lines of a file's bytes and passes over its entries.
/// Nothing when the bytes do not begin with the byte-order mark of UTF-16, little endian.
std::optional<LanguageHeader> ReadLanguageHeader(std::span<const std::byte> file);

/// Reads a file's bytes completely; the result does not refer to them. The text ends at its first zero code
/// unit; a last odd byte is left out. Lines that are neither header nor entry are passed over. Nothing when
/// the bytes do not begin with the byte-order mark of UTF-16, little endian.
std::optional<LanguageFile> ReadLanguageFile(std::span<const std::byte> file);

}  // namespace vmk
