#include "tools/policy/settings_list.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <system_error>

#include "settings/choices.h"
#include "settings/groups.h"
#include "tools/policy/text.h"
#include "tools/setting_descriptions.h"
#include "tools/settings_reference.h"

namespace vmk::policy {
namespace {

struct Lister {
    std::vector<Setting>& settings;
    const GroupInfo& group;

    void operator()(const char* name, std::int32_t number) const { Add(name, number, true, false); }
    void operator()(const char* name, const std::wstring& text) const { Add(name, Utf8(text), false, true); }
    void operator()(const char* name, const RunApplication& run) const {
        if (run.Use && !run.WithoutPath) {
            Add(name, Utf8(run.Path), true, true);
        } else {
            Add(name, run.Use ? 1 : 0, true, true);
        }
    }
    void operator()(const char* name, const SwapToDisk& swap) const {
        Add(name, swap.Enabled ? swap.Megabytes : 0, true, false);
    }

  private:
    void Add(const char* name, Value byDefault, bool mayBeNumber, bool mayBeText) const {
        settings.push_back({.name = name,
                            .group = group.identifier,
                            .groupName = group.name,
                            .byDefault = std::move(byDefault),
                            .mayBeNumber = mayBeNumber,
                            .mayBeText = mayBeText});
    }
};

std::vector<Setting> ListSettings() {
    std::vector<Setting> settings;
    const PrinterSettings defaults;
    for (const GroupInfo& group : kGroupInfos) WalkFields(group.bit, Lister{settings, group}, defaults);
    return settings;
}

std::optional<std::int32_t> ReadNumber(std::string_view text) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

bool MayBe(const Setting& setting, std::int32_t number) {
    const NumberValues& values = *setting.Numbers();
    return FindChoice(values.choices, number) || values.IsInRange(number);
}

}  // namespace

const NumberValues* Setting::Numbers() const {
    return FindNumberValues(name);
}

const std::vector<Setting>& AllSettings() {
    static const std::vector<Setting> settings = ListSettings();
    return settings;
}

const Setting* FindSetting(std::string_view name) {
    const auto found = std::ranges::find(AllSettings(), name, &Setting::name);
    return found == AllSettings().end() ? nullptr : &*found;
}

bool IsSwitch(const Setting& setting) {
    return setting.mayBeNumber && setting.Numbers()->choices.data() == choices::kFlag;
}

bool IsPassword(std::string_view name) {
    const docs::SettingDescription* const description = docs::FindDescription(name);
    return description && description->texts == docs::kPassword;
}

Assignment ReadAssignment(std::string_view text) {
    const std::size_t equals = text.find('=');
    const std::string name(text.substr(0, equals));
    const Setting* const setting = FindSetting(name);
    if (equals == std::string_view::npos) throw Refusal("\"" + name + "\" is no NAME=VALUE");
    if (!setting) throw Refusal("there is no setting " + name);
    if (IsPassword(name)) throw Refusal(name + " is a password, which whoever gets the files could read");
    const std::string value(text.substr(equals + 1));
    const std::optional<std::int32_t> number = setting->mayBeNumber ? ReadNumber(value) : std::nullopt;
    if (number && MayBe(*setting, *number)) return {setting, *number};
    if (number || !setting->mayBeText) throw Refusal(name + " cannot be " + value);
    return {setting, value};
}

std::vector<Assignment> Defaults() {
    std::vector<Assignment> defaults;
    for (const Setting& setting : AllSettings())
        if (!IsPassword(setting.name)) defaults.emplace_back(&setting, setting.byDefault);
    return defaults;
}

}  // namespace vmk::policy
