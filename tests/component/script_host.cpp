#include "tests/component/script_host.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace vmk::test {
namespace {

// The host takes a path that begins with a slash for an option.
std::wstring ScriptFolder() {
    const std::string folder = VMK_TEST_SCRIPTS;
    std::wstring path = L"Z:" + std::wstring(folder.begin(), folder.end());
    std::ranges::replace(path, L'/', L'\\');
    return path;
}

std::string ReadAll(HANDLE pipe) {
    std::string text;
    std::array<char, 512> part{};
    DWORD got = 0;
    while (ReadFile(pipe, part.data(), part.size(), &got, nullptr) && got > 0) text.append(part.data(), got);
    return text;
}

}  // namespace

std::string RunScript(const std::wstring& file, const std::wstring& arguments) {
    SECURITY_ATTRIBUTES inherited{
        .nLength = sizeof inherited, .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
    HANDLE reader = nullptr;
    HANDLE writer = nullptr;
    if (!CreatePipe(&reader, &writer, &inherited, 0)) throw std::runtime_error("no pipe");
    SetHandleInformation(reader, HANDLE_FLAG_INHERIT, 0);
    std::wstring command = L"cscript //nologo \"" + ScriptFolder() + L"\\" + file + L"\" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = writer;
    startup.hStdError = writer;
    PROCESS_INFORMATION process{};
    const BOOL started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                        &startup, &process);
    CloseHandle(writer);
    if (!started) throw std::runtime_error("cscript does not start");
    std::string text = ReadAll(reader);
    CloseHandle(reader);
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    std::erase(text, '\r');
    return text;
}

}  // namespace vmk::test
