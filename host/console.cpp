#include "host/console.h"

#include <windows.h>

#include <string>

#include "host/text.h"

namespace vmk {
namespace {

void Write(DWORD stream, std::string_view text) {
    HANDLE handle = GetStdHandle(stream);
    DWORD mode = 0;
    DWORD written = 0;
    if (GetConsoleMode(handle, &mode)) {
        const std::wstring wide = WideFromUtf8(text);
        WriteConsoleW(handle, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
        return;
    }
    while (!text.empty()) {
        if (!WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr)) return;
        text.remove_prefix(written);
    }
}

}  // namespace

void WriteOutput(std::string_view text) {
    Write(STD_OUTPUT_HANDLE, text);
}

void WriteError(std::string_view text) {
    Write(STD_ERROR_HANDLE, text);
}

}  // namespace vmk
