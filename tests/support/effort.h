#pragma once

#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <utility>

// Tests of reliability try a sample whenever the tests run, and everything in a long run (script/soak).

namespace vmk::test {

inline bool IsLongRun() {
    return std::getenv("VMK_SOAK") != nullptr;
}

// How many times something is tried.
inline long Effort(long sample, long whole) {
    return IsLongRun() ? whole : sample;
}

// Prints what was tried and what was found, on a line of its own that script/soak collects.
inline void PrintFigures(const char* what, std::initializer_list<std::pair<const char*, double>> figures) {
    std::printf("figures: %s", what);
    const char* separator = ": ";
    for (const auto& [name, value] : figures) {
        std::printf("%s%.10g %s", separator, value, name);
        separator = ", ";
    }
    std::printf("\n");
    std::fflush(stdout);
}

}  // namespace vmk::test
