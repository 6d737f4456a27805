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
#include "resources/ids/bookmarks.h"
#include "resources/ids/compression.h"
#include "resources/ids/digital_signature.h"
#include "resources/ids/document_info.h"
#include "resources/ids/email.h"
#include "resources/ids/fonts.h"
#include "resources/ids/general.h"
#include "resources/ids/graphics.h"
#include "resources/ids/links.h"
#include "resources/ids/main.h"
#include "resources/ids/optimization.h"
#include "resources/ids/overlay.h"
#include "resources/ids/paper.h"
#include "resources/ids/save.h"
#include "resources/ids/security.h"
#include "resources/ids/watermarks.h"
#include "tests/support/loaded_module.h"

namespace vmk {
namespace {

constexpr int kRounds = 41;
constexpr int kMemoryRounds = 15;
constexpr int kManifest = 2;
constexpr wchar_t kHostClass[] = L"VmkBenchHost";

struct PageRow {
    PdfPrinterDialogPage bit;
    UINT id;
    const char* name;
};

constexpr PageRow kPages[] = {
    {Paper, IDD_PAPER, "Paper"},
    {CustomForms, IDD_CUSTOM_FORMS, "Custom Forms"},
    {General, IDD_GENERAL, "General"},
    {Compression, IDD_COMPRESSION, "Compression"},
    {Graphics, IDD_GRAPHICS, "Graphics"},
    {Fonts, IDD_FONTS, "Fonts"},
    {Watermarks, IDD_WATERMARKS, "Watermarks"},
    {Overlay, IDD_OVERLAY, "Overlay"},
    {Security, IDD_SECURITY, "Security"},
    {DigitalSign, IDD_DIGITAL_SIGNATURE, "Digital Signature"},
    {Links, IDD_LINKS, "Links"},
    {Bookmarks, IDD_BOOKMARKS, "Bookmarks"},
    {DocumentInfo, IDD_DOCUMENT_INFO, "Document Info"},
    {Save, IDD_SAVE, "Save"},
    {eMail, IDD_EMAIL, "e-Mail"},
    {Profiles, IDD_PROFILES, "Profiles"},
    {Optimization, IDD_OPTIMIZATION, "Optimization"},
};

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

// What the bare dialog's procedure has to know: the DLL, and the pages that are wanted.
HMODULE templates;
int wantedPages = AllPages;

INT_PTR CALLBACK DoNothing(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

HWND CreateBare(UINT templateId, HWND parent) {
    HWND window = CreateDialogParamW(templates, MAKEINTRESOURCEW(templateId), parent, DoNothing, 0);
    if (!window) throw std::runtime_error("a template cannot be created");
    return window;
}

int CALLBACK PassOver(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM) {
    return 1;
}

void WalkFonts() {
    HDC screen = GetDC(nullptr);
    LOGFONTW every{};
    every.lfCharSet = DEFAULT_CHARSET;
    EnumFontFamiliesExW(screen, &every, PassOver, 0, 0);
    ReleaseDC(nullptr, screen);
}

void FillBareFrame(HWND dialog) {
    HWND frame = GetDlgItem(CreateBare(IDD_NAVIGATOR, dialog), IDC_NAVIGATOR_FRAME);
    bool isFirst = true;
    for (const PageRow& row : kPages) {
        if (!(wantedPages & row.bit)) continue;
        HWND page = CreateBare(row.id, frame);
        if (std::exchange(isFirst, false)) ShowWindow(page, SW_SHOW);
        if (row.bit == Fonts) WalkFonts();
        if (row.bit != Security) continue;
        HWND panels = GetDlgItem(page, IDC_SECURITY_PANELS);
        CreateBare(IDD_SECURITY_40, panels);
        CreateBare(IDD_SECURITY_128, panels);
    }
}

INT_PTR CALLBACK BareProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM) {
    if (msg == WM_INITDIALOG) FillBareFrame(hwnd);
    if (msg == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(hwnd, IDCANCEL);
    return FALSE;
}

// The visual style of the DLL's manifest, which the component's dialog brings along by itself.
class VisualStyleOf {
  public:
    explicit VisualStyleOf(HMODULE module) {
        ACTCTXW context{};
        context.cbSize = sizeof(context);
        context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        context.hModule = module;
        context.lpResourceName = MAKEINTRESOURCEW(kManifest);
        m_context = CreateActCtxW(&context);
        if (m_context == INVALID_HANDLE_VALUE || !ActivateActCtx(m_context, &m_cookie))
            throw std::runtime_error("the visual style cannot be had");
    }
    ~VisualStyleOf() {
        DeactivateActCtx(0, m_cookie);
        ReleaseActCtx(m_context);
    }
    VisualStyleOf(const VisualStyleOf&) = delete;
    VisualStyleOf& operator=(const VisualStyleOf&) = delete;

  private:
    HANDLE m_context;
    ULONG_PTR m_cookie = 0;
};

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
        templates = m_module.get();
        if (!m_preferences) throw std::runtime_error("no preferences");
        WantPages(AllPages);
    }
    ~Dialogs() { DestroyWindow(m_host); }
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;

    void WantPages(PdfPrinterDialogPage pages) const {
        wantedPages = pages;
        m_preferences->DisablePage(AllPages);
        m_preferences->EnablePage(pages);
    }
    void OpenOurs() const {
        LONG answer = 0;
        m_preferences->OpenDialog(0, &answer);
        if (answer != IDCANCEL || whenShown) throw std::runtime_error("the dialog did not open");
    }
    void OpenBare() const {
        const VisualStyleOf style(m_module.get());
        const INT_PTR answer = DialogBoxParamW(templates, MAKEINTRESOURCEW(IDD_MAIN), m_host, BareProc, 0);
        if (answer != IDCANCEL || whenShown) throw std::runtime_error("the bare dialog did not open");
    }

  private:
    test::ComApartment m_apartment;
    test::LoadedModule m_module;
    HWND m_host;
    ComPointer<IPdfPrinterPreferences> m_preferences;
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
    const Dialogs dialogs;
    for (const PageRow& row : kPages) {
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
