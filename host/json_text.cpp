#include "host/json_text.h"

#include <array>
#include <cstdio>

#include "host/text.h"

namespace vmk {
namespace {

constexpr int kDeepest = 64;  // objects and lists within each other, none of which settings need

bool IsHigh(wchar_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool IsLow(wchar_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

std::string Escape(wchar_t c) {
    std::array<char, 8> digits{};
    std::snprintf(digits.data(), digits.size(), "\\u%04X", static_cast<unsigned>(c));
    return digits.data();
}

std::string EscapedUnit(wchar_t c) {
    switch (c) {
        case L'"':
            return "\\\"";
        case L'\\':
            return "\\\\";
        case L'\n':
            return "\\n";
        case L'\r':
            return "\\r";
        case L'\t':
            return "\\t";
        default:
            return c < 0x20 || c == 0x7F ? Escape(c) : Utf8FromWide({&c, 1});
    }
}

int HexadecimalDigit(wchar_t c) {
    if (c >= L'0' && c <= L'9') return c - L'0';
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    return -1;
}

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

}  // namespace

std::string JsonText(std::wstring_view text) {
    std::string json = "\"";
    for (std::size_t at = 0; at != text.size(); ++at) {
        const wchar_t c = text[at];
        if (IsHigh(c) && at + 1 != text.size() && IsLow(text[at + 1])) {
            json += Utf8FromWide(text.substr(at++, 2));
        } else {
            json += IsHigh(c) || IsLow(c) ? Escape(c) : EscapedUnit(c);
        }
    }
    return json + '"';
}

std::string JsonText(std::string_view utf8) {
    return JsonText(WideFromUtf8(utf8));
}

std::string JsonValueOf(const Value& value) {
    const auto* const number = std::get_if<std::int32_t>(&value);
    return number ? std::to_string(*number) : JsonText(std::get<std::wstring>(value));
}

void JsonReader::Refuse(const std::string& reason) const {
    throw JsonFault(m_line, reason);
}

void JsonReader::SkipBlanks() {
    for (; m_at != m_text.size(); ++m_at) {
        const wchar_t c = m_text[m_at];
        if (c != L' ' && c != L'\t' && c != L'\r' && c != L'\n') return;
        if (c == L'\n') ++m_line;
    }
}

bool JsonReader::Takes(wchar_t character) {
    SkipBlanks();
    if (m_at == m_text.size() || m_text[m_at] != character) return false;
    ++m_at;
    return true;
}

void JsonReader::Expect(wchar_t character, const char* what) {
    if (Takes(character)) return;
    const std::string found =
        m_at == m_text.size() ? "the end of the file" : "'" + Utf8FromWide(m_text.substr(m_at, 1)) + "'";
    Refuse(found + " where " + what + " has to be");
}

std::wstring JsonReader::ReadText(const char* what) {
    Expect(L'"', what);
    std::wstring text;
    for (;;) {
        if (m_at == m_text.size()) Refuse("a text without its closing quote");
        const wchar_t c = m_text[m_at++];
        if (c == L'"') return text;
        if (c < 0x20)
            Refuse("a line break or another control character in a text; write it as \\n or \\u000A");
        text += c == L'\\' ? ReadEscape() : c;
    }
}

wchar_t JsonReader::ReadEscape() {
    constexpr std::wstring_view kEscapes = L"\"\\/bfnrt";
    constexpr std::wstring_view kMeanings = L"\"\\/\b\f\n\r\t";
    const wchar_t c = m_at == m_text.size() ? L'\0' : m_text[m_at++];
    if (const std::size_t place = kEscapes.find(c); place != std::wstring_view::npos) return kMeanings[place];
    if (c != L'u') Refuse("an unknown escape in a text; a backslash is written twice");
    int code = 0;
    for (int count = 0; count != 4; ++count) {
        const int digit = m_at == m_text.size() ? -1 : HexadecimalDigit(m_text[m_at++]);
        if (digit < 0) Refuse("\\u without four hexadecimal digits");
        code = code * 16 + digit;
    }
    return static_cast<wchar_t>(code);
}

std::wstring JsonReader::ReadNumber() {
    const std::size_t start = m_at;
    constexpr std::wstring_view kParts = L"+-.eE";
    while (m_at != m_text.size() &&
           (IsDigit(m_text[m_at]) || kParts.find(m_text[m_at]) != std::wstring_view::npos))
        ++m_at;
    return std::wstring(m_text.substr(start, m_at - start));
}

void JsonReader::SkipWord() {
    for (const std::wstring_view word : {L"true", L"false", L"null"}) {
        if (m_text.substr(m_at, word.size()) != word) continue;
        m_at += word.size();
        return;
    }
    Expect(L'"', "a number or a text");
}

void JsonReader::SkipArray() {
    Expect(L'[', "a list");
    if (Takes(L']')) return;
    do ReadValue();
    while (Takes(L','));
    Expect(L']', "a comma or the closing bracket");
}

JsonValue JsonReader::ReadValue() {
    SkipBlanks();
    const wchar_t c = m_at == m_text.size() ? L'\0' : m_text[m_at];
    if (c == L'"') return {.kind = JsonValue::Kind::Text, .text = ReadText("a text")};
    if (c == L'-' || IsDigit(c)) return {.kind = JsonValue::Kind::Number, .text = ReadNumber()};
    if (++m_depth > kDeepest) Refuse("too many objects or lists within each other");
    if (c == L'{') {
        ReadObject([this](const std::wstring&, int) { ReadValue(); });
    } else if (c == L'[') {
        SkipArray();
    } else {
        SkipWord();
    }
    --m_depth;
    return {};
}

void JsonReader::ReadEnd() {
    SkipBlanks();
    if (m_at != m_text.size()) Refuse("something behind the closing brace");
}

}  // namespace vmk
