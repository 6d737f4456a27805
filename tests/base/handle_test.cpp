#include "base/handle.h"

#include <gtest/gtest.h>

#include <vector>

namespace vmk::test {
namespace {

std::vector<int>& Closed() {
    static std::vector<int> closed;
    return closed;
}

struct NumberTraits {
    using Value = int;
    static constexpr Value None() noexcept { return -1; }
    static void Close(Value value) noexcept { Closed().push_back(value); }
};
using UniqueNumber = UniqueHandle<NumberTraits>;

class HandleOwner : public testing::Test {
  protected:
    HandleOwner() { Closed().clear(); }
    static void ExpectClosed(const std::vector<int>& values) { EXPECT_EQ(Closed(), values); }
};

TEST_F(HandleOwner, OwnsNothingAtFirstAndClosesNothing) {
    {
        const UniqueNumber nothing;
        EXPECT_FALSE(nothing);
        EXPECT_EQ(nothing.get(), -1);
    }
    ExpectClosed({});
}

TEST_F(HandleOwner, ClosesOnceAtTheEndOfItsScope) {
    {
        const UniqueNumber number(0);
        EXPECT_TRUE(number);
        EXPECT_EQ(number.get(), 0);
    }
    ExpectClosed({0});
}

TEST_F(HandleOwner, MovesItsHandle) {
    {
        UniqueNumber first(1);
        const UniqueNumber second(std::move(first));
        // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
        EXPECT_EQ(first.get(), -1);
        EXPECT_EQ(second.get(), 1);
    }
    ExpectClosed({1});
}

TEST_F(HandleOwner, ClosesWhatAMoveReplaces) {
    UniqueNumber first(1);
    UniqueNumber second(2);
    second = std::move(first);
    ExpectClosed({2});
    EXPECT_EQ(second.get(), 1);
}

TEST_F(HandleOwner, SurvivesAMoveToItself) {
    UniqueNumber number(1);
    UniqueNumber& same = number;
    number = std::move(same);
    EXPECT_EQ(number.get(), 1);
    ExpectClosed({});
}

TEST_F(HandleOwner, MakesRoomForAnotherHandle) {
    UniqueNumber number(1);
    *number.put() = 2;
    ExpectClosed({1});
    EXPECT_EQ(number.get(), 2);
}

TEST_F(HandleOwner, GivesItsHandleAwayWithoutClosing) {
    UniqueNumber number(1);
    EXPECT_EQ(number.detach(), 1);
    EXPECT_FALSE(number);
    number.attach(2);
    number.reset();
    number.reset();
    ExpectClosed({2});
}

}  // namespace
}  // namespace vmk::test
