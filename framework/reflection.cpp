#include "framework/reflection.h"

#include <olectl.h>

#include <algorithm>
#include <iterator>

#include "framework/window.h"

namespace vmk {
namespace {

// Notifications whose LPARAM is the control's window; in the other kinds it is a structure.
constexpr UINT kWindowInLParam[] = {
    WM_COMMAND,         WM_VKEYTOITEM,     WM_CHARTOITEM,        WM_HSCROLL,
    WM_VSCROLL,         WM_CTLCOLORBTN,    WM_CTLCOLORDLG,       WM_CTLCOLOREDIT,
    WM_CTLCOLORLISTBOX, WM_CTLCOLORMSGBOX, WM_CTLCOLORSCROLLBAR, WM_CTLCOLORSTATIC,
};
constexpr UINT kStructureInLParam[] = {
    WM_NOTIFY, WM_PARENTNOTIFY, WM_DRAWITEM, WM_MEASUREITEM, WM_COMPAREITEM, WM_DELETEITEM,
};

HWND Child(HWND parent, UINT id) noexcept {
    return GetDlgItem(parent, static_cast<int>(id));
}

// The control that sent a notification; null when the message is none or comes from a menu.
HWND Sender(HWND parent, UINT msg, WPARAM wParam, LPARAM lParam) noexcept {
    if (std::ranges::find(kWindowInLParam, msg) != std::end(kWindowInLParam))
        return reinterpret_cast<HWND>(lParam);
    switch (msg) {
        case WM_NOTIFY:
            return reinterpret_cast<const NMHDR*>(lParam)->hwndFrom;
        case WM_PARENTNOTIFY:
            if (LOWORD(wParam) == WM_CREATE || LOWORD(wParam) == WM_DESTROY)
                return reinterpret_cast<HWND>(lParam);
            return Child(parent, HIWORD(wParam));
        case WM_DRAWITEM:
            return wParam ? reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem : nullptr;
        case WM_MEASUREITEM:
            return wParam ? Child(parent, reinterpret_cast<const MEASUREITEMSTRUCT*>(lParam)->CtlID)
                          : nullptr;
        case WM_COMPAREITEM:
            return reinterpret_cast<const COMPAREITEMSTRUCT*>(lParam)->hwndItem;
        case WM_DELETEITEM:
            return reinterpret_cast<const DELETEITEMSTRUCT*>(lParam)->hwndItem;
        default:
            return nullptr;
    }
}

bool IsNotification(UINT msg) noexcept {
    return std::ranges::find(kWindowInLParam, msg) != std::end(kWindowInLParam) ||
           std::ranges::find(kStructureInLParam, msg) != std::end(kStructureInLParam);
}

}  // namespace

std::optional<LRESULT> ReflectNotification(HWND parent, UINT msg, WPARAM wParam, LPARAM lParam) noexcept {
    HWND sender = Sender(parent, msg, wParam, lParam);
    if (!Window::FromHandle(sender)) return std::nullopt;
    return SendMessageW(sender, OCM__BASE + msg, wParam, lParam);
}

std::optional<LRESULT> DefaultReflection(HWND control, UINT msg, WPARAM wParam, LPARAM lParam) noexcept {
    if (msg < OCM__BASE || !IsNotification(msg - OCM__BASE)) return std::nullopt;
    return DefWindowProcW(control, msg - OCM__BASE, wParam, lParam);
}

}  // namespace vmk
