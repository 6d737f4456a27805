#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/handle.h"
#include "tests/host/program.h"

// Output that does not arrive is a failure: a script that redirects it must not take half a file for the
// whole.

namespace vmk::test {
namespace {

using testing::HasSubstr;

struct HandleTraits {
    using Value = HANDLE;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { CloseHandle(value); }
};
using Handle = UniqueHandle<HandleTraits>;

SECURITY_ATTRIBUTES Inherited() {
    return {.nLength = sizeof(SECURITY_ATTRIBUTES), .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
}

void ExpectRefusal(HANDLE output) {
    const ProgramRun run = RunVmkprefs(L"--help", output);
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.error, HasSubstr("vmkprefs: standard output cannot be written to its end"));
    EXPECT_EQ(std::ranges::count(run.error, '\n'), 1) << run.error;
}

TEST(RefusedOutput, OfAFullDiskIsAFailure) {
    SECURITY_ATTRIBUTES inherited = Inherited();
    const Handle full(CreateFileW(LR"(\\?\unix\dev\full)", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  &inherited, OPEN_EXISTING, 0, nullptr));
    ASSERT_NE(full.get(), INVALID_HANDLE_VALUE) << GetLastError();
    ExpectRefusal(full.get());
}

TEST(RefusedOutput, OfAPipeThatNobodyReadsIsAFailure) {
    SECURITY_ATTRIBUTES inherited = Inherited();
    Handle reader;
    Handle writer;
    ASSERT_TRUE(CreatePipe(reader.put(), writer.put(), &inherited, 0));
    SetHandleInformation(reader.get(), HANDLE_FLAG_INHERIT, 0);
    reader = {};
    ExpectRefusal(writer.get());
}

TEST(RefusedOutput, OfAFileThatCannotBeWrittenIsAFailure) {
    SECURITY_ATTRIBUTES inherited = Inherited();
    const Handle null(CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                                  OPEN_EXISTING, 0, nullptr));
    ASSERT_NE(null.get(), INVALID_HANDLE_VALUE) << GetLastError();
    ExpectRefusal(null.get());
}

// Such a pipe takes what fits, and then nothing without calling it a failure.
TEST(RefusedOutput, OfAPipeThatIsFullAndDoesNotWaitIsAFailure) {
    SECURITY_ATTRIBUTES inherited = Inherited();
    Handle reader;
    Handle writer;
    ASSERT_TRUE(CreatePipe(reader.put(), writer.put(), &inherited, 64));
    SetHandleInformation(reader.get(), HANDLE_FLAG_INHERIT, 0);
    DWORD mode = PIPE_READMODE_BYTE | PIPE_NOWAIT;
    ASSERT_TRUE(SetNamedPipeHandleState(writer.get(), &mode, nullptr, nullptr)) << GetLastError();
    ExpectRefusal(writer.get());
}

}  // namespace
}  // namespace vmk::test
