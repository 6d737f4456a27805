#include "tests/eyes/accessibility.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "resources/ids/fonts.h"
#include "resources/ids/main.h"
#include "resources/ids/optimization.h"
#include "resources/ids/paper.h"
#include "resources/ids/save.h"
#include "tests/eyes/views.h"
#include "tests/support/language_folder.h"

// What a screen reader is told of the dialog.

namespace vmk::test {
namespace {

const Language kEnglishItself = {.name = L"Templates", .id = kEnglish, .folder = ""};

// Visits each visible control of all views, on the dialog's thread.
template <typename Visit>
void VisitControls(const LiveDialog& dialog, Visit&& visit) {
    VisitViews(dialog, [&](const std::wstring& page, const View& view) {
        dialog.Call([&](IPdfPrinterPreferences&) {
            for (const Control& control : ControlsOf(view.view, view.except)) visit(page, control);
        });
    });
}

TEST(Accessibility, SaysOfEachControlWhatItIsInUseAndOutOfUse) {
    std::wstring wrong;
    int controls = 0;
    int known = 0;
    for (const PrinterSettings& settings : {SettingsInFullUse(), PrinterSettings{}}) {
        InLanguage(
            kEnglishItself,
            [&](const LiveDialog& dialog) {
                VisitControls(dialog, [&](const std::wstring& page, const Control& control) {
                    const Accessible said = AccessibleOf(control.window);
                    const std::string what = WrongIn(said, control);
                    ++controls;
                    if (IsKnown(said)) ++known;
                    if (control.Is(ControlKind::kEdit) && !IsKnown(said)) wrong += L"unknown box: ";
                    if (!what.empty())
                        wrong += page + L" " + std::to_wstring(control.id) + L" \"" + control.text + L"\": " +
                                 std::wstring(what.begin(), what.end()) + L"\n";
                });
            },
            settings);
    }
    std::printf("figures: %d controls, of %d of which the library knows the class\n", controls, known);
    EXPECT_EQ(wrong, L"");
    // At least the boxes to type in.
    EXPECT_GT(known, 50);
}

// Controls whose label is out of sight, in the order in which they are seen.
struct Named {
    std::wstring page;
    int id;
    std::wstring name;

    bool operator==(const Named&) const = default;
};

const std::vector<Named> kNamedOutOfSight = {
    {L"Dialog", IDC_NAVIGATOR_LIST, L"Pages"},
    {L"Paper", IDC_PAPER_ORDER_OF_TWO, L"Page Order:"},
    {L"Paper", IDC_PAPER_ORDER_OF_MORE, L"Page Order:"},
    {L"Fonts", IDC_FONTS_ALWAYS, L"Always Embed Fonts:"},
    {L"Fonts", IDC_FONTS_NEVER, L"Never Embed Fonts:"},
    {L"Save", IDC_SAVE_APP, L"Application:"},
    {L"Optimization", IDC_OPTIMIZATION_SWAP_THRESHOLD, L"Swap to Disk Images Larger Than:"},
    {L"Optimization", IDC_OPTIMIZATION_SWAP_SPIN, L"Swap to Disk Images Larger Than:"},
};

// Those of these controls that a dialog shows, with the names that they have there.
std::vector<Named> NamesOutOfSight(const LiveDialog& dialog) {
    std::vector<Named> named;
    VisitControls(dialog, [&](const std::wstring& page, const Control& control) {
        for (const Named& row : kNamedOutOfSight) {
            if (row.page != page || row.id != control.id) continue;
            const Named found = {.page = page, .id = control.id, .name = NameOf(control.window)};
            if (std::ranges::find(named, found) == named.end()) named.push_back(found);
        }
    });
    return named;
}

TEST(NamesOutOfSight, AreThoseOfTheLabelsThatStandElsewhere) {
    InLanguage(kEnglishItself,
               [](const LiveDialog& dialog) { EXPECT_TRUE(NamesOutOfSight(dialog) == kNamedOutOfSight); });
}

TEST(NamesOutOfSight, AreTranslated) {
    Translations german;
    std::vector<Named> expected = kNamedOutOfSight;
    for (Named& row : expected) {
        german.emplace_back(row.name, L"_" + row.name);
        row.name.insert(0, L"_");
    }
    const LanguageFolder folder(german);
    const ScratchSettings settings;
    settings.Store(SettingsInFullUse());
    const LiveDialog dialog({.language = kGerman, .settings = &settings});
    EXPECT_TRUE(NamesOutOfSight(dialog) == expected);
}

}  // namespace
}  // namespace vmk::test
