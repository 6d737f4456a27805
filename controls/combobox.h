#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "controls/bound_control.h"

namespace vmk {

// One choice of a list: what is stored and the English text that is shown, translated.
struct ComboItem {
    std::int32_t value;
    const wchar_t* text;
};

// What a list does to other controls of its page: while one of the values is selected, the controls are
// enabled or disabled.
struct ComboRule {
    std::span<const UINT> ids;
    std::span<const std::int32_t> values;
    bool enable;
};

// A drop-down list that shows a choice. The value of the selection is found through the text on screen, so of
// two items with the same text (in some language) the first one's value is stored.
class CMyCombobox final : public BoundControl {
  public:
    static constexpr std::int32_t kNoSelection = -1;

    // Attaches to the page's control, fills the list in the order of the items and keeps the rules; both
    // tables must outlive the control. Show selects the field's value.
    void Bind(BoundDialog& page, UINT id, std::int32_t& field, std::span<const ComboItem> items,
              std::span<const ComboRule> rules = {});

    void Show() { SelectByValue(*m_field); }

    // Selects the first item with the value and applies the rules that list it. False, and nothing changed,
    // when no item has the value.
    bool SelectByValue(std::int32_t value);

    // The position of the selection in the list, or kNoSelection.
    int SelectedPosition() const;

    // The value of the first item whose text is the selected one, or kNoSelection.
    std::int32_t SelectedValue() const;

    // Applies the rules once more, after somebody else has switched their controls.
    void ReapplyRules() { SelectByValue(SelectedValue()); }

    void Store() { *m_field = SelectedValue(); }

  private:
    struct Item {
        std::int32_t value;
        std::wstring text;
    };

    bool OnReflectedCommand(UINT code) override;
    bool UsesEscape() const override { return SendMessageW(Handle(), CB_GETDROPPEDSTATE, 0, 0) != FALSE; }

    std::int32_t* m_field = nullptr;
    std::vector<Item> m_items;
    std::span<const ComboRule> m_rules;
};

}  // namespace vmk
