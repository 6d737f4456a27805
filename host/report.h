#pragma once

#include "host/command_line.h"

namespace vmk {

// Writes the page about settings; answers the exit status and throws Failure.
int Report(const CommandLine& line);

}  // namespace vmk
