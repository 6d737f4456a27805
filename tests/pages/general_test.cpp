#include "resources/ids/general.h"

#include <gtest/gtest.h>

#include "tests/support/language_folder.h"
#include "tests/support/page_fixture.h"

namespace vmk::test {
namespace {

// The buttons of versions 1.3 to 1.6.
const std::vector<UINT> kVersions = {293, 294, 295, 205};
const std::vector<std::wstring> kLayouts = {L"Single Page", L"One Column", L"Two Columns Left",
                                            L"Two Columns Right"};
const std::vector<std::wstring> kModes = {L"Show None", L"Show Bookmarks", L"Show Thumbnails",
                                          L"Full Screen"};

struct Preference {
    UINT id;
    std::int32_t PrinterSettings::GeneralGroup::ViewerPreferences::*field;
    const char* name;
};

using Preferences = PrinterSettings::GeneralGroup::ViewerPreferences;
constexpr Preference kPreferences[] = {
    {.id = 299, .field = &Preferences::HideToolbars, .name = "General.VP.HideToolbars"},
    {.id = 300, .field = &Preferences::HideUI, .name = "General.VP.HideUI"},
    {.id = 301, .field = &Preferences::Fit, .name = "General.VP.Fit"},
    {.id = 212, .field = &Preferences::Center, .name = "General.VP.Center"},
    {.id = 213, .field = &Preferences::ShowTitle, .name = "General.VP.ShowTitle"},
    {.id = 214, .field = &Preferences::HideMenubar, .name = "General.VP.HideMenubar"},
};

class GeneralPage : public PageTest {
  protected:
    GeneralPage() : PageTest(page_bit::kGeneral) {}

    // The buttons that are checked; none or one.
    std::vector<UINT> CheckedVersions() const {
        std::vector<UINT> checked;
        for (const UINT id : kVersions) {
            if (page.IsChecked(id)) checked.push_back(id);
        }
        return checked;
    }
};

TEST_F(GeneralPage, HoldsItsControlsInTabOrder) {
    Open();
    EXPECT_EQ(ControlIds(page), (std::vector<int>{293, 294, 295, 205, -1, -1, 297, -1, 298, 204, 208, -1, 299,
                                                  300, 301, 212, 213, 214}));
}

TEST_F(GeneralPage, LabelsItsControls) {
    Open();
    CheckTexts({{293, L"Version 1.3 (Acrobat v3.0 and v4.x)"},
                {294, L"Version 1.4 (Acrobat v5.x)"},
                {295, L"Version 1.5 (Acrobat v6.0 and above)"},
                {205, L"Version 1.6 (Acrobat v7.0 and above)"},
                {204, L"Full Screen Page Mode:"},
                {299, L"Hide Toolbars"},
                {300, L"Hide Document's Window User Interface Elements"},
                {301, L"Resize Document's Window to Fit the Size of the First Page"},
                {212, L"Center Document's Window"},
                {213, L"Display Document Title in The Windows Titlebar"},
                {214, L"Hide Menubar"}});
}

TEST_F(GeneralPage, NamesItsGroupsAndListsInFrontOfThem) {
    Open();
    std::vector<std::wstring> texts;
    for (HWND child : ChildrenOf(page.Handle())) {
        if (GetDlgCtrlID(child) == 0xFFFF || GetDlgCtrlID(child) == -1)
            texts.push_back(LiveWindow(child).Text());
    }
    EXPECT_EQ(texts, (std::vector<std::wstring>{L"When Document Opened", L"Page Layout:", L"Page Mode:",
                                                L"Viewer Preferences"}));
}

TEST_F(GeneralPage, ShowsTheStoredVersion) {
    for (size_t index = 0; index < kVersions.size(); ++index) {
        stored.General.PDFSpec = static_cast<std::int32_t>(index) + 3;
        Open();
        EXPECT_EQ(CheckedVersions(), std::vector<UINT>{kVersions[index]});
        EXPECT_FALSE(dialog->IsApplyEnabled());
    }
}

TEST_F(GeneralPage, AMissingVersionShowsAsVersion14) {
    OpenOn(settings);
    EXPECT_TRUE(page.IsChecked(IDC_GENERAL_VERSION_14));
}

TEST_F(GeneralPage, EachVersionButtonStoresItsVersion) {
    Open();
    for (const size_t index : {3U, 2U, 0U, 1U}) {
        page.Click(kVersions[index]);
        EXPECT_EQ(CheckedVersions(), std::vector<UINT>{kVersions[index]});
        EXPECT_TRUE(dialog->IsApplyEnabled());
        dialog->Apply();
        EXPECT_EQ(dialog->Record().General.PDFSpec, static_cast<std::int32_t>(index) + 3);
    }
}

TEST_F(GeneralPage, AnUnknownVersionChecksNoButtonAndIsStoredAgain) {
    for (const int unknown : {7, 2, 0, -1}) {
        stored.General.PDFSpec = unknown;
        Open();
        EXPECT_TRUE(CheckedVersions().empty());
        page.Click(IDC_GENERAL_FIT_WINDOW);
        dialog->Apply();
        EXPECT_EQ(dialog->Record().General.PDFSpec, unknown);
        EXPECT_EQ(dialog->Record().General.VP.Fit, 1);
    }
}

TEST_F(GeneralPage, AClickReplacesAnUnknownVersion) {
    stored.General.PDFSpec = 7;
    Open();
    page.MouseClick(IDC_GENERAL_VERSION_13);
    EXPECT_TRUE(WaitUntil([&] { return page.IsChecked(IDC_GENERAL_VERSION_13); }));
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(dialog->Record().General.PDFSpec, 3);
}

TEST_F(GeneralPage, EveryLayoutAndModeStoresItsValue) {
    Open();
    EXPECT_EQ(page.Items(IDC_GENERAL_PAGE_LAYOUT), kLayouts);
    EXPECT_EQ(page.Items(IDC_GENERAL_PAGE_MODE), kModes);
    for (size_t value = 0; value < 4; ++value) {
        ASSERT_TRUE(page.Choose(IDC_GENERAL_PAGE_LAYOUT, kLayouts[value]));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        dialog->Apply();
        ASSERT_TRUE(page.Choose(IDC_GENERAL_PAGE_MODE, kModes[3 - value]));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        dialog->Apply();
        EXPECT_EQ(dialog->Record().General.PageLayout, static_cast<std::int32_t>(value));
        EXPECT_EQ(dialog->Record().General.PageMode, 3 - static_cast<std::int32_t>(value));
    }
}

TEST_F(GeneralPage, ShowsTheStoredLayoutAndMode) {
    stored.General.PageLayout = 2;
    stored.General.PageMode = 1;
    Open();
    EXPECT_EQ(page.Selected(IDC_GENERAL_PAGE_LAYOUT), L"Two Columns Left");
    EXPECT_EQ(page.Selected(IDC_GENERAL_PAGE_MODE), L"Show Bookmarks");
}

TEST_F(GeneralPage, UnknownLayoutsAndModesSelectNothingAndAreStoredAsMinusOne) {
    stored.General.PageLayout = 4;
    stored.General.PageMode = -7;
    Open();
    EXPECT_EQ(page.Selected(IDC_GENERAL_PAGE_LAYOUT), L"");
    EXPECT_EQ(page.Selected(IDC_GENERAL_PAGE_MODE), L"");
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(dialog->Record().General, stored.General);

    Open();
    page.Click(IDC_GENERAL_VERSION_16);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(dialog->Record().General.PageLayout, -1);
    EXPECT_EQ(dialog->Record().General.PageMode, -1);
}

TEST_F(GeneralPage, EachViewerPreferenceShowsAndStoresItself) {
    for (const Preference& preference : kPreferences) {
        stored.General = {};
        stored.General.VP.*preference.field = 5;
        Open();
        for (const Preference& other : kPreferences)
            EXPECT_EQ(page.IsChecked(other.id), other.id == preference.id) << other.name;

        page.Click(preference.id);
        EXPECT_TRUE(dialog->IsApplyEnabled());
        dialog->Apply();
        EXPECT_EQ(dialog->Record().General, PrinterSettings().General) << preference.name;
        page.Click(preference.id);
        dialog->Apply();
        PrinterSettings expected;
        expected.General.VP.*preference.field = 1;
        EXPECT_EQ(dialog->Record().General, expected.General) << preference.name;
    }
}

TEST_F(GeneralPage, TheFullScreenModeStaysHiddenAndPassesThrough) {
    stored.General.VP.FSPageMode = 2;
    Open();
    EXPECT_FALSE(page.IsShown(IDC_GENERAL_FULL_SCREEN_MODE));
    EXPECT_FALSE(page.IsShown(IDC_GENERAL_FULL_SCREEN_MODE_LABEL));
    page.Choose(IDC_GENERAL_PAGE_MODE, L"Full Screen");
    EXPECT_FALSE(page.IsShown(IDC_GENERAL_FULL_SCREEN_MODE));
    EXPECT_TRUE(page.Items(IDC_GENERAL_FULL_SCREEN_MODE).empty());
    EXPECT_EQ(dialog->Ok(), 1);

    const ScratchSettings target;
    StoreInRegistry(target);
    EXPECT_EQ(target.Number("General.VP.FSPageMode"), 2);
    EXPECT_EQ(target.Number("General.PageMode"), 3);
}

TEST_F(GeneralPage, OkStoresEverySettingForTheRegistry) {
    Open();
    page.Click(IDC_GENERAL_VERSION_16);
    page.Choose(IDC_GENERAL_PAGE_LAYOUT, L"Two Columns Right");
    page.Choose(IDC_GENERAL_PAGE_MODE, L"Show Thumbnails");
    for (const Preference& preference : kPreferences) page.Click(preference.id);
    EXPECT_EQ(dialog->Ok(), 1);

    const ScratchSettings target;
    StoreInRegistry(target);
    EXPECT_EQ(target.Number("General.PDFSpec"), 6);
    EXPECT_EQ(target.Number("General.PageLayout"), 3);
    EXPECT_EQ(target.Number("General.PageMode"), 2);
    for (const Preference& preference : kPreferences) EXPECT_EQ(target.Number(preference.name), 1);
}

TEST_F(GeneralPage, CancelKeepsWhatWasAppliedAndNoMore) {
    Open();
    page.Click(IDC_GENERAL_VERSION_15);
    dialog->Apply();
    page.Click(IDC_GENERAL_VERSION_13);
    page.Choose(IDC_GENERAL_PAGE_MODE, L"Full Screen");
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(dialog->Record().General.PDFSpec, 5);
    EXPECT_EQ(dialog->Record().General.PageMode, 0);
}

TEST_F(GeneralPage, ControlsSetByAProgramAreNotStoredWhileApplyIsDisabled) {
    Open();
    SendMessageW(page.Control(IDC_GENERAL_VERSION_16), BM_SETCHECK, BST_CHECKED, 0);
    SendMessageW(page.Control(IDC_GENERAL_PAGE_LAYOUT), CB_SETCURSEL, 3, 0);
    SendMessageW(page.Control(IDC_GENERAL_HIDE_UI), BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_FALSE(dialog->IsApplyEnabled());
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(dialog->Record().General, stored.General);
}

TEST_F(GeneralPage, TranslatedItemsKeepTheirValues) {
    const LanguageFolder german(Translations{{L"One Column", L"Eine Spalte"},
                                             {L"Two Columns Left", L"Zwei Spalten"},
                                             {L"Two Columns Right", L"Zwei Spalten"},
                                             {L"Hide Menubar", L"Men\x00FC ausblenden"}});
    stored.General.PageLayout = 3;
    Open(kGerman);
    EXPECT_EQ(page.Text(IDC_GENERAL_HIDE_MENUBAR), L"Men\x00FC ausblenden");
    EXPECT_EQ(page.Selected(IDC_GENERAL_PAGE_LAYOUT), L"Zwei Spalten");
    page.Click(IDC_GENERAL_HIDE_UI);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().General.PageLayout, 2) << "of two items with one text the first is stored";
    ASSERT_TRUE(page.Choose(IDC_GENERAL_PAGE_LAYOUT, L"Eine Spalte"));
    dialog->Apply();
    EXPECT_EQ(dialog->Record().General.PageLayout, 1);
}

TEST_F(GeneralPage, TabAndEnterVisitTheControlsInOrderAndReturnToTheTop) {
    Open();
    const std::vector<int> ring = {298, 299, 300, 301, 212, 213, 214, IDC_GENERAL_VERSION_13};
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_GENERAL_PAGE_LAYOUT, ring.size()), ring);
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_GENERAL_PAGE_LAYOUT, ring.size(), VK_RETURN), ring);
}

TEST_F(GeneralPage, ReturningToTheTopChangesNothing) {
    Open();
    FocusSteps(*dialog, page, IDC_GENERAL_HIDE_MENUBAR, 1);
    EXPECT_EQ(CheckedVersions(), std::vector<UINT>{IDC_GENERAL_VERSION_14});
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(GeneralPage, TheArrowKeysChooseAVersion) {
    Open();
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_GENERAL_VERSION_14, 1, VK_DOWN),
              std::vector<int>{IDC_GENERAL_VERSION_15});
    EXPECT_TRUE(WaitUntil([&] { return page.IsChecked(IDC_GENERAL_VERSION_15); }));
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_GENERAL_VERSION_16, 1, VK_DOWN),
              std::vector<int>{IDC_GENERAL_VERSION_13});
    EXPECT_TRUE(WaitUntil([&] { return page.IsChecked(IDC_GENERAL_VERSION_13); }));
    dialog->Apply();
    EXPECT_EQ(dialog->Record().General.PDFSpec, 3);
}

TEST_F(GeneralPage, TheVersionsAreOneTabStop) {
    for (const auto& [version, stop] : {std::pair<int, UINT>{5, 295}, {7, 293}}) {
        stored.General.PDFSpec = version;
        Open();
        for (const UINT id : kVersions) {
            const bool isStop = (GetWindowLongW(page.Control(id), GWL_STYLE) & WS_TABSTOP) != 0;
            EXPECT_EQ(isStop, id == stop) << id;
        }
    }
}

}  // namespace
}  // namespace vmk::test
