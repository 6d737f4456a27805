#include "host/catalogue.h"

#include <algorithm>

#include "host/document.h"
#include "host/text.h"
#include "settings/groups.h"

namespace vmk {
namespace {

struct InfoMaker {
    PageSet group;
    std::vector<SettingInfo>& infos;

    void operator()(const char* name, const std::int32_t&) const { Add(name, Kind::Number); }
    void operator()(const char* name, const std::wstring&) const { Add(name, Kind::Text); }
    void operator()(const char* name, const RunApplication&) const { Add(name, Kind::NumberOrText); }
    void operator()(const char* name, const SwapToDisk&) const { Add(name, Kind::Number); }

  private:
    void Add(std::string_view name, Kind kind) const {
        infos.push_back({.name = name,
                         .group = group,
                         .kind = kind,
                         .secret = IsPassword(name),
                         .numbers = FindNumberValues(name),
                         .standard = {}});
    }
};

std::vector<SettingInfo> MakeSettings() {
    std::vector<SettingInfo> infos;
    const PrinterSettings standard;
    for (const GroupInfo& group : kGroupInfos) WalkFields(group.bit, InfoMaker{group.bit, infos}, standard);
    const std::vector<Value> values = StoredValues(standard);
    for (std::size_t place = 0; place != infos.size(); ++place) infos[place].standard = values[place];
    return infos;
}

}  // namespace

const std::vector<SettingInfo>& Settings() {
    static const std::vector<SettingInfo> kSettings = MakeSettings();
    return kSettings;
}

const SettingInfo* FindSetting(std::string_view name) {
    const auto found = std::ranges::find_if(
        Settings(), [&](const SettingInfo& setting) { return EqualsIgnoringCase(setting.name, name); });
    return found == Settings().end() ? nullptr : &*found;
}

bool IsPassword(std::string_view name) {
    return EndsWithIgnoringCase(name, "Password") || EndsWithIgnoringCase(name, "Pwd");
}

}  // namespace vmk
