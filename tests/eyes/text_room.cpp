#include "tests/eyes/text_room.h"

#include <commctrl.h>
#include <uxtheme.h>
#include <vssym32.h>

#include <algorithm>
#include <utility>

#include "tests/eyes/kinds.h"

namespace vmk::test {
namespace {

// What the classes of the system keep free around their texts, in pixels of a screen of 96 dots per inch.
constexpr int kButtonSide = 3;      // the margin that themes keep
constexpr int kButtonTop = 2;       // edge
constexpr int kCheckBoxSize = 13;   // where the theme says nothing larger
constexpr int kCheckBoxFocus = 2;   // the focus frame on both sides of the text
constexpr int kGroupBoxSide = 9;    // the frame before and behind the title
constexpr int kItemSide = 3;        // an item of a list
constexpr int kClosedItemSide = 2;  // the item that a closed list shows

// A window's font in a device context of its own.
class Pen {
  public:
    explicit Pen(HWND window) : m_window(window), m_context(GetDC(window)) {
        auto* font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
        m_previous = SelectObject(m_context, font ? font : GetStockObject(SYSTEM_FONT));
    }
    ~Pen() {
        SelectObject(m_context, m_previous);
        ReleaseDC(m_window, m_context);
    }
    Pen(const Pen&) = delete;
    Pen& operator=(const Pen&) = delete;

    TEXTMETRICW Metrics() const {
        TEXTMETRICW metrics{};
        GetTextMetricsW(m_context, &metrics);
        return metrics;
    }
    // What a text takes on one line, or on lines that are broken between words.
    SIZE Size(const std::wstring& text, UINT format) const { return Size(text, format | DT_SINGLELINE, 0); }
    SIZE WrappedSize(const std::wstring& text, UINT format, int width) const {
        return Size(text, format | DT_WORDBREAK | DT_EXPANDTABS, width);
    }
    int HalfADigit() const {
        SIZE digit{};
        GetTextExtentPoint32W(m_context, L"0", 1, &digit);
        return static_cast<int>(digit.cx) / 2;
    }

  private:
    SIZE Size(const std::wstring& text, UINT format, int width) const {
        RECT lines{.left = 0, .top = 0, .right = width, .bottom = 0};
        DrawTextW(m_context, text.c_str(), static_cast<int>(text.size()), &lines, format | DT_CALCRECT);
        return {.cx = lines.right, .cy = lines.bottom};
    }

    HWND m_window;
    HDC m_context;
    HGDIOBJ m_previous;
};

SIZE ClientSize(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {.cx = client.right, .cy = client.bottom};
}

Room OfPushButton(const Control& control, const Pen& pen) {
    const SIZE client = ClientSize(control.window);
    const SIZE has = {.cx = client.cx - 2 * Scaled(kButtonSide), .cy = client.cy - 2 * Scaled(kButtonTop)};
    const bool wraps = (control.style & BS_MULTILINE) != 0;
    return {.kind = eye::kCut,
            .text = control.text,
            .needed = wraps ? pen.WrappedSize(control.text, 0, has.cx) : pen.Size(control.text, 0),
            .has = has};
}

// The box of a check box or radio button, as the theme draws it.
int BoxWidth(const Control& control) {
    SIZE box{};
    if (HTHEME theme = OpenThemeData(control.window, L"Button")) {
        const int part = control.Is(ControlKind::kCheckBox) ? BP_CHECKBOX : BP_RADIOBUTTON;
        GetThemePartSize(theme, nullptr, part, CBS_UNCHECKEDNORMAL, nullptr, TS_DRAW, &box);
        CloseThemeData(theme);
    }
    return std::max(static_cast<int>(box.cx), Scaled(kCheckBoxSize));
}

Room OfCheckBox(const Control& control, const Pen& pen) {
    const SIZE client = ClientSize(control.window);
    const int room = client.cx - BoxWidth(control) - pen.HalfADigit() - Scaled(kCheckBoxFocus);
    const bool wraps = (control.style & BS_MULTILINE) != 0;
    return {.kind = eye::kCut,
            .text = control.text,
            .needed = wraps ? pen.WrappedSize(control.text, 0, room) : pen.Size(control.text, 0),
            .has = {.cx = room, .cy = client.cy}};
}

Room OfGroupBox(const Control& control, const Pen& pen) {
    const SIZE client = ClientSize(control.window);
    return {.kind = eye::kCut,
            .text = control.text,
            .needed = pen.Size(control.text, 0),
            .has = {.cx = client.cx - 2 * Scaled(kGroupBoxSide), .cy = client.cy}};
}

bool Wraps(DWORD labelStyle) {
    const DWORD type = labelStyle & SS_TYPEMASK;
    return type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT;
}

Room OfLabel(const Control& control, const Pen& pen) {
    const SIZE client = ClientSize(control.window);
    const UINT prefix = (control.style & SS_NOPREFIX) ? DT_NOPREFIX : 0;
    return {.kind = eye::kCut,
            .text = control.text,
            .needed = Wraps(control.style) ? pen.WrappedSize(control.text, prefix, client.cx)
                                           : pen.Size(control.text, prefix),
            .has = client};
}

// What is left of the list's width beside its frame and its scroll bar, which it may need.
int DroppedRoom(HWND combo) {
    return static_cast<int>(SendMessageW(combo, CB_GETDROPPEDWIDTH, 0, 0)) -
           2 * GetSystemMetrics(SM_CXBORDER) - GetSystemMetrics(SM_CXVSCROLL) - 2 * Scaled(kItemSide);
}

std::vector<Room> OfCombo(const Control& control, const Pen& pen) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    GetComboBoxInfo(control.window, &info);
    const int closed = info.rcItem.right - info.rcItem.left - 2 * Scaled(kClosedItemSide);
    const int dropped = DroppedRoom(control.window);
    std::vector<Room> rooms;
    for (const std::wstring& text : ItemsOf(control.window)) {
        const SIZE needed = pen.Size(text, DT_NOPREFIX);
        rooms.push_back({.kind = eye::kCutWhenDropped,
                         .text = text,
                         .needed = needed,
                         .has = {.cx = dropped, .cy = needed.cy}});
        if (control.Is(ControlKind::kComboBox)) continue;
        rooms.push_back({.kind = eye::kCutWhenClosed,
                         .text = text,
                         .needed = needed,
                         .has = {.cx = closed, .cy = info.rcItem.bottom - info.rcItem.top}});
    }
    return rooms;
}

std::wstring ItemText(HWND list, int index) {
    wchar_t text[260] = {};
    LVITEMW item{};
    item.pszText = text;
    item.cchTextMax = 260;
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return text;
}

std::vector<Room> OfList(const Control& control, const Pen& pen) {
    std::vector<Room> rooms;
    const int right = ClientSize(control.window).cx;
    for (int index = 0; index < ListView_GetItemCount(control.window); ++index) {
        RECT label{};
        ListView_GetItemRect(control.window, index, &label, LVIR_LABEL);
        const std::wstring text = ItemText(control.window, index);
        const SIZE needed = pen.Size(text, DT_NOPREFIX);
        const int has = std::min(static_cast<int>(label.right), right) - label.left - 2 * Scaled(kItemSide);
        rooms.push_back({.kind = eye::kCutInList,
                         .text = text,
                         .needed = needed,
                         .has = {.cx = has, .cy = label.bottom - label.top}});
    }
    return rooms;
}

// Where a line of text begins that is drawn in the middle of so much height.
int Middle(const RECT& place, const TEXTMETRICW& metrics) {
    return (place.top + place.bottom - metrics.tmHeight) / 2;
}

int TextTopOfEdit(HWND edit, HWND view) {
    RECT text{};
    SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
    MapWindowPoints(edit, view, reinterpret_cast<POINT*>(&text), 2);
    return text.top;
}

int TextTopOfCombo(const Control& control, HWND view, const TEXTMETRICW& metrics) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    GetComboBoxInfo(control.window, &info);
    if (control.Is(ControlKind::kComboBox)) return TextTopOfEdit(info.hwndItem, view);
    MapWindowPoints(control.window, view, reinterpret_cast<POINT*>(&info.rcItem), 2);
    return Middle(info.rcItem, metrics);
}

int TextTopOfButton(const Control& control, HWND view, const Pen& pen) {
    const TEXTMETRICW metrics = pen.Metrics();
    RECT client{};
    GetClientRect(control.window, &client);
    MapWindowPoints(control.window, view, reinterpret_cast<POINT*>(&client), 2);
    if (!(control.style & BS_MULTILINE)) return Middle(client, metrics);
    const Room room = OfCheckBox(control, pen);
    return (client.top + client.bottom - room.needed.cy) / 2;
}

}  // namespace

std::vector<Room> TextRooms(const Control& control) {
    const Pen pen(control.window);
    switch (control.kind) {
        case ControlKind::kPushButton:
            if (control.style & (BS_BITMAP | BS_ICON)) return {};
            return {OfPushButton(control, pen)};
        case ControlKind::kCheckBox:
        case ControlKind::kRadioButton:
            return {OfCheckBox(control, pen)};
        case ControlKind::kGroupBox:
            return {OfGroupBox(control, pen)};
        case ControlKind::kLabel:
            return {OfLabel(control, pen)};
        case ControlKind::kDropDownList:
        case ControlKind::kComboBox:
            return OfCombo(control, pen);
        case ControlKind::kList:
            return OfList(control, pen);
        default:
            return {};
    }
}

int BaselineOf(const Control& control, HWND view) {
    const Pen pen(control.window);
    const TEXTMETRICW metrics = pen.Metrics();
    switch (control.kind) {
        case ControlKind::kLabel:
            return metrics.tmAscent +
                   ((control.style & SS_CENTERIMAGE) ? Middle(control.place, metrics) : control.place.top);
        case ControlKind::kEdit:
            return metrics.tmAscent + TextTopOfEdit(control.window, view);
        case ControlKind::kDropDownList:
        case ControlKind::kComboBox:
            return metrics.tmAscent + TextTopOfCombo(control, view, metrics);
        case ControlKind::kCheckBox:
        case ControlKind::kRadioButton:
        case ControlKind::kPushButton:
            return metrics.tmAscent + TextTopOfButton(control, view, pen);
        default:
            return -1;
    }
}

int Scaled(int pixels) {
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return MulDiv(pixels, dpi, 96);
}

}  // namespace vmk::test
