#include "tests/support/live_dialog.h"

#include <windows.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "resources/ids/main.h"
#include "tests/support/host_state.h"
#include "tests/support/mouse.h"
#include "tests/support/wait.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

constexpr wchar_t kCallerClass[] = L"VmkTestCaller";
constexpr UINT kCallMessage = WM_APP + 1;

using Call = std::function<void()>;

LRESULT CALLBACK CallerProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg != kCallMessage) return DefWindowProcW(hwnd, msg, wParam, lParam);
    (*reinterpret_cast<const Call*>(lParam))();
    return 0;
}

// A window on the dialog's thread to which calls can be sent, also while the dialog's own message loop runs.
HWND CreateCaller() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = CallerProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kCallerClass;
    RegisterClassW(&windowClass);
    return CreateWindowExW(0, kCallerClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, windowClass.hInstance,
                           nullptr);
}

// The topmost visible, enabled dialog of a thread.
HWND ModalDialog(DWORD thread, HWND except) {
    return FindTopWindow(thread, [except](HWND hwnd) {
        return hwnd != except && IsDialog(hwnd) && IsWindowVisible(hwnd) && IsWindowEnabled(hwnd);
    });
}

}  // namespace

struct LiveDialog::Session {
    explicit Session(Options wanted) : options(std::move(wanted)) {
        ready = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        finished = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        thread = CreateThread(nullptr, 0, Main, this, 0, &threadId);
        WaitForSingleObject(ready, INFINITE);
    }
    ~Session() {
        PostThreadMessageW(threadId, WM_QUIT, 0, 0);
        WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
        CloseHandle(ready);
        CloseHandle(finished);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    static DWORD WINAPI Main(void* parameter) {
        static_cast<Session*>(parameter)->Run();
        return 0;
    }

    void Run() {
        const ComApartment apartment;
        const LoadedModule module;
        const ComPointer<IPdfPrinterPreferences> created = module.CreatePreferences();
        object = created.get();
        caller = CreateCaller();
        OpenDialog();
        SetEvent(finished);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
        DestroyWindow(caller);
    }

    void OpenDialog() {
        if (options.settings)
            object->InitFromRegistry(AllPages, AutomationString(options.settings->SubKey()).get());
        object->EnablePage(static_cast<PdfPrinterDialogPage>(options.pages));
        object->SetTitle(AutomationString(options.title).get());
        if (options.prepare) options.prepare(*object);
        SetEvent(ready);
        opened = OpenAndCompare(*object, options.language);
    }

    bool IsFinished() const { return WaitForSingleObject(finished, 0) == WAIT_OBJECT_0; }

    Options options;
    HANDLE ready = nullptr;
    HANDLE finished = nullptr;
    HANDLE thread = nullptr;
    DWORD threadId = 0;
    HWND caller = nullptr;
    IPdfPrinterPreferences* object = nullptr;
    OpenedDialog opened{};  // to be read once it is finished
};

LiveDialog::LiveDialog() : LiveDialog(Options{}) {}

LiveDialog::LiveDialog(Options options) : m_session(std::make_unique<Session>(std::move(options))) {
    HWND found = nullptr;
    const bool opened = WaitUntil([&] {
        found = ModalDialog(m_session->threadId, nullptr);
        return found || m_session->IsFinished();
    });
    if (!opened || !found) throw std::runtime_error("the preferences dialog did not open");
    m_main = LiveWindow(found);
    m_navigator = LiveWindow(FindWindowExW(found, nullptr, L"#32770", nullptr));
    SetForegroundWindow(found);
    WaitUntil([&] { return GetForegroundWindow() == found; });
}

LiveDialog::~LiveDialog() {
    if (!m_session->IsFinished()) {
        // Whatever stands over the main dialog goes first.
        while (HWND modal = ModalDialog(m_session->threadId, m_main.Handle())) {
            PostMessageW(modal, WM_COMMAND, IDCANCEL, 0);
            if (!WaitUntilClosed(LiveWindow(modal))) break;
        }
        PostMessageW(m_main.Handle(), WM_COMMAND, IDCANCEL, 0);
        WaitForSingleObject(m_session->finished, 10'000);
    }
    if (m_session->IsFinished()) {
        EXPECT_EQ(m_session->opened.hostChanges, "");
    }
}

HWND LiveDialog::List() const {
    return m_navigator.Control(IDC_NAVIGATOR_LIST);
}

// What the dialog manager makes of 400 dialog units in pixels, both ways, gives the scale.
Place LiveDialog::PlaceInUnits(HWND window, HWND relativeTo) const {
    constexpr int kScale = 400;
    RECT scale = {.left = 0, .top = 0, .right = kScale, .bottom = kScale};
    MapDialogRect(m_main.Handle(), &scale);
    RECT rect{};
    GetWindowRect(window, &rect);
    MapWindowPoints(nullptr, relativeTo, reinterpret_cast<POINT*>(&rect), 2);
    return {.x = MulDiv(rect.left, kScale, scale.right),
            .y = MulDiv(rect.top, kScale, scale.bottom),
            .width = MulDiv(rect.right - rect.left, kScale, scale.right),
            .height = MulDiv(rect.bottom - rect.top, kScale, scale.bottom)};
}

std::vector<int> LiveDialog::PageIcons() const {
    std::vector<int> icons;
    for (int index = 0; index < ListView_GetItemCount(List()); ++index) {
        LVITEMW item{};
        item.mask = LVIF_IMAGE;
        item.iItem = index;
        SendMessageW(List(), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        icons.push_back(item.iImage);
    }
    return icons;
}

std::vector<std::wstring> LiveDialog::PageNames() const {
    HWND list = List();
    std::vector<std::wstring> names;
    for (int index = 0; index < ListView_GetItemCount(list); ++index) {
        wchar_t text[260] = {};
        LVITEMW item{};
        item.pszText = text;
        item.cchTextMax = 260;
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        names.emplace_back(text);
    }
    return names;
}

int LiveDialog::SelectedItem() const {
    return ListView_GetNextItem(List(), -1, LVNI_SELECTED);
}

void LiveDialog::Deselect() const {
    LVITEMW state{};
    state.stateMask = LVIS_SELECTED;
    SendMessageW(List(), LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&state));
}

void LiveDialog::ClickItem(int item) const {
    RECT name{};
    ListView_GetItemRect(List(), item, &name, LVIR_LABEL);
    POINT centre = {.x = (name.left + name.right) / 2, .y = (name.top + name.bottom) / 2};
    ClientToScreen(List(), &centre);
    ClickScreen(centre);
}

LiveWindow LiveDialog::Page(const std::wstring& name) const {
    const std::vector<std::wstring> names = PageNames();
    const auto found = std::ranges::find(names, name);
    if (found == names.end()) return {};
    LVITEMW state{};
    state.state = LVIS_SELECTED | LVIS_FOCUSED;
    state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(List(), LVM_SETITEMSTATE, static_cast<WPARAM>(found - names.begin()),
                 reinterpret_cast<LPARAM>(&state));
    return VisiblePage();
}

LiveWindow LiveDialog::VisiblePage() const {
    for (HWND page : ChildrenOf(m_navigator.Control(IDC_NAVIGATOR_FRAME)))
        if (IsWindowVisible(page)) return LiveWindow(page);
    return {};
}

int LiveDialog::VisiblePages() const {
    const std::vector<HWND> pages = ChildrenOf(m_navigator.Control(IDC_NAVIGATOR_FRAME));
    return static_cast<int>(std::ranges::count_if(pages, IsWindowVisible));
}

bool LiveDialog::IsApplyEnabled() const {
    return m_main.IsEnabled(IDC_MAIN_APPLY);
}

void LiveDialog::Apply() const {
    m_main.Click(IDC_MAIN_APPLY);
}

int LiveDialog::Ok() {
    m_main.PostClick(IDOK);
    return WaitForResult();
}

int LiveDialog::Cancel() {
    m_main.PostClick(IDCANCEL);
    return WaitForResult();
}

int LiveDialog::WaitForResult() {
    if (WaitForSingleObject(m_session->finished, 10'000) != WAIT_OBJECT_0)
        throw std::runtime_error("the preferences dialog did not close");
    return static_cast<int>(m_session->opened.answer);
}

PrinterSettings LiveDialog::Record() const {
    PrinterSettings record;
    Call([&](IPdfPrinterPreferences& object) { record = RecordOf(object); });
    return record;
}

void LiveDialog::Call(const std::function<void(IPdfPrinterPreferences&)>& function) const {
    const vmk::test::Call call = [&] { function(*m_session->object); };
    SendMessageW(m_session->caller, kCallMessage, 0, reinterpret_cast<LPARAM>(&call));
}

HWND LiveDialog::Focused() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(m_session->threadId, &info);
    return info.hwndFocus;
}

bool LiveDialog::FocusReaches(HWND window) const {
    return WaitUntil([&] { return Focused() == window; });
}

LiveWindow LiveDialog::OpenModal(const LiveWindow& window, UINT button) const {
    window.PostClick(button);
    return WaitForModal();
}

// The owner is enabled again only after the modal window is gone.
bool LiveDialog::CloseModal(const LiveWindow& modal, UINT button) const {
    modal.PostClick(button);
    return WaitUntilClosed(modal) && WaitUntil([this] { return IsWindowEnabled(m_main.Handle()) != FALSE; });
}

LiveWindow LiveDialog::WaitForModal() const {
    HWND modal = nullptr;
    WaitUntil([&] {
        modal = ModalDialog(m_session->threadId, m_main.Handle());
        return modal != nullptr;
    });
    return LiveWindow(modal);
}

bool LiveDialog::WaitUntilClosed(const LiveWindow& window) const {
    return WaitUntil([&] { return !IsWindow(window.Handle()) || !IsWindowVisible(window.Handle()); });
}

}  // namespace vmk::test
