#pragma once

#include <windows.h>

#include <optional>

namespace vmk {

// An object that owns the procedure of one window. The object is attached to an existing window
// (SubclassWindow) or, for dialogs, by the window's first message (dialog.h), and is detached by the window's
// last message or by its own destructor, whichever comes first: object and window may die in either order.
class Window {
  public:
    Window() noexcept = default;
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    HWND Handle() const noexcept { return m_hwnd; }

    // Attaches the object to a window of this thread. On failure nothing has changed, and the thread's last
    // error is ERROR_OUTOFMEMORY.
    bool SubclassWindow(HWND hwnd) noexcept;

    // The object that is attached to a window, or null.
    static Window* FromHandle(HWND hwnd) noexcept;

  protected:
    // The window's message map. An empty result means "not mine": the message goes on to the procedure that
    // the window had before.
    virtual std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam,
                                                        LPARAM lParam) = 0;

    // The object's last call as the owner of a window: after the window's last message, and after every other
    // message of the window that the object is still handling. May delete the object.
    virtual void OnFinalMessage(HWND /*hwnd*/) noexcept {}

    // ProcessWindowMessage has thrown: what the object makes of a message that it could not handle.
    virtual void OnMessageFailed(UINT /*msg*/) noexcept {}

    // What the window would do with a message if this object were not attached.
    LRESULT DefaultProc(UINT msg, WPARAM wParam, LPARAM lParam) const noexcept;

  private:
    friend class Dialog;
    friend class WindowTable;
    class Handling;

    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept;

    std::optional<LRESULT> Dispatch(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept;
    bool LetGo() noexcept;
    void Detach() noexcept;
    void DetachForEver() noexcept;

    HWND m_hwnd = nullptr;
    WNDPROC m_superProc = DefWindowProcW;  // what the object's window had before
    Window* m_nextInTable = nullptr;       // WindowTable's
    HWND m_lastWindow = nullptr;           // detached by its last message, OnFinalMessage still to come
    Handling* m_handling = nullptr;        // the innermost message
};

}  // namespace vmk
