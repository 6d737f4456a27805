#include "tools/settings_reference.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "settings/choices.h"
#include "settings/groups.h"

namespace vmk::docs {
namespace {

constexpr std::string_view kIntroduction =
    "# Settings\n"
    "\n"
    "Written by `settings_reference` from `settings/fields.h`, `settings/choices.h` and\n"
    "`tools/setting_descriptions.h`; do not edit.\n"
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

std::string Value(const Choice& choice) {
    const std::string number = std::to_string(choice.value);
    const std::string text = Narrow(EnglishText(choice));
    return text.starts_with(number) ? text : number + " " + text;
}

std::string Range(const NumberValues& values) {
    if (values.smallest == kSmallest && values.largest == kLargest) return "any number";
    std::string text = std::to_string(values.smallest) + " to " + std::to_string(values.largest);
    if (!values.unit.empty()) text.append(" ").append(values.unit);
    return text;
}

std::string Numbers(std::string_view name) {
    const NumberValues* values = FindNumberValues(name);
    if (!values) throw std::logic_error("no values of " + std::string(name));
    std::string text = values->HasRange() ? Range(*values) : "";
    for (const Choice& choice : values->choices) text.append(text.empty() ? "" : ", ").append(Value(choice));
    return text;
}

const SettingDescription& Description(std::string_view name) {
    const SettingDescription* description = FindDescription(name);
    if (!description) throw std::logic_error("no description of " + std::string(name));
    return *description;
}

std::string Texts(std::string_view name) {
    return std::string(Description(name).texts);
}

struct RowWriter {
    std::ostream& out;

    void operator()(const char* name, std::int32_t number) const {
        Row(name, "number", std::to_string(number), Numbers(name));
    }
    void operator()(const char* name, const std::wstring& text) const {
        Row(name, "text", Quoted(text), Texts(name));
    }
    void operator()(const char* name, const RunApplication& run) const {
        Row(name, "number or text", run.Use ? Quoted(run.Path) : "0",
            Numbers(name) + "; text: " + Texts(name));
    }
    void operator()(const char* name, const SwapToDisk& swap) const {
        Row(name, "number", std::to_string(swap.Enabled ? swap.Megabytes : 0), Numbers(name));
    }

  private:
    void Row(const char* name, std::string_view kind, const std::string& defaultValue,
             const std::string& values) const {
        out << "| `" << name << "` | " << kind << " | " << defaultValue << " | " << values << " | "
            << Description(name).meaning << " |\n";
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
