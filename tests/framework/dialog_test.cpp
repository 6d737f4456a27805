#include "framework/dialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

#include "framework/module.h"
#include "tests/framework/test_dialogs.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

constexpr UINT kNoTemplate = 999;

class TestDialog : public Dialog {
  public:
    std::function<std::optional<LRESULT>(HWND, UINT, WPARAM)> handler;
    std::vector<UINT> messages;
    int finals = 0;

  private:
    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM) override {
        messages.push_back(msg);
        return handler ? handler(hwnd, msg, wParam) : std::nullopt;
    }
    void OnFinalMessage(HWND) noexcept override { ++finals; }
};

// Ends a modal dialog at once.
std::optional<LRESULT> EndAtOnce(HWND hwnd, UINT msg, WPARAM) {
    if (msg != WM_INITDIALOG) return std::nullopt;
    EndDialog(hwnd, 7);
    return TRUE;
}

int DialogsOfThisThread() {
    int count = 0;
    FindTopWindow(GetCurrentThreadId(), [&count](HWND hwnd) {
        count += IsDialog(hwnd) ? 1 : 0;
        return false;
    });
    return count;
}

TEST(DialogObject, IsAttachedBeforeTheDialogIsInitialised) {
    TestDialog dialog;
    HWND seen = nullptr;
    dialog.handler = [&](HWND hwnd, UINT msg, WPARAM wParam) -> std::optional<LRESULT> {
        if (msg == WM_INITDIALOG) {
            seen = dialog.Handle();
            EXPECT_EQ(hwnd, seen);
            EXPECT_EQ(reinterpret_cast<HWND>(wParam), dialog.Item(IDC_TEST_FIRST));
        }
        return std::nullopt;
    };
    HWND hwnd = dialog.Create(IDD_TEST_DIALOG, nullptr);
    ASSERT_NE(hwnd, nullptr);
    EXPECT_EQ(seen, hwnd);
    EXPECT_EQ(std::ranges::count(dialog.messages, UINT{WM_INITDIALOG}), 1);
    DestroyWindow(hwnd);
    EXPECT_EQ(dialog.Handle(), nullptr);
    EXPECT_EQ(dialog.finals, 1);
}

TEST(DialogObject, AnswersWhetherTheFirstControlGetsTheFocus) {
    for (const bool takesDefault : {true, false}) {
        TestDialog dialog;
        dialog.handler = [&](HWND, UINT msg, WPARAM) -> std::optional<LRESULT> {
            if (msg != WM_INITDIALOG) return std::nullopt;
            SetFocus(dialog.Item(IDC_TEST_SECOND));
            return takesDefault ? TRUE : FALSE;
        };
        HWND hwnd = dialog.Create(IDD_TEST_DIALOG, nullptr);
        EXPECT_EQ(GetFocus(), dialog.Item(takesDefault ? IDC_TEST_FIRST : IDC_TEST_SECOND));
        DestroyWindow(hwnd);
    }
}

TEST(DialogObject, LeavesTheOtherMessagesToTheDialogManager) {
    TestDialog dialog;
    HWND hwnd = dialog.Create(IDD_TEST_DIALOG, nullptr);
    SendMessageW(hwnd, DM_SETDEFID, IDC_TEST_SECOND, 0);
    EXPECT_EQ(SendMessageW(hwnd, DM_GETDEFID, 0, 0), MAKELONG(IDC_TEST_SECOND, DC_HASDEFID));
    EXPECT_EQ(std::ranges::count(dialog.messages, UINT{DM_GETDEFID}), 1);
    DestroyWindow(hwnd);
}

TEST(ModalDialog, AnswersWhatEndsItAndCanRunAgain) {
    TestDialog dialog;
    dialog.handler = EndAtOnce;
    EXPECT_EQ(dialog.DoModal(IDD_TEST_DIALOG, nullptr), 7);
    EXPECT_EQ(dialog.Handle(), nullptr);
    EXPECT_EQ(dialog.DoModal(IDD_TEST_DIALOG, nullptr), 7);
    EXPECT_EQ(dialog.finals, 2);
}

TEST(ModalDialog, AnswersMinusOneWithoutATemplate) {
    TestDialog dialog;
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(dialog.DoModal(kNoTemplate, nullptr), -1);
    EXPECT_NE(GetLastError(), DWORD{ERROR_OUTOFMEMORY});
    EXPECT_EQ(dialog.Handle(), nullptr);
    EXPECT_EQ(Module::Get().Creations().Take(), nullptr);
}

TEST(ModalDialog, AnswersMinusOneWhenItsObjectCannotBeAttached) {
    TestDialog dialog;
    HWND hwnd = dialog.Create(IDD_TEST_DIALOG, nullptr);
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(dialog.DoModal(IDD_TEST_DIALOG, nullptr), -1);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_OUTOFMEMORY});
    EXPECT_EQ(dialog.Handle(), hwnd);
    EXPECT_EQ(DialogsOfThisThread(), 1);
    DestroyWindow(hwnd);
}

TEST(ModelessDialog, IsNullWithoutATemplate) {
    TestDialog dialog;
    EXPECT_EQ(dialog.Create(kNoTemplate, nullptr), nullptr);
    EXPECT_EQ(dialog.Handle(), nullptr);
    EXPECT_EQ(Module::Get().Creations().Take(), nullptr);
    HWND hwnd = dialog.Create(IDD_TEST_DIALOG, nullptr);
    EXPECT_NE(hwnd, nullptr);
    DestroyWindow(hwnd);
}

TEST(ModelessDialog, IsNullWhenItsObjectCannotBeAttachedAndLeavesNoWindow) {
    TestDialog dialog;
    HWND hwnd = dialog.Create(IDD_TEST_DIALOG, nullptr);
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(dialog.Create(IDD_TEST_DIALOG, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_OUTOFMEMORY});
    EXPECT_EQ(dialog.Handle(), hwnd);
    EXPECT_EQ(DialogsOfThisThread(), 1);
    DestroyWindow(hwnd);
}

TEST(ModelessDialog, MayCreateAnotherWhileItIsInitialised) {
    TestDialog parent;
    TestDialog child;
    parent.handler = [&](HWND hwnd, UINT msg, WPARAM) -> std::optional<LRESULT> {
        if (msg == WM_INITDIALOG) child.Create(IDD_TEST_CHILD, hwnd);
        return std::nullopt;
    };
    HWND hwnd = parent.Create(IDD_TEST_DIALOG, nullptr);
    ASSERT_NE(child.Handle(), nullptr);
    EXPECT_EQ(GetParent(child.Handle()), hwnd);
    EXPECT_EQ(parent.Handle(), hwnd);
    DestroyWindow(hwnd);
    EXPECT_EQ(child.finals, 1);
}

// Throws while it is initialised and notes what it is told afterwards.
struct FailingDialog {
    FailingDialog() {
        dialog.handler = [this](HWND, UINT msg, WPARAM) -> std::optional<LRESULT> {
            if (hasThrown) ++messagesAfter;
            if (msg != WM_INITDIALOG) return std::nullopt;
            hasThrown = true;
            throw std::bad_alloc();
        };
    }

    TestDialog dialog;
    bool hasThrown = false;
    int messagesAfter = 0;
};

TEST(ModelessDialog, IsNullWhenItsInitialisationThrowsAndLeavesNoWindow) {
    FailingDialog failing;
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(failing.dialog.Create(IDD_TEST_DIALOG, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_OUTOFMEMORY});
    EXPECT_TRUE(failing.hasThrown);
    EXPECT_EQ(failing.dialog.Handle(), nullptr);
    EXPECT_EQ(DialogsOfThisThread(), 0);
}

TEST(ModelessDialog, HearsNothingMoreOnceItsInitialisationHasThrown) {
    FailingDialog failing;
    failing.dialog.Create(IDD_TEST_DIALOG, nullptr);
    EXPECT_EQ(failing.messagesAfter, 0);
}

TEST(ModalDialog, AnswersMinusOneWhenItsInitialisationThrowsAndLeavesNoWindow) {
    FailingDialog failing;
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(failing.dialog.DoModal(IDD_TEST_DIALOG, nullptr), -1);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_OUTOFMEMORY});
    EXPECT_EQ(failing.dialog.Handle(), nullptr);
    EXPECT_EQ(failing.messagesAfter, 0);
    EXPECT_EQ(DialogsOfThisThread(), 0);
}

TEST(ModelessDialog, CanBeCreatedOnceMoreAfterAFailure) {
    FailingDialog failing;
    failing.dialog.Create(IDD_TEST_DIALOG, nullptr);
    failing.dialog.handler = {};
    HWND hwnd = failing.dialog.Create(IDD_TEST_DIALOG, nullptr);
    EXPECT_NE(hwnd, nullptr);
    EXPECT_EQ(failing.dialog.Handle(), hwnd);
    DestroyWindow(hwnd);
}

// Creates dialogs again and again and counts those whose object and window did not find each other on their
// own thread.
DWORD WINAPI CreateManyDialogs(void* failures) {
    constexpr int kDialogs = 60;
    for (int round = 0; round < kDialogs; ++round) {
        TestDialog dialog;
        DWORD initialisedOn = 0;
        dialog.handler = [&](HWND, UINT msg, WPARAM) -> std::optional<LRESULT> {
            if (msg == WM_INITDIALOG) initialisedOn = GetCurrentThreadId();
            return std::nullopt;
        };
        HWND hwnd = dialog.Create(IDD_TEST_CHILD, HWND_MESSAGE);
        const bool found = hwnd && dialog.Handle() == hwnd && Window::FromHandle(hwnd) == &dialog &&
                           initialisedOn == GetCurrentThreadId();
        if (!found) ++*static_cast<int*>(failures);
        if (hwnd) DestroyWindow(hwnd);
    }
    return 0;
}

TEST(ModelessDialog, FindsItsObjectWhileOtherThreadsCreateDialogs) {
    std::array<HANDLE, 3> threads{};
    std::array<int, 3> failures{};
    for (size_t index = 0; index < threads.size(); ++index)
        threads[index] = CreateThread(nullptr, 0, CreateManyDialogs, &failures[index], 0, nullptr);
    WaitForMultipleObjects(static_cast<DWORD>(threads.size()), threads.data(), TRUE, INFINITE);
    for (HANDLE thread : threads) CloseHandle(thread);
    EXPECT_EQ(failures, (std::array<int, 3>{}));
    EXPECT_EQ(Module::Get().Creations().Take(), nullptr);
}

TEST(CommandParts, AreTheTwoHalvesOfTheParameter) {
    const Command command = CommandOf(MAKEWPARAM(0xFFFE, 0x8001));
    EXPECT_EQ(command.id, 0xFFFEU);
    EXPECT_EQ(command.code, 0x8001U);
}

}  // namespace
}  // namespace vmk::test
