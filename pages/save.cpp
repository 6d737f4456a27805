#include "resources/ids/save.h"

#include "base/window_text.h"
#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_text.h"
#include "controls/file_dialog.h"
#include "controls/folder_dialog.h"
#include "controls/number_box.h"
#include "controls/path_box.h"
#include "controls/radio_button.h"
#include "pages/file_name_macros.h"
#include "pages/page.h"
#include "pages/pages.h"

namespace vmk {
namespace {

// The label of the path is one of them and the label of the start is not: so it has always been.
constexpr UINT kNumbering[] = {
    IDC_SAVE_START,  IDC_SAVE_START_SPIN,  IDC_SAVE_DIGITS_LABEL,
    IDC_SAVE_DIGITS, IDC_SAVE_DIGITS_SPIN, IDC_SAVE_FOLDER_LABEL,
};
constexpr std::int32_t kNumbered[] = {choices::kAutoNumber};
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

// As much of a file name as a macro is appended to.
constexpr int kLongestFileName = 259;

class CDlgSave final : public PageFrom<IDD_SAVE> {
    void LoadPage() override;
    bool OnCommand(Command command) override;

    void BindTarget();
    void BindApplication();
    void ShowTarget();
    void ShowApplication();
    void OnRunClicked();
    void ClickChosenApplication() const;
    void AppendMacro();

    CMyRadioButton m_ask;
    CMyRadioButton m_predefined;
    CMyRadioButton m_defaultApplication;
    CMyRadioButton m_givenApplication;
    CMyCheckbox m_sameFolder;
    CMyCombobox m_whenExists;
    CMyEditDouble m_start;
    CMyEditDouble m_digits;
    CMyCheckbox m_run;
    CMyEditText m_folder;
    CMyEditText m_fileName;
    CMyEditText m_application;
    CMyEditText m_parameters;

    FileNameMacros m_macros;  // goes before the controls do
};

void CDlgSave::LoadPage() {
    BindTarget();
    ShowTarget();
    BindApplication();
    ShowApplication();
}

void CDlgSave::BindTarget() {
    auto& save = settings->Save;
    m_ask.Bind(
        *this, IDC_SAVE_ASK, save.ShowSaveDialog,
        {.value = 1, .group = kPredefinedOnly, .dependents = {.ids = kPredefined, .enabledWhenOn = false}});
    m_predefined.Bind(*this, IDC_SAVE_PREDEFINED, save.ShowSaveDialog,
                      {.value = 0, .group = kAskOnly, .dependents = {.ids = kPredefined}});
    m_sameFolder.Bind(*this, IDC_SAVE_SAME_FOLDER, save.UseSameFolder,
                      {.ids = kOtherFolder, .enabledWhenOn = false});
    m_folder.Bind(*this, IDC_SAVE_FOLDER, save.Folder);
    m_fileName.Bind(*this, IDC_SAVE_FILE_NAME, save.FileName);
    m_whenExists.Bind(*this, IDC_SAVE_EXISTS, save.WhenExists, ChoicesOf("Save.WhenExists"),
                      kWhenExistsRules);
    m_start.Bind(*this, IDC_SAVE_START, save.AutoNumber.Start, RangeOf("Save.AutoNumber.Start"),
                 {.spin = IDC_SAVE_START_SPIN, .format = L"%.0f"});
    m_digits.Bind(*this, IDC_SAVE_DIGITS, save.AutoNumber.Digits, RangeOf("Save.AutoNumber.Digits"),
                  {.spin = IDC_SAVE_DIGITS_SPIN, .format = L"%.0f"});
}

void CDlgSave::BindApplication() {
    RunApplication& run = settings->Save.App.Run;
    m_run.Bind(*this, IDC_SAVE_RUN, run.Use, {.ids = kRun});
    m_defaultApplication.Bind(*this, IDC_SAVE_DEFAULT_APP, run.WithoutPath,
                              {.value = 1,
                               .group = kGivenAppOnly,
                               .dependents = {.ids = kGivenApplication, .enabledWhenOn = false}});
    m_givenApplication.Bind(*this, IDC_SAVE_GIVEN_APP, run.WithoutPath,
                            {.value = 0, .group = kDefaultAppOnly, .dependents = {.ids = kGivenApplication}});
    m_application.Bind(*this, IDC_SAVE_APP, run.Path);
    m_parameters.Bind(*this, IDC_SAVE_PARAMETERS, settings->Save.App.Params);
}

// The radio buttons are clicked and not merely checked: a click switches the dependents of the whole group,
// and it enables Apply. The label of the path belongs to the list and to the box; the box has the last word,
// which "ask" does not take back.
void CDlgSave::ShowTarget() {
    if (settings->Save.ShowSaveDialog) {
        m_sameFolder.Show();
        ClickItem(IDC_SAVE_ASK);
    } else {
        ClickItem(IDC_SAVE_PREDEFINED);
        m_sameFolder.Show();
    }
}

// For the click the buttons have to be enabled.
void CDlgSave::ShowApplication() {
    const RunApplication& run = settings->Save.App.Run;
    m_run.SetCheck(true);
    ClickItem(run.WithoutPath ? IDC_SAVE_DEFAULT_APP : IDC_SAVE_GIVEN_APP);
    if (!run.Use) m_run.Show();
}

bool CDlgSave::OnCommand(Command command) {
    if (command.code != BN_CLICKED) return false;
    switch (command.id) {
        case IDC_SAVE_PREDEFINED:
            // It has enabled the numbering, which is the list's business.
            m_whenExists.SwitchOthers();
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
    if (run) m_run.SwitchOthers();
    ClickChosenApplication();
    if (!run) m_run.SwitchOthers();
}

void CDlgSave::ClickChosenApplication() const {
    ClickItem(m_defaultApplication.IsChecked() ? IDC_SAVE_DEFAULT_APP : IDC_SAVE_GIVEN_APP);
}

// The text is read and written back, and Apply enabled, also when no macro was chosen.
void CDlgSave::AppendMacro() {
    std::wstring fileName = WindowText(m_fileName.Handle(), kLongestFileName);
    fileName += m_macros.Ask(*this, Item(IDC_SAVE_MACRO));
    m_fileName.SetText(fileName);
    EnableApply();
}

}  // namespace

std::unique_ptr<PageWindow> MakeSavePage() {
    return std::make_unique<CDlgSave>();
}

}  // namespace vmk
