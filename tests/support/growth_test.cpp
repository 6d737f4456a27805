#include "tests/support/growth.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vmk::test {
namespace {

// Ten cycles, each with what the counter is then.
Growth Of(std::size_t (*count)(std::size_t cycle)) {
    Growth growth(10);
    for (std::size_t cycle = 0; cycle < 10; ++cycle)
        growth.Note(static_cast<long>(cycle), {.handles = count(cycle)});
    return growth;
}

std::size_t Restless(std::size_t cycle) {
    return cycle % 2 == 0 ? 5 : 7;
}

TEST(GrowthOverCycles, IsTheLineThroughAllThatWasNoted) {
    const Slope slope = Of([](std::size_t cycle) { return 3 + 2 * cycle; }).Of("handles");
    EXPECT_NEAR(slope.perThousand, 2000, 1e-6);
    EXPECT_NEAR(slope.error, 0, 1e-6);
}

TEST(GrowthOverCycles, HasAnErrorWhereTheCounterIsRestless) {
    const Slope slope = Of(Restless).Of("handles");
    EXPECT_NEAR(slope.perThousand, 5000.0 / 82.5, 1e-6);
    EXPECT_GT(slope.error, 100);
    EXPECT_EQ(Of(Restless).Found(), "");
}

TEST(GrowthOverCycles, IsFoundWhereOneInAThousandIsLeftBehind) {
    EXPECT_EQ(Of([](std::size_t) { return std::size_t{12}; }).Found(), "");
    Growth growth(4);
    for (const long cycle : {1000L, 2000L, 3000L, 4000L}) growth.Note(cycle, {}, cycle / 1000);
    EXPECT_EQ(growth.Found(), "own blocks: 1.000 +- 0.000 per 1,000\n");
}

TEST(GrowthOverCycles, OfTheControlRunIsNotCounted) {
    const Growth growth = Of([](std::size_t cycle) { return 75 * cycle; });
    EXPECT_EQ(growth.FoundBeyond(growth), "");
    const Growth less = Of([](std::size_t cycle) { return 74 * cycle; });
    EXPECT_EQ(growth.FoundBeyond(less), "handles: 1000.000 +- 0.000 per 1,000\n");
    EXPECT_EQ(less.FoundBeyond(growth), "");
}

TEST(GrowthOverCycles, TakesMoreThanTwoNotes) {
    Growth growth(2);
    growth.Note(1, {});
    growth.Note(2, {});
    EXPECT_THROW(growth.Of("handles"), std::logic_error);
}

}  // namespace
}  // namespace vmk::test
