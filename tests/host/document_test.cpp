#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "host/document_file.h"
#include "host/stored_settings.h"
#include "host/text.h"
#include "host/values.h"
#include "tests/settings/expected_settings.h"
#include "tests/settings/member_values.h"

namespace vmk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Each member with the greatest or the smallest number, or with one of the texts that formats trip over.
struct ExtremeMaker {
    std::size_t& turn;

    static std::wstring Text(std::size_t which) {
        const std::wstring texts[] = {
            L"",
            L"\"quoted\" \\ and \\\\ and \\\"",
            L"line\r\nbreak\nand\ttab\rand \x01\x1F\x7F",
            L"\xD800",
            L"\xDC00\xD800 x \xDBFF",
            L"\xD83D\xDE00 \xD800\xDC00 \xDBFF\xDFFF",
            L"Stra\u00DFe \u0416\u3042\u20AC\uFFFD\uFFFF\uFEFF",
            std::wstring(20'000, L'x') + L"end",
            L"ends with a backslash\\",
            L"=[];#,:{}'/",
            L" blanks around ",
            EveryPlane(),
        };
        return texts[which % std::size(texts)];
    }

    // One character of each of the seventeen planes.
    static std::wstring EveryPlane() {
        std::wstring text = L"\u4E2D";
        for (unsigned plane = 1; plane <= 16; ++plane) {
            const unsigned offset = (plane - 1) << 16 | 0x1234;
            text += static_cast<wchar_t>(0xD800 + (offset >> 10));
            text += static_cast<wchar_t>(0xDC00 + (offset & 0x3FF));
        }
        return text;
    }

    void operator()(const char*, std::int32_t& number) const {
        constexpr std::int32_t kNumbers[] = {std::numeric_limits<std::int32_t>::min(),
                                             std::numeric_limits<std::int32_t>::max(), -1, 0};
        number = kNumbers[turn++ % std::size(kNumbers)];
    }
    void operator()(const char*, std::wstring& text) const { text = Text(turn++); }
    void operator()(const char*, RunApplication& run) const {
        run = {.Use = 1, .WithoutPath = 0, .Path = Text(turn++)};
    }
    void operator()(const char*, SwapToDisk& swap) const { swap = {.Enabled = 1, .Megabytes = 8}; }
};

Document ExtremeDocument(std::size_t first) {
    PrinterSettings settings;
    std::size_t turn = first;
    WalkFields(page_bit::kAllPages, ExtremeMaker{turn}, settings);
    return DocumentOf(settings);
}

constexpr std::size_t kTurns = 12;  // after which each setting has had each text

TEST(Documents, HaveEverySettingInTheOrderOfStoringWithItsDefault) {
    const Document defaults = Defaults();
    ASSERT_EQ(defaults.size(), std::size(kExpectedSettings));
    auto expected = std::begin(kExpectedSettings);
    for (const auto& [setting, value] : defaults) {
        EXPECT_EQ(setting->name, expected->name);
        EXPECT_EQ(setting->group, expected->group);
        const Value wanted = expected->text ? Value(expected->text) : Value(expected->number);
        EXPECT_EQ(value, wanted) << expected->name;
        EXPECT_EQ(setting->standard, wanted) << expected->name;
        ++expected;
    }
}

TEST(JsonDocuments, GiveBackEverySettingWithExtremeContents) {
    for (std::size_t turn = 0; turn != kTurns; ++turn) {
        const Document document = ExtremeDocument(turn);
        const DocumentFile read = ReadDocument(WriteJsonDocument(document), Strictness::Forced);
        ASSERT_TRUE(read.faults.empty()) << read.faults.front().line << ": " << read.faults.front().reason;
        EXPECT_EQ(read.document, document) << "turn " << turn;
    }
}

TEST(RegDocuments, GiveBackEverySettingWithExtremeContents) {
    for (std::size_t turn = 0; turn != kTurns; ++turn) {
        const Document document = ExtremeDocument(turn);
        const std::string bytes = WriteRegDocument(document, NameOfSettingsKey(L"Office"));
        const DocumentFile read = ReadDocument(bytes, Strictness::Forced);
        ASSERT_TRUE(read.faults.empty()) << read.faults.front().line << ": " << read.faults.front().reason;
        EXPECT_EQ(read.document, document) << "turn " << turn;
    }
}

TEST(JsonDocuments, LookLikeThis) {
    const Document document = {{FindSetting("Paper.Nup"), 2},
                               {FindSetting("Info.Title"), L"\xD800 \u00DF\n"}};
    EXPECT_EQ(WriteJsonDocument(document),
              "{\n  \"schema\": 1,\n  \"product\": \"vmkctrl.PdfPrinterPreferences\",\n  \"settings\": {\n"
              "    \"Paper.Nup\": 2,\n    \"Info.Title\": \"\\uD800 \xC3\x9F\\n\"\n  }\n}\n");
    EXPECT_THAT(WriteJsonDocument({}), HasSubstr("\"settings\": {\n  }"));
}

// As the editor of Windows writes them: broken behind a comma before a line has more than 80 characters.
TEST(RegDocuments, LookLikeThis) {
    const Document document = {{FindSetting("Paper.Nup"), 2},
                               {FindSetting("Info.Author"), L"A\\\"B\""},
                               {FindSetting("Info.Title"), L"ab\ncdefghijklmnop"},
                               {FindSetting("Security.Digisig.Page"), -1}};
    std::string narrow;
    for (const char c : WriteRegDocument(document, "HKEY_CURRENT_USER\\X")) {
        if (c != '\0') narrow += c;
    }
    EXPECT_EQ(narrow,
              "\xFF\xFEWindows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\X]\r\n"
              "\"Paper.Nup\"=dword:00000002\r\n"
              "\"Info.Author\"=\"A\\\\\\\"B\\\"\"\r\n"
              "\"Info.Title\"=hex(1):61,00,62,00,0a,00,63,00,64,00,65,00,66,00,67,00,68,00,69,\\\r\n"
              "  00,6a,00,6b,00,6c,00,6d,00,6e,00,6f,00,70,00,00,00\r\n"
              "\"Security.Digisig.Page\"=dword:ffffffff\r\n\r\n");
}

std::string Json(const std::string& settings) {
    return "{\n\"schema\": 1,\n\"product\": \"vmkctrl.PdfPrinterPreferences\",\n\"settings\": {\n" +
           settings + "\n}\n}\n";
}

TEST(JsonDocuments, MayHaveAByteOrderMarkAndBeInUtf16) {
    const std::string json = Json("\"paper.NUP\": 2, \"Info.Title\": \"\xC3\x9F\"");
    const Document expected = {{FindSetting("Paper.Nup"), 2}, {FindSetting("Info.Title"), L"\u00DF"}};
    EXPECT_EQ(ReadDocument(json, Strictness::Strict).document, expected);
    EXPECT_EQ(ReadDocument("\xEF\xBB\xBF" + json, Strictness::Strict).document, expected);
    std::string wide = "\xFF\xFE";
    for (const wchar_t c : WideFromUtf8(json)) {
        wide += static_cast<char>(c & 0xFF);
        wide += static_cast<char>(c >> 8);
    }
    EXPECT_EQ(ReadDocument(wide, Strictness::Strict).document, expected);
}

TEST(JsonDocuments, MayHaveADescriptionAndEveryEscape) {
    const DocumentFile file = ReadDocument(
        R"({"description": "\"\\\/\b\f\n\r\t\u0041\ud83d\ude00", "schema":1,"product":"vmkctrl.PdfPrinterPreferences",)"
        R"("settings":{"Info.Title":"\"\\\/\b\f\n\r\t\u0041\ud83d\ude00\uDFFF"}})",
        Strictness::Strict);
    EXPECT_TRUE(file.faults.empty());
    EXPECT_EQ(file.document.at(FindSetting("Info.Title")), Value(L"\"\\/\b\f\n\r\tA\xD83D\xDE00\xDFFF"));
}

struct BadFile {
    const char* what;
    std::string text;
    int line;
    const char* reason;
};

// Strict reading finds exactly this fault; the setting before it does not hide it.
void ExpectFault(const BadFile& bad, const std::string& bytes) {
    const DocumentFile file = ReadDocument(bytes, Strictness::Strict);
    ASSERT_EQ(file.faults.size(), 1U) << bad.what;
    EXPECT_EQ(file.faults.front().line, bad.line) << bad.what;
    EXPECT_THAT(file.faults.front().reason, HasSubstr(bad.reason)) << bad.what;
}

TEST(JsonDocuments, AreRefusedWithTheLineOfEachFault) {
    const std::string good = "\"Paper.Nup\": 2,\n";
    const BadFile files[] = {
        {"unknown", Json(good + "\"Paper.Nap\": 2"), 6, "there is no setting 'Paper.Nap'"},
        {"doubled", Json(good + "\"Info.Use\": 1,\n\"PAPER.nup\": 2"), 7,
         "Paper.Nup stands here for the second time"},
        {"text for a number", Json(good + "\"Info.Use\": \"1\""), 6, "Info.Use has to be a number"},
        {"number for a text", Json(good + "\"Info.Title\": 1"), 6, "Info.Title has to be a text"},
        {"true", Json(good + "\"Info.Use\": true"), 6, "Info.Use has to be a number or a text"},
        {"null", Json(good + "\"Info.Use\": null"), 6, "Info.Use has to be a number or a text"},
        {"a list", Json(good + "\"Info.Use\": [1,\n{\"a\": []}]"), 6,
         "Info.Use has to be a number or a text"},
        {"no choice", Json(good + "\"Paper.NupOrder\": 7"), 6,
         "Paper.NupOrder: 7 is not one of 0 (Across From Left)"},
        {"out of range", Json(good + "\"Downsample.Mono.DPI\": 49"), 6,
         "49 is not a number from 50 to 2400 (dots per inch)"},
        {"swap", Json(good + "\"Optimization.SwapToDisk\": 9"), 6,
         "9 is not a number from 1 to 8 (megabytes) or 0 (Never)"},
        {"program", Json(good + "\"Save.App.Run\": 2"), 6, "2 is not one of 0 (None), 1 (Default"},
        {"fraction", Json(good + "\"Info.Use\": 1.0"), 6, "1.0 is no whole number"},
        {"too large", Json(good + "\"Save.Type\": 2147483648"), 6, "2147483648 is no whole number"},
        {"zero character", Json(good + "\"Info.Title\": \"a\\u0000b\""), 6,
         "a text cannot hold a zero character"},
        {"no comma", Json("\"Paper.Nup\": 2\n\"Info.Use\": 1"), 6,
         "'\"' where a comma or the closing brace has to be"},
        {"no quote", Json(good + "\"Info.Title\": \"abc"), 6,
         "a line break or another control character in a text"},
        {"end", "{\n\"schema\": 1,\n", 3, "the end of the file where a name in quotes has to be"},
        {"half an escape", Json(good + "\"Info.Title\": \"\\u12G4\""), 6,
         "\\u without four hexadecimal digits"},
        {"unknown escape", Json(good + "\"Info.Title\": \"C:\\x\""), 6, "an unknown escape"},
        {"behind", Json(good + "\"Info.Use\": 1") + "x", 9, "something behind the closing brace"},
        {"no object", "[]", 1, "'[' where an object in braces has to be"},
        {"nothing", "", 1, "the end of the file where an object in braces has to be"},
        {"a word", Json(good + "\"Info.Use\": yes"), 6, "'y' where a number or a text has to be"},
        {"depth", Json(good + "\"Info.Use\": " + std::string(100'000, '[')), 6, "too many objects or lists"},
        {"no UTF-8", Json(good + "\"Info.Title\": \"\xDF\""), 6, "the file is not in UTF-8 from here on"},
        {"lone surrogate in UTF-8", Json(good + "\"Info.Title\": \"\xED\xA0\x80\""), 6, "not in UTF-8"},
        {"schema", "{\n\"schema\": 2,\n\"product\": \"vmkctrl.PdfPrinterPreferences\", \"settings\": {}}", 2,
         "\"schema\": 1 only"},
        {"product", "{\"schema\": 1,\n\n\"product\": \"x\", \"settings\": {}}", 3,
         "the product is not vmkctrl"},
        {"no schema", "{\"product\": \"vmkctrl.PdfPrinterPreferences\", \"settings\": {}}", 1,
         "there is no \"schema\""},
        {"no settings", "{\"schema\": 1, \"product\": \"vmkctrl.PdfPrinterPreferences\"}", 1,
         "there is no \"settings\""},
        {"extra", Json(good + "\"Info.Use\": 1").replace(1, 1, "\n\"author\": \"x\",\n"), 2,
         "there is no place for \"author\""},
    };
    for (const BadFile& bad : files) ExpectFault(bad, bad.text);
}

std::string Reg(const std::string& lines) {
    const std::string text = "Windows Registry Editor Version 5.00\r\n\r\n[" + NameOfSettingsKey(L"Office") +
                             "]\r\n\"Paper.Nup\"=dword:00000002\r\n" + lines;
    std::string bytes = "\xFF\xFE";
    for (const wchar_t c : WideFromUtf8(text)) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    return bytes;
}

TEST(RegDocuments, AreRefusedWithTheLineOfEachFault) {
    const BadFile files[] = {
        {"unknown", Reg("\"Paper.Nap\"=dword:1"), 5, "there is no setting 'Paper.Nap'"},
        {"doubled", Reg("; note\r\n\"paper.nup\"=dword:1"), 6, "Paper.Nup stands here for the second time"},
        {"kind", Reg("\"Info.Use\"=\"1\""), 5, "Info.Use has to be a number"},
        {"choice", Reg("\"Info.Use\"=dword:00000002"), 5, "2 is not one of 0 (Off), 1 (On)"},
        {"digits", Reg("\"Info.Use\"=dword:123456789"), 5, "neither dword:"},
        {"no digits", Reg("\"Info.Use\"=dword:"), 5, "neither dword:"},
        {"binary", Reg("\"Info.Use\"=hex:01,00"), 5, "neither dword:, nor a text in quotes, nor hex(1):"},
        {"odd bytes", Reg("\"Info.Title\"=hex(1):61,00,62"), 5, "neither dword:"},
        {"behind", Reg("\"Info.Title\"=\"a\" b"), 5, "neither dword:"},
        {"escape", Reg("\"Info.Title\"=\"C:\\new\""), 5, "neither dword:"},
        {"no end", Reg("\"Info.Title\"=\"a"), 5, "neither dword:"},
        {"deletion", Reg("\"Info.Title\"=-"), 5, "neither dword:"},
        {"default value", Reg("@=\"a\""), 5, "neither a key nor a value"},
        {"zero", Reg("\"Info.Title\"=hex(1):61,00,00,00,62,00,00,00"), 5, "zero character"},
        {"second key", Reg("[" + NameOfSettingsKey(L"B") + "]"), 5, "a second key"},
        {"the line behind a long one", Reg("\"Info.Title\"=hex(1):61,00,\\\r\n  00,00\r\nnonsense"), 7,
         "neither a key"},
    };
    for (const BadFile& bad : files) ExpectFault(bad, bad.text);
}

TEST(RegDocuments, AreRefusedWhenTheyAreNotOfTheseSettings) {
    ExpectFault({"old", "", 1, "this is not \"Windows Registry Editor Version 5.00\""},
                "REGEDIT4\r\n\r\n[" + NameOfSettingsKey(L"") + "]\r\n");
    const std::string head = "Windows Registry Editor Version 5.00\r\n\r\n";
    ExpectFault({"other", "", 3, "HKEY_CURRENT_USER\\Software is no key of settings"},
                head + "[HKEY_CURRENT_USER\\Software]");
    ExpectFault({"deleted", "", 3, "is no key of settings"}, head + "[-" + NameOfSettingsKey(L"") + "]");
    ExpectFault({"none", "", 2, "the file names no key"}, head);
}

TEST(Documents, TellEveryFaultOfAFile) {
    const DocumentFile file =
        ReadDocument(Json("\"A\": 1,\n\"Info.Use\": 9,\n\"Paper.Nup\": 2,\n\"B\": 1"), Strictness::Strict);
    std::vector<int> lines;
    for (const Fault& fault : file.faults) lines.push_back(fault.line);
    EXPECT_THAT(lines, ElementsAre(5, 6, 8));
}

TEST(Documents, TakeNumbersThatASettingMayNotHaveWhenForced) {
    const std::string json = Json("\"Paper.Nup\": 7");
    EXPECT_FALSE(ReadDocument(json, Strictness::Strict).faults.empty());
    EXPECT_EQ(ReadDocument(json, Strictness::Forced).document.at(FindSetting("Paper.Nup")), Value(7));
}

TEST(Values, AreReadAsNumbersAndByTheTextsOfChoices) {
    const auto read = [](const char* name, const wchar_t* text) {
        return ReadValue(*FindSetting(name), text);
    };
    EXPECT_EQ(read("Paper.Nup", L"4"), Value(4));
    EXPECT_EQ(read("Paper.Nup", L"4 PAGES"), Value(4));
    EXPECT_EQ(read("Links.Border.Color", L"0x00ff00"), Value(0xFF00));
    EXPECT_EQ(read("Security.Digisig.Page", L"-1"), Value(-1));
    EXPECT_EQ(read("Security.Digisig.Page", L"last page"), Value(-1));
    EXPECT_EQ(read("Email.Type", L"none"), Value(0));
    EXPECT_EQ(read("Paper.NupOrder", L"Right To Left"), Value(1));
    EXPECT_EQ(read("Paper.NupOrder", L"Across From Right"), Value(2));
    EXPECT_EQ(read("Optimization.SwapToDisk", L"never"), Value(0));
    EXPECT_EQ(read("Save.App.Run", L"1"), Value(1));
    EXPECT_EQ(read("Save.App.Run", L"C:\\a.exe"), Value(L"C:\\a.exe"));
    EXPECT_EQ(read("Info.Title", L"4"), Value(L"4"));
    for (const wchar_t* text : {L"", L"four", L"4 ", L"4x", L"0x", L"0x-1", L"99999999999", L"+4", L"1.5"}) {
        EXPECT_EQ(read("Paper.Nup", text), std::nullopt);
    }
}

TEST(Values, OfEverySettingMayBeTheDefault) {
    for (const SettingInfo& setting : Settings()) {
        EXPECT_EQ(Complaint(setting, setting.standard), std::nullopt) << setting.name;
    }
}

TEST(Values, OfEveryNumberAreReadFromTheTextThatStandsForThem) {
    for (const SettingInfo& setting : Settings()) {
        if (!setting.TakesNumbers()) continue;
        for (const Choice& choice : setting.numbers->choices) {
            EXPECT_EQ(ReadValue(setting, std::wstring(EnglishText(choice))), Value(choice.value))
                << setting.name;
            EXPECT_EQ(Complaint(setting, choice.value), std::nullopt) << setting.name;
        }
    }
}

}  // namespace
}  // namespace vmk
