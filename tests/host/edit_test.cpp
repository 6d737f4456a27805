#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/host/program.h"
#include "tests/host/scratch_key.h"

namespace vmk::test {
namespace {

constexpr int kOk = 1;
constexpr int kCancel = 2;
constexpr int kApply = 201;
constexpr int kPageList = 205;
constexpr int kWatermarks = 309;
constexpr ULONGLONG kPatience = 30'000;  // milliseconds

struct Search {
    DWORD processId = 0;
    int controlId = 0;
    HWND found = nullptr;
};

BOOL CALLBACK IsDialogOfProcess(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<Search*>(parameter);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    if (processId != search->processId || !IsWindowVisible(window) || !GetDlgItem(window, kApply))
        return TRUE;
    search->found = window;
    return FALSE;
}

BOOL CALLBACK IsVisibleControl(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<Search*>(parameter);
    if (GetDlgCtrlID(window) != search->controlId || !IsWindowVisible(window)) return TRUE;
    search->found = window;
    return FALSE;
}

// vmkprefs edit with its dialog open.
class EditInProgress {
  public:
    explicit EditInProgress(const ScratchKey& key, const std::wstring& options = {})
        : m_program(L"edit --key \"" + key.Name() + L"\" " + options) {
        Search search{.processId = m_program.ProcessId()};
        for (const ULONGLONG end = GetTickCount64() + kPatience; GetTickCount64() < end; Sleep(10)) {
            EnumWindows(IsDialogOfProcess, reinterpret_cast<LPARAM>(&search));
            if (search.found) break;
        }
        EXPECT_TRUE(search.found) << "the dialog did not open";
        m_dialog = search.found;
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
    HWND Control(int id) const {
        Search search{.controlId = id};
        EnumChildWindows(m_dialog, IsVisibleControl, reinterpret_cast<LPARAM>(&search));
        EXPECT_TRUE(search.found) << "no control " << id;
        return search.found;
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
    EXPECT_EQ(key.Number(L"Watermarks.Print"), 1U);
    // Groups without a page in the list are stored as well.
    EXPECT_EQ(key.Number(L"Paper.Nup"), 1U);
}

TEST(VmkprefsEdit, CancelStoresNothingAndAnswersOne) {
    const ScratchKey key;
    EditInProgress edit(key, L"--pages Watermarks");
    edit.Click(kWatermarks);
    const ProgramRun run = edit.CloseWith(kCancel);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output + run.error, "");
    EXPECT_EQ(key.Number(L"Watermarks.Print"), std::nullopt);
}

TEST(VmkprefsEdit, AppliedChangesAreNotStoredAfterCancel) {
    const ScratchKey key;
    key.SetNumber(L"Watermarks.Print", 0);
    EditInProgress edit(key, L"--pages Watermarks");
    edit.Click(kWatermarks);
    edit.Click(kApply);
    EXPECT_EQ(edit.CloseWith(kCancel).status, 1);
    EXPECT_EQ(key.Number(L"Watermarks.Print"), 0U);
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
