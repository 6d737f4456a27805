#include "controls/plain_text.h"

#include "base/window_text.h"

namespace vmk {

void PlainText::Bind(BoundDialog& page, UINT id, std::wstring& field) {
    m_page = &page;
    m_id = id;
    m_field = &field;
    page.Register(*this);
    // A box takes no typing beyond the limit that it starts with. Each kind knows one of these.
    HWND box = page.Item(id);
    SendMessageW(box, EM_SETLIMITTEXT, 0, 0);
    SendMessageW(box, CB_LIMITTEXT, 0, 0);
    // A box begins empty.
    if (!field.empty()) ShowText(box, field.c_str());
}

void PlainText::Store() {
    *m_field = WindowText(m_page->Item(m_id));
}

bool PlainText::OnCommand(Command command) {
    if (command.id != m_id) return false;
    if (command.code != EN_CHANGE && command.code != CBN_SELCHANGE && command.code != CBN_EDITCHANGE)
        return false;
    m_page->EnableApply();
    return true;
}

}  // namespace vmk
