#include "resources/ids/optimization.h"

#include <windows.h>

#include <gtest/gtest.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/language_folder.h"
#include "tests/support/live_dialog.h"
#include "tests/support/loaded_module.h"
#include "tests/support/wait.h"

namespace vmk::test {
namespace {

constexpr UINT kBlendMode = IDC_OPTIMIZATION_BLEND_MODE;
constexpr UINT kDeTessellation = IDC_OPTIMIZATION_DETESSELLATION;
constexpr UINT kNoTransparency = IDC_OPTIMIZATION_NO_TRANSPARENCY;
constexpr UINT kNoMaskedImages = IDC_OPTIMIZATION_NO_MASKED_IMAGES;
constexpr UINT kOptimizeImages = IDC_OPTIMIZATION_OPTIMIZE_IMAGES;
constexpr UINT kSwap = IDC_OPTIMIZATION_SWAP;
constexpr UINT kThreshold = IDC_OPTIMIZATION_SWAP_THRESHOLD;
constexpr UINT kSpin = IDC_OPTIMIZATION_SWAP_SPIN;

const std::vector<UINT> kThresholdControls = {kThreshold, kSpin, IDC_OPTIMIZATION_SWAP_UNIT};
const std::vector<std::wstring> kBlendModes = {L"Normal",    L"Multiply",  L"Screen",     L"Overlay",
                                               L"Darken",    L"Lighten",   L"ColorDodge", L"ColorBurn",
                                               L"HardLight", L"SoftLight", L"Difference", L"Exclusion"};

// The page of a dialog that was opened on a settings key of its own.
class OptimizationPage : public testing::Test {
  protected:
    void Open(LANGID language = 0x0409) {
        m_dialog.emplace(LiveDialog::Options{
            .pages = page_bit::kOptimization, .language = language, .settings = &m_settings});
        m_page = m_dialog->VisiblePage();
    }
    // Opens the dialog on these stored numbers.
    void OpenOn(int optimizeImages, int swapToDisk) {
        m_settings.SetNumber("Optimization.OptimizeImages", optimizeImages);
        m_settings.SetNumber("Optimization.SwapToDisk", swapToDisk);
        Open();
    }
    PrinterSettings::OptimizationGroup Record() const { return m_dialog->Record().Optimization; }
    // What a host finds in the registry after it has stored the record.
    std::optional<std::int32_t> StoredNumber(const char* name) const {
        m_dialog->Call([&](IPdfPrinterPreferences& object) {
            object.StoreInRegistry(Optimization, AutomationString(m_settings.SubKey()).get());
        });
        return m_settings.Number(name);
    }
    void PressTabAt(UINT from) const {
        m_page.Focus(from);
        ASSERT_TRUE(m_dialog->FocusReaches(m_page.Control(from)));
        m_dialog->PressKey(VK_TAB);
    }

    ScratchSettings m_settings;
    std::optional<LiveDialog> m_dialog;
    LiveWindow m_page;
};

TEST_F(OptimizationPage, MissingValuesShowTheDefaults) {
    Open();
    EXPECT_EQ(m_page.Selected(kBlendMode), L"Darken");
    EXPECT_EQ(m_page.Selected(kDeTessellation), L"Simple");
    EXPECT_FALSE(m_page.IsChecked(kNoTransparency));
    EXPECT_FALSE(m_page.IsChecked(kNoMaskedImages));
    EXPECT_TRUE(m_page.IsChecked(kOptimizeImages));
    EXPECT_TRUE(m_page.IsChecked(kSwap));
    EXPECT_EQ(m_page.Text(kThreshold), L"1");
    EXPECT_FALSE(m_dialog->IsApplyEnabled());
}

TEST_F(OptimizationPage, EachBlendModeIsListedInOrderAndStoredAsItsPosition) {
    Open();
    ASSERT_EQ(m_page.Items(kBlendMode), kBlendModes);
    for (size_t index = 0; index < kBlendModes.size(); ++index) {
        ASSERT_TRUE(m_page.Choose(kBlendMode, kBlendModes[index]));
        EXPECT_TRUE(m_dialog->IsApplyEnabled());
        m_dialog->Apply();
        EXPECT_EQ(Record().BlendMode, static_cast<int>(index)) << index;
    }
}

TEST_F(OptimizationPage, EachDeTessellationMethodIsListedInOrderAndStoredAsItsPosition) {
    Open();
    ASSERT_EQ(m_page.Items(kDeTessellation), (std::vector<std::wstring>{L"None", L"Simple"}));
    for (const int value : {0, 1}) {
        ASSERT_TRUE(m_page.Choose(kDeTessellation, value ? L"Simple" : L"None"));
        m_dialog->Apply();
        EXPECT_EQ(Record().DeTessellation, value);
    }
}

TEST_F(OptimizationPage, StoredChoicesAreSelected) {
    m_settings.SetNumber("Optimization.BlendMode", 11);
    m_settings.SetNumber("Optimization.DeTessellation", 0);
    Open();
    EXPECT_EQ(m_page.Selected(kBlendMode), L"Exclusion");
    EXPECT_EQ(m_page.Selected(kDeTessellation), L"None");
}

TEST_F(OptimizationPage, AnUnknownChoiceSelectsNothingAndIsStoredAsMinusOneWithAnotherChange) {
    m_settings.SetNumber("Optimization.BlendMode", 12);
    Open();
    EXPECT_EQ(m_page.Selected(kBlendMode), L"");
    m_dialog->Apply();
    EXPECT_EQ(Record().BlendMode, 12);
    m_page.Click(kNoTransparency);
    m_dialog->Apply();
    EXPECT_EQ(Record().BlendMode, -1);
}

TEST_F(OptimizationPage, TheWorkAroundsAreStoredAsZeroOrOne) {
    Open();
    m_page.Click(kNoTransparency);
    m_page.Click(kNoMaskedImages);
    EXPECT_TRUE(m_dialog->IsApplyEnabled());
    m_dialog->Apply();
    EXPECT_EQ(Record().NoTransparency, 1);
    EXPECT_EQ(Record().NoMaskedImages, 1);
    m_page.Click(kNoTransparency);
    m_dialog->Apply();
    EXPECT_EQ(Record().NoTransparency, 0);
    EXPECT_EQ(Record().NoMaskedImages, 1);
}

TEST_F(OptimizationPage, WithoutOptimizationOfImagesItOpensWithAllBelowDisabledWhateverTheSwapFlag) {
    for (const int swapToDisk : {0, 5}) {
        OpenOn(0, swapToDisk);
        EXPECT_FALSE(m_page.IsChecked(kOptimizeImages));
        EXPECT_EQ(m_page.IsChecked(kSwap), swapToDisk != 0);
        EXPECT_FALSE(m_page.IsEnabled(kSwap));
        EXPECT_TRUE(m_page.AreDisabled(kThresholdControls)) << swapToDisk;
    }
}

TEST_F(OptimizationPage, WithOptimizationOfImagesTheSwapFlagDecidesAboutTheThreshold) {
    for (const int swapToDisk : {0, 5}) {
        OpenOn(1, swapToDisk);
        EXPECT_TRUE(m_page.IsEnabled(kSwap));
        EXPECT_EQ(m_page.AreEnabled(kThresholdControls), swapToDisk != 0);
        EXPECT_EQ(m_page.AreDisabled(kThresholdControls), swapToDisk == 0);
    }
}

TEST_F(OptimizationPage, TheStoredThresholdIsShownAndZeroAsTheSmallest) {
    for (const auto& [stored, shown] : {std::pair{0, L"1"}, {1, L"1"}, {5, L"5"}, {100, L"100"}}) {
        OpenOn(1, stored);
        EXPECT_EQ(m_page.Text(kThreshold), shown);
        EXPECT_FALSE(m_dialog->IsApplyEnabled());
        EXPECT_EQ(m_dialog->Ok(), 1);
        EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), stored);
    }
}

TEST_F(OptimizationPage, SwitchingSwappingOnAfterZeroWasStoredStoresTheSmallestThreshold) {
    OpenOn(1, 0);
    m_page.Click(kSwap);
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 1);
}

TEST_F(OptimizationPage, ARefusedThresholdGivesWayToTheSmallestAfterZeroWasStored) {
    OpenOn(1, 0);
    m_page.Click(kSwap);
    m_page.EnterTextAndLeave(kThreshold, L"9", kSwap);
    EXPECT_EQ(m_page.Text(kThreshold), L"1");
    m_page.Focus(kSwap);
    EXPECT_TRUE(m_dialog->FocusReaches(m_page.Control(kSwap)));
}

TEST_F(OptimizationPage, CheckingOptimizationEnablesWhatTheSwapFlagAllows) {
    for (const int swapToDisk : {0, 5}) {
        OpenOn(0, swapToDisk);
        m_page.Click(kOptimizeImages);
        EXPECT_TRUE(m_page.IsEnabled(kSwap));
        EXPECT_EQ(m_page.AreEnabled(kThresholdControls), swapToDisk != 0);
        EXPECT_EQ(m_page.AreDisabled(kThresholdControls), swapToDisk == 0);
    }
}

TEST_F(OptimizationPage, CheckingOptimizationAloneDoesNotEnableApplyAndIsLost) {
    OpenOn(0, 5);
    m_page.Click(kOptimizeImages);
    EXPECT_TRUE(m_page.IsChecked(kOptimizeImages));
    EXPECT_FALSE(m_dialog->IsApplyEnabled());
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(Record().OptimizeImages, 0);
}

TEST_F(OptimizationPage, CheckingOptimizationIsStoredTogetherWithAnotherChange) {
    OpenOn(0, 5);
    m_page.Click(kOptimizeImages);
    m_page.Click(kNoMaskedImages);
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(Record().OptimizeImages, 1);
}

TEST_F(OptimizationPage, ClearingOptimizationDisablesAllBelowAndEnablesApply) {
    OpenOn(1, 5);
    m_page.Click(kOptimizeImages);
    EXPECT_TRUE(m_dialog->IsApplyEnabled());
    EXPECT_FALSE(m_page.IsEnabled(kSwap));
    EXPECT_TRUE(m_page.AreDisabled(kThresholdControls));
    EXPECT_TRUE(m_page.IsChecked(kSwap));
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(Record().OptimizeImages, 0);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 5);
}

TEST_F(OptimizationPage, TheSwapBoxSwitchesTheThresholdAndEnablesApply) {
    OpenOn(1, 5);
    m_page.Click(kSwap);
    EXPECT_TRUE(m_dialog->IsApplyEnabled());
    EXPECT_TRUE(m_page.AreDisabled(kThresholdControls));
    m_page.Click(kSwap);
    EXPECT_TRUE(m_page.AreEnabled(kThresholdControls));
}

TEST_F(OptimizationPage, AClearedSwapBoxKeepsTheThresholdButStoresZeroInTheRegistry) {
    OpenOn(1, 5);
    m_page.Click(kSwap);
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 0);
}

TEST_F(OptimizationPage, ACheckedSwapBoxStoresTheThresholdInTheRegistry) {
    OpenOn(1, 0);
    EXPECT_FALSE(m_page.IsChecked(kSwap));
    m_page.Click(kSwap);
    m_page.EnterTextAndLeave(kThreshold, L"5", kSwap);
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 5);
}

TEST_F(OptimizationPage, TheThresholdStaysInTheRecordWhileSwappingIsOff) {
    OpenOn(1, 5);
    m_page.Click(kSwap);
    m_dialog->Apply();
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 0);
    m_page.Click(kSwap);
    m_dialog->Apply();
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 5);
}

TEST_F(OptimizationPage, TheArrowsStepTheThresholdFromOneToEightAndNoFurther) {
    OpenOn(1, 7);
    for (const wchar_t* const expected : {L"8", L"8"}) {
        m_page.SpinUp(kSpin);
        EXPECT_EQ(m_page.Text(kThreshold), expected);
    }
    EXPECT_TRUE(m_dialog->IsApplyEnabled());
    m_page.EnterText(kThreshold, L"2");
    for (const wchar_t* const expected : {L"1", L"1"}) {
        m_page.SpinDown(kSpin);
        EXPECT_EQ(m_page.Text(kThreshold), expected);
    }
    m_dialog->Apply();
    EXPECT_EQ(Record().SwapToDisk.Megabytes, 1);
}

TEST_F(OptimizationPage, AnArrowBringsAStoredThresholdOutsideTheRangeBackIntoIt) {
    struct {
        int stored;
        bool up;
        const wchar_t* expected;
    } const cases[] = {{100, true, L"8"}, {100, false, L"8"}, {-5, true, L"1"}, {-5, false, L"1"}};
    for (const auto& step : cases) {
        OpenOn(1, step.stored);
        EXPECT_EQ(m_page.Text(kThreshold), std::to_wstring(step.stored));
        step.up ? m_page.SpinUp(kSpin) : m_page.SpinDown(kSpin);
        EXPECT_EQ(m_page.Text(kThreshold), step.expected);
    }
}

TEST_F(OptimizationPage, TheArrowKeysStepTheThresholdToo) {
    OpenOn(1, 3);
    m_page.Focus(kThreshold);
    ASSERT_TRUE(m_dialog->FocusReaches(m_page.Control(kThreshold)));
    m_dialog->PressKey(VK_UP);
    EXPECT_TRUE(WaitUntil([&] { return m_page.Text(kThreshold) == L"4"; }));
    m_dialog->PressKey(VK_DOWN);
    EXPECT_TRUE(WaitUntil([&] { return m_page.Text(kThreshold) == L"3"; }));
}

TEST_F(OptimizationPage, OnlyAProposedChangeAboveZeroOfItsOwnSpinStepsDown) {
    struct {
        UINT sender;
        int change;
        const wchar_t* expected;
    } const cases[] = {
        {kSpin, 1, L"3"}, {kSpin, 0, L"5"}, {kSpin, -7, L"5"}, {kThreshold, 1, L"4"}, {kSwap, -1, L"4"}};
    for (const auto& proposal : cases) {
        OpenOn(1, 4);
        NMUPDOWN notification{};
        notification.hdr = {
            .hwndFrom = m_page.Control(proposal.sender), .idFrom = proposal.sender, .code = UDN_DELTAPOS};
        notification.iDelta = proposal.change;
        SendMessageW(m_page.Handle(), WM_NOTIFY, proposal.sender, reinterpret_cast<LPARAM>(&notification));
        EXPECT_EQ(m_page.Text(kThreshold), proposal.expected) << proposal.sender << " " << proposal.change;
    }
}

TEST_F(OptimizationPage, ATypedThresholdOutsideTheRangeIsRefusedAndKeepsTheFocus) {
    for (const wchar_t* const typed : {L"0", L"9", L"-1", L"", L"99999999999"}) {
        OpenOn(1, 3);
        m_page.EnterTextAndLeave(kThreshold, typed, kSwap);
        EXPECT_EQ(m_page.Text(kThreshold), L"3") << typed;
        EXPECT_EQ(m_dialog->Focused(), m_page.Control(kThreshold)) << typed;
    }
}

TEST_F(OptimizationPage, TheLimitsThemselvesCanBeTyped) {
    OpenOn(1, 3);
    for (const int typed : {1, 8}) {
        m_page.EnterTextAndLeave(kThreshold, std::to_wstring(typed), kSwap);
        m_dialog->Apply();
        EXPECT_EQ(Record().SwapToDisk.Megabytes, typed);
    }
}

TEST_F(OptimizationPage, ApplyKeepsTheFirstChangeWhenTheSecondIsCancelled) {
    OpenOn(1, 5);
    m_page.Choose(kBlendMode, L"Screen");
    m_dialog->Apply();
    EXPECT_FALSE(m_dialog->IsApplyEnabled());
    m_page.Choose(kBlendMode, L"Overlay");
    m_page.Click(kSwap);
    EXPECT_EQ(m_dialog->Cancel(), 2);
    EXPECT_EQ(Record().BlendMode, 2);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 5);
}

TEST_F(OptimizationPage, EveryValueReachesTheRegistryAfterOk) {
    OpenOn(0, 5);
    m_page.Choose(kBlendMode, L"SoftLight");
    m_page.Choose(kDeTessellation, L"None");
    m_page.Click(kNoTransparency);
    m_page.Click(kNoMaskedImages);
    m_page.Click(kOptimizeImages);
    m_page.EnterTextAndLeave(kThreshold, L"6", kSwap);
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(StoredNumber("Optimization.BlendMode"), 9);
    EXPECT_EQ(StoredNumber("Optimization.DeTessellation"), 0);
    EXPECT_EQ(StoredNumber("Optimization.NoTransparency"), 1);
    EXPECT_EQ(StoredNumber("Optimization.NoMaskedImages"), 1);
    EXPECT_EQ(StoredNumber("Optimization.OptimizeImages"), 1);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 6);
}

TEST_F(OptimizationPage, TabGoesRoundThePage) {
    OpenOn(1, 5);
    const std::vector<UINT> ring = {kBlendMode,      kDeTessellation, kNoTransparency, kNoMaskedImages,
                                    kOptimizeImages, kSwap,           kThreshold,      kBlendMode};
    for (size_t index = 0; index + 1 < ring.size(); ++index) {
        PressTabAt(ring[index]);
        EXPECT_TRUE(m_dialog->FocusReaches(m_page.Control(ring[index + 1]))) << ring[index];
    }
}

TEST_F(OptimizationPage, TabPassesOverTheDisabledThreshold) {
    OpenOn(1, 0);
    PressTabAt(kSwap);
    EXPECT_TRUE(m_dialog->FocusReaches(m_page.Control(kBlendMode)));
}

TEST_F(OptimizationPage, EnterMovesOnLikeTab) {
    OpenOn(1, 5);
    m_page.Focus(kThreshold);
    ASSERT_TRUE(m_dialog->FocusReaches(m_page.Control(kThreshold)));
    m_dialog->PressKey(VK_RETURN);
    EXPECT_TRUE(m_dialog->FocusReaches(m_page.Control(kBlendMode)));
}

TEST_F(OptimizationPage, TextsAndItemsAreTranslatedWhileTheStoredValuesStay) {
    const LanguageFolder folder({{L"Screen", L"Negativ multiplizieren"},
                                 {L"Swap to Disk Images Larger Than:", L"Auslagern ab:"},
                                 {L"Simple", L"Einfach"}});
    Open(kGerman);
    EXPECT_EQ(m_page.Text(kSwap), L"Auslagern ab:");
    EXPECT_EQ(m_page.Selected(kDeTessellation), L"Einfach");
    ASSERT_TRUE(m_page.Choose(kBlendMode, L"Negativ multiplizieren"));
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(Record().BlendMode, 2);
    EXPECT_EQ(Record().DeTessellation, 1);
}

TEST_F(OptimizationPage, OfTwoItemsWithTheSameTranslationTheFirstOnesValueIsStored) {
    const LanguageFolder folder({{L"Darken", L"Abdunkeln"}, {L"ColorBurn", L"Abdunkeln"}});
    m_settings.SetNumber("Optimization.BlendMode", 7);
    Open(kGerman);
    EXPECT_EQ(m_page.Selected(kBlendMode), L"Abdunkeln");
    m_page.Click(kNoTransparency);
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(Record().BlendMode, 4);
}

}  // namespace
}  // namespace vmk::test
