#include "controls/radio_button.h"

#include "framework/reflection.h"

namespace vmk {

void CMyRadioButton::Bind(BoundDialog& page, UINT id, std::int32_t& field, const Options& options) {
    Attach(page, id);
    page.ExpectRadioButtons();
    m_field = &field;
    m_options = options;
}

void CMyRadioButton::Store() {
    if (IsChecked()) *m_field = m_options.value;
}

void CMyRadioButton::OnSetCheck(WPARAM state) {
    EnableApply();
    const bool selected = state == kSelectCode;
    if (selected) {
        for (const UINT id : m_options.group) Page().CheckItem(id, false);
        *m_field = m_options.value;
    }
    Page().EnableItems(m_options.dependents.ids, m_options.dependents.EnabledWhen(selected));
}

// Unlike the other bound controls it leaves the keys to the dialog manager, which moves between radio buttons
// with the arrow keys.
std::optional<LRESULT> CMyRadioButton::ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam,
                                                            LPARAM lParam) {
    if (msg == BM_SETCHECK) {
        OnSetCheck(wParam);
        return std::nullopt;
    }
    return DefaultReflection(hwnd, msg, wParam, lParam);
}

}  // namespace vmk
