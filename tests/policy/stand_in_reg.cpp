// Stands in for the system's reg.exe, of which not every system has all verbs: notes its command lines in the
// file that VMK_REG_NOTES names, has the real one import, and fails at the verb that VMK_REG_FAILS names.

#include <windows.h>

#include <cwchar>
#include <string>
#include <string_view>

namespace {

std::wstring Variable(const wchar_t* name) {
    wchar_t value[MAX_PATH] = {};
    GetEnvironmentVariableW(name, value, MAX_PATH);
    return value;
}

void Note(const std::wstring& line) {
    HANDLE file = CreateFileW(Variable(L"VMK_REG_NOTES").c_str(), FILE_APPEND_DATA, 0, nullptr, OPEN_ALWAYS,
                              0, nullptr);
    DWORD written = 0;
    std::string bytes;
    for (const wchar_t c : line) bytes += static_cast<char>(c);
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

DWORD Import(const wchar_t* file) {
    std::wstring command = L"\"" + Variable(L"VMK_REAL_REG") + L"\" import \"" + file + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process))
        return 1;
    DWORD status = 1;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return status;
}

}  // namespace

int wmain(int count, wchar_t** words) {
    std::wstring line;
    for (int at = 1; at < count; ++at) line.append(at > 1 ? L" " : L"").append(words[at]);
    Note(line + L"\n");
    const std::wstring_view verb = count > 2 ? words[1] : L"";
    if (verb == Variable(L"VMK_REG_FAILS")) return 1;
    return verb == L"import" ? static_cast<int>(Import(words[2])) : 0;
}
