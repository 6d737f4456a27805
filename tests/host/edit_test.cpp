#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/host/program.h"
#include "tests/support/scratch_key.h"
#include "tests/support/wait.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

constexpr int kOk = 1;
constexpr int kCancel = 2;
constexpr int kApply = 201;
constexpr int kPageList = 205;
constexpr int kWatermarks = 309;

// vmkprefs edit with its dialog open.
class EditInProgress {
  public:
    explicit EditInProgress(const ScratchKey& key, const std::wstring& options = {})
        : m_program(L"edit --key \"" + key.SubKey() + L"\" " + options) {
        WaitUntil([this] { return (m_dialog = FindDialog()) != nullptr; });
        EXPECT_TRUE(m_dialog) << "the dialog did not open";
    }

    std::wstring Title() const {
        wchar_t title[256] = {};
        GetWindowTextW(m_dialog, title, 256);
        return title;
    }

    LRESULT ListedPages() const { return SendMessageW(Control(kPageList), LVM_GETITEMCOUNT, 0, 0); }

    void Click(int id) const { SendMessageW(Control(id), BM_CLICK, 0, 0); }

    ProgramRun CloseWith(int id) {
        PostMessageW(Control(id), BM_CLICK, 0, 0);
        return m_program.Finish();
    }

  private:
    HWND FindDialog() const {
        return FindTopWindow([wanted = m_program.ProcessId()](HWND window) {
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            return process == wanted && IsWindowVisible(window) && GetDlgItem(window, kApply);
        });
    }
    HWND Control(int id) const {
        HWND control = FindVisibleControl(m_dialog, id);
        EXPECT_TRUE(control) << "no control " << id;
        return control;
    }

    RunningVmkprefs m_program;
    HWND m_dialog = nullptr;
};

TEST(VmkprefsEdit, OkStoresAndAnswersZero) {
    const ScratchKey key;
    EditInProgress edit(key, L"--pages Watermarks");
    edit.Click(kWatermarks);
    const ProgramRun run = edit.CloseWith(kOk);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output + run.error, "");
    EXPECT_EQ(key.Number("Watermarks.Print"), 1);
    // Groups without a page in the list are stored as well.
    EXPECT_EQ(key.Number("Paper.Nup"), 1);
}

TEST(VmkprefsEdit, CancelStoresNothingAndAnswersOne) {
    const ScratchKey key;
    EditInProgress edit(key, L"--pages Watermarks");
    edit.Click(kWatermarks);
    const ProgramRun run = edit.CloseWith(kCancel);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output + run.error, "");
    EXPECT_EQ(key.Number("Watermarks.Print"), std::nullopt);
}

TEST(VmkprefsEdit, AppliedChangesAreNotStoredAfterCancel) {
    const ScratchKey key;
    key.SetNumber("Watermarks.Print", 0);
    EditInProgress edit(key, L"--pages Watermarks");
    edit.Click(kWatermarks);
    edit.Click(kApply);
    EXPECT_EQ(edit.CloseWith(kCancel).status, 1);
    EXPECT_EQ(key.Number("Watermarks.Print"), 0);
}

TEST(VmkprefsEdit, ListsThePagesAskedForUnderTheTitle) {
    const ScratchKey key;
    EditInProgress edit(key, L"--pages Paper,overlay,eMail --title \"Sch\u00F6ne Aussichten\"");
    EXPECT_EQ(edit.ListedPages(), 3);
    EXPECT_EQ(edit.Title(), L"Sch\u00F6ne Aussichten");
    EXPECT_EQ(edit.CloseWith(kCancel).status, 1);
}

TEST(VmkprefsEdit, ListsAllPagesUnlessToldOtherwise) {
    const ScratchKey key;
    EditInProgress edit(key);
    EXPECT_EQ(edit.ListedPages(), 17);
    EXPECT_EQ(edit.CloseWith(kCancel).status, 1);
}

}  // namespace
}  // namespace vmk::test
