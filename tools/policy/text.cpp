#include "tools/policy/text.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace vmk::policy {
namespace {

constexpr std::uint32_t kHighSurrogates = 0xD800;
constexpr std::uint32_t kLowSurrogates = 0xDC00;
constexpr std::uint32_t kBehindSurrogates = 0xE000;
constexpr std::uint32_t kFirstPair = 0x10000;
constexpr std::uint32_t kLastCharacter = 0x10FFFF;

bool IsSurrogate(std::uint32_t unit) {
    return kHighSurrogates <= unit && unit < kBehindSurrogates;
}

void AppendUtf8(std::string& text, std::uint32_t character) {
    const auto append = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    const auto appendRest = [&](int shift) { append(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | character >> 6);
        appendRest(0);
    } else if (character < kFirstPair) {
        append(0xE0 | character >> 12);
        appendRest(6);
        appendRest(0);
    } else {
        append(0xF0 | character >> 18);
        appendRest(12);
        appendRest(6);
        appendRest(0);
    }
}

// Takes the first character off the text.
std::uint32_t TakeUtf8(std::string_view& text) {
    const auto byteAt = [&](std::size_t at) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(text[at]));
    };
    const std::uint32_t lead = byteAt(0);
    const std::size_t length = lead < 0x80       ? 1
                               : lead >> 5 == 6  ? 2
                               : lead >> 4 == 14 ? 3
                               : lead >> 3 == 30 ? 4
                                                 : 0;
    if (length == 0 || length > text.size()) throw Refusal("a text is not UTF-8");
    std::uint32_t character = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t at = 1; at != length; ++at) {
        if (byteAt(at) >> 6 != 2) throw Refusal("a text is not UTF-8");
        character = character << 6 | (byteAt(at) & 0x3F);
    }
    constexpr std::array<std::uint32_t, 5> kSmallest = {0, 0, 0x80, 0x800, kFirstPair};
    if (character < kSmallest[length] || character > kLastCharacter || IsSurrogate(character))
        throw Refusal("a text is not UTF-8");
    text.remove_prefix(length);
    return character;
}

}  // namespace

std::string Utf8(std::wstring_view units) {
    const auto unitAt = [&](std::size_t at) { return static_cast<std::uint32_t>(units[at]); };
    std::string text;
    for (std::size_t at = 0; at != units.size(); ++at) {
        std::uint32_t character = unitAt(at);
        if (IsSurrogate(character)) {
            const auto low = at + 1 == units.size() ? 0U : unitAt(at + 1);
            if (character >= kLowSurrogates || low < kLowSurrogates || low >= kBehindSurrogates)
                throw Refusal("a text has half a surrogate pair");
            character = kFirstPair + ((character - kHighSurrogates) << 10 | (low - kLowSurrogates));
            ++at;
        }
        AppendUtf8(text, character);
    }
    return text;
}

std::string Utf16Bytes(std::string_view utf8) {
    std::string bytes;
    const auto append = [&](std::uint32_t unit) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    };
    while (!utf8.empty()) {
        const std::uint32_t character = TakeUtf8(utf8);
        if (character < kFirstPair) {
            append(character);
        } else {
            append(kHighSurrogates | (character - kFirstPair) >> 10);
            append(kLowSurrogates | ((character - kFirstPair) & 0x3FF));
        }
    }
    return bytes;
}

std::string Xml(std::string_view utf8) {
    std::string xml;
    while (!utf8.empty()) {
        const std::string_view before = utf8;
        const std::uint32_t character = TakeUtf8(utf8);
        switch (character) {
            case '&':
                xml += "&amp;";
                break;
            case '<':
                xml += "&lt;";
                break;
            case '>':
                xml += "&gt;";
                break;
            case '"':
                xml += "&quot;";
                break;
            // In an attribute they would become blanks.
            case '\t':
                xml += "&#9;";
                break;
            case '\n':
                xml += "&#10;";
                break;
            case '\r':
                xml += "&#13;";
                break;
            default:
                if (character < ' ' || character == 0xFFFE || character == 0xFFFF)
                    throw Refusal("a text has a character that XML cannot hold");
                xml += before.substr(0, before.size() - utf8.size());
        }
    }
    return xml;
}

std::string Attribute(std::string_view name, std::string_view value) {
    return " " + std::string(name) + "=\"" + Xml(value) + "\"";
}

std::string Filled(std::string_view text, std::string_view first, std::string_view second,
                   std::string_view third) {
    const std::array<std::string_view, 3> values = {first, second, third};
    std::string filled;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '%' && at + 1 < text.size() && '1' <= text[at + 1] && text[at + 1] <= '3') {
            filled += values[static_cast<std::size_t>(text[++at] - '1')];
        } else {
            filled += text[at];
        }
    }
    return filled;
}

std::string Replaced(std::string_view text, char from, std::string_view to) {
    std::string replaced;
    for (const char c : text) {
        if (c == from) {
            replaced += to;
        } else {
            replaced += c;
        }
    }
    return replaced;
}

}  // namespace vmk::policy
