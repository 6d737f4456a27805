#include "framework/window.h"

#include <utility>

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

void RemoveProperties(HWND hwnd) noexcept {
    RemovePropW(hwnd, kObjectProperty);
    RemovePropW(hwnd, kSuperProcProperty);
}

WNDPROC CurrentProc(HWND hwnd) noexcept {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hwnd, GWLP_WNDPROC));
}

// No window is without a procedure, so that no former one means failure.
bool ReplaceProc(HWND hwnd, WNDPROC proc) noexcept {
    return SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(proc)) != 0;
}

}  // namespace

// A message on its way through an object. Messages nest, and each of them may destroy the window or the
// object; the object tells all of them when it goes.
class Window::Handling {
  public:
    explicit Handling(Window& object) noexcept : m_object(&object), m_outer(object.m_handling) {
        object.m_handling = this;
    }
    ~Handling() {
        if (!m_object) return;
        m_object->m_handling = m_outer;
        if (m_object->m_lastWindow && !m_outer)
            m_object->OnFinalMessage(std::exchange(m_object->m_lastWindow, nullptr));
    }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

    // Null once the object is gone.
    Window* Object() const noexcept { return m_object; }

    static void ForgetObject(Handling* innermost) noexcept {
        for (; innermost; innermost = innermost->m_outer) innermost->m_object = nullptr;
    }

  private:
    Window* m_object;
    Handling* m_outer;
};

Window::~Window() {
    Handling::ForgetObject(m_handling);
    if (m_hwnd) Detach();
}

bool Window::SubclassWindow(HWND hwnd) noexcept {
    const WNDPROC superProc = CurrentProc(hwnd);
    const bool isFree = !m_hwnd && superProc && !GetPropW(hwnd, kSuperProcProperty);
    if (!isFree || !SetProperties(hwnd, superProc, this)) {
        SetLastError(ERROR_OUTOFMEMORY);
        return false;
    }
    if (!ReplaceProc(hwnd, WindowProc)) {
        RemoveProperties(hwnd);
        SetLastError(ERROR_OUTOFMEMORY);
        return false;
    }
    m_hwnd = hwnd;
    return true;
}

Window* Window::FromHandle(HWND hwnd) noexcept {
    // Objects belong to the thread of their window.
    if (!hwnd || GetWindowThreadProcessId(hwnd, nullptr) != GetCurrentThreadId()) return nullptr;
    return static_cast<Window*>(GetPropW(hwnd, kObjectProperty));
}

void Window::Detach() noexcept {
    HWND hwnd = m_hwnd;
    m_hwnd = nullptr;
    RemovePropW(hwnd, kObjectProperty);
    if (CurrentProc(hwnd) != WindowProc) return;
    if (ReplaceProc(hwnd, SuperProc(hwnd))) RemovePropW(hwnd, kSuperProcProperty);
}

void Window::DetachForEver() noexcept {
    m_lastWindow = m_hwnd;
    Detach();
    RemovePropW(m_lastWindow, kSuperProcProperty);
}

LRESULT Window::DefaultProc(UINT msg, WPARAM wParam, LPARAM lParam) const noexcept {
    return CallWindowProcW(SuperProc(m_hwnd), m_hwnd, msg, wParam, lParam);
}

std::optional<LRESULT> Window::Dispatch(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept {
    const Handling handling(*this);
    try {
        return ProcessWindowMessage(hwnd, msg, wParam, lParam);
    } catch (...) {
        // Out of memory in a message: the system's frames below must not be unwound, so the message counts as
        // not ours.
        if (handling.Object()) OnMessageFailed(msg);
        return std::nullopt;
    }
}

LRESULT CALLBACK Window::WindowProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept {
    const WNDPROC superProc = SuperProc(hwnd);
    auto* const object = static_cast<Window*>(GetPropW(hwnd, kObjectProperty));
    if (!object) return CallWindowProcW(superProc, hwnd, msg, wParam, lParam);

    const Handling handling(*object);
    const std::optional<LRESULT> answer = object->Dispatch(hwnd, msg, wParam, lParam);
    if (msg != WM_NCDESTROY) return answer ? *answer : CallWindowProcW(superProc, hwnd, msg, wParam, lParam);

    if (handling.Object()) object->DetachForEver();
    return CallWindowProcW(superProc, hwnd, msg, wParam, lParam);
}

}  // namespace vmk
