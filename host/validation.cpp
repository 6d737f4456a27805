#include "host/validation.h"

#include <windows.h>

#include <optional>

#include "host/settings_keys.h"
#include "host/stored_settings.h"
#include "host/text.h"
#include "host/values.h"

namespace vmk {
namespace {

std::optional<std::string> WrongType(const SettingInfo& setting, DWORD type, std::size_t size) {
    if (type == REG_DWORD && setting.TakesNumbers()) {
        if (size == sizeof(DWORD)) return std::nullopt;
        return "a number has four bytes";
    }
    if (type == REG_SZ && setting.TakesTexts()) return std::nullopt;
    if (setting.kind == Kind::NumberOrText) return "it has to be a REG_DWORD or a REG_SZ";
    return setting.kind == Kind::Number ? "a number has to be a REG_DWORD" : "a text has to be a REG_SZ";
}

std::optional<std::string> WhatIsWrong(const SettingInfo& setting, const StoredSetting& stored) {
    if (auto wrong = WrongType(setting, stored.type, stored.size)) return wrong;
    if (stored.number) return Complaint(setting, *stored.number);
    if (stored.hasZero) return "a zero ends the text before its end";
    return std::nullopt;
}

}  // namespace

std::vector<Damage> FindDamage(const std::wstring& subKey) {
    const Document read = RequireSettings(subKey);
    std::vector<Damage> damage;
    const auto values = ReadStoredSettings(subKey).value_or(std::vector<StoredSetting>());
    for (const SettingInfo& setting : Settings()) {
        for (const StoredSetting& stored : values) {
            if (!EqualsIgnoringCase(stored.name, setting.name)) continue;
            if (const auto reason = WhatIsWrong(setting, stored)) {
                damage.push_back({&setting, stored.display, *reason,
                                  Shown(setting, read.at(&setting),
                                        {.withPasswords = false, .pagesPerSheet = PagesPerSheet(read)})});
            }
        }
    }
    return damage;
}

}  // namespace vmk
