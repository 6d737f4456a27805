#include "dialog/navigator.h"

#include <limits>
#include <string>

#include "resources/ids/main.h"

namespace vmk {

bool CDlgSettings::CreateNavigator(const CDialogEnv& env, PageSet pages, HWND parent) {
    static_cast<CDialogEnv&>(*this) = env.ForChild();
    pageSet = pages;
    return Create(IDD_NAVIGATOR, parent) != nullptr;
}

void CDlgSettings::ApplyPages() {
    for (const PageEntry& entry : m_pages) {
        if (entry.window) SendMessageW(entry.window, WM_PAGE_APPLY, 0, 0);
    }
}

std::optional<LRESULT> CDlgSettings::ProcessWindowMessage(HWND /*hwnd*/, UINT msg, WPARAM /*wParam*/,
                                                          LPARAM lParam) {
    switch (msg) {
        case WM_INITDIALOG:
            OnInitDialog();
            return TRUE;
        case WM_NOTIFY: {
            const auto& change = *reinterpret_cast<const NMLISTVIEW*>(lParam);
            if (change.hdr.idFrom != IDC_NAVIGATOR_LIST || change.hdr.code != LVN_ITEMCHANGED)
                return std::nullopt;
            if (change.uNewState & LVIS_SELECTED) ShowPage(change.iItem);
            return 0;
        }
        case WM_DESTROY:
            DestroyPages();
            return 0;
        default:
            return std::nullopt;
    }
}

HWND CDlgSettings::List() const {
    return Item(IDC_NAVIGATOR_LIST);
}

void CDlgSettings::OnInitDialog() {
    PrepareList();
    for (const PageRow& row : PageTable()) {
        if (pageSet & row.bit) AddPage(row);
    }
    SelectFirstPage();
}

void CDlgSettings::PrepareList() {
    m_icons = LoadIconStrip(IDB_PAGE_ICONS);
    ListView_SetImageList(List(), m_icons.get(), LVSIL_SMALL);

    RECT client{};
    GetClientRect(List(), &client);
    std::wstring header;
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = client.right - client.left;
    column.pszText = header.data();
    ListView_InsertColumn(List(), 0, &column);
}

void CDlgSettings::AddPage(const PageRow& row) {
    std::wstring name = Translate(row.name);
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = std::numeric_limits<int>::max();
    item.pszText = name.data();
    if (row.icon != PageRow::kNoIcon) {
        item.mask |= LVIF_IMAGE;
        item.iImage = row.icon;
    }
    const int index = ListView_InsertItem(List(), &item);

    // The entry comes first: a page that has a window must never be without an owner.
    m_pages.push_back({.page = row.create(), .window = nullptr, .item = index});
    PageEntry& entry = m_pages.back();
    entry.window = entry.page->CreatePage(*this, Item(IDC_NAVIGATOR_FRAME));
}

void CDlgSettings::SelectFirstPage() const {
    LVITEMW state{};
    state.state = LVIS_SELECTED | LVIS_FOCUSED;
    state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    if (SendMessageW(List(), LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&state)))
        ListView_EnsureVisible(List(), 0, FALSE);
}

void CDlgSettings::ShowPage(int item) const {
    const bool hadFocus = IsChild(Item(IDC_NAVIGATOR_FRAME), GetFocus()) != FALSE;
    for (const PageEntry& entry : m_pages) {
        if (entry.window) ShowWindow(entry.window, entry.item == item ? SW_SHOW : SW_HIDE);
    }
    // A box whose number is refused keeps the focus from the list, but must not keep it out of sight.
    if (hadFocus) SetFocus(List());
}

void CDlgSettings::DestroyPages() {
    for (PageEntry& entry : m_pages) {
        if (entry.window) DestroyWindow(entry.window);
        entry.page.reset();
    }
    m_pages.clear();
}

}  // namespace vmk
