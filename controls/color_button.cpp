#include "controls/color_button.h"

#include <utility>

#include "controls/color_dialog.h"

namespace vmk {
namespace {

// What the button keeps free around its bitmap, in pixels.
constexpr int kMarginX = 20;
constexpr int kMarginY = 10;

}  // namespace

void ColorButton::Bind(BoundDialog& page, UINT id, std::int32_t& field) {
    m_page = &page;
    m_id = id;
    m_field = &field;
    page.Register(*this);
    SetColor(field);
}

void ColorButton::SetColor(std::int32_t color) {
    m_color = static_cast<COLORREF>(color);
    Paint();
}

bool ColorButton::OnCommand(Command command) {
    if (command.id != m_id || command.code != BN_CLICKED) return false;
    PickColor();
    return true;
}

// The colour dialog opens at the upper right corner of the button.
void ColorButton::PickColor() {
    RECT button{};
    GetWindowRect(m_page->Item(m_id), &button);
    CMyColorDialog dialog(m_color, m_page->Handle(), {.x = button.right, .y = button.top});
    if (!dialog.Run()) return;
    m_color = dialog.Color();
    m_page->EnableApply();
    Paint();
}

void ColorButton::Paint() {
    HWND button = m_page->Item(m_id);
    RECT face{};
    GetClientRect(button, &face);
    face.right -= kMarginX;
    face.bottom -= kMarginY;

    // The context comes from GetDC but is handed back with DeleteDC, as it always was.
    const UniqueDeviceContext screen(GetDC(m_page->Handle()));
    const UniqueDeviceContext memory(CreateCompatibleDC(screen.get()));
    UniqueBitmap bitmap(CreateCompatibleBitmap(screen.get(), face.right, face.bottom));
    HGDIOBJ previous = SelectObject(memory.get(), bitmap.get());
    const UniqueBrush brush(CreateSolidBrush(m_color));
    FillRect(memory.get(), &face, brush.get());
    SelectObject(memory.get(), previous);

    m_face.reset();
    m_face = std::move(bitmap);
    SendMessageW(button, BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(m_face.get()));
}

}  // namespace vmk
