#pragma once

#include <cstdint>

namespace vmk {

// The units in which a length can be shown; the numbers are those of the list that offers them (centimetres
// are not offered).
enum class LengthUnit : std::int32_t { kMillimetres = 0, kInches = 1, kPoints = 2, kCentimetres = 3 };

// Conversions by way of points, 72 to the inch.
double ToPoints(double length, LengthUnit unit);
double FromPoints(double points, LengthUnit unit);

// A length as it is stored: whole tenths of a millimetre, the rest cut off.
std::int32_t ToStoredLength(double points);

}  // namespace vmk
