#pragma once

#include <cstdint>

#include "controls/bound_control.h"

namespace vmk {

// A check box that shows a flag: checked for any number but 0, stored as 0 or 1.
class CMyCheckbox final : public BoundControl {
  public:
    // Attaches to the page's control and takes the field's value; Show puts it on screen.
    void Bind(BoundDialog& page, UINT id, std::int32_t& field, Dependents dependents = {});

    // Shows the value last taken or stored and switches the dependents accordingly.
    void Show() { SetCheck(m_stored != 0); }
    // Shows the value without touching the dependents.
    void ShowCheckOnly() { Page().CheckItem(Id(), m_stored != 0); }

    // Checks or unchecks and switches the dependents.
    void SetCheck(bool checked);
    bool IsChecked() const { return Page().IsItemChecked(Id()); }

    // Switches the dependents by the state on screen, after somebody else has switched them.
    void ReapplyDependents() { SetCheck(IsChecked()); }

    void Store();

  private:
    bool OnReflectedCommand(UINT code) override;

    std::int32_t* m_field = nullptr;
    std::int32_t m_stored = 0;
    Dependents m_dependents;
};

}  // namespace vmk
