#include "framework/creation_list.h"

namespace vmk {

CreationList::Announcement::Announcement(CreationList& list, Window& object) noexcept
    : m_list(list), m_object(&object), m_thread(GetCurrentThreadId()) {
    const CriticalSection::Lock lock(list.m_guard);
    m_next = list.m_first;
    list.m_first = this;
}

CreationList::Announcement::~Announcement() {
    m_list.Withdraw(*this);
}

Window* CreationList::Take() noexcept {
    const DWORD thread = GetCurrentThreadId();
    const CriticalSection::Lock lock(m_guard);
    for (Announcement** link = &m_first; *link; link = &(*link)->m_next) {
        Announcement* const found = *link;
        if (found->m_thread != thread) continue;
        *link = found->m_next;
        return found->m_object;
    }
    return nullptr;
}

void CreationList::Withdraw(const Announcement& announcement) noexcept {
    const CriticalSection::Lock lock(m_guard);
    for (Announcement** link = &m_first; *link; link = &(*link)->m_next) {
        if (*link != &announcement) continue;
        *link = announcement.m_next;
        return;
    }
}

}  // namespace vmk
