#include "tests/host/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "base/handle.h"
#include "tests/support/loaded_module.h"

namespace vmk::test {
namespace {

struct HandleTraits {
    using Value = HANDLE;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { CloseHandle(value); }
};
using Handle = UniqueHandle<HandleTraits>;

// More than the program ever writes, so that it never waits for its reader.
constexpr DWORD kPipeSize = 1 << 20;
constexpr DWORD kPatience = 60'000;  // milliseconds

// A pipe whose writing end a child process inherits.
struct Pipe {
    Handle reader;
    Handle writer;

    Pipe() {
        SECURITY_ATTRIBUTES inherited{
            .nLength = sizeof inherited, .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
        CreatePipe(reader.put(), writer.put(), &inherited, kPipeSize);
        SetHandleInformation(reader.get(), HANDLE_FLAG_INHERIT, 0);
    }

    // What is in the pipe when its writer has ended. Waiting for the end of the pipe would not do: a server
    // that the writer started may have inherited it.
    std::string ReadAll() const {
        std::string all;
        DWORD size = 0;
        while (PeekNamedPipe(reader.get(), nullptr, 0, nullptr, &size, nullptr) && size != 0) {
            std::string piece(size, '\0');
            if (!ReadFile(reader.get(), piece.data(), size, &size, nullptr)) break;
            all.append(piece, 0, size);
        }
        return all;
    }
};

}  // namespace

std::wstring ArtifactFolder() {
    return std::filesystem::path(TestFolder()).parent_path().wstring() + L"\\";
}

struct RunningVmkprefs::Process {
    Pipe output;
    Pipe error;
    Handle handle;
    DWORD id = 0;
};

RunningVmkprefs::RunningVmkprefs(const std::wstring& arguments, HANDLE output)
    : m_process(std::make_unique<Process>()) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output ? output : m_process->output.writer.get();
    startup.hStdError = m_process->error.writer.get();
    std::wstring commandLine = L"\"" + ArtifactFolder() + L"vmkprefs.exe\" " + arguments;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process)) {
        ADD_FAILURE() << "vmkprefs.exe cannot be started: " << GetLastError();
        return;
    }
    CloseHandle(process.hThread);
    m_process->handle.attach(process.hProcess);
    m_process->id = process.dwProcessId;
}

RunningVmkprefs::~RunningVmkprefs() {
    if (m_process->handle) TerminateProcess(m_process->handle.get(), 99);
}

DWORD RunningVmkprefs::ProcessId() const {
    return m_process->id;
}

ProgramRun RunningVmkprefs::Finish() {
    ProgramRun run;
    const Handle handle = std::move(m_process->handle);
    if (!handle) return run;
    if (WaitForSingleObject(handle.get(), kPatience) != WAIT_OBJECT_0) {
        ADD_FAILURE() << "vmkprefs.exe does not end";
        TerminateProcess(handle.get(), 99);
        return run;
    }
    DWORD status = 0;
    GetExitCodeProcess(handle.get(), &status);
    run.status = static_cast<int>(status);
    run.output = m_process->output.ReadAll();
    run.error = m_process->error.ReadAll();
    return run;
}

ProgramRun RunVmkprefs(const std::wstring& arguments, HANDLE output) {
    return RunningVmkprefs(arguments, output).Finish();
}

void ExpectFailure(const ProgramRun& run, const std::string& words) {
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.error, testing::StartsWith("vmkprefs: "));
    EXPECT_THAT(run.error, testing::HasSubstr(words));
    EXPECT_EQ(std::ranges::count(run.error, '\n'), 1) << run.error;
}

}  // namespace vmk::test
