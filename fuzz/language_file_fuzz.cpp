#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "language/language_file.h"
#include "language/language_table.h"

// Language files of any content: the fast reader and the table against a second reading of the format, done
// step by step with no thought of speed.
namespace vmk {
namespace {

using Texts = std::vector<std::pair<std::wstring, std::wstring>>;

void Require(bool condition) {
    if (!condition) std::abort();
}

bool IsBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\t';
}

std::wstring WithoutLeadingBlanks(const std::wstring& text) {
    const auto first = std::find_if_not(text.begin(), text.end(), IsBlank);
    return {first, text.end()};
}

std::optional<std::wstring> TextOf(std::span<const std::byte> file) {
    if (file.size() < 2 || std::to_integer<int>(file[0]) != 0xFF || std::to_integer<int>(file[1]) != 0xFE)
        return {};
    std::wstring text;
    for (std::size_t i = 2; i + 1 < file.size(); i += 2)
        text += static_cast<wchar_t>(std::to_integer<int>(file[i]) + 256 * std::to_integer<int>(file[i + 1]));
    return text.substr(0, text.find(L'\0'));
}

std::vector<std::wstring> LinesOf(const std::wstring& text) {
    std::vector<std::wstring> lines(1);
    for (const wchar_t unit : text) {
        if (unit == L'\r' || unit == L'\n') {
            lines.emplace_back();
        } else {
            lines.back() += unit;
        }
    }
    return lines;
}

std::wstring WithoutComment(const std::wstring& line) {
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (quoted && line[i] == L'\\' && line.substr(i + 1, 1) == L"\"") {
            ++i;
        } else if (line[i] == L'"') {
            quoted = !quoted;
        } else if (line[i] == L';' && !quoted) {
            return line.substr(0, i);
        }
    }
    return line;
}

std::wstring LowerCase(std::wstring text) {
    for (wchar_t& unit : text)
        if (unit >= L'A' && unit <= L'Z') unit += L'a' - L'A';
    return text;
}

std::uint32_t HexValue(std::wstring digits) {
    if (LowerCase(digits).substr(0, 2) == L"0x") digits = digits.substr(2);
    digits = digits.substr(0, digits.find_first_not_of(L"0123456789abcdefABCDEF"));
    if (digits.size() > 8) digits = digits.substr(digits.size() - 8);
    return digits.empty() ? 0 : static_cast<std::uint32_t>(std::stoul(digits, nullptr, 16));
}

void ReadHeader(const std::wstring& line, LanguageHeader& header) {
    const std::wstring key = LowerCase(line.substr(1, line.find_first_of(L" =") - 1));
    const std::wstring rest = WithoutLeadingBlanks(line.substr(1 + key.size()));
    if (rest.empty() || rest[0] != L'=') return;
    std::wstring value = WithoutLeadingBlanks(rest.substr(1));
    value = value.substr(0, value.find_first_of(L" \t"));
    if (!value.empty() && value.front() == L'"') value.erase(0, 1);
    if (!value.empty() && value.back() == L'"') value.pop_back();
    if (key == L"langid") header.langid = HexValue(value);
    if (key == L"langname") header.langname = value;
    if (key == L"flag") header.flag = value;
    if (key == L"productid") header.productID = value;
    if (key == L"tipsfile") header.tipsfile = value;
}

/// Takes the quoted text off the beginning of the line.
std::wstring TakeText(std::wstring& line) {
    std::wstring text;
    std::size_t i = 1;
    for (; i < line.size() && line[i] != L'"'; ++i) {
        if (line[i] != L'\\') {
            text += line[i];
        } else if (++i < line.size()) {
            const std::size_t escape = std::wstring_view(L"nrt").find(line[i]);
            text += escape == std::wstring_view::npos ? line[i] : L"\n\r\t"[escape];
        }
    }
    line = i < line.size() ? line.substr(i + 1) : L"";
    return text;
}

void ReadEntry(std::wstring line, Texts& entries) {
    const std::wstring source = TakeText(line);
    line = WithoutLeadingBlanks(line);
    if (source.empty() || line.empty() || line[0] != L'=') return;
    line = WithoutLeadingBlanks(line.substr(1));
    if (line.empty() || line[0] != L'"') return;
    entries.emplace_back(source, TakeText(line));
}

void CheckTable(LanguageFile file) {
    std::map<std::wstring_view, std::wstring_view> expected;
    for (const LanguageEntry& entry : file.entries) expected.emplace(entry.source, entry.translation);
    const LanguageTable table(std::move(file));

    Require(table.size() == expected.size());
    for (const auto& [source, translation] : expected) {
        Require(table.Find(source) == translation);
        for (const std::wstring& other :
             {std::wstring(source) + L'a', std::wstring(source, 0, source.size() - 1)})
            Require(table.Find(other).has_value() == expected.contains(other));
    }
}

void CheckFile(std::span<const std::byte> bytes) {
    const std::optional<std::wstring> text = TextOf(bytes);
    std::optional<LanguageFile> file = ReadLanguageFile(bytes);
    const std::optional<LanguageHeader> headerOnly = ReadLanguageHeader(bytes);
    Require(file.has_value() == text.has_value() && headerOnly.has_value() == text.has_value());
    if (!text) return;

    LanguageHeader header;
    Texts entries;
    for (const std::wstring& whole : LinesOf(*text)) {
        const std::wstring line = WithoutComment(WithoutLeadingBlanks(whole));
        if (line.starts_with(L'$')) ReadHeader(line, header);
        if (line.starts_with(L'"')) ReadEntry(line, entries);
    }
    Require(file->header == header && *headerOnly == header);
    Require(std::equal(entries.begin(), entries.end(), file->entries.begin(), file->entries.end(),
                       [](const auto& a, const LanguageEntry& b) {
                           return a.first == b.source && a.second == b.translation;
                       }));
    CheckTable(std::move(*file));
}

}  // namespace
}  // namespace vmk

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vmk::CheckFile(std::as_bytes(std::span(data, size)));
    return 0;
}
