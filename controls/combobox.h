#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "controls/bound_control.h"
#include "settings/choices.h"

namespace vmk {

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

    // Attaches to the page's control, fills the list in the order of the choices, keeps the rules, which must
    // outlive the control, and shows the field.
    void Bind(BoundDialog& page, UINT id, std::int32_t& field, std::span<const Choice> choices,
              std::span<const ComboRule> rules = {});
    // The same for some bits of a field; the others are left alone, and these too while nothing is selected.
    void BindBits(BoundDialog& page, UINT id, std::int32_t& field, std::int32_t bits,
                  std::span<const Choice> choices, std::span<const ComboRule> rules = {});

    // Selects the item of the field's value.
    void Show();

    // Selects the first item with the value and applies the rules that list it. False, and nothing changed,
    // when no item has the value.
    bool SelectByValue(std::int32_t value);

    // The position of the selection in the list, or kNoSelection.
    int SelectedPosition() const;

    // The value of the first item whose text is the selected one, or kNoSelection.
    std::int32_t SelectedValue() const;

    // Selects the value of the selection, which applies the rules once more.
    void SwitchOthers() override { SelectByValue(SelectedValue()); }

    void Store() override;

  private:
    struct Item {
        std::int32_t value;
        std::wstring text;
    };

    static constexpr std::int32_t kAllBits = -1;

    bool Select(std::int32_t value) const;
    void ApplyRules(std::int32_t value) const;

    bool OnReflectedCommand(UINT code) override;
    bool UsesEscape() const override { return SendMessageW(Handle(), CB_GETDROPPEDSTATE, 0, 0) != FALSE; }

    std::int32_t* m_field = nullptr;
    std::int32_t m_bits = kAllBits;
    std::vector<Item> m_items;
    std::span<const ComboRule> m_rules;
};

}  // namespace vmk
