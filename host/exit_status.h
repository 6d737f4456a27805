#pragma once

namespace vmk {

// What the program answers to its caller.
inline constexpr int kExitDone = 0;       // done; for edit: OK was pressed and the settings are stored
inline constexpr int kExitCancelled = 1;  // edit: Cancel was pressed, nothing is stored
inline constexpr int kExitFound = 1;      // diff: there are differences; validate: something is damaged
inline constexpr int kExitFailure = 2;    // wrong usage or a failure, with one line on standard error

}  // namespace vmk
