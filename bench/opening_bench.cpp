// Opening the dialog of the built DLL with all pages and closing it as soon as it is on screen, against the
// same templates with nobody behind them in the same frame, and one walk over the system's fonts: what the
// system takes for the windows alone, and for what the Fonts page asks of it. Then what memory the two take
// while they are open.

#include <windows.h>

#include <psapi.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/figures.h"
#include "tests/support/bare_dialog.h"
#include "tests/support/loaded_module.h"

namespace vmk {
namespace {

constexpr int kRounds = 41;
constexpr int kMemoryRounds = 15;
constexpr wchar_t kHostClass[] = L"VmkBenchHost";

// What happens when the dialog that is open now has been drawn, and nothing is left to do but to wait.
std::function<void()> whenShown;

// The host's window, which owns the dialogs.
LRESULT CALLBACK HostProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg != WM_ENTERIDLE || wParam != MSGF_DIALOGBOX) return DefWindowProcW(hwnd, msg, wParam, lParam);
    if (whenShown) std::exchange(whenShown, nullptr)();
    PostMessageW(reinterpret_cast<HWND>(lParam), WM_COMMAND, IDCANCEL, 0);
    return 0;
}

HWND CreateHost() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = HostProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kHostClass;
    RegisterClassW(&windowClass);
    HWND host = CreateWindowExW(0, kHostClass, L"", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr,
                                windowClass.hInstance, nullptr);
    if (!host || GetActiveWindow() != host) throw std::runtime_error("no display");
    return host;
}

double Milliseconds() {
    LARGE_INTEGER frequency;
    LARGE_INTEGER now;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return 1e3 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// The component's dialog and the bare one.
class Dialogs {
  public:
    Dialogs() : m_host(CreateHost()), m_preferences(m_module.CreatePreferences()) {
        if (!m_preferences) throw std::runtime_error("no preferences");
        WantPages(AllPages);
    }
    ~Dialogs() { DestroyWindow(m_host); }
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;

    void WantPages(PdfPrinterDialogPage pages) {
        m_pages = pages;
        m_preferences->DisablePage(AllPages);
        m_preferences->EnablePage(pages);
    }
    void OpenOurs() const {
        LONG answer = 0;
        m_preferences->OpenDialog(0, &answer);
        if (answer != IDCANCEL || whenShown) throw std::runtime_error("the dialog did not open");
    }
    void OpenBare() const {
        const INT_PTR answer = test::OpenBareDialog(m_module.get(), m_host, m_pages);
        if (answer != IDCANCEL || whenShown) throw std::runtime_error("the bare dialog did not open");
    }

  private:
    test::ComApartment m_apartment;
    test::LoadedModule m_module;
    HWND m_host;
    ComPointer<IPdfPrinterPreferences> m_preferences;
    PdfPrinterDialogPage m_pages = AllPages;
};

struct Times {
    std::vector<double> opening;  // until everything is drawn
    std::vector<double> whole;    // and closed again
};

void Time(Times& times, const std::function<void()>& open) {
    double shown = 0;
    whenShown = [&] { shown = Milliseconds(); };
    const double start = Milliseconds();
    open();
    times.opening.push_back(shown - start);
    times.whole.push_back(Milliseconds() - start);
}

// The two in turn; the first rounds, which load what is loaded once, do not count.
std::pair<Times, Times> TimesOf(const Dialogs& dialogs) {
    Times ours;
    Times bare;
    for (int round = -3; round < kRounds; ++round) {
        if (round == 0) ours = bare = {};
        Time(ours, [&] { dialogs.OpenOurs(); });
        Time(bare, [&] { dialogs.OpenBare(); });
    }
    return {ours, bare};
}

// Where the time goes.
void ComparePages() {
    Dialogs dialogs;
    for (const test::PageTemplate& row : test::PageTemplates()) {
        dialogs.WantPages(row.bit);
        const auto [ours, bare] = TimesOf(dialogs);
        std::printf("%-20s %7.2f ms, bare %7.2f ms: %+.2f ms\n", row.name, Median(ours.opening),
                    Median(bare.opening), Median(ours.opening) - Median(bare.opening));
    }
}

void CompareTimes() {
    const Dialogs dialogs;
    const auto [ours, bare] = TimesOf(dialogs);
    std::printf(
        "opening all pages: %.1f ms, bare templates and fonts %.1f ms; with closing %.1f ms, %.1f ms\n",
        Median(ours.opening), Median(bare.opening), Median(ours.whole), Median(bare.whole));
    PrintRow("opening all pages: to bare templates and one font walk", RatioOf(ours.opening, bare.opening),
             AtMost(1.15));
    PrintRow("opening and closing all pages: to the same", RatioOf(ours.whole, bare.whole), AtMost(1.15));
}

// Wine leaves the newer field of the same meaning, PrivateUsage, empty.
DWORD PrivateKilobytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<DWORD>(counters.PagefileUsage / 1024);
}

// What the first dialog of this process takes while it is open.
DWORD KilobytesOf(bool ours) {
    const Dialogs dialogs;
    const DWORD before = PrivateKilobytes();
    DWORD open = 0;
    whenShown = [&] { open = PrivateKilobytes(); };
    ours ? dialogs.OpenOurs() : dialogs.OpenBare();
    return open - before;
}

// A process of its own, which answers with its exit status, since memory that was in use once stays.
double KilobytesInNewProcess(const wchar_t* which) {
    std::wstring command = L"\"" + PathOf(nullptr) + L"\" " + which;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process)) {
        throw std::runtime_error("this program cannot be started again");
    }
    DWORD kilobytes = 0;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &kilobytes);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return kilobytes;
}

void CompareMemory() {
    std::vector<double> ours;
    std::vector<double> bare;
    for (int round = 0; round < kMemoryRounds; ++round) {
        ours.push_back(KilobytesInNewProcess(L"ours"));
        bare.push_back(KilobytesInNewProcess(L"bare"));
    }
    std::printf("private memory of the open dialog: %.0f KB, bare templates %.0f KB\n", Median(ours),
                Median(bare));
    PrintRow("private memory of the open dialog: to bare templates", RatioOf(ours, bare), AtMost(1.5));
}

}  // namespace
}  // namespace vmk

int main(int argc, char** argv) try {
    if (argc > 1 && argv[1][0] == 'p') return vmk::ComparePages(), EXIT_SUCCESS;
    if (argc > 1) return static_cast<int>(vmk::KilobytesOf(argv[1][0] == 'o'));
    vmk::CompareTimes();
    vmk::CompareMemory();
    return EXIT_SUCCESS;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "error: %s\n", failure.what());
    return EXIT_FAILURE;
}
