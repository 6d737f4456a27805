#include "controls/combobox.h"

#include <algorithm>
#include <new>

namespace vmk {
namespace {

constexpr size_t kLongestItemText = 255;

// An item that is not there could not be selected, and its setting would be lost.
void AddString(HWND list, const std::wstring& text) {
    if (SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())) < 0)
        throw std::bad_alloc();
}

}  // namespace

void CMyCombobox::Bind(BoundDialog& page, UINT id, std::int32_t& field, std::span<const ComboItem> items,
                       std::span<const ComboRule> rules) {
    Attach(page, id);
    m_field = &field;
    m_rules = rules;
    for (const ComboItem& item : items) {
        const std::wstring text = Translate(item.text).substr(0, kLongestItemText);
        m_items.push_back({.value = item.value, .text = text});
        AddString(Handle(), text);
    }
}

bool CMyCombobox::SelectByValue(std::int32_t value) {
    const auto item = std::ranges::find(m_items, value, &Item::value);
    if (item == m_items.end()) return false;
    SendMessageW(Handle(), CB_SELECTSTRING, static_cast<WPARAM>(-1),
                 reinterpret_cast<LPARAM>(item->text.c_str()));
    for (const ComboRule& rule : m_rules) {
        if (std::ranges::find(rule.values, value) == rule.values.end()) continue;
        for (const UINT id : rule.ids) Page().EnableItem(id, rule.enable);
    }
    return true;
}

int CMyCombobox::SelectedPosition() const {
    const LRESULT selection = SendMessageW(Handle(), CB_GETCURSEL, 0, 0);
    return selection == CB_ERR ? kNoSelection : static_cast<int>(selection);
}

std::int32_t CMyCombobox::SelectedValue() const {
    const int selection = SelectedPosition();
    if (selection == kNoSelection) return kNoSelection;
    const LRESULT length = SendMessageW(Handle(), CB_GETLBTEXTLEN, static_cast<WPARAM>(selection), 0);
    if (length == CB_ERR) return kNoSelection;
    std::wstring text(static_cast<size_t>(length), L'\0');
    SendMessageW(Handle(), CB_GETLBTEXT, static_cast<WPARAM>(selection),
                 reinterpret_cast<LPARAM>(text.data()));
    const auto item = std::ranges::find(m_items, text, &Item::text);
    return item == m_items.end() ? kNoSelection : item->value;
}

bool CMyCombobox::OnReflectedCommand(UINT code) {
    if (code != CBN_SELCHANGE) return false;
    EnableApply();
    ReapplyRules();
    return true;
}

}  // namespace vmk
