#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "base/registry_key.h"
#include "settings/page_set.h"
#include "settings/printer_settings.h"

// Where the current user's settings are: the root key (registry_path.h) or a sub-key of it that the host
// names.

namespace vmk {

enum class KeyAccess : REGSAM {
    kRead = 0x20019,       // KEY_READ
    kReadWrite = 0x2001F,  // KEY_READ | KEY_WRITE
};

struct SettingsKey {
    UniqueRegistryKey key;    // empty when the key could not be opened
    bool createdNow = false;  // there was no such key until this call
};

// The path below HKEY_CURRENT_USER in the calling thread's ANSI code page. No path when the registry cannot
// have such a key (a name or the whole is too long). The root's for an empty sub-key, and for one that cannot
// be converted, which one of 0x40000000 characters or more counts as.
std::optional<std::string> SettingsKeyPath(std::wstring_view subKey);

// Opens the key, creating it when it is missing. `subKey` may be null: the root key.
SettingsKey OpenSettingsKey(const wchar_t* subKey, KeyAccess access);

// Loads groups from a key. The record is left as it is when the key cannot be opened or did not exist
// before, in which case it is there afterwards. Throws std::bad_alloc.
void LoadFromRegistry(PageSet groups, const wchar_t* subKey, PrinterSettings& settings);

// Stores groups in a key. Nothing happens when the key cannot be opened. Throws std::bad_alloc.
void StoreToRegistry(PageSet groups, const wchar_t* subKey, const PrinterSettings& settings);

}  // namespace vmk
