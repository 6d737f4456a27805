// Comes before everything in the copy of the sources in which every mutant waits for its number: which of
// them is alive is a matter of the environment, so that one build holds them all.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace vmk_mutation {

inline int alive = -1;                 // the number of the one that is alive, 0 for none
inline const char* reached = nullptr;  // the file that gets a byte for each mutant that is passed
inline unsigned char passed[1 << 16] = {};

inline void Read() {
    const char* const number = std::getenv("VMK_MUTANT");
    reached = std::getenv("VMK_MUTANTS_REACHED");
    alive = number ? std::atoi(number) : 0;
}

inline void Note(int number) {
    if (passed[number]) return;
    passed[number] = 1;
    if (std::FILE* const file = std::fopen(reached, "r+b")) {
        std::fseek(file, number, SEEK_SET);
        std::fputc(1, file);
        std::fclose(file);
    }
}

inline bool On(int number) {
    if (alive < 0) Read();
    if (reached) Note(number);
    return number == alive;
}

// For functions that the compiler may run itself.
constexpr bool OnAtRunTime(int number) {
    return __builtin_is_constant_evaluated() ? false : On(number);
}

}  // namespace vmk_mutation
