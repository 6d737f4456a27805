#include "controls/dialog_items.h"

#include <algorithm>

#include "base/child_windows.h"

namespace vmk {

DialogItems::DialogItems(HWND dialog) : m_windows(ChildWindows(dialog)) {
    m_states.reserve(m_windows.size());
    for (HWND window : m_windows) {
        m_states.push_back(
            {.id = static_cast<UINT>(GetDlgCtrlID(window)), .isEnabled = IsWindowEnabled(window) != FALSE});
    }
}

size_t DialogItems::Position(UINT id) const noexcept {
    return static_cast<size_t>(std::ranges::find(m_states, id, &State::id) - m_states.begin());
}

HWND DialogItems::Find(UINT id) const noexcept {
    const size_t position = Position(id);
    return position < m_windows.size() ? m_windows[position] : nullptr;
}

bool DialogItems::IsEnabled(UINT id) const noexcept {
    const size_t position = Position(id);
    return position < m_states.size() && m_states[position].isEnabled;
}

void DialogItems::Enable(UINT id, bool enable) noexcept {
    const size_t position = Position(id);
    if (position < m_states.size()) m_states[position].isEnabled = enable;
}

void DialogItems::Settle() const noexcept {
    for (size_t position = 0; position < m_windows.size(); ++position)
        SetEnabled(m_windows[position], m_states[position].isEnabled);
}

}  // namespace vmk
