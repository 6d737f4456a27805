#include "host/files.h"

#include <windows.h>

#include <algorithm>

#include "base/handle.h"
#include "host/failure.h"
#include "host/text.h"

namespace vmk {
namespace {

struct FileTraits {
    using Value = HANDLE;
    static Value None() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Value value) noexcept { CloseHandle(value); }
};
using UniqueFile = UniqueHandle<FileTraits>;

constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::wstring FromUtf16(std::string_view bytes) {
    std::wstring text(bytes.size() / 2, L'\0');
    for (std::size_t at = 0; at != text.size(); ++at) {
        const auto low = static_cast<unsigned char>(bytes[2 * at]);
        const auto high = static_cast<unsigned char>(bytes[2 * at + 1]);
        text[at] = static_cast<wchar_t>(low | high << 8);
    }
    return text;
}

int LineAt(std::string_view bytes, std::size_t place) {
    return static_cast<int>(std::ranges::count(bytes.substr(0, place), '\n')) + 1;
}

// Where the first byte stands that does not belong to UTF-8: what is decoded becomes other bytes from there
// on.
std::size_t SizeOfUtf8(std::string_view bytes, const std::wstring& decoded) {
    const std::string again = Utf8FromWide(decoded);
    const auto [left, right] = std::ranges::mismatch(bytes, again);
    return static_cast<std::size_t>(left - bytes.begin());
}

[[noreturn]] void Fail(const std::wstring& path, const char* what, DWORD error) {
    throw Failure("the file " + Utf8FromWide(path) + what, HRESULT_FROM_WIN32(error));
}

constexpr const char* kNotRead = " cannot be read; check its name and whether you may read it";
constexpr const char* kNotWritten =
    " cannot be written; check its folder, the room there and whether you may write";

// The error of the first call that fails.
DWORD WriteAll(const std::wstring& path, std::string_view bytes) {
    const UniqueFile file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return GetLastError();
    while (!bytes.empty()) {
        DWORD written = 0;
        if (!WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr)) {
            return GetLastError();
        }
        if (written == 0) return ERROR_WRITE_FAULT;
        bytes.remove_prefix(written);
    }
    return ERROR_SUCCESS;
}

}  // namespace

std::string ReadFileBytes(const std::wstring& path) {
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) Fail(path, kNotRead, GetLastError());
    std::string bytes;
    std::string piece(65536, '\0');
    for (;;) {
        DWORD size = 0;
        if (!ReadFile(file.get(), piece.data(), static_cast<DWORD>(piece.size()), &size, nullptr)) {
            Fail(path, kNotRead, GetLastError());
        }
        if (size == 0) return bytes;
        bytes.append(piece, 0, size);
    }
}

void WriteFileBytes(const std::wstring& path, std::string_view bytes) {
    const std::wstring unfinished = path + L".part";
    DWORD error = WriteAll(unfinished, bytes);
    if (error == ERROR_SUCCESS && MoveFileExW(unfinished.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING))
        return;
    if (error == ERROR_SUCCESS) error = GetLastError();
    DeleteFileW(unfinished.c_str());
    Fail(path, kNotWritten, error);
}

DecodedText DecodeText(std::string_view bytes) {
    if (bytes.starts_with(kUtf16Mark)) return {.text = FromUtf16(bytes.substr(kUtf16Mark.size()))};
    if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
    DecodedText decoded{.text = WideFromUtf8(bytes)};
    const std::size_t size = SizeOfUtf8(bytes, decoded.text);
    if (size != bytes.size()) decoded.faultLine = LineAt(bytes, size);
    return decoded;
}

std::vector<std::wstring> FilesIn(const std::wstring& folder, const std::wstring& pattern) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW((folder + pattern).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND) return names;
        throw Failure("the folder " + Utf8FromWide(folder) + " cannot be read; check that it is there",
                      HRESULT_FROM_WIN32(error));
    }
    do names.emplace_back(found.cFileName);
    while (FindNextFileW(search, &found));
    FindClose(search);
    std::ranges::sort(names);
    return names;
}

bool FileIsThere(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace vmk
