#pragma once

#include <windows.h>

namespace vmk {

// Makes the windows that this thread creates during the object's life ones that know the system's resolution
// and leave it to the system to fit them to a monitor of another one, whatever the host does with its own.
// Without effect where Windows knows no such thing.
class SystemDpiAwareness {
  public:
    SystemDpiAwareness() noexcept;
    ~SystemDpiAwareness();
    SystemDpiAwareness(const SystemDpiAwareness&) = delete;
    SystemDpiAwareness& operator=(const SystemDpiAwareness&) = delete;

  private:
    DPI_AWARENESS_CONTEXT m_previous = nullptr;
};

}  // namespace vmk
