#include "framework/window.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/framework/recording_window.h"

namespace vmk::test {
namespace {

constexpr UINT kPing = WM_APP + 1;
constexpr LRESULT kPong = 42;

std::optional<LRESULT> AnswerPing(const Message& message) {
    return message.msg == kPing ? std::optional(kPong) : std::nullopt;
}

// Somebody else's subclassing of the same window, done after ours.
class ForeignSubclass {
  public:
    explicit ForeignSubclass(HWND hwnd) {
        s_previous = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Proc)));
        s_messages = 0;
    }
    static int Messages() { return s_messages; }
    static LRESULT CALLBACK Proc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
        ++s_messages;
        return CallWindowProcW(s_previous, hwnd, msg, wParam, lParam);
    }

  private:
    static inline WNDPROC s_previous = nullptr;
    static inline int s_messages = 0;
};

TEST(AttachedObject, SeesEveryMessageFirstAndLeavesTheOthersToTheWindow) {
    const UniqueWindow edit = HiddenWindow();
    RecordingWindow object;
    object.handler = AnswerPing;
    ASSERT_TRUE(object.SubclassWindow(edit.get()));
    EXPECT_EQ(object.Handle(), edit.get());
    EXPECT_EQ(Window::FromHandle(edit.get()), &object);
    EXPECT_EQ(SendMessageW(edit.get(), kPing, 1, 2), kPong);
    EXPECT_EQ(object.messages, (std::vector<Message>{{kPing, 1, 2}}));
    EXPECT_EQ(SendMessageW(edit.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(object.messages.back().msg, UINT{WM_GETTEXTLENGTH});
}

TEST(AttachedObject, MayDieBeforeItsWindow) {
    const UniqueWindow edit = HiddenWindow();
    const WNDPROC original = ProcOf(edit.get());
    {
        RecordingWindow object;
        object.handler = AnswerPing;
        object.onFinalMessage = [] { FAIL() << "the window is still there"; };
        ASSERT_TRUE(object.SubclassWindow(edit.get()));
        EXPECT_NE(ProcOf(edit.get()), original);
    }
    EXPECT_EQ(ProcOf(edit.get()), original);
    EXPECT_EQ(Window::FromHandle(edit.get()), nullptr);
    EXPECT_EQ(SendMessageW(edit.get(), kPing, 0, 0), 0);
    EXPECT_EQ(SendMessageW(edit.get(), WM_GETTEXTLENGTH, 0, 0), 4);
}

TEST(AttachedObject, MayOutliveItsWindowAndTakeAnother) {
    UniqueWindow first = HiddenWindow();
    RecordingWindow object;
    ASSERT_TRUE(object.SubclassWindow(first.get()));
    first.reset();
    EXPECT_EQ(object.Handle(), nullptr);
    EXPECT_TRUE(object.Saw(WM_DESTROY));
    EXPECT_EQ(object.messages.back().msg, UINT{WM_NCDESTROY});

    const UniqueWindow second = HiddenWindow();
    EXPECT_TRUE(object.SubclassWindow(second.get()));
    EXPECT_EQ(object.Handle(), second.get());
}

TEST(AttachedObject, IsRefusedToAWindowThatHasOne) {
    const UniqueWindow edit = HiddenWindow();
    RecordingWindow object;
    ASSERT_TRUE(object.SubclassWindow(edit.get()));
    RecordingWindow second;
    SetLastError(ERROR_SUCCESS);
    EXPECT_FALSE(second.SubclassWindow(edit.get()));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_OUTOFMEMORY});
    EXPECT_EQ(second.Handle(), nullptr);
    EXPECT_EQ(Window::FromHandle(edit.get()), &object);
    SendMessageW(edit.get(), kPing, 0, 0);
    EXPECT_TRUE(object.Saw(kPing));
    EXPECT_FALSE(second.Saw(kPing));
}

TEST(AttachedObject, IsRefusedASecondWindow) {
    const UniqueWindow first = HiddenWindow();
    const UniqueWindow second = HiddenWindow();
    const WNDPROC original = ProcOf(second.get());
    RecordingWindow object;
    ASSERT_TRUE(object.SubclassWindow(first.get()));
    SetLastError(ERROR_SUCCESS);
    EXPECT_FALSE(object.SubclassWindow(second.get()));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_OUTOFMEMORY});
    EXPECT_EQ(object.Handle(), first.get());
    EXPECT_EQ(ProcOf(second.get()), original);
}

TEST(AttachedObject, IsRefusedWhereThereIsNoWindow) {
    RecordingWindow object;
    for (HWND nowhere : {HWND{nullptr}, HiddenWindow().get()}) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(object.SubclassWindow(nowhere));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_OUTOFMEMORY});
        EXPECT_EQ(object.Handle(), nullptr);
    }
}

TEST(AttachedObject, IsNotFoundFromAnotherThread) {
    const UniqueWindow edit = HiddenWindow();
    RecordingWindow object;
    ASSERT_TRUE(object.SubclassWindow(edit.get()));
    struct Call {
        HWND hwnd;
        Window* found;
    } call{.hwnd = edit.get(), .found = &object};
    HANDLE thread = CreateThread(
        nullptr, 0,
        [](void* parameter) -> DWORD {
            auto& wanted = *static_cast<Call*>(parameter);
            wanted.found = Window::FromHandle(wanted.hwnd);
            return 0;
        },
        &call, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    EXPECT_EQ(call.found, nullptr);
}

TEST(AttachedObject, MayDieUnderAForeignSubclass) {
    const UniqueWindow edit = HiddenWindow();
    {
        RecordingWindow object;
        object.handler = AnswerPing;
        ASSERT_TRUE(object.SubclassWindow(edit.get()));
        const ForeignSubclass foreign(edit.get());
        EXPECT_EQ(SendMessageW(edit.get(), kPing, 0, 0), kPong);
    }
    EXPECT_EQ(ProcOf(edit.get()), ForeignSubclass::Proc);
    const int before = ForeignSubclass::Messages();
    EXPECT_EQ(SendMessageW(edit.get(), kPing, 0, 0), 0);
    EXPECT_EQ(SendMessageW(edit.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(ForeignSubclass::Messages(), before + 2);

    // The foreign procedure still calls through ours, which has room for one original only.
    RecordingWindow late;
    EXPECT_FALSE(late.SubclassWindow(edit.get()));
}

TEST(AttachedObject, MayLoseItsWindowUnderAForeignSubclass) {
    UniqueWindow edit = HiddenWindow();
    RecordingWindow object;
    int finals = 0;
    object.onFinalMessage = [&] { ++finals; };
    ASSERT_TRUE(object.SubclassWindow(edit.get()));
    const ForeignSubclass foreign(edit.get());
    edit.reset();
    EXPECT_EQ(object.Handle(), nullptr);
    EXPECT_EQ(finals, 1);
}

TEST(AttachedObject, MayBeDeletedByAMessageThatItHandles) {
    const UniqueWindow edit = HiddenWindow();
    auto object = std::make_unique<RecordingWindow>();
    object->handler = [&](const Message& message) -> std::optional<LRESULT> {
        if (message.msg == WM_GETTEXTLENGTH) object.reset();
        return std::nullopt;
    };
    ASSERT_TRUE(object->SubclassWindow(edit.get()));
    EXPECT_EQ(SendMessageW(edit.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(Window::FromHandle(edit.get()), nullptr);
}

TEST(AttachedObject, MayBeDeletedByItsWindowsLastMessage) {
    UniqueWindow edit = HiddenWindow();
    auto object = std::make_unique<RecordingWindow>();
    object->handler = [&](const Message& message) -> std::optional<LRESULT> {
        if (message.msg == WM_NCDESTROY) object.reset();
        return std::nullopt;
    };
    ASSERT_TRUE(object->SubclassWindow(edit.get()));
    edit.reset();
    EXPECT_EQ(object, nullptr);
}

TEST(FinalMessage, ComesOnceAfterTheLastMessageWhenTheWindowIsGoneForTheObject) {
    UniqueWindow edit = HiddenWindow();
    RecordingWindow object;
    int finals = 0;
    object.onFinalMessage = [&] {
        ++finals;
        EXPECT_EQ(object.messages.back().msg, UINT{WM_NCDESTROY});
        EXPECT_EQ(object.Handle(), nullptr);
    };
    ASSERT_TRUE(object.SubclassWindow(edit.get()));
    edit.reset();
    EXPECT_EQ(finals, 1);
}

TEST(FinalMessage, WaitsForTheHandlerThatDestroysTheWindow) {
    UniqueWindow edit = HiddenWindow();
    RecordingWindow object;
    bool isHandling = false;
    int finals = 0;
    object.handler = [&](const Message& message) -> std::optional<LRESULT> {
        if (message.msg != kPing) return std::nullopt;
        isHandling = true;
        edit.reset();
        EXPECT_EQ(finals, 0);
        isHandling = false;
        return kPong;
    };
    object.onFinalMessage = [&] {
        ++finals;
        EXPECT_FALSE(isHandling);
    };
    ASSERT_TRUE(object.SubclassWindow(edit.get()));
    EXPECT_EQ(SendMessageW(edit.get(), kPing, 0, 0), kPong);
    EXPECT_EQ(finals, 1);
}

// Destroys its window on a ping and deletes itself at the end.
class SelfDeletingWindow final : public Window {
  public:
    explicit SelfDeletingWindow(int& alive) : m_alive(alive) { ++m_alive; }
    ~SelfDeletingWindow() override { --m_alive; }

  private:
    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM, LPARAM) override {
        if (msg != kPing) return std::nullopt;
        DestroyWindow(hwnd);
        EXPECT_EQ(m_alive, 1);
        return kPong;
    }
    void OnFinalMessage(HWND) noexcept override { delete this; }

    int& m_alive;
};

TEST(FinalMessage, MayDeleteTheObject) {
    UniqueWindow edit = HiddenWindow();
    int alive = 0;
    auto object = std::make_unique<SelfDeletingWindow>(alive);
    ASSERT_TRUE(object.release()->SubclassWindow(edit.get()));
    EXPECT_EQ(SendMessageW(edit.detach(), kPing, 0, 0), kPong);
    EXPECT_EQ(alive, 0);
}

TEST(MessageHandler, LetsNoExceptionEscape) {
    const UniqueWindow edit = HiddenWindow();
    RecordingWindow object;
    object.handler = [](const Message& message) -> std::optional<LRESULT> {
        if (message.msg == WM_GETTEXTLENGTH) throw std::bad_alloc();
        if (message.msg == kPing) throw 1;
        return std::nullopt;
    };
    ASSERT_TRUE(object.SubclassWindow(edit.get()));
    EXPECT_EQ(SendMessageW(edit.get(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(SendMessageW(edit.get(), kPing, 0, 0), 0);
    EXPECT_EQ(object.Handle(), edit.get());
}

TEST(MessageHandler, ThatThrowsAtTheLastMessageStillLosesTheWindow) {
    UniqueWindow edit = HiddenWindow();
    RecordingWindow object;
    int finals = 0;
    object.handler = [](const Message&) -> std::optional<LRESULT> { throw std::runtime_error("no"); };
    object.onFinalMessage = [&] { ++finals; };
    ASSERT_TRUE(object.SubclassWindow(edit.get()));
    edit.reset();
    EXPECT_EQ(object.Handle(), nullptr);
    EXPECT_EQ(finals, 1);
}

}  // namespace
}  // namespace vmk::test
