#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tests/language/utf16_bytes.h"

namespace vmk {

/// A folder of language files in the system's temporary folder, removed with all its files in the end.
class LanguageFolder {
  public:
    LanguageFolder() {
        std::string temp(MAX_PATH, '\0');
        temp.resize(GetTempPathA(MAX_PATH, temp.data()));
        for (int n = 0; m_path.empty() && n < 1000; ++n) {
            const std::string path =
                temp + "vmk" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(n);
            if (CreateDirectoryA(path.c_str(), nullptr)) m_path = path;
        }
        EXPECT_FALSE(m_path.empty());
    }
    LanguageFolder(const LanguageFolder&) = delete;
    LanguageFolder& operator=(const LanguageFolder&) = delete;
    ~LanguageFolder() {
        for (const std::string& file : Files()) DeleteFileA(File(file).c_str());
        RemoveDirectoryA(m_path.c_str());
    }

    /// Without a backslash at its end.
    const std::string& Path() const { return m_path; }
    std::string File(const std::string& name) const { return m_path + "\\" + name; }

    /// Names of the language files in the order in which the system finds them.
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        WIN32_FIND_DATAA found;
        HANDLE search = FindFirstFileA(File("*").c_str(), &found);
        if (search == INVALID_HANDLE_VALUE) return names;
        do {
            if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.emplace_back(found.cFileName);
        } while (FindNextFileA(search, &found));
        FindClose(search);
        return names;
    }

    void WriteBytes(const std::string& name, std::span<const std::byte> bytes) const {
        HANDLE file = CreateFileA(File(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE) << name;
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
        EXPECT_EQ(written, bytes.size());
        CloseHandle(file);
    }

    /// Writes a language file with a byte-order mark.
    void Write(const std::string& name, std::wstring_view text) const {
        WriteBytes(name, LanguageFileBytes(text));
    }

  private:
    std::string m_path;
};

}  // namespace vmk
