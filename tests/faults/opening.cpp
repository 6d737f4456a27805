#include "tests/faults/opening.h"

#include <commctrl.h>

#include <cstdint>
#include <iterator>
#include <sstream>
#include <string_view>
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
    HWND pressedOk = nullptr;  // the dialog over the main one whose OK was pressed last
    const void* violatedFrom = nullptr;
};
Run* current = nullptr;

// Notes what goes wrong in this thread's opening. Handlers of C++ exceptions may take an access violation for
// one of theirs, so that it would not be seen otherwise.
LONG CALLBACK OnException(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if (current && record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION && ++current->opening.violations == 1)
        current->violatedFrom = record.ExceptionAddress;
    return EXCEPTION_CONTINUE_SEARCH;
}

// The file of the code that lies there, and how far from its start.
std::string PlaceOf(const void* address) {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const wchar_t*>(address), &module);
    char path[MAX_PATH] = "";
    if (module) GetModuleFileNameA(module, path, MAX_PATH);
    const std::string_view file = path;
    std::ostringstream place;
    place << file.substr(file.rfind('\\') + 1) << " at " << std::hex
          << reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(module);
    return place.str();
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

// Closes whatever stands over the main dialog; whether there was something. What cannot store stays open on
// OK, and is cancelled.
bool CloseModal(HWND dialog, Run& run) {
    if (IsInMenu()) {
        EndMenu();
        return true;
    }
    if (NavigatorOf(dialog)) return false;
    if (!GetDlgItem(dialog, IDC_SMTP_ADDRESS)) {
        wchar_t title[200] = L"";
        GetWindowTextW(dialog, title, static_cast<int>(std::size(title)));
        run.opening.unexpected = title;
    }
    const bool isStillThere = std::exchange(run.pressedOk, dialog) == dialog;
    Press(dialog, isStillThere ? IDCANCEL : IDOK);
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
    if (CloseModal(dialog, run)) return;
    // What is done there may have a message loop of its own, in which this timer goes on.
    if (!std::exchange(run.opening.wasShown, true) && run.inDialog) run.inDialog(dialog);
    End(dialog, run);
}

// A button that opens something modal, and its page in the list.
struct Opener {
    int button;
    int pageFromEnd;
};
constexpr Opener kOpeners[] = {{.button = IDC_EMAIL_EDIT_SERVER, .pageFromEnd = 3},
                               {.button = IDC_SAVE_MACRO, .pageFromEnd = 4}};

HWND PageList(HWND dialog) {
    return GetDlgItem(NavigatorOf(dialog), IDC_NAVIGATOR_LIST);
}

int PageCount(HWND dialog) {
    return ListView_GetItemCount(PageList(dialog));
}

void SelectPage(HWND dialog, int fromEnd) {
    ListView_SetItemState(PageList(dialog), PageCount(dialog) - fromEnd, LVIS_SELECTED | LVIS_FOCUSED,
                          LVIS_SELECTED | LVIS_FOCUSED);
}

}  // namespace

void OpenWhatOpens(HWND dialog) {
    for (const Opener& opener : kOpeners) {
        SelectPage(dialog, opener.pageFromEnd);
        SendMessageW(FindVisibleControl(dialog, opener.button), BM_CLICK, 0, 0);
    }
}

void WalkThrough(HWND dialog) {
    for (int fromEnd = PageCount(dialog); fromEnd > 0; --fromEnd) SelectPage(dialog, fromEnd);
    OpenWhatOpens(dialog);
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
    if (run.violatedFrom) opening.whereViolated = PlaceOf(run.violatedFrom);
    KillTimer(nullptr, timer);
    RemoveVectoredExceptionHandler(handler);
    current = nullptr;
    return opening;
}

}  // namespace vmk::test
