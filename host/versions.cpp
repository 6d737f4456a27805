#include "host/versions.h"

#include <windows.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

#include "host/failure.h"
#include "host/files.h"
#include "host/text.h"

namespace vmk {
namespace {

// The debug directory's record that holds the build id.
struct BuildRecord {
    std::array<char, 4> signature;
    GUID id;
};

// A structure at a place of a file; nothing when the file ends before it.
template <typename T>
std::optional<T> At(std::string_view file, std::size_t place) {
    if (place > file.size() || file.size() - place < sizeof(T)) return std::nullopt;
    T value;
    std::memcpy(&value, file.data() + place, sizeof value);
    return value;
}

// Where an address of the loaded image stands in the file.
std::size_t PlaceOf(std::string_view file, std::size_t sections, WORD count, DWORD address) {
    for (WORD index = 0; index != count; ++index) {
        const auto section = At<IMAGE_SECTION_HEADER>(file, sections + index * sizeof(IMAGE_SECTION_HEADER));
        if (!section) break;
        const DWORD offset = address - section->VirtualAddress;
        if (address >= section->VirtualAddress && offset < section->SizeOfRawData) {
            return section->PointerToRawData + offset;
        }
    }
    return file.size();
}

std::optional<BuildRecord> FindBuildRecord(std::string_view file) {
    const auto head = At<IMAGE_DOS_HEADER>(file, 0);
    if (!head) return std::nullopt;
    const auto start = static_cast<std::size_t>(head->e_lfanew);
    const auto headers = At<IMAGE_NT_HEADERS64>(file, start);
    if (!headers || headers->Signature != IMAGE_NT_SIGNATURE) return std::nullopt;
    const std::size_t sections =
        start + offsetof(IMAGE_NT_HEADERS64, OptionalHeader) + headers->FileHeader.SizeOfOptionalHeader;
    const IMAGE_DATA_DIRECTORY where = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_DEBUG];
    const std::size_t place =
        PlaceOf(file, sections, headers->FileHeader.NumberOfSections, where.VirtualAddress);
    const auto directory = At<IMAGE_DEBUG_DIRECTORY>(file, place);
    if (!directory || directory->Type != IMAGE_DEBUG_TYPE_CODEVIEW) return std::nullopt;
    const auto record = At<BuildRecord>(file, directory->PointerToRawData);
    const bool isOne = record && std::string_view(record->signature.data(), 4) == "RSDS";
    return isOne ? record : std::nullopt;
}

}  // namespace

std::string VersionOf(const std::wstring& path) {
    DWORD ignored = 0;
    std::vector<std::byte> data(GetFileVersionInfoSizeW(path.c_str(), &ignored));
    void* found = nullptr;
    UINT size = 0;
    if (data.empty() || !GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data.size()), data.data()) ||
        !VerQueryValueW(data.data(), L"\\", &found, &size) || size < sizeof(VS_FIXEDFILEINFO)) {
        throw Failure(
            "the version of " + Utf8FromWide(path) + " cannot be read; check that the file is there",
            HRESULT_FROM_WIN32(GetLastError()));
    }
    const auto* const info = static_cast<const VS_FIXEDFILEINFO*>(found);
    std::string version;
    for (const DWORD part : {info->dwFileVersionMS, info->dwFileVersionLS}) {
        if (!version.empty()) version += ".";
        version += std::to_string(HIWORD(part)) + "." + std::to_string(LOWORD(part));
    }
    return version;
}

std::string BuildIdOf(const std::wstring& path) {
    const std::string file = ReadFileBytes(path);
    const std::optional<BuildRecord> record = FindBuildRecord(file);
    if (!record) return "unknown";
    const GUID& id = record->id;
    std::array<char, 33> text{};
    std::snprintf(text.data(), text.size(), "%08lx%04x%04x%02x%02x%02x%02x%02x%02x%02x%02x",
                  static_cast<unsigned long>(id.Data1), id.Data2, id.Data3, id.Data4[0], id.Data4[1],
                  id.Data4[2], id.Data4[3], id.Data4[4], id.Data4[5], id.Data4[6], id.Data4[7]);
    return text.data();
}

}  // namespace vmk
