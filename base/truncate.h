#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace vmk {

// A number without its decimals, as the settings hold it: cut toward zero. What lies outside the range of 32
// bits becomes the end of the range, and what is no number becomes 0.
constexpr std::int32_t TruncateToInt32(double number) noexcept {
    using Limits = std::numeric_limits<std::int32_t>;
    if (number != number) return 0;
    return static_cast<std::int32_t>(std::clamp(number, double{Limits::min()}, double{Limits::max()}));
}

// The same for the result of a calculation, whose error in the last digits must not cost it a whole one: far
// above that error, and far below what anybody enters.
constexpr std::int32_t TruncateResultToInt32(double number) noexcept {
    return TruncateToInt32(number * (1.0 + 1e-12));
}

}  // namespace vmk
