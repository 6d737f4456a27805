#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <utility>
#include <vector>

// What a benchmark measures several times, and the row of script/bench's table that comes of it.

namespace vmk {

/// Half of the measured figures lie between the quartiles.
struct Spread {
    double median;
    double lowerQuartile;
    double upperQuartile;
};

inline Spread SpreadOf(std::vector<double> figures) {
    std::ranges::sort(figures);
    const auto at = [&](std::size_t quarter) { return figures[(figures.size() - 1) * quarter / 4]; };
    return {.median = at(2), .lowerQuartile = at(1), .upperQuartile = at(3)};
}

inline double Median(std::vector<double> figures) {
    return SpreadOf(std::move(figures)).median;
}

/// Of figures that were measured in turn, so that whatever else the machine did has met both of a pair.
inline Spread RatioOf(const std::vector<double>& ours, const std::vector<double>& theirs) {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < ours.size(); ++i) ratios.push_back(ours[i] / theirs[i]);
    return SpreadOf(std::move(ratios));
}

struct Goal {
    enum class Bound { kAtMost, kAtLeast } bound;
    double value;
};

constexpr Goal AtMost(double value) {
    return {Goal::Bound::kAtMost, value};
}
constexpr Goal AtLeast(double value) {
    return {Goal::Bound::kAtLeast, value};
}

/// Prints a row of the table that script/bench makes of all benchmarks.
inline void PrintRow(const char* what, const Spread& figure, const Goal& goal) {
    const bool atMost = goal.bound == Goal::Bound::kAtMost;
    const bool met = atMost ? figure.median <= goal.value : figure.median >= goal.value;
    std::printf("| %-70s | %8.3f | %8.3f to %8.3f | %s %7.2f | %-6s |\n", what, figure.median,
                figure.lowerQuartile, figure.upperQuartile, atMost ? "<=" : ">=", goal.value,
                met ? "met" : "missed");
    std::fflush(stdout);
}

}  // namespace vmk
