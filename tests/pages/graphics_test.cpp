#include "resources/ids/graphics.h"

#include <gtest/gtest.h>

#include "tests/support/language_folder.h"
#include "tests/support/page_fixture.h"

namespace vmk::test {
namespace {

using Downsample = PrinterSettings::DownsampleGroup;
using Convert = PrinterSettings::ConvertGroup;

const std::vector<std::wstring> kMethods = {L"Linear Downsampling", L"Bilinear Downsampling",
                                            L"Bicubic Downsampling"};
const std::vector<std::wstring> kTargets = {L"None", L"Grayscale", L"Monochrome"};

struct DownsampleRow {
    Downsample::Images Downsample::*images;
    UINT use;
    UINT dpi;
    UINT spin;
    UINT method;
    std::vector<UINT> dependents;
};

const DownsampleRow kRows[] = {
    {&Downsample::Color, 267, 276, 277, 281, {257, 258, 259, 276, 277, 281}},
    {&Downsample::Indexed, 274, 278, 279, 282, {260, 261, 262, 278, 279, 282}},
    {&Downsample::Mono, 275, 280, 225, 283, {264, 263, 268, 280, 225, 283}},
};

struct Conversion {
    UINT to;
    std::vector<UINT> dependents;
};

const Conversion kConversions[] = {{226, {287}}, {227, {288}}, {228, {273, 229, 230}}};

std::vector<std::int32_t> Targets(const PrinterSettings& settings) {
    return {settings.Convert.Color.To, settings.Convert.Indexed.To, settings.Convert.Drawing.To};
}

class GraphicsPage : public PageTest {
  protected:
    GraphicsPage() : PageTest(page_bit::kGraphics) {}

    // Opens the page with everything in use, so that every control is enabled.
    void OpenInFullUse(LANGID language = kEnglish) {
        for (const DownsampleRow& row : kRows) (stored.Downsample.*row.images).Use = 1;
        stored.Convert.Color.To = stored.Convert.Indexed.To = stored.Convert.Drawing.To = 2;
        Open(language);
    }

    void CheckTheThresholdIs(std::int32_t expected) const {
        EXPECT_EQ(page.Text(IDC_GRAPHICS_THRESHOLD), std::to_wstring(expected));
        dialog->Apply();
        EXPECT_EQ(dialog->Record().Convert.Drawing.Threshold, expected);
    }
};

TEST_F(GraphicsPage, HoldsItsControlsInTabOrder) {
    Open();
    EXPECT_EQ(ControlIds(page), (std::vector<int>{204, 267, 257, 276, 277, 258, 259, 281, 274, 260, 278, 279,
                                                  261, 262, 282, 275, 264, 280, 225, 263, 268, 283, 269, 270,
                                                  226, 287, 271, 227, 288, 272, 228, 273, 229, 230}));
    for (const DownsampleRow& row : kRows) EXPECT_EQ(BuddyOf(page, row.spin), static_cast<int>(row.dpi));
    EXPECT_EQ(BuddyOf(page, IDC_GRAPHICS_THRESHOLD_SPIN), IDC_GRAPHICS_THRESHOLD);
}

TEST_F(GraphicsPage, LabelsItsControls) {
    Open();
    CheckTexts({{204, L"Downsampling Images"},
                {267, L"Downsample High Color/Grayscale Images"},
                {257, L"To:"},
                {258, L"dpi"},
                {259, L"Using:"},
                {274, L"Downsample Indexed Images"},
                {260, L"To:"},
                {261, L"dpi"},
                {262, L"Using:"},
                {275, L"Downsample Monochrome Images"},
                {264, L"To:"},
                {263, L"dpi"},
                {268, L"Using:"},
                {269, L"Conversion"},
                {270, L"Convert High Color/Grayscale Images"},
                {287, L"Use Dithering"},
                {271, L"Convert Indexed Images"},
                {288, L"Use Dithering"},
                {272, L"Convert Text/LineArts"},
                {273, L"Threshold:"}});
}

TEST_F(GraphicsPage, OpensWithTheDefaultsWhenNothingIsStored) {
    OpenOn(settings);
    for (const DownsampleRow& row : kRows) {
        EXPECT_FALSE(page.IsChecked(row.use));
        EXPECT_TRUE(page.AreDisabled(row.dependents));
        EXPECT_EQ(page.Text(row.dpi), L"96");
        EXPECT_EQ(page.Selected(row.method), L"Bicubic Downsampling");
    }
    for (const Conversion& conversion : kConversions) {
        EXPECT_EQ(page.Selected(conversion.to), L"None");
        EXPECT_TRUE(page.AreDisabled(conversion.dependents));
    }
    EXPECT_TRUE(page.IsChecked(IDC_GRAPHICS_DITHER_COLOR));
    EXPECT_TRUE(page.IsChecked(IDC_GRAPHICS_DITHER_INDEXED));
    EXPECT_EQ(page.Text(IDC_GRAPHICS_THRESHOLD), L"128");
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(GraphicsPage, ShowsTheStoredValues) {
    for (const DownsampleRow& row : kRows) {
        stored.Downsample = {};
        stored.Downsample.*row.images = {.Use = 1, .DPI = 600, .Method = 1};
        Open();
        for (const DownsampleRow& other : kRows) {
            const bool own = other.use == row.use;
            EXPECT_EQ(page.IsChecked(other.use), own);
            EXPECT_TRUE(own ? page.AreEnabled(other.dependents) : page.AreDisabled(other.dependents));
            EXPECT_EQ(page.Text(other.dpi), own ? L"600" : L"96");
            EXPECT_EQ(page.Selected(other.method), kMethods[own ? 1 : 2]);
        }
    }
}

TEST_F(GraphicsPage, ShowsTheStoredConversions) {
    for (std::int32_t shift = 0; shift < 3; ++shift) {
        const std::vector<std::int32_t> targets = {shift, (shift + 1) % 3, (shift + 2) % 3};
        stored.Convert = {.Color = {.To = targets[0], .Dither = shift & 1},
                          .Indexed = {.To = targets[1], .Dither = 1 - (shift & 1)},
                          .Drawing = {.To = targets[2], .Threshold = 7}};
        Open();
        for (size_t index = 0; index < 3; ++index) {
            const Conversion& conversion = kConversions[index];
            EXPECT_EQ(page.Selected(conversion.to), kTargets[static_cast<size_t>(targets[index])]);
            EXPECT_TRUE(targets[index] == 2 ? page.AreEnabled(conversion.dependents)
                                            : page.AreDisabled(conversion.dependents));
        }
        EXPECT_EQ(page.IsChecked(IDC_GRAPHICS_DITHER_COLOR), (shift & 1) != 0);
        EXPECT_EQ(page.IsChecked(IDC_GRAPHICS_DITHER_INDEXED), (shift & 1) == 0);
        EXPECT_EQ(page.Text(IDC_GRAPHICS_THRESHOLD), L"7");
    }
}

TEST_F(GraphicsPage, EverySwitchControlsItsOwnRowAndStoresItself) {
    Open();
    for (const DownsampleRow& row : kRows) {
        page.Click(row.use);
        EXPECT_TRUE(page.AreEnabled(row.dependents));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        dialog->Apply();
        PrinterSettings expected;
        (expected.Downsample.*row.images).Use = 1;
        EXPECT_EQ(dialog->Record().Downsample, expected.Downsample);
        for (const DownsampleRow& other : kRows)
            EXPECT_EQ(page.AreDisabled(other.dependents), other.use != row.use);
        page.Click(row.use);
        EXPECT_TRUE(page.AreDisabled(row.dependents));
    }
}

TEST_F(GraphicsPage, EveryMethodStoresItsValue) {
    OpenInFullUse();
    for (const DownsampleRow& row : kRows) {
        EXPECT_EQ(page.Items(row.method), kMethods);
        for (std::int32_t value = 0; value < 3; ++value) {
            ASSERT_TRUE(page.Choose(row.method, kMethods[static_cast<size_t>(value)]));
            EXPECT_TRUE(dialog->IsApplyEnabled());
            dialog->Apply();
            EXPECT_EQ((dialog->Record().Downsample.*row.images).Method, value);
        }
    }
}

TEST_F(GraphicsPage, EveryTargetStoresItsValueAndEnablesWhatBelongsToMonochrome) {
    Open();
    for (size_t index = 0; index < 3; ++index) {
        const Conversion& conversion = kConversions[index];
        EXPECT_EQ(page.Items(conversion.to), kTargets);
        for (const std::int32_t value : {2, 1, 2, 0}) {
            ASSERT_TRUE(page.Choose(conversion.to, kTargets[static_cast<size_t>(value)]));
            EXPECT_TRUE(value == 2 ? page.AreEnabled(conversion.dependents)
                                   : page.AreDisabled(conversion.dependents));
            EXPECT_TRUE(dialog->IsApplyEnabled());
            dialog->Apply();
            EXPECT_EQ(Targets(dialog->Record())[index], value);
        }
    }
}

TEST_F(GraphicsPage, DitheringStoresItself) {
    OpenInFullUse();
    page.Click(IDC_GRAPHICS_DITHER_COLOR);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Convert.Color.Dither, 0);
    EXPECT_EQ(dialog->Record().Convert.Indexed.Dither, 1);
    page.Click(IDC_GRAPHICS_DITHER_COLOR);
    page.Click(IDC_GRAPHICS_DITHER_INDEXED);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Convert.Color.Dither, 1);
    EXPECT_EQ(dialog->Record().Convert.Indexed.Dither, 0);
}

TEST_F(GraphicsPage, LeavingMonochromeKeepsTheThreshold) {
    OpenInFullUse();
    page.EnterTextAndLeave(IDC_GRAPHICS_THRESHOLD, L"200", IDC_GRAPHICS_CONVERT_DRAWING);
    page.Choose(IDC_GRAPHICS_CONVERT_DRAWING, L"Grayscale");
    EXPECT_TRUE(page.AreDisabled(kConversions[2].dependents));
    CheckTheThresholdIs(200);
}

TEST_F(GraphicsPage, UncheckingASwitchStoresItsRowAsItStands) {
    OpenInFullUse();
    page.EnterTextAndLeave(IDC_GRAPHICS_MONO_DPI, L"1200", IDC_GRAPHICS_MONO_METHOD);
    page.Choose(IDC_GRAPHICS_MONO_METHOD, L"Linear Downsampling");
    page.Click(IDC_GRAPHICS_MONO_USE);
    EXPECT_TRUE(page.AreDisabled(kRows[2].dependents));
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(dialog->Record().Downsample.Mono, (Downsample::Images{.Use = 0, .DPI = 1200, .Method = 0}));
}

TEST_F(GraphicsPage, TheArrowsStepEachResolutionByTenWithinItsLimits) {
    OpenInFullUse();
    for (const DownsampleRow& row : kRows) {
        const auto checkAfter = [&](bool up, std::int32_t expected) {
            up ? page.SpinUp(row.spin) : page.SpinDown(row.spin);
            EXPECT_EQ(page.Text(row.dpi), std::to_wstring(expected));
            EXPECT_TRUE(dialog->IsApplyEnabled());
            dialog->Apply();
            EXPECT_EQ((dialog->Record().Downsample.*row.images).DPI, expected);
        };
        checkAfter(true, 106);
        page.EnterText(row.dpi, L"2395");
        checkAfter(true, 2400);
        checkAfter(true, 2400);
        checkAfter(false, 2390);
        page.EnterText(row.dpi, L"55");
        checkAfter(false, 50);
        checkAfter(false, 50);
    }
}

TEST_F(GraphicsPage, TheArrowsStepTheThresholdByFiveWithinItsLimits) {
    stored.Convert.Drawing.Threshold = 3;
    OpenInFullUse();
    page.SpinDown(IDC_GRAPHICS_THRESHOLD_SPIN);
    CheckTheThresholdIs(1);
    page.SpinUp(IDC_GRAPHICS_THRESHOLD_SPIN);
    CheckTheThresholdIs(6);
    page.EnterText(IDC_GRAPHICS_THRESHOLD, L"254");
    page.SpinUp(IDC_GRAPHICS_THRESHOLD_SPIN);
    CheckTheThresholdIs(255);
}

TEST_F(GraphicsPage, NumbersOutsideTheirLimitsGiveWayToTheStoredOnes) {
    OpenInFullUse();
    struct Limits {
        UINT id;
        std::wstring stored;
        std::vector<std::wstring> refused;
        std::vector<std::wstring> accepted;
    };
    std::vector<Limits> boxes = {{IDC_GRAPHICS_THRESHOLD, L"128", {L"0", L"256", L""}, {L"1", L"255"}}};
    for (const DownsampleRow& row : kRows)
        boxes.push_back({row.dpi, L"96", {L"49", L"2401", L""}, {L"50", L"2400"}});
    for (const Limits& box : boxes) {
        for (const std::wstring& text : box.refused) {
            page.EnterTextAndLeave(box.id, text, IDC_GRAPHICS_CONVERT_COLOR);
            EXPECT_EQ(page.Text(box.id), box.stored);
            EXPECT_TRUE(dialog->FocusReaches(page.Control(box.id)));
        }
        for (const std::wstring& text : box.accepted) {
            page.EnterTextAndLeave(box.id, text, IDC_GRAPHICS_CONVERT_COLOR);
            EXPECT_EQ(page.Text(box.id), text);
            EXPECT_EQ(dialog->Focused(), page.Control(IDC_GRAPHICS_CONVERT_COLOR));
        }
    }
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Downsample.Color.DPI, 2400);
    EXPECT_EQ(dialog->Record().Downsample.Indexed.DPI, 2400);
    EXPECT_EQ(dialog->Record().Downsample.Mono.DPI, 2400);
    EXPECT_EQ(dialog->Record().Convert.Drawing.Threshold, 255);
}

TEST_F(GraphicsPage, ValuesOutsideTheListsSelectNothingAndAreStoredAsMinusOne) {
    for (const DownsampleRow& row : kRows) stored.Downsample.*row.images = {.Use = 1, .DPI = 20, .Method = 3};
    stored.Convert.Color.To = stored.Convert.Indexed.To = stored.Convert.Drawing.To = 3;
    Open();
    for (const DownsampleRow& row : kRows) EXPECT_EQ(page.Selected(row.method), L"");
    for (const Conversion& conversion : kConversions) EXPECT_EQ(page.Selected(conversion.to), L"");
    page.Click(IDC_GRAPHICS_COLOR_USE);
    dialog->Apply();
    for (const DownsampleRow& row : kRows) {
        const Downsample::Images images = dialog->Record().Downsample.*row.images;
        EXPECT_EQ(images.Method, -1);
        EXPECT_EQ(images.DPI, 20) << "a number outside the limits is kept until it is edited";
    }
    EXPECT_EQ(Targets(dialog->Record()), (std::vector<std::int32_t>{-1, -1, -1}));
}

TEST_F(GraphicsPage, OkStoresEverySettingForTheRegistry) {
    OpenInFullUse();
    const wchar_t* resolutions[] = {L"72", L"150", L"300"};
    for (size_t index = 0; index < 3; ++index) {
        page.EnterTextAndLeave(kRows[index].dpi, resolutions[index], kRows[index].method);
        page.Choose(kRows[index].method, kMethods[index]);
        page.Choose(kConversions[index].to, kTargets[index]);
    }
    page.Click(IDC_GRAPHICS_INDEXED_USE);
    EXPECT_EQ(dialog->Ok(), 1);

    const ScratchSettings target;
    StoreInRegistry(target);
    const std::vector<std::pair<const char*, int>> expected = {
        {"Downsample.Color.Use", 1},   {"Downsample.Color.DPI", 72},    {"Downsample.Color.Method", 0},
        {"Downsample.Indexed.Use", 0}, {"Downsample.Indexed.DPI", 150}, {"Downsample.Indexed.Method", 1},
        {"Downsample.Mono.Use", 1},    {"Downsample.Mono.DPI", 300},    {"Downsample.Mono.Method", 2},
        {"Convert.Color.To", 0},       {"Convert.Color.Dither", 1},     {"Convert.Indexed.To", 1},
        {"Convert.Indexed.Dither", 1}, {"Convert.Drawing.To", 2},       {"Convert.Drawing.Threshold", 128}};
    for (const auto& [name, value] : expected) EXPECT_EQ(target.Number(name), value) << name;
}

TEST_F(GraphicsPage, CancelKeepsWhatWasAppliedAndNoMore) {
    Open();
    page.Click(IDC_GRAPHICS_COLOR_USE);
    dialog->Apply();
    page.Click(IDC_GRAPHICS_MONO_USE);
    page.Choose(IDC_GRAPHICS_CONVERT_COLOR, L"Monochrome");
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(dialog->Record().Downsample.Color.Use, 1);
    EXPECT_EQ(dialog->Record().Downsample.Mono.Use, 0);
    EXPECT_EQ(dialog->Record().Convert.Color.To, 0);
}

TEST_F(GraphicsPage, OkClosesEvenWhileANumberIsRefused) {
    stored.Downsample.Color.Use = 1;
    Open();
    page.Focus(IDC_GRAPHICS_COLOR_DPI);
    dialog->TypeText(L"9999");
    EXPECT_TRUE(WaitUntil([&] { return page.Text(IDC_GRAPHICS_COLOR_DPI).find(L"9999") == 0; }));
    dialog->Main().MouseClick(IDOK);
    EXPECT_EQ(dialog->WaitForResult(), 1);
    EXPECT_EQ(dialog->Record().Downsample, stored.Downsample);
}

TEST_F(GraphicsPage, TranslatedItemsKeepTheirValues) {
    const LanguageFolder german(Translations{{L"Monochrome", L"Schwarzwei\x00DF"},
                                             {L"Linear Downsampling", L"Interpoliert"},
                                             {L"Bilinear Downsampling", L"Interpoliert"},
                                             {L"To:", L"Auf:"}});
    stored.Downsample.Color.Method = 1;
    OpenInFullUse(kGerman);
    EXPECT_EQ(page.Text(IDC_GRAPHICS_MONO_TO_LABEL), L"Auf:");
    EXPECT_EQ(page.Selected(IDC_GRAPHICS_CONVERT_DRAWING), L"Schwarzwei\x00DF");
    EXPECT_EQ(page.Selected(IDC_GRAPHICS_COLOR_METHOD), L"Interpoliert");
    page.Click(IDC_GRAPHICS_DITHER_COLOR);
    dialog->Apply();
    EXPECT_EQ(Targets(dialog->Record()), (std::vector<std::int32_t>{2, 2, 2}));
    EXPECT_EQ(dialog->Record().Downsample.Color.Method, 0)
        << "of two items with one text the first is stored";
}

TEST_F(GraphicsPage, TabAndEnterVisitTheControlsInOrderAndReturnToTheTop) {
    OpenInFullUse();
    const std::vector<int> ring = {276, 281, 274, 278, 282, 275, 280, 283, 226, 287, 227, 288, 228, 229, 267};
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_GRAPHICS_COLOR_USE, ring.size()), ring);
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_GRAPHICS_COLOR_USE, ring.size(), VK_RETURN), ring);
}

TEST_F(GraphicsPage, TabPassesOverDisabledControls) {
    Open();
    const std::vector<int> ring = {274, 275, 226, 227, 228, 267};
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_GRAPHICS_COLOR_USE, ring.size()), ring);
}

}  // namespace
}  // namespace vmk::test
