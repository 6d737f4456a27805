#include "tests/faults/opening.h"

#include "resources/ids/main.h"
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
    if (!run.opening.wasShown && run.inDialog) run.inDialog(dialog);
    run.opening.wasShown = true;
    End(dialog, run);
}

}  // namespace

Opening OpenAndEnd(IPdfPrinterPreferences& object, Ending ending,
                   const std::function<void(HWND dialog)>& inDialog) {
    Opening opening;
    Run run = {.ending = ending, .inDialog = inDialog, .opening = opening};
    current = &run;
    void* const handler = AddVectoredExceptionHandler(1, OnException);
    const UINT_PTR timer = SetTimer(nullptr, 0, kInterval, OnTimer);
    object.OpenDialog(0x0409, &opening.exitCode);
    KillTimer(nullptr, timer);
    RemoveVectoredExceptionHandler(handler);
    current = nullptr;
    return opening;
}

}  // namespace vmk::test
