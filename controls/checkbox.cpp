#include "controls/checkbox.h"

namespace vmk {

void CMyCheckbox::Bind(BoundDialog& page, UINT id, std::int32_t& field, Dependents dependents) {
    Attach(page, id);
    m_field = &field;
    m_stored = field;
    m_dependents = dependents;
    Show();
}

void CMyCheckbox::BindBit(BoundDialog& page, UINT id, std::int32_t& field, std::int32_t bit) {
    m_bits = bit;
    Bind(page, id, field);
}

void CMyCheckbox::Show() {
    const bool on = (m_stored & m_bits) != 0;
    SetChecked(Handle(), on);
    if (IsEnabled() && (on || !m_dependents.offByClickOnly)) SwitchOthers();
}

void CMyCheckbox::SetCheck(bool checked) {
    SetChecked(Handle(), checked);
    SwitchOthers();
}

void CMyCheckbox::Store() {
    const std::int32_t on = m_bits == kAllBits ? 1 : m_bits;
    *m_field = (*m_field & ~m_bits) | (IsChecked() ? on : 0);
    m_stored = *m_field;
}

bool CMyCheckbox::OnReflectedCommand(UINT code) {
    if (code != BN_CLICKED) return false;
    EnableApply();
    SetCheck(IsChecked());
    return true;
}

}  // namespace vmk
