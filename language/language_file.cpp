#include "language/language_file.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <utility>

namespace vmk {
namespace {

// The functions below walk through text that ends with a zero, so each scan stops by itself.

bool IsBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\t';
}
bool EndsLine(wchar_t unit) {
    return unit == L'\r' || unit == L'\n' || unit == L'\0';
}

wchar_t* SkipBlanks(wchar_t* at) {
    while (IsBlank(*at)) ++at;
    return at;
}

wchar_t* FindLineEnd(wchar_t* at) {
    while (!EndsLine(*at)) ++at;
    return at;
}

/// Where the line's content ends: at its end or at a comment. A quote behind a backslash never closes a text
/// here, even if the backslash is an escaped one.
wchar_t* FindContentEnd(wchar_t* at) {
    bool quoted = false;
    for (; !EndsLine(*at); ++at) {
        if (*at == L';' && !quoted) break;
        if (*at == L'"' && !(quoted && at[-1] == L'\\')) quoted = !quoted;
    }
    return at;
}

/// The file's text behind the byte-order mark, with a zero at its end; null when there is no such mark.
std::unique_ptr<wchar_t[]> Decode(std::span<const std::byte> file) {
    if (file.size() < 2 || file[0] != std::byte{0xFF} || file[1] != std::byte{0xFE}) return nullptr;
    const std::size_t length = file.size() / 2 - 1;
    auto text = std::make_unique_for_overwrite<wchar_t[]>(length + 1);
    for (std::size_t i = 0; i < length; ++i) {
        const std::byte* pair = &file[2 * i + 2];
        text[i] = static_cast<wchar_t>(std::to_integer<unsigned>(pair[0]) | std::to_integer<unsigned>(pair[1])
                                                                                << 8);
    }
    text[length] = L'\0';
    return text;
}

bool EqualsIgnoringCase(std::wstring_view text, std::wstring_view lowerCase) {
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(), [](wchar_t a, wchar_t b) {
        return (a >= L'A' && a <= L'Z' ? a - L'A' + L'a' : a) == b;
    });
}

int HexDigit(wchar_t unit) {
    if (unit >= L'0' && unit <= L'9') return unit - L'0';
    if (unit >= L'A' && unit <= L'F') return unit - L'A' + 10;
    if (unit >= L'a' && unit <= L'f') return unit - L'a' + 10;
    return -1;
}

/// Stops at the first character that is no hexadecimal digit; of more than eight digits the last eight count.
std::uint32_t ParseHex(std::wstring_view text) {
    if (text.starts_with(L"0x") || text.starts_with(L"0X")) text.remove_prefix(2);
    std::uint32_t value = 0;
    for (const wchar_t unit : text) {
        const int digit = HexDigit(unit);
        if (digit < 0) break;
        value = value << 4 | static_cast<std::uint32_t>(digit);
    }
    return value;
}

struct HeaderText {
    std::wstring_view key;
    std::wstring LanguageHeader::*member;
};
constexpr std::array kHeaderTexts = {
    HeaderText{L"langname", &LanguageHeader::langname},
    HeaderText{L"flag", &LanguageHeader::flag},
    HeaderText{L"productid", &LanguageHeader::productID},
    HeaderText{L"tipsfile", &LanguageHeader::tipsfile},
};

/// Reads a line `key = value`; the value is one word.
void ReadHeaderLine(wchar_t* at, LanguageHeader& header) {
    wchar_t* const keyBegin = at;
    while (*at != L' ' && *at != L'=' && *at != L'\0') ++at;
    const std::wstring_view key(keyBegin, at);
    at = SkipBlanks(at);
    if (*at != L'=') return;

    wchar_t* const valueBegin = SkipBlanks(at + 1);
    for (at = valueBegin; !IsBlank(*at) && *at != L'\0';) ++at;
    std::wstring_view value(valueBegin, at);
    if (value.starts_with(L'"')) value.remove_prefix(1);
    if (value.ends_with(L'"')) value.remove_suffix(1);

    if (EqualsIgnoringCase(key, L"langid")) header.langid = ParseHex(value);
    for (const HeaderText& text : kHeaderTexts)
        if (EqualsIgnoringCase(key, text.key)) header.*text.member = value;
}

wchar_t Unescape(wchar_t unit) {
    switch (unit) {
        case L'n':
            return L'\n';
        case L'r':
            return L'\r';
        case L't':
            return L'\t';
        default:
            return unit;
    }
}

/// Takes a text that starts behind its opening quote and leaves `at` behind the closing one, or at the end of
/// the line when that is missing. The text is unescaped where it lies: it only gets shorter.
std::wstring_view TakeQuoted(wchar_t*& at) {
    wchar_t* const begin = at;
    wchar_t* end = begin;
    for (; *at != L'"' && *at != L'\0'; ++at) {
        wchar_t unit = *at;
        if (unit == L'\\') {
            if (*++at == L'\0') break;
            unit = Unescape(*at);
        }
        *end++ = unit;
    }
    if (*at == L'"') ++at;
    return {begin, end};
}

/// Reads a line `source" = "translation"`.
void ReadEntryLine(wchar_t* at, std::vector<LanguageEntry>& entries) {
    const std::wstring_view source = TakeQuoted(at);
    at = SkipBlanks(at);
    if (source.empty() || *at != L'=') return;
    at = SkipBlanks(at + 1);
    if (*at != L'"') return;
    entries.push_back({.source = source, .translation = TakeQuoted(++at)});
}

/// Reads all lines; the entries only when they are wanted.
void ReadLines(wchar_t* at, LanguageHeader& header, std::vector<LanguageEntry>* entries) {
    for (;;) {
        while (IsBlank(*at) || *at == L'\r' || *at == L'\n') ++at;
        if (*at == L'\0') return;

        const bool isHeader = *at == L'$';
        if (!isHeader && !(*at == L'"' && entries)) {
            at = FindLineEnd(at);
            continue;
        }
        wchar_t* const contentEnd = FindContentEnd(at);
        wchar_t* const lineEnd = FindLineEnd(contentEnd);
        const bool isLast = *lineEnd == L'\0';
        *contentEnd = L'\0';
        if (isHeader)
            ReadHeaderLine(at + 1, header);
        else
            ReadEntryLine(at + 1, *entries);
        if (isLast) return;
        at = lineEnd + 1;
    }
}

}  // namespace

std::optional<LanguageHeader> ReadLanguageHeader(std::span<const std::byte> file) {
    const auto text = Decode(file);
    if (!text) return {};
    LanguageHeader header;
    ReadLines(text.get(), header, nullptr);
    return header;
}

std::optional<LanguageFile> ReadLanguageFile(std::span<const std::byte> file) {
    auto text = Decode(file);
    if (!text) return {};
    LanguageFile result;
    ReadLines(text.get(), result.header, &result.entries);
    result.text = std::move(text);
    return result;
}

}  // namespace vmk
