#include "language/language_session.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/language_files.h"
#include "tests/support/utf16_bytes.h"

namespace vmk::test {
namespace {

constexpr wchar_t kProduct[] = L"some.Product";

/// A language file's text for kProduct with "OK" as its only entry.
std::wstring FileText(const std::wstring& langid, const std::wstring& okTranslation) {
    return L"$langid = " + langid + L"\r\n$productID = " + kProduct + L"\r\n\"OK\" = \"" + okTranslation +
           L"\"\r\n";
}

std::vector<std::uint32_t> Langids(const LanguageSession& session) {
    std::vector<std::uint32_t> langids;
    for (const LanguageRecord& record : session.Languages()) langids.push_back(record.header.langid);
    std::sort(langids.begin(), langids.end());
    return langids;
}

class LanguageSessions : public testing::Test {
  protected:
    LanguageSession Open() const { return {m_folder.NarrowPath(), kProduct}; }
    LanguageFiles m_folder;
};

// For the run with a double-byte code page (see CMakeLists.txt).
using DoubleByteLanguageSessions = LanguageSessions;

TEST_F(LanguageSessions, FolderGetsABackslash) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    const LanguageSession session(m_folder.NarrowPath(), kProduct);
    EXPECT_EQ(session.Folder(), m_folder.NarrowPath() + "\\");
    ASSERT_EQ(session.Languages().size(), 1U);
    EXPECT_EQ(session.Languages()[0].file, m_folder.NarrowFile("a.vlf"));
}

TEST_F(LanguageSessions, FolderWithABackslashIsTakenAsItIs) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    const LanguageSession session(m_folder.NarrowPath() + "\\", kProduct);
    EXPECT_EQ(session.Folder(), m_folder.NarrowPath() + "\\");
    EXPECT_EQ(session.Languages().size(), 1U);
}

TEST_F(LanguageSessions, EmptyFolderStandsForThePathOfTheHost) {
    char host[MAX_PATH];
    ASSERT_GT(GetModuleFileNameA(nullptr, host, MAX_PATH), 0U);
    const LanguageSession session("", kProduct);
    EXPECT_EQ(session.Folder(), std::string(host) + "\\");
    EXPECT_TRUE(session.Languages().empty());
}

TEST_F(LanguageSessions, FolderThatIsMissingOrAFileHasNoLanguages) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    for (const std::string& folder : {m_folder.NarrowFile("missing"), m_folder.NarrowFile("a.vlf"),
                                      std::string("?:\\<>|"), std::string(5000, 'x')}) {
        LanguageSession session(folder, kProduct);
        EXPECT_TRUE(session.Languages().empty());
        EXPECT_FALSE(session.SelectLanguage(0x407));
        EXPECT_EQ(session.TranslateString(L"OK"), L"OK");
    }
}

TEST_F(DoubleByteLanguageSessions, FolderOfTwoByteCharactersGetsABackslashOnlyWhenItHasNone) {
    const std::string folder =
        m_folder.NarrowFile("\x95\x5C");  // one character whose second byte is a backslash's
    EXPECT_EQ(LanguageSession(folder, kProduct).Folder(), folder + "\\");
    EXPECT_EQ(LanguageSession(folder + "\\", kProduct).Folder(), folder + "\\");
}

TEST_F(LanguageSessions, OnlyFilesWithTheExtensionAreLookedAt) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    m_folder.WriteText(L"B.VLF", FileText(L"040C", L"Oui"));
    m_folder.WriteText(L"c.txt", FileText(L"0410", L"Si"));
    m_folder.WriteText(L"d.vlf.bak", FileText(L"0416", L"Sim"));
    EXPECT_EQ(Langids(Open()), (std::vector<std::uint32_t>{0x407, 0x40C}));
}

TEST_F(LanguageSessions, HeaderIsKeptInTheRecord) {
    m_folder.WriteText(L"a.vlf",
                       L"$langid=0x10407\n$langname=D\u00E4nisch\n$flag=dk\n$tipsfile=t\n$productID=" +
                           std::wstring(kProduct));
    const LanguageSession session = Open();
    ASSERT_EQ(session.Languages().size(), 1U);
    const LanguageRecord& record = session.Languages()[0];
    EXPECT_EQ(record.header.langid, 0x10407U);
    EXPECT_EQ(record.header.langname, L"D\u00E4nisch");
    EXPECT_EQ(record.header.flag, L"dk");
    EXPECT_EQ(record.header.tipsfile, L"t");
    EXPECT_EQ(record.header.productID, kProduct);
    if (GetACP() == 1252) {
        EXPECT_EQ(record.langname, "D\xE4nisch");
    }
    if (GetACP() == CP_UTF8) {
        EXPECT_EQ(record.langname, "D\xC3\xA4nisch");
    }
    EXPECT_TRUE(record.table.empty());
}

TEST_F(LanguageSessions, FilesOfOtherProductsOrNoneAreIgnored) {
    m_folder.WriteText(L"a.vlf", L"$langid = 0407\n$productID = other.Product");
    m_folder.WriteText(L"b.vlf", L"$langid = 0408");
    m_folder.WriteText(L"c.vlf", L"$langid = 0409\n$productID = some.Product2");
    m_folder.WriteText(L"d.vlf", L"$langid = 040A\n$productID = some.Produc");
    m_folder.WriteText(L"e.vlf", L"$langid = 040B\n$productID =");
    m_folder.WriteText(L"f.vlf", L"$langid = 040C\n$productID = \"SOME.pRODUCT\"");
    EXPECT_EQ(Langids(Open()), std::vector<std::uint32_t>{0x40C});
}

TEST_F(LanguageSessions, FilesWithoutProductAreIgnoredEvenIfTheSessionHasNone) {
    m_folder.WriteText(L"a.vlf", L"$langid = 0407");
    EXPECT_TRUE(LanguageSession(m_folder.NarrowPath(), L"").Languages().empty());
}

TEST_F(LanguageSessions, ProductIsComparedWithoutCaseBeyondAscii) {
    m_folder.WriteText(L"a.vlf", L"$langid = 0407\n$productID = \u00C4\u0416");
    EXPECT_EQ(LanguageSession(m_folder.NarrowPath(), L"\u00E4\u0436").Languages().size(), 1U);
    EXPECT_TRUE(LanguageSession(m_folder.NarrowPath(), L"a\u0436").Languages().empty());
}

TEST_F(LanguageSessions, ProductIsKeptUpTo63Characters) {
    const std::wstring longest(63, L'x');
    m_folder.WriteText(L"a.vlf", L"$langid = 0407\n$productID = " + longest);
    m_folder.WriteText(L"b.vlf", L"$langid = 0409\n$productID = " + longest + L"yz");
    EXPECT_EQ(Langids(LanguageSession(m_folder.NarrowPath(), longest)), std::vector<std::uint32_t>{0x407});
    EXPECT_EQ(Langids(LanguageSession(m_folder.NarrowPath(), longest + L"yz")),
              std::vector<std::uint32_t>{0x407});
}

TEST_F(LanguageSessions, FilesWithoutLanguageIdentifierAreIgnored) {
    m_folder.WriteText(L"a.vlf", L"$productID = " + std::wstring(kProduct));
    m_folder.WriteText(L"b.vlf", FileText(L"FFFFFFFF", L"Ja"));
    EXPECT_TRUE(Open().Languages().empty());
}

TEST_F(LanguageSessions, FilesThatCannotBeReadAreIgnored) {
    m_folder.Write(L"a.vlf", {});
    m_folder.Write(L"b.vlf", Utf16Bytes(FileText(L"0407", L"Ja")));  // no byte-order mark
    m_folder.WriteText(L"c.vlf", FileText(L"0408", L"Ja"));
    m_folder.WriteText(L"d.vlf", FileText(L"0409", L"Ja"));
    ASSERT_TRUE(CreateDirectoryA(m_folder.NarrowFile("e.vlf").c_str(), nullptr));
    HANDLE locked = CreateFileA(m_folder.NarrowFile("c.vlf").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                0, nullptr);
    ASSERT_NE(locked, INVALID_HANDLE_VALUE);
    EXPECT_EQ(Langids(Open()), std::vector<std::uint32_t>{0x409});
    CloseHandle(locked);
    EXPECT_EQ(Langids(Open()), (std::vector<std::uint32_t>{0x408, 0x409}));
    EXPECT_TRUE(RemoveDirectoryA(m_folder.NarrowFile("e.vlf").c_str()));
}

TEST_F(LanguageSessions, FilesThatSomebodyHasOpenAreRead) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    for (const DWORD access : {DWORD{GENERIC_READ}, DWORD{GENERIC_WRITE}, DWORD{DELETE}}) {
        constexpr DWORD kWithEverybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        HANDLE open = CreateFileA(m_folder.NarrowFile("a.vlf").c_str(), access, kWithEverybody, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(open, INVALID_HANDLE_VALUE);
        EXPECT_EQ(Langids(Open()), std::vector<std::uint32_t>{0x407}) << access;
        CloseHandle(open);
    }
}

TEST_F(LanguageSessions, FirstOfTwoFilesForOneLanguageIsUsed) {
    // Which one is first is the system's choice.
    for (const wchar_t* name : {L"b.vlf", L"a.vlf", L"c.vlf"})
        m_folder.WriteText(name, FileText(L"0407", name));
    const std::wstring first = m_folder.Files().at(0);
    LanguageSession session = Open();
    ASSERT_EQ(session.Languages().size(), 1U);
    EXPECT_EQ(session.Languages()[0].file, m_folder.NarrowFile({first.begin(), first.end()}));
    ASSERT_TRUE(session.SelectLanguage(0x407));
    EXPECT_EQ(session.TranslateString(L"OK"), first);
}

TEST_F(LanguageSessions, FirstFileOfTheRightProductIsUsedForALanguage) {
    m_folder.WriteText(L"a.vlf", L"$langid = 0407\n$productID = other.Product\n\"OK\" = \"Falsch\"");
    m_folder.WriteText(L"b.vlf", FileText(L"0407", L"Ja"));
    LanguageSession session = Open();
    ASSERT_TRUE(session.SelectLanguage(0x407));
    EXPECT_EQ(session.TranslateString(L"OK"), L"Ja");
}

TEST_F(LanguageSessions, NothingIsTranslatedBeforeALanguageIsSelected) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    const LanguageSession session = Open();
    EXPECT_EQ(session.Current(), -1);
    EXPECT_EQ(session.TranslateString(L"OK"), L"OK");
}

TEST_F(LanguageSessions, TextsOfTheSelectedLanguageAreFoundExactly) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    LanguageSession session = Open();
    ASSERT_TRUE(session.SelectLanguage(0x407));
    EXPECT_EQ(session.Current(), 0);
    EXPECT_EQ(session.TranslateString(L"OK"), L"Ja");
    for (const wchar_t* other : {L"ok", L"OK ", L"O", L"", L"Ja"})
        EXPECT_EQ(session.TranslateString(other), other);
}

TEST_F(LanguageSessions, LanguageIsSelectedByAllItsBits) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    LanguageSession session = Open();
    for (const std::uint32_t other : {0x807U, 0x07U, 0x7U, 0x10407U, 0x80000407U, 0x409U, 0U, kNoLangid})
        EXPECT_FALSE(session.SelectLanguage(other)) << other;
    EXPECT_EQ(session.Current(), -1);
    EXPECT_EQ(session.TranslateString(L"OK"), L"OK");
    EXPECT_TRUE(session.SelectLanguage(0x407));
}

TEST_F(LanguageSessions, UnknownLanguageLeavesTheSelectedOne) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    LanguageSession session = Open();
    ASSERT_TRUE(session.SelectLanguage(0x407));
    EXPECT_FALSE(session.SelectLanguage(0x807));
    EXPECT_EQ(session.Current(), 0);
    EXPECT_EQ(session.TranslateString(L"OK"), L"Ja");
}

TEST_F(LanguageSessions, AnotherLanguageReplacesTheSelectedOne) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    m_folder.WriteText(L"b.vlf", FileText(L"040C", L"Oui"));
    LanguageSession session = Open();
    ASSERT_TRUE(session.SelectLanguage(0x407));
    const auto german = static_cast<std::size_t>(session.Current());
    ASSERT_TRUE(session.SelectLanguage(0x40C));
    EXPECT_EQ(session.TranslateString(L"OK"), L"Oui");
    EXPECT_TRUE(session.Languages()[german].table.empty());
    ASSERT_TRUE(session.SelectLanguage(0x407));
    EXPECT_EQ(session.TranslateString(L"OK"), L"Ja");
}

TEST_F(LanguageSessions, SelectingTheSelectedLanguageReadsNothing) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    LanguageSession session = Open();
    ASSERT_TRUE(session.SelectLanguage(0x407));
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Jawohl"));
    EXPECT_TRUE(session.SelectLanguage(0x407));
    EXPECT_EQ(session.TranslateString(L"OK"), L"Ja");
}

TEST_F(LanguageSessions, FileThatVanishedIsSelectedWithoutTranslations) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    LanguageSession session = Open();
    ASSERT_TRUE(DeleteFileA(m_folder.NarrowFile("a.vlf").c_str()));
    EXPECT_TRUE(session.SelectLanguage(0x407));
    EXPECT_EQ(session.TranslateString(L"OK"), L"OK");
}

TEST_F(LanguageSessions, FilesAreClosedAfterReading) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja"));
    LanguageSession session = Open();
    ASSERT_TRUE(session.SelectLanguage(0x407));
    EXPECT_TRUE(DeleteFileA(m_folder.NarrowFile("a.vlf").c_str()));
    EXPECT_TRUE(RemoveDirectoryA(m_folder.NarrowPath().c_str()));
}

TEST_F(LanguageSessions, FirstOfSeveralTranslationsInAFileIsUsed) {
    m_folder.WriteText(L"a.vlf", FileText(L"0407", L"Ja") + L"\"OK\" = \"Nein\"\r\n");
    LanguageSession session = Open();
    ASSERT_TRUE(session.SelectLanguage(0x407));
    EXPECT_EQ(session.TranslateString(L"OK"), L"Ja");
}

}  // namespace
}  // namespace vmk::test
