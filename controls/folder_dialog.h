#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace vmk {

// Lets the user choose a folder of the file system in the shell's folder browser. Empty when the user
// cancels, or when what was chosen has no path.
std::optional<std::wstring> ChooseFolder(HWND owner);

}  // namespace vmk
