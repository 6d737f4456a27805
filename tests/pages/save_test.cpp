#include "resources/ids/save.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/truncate.h"
#include "base/window_text.h"
#include "resources/ids/main.h"
#include "tests/pages/file_chooser.h"
#include "tests/support/language_folder.h"
#include "tests/support/live_dialog.h"
#include "tests/support/loaded_module.h"
#include "tests/support/wait.h"

namespace vmk::test {
namespace {

const std::vector<UINT> kNaming = {IDC_SAVE_FILE_NAME_LABEL, IDC_SAVE_FILE_NAME, IDC_SAVE_MACRO,
                                   IDC_SAVE_EXISTS_LABEL,    IDC_SAVE_EXISTS,    IDC_SAVE_START_LABEL};
const std::vector<UINT> kNumbering = {IDC_SAVE_START, IDC_SAVE_START_SPIN, IDC_SAVE_DIGITS_LABEL,
                                      IDC_SAVE_DIGITS, IDC_SAVE_DIGITS_SPIN};
const std::vector<UINT> kPath = {IDC_SAVE_FOLDER_LABEL, IDC_SAVE_FOLDER, IDC_SAVE_FOLDER_BROWSE};
const std::vector<UINT> kApplications = {IDC_SAVE_DEFAULT_APP, IDC_SAVE_GIVEN_APP};
const std::vector<UINT> kGivenApplication = {IDC_SAVE_APP, IDC_SAVE_APP_BROWSE, IDC_SAVE_PARAMETERS_LABEL,
                                             IDC_SAVE_PARAMETERS};
const std::vector<std::wstring> kWhenExists = {L"Show Warning Dialog", L"Always Overwrite", L"Auto Number",
                                               L"Merge With Existing (Append To)",
                                               L"Merge With Existing (Insert Before)"};
constexpr std::int32_t kAutoNumber = 2;

// The Save page of a dialog of its own, opened on what a key holds.
struct OpenPage {
    explicit OpenPage(const ScratchSettings& settings, LANGID language = 0x0409)
        : dialog({.pages = page_bit::kSave, .language = language, .settings = &settings}),
          page(dialog.VisiblePage()) {}

    // Whether all of these are enabled (1), none of them is (0) or some are (-1).
    int State(const std::vector<UINT>& ids) const {
        return page.AreEnabled(ids) ? 1 : page.AreDisabled(ids) ? 0 : -1;
    }

    LiveDialog dialog;
    LiveWindow page;
};

ScratchSettings& Fill(ScratchSettings& settings, const PrinterSettings& record) {
    settings.Store(record);
    return settings;
}

// The same, on a record.
struct RecordPage : private ScratchSettings, OpenPage {
    explicit RecordPage(const PrinterSettings& record = {}, LANGID language = 0x0409)
        : OpenPage(Fill(*this, record), language) {}
};

PrinterSettings Numbering() {
    PrinterSettings record;
    record.Save.WhenExists = kAutoNumber;
    return record;
}

PrinterSettings Running(std::int32_t withoutPath) {
    PrinterSettings record;
    record.Save.App.Run = {.Use = 1, .WithoutPath = withoutPath, .Path = withoutPath ? L"" : L"C:\\a.exe"};
    return record;
}

TEST(SavePage, AnEmptyKeyShowsTheDefaults) {
    const ScratchSettings empty;
    const OpenPage open(empty);
    EXPECT_FALSE(open.page.IsChecked(IDC_SAVE_ASK));
    EXPECT_TRUE(open.page.IsChecked(IDC_SAVE_PREDEFINED));
    EXPECT_TRUE(open.page.IsChecked(IDC_SAVE_SAME_FOLDER));
    EXPECT_EQ(open.State(kPath), 0);
    EXPECT_EQ(open.page.Text(IDC_SAVE_FOLDER), L"");
    EXPECT_EQ(open.page.Text(IDC_SAVE_FILE_NAME), L"%[DocName]");
    EXPECT_EQ(open.page.Items(IDC_SAVE_EXISTS), kWhenExists);
    EXPECT_EQ(open.page.Selected(IDC_SAVE_EXISTS), L"Show Warning Dialog");
    EXPECT_EQ(open.page.Text(IDC_SAVE_START), L"1");
    EXPECT_EQ(open.page.Text(IDC_SAVE_DIGITS), L"3");
    EXPECT_FALSE(open.page.IsChecked(IDC_SAVE_RUN));
    EXPECT_TRUE(open.page.IsChecked(IDC_SAVE_DEFAULT_APP));
    EXPECT_FALSE(open.page.IsChecked(IDC_SAVE_GIVEN_APP));
    EXPECT_EQ(open.page.Text(IDC_SAVE_PARAMETERS), L"");
}

TEST(SavePage, OpensWithTheStoredChoicesAndWhatTheyEnable) {
    for (const std::int32_t ask : {0, 1}) {
        for (const std::int32_t sameFolder : {0, 1}) {
            for (std::int32_t whenExists = 0; whenExists < 5; ++whenExists) {
                PrinterSettings record;
                record.Save.ShowSaveDialog = ask;
                record.Save.UseSameFolder = sameFolder;
                record.Save.WhenExists = whenExists;
                const RecordPage open(record);
                SCOPED_TRACE(testing::Message() << ask << sameFolder << whenExists);
                EXPECT_EQ(open.page.IsChecked(IDC_SAVE_ASK), ask == 1);
                EXPECT_EQ(open.page.IsChecked(IDC_SAVE_PREDEFINED), ask == 0);
                EXPECT_EQ(open.page.IsChecked(IDC_SAVE_SAME_FOLDER), sameFolder == 1);
                EXPECT_EQ(open.page.Selected(IDC_SAVE_EXISTS), kWhenExists[static_cast<size_t>(whenExists)]);
                EXPECT_EQ(open.State(kNaming), ask == 0);
                EXPECT_EQ(open.State(kNumbering), ask == 0 && whenExists == kAutoNumber);
                EXPECT_EQ(open.State(kPath), sameFolder == 0);
            }
        }
    }
}

TEST(SavePage, TheListEnablesTheNumberingAndThePathLabelButNeverTheStartLabel) {
    const RecordPage open;
    const std::vector<UINT> path = {IDC_SAVE_FOLDER, IDC_SAVE_FOLDER_BROWSE};
    for (const size_t item : {2U, 1U, 2U, 0U, 2U, 3U, 2U, 4U}) {
        ASSERT_TRUE(open.page.Choose(IDC_SAVE_EXISTS, kWhenExists[item]));
        const bool numbered = item == kAutoNumber;
        EXPECT_EQ(open.State(kNumbering), numbered) << item;
        EXPECT_EQ(open.page.IsEnabled(IDC_SAVE_FOLDER_LABEL), numbered) << item;
        EXPECT_EQ(open.State(path), 0) << item;
        EXPECT_TRUE(open.page.IsEnabled(IDC_SAVE_START_LABEL)) << item;
        EXPECT_TRUE(open.dialog.IsApplyEnabled());
        open.dialog.Apply();
        EXPECT_EQ(open.dialog.Record().Save.WhenExists, static_cast<std::int32_t>(item));
    }
}

TEST(SavePage, AskingDisablesTheNamingAndLeavesTheFolderAlone) {
    for (const std::int32_t sameFolder : {0, 1}) {
        PrinterSettings record = Numbering();
        record.Save.UseSameFolder = sameFolder;
        const RecordPage open(record);
        open.page.Click(IDC_SAVE_ASK);
        EXPECT_EQ(open.State(kNaming), 0);
        EXPECT_EQ(open.State(kNumbering), 0);
        EXPECT_TRUE(open.page.IsEnabled(IDC_SAVE_SAME_FOLDER));
        EXPECT_EQ(open.State(kPath), sameFolder == 0);
        EXPECT_TRUE(open.dialog.IsApplyEnabled());

        open.page.Click(IDC_SAVE_ASK);  // once more changes nothing
        EXPECT_EQ(open.State(kNaming), 0);
        EXPECT_EQ(open.State(kNumbering), 0);
        open.dialog.Apply();
        EXPECT_EQ(open.dialog.Record().Save.ShowSaveDialog, 1);
    }
}

TEST(SavePage, PredefinedValuesEnableTheNamingAndTheListDecidesTheNumbering) {
    for (const std::int32_t whenExists : {1, kAutoNumber}) {
        PrinterSettings record;
        record.Save.ShowSaveDialog = 1;
        record.Save.WhenExists = whenExists;
        const RecordPage open(record);
        for (int time = 0; time < 2; ++time) {
            open.page.Click(IDC_SAVE_PREDEFINED);
            EXPECT_EQ(open.State(kNaming), 1);
            EXPECT_EQ(open.State(kNumbering), whenExists == kAutoNumber);
            EXPECT_EQ(open.page.IsEnabled(IDC_SAVE_FOLDER_LABEL), whenExists == kAutoNumber);
        }
        open.dialog.Apply();
        EXPECT_EQ(open.dialog.Record().Save.ShowSaveDialog, 0);
    }
}

TEST(SavePage, ARadioButtonChosenWithTheArrowKeysSwitchesTheSameControls) {
    const RecordPage open;
    open.page.Focus(IDC_SAVE_PREDEFINED);
    open.dialog.PressKey(VK_UP);
    EXPECT_TRUE(WaitUntil([&] { return open.page.IsChecked(IDC_SAVE_ASK) && open.State(kNaming) == 0; }));
    open.dialog.PressKey(VK_DOWN);
    EXPECT_TRUE(WaitUntil([&] { return !open.page.IsChecked(IDC_SAVE_ASK) && open.State(kNaming) == 1; }));
    EXPECT_TRUE(open.dialog.IsApplyEnabled());
}

TEST(SavePage, AnUnknownChoiceSelectsNothingAndLeavesTheNumberingToTheRadioButtons) {
    PrinterSettings record;
    record.Save.WhenExists = 9;
    const RecordPage open(record);
    EXPECT_EQ(open.page.Selected(IDC_SAVE_EXISTS), L"");
    EXPECT_EQ(open.State(kNumbering), 1);
    open.page.Click(IDC_SAVE_ASK);
    EXPECT_EQ(open.State(kNumbering), 0);
    open.page.Click(IDC_SAVE_PREDEFINED);
    EXPECT_EQ(open.State(kNumbering), 1);
    open.dialog.Apply();
    EXPECT_EQ(open.dialog.Record().Save.WhenExists, -1);
}

TEST(SavePage, TheSameFolderDisablesThePathWithItsLabel) {
    const RecordPage open(Numbering());
    open.page.Click(IDC_SAVE_SAME_FOLDER);
    EXPECT_EQ(open.State(kPath), 1);
    open.page.Click(IDC_SAVE_SAME_FOLDER);
    EXPECT_EQ(open.State(kPath), 0);
    EXPECT_TRUE(open.dialog.IsApplyEnabled());
}

TEST(SavePage, TheFoldersAndTheApplicationsPathsCannotBeTyped) {
    const RecordPage open;
    for (const UINT id : std::vector<UINT>{IDC_SAVE_FOLDER, IDC_SAVE_APP})
        EXPECT_TRUE(GetWindowLongW(open.page.Control(id), GWL_STYLE) & ES_READONLY);
}

// Numbers

TEST(SavePage, TheSpinsStepWithinTheLimits) {
    const struct {
        UINT edit;
        UINT spin;
        const wchar_t* from;
        const wchar_t* up;
        const wchar_t* down;
    } rows[] = {
        {IDC_SAVE_START, IDC_SAVE_START_SPIN, L"7", L"8", L"6"},
        {IDC_SAVE_START, IDC_SAVE_START_SPIN, L"0", L"1", L"0"},
        {IDC_SAVE_START, IDC_SAVE_START_SPIN, L"2147483647", L"2147483647", L"2147483646"},
        {IDC_SAVE_DIGITS, IDC_SAVE_DIGITS_SPIN, L"3", L"4", L"2"},
        {IDC_SAVE_DIGITS, IDC_SAVE_DIGITS_SPIN, L"1", L"2", L"1"},
        {IDC_SAVE_DIGITS, IDC_SAVE_DIGITS_SPIN, L"6", L"6", L"5"},
    };
    const RecordPage open(Numbering());
    for (const auto& row : rows) {
        open.page.EnterText(row.edit, row.from);
        open.dialog.Apply();
        open.page.SpinUp(row.spin);
        EXPECT_EQ(open.page.Text(row.edit), row.up);
        EXPECT_TRUE(open.dialog.IsApplyEnabled());
        open.page.EnterText(row.edit, row.from);
        open.page.SpinDown(row.spin);
        EXPECT_EQ(open.page.Text(row.edit), row.down);
        open.dialog.Apply();
        const auto& numbers = open.dialog.Record().Save.AutoNumber;
        EXPECT_EQ(std::to_wstring(row.edit == IDC_SAVE_START ? numbers.Start : numbers.Digits), row.down);
    }
}

TEST(SavePage, ANumberOutsideTheLimitsIsRefused) {
    const std::vector<std::pair<UINT, const wchar_t*>> rows = {{IDC_SAVE_START, L"-1"},
                                                               {IDC_SAVE_START, L"2147483648"},
                                                               {IDC_SAVE_DIGITS, L"0"},
                                                               {IDC_SAVE_DIGITS, L"7"},
                                                               {IDC_SAVE_DIGITS, L"many"}};
    for (const auto& [edit, text] : rows) {
        const RecordPage open(Numbering());
        open.page.EnterTextAndLeave(edit, text, IDC_SAVE_FILE_NAME);
        EXPECT_EQ(open.page.Text(edit), edit == IDC_SAVE_START ? L"1" : L"3") << text;
        EXPECT_TRUE(open.dialog.FocusReaches(open.page.Control(edit)));
    }
}

TEST(SavePage, ARefusedNumberGivesWayToTheAppliedOneAsItIsStored) {
    for (const UINT edit : {UINT{IDC_SAVE_START}, UINT{IDC_SAVE_DIGITS}}) {
        const RecordPage open(Numbering());
        open.page.EnterTextAndLeave(edit, L"4.7", IDC_SAVE_FILE_NAME);
        open.dialog.Apply();
        open.page.EnterTextAndLeave(edit, L"-1", IDC_SAVE_FILE_NAME);
        EXPECT_EQ(open.page.Text(edit), L"4");
    }
}

TEST(SavePage, NumbersAtTheLimitsAreStored) {
    for (const auto& [start, digits] : {std::pair(0, 1), std::pair(2147483647, 6)}) {
        const RecordPage open(Numbering());
        open.page.EnterTextAndLeave(IDC_SAVE_START, std::to_wstring(start), IDC_SAVE_FILE_NAME);
        open.page.EnterTextAndLeave(IDC_SAVE_DIGITS, std::to_wstring(digits), IDC_SAVE_FILE_NAME);
        open.dialog.Apply();
        EXPECT_EQ(open.dialog.Record().Save.AutoNumber.Start, start);
        EXPECT_EQ(open.dialog.Record().Save.AutoNumber.Digits, digits);
    }
}

TEST(SavePage, DecimalsAreRoundedOnScreenAndCutWhenStored) {
    const RecordPage open(Numbering());
    open.page.EnterTextAndLeave(IDC_SAVE_START, L"3.7", IDC_SAVE_FILE_NAME);
    EXPECT_EQ(open.page.Text(IDC_SAVE_START), L"4");
    open.dialog.Apply();
    EXPECT_EQ(open.dialog.Record().Save.AutoNumber.Start, 3);
}

TEST(SavePage, StoredNumbersOutsideTheLimitsAreKeptUntilTheyAreChanged) {
    PrinterSettings record = Numbering();
    record.Save.AutoNumber = {.Start = -5, .Digits = 40};
    const RecordPage open(record);
    EXPECT_EQ(open.page.Text(IDC_SAVE_START), L"-5");
    EXPECT_EQ(open.page.Text(IDC_SAVE_DIGITS), L"40");
    open.page.EnterText(IDC_SAVE_FILE_NAME, L"other");
    open.dialog.Apply();
    record.Save.FileName = L"other";
    EXPECT_EQ(open.dialog.Record(), record);
}

TEST(SavePage, TruncationIsTowardZeroAndNeverOverflows) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(TruncateToInt32(3.99), 3);
    EXPECT_EQ(TruncateToInt32(-3.99), -3);
    EXPECT_EQ(TruncateToInt32(2147483647.5), 2147483647);
    EXPECT_EQ(TruncateToInt32(1e300), 2147483647);
    EXPECT_EQ(TruncateToInt32(-1e300), -2147483648);
    EXPECT_EQ(TruncateToInt32(kInfinity), 2147483647);
    EXPECT_EQ(TruncateToInt32(-kInfinity), -2147483648);
    EXPECT_EQ(TruncateToInt32(std::numeric_limits<double>::quiet_NaN()), 0);
}

// The application

// The forms of the one stored value, and what the page shows of it.
enum class Form { kMissing, kNone, kDefault, kProgram };

void StoreForm(const ScratchSettings& settings, Form form) {
    if (form == Form::kNone) settings.SetNumber("Save.App.Run", 0);
    if (form == Form::kDefault) settings.SetNumber("Save.App.Run", 1);
    if (form == Form::kProgram) settings.SetText("Save.App.Run", L"C:\\viewer.exe");
}

TEST(SavePage, EveryFormOfTheStoredApplicationIsShown) {
    for (const Form form : {Form::kMissing, Form::kNone, Form::kDefault, Form::kProgram}) {
        const ScratchSettings settings;
        StoreForm(settings, form);
        const OpenPage open(settings);
        const bool runs = form == Form::kDefault || form == Form::kProgram;
        EXPECT_EQ(open.page.IsChecked(IDC_SAVE_RUN), runs);
        EXPECT_EQ(open.page.IsChecked(IDC_SAVE_DEFAULT_APP), form != Form::kProgram);
        EXPECT_EQ(open.page.IsChecked(IDC_SAVE_GIVEN_APP), form == Form::kProgram);
        EXPECT_EQ(open.page.Text(IDC_SAVE_APP), form == Form::kProgram ? L"C:\\viewer.exe" : L"");
        EXPECT_EQ(open.State(kApplications), runs);
        EXPECT_EQ(open.State(kGivenApplication), form == Form::kProgram);
    }
}

TEST(SavePage, EveryFormOfTheStoredApplicationCanBecomeEveryOther) {
    for (const Form from : {Form::kMissing, Form::kNone, Form::kDefault, Form::kProgram}) {
        for (const Form to : {Form::kNone, Form::kDefault, Form::kProgram}) {
            const ScratchSettings settings;
            StoreForm(settings, from);
            OpenPage open(settings);
            if (open.page.IsChecked(IDC_SAVE_RUN) != (to != Form::kNone)) open.page.Click(IDC_SAVE_RUN);
            if (to == Form::kDefault) open.page.Click(IDC_SAVE_DEFAULT_APP);
            if (to == Form::kProgram) {
                open.page.Click(IDC_SAVE_GIVEN_APP);
                open.page.EnterText(IDC_SAVE_APP, L"C:\\other.exe");
            }
            EXPECT_EQ(open.dialog.Ok(), 1);
            open.dialog.Call([&](IPdfPrinterPreferences& object) {
                object.StoreInRegistry(Save, AutomationString(settings.SubKey()).get());
            });
            if (to == Form::kProgram) {
                EXPECT_EQ(settings.Text("Save.App.Run"), L"C:\\other.exe");
            } else {
                EXPECT_EQ(settings.Number("Save.App.Run"), to == Form::kDefault ? 1 : 0);
            }
        }
    }
}

TEST(SavePage, TheRunBoxEnablesItsControlsAsFarAsTheChosenApplicationAllows) {
    const RecordPage open;
    open.page.Click(IDC_SAVE_RUN);
    EXPECT_EQ(open.State(kApplications), 1);
    EXPECT_EQ(open.State(kGivenApplication), 0);
    open.page.Click(IDC_SAVE_GIVEN_APP);
    EXPECT_EQ(open.State(kGivenApplication), 1);
    open.page.Click(IDC_SAVE_RUN);
    EXPECT_EQ(open.State(kApplications), 0);
    EXPECT_EQ(open.State(kGivenApplication), 0);
    EXPECT_TRUE(open.page.IsChecked(IDC_SAVE_GIVEN_APP));
    open.page.Click(IDC_SAVE_RUN);
    EXPECT_EQ(open.State(kApplications), 1);
    EXPECT_EQ(open.State(kGivenApplication), 1);
    open.page.Click(IDC_SAVE_DEFAULT_APP);
    EXPECT_EQ(open.State(kApplications), 1);
    EXPECT_EQ(open.State(kGivenApplication), 0);
    EXPECT_TRUE(open.dialog.IsApplyEnabled());
}

TEST(SavePage, StoppingToRunDisablesAllOfTheApplicationWhicheverIsChosen) {
    for (const std::int32_t withoutPath : {0, 1}) {
        const RecordPage open(Running(withoutPath));
        EXPECT_EQ(open.State(kGivenApplication), withoutPath == 0);
        open.page.Click(IDC_SAVE_RUN);
        EXPECT_EQ(open.State(kApplications), 0);
        EXPECT_EQ(open.State(kGivenApplication), 0);
        EXPECT_TRUE(open.dialog.IsApplyEnabled());
    }
}

// The choice is kept in the record while nothing runs, but not in the registry, so a second dialog of the
// same object is the only one that can open on it.
TEST(SavePage, ASecondDialogShowsTheApplicationThatDoesNotRun) {
    RecordPage open(Running(0));
    open.page.Click(IDC_SAVE_RUN);
    EXPECT_EQ(open.dialog.Ok(), 1);

    const auto reopen = [](void* parameter) -> DWORD {
        static_cast<RecordPage*>(parameter)->dialog.Call([](IPdfPrinterPreferences& object) {
            LONG answer = 0;
            object.SetTitle(AutomationString(L"Second Save").get());
            object.OpenDialog(0x0409, &answer);
        });
        return 0;
    };
    HANDLE thread = CreateThread(nullptr, 0, reopen, &open, 0, nullptr);
    HWND second = nullptr;
    ASSERT_TRUE(WaitUntil([&] {
        second = FindWindowW(nullptr, L"Second Save");
        return second && IsWindowVisible(second);
    }));
    const LiveWindow main(second);
    const LiveWindow navigator(FindWindowExW(second, nullptr, L"#32770", nullptr));
    const LiveWindow page(FindWindowExW(navigator.Control(IDC_NAVIGATOR_FRAME), nullptr, L"#32770", nullptr));
    EXPECT_FALSE(page.IsChecked(IDC_SAVE_RUN));
    EXPECT_TRUE(page.IsChecked(IDC_SAVE_GIVEN_APP));
    EXPECT_FALSE(page.IsChecked(IDC_SAVE_DEFAULT_APP));
    EXPECT_TRUE(page.AreDisabled(kApplications));
    EXPECT_TRUE(page.AreDisabled(kGivenApplication));
    main.PostClick(IDCANCEL);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

// Opening and storing

TEST(SavePage, EverythingIsStoredUnderItsName) {
    const ScratchSettings settings;
    OpenPage open(settings);
    open.page.Click(IDC_SAVE_ASK);
    open.page.Click(IDC_SAVE_SAME_FOLDER);
    open.page.EnterText(IDC_SAVE_FOLDER, L"C:\\out");
    open.page.EnterText(IDC_SAVE_FILE_NAME, L"Report");
    open.page.Choose(IDC_SAVE_EXISTS, L"Auto Number");
    open.page.EnterTextAndLeave(IDC_SAVE_START, L"17", IDC_SAVE_SAME_FOLDER);
    open.page.EnterTextAndLeave(IDC_SAVE_DIGITS, L"5", IDC_SAVE_SAME_FOLDER);
    open.page.Click(IDC_SAVE_RUN);
    open.page.Click(IDC_SAVE_GIVEN_APP);
    open.page.EnterText(IDC_SAVE_APP, L"C:\\a.exe");
    open.page.EnterText(IDC_SAVE_PARAMETERS, L"/p %f");
    EXPECT_EQ(open.dialog.Record(), settings.Load());
    EXPECT_EQ(open.dialog.Ok(), 1);
    open.dialog.Call([&](IPdfPrinterPreferences& object) {
        object.StoreInRegistry(Save, AutomationString(settings.SubKey()).get());
    });
    EXPECT_EQ(settings.Number("Save.ShowSaveDialog"), 1);
    EXPECT_EQ(settings.Number("Save.UseSameFolder"), 0);
    EXPECT_EQ(settings.Text("Save.Folder"), L"C:\\out");
    EXPECT_EQ(settings.Text("Save.FileName"), L"Report");
    EXPECT_EQ(settings.Number("Save.WhenExists"), 2);
    EXPECT_EQ(settings.Number("Save.AutoNumber.Start"), 17);
    EXPECT_EQ(settings.Number("Save.AutoNumber.Digits"), 5);
    EXPECT_EQ(settings.Text("Save.App.Run"), L"C:\\a.exe");
    EXPECT_EQ(settings.Text("Save.App.Params"), L"/p %f");
}

TEST(SavePage, CancelKeepsWhatWasAppliedAndNothingMore) {
    RecordPage open;
    open.page.EnterText(IDC_SAVE_FILE_NAME, L"first");
    open.dialog.Apply();
    EXPECT_FALSE(open.dialog.IsApplyEnabled());
    open.page.EnterText(IDC_SAVE_FILE_NAME, L"second");
    open.page.Click(IDC_SAVE_ASK);
    open.page.Click(IDC_SAVE_RUN);
    EXPECT_EQ(open.dialog.Cancel(), 2);
    PrinterSettings expected;
    expected.Save.FileName = L"first";
    EXPECT_EQ(open.dialog.Record(), expected);
}

// What happens to the Apply button while a dialog opens. The observer sees every message before its window
// does, and disables the button when the first of the page's radio buttons is about to be clicked.
struct ApplyObserver {
    static LRESULT CALLBACK Proc(int code, WPARAM wParam, LPARAM lParam) {
        const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (message.message == BM_CLICK) {
            s_clicked.push_back(GetDlgCtrlID(message.hwnd));
            if (s_clicked.size() == 1)
                EnableWindow(GetDlgItem(GetAncestor(message.hwnd, GA_ROOT), IDC_MAIN_APPLY), FALSE);
        }
        if (message.message == WM_ENABLE && !s_clicked.empty() &&
            message.hwnd == GetDlgItem(GetAncestor(message.hwnd, GA_ROOT), IDC_MAIN_APPLY))
            s_enabled.push_back(message.wParam != FALSE);
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static inline std::vector<int> s_clicked;
    static inline std::vector<bool> s_enabled;
};

TEST(SavePage, OpeningClicksTheRadioButtonsWhichEnablesApplyUntilTheDialogIsReady) {
    for (const auto& [ask, withoutPath] : {std::pair(0, 1), std::pair(1, 0)}) {
        PrinterSettings record = Running(withoutPath);
        record.Save.ShowSaveDialog = ask;
        ScratchSettings settings;
        settings.Store(record);
        ApplyObserver::s_clicked.clear();
        ApplyObserver::s_enabled.clear();
        HHOOK hook = nullptr;
        {
            const LiveDialog dialog(
                {.pages = page_bit::kSave, .settings = &settings, .prepare = [&](IPdfPrinterPreferences&) {
                     hook = SetWindowsHookExW(WH_CALLWNDPROC, ApplyObserver::Proc, nullptr,
                                              GetCurrentThreadId());
                 }});
            UnhookWindowsHookEx(hook);
            EXPECT_EQ(ApplyObserver::s_clicked,
                      (std::vector<int>{ask ? IDC_SAVE_ASK : IDC_SAVE_PREDEFINED,
                                        withoutPath ? IDC_SAVE_DEFAULT_APP : IDC_SAVE_GIVEN_APP}));
            // Disabled by the observer, enabled by the click, disabled by the dialog at the end.
            EXPECT_EQ(ApplyObserver::s_enabled, (std::vector{false, true, false}));
            EXPECT_FALSE(dialog.IsApplyEnabled());
        }
    }
}

TEST(SavePage, WhatItShowsIsStoredAsSoonAsApplyIsEnabled) {
    PrinterSettings record;
    record.Save.UseSameFolder = 7;
    RecordPage open(record);
    EXPECT_FALSE(open.dialog.IsApplyEnabled());
    EnableWindow(open.dialog.Main().Control(IDC_MAIN_APPLY), TRUE);
    EXPECT_EQ(open.dialog.Ok(), 1);
    record.Save.UseSameFolder = 1;
    EXPECT_EQ(open.dialog.Record(), record);
}

TEST(SavePage, OpeningLeavesTheFocusOnThePageList) {
    for (const PageSet pages : {PageSet{page_bit::kSave}, PageSet{page_bit::kAllPages}}) {
        const LiveDialog dialog({.pages = pages});
        EXPECT_TRUE(dialog.FocusReaches(dialog.Navigator().Control(IDC_NAVIGATOR_LIST)));
    }
}

TEST(SavePage, ClickingTheRunBoxLeavesTheFocusOnIt) {
    const RecordPage open;
    for (const bool checked : {true, false}) {
        open.page.MouseClick(IDC_SAVE_RUN);
        EXPECT_TRUE(WaitUntil([&] {
            return open.page.IsChecked(IDC_SAVE_RUN) == checked && open.State(kApplications) == checked;
        }));
        EXPECT_EQ(open.dialog.Focused(), open.page.Control(IDC_SAVE_RUN));
    }
}

TEST(SavePage, TabGoesRoundThePage) {
    PrinterSettings record = Running(0);
    record.Save.UseSameFolder = 0;
    record.Save.WhenExists = kAutoNumber;
    const RecordPage open(record);
    open.page.Focus(IDC_SAVE_PREDEFINED);
    for (const UINT id :
         std::vector<UINT>{IDC_SAVE_SAME_FOLDER, IDC_SAVE_FOLDER, IDC_SAVE_FOLDER_BROWSE, IDC_SAVE_FILE_NAME,
                           IDC_SAVE_MACRO, IDC_SAVE_EXISTS, IDC_SAVE_START, IDC_SAVE_DIGITS, IDC_SAVE_RUN,
                           IDC_SAVE_GIVEN_APP, IDC_SAVE_APP, IDC_SAVE_APP_BROWSE, IDC_SAVE_PARAMETERS,
                           IDC_SAVE_PREDEFINED}) {
        open.dialog.PressKey(VK_TAB);
        EXPECT_TRUE(open.dialog.FocusReaches(open.page.Control(id))) << id;
    }
}

TEST(SavePage, TranslatedItemsKeepTheirValues) {
    const LanguageFolder german({{L"Auto Number", L"Nummerieren"}, {L"Always Overwrite", L"Ersetzen"}});
    const RecordPage open(Numbering(), kGerman);
    EXPECT_EQ(open.page.Selected(IDC_SAVE_EXISTS), L"Nummerieren");
    open.page.Choose(IDC_SAVE_EXISTS, L"Ersetzen");
    EXPECT_EQ(open.State(kNumbering), 0);
    open.dialog.Apply();
    EXPECT_EQ(open.dialog.Record().Save.WhenExists, 1);
}

TEST(SavePage, OfTwoItemsWithTheSameTextTheFirstOneIsStored) {
    const LanguageFolder german({{L"Auto Number", L"Weiter"}, {L"Always Overwrite", L"Weiter"}});
    const RecordPage open(Numbering(), kGerman);
    open.page.EnterText(IDC_SAVE_FILE_NAME, L"x");
    open.dialog.Apply();
    EXPECT_EQ(open.dialog.Record().Save.WhenExists, 1);
}

// The macro menu

const struct {
    const wchar_t* item;
    const wchar_t* text;
} kMacros[] = {
    {L"Document Name", L"%[DocName]"},
    {L"Computer Name", L"%[Computer]"},
    {L"User Name", L"%[User]"},
    {L"Date (MM-DD-YYYY)", L"%[Date]"},
    {L"Year", L"%[Year]"},
    {L"Month", L"%[Month]"},
    {L"Day", L"%[Day]"},
    {L"Time (HH-MM-SS)", L"%[Time]"},
    {L"Hour", L"%[Hour]"},
    {L"Minute", L"%[Minute]"},
    {L"Second", L"%[Second]"},
};
constexpr int kYear = 5;

// The menu below the "Macro" button, opened by a click; null when it does not come.
HWND OpenMenu(const OpenPage& open) {
    open.page.PostClick(IDC_SAVE_MACRO);
    HWND menu = nullptr;
    WaitUntil([&] {
        menu = FindWindowW(L"#32768", nullptr);
        return menu && IsWindowVisible(menu);
    });
    return menu;
}

bool MenuIsGone(HWND menu) {
    return WaitUntil([&] { return !IsWindow(menu) || !IsWindowVisible(menu); });
}

// Chooses the n-th item, counted from 1, with the arrow keys and Enter, or none with Escape.
void PickFromMenu(const OpenPage& open, int item) {
    HWND menu = OpenMenu(open);
    ASSERT_TRUE(menu);
    for (int count = 0; count < item; ++count) open.dialog.PressKey(VK_DOWN);
    open.dialog.PressKey(item ? VK_RETURN : VK_ESCAPE);
    EXPECT_TRUE(MenuIsGone(menu));
    EXPECT_TRUE(WaitUntil([&] { return open.dialog.IsApplyEnabled(); }));
}

std::vector<std::wstring> MenuTexts(HWND menuWindow) {
    const auto menu = reinterpret_cast<HMENU>(SendMessageW(menuWindow, MN_GETHMENU, 0, 0));
    std::vector<std::wstring> texts;
    for (int position = 0; position < GetMenuItemCount(menu); ++position) {
        wchar_t text[64] = {};
        GetMenuStringW(menu, static_cast<UINT>(position), text, 64, MF_BYPOSITION);
        texts.emplace_back(text);
    }
    return texts;
}

TEST(SavePage, TheMacroMenuStandsBelowItsButtonAndListsTheMacros) {
    const RecordPage open;
    HWND menu = OpenMenu(open);
    ASSERT_TRUE(menu);
    std::vector<std::wstring> expected;
    for (const auto& macro : kMacros) expected.emplace_back(macro.item);
    expected.insert(expected.begin() + 3, L"");
    expected.insert(expected.begin() + 8, L"");
    EXPECT_EQ(MenuTexts(menu), expected);
    RECT menuPlace{};
    RECT button{};
    GetWindowRect(menu, &menuPlace);
    GetWindowRect(open.page.Control(IDC_SAVE_MACRO), &button);
    EXPECT_EQ(menuPlace.left, button.left);
    EXPECT_EQ(menuPlace.top, button.bottom);
    open.dialog.PressKey(VK_ESCAPE);
    EXPECT_TRUE(MenuIsGone(menu));
}

TEST(SavePage, EachItemAppendsItsMacro) {
    const RecordPage open;
    std::wstring fileName = L"%[DocName]";
    for (int item = 1; item <= 11; ++item) {
        open.dialog.Apply();
        PickFromMenu(open, item);
        fileName += kMacros[item - 1].text;
        EXPECT_EQ(open.page.Text(IDC_SAVE_FILE_NAME), fileName);
    }
    open.dialog.Apply();
    EXPECT_EQ(open.dialog.Record().Save.FileName, fileName);
}

TEST(SavePage, AMacroIsAppendedWhereverTheCaretIs) {
    for (const auto& [from, to] : {std::pair(0, 0), std::pair(0, -1), std::pair(2, 4)}) {
        PrinterSettings record;
        record.Save.FileName = L"Report";
        const RecordPage open(record);
        SendMessageW(open.page.Control(IDC_SAVE_FILE_NAME), EM_SETSEL, static_cast<WPARAM>(from), to);
        PickFromMenu(open, kYear);
        EXPECT_EQ(open.page.Text(IDC_SAVE_FILE_NAME), L"Report%[Year]");
    }
}

TEST(SavePage, ADismissedMenuChangesNothingButEnablesApply) {
    const RecordPage open;
    EXPECT_FALSE(open.dialog.IsApplyEnabled());
    PickFromMenu(open, 0);
    EXPECT_EQ(open.page.Text(IDC_SAVE_FILE_NAME), L"%[DocName]");
    EXPECT_TRUE(open.dialog.IsApplyEnabled());
}

TEST(SavePage, ALongFileNameIsCutBeforeTheMacro) {
    for (const size_t length : {size_t{258}, size_t{259}, size_t{260}, size_t{5000}}) {
        for (const int item : {0, kYear}) {
            const RecordPage open;
            open.page.EnterText(IDC_SAVE_FILE_NAME, std::wstring(length, L'n'));
            open.dialog.Apply();
            PickFromMenu(open, item);
            EXPECT_EQ(open.page.Text(IDC_SAVE_FILE_NAME),
                      std::wstring(std::min(length, size_t{259}), L'n') + (item ? L"%[Year]" : L""));
        }
    }
}

TEST(SavePage, TheMenuIsTranslatedAndItsMacrosAreNot) {
    const LanguageFolder german({{L"Year", L"Jahr"}, {L"Document Name", L"Dokumentname"}});
    const RecordPage open({}, kGerman);
    for (int time = 0; time < 2; ++time) {
        HWND menu = OpenMenu(open);
        ASSERT_TRUE(menu);
        const std::vector<std::wstring> texts = MenuTexts(menu);
        EXPECT_EQ(texts[0], L"Dokumentname");
        EXPECT_EQ(texts[5], L"Jahr");
        open.dialog.PressKey(VK_ESCAPE);
        EXPECT_TRUE(MenuIsGone(menu));
    }
    PickFromMenu(open, kYear);
    EXPECT_EQ(open.page.Text(IDC_SAVE_FILE_NAME), L"%[DocName]%[Year]");
}

// The system's dialogs

TEST(SavePage, BrowsingForTheApplicationShowsTheChosenPath) {
    const ExistingFile file(L".exe");
    const std::wstring before = CurrentFolder();
    const RecordPage open(Running(0));
    open.page.PostClick(IDC_SAVE_APP_BROWSE);
    const LiveWindow browser = open.dialog.WaitForModal();
    ASSERT_TRUE(browser);
    EXPECT_EQ(GetWindow(browser.Handle(), GW_OWNER), open.dialog.Main().Handle());
    EXPECT_TRUE(GetWindowLongW(browser.Handle(), GWL_STYLE) & WS_SIZEBOX);
    FileChooser(browser).EnterName(file.Path());
    browser.PostClick(IDOK);
    ASSERT_TRUE(open.dialog.WaitUntilClosed(browser));
    EXPECT_TRUE(WaitUntil([&] { return open.page.Text(IDC_SAVE_APP) == file.Path(); }));
    EXPECT_TRUE(open.dialog.IsApplyEnabled());
    EXPECT_EQ(CurrentFolder(), before);
    open.dialog.Apply();
    EXPECT_EQ(open.dialog.Record().Save.App.Run.Path, file.Path());
}

TEST(SavePage, BrowsingForTheApplicationCanBeCancelled) {
    const std::wstring before = CurrentFolder();
    const RecordPage open(Running(0));
    open.page.PostClick(IDC_SAVE_APP_BROWSE);
    const LiveWindow browser = open.dialog.WaitForModal();
    ASSERT_TRUE(browser);
    FileChooser(browser).EnterName(L"whatever.exe");
    browser.PostClick(IDCANCEL);
    ASSERT_TRUE(open.dialog.WaitUntilClosed(browser));
    ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(open.dialog.Main().Handle()) != FALSE; }));
    EXPECT_EQ(open.page.Text(IDC_SAVE_APP), L"C:\\a.exe");
    EXPECT_FALSE(open.dialog.IsApplyEnabled());
    EXPECT_EQ(CurrentFolder(), before);
}

PrinterSettings OtherFolder() {
    PrinterSettings record;
    record.Save.UseSameFolder = 0;
    record.Save.Folder = L"C:\\before";
    return record;
}

// A request of the shell's folder browser that its programs use to select a folder by its path.
constexpr UINT kSelectFolder = WM_USER + 103;

TEST(SavePage, BrowsingForTheFolderShowsTheChosenPath) {
    const RecordPage open(OtherFolder());
    open.page.PostClick(IDC_SAVE_FOLDER_BROWSE);
    const LiveWindow browser = open.dialog.WaitForModal();
    ASSERT_TRUE(browser);
    EXPECT_EQ(GetWindow(browser.Handle(), GW_OWNER), open.dialog.Main().Handle());
    SendMessageW(browser.Handle(), kSelectFolder, TRUE, reinterpret_cast<LPARAM>(L"C:\\windows\\system32"));
    ASSERT_TRUE(WaitUntil([&] { return browser.IsEnabled(IDOK); }));
    browser.PostClick(IDOK);
    ASSERT_TRUE(open.dialog.WaitUntilClosed(browser));
    EXPECT_TRUE(WaitUntil([&] { return open.page.Text(IDC_SAVE_FOLDER) == L"C:\\windows\\system32"; }));
    EXPECT_TRUE(open.dialog.IsApplyEnabled());
    open.dialog.Apply();
    EXPECT_EQ(open.dialog.Record().Save.Folder, L"C:\\windows\\system32");
}

TEST(SavePage, BrowsingForTheFolderCanBeCancelled) {
    const RecordPage open(OtherFolder());
    open.page.PostClick(IDC_SAVE_FOLDER_BROWSE);
    const LiveWindow browser = open.dialog.WaitForModal();
    ASSERT_TRUE(browser);
    browser.PostClick(IDCANCEL);
    ASSERT_TRUE(open.dialog.WaitUntilClosed(browser));
    ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(open.dialog.Main().Handle()) != FALSE; }));
    EXPECT_EQ(open.page.Text(IDC_SAVE_FOLDER), L"C:\\before");
    EXPECT_FALSE(open.dialog.IsApplyEnabled());
}

}  // namespace
}  // namespace vmk::test
