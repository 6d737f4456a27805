#include "controls/file_dialog.h"

#include <windows.h>
// These need windows.h before them.
#include <cderr.h>
#include <commdlg.h>

#include <array>

#include "framework/system_library.h"

namespace vmk {
namespace {

constexpr DWORD kFlags =
    OFN_EXPLORER | OFN_ENABLESIZING | OFN_FILEMUSTEXIST | OFN_NOCHANGEDIR | OFN_LONGNAMES;

using PathBuffer = std::array<wchar_t, MAX_PATH>;

// The form that the system wants: text and patterns in turn, each with its terminator, and one more at the
// end, which the string brings along.
std::wstring FilterList(const std::vector<FileFilter>& filters) {
    std::wstring list;
    for (const FileFilter& filter : filters) {
        list.append(filter.text).push_back(L'\0');
        list.append(filter.patterns).push_back(L'\0');
    }
    return list;
}

PathBuffer BufferWith(const std::wstring& path) {
    PathBuffer buffer{};
    path.copy(buffer.data(), buffer.size() - 1);
    return buffer;
}

}  // namespace

std::optional<std::wstring> ChooseFile(HWND owner, const OpenFileOptions& options) {
    const std::wstring filters = FilterList(options.filters);
    PathBuffer path = BufferWith(options.initialPath);

    OPENFILENAMEW request{};
    request.lStructSize = sizeof(request);
    request.hwndOwner = owner;
    request.lpstrFilter = filters.empty() ? nullptr : filters.c_str();
    request.nFilterIndex = 1;
    request.lpstrDefExt = options.defaultExtension.empty() ? nullptr : options.defaultExtension.c_str();
    request.lpstrFile = path.data();
    request.nMaxFile = static_cast<DWORD>(path.size());
    request.Flags = kFlags;

    const SystemLibrary dialogs(L"comdlg32.dll");
    auto* const getOpenFileName = dialogs.Find<decltype(GetOpenFileNameW)>("GetOpenFileNameW");
    auto* const extendedError = dialogs.Find<decltype(CommDlgExtendedError)>("CommDlgExtendedError");
    if (!getOpenFileName || !extendedError) return std::nullopt;

    BOOL chosen = getOpenFileName(&request);
    if (!chosen && extendedError() == FNERR_INVALIDFILENAME) {
        // What stands in the box is no name for a file: then nothing is proposed.
        path.fill(L'\0');
        chosen = getOpenFileName(&request);
    }
    if (!chosen) return std::nullopt;
    return std::wstring(path.data());
}

}  // namespace vmk
