#include "resources/ids/compression.h"

#include <gtest/gtest.h>

#include "tests/support/language_folder.h"
#include "tests/support/page_fixture.h"

namespace vmk::test {
namespace {

constexpr wchar_t kName[] = L"Compression";

const std::vector<UINT> kQualityControls = {IDC_COMPRESSION_QUALITY, IDC_COMPRESSION_QUALITY_SPIN,
                                            IDC_COMPRESSION_QUALITY_LABEL, IDC_COMPRESSION_QUALITY_UNIT};
const std::vector<UINT> kImageControls = {257, 249, 250, 251, 258, 259, 260, 261, 262, 253, 264, 263, 255};
const std::vector<UINT> kSwitches = {IDC_COMPRESSION_GRAPHICS, IDC_COMPRESSION_ASCII, IDC_COMPRESSION_TEXT};
const std::vector<UINT> kLists = {IDC_COMPRESSION_COLOR_METHOD, IDC_COMPRESSION_INDEXED_METHOD,
                                  IDC_COMPRESSION_MONO_METHOD};

const std::vector<std::wstring> kColorMethods = {L"None",     L"Auto",      L"JPEG",         L"ZIP",
                                                 L"JPEG/ZIP", L"JPEG 2000", L"JPEG 2000/ZIP"};
const std::vector<std::wstring> kIndexedMethods = {L"None", L"Auto", L"Run Length", L"ZIP", L"LZW"};
const std::vector<std::wstring> kMonoMethods = {L"None",          L"Auto",       L"ZIP",   L"CCITT Group 3",
                                                L"CCITT Group 4", L"Run Length", L"JBIG 2"};

std::vector<std::int32_t> Methods(const PrinterSettings& settings) {
    const auto& group = settings.Compression;
    return {group.Color.Method, group.Indexed.Method, group.Mono.Method};
}

std::vector<std::int32_t> Switches(const PrinterSettings& settings) {
    const auto& group = settings.Compression;
    return {group.Graphics, group.ASCII, group.Text};
}

class CompressionPage : public PageTest {
  protected:
    CompressionPage() : PageTest(page_bit::kCompression) {}

    void CheckTheQualityIs(std::int32_t expected) const {
        EXPECT_EQ(page.Text(IDC_COMPRESSION_QUALITY), std::to_wstring(expected));
        dialog->Apply();
        EXPECT_EQ(dialog->Record().Compression.Color.JPEGQuality, expected);
    }
};

TEST_F(CompressionPage, HoldsItsControlsInTabOrder) {
    Open();
    EXPECT_EQ(ControlIds(page), (std::vector<int>{204, 245, 246, 247, 257, 258, 249, 259, 250, 251, 260, 261,
                                                  262, 253, 264, 263, 255, 256}));
    EXPECT_EQ(BuddyOf(page, IDC_COMPRESSION_QUALITY_SPIN), IDC_COMPRESSION_QUALITY);
    EXPECT_EQ(dialog->Page(kName).Handle(), page.Handle());
}

TEST_F(CompressionPage, LabelsItsControls) {
    Open();
    CheckTexts({{204, L"General"},
                {245, L"Compress Graphics"},
                {246, L"ASCII format (Larger File)"},
                {247, L"Compress Text"},
                {257, L"High Color/Grayscale Images"},
                {258, L"Compress Using:"},
                {259, L"JPEG Quality:"},
                {260, L"%"},
                {261, L"Indexed Images"},
                {262, L"Compress Using:"},
                {264, L"Monochrome Images"},
                {263, L"Compress Using:"},
                {256, L"Default"}});
}

TEST_F(CompressionPage, ShowsTheStoredValuesAndApplyStaysDisabled) {
    stored.Compression.ASCII = 1;
    stored.Compression.Text = 0;
    stored.Compression.Color.Method = 4;
    stored.Compression.Color.JPEGQuality = 33;
    stored.Compression.Indexed.Method = 2;
    stored.Compression.Mono.Method = 6;
    Open();
    EXPECT_TRUE(page.IsChecked(IDC_COMPRESSION_GRAPHICS));
    EXPECT_TRUE(page.IsChecked(IDC_COMPRESSION_ASCII));
    EXPECT_FALSE(page.IsChecked(IDC_COMPRESSION_TEXT));
    EXPECT_EQ(page.Selected(IDC_COMPRESSION_COLOR_METHOD), L"JPEG/ZIP");
    EXPECT_EQ(page.Text(IDC_COMPRESSION_QUALITY), L"33");
    EXPECT_EQ(page.Selected(IDC_COMPRESSION_INDEXED_METHOD), L"Run Length");
    EXPECT_EQ(page.Selected(IDC_COMPRESSION_MONO_METHOD), L"JBIG 2");
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(CompressionPage, OffersTheMethodsOfEachKindOfImage) {
    Open();
    EXPECT_EQ(page.Items(IDC_COMPRESSION_COLOR_METHOD), kColorMethods);
    EXPECT_EQ(page.Items(IDC_COMPRESSION_INDEXED_METHOD), kIndexedMethods);
    EXPECT_EQ(page.Items(IDC_COMPRESSION_MONO_METHOD), kMonoMethods);
}

TEST_F(CompressionPage, EveryMethodStoresTheValueItHasInItsOwnList) {
    Open();
    for (size_t list = 0; list < kLists.size(); ++list) {
        const std::vector<std::wstring> items = page.Items(kLists[list]);
        for (size_t value = 0; value < items.size(); ++value) {
            ASSERT_TRUE(page.Choose(kLists[list], items[value]));
            EXPECT_TRUE(dialog->IsApplyEnabled());
            dialog->Apply();
            EXPECT_EQ(Methods(dialog->Record())[list], static_cast<std::int32_t>(value)) << list;
        }
    }
}

TEST_F(CompressionPage, EachSwitchStoresItself) {
    Open();
    std::vector<std::int32_t> expected = Switches(PrinterSettings());
    for (size_t index = 0; index < kSwitches.size(); ++index) {
        for (int click = 0; click < 2; ++click) {
            page.Click(kSwitches[index]);
            EXPECT_TRUE(dialog->IsApplyEnabled());
            dialog->Apply();
            expected[index] = 1 - expected[index];
            EXPECT_EQ(Switches(dialog->Record()), expected);
        }
    }
}

TEST_F(CompressionPage, OkStoresEverySettingForTheRegistry) {
    Open();
    page.Click(IDC_COMPRESSION_ASCII);
    page.Click(IDC_COMPRESSION_TEXT);
    page.Choose(IDC_COMPRESSION_COLOR_METHOD, L"JPEG 2000");
    page.EnterTextAndLeave(IDC_COMPRESSION_QUALITY, L"20", IDC_COMPRESSION_TEXT);
    page.Choose(IDC_COMPRESSION_INDEXED_METHOD, L"LZW");
    page.Choose(IDC_COMPRESSION_MONO_METHOD, L"CCITT Group 4");
    page.Click(IDC_COMPRESSION_GRAPHICS);
    EXPECT_EQ(dialog->Ok(), 1);

    const ScratchSettings target;
    StoreInRegistry(target);
    EXPECT_EQ(target.Number("Compression.Graphics"), 0);
    EXPECT_EQ(target.Number("Compression.ASCII"), 1);
    EXPECT_EQ(target.Number("Compression.Text"), 0);
    EXPECT_EQ(target.Number("Compression.Color.Method"), 5);
    EXPECT_EQ(target.Number("Compression.Color.JPEGQuality"), 20);
    EXPECT_EQ(target.Number("Compression.Indexed.Method"), 4);
    EXPECT_EQ(target.Number("Compression.Mono.Method"), 4);
}

TEST_F(CompressionPage, CancelKeepsWhatWasAppliedAndNoMore) {
    Open();
    page.Choose(IDC_COMPRESSION_MONO_METHOD, L"ZIP");
    dialog->Apply();
    page.Choose(IDC_COMPRESSION_MONO_METHOD, L"None");
    page.Click(IDC_COMPRESSION_GRAPHICS);
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(dialog->Record().Compression.Mono.Method, 2);
    EXPECT_EQ(dialog->Record().Compression.Graphics, 1);
}

TEST_F(CompressionPage, WithoutCompressionOfGraphicsEveryImageControlIsDisabledWhateverTheMethod) {
    stored.Compression.Graphics = 0;
    for (int method = 0; method < 7; ++method) {
        stored.Compression.Color.Method = method;
        Open();
        EXPECT_FALSE(page.IsChecked(IDC_COMPRESSION_GRAPHICS));
        EXPECT_EQ(page.Selected(IDC_COMPRESSION_COLOR_METHOD), kColorMethods[static_cast<size_t>(method)]);
        EXPECT_TRUE(page.AreDisabled(kImageControls)) << method;
    }
}

TEST_F(CompressionPage, OpensWithTheQualityEnabledForEveryMethodButNone) {
    for (int method = 0; method < 7; ++method) {
        stored.Compression.Color.Method = method;
        Open();
        EXPECT_TRUE(method == 0 ? page.AreDisabled(kQualityControls) : page.AreEnabled(kImageControls))
            << method;
    }
}

TEST_F(CompressionPage, ChoosingNoneDisablesTheQualityAndEveryOtherMethodEnablesIt) {
    Open();
    for (size_t method = 1; method < kColorMethods.size(); ++method) {
        page.Choose(IDC_COMPRESSION_COLOR_METHOD, L"None");
        EXPECT_TRUE(page.AreDisabled(kQualityControls));
        page.Choose(IDC_COMPRESSION_COLOR_METHOD, kColorMethods[method]);
        EXPECT_TRUE(page.AreEnabled(kQualityControls)) << method;
    }
}

TEST_F(CompressionPage, TheMethodsOfOtherImagesLeaveTheQualityAlone) {
    Open();
    page.Choose(IDC_COMPRESSION_INDEXED_METHOD, L"None");
    page.Choose(IDC_COMPRESSION_MONO_METHOD, L"None");
    EXPECT_TRUE(page.AreEnabled(kImageControls));
}

TEST_F(CompressionPage, SwitchingGraphicsOffAndOnLeavesTheQualityToTheMethod) {
    stored.Compression.Color.Method = 0;
    Open();
    page.Click(IDC_COMPRESSION_GRAPHICS);
    EXPECT_TRUE(page.AreDisabled(kImageControls));
    page.Click(IDC_COMPRESSION_GRAPHICS);
    EXPECT_TRUE(page.AreDisabled(kQualityControls));
    EXPECT_TRUE(page.AreEnabled(kLists));
    EXPECT_TRUE(dialog->IsApplyEnabled());

    page.Choose(IDC_COMPRESSION_COLOR_METHOD, L"ZIP");
    page.Click(IDC_COMPRESSION_GRAPHICS);
    page.Click(IDC_COMPRESSION_GRAPHICS);
    EXPECT_TRUE(page.AreEnabled(kImageControls));
}

TEST_F(CompressionPage, ValuesOfDisabledControlsAreStoredAsTheyStand) {
    stored.Compression.Color = {.Method = 3, .JPEGQuality = 12};
    Open();
    page.Click(IDC_COMPRESSION_GRAPHICS);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Compression.Graphics, 0);
    EXPECT_EQ(dialog->Record().Compression.Color.Method, 3);
    EXPECT_EQ(dialog->Record().Compression.Color.JPEGQuality, 12);
}

TEST_F(CompressionPage, AQualityOutsideItsLimitsGivesWayToTheLastStoredOne) {
    Open();
    page.EnterTextAndLeave(IDC_COMPRESSION_QUALITY, L"60", IDC_COMPRESSION_TEXT);
    for (const wchar_t* refused : {L"0", L"101", L"", L"99999999999"}) {
        page.EnterTextAndLeave(IDC_COMPRESSION_QUALITY, refused, IDC_COMPRESSION_TEXT);
        EXPECT_EQ(page.Text(IDC_COMPRESSION_QUALITY), L"75") << refused;
        EXPECT_TRUE(FocusReaches(IDC_COMPRESSION_QUALITY));
    }
    for (const wchar_t* accepted : {L"1", L"100"}) {
        page.EnterTextAndLeave(IDC_COMPRESSION_QUALITY, accepted, IDC_COMPRESSION_TEXT);
        CheckTheQualityIs(std::stoi(accepted));
    }
    page.EnterTextAndLeave(IDC_COMPRESSION_QUALITY, L"101", IDC_COMPRESSION_TEXT);
    EXPECT_EQ(page.Text(IDC_COMPRESSION_QUALITY), L"100");
}

TEST_F(CompressionPage, TheArrowsStepTheQualityByOneWithinItsLimits) {
    stored.Compression.Color.JPEGQuality = 99;
    Open();
    page.SpinUp(IDC_COMPRESSION_QUALITY_SPIN);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    CheckTheQualityIs(100);
    page.SpinUp(IDC_COMPRESSION_QUALITY_SPIN);
    CheckTheQualityIs(100);
    page.SpinDown(IDC_COMPRESSION_QUALITY_SPIN);
    CheckTheQualityIs(99);

    page.EnterText(IDC_COMPRESSION_QUALITY, L"2");
    for (const int expected : {1, 1}) {
        page.SpinDown(IDC_COMPRESSION_QUALITY_SPIN);
        CheckTheQualityIs(expected);
    }
    page.EnterText(IDC_COMPRESSION_QUALITY, L"5000");
    page.SpinDown(IDC_COMPRESSION_QUALITY_SPIN);
    CheckTheQualityIs(100);
}

TEST_F(CompressionPage, DefaultShowsTheDefaultsAndEnablesApply) {
    stored.Compression = {.Graphics = 0,
                          .ASCII = 1,
                          .Text = 0,
                          .Color = {.Method = 0, .JPEGQuality = 40},
                          .Indexed = {.Method = 4},
                          .Mono = {.Method = 5}};
    Open();
    page.Click(IDC_COMPRESSION_DEFAULT);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_TRUE(page.IsChecked(IDC_COMPRESSION_GRAPHICS));
    EXPECT_FALSE(page.IsChecked(IDC_COMPRESSION_ASCII));
    EXPECT_TRUE(page.IsChecked(IDC_COMPRESSION_TEXT));
    EXPECT_EQ(page.Text(IDC_COMPRESSION_QUALITY), L"75");
    for (const UINT list : kLists) EXPECT_EQ(page.Selected(list), L"Auto");
    EXPECT_TRUE(page.AreEnabled(kImageControls));

    dialog->Apply();
    PrinterSettings::CompressionGroup expected;
    expected.Color.JPEGQuality = 40;
    EXPECT_EQ(dialog->Record().Compression, expected);
}

TEST_F(CompressionPage, TheDefaultQualityCountsOnceItsBoxHasLostTheFocus) {
    stored.Compression.Color.JPEGQuality = 40;
    Open();
    page.Click(IDC_COMPRESSION_DEFAULT);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Compression.Color.JPEGQuality, 40);

    page.Click(IDC_COMPRESSION_DEFAULT);
    page.Focus(IDC_COMPRESSION_QUALITY);
    page.Focus(IDC_COMPRESSION_DEFAULT);
    CheckTheQualityIs(75);
}

TEST_F(CompressionPage, TheArrowsStepFromTheDefaultQuality) {
    stored.Compression.Color.JPEGQuality = 40;
    Open();
    page.Click(IDC_COMPRESSION_DEFAULT);
    page.SpinUp(IDC_COMPRESSION_QUALITY_SPIN);
    CheckTheQualityIs(76);
}

TEST_F(CompressionPage, AMethodOutsideItsListSelectsNothingAndIsStoredAsMinusOne) {
    stored.Compression.Color.Method = 7;
    stored.Compression.Indexed.Method = 5;
    stored.Compression.Mono.Method = -2;
    Open();
    for (const UINT list : kLists) EXPECT_EQ(page.Selected(list), L"");
    EXPECT_TRUE(page.AreEnabled(kImageControls));
    page.Click(IDC_COMPRESSION_ASCII);
    dialog->Apply();
    EXPECT_EQ(Methods(dialog->Record()), (std::vector<std::int32_t>{-1, -1, -1}));
}

TEST_F(CompressionPage, AQualityOutsideItsLimitsIsShownAndKeptUntilItIsEdited) {
    stored.Compression.Color.JPEGQuality = 300;
    Open();
    EXPECT_EQ(page.Text(IDC_COMPRESSION_QUALITY), L"300");
    page.Click(IDC_COMPRESSION_ASCII);
    CheckTheQualityIs(300);
}

TEST_F(CompressionPage, TranslatedItemsKeepTheirValues) {
    const LanguageFolder german(Translations{{L"Compression", L"Komprimierung"},
                                             {L"None", L"Keine"},
                                             {L"Auto", L"Automatisch"},
                                             {L"Run Length", L"Laufl\x00E4nge"},
                                             {L"Compress Using:", L"Verfahren:"}});
    stored.Compression.Color.Method = 0;
    Open(kGerman);
    EXPECT_EQ(page.Text(IDC_COMPRESSION_COLOR_METHOD_LABEL), L"Verfahren:");
    EXPECT_EQ(page.Selected(IDC_COMPRESSION_COLOR_METHOD), L"Keine");
    EXPECT_TRUE(page.AreDisabled(kQualityControls));
    EXPECT_EQ(page.Selected(IDC_COMPRESSION_MONO_METHOD), L"Automatisch");
    ASSERT_TRUE(page.Choose(IDC_COMPRESSION_INDEXED_METHOD, L"Laufl\x00E4nge"));
    ASSERT_TRUE(page.Choose(IDC_COMPRESSION_MONO_METHOD, L"Laufl\x00E4nge"));
    dialog->Apply();
    EXPECT_EQ(Methods(dialog->Record()), (std::vector<std::int32_t>{0, 2, 5}));
}

TEST_F(CompressionPage, OfTwoMethodsWithTheSameTranslationTheFirstIsStored) {
    const LanguageFolder german(Translations{{L"ZIP", L"Packen"}, {L"JPEG/ZIP", L"Packen"}});
    stored.Compression.Color.Method = 4;
    Open(kGerman);
    EXPECT_EQ(page.Selected(IDC_COMPRESSION_COLOR_METHOD), L"Packen");
    page.Click(IDC_COMPRESSION_ASCII);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Compression.Color.Method, 3);
}

TEST_F(CompressionPage, TabAndEnterVisitTheControlsInOrder) {
    Open();
    const std::vector<int> all = {246, 247, 249, 250, 253, 255, 256};
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_COMPRESSION_GRAPHICS, all.size()), all);
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_COMPRESSION_GRAPHICS, all.size(), VK_RETURN), all);

    page.Choose(IDC_COMPRESSION_COLOR_METHOD, L"None");
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_COMPRESSION_COLOR_METHOD, 1),
              std::vector<int>{IDC_COMPRESSION_INDEXED_METHOD});
    page.Click(IDC_COMPRESSION_GRAPHICS);
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_COMPRESSION_TEXT, 1), std::vector<int>{IDC_COMPRESSION_DEFAULT});
}

}  // namespace
}  // namespace vmk::test
