#pragma once

#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "tests/support/effort.h"

namespace vmk::test {

// What random tests begin with, printed so that VMK_SEED repeats a run: the same one whenever the tests run,
// another one in each long run.
inline unsigned Seed() {
    static const unsigned kSeed = [] {
        const char* const given = std::getenv("VMK_SEED");
        unsigned seed = IsLongRun() ? GetTickCount() ^ GetCurrentProcessId() << 16 : 20240229;
        if (given) seed = static_cast<unsigned>(std::strtoul(given, nullptr, 10));
        std::printf("seed: VMK_SEED=%u\n", seed);
        std::fflush(stdout);
        return seed;
    }();
    return kSeed;
}

}  // namespace vmk::test
