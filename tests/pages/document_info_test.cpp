#include "resources/ids/document_info.h"

#include <gtest/gtest.h>

#include "tests/support/language_folder.h"
#include "tests/support/page_fixture.h"

namespace vmk::test {
namespace {

struct Field {
    const char* name;
    UINT id;
    std::wstring PrinterSettings::InfoGroup::*member;
};

const Field kFields[] = {
    {"Info.Title", IDC_DOCINFO_TITLE, &PrinterSettings::InfoGroup::Title},
    {"Info.Subject", IDC_DOCINFO_SUBJECT, &PrinterSettings::InfoGroup::Subject},
    {"Info.Author", IDC_DOCINFO_AUTHOR, &PrinterSettings::InfoGroup::Author},
    {"Info.Keywords", IDC_DOCINFO_KEYWORDS, &PrinterSettings::InfoGroup::Keywords},
    {"Info.Creator", IDC_DOCINFO_CREATOR, &PrinterSettings::InfoGroup::Creator},
};

const std::vector<UINT> kUsedOnly = {
    IDC_DOCINFO_TITLE,          IDC_DOCINFO_SUBJECT,       IDC_DOCINFO_AUTHOR,
    IDC_DOCINFO_KEYWORDS,       IDC_DOCINFO_CREATOR,       IDC_DOCINFO_GROUP,
    IDC_DOCINFO_TITLE_LABEL,    IDC_DOCINFO_SUBJECT_LABEL, IDC_DOCINFO_AUTHOR_LABEL,
    IDC_DOCINFO_KEYWORDS_LABEL, IDC_DOCINFO_CREATOR_LABEL,
};

// A text that is another one for each field.
std::wstring TextOf(const Field& field) {
    const std::string name = field.name;
    return L"text of " + std::wstring(name.begin(), name.end());
}

class DocumentInfoPage : public PageTest {
  protected:
    DocumentInfoPage() : PageTest(page_bit::kDocumentInfo) {}

    void OpenFilled(int use) {
        settings.SetNumber("Info.Use", use);
        for (const Field& field : kFields) settings.SetText(field.name, TextOf(field));
        OpenOn(settings);
    }
    std::wstring Recorded(const Field& field) const { return dialog->Record().Info.*field.member; }
};

TEST_F(DocumentInfoPage, TheDefaultsShowEmptyEnabledTexts) {
    OpenOn(settings);
    EXPECT_TRUE(page.IsChecked(IDC_DOCINFO_USE));
    EXPECT_TRUE(page.AreEnabled(kUsedOnly));
    for (const Field& field : kFields) EXPECT_EQ(page.Text(field.id), L"") << field.name;
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(DocumentInfoPage, ShowsEachTextInItsOwnBox) {
    OpenFilled(1);
    for (const Field& field : kFields) EXPECT_EQ(page.Text(field.id), TextOf(field));
}

TEST_F(DocumentInfoPage, EachBoxEnablesApplyAndStoresItsOwnText) {
    OpenOn(settings);
    for (const Field& field : kFields) {
        EXPECT_FALSE(dialog->IsApplyEnabled());
        page.EnterText(field.id, TextOf(field));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        EXPECT_EQ(Recorded(field), L"") << field.name;
        dialog->Apply();
        EXPECT_EQ(Recorded(field), TextOf(field));
    }
    for (const Field& field : kFields) EXPECT_EQ(Recorded(field), TextOf(field));
}

TEST_F(DocumentInfoPage, WhileUnusedEverythingIsDisabledButKeptAndStored) {
    OpenFilled(0);
    EXPECT_FALSE(page.IsChecked(IDC_DOCINFO_USE));
    EXPECT_TRUE(page.IsEnabled(IDC_DOCINFO_USE));
    EXPECT_TRUE(page.AreDisabled(kUsedOnly));
    page.EnterText(IDC_DOCINFO_TITLE, L"changed");
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Info.Use, 0);
    EXPECT_EQ(dialog->Record().Info.Title, L"changed");
    EXPECT_EQ(dialog->Record().Info.Creator, L"text of Info.Creator");
}

TEST_F(DocumentInfoPage, TheCheckBoxSwitchesAllElevenDependents) {
    OpenFilled(1);
    page.Click(IDC_DOCINFO_USE);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_TRUE(page.AreDisabled(kUsedOnly));
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Info.Use, 0);
    page.Click(IDC_DOCINFO_USE);
    EXPECT_TRUE(page.AreEnabled(kUsedOnly));
    EXPECT_EQ(dialog->Ok(), IDOK);
    EXPECT_EQ(dialog->Record().Info.Use, 1);
    EXPECT_EQ(Recorded(kFields[0]), TextOf(kFields[0]));
}

TEST_F(DocumentInfoPage, TextsOfAnyLengthAreShownAndStoredWhole) {
    const std::wstring longText(70'000, L'x');
    settings.SetText("Info.Subject", longText);
    OpenOn(settings);
    EXPECT_EQ(page.Text(IDC_DOCINFO_SUBJECT), longText);
    page.EnterText(IDC_DOCINFO_TITLE, L"y");
    EXPECT_EQ(dialog->Ok(), IDOK);
    EXPECT_EQ(dialog->Record().Info.Subject, longText);
}

TEST_F(DocumentInfoPage, TextsOfAnyLengthCanBeEntered) {
    const std::wstring longText(40'000, L'x');
    OpenOn(settings);
    for (const Field& field : kFields) page.EnterText(field.id, longText);
    dialog->Apply();
    for (const Field& field : kFields) EXPECT_TRUE(Recorded(field) == longText) << field.name;
}

TEST_F(DocumentInfoPage, AnEmptiedBoxStoresTheEmptyText) {
    OpenFilled(1);
    page.EnterText(IDC_DOCINFO_AUTHOR, L"");
    EXPECT_EQ(dialog->Ok(), IDOK);
    EXPECT_EQ(dialog->Record().Info.Author, L"");
}

TEST_F(DocumentInfoPage, TypedCharactersAreStored) {
    OpenOn(settings);
    page.Focus(IDC_DOCINFO_KEYWORDS);
    dialog->TypeText(L"Print 1");
    ASSERT_TRUE(WaitUntil([&] { return page.Text(IDC_DOCINFO_KEYWORDS) == L"Print 1"; }));
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Info.Keywords, L"Print 1");
}

TEST_F(DocumentInfoPage, CancelKeepsWhatWasApplied) {
    OpenOn(settings);
    page.EnterText(IDC_DOCINFO_TITLE, L"first");
    dialog->Apply();
    page.EnterText(IDC_DOCINFO_TITLE, L"second");
    EXPECT_EQ(dialog->Cancel(), IDCANCEL);
    EXPECT_EQ(dialog->Record().Info.Title, L"first");
}

TEST_F(DocumentInfoPage, TabAndEnterGoThroughTheBoxesFromTopToBottomAndRound) {
    OpenOn(settings);
    const UINT ring[] = {IDC_DOCINFO_USE,      IDC_DOCINFO_TITLE,   IDC_DOCINFO_SUBJECT, IDC_DOCINFO_AUTHOR,
                         IDC_DOCINFO_KEYWORDS, IDC_DOCINFO_CREATOR, IDC_DOCINFO_USE};
    page.Focus(ring[0]);
    ASSERT_TRUE(dialog->FocusReaches(page.Control(ring[0])));
    for (size_t next = 1; next < std::size(ring); ++next) {
        dialog->PressKey(next % 2 != 0 ? VK_TAB : VK_RETURN);
        ASSERT_TRUE(dialog->FocusReaches(page.Control(ring[next]))) << next;
    }
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

// The texts stand in the boxes only after the page is translated.
TEST_F(DocumentInfoPage, AStoredTextIsNeverTranslated) {
    const LanguageFolder german({{L"Title:", L"Titel:"}, {L"text of Info.Title", L"falsch"}});
    settings.SetText("Info.Title", L"text of Info.Title");
    OpenOn(settings, kGerman);
    EXPECT_EQ(page.Text(IDC_DOCINFO_TITLE_LABEL), L"Titel:");
    EXPECT_EQ(page.Text(IDC_DOCINFO_TITLE), L"text of Info.Title");
}

}  // namespace
}  // namespace vmk::test
