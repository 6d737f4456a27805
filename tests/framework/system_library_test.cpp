#include "framework/system_library.h"

#include <gtest/gtest.h>
// commdlg.h needs windows.h before it.
#include <commdlg.h>

#include "framework/module.h"

namespace vmk::test {
namespace {

constexpr wchar_t kName[] = L"comdlg32.dll";

bool IsLoaded() {
    return GetModuleHandleW(kName) != nullptr;
}

DWORD WINAPI UseAndUnlock(void* /*parameter*/) noexcept {
    for (int round = 0; round < 200; ++round) {
        Module::Get().Lock();
        EXPECT_TRUE(SystemLibrary(kName).Find<decltype(ChooseColorW)>("ChooseColorW"));
        Module::Get().Unlock();
    }
    return 0;
}

class LibraryOfTheSystem : public testing::Test {
  protected:
    LibraryOfTheSystem() { Module::Get().Lock(); }
    ~LibraryOfTheSystem() override { Module::Get().Unlock(); }
};

TEST_F(LibraryOfTheSystem, IsLoadedOnItsFirstUse) {
    ASSERT_FALSE(IsLoaded());
    const SystemLibrary library(kName);
    EXPECT_TRUE(IsLoaded());
    EXPECT_TRUE(library.Find<decltype(ChooseColorW)>("ChooseColorW"));
    EXPECT_FALSE(library.Find<decltype(ChooseColorW)>("ChooseColour"));
}

TEST_F(LibraryOfTheSystem, StaysLoadedBetweenItsUses) {
    for (int time = 0; time < 3; ++time) {
        const SystemLibrary library(kName);
    }
    EXPECT_TRUE(IsLoaded());
}

TEST_F(LibraryOfTheSystem, GoesWhenNothingLocksTheModuleAnyMore) {
    { const SystemLibrary library(kName); }
    Module::Get().Lock();
    Module::Get().Unlock();
    EXPECT_TRUE(IsLoaded());
    EXPECT_EQ(Module::Get().Unlock(), 0);
    EXPECT_FALSE(IsLoaded());
    Module::Get().Lock();
}

TEST_F(LibraryOfTheSystem, StaysWithWhoeverUsesItWhileTheModuleIsUnlocked) {
    const SystemLibrary library(kName);
    EXPECT_EQ(Module::Get().Unlock(), 0);
    EXPECT_TRUE(IsLoaded());
    Module::Get().Lock();
}

TEST_F(LibraryOfTheSystem, IsNotThereUnderAnUnknownName) {
    EXPECT_FALSE(SystemLibrary(L"vmk-no-such.dll").Find<decltype(ChooseColorW)>("ChooseColorW"));
}

TEST_F(LibraryOfTheSystem, IsNeitherLostNorLeftByThreadsThatUseItAtTheSameTime) {
    EXPECT_EQ(Module::Get().Unlock(), 0);
    HANDLE threads[4];
    for (HANDLE& thread : threads) thread = CreateThread(nullptr, 0, UseAndUnlock, nullptr, 0, nullptr);
    WaitForMultipleObjects(4, threads, TRUE, INFINITE);
    for (HANDLE thread : threads) CloseHandle(thread);
    EXPECT_FALSE(IsLoaded());
    Module::Get().Lock();
}

}  // namespace
}  // namespace vmk::test
