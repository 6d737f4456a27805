#include <gtest/gtest.h>

#include <optional>

#include "resources/ids/document_info.h"
#include "resources/ids/main.h"
#include "resources/ids/security.h"
#include "resources/ids/watermarks.h"
#include "tests/support/language_folder.h"
#include "tests/support/live_dialog.h"
#include "tests/support/sent_messages.h"

namespace vmk::test {
namespace {

constexpr LANGID kSwissGerman = 0x0807;
constexpr wchar_t kEnglishCaption[] = L"Vellumark 3.0 Printing Preferences";

const Translations kEntries = {{kEnglishCaption, L"Druckeinstellungen"},
                               {L"OK", L"Gut"},
                               {L"Cancel", L"Abbrechen"},
                               {L"Apply", L"Anwenden"},
                               {L"Watermarks", L"Wasserzeichen"},
                               {L"Enable Printing Watermark", L"Wasserzeichen drucken"},
                               {L"Fine title", L"Feiner Titel"}};

std::wstring CaptionIn(LANGID language) {
    return LiveDialog({.pages = page_bit::kWatermarks, .language = language}).Main().Text();
}

TEST(DialogLanguage, TranslatesCaptionButtonsPageNamesAndPageTexts) {
    const LanguageFolder folder(kEntries);
    const LiveDialog dialog({.language = kGerman});
    EXPECT_EQ(dialog.Main().Text(), L"Druckeinstellungen");
    EXPECT_EQ(dialog.Main().Text(IDOK), L"Gut");
    EXPECT_EQ(dialog.Main().Text(IDCANCEL), L"Abbrechen");
    EXPECT_EQ(dialog.Main().Text(IDC_MAIN_APPLY), L"Anwenden");
    EXPECT_EQ(dialog.PageNames()[6], L"Wasserzeichen");
    EXPECT_EQ(dialog.PageNames()[7], L"Overlay");
    EXPECT_EQ(dialog.Page(L"Wasserzeichen").Text(IDC_WATERMARKS_PRINT), L"Wasserzeichen drucken");
}

TEST(DialogLanguage, LooksUpTheHostsTitleLikeAnyText) {
    const LanguageFolder folder(kEntries);
    const LiveDialog known({.pages = 0, .language = kGerman, .title = L"Fine title"});
    EXPECT_EQ(known.Main().Text(), L"Feiner Titel");
    const LiveDialog unknown({.pages = 0, .language = kGerman, .title = L"Other title"});
    EXPECT_EQ(unknown.Main().Text(), L"Other title");
}

TEST(DialogLanguage, TextsOfAnyLengthAreShownWhole) {
    const std::wstring lengthy(3000, L'w');
    const LanguageFolder folder(
        {{kEnglishCaption, lengthy + L"1"}, {L"Enable Printing Watermark", lengthy + L"2"}});
    const LiveDialog dialog({.pages = page_bit::kWatermarks, .language = kGerman});
    EXPECT_EQ(dialog.Main().Text(), lengthy + L"1");
    EXPECT_EQ(dialog.VisiblePage().Text(IDC_WATERMARKS_PRINT), lengthy + L"2");
}

TEST(DialogLanguage, WithoutOneNoTextOfATemplateIsSetAgain) {
    for (const LANGID language : {kEnglish, kGerman}) {
        const LanguageFolder folder(kEntries);
        std::optional<SentMessages> texts;
        const LiveDialog dialog({.pages = page_bit::kWatermarks,
                                 .language = language,
                                 .prepare = [&](IPdfPrinterPreferences&) { texts.emplace(WM_SETTEXT); }});
        const bool isSet = !texts->To(IDC_WATERMARKS_PRINT).empty();
        EXPECT_EQ(isSet, language == kGerman);
    }
}

TEST(DialogLanguage, ZeroMeansTheUsersDefaultLanguage) {
    const LanguageFolder folder(kEntries, GetUserDefaultLangID());
    EXPECT_EQ(CaptionIn(0), L"Druckeinstellungen");
}

TEST(DialogLanguage, ASubLanguageWithoutAFileStaysEnglish) {
    const LanguageFolder folder(kEntries);
    EXPECT_EQ(CaptionIn(kSwissGerman), kEnglishCaption);
}

TEST(DialogLanguage, OnlyTheLowWordOfTheIdentifierCounts) {
    const LanguageFolder folder(kEntries);
    LONG answer = 0;
    LiveDialog dialog({.pages = 0, .language = kGerman});
    EXPECT_EQ(dialog.Ok(), 1);
    std::wstring caption;
    dialog.Call([&](IPdfPrinterPreferences& object) {
        // The dialog closes itself as soon as its caption has been read.
        const UINT_PTR timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR id, DWORD) {
            if (HWND open = GetActiveWindow()) {
                KillTimer(nullptr, id);
                PostMessageW(open, WM_COMMAND,
                             LiveWindow(open).Text() == L"Druckeinstellungen" ? IDOK : IDCANCEL, 0);
            }
        });
        object.OpenDialog(static_cast<LONG>(0x12340000 | kGerman), &answer);
        KillTimer(nullptr, timer);
    });
    EXPECT_EQ(answer, IDOK);
}

TEST(DialogLanguage, OfTwoFilesOfOneLanguageOnlyTheFirstFoundIsUsed) {
    const LanguageFolder folder;
    folder.WriteTranslations(L"a.vlf", kGerman, {{L"OK", L"eins"}});
    folder.WriteTranslations(L"b.vlf", kGerman, {{L"OK", L"zwei"}, {L"Cancel", L"zwei"}});
    WIN32_FIND_DATAW first;
    FindClose(FindFirstFileW(folder.File(L"*.vlf").c_str(), &first));
    const bool isA = std::wstring(first.cFileName) == L"a.vlf";
    const LiveDialog dialog({.pages = 0, .language = kGerman});
    EXPECT_EQ(dialog.Main().Text(IDOK), isA ? L"eins" : L"zwei");
    EXPECT_EQ(dialog.Main().Text(IDCANCEL), isA ? L"Cancel" : L"zwei");
}

// A page is translated before it shows what is stored: only its own texts change.
TEST(DialogLanguage, TheUsersOwnTextsAreShownAsStoredEvenIfTheyEqualASourceText) {
    const LanguageFolder folder(kEntries);
    const ScratchSettings settings;
    settings.SetText("Info.Title", L"Apply");
    settings.SetText("Security.UserPwd", L"Apply");
    const LiveDialog dialog(
        {.pages = page_bit::kDocumentInfo | page_bit::kSecurity, .language = kGerman, .settings = &settings});
    EXPECT_EQ(dialog.Page(L"Document Info").Text(IDC_DOCINFO_TITLE), L"Apply");
    EXPECT_EQ(dialog.Page(L"Security").Text(IDC_SECURITY_USER_PASSWORD), L"Apply");
}

TEST(DialogLanguage, WithoutAConfiguredFolderTheDialogStaysEnglish) {
    EXPECT_EQ(CaptionIn(kGerman), kEnglishCaption);
}

TEST(DialogLanguage, AFolderThatIsMissingOrAFileOrEmptyTextStaysEnglish) {
    const LanguageFolder folder(kEntries);
    for (const std::string& wrong :
         {folder.NarrowFile("missing"), folder.NarrowFile("language.vlf"), std::string()}) {
        const ConfiguredLanguageFolder configured(wrong);
        EXPECT_EQ(CaptionIn(kGerman), kEnglishCaption) << wrong;
    }
}

TEST(DialogLanguage, AFolderThatIsTooLongToHoldAFileStaysEnglish) {
    const LanguageFolder folder(kEntries);
    // A path that the file system would follow, were it short enough: "." components mean nothing.
    for (const size_t length : {258U, 259U, 260U, 5000U}) {
        std::string padded = folder.NarrowPath();
        while (padded.size() + 2 <= length) padded += "\\.";
        padded.resize(length, '\\');
        const ConfiguredLanguageFolder configured(padded);
        const LiveDialog dialog({.pages = 0, .language = kGerman});
        EXPECT_EQ(dialog.Main().Text(), kEnglishCaption) << length;
    }
}

// An environment variable of this process, which is the dialog's host.
class EnvironmentVariable {
  public:
    explicit EnvironmentVariable(const std::string& value) { SetEnvironmentVariableA(kName, value.c_str()); }
    ~EnvironmentVariable() { SetEnvironmentVariableA(kName, nullptr); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

  private:
    static constexpr char kName[] = "VmkTestFolder";
};

TEST(DialogLanguage, VariablesInAnExpandableFolderAreReplaced) {
    const LanguageFolder folder(kEntries);
    const EnvironmentVariable variable(folder.NarrowPath());
    const ConfiguredLanguageFolder configured("%VmkTestFolder%", REG_EXPAND_SZ);
    EXPECT_EQ(CaptionIn(kGerman), L"Druckeinstellungen");
}

TEST(DialogLanguage, VariablesInAPlainFolderStandForThemselves) {
    const LanguageFolder folder(kEntries);
    const EnvironmentVariable variable(folder.NarrowPath());
    const ConfiguredLanguageFolder configured("%VmkTestFolder%");
    EXPECT_EQ(CaptionIn(kGerman), kEnglishCaption);
}

TEST(DialogLanguage, AnExpandableFolderWithoutVariablesIsTakenAsItIs) {
    const LanguageFolder folder(kEntries);
    const ConfiguredLanguageFolder configured(folder.NarrowPath(), REG_EXPAND_SZ);
    EXPECT_EQ(CaptionIn(kGerman), L"Druckeinstellungen");
}

TEST(DialogLanguage, AFolderThatBecomesTooLongWithItsVariablesStaysEnglish) {
    const LanguageFolder folder(kEntries);
    for (const size_t length : {259U, 260U, 261U, 1000U, 20000U}) {
        const EnvironmentVariable variable(std::string(length, 'x'));
        const ConfiguredLanguageFolder configured("%VmkTestFolder%", REG_EXPAND_SZ);
        EXPECT_EQ(CaptionIn(kGerman), kEnglishCaption) << length;
    }
}

TEST(DialogLanguage, AFileThatAnotherProgramHoldsOpenForWritingIsUsedAllTheSame) {
    const LanguageFolder folder(kEntries);
    HANDLE held = CreateFileW(folder.File(L"language.vlf").c_str(), GENERIC_WRITE | DELETE,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_EQ(CaptionIn(kGerman), L"Druckeinstellungen");
    CloseHandle(held);
}

TEST(DialogLanguage, FilesThatCannotBeReadAreSkipped) {
    const LanguageFolder folder(kEntries);
    CreateDirectoryW(folder.File(L"a.vlf").c_str(), nullptr);
    HANDLE locked = CreateFileW(folder.File(L"0.vlf").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_EQ(CaptionIn(kGerman), L"Druckeinstellungen");
    CloseHandle(locked);
    RemoveDirectoryW(folder.File(L"a.vlf").c_str());
}

TEST(DialogLanguage, TheCurrentDirectoryIsTheSameAsBefore) {
    const std::wstring before = CurrentFolder();
    LiveDialog dialog({.pages = page_bit::kWatermarks, .language = kGerman});
    dialog.Ok();
    EXPECT_EQ(CurrentFolder(), before);
}

}  // namespace
}  // namespace vmk::test
