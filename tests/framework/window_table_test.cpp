#include "framework/window_table.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "tests/framework/recording_window.h"

namespace vmk::test {
namespace {

// More windows than the table has chains.
constexpr std::size_t kMany = 600;

TEST(WindowTable, TellsManyWindowsApart) {
    std::vector<UniqueWindow> windows;
    std::vector<std::unique_ptr<RecordingWindow>> objects;
    for (std::size_t i = 0; i < kMany; ++i) {
        windows.push_back(HiddenWindow(L"STATIC"));
        objects.push_back(std::make_unique<RecordingWindow>());
        ASSERT_TRUE(objects.back()->SubclassWindow(windows.back().get()));
    }
    for (std::size_t i = 0; i < kMany; ++i) EXPECT_EQ(Window::FromHandle(windows[i].get()), objects[i].get());

    // Some go before their windows, some after.
    for (std::size_t i = 0; i < kMany; i += 3) objects[i].reset();
    for (std::size_t i = 1; i < kMany; i += 3) windows[i].reset();
    for (std::size_t i = 0; i < kMany; ++i) {
        if (i % 3 != 1) {
            EXPECT_EQ(Window::FromHandle(windows[i].get()), objects[i].get());
        }
        if (i % 3 != 0) {
            EXPECT_EQ(objects[i]->Handle(), windows[i].get());
        }
    }
}

TEST(WindowTable, FindsNoObjectForWhatIsNoWindow) {
    EXPECT_EQ(Window::FromHandle(nullptr), nullptr);
    const UniqueWindow plain = HiddenWindow();
    EXPECT_EQ(Window::FromHandle(plain.get()), nullptr);
}

}  // namespace
}  // namespace vmk::test
