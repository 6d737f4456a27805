#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/handle.h"
#include "framework/window.h"

namespace vmk::test {

struct Message {
    UINT msg;
    WPARAM wParam;
    LPARAM lParam;

    bool operator==(const Message&) const = default;
};

// An object that notes the messages it sees; a test says what it answers.
class RecordingWindow : public Window {
  public:
    using Handler = std::function<std::optional<LRESULT>(const Message&)>;

    Handler handler;
    std::vector<Message> messages;
    std::function<void()> onFinalMessage;

    bool Saw(UINT msg) const {
        for (const Message& message : messages)
            if (message.msg == msg) return true;
        return false;
    }

  private:
    std::optional<LRESULT> ProcessWindowMessage(HWND, UINT msg, WPARAM wParam, LPARAM lParam) override {
        const Message message = {.msg = msg, .wParam = wParam, .lParam = lParam};
        messages.push_back(message);
        return handler ? handler(message) : std::nullopt;
    }
    void OnFinalMessage(HWND) noexcept override {
        if (onFinalMessage) onFinalMessage();
    }
};

struct WindowTraits {
    using Value = HWND;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { DestroyWindow(value); }
};
using UniqueWindow = UniqueHandle<WindowTraits>;

// A window of a system class that nobody sees.
inline UniqueWindow HiddenWindow(const wchar_t* className = L"EDIT") {
    return UniqueWindow(
        CreateWindowExW(0, className, L"text", 0, 0, 0, 10, 10, HWND_MESSAGE, nullptr, nullptr, nullptr));
}

inline WNDPROC ProcOf(HWND hwnd) {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hwnd, GWLP_WNDPROC));
}

}  // namespace vmk::test
