#include <windows.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <iterator>
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

TEST(German, IsFoundAndTranslatesTheDialog) {
    LanguageSession session(Folder(), L"vmkctrl.PdfPrinterPreferences");
    ASSERT_TRUE(session.SelectLanguage(0x407));
    EXPECT_EQ(session.Languages().at(static_cast<std::size_t>(session.Current())).langname, "Deutsch");
    EXPECT_EQ(session.TranslateString(L"Cancel"), L"Abbrechen");
    EXPECT_EQ(session.TranslateString(L"Apply"), L"\u00DCbernehmen");
    EXPECT_EQ(session.TranslateString(L"Vellumark 3.0 Printing Preferences"),
              L"Vellumark 3.0 \u2013 Druckeinstellungen");
    EXPECT_EQ(session.TranslateString(L"e-Mail"), L"E-Mail");
    EXPECT_EQ(session.TranslateString(L"Enable Printing Watermark"), L"Wasserzeichen drucken");
}

TEST(German, HasNoEntryThatIsDroppedRepeatedOrEmpty) {
    std::ifstream stream(Folder() + "\\german.vlf", std::ios::binary);
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

}  // namespace
}  // namespace vmk::test
