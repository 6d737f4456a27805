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
#include "tests/support/page_fixture.h"

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

class OptimizationPage : public PageTest {
  protected:
    OptimizationPage() : PageTest(page_bit::kOptimization) {}

    // Opens the dialog on these stored numbers.
    void OpenOnNumbers(int optimizeImages, int swapToDisk) {
        settings.SetNumber("Optimization.OptimizeImages", optimizeImages);
        settings.SetNumber("Optimization.SwapToDisk", swapToDisk);
        OpenOn(settings);
    }
    PrinterSettings::OptimizationGroup Record() const { return dialog->Record().Optimization; }
    // What a host finds in the registry after it has stored the record.
    std::optional<std::int32_t> StoredNumber(const char* name) const {
        StoreInRegistry(settings);
        return settings.Number(name);
    }
    void PressTabAt(UINT from) const {
        ASSERT_NO_FATAL_FAILURE(FocusOn(from));
        dialog->PressKey(VK_TAB);
    }
};

TEST_F(OptimizationPage, MissingValuesShowTheDefaults) {
    OpenOn(settings);
    EXPECT_EQ(page.Selected(kBlendMode), L"Darken");
    EXPECT_EQ(page.Selected(kDeTessellation), L"Simple");
    EXPECT_FALSE(page.IsChecked(kNoTransparency));
    EXPECT_FALSE(page.IsChecked(kNoMaskedImages));
    EXPECT_TRUE(page.IsChecked(kOptimizeImages));
    EXPECT_TRUE(page.IsChecked(kSwap));
    EXPECT_EQ(page.Text(kThreshold), L"1");
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(OptimizationPage, EachBlendModeIsListedInOrderAndStoredAsItsPosition) {
    OpenOn(settings);
    ASSERT_EQ(page.Items(kBlendMode), kBlendModes);
    for (size_t index = 0; index < kBlendModes.size(); ++index) {
        ASSERT_TRUE(page.Choose(kBlendMode, kBlendModes[index]));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        dialog->Apply();
        EXPECT_EQ(Record().BlendMode, static_cast<int>(index)) << index;
    }
}

TEST_F(OptimizationPage, EachDeTessellationMethodIsListedInOrderAndStoredAsItsPosition) {
    OpenOn(settings);
    ASSERT_EQ(page.Items(kDeTessellation), (std::vector<std::wstring>{L"None", L"Simple"}));
    for (const int value : {0, 1}) {
        ASSERT_TRUE(page.Choose(kDeTessellation, value ? L"Simple" : L"None"));
        dialog->Apply();
        EXPECT_EQ(Record().DeTessellation, value);
    }
}

TEST_F(OptimizationPage, StoredChoicesAreSelected) {
    settings.SetNumber("Optimization.BlendMode", 11);
    settings.SetNumber("Optimization.DeTessellation", 0);
    OpenOn(settings);
    EXPECT_EQ(page.Selected(kBlendMode), L"Exclusion");
    EXPECT_EQ(page.Selected(kDeTessellation), L"None");
}

TEST_F(OptimizationPage, AnUnknownChoiceSelectsNothingAndIsStoredAsMinusOneWithAnotherChange) {
    settings.SetNumber("Optimization.BlendMode", 12);
    OpenOn(settings);
    EXPECT_EQ(page.Selected(kBlendMode), L"");
    dialog->Apply();
    EXPECT_EQ(Record().BlendMode, 12);
    page.Click(kNoTransparency);
    dialog->Apply();
    EXPECT_EQ(Record().BlendMode, -1);
}

TEST_F(OptimizationPage, TheWorkAroundsAreStoredAsZeroOrOne) {
    OpenOn(settings);
    page.Click(kNoTransparency);
    page.Click(kNoMaskedImages);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    dialog->Apply();
    EXPECT_EQ(Record().NoTransparency, 1);
    EXPECT_EQ(Record().NoMaskedImages, 1);
    page.Click(kNoTransparency);
    dialog->Apply();
    EXPECT_EQ(Record().NoTransparency, 0);
    EXPECT_EQ(Record().NoMaskedImages, 1);
}

TEST_F(OptimizationPage, WithoutOptimizationOfImagesItOpensWithAllBelowDisabledWhateverTheSwapFlag) {
    for (const int swapToDisk : {0, 5}) {
        OpenOnNumbers(0, swapToDisk);
        EXPECT_FALSE(page.IsChecked(kOptimizeImages));
        EXPECT_EQ(page.IsChecked(kSwap), swapToDisk != 0);
        EXPECT_FALSE(page.IsEnabled(kSwap));
        EXPECT_TRUE(page.AreDisabled(kThresholdControls)) << swapToDisk;
    }
}

TEST_F(OptimizationPage, WithOptimizationOfImagesTheSwapFlagDecidesAboutTheThreshold) {
    for (const int swapToDisk : {0, 5}) {
        OpenOnNumbers(1, swapToDisk);
        EXPECT_TRUE(page.IsEnabled(kSwap));
        EXPECT_EQ(page.AreEnabled(kThresholdControls), swapToDisk != 0);
        EXPECT_EQ(page.AreDisabled(kThresholdControls), swapToDisk == 0);
    }
}

TEST_F(OptimizationPage, TheStoredThresholdIsShownAndZeroAsTheSmallest) {
    for (const auto& [number, shown] : {std::pair{0, L"1"}, {1, L"1"}, {5, L"5"}, {100, L"100"}}) {
        OpenOnNumbers(1, number);
        EXPECT_EQ(page.Text(kThreshold), shown);
        EXPECT_FALSE(dialog->IsApplyEnabled());
        EXPECT_EQ(dialog->Ok(), 1);
        EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), number);
    }
}

TEST_F(OptimizationPage, SwitchingSwappingOnAfterZeroWasStoredStoresTheSmallestThreshold) {
    OpenOnNumbers(1, 0);
    page.Click(kSwap);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 1);
}

TEST_F(OptimizationPage, ARefusedThresholdGivesWayToTheSmallestAfterZeroWasStored) {
    OpenOnNumbers(1, 0);
    page.Click(kSwap);
    page.EnterTextAndLeave(kThreshold, L"9", kSwap);
    EXPECT_EQ(page.Text(kThreshold), L"1");
    page.Focus(kSwap);
    EXPECT_TRUE(FocusReaches(kSwap));
}

TEST_F(OptimizationPage, CheckingOptimizationEnablesWhatTheSwapFlagAllows) {
    for (const int swapToDisk : {0, 5}) {
        OpenOnNumbers(0, swapToDisk);
        page.Click(kOptimizeImages);
        EXPECT_TRUE(page.IsEnabled(kSwap));
        EXPECT_EQ(page.AreEnabled(kThresholdControls), swapToDisk != 0);
        EXPECT_EQ(page.AreDisabled(kThresholdControls), swapToDisk == 0);
    }
}

TEST_F(OptimizationPage, CheckingOptimizationAloneDoesNotEnableApplyAndIsLost) {
    OpenOnNumbers(0, 5);
    page.Click(kOptimizeImages);
    EXPECT_TRUE(page.IsChecked(kOptimizeImages));
    EXPECT_FALSE(dialog->IsApplyEnabled());
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(Record().OptimizeImages, 0);
}

TEST_F(OptimizationPage, CheckingOptimizationIsStoredTogetherWithAnotherChange) {
    OpenOnNumbers(0, 5);
    page.Click(kOptimizeImages);
    page.Click(kNoMaskedImages);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(Record().OptimizeImages, 1);
}

TEST_F(OptimizationPage, ClearingOptimizationDisablesAllBelowAndEnablesApply) {
    OpenOnNumbers(1, 5);
    page.Click(kOptimizeImages);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_FALSE(page.IsEnabled(kSwap));
    EXPECT_TRUE(page.AreDisabled(kThresholdControls));
    EXPECT_TRUE(page.IsChecked(kSwap));
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(Record().OptimizeImages, 0);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 5);
}

TEST_F(OptimizationPage, TheSwapBoxSwitchesTheThresholdAndEnablesApply) {
    OpenOnNumbers(1, 5);
    page.Click(kSwap);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_TRUE(page.AreDisabled(kThresholdControls));
    page.Click(kSwap);
    EXPECT_TRUE(page.AreEnabled(kThresholdControls));
}

TEST_F(OptimizationPage, AClearedSwapBoxKeepsTheThresholdButStoresZeroInTheRegistry) {
    OpenOnNumbers(1, 5);
    page.Click(kSwap);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 0);
}

TEST_F(OptimizationPage, ACheckedSwapBoxStoresTheThresholdInTheRegistry) {
    OpenOnNumbers(1, 0);
    EXPECT_FALSE(page.IsChecked(kSwap));
    page.Click(kSwap);
    page.EnterTextAndLeave(kThreshold, L"5", kSwap);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 5);
}

TEST_F(OptimizationPage, TheThresholdStaysInTheRecordWhileSwappingIsOff) {
    OpenOnNumbers(1, 5);
    page.Click(kSwap);
    dialog->Apply();
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 0);
    page.Click(kSwap);
    dialog->Apply();
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 5);
}

TEST_F(OptimizationPage, TheArrowsStepTheThresholdFromOneToEightAndNoFurther) {
    OpenOnNumbers(1, 7);
    for (const wchar_t* const expected : {L"8", L"8"}) {
        page.SpinUp(kSpin);
        EXPECT_EQ(page.Text(kThreshold), expected);
    }
    EXPECT_TRUE(dialog->IsApplyEnabled());
    page.EnterText(kThreshold, L"2");
    for (const wchar_t* const expected : {L"1", L"1"}) {
        page.SpinDown(kSpin);
        EXPECT_EQ(page.Text(kThreshold), expected);
    }
    dialog->Apply();
    EXPECT_EQ(Record().SwapToDisk.Megabytes, 1);
}

TEST_F(OptimizationPage, AnArrowBringsAStoredThresholdOutsideTheRangeBackIntoIt) {
    struct {
        int stored;
        bool up;
        const wchar_t* expected;
    } const cases[] = {{100, true, L"8"}, {100, false, L"8"}, {-5, true, L"1"}, {-5, false, L"1"}};
    for (const auto& step : cases) {
        OpenOnNumbers(1, step.stored);
        EXPECT_EQ(page.Text(kThreshold), std::to_wstring(step.stored));
        step.up ? page.SpinUp(kSpin) : page.SpinDown(kSpin);
        EXPECT_EQ(page.Text(kThreshold), step.expected);
    }
}

TEST_F(OptimizationPage, TheArrowKeysStepTheThresholdToo) {
    OpenOnNumbers(1, 3);
    page.Focus(kThreshold);
    ASSERT_TRUE(FocusReaches(kThreshold));
    dialog->PressKey(VK_UP);
    EXPECT_TRUE(WaitUntil([&] { return page.Text(kThreshold) == L"4"; }));
    dialog->PressKey(VK_DOWN);
    EXPECT_TRUE(WaitUntil([&] { return page.Text(kThreshold) == L"3"; }));
}

TEST_F(OptimizationPage, OnlyAProposedChangeAboveZeroOfItsOwnSpinStepsDown) {
    struct {
        UINT sender;
        int change;
        const wchar_t* expected;
    } const cases[] = {
        {kSpin, 1, L"3"}, {kSpin, 0, L"5"}, {kSpin, -7, L"5"}, {kThreshold, 1, L"4"}, {kSwap, -1, L"4"}};
    for (const auto& proposal : cases) {
        OpenOnNumbers(1, 4);
        NMUPDOWN notification{};
        notification.hdr = {
            .hwndFrom = page.Control(proposal.sender), .idFrom = proposal.sender, .code = UDN_DELTAPOS};
        notification.iDelta = proposal.change;
        SendMessageW(page.Handle(), WM_NOTIFY, proposal.sender, reinterpret_cast<LPARAM>(&notification));
        EXPECT_EQ(page.Text(kThreshold), proposal.expected) << proposal.sender << " " << proposal.change;
    }
}

TEST_F(OptimizationPage, ATypedThresholdOutsideTheRangeIsRefusedAndKeepsTheFocus) {
    for (const wchar_t* const typed : {L"0", L"9", L"-1", L"", L"99999999999"}) {
        OpenOnNumbers(1, 3);
        page.EnterTextAndLeave(kThreshold, typed, kSwap);
        EXPECT_EQ(page.Text(kThreshold), L"3") << typed;
        EXPECT_EQ(dialog->Focused(), page.Control(kThreshold)) << typed;
    }
}

TEST_F(OptimizationPage, TheLimitsThemselvesCanBeTyped) {
    OpenOnNumbers(1, 3);
    for (const int typed : {1, 8}) {
        page.EnterTextAndLeave(kThreshold, std::to_wstring(typed), kSwap);
        dialog->Apply();
        EXPECT_EQ(Record().SwapToDisk.Megabytes, typed);
    }
}

TEST_F(OptimizationPage, ApplyKeepsTheFirstChangeWhenTheSecondIsCancelled) {
    OpenOnNumbers(1, 5);
    page.Choose(kBlendMode, L"Screen");
    dialog->Apply();
    EXPECT_FALSE(dialog->IsApplyEnabled());
    page.Choose(kBlendMode, L"Overlay");
    page.Click(kSwap);
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(Record().BlendMode, 2);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 5);
}

TEST_F(OptimizationPage, EveryValueReachesTheRegistryAfterOk) {
    OpenOnNumbers(0, 5);
    page.Choose(kBlendMode, L"SoftLight");
    page.Choose(kDeTessellation, L"None");
    page.Click(kNoTransparency);
    page.Click(kNoMaskedImages);
    page.Click(kOptimizeImages);
    page.EnterTextAndLeave(kThreshold, L"6", kSwap);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(StoredNumber("Optimization.BlendMode"), 9);
    EXPECT_EQ(StoredNumber("Optimization.DeTessellation"), 0);
    EXPECT_EQ(StoredNumber("Optimization.NoTransparency"), 1);
    EXPECT_EQ(StoredNumber("Optimization.NoMaskedImages"), 1);
    EXPECT_EQ(StoredNumber("Optimization.OptimizeImages"), 1);
    EXPECT_EQ(StoredNumber("Optimization.SwapToDisk"), 6);
}

TEST_F(OptimizationPage, TabGoesRoundThePage) {
    OpenOnNumbers(1, 5);
    const std::vector<UINT> ring = {kBlendMode,      kDeTessellation, kNoTransparency, kNoMaskedImages,
                                    kOptimizeImages, kSwap,           kThreshold,      kBlendMode};
    for (size_t index = 0; index + 1 < ring.size(); ++index) {
        PressTabAt(ring[index]);
        EXPECT_TRUE(dialog->FocusReaches(page.Control(ring[index + 1]))) << ring[index];
    }
}

TEST_F(OptimizationPage, TabPassesOverTheDisabledThreshold) {
    OpenOnNumbers(1, 0);
    PressTabAt(kSwap);
    EXPECT_TRUE(FocusReaches(kBlendMode));
}

TEST_F(OptimizationPage, EnterMovesOnLikeTab) {
    OpenOnNumbers(1, 5);
    page.Focus(kThreshold);
    ASSERT_TRUE(FocusReaches(kThreshold));
    dialog->PressKey(VK_RETURN);
    EXPECT_TRUE(FocusReaches(kBlendMode));
}

TEST_F(OptimizationPage, TextsAndItemsAreTranslatedWhileTheStoredValuesStay) {
    const LanguageFolder folder({{L"Screen", L"Negativ multiplizieren"},
                                 {L"Swap to Disk Images Larger Than:", L"Auslagern ab:"},
                                 {L"Simple", L"Einfach"}});
    OpenOn(settings, kGerman);
    EXPECT_EQ(page.Text(kSwap), L"Auslagern ab:");
    EXPECT_EQ(page.Selected(kDeTessellation), L"Einfach");
    ASSERT_TRUE(page.Choose(kBlendMode, L"Negativ multiplizieren"));
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(Record().BlendMode, 2);
    EXPECT_EQ(Record().DeTessellation, 1);
}

TEST_F(OptimizationPage, OfTwoItemsWithTheSameTranslationTheFirstOnesValueIsStored) {
    const LanguageFolder folder({{L"Darken", L"Abdunkeln"}, {L"ColorBurn", L"Abdunkeln"}});
    settings.SetNumber("Optimization.BlendMode", 7);
    OpenOn(settings, kGerman);
    EXPECT_EQ(page.Selected(kBlendMode), L"Abdunkeln");
    page.Click(kNoTransparency);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(Record().BlendMode, 4);
}

}  // namespace
}  // namespace vmk::test
