#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/support/language_folder.h"
#include "tests/support/live_dialog.h"

// A host that has asked for UTF-8 as its ANSI code page, by a manifest of its own. What the component then
// does is no fault of the host's reader: README tells it.

namespace vmk::test {
namespace {

std::string Utf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(static_cast<std::size_t>(
                          WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()),
                        nullptr, nullptr);
    return bytes;
}

// An empty folder with this name in the system's temporary one.
class NamedFolder {
  public:
    explicit NamedFolder(const std::wstring& name) {
        wchar_t temporary[MAX_PATH];
        GetTempPathW(MAX_PATH, temporary);
        m_path = temporary + name;
        CreateDirectoryW(m_path.c_str(), nullptr);
    }
    ~NamedFolder() { RemoveDirectoryW(m_path.c_str()); }
    NamedFolder(const NamedFolder&) = delete;
    NamedFolder& operator=(const NamedFolder&) = delete;

    const std::wstring& Path() const { return m_path; }

  private:
    std::wstring m_path;
};

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
    const LanguageFolder files(Translations{{L"OK", L"\u597D"}});
    const NamedFolder folder(L"\u8BED\u8A00 \u00E4\u0416");
    const std::wstring file = folder.Path() + L"\\\u4E2D.vlf";
    ASSERT_TRUE(CopyFileW((files.Path() + L"\\language.vlf").c_str(), file.c_str(), FALSE));
    {
        const ConfiguredLanguageFolder configured(Utf8(folder.Path()));
        const LiveDialog dialog({.pages = 0, .language = 0x0407});
        EXPECT_EQ(dialog.Main().Text(IDOK), L"\u597D");
    }
    DeleteFileW(file.c_str());
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
