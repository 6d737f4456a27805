#include "language/language_file.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vmk {
namespace {

/// Text as it lies in a file, in pairs of bytes with the low byte first, taken unit by unit from its
/// beginning.
class Units {
  public:
    explicit Units(std::span<const std::byte> bytes)
        : m_at(bytes.data()), m_end(m_at + bytes.size() / 2 * 2) {}

    /// The next unit, zero at the end.
    wchar_t Peek() const {
        if (m_at == m_end) return L'\0';
        const auto low = std::to_integer<unsigned>(m_at[0]);
        const auto high = std::to_integer<unsigned>(m_at[1]);
        return static_cast<wchar_t>(high << 8 | low);
    }
    /// Not to be called at the end.
    void Drop() { m_at += 2; }

    std::size_t size() const { return static_cast<std::size_t>(m_end - m_at) / 2; }
    /// The part that `rest`, a later state of this text, has left behind.
    Units Before(const Units& rest) const {
        Units part = *this;
        part.m_end = rest.m_at;
        return part;
    }

  private:
    const std::byte* m_at;
    const std::byte* m_end;
};

bool IsBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\t';
}
bool EndsLine(wchar_t unit) {
    return unit == L'\r' || unit == L'\n' || unit == L'\0';
}

void SkipBlanks(Units& text) {
    while (IsBlank(text.Peek())) text.Drop();
}

void SkipLine(Units& text) {
    while (!EndsLine(text.Peek())) text.Drop();
}

/// Takes the line up to its end or to a comment. A quote behind a backslash never closes a text here, even if
/// the backslash is an escaped one.
Units TakeContent(Units& text) {
    const Units line = text;
    bool quoted = false;
    for (wchar_t last = L'\0', unit = L'\0'; unit = text.Peek(), !EndsLine(unit); last = unit, text.Drop()) {
        if (unit == L';' && !quoted) break;
        if (unit == L'"' && !(quoted && last == L'\\')) quoted = !quoted;
    }
    return line.Before(text);
}

/// The text behind the byte-order mark; nothing without that mark.
std::optional<Units> TextOf(std::span<const std::byte> file) {
    if (file.size() < 2 || file[0] != std::byte{0xFF} || file[1] != std::byte{0xFE}) return {};
    return Units(file.subspan(2));
}

std::wstring TakeWhile(Units& text, auto&& belongs) {
    std::wstring taken;
    for (wchar_t unit = L'\0'; unit = text.Peek(), unit != L'\0' && belongs(unit); text.Drop()) taken += unit;
    return taken;
}

/// For a word of letters only, which differ from their capitals in one bit.
bool EqualsIgnoringCase(std::wstring_view text, std::wstring_view lowerCase) {
    return std::ranges::equal(text, lowerCase, [](wchar_t a, wchar_t b) { return (a | 0x20) == b; });
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

/// Reads `$key = value`; the value is one word.
void ReadHeaderLine(Units line, LanguageHeader& header) {
    line.Drop();
    const std::wstring key = TakeWhile(line, [](wchar_t unit) { return unit != L' ' && unit != L'='; });
    SkipBlanks(line);
    if (line.Peek() != L'=') return;
    line.Drop();
    SkipBlanks(line);
    const std::wstring word = TakeWhile(line, [](wchar_t unit) { return !IsBlank(unit); });
    std::wstring_view value = word;
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

/// The texts of a file's entries, one behind the other.
class TextPool {
  public:
    /// Room for texts of this length in all.
    explicit TextPool(std::size_t length)
        : m_texts(std::make_unique_for_overwrite<wchar_t[]>(length)), m_end(m_texts.get()) {}

    /// Takes a text with its quotes, of which the closing one may be missing, and keeps it unescaped.
    std::wstring_view TakeQuoted(Units& line) {
        line.Drop();
        wchar_t* const begin = m_end;
        wchar_t unit = L'\0';
        for (; unit = line.Peek(), unit != L'"' && unit != L'\0'; line.Drop()) {
            if (unit == L'\\') {
                line.Drop();
                if (line.Peek() == L'\0') break;
                unit = Unescape(line.Peek());
            }
            *m_end++ = unit;
        }
        if (unit == L'"') line.Drop();
        return {begin, m_end};
    }

    std::unique_ptr<wchar_t[]> Release() { return std::move(m_texts); }

  private:
    std::unique_ptr<wchar_t[]> m_texts;
    wchar_t* m_end;
};

/// Reads `"source" = "translation"`.
void ReadEntryLine(Units line, TextPool& pool, std::vector<LanguageEntry>& entries) {
    const std::wstring_view source = pool.TakeQuoted(line);
    SkipBlanks(line);
    if (source.empty() || line.Peek() != L'=') return;
    line.Drop();
    SkipBlanks(line);
    if (line.Peek() != L'"') return;
    entries.push_back({.source = source, .translation = pool.TakeQuoted(line)});
}

/// Reads the header lines; `readEntry` gets the text when a line with an entry comes next, and may take it.
void ReadLines(Units text, LanguageHeader& header, auto&& readEntry) {
    for (;; SkipLine(text)) {
        while (IsBlank(text.Peek()) || text.Peek() == L'\r' || text.Peek() == L'\n') text.Drop();
        switch (text.Peek()) {
            case L'\0':
                return;
            case L'$':
                ReadHeaderLine(TakeContent(text), header);
                break;
            case L'"':
                readEntry(text);
                break;
            default:
                break;
        }
    }
}

}  // namespace

std::optional<LanguageHeader> ReadLanguageHeader(std::span<const std::byte> file) {
    const auto text = TextOf(file);
    if (!text) return {};
    LanguageHeader header;
    ReadLines(*text, header, [](Units&) {});
    return header;
}

std::optional<LanguageFile> ReadLanguageFile(std::span<const std::byte> file) {
    const auto text = TextOf(file);
    if (!text) return {};
    LanguageFile result;
    TextPool pool(text->size());
    ReadLines(*text, result.header, [&](Units& at) { ReadEntryLine(TakeContent(at), pool, result.entries); });
    result.texts = pool.Release();
    return result;
}

}  // namespace vmk
