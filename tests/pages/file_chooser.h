#pragma once

#include <windows.h>

#include <string>

#include "base/window_text.h"
#include "tests/support/file_dialog_controls.h"
#include "tests/support/live_dialog.h"

namespace vmk::test {

inline std::wstring CurrentFolder() {
    wchar_t folder[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, folder);
    return folder;
}

// An empty file that exists as long as the object.
class ExistingFile {
  public:
    explicit ExistingFile(const std::wstring& extension)
        : m_path(TemporaryFolder() + UniqueName() + extension) {
        CloseHandle(CreateFileW(m_path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    ~ExistingFile() { DeleteFileW(m_path.c_str()); }
    ExistingFile(const ExistingFile&) = delete;
    ExistingFile& operator=(const ExistingFile&) = delete;

    const std::wstring& Path() const { return m_path; }
    std::wstring Name() const { return m_path.substr(m_path.rfind(L'\\') + 1); }

  private:
    static std::wstring TemporaryFolder() {
        wchar_t shortName[MAX_PATH] = {};
        GetTempPathW(MAX_PATH, shortName);
        wchar_t folder[MAX_PATH] = {};
        GetLongPathNameW(shortName, folder, MAX_PATH);
        return folder;
    }

    static std::wstring UniqueName() { return L"page test " + std::to_wstring(GetCurrentProcessId()); }

    std::wstring m_path;
};

// The system's open-file dialog.
class FileChooser {
  public:
    explicit FileChooser(const LiveWindow& window) : m_window(window) {}

    explicit operator bool() const { return static_cast<bool>(m_window) && NameBox(); }
    const LiveWindow& Window() const { return m_window; }

    std::wstring ProposedName() const { return WindowText(NameBox()); }
    void EnterName(const std::wstring& name) const {
        SendMessageW(NameBox(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
    std::vector<std::wstring> Types() const { return m_window.Items(kFileTypeList); }

  private:
    HWND NameBox() const { return FileNameBox(m_window.Handle()); }

    LiveWindow m_window;
};

}  // namespace vmk::test
