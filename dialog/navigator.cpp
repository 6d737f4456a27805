#include "dialog/navigator.h"

#include <limits>
#include <new>
#include <string>

#include "base/drawing_pause.h"
#include "controls/focus.h"
#include "resources/ids/main.h"
#include "settings/groups.h"

namespace vmk {

bool CDlgSettings::CreateNavigator(const CDialogEnv& env, PageSet pages, HWND parent) {
    static_cast<CDialogEnv&>(*this) = env.ForChild();
    pageSet = pages;
    return Create(IDD_NAVIGATOR, parent) != nullptr;
}

bool CDlgSettings::ApplyPages() {
    bool all = true;
    for (const PageEntry& entry : m_pages) {
        if (entry.window && SendMessageW(entry.window, WM_PAGE_APPLY, 0, 0) != 0) all = false;
    }
    return all;
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
    TranslateWindowTexts(Handle());
    {
        const DrawingPause pause(List());
        PrepareList();
        AddPages();
    }
    SelectFirstPage();
}

void CDlgSettings::AddPages() {
    // A page that has a window must never be without an owner: there is room for all of them beforehand.
    m_pages.reserve(PageTable().size());
    for (const PageRow& row : PageTable()) {
        if (pageSet & row.bit) AddPage(row);
    }
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

// A page that cannot be made keeps its place in the list and shows nothing; the others do not suffer from it.
void CDlgSettings::AddPage(const PageRow& row) {
    PageEntry& entry =
        m_pages.emplace_back(PageEntry{.page = nullptr, .window = nullptr, .item = InsertName(row)});
    try {
        entry.page = row.create();
        entry.window = entry.page->CreatePage(*this, Item(IDC_NAVIGATOR_FRAME));
    } catch (const std::bad_alloc&) {
        entry.window = nullptr;
    }
}

int CDlgSettings::InsertName(const PageRow& row) const {
    std::wstring name;
    try {
        name = Translate(row.name);
    } catch (const std::bad_alloc&) {
        name.clear();
    }
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = std::numeric_limits<int>::max();
    // The control copies the text.
    item.pszText = name.empty() ? const_cast<wchar_t*>(row.name) : name.data();
    if (row.icon != GroupInfo::kNoIcon) {
        item.mask |= LVIF_IMAGE;
        item.iImage = row.icon;
    }
    return ListView_InsertItem(List(), &item);
}

void CDlgSettings::SelectFirstPage() const {
    LVITEMW state{};
    state.state = LVIS_SELECTED | LVIS_FOCUSED;
    state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    if (SendMessageW(List(), LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&state)))
        ListView_EnsureVisible(List(), 0, FALSE);
}

void CDlgSettings::ShowPage(int item) const {
    // A button of the page stops being the default button only while it can be seen.
    TakeFocusFromPages();
    for (const PageEntry& entry : m_pages) {
        if (entry.window) ShowWindow(entry.window, entry.item == item ? SW_SHOW : SW_HIDE);
    }
    // A box whose number is refused keeps the focus from the list, but must not keep it out of sight.
    TakeFocusFromPages();
}

void CDlgSettings::TakeFocusFromPages() const {
    if (IsChild(Item(IDC_NAVIGATOR_FRAME), GetFocus())) GiveFocus(List());
}

void CDlgSettings::DestroyPages() {
    for (PageEntry& entry : m_pages) {
        if (entry.window) DestroyWindow(entry.window);
        entry.page.reset();
    }
    m_pages.clear();
}

}  // namespace vmk
