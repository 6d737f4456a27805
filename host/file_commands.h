#pragma once

#include "host/command_line.h"

// The commands that write and read files of settings. Each answers the exit status and throws Failure.

namespace vmk {

int Export(const CommandLine& line);
int Import(const CommandLine& line);
int Validate(const CommandLine& line);

}  // namespace vmk
