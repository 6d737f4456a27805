#include "host/stored_settings.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

#include "base/registry_key.h"
#include "host/catalogue.h"
#include "host/failure.h"
#include "host/text.h"
#include "settings/groups.h"
#include "settings/registry_path.h"

namespace vmk {
namespace {

// How many characters the names have in common at their beginning, up to a dot.
std::size_t SizeOfSharedParts(std::string_view left, std::string_view right) {
    std::size_t shared = 0;
    for (std::size_t dot = left.find('.'); dot != std::string_view::npos; dot = left.find('.', dot + 1)) {
        if (!StartsWithIgnoringCase(right, left.substr(0, dot + 1))) break;
        shared = dot + 1;
    }
    return shared;
}

LSTATUS OpenSettingsKey(const std::wstring& subKey, UniqueRegistryKey& key) {
    const std::string path = std::string(kRegistryRoot) + AnsiFromWide(subKey);
    return RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, key.put());
}

std::string Utf8FromAnsi(std::string_view text) {
    return Utf8FromWide(WideFromAnsi(text));
}

// The bytes of a stored text up to its terminator, which a cut text lacks.
std::string_view WithoutTerminator(std::string_view data) {
    return data.substr(0, data.find('\0'));
}

std::optional<std::int32_t> Number(DWORD type, std::string_view data) {
    if (type != REG_DWORD || data.size() != sizeof(std::int32_t)) return std::nullopt;
    std::int32_t number = 0;
    std::memcpy(&number, data.data(), sizeof number);
    return number;
}

bool GoesOnBehindZero(DWORD type, std::string_view data) {
    return type == REG_SZ &&
           data.find_first_not_of('\0', WithoutTerminator(data).size()) != std::string_view::npos;
}

std::string Display(std::string_view name, DWORD type, std::string_view data) {
    const bool isText = type == REG_SZ || type == REG_EXPAND_SZ;
    const std::string_view text = isText ? WithoutTerminator(data) : data;
    if (IsPassword(name)) return text.empty() ? "\"\"" : "********";
    if (isText) return Quoted(Utf8FromAnsi(text));
    if (const auto number = Number(type, data)) return std::to_string(*number);
    return "(type " + std::to_string(type) + ", " + std::to_string(data.size()) + " bytes)";
}

// Reads the value at a position; nothing behind the last one.
std::optional<StoredSetting> ReadValue(HKEY key, DWORD index) {
    std::string name(256, '\0');
    std::string data(1024, '\0');
    for (;;) {
        auto nameSize = static_cast<DWORD>(name.size());
        auto dataSize = static_cast<DWORD>(data.size());
        DWORD type = 0;
        const LSTATUS status = RegEnumValueA(key, index, name.data(), &nameSize, nullptr, &type,
                                             reinterpret_cast<BYTE*>(data.data()), &dataSize);
        if (status == ERROR_NO_MORE_ITEMS) return std::nullopt;
        if (status == ERROR_MORE_DATA) {
            name.resize(name.size() * 2);
            data.resize(std::max<std::size_t>(data.size() * 2, dataSize));
            continue;
        }
        if (status != ERROR_SUCCESS) {
            throw Failure("the stored settings cannot be read", HRESULT_FROM_WIN32(status));
        }
        const std::string shownName = Utf8FromAnsi({name.data(), nameSize});
        const std::string_view value{data.data(), dataSize};
        const bool isText = type == REG_SZ && !IsPassword(shownName);
        return StoredSetting{
            .name = shownName,
            .display = Display(shownName, type, value),
            .number = IsPassword(shownName) ? std::nullopt : Number(type, value),
            .text = isText ? std::optional(Utf8FromAnsi(WithoutTerminator(value))) : std::nullopt,
            .type = type,
            .size = value.size(),
            .hasZero = GoesOnBehindZero(type, value)};
    }
}

void AppendGroup(std::string& text, std::string_view heading, PageSet group,
                 const std::vector<StoredSetting>& settings, bool evenIfEmpty) {
    std::string lines;
    for (const StoredSetting& setting : settings) {
        if (GroupOfSetting(setting.name) == group) lines += setting.name + " = " + setting.display + "\n";
    }
    if (lines.empty() && !evenIfEmpty) return;
    if (!text.empty()) text += "\n";
    text.append("[").append(heading).append("]\n");
    text += lines.empty() ? "(nothing stored)\n" : lines;
}

void AppendEscaped(std::string& result, char c) {
    switch (c) {
        case '"':
            result += "\\\"";
            return;
        case '\\':
            result += "\\\\";
            return;
        case '\r':
            result += "\\r";
            return;
        case '\n':
            result += "\\n";
            return;
        case '\t':
            result += "\\t";
            return;
        default:
            break;
    }
    const auto code = static_cast<unsigned char>(c);
    if (code >= 0x20 && code != 0x7F) {
        result += c;
        return;
    }
    std::array<char, 8> digits{};
    std::snprintf(digits.data(), digits.size(), "\\x%02x", code);
    result += digits.data();
}

}  // namespace

std::optional<std::vector<StoredSetting>> ReadStoredSettings(const std::wstring& subKey) {
    UniqueRegistryKey key;
    const LSTATUS status = OpenSettingsKey(subKey, key);
    if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND) return std::nullopt;
    if (status != ERROR_SUCCESS) {
        throw Failure(NameOfSettingsKey(subKey) + " cannot be opened", HRESULT_FROM_WIN32(status));
    }
    std::vector<StoredSetting> settings;
    for (DWORD index = 0;; ++index) {
        std::optional<StoredSetting> setting = ReadValue(key.get(), index);
        if (!setting) break;
        settings.push_back(std::move(*setting));
    }
    std::ranges::sort(settings, IsBeforeIgnoringCase, &StoredSetting::name);
    return settings;
}

bool SettingsKeyIsThere(const std::wstring& subKey) {
    UniqueRegistryKey key;
    return OpenSettingsKey(subKey, key) == ERROR_SUCCESS;
}

std::string NameOfSettingsKey(const std::wstring& subKey) {
    std::string name = "HKEY_CURRENT_USER\\" + std::string(kRegistryRoot) + Utf8FromWide(subKey);
    if (name.ends_with('\\')) name.pop_back();
    return name;
}

PageSet GroupOfSetting(std::string_view name) {
    PageSet closest = 0;
    std::size_t most = 0;
    for (const GroupInfo& group : kGroupInfos) {
        WalkFields(group.bit, [&](std::string_view field) {
            const std::size_t shared = SizeOfSharedParts(name, field);
            if (shared <= most) return;
            most = shared;
            closest = group.bit;
        });
    }
    return closest;
}

std::string Quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) AppendEscaped(result, c);
    return result + '"';
}

std::string FormatSettings(const std::vector<StoredSetting>& settings, std::optional<PageSet> groups) {
    const PageSet wanted = groups.value_or(page_bit::kAllPages);
    const bool everything = wanted == page_bit::kAllPages;
    std::string text;
    for (const GroupInfo& group : kGroupInfos) {
        if ((wanted & group.bit) != 0) {
            AppendGroup(text, group.identifier, group.bit, settings, !everything);
        }
    }
    if (everything) AppendGroup(text, "Other", 0, settings, false);
    return text;
}

}  // namespace vmk
