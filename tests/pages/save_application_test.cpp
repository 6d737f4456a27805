#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "resources/ids/main.h"
#include "tests/pages/save_page.h"
#include "tests/support/file_chooser.h"
#include "tests/support/temporary_folder.h"

namespace vmk::test {
namespace {

// The forms of the one stored value, and what the page shows of it.
enum class Form { kMissing, kNone, kDefault, kProgram };

void StoreForm(const ScratchSettings& key, Form form) {
    if (form == Form::kNone) key.SetNumber("Save.App.Run", 0);
    if (form == Form::kDefault) key.SetNumber("Save.App.Run", 1);
    if (form == Form::kProgram) key.SetText("Save.App.Run", L"C:\\viewer.exe");
}

class SaveApplication : public SavePage {};

TEST_F(SaveApplication, EveryFormOfTheStoredApplicationIsShown) {
    for (const Form form : {Form::kMissing, Form::kNone, Form::kDefault, Form::kProgram}) {
        const ScratchSettings key;
        StoreForm(key, form);
        OpenOn(key);
        const bool runs = form == Form::kDefault || form == Form::kProgram;
        EXPECT_EQ(page.IsChecked(IDC_SAVE_RUN), runs);
        EXPECT_EQ(page.IsChecked(IDC_SAVE_DEFAULT_APP), form != Form::kProgram);
        EXPECT_EQ(page.IsChecked(IDC_SAVE_GIVEN_APP), form == Form::kProgram);
        EXPECT_EQ(page.Text(IDC_SAVE_APP), form == Form::kProgram ? L"C:\\viewer.exe" : L"");
        EXPECT_EQ(State(kApplications), runs);
        EXPECT_EQ(State(kGivenApplication), form == Form::kProgram);
    }
}

TEST_F(SaveApplication, EveryFormOfTheStoredApplicationCanBecomeEveryOther) {
    for (const Form from : {Form::kMissing, Form::kNone, Form::kDefault, Form::kProgram}) {
        for (const Form to : {Form::kNone, Form::kDefault, Form::kProgram}) {
            const ScratchSettings key;
            StoreForm(key, from);
            OpenOn(key);
            if (page.IsChecked(IDC_SAVE_RUN) != (to != Form::kNone)) page.Click(IDC_SAVE_RUN);
            if (to == Form::kDefault) page.Click(IDC_SAVE_DEFAULT_APP);
            if (to == Form::kProgram) {
                page.Click(IDC_SAVE_GIVEN_APP);
                page.EnterText(IDC_SAVE_APP, L"C:\\other.exe");
            }
            EXPECT_EQ(dialog->Ok(), 1);
            StoreInRegistry(key);
            if (to == Form::kProgram) {
                EXPECT_EQ(key.Text("Save.App.Run"), L"C:\\other.exe");
            } else {
                EXPECT_EQ(key.Number("Save.App.Run"), to == Form::kDefault ? 1 : 0);
            }
        }
    }
}

TEST_F(SaveApplication, TheRunBoxEnablesItsControlsAsFarAsTheChosenApplicationAllows) {
    Open();
    page.Click(IDC_SAVE_RUN);
    EXPECT_EQ(State(kApplications), 1);
    EXPECT_EQ(State(kGivenApplication), 0);
    page.Click(IDC_SAVE_GIVEN_APP);
    EXPECT_EQ(State(kGivenApplication), 1);
    page.Click(IDC_SAVE_RUN);
    EXPECT_EQ(State(kApplications), 0);
    EXPECT_EQ(State(kGivenApplication), 0);
    EXPECT_TRUE(page.IsChecked(IDC_SAVE_GIVEN_APP));
    page.Click(IDC_SAVE_RUN);
    EXPECT_EQ(State(kApplications), 1);
    EXPECT_EQ(State(kGivenApplication), 1);
    page.Click(IDC_SAVE_DEFAULT_APP);
    EXPECT_EQ(State(kApplications), 1);
    EXPECT_EQ(State(kGivenApplication), 0);
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

TEST_F(SaveApplication, StoppingToRunDisablesAllOfTheApplicationWhicheverIsChosen) {
    for (const std::int32_t withoutPath : {0, 1}) {
        OpenWith(Running(withoutPath));
        EXPECT_EQ(State(kGivenApplication), withoutPath == 0);
        page.Click(IDC_SAVE_RUN);
        EXPECT_EQ(State(kApplications), 0);
        EXPECT_EQ(State(kGivenApplication), 0);
        EXPECT_TRUE(dialog->IsApplyEnabled());
    }
}

TEST_F(SaveApplication, ClickingTheRunBoxLeavesTheFocusOnIt) {
    Open();
    for (const bool checked : {true, false}) {
        page.MouseClick(IDC_SAVE_RUN);
        EXPECT_TRUE(WaitUntil(
            [&] { return page.IsChecked(IDC_SAVE_RUN) == checked && State(kApplications) == checked; }));
        EXPECT_EQ(dialog->Focused(), page.Control(IDC_SAVE_RUN));
    }
}

// The choice is kept in the record while nothing runs, but not in the registry, so a second dialog of the
// same object is the only one that can open on it.
TEST_F(SaveApplication, ASecondDialogShowsTheApplicationThatDoesNotRun) {
    OpenWith(Running(0));
    page.Click(IDC_SAVE_RUN);
    EXPECT_EQ(dialog->Ok(), 1);

    const auto reopen = [](void* parameter) -> DWORD {
        static_cast<LiveDialog*>(parameter)->Call([](IPdfPrinterPreferences& object) {
            LONG answer = 0;
            object.SetTitle(AutomationString(L"Second Save").get());
            object.OpenDialog(kEnglish, &answer);
        });
        return 0;
    };
    HANDLE thread = CreateThread(nullptr, 0, reopen, &*dialog, 0, nullptr);
    HWND second = nullptr;
    ASSERT_TRUE(WaitUntil([&] {
        second = FindWindowW(nullptr, L"Second Save");
        return second && IsWindowVisible(second);
    }));
    const LiveWindow main(second);
    const LiveWindow navigator(FindWindowExW(second, nullptr, L"#32770", nullptr));
    page = LiveWindow(FindWindowExW(navigator.Control(IDC_NAVIGATOR_FRAME), nullptr, L"#32770", nullptr));
    EXPECT_FALSE(page.IsChecked(IDC_SAVE_RUN));
    EXPECT_TRUE(page.IsChecked(IDC_SAVE_GIVEN_APP));
    EXPECT_FALSE(page.IsChecked(IDC_SAVE_DEFAULT_APP));
    EXPECT_TRUE(page.AreDisabled(kApplications));
    EXPECT_TRUE(page.AreDisabled(kGivenApplication));
    main.PostClick(IDCANCEL);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

TEST_F(SaveApplication, BrowsingForTheApplicationShowsTheChosenPath) {
    const TemporaryFolder files;
    const std::wstring file = files.Write(L"viewer.exe");
    const std::wstring before = CurrentFolder();
    OpenWith(Running(0));
    const FileChooser browser(OpenModal(IDC_SAVE_APP_BROWSE));
    ASSERT_TRUE(browser);
    EXPECT_EQ(GetWindow(browser.Window().Handle(), GW_OWNER), dialog->Main().Handle());
    EXPECT_TRUE(GetWindowLongW(browser.Window().Handle(), GWL_STYLE) & WS_SIZEBOX);
    browser.EnterName(file);
    CloseModal(browser.Window(), IDOK);
    EXPECT_TRUE(TextBecomes(IDC_SAVE_APP, file));
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_EQ(CurrentFolder(), before);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Save.App.Run.Path, file);
}

TEST_F(SaveApplication, BrowsingForTheApplicationCanBeCancelled) {
    const std::wstring before = CurrentFolder();
    OpenWith(Running(0));
    const FileChooser browser(OpenModal(IDC_SAVE_APP_BROWSE));
    ASSERT_TRUE(browser);
    browser.EnterName(L"whatever.exe");
    CloseModal(browser.Window(), IDCANCEL);
    EXPECT_EQ(page.Text(IDC_SAVE_APP), L"C:\\a.exe");
    EXPECT_FALSE(dialog->IsApplyEnabled());
    EXPECT_EQ(CurrentFolder(), before);
}

}  // namespace
}  // namespace vmk::test
