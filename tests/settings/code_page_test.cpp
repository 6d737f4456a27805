#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "settings/registry_store.h"
#include "tests/settings/scratch_registry.h"

namespace vmk {
namespace {

class CodePage : public ScratchKeyTest {
  protected:
    std::optional<StoredValue> Store(const std::wstring& text) const {
        PrinterSettings settings;
        settings.Info.Title = text;
        StoreGroups(Key(), page_bit::kDocumentInfo, settings);
        return GetValue(Key(), "Info.Title");
    }
    std::wstring Load() const {
        PrinterSettings settings;
        LoadGroups(Key(), page_bit::kDocumentInfo, settings);
        return settings.Info.Title;
    }
    std::wstring Pass(const std::wstring& text) const {
        Store(text);
        return Load();
    }
};

// Each run of the tests has one code page and takes the suites that go with it (see CMakeLists.txt).
using WesternCodePage = CodePage;
using DoubleByteCodePage = CodePage;

TEST(CodePageOfTheRun, IsThatOfTheLocaleAskedFor) {
    const char* locale = std::getenv("VMK_LOCALE");
    const bool japanese = locale && std::string_view(locale).starts_with("ja_JP");
    EXPECT_EQ(GetACP(), japanese ? 932U : 1252U);
}

TEST_F(CodePage, TextOutsideTheCodePageIsStoredWithReplacementsAtItsLength) {
    // Hangul is in neither code page.
    EXPECT_EQ(Store(L"a\xD55C\xAE00z"), TextValue("a??z"));
    EXPECT_EQ(Load(), L"a??z");
}

TEST_F(CodePage, SurrogatePairsNeverReadPastTheNarrowText) {
    const std::wstring faces = L"\xD83D\xDE00\xD83D\xDE00\xD83D\xDE00";
    const auto stored = Store(L"<" + faces + L">");
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->type, static_cast<DWORD>(REG_SZ));
    EXPECT_LE(stored->bytes.size(), faces.size() + 3);
    const std::string text = stored->bytes.substr(0, stored->bytes.find('\0'));
    EXPECT_EQ(text.find_first_not_of("<?>"), std::string::npos) << text;
    EXPECT_EQ(stored->bytes.find_first_not_of('\0', text.size()), std::string::npos);
    EXPECT_EQ(text.front(), '<');
    EXPECT_EQ(text.back(), '>');
}

TEST_F(CodePage, LoneSurrogatesAreStoredAsReplacements) {
    EXPECT_EQ(Pass(L"a\xD83Dz"), L"a?z");
    EXPECT_EQ(Pass(L"a\xDE00z"), L"a?z");
}

TEST_F(WesternCodePage, WesternLettersAreOneByteEach) {
    EXPECT_EQ(Store(L"M\u00FCller \u20AC"), TextValue("M\xFCller \x80"));
    EXPECT_EQ(Load(), L"M\u00FCller \u20AC");
}

TEST_F(WesternCodePage, EveryByteOfTheWesternCodePageIsLoadedAsItsCharacter) {
    for (int byte = 1; byte < 256; ++byte) {
        SetText(Key(), "Info.Title", std::string(1, static_cast<char>(byte)));
        wchar_t expected = 0;
        const char narrow = static_cast<char>(byte);
        ASSERT_EQ(MultiByteToWideChar(1252, 0, &narrow, 1, &expected, 1), 1);
        EXPECT_EQ(Load(), std::wstring(1, expected)) << byte;
    }
}

TEST_F(DoubleByteCodePage, DoubleByteTextIsCutToItsNumberOfCharactersPlusOneByte) {
    // Three characters of two bytes each: four bytes are kept, which are two characters.
    const auto stored = Store(L"\u3042\u3044\u3046");
    ASSERT_TRUE(stored);
    EXPECT_EQ(*stored, (StoredValue{REG_SZ, "\x82\xA0\x82\xA2"}));
    EXPECT_EQ(Load(), L"\u3042\u3044");
}

TEST_F(DoubleByteCodePage, DoubleByteTextCutInsideACharacterLosesIt) {
    // Five bytes of eight: two characters and half of one.
    const std::wstring loaded = Pass(L"\u3042\u3044\u3046\u3048");
    EXPECT_EQ(loaded.substr(0, 2), L"\u3042\u3044");
    EXPECT_LT(loaded.size(), 4U);
    EXPECT_EQ(loaded.find(L'\u3046'), std::wstring::npos);
}

TEST_F(DoubleByteCodePage, MixedTextIsCutByItsDoubleByteCharactersOnly) {
    // Six characters, eight bytes: seven are kept.
    EXPECT_EQ(Pass(L"C:\\\u3042\u3044z"), L"C:\\\u3042\u3044");
}

TEST_F(DoubleByteCodePage, LongDoubleByteTextIsCutToo) {
    for (const std::size_t length : {511U, 1023U, 1025U, 100'001U})
        EXPECT_EQ(Pass(std::wstring(length, L'\u3042')), std::wstring((length + 1) / 2, L'\u3042')) << length;
}

TEST_F(DoubleByteCodePage, DoubleByteTextOfAnotherProgramIsLoadedWhole) {
    SetText(Key(), "Info.Title", "\x82\xA0\x82\xA2\x83\x5C");
    EXPECT_EQ(Load(), L"\u3042\u3044\u30BD");
}

TEST_F(DoubleByteCodePage, HalfOfADoubleByteCharacterAtTheEndStaysInsideTheValue) {
    SetValue(Key(), "Info.Title", REG_BINARY, "\x82\xA0\x82");
    const std::wstring loaded = Load();
    EXPECT_EQ(loaded.substr(0, 1), L"\u3042");
    EXPECT_LE(loaded.size(), 2U);
}

}  // namespace
}  // namespace vmk
