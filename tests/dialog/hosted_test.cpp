#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "resources/ids/email.h"
#include "resources/ids/main.h"
#include "resources/ids/overlay.h"
#include "resources/ids/watermarks.h"
#include "tests/support/host_state.h"
#include "tests/support/live_dialog.h"
#include "tests/support/window_search.h"

// What a host may do while the dialog is open on its thread, and what it finds afterwards.

namespace vmk::test {
namespace {

// What a host does that ends the modal loop by itself.
void EndAsTheHost(const LiveDialog& dialog, INT_PTR result) {
    dialog.Call([&](IPdfPrinterPreferences&) { EndDialog(dialog.Main().Handle(), result); });
}

TEST(HostedDialog, EndedByTheHostWithOkItAnswers1AndStores) {
    LiveDialog dialog({.pages = page_bit::kWatermarks | page_bit::kBookmarks});
    dialog.Page(L"Watermarks").Click(IDC_WATERMARKS_PRINT);
    EndAsTheHost(dialog, IDOK);
    EXPECT_EQ(dialog.WaitForResult(), 1);
    EXPECT_EQ(dialog.Record().Watermarks.Print, 1);
}

TEST(HostedDialog, EndedByTheHostWithOkAndNothingChangedItStoresNothing) {
    const ScratchSettings settings;
    settings.SetNumber("Watermarks.Print", 5);
    LiveDialog dialog({.pages = page_bit::kWatermarks, .settings = &settings});
    EndAsTheHost(dialog, IDOK);
    EXPECT_EQ(dialog.WaitForResult(), 1);
    EXPECT_EQ(dialog.Record().Watermarks.Print, 5);
}

TEST(HostedDialog, EndedByTheHostWithAnotherResultItAnswersThatAndStoresNothing) {
    for (const int result : {2, 7, 1000000, -5}) {
        LiveDialog dialog({.pages = page_bit::kWatermarks});
        dialog.Page(L"Watermarks").Click(IDC_WATERMARKS_PRINT);
        EndAsTheHost(dialog, result);
        EXPECT_EQ(dialog.WaitForResult(), result);
        EXPECT_EQ(dialog.Record().Watermarks.Print, 0) << result;
    }
}

// Both mean something else: that there has been no dialog, and that its window is gone.
TEST(HostedDialog, EndedByTheHostWithMinusOneOrZeroItAnswers2AndStoresNothing) {
    for (const int result : {-1, 0}) {
        LiveDialog dialog({.pages = page_bit::kWatermarks});
        dialog.Page(L"Watermarks").Click(IDC_WATERMARKS_PRINT);
        EndAsTheHost(dialog, result);
        EXPECT_EQ(dialog.WaitForResult(), 2) << result;
        EXPECT_EQ(dialog.Record().Watermarks.Print, 0) << result;
    }
}

TEST(HostedDialog, EndedByTheHostItKeepsWhatWasApplied) {
    LiveDialog dialog({.pages = page_bit::kWatermarks});
    dialog.VisiblePage().Click(IDC_WATERMARKS_PRINT);
    dialog.Apply();
    dialog.VisiblePage().Click(IDC_WATERMARKS_PRINT);
    EndAsTheHost(dialog, 7);
    EXPECT_EQ(dialog.WaitForResult(), 7);
    EXPECT_EQ(dialog.Record().Watermarks.Print, 1);
}

// The e-mail page stores in every case, as it does after Cancel.
TEST(HostedDialog, EndedByTheHostWithAnotherResultTheEmailPageStoresAllTheSame) {
    LiveDialog dialog({.pages = page_bit::kEmail | page_bit::kWatermarks});
    const LiveWindow email = dialog.Page(L"e-Mail");
    email.EnterText(IDC_EMAIL_SUBJECT, L"Typed");
    dialog.Page(L"Watermarks").Click(IDC_WATERMARKS_PRINT);
    EndAsTheHost(dialog, 7);
    EXPECT_EQ(dialog.WaitForResult(), 7);
    EXPECT_EQ(dialog.Record().Email.Subject, L"Typed");
    EXPECT_EQ(dialog.Record().Watermarks.Print, 0);
}

TEST(HostedDialog, DestroyedByTheHostItAnswers2AndStoresNothing) {
    LiveDialog dialog({.pages = page_bit::kWatermarks});
    dialog.VisiblePage().Click(IDC_WATERMARKS_PRINT);
    dialog.Call([&](IPdfPrinterPreferences&) {
        DestroyWindow(dialog.Main().Handle());
        PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);  // the dialog's loop looks up at a message
    });
    EXPECT_EQ(dialog.WaitForResult(), 2);
    EXPECT_EQ(dialog.Record().Watermarks.Print, 0);
}

bool CommonDialogsAreLoaded() {
    return GetModuleHandleW(L"comdlg32.dll") != nullptr;
}

TEST(HostedDialog, TheCommonDialogsAreLoadedOnFirstUseAndStayAsLongAsTheObject) {
    {
        LiveDialog dialog({.pages = page_bit::kOverlay});
        dialog.VisiblePage().Click(IDC_OVERLAY_ENABLE);
        EXPECT_FALSE(CommonDialogsAreLoaded());
        for (int time = 0; time < 2; ++time) {
            const LiveWindow chooser = dialog.OpenModal(dialog.VisiblePage(), IDC_OVERLAY_BROWSE);
            ASSERT_TRUE(chooser);
            ASSERT_TRUE(dialog.CloseModal(chooser, IDCANCEL));
            dialog.Call([](IPdfPrinterPreferences&) {});  // after all that follows
            EXPECT_TRUE(CommonDialogsAreLoaded());
        }
        EXPECT_EQ(dialog.Ok(), 1);
        EXPECT_TRUE(CommonDialogsAreLoaded());
    }
    EXPECT_FALSE(CommonDialogsAreLoaded());
}

// Does something to the next dialog that opens on this thread, from within its message loop, once.
class OnceOpen {
  public:
    explicit OnceOpen(std::function<void(HWND dialog)> action)
        : m_action(std::move(action)), m_timer(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Look)) {
        s_current = this;
    }
    ~OnceOpen() { KillTimer(nullptr, m_timer); }
    OnceOpen(const OnceOpen&) = delete;
    OnceOpen& operator=(const OnceOpen&) = delete;

  private:
    static void CALLBACK Look(HWND, UINT, UINT_PTR id, DWORD) {
        HWND dialog = GetActiveWindow();
        if (!dialog) return;
        KillTimer(nullptr, id);
        s_current->m_action(dialog);
    }

    static inline OnceOpen* s_current = nullptr;
    std::function<void(HWND)> m_action;
    UINT_PTR m_timer;
};

// A host that opens the dialog on its only thread.
class OpenedByAHost : public testing::Test {
  protected:
    LONG Open() const {
        const OpenedDialog opened = OpenAndCompare(*m_object, kEnglish);
        EXPECT_EQ(opened.result, S_OK);
        EXPECT_EQ(opened.hostChanges, "");
        return opened.answer;
    }

    PrinterSettings Record() const {
        const ScratchSettings copy;
        m_object->StoreInRegistry(AllPages, AutomationString(copy.SubKey()).get());
        return copy.Load();
    }

    ComApartment m_apartment;
    LoadedModule m_module;
    ComPointer<IPdfPrinterPreferences> m_object = m_module.CreatePreferences();
};

TEST_F(OpenedByAHost, ClosedByTheEndOfTheHostsMessageLoopItAnswers2AndStoresNothing) {
    m_object->EnablePage(Watermarks);
    const OnceOpen quit([](HWND dialog) {
        SendMessageW(FindVisibleControl(dialog, IDC_WATERMARKS_PRINT), BM_CLICK, 0, 0);
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, IDC_MAIN_APPLY)));
        PostQuitMessage(7);
    });
    EXPECT_EQ(Open(), 2);

    MSG message{};
    EXPECT_EQ(GetMessageW(&message, nullptr, WM_QUIT, WM_QUIT), 0);
    EXPECT_EQ(message.wParam, 7U);
    EXPECT_EQ(Record().Watermarks.Print, 0);
}

TEST_F(OpenedByAHost, OkCountsThoughTheHostsMessageLoopEndsAtTheSameMoment) {
    m_object->EnablePage(Watermarks);
    const OnceOpen quit([](HWND dialog) {
        SendMessageW(FindVisibleControl(dialog, IDC_WATERMARKS_PRINT), BM_CLICK, 0, 0);
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        PostQuitMessage(7);
    });
    EXPECT_EQ(Open(), 1);

    MSG message{};
    EXPECT_EQ(GetMessageW(&message, nullptr, WM_QUIT, WM_QUIT), 0);
    EXPECT_EQ(Record().Watermarks.Print, 1);
}

TEST_F(OpenedByAHost, TheActivationContextIsTheHostsAgainThoughTheHostLeftAnotherOneOnTop) {
    HANDLE before = INVALID_HANDLE_VALUE;
    GetCurrentActCtx(&before);
    const OnceOpen ok([](HWND dialog) {
        ULONG_PTR cookie = 0;
        EXPECT_TRUE(ActivateActCtx(nullptr, &cookie));
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    EXPECT_EQ(Open(), 1);
    HANDLE after = INVALID_HANDLE_VALUE;
    GetCurrentActCtx(&after);
    EXPECT_EQ(after, before);
}

// Not every Windows has these, and the headers show them for later ones only.
struct DpiFunctions {
    template <typename Function>
    static Function* Of(const char* name) {
        auto* const function = EntryPoint<Function>(GetModuleHandleW(L"user32.dll"), name);
        EXPECT_TRUE(function) << name;
        return function;
    }

    using Context = DPI_AWARENESS_CONTEXT;
    Context(WINAPI* setOfThread)(Context) = Of<Context WINAPI(Context)>("SetThreadDpiAwarenessContext");
    Context(WINAPI* ofThread)() = Of<Context WINAPI()>("GetThreadDpiAwarenessContext");
    Context(WINAPI* ofWindow)(HWND) = Of<Context WINAPI(HWND)>("GetWindowDpiAwarenessContext");
    DPI_AWARENESS(WINAPI* awareness)
    (Context) = Of<DPI_AWARENESS WINAPI(Context)>("GetAwarenessFromDpiAwarenessContext");
};

class OpenedByAHostAwareOfResolutions : public OpenedByAHost,
                                        public testing::WithParamInterface<DPI_AWARENESS_CONTEXT> {};

TEST_P(OpenedByAHostAwareOfResolutions, TheDialogGoesByTheSystemsAndTheThreadIsTheHostsAgain) {
    const DpiFunctions dpi;
    DPI_AWARENESS_CONTEXT first = dpi.setOfThread(GetParam());
    DPI_AWARENESS_CONTEXT before = dpi.ofThread();
    DPI_AWARENESS main = DPI_AWARENESS_INVALID;
    DPI_AWARENESS page = DPI_AWARENESS_INVALID;
    m_object->EnablePage(Watermarks);
    const OnceOpen cancel([&](HWND dialog) {
        main = dpi.awareness(dpi.ofWindow(dialog));
        page = dpi.awareness(dpi.ofWindow(FindVisibleControl(dialog, IDC_WATERMARKS_PRINT)));
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(Open(), 2);
    EXPECT_EQ(main, DPI_AWARENESS_SYSTEM_AWARE);
    EXPECT_EQ(page, DPI_AWARENESS_SYSTEM_AWARE);
    EXPECT_EQ(dpi.ofThread(), before);
    dpi.setOfThread(first);
}

const DPI_AWARENESS_CONTEXT kContexts[] = {DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE,
                                           DPI_AWARENESS_CONTEXT_SYSTEM_AWARE, DPI_AWARENESS_CONTEXT_UNAWARE};
constexpr const char* kContextNames[] = {"PerMonitor", "System", "Unaware"};

INSTANTIATE_TEST_SUITE_P(InEveryWay, OpenedByAHostAwareOfResolutions, testing::ValuesIn(kContexts),
                         [](const auto& each) { return kContextNames[each.index]; });

}  // namespace
}  // namespace vmk::test
