#pragma once

#include <cstdint>

namespace vmk {

// The units in which a length can be shown; the numbers are those of the list that offers them (centimetres
// are not offered).
enum class LengthUnit : std::int32_t { kMillimetres = 0, kInches = 1, kPoints = 2, kCentimetres = 3 };

// Lengths are stored in whole tenths of a millimetre.
constexpr double TenthsOfMillimetrePer(LengthUnit unit) {
    switch (unit) {
        case LengthUnit::kMillimetres:
            return 10.0;
        case LengthUnit::kInches:
            return 254.0;
        case LengthUnit::kPoints:
            return 254.0 / 72.0;
        case LengthUnit::kCentimetres:
            break;
    }
    return 100.0;
}

}  // namespace vmk
