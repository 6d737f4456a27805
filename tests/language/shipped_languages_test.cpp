#include <windows.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <span>
#include <string>

#include "language/language_file.h"
#include "language/language_session.h"
#include "language/language_table.h"

namespace vmk::test {
namespace {

/// The build's folder of language files, found from the folder of the test.
std::string Folder() {
    std::string path(MAX_PATH, '\0');
    path.resize(GetModuleFileNameA(nullptr, path.data(), MAX_PATH));
    return path.substr(0, path.rfind('\\')) + "\\..\\languages";
}

TEST(ShippedLanguages, AreFoundEachByItsIdentifier) {
    const std::map<std::uint32_t, std::wstring> apply = {
        {0x407, L"\u00DCbernehmen"}, {0x409, L"Apply"},
        {0x40A + 0x800, L"Aplicar"}, {0x40C, L"Appliquer"},
        {0x410, L"Applica"},         {0x411, L"\u9069\u7528"},
        {0x415, L"Zastosuj"},        {0x419, L"\u041F\u0440\u0438\u043C\u0435\u043D\u0438\u0442\u044C"},
        {0x804, L"\u5E94\u7528"},
    };
    LanguageSession session(Folder(), L"vmkctrl.PdfPrinterPreferences");
    EXPECT_EQ(session.Languages().size(), apply.size());
    for (const auto& [langid, text] : apply) {
        ASSERT_TRUE(session.SelectLanguage(langid)) << std::hex << langid;
        std::wstring translation(session.TranslateString(L"Apply"));
        EXPECT_EQ(std::erase(translation, L'&'), 1U) << std::hex << langid;
        EXPECT_EQ(translation.substr(0, text.size()), text) << std::hex << langid;
    }
}

TEST(ShippedLanguages, GermanTranslatesTheDialog) {
    LanguageSession session(Folder(), L"vmkctrl.PdfPrinterPreferences");
    ASSERT_TRUE(session.SelectLanguage(0x407));
    EXPECT_EQ(session.Languages().at(static_cast<std::size_t>(session.Current())).langname, "Deutsch");
    EXPECT_EQ(session.TranslateString(L"Cancel"), L"Abbrechen");
    EXPECT_EQ(session.TranslateString(L"Vellumark 3.0 Printing Preferences"),
              L"Vellumark 3.0 \u2013 Druckeinstellungen");
    EXPECT_EQ(session.TranslateString(L"e-Mail"), L"E-Mail");
    EXPECT_EQ(session.TranslateString(L"Watermarks"), L"Wasserzeichen");
}

TEST(ShippedLanguages, HaveNoEntryThatIsDroppedRepeatedOrEmpty) {
    for (const auto& item : std::filesystem::directory_iterator(Folder())) {
        SCOPED_TRACE(item.path().string());
        std::ifstream stream(item.path(), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(stream), {});
        std::size_t lines = 0;
        for (auto at = bytes.find(std::string("\n\0\"\0", 4)); at != std::string::npos;
             at = bytes.find(std::string("\n\0\"\0", 4), at + 1))
            ++lines;
        ASSERT_GT(lines, 20U);

        auto file = ReadLanguageFile(std::as_bytes(std::span(bytes)));
        ASSERT_TRUE(file);
        EXPECT_EQ(file->entries.size(), lines) << "an entry is malformed";
        for (const LanguageEntry& entry : file->entries)
            EXPECT_FALSE(entry.translation.empty()) << testing::PrintToString(std::wstring(entry.source));
        EXPECT_EQ(LanguageTable(std::move(*file)).size(), lines) << "a text is translated twice";
    }
}

}  // namespace
}  // namespace vmk::test
