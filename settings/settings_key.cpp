#include "settings/settings_key.h"

#include <cstddef>

#include "base/code_page.h"
#include "settings/registry_path.h"
#include "settings/registry_store.h"

namespace vmk {
namespace {

constexpr std::size_t kNoSubKeyFrom = 0x40000000;  // characters
constexpr std::size_t kLongestName = 255;          // characters between two backslashes: the registry's limit
constexpr std::size_t kLongestSubKey = 16384;      // the registry counts a path's bytes in 16 bits

// Whether the registry can have a key of this name. It is asked before anything is created: a path is made
// name by name, and those in front of a name that is refused would stay behind.
bool IsPossible(std::wstring_view subKey) {
    if (subKey.size() > kLongestSubKey) return false;
    for (;;) {
        const std::size_t end = subKey.find(L'\\');
        if (subKey.substr(0, end).size() > kLongestName) return false;
        if (end == std::wstring_view::npos) return true;
        subKey.remove_prefix(end + 1);
    }
}

}  // namespace

std::optional<std::string> SettingsKeyPath(std::wstring_view subKey) {
    if (subKey.size() >= kNoSubKeyFrom) return kRegistryRoot;
    if (!IsPossible(subKey)) return std::nullopt;
    return kRegistryRoot + Narrow(subKey, CP_THREAD_ACP);
}

SettingsKey OpenSettingsKey(const wchar_t* subKey, KeyAccess access) {
    SettingsKey opened;
    const auto path = SettingsKeyPath(subKey ? subKey : L"");
    if (!path) return opened;

    DWORD disposition = 0;
    const LSTATUS status =
        RegCreateKeyExA(HKEY_CURRENT_USER, path->c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        static_cast<REGSAM>(access), nullptr, opened.key.put(), &disposition);
    if (status != ERROR_SUCCESS) return {};
    opened.createdNow = disposition == REG_CREATED_NEW_KEY;
    return opened;
}

void LoadFromRegistry(PageSet groups, const wchar_t* subKey, PrinterSettings& settings) {
    const SettingsKey opened = OpenSettingsKey(subKey, KeyAccess::kRead);
    if (opened.key && !opened.createdNow) LoadGroups(opened.key.get(), groups, settings);
}

void StoreToRegistry(PageSet groups, const wchar_t* subKey, const PrinterSettings& settings) {
    const SettingsKey opened = OpenSettingsKey(subKey, KeyAccess::kReadWrite);
    if (opened.key) StoreGroups(opened.key.get(), groups, settings);
}

}  // namespace vmk
