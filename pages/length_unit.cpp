#include "pages/length_unit.h"

#include "base/truncate.h"

namespace vmk {
namespace {

constexpr double kPointsPerInch = 72.0;
constexpr double kMillimetresPerInch = 25.4;
constexpr double kCentimetresPerInch = 2.54;
constexpr double kTenths = 10.0;

// Far below what the shown decimals can mean, and far above the error of the arithmetic: without it a whole
// number of tenths would lose one on its way through points and back.
constexpr double kRoundingError = 1e-6;

}  // namespace

double ToPoints(double length, LengthUnit unit) {
    switch (unit) {
        case LengthUnit::kMillimetres:
            return length * kPointsPerInch / kMillimetresPerInch;
        case LengthUnit::kInches:
            return length * kPointsPerInch;
        case LengthUnit::kCentimetres:
            return length * kPointsPerInch / kCentimetresPerInch;
        case LengthUnit::kPoints:
            break;
    }
    return length;
}

double FromPoints(double points, LengthUnit unit) {
    switch (unit) {
        case LengthUnit::kMillimetres:
            return points * kMillimetresPerInch / kPointsPerInch;
        case LengthUnit::kInches:
            return points / kPointsPerInch;
        case LengthUnit::kCentimetres:
            return points * kCentimetresPerInch / kPointsPerInch;
        case LengthUnit::kPoints:
            break;
    }
    return points;
}

std::int32_t ToStoredLength(double points) {
    const double tenths = FromPoints(points, LengthUnit::kMillimetres) * kTenths;
    return TruncateToInt32(tenths < 0 ? tenths - kRoundingError : tenths + kRoundingError);
}

}  // namespace vmk
