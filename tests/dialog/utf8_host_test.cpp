#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/language_folder.h"
#include "tests/support/live_dialog.h"

// A host that has asked for UTF-8 as its ANSI code page, by a manifest of its own. What the component then
// does is no fault of the host's reader: README tells it.

namespace vmk::test {
namespace {

class Utf8Host : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(GetACP(), static_cast<UINT>(CP_UTF8)); }

    // What the component makes of a text that it loads and stores.
    static std::wstring Passed(const std::wstring& text) {
        const ComApartment apartment;
        const LoadedModule module;
        const auto object = module.CreatePreferences();
        const ScratchSettings from;
        const ScratchSettings to;
        from.SetText("Info.Title", text);
        object->InitFromRegistry(DocumentInfo, AutomationString(from.SubKey()).get());
        object->StoreInRegistry(DocumentInfo, AutomationString(to.SubKey()).get());
        return to.Text("Info.Title").value_or(L"(none)");
    }
};

TEST_F(Utf8Host, TheLanguageFolderMayHaveANameOfAnyCharacters) {
    const LanguageFiles files(L"\u8BED\u8A00 \u00E4\u0416");
    files.WriteTranslations(L"\u4E2D.vlf", kGerman, {{L"OK", L"\u597D"}});
    const ConfiguredLanguageFolder configured(files.NarrowPath());
    const LiveDialog dialog({.pages = 0, .language = kGerman});
    EXPECT_EQ(dialog.Main().Text(IDOK), L"\u597D");
}

TEST_F(Utf8Host, PlainTextsAreStoredWhole) {
    EXPECT_EQ(Passed(L"Annual report 2024"), L"Annual report 2024");
}

// A stored text has as many bytes as the text has characters, and these characters have more than one.
TEST_F(Utf8Host, OtherTextsLoseTheirEnds) {
    EXPECT_EQ(Passed(L"M\u00FCller & S\u00F6hne"), L"M\u00FCller & S\u00F6hn");
    EXPECT_EQ(Passed(L"\u5E74\u5EA6\u62A5\u544A."), L"\u5E74\u5EA6");
}

}  // namespace
}  // namespace vmk::test
