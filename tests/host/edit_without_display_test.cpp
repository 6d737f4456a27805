#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/program.h"
#include "tests/support/scratch_key.h"

namespace vmk::test {
namespace {

TEST(VmkprefsEditWithoutADisplay, FailsAndStoresNoSettings) {
    ASSERT_EQ(
        CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr),
        nullptr)
        << "this test has to run without a display (VMK_NO_DISPLAY=1)";
    const ScratchKey key;
    const ProgramRun run = RunVmkprefs(L"edit --key \"" + key.SubKey() + L"\"");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.error, testing::StartsWith("vmkprefs: the preferences dialog cannot be opened"));
    EXPECT_EQ(key.Number("Paper.Nup"), std::nullopt);
}

}  // namespace
}  // namespace vmk::test
