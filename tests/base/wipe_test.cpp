#include "base/wipe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <span>

namespace vmk::test {
namespace {

TEST(WipedText, LeavesNothingInItsMemory) {
    std::wstring text(100, L'p');
    const auto address = reinterpret_cast<std::uintptr_t>(text.data());
    text.resize(10);
    Wipe(text);
    EXPECT_TRUE(text.empty());
    ASSERT_EQ(reinterpret_cast<std::uintptr_t>(text.data()), address);
    const std::span memory(text.data(), 100);
    EXPECT_TRUE(std::ranges::all_of(memory, [](wchar_t character) { return character == 0; }));
}

}  // namespace
}  // namespace vmk::test
