#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/pages/save_page.h"
#include "tests/support/folder_browser.h"
#include "tests/support/import_faults.h"

namespace vmk::test {
namespace {

PrinterSettings OtherFolder() {
    PrinterSettings record;
    record.Save.UseSameFolder = 0;
    record.Save.Folder = L"C:\\before";
    return record;
}

class SaveTarget : public SavePage {};

TEST_F(SaveTarget, TheListEnablesTheNumberingAndThePathLabelButNeverTheStartLabel) {
    Open();
    const std::vector<UINT> path = {IDC_SAVE_FOLDER, IDC_SAVE_FOLDER_BROWSE};
    for (const size_t item : {2U, 1U, 2U, 0U, 2U, 3U, 2U, 4U}) {
        ASSERT_TRUE(page.Choose(IDC_SAVE_EXISTS, kWhenExists[item]));
        const bool numbered = item == kAutoNumber;
        EXPECT_EQ(State(kNumbering), numbered) << item;
        EXPECT_EQ(page.IsEnabled(IDC_SAVE_FOLDER_LABEL), numbered) << item;
        EXPECT_EQ(State(path), 0) << item;
        EXPECT_TRUE(page.IsEnabled(IDC_SAVE_START_LABEL)) << item;
        EXPECT_TRUE(dialog->IsApplyEnabled());
        dialog->Apply();
        EXPECT_EQ(dialog->Record().Save.WhenExists, static_cast<std::int32_t>(item));
    }
}

TEST_F(SaveTarget, AskingDisablesTheNamingAndLeavesTheFolderAlone) {
    for (const std::int32_t sameFolder : {0, 1}) {
        PrinterSettings record = Numbering();
        record.Save.UseSameFolder = sameFolder;
        OpenWith(record);
        page.Click(IDC_SAVE_ASK);
        EXPECT_EQ(State(kNaming), 0);
        EXPECT_EQ(State(kNumbering), 0);
        EXPECT_TRUE(page.IsEnabled(IDC_SAVE_SAME_FOLDER));
        EXPECT_EQ(State(kPath), sameFolder == 0);
        EXPECT_TRUE(dialog->IsApplyEnabled());

        page.Click(IDC_SAVE_ASK);  // once more changes nothing
        EXPECT_EQ(State(kNaming), 0);
        EXPECT_EQ(State(kNumbering), 0);
        dialog->Apply();
        EXPECT_EQ(dialog->Record().Save.ShowSaveDialog, 1);
    }
}

TEST_F(SaveTarget, PredefinedValuesEnableTheNamingAndTheListDecidesTheNumbering) {
    for (const std::int32_t whenExists : {1, kAutoNumber}) {
        PrinterSettings record;
        record.Save.ShowSaveDialog = 1;
        record.Save.WhenExists = whenExists;
        OpenWith(record);
        for (int time = 0; time < 2; ++time) {
            page.Click(IDC_SAVE_PREDEFINED);
            EXPECT_EQ(State(kNaming), 1);
            EXPECT_EQ(State(kNumbering), whenExists == kAutoNumber);
            EXPECT_EQ(page.IsEnabled(IDC_SAVE_FOLDER_LABEL), whenExists == kAutoNumber);
        }
        dialog->Apply();
        EXPECT_EQ(dialog->Record().Save.ShowSaveDialog, 0);
    }
}

TEST_F(SaveTarget, ARadioButtonChosenWithTheArrowKeysSwitchesTheSameControls) {
    Open();
    page.Focus(IDC_SAVE_PREDEFINED);
    dialog->PressKey(VK_UP);
    EXPECT_TRUE(WaitUntil([&] { return page.IsChecked(IDC_SAVE_ASK) && State(kNaming) == 0; }));
    dialog->PressKey(VK_DOWN);
    EXPECT_TRUE(WaitUntil([&] { return !page.IsChecked(IDC_SAVE_ASK) && State(kNaming) == 1; }));
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

TEST_F(SaveTarget, AnUnknownChoiceSelectsNothingAndLeavesTheNumberingToTheRadioButtons) {
    PrinterSettings record;
    record.Save.WhenExists = 9;
    OpenWith(record);
    EXPECT_EQ(page.Selected(IDC_SAVE_EXISTS), L"");
    EXPECT_EQ(State(kNumbering), 1);
    page.Click(IDC_SAVE_ASK);
    EXPECT_EQ(State(kNumbering), 0);
    page.Click(IDC_SAVE_PREDEFINED);
    EXPECT_EQ(State(kNumbering), 1);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Save.WhenExists, -1);
}

TEST_F(SaveTarget, TheSameFolderDisablesThePathWithItsLabel) {
    OpenWith(Numbering());
    page.Click(IDC_SAVE_SAME_FOLDER);
    EXPECT_EQ(State(kPath), 1);
    page.Click(IDC_SAVE_SAME_FOLDER);
    EXPECT_EQ(State(kPath), 0);
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

TEST_F(SaveTarget, BrowsingForTheFolderShowsTheChosenPath) {
    OpenWith(OtherFolder());
    const FolderBrowser browser(OpenModal(IDC_SAVE_FOLDER_BROWSE));
    ASSERT_TRUE(browser);
    EXPECT_EQ(GetWindow(browser.Window().Handle(), GW_OWNER), dialog->Main().Handle());
    ASSERT_TRUE(browser.Select(L"C:\\windows\\system32"));
    CloseModal(browser.Window(), IDOK);
    EXPECT_TRUE(TextBecomes(IDC_SAVE_FOLDER, L"C:\\windows\\system32"));
    EXPECT_TRUE(dialog->IsApplyEnabled());
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Save.Folder, L"C:\\windows\\system32");
}

TEST_F(SaveTarget, BrowsingForTheFolderGivesBackWhatTheShellHandsOut) {
    OpenWith(OtherFolder());
    const ImportFaults calls(GetModuleHandleW(L"vmkctrl.dll"));
    const FolderBrowser browser(OpenModal(IDC_SAVE_FOLDER_BROWSE));
    ASSERT_TRUE(browser);
    ASSERT_TRUE(browser.Select(L"C:\\windows\\system32"));
    CloseModal(browser.Window(), IDOK);
    EXPECT_TRUE(TextBecomes(IDC_SAVE_FOLDER, L"C:\\windows\\system32"));
    EXPECT_EQ(calls.CallsOf("CoTaskMemFree"), 2);  // for the item and for its path
}

TEST_F(SaveTarget, BrowsingForTheFolderCanBeCancelled) {
    OpenWith(OtherFolder());
    const FolderBrowser browser(OpenModal(IDC_SAVE_FOLDER_BROWSE));
    ASSERT_TRUE(browser);
    CloseModal(browser.Window(), IDCANCEL);
    EXPECT_EQ(page.Text(IDC_SAVE_FOLDER), L"C:\\before");
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

}  // namespace
}  // namespace vmk::test
