#pragma once

#include <cstdint>

#include "base/gdi.h"
#include "controls/bound_dialog.h"

namespace vmk {

// A push button that shows a colour as a bitmap, and lets the user choose another one.
class ColorButton final : public BoundValue {
  public:
    // Shows the field's colour. The dialog's button has no object of its own.
    void Bind(BoundDialog& page, UINT id, std::int32_t& field);

    // Makes a colour both the working value and what is shown.
    void SetColor(std::int32_t color);

    void Store() override { *m_field = static_cast<std::int32_t>(m_color); }

    bool OnCommand(Command command) override;

  private:
    void PickColor();
    void Paint();

    BoundDialog* m_page = nullptr;
    UINT m_id = 0;
    std::int32_t* m_field = nullptr;
    COLORREF m_color = 0;
    UniqueBitmap m_face;
};

}  // namespace vmk
