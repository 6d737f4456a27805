#include "tests/faults/opening.h"

#include <commctrl.h>

#include <iterator>
#include <utility>

#include "resources/ids/email.h"
#include "resources/ids/main.h"
#include "resources/ids/save.h"
#include "resources/ids/smtp.h"
#include "tests/support/host_state.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

constexpr UINT kInterval = 10;      // milliseconds
constexpr int kMostAttempts = 500;  // to end the dialog

// What the timer of the opening that is under way works on.
struct Run {
    Ending ending;
    const std::function<void(HWND dialog)>& inDialog;
    Opening& opening;
    int attempts = 0;
};
Run* current = nullptr;

// Notes what goes wrong in this thread's opening. Handlers of C++ exceptions may take an access violation for
// one of theirs, so that it would not be seen otherwise.
LONG CALLBACK OnException(EXCEPTION_POINTERS* exception) {
    if (current && exception->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION)
        ++current->opening.violations;
    return EXCEPTION_CONTINUE_SEARCH;
}

void Press(HWND dialog, WORD button) {
    SendMessageW(dialog, WM_COMMAND, button, reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

void End(HWND dialog, Run& run) {
    HWND apply = GetDlgItem(dialog, IDC_MAIN_APPLY);
    EnableWindow(apply, TRUE);
    if (run.ending == Ending::kApplyThenCancel) {
        Press(dialog, IDC_MAIN_APPLY);
        run.opening.keptChanges = IsWindowEnabled(apply) != FALSE;
    }
    Press(dialog, run.ending == Ending::kOk ? IDOK : IDCANCEL);
}

HWND NavigatorOf(HWND dialog) {
    return FindWindowExW(dialog, nullptr, L"#32770", nullptr);
}

bool IsInMenu() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & GUI_INMENUMODE);
}

// Closes whatever stands over the main dialog; whether there was something.
bool CloseModal(HWND dialog, Opening& opening) {
    if (IsInMenu()) {
        EndMenu();
        return true;
    }
    if (NavigatorOf(dialog)) return false;
    if (!GetDlgItem(dialog, IDC_SMTP_ADDRESS)) {
        wchar_t title[200] = L"";
        GetWindowTextW(dialog, title, static_cast<int>(std::size(title)));
        opening.unexpected = title;
    }
    Press(dialog, IDOK);
    return true;
}

void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (!current) return;
    Run& run = *current;
    HWND dialog = FindTopWindow(GetCurrentThreadId(),
                                [](HWND window) { return IsDialog(window) && IsWindowVisible(window); });
    if (!dialog) return;
    if (++run.attempts > kMostAttempts) {
        run.opening.wasStuck = true;
        EndDialog(dialog, IDABORT);
        return;
    }
    if (CloseModal(dialog, run.opening)) return;
    // What is done there may have a message loop of its own, in which this timer goes on.
    if (!std::exchange(run.opening.wasShown, true) && run.inDialog) run.inDialog(dialog);
    End(dialog, run);
}

// A button that opens something modal, and a control that only its page has.
struct Opener {
    int button;
    int besideIt;
};
constexpr Opener kOpeners[] = {
    {.button = IDC_EMAIL_EDIT_SERVER, .besideIt = IDC_EMAIL_EDIT_SERVER},
    {.button = IDC_SAVE_MACRO, .besideIt = IDC_SAVE_START_SPIN},
};

}  // namespace

void WalkThrough(HWND dialog) {
    HWND list = GetDlgItem(NavigatorOf(dialog), IDC_NAVIGATOR_LIST);
    for (int item = 0; item < ListView_GetItemCount(list); ++item) {
        ListView_SetItemState(list, item, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        for (const auto& [button, besideIt] : kOpeners) {
            if (FindVisibleControl(dialog, besideIt))
                SendMessageW(FindVisibleControl(dialog, button), BM_CLICK, 0, 0);
        }
    }
}

Opening OpenAndEnd(IPdfPrinterPreferences& object, Ending ending,
                   const std::function<void(HWND dialog)>& inDialog, LANGID language) {
    Opening opening;
    Run run = {.ending = ending, .inDialog = inDialog, .opening = opening};
    current = &run;
    void* const handler = AddVectoredExceptionHandler(1, OnException);
    const UINT_PTR timer = SetTimer(nullptr, 0, kInterval, OnTimer);
    const OpenedDialog opened = OpenAndCompare(object, language);
    opening.exitCode = opened.answer;
    opening.hostChanges = opened.hostChanges;
    KillTimer(nullptr, timer);
    RemoveVectoredExceptionHandler(handler);
    current = nullptr;
    return opening;
}

}  // namespace vmk::test
