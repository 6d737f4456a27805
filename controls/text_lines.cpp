#include "controls/text_lines.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <string>
#include <vector>

#include "base/child_windows.h"

namespace vmk {
namespace {

// In dialog units: the height of a line of text, and what a list keeps free beside its items.
constexpr int kLineHeight = 8;
constexpr int kItemMargins = 8;

enum class Kind { kLabel, kButton, kEdit, kCombo, kSpin, kOther };

constexpr struct {
    const wchar_t* className;
    Kind kind;
} kKinds[] = {{WC_STATICW, Kind::kLabel},
              {WC_BUTTONW, Kind::kButton},
              {WC_EDITW, Kind::kEdit},
              {WC_COMBOBOXW, Kind::kCombo},
              {UPDOWN_CLASSW, Kind::kSpin}};

struct Item {
    HWND window;
    Kind kind;
    RECT place;  // in the dialog

    bool HasTextLine() const noexcept { return kind == Kind::kEdit || kind == Kind::kCombo; }
    bool SharesRowWith(const Item& other) const noexcept {
        return place.top < other.place.bottom && other.place.top < place.bottom;
    }
};

LONG StyleOf(HWND window) noexcept {
    return GetWindowLongW(window, GWL_STYLE);
}

Kind KindOf(HWND window) noexcept {
    wchar_t name[std::size(UPDOWN_CLASSW) + 1] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    for (const auto& row : kKinds) {
        if (std::wcscmp(row.className, name) == 0) return row.kind;
    }
    return Kind::kOther;
}

// A label out of sight stands beside nothing.
std::vector<Item> ItemsOf(HWND dialog) {
    std::vector<Item> items;
    for (HWND child : ChildWindows(dialog)) {
        Item item = {.window = child, .kind = KindOf(child), .place = {}};
        if (item.kind == Kind::kLabel && !(StyleOf(child) & WS_VISIBLE)) continue;
        GetWindowRect(child, &item.place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&item.place), 2);
        items.push_back(item);
    }
    return items;
}

bool IsLabelling(const Item& item) noexcept {
    if (item.kind != Kind::kButton) return item.kind == Kind::kLabel;
    const LONG type = StyleOf(item.window) & BS_TYPEMASK;
    return type == BS_AUTOCHECKBOX || type == BS_AUTORADIOBUTTON;
}

// The box or list whose text line an item has to share; null: none.
const Item* CompanionOf(const std::vector<Item>& items, size_t item) noexcept {
    const auto isBeside = [&](const Item& other) {
        return other.HasTextLine() && other.SharesRowWith(items[item]);
    };
    if (item + 1 < items.size() && isBeside(items[item + 1])) return &items[item + 1];
    size_t before = item;
    while (before > 0 && items[before - 1].kind == Kind::kSpin) --before;
    return before > 0 && isBeside(items[before - 1]) ? &items[before - 1] : nullptr;
}

// Measures texts in the font of a dialog.
class TextContext {
  public:
    explicit TextContext(HWND dialog) noexcept : m_dialog(dialog), m_context(GetDC(dialog)) {
        m_previous = SelectObject(m_context, reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)));
    }
    ~TextContext() {
        SelectObject(m_context, m_previous);
        ReleaseDC(m_dialog, m_context);
    }
    TextContext(const TextContext&) = delete;
    TextContext& operator=(const TextContext&) = delete;

    int Width(const std::wstring& text) const noexcept {
        SIZE size{};
        GetTextExtentPoint32W(m_context, text.c_str(), static_cast<int>(text.size()), &size);
        return size.cx;
    }

  private:
    HWND m_dialog;
    HDC m_context;
    HGDIOBJ m_previous;
};

class TextFitter {
  public:
    explicit TextFitter(HWND dialog) : m_dialog(dialog), m_items(ItemsOf(dialog)) {
        RECT units = {.left = 0, .top = 0, .right = kItemMargins, .bottom = kLineHeight};
        MapDialogRect(dialog, &units);
        m_itemMargins = units.right;
        m_lineHeight = units.bottom;
    }

    void PutLabelsOnTextLines() const noexcept {
        for (size_t item = 0; item < m_items.size(); ++item) {
            if (!IsLabelling(m_items[item])) continue;
            const Item* const companion = CompanionOf(m_items, item);
            if (companion) MoveDown(m_items[item], TextTop(*companion) - TextTop(m_items[item]));
        }
    }

    void WidenLists() const {
        if (std::ranges::find(m_items, Kind::kCombo, &Item::kind) == m_items.end()) return;
        const TextContext context(m_dialog);
        for (const Item& item : m_items) {
            if (item.kind == Kind::kCombo) WidenList(item.window, context);
        }
    }

  private:
    static void MoveDown(const Item& item, int pixels) noexcept {
        if (pixels == 0) return;
        SetWindowPos(item.window, nullptr, item.place.left, item.place.top + pixels, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    int Middle(int top, int bottom) const noexcept { return (top + bottom - m_lineHeight) / 2; }

    // Where the text of an item begins, from the dialog's top.
    int TextTop(const Item& item) const noexcept {
        switch (item.kind) {
            case Kind::kEdit:
                return TextTopOfEdit(item.window);
            case Kind::kCombo:
                return TextTopOfCombo(item.window);
            case Kind::kButton:
                return Middle(item.place.top, item.place.bottom);
            default:
                return item.place.top;
        }
    }

    int TextTopOfEdit(HWND edit) const noexcept {
        RECT text{};
        SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
        return InDialog(edit, text.top);
    }

    int TextTopOfCombo(HWND combo) const noexcept {
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        SendMessageW(combo, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
        const bool isTypedIn = (StyleOf(combo) & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST;
        if (isTypedIn && info.hwndItem) return TextTopOfEdit(info.hwndItem);
        return InDialog(combo, Middle(info.rcItem.top, info.rcItem.bottom));
    }

    int InDialog(HWND window, int top) const noexcept {
        POINT point = {.x = 0, .y = top};
        MapWindowPoints(window, m_dialog, &point, 1);
        return point.y;
    }

    void WidenList(HWND combo, const TextContext& context) const {
        const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
        int widest = 0;
        for (WPARAM item = 0; static_cast<LRESULT>(item) < count; ++item) {
            const LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, item, 0);
            if (length == CB_ERR) continue;
            std::wstring text(static_cast<size_t>(length), L'\0');
            SendMessageW(combo, CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text.data()));
            widest = std::max(widest, context.Width(text));
        }
        const int width = widest + GetSystemMetrics(SM_CXVSCROLL) + m_itemMargins;
        if (width > SendMessageW(combo, CB_GETDROPPEDWIDTH, 0, 0))
            SendMessageW(combo, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width), 0);
    }

    HWND m_dialog;
    std::vector<Item> m_items;
    int m_lineHeight;
    int m_itemMargins;
};

}  // namespace

void FitTexts(HWND dialog) {
    const TextFitter fitter(dialog);
    fitter.PutLabelsOnTextLines();
    fitter.WidenLists();
}

}  // namespace vmk
