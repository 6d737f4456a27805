#include "pages/length_unit.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/truncate.h"

namespace vmk::test {
namespace {

using enum LengthUnit;

constexpr LengthUnit kAllUnits[] = {kMillimetres, kInches, kPoints, kCentimetres};

double ToPoints(double length, LengthUnit unit) {
    return length * TenthsOfMillimetrePer(unit) / TenthsOfMillimetrePer(kPoints);
}

double FromPoints(double points, LengthUnit unit) {
    return points * TenthsOfMillimetrePer(kPoints) / TenthsOfMillimetrePer(unit);
}

std::int32_t ToStoredLength(double points) {
    return TruncateResultToInt32(points * TenthsOfMillimetrePer(kPoints));
}

std::int32_t StoredFrom(double length, LengthUnit unit) {
    return ToStoredLength(ToPoints(length, unit));
}

TEST(LengthUnit, AnInchIsTheSameLengthInEveryUnit) {
    EXPECT_DOUBLE_EQ(ToPoints(1.0, kInches), 72.0);
    EXPECT_DOUBLE_EQ(ToPoints(25.4, kMillimetres), 72.0);
    EXPECT_DOUBLE_EQ(ToPoints(2.54, kCentimetres), 72.0);
    EXPECT_DOUBLE_EQ(ToPoints(72.0, kPoints), 72.0);
    EXPECT_DOUBLE_EQ(FromPoints(72.0, kInches), 1.0);
    EXPECT_DOUBLE_EQ(FromPoints(72.0, kMillimetres), 25.4);
    EXPECT_DOUBLE_EQ(FromPoints(72.0, kCentimetres), 2.54);
    EXPECT_DOUBLE_EQ(FromPoints(72.0, kPoints), 72.0);
}

TEST(LengthUnit, ConvertingThereAndBackGivesTheLengthAgain) {
    for (const LengthUnit unit : kAllUnits) {
        for (const double length : {0.0, 0.001, 0.1, 1.0, 17.3, 297.0, -5.5, 2147483647.0})
            EXPECT_DOUBLE_EQ(FromPoints(ToPoints(length, unit), unit), length) << static_cast<int>(unit);
    }
}

TEST(LengthUnit, EveryTenthOfAMillimetreIsStoredAsItself) {
    for (std::int32_t tenths = 0; tenths <= 20'000; ++tenths)
        ASSERT_EQ(StoredFrom(tenths / 10.0, kMillimetres), tenths);
}

TEST(LengthUnit, EveryTenthOfAMillimetreIsStoredAsItselfByWayOfPoints) {
    for (std::int32_t tenths = 0; tenths <= 20'000; ++tenths) {
        const double points = FromPoints(ToPoints(tenths / 10.0, kMillimetres), kPoints);
        ASSERT_EQ(StoredFrom(points, kPoints), tenths);
    }
}

TEST(LengthUnit, AnInchIsStoredAs254TenthsFromEveryUnit) {
    EXPECT_EQ(StoredFrom(25.4, kMillimetres), 254);
    EXPECT_EQ(StoredFrom(2.54, kCentimetres), 254);
    EXPECT_EQ(StoredFrom(1.0, kInches), 254);
    EXPECT_EQ(StoredFrom(72.0, kPoints), 254);
}

TEST(LengthUnit, WhatIsLessThanATenthOfAMillimetreIsCutOff) {
    EXPECT_EQ(StoredFrom(0.099, kMillimetres), 0);
    EXPECT_EQ(StoredFrom(25.499, kMillimetres), 254);
    EXPECT_EQ(StoredFrom(1.001, kInches), 254);
    EXPECT_EQ(StoredFrom(1.003, kInches), 254);
    EXPECT_EQ(StoredFrom(1.004, kInches), 255);
}

TEST(LengthUnit, NegativeLengthsAreCutOffTowardZero) {
    EXPECT_EQ(StoredFrom(-25.4, kMillimetres), -254);
    EXPECT_EQ(StoredFrom(-25.499, kMillimetres), -254);
    EXPECT_EQ(StoredFrom(-0.099, kMillimetres), 0);
}

TEST(LengthUnit, ALengthBeyondTheRangeIsStoredAsItsEnd) {
    using Limits = std::numeric_limits<std::int32_t>;
    EXPECT_EQ(StoredFrom(1e12, kMillimetres), Limits::max());
    EXPECT_EQ(StoredFrom(-1e12, kInches), Limits::min());
    EXPECT_EQ(ToStoredLength(std::numeric_limits<double>::infinity()), Limits::max());
    EXPECT_EQ(ToStoredLength(std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
}  // namespace vmk::test
