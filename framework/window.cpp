#include "framework/window.h"

#include <utility>

#include "framework/module.h"
#include "framework/window_table.h"

namespace vmk {
namespace {

// A window property: the procedure that was replaced, where the object has gone before its window and
// somebody else had subclassed the window since. Their procedure still calls ours.
constexpr wchar_t kSuperProcProperty[] = L"vmkctrl.SuperProc";

WNDPROC LeftSuperProc(HWND hwnd) noexcept {
    const auto proc = reinterpret_cast<WNDPROC>(GetPropW(hwnd, kSuperProcProperty));
    return proc ? proc : DefWindowProcW;
}

WindowTable& AttachedWindows() noexcept {
    return Module::Get().Windows();
}

WNDPROC CurrentProc(HWND hwnd) noexcept {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hwnd, GWLP_WNDPROC));
}

// Where the object has gone and somebody else's procedure still calls ours, ours must not come a second time.
// A window that nobody has subclassed since it was made need not be asked.
bool MayStillCallUs(HWND hwnd, WNDPROC proc) noexcept {
    const auto classProc = reinterpret_cast<WNDPROC>(GetClassLongPtrW(hwnd, GCLP_WNDPROC));
    return proc != classProc && GetPropW(hwnd, kSuperProcProperty) != nullptr;
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
    const bool isFree =
        !m_hwnd && superProc && !AttachedWindows().Find(hwnd) && !MayStillCallUs(hwnd, superProc);
    if (!isFree || !ReplaceProc(hwnd, WindowProc)) {
        SetLastError(ERROR_OUTOFMEMORY);
        return false;
    }
    m_hwnd = hwnd;
    m_superProc = superProc;
    AttachedWindows().Add(*this);
    return true;
}

Window* Window::FromHandle(HWND hwnd) noexcept {
    // Objects belong to the thread of their window.
    if (!hwnd || GetWindowThreadProcessId(hwnd, nullptr) != GetCurrentThreadId()) return nullptr;
    return AttachedWindows().Find(hwnd);
}

// Whether the window has its former procedure again.
bool Window::LetGo() noexcept {
    AttachedWindows().Remove(*this);
    HWND hwnd = std::exchange(m_hwnd, nullptr);
    const WNDPROC superProc = std::exchange(m_superProc, DefWindowProcW);
    return CurrentProc(hwnd) == WindowProc && ReplaceProc(hwnd, superProc);
}

void Window::Detach() noexcept {
    HWND hwnd = m_hwnd;
    const WNDPROC superProc = m_superProc;
    if (!LetGo()) SetPropW(hwnd, kSuperProcProperty, reinterpret_cast<HANDLE>(superProc));
}

void Window::DetachForEver() noexcept {
    m_lastWindow = m_hwnd;
    LetGo();
}

LRESULT Window::DefaultProc(UINT msg, WPARAM wParam, LPARAM lParam) const noexcept {
    return CallWindowProcW(m_superProc, m_hwnd, msg, wParam, lParam);
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
    Window* const object = AttachedWindows().Find(hwnd);
    if (!object) return CallWindowProcW(LeftSuperProc(hwnd), hwnd, msg, wParam, lParam);
    const WNDPROC superProc = object->m_superProc;

    const Handling handling(*object);
    const std::optional<LRESULT> answer = object->Dispatch(hwnd, msg, wParam, lParam);
    if (msg != WM_NCDESTROY) return answer ? *answer : CallWindowProcW(superProc, hwnd, msg, wParam, lParam);

    if (handling.Object()) object->DetachForEver();
    return CallWindowProcW(superProc, hwnd, msg, wParam, lParam);
}

}  // namespace vmk
