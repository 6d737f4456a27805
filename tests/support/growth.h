#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/counters.h"

// Whether a process holds more and more while the same is done again and again:
//
//     Growth growth(10);
//     for (long cycle = 1; cycle <= 1000; ++cycle) {
//         DoIt();
//         if (cycle % 100 == 0) growth.Note(cycle, CountResources());
//     }
//     EXPECT_EQ(growth.Found(), "");

namespace vmk::test {

// What a counter gains in a thousand cycles, by the line of least squares through all that was noted, and the
// standard error of that.
struct Slope {
    double perThousand = 0;
    double error = 0;

    // Whether it may as well be none: within three standard errors.
    bool MayBeZero() const;
};

// Of two runs, the one without what the other one does as well.
Slope operator-(const Slope& slope, const Slope& control);

class Growth {
  public:
    // Has room for so many notes, and takes no memory meanwhile that would be counted.
    explicit Growth(long notes) { m_notes.reserve(static_cast<std::size_t>(notes)); }

    // `ownBlocks`: blocks of memory that belong to the module alone; 0 where nobody counts them.
    void Note(long cycle, const ResourceCounts& counts, long ownBlocks = 0) {
        m_notes.push_back({.cycle = cycle, .counts = counts, .ownBlocks = ownBlocks});
    }

    // Of "handles", "GDI objects", "windows", "heap blocks" or "own blocks", of at least three notes.
    Slope Of(std::string_view counter) const;

    // One "counter: slope" for each counter that grows or shrinks; empty when all are flat.
    std::string Found() const;
    // One for each counter that grows more than in a control run. One that grows less is the system's: it
    // gives back a device context with each dialog for as long as it has many from busier times.
    std::string FoundBeyond(const Growth& control) const;

    // Prints the slope of each counter.
    void Print(const std::string& what) const;

  private:
    struct Notes {
        long cycle;
        ResourceCounts counts;
        long ownBlocks;
    };

    std::vector<Notes> m_notes;
};

}  // namespace vmk::test
