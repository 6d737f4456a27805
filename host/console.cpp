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

// Text on a console is red until the end.
class RedText {
  public:
    explicit RedText(HANDLE handle) : m_handle(handle) {
        const bool unwanted = GetEnvironmentVariableW(L"NO_COLOR", nullptr, 0) != 0;
        m_isRed = !unwanted && GetConsoleScreenBufferInfo(handle, &m_before) != FALSE;
        if (m_isRed) SetConsoleTextAttribute(handle, FOREGROUND_RED | FOREGROUND_INTENSITY);
    }
    void End() const {
        if (m_isRed) SetConsoleTextAttribute(m_handle, m_before.wAttributes);
    }

  private:
    HANDLE m_handle;
    CONSOLE_SCREEN_BUFFER_INFO m_before{};
    bool m_isRed = false;
};

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

void WriteFailure(std::string_view text) {
    const RedText red(GetStdHandle(STD_ERROR_HANDLE));
    WriteError("vmkprefs: ");
    red.End();
    WriteError(std::string(text) + "\n");
}

bool ErrorsGoToTerminal() {
    return IsConsole(GetStdHandle(STD_ERROR_HANDLE));
}

}  // namespace vmk
