#pragma once

#include <string_view>

namespace vmk {

// Write UTF-8 to standard output and standard error: as UTF-8 into files and pipes, and as Unicode text to a
// console, whose code page does not matter. What the far end refuses is lost.
void WriteOutput(std::string_view text);
void WriteError(std::string_view text);

}  // namespace vmk
