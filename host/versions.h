#pragma once

#include <string>

namespace vmk {

// The version of a program or DLL, "3.0.0.0". Throws Failure when the file cannot be read or has none.
std::string VersionOf(const std::wstring& path);

// The build id of a program or DLL, in the hexadecimal digits that other tools show for it; "unknown" when it
// has none. Throws Failure when the file cannot be read.
std::string BuildIdOf(const std::wstring& path);

}  // namespace vmk
