#pragma once

// What an eye looks for. The names are what reports say.

namespace vmk::test::eye {

inline constexpr char kCut[] = "text cut";
inline constexpr char kCutWhenClosed[] = "item cut in the closed list";
inline constexpr char kCutWhenDropped[] = "item cut in the dropped list";
inline constexpr char kCutInList[] = "item cut in its column";
inline constexpr char kOutside[] = "out of its frame";
inline constexpr char kOverlap[] = "overlaps a neighbour";
inline constexpr char kLeftEdge[] = "nearly aligned on the left";
inline constexpr char kBaseline[] = "not on the baseline of its control";
inline constexpr char kSpacing[] = "unevenly spaced rows";
inline constexpr char kTabOrder[] = "tab order against reading order";
inline constexpr char kNoName[] = "without a name";
inline constexpr char kSameKey[] = "access key doubled";

inline constexpr const char* kAll[] = {kCut,     kCutWhenClosed, kCutWhenDropped, kCutInList,
                                       kOutside, kOverlap,       kLeftEdge,       kBaseline,
                                       kSpacing, kTabOrder,      kNoName,         kSameKey};

}  // namespace vmk::test::eye
