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
    using SetContext = DPI_AWARENESS_CONTEXT WINAPI(DPI_AWARENESS_CONTEXT);

    // Kept for the way back, which must not fail.
    SetContext* m_set;
    DPI_AWARENESS_CONTEXT m_previous = nullptr;  // null: the thread's context stays
};

}  // namespace vmk
