#include "resources/ids/links.h"

#include <gtest/gtest.h>

#include "tests/support/language_folder.h"
#include "tests/support/page_fixture.h"

namespace vmk::test {
namespace {

// All that the detection switches.
const std::vector<UINT> kDetectionControls = {204, 257, 258, 259, 260, 261, 262, 264, 263,
                                              268, 325, 326, 327, 328, 329, 331, 330};
// All that a link without border does without.
const std::vector<UINT> kBorderControls = {259, 260, 261, 268, 328, 329, 331, 330};

const std::vector<std::wstring> kTypes = {L"No Border", L"Underline", L"Rectangle"};
const std::vector<std::wstring> kStyles = {L"Solid", L"Dashed", L"Dotted"};

class LinksPage : public PageTest {
  protected:
    LinksPage() : PageTest(page_bit::kLinks) {
        // With these every control of the page is enabled.
        stored.Links.Files.Analize = 1;
        stored.Links.Border.Type = 1;
    }

    void EnterWidth(const std::wstring& text) const {
        page.EnterTextAndLeave(IDC_LINKS_WIDTH, text, IDC_LINKS_STYLE);
    }

    std::int32_t AppliedWidth() const {
        dialog->Apply();
        return dialog->Record().Links.Border.Width;
    }
};

TEST_F(LinksPage, HoldsItsControlsInTabOrder) {
    Open();
    EXPECT_EQ(ControlIds(page), (std::vector<int>{324, 204, 325, 326, 257, 258, 327, 259, 328, 260,
                                                  329, 331, 268, 261, 330, 210, 262, 264, 263, 332}));
    EXPECT_EQ(BuddyOf(page, IDC_LINKS_WIDTH_SPIN), IDC_LINKS_WIDTH);
}

TEST_F(LinksPage, LabelsItsControls) {
    Open();
    CheckTexts({{324, L"Analize URLs in Printed Text"},
                {204, L"Local Files"},
                {325, L"Detect Filenames and Convert To PDF Links"},
                {326, L"Check Files Exist For Linking"},
                {257, L"Links Options"},
                {258, L"Border Type:"},
                {259, L"Border Style:"},
                {260, L"Border Width:"},
                {268, L"points"},
                {261, L"Border Color:"},
                {330, L"Press for Select"},
                {210, L"Make Text Color the Same as Border Color"},
                {262, L"Example:"},
                {264, L"Our web address is:"},
                {263, L"http://www.example.com"},
                {332, L"Default"}});
}

TEST_F(LinksPage, ShowsTheStoredValuesAndApplyStaysDisabled) {
    stored.Links = {.Border = {.Color = 0x123456, .Style = 2, .Type = 2, .Width = 35},
                    .Analize = 1,
                    .Files = {.Analize = 0, .Check = 1}};
    Open();
    EXPECT_TRUE(page.IsChecked(IDC_LINKS_ANALIZE));
    EXPECT_FALSE(page.IsChecked(IDC_LINKS_FILES_ANALIZE));
    EXPECT_TRUE(page.IsChecked(IDC_LINKS_FILES_CHECK));
    EXPECT_FALSE(page.IsEnabled(IDC_LINKS_FILES_CHECK));
    EXPECT_EQ(page.Selected(IDC_LINKS_TYPE), L"Rectangle");
    EXPECT_EQ(page.Selected(IDC_LINKS_STYLE), L"Dotted");
    EXPECT_EQ(page.Text(IDC_LINKS_WIDTH), L"3.5");
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(LinksPage, EveryTypeAndStyleStoresItsPosition) {
    Open();
    EXPECT_EQ(page.Items(IDC_LINKS_TYPE), kTypes);
    EXPECT_EQ(page.Items(IDC_LINKS_STYLE), kStyles);
    for (size_t index = 0; index < kTypes.size(); ++index) {
        ASSERT_TRUE(page.Choose(IDC_LINKS_TYPE, kTypes[index]));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        dialog->Apply();
        EXPECT_EQ(dialog->Record().Links.Border.Type, static_cast<std::int32_t>(index));
        ASSERT_TRUE(page.Choose(IDC_LINKS_STYLE, kStyles[index]));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        dialog->Apply();
        EXPECT_EQ(dialog->Record().Links.Border.Style, static_cast<std::int32_t>(index));
    }
}

TEST_F(LinksPage, EachFileSwitchStoresItself) {
    Open();
    page.Click(IDC_LINKS_FILES_CHECK);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Links.Files,
              (PrinterSettings::LinksGroup::LocalFiles{.Analize = 1, .Check = 1}));
    page.Click(IDC_LINKS_FILES_ANALIZE);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Links.Files,
              (PrinterSettings::LinksGroup::LocalFiles{.Analize = 0, .Check = 1}));
}

TEST_F(LinksPage, FilesAreCheckedForExistenceOnlyIfTheyAreDetected) {
    Open();
    EXPECT_TRUE(page.IsEnabled(IDC_LINKS_FILES_CHECK));
    page.Click(IDC_LINKS_FILES_ANALIZE);
    EXPECT_FALSE(page.IsEnabled(IDC_LINKS_FILES_CHECK));
    page.Click(IDC_LINKS_FILES_ANALIZE);
    EXPECT_TRUE(page.IsEnabled(IDC_LINKS_FILES_CHECK));
}

TEST_F(LinksPage, OkStoresEverySettingForTheRegistry) {
    Open();
    page.Click(IDC_LINKS_FILES_CHECK);
    page.Choose(IDC_LINKS_TYPE, L"Rectangle");
    page.Choose(IDC_LINKS_STYLE, L"Dashed");
    EnterWidth(L"4.5");
    page.Click(IDC_LINKS_ANALIZE);
    EXPECT_EQ(dialog->Ok(), 1);

    const ScratchSettings target;
    StoreInRegistry(target);
    EXPECT_EQ(target.Number("Links.Analize"), 0);
    EXPECT_EQ(target.Number("Links.Files.Analize"), 1);
    EXPECT_EQ(target.Number("Links.Files.Check"), 1);
    EXPECT_EQ(target.Number("Links.Border.Type"), 2);
    EXPECT_EQ(target.Number("Links.Border.Style"), 1);
    EXPECT_EQ(target.Number("Links.Border.Width"), 45);
    EXPECT_EQ(target.Number("Links.Border.Color"), 0);
}

TEST_F(LinksPage, CancelKeepsWhatWasAppliedAndNoMore) {
    Open();
    page.Choose(IDC_LINKS_STYLE, L"Dotted");
    dialog->Apply();
    page.Choose(IDC_LINKS_STYLE, L"Dashed");
    EnterWidth(L"5");
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(dialog->Record().Links.Border.Style, 2);
    EXPECT_EQ(dialog->Record().Links.Border.Width, 10);
}

TEST_F(LinksPage, CancelStoresNothingEvenIfAWidthIsStillBeingTyped) {
    for (const wchar_t* const typed : {L"2", L"9"}) {
        Open();
        page.Focus(IDC_LINKS_WIDTH);
        page.EnterText(IDC_LINKS_WIDTH, typed);
        // Not by the button, which would take the focus first.
        PostMessageW(dialog->Main().Handle(), WM_COMMAND, IDCANCEL, 0);
        EXPECT_EQ(dialog->WaitForResult(), 2);
        EXPECT_EQ(dialog->Record().Links, stored.Links) << typed;
    }
}

TEST_F(LinksPage, EscapeCancelsFromEveryKindOfControlAndStoresNothing) {
    for (const UINT id :
         std::initializer_list<UINT>{IDC_LINKS_ANALIZE, IDC_LINKS_TYPE, IDC_LINKS_WIDTH, IDC_LINKS_COLOR}) {
        Open();
        page.EnterText(IDC_LINKS_WIDTH, L"4");
        page.Focus(id);
        dialog->PressKey(VK_ESCAPE);
        EXPECT_EQ(dialog->WaitForResult(), 2) << id;
        EXPECT_EQ(dialog->Record().Links, stored.Links) << id;
    }
}

// The detection

TEST_F(LinksPage, OpenedWithTheDetectionOffItsControlsAreEnabledUntilItIsClickedOnAndOff) {
    stored.Links.Analize = 0;
    Open();
    EXPECT_FALSE(page.IsChecked(IDC_LINKS_ANALIZE));
    EXPECT_TRUE(page.AreEnabled(kDetectionControls));
    page.Click(IDC_LINKS_ANALIZE);
    EXPECT_TRUE(page.AreEnabled(kDetectionControls));
    page.Click(IDC_LINKS_ANALIZE);
    EXPECT_TRUE(page.AreDisabled(kDetectionControls));
    EXPECT_TRUE(page.IsEnabled(IDC_LINKS_DEFAULT));
}

TEST_F(LinksPage, OpenedWithTheDetectionOffTheOtherRulesHold) {
    stored.Links = {.Border = {.Type = 0}, .Analize = 0, .Files = {.Analize = 0}};
    Open();
    EXPECT_FALSE(page.IsEnabled(IDC_LINKS_FILES_CHECK));
    EXPECT_TRUE(page.AreDisabled(kBorderControls));
    EXPECT_TRUE(page.AreEnabled({204, 257, 258, 262, 264, 263, 325, 327}));
}

TEST_F(LinksPage, SwitchingTheDetectionOnLeavesFilesAndBorderToTheirOwnSwitches) {
    Open();
    page.Click(IDC_LINKS_FILES_ANALIZE);
    page.Choose(IDC_LINKS_TYPE, L"No Border");
    page.Click(IDC_LINKS_ANALIZE);
    EXPECT_TRUE(page.AreDisabled(kDetectionControls));
    page.Click(IDC_LINKS_ANALIZE);
    EXPECT_TRUE(page.AreDisabled(kBorderControls));
    EXPECT_FALSE(page.IsEnabled(IDC_LINKS_FILES_CHECK));
    EXPECT_TRUE(page.AreEnabled({204, 257, 258, 262, 264, 263, 325, 327}));
}

TEST_F(LinksPage, TheDetectionAloneIsNoChangeAndStoresNothing) {
    Open();
    page.Click(IDC_LINKS_ANALIZE);
    EXPECT_FALSE(dialog->IsApplyEnabled());
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(dialog->Record().Links.Analize, 1);
}

TEST_F(LinksPage, TheDetectionIsStoredAlongWithTheNextChange) {
    Open();
    page.Click(IDC_LINKS_ANALIZE);
    page.Click(IDC_LINKS_ANALIZE);
    page.Click(IDC_LINKS_FILES_CHECK);
    page.Click(IDC_LINKS_ANALIZE);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Links.Analize, 0);
    EXPECT_EQ(dialog->Record().Links.Files.Check, 1);
}

// The border

TEST_F(LinksPage, NoBorderDisablesStyleWidthAndColorAndEveryOtherTypeEnablesThem) {
    for (const int type : {0, 1, 2}) {
        stored.Links.Border.Type = type;
        Open();
        EXPECT_TRUE(type == 0 ? page.AreDisabled(kBorderControls) : page.AreEnabled(kBorderControls)) << type;
    }
    for (const wchar_t* type : {L"Underline", L"Rectangle"}) {
        page.Choose(IDC_LINKS_TYPE, L"No Border");
        EXPECT_TRUE(page.AreDisabled(kBorderControls));
        page.Choose(IDC_LINKS_TYPE, type);
        EXPECT_TRUE(page.AreEnabled(kBorderControls)) << type;
    }
}

TEST_F(LinksPage, ATypeAndAStyleOutsideTheirListsSelectNothingAndAreStoredAsMinusOne) {
    stored.Links.Border.Type = 3;
    stored.Links.Border.Style = -5;
    Open();
    EXPECT_EQ(page.Selected(IDC_LINKS_TYPE), L"");
    EXPECT_EQ(page.Selected(IDC_LINKS_STYLE), L"");
    EXPECT_TRUE(page.AreEnabled(kBorderControls));
    page.Click(IDC_LINKS_FILES_CHECK);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Links.Border.Type, -1);
    EXPECT_EQ(dialog->Record().Links.Border.Style, -1);
}

TEST_F(LinksPage, ThreeClicksOnTheUpArrowMakeOnePointTwoAndAHalf) {
    Open();
    EXPECT_EQ(page.Text(IDC_LINKS_WIDTH), L"1.0");
    for (int click = 0; click < 3; ++click) page.SpinUp(IDC_LINKS_WIDTH_SPIN);
    EXPECT_EQ(page.Text(IDC_LINKS_WIDTH), L"2.5");
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_EQ(AppliedWidth(), 25);
}

TEST_F(LinksPage, TheArrowsKeepTheWidthBetweenHalfAPointAndFive) {
    stored.Links.Border.Width = 48;
    Open();
    for (const wchar_t* expected : {L"5.0", L"5.0"}) {
        page.SpinUp(IDC_LINKS_WIDTH_SPIN);
        EXPECT_EQ(page.Text(IDC_LINKS_WIDTH), expected);
    }
    EXPECT_EQ(AppliedWidth(), 50);
    page.EnterText(IDC_LINKS_WIDTH, L"1.2");
    for (const wchar_t* expected : {L"0.7", L"0.5", L"0.5"}) {
        page.SpinDown(IDC_LINKS_WIDTH_SPIN);
        EXPECT_EQ(page.Text(IDC_LINKS_WIDTH), expected);
    }
    EXPECT_EQ(AppliedWidth(), 5);
}

TEST_F(LinksPage, AWidthOutsideItsLimitsGivesWayToTheLastStoredOne) {
    Open();
    for (const wchar_t* refused : {L"0.4", L"5.1", L"", L"wide", L"-1"}) {
        EnterWidth(refused);
        EXPECT_EQ(page.Text(IDC_LINKS_WIDTH), L"1.0") << refused;
        EXPECT_TRUE(FocusReaches(IDC_LINKS_WIDTH));
    }
    EnterWidth(L"0.5");
    EXPECT_EQ(AppliedWidth(), 5);
    EnterWidth(L"5");
    EXPECT_EQ(page.Text(IDC_LINKS_WIDTH), L"5.0");
    EXPECT_EQ(AppliedWidth(), 50);
}

TEST_F(LinksPage, ARefusedWidthGivesWayToTheAppliedOneAsItIsStored) {
    Open();
    EnterWidth(L"3.79");
    EXPECT_EQ(AppliedWidth(), 37);
    EnterWidth(L"9");
    EXPECT_EQ(page.Text(IDC_LINKS_WIDTH), L"3.7");
    EXPECT_EQ(AppliedWidth(), 37);
}

TEST_F(LinksPage, AWidthIsStoredInTenthsWithTheRestCutOff) {
    Open();
    EnterWidth(L"3.79");
    EXPECT_EQ(page.Text(IDC_LINKS_WIDTH), L"3.8");
    EXPECT_EQ(AppliedWidth(), 37);
}

TEST_F(LinksPage, EveryTenthOfAPointSurvivesLoadingAndStoring) {
    for (const std::int32_t width : {7, 12, 23, 29, 41, 46, 47}) {
        stored.Links.Border.Width = width;
        Open();
        page.Click(IDC_LINKS_FILES_CHECK);
        EXPECT_EQ(AppliedWidth(), width);
    }
}

TEST_F(LinksPage, AStoredWidthOutsideTheLimitsIsShownAndKeptUntilItIsEdited) {
    stored.Links.Border.Width = 200;
    Open();
    EXPECT_EQ(page.Text(IDC_LINKS_WIDTH), L"20.0");
    page.Click(IDC_LINKS_FILES_CHECK);
    EXPECT_EQ(AppliedWidth(), 200);
}

// The rest

TEST_F(LinksPage, TheBoxForTheTextsColorStaysHiddenAndDisabled) {
    Open();
    const auto check = [this] {
        EXPECT_FALSE(page.IsShown(IDC_LINKS_SAME_COLOR));
        EXPECT_FALSE(page.IsEnabled(IDC_LINKS_SAME_COLOR));
    };
    check();
    for (int click = 0; click < 2; ++click) {
        page.Click(IDC_LINKS_ANALIZE);
        check();
    }
    page.Click(IDC_LINKS_DEFAULT);
    check();
}

TEST_F(LinksPage, DefaultShowsTheDefaultsAndApplyStoresThem) {
    stored.Links = {.Border = {.Color = 0xFF, .Style = 2, .Type = 2, .Width = 50},
                    .Analize = 0,
                    .Files = {.Analize = 1, .Check = 1}};
    Open();
    page.Click(IDC_LINKS_DEFAULT);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_TRUE(page.IsChecked(IDC_LINKS_ANALIZE));
    EXPECT_FALSE(page.IsChecked(IDC_LINKS_FILES_ANALIZE));
    EXPECT_FALSE(page.IsChecked(IDC_LINKS_FILES_CHECK));
    EXPECT_FALSE(page.IsEnabled(IDC_LINKS_FILES_CHECK));
    EXPECT_EQ(page.Selected(IDC_LINKS_TYPE), L"No Border");
    EXPECT_EQ(page.Selected(IDC_LINKS_STYLE), L"Solid");
    EXPECT_EQ(page.Text(IDC_LINKS_WIDTH), L"1.0");
    EXPECT_TRUE(page.AreDisabled(kBorderControls));
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Links, PrinterSettings().Links);
}

TEST_F(LinksPage, DefaultEnablesWhatTheDetectionHadDisabled) {
    Open();
    page.Click(IDC_LINKS_ANALIZE);
    page.Click(IDC_LINKS_DEFAULT);
    EXPECT_TRUE(page.AreEnabled({204, 257, 258, 262, 264, 263, 325, 327}));
}

TEST_F(LinksPage, DefaultAndThenCancelLeavesTheSettings) {
    stored.Links = {.Border = {.Color = 0xFF, .Style = 1, .Type = 2, .Width = 30},
                    .Analize = 0,
                    .Files = {.Analize = 1, .Check = 1}};
    Open();
    page.Click(IDC_LINKS_DEFAULT);
    EXPECT_EQ(dialog->Record().Links, stored.Links);
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(dialog->Record().Links, stored.Links);
}

TEST_F(LinksPage, TranslatedItemsKeepTheirValues) {
    const LanguageFolder german(Translations{{L"Links", L"Verkn\x00FCpfungen"},
                                             {L"No Border", L"Kein Rahmen"},
                                             {L"Rectangle", L"Rechteck"},
                                             {L"Dotted", L"Gepunktet"},
                                             {L"points", L"Punkt"}});
    Open(kGerman);
    EXPECT_EQ(page.Text(IDC_LINKS_WIDTH_UNIT), L"Punkt");
    ASSERT_TRUE(page.Choose(IDC_LINKS_TYPE, L"Rechteck"));
    ASSERT_TRUE(page.Choose(IDC_LINKS_STYLE, L"Gepunktet"));
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Links.Border.Type, 2);
    EXPECT_EQ(dialog->Record().Links.Border.Style, 2);
}

TEST_F(LinksPage, OfTwoStylesWithTheSameTranslationTheFirstIsStored) {
    const LanguageFolder german(Translations{{L"Dashed", L"Unterbrochen"}, {L"Dotted", L"Unterbrochen"}});
    stored.Links.Border.Style = 2;
    Open(kGerman);
    page.Click(IDC_LINKS_FILES_CHECK);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Links.Border.Style, 1);
}

TEST_F(LinksPage, TabAndEnterVisitTheControlsInOrder) {
    Open();
    const std::vector<int> all = {325, 326, 327, 328, 329, 330};
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_LINKS_ANALIZE, all.size()), all);
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_LINKS_ANALIZE, all.size(), VK_RETURN), all);
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_LINKS_COLOR, 1), std::vector<int>{IDC_LINKS_DEFAULT});
    page.Choose(IDC_LINKS_TYPE, L"No Border");
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_LINKS_TYPE, 1), std::vector<int>{IDC_LINKS_DEFAULT});
}

}  // namespace
}  // namespace vmk::test
