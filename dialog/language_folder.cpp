#include "dialog/language_folder.h"

#include <windows.h>

#include <array>
#include <string_view>

#include "settings/registry_key.h"
#include "settings/registry_path.h"

namespace vmk {

std::string LanguageFolder() {
    UniqueRegistryKey key;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kRegistryRoot, 0, KEY_READ, key.put()) != ERROR_SUCCESS) return {};
    std::array<char, MAX_PATH> folder{};
    DWORD size = folder.size();
    const LSTATUS status = RegQueryValueExA(key.get(), "VLF_PATH", nullptr, nullptr,
                                            reinterpret_cast<BYTE*>(folder.data()), &size);
    if (status != ERROR_SUCCESS) return {};
    const std::string_view stored(folder.data(), size);
    return std::string(stored.substr(0, stored.find('\0')));
}

}  // namespace vmk
