#include "framework/window.h"

namespace vmk {
namespace {

// Window properties: the attached object, and the procedure that was replaced. The second stays when the
// object goes before its window and somebody else has subclassed the window since: their procedure still
// calls ours.
constexpr wchar_t kObjectProperty[] = L"vmkctrl.Object";
constexpr wchar_t kSuperProcProperty[] = L"vmkctrl.SuperProc";

WNDPROC SuperProc(HWND hwnd) noexcept {
    const auto proc = reinterpret_cast<WNDPROC>(GetPropW(hwnd, kSuperProcProperty));
    return proc ? proc : DefWindowProcW;
}

bool SetProperties(HWND hwnd, WNDPROC superProc, Window* object) noexcept {
    if (!SetPropW(hwnd, kSuperProcProperty, reinterpret_cast<HANDLE>(superProc))) return false;
    if (SetPropW(hwnd, kObjectProperty, object)) return true;
    RemovePropW(hwnd, kSuperProcProperty);
    return false;
}

WNDPROC CurrentProc(HWND hwnd) noexcept {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hwnd, GWLP_WNDPROC));
}

}  // namespace

Window::~Window() {
    if (m_hwnd) Detach();
}

bool Window::SubclassWindow(HWND hwnd) noexcept {
    const WNDPROC superProc = CurrentProc(hwnd);
    const bool isFree = !m_hwnd && superProc && !GetPropW(hwnd, kSuperProcProperty);
    if (!isFree || !SetProperties(hwnd, superProc, this)) {
        SetLastError(ERROR_OUTOFMEMORY);
        return false;
    }
    m_hwnd = hwnd;
    SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowProc));
    return true;
}

Window* Window::FromHandle(HWND hwnd) noexcept {
    // Objects belong to the thread of their window.
    if (!hwnd || GetWindowThreadProcessId(hwnd, nullptr) != GetCurrentThreadId()) return nullptr;
    return static_cast<Window*>(GetPropW(hwnd, kObjectProperty));
}

void Window::Detach() noexcept {
    const HWND hwnd = m_hwnd;
    m_hwnd = nullptr;
    RemovePropW(hwnd, kObjectProperty);
    if (CurrentProc(hwnd) != WindowProc) return;
    SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(SuperProc(hwnd)));
    RemovePropW(hwnd, kSuperProcProperty);
}

LRESULT Window::DefaultProc(UINT msg, WPARAM wParam, LPARAM lParam) const noexcept {
    return CallWindowProcW(SuperProc(m_hwnd), m_hwnd, msg, wParam, lParam);
}

std::optional<LRESULT> Window::Dispatch(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept {
    try {
        return ProcessWindowMessage(hwnd, msg, wParam, lParam);
    } catch (...) {
        // Out of memory in a message: the system's frames below must not be unwound, so the message counts as
        // not ours.
        return std::nullopt;
    }
}

LRESULT CALLBACK Window::WindowProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept {
    const WNDPROC superProc = SuperProc(hwnd);
    auto* const object = static_cast<Window*>(GetPropW(hwnd, kObjectProperty));
    if (!object) return CallWindowProcW(superProc, hwnd, msg, wParam, lParam);

    const std::optional<LRESULT> answer = object->Dispatch(hwnd, msg, wParam, lParam);
    if (msg != WM_NCDESTROY) return answer ? *answer : CallWindowProcW(superProc, hwnd, msg, wParam, lParam);

    // The object may be gone after its own answer to the last message.
    if (GetPropW(hwnd, kObjectProperty) == object) {
        object->Detach();
        RemovePropW(hwnd, kSuperProcProperty);
        const LRESULT last = CallWindowProcW(superProc, hwnd, msg, wParam, lParam);
        object->OnFinalMessage(hwnd);
        return last;
    }
    return CallWindowProcW(superProc, hwnd, msg, wParam, lParam);
}

}  // namespace vmk
