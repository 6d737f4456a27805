#include "pages/fonts/font_list_view.h"

#include <algorithm>
#include <cstddef>
#include <new>

#include "base/drawing_pause.h"

namespace vmk {
namespace {

constexpr int kNameLimit = 256;  // with the terminator

void InsertFace(HWND list, FontFace& face) {
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.pszText = face.name.data();
    item.iImage = static_cast<int>(face.flags);
    if (ListView_InsertItem(list, &item) < 0) throw std::bad_alloc();
}

}  // namespace

void FontListView::Prepare(HIMAGELIST icons) const noexcept {
    ListView_SetImageList(m_list, icons, LVSIL_SMALL);
    RECT client{};
    GetClientRect(m_list, &client);
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH;
    column.cx = client.right - client.left - GetSystemMetrics(SM_CXVSCROLL);
    ListView_InsertColumn(m_list, 0, &column);
}

void FontListView::Clear() const noexcept {
    ListView_DeleteAllItems(m_list);
}

// A sorting list may look for an item's place from its top, so the last name goes in first: each place is
// then found at once, and thousands of names take no longer than their number demands. Equal names keep their
// order.
void FontListView::Insert(std::vector<FontFace> faces) const {
    std::ranges::stable_sort(faces, [](const FontFace& left, const FontFace& right) {
        return lstrcmpiW(left.name.c_str(), right.name.c_str()) > 0;
    });
    const DrawingPause pause(m_list);
    for (FontFace& face : faces) InsertFace(m_list, face);
}

std::vector<FontFace> FontListView::Selected() const {
    std::vector<FontFace> selected;
    for (int item = -1; (item = ListView_GetNextItem(m_list, item, LVNI_SELECTED)) >= 0;)
        selected.push_back(Face(item));
    return selected;
}

void FontListView::DeleteSelected() const noexcept {
    const DrawingPause pause(m_list);
    for (int item = 0; (item = ListView_GetNextItem(m_list, -1, LVNI_SELECTED)) >= 0;)
        if (!ListView_DeleteItem(m_list, item)) break;
}

std::vector<std::wstring> FontListView::Names() const {
    std::vector<std::wstring> names;
    const int count = ListView_GetItemCount(m_list);
    names.reserve(static_cast<std::size_t>(count));
    for (int item = 0; item < count; ++item) names.push_back(Face(item).name);
    return names;
}

FontFace FontListView::Face(int item) const {
    wchar_t name[kNameLimit] = {};
    LVITEMW wanted{};
    wanted.mask = LVIF_TEXT | LVIF_IMAGE;
    wanted.iItem = item;
    wanted.pszText = name;
    wanted.cchTextMax = kNameLimit;
    ListView_GetItem(m_list, &wanted);
    return {.name = wanted.pszText, .flags = static_cast<std::uint32_t>(wanted.iImage)};
}

}  // namespace vmk
