#include "tests/chaos/heap_checks.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <utility>

// What the checks that the tests of threads run with would find: without them none of this is found.

namespace vmk::test {
namespace {

TEST(HeapChecks, FindAByteBehindABlock) {
    // Blocks of a size that is asked for often are in groups in Wine 10, into which the checks do not look.
    constexpr std::size_t kSize = 3000;
    ASSERT_TRUE(HeapsAreInOrder());
    auto* const block = static_cast<volatile char*>(std::malloc(kSize));
    const char behind = std::exchange(*const_cast<char*>(block + kSize), '!');
    EXPECT_FALSE(HeapsAreInOrder());
    block[kSize] = behind;
    EXPECT_TRUE(HeapsAreInOrder());
    std::free(const_cast<char*>(block));
}

TEST(HeapChecks, FindAByteInABlockThatWasFreed) {
    auto* const block = static_cast<char*>(std::malloc(24));
    auto* volatile freed = block;
    std::free(block);
    const char was = std::exchange(freed[16], '!');
    EXPECT_FALSE(HeapsAreInOrder());
    freed[16] = was;
    EXPECT_TRUE(HeapsAreInOrder());
}

}  // namespace
}  // namespace vmk::test
