#include "tests/support/language_folder.h"

#include <atomic>
#include <cstdio>
#include <fstream>

#include "settings/registry_path.h"

namespace vmk::test {
namespace {

constexpr char kValue[] = "VLF_PATH";

std::wstring NewFolder() {
    static std::atomic<int> count = 0;
    wchar_t temporary[MAX_PATH];
    GetTempPathW(MAX_PATH, temporary);
    std::wstring folder = std::wstring(temporary) + L"vlf-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                          std::to_wstring(++count);
    CreateDirectoryW(folder.c_str(), nullptr);
    return folder;
}

std::string Narrow(const std::wstring& path) {
    std::string narrow;
    for (const wchar_t character : path) narrow += static_cast<char>(character);
    return narrow;
}

// A text between the quotes of a language file.
std::wstring Quoted(const std::wstring& text) {
    std::wstring quoted = L"\"";
    for (const wchar_t character : text) {
        switch (character) {
            case L'\n':
                quoted += L"\\n";
                break;
            case L'\r':
                quoted += L"\\r";
                break;
            case L'\\':
            case L'"':
                quoted += L'\\';
                [[fallthrough]];
            default:
                quoted += character;
        }
    }
    return quoted + L"\"";
}

}  // namespace

ConfiguredLanguageFolder::ConfiguredLanguageFolder(std::string_view ansiPath, DWORD type) {
    const std::string path(ansiPath);
    DWORD size = 0;
    if (RegGetValueA(HKEY_LOCAL_MACHINE, kRegistryRoot, kValue, RRF_RT_REG_SZ, nullptr, nullptr, &size) ==
        ERROR_SUCCESS) {
        m_wasSet = true;
        m_previous.resize(size);
        RegGetValueA(HKEY_LOCAL_MACHINE, kRegistryRoot, kValue, RRF_RT_REG_SZ, nullptr, m_previous.data(),
                     &size);
    }
    RegSetKeyValueA(HKEY_LOCAL_MACHINE, kRegistryRoot, kValue, type, path.c_str(),
                    static_cast<DWORD>(path.size() + 1));
}

ConfiguredLanguageFolder::~ConfiguredLanguageFolder() {
    if (m_wasSet) {
        RegSetKeyValueA(HKEY_LOCAL_MACHINE, kRegistryRoot, kValue, REG_SZ, m_previous.c_str(),
                        static_cast<DWORD>(m_previous.size()));
    } else {
        RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, kRegistryRoot, kValue);
    }
}

LanguageFolder::LanguageFolder() : m_path(NewFolder()), m_configured(Narrow(m_path)) {}

LanguageFolder::LanguageFolder(const Translations& entries, std::uint32_t langid) : LanguageFolder() {
    AddFile(L"language.vlf", langid, entries);
}

LanguageFolder::~LanguageFolder() {
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW((m_path + L"\\*.vlf").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            DeleteFileW((m_path + L"\\" + found.cFileName).c_str());
        } while (FindNextFileW(search, &found));
        FindClose(search);
    }
    RemoveDirectoryW(m_path.c_str());
}

void LanguageFolder::AddFile(const std::wstring& name, std::uint32_t langid,
                             const Translations& entries) const {
    wchar_t header[64];
    std::swprintf(header, 64, L"\xFEFF$langid = %04x\r\n", langid);
    std::wstring content = header;
    content += L"$productID = vmkctrl.PdfPrinterPreferences\r\n";
    for (const auto& [source, translation] : entries)
        content += Quoted(source) + L" = " + Quoted(translation) + L"\r\n";

    std::ofstream file(Narrow(m_path + L"\\" + name), std::ios::binary);
    file.write(reinterpret_cast<const char*>(content.data()),
               static_cast<std::streamsize>(content.size() * sizeof(wchar_t)));
}

}  // namespace vmk::test
