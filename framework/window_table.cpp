#include "framework/window_table.h"

#include <cstdint>

#include "framework/window.h"

namespace vmk {

// Handles are numbered by the system, which counts in their lower half.
std::size_t WindowTable::ChainOf(HWND hwnd) noexcept {
    return reinterpret_cast<std::uintptr_t>(hwnd) / 2 % kChains;
}

void WindowTable::Add(Window& object) noexcept {
    const CriticalSection::Lock lock(m_guard);
    Window*& first = m_chains[ChainOf(object.m_hwnd)];
    object.m_nextInTable = first;
    first = &object;
}

void WindowTable::Remove(const Window& object) noexcept {
    const CriticalSection::Lock lock(m_guard);
    for (Window** link = &m_chains[ChainOf(object.m_hwnd)]; *link; link = &(*link)->m_nextInTable) {
        if (*link != &object) continue;
        *link = object.m_nextInTable;
        return;
    }
}

Window* WindowTable::Find(HWND hwnd) const noexcept {
    const CriticalSection::Lock lock(m_guard);
    Window* object = m_chains[ChainOf(hwnd)];
    while (object && object->m_hwnd != hwnd) object = object->m_nextInTable;
    return object;
}

}  // namespace vmk
