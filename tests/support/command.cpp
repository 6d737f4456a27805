#include "tests/support/command.h"

#include <windows.h>

#include <array>
#include <stdexcept>

namespace vmk::test {
namespace {

std::string ReadAll(HANDLE pipe) {
    std::string text;
    std::array<char, 512> part{};
    DWORD got = 0;
    while (ReadFile(pipe, part.data(), part.size(), &got, nullptr) && got > 0) text.append(part.data(), got);
    return text;
}

}  // namespace

std::string OutputOf(std::wstring command) {
    SECURITY_ATTRIBUTES inherited{
        .nLength = sizeof inherited, .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
    HANDLE reader = nullptr;
    HANDLE writer = nullptr;
    if (!CreatePipe(&reader, &writer, &inherited, 0)) throw std::runtime_error("no pipe");
    SetHandleInformation(reader, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = writer;
    startup.hStdError = writer;
    PROCESS_INFORMATION process{};
    const BOOL started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                        &startup, &process);
    CloseHandle(writer);
    if (!started) {
        CloseHandle(reader);
        throw std::runtime_error("a program does not start");
    }
    std::string text = ReadAll(reader);
    CloseHandle(reader);
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    std::erase(text, '\r');
    return text;
}

}  // namespace vmk::test
