#include "controls/radio_group.h"

#include <algorithm>

namespace vmk {

void RadioGroup::Bind(BoundDialog& page, std::int32_t& field, std::span<const RadioItem> items, UINT other) {
    m_page = &page;
    m_field = &field;
    m_items = items;
    m_working = field;
    page.Register(*this);
    page.ExpectRadioButtons();
    Show(other);
}

UINT RadioGroup::Button(UINT other) const {
    const auto item = std::ranges::find(m_items, m_working, &RadioItem::value);
    return item == m_items.end() ? other : item->id;
}

void RadioGroup::Show(UINT other) const {
    const UINT button = Button(other);
    if (button != kNoButton) m_page->CheckItem(button, true);
}

bool RadioGroup::OnCommand(Command command) {
    if (command.code != BN_CLICKED) return false;
    const auto item = std::ranges::find(m_items, command.id, &RadioItem::id);
    if (item == m_items.end()) return false;
    m_working = item->value;
    m_page->EnableApply();
    return true;
}

}  // namespace vmk
