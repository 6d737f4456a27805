#pragma once

#include <windows.h>

namespace vmk {

// Gives windows that this thread creates during the object's life the visual style of this module's manifest
// (resource 2, common controls version 6), whatever the host's own manifest says.
class VisualStyle {
  public:
    VisualStyle() noexcept;
    ~VisualStyle();
    VisualStyle(const VisualStyle&) = delete;
    VisualStyle& operator=(const VisualStyle&) = delete;

  private:
    HANDLE m_context;
    ULONG_PTR m_cookie = 0;
    bool m_active = false;
};

}  // namespace vmk
