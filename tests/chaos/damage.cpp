#include "tests/chaos/damage.h"

#include <cstdint>
#include <initializer_list>
#include <limits>

namespace vmk::test {
namespace {

constexpr DWORD kTypes[] = {
    REG_NONE, REG_SZ,       REG_EXPAND_SZ,     REG_BINARY, REG_DWORD,  REG_DWORD_BIG_ENDIAN,
    REG_LINK, REG_MULTI_SZ, REG_RESOURCE_LIST, REG_QWORD,  0x12345678, 0xFFFFFFFF};

constexpr std::size_t kMegabyte = 0x100000;

void AddTypes(std::vector<Damage>& damages) {
    const std::pair<const char*, std::string> contents[] = {
        {"empty", ""},
        {"one byte", "\x03"},
        {"three bytes", {"\x01\x00\xFF", 3}},
        {"a number's bytes", {"\x07\x00\x00\x00", 4}},
        {"five bytes", {"\x01\x00\x00\x00\x01", 5}},
        {"eight bytes", {"\x02\x00\x00\x00\x00\x00\x00\x00", 8}},
        {"a text", Utf16Of({L"text", 5})},
        {"a text of odd length", Utf16Of(L"odd text") + '\x41'},
    };
    for (const DWORD type : kTypes)
        for (const auto& [name, bytes] : contents)
            damages.push_back({"type " + std::to_string(type) + ", " + name, RawValue{type, bytes}});
}

void AddNumbers(std::vector<Damage>& damages) {
    using Limits = std::numeric_limits<std::int32_t>;
    for (const std::int32_t number : {0,
                                      1,
                                      2,
                                      3,
                                      4,
                                      5,
                                      6,
                                      7,
                                      8,
                                      9,
                                      11,
                                      12,
                                      16,
                                      17,
                                      29,
                                      40,
                                      48,
                                      49,
                                      100,
                                      101,
                                      128,
                                      254,
                                      255,
                                      256,
                                      2400,
                                      2401,
                                      -1,
                                      -2,
                                      -100,
                                      32767,
                                      32768,
                                      65535,
                                      65536,
                                      -32768,
                                      0xFFFFFF,
                                      0x1000000,
                                      Limits::max(),
                                      Limits::max() - 1,
                                      Limits::min(),
                                      Limits::min() + 1})
        damages.push_back({"the number " + std::to_string(number), RawNumber(static_cast<DWORD>(number))});
}

std::wstring LongText(std::size_t length) {
    std::wstring text(length, L'x');
    for (std::size_t at = 0; at < length; at += 10) text[at] = L'\u00E4';
    return text;
}

void AddTexts(std::vector<Damage>& damages) {
    const auto add = [&](const std::string& kind, const std::wstring& text) {
        damages.push_back({kind, RawValue{REG_SZ, Utf16Of(text)}});
    };
    for (const wchar_t* const text : {L"5", L"12", L"123", L"1234", L"\u00FF\u00FF\u00FF", L"x"})
        add("an unterminated text of " + std::to_string(std::wcslen(text)), text);
    add("a text of a terminator", {L"\0", 1});
    add("terminators", {L"\0\0\0\0\0\0", 6});
    add("an embedded zero", {L"before\0behind", 14});
    add("a zero at the beginning", {L"\0behind", 8});
    add("surrogates out of order", L"\xDC00x\xD800y\xD83D");
    add("a surrogate pair", L"\xD83D\xDE00");
    add("characters of no code page", L"\u0416\u4E2D\uFFFF\u200F\u0301");
    add("characters of controls", L"\x01\x07\x08\x1B\x7F\x80\x81\x9F");
    add("lines", L"a\r\nb\nc\r\td");
    add("separators", L";;;Vmk Never;;Vmk Always;No Such Font;Vmk Never;");
    add("formats", L"%s%n%1.3f%[DocName]%f\\\"&&");
    // Around the sizes of buffers.
    for (const std::size_t length : std::initializer_list<std::size_t>{255, 256, 259, 260, 1021, 1022, 1023,
                                                                       1024, 1025, 2047, 2048, 32767})
        add("a text of " + std::to_string(length), LongText(length) + L'\0');
    add("an unterminated text of 1023", LongText(1023));
    add("an unterminated text of 1024", LongText(1024));
    add("a megabyte of text", LongText(kMegabyte / 2 - 1) + L'\0');
    damages.push_back({"a megabyte of bytes", RawValue{REG_BINARY, std::string(kMegabyte, '\x81')}});
    damages.push_back({"a megabyte of zeros", RawValue{REG_DWORD, std::string(kMegabyte, '\0')}});
}

std::vector<Damage> MakeAll() {
    std::vector<Damage> damages;
    damages.push_back({"missing", {}});
    AddTypes(damages);
    AddNumbers(damages);
    AddTexts(damages);
    return damages;
}

}  // namespace

const std::vector<Damage>& AllDamages() {
    static const std::vector<Damage> kAll = MakeAll();
    return kAll;
}

}  // namespace vmk::test
