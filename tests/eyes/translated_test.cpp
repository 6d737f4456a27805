#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <iterator>
#include <string>
#include <vector>

#include "resources/ids/main.h"
#include "tests/eyes/control.h"
#include "tests/eyes/views.h"
#include "tests/support/window_search.h"

// In the made-up language every text of the dialog is in brackets. One that is not was missed by the list of
// texts that translators get.

namespace vmk::test {
namespace {

bool IsToBeTranslated(const std::wstring& text) {
    return std::ranges::any_of(text, [](wchar_t c) { return std::iswalpha(c) != 0; }) &&
           text.find(L"://") == std::wstring::npos;
}

bool IsTranslated(const std::wstring& text) {
    return text.starts_with(L'[');
}

// The texts of a control that are nobody's own, those of hidden controls included.
std::vector<std::wstring> TextsOf(HWND control) {
    switch (KindOf(control)) {
        case ControlKind::kDropDownList:
        case ControlKind::kComboBox:
            return ItemsOf(control);
        case ControlKind::kPushButton:
        case ControlKind::kCheckBox:
        case ControlKind::kRadioButton:
        case ControlKind::kGroupBox:
        case ControlKind::kLabel:
            return {TextOf(control)};
        default:
            return {};
    }
}

std::vector<std::wstring> UntranslatedTextsIn(HWND window) {
    std::vector<std::wstring> found;
    for (HWND child : ChildrenOf(window)) {
        for (const std::wstring& text : TextsOf(child))
            if (IsToBeTranslated(text) && !IsTranslated(text)) found.push_back(text);
        std::ranges::move(UntranslatedTextsIn(child), std::back_inserter(found));
    }
    return found;
}

TEST(Translations, ReachEveryTextOfTheDialog) {
    const std::vector<Language> languages = Languages();
    const auto madeUp = std::ranges::find_if(languages, &Language::isMadeUp);
    ASSERT_NE(madeUp, languages.end());
    InLanguage(*madeUp, [](const LiveDialog& dialog) {
        EXPECT_TRUE(IsTranslated(dialog.Main().Text()));
        for (const std::wstring& name : dialog.PageNames()) EXPECT_TRUE(IsTranslated(name));
        int views = 0;
        VisitViews(dialog, [&](const std::wstring& page, const View& view) {
            for (const std::wstring& text : UntranslatedTextsIn(view.view))
                ADD_FAILURE() << testing::PrintToString(page) << ": " << testing::PrintToString(text);
            ++views;
        });
        EXPECT_GT(views, 17);
    });
}

TEST(Translations, ATextWithoutOneIsSeen) {
    InLanguage(Languages().front(), [](const LiveDialog& dialog) {
        const std::vector<std::wstring> found = UntranslatedTextsIn(dialog.Page(L"Watermarks").Handle());
        EXPECT_EQ(found, std::vector<std::wstring>{L"Enable Printing Watermark"});
    });
}

}  // namespace
}  // namespace vmk::test
