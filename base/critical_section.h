#pragma once

#include <windows.h>

namespace vmk {

// Lets one thread at a time through; the same thread may come again.
class CriticalSection {
  public:
    CriticalSection() noexcept { InitializeCriticalSection(&m_section); }
    ~CriticalSection() { DeleteCriticalSection(&m_section); }
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    // Keeps other threads out as long as it exists.
    class Lock {
      public:
        explicit Lock(CriticalSection& section) noexcept : m_section(section.m_section) {
            EnterCriticalSection(&m_section);
        }
        ~Lock() { LeaveCriticalSection(&m_section); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

      private:
        CRITICAL_SECTION& m_section;
    };

  private:
    CRITICAL_SECTION m_section{};
};

}  // namespace vmk
