#include "controls/file_dialog.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/file_chooser.h"
#include "tests/support/wait.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

// The system's open-file dialog, open on a thread of its own.
class OpenFileDialog {
  public:
    explicit OpenFileDialog(OpenFileOptions options) : m_options(std::move(options)) {
        m_thread = CreateThread(nullptr, 0, Main, this, 0, &m_threadId);
        WaitUntil([this] {
            m_dialog =
                FindTopWindow(m_threadId, [](HWND hwnd) { return IsDialog(hwnd) && IsWindowVisible(hwnd); });
            return m_dialog != nullptr || IsFinished();
        });
    }
    ~OpenFileDialog() {
        if (!IsFinished()) PostMessageW(m_dialog, WM_COMMAND, IDCANCEL, 0);
        WaitForSingleObject(m_thread, INFINITE);
        CloseHandle(m_thread);
    }
    OpenFileDialog(const OpenFileDialog&) = delete;
    OpenFileDialog& operator=(const OpenFileDialog&) = delete;

    bool IsOpen() const { return m_dialog != nullptr; }

    FileChooser Chooser() const { return FileChooser(LiveWindow(m_dialog)); }

    // Closes the dialog with a button; what the call answers.
    std::optional<std::wstring> Close(UINT button) {
        LiveWindow(m_dialog).PostClick(button);
        WaitForSingleObject(m_thread, 10'000);
        return m_result;
    }

  private:
    static DWORD WINAPI Main(void* parameter) {
        auto& self = *static_cast<OpenFileDialog*>(parameter);
        self.m_result = ChooseFile(nullptr, self.m_options);
        return 0;
    }

    bool IsFinished() const { return WaitForSingleObject(m_thread, 0) == WAIT_OBJECT_0; }

    OpenFileOptions m_options;
    std::optional<std::wstring> m_result;
    HANDLE m_thread = nullptr;
    DWORD m_threadId = 0;
    HWND m_dialog = nullptr;
};

std::wstring ExistingFile() {
    wchar_t folder[MAX_PATH] = {};
    GetSystemDirectoryW(folder, MAX_PATH);
    return std::wstring(folder) + L"\\kernel32.dll";
}

std::wstring FileNamePart(const std::wstring& path) {
    return path.substr(path.rfind(L'\\') + 1);
}

TEST(FileDialog, ProposesThePathAndShowsTheFilter) {
    OpenFileDialog dialog({.filters = {{L"Libraries (*.dll)", L"*.dll"}, {L"All Files (*.*)", L"*.*"}},
                           .defaultExtension = L"dll",
                           .initialPath = ExistingFile()});
    ASSERT_TRUE(dialog.IsOpen());
    EXPECT_EQ(FileNamePart(dialog.Chooser().ProposedName()), L"kernel32.dll");
    EXPECT_EQ(dialog.Chooser().SelectedType(), L"Libraries (*.dll)");
    const std::optional<std::wstring> chosen = dialog.Close(IDOK);
    ASSERT_TRUE(chosen);
    EXPECT_EQ(CompareStringOrdinal(chosen->c_str(), -1, ExistingFile().c_str(), -1, TRUE), CSTR_EQUAL);
}

TEST(FileDialog, AFileThatDoesNotExistIsNotAccepted) {
    OpenFileDialog dialog({});
    ASSERT_TRUE(dialog.IsOpen());
    dialog.Chooser().EnterName(L"C:\\no such file.xyz");
    HWND window = dialog.Chooser().Window().Handle();
    PostMessageW(window, WM_COMMAND, IDOK, 0);
    HWND message = nullptr;
    ASSERT_TRUE(WaitUntil([&] {
        message = GetLastActivePopup(window);
        return message != window;
    }));
    PostMessageW(message, WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(message); }));
    EXPECT_FALSE(dialog.Close(IDCANCEL));
}

TEST(FileDialog, CancelAnswersNothing) {
    OpenFileDialog dialog({.initialPath = ExistingFile()});
    ASSERT_TRUE(dialog.IsOpen());
    EXPECT_FALSE(dialog.Close(IDCANCEL));
}

TEST(FileDialog, OpensAlsoOnATextThatIsNoPath) {
    for (const std::wstring& text : {std::wstring(L"a<b>|c?*\""), std::wstring(260, L'n'),
                                     std::wstring(5000, L'n'), std::wstring(L" ")}) {
        OpenFileDialog dialog({.initialPath = text});
        EXPECT_TRUE(dialog.IsOpen()) << text.size();
    }
}

}  // namespace
}  // namespace vmk::test
