#include "tools/settings_reference.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "settings/groups.h"

namespace vmk::docs {
namespace {

constexpr std::string_view kIntroduction =
    "# Settings\n"
    "\n"
    "Written by `settings_reference` from `settings/fields.h` and `tools/setting_descriptions.h`; do not "
    "edit.\n"
    "\n"
    "Each setting is one named value of the key\n"
    "`HKEY_CURRENT_USER\\SOFTWARE\\Orrin Systems\\vmkctrl.PdfPrinterPreferences\\` or of a sub-key that the "
    "host chooses.\n"
    "Numbers are `REG_DWORD`, texts are `REG_SZ` in the ANSI code page. A number is taken as it is stored, "
    "without a check of\n"
    "its range; a missing value is read as its default.\n"
    "\n"
    "The heading of a group names the bit that selects it in `InitFromRegistry`, `StoreInRegistry`, "
    "`UseDefaultValues`,\n"
    "`EnablePage` and `DisablePage`.\n";

// Names and settings are ASCII where they are written down.
std::string Narrow(std::wstring_view text) {
    return {text.begin(), text.end()};
}

std::string Quoted(const std::wstring& text) {
    return text.empty() ? "empty" : "`" + Narrow(text) + "`";
}

bool HasFields(PageSet group) {
    bool has = false;
    WalkFields(group, [&](std::string_view) { has = true; });
    return has;
}

struct RowWriter {
    std::ostream& out;

    void operator()(const char* name, std::int32_t number) const {
        Row(name, "number", std::to_string(number));
    }
    void operator()(const char* name, const std::wstring& text) const { Row(name, "text", Quoted(text)); }
    void operator()(const char* name, const RunApplication& run) const {
        Row(name, "number or text", run.Use ? Quoted(run.Path) : "0");
    }
    void operator()(const char* name, const SwapToDisk& swap) const {
        Row(name, "number", std::to_string(swap.Enabled ? swap.Megabytes : 0));
    }

  private:
    void Row(const char* name, std::string_view kind, const std::string& defaultValue) const {
        const SettingDescription* description = FindDescription(name);
        if (!description) throw std::logic_error(std::string("no description of ") + name);
        out << "| `" << name << "` | " << kind << " | " << defaultValue << " | " << description->values
            << " | " << description->meaning << " |\n";
    }
};

}  // namespace

const SettingDescription* FindDescription(std::string_view name) {
    const auto* found = std::ranges::find(kSettingDescriptions, name, &SettingDescription::name);
    return found == std::end(kSettingDescriptions) ? nullptr : found;
}

std::string SettingsReference() {
    std::ostringstream out;
    out << kIntroduction;
    const PrinterSettings defaults;
    for (const GroupInfo& group : kGroupInfos) {
        if (!HasFields(group.bit)) continue;
        out << "\n## " << Narrow(group.name) << " (`" << group.identifier << "`, 0x" << std::hex
            << std::uppercase << group.bit << std::dec << ")\n\n"
            << "| Name | Kind | Default | Values | Meaning |\n"
            << "|---|---|---|---|---|\n";
        WalkFields(group.bit, RowWriter{out}, defaults);
    }
    return out.str();
}

}  // namespace vmk::docs
