#pragma once

#include <string>

namespace vmk {

// A script for PowerShell that completes commands, options and the names of settings.
std::string PowerShellCompletion();

}  // namespace vmk
