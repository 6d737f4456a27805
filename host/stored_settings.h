#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/page_set.h"

namespace vmk {

// One value of a settings key, as it is shown.
struct StoredSetting {
    std::string name;                         // UTF-8
    std::string display;                      // UTF-8: a decimal number, or a text in quotes
    std::optional<std::int32_t> number = {};  // of a value that is one, and of no password
    std::optional<std::string> text = {};     // UTF-8; the same
    std::uint32_t type = 0;                   // of the registry
    std::size_t size = 0;                     // bytes
    bool hasZero = false;                     // a text that goes on behind its first zero
};

// What the key holds at this moment, sorted by name without regard to case; nothing when there is no such
// key. Throws Failure when the key is there and cannot be read. An empty sub-key is the root key of the
// settings.
std::optional<std::vector<StoredSetting>> ReadStoredSettings(const std::wstring& subKey);

// Whether the key exists and can be read.
bool SettingsKeyIsThere(const std::wstring& subKey);

// "HKEY_CURRENT_USER\...", for messages.
std::string NameOfSettingsKey(const std::wstring& subKey);

// The bit of the group that a stored name belongs to: that of the names with which it has the most leading
// parts in common, so that names of other versions find their place, too. 0 for a name that belongs to none.
PageSet GroupOfSetting(std::string_view name);

// A text in double quotes with quotes and backslashes escaped by a backslash and control characters written
// as \r, \n, \t or \x1f, so that each value stays on its line. Takes and gives UTF-8.
std::string Quoted(std::string_view text);

// The settings as "name = value" lines, each group under its name in brackets and names without a group under
// [Other]. With groups given only those are listed, also when nothing is stored for them.
std::string FormatSettings(const std::vector<StoredSetting>& settings, std::optional<PageSet> groups);

}  // namespace vmk
