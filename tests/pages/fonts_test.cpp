#include "resources/ids/fonts.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "tests/support/counters.h"
#include "tests/support/language_folder.h"
#include "tests/support/page_fixture.h"
#include "tests/support/test_font.h"

namespace vmk::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

using Names = std::vector<std::wstring>;

constexpr UINT kLists[] = {IDC_FONTS_AVAILABLE, IDC_FONTS_ALWAYS, IDC_FONTS_NEVER};
constexpr UINT kMoveButtons[] = {IDC_FONTS_ADD_ALWAYS, IDC_FONTS_REMOVE_ALWAYS, IDC_FONTS_ADD_NEVER,
                                 IDC_FONTS_REMOVE_NEVER};

constexpr UINT kBoxes[] = {IDC_FONTS_EMBED_ALL, IDC_FONTS_EMBED_PROTECTED, IDC_FONTS_USE_ALWAYS,
                           IDC_FONTS_USE_NEVER};

struct Item {
    std::wstring name;
    int icon;

    bool operator==(const Item&) const = default;
};

std::vector<Item> Items(const LiveWindow& page, UINT id) {
    HWND list = page.Control(id);
    std::vector<Item> items;
    for (int index = 0; index < ListView_GetItemCount(list); ++index) {
        wchar_t name[300] = {};
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_IMAGE;
        item.iItem = index;
        item.pszText = name;
        item.cchTextMax = 300;
        SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        items.push_back({.name = name, .icon = item.iImage});
    }
    return items;
}

Names NamesIn(const LiveWindow& page, UINT id) {
    Names names;
    for (const Item& item : Items(page, id)) names.push_back(item.name);
    return names;
}

void Select(const LiveWindow& page, UINT id, const Names& wanted) {
    const Names names = NamesIn(page, id);
    for (std::size_t index = 0; index < names.size(); ++index) {
        LVITEMW state{};
        state.state = std::ranges::count(wanted, names[index]) ? LVIS_SELECTED : 0;
        state.stateMask = LVIS_SELECTED;
        SendMessageW(page.Control(id), LVM_SETITEMSTATE, index, reinterpret_cast<LPARAM>(&state));
    }
}

void Move(const LiveWindow& page, UINT source, const Names& names, UINT button) {
    Select(page, source, names);
    page.Click(button);
}

// The faces that the system has, found out in a way of its own.
struct InstalledFaces {
    std::set<std::wstring> all;
    std::set<std::wstring> withOutlines;
};

InstalledFaces Installed() {
    const auto add = [](const LOGFONTW* font, const TEXTMETRICW*, DWORD type, LPARAM parameter) -> int {
        auto& faces = *reinterpret_cast<InstalledFaces*>(parameter);
        faces.all.insert(font->lfFaceName);
        if (type & (TRUETYPE_FONTTYPE | DEVICE_FONTTYPE)) faces.withOutlines.insert(font->lfFaceName);
        return 1;
    };
    InstalledFaces faces;
    HDC screen = GetDC(nullptr);
    LOGFONTW every{};
    every.lfCharSet = DEFAULT_CHARSET;
    EnumFontFamiliesExW(screen, &every, add, reinterpret_cast<LPARAM>(&faces), 0);
    ReleaseDC(nullptr, screen);
    return faces;
}

// The page with some fonts installed that the tests are about, and the lists that its settings hold.
class FontsPage : public PageTest {
  protected:
    FontsPage() : PageTest(page_bit::kFonts) {}

    void OpenOnLists(const std::wstring& always, const std::wstring& never) {
        settings.SetText("Fonts.Embedd.Always", always);
        settings.SetText("Fonts.Embedd.Never", never);
        OpenOn(settings);
    }

    const TestFont m_arial{{.family = L"Arial"}};
    const TestFont m_symbol{{.family = L"Symbol"}};
    const TestFont m_times{{.family = L"Times"}};
};

TEST_F(FontsPage, DefaultSettingsShowTheInstalledOnesOfTheNeverList) {
    // With outlines or not: a stored name only has to exist.
    const TestFont raster({.family = L"ZapfDingbats", .kind = FontRecipe::Kind::kRaster});
    OpenWithoutLoading();
    const std::set<std::wstring> installed = Installed().all;
    Names expected;
    for (const wchar_t* const name : {L"Arial", L"Courier", L"Courier New", L"Helvetica", L"Symbol", L"Times",
                                      L"Times New Roman", L"ZapfDingbats"})
        if (installed.contains(name)) expected.emplace_back(name);
    EXPECT_THAT(expected, IsSupersetOf({L"Arial", L"Symbol", L"Times", L"ZapfDingbats"}));
    EXPECT_EQ(NamesIn(page, IDC_FONTS_NEVER), expected);
    EXPECT_THAT(NamesIn(page, IDC_FONTS_ALWAYS), IsEmpty());
    EXPECT_FALSE(page.IsChecked(IDC_FONTS_EMBED_ALL));
    EXPECT_TRUE(page.IsChecked(IDC_FONTS_EMBED_PROTECTED));
    EXPECT_FALSE(page.IsChecked(IDC_FONTS_USE_ALWAYS));
    EXPECT_TRUE(page.IsChecked(IDC_FONTS_USE_NEVER));
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(FontsPage, OffersEveryOtherInstalledFaceOnce) {
    OpenOnLists(L"", L"");
    const Names names = NamesIn(page, IDC_FONTS_AVAILABLE);
    const std::set<std::wstring> installed = Installed().withOutlines;
    EXPECT_EQ(std::set<std::wstring>(names.begin(), names.end()), installed);
    EXPECT_EQ(names.size(), installed.size());
    EXPECT_TRUE(std::ranges::is_sorted(names, [](const auto& left, const auto& right) {
        return lstrcmpW(left.c_str(), right.c_str()) < 0;
    }));
}

TEST_F(FontsPage, TheIconTellsWhatIsKnownOfTheFace) {
    const TestFont restricted({.family = L"Vmk Restricted", .embeddingLicence = 2});
    const TestFont previewOnly({.family = L"Vmk Preview", .embeddingLicence = 4});
    const TestFont vertical({.family = L"Vmk Vertical", .embeddingLicence = 2, .vertical = true});
    OpenWithoutLoading();
    EXPECT_THAT(
        Items(page, IDC_FONTS_AVAILABLE),
        IsSupersetOf({Item{.name = L"Vmk Restricted", .icon = 2}, Item{.name = L"Vmk Preview", .icon = 0},
                      Item{.name = L"Vmk Vertical", .icon = 2}, Item{.name = L"@Vmk Vertical", .icon = 0}}));
}

TEST_F(FontsPage, ARasterFontIsNotOfferedButShownForAStoredList) {
    const TestFont raster({.family = L"Vmk Raster", .kind = FontRecipe::Kind::kRaster});
    OpenOnLists(L"Vmk Raster", L"");
    EXPECT_THAT(NamesIn(page, IDC_FONTS_AVAILABLE), Not(Contains(L"Vmk Raster")));
    EXPECT_THAT(Items(page, IDC_FONTS_ALWAYS), ElementsAre(Item{.name = L"Vmk Raster", .icon = 4}));

    Move(page, IDC_FONTS_ALWAYS, {L"Vmk Raster"}, IDC_FONTS_REMOVE_ALWAYS);
    EXPECT_THAT(Items(page, IDC_FONTS_AVAILABLE), Contains(Item{.name = L"Vmk Raster", .icon = 4}));
}

TEST_F(FontsPage, ANameTwiceInAStoredListIsShownTwice) {
    OpenOnLists(L"Arial;;Arial", L"");
    EXPECT_THAT(NamesIn(page, IDC_FONTS_ALWAYS), ElementsAre(L"Arial", L"Arial"));
    EXPECT_THAT(NamesIn(page, IDC_FONTS_AVAILABLE), Not(Contains(L"Arial")));
    page.Click(IDC_FONTS_EMBED_ALL);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Fonts.Embedd.Always, L"Arial;Arial");

    // Both go back, and both can be taken again.
    Move(page, IDC_FONTS_ALWAYS, {L"Arial"}, IDC_FONTS_REMOVE_ALWAYS);
    EXPECT_EQ(std::ranges::count(NamesIn(page, IDC_FONTS_AVAILABLE), L"Arial"), 2);
}

TEST_F(FontsPage, ANameThatTheOtherListHasTakenIsShownInBoth) {
    OpenOnLists(L"Arial;Times", L"Symbol;Arial");
    EXPECT_THAT(NamesIn(page, IDC_FONTS_ALWAYS), ElementsAre(L"Arial", L"Times"));
    EXPECT_THAT(NamesIn(page, IDC_FONTS_NEVER), ElementsAre(L"Arial", L"Symbol"));
}

TEST_F(FontsPage, AStoredNameInAnotherCaseTakesTheInstalledFace) {
    OpenOnLists(L"aRIAL;ARIAL", L"arial;times");
    // What is not on offer any more is found only under its exact name.
    EXPECT_THAT(NamesIn(page, IDC_FONTS_ALWAYS), ElementsAre(L"Arial"));
    EXPECT_THAT(NamesIn(page, IDC_FONTS_NEVER), ElementsAre(L"Times"));
}

TEST_F(FontsPage, AStoredNameWithBlanksAroundItIsAnotherName) {
    OpenOnLists(L"Arial; Times", L"");
    EXPECT_THAT(NamesIn(page, IDC_FONTS_ALWAYS), ElementsAre(L"Arial"));
}

TEST_F(FontsPage, AFontThatIsNotInstalledDisappearsWithTheNextStore) {
    OpenOnLists(L"Arial;Vmk Nowhere", L"Vmk Nowhere;Times");
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Fonts.Embedd.Always, L"Arial;Vmk Nowhere");
    page.Click(IDC_FONTS_EMBED_ALL);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Fonts.Embedd.Always, L"Arial");
    EXPECT_EQ(dialog->Record().Fonts.Embedd.Never, L"Times");
}

TEST_F(FontsPage, NamesAreStoredInAscendingOrderHoweverTheyWereMoved) {
    OpenOnLists(L"", L"");
    for (const wchar_t* const name : {L"Times", L"Arial", L"Symbol"})
        Move(page, IDC_FONTS_AVAILABLE, {name}, IDC_FONTS_ADD_ALWAYS);
    EXPECT_EQ(dialog->Record().Fonts.Embedd.Always, L"");
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Fonts.Embedd.Always, L"Arial;Symbol;Times");
}

TEST_F(FontsPage, EachArrowMovesTheSelectedNamesAndTheirIcons) {
    struct Case {
        UINT button, source, target;
    };
    const TestFont restricted({.family = L"Vmk Restricted", .embeddingLicence = 2});
    OpenOnLists(L"", L"");
    for (const Case& move : {Case{IDC_FONTS_ADD_ALWAYS, IDC_FONTS_AVAILABLE, IDC_FONTS_ALWAYS},
                             Case{IDC_FONTS_REMOVE_ALWAYS, IDC_FONTS_ALWAYS, IDC_FONTS_AVAILABLE},
                             Case{IDC_FONTS_ADD_NEVER, IDC_FONTS_AVAILABLE, IDC_FONTS_NEVER},
                             Case{IDC_FONTS_REMOVE_NEVER, IDC_FONTS_NEVER, IDC_FONTS_AVAILABLE}}) {
        const std::vector<Item> before = Items(page, move.source);
        Move(page, move.source, {L"Arial", L"Vmk Restricted"}, move.button);
        EXPECT_TRUE(dialog->IsApplyEnabled()) << move.button;
        dialog->Apply();
        EXPECT_THAT(Items(page, move.target), IsSupersetOf({Item{.name = L"Arial", .icon = 0},
                                                            Item{.name = L"Vmk Restricted", .icon = 2}}))
            << move.button;
        EXPECT_EQ(Items(page, move.source).size(), before.size() - 2) << move.button;
        EXPECT_EQ(ListView_GetSelectedCount(page.Control(move.source)), 0U) << move.button;
    }
    EXPECT_EQ(dialog->Record().Fonts.Embedd.Always, L"");
    EXPECT_EQ(dialog->Record().Fonts.Embedd.Never, L"");
}

TEST_F(FontsPage, AnArrowWithNothingSelectedDoesNothing) {
    OpenOnLists(L"Arial", L"Times");
    for (const UINT button : kMoveButtons) {
        page.Click(button);
        EXPECT_FALSE(dialog->IsApplyEnabled()) << button;
    }
    EXPECT_THAT(NamesIn(page, IDC_FONTS_ALWAYS), ElementsAre(L"Arial"));
    EXPECT_THAT(NamesIn(page, IDC_FONTS_NEVER), ElementsAre(L"Times"));
}

TEST_F(FontsPage, EverythingThatIsOfferedCanBeMovedAtOnce) {
    OpenOnLists(L"", L"");
    const Names offered = NamesIn(page, IDC_FONTS_AVAILABLE);
    Move(page, IDC_FONTS_AVAILABLE, offered, IDC_FONTS_ADD_NEVER);
    EXPECT_THAT(NamesIn(page, IDC_FONTS_AVAILABLE), IsEmpty());
    EXPECT_EQ(NamesIn(page, IDC_FONTS_NEVER), offered);
}

TEST_F(FontsPage, NamesAreSelectedByKeyboardAndMovedByMouse) {
    OpenOnLists(L"Arial;Symbol;Times", L"");
    page.Focus(IDC_FONTS_ALWAYS);
    dialog->PressKey(VK_HOME);
    dialog->PressKey(VK_DOWN, {VK_SHIFT});
    ASSERT_TRUE(WaitUntil([&] { return ListView_GetSelectedCount(page.Control(IDC_FONTS_ALWAYS)) == 2; }));
    page.MouseClick(IDC_FONTS_REMOVE_ALWAYS);
    EXPECT_TRUE(WaitUntil([&] { return dialog->IsApplyEnabled(); }));
    EXPECT_THAT(NamesIn(page, IDC_FONTS_ALWAYS), ElementsAre(L"Times"));
}

TEST_F(FontsPage, DefaultShowsTheDefaultsAndStoresThemOnlyWithApply) {
    for (const char* const box : {"Fonts.Embedd.All", "Fonts.Embedd.Use_Always"}) settings.SetNumber(box, 1);
    for (const char* const box : {"Fonts.Embedd.Protected", "Fonts.Embedd.Use_Never"})
        settings.SetNumber(box, 0);
    OpenOnLists(L"Arial;Times", L"Symbol");
    const PrinterSettings before = dialog->Record();
    page.Click(IDC_FONTS_DEFAULT);
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_EQ(dialog->Record(), before);
    EXPECT_THAT(NamesIn(page, IDC_FONTS_ALWAYS), IsEmpty());
    EXPECT_THAT(NamesIn(page, IDC_FONTS_NEVER), IsSupersetOf({L"Arial", L"Symbol", L"Times"}));
    EXPECT_THAT(NamesIn(page, IDC_FONTS_AVAILABLE), Not(Contains(L"Arial")));

    dialog->Apply();
    const auto applied = dialog->Record().Fonts.Embedd;
    EXPECT_EQ(applied.All, 0);
    EXPECT_EQ(applied.Protected, 1);
    EXPECT_EQ(applied.Use_Always, 0);
    EXPECT_EQ(applied.Use_Never, 1);
    EXPECT_EQ(applied.Always, L"");
}

TEST_F(FontsPage, DefaultLooksForInstalledFontsAgain) {
    OpenWithoutLoading();
    {
        const TestFont late({.family = L"Vmk Late"});
        EXPECT_THAT(NamesIn(page, IDC_FONTS_AVAILABLE), Not(Contains(L"Vmk Late")));
        page.Click(IDC_FONTS_DEFAULT);
        EXPECT_EQ(std::ranges::count(NamesIn(page, IDC_FONTS_AVAILABLE), L"Vmk Late"), 1);
    }
    page.Click(IDC_FONTS_DEFAULT);
    EXPECT_THAT(NamesIn(page, IDC_FONTS_AVAILABLE), Not(Contains(L"Vmk Late")));
}

TEST_F(FontsPage, LookingForInstalledFontsLeavesNoGdiObjectBehind) {
    OpenWithoutLoading();
    page.Click(IDC_FONTS_DEFAULT);
    const std::size_t before = CountResources().gdiObjects;
    for (int i = 0; i < 5; ++i) page.Click(IDC_FONTS_DEFAULT);
    // While the dialog paints, there are some more for a moment.
    EXPECT_TRUE(WaitUntil([&] { return CountResources().gdiObjects <= before; }));
}

TEST_F(FontsPage, TheBoxesSwitchNothingElse) {
    OpenWithoutLoading();
    for (const UINT box : kBoxes) {
        for (int click = 0; click < 2; ++click) {
            page.Click(box);
            EXPECT_TRUE(page.AreEnabled({IDC_FONTS_AVAILABLE, IDC_FONTS_ALWAYS, IDC_FONTS_NEVER,
                                         IDC_FONTS_ADD_ALWAYS, IDC_FONTS_REMOVE_ALWAYS, IDC_FONTS_ADD_NEVER,
                                         IDC_FONTS_REMOVE_NEVER, IDC_FONTS_DEFAULT}));
        }
    }
}

TEST_F(FontsPage, TheBoxesStoreZeroOrOne) {
    struct Case {
        UINT box;
        const char* name;
    };
    for (const Case& each : {Case{IDC_FONTS_EMBED_ALL, "Fonts.Embedd.All"},
                             Case{IDC_FONTS_EMBED_PROTECTED, "Fonts.Embedd.Protected"},
                             Case{IDC_FONTS_USE_ALWAYS, "Fonts.Embedd.Use_Always"},
                             Case{IDC_FONTS_USE_NEVER, "Fonts.Embedd.Use_Never"}}) {
        settings.SetNumber(each.name, 7);
        OpenOn(settings);
        EXPECT_TRUE(page.IsChecked(each.box)) << each.name;
        page.Click(each.box);
        dialog->Apply();
        const ScratchSettings unchecked;
        unchecked.Store(dialog->Record());
        EXPECT_EQ(unchecked.Number(each.name), 0) << each.name;
        page.Click(each.box);
        dialog->Apply();
        const ScratchSettings checked;
        checked.Store(dialog->Record());
        EXPECT_EQ(checked.Number(each.name), 1) << each.name;
    }
}

TEST_F(FontsPage, OkStoresTheListsForTheRegistry) {
    OpenOnLists(L"", L"Symbol");
    Move(page, IDC_FONTS_AVAILABLE, {L"Times", L"Arial"}, IDC_FONTS_ADD_ALWAYS);
    Move(page, IDC_FONTS_NEVER, {L"Symbol"}, IDC_FONTS_REMOVE_NEVER);
    EXPECT_EQ(dialog->Ok(), 1);
    settings.Store(dialog->Record());
    EXPECT_EQ(settings.Text("Fonts.Embedd.Always"), L"Arial;Times");
    EXPECT_EQ(settings.Text("Fonts.Embedd.Never"), L"");
}

TEST_F(FontsPage, CancelKeepsWhatWasAppliedBefore) {
    OpenOnLists(L"", L"");
    Move(page, IDC_FONTS_AVAILABLE, {L"Times"}, IDC_FONTS_ADD_ALWAYS);
    dialog->Apply();
    Move(page, IDC_FONTS_AVAILABLE, {L"Arial"}, IDC_FONTS_ADD_ALWAYS);
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(dialog->Record().Fonts.Embedd.Always, L"Times");
}

TEST_F(FontsPage, TheListsShareTheirIconsAndHaveOneColumnBesideWhichAScrollBarFits) {
    OpenWithoutLoading();
    constexpr LONG kCommon =
        LVS_REPORT | LVS_SORTASCENDING | LVS_NOCOLUMNHEADER | LVS_SHAREIMAGELISTS | WS_TABSTOP;
    auto* const icons = ListView_GetImageList(page.Control(IDC_FONTS_AVAILABLE), LVSIL_SMALL);
    EXPECT_EQ(ImageList_GetImageCount(icons), 5);
    for (const UINT id : kLists) {
        HWND list = page.Control(id);
        const LONG style = GetWindowLongW(list, GWL_STYLE);
        EXPECT_EQ(style & (kCommon | LVS_TYPEMASK | LVS_SINGLESEL | LVS_SORTDESCENDING), kCommon) << id;
        EXPECT_EQ((style & LVS_SHOWSELALWAYS) != 0, id == IDC_FONTS_AVAILABLE);
        EXPECT_EQ(ListView_GetImageList(list, LVSIL_SMALL), icons);
        EXPECT_EQ(Header_GetItemCount(ListView_GetHeader(list)), 1);
        // The window inside its frame, whether or not a scroll bar takes its part of it.
        RECT client{};
        GetClientRect(list, &client);
        const int bar = GetSystemMetrics(SM_CXVSCROLL);
        const int barShown = style & WS_VSCROLL ? bar : 0;
        EXPECT_EQ(ListView_GetColumnWidth(list, 0), client.right + barShown - bar) << id;
        EXPECT_FALSE(style & WS_HSCROLL) << id;
    }
}

TEST_F(FontsPage, TabGoesThroughThePageInReadingOrder) {
    OpenWithoutLoading();
    constexpr UINT kAfterTheFirst[] = {
        IDC_FONTS_EMBED_PROTECTED, IDC_FONTS_AVAILABLE, IDC_FONTS_ADD_ALWAYS, IDC_FONTS_REMOVE_ALWAYS,
        IDC_FONTS_USE_ALWAYS,      IDC_FONTS_ALWAYS,    IDC_FONTS_ADD_NEVER,  IDC_FONTS_REMOVE_NEVER,
        IDC_FONTS_USE_NEVER,       IDC_FONTS_NEVER,     IDC_FONTS_DEFAULT};
    page.Focus(IDC_FONTS_EMBED_ALL);
    for (const UINT id : kAfterTheFirst) {
        dialog->PressKey(VK_TAB);
        ASSERT_TRUE(FocusReaches(id)) << id;
    }
}

TEST_F(FontsPage, TheTextsAreTranslatedButNotTheNamesOfFonts) {
    const LanguageFolder german({{L"Default", L"Standard"},
                                 {L"Never Embed Fonts:", L"Nie einbetten:"},
                                 {L"Arial", L"Not a text of the dialog"}});
    OpenWithoutLoading(kGerman);
    EXPECT_EQ(page.Text(IDC_FONTS_DEFAULT), L"Standard");
    EXPECT_EQ(page.Text(IDC_FONTS_USE_NEVER), L"Nie einbetten:");
    EXPECT_THAT(NamesIn(page, IDC_FONTS_NEVER), Contains(L"Arial"));
}

}  // namespace
}  // namespace vmk::test
