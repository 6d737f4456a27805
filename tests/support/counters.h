#pragma once

#include <windows.h>

#include <iosfwd>

// What a process holds, before and after:
//
//     const ResourceCounts before = CountResources();
//     OpenAndClose(*object, 1000);
//     EXPECT_EQ(CountResources(), before);

namespace vmk::test {

// What this process holds at the moment. Counted from the system's own tables, because the functions that
// report such numbers answer 0 under Wine.
struct ResourceCounts {
    std::size_t handles = 0;     // kernel handles
    std::size_t gdiObjects = 0;  // pens, brushes, fonts, bitmaps, regions, device contexts ...
    std::size_t windows = 0;     // of the calling thread, top-level ones and their descendants
    std::size_t heapBlocks = 0;  // in use, over all heaps of the process
    std::size_t heapBytes = 0;

    bool operator==(const ResourceCounts&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const ResourceCounts& counts);

// Counts now. Allocates nothing from a heap, so that counting changes nothing that is counted.
ResourceCounts CountResources();

}  // namespace vmk::test
