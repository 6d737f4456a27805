#include "language/translator.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "tests/support/language_files.h"

namespace vmk::test {
namespace {

constexpr wchar_t kProduct[] = L"some.Product";
constexpr wchar_t kFile[] = L"german.vlf";

struct WindowCloser {
    using pointer = HWND;
    void operator()(HWND window) const { DestroyWindow(window); }
};
using Window = std::unique_ptr<HWND, WindowCloser>;

struct MenuCloser {
    using pointer = HMENU;
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using Menu = std::unique_ptr<HMENU, MenuCloser>;

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

class Translators : public testing::Test {
  protected:
    void SetUp() override {
        std::wstring text = L"$langid = 0407\n$productID = some.Product\n";
        text += L"\"OK\" = \"Ja\"\n\"Cancel\" = \"Abbrechen\"\n\"secret\" = \"geheim\"\n\"Gone\" = \"\"\n";
        text += L"\"Long\" = \"" + std::wstring(3000, L'x') + L"\"\n";
        text += L"\"" + std::wstring(2000, L'y') + L"\" = \"so long\"\n";
        m_folder.WriteText(kFile, text);
    }

    void OpenGerman() {
        ASSERT_TRUE(m_translator.OpenLanguageSession(m_folder.NarrowPath(), kProduct));
        ASSERT_TRUE(m_translator.SelectLanguage(0x407));
    }

    LanguageFiles m_folder;
    Translator m_translator;
};

static_assert(!std::is_copy_constructible_v<Translator>);

TEST_F(Translators, WithoutSessionTextsComeBackUnchanged) {
    EXPECT_FALSE(m_translator.SelectLanguage(0x407));
    EXPECT_EQ(m_translator.TranslateString(L"OK"), L"OK");
    EXPECT_EQ(m_translator.TranslateString(L""), L"");
}

TEST_F(Translators, WithoutLanguageTextsComeBackUnchanged) {
    ASSERT_TRUE(m_translator.OpenLanguageSession(m_folder.NarrowPath(), kProduct));
    EXPECT_EQ(m_translator.TranslateString(L"OK"), L"OK");
    EXPECT_FALSE(m_translator.SelectLanguage(0x807));
    EXPECT_EQ(m_translator.TranslateString(L"OK"), L"OK");
}

TEST_F(Translators, KnowWhetherALanguageIsSelected) {
    EXPECT_FALSE(m_translator.HasLanguage());
    ASSERT_TRUE(m_translator.OpenLanguageSession(m_folder.NarrowPath(), kProduct));
    EXPECT_FALSE(m_translator.HasLanguage());
    EXPECT_FALSE(m_translator.SelectLanguage(0x807));
    EXPECT_FALSE(m_translator.HasLanguage());
    EXPECT_TRUE(m_translator.SelectLanguage(0x407));
    EXPECT_TRUE(m_translator.HasLanguage());
}

TEST_F(Translators, TextsOfTheSelectedLanguageAreTranslated) {
    OpenGerman();
    EXPECT_EQ(m_translator.TranslateString(L"OK"), L"Ja");
    EXPECT_EQ(m_translator.TranslateString(L"Gone"), L"");
    EXPECT_EQ(m_translator.TranslateString(L"Other"), L"Other");
}

TEST_F(Translators, FoldersWithoutLanguagesOpenASession) {
    EXPECT_TRUE(m_translator.OpenLanguageSession("", kProduct));
    EXPECT_TRUE(m_translator.OpenLanguageSession(m_folder.NarrowFile("missing"), kProduct));
    EXPECT_FALSE(m_translator.SelectLanguage(0x407));
    EXPECT_EQ(m_translator.TranslateString(L"OK"), L"OK");
}

TEST_F(Translators, OpeningAgainReplacesTheSession) {
    OpenGerman();
    ASSERT_TRUE(m_translator.OpenLanguageSession(m_folder.NarrowPath(), kProduct));
    EXPECT_EQ(m_translator.TranslateString(L"OK"), L"OK");
}

TEST_F(Translators, TranslatedTextsOutliveTheTranslator) {
    std::wstring text;
    {
        Translator translator;
        ASSERT_TRUE(translator.OpenLanguageSession(m_folder.NarrowPath(), kProduct));
        ASSERT_TRUE(translator.SelectLanguage(0x407));
        text = translator.TranslateString(L"OK");
    }
    EXPECT_EQ(text, L"Ja");
}

/// Counts what texts a window is asked for and given, its children's included.
class TextTraffic {
  public:
    explicit TextTraffic(HWND window) { Watch(window); }
    TextTraffic(const TextTraffic&) = delete;
    TextTraffic& operator=(const TextTraffic&) = delete;
    ~TextTraffic() {
        for (const auto& [window, procedure] : m_watched)
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
        s_current = nullptr;
    }

    void Watch(HWND window) {
        s_current = this;
        const LONG_PTR previous =
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TextTraffic::Procedure));
        m_watched.emplace_back(window, reinterpret_cast<WNDPROC>(previous));
    }

    const std::vector<std::wstring>& Set() const { return m_set; }
    const std::vector<HWND>& Asked() const { return m_asked; }

  private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
        if (msg == WM_SETTEXT) s_current->m_set.emplace_back(reinterpret_cast<const wchar_t*>(lParam));
        if (msg == WM_GETTEXT || msg == WM_GETTEXTLENGTH) s_current->m_asked.push_back(hwnd);
        for (const auto& [window, procedure] : s_current->m_watched)
            if (window == hwnd) return CallWindowProcW(procedure, hwnd, msg, wParam, lParam);
        return 0;
    }

    inline static TextTraffic* s_current = nullptr;
    std::vector<std::pair<HWND, WNDPROC>> m_watched;
    std::vector<std::wstring> m_set;
    std::vector<HWND> m_asked;
};

class TranslatedWindows : public Translators {
  protected:
    void SetUp() override {
        Translators::SetUp();
        m_parent.reset(CreateWindowExW(0, L"Static", L"OK", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr,
                                       nullptr, nullptr));
        ASSERT_TRUE(m_parent);
    }

    /// A child is destroyed with its parent.
    HWND Child(HWND parent, const wchar_t* className, const wchar_t* text, DWORD style = 0) {
        HWND child = CreateWindowExW(0, className, text, WS_CHILD | style, 0, 0, 50, 20, parent, nullptr,
                                     nullptr, nullptr);
        EXPECT_TRUE(child) << GetLastError();
        return child;
    }
    HWND Parent() const { return m_parent.get(); }

  private:
    Window m_parent;
};

TEST_F(TranslatedWindows, WithoutSessionWindowsAreLeftAlone) {
    const TextTraffic traffic(Parent());
    m_translator.TranslateWindow(Parent(), true);
    EXPECT_TRUE(traffic.Set().empty());
    EXPECT_TRUE(traffic.Asked().empty());
}

TEST_F(TranslatedWindows, TextIsReplacedByItsTranslation) {
    OpenGerman();
    m_translator.TranslateWindow(Parent(), false);
    EXPECT_EQ(TextOf(Parent()), L"Ja");
}

TEST_F(TranslatedWindows, TextWithoutTranslationIsSetAgain) {
    OpenGerman();
    SetWindowTextW(Parent(), L"Other");
    const TextTraffic traffic(Parent());
    m_translator.TranslateWindow(Parent(), false);
    EXPECT_EQ(traffic.Set(), std::vector<std::wstring>{L"Other"});
}

TEST_F(TranslatedWindows, TextIsSetAgainWhileNoLanguageIsSelected) {
    ASSERT_TRUE(m_translator.OpenLanguageSession(m_folder.NarrowPath(), kProduct));
    const TextTraffic traffic(Parent());
    m_translator.TranslateWindow(Parent(), false);
    EXPECT_EQ(traffic.Set(), std::vector<std::wstring>{L"OK"});
}

TEST_F(TranslatedWindows, EmptyTextIsNotSet) {
    OpenGerman();
    SetWindowTextW(Parent(), L"");
    const TextTraffic traffic(Parent());
    m_translator.TranslateWindow(Parent(), false);
    EXPECT_TRUE(traffic.Set().empty());
}

TEST_F(TranslatedWindows, TranslationMayBeEmptyOrLong) {
    OpenGerman();
    SetWindowTextW(Parent(), L"Gone");
    m_translator.TranslateWindow(Parent(), false);
    EXPECT_EQ(TextOf(Parent()), L"");
    SetWindowTextW(Parent(), L"Long");
    m_translator.TranslateWindow(Parent(), false);
    EXPECT_EQ(TextOf(Parent()), std::wstring(3000, L'x'));
}

TEST_F(TranslatedWindows, LongTextsAreLookedUpWhole) {
    OpenGerman();
    const std::wstring text = L"OK" + std::wstring(5000, L' ');
    SetWindowTextW(Parent(), text.c_str());
    m_translator.TranslateWindow(Parent(), false);
    EXPECT_EQ(TextOf(Parent()), text);
}

TEST_F(TranslatedWindows, ChildrenAreTranslatedOnlyWhenWanted) {
    OpenGerman();
    HWND child = Child(Parent(), L"Button", L"Cancel");
    m_translator.TranslateWindow(Parent(), false);
    EXPECT_EQ(TextOf(child), L"Cancel");
    m_translator.TranslateWindow(Parent(), true);
    EXPECT_EQ(TextOf(child), L"Abbrechen");
}

TEST_F(TranslatedWindows, SubtreesAreTranslatedInOrderChildrenBeforeParents) {
    OpenGerman();
    SetWindowTextW(Parent(), L"parent");
    HWND first = Child(Parent(), L"Static", L"first");
    HWND firstInner = Child(first, L"Static", L"first's child");
    HWND second = Child(Parent(), L"Static", L"second");
    HWND secondInner = Child(second, L"Static", L"second's child");
    TextTraffic traffic(Parent());
    for (HWND window : {first, firstInner, second, secondInner}) traffic.Watch(window);

    m_translator.TranslateWindow(Parent(), true);
    EXPECT_EQ(traffic.Set(), (std::vector<std::wstring>{L"first's child", L"first", L"second's child",
                                                        L"second", L"parent"}));
}

TEST_F(TranslatedWindows, HiddenAndDisabledChildrenAreTranslated) {
    OpenGerman();
    HWND child = Child(Parent(), L"Button", L"OK", WS_DISABLED);
    m_translator.TranslateWindow(Parent(), true);
    EXPECT_EQ(TextOf(child), L"Ja");
    EXPECT_FALSE(IsWindowEnabled(child));
}

TEST_F(TranslatedWindows, PasswordEditIsNeitherReadNorChanged) {
    OpenGerman();
    HWND edit = Child(Parent(), L"EDIT", L"secret", ES_PASSWORD);
    {
        const TextTraffic traffic(edit);
        m_translator.TranslateWindow(Parent(), true);
        EXPECT_TRUE(traffic.Set().empty());
        EXPECT_TRUE(traffic.Asked().empty());
    }
    EXPECT_EQ(TextOf(edit), L"secret");
}

TEST_F(TranslatedWindows, PlainEditIsTranslatedLikeAnyWindow) {
    OpenGerman();
    HWND edit = Child(Parent(), L"eDIT", L"secret");
    m_translator.TranslateWindow(Parent(), true);
    EXPECT_EQ(TextOf(edit), L"geheim");
}

TEST_F(TranslatedWindows, PasswordStyleOfOtherClassesMeansNothing) {
    OpenGerman();
    HWND child = Child(Parent(), L"Static", L"secret", ES_PASSWORD);
    m_translator.TranslateWindow(Parent(), true);
    EXPECT_EQ(TextOf(child), L"geheim");
}

TEST_F(TranslatedWindows, ClassesWhoseNamesOnlyBeginLikeAnEditAreNoEdits) {
    OpenGerman();
    for (const wchar_t* name : {L"EditX", L"EditWithAVeryLongClassName"}) {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.lpszClassName = name;
        ASSERT_TRUE(RegisterClassW(&windowClass));
        HWND child = Child(Parent(), name, L"secret", ES_PASSWORD);
        m_translator.TranslateWindow(child, true);
        EXPECT_EQ(TextOf(child), L"geheim");
        DestroyWindow(child);
        UnregisterClassW(name, nullptr);
    }
}

TEST_F(TranslatedWindows, WindowsThatDoNotExistAreIgnored) {
    OpenGerman();
    m_translator.TranslateWindow(nullptr, true);
    HWND gone = Child(Parent(), L"Static", L"OK");
    DestroyWindow(gone);
    m_translator.TranslateWindow(gone, true);
    m_translator.TranslateWindow(reinterpret_cast<HWND>(static_cast<INT_PTR>(0x7FFF)), true);
    EXPECT_EQ(TextOf(Parent()), L"OK");
}

/// Destroys the sibling whose window is kept in the user data when its own text is set.
LRESULT CALLBACK DestroySibling(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    const auto sibling = reinterpret_cast<HWND>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (msg == WM_SETTEXT && sibling) DestroyWindow(sibling);
    return DefWindowProcW(hwnd, msg, wParam, lParam);
}

TEST_F(TranslatedWindows, SiblingMayVanishWhileTextsAreSet) {
    OpenGerman();
    HWND first = Child(Parent(), L"Static", L"first");
    HWND second = Child(Parent(), L"Static", L"second");
    HWND third = Child(Parent(), L"Static", L"OK");
    SetWindowLongPtrW(first, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DestroySibling));
    SetWindowLongPtrW(first, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(second));
    m_translator.TranslateWindow(Parent(), true);
    EXPECT_FALSE(IsWindow(second));
    EXPECT_EQ(TextOf(third), L"Ja");
}

class TranslatedMenus : public Translators {
  protected:
    static std::wstring ItemText(HMENU menu, UINT position) {
        wchar_t text[4096];
        const int length = GetMenuStringW(menu, position, text, 4096, MF_BYPOSITION);
        return {text, static_cast<std::size_t>(length)};
    }
    static MENUITEMINFOW Item(HMENU menu, UINT position) {
        MENUITEMINFOW item{};
        item.cbSize = sizeof(item);
        item.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_DATA;
        EXPECT_TRUE(GetMenuItemInfoW(menu, position, TRUE, &item));
        return item;
    }

    const Menu m_owner{CreatePopupMenu()};
    HMENU m_menu = m_owner.get();
};

TEST_F(TranslatedMenus, WithoutSessionMenusAreLeftAlone) {
    AppendMenuW(m_menu, MF_STRING, 1, L"OK");
    m_translator.TranslateMenu(m_menu);
    EXPECT_EQ(ItemText(m_menu, 0), L"OK");
}

TEST_F(TranslatedMenus, TextsAreReplacedByTheirTranslations) {
    OpenGerman();
    AppendMenuW(m_menu, MF_STRING, 1, L"OK");
    AppendMenuW(m_menu, MF_STRING, 2, L"Other");
    AppendMenuW(m_menu, MF_STRING, 3, L"Long");
    m_translator.TranslateMenu(m_menu);
    EXPECT_EQ(GetMenuItemCount(m_menu), 3);
    EXPECT_EQ(ItemText(m_menu, 0), L"Ja");
    EXPECT_EQ(ItemText(m_menu, 1), L"Other");
    EXPECT_EQ(ItemText(m_menu, 2), std::wstring(3000, L'x'));
}

TEST_F(TranslatedMenus, LongTextsAreLookedUpWhole) {
    OpenGerman();
    const std::wstring unknown = L"OK" + std::wstring(4000, L' ');
    AppendMenuW(m_menu, MF_STRING, 1, unknown.c_str());
    AppendMenuW(m_menu, MF_STRING, 2, std::wstring(2000, L'y').c_str());
    m_translator.TranslateMenu(m_menu);
    EXPECT_EQ(ItemText(m_menu, 0), unknown);
    EXPECT_EQ(ItemText(m_menu, 1), L"so long");
}

TEST_F(TranslatedMenus, IdentifiersAreKeptEvenWhenTheyAreRepeated) {
    OpenGerman();
    for (const UINT id : {7U, 7U, 0U, 65535U}) AppendMenuW(m_menu, MF_STRING, id, L"OK");
    m_translator.TranslateMenu(m_menu);
    for (const UINT position : {0U, 1U, 2U, 3U}) EXPECT_EQ(ItemText(m_menu, position), L"Ja") << position;
    EXPECT_EQ(Item(m_menu, 0).wID, 7U);
    EXPECT_EQ(Item(m_menu, 1).wID, 7U);
    EXPECT_EQ(Item(m_menu, 2).wID, 0U);
    EXPECT_EQ(Item(m_menu, 3).wID, 65535U);
}

TEST_F(TranslatedMenus, CheckedAndDisabledItemsStaySo) {
    OpenGerman();
    AppendMenuW(m_menu, MF_STRING | MF_CHECKED | MF_GRAYED, 1, L"OK");
    const UINT state = Item(m_menu, 0).fState;
    ASSERT_NE(state, static_cast<UINT>(MFS_ENABLED));
    m_translator.TranslateMenu(m_menu);
    EXPECT_EQ(ItemText(m_menu, 0), L"Ja");
    EXPECT_EQ(Item(m_menu, 0).fState, state);
}

TEST_F(TranslatedMenus, SubmenusAreKeptAndTranslated) {
    OpenGerman();
    HMENU inner = CreatePopupMenu();
    HMENU innermost = CreatePopupMenu();
    AppendMenuW(innermost, MF_STRING, 3, L"Cancel");
    AppendMenuW(inner, MF_POPUP, reinterpret_cast<UINT_PTR>(innermost), L"OK");
    AppendMenuW(m_menu, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), L"OK");
    m_translator.TranslateMenu(m_menu);
    EXPECT_EQ(ItemText(m_menu, 0), L"Ja");
    EXPECT_EQ(GetSubMenu(m_menu, 0), inner);
    EXPECT_EQ(ItemText(inner, 0), L"Ja");
    EXPECT_EQ(GetSubMenu(inner, 0), innermost);
    EXPECT_EQ(ItemText(innermost, 0), L"Abbrechen");
    EXPECT_EQ(Item(innermost, 0).wID, 3U);
}

TEST_F(TranslatedMenus, SeparatorsStaySeparators) {
    OpenGerman();
    AppendMenuW(m_menu, MF_STRING, 1, L"OK");
    AppendMenuW(m_menu, MF_SEPARATOR, 2, nullptr);
    AppendMenuW(m_menu, MF_STRING, 3, L"Cancel");
    m_translator.TranslateMenu(m_menu);
    EXPECT_EQ(Item(m_menu, 1).fType & MFT_SEPARATOR, static_cast<UINT>(MFT_SEPARATOR));
    EXPECT_EQ(ItemText(m_menu, 1), L"");
    EXPECT_EQ(ItemText(m_menu, 2), L"Abbrechen");
}

TEST_F(TranslatedMenus, TextsOfSeparatorsAreLeftAlone) {
    OpenGerman();
    std::wstring text = L"OK";
    MENUITEMINFOW separator{};
    separator.cbSize = sizeof(separator);
    separator.fMask = MIIM_FTYPE | MIIM_STRING;
    separator.fType = MFT_SEPARATOR;
    separator.dwTypeData = text.data();
    ASSERT_TRUE(InsertMenuItemW(m_menu, 0, TRUE, &separator));
    ASSERT_EQ(ItemText(m_menu, 0), L"OK");
    m_translator.TranslateMenu(m_menu);
    EXPECT_EQ(ItemText(m_menu, 0), L"OK");
}

TEST_F(TranslatedMenus, SubmenusOfSeparatorsAndOfItemsWithoutTextAreTranslated) {
    OpenGerman();
    HMENU underEmpty = CreatePopupMenu();
    HMENU underSeparator = CreatePopupMenu();
    AppendMenuW(underEmpty, MF_STRING, 1, L"OK");
    AppendMenuW(underSeparator, MF_STRING, 2, L"Cancel");
    AppendMenuW(m_menu, MF_POPUP, reinterpret_cast<UINT_PTR>(underEmpty), L"");
    MENUITEMINFOW separator{};
    separator.cbSize = sizeof(separator);
    separator.fMask = MIIM_FTYPE | MIIM_SUBMENU;
    separator.fType = MFT_SEPARATOR;
    separator.hSubMenu = underSeparator;
    ASSERT_TRUE(InsertMenuItemW(m_menu, 1, TRUE, &separator));

    m_translator.TranslateMenu(m_menu);
    EXPECT_EQ(GetSubMenu(m_menu, 0), underEmpty);
    EXPECT_EQ(ItemText(m_menu, 0), L"");
    EXPECT_EQ(ItemText(underEmpty, 0), L"Ja");
    EXPECT_EQ(ItemText(underSeparator, 0), L"Abbrechen");
}

TEST_F(TranslatedMenus, MenusThatDoNotExistAreIgnored) {
    OpenGerman();
    m_translator.TranslateMenu(nullptr);
    m_translator.TranslateMenu(reinterpret_cast<HMENU>(static_cast<INT_PTR>(0x7FFF)));
    EXPECT_FALSE(IsMenu(nullptr));
}

}  // namespace
}  // namespace vmk::test
