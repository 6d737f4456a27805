#include "host/console.h"

#include <windows.h>

#include <algorithm>
#include <string>

#include "host/failure.h"
#include "host/text.h"

namespace vmk {
namespace {

// A console takes no more at a time.
constexpr std::size_t kConsolePiece = 8192;

// ERROR_SUCCESS when everything was written.
DWORD WriteToConsole(HANDLE console, std::wstring_view text) {
    while (!text.empty()) {
        const auto size = static_cast<DWORD>(std::min(text.size(), kConsolePiece));
        DWORD written = 0;
        if (!WriteConsoleW(console, text.data(), size, &written, nullptr)) return GetLastError();
        if (written == 0) return ERROR_WRITE_FAULT;
        text.remove_prefix(written);
    }
    return ERROR_SUCCESS;
}

DWORD WriteToFile(HANDLE file, std::string_view text) {
    while (!text.empty()) {
        DWORD written = 0;
        if (!WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr)) {
            return GetLastError();
        }
        // A pipe that does not wait for its reader takes nothing and calls it a success.
        if (written == 0) return ERROR_WRITE_FAULT;
        text.remove_prefix(written);
    }
    return ERROR_SUCCESS;
}

bool IsConsole(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != FALSE;
}

DWORD Write(DWORD stream, std::string_view text) {
    HANDLE handle = GetStdHandle(stream);
    return IsConsole(handle) ? WriteToConsole(handle, WideFromUtf8(text)) : WriteToFile(handle, text);
}

}  // namespace

void WriteOutput(std::string_view text) {
    const DWORD error = Write(STD_OUTPUT_HANDLE, text);
    if (error == ERROR_SUCCESS) return;
    throw Failure(
        "standard output cannot be written to its end; make room where it goes, or send it elsewhere",
        HRESULT_FROM_WIN32(error));
}

void WriteError(std::string_view text) {
    Write(STD_ERROR_HANDLE, text);
}

bool ErrorsGoToTerminal() {
    return IsConsole(GetStdHandle(STD_ERROR_HANDLE));
}

}  // namespace vmk
