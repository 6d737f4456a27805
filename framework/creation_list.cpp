#include "framework/creation_list.h"

namespace vmk {
namespace {

class Locked {
  public:
    explicit Locked(CRITICAL_SECTION& section) noexcept : m_section(section) {
        EnterCriticalSection(&m_section);
    }
    ~Locked() { LeaveCriticalSection(&m_section); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

  private:
    CRITICAL_SECTION& m_section;
};

}  // namespace

CreationList::Announcement::Announcement(CreationList& list, Window& object) noexcept
    : m_list(list), m_object(&object), m_thread(GetCurrentThreadId()) {
    const Locked locked(list.m_guard);
    m_next = list.m_first;
    list.m_first = this;
}

CreationList::Announcement::~Announcement() {
    m_list.Withdraw(*this);
}

Window* CreationList::Take() noexcept {
    const DWORD thread = GetCurrentThreadId();
    const Locked locked(m_guard);
    for (Announcement** link = &m_first; *link; link = &(*link)->m_next) {
        Announcement* const found = *link;
        if (found->m_thread != thread) continue;
        *link = found->m_next;
        return found->m_object;
    }
    return nullptr;
}

void CreationList::Withdraw(const Announcement& announcement) noexcept {
    const Locked locked(m_guard);
    for (Announcement** link = &m_first; *link; link = &(*link)->m_next) {
        if (*link != &announcement) continue;
        *link = announcement.m_next;
        return;
    }
}

}  // namespace vmk
