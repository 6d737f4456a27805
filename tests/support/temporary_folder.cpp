#include "tests/support/temporary_folder.h"

#include <atomic>
#include <stdexcept>

namespace vmk::test {
namespace {

std::wstring NewName() {
    static std::atomic<int> count = 0;
    return L"vmk " + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++count);
}

// The system's temporary folder under its long name, which dialogs show, with a backslash at its end.
std::wstring SystemFolder() {
    wchar_t shortName[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, shortName);
    wchar_t folder[MAX_PATH] = {};
    GetLongPathNameW(shortName, folder, MAX_PATH);
    return folder;
}

std::string Narrow(const std::wstring& path) {
    char narrow[2 * MAX_PATH] = {};
    WideCharToMultiByte(CP_ACP, 0, path.c_str(), -1, narrow, sizeof narrow, nullptr, nullptr);
    return narrow;
}

}  // namespace

TemporaryFolder::TemporaryFolder() : TemporaryFolder(NewName()) {}

TemporaryFolder::TemporaryFolder(const std::wstring& name)
    : m_path(SystemFolder() + name), m_narrowPath(Narrow(m_path)) {
    if (!CreateDirectoryW(m_path.c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
        throw std::runtime_error("no temporary folder can be made");
    DeleteFiles();  // those of a run that was ended
}

TemporaryFolder::~TemporaryFolder() {
    DeleteFiles();
    RemoveDirectoryW(m_path.c_str());
}

void TemporaryFolder::DeleteFiles() const {
    for (const std::wstring& name : Files()) DeleteFileW(File(name).c_str());
}

std::vector<std::wstring> TemporaryFolder::Files() const {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW(File(L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.emplace_back(found.cFileName);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return names;
}

std::wstring TemporaryFolder::Write(const std::wstring& name, std::span<const std::byte> bytes) const {
    HANDLE file = CreateFileW(File(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) throw std::runtime_error("a test's file cannot be made");
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    if (written != bytes.size()) throw std::runtime_error("a test's file cannot be written");
    return File(name);
}

}  // namespace vmk::test
