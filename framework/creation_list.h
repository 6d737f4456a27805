#pragma once

#include <windows.h>

#include "base/critical_section.h"

namespace vmk {

class Window;

// Hands objects to windows that do not exist yet: an object is announced just before its window is created,
// and the window's first message on the same thread takes it. Several threads may create windows at the same
// time.
class CreationList {
  public:
    // The guard lives longer than the list and may guard other things, too.
    explicit CreationList(CriticalSection& guard) noexcept : m_guard(guard) {}
    ~CreationList() = default;
    CreationList(const CreationList&) = delete;
    CreationList& operator=(const CreationList&) = delete;

    // One announcement, on the stack of the function that creates the window. It is withdrawn at the end of
    // the scope if no window has taken it.
    class Announcement {
      public:
        Announcement(CreationList& list, Window& object) noexcept;
        ~Announcement();
        Announcement(const Announcement&) = delete;
        Announcement& operator=(const Announcement&) = delete;

      private:
        friend class CreationList;
        CreationList& m_list;
        Window* m_object;
        DWORD m_thread;
        Announcement* m_next = nullptr;
    };

    // The object announced last on this thread, which is thereby taken; null when there is none.
    Window* Take() noexcept;

  private:
    void Withdraw(const Announcement& announcement) noexcept;

    CriticalSection& m_guard;
    Announcement* m_first = nullptr;
};

}  // namespace vmk
