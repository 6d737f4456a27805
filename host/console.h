#pragma once

#include <string_view>

namespace vmk {

// Writes UTF-8 to standard output: as UTF-8 into files and pipes, and as Unicode text to a console, whose
// code page does not matter. Throws Failure when not all of it arrives.
void WriteOutput(std::string_view text);

// The same to standard error, of whose failure nobody can be told.
void WriteError(std::string_view text);

// The one line of a failure, behind the program's name, which is red on a console unless NO_COLOR is set.
void WriteFailure(std::string_view text);

// Whether somebody looks on while standard error is written.
bool ErrorsGoToTerminal();

}  // namespace vmk
