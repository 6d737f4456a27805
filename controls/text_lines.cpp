#include "controls/text_lines.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <string>

namespace vmk {
namespace {

// In dialog units: the height of a line of text, and what a list keeps free beside its items.
constexpr int kLineHeight = 8;
constexpr int kItemMargins = 8;

enum class Kind { kLabel, kCheck, kEdit, kCombo, kSpin, kOther };

constexpr struct {
    const wchar_t* className;
    Kind kind;
} kKinds[] = {{WC_STATICW, Kind::kLabel},
              {WC_BUTTONW, Kind::kCheck},
              {WC_EDITW, Kind::kEdit},
              {WC_COMBOBOXW, Kind::kCombo},
              {UPDOWN_CLASSW, Kind::kSpin}};

LONG StyleOf(HWND window) noexcept {
    return GetWindowLongW(window, GWL_STYLE);
}

bool IsCheckOrRadioButton(HWND button) noexcept {
    const LONG type = StyleOf(button) & BS_TYPEMASK;
    return type == BS_AUTOCHECKBOX || type == BS_AUTORADIOBUTTON;
}

Kind KindOf(HWND window) noexcept {
    wchar_t name[std::size(UPDOWN_CLASSW) + 1] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    for (const auto& row : kKinds) {
        if (std::wcscmp(row.className, name) != 0) continue;
        return row.kind == Kind::kCheck && !IsCheckOrRadioButton(window) ? Kind::kOther : row.kind;
    }
    return Kind::kOther;
}

bool HasTextLine(HWND window) noexcept {
    const Kind kind = KindOf(window);
    return kind == Kind::kEdit || kind == Kind::kCombo;
}

int PixelsHigh(HWND dialog, int units) noexcept {
    RECT rect = {.left = 0, .top = 0, .right = 0, .bottom = units};
    return MapDialogRect(dialog, &rect) ? rect.bottom : 0;
}

RECT PlaceIn(HWND dialog, HWND window) noexcept {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

int TopIn(HWND dialog, HWND window, int top) noexcept {
    POINT point = {.x = 0, .y = top};
    MapWindowPoints(window, dialog, &point, 1);
    return point.y;
}

int TextTopOfEdit(HWND dialog, HWND edit) noexcept {
    RECT text{};
    SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
    return TopIn(dialog, edit, text.top);
}

int TextTopOfCombo(HWND dialog, HWND combo) noexcept {
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    SendMessageW(combo, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
    const bool isTypedIn = (StyleOf(combo) & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST;
    if (isTypedIn && info.hwndItem) return TextTopOfEdit(dialog, info.hwndItem);
    return TopIn(dialog, combo, (info.rcItem.top + info.rcItem.bottom - PixelsHigh(dialog, kLineHeight)) / 2);
}

// Where the text of a control begins, from the dialog's top.
int TextTop(HWND dialog, HWND control) noexcept {
    const RECT place = PlaceIn(dialog, control);
    switch (KindOf(control)) {
        case Kind::kEdit:
            return TextTopOfEdit(dialog, control);
        case Kind::kCombo:
            return TextTopOfCombo(dialog, control);
        case Kind::kCheck:
            return (place.top + place.bottom - PixelsHigh(dialog, kLineHeight)) / 2;
        default:
            return place.top;
    }
}

bool ShareRow(HWND dialog, HWND one, HWND other) noexcept {
    const RECT first = PlaceIn(dialog, one);
    const RECT second = PlaceIn(dialog, other);
    return first.top < second.bottom && second.top < first.bottom;
}

// The next sibling in one direction that is neither a label out of sight nor, where that is asked for, the
// arrows of a box.
HWND Neighbour(HWND window, UINT direction, bool passOverSpins) noexcept {
    HWND found = window;
    do {
        found = GetWindow(found, direction);
    } while (found && ((KindOf(found) == Kind::kLabel && !(StyleOf(found) & WS_VISIBLE)) ||
                       (passOverSpins && KindOf(found) == Kind::kSpin)));
    return found;
}

// The box or list whose text line a label or button has to share; null: none.
HWND CompanionOf(HWND dialog, HWND label) noexcept {
    const auto isBeside = [=](HWND window) {
        return window && HasTextLine(window) && ShareRow(dialog, label, window);
    };
    HWND next = Neighbour(label, GW_HWNDNEXT, false);
    if (isBeside(next)) return next;
    HWND before = Neighbour(label, GW_HWNDPREV, true);
    return isBeside(before) ? before : nullptr;
}

class TextContext {
  public:
    explicit TextContext(HWND window)
        : m_window(window),
          m_context(GetDC(window)),
          m_previous(
              SelectObject(m_context, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)))) {}
    ~TextContext() {
        SelectObject(m_context, m_previous);
        ReleaseDC(m_window, m_context);
    }
    TextContext(const TextContext&) = delete;
    TextContext& operator=(const TextContext&) = delete;

    int Width(const std::wstring& text) const noexcept {
        SIZE size{};
        GetTextExtentPoint32W(m_context, text.c_str(), static_cast<int>(text.size()), &size);
        return size.cx;
    }

  private:
    HWND m_window;
    HDC m_context;
    HGDIOBJ m_previous;
};

int WidestItem(HWND combo) {
    const TextContext context(combo);
    const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
    int widest = 0;
    for (LRESULT item = 0; item < count; ++item) {
        const LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(item), 0);
        if (length == CB_ERR) continue;
        std::wstring text(static_cast<size_t>(length), L'\0');
        SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(text.data()));
        widest = std::max(widest, context.Width(text));
    }
    return widest;
}

}  // namespace

void PutLabelsOnTextLines(HWND dialog) noexcept {
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const Kind kind = KindOf(child);
        if (kind != Kind::kLabel && kind != Kind::kCheck) continue;
        HWND companion = CompanionOf(dialog, child);
        if (!companion) continue;
        const int down = TextTop(dialog, companion) - TextTop(dialog, child);
        if (down == 0) continue;
        const RECT place = PlaceIn(dialog, child);
        SetWindowPos(child, nullptr, place.left, place.top + down, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void WidenDropDownLists(HWND dialog) {
    RECT margins = {.left = 0, .top = 0, .right = kItemMargins, .bottom = 0};
    MapDialogRect(dialog, &margins);
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (KindOf(child) != Kind::kCombo) continue;
        const int width = WidestItem(child) + GetSystemMetrics(SM_CXVSCROLL) + margins.right;
        if (width > SendMessageW(child, CB_GETDROPPEDWIDTH, 0, 0))
            SendMessageW(child, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width), 0);
    }
}

}  // namespace vmk
