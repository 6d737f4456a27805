#include "dialog/main_dialog.h"

#include <new>
#include <string>
#include <utility>

#include "controls/focus.h"
#include "framework/dpi_awareness.h"
#include "framework/module.h"
#include "framework/visual_style.h"
#include "resources/ids/main.h"
#include "settings/language_folder.h"
#include "settings/passwords.h"

namespace vmk {
namespace {

// Empty when it cannot be read.
std::wstring CurrentFolder() {
    std::wstring folder(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
        const bool fits = length < folder.size();
        folder.resize(length);
        if (fits) return folder;
    }
}

// The folder of this module, with its last backslash.
std::wstring ModuleFolder() {
    const std::wstring path = Module::Get().Path();
    return path.substr(0, path.rfind(L'\\') + 1);
}

// Makes the module's folder the process's current one for a moment, for one thread after the other: each
// has to find the host's folder, and not the one that another thread has switched to.
class InModuleFolder {
  public:
    InModuleFolder() : m_lock(Module::Get().Guard()), m_previous(CurrentFolder()) {
        // Nobody leaves without knowing the way back.
        if (!m_previous.empty()) SetCurrentDirectoryW(ModuleFolder().c_str());
    }
    ~InModuleFolder() {
        if (!m_previous.empty()) SetCurrentDirectoryW(m_previous.c_str());
    }
    InModuleFolder(const InModuleFolder&) = delete;
    InModuleFolder& operator=(const InModuleFolder&) = delete;

  private:
    CriticalSection::Lock m_lock;
    std::wstring m_previous;
};

Translator CreateTranslator() {
    // Whatever a translator looks up by relative path is to be found beside the module.
    const InModuleFolder inModuleFolder;
    return Translator{};
}

bool ThreadIsToEnd() noexcept {
    MSG quit;
    return PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != FALSE;
}

}  // namespace

CDlgMain::CDlgMain(PrinterSettings& settings, const PreferencesDialogOptions& options)
    : m_settings(settings), m_options(options), m_translator(CreateTranslator()) {}

CDlgMain::~CDlgMain() {
    if (m_ifOk) WipePasswords(*m_ifOk);
}

INT_PTR CDlgMain::Run() {
    const SystemDpiAwareness dpiAwareness;
    const VisualStyle visualStyle;
    const INT_PTR ended = DoModal(IDD_MAIN, GetActiveWindow());
    if (!m_initialised) return ended;
    return m_button ? *m_button : AnswerForHost(ended);
}

// The system answers 0 or -1 for a dialog whose window is destroyed under it, and may answer anything for one
// that has to close because the thread is to end: none of these is the host's word.
INT_PTR CDlgMain::AnswerForHost(INT_PTR ended) noexcept {
    if (ended == 0 || ended == kNotCreated || ThreadIsToEnd()) return IDCANCEL;
    if (ended != IDOK || !m_unstored) return ended;
    if (!m_ifOk) return IDCANCEL;
    std::swap(m_settings, *m_ifOk);
    return IDOK;
}

std::optional<LRESULT> CDlgMain::ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_INITDIALOG) {
        OnInitDialog();
        return FALSE;
    }
    if (msg == WM_DESTROY && m_button != IDOK) {
        if (!m_button) HoldBackChanges();
        DisableApply();
        return std::nullopt;
    }
    if (msg != WM_COMMAND) return std::nullopt;
    // The default button may be one of a page, whose identifiers are its own.
    HWND owner = CommandOwner(hwnd, reinterpret_cast<HWND>(lParam));
    if (owner != hwnd) return SendMessageW(owner, msg, wParam, lParam);
    const Command command = CommandOf(wParam);
    if (command.code != 0) return std::nullopt;
    switch (command.id) {
        case IDOK:
            m_button = IDOK;
            EndDialog(hwnd, IDOK);
            return 0;
        case IDCANCEL:
            // Pages store while they are destroyed only if Apply is enabled.
            DisableApply();
            m_button = IDCANCEL;
            EndDialog(hwnd, IDCANCEL);
            return 0;
        case IDC_MAIN_APPLY:
            // What could not be stored is still to be applied.
            if (!m_navigator.ApplyPages()) return 0;
            // A disabled control that keeps the focus would keep all keys from the dialog.
            if (GetFocus() == m_applyButton) SendMessageW(hwnd, WM_NEXTDLGCTL, 0, FALSE);
            DisableApply();
            return 0;
        default:
            return std::nullopt;
    }
}

void CDlgMain::OnInitDialog() {
    if (!m_options.title.empty()) SetWindowTextW(Handle(), m_options.title.c_str());
    OpenLanguage();

    m_applyButton = Item(IDC_MAIN_APPLY);
    const CDialogEnv env = {
        .translator = &m_translator, .settings = &m_settings, .applyButton = m_applyButton};
    if (!m_navigator.CreateNavigator(env, m_options.pages, Handle())) throw std::bad_alloc();
    // Pages that show their values may have enabled it, though nothing has changed yet.
    DisableApply();
    m_initialised = true;
}

// The host has ended the dialog, destroyed it, or told its thread to end: which of these, and with what
// result, is known only when the windows are gone. So the pages store while they can, and the record stays as
// it is for now.
void CDlgMain::HoldBackChanges() noexcept {
    m_unstored = m_initialised && IsWindowEnabled(m_applyButton);
    if (!m_unstored) return;
    try {
        m_ifOk = m_settings;
    } catch (const std::bad_alloc&) {
        return;
    }
    m_navigator.ApplyPages();
    std::swap(m_settings, *m_ifOk);
}

void CDlgMain::OpenLanguage() {
    const LANGID language = m_options.language ? m_options.language : GetUserDefaultLangID();
    if (!m_translator.OpenLanguageSession(LanguageFolder(), kLanguageProduct)) return;
    if (m_translator.SelectLanguage(language)) m_translator.TranslateWindow(Handle(), true);
}

}  // namespace vmk
