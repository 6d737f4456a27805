#pragma once

#include <windows.h>

#include <string>

#include "tests/support/live_window.h"
#include "tests/support/wait.h"

// The system's folder browser:
//
//     const FolderBrowser browser(OpenModal(IDC_SAVE_FOLDER_BROWSE));
//     ASSERT_TRUE(browser.Select(L"C:\\windows\\system32"));
//     CloseModal(browser.Window(), IDOK);

namespace vmk::test {

class FolderBrowser {
  public:
    explicit FolderBrowser(const LiveWindow& window) : m_window(window) {}

    explicit operator bool() const { return static_cast<bool>(m_window); }
    const LiveWindow& Window() const { return m_window; }

    // Whether the browser then lets the user go on.
    bool Select(const std::wstring& path) const {
        // A request of the shell's that its programs use to select a folder by its path.
        constexpr UINT kSelectFolder = WM_USER + 103;
        SendMessageW(m_window.Handle(), kSelectFolder, TRUE, reinterpret_cast<LPARAM>(path.c_str()));
        return WaitUntil([this] { return m_window.IsEnabled(IDOK); });
    }

  private:
    LiveWindow m_window;
};

}  // namespace vmk::test
