#include "tests/chaos/visit.h"

#include <algorithm>

#include "resources/ids/main.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

constexpr UINT kInterval = 10;       // milliseconds
constexpr int kMostAttempts = 3000;  // to see and end them all

struct Run {
    const std::function<void(HWND dialog)>& look;
    const VisitOptions& options;
    Visit& visit;
    std::vector<HWND> seen;
    int attempts = 0;
};
thread_local Run* current = nullptr;

void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (!current) return;
    Run& run = *current;
    HWND const dialog = FindTopWindow(GetCurrentThreadId(), [](HWND window) {
        return IsDialog(window) && IsWindowVisible(window) && IsWindowEnabled(window);
    });
    if (!dialog) return;
    if (++run.attempts > kMostAttempts) {
        run.visit.wasStuck = true;
        EndDialog(dialog, IDABORT);
        return;
    }
    // Looking may open another dialog, whose message loop leads here again.
    if (std::ranges::find(run.seen, dialog) != run.seen.end()) return;
    run.seen.push_back(dialog);
    run.visit.wasSeen = true;
    run.look(dialog);
    if (!run.options.pressOk) return;
    if (HWND const apply = GetDlgItem(dialog, IDC_MAIN_APPLY)) EnableWindow(apply, TRUE);
    SendMessageW(dialog, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
}

}  // namespace

Visit VisitDialog(IPdfPrinterPreferences& object, const std::function<void(HWND dialog)>& look,
                  const VisitOptions& options) {
    Visit visit;
    Run run = {.look = look, .options = options, .visit = visit, .seen = {}};
    current = &run;
    const UINT_PTR timer = SetTimer(nullptr, 0, kInterval, OnTimer);
    object.OpenDialog(options.language, &visit.exitCode);
    KillTimer(nullptr, timer);
    current = nullptr;
    return visit;
}

std::vector<HWND> PagesOf(HWND dialog) {
    HWND const frame = FindDescendant(dialog, [dialog](HWND window) {
        return GetDlgCtrlID(window) == IDC_NAVIGATOR_FRAME && GetParent(GetParent(window)) == dialog;
    });
    return frame ? ChildrenOf(frame) : std::vector<HWND>();
}

}  // namespace vmk::test
