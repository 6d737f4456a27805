#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <utility>

#include "host/document_file.h"
#include "host/stored_settings.h"
#include "host/text.h"

// What the registry editor exports of one key, and imports again.

namespace vmk {
namespace {

constexpr std::wstring_view kHeading = L"Windows Registry Editor Version 5.00";
constexpr std::wstring_view kNumber = L"dword:";
constexpr std::wstring_view kBytes = L"hex(1):";  // of a REG_SZ
constexpr std::size_t kLongestLine = 80;

bool IsControl(wchar_t c) {
    return c < 0x20;
}

std::wstring Escaped(std::wstring_view text) {
    std::wstring escaped;
    for (const wchar_t c : text) {
        if (c == L'"' || c == L'\\') escaped += L'\\';
        escaped += c;
    }
    return escaped;
}

std::wstring Hexadecimal(unsigned number, int digits) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%0*x", digits, number);
    return WideFromUtf8(text.data());
}

// The bytes of the text and its terminator, broken into lines as the editor breaks them.
std::wstring BytesOf(std::wstring line, const std::wstring& text) {
    std::wstring lines;
    const std::wstring_view units(text.c_str(), text.size() + 1);
    for (std::size_t at = 0; at != 2 * units.size(); ++at) {
        const auto unit = static_cast<unsigned>(units[at / 2]);
        if (line.size() + 4 > kLongestLine) {
            lines += line + L"\\\r\n";
            line = L"  ";
        }
        line += Hexadecimal(at % 2 == 0 ? unit & 0xFF : unit >> 8, 2);
        if (at + 1 != 2 * units.size()) line += L',';
    }
    return lines + line;
}

std::wstring LineOf(const SettingInfo& setting, const Value& value) {
    const std::wstring start = L"\"" + WideFromUtf8(setting.name) + L"\"=";
    if (const auto* const number = std::get_if<std::int32_t>(&value)) {
        return start + std::wstring(kNumber) + Hexadecimal(static_cast<unsigned>(*number), 8);
    }
    const auto& text = std::get<std::wstring>(value);
    if (std::ranges::any_of(text, IsControl)) return BytesOf(start + std::wstring(kBytes), text);
    return start + L"\"" + Escaped(text) + L"\"";
}

std::string Utf16Bytes(std::wstring_view text) {
    std::string bytes;
    for (const wchar_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    return bytes;
}

std::wstring_view Trimmed(std::wstring_view line) {
    constexpr std::wstring_view kBlanks = L" \t\r";
    const std::size_t start = std::min(line.find_first_not_of(kBlanks), line.size());
    return line.substr(start, line.find_last_not_of(kBlanks) + 1 - start);
}

std::optional<unsigned> ReadHexadecimal(std::wstring_view digits, std::size_t most) {
    const std::string narrow = Utf8FromWide(digits);
    unsigned number = 0;
    const char* const end = narrow.data() + narrow.size();
    const auto [stop, error] = std::from_chars(narrow.data(), end, number, 16);
    const bool whole = error == std::errc() && stop == end && narrow.size() <= most;
    return whole ? std::optional(number) : std::nullopt;
}

std::optional<Value> ReadBytes(std::wstring_view list) {
    std::vector<unsigned> bytes;
    for (std::size_t comma = 0; comma != std::wstring_view::npos;) {
        comma = list.find(L',');
        const auto byte = ReadHexadecimal(Trimmed(list.substr(0, comma)), 2);
        if (!byte) return std::nullopt;
        bytes.push_back(*byte);
        if (comma != std::wstring_view::npos) list.remove_prefix(comma + 1);
    }
    std::wstring text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        text += static_cast<wchar_t>(bytes[at] | bytes[at + 1] << 8);
    }
    if (bytes.size() % 2 != 0) return std::nullopt;
    if (text.ends_with(L'\0')) text.pop_back();
    return text;
}

// A text in quotes, which is taken off the line. Nothing when there is none, or one that does not end.
std::optional<std::wstring> TakeText(std::wstring_view& line) {
    if (!line.starts_with(L'"')) return std::nullopt;
    std::wstring text;
    bool escaped = false;
    for (std::size_t at = 1; at != line.size(); ++at) {
        const wchar_t c = line[at];
        if (escaped) {
            if (c != L'"' && c != L'\\') return std::nullopt;
            text += c;
            escaped = false;
        } else if (c == L'"') {
            line.remove_prefix(at + 1);
            return text;
        } else if (c == L'\\') {
            escaped = true;
        } else {
            text += c;
        }
    }
    return std::nullopt;
}

std::optional<Value> ReadData(std::wstring_view data) {
    if (data.starts_with(kNumber)) {
        const auto number = ReadHexadecimal(data.substr(kNumber.size()), 8);
        return number ? std::optional<Value>(static_cast<std::int32_t>(*number)) : std::nullopt;
    }
    if (data.starts_with(kBytes)) return ReadBytes(data.substr(kBytes.size()));
    std::optional<std::wstring> text = TakeText(data);
    return text && data.empty() ? std::optional<Value>(*std::move(text)) : std::nullopt;
}

// The lines of a file, of which one that ends with a backslash goes on in the next.
class LineReader {
  public:
    explicit LineReader(std::wstring_view text) : m_text(text) {}

    // The next line without blanks around it; nothing behind the last one.
    std::optional<std::wstring> Next() {
        if (m_text.empty()) return std::nullopt;
        m_begin = ++m_line;
        std::wstring line(Take());
        while (line.ends_with(L'\\') && !m_text.empty()) {
            line.pop_back();
            line += Take();
            ++m_line;
        }
        return line;
    }
    // Where it began.
    int Line() const { return m_begin; }

  private:
    std::wstring_view Take() {
        const std::size_t end = m_text.find(L'\n');
        const std::wstring_view line = Trimmed(m_text.substr(0, end));
        m_text.remove_prefix(end == std::wstring_view::npos ? m_text.size() : end + 1);
        return line;
    }

    std::wstring_view m_text;
    int m_line = 0;
    int m_begin = 0;
};

class RegReader {
  public:
    explicit RegReader(Strictness strictness) : m_builder(strictness) {}

    DocumentFile Read(std::wstring_view text) {
        LineReader lines(text);
        while (const auto line = lines.Next()) ReadLine(*line, lines.Line());
        if (!m_hasKey) m_builder.Refuse(lines.Line(), "the file names no key of settings");
        return m_builder.Take();
    }

  private:
    void ReadLine(std::wstring_view line, int at) {
        if (at == 1) {
            if (line != kHeading) m_builder.Refuse(at, "this is not \"" + Utf8FromWide(kHeading) + "\"");
        } else if (line.starts_with(L'[')) {
            ReadKey(line, at);
        } else if (!line.empty() && !line.starts_with(L';')) {
            ReadValueLine(line, at);
        }
    }

    void ReadKey(std::wstring_view line, int at) {
        const std::string root = NameOfSettingsKey(L"");
        const std::string key = Utf8FromWide(line.substr(1, line.size() - (line.ends_with(L']') ? 2 : 1)));
        if (std::exchange(m_hasKey, true)) {
            m_builder.Refuse(at, "a second key; a file may hold the settings of one only");
        } else if (!EqualsIgnoringCase(key, root) && !StartsWithIgnoringCase(key, root + "\\")) {
            m_builder.Refuse(at, key + " is no key of settings; they are below " + root);
        }
    }

    void ReadValueLine(std::wstring_view line, int at) {
        const auto name = TakeText(line);
        if (!name || !line.starts_with(L'=')) {
            m_builder.Refuse(at, "this line is neither a key nor a value with its name in quotes");
            return;
        }
        if (!m_hasKey) m_builder.Refuse(at, "a value before the key that it belongs to");
        if (auto value = ReadData(line.substr(1))) {
            m_builder.Add(*name, at, *value);
        } else {
            m_builder.Refuse(at,
                             Utf8FromWide(*name) + " is neither dword:, nor a text in quotes, nor hex(1):");
        }
    }

    DocumentBuilder m_builder;
    bool m_hasKey = false;
};

}  // namespace

DocumentFile ReadRegDocument(std::wstring_view text, Strictness strictness) {
    return RegReader(strictness).Read(text);
}

std::string WriteRegDocument(const Document& document, const std::string& key) {
    std::wstring text = L"\xFEFF";
    text.append(kHeading).append(L"\r\n\r\n[").append(WideFromUtf8(key)).append(L"]\r\n");
    for (const auto& [setting, value] : document) text += LineOf(*setting, value) + L"\r\n";
    return Utf16Bytes(text + L"\r\n");
}

}  // namespace vmk
