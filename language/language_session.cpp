#include "language/language_session.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <type_traits>
#include <utility>

#include "base/code_page.h"

namespace vmk {
namespace {

constexpr std::size_t kProductFieldLength = 64;  // the terminator included

template <auto Close>
struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const noexcept { Close(handle); }
};
using FileHandle = std::unique_ptr<void, HandleCloser<CloseHandle>>;
using SearchHandle = std::unique_ptr<void, HandleCloser<FindClose>>;

/// The whole file; empty when it cannot be had.
std::vector<std::byte> ReadBytes(const std::string& path) try {
    // Somebody who writes translations has them open while trying them out.
    constexpr DWORD kWithEverybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    HANDLE handle = CreateFileA(path.c_str(), GENERIC_READ, kWithEverybody, nullptr, OPEN_EXISTING,
                                FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return {};
    const FileHandle file(handle);

    LARGE_INTEGER size;
    if (!GetFileSizeEx(file.get(), &size) || size.QuadPart > std::numeric_limits<DWORD>::max()) return {};
    std::vector<std::byte> bytes(static_cast<std::size_t>(size.QuadPart));
    DWORD read = 0;
    if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr)) return {};
    bytes.resize(read);
    return bytes;
} catch (const std::bad_alloc&) {
    return {};
}

std::string HostPath() {
    std::string path(MAX_PATH, '\0');
    for (;;) {
        const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

/// A character of two bytes may end with the byte of a backslash.
bool EndsWithBackslash(const std::string& path) {
    return *CharPrevA(path.data(), path.data() + path.size()) == '\\';
}

bool EqualsIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                                TRUE) == CSTR_EQUAL;
}

}  // namespace

LanguageSession::LanguageSession(std::string folder, std::wstring_view product)
    : m_folder(folder.empty() ? HostPath() : std::move(folder)),
      m_product(product.substr(0, kProductFieldLength - 1)) {
    if (!EndsWithBackslash(m_folder)) m_folder += '\\';
    Scan();
}

void LanguageSession::Scan() {
    WIN32_FIND_DATAA found;
    HANDLE handle = FindFirstFileA((m_folder + "*.vlf").c_str(), &found);
    if (handle == INVALID_HANDLE_VALUE) return;
    const SearchHandle search(handle);
    do {
        Accept(m_folder + found.cFileName);
    } while (FindNextFileA(search.get(), &found));
}

void LanguageSession::Accept(std::string file) try {
    std::optional<LanguageHeader> header = ReadLanguageHeader(ReadBytes(file));
    if (!header || header->langid == kNoLangid || header->productID.empty() ||
        !EqualsIgnoringCase(header->productID, m_product))
        return;
    const auto sameLanguage = [&](const LanguageRecord& record) {
        return record.header.langid == header->langid;
    };
    if (std::any_of(m_languages.begin(), m_languages.end(), sameLanguage)) return;
    std::string langname = Narrow(header->langname, CP_ACP);
    m_languages.push_back({.file = std::move(file),
                           .header = std::move(*header),
                           .langname = std::move(langname),
                           .table = {}});
} catch (const std::bad_alloc&) {
    // A file too large for the memory at hand is one that cannot be read.
}

bool LanguageSession::SelectLanguage(std::uint32_t langid) {
    const auto record =
        std::find_if(m_languages.begin(), m_languages.end(),
                     [=](const LanguageRecord& candidate) { return candidate.header.langid == langid; });
    if (record == m_languages.end()) return false;
    const auto index = static_cast<std::int32_t>(record - m_languages.begin());
    if (index == m_current) return true;

    if (m_current >= 0) m_languages[static_cast<std::size_t>(m_current)].table = {};
    m_current = index;
    try {
        if (auto file = ReadLanguageFile(ReadBytes(record->file)))
            record->table = LanguageTable(std::move(*file));
    } catch (const std::bad_alloc&) {
        // The language is selected without translations, as when its file has vanished meanwhile.
    }
    return true;
}

std::wstring_view LanguageSession::TranslateString(std::wstring_view text) const {
    if (m_current < 0) return text;
    return m_languages[static_cast<std::size_t>(m_current)].table.Find(text).value_or(text);
}

}  // namespace vmk
