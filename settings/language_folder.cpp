#include "settings/language_folder.h"

#include <windows.h>

#include <array>
#include <string_view>

#include "base/registry_key.h"
#include "settings/registry_path.h"

namespace vmk {
namespace {

// With %VARIABLES% replaced by what they are in this process.
std::string Expanded(const std::string& text) {
    std::string expanded(MAX_PATH, '\0');
    for (;;) {
        const DWORD size =
            ExpandEnvironmentStringsA(text.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
        // The size that is answered may be larger than the text.
        if (size <= expanded.size()) return expanded.substr(0, expanded.find('\0'));
        expanded.assign(size, '\0');
    }
}

}  // namespace

std::string LanguageFolder() {
    UniqueRegistryKey key;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kRegistryRoot, 0, KEY_READ, key.put()) != ERROR_SUCCESS) return {};
    std::array<char, MAX_PATH> folder{};
    DWORD size = folder.size();
    DWORD type = REG_NONE;
    const LSTATUS status = RegQueryValueExA(key.get(), "VLF_PATH", nullptr, &type,
                                            reinterpret_cast<BYTE*>(folder.data()), &size);
    if (status != ERROR_SUCCESS) return {};
    const std::string_view data(folder.data(), size);
    const std::string stored(data.substr(0, data.find('\0')));
    return type == REG_EXPAND_SZ ? Expanded(stored) : stored;
}

}  // namespace vmk
