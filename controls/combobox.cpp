#include "controls/combobox.h"

#include <algorithm>
#include <new>

namespace vmk {
namespace {

constexpr size_t kLongestItemText = 255;

// An item that is not there could not be selected, and its setting would be lost.
void AddString(HWND box, const std::wstring& text) {
    if (SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())) < 0)
        throw std::bad_alloc();
}

}  // namespace

void CMyCombobox::Bind(BoundDialog& page, UINT id, std::int32_t& field, std::span<const Choice> choices,
                       std::span<const ComboRule> rules) {
    Attach(page, id);
    m_field = &field;
    m_rules = rules;
    for (const Choice& choice : choices) {
        const std::wstring text = Translate(choice.text).substr(0, kLongestItemText);
        m_items.push_back({.value = choice.value, .text = text});
        AddString(Handle(), text);
    }
    Show();
}

void CMyCombobox::BindBits(BoundDialog& page, UINT id, std::int32_t& field, std::int32_t bits,
                           std::span<const Choice> choices, std::span<const ComboRule> rules) {
    m_bits = bits;
    Bind(page, id, field, choices, rules);
}

void CMyCombobox::Show() {
    const std::int32_t value = *m_field & m_bits;
    if (Select(value) && IsEnabled()) ApplyRules(value);
}

bool CMyCombobox::SelectByValue(std::int32_t value) {
    if (!Select(value)) return false;
    ApplyRules(value);
    return true;
}

bool CMyCombobox::Select(std::int32_t value) const {
    const auto item = std::ranges::find(m_items, value, &Item::value);
    if (item == m_items.end()) return false;
    SendMessageW(Handle(), CB_SELECTSTRING, static_cast<WPARAM>(-1),
                 reinterpret_cast<LPARAM>(item->text.c_str()));
    return true;
}

void CMyCombobox::ApplyRules(std::int32_t value) const {
    for (const ComboRule& rule : m_rules) {
        if (std::ranges::find(rule.values, value) != rule.values.end()) Page().Switch(rule.ids, rule.enable);
    }
}

void CMyCombobox::Store() {
    const std::int32_t selected = SelectedValue();
    if (m_bits == kAllBits) {
        *m_field = selected;
    } else if (selected != kNoSelection) {
        *m_field = (*m_field & ~m_bits) | selected;
    }
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
    SwitchOthers();
    return true;
}

}  // namespace vmk
