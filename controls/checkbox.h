#pragma once

#include <cstdint>

#include "controls/bound_control.h"
#include "controls/check_state.h"

namespace vmk {

// A check box that shows a flag: checked for any number but 0, stored as 0 or 1; or one bit of a number.
// Those of its dependents that switch others do so whenever they are enabled.
class CMyCheckbox final : public BoundControl {
  public:
    // Attaches to the page's control and shows the field.
    void Bind(BoundDialog& page, UINT id, std::int32_t& field, Dependents dependents = {});
    // The same for one bit of a field; the others are left alone.
    void BindBit(BoundDialog& page, UINT id, std::int32_t& field, std::int32_t bit);

    // Shows the value last taken or stored and switches the dependents accordingly.
    void Show();

    // Checks or unchecks and switches the dependents.
    void SetCheck(bool checked);
    bool IsChecked() const { return vmk::IsChecked(Handle()); }

    void Store() override;

    void SwitchOthers() override { Page().Switch(m_dependents.ids, m_dependents.EnabledWhen(IsChecked())); }

  private:
    static constexpr std::int32_t kAllBits = -1;

    bool OnReflectedCommand(UINT code) override;

    std::int32_t* m_field = nullptr;
    std::int32_t m_stored = 0;
    std::int32_t m_bits = kAllBits;
    Dependents m_dependents;
};

}  // namespace vmk
