#include "controls/checkbox.h"

namespace vmk {

void CMyCheckbox::Bind(BoundDialog& page, UINT id, std::int32_t& field, Dependents dependents) {
    Attach(page, id);
    m_field = &field;
    m_stored = field;
    m_dependents = dependents;
}

void CMyCheckbox::SetCheck(bool checked) {
    Page().CheckItem(Id(), checked);
    m_dependents.Set(Page(), checked);
}

void CMyCheckbox::Store() {
    *m_field = IsChecked() ? 1 : 0;
    m_stored = *m_field;
}

bool CMyCheckbox::OnReflectedCommand(UINT code) {
    if (code != BN_CLICKED) return false;
    EnableApply();
    SetCheck(IsChecked());
    return true;
}

}  // namespace vmk
