#pragma once

#include <string>

#include "controls/bound_dialog.h"

namespace vmk {

// A text in a control without an object of its own, which therefore keeps its keys: a box of several lines,
// in which Enter begins a new one, or the box of a list that suggests texts.
class PlainText final : public BoundValue {
  public:
    // Shows the field. The control takes texts of any length.
    void Bind(BoundDialog& page, UINT id, std::wstring& field);

    void Store() override;

    // Whatever is typed or chosen enables Apply.
    bool OnCommand(Command command) override;

  private:
    const BoundDialog* m_page = nullptr;
    UINT m_id = 0;
    std::wstring* m_field = nullptr;
};

}  // namespace vmk
