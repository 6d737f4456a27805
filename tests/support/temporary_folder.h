#pragma once

#include <windows.h>

#include <cstddef>
#include <span>
#include <string>
#include <vector>

// A folder for the files of one test:
//
//     const TemporaryFolder folder;
//     const std::wstring file = folder.Write(L"a.pdf");
//     EXPECT_EQ(page.Text(IDC_OVERLAY_FILE), file);

namespace vmk::test {

// Where the process looks for files that are named without a folder.
inline std::wstring CurrentFolder() {
    wchar_t folder[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, folder);
    return folder;
}

// A folder in the system's temporary one, removed with all its files in the end. Where one cannot be made, or
// a file not be written, that throws.
class TemporaryFolder {
  public:
    // With a name that nobody else uses, or with this one.
    TemporaryFolder();
    explicit TemporaryFolder(const std::wstring& name);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    // Without a backslash at its end.
    const std::wstring& Path() const { return m_path; }
    std::wstring File(const std::wstring& name) const { return m_path + L"\\" + name; }
    // The same as the narrow functions of the system take it.
    const std::string& NarrowPath() const { return m_narrowPath; }
    std::string NarrowFile(const std::string& name) const { return m_narrowPath + "\\" + name; }

    // Names of the files in the order in which the system finds them.
    std::vector<std::wstring> Files() const;

    // Makes a file of these bytes, instead of the one of this name if there is one; its path.
    std::wstring Write(const std::wstring& name, std::span<const std::byte> bytes = {}) const;

  private:
    void DeleteFiles() const;

    std::wstring m_path;
    std::string m_narrowPath;
};

}  // namespace vmk::test
