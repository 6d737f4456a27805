#pragma once

#include "host/command_line.h"

namespace vmk {

// Carries out what the user asked for and returns the exit status. Throws Failure.
int Execute(const CommandLine& line);

}  // namespace vmk
