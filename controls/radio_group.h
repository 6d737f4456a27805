#pragma once

#include <cstdint>
#include <span>

#include "controls/bound_dialog.h"

namespace vmk {

// What a radio button stands for.
struct RadioItem {
    UINT id;
    std::int32_t value;
};

// Radio buttons without objects of their own, which show one field of the settings. Keeps the working value:
// one that no button stands for stays until a button is clicked. A member of its page.
class RadioGroup final : public BoundValue {
  public:
    static constexpr UINT kNoButton = 0;

    // Takes the field's value and shows it; the table must outlive the group.
    void Bind(BoundDialog& page, std::int32_t& field, std::span<const RadioItem> items,
              UINT other = kNoButton);

    // The button for the working value; `other` when there is none.
    UINT Button(UINT other) const;

    // Checks that button, unless there is none and no other one either.
    void Show(UINT other = kNoButton) const;

    void Store() override { *m_field = m_working; }

    // Takes over the value of a clicked button and enables Apply.
    bool OnCommand(Command command) override;

  private:
    const BoundDialog* m_page = nullptr;
    std::int32_t* m_field = nullptr;
    std::span<const RadioItem> m_items;
    std::int32_t m_working = 0;
};

}  // namespace vmk
