#include "tests/eyes/views.h"

#include <optional>

#include "language/language_session.h"
#include "resources/ids/email.h"
#include "resources/ids/main.h"
#include "resources/ids/paper.h"
#include "resources/ids/security.h"
#include "tests/support/bare_dialog.h"
#include "tests/support/language_folder.h"
#include "tests/support/scratch_settings.h"

namespace vmk::test {
namespace {

constexpr wchar_t kProduct[] = L"vmkctrl.PdfPrinterPreferences";

std::string Narrow(const std::wstring& path) {
    return {path.begin(), path.end()};
}

void AddLanguagesOf(const std::string& folder, bool areMadeUp, std::vector<Language>& languages) {
    const LanguageSession session(folder, kProduct);
    for (const LanguageRecord& record : session.Languages())
        languages.push_back({.name = record.header.langname,
                             .id = static_cast<LANGID>(record.header.langid),
                             .folder = folder,
                             .isMadeUp = areMadeUp});
}

// A list whose choice changes what the page shows.
struct Switch {
    PdfPrinterDialogPage page;
    UINT list;
};
constexpr Switch kSwitches[] = {{Paper, IDC_PAPER_COUNT}, {Security, IDC_SECURITY_LEVEL}};

std::vector<HWND> ButtonsOf(const LiveDialog& dialog) {
    return {dialog.Main().Control(IDOK), dialog.Main().Control(IDCANCEL),
            dialog.Main().Control(IDC_MAIN_APPLY)};
}

}  // namespace

std::vector<Language> Languages() {
    std::vector<Language> languages = {{.name = L"Templates", .id = kEnglish, .folder = ""}};
    AddLanguagesOf(Narrow(TestFolder()) + "\\..\\languages", false, languages);
    AddLanguagesOf(Narrow(TestFolder()), true, languages);
    return languages;
}

void InLanguage(const Language& language, const std::function<void(LiveDialog&)>& use,
                const PrinterSettings& shown) {
    std::optional<ConfiguredLanguageFolder> folder;
    if (!language.folder.empty()) folder.emplace(language.folder);
    const ScratchSettings settings;
    settings.Store(shown);
    LiveDialog dialog({.language = language.id, .settings = &settings});
    use(dialog);
}

void VisitViews(const LiveDialog& dialog, const Visitor& visit) {
    const HWND main = dialog.Main().Handle();
    visit(L"Dialog", {.view = main, .except = dialog.Navigator().Control(IDC_NAVIGATOR_FRAME)});
    const std::vector<std::wstring> names = dialog.PageNames();
    for (std::size_t index = 0; index < names.size(); ++index) {
        const PageTemplate& about = PageTemplates()[index];
        const std::string narrow = about.name;
        const std::wstring name(narrow.begin(), narrow.end());
        const LiveWindow page = dialog.Page(names[index]);
        const View view = {.view = page.Handle(), .buttons = ButtonsOf(dialog)};
        visit(name, view);
        for (const Switch& one : kSwitches) {
            if (one.page != about.bit) continue;
            const std::wstring before = page.Selected(one.list);
            for (const std::wstring& item : page.Items(one.list)) {
                page.Choose(one.list, item);
                visit(name, view);
            }
            page.Choose(one.list, before);
        }
        if (about.bit != eMail || !page.IsEnabled(IDC_EMAIL_EDIT_SERVER)) continue;
        const LiveWindow server = dialog.OpenModal(page, IDC_EMAIL_EDIT_SERVER);
        visit(L"Mail Server", {.view = server.Handle()});
        dialog.CloseModal(server, IDCANCEL);
    }
}

}  // namespace vmk::test
