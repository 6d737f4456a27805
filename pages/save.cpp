#include "pages/save.h"

#include <algorithm>

#include "base/truncate.h"
#include "base/window_text.h"
#include "controls/file_dialog.h"
#include "controls/folder_dialog.h"
#include "controls/path_box.h"
#include "resources/ids/save.h"

namespace vmk {
namespace {

constexpr std::int32_t kAutoNumber = 2;
constexpr ComboItem kWhenExists[] = {
    {0, L"Show Warning Dialog"},
    {1, L"Always Overwrite"},
    {kAutoNumber, L"Auto Number"},
    {3, L"Merge With Existing (Append To)"},
    {4, L"Merge With Existing (Insert Before)"},
};

// The label of the path is one of them and the label of the start is not: so it has always been.
constexpr UINT kNumbering[] = {
    IDC_SAVE_START,  IDC_SAVE_START_SPIN,  IDC_SAVE_DIGITS_LABEL,
    IDC_SAVE_DIGITS, IDC_SAVE_DIGITS_SPIN, IDC_SAVE_FOLDER_LABEL,
};
constexpr std::int32_t kNumbered[] = {kAutoNumber};
constexpr std::int32_t kNotNumbered[] = {0, 1, 3, 4};
constexpr ComboRule kWhenExistsRules[] = {
    {.ids = kNumbering, .values = kNumbered, .enable = true},
    {.ids = kNumbering, .values = kNotNumbered, .enable = false},
};

constexpr UINT kPredefined[] = {
    IDC_SAVE_FILE_NAME_LABEL, IDC_SAVE_FILE_NAME,   IDC_SAVE_MACRO,       IDC_SAVE_EXISTS_LABEL,
    IDC_SAVE_EXISTS,          IDC_SAVE_START_LABEL, IDC_SAVE_START,       IDC_SAVE_START_SPIN,
    IDC_SAVE_DIGITS_LABEL,    IDC_SAVE_DIGITS,      IDC_SAVE_DIGITS_SPIN,
};
constexpr UINT kOtherFolder[] = {IDC_SAVE_FOLDER_LABEL, IDC_SAVE_FOLDER, IDC_SAVE_FOLDER_BROWSE};
constexpr UINT kRun[] = {
    IDC_SAVE_DEFAULT_APP, IDC_SAVE_GIVEN_APP,        IDC_SAVE_APP,
    IDC_SAVE_APP_BROWSE,  IDC_SAVE_PARAMETERS_LABEL, IDC_SAVE_PARAMETERS,
};
constexpr UINT kGivenApplication[] = {IDC_SAVE_APP, IDC_SAVE_APP_BROWSE, IDC_SAVE_PARAMETERS_LABEL,
                                      IDC_SAVE_PARAMETERS};

constexpr UINT kAskOnly[] = {IDC_SAVE_ASK};
constexpr UINT kPredefinedOnly[] = {IDC_SAVE_PREDEFINED};
constexpr UINT kDefaultAppOnly[] = {IDC_SAVE_DEFAULT_APP};
constexpr UINT kGivenAppOnly[] = {IDC_SAVE_GIVEN_APP};

constexpr CMyEditDouble::Options kStartOptions = {.minimum = 0, .maximum = 2147483647, .format = L"%.0f"};
constexpr CMyEditDouble::Options kDigitsOptions = {.minimum = 1, .maximum = 6, .format = L"%.0f"};

struct Macro {
    UINT command;
    const wchar_t* text;
};
constexpr Macro kMacros[] = {
    {IDM_SAVE_DOCUMENT_NAME, L"%[DocName]"},
    {IDM_SAVE_COMPUTER_NAME, L"%[Computer]"},
    {IDM_SAVE_USER_NAME, L"%[User]"},
    {IDM_SAVE_DATE, L"%[Date]"},
    {IDM_SAVE_YEAR, L"%[Year]"},
    {IDM_SAVE_MONTH, L"%[Month]"},
    {IDM_SAVE_DAY, L"%[Day]"},
    {IDM_SAVE_TIME, L"%[Time]"},
    {IDM_SAVE_HOUR, L"%[Hour]"},
    {IDM_SAVE_MINUTE, L"%[Minute]"},
    {IDM_SAVE_SECOND, L"%[Second]"},
};

// As much of a file name as a macro is appended to.
constexpr int kLongestFileName = 259;

}  // namespace

CDlgSave::CDlgSave()
    : CPage(IDD_SAVE), m_spins{{{IDC_SAVE_START_SPIN, m_start}, {IDC_SAVE_DIGITS_SPIN, m_digits}}} {}

void CDlgSave::LoadPage() {
    m_macros = LoadMenuResource(IDR_SAVE_MACROS);
    BindTarget();
    BindApplication();
    ShowTarget();
    ShowApplication();
}

void CDlgSave::BindTarget() {
    PrinterSettings::SaveGroup& save = settings->Save;
    m_ask.Bind(
        *this, IDC_SAVE_ASK, save.ShowSaveDialog,
        {.value = 1, .group = kPredefinedOnly, .dependents = {.ids = kPredefined, .enabledWhenOn = false}});
    m_predefined.Bind(*this, IDC_SAVE_PREDEFINED, save.ShowSaveDialog,
                      {.value = 0, .group = kAskOnly, .dependents = {.ids = kPredefined}});
    m_sameFolder.Bind(*this, IDC_SAVE_SAME_FOLDER, save.UseSameFolder,
                      {.ids = kOtherFolder, .enabledWhenOn = false});
    m_folder.Bind(*this, IDC_SAVE_FOLDER, save.Folder);
    m_fileName.Bind(*this, IDC_SAVE_FILE_NAME, save.FileName);
    m_whenExists.Bind(*this, IDC_SAVE_EXISTS, save.WhenExists, kWhenExists, kWhenExistsRules);
    m_startNumber = save.AutoNumber.Start;
    m_start.Bind(*this, IDC_SAVE_START, m_startNumber, kStartOptions);
    m_digitsNumber = save.AutoNumber.Digits;
    m_digits.Bind(*this, IDC_SAVE_DIGITS, m_digitsNumber, kDigitsOptions);
}

void CDlgSave::BindApplication() {
    RunApplication& run = settings->Save.App.Run;
    m_application.Bind(*this, IDC_SAVE_APP, run.Path);
    m_parameters.Bind(*this, IDC_SAVE_PARAMETERS, settings->Save.App.Params);
    m_run.Bind(*this, IDC_SAVE_RUN, run.Use, {.ids = kRun});
    m_defaultApplication.Bind(*this, IDC_SAVE_DEFAULT_APP, run.WithoutPath,
                              {.value = 1,
                               .group = kGivenAppOnly,
                               .dependents = {.ids = kGivenApplication, .enabledWhenOn = false}});
    m_givenApplication.Bind(*this, IDC_SAVE_GIVEN_APP, run.WithoutPath,
                            {.value = 0, .group = kDefaultAppOnly, .dependents = {.ids = kGivenApplication}});
}

// The radio buttons are clicked and not merely checked: a click switches the dependents of the whole group,
// and it enables Apply.
void CDlgSave::ShowTarget() {
    m_whenExists.Show();
    if (settings->Save.ShowSaveDialog) {
        m_sameFolder.Show();
        ClickItem(IDC_SAVE_ASK);
    } else {
        ClickItem(IDC_SAVE_PREDEFINED);
        m_sameFolder.Show();
    }
}

void CDlgSave::ShowApplication() {
    const RunApplication& run = settings->Save.App.Run;
    if (run.Use) m_run.Show();
    ClickItem(run.WithoutPath ? IDC_SAVE_DEFAULT_APP : IDC_SAVE_GIVEN_APP);
    if (!run.Use) m_run.Show();
}

void CDlgSave::StorePage() {
    m_ask.Store();
    m_predefined.Store();
    m_defaultApplication.Store();
    m_givenApplication.Store();
    m_sameFolder.Store();
    m_whenExists.Store();
    m_start.Store();
    settings->Save.AutoNumber.Start = TruncateToInt32(m_startNumber);
    m_start.SetStored(settings->Save.AutoNumber.Start);
    m_digits.Store();
    settings->Save.AutoNumber.Digits = TruncateToInt32(m_digitsNumber);
    m_digits.SetStored(settings->Save.AutoNumber.Digits);
    m_run.Store();
    m_folder.Store();
    m_fileName.Store();
    m_application.Store();
    m_parameters.Store();
}

bool CDlgSave::OnCommand(Command command) {
    if (command.code != BN_CLICKED) return false;
    switch (command.id) {
        case IDC_SAVE_PREDEFINED:
            // It has enabled the numbering, which is the list's business.
            m_whenExists.ReapplyRules();
            return false;
        case IDC_SAVE_FOLDER_BROWSE:
            TakeChosenPath(m_folder, ChooseFolder(GetActiveWindow()));
            return true;
        case IDC_SAVE_MACRO:
            AppendMacro();
            return true;
        case IDC_SAVE_RUN:
            OnRunClicked();
            return true;
        case IDC_SAVE_APP_BROWSE:
            TakeChosenPath(m_application, ChooseFile(GetActiveWindow()));
            return true;
        default:
            return false;
    }
}

// The radio buttons switch some of the box's dependents, so the box comes first when it enables them all and
// last when it disables them all.
void CDlgSave::OnRunClicked() {
    EnableApply();
    const bool run = m_run.IsChecked();
    if (run) m_run.ReapplyDependents();
    ClickChosenApplication();
    if (!run) m_run.ReapplyDependents();
}

void CDlgSave::ClickChosenApplication() const {
    ClickItem(m_defaultApplication.IsChecked() ? IDC_SAVE_DEFAULT_APP : IDC_SAVE_GIVEN_APP);
}

// The text is read and written back, and Apply enabled, also when no macro was chosen.
void CDlgSave::AppendMacro() {
    const UINT command = AskForMacro();
    std::wstring fileName = WindowText(m_fileName.Handle(), kLongestFileName);
    const auto* const macro = std::ranges::find(kMacros, command, &Macro::command);
    if (macro != std::end(kMacros)) fileName += macro->text;
    m_fileName.SetText(fileName);
    EnableApply();
}

// The command chosen from the menu below the button, 0 for none.
UINT CDlgSave::AskForMacro() const {
    HMENU popup = GetSubMenu(m_macros.get(), 0);
    TranslateMenuTexts(popup);
    RECT button{};
    GetWindowRect(Item(IDC_SAVE_MACRO), &button);
    return static_cast<UINT>(TrackPopupMenu(popup, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RETURNCMD, button.left,
                                            button.bottom, 0, Handle(), nullptr));
}

}  // namespace vmk
