#pragma once

#include "host/command_line.h"

// The commands that tell what is installed. Each answers the exit status and throws Failure.

namespace vmk {

int ListPresets(const CommandLine& line);
int ListLanguages(const CommandLine& line);
int ShowVersions(const CommandLine& line);
int Complete();

}  // namespace vmk
