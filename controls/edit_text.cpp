#include "controls/edit_text.h"

#include "base/wipe.h"

namespace vmk {

void CMyEditText::Bind(BoundDialog& page, UINT id, std::wstring& field) {
    Attach(page, id);
    m_field = &field;
    // A box takes no typing beyond the limit that it starts with; a text has none of its own.
    SendMessageW(Handle(), EM_SETLIMITTEXT, 0, 0);
    // A box begins empty.
    if (!field.empty()) Show();
}

void CMyEditText::Store() {
    std::wstring text = Text();
    m_field->swap(text);
    if (GetWindowLongPtrW(Handle(), GWL_STYLE) & ES_PASSWORD) Wipe(text);
}

}  // namespace vmk
