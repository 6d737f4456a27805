#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace vmk {

// One line of the dialog's list of file types.
struct FileFilter {
    std::wstring text;      // what the user reads
    std::wstring patterns;  // which names are shown, for example "*.pfx;*.p12"
};

struct OpenFileOptions {
    std::vector<FileFilter> filters = {};  // none: every file is shown, and there is no list of types
    std::wstring defaultExtension = {};    // appended to a name that is typed without one; may be empty
    std::wstring initialPath = {};  // what the name box starts with; cut after 259 characters, may be empty
};

// Lets the user choose an existing file in the system's open-file dialog; the process's current folder stays
// as it is. Returns the full path, of at most 259 characters. Empty when the user cancels or the dialog
// cannot be had.
std::optional<std::wstring> ChooseFile(HWND owner, const OpenFileOptions& options = {});

}  // namespace vmk
