#include "resources/ids/overlay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "resources/ids/main.h"
#include "tests/support/file_chooser.h"
#include "tests/support/language_folder.h"
#include "tests/support/page_fixture.h"
#include "tests/support/sent_messages.h"
#include "tests/support/temporary_folder.h"

namespace vmk::test {
namespace {

const std::vector<UINT> kOverlayControls = {204, 216, 218, 257, 219, 207, 259, 205, 206, 237, 260,
                                            261, 262, 264, 357, 358, 359, 360, 361, 362, 209, 363};
const std::vector<UINT> kRepeatButtons = {205, 206, 237};
const std::vector<UINT> kHorizontalButtons = {357, 358, 359};
const std::vector<UINT> kVerticalButtons = {360, 361, 362};

class OverlayPage : public PageTest {
  protected:
    OverlayPage() : PageTest(page_bit::kOverlay) {
        stored.Overlay.Enable = 1;
        stored.Overlay.Fit = 1;
    }

    // The one button of the group that is chosen; 0 when that is none or more than one.
    UINT Chosen(const std::vector<UINT>& buttons) const {
        UINT chosen = 0;
        for (const UINT button : buttons) {
            if (!page.IsChecked(button)) continue;
            if (chosen != 0) return 0;
            chosen = button;
        }
        return chosen;
    }

    PrinterSettings::OverlayGroup Applied() const {
        dialog->Apply();
        return dialog->Record().Overlay;
    }
};

TEST_F(OverlayPage, HoldsItsControlsInTabOrder) {
    Open();
    EXPECT_EQ(ControlIds(page), (std::vector<int>{356, 204, 216, 218, 257, 219, 207, 259, 205, 206, 237, 260,
                                                  261, 262, 264, 357, 358, 359, 360, 361, 362, 209, 363}));
}

TEST_F(OverlayPage, LabelsItsControls) {
    Open();
    CheckTexts({{356, L"Overlay with an existing PDF File"},
                {204, L"Overlay File:"},
                {218, L"Browse..."},
                {257, L"Password to open protected file:"},
                {207, L"Place Overlay file as Foreground"},
                {259, L"Repeat Options"},
                {205, L"No Repeat"},
                {206, L"Repeat Last Page of Shorter Overlay File"},
                {237, L"Continuous Repeat of Shorter Overlay File"},
                {260, L"Positions"},
                {261, L"Align Overlay Pages Relative to new PDF Document Pages:"},
                {262, L"By Horizontal:"},
                {264, L"By Vertical:"},
                {357, L"Left"},
                {358, L"Center"},
                {359, L"Right"},
                {360, L"Top"},
                {361, L"Middle"},
                {362, L"Bottom"},
                {209, L"Fit Overlay Pages to Newly Created Document Pages"},
                {363, L"Keep Aspect Ratio"}});
}

TEST_F(OverlayPage, ShowsTheStoredValues) {
    stored.Overlay = {.Enable = 1,
                      .File = L"C:\\paper.pdf",
                      .Password = L"key",
                      .Foreground = 1,
                      .Repeat = 1,
                      .HAlign = 2,
                      .VAlign = 0,
                      .Fit = 1,
                      .KeepAspect = 1};
    Open();
    for (const UINT box : std::vector<UINT>{IDC_OVERLAY_ENABLE, IDC_OVERLAY_FOREGROUND, IDC_OVERLAY_FIT,
                                            IDC_OVERLAY_KEEP_ASPECT})
        EXPECT_TRUE(page.IsChecked(box)) << box;
    EXPECT_EQ(page.Text(IDC_OVERLAY_FILE), L"C:\\paper.pdf");
    EXPECT_EQ(page.Text(IDC_OVERLAY_PASSWORD), L"key");
    EXPECT_EQ(Chosen(kRepeatButtons), UINT{IDC_OVERLAY_REPEAT_LAST});
    EXPECT_EQ(Chosen(kHorizontalButtons), UINT{IDC_OVERLAY_RIGHT});
    EXPECT_EQ(Chosen(kVerticalButtons), UINT{IDC_OVERLAY_TOP});
    EXPECT_TRUE(page.AreEnabled(kOverlayControls));
}

TEST_F(OverlayPage, TheFileCannotBeTypedAndThePasswordIsShownAsDots) {
    Open();
    EXPECT_TRUE(GetWindowLongW(page.Control(IDC_OVERLAY_FILE), GWL_STYLE) & ES_READONLY);
    EXPECT_TRUE(GetWindowLongW(page.Control(IDC_OVERLAY_PASSWORD), GWL_STYLE) & ES_PASSWORD);
    EXPECT_NE(SendMessageW(page.Control(IDC_OVERLAY_PASSWORD), EM_GETPASSWORDCHAR, 0, 0), 0);
}

TEST_F(OverlayPage, TheClickOnARepeatButtonEnablesApplyWhileThePageOpensAndTheDialogDisablesItAgain) {
    std::optional<SentMessages> enabling;
    prepare = [&](IPdfPrinterPreferences&) { enabling.emplace(WM_ENABLE); };
    Open();
    EXPECT_EQ(enabling->To(IDC_MAIN_APPLY), (std::vector<WPARAM>{TRUE, FALSE}));
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(OverlayPage, TheFocusIsOnThePageListAfterOpening) {
    for (const int repeat : {0, 1, 2}) {
        stored.Overlay.Repeat = repeat;
        Open();
        EXPECT_TRUE(dialog->FocusReaches(dialog->Navigator().Control(IDC_NAVIGATOR_LIST))) << repeat;
    }
}

TEST_F(OverlayPage, EveryChoiceStoresItsPosition) {
    Open();
    for (size_t index = 0; index < 3; ++index) {
        for (const auto& buttons : {kRepeatButtons, kHorizontalButtons, kVerticalButtons}) {
            page.Click(buttons[index]);
            EXPECT_TRUE(dialog->IsApplyEnabled());
            EXPECT_EQ(Chosen(buttons), buttons[index]);
        }
        const auto applied = Applied();
        const auto expected = static_cast<std::int32_t>(index);
        EXPECT_EQ(applied.Repeat, expected);
        EXPECT_EQ(applied.HAlign, expected);
        EXPECT_EQ(applied.VAlign, expected);
    }
}

TEST_F(OverlayPage, EveryStoredChoiceIsShownAndStoredAgain) {
    for (const int value : {0, 1, 2}) {
        stored.Overlay.Repeat = value;
        stored.Overlay.HAlign = value;
        stored.Overlay.VAlign = value;
        Open();
        EXPECT_EQ(Chosen(kRepeatButtons), kRepeatButtons[static_cast<size_t>(value)]);
        EXPECT_EQ(Chosen(kHorizontalButtons), kHorizontalButtons[static_cast<size_t>(value)]);
        EXPECT_EQ(Chosen(kVerticalButtons), kVerticalButtons[static_cast<size_t>(value)]);
        page.Click(IDC_OVERLAY_FOREGROUND);
        auto expected = stored.Overlay;
        expected.Foreground = 1;
        EXPECT_EQ(Applied(), expected);
    }
}

TEST_F(OverlayPage, ARepetitionOutsideTheRangeIsShownAndStoredAsContinuous) {
    for (const int value : {5, 3, -1}) {
        stored.Overlay.Repeat = value;
        Open();
        EXPECT_EQ(Chosen(kRepeatButtons), UINT{IDC_OVERLAY_REPEAT_ALL}) << value;
        page.Click(IDC_OVERLAY_FOREGROUND);
        EXPECT_EQ(Applied().Repeat, 2) << value;
    }
}

TEST_F(OverlayPage, AnAlignmentOutsideTheRangeIsShownInTheMiddleAndStaysUntilAButtonIsClicked) {
    stored.Overlay.HAlign = 5;
    stored.Overlay.VAlign = -7;
    Open();
    EXPECT_EQ(Chosen(kHorizontalButtons), UINT{IDC_OVERLAY_CENTER});
    EXPECT_EQ(Chosen(kVerticalButtons), UINT{IDC_OVERLAY_MIDDLE});
    page.Click(IDC_OVERLAY_FOREGROUND);
    EXPECT_EQ(Applied().HAlign, 5);
    EXPECT_EQ(Applied().VAlign, -7);
    page.Click(IDC_OVERLAY_CENTER);
    EXPECT_EQ(Applied().HAlign, 1);
    EXPECT_EQ(dialog->Record().Overlay.VAlign, -7);
    page.Click(IDC_OVERLAY_MIDDLE);
    EXPECT_EQ(Applied().VAlign, 1);
}

TEST_F(OverlayPage, WithTheOverlayOnFitIsCheckedWhateverIsStoredAndApplyStoresIt) {
    stored.Overlay.Fit = 0;
    Open();
    EXPECT_TRUE(page.IsChecked(IDC_OVERLAY_FIT));
    EXPECT_TRUE(page.IsEnabled(IDC_OVERLAY_KEEP_ASPECT));
    page.Click(IDC_OVERLAY_FOREGROUND);
    EXPECT_EQ(Applied().Fit, 1);
}

TEST_F(OverlayPage, WithTheOverlayOffFitIsShownAsItIsStored) {
    stored.Overlay.Enable = 0;
    for (const int fit : {0, 1}) {
        stored.Overlay.Fit = fit;
        Open();
        EXPECT_EQ(page.IsChecked(IDC_OVERLAY_FIT), fit == 1);
    }
}

TEST_F(OverlayPage, WithTheOverlayOffEveryOtherControlIsDisabled) {
    stored.Overlay.Enable = 0;
    Open();
    EXPECT_FALSE(page.IsChecked(IDC_OVERLAY_ENABLE));
    EXPECT_TRUE(page.AreDisabled(kOverlayControls));
    page.Click(IDC_OVERLAY_ENABLE);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_TRUE(page.AreEnabled(kOverlayControls));
    dialog->Apply();
    page.Click(IDC_OVERLAY_ENABLE);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_TRUE(page.AreDisabled(kOverlayControls));
    EXPECT_EQ(Applied().Enable, 0);
}

TEST_F(OverlayPage, SwitchingTheOverlayOnLeavesTheAspectRatioToFit) {
    stored.Overlay.Enable = 0;
    stored.Overlay.Fit = 0;
    Open();
    page.Click(IDC_OVERLAY_ENABLE);
    EXPECT_FALSE(page.IsChecked(IDC_OVERLAY_FIT));
    EXPECT_TRUE(page.IsEnabled(IDC_OVERLAY_FIT));
    EXPECT_FALSE(page.IsEnabled(IDC_OVERLAY_KEEP_ASPECT));
}

TEST_F(OverlayPage, AWalkThroughGroupsThatWereSwitchedOffStoresWhatIsShown) {
    stored.Overlay.Enable = 0;
    Open();
    page.Click(IDC_OVERLAY_ENABLE);
    for (const auto& buttons : {kRepeatButtons, kHorizontalButtons, kVerticalButtons}) {
        const auto stop = std::ranges::find_if(buttons, [this](UINT button) {
            return (GetWindowLongW(page.Control(button), GWL_STYLE) & WS_TABSTOP) != 0;
        });
        ASSERT_NE(stop, buttons.end());
        EXPECT_TRUE(page.IsChecked(*stop)) << *stop;
        // The system reports this click by itself when the focus comes to a button that is not checked.
        SendMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(*stop, BN_CLICKED),
                     reinterpret_cast<LPARAM>(page.Control(*stop)));
    }
    const UINT repeat = Chosen(kRepeatButtons);
    const UINT horizontal = Chosen(kHorizontalButtons);
    const UINT vertical = Chosen(kVerticalButtons);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(repeat, kRepeatButtons[static_cast<size_t>(dialog->Record().Overlay.Repeat)]);
    EXPECT_EQ(horizontal, kHorizontalButtons[static_cast<size_t>(dialog->Record().Overlay.HAlign)]);
    EXPECT_EQ(vertical, kVerticalButtons[static_cast<size_t>(dialog->Record().Overlay.VAlign)]);
}

TEST_F(OverlayPage, TheAspectRatioIsAChoiceOnlyForAPageThatFits) {
    Open();
    page.Click(IDC_OVERLAY_FIT);
    EXPECT_FALSE(page.IsEnabled(IDC_OVERLAY_KEEP_ASPECT));
    page.Click(IDC_OVERLAY_FIT);
    EXPECT_TRUE(page.IsEnabled(IDC_OVERLAY_KEEP_ASPECT));
}

TEST_F(OverlayPage, EachBoxStoresItself) {
    Open();
    auto expected = stored.Overlay;
    const std::vector<std::pair<UINT, std::int32_t*>> boxes = {
        {IDC_OVERLAY_FOREGROUND, &expected.Foreground},
        {IDC_OVERLAY_KEEP_ASPECT, &expected.KeepAspect},
        {IDC_OVERLAY_FIT, &expected.Fit},
        {IDC_OVERLAY_ENABLE, &expected.Enable},
    };
    for (const auto& [box, flag] : boxes) {
        page.Click(box);
        EXPECT_TRUE(dialog->IsApplyEnabled());
        *flag = 1 - *flag;
        EXPECT_EQ(Applied(), expected) << box;
    }
}

TEST_F(OverlayPage, OkStoresEverySettingForTheRegistry) {
    Open();
    page.EnterText(IDC_OVERLAY_FILE, L"D:\\letter head.pdf");
    page.EnterText(IDC_OVERLAY_PASSWORD, L"p\x00E4ss");
    EXPECT_TRUE(dialog->IsApplyEnabled());
    page.Click(IDC_OVERLAY_FOREGROUND);
    page.Click(IDC_OVERLAY_REPEAT_NONE);
    page.Click(IDC_OVERLAY_LEFT);
    page.Click(IDC_OVERLAY_BOTTOM);
    page.Click(IDC_OVERLAY_KEEP_ASPECT);
    EXPECT_EQ(dialog->Ok(), 1);

    const ScratchSettings target;
    StoreInRegistry(target);
    EXPECT_EQ(target.Number("Overlay.Enable"), 1);
    EXPECT_EQ(target.Text("Overlay.File"), L"D:\\letter head.pdf");
    EXPECT_EQ(target.Text("Overlay.Password"), L"p\x00E4ss");
    EXPECT_EQ(target.Number("Overlay.Foreground"), 1);
    EXPECT_EQ(target.Number("Overlay.Repeat"), 0);
    EXPECT_EQ(target.Number("Overlay.HAlign"), 0);
    EXPECT_EQ(target.Number("Overlay.VAlign"), 2);
    EXPECT_EQ(target.Number("Overlay.Fit"), 1);
    EXPECT_EQ(target.Number("Overlay.KeepAspect"), 1);
}

TEST_F(OverlayPage, CancelKeepsWhatWasAppliedAndNoMore) {
    Open();
    page.Click(IDC_OVERLAY_TOP);
    dialog->Apply();
    page.Click(IDC_OVERLAY_BOTTOM);
    page.Click(IDC_OVERLAY_REPEAT_NONE);
    page.EnterText(IDC_OVERLAY_PASSWORD, L"no");
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(dialog->Record().Overlay.VAlign, 0);
    EXPECT_EQ(dialog->Record().Overlay.Repeat, 2);
    EXPECT_EQ(dialog->Record().Overlay.Password, L"");
}

TEST_F(OverlayPage, OpeningAloneStoresNothing) {
    stored.Overlay.Fit = 0;
    stored.Overlay.Repeat = 5;
    Open();
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(dialog->Record().Overlay, stored.Overlay);
}

TEST_F(OverlayPage, LongTextsAreStoredWhole) {
    const std::wstring path = L"C:\\" + std::wstring(400, L'a') + L".pdf";
    stored.Overlay.File = path;
    Open();
    EXPECT_EQ(page.Text(IDC_OVERLAY_FILE), path);
    page.EnterText(IDC_OVERLAY_PASSWORD, std::wstring(300, L'p'));
    const auto applied = Applied();
    EXPECT_EQ(applied.File, path);
    EXPECT_EQ(applied.Password, std::wstring(300, L'p'));
}

TEST_F(OverlayPage, TheArrowKeysMoveWithinAGroupAndStoreWhatTheyReach) {
    Open();
    page.Focus(IDC_OVERLAY_CENTER);
    dialog->PressKey(VK_RIGHT);
    ASSERT_TRUE(WaitUntil([&] { return Chosen(kHorizontalButtons) == UINT{IDC_OVERLAY_RIGHT}; }));
    EXPECT_EQ(Applied().HAlign, 2);
    page.Focus(IDC_OVERLAY_RIGHT);
    dialog->PressKey(VK_RIGHT);
    ASSERT_TRUE(WaitUntil([&] { return Chosen(kHorizontalButtons) == UINT{IDC_OVERLAY_LEFT}; }));
    EXPECT_EQ(Applied().HAlign, 0);
    EXPECT_EQ(Chosen(kVerticalButtons), UINT{IDC_OVERLAY_MIDDLE});
    EXPECT_EQ(Chosen(kRepeatButtons), UINT{IDC_OVERLAY_REPEAT_ALL});
}

TEST_F(OverlayPage, TabVisitsTheControlsInOrderAndTheChosenButtonOfEachGroup) {
    stored.Overlay.HAlign = 0;
    stored.Overlay.VAlign = 2;
    Open();
    const std::vector<int> all = {216, 218, 219, 207, 237, 357, 362, 209, 363};
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_OVERLAY_ENABLE, all.size()), all);
}

// Browsing

TEST_F(OverlayPage, BrowsingProposesTheFileAndShowsTheChosenPath) {
    const TemporaryFolder files;
    const std::wstring after = files.Write(L"after.pdf");
    const std::wstring folder = CurrentFolder();
    stored.Overlay.File = files.Write(L"before.pdf");
    Open();
    const FileChooser chooser(OpenModal(IDC_OVERLAY_BROWSE));
    ASSERT_TRUE(chooser);
    EXPECT_EQ(GetWindow(chooser.Window().Handle(), GW_OWNER), dialog->Main().Handle());
    EXPECT_TRUE(GetWindowLongW(chooser.Window().Handle(), GWL_STYLE) & WS_SIZEBOX);
    EXPECT_EQ(chooser.ProposedName(), L"before.pdf");
    EXPECT_EQ(chooser.Types(), std::vector<std::wstring>{L"Adobe PDF Files (*.pdf)"});
    chooser.EnterName(after);
    CloseModal(chooser.Window(), IDOK);
    EXPECT_TRUE(TextBecomes(IDC_OVERLAY_FILE, after));
    EXPECT_TRUE(ApplyBecomesEnabled());
    EXPECT_EQ(CurrentFolder(), folder);
    EXPECT_EQ(Applied().File, after);
}

TEST_F(OverlayPage, BrowsingCanBeCancelled) {
    const std::wstring folder = CurrentFolder();
    stored.Overlay.File = L"C:\\before.pdf";
    Open();
    const FileChooser chooser(OpenModal(IDC_OVERLAY_BROWSE));
    ASSERT_TRUE(chooser);
    chooser.EnterName(L"after.pdf");
    CloseModal(chooser.Window(), IDCANCEL);
    EXPECT_EQ(page.Text(IDC_OVERLAY_FILE), L"C:\\before.pdf");
    EXPECT_FALSE(dialog->IsApplyEnabled());
    EXPECT_EQ(CurrentFolder(), folder);
}

TEST_F(OverlayPage, TheTypeOfFilesIsTranslated) {
    const LanguageFolder german(
        Translations{{L"Adobe PDF Files (*.pdf)", L"Adobe-PDF-Dateien (*.pdf)"}, {L"Left", L"Links"}});
    Open(kGerman);
    EXPECT_EQ(page.Text(IDC_OVERLAY_LEFT), L"Links");
    const FileChooser chooser(OpenModal(IDC_OVERLAY_BROWSE));
    ASSERT_TRUE(chooser);
    EXPECT_EQ(chooser.Types(), std::vector<std::wstring>{L"Adobe-PDF-Dateien (*.pdf)"});
    CloseModal(chooser.Window(), IDCANCEL);
}

}  // namespace
}  // namespace vmk::test
