#pragma once

#include <windows.h>

#include <atomic>
#include <string>

#include "base/critical_section.h"
#include "base/library.h"
#include "framework/creation_list.h"
#include "framework/window_table.h"

namespace vmk {

// What belongs to the loaded module as a whole: its instance handle, its lock count, its one critical
// section, the list of objects whose windows are being created and the table of those that have theirs. Each
// binary defines exactly one, as a static; it dies when the binary is unloaded.
class Module {
  public:
    Module() noexcept;
    virtual ~Module();
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    // The one module object of this binary.
    static Module& Get() noexcept { return *s_module; }

    // The binary that this code is linked into: where its resources are.
    HINSTANCE Instance() const noexcept { return m_instance; }

    // The full path of that binary; empty when the system does not tell. Throws std::bad_alloc.
    std::wstring Path() const;

    // The lock count keeps the module loaded: one for each live object, each reference to a class object and
    // each LockServer(TRUE). May be called from any thread; Lock and Unlock return the new count.
    virtual LONG Lock() noexcept { return ++m_locks; }
    virtual LONG Unlock() noexcept;
    virtual LONG GetLockCount() const noexcept { return m_locks; }

    // Takes over a reference to a library, in place of the one taken over before, and holds it until nothing
    // locks the module any more: what is used now and then is not loaded each time. May be called from any
    // thread.
    void KeepLoaded(UniqueLibrary library) noexcept;

    // Guards what the module's threads share. To be held for moments only, since all of them wait for it.
    CriticalSection& Guard() noexcept { return m_guard; }

    CreationList& Creations() noexcept { return m_creations; }

    WindowTable& Windows() noexcept { return m_windows; }

  private:
    static Module* s_module;

    HINSTANCE m_instance;
    std::atomic<LONG> m_locks = 0;
    CriticalSection m_guard;
    UniqueLibrary m_kept;
    CreationList m_creations{m_guard};
    WindowTable m_windows{m_guard};
};

}  // namespace vmk
