#include "pages/fonts/installed_fonts.h"

#include <windows.h>

#include <gtest/gtest.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>

#include <string>

namespace vmk::test {
namespace {

constexpr const wchar_t* kNames[] = {
    L"Arial",
    L"ARIAL",
    L"arial ",
    L" arial",
    L"@Arial",
    L"Ari\u00ADal",
    L"Ari-al",
    L"Ari al",
    L"M\u00DCsb",
    L"musb",
    L"m\u00FCSB",
    L"stra\u00DFe",
    L"STRASSE",
    L"\uFF21\uFF22",
    L"\uFF41\uFF42",
    L"ab",
    L"\u0391\u03B2",
    L"\u03B1\u0392",
    L"\u0430",
    L"\u0410",
    L"\u30A2",
    L"\u3042",
    L"\uFF71",
    L"A\u0301",
    L"\u00C1",
    L"I",
    L"i",
    L"\u0130",
    L"\u0131",
    L"A1",
    L"A2",
    L"A.",
};

class SearchedList {
  public:
    SearchedList() {
        const INITCOMMONCONTROLSEX classes = {.dwSize = sizeof(classes), .dwICC = ICC_LISTVIEW_CLASSES};
        InitCommonControlsEx(&classes);
        m_list = CreateWindowW(WC_LISTVIEWW, L"", WS_POPUP | LVS_REPORT | LVS_SORTASCENDING, 0, 0, 100, 100,
                               nullptr, nullptr, nullptr, nullptr);
    }
    ~SearchedList() { DestroyWindow(m_list); }
    SearchedList(const SearchedList&) = delete;
    SearchedList& operator=(const SearchedList&) = delete;

    bool Holds(std::wstring item, const std::wstring& searched) const {
        ListView_DeleteAllItems(m_list);
        LVITEMW inserted{};
        inserted.mask = LVIF_TEXT;
        inserted.pszText = item.data();
        if (SendMessageW(m_list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&inserted)) != 0)
            ADD_FAILURE() << "not inserted";
        LVFINDINFOW find{};
        find.flags = LVFI_STRING;
        find.psz = searched.c_str();
        return SendMessageW(m_list, LVM_FINDITEMW, static_cast<WPARAM>(-1),
                            reinterpret_cast<LPARAM>(&find)) == 0;
    }

  private:
    HWND m_list;
};

TEST(ListSearchKey, IsEqualWhereAListViewTakesNamesForTheSame) {
    const SearchedList list;
    for (const wchar_t* const item : kNames) {
        for (const wchar_t* const searched : kNames) {
            EXPECT_EQ(ListSearchKey(item) == ListSearchKey(searched), list.Holds(item, searched))
                << testing::PrintToString(std::wstring(item)) << ", "
                << testing::PrintToString(std::wstring(searched));
        }
    }
}

TEST(ListSearchKey, IgnoresCaseAndNothingElse) {
    EXPECT_EQ(ListSearchKey(L"Arial"), ListSearchKey(L"aRIAL"));
    EXPECT_NE(ListSearchKey(L"Arial"), ListSearchKey(L"Arial Black"));
    EXPECT_NE(ListSearchKey(L"Arial"), ListSearchKey(L"@Arial"));
    EXPECT_NE(ListSearchKey(L"Arial"), ListSearchKey(L""));
}

}  // namespace
}  // namespace vmk::test
