#pragma once

#include <string>

#include "base/window_text.h"
#include "controls/bound_control.h"

namespace vmk {

// An edit box that shows a text of any length. The text on screen is its working value.
class CMyEditText final : public BoundControl {
  public:
    // Attaches to the page's control and shows the field's text.
    void Bind(BoundDialog& page, UINT id, std::wstring& field);

    void Show() { SetText(*m_field); }
    void SetText(const std::wstring& text) { ShowText(Handle(), text.c_str()); }
    std::wstring Text() const { return WindowText(Handle()); }

    // Replaces the field by the whole text on screen. What a password box replaces is wiped from memory.
    void Store() override;

  private:
    std::wstring* m_field = nullptr;
};

}  // namespace vmk
