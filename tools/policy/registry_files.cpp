#include "tools/policy/registry_files.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>

#include "tools/policy/text.h"

namespace vmk::policy {
namespace {

// What the interfaces of Group Policy Preferences call their items.
constexpr std::string_view kItemsClass = "{A3CCFC41-DFDB-43a5-8D26-0FE8B954DA51}";
constexpr std::string_view kCollectionClass = "{53B533F5-224C-47e3-B01B-CA3B3F3FF4BF}";
constexpr std::string_view kItemClass = "{9CD4B2F4-923D-47f5-A062-E897DD1DAD50}";
// When items were changed last, as the editor notes it. The same input makes the same file.
constexpr std::string_view kChanged = "2026-01-01 00:00:00";

constexpr std::string_view kMountedHive = "vmkctrl.NewUser";

std::string Hexadecimal(std::uint32_t number, int digits) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%0*x", digits, static_cast<unsigned>(number));
    return text.data();
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '"' || c == '\\') escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::string Commas(std::string_view bytes) {
    std::string list;
    for (const char byte : bytes) {
        list += list.empty() ? "" : ",";
        list += Hexadecimal(static_cast<unsigned char>(byte), 2);
    }
    return list;
}

std::string DataOf(const Value& value) {
    if (const auto* const number = std::get_if<std::int32_t>(&value))
        return "dword:" + Hexadecimal(static_cast<std::uint32_t>(*number), 8);
    const auto& text = std::get<std::string>(value);
    // A line of the file has no line breaks; the bytes of the text may.
    if (std::ranges::any_of(text, [](char c) { return 0 <= c && c < ' '; }))
        return "hex(1):" + Commas(Utf16Bytes(text) + std::string(2, '\0'));
    return "\"" + Escaped(text) + "\"";
}

// Signs for what an item does (update) and for the kind of its value.
std::string_view ImageOf(const Value& value) {
    return std::holds_alternative<std::int32_t>(value) ? "12" : "7";
}

std::string ItemOf(const PolicyKey& key, const Setting& setting, const Value& value) {
    const auto* const number = std::get_if<std::int32_t>(&value);
    return "    <Registry" + Attribute("clsid", kItemClass) + Attribute("name", setting.name) +
           Attribute("status", setting.name) + Attribute("image", ImageOf(value)) +
           Attribute("changed", kChanged) +
           Attribute("uid", StableGuid(key.Path() + "\\" + std::string(setting.name))) +
           Attribute("bypassErrors", "1") + ">\n      <Properties" + Attribute("action", "U") +
           Attribute("displayDecimal", "1") + Attribute("default", "0") +
           Attribute("hive", "HKEY_CURRENT_USER") + Attribute("key", key.Path()) +
           Attribute("name", setting.name) + Attribute("type", number ? "REG_DWORD" : "REG_SZ") +
           Attribute("value", number ? Hexadecimal(static_cast<std::uint32_t>(*number), 8)
                                     : std::get<std::string>(value)) +
           " />\n    </Registry>\n";
}

}  // namespace

std::string PreferenceItems(const PolicyKey& key, const std::vector<Assignment>& values) {
    std::string xml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<RegistrySettings" +
                      Attribute("clsid", kItemsClass) + ">\n";
    // Values of a group stand together.
    std::string_view group;
    for (const auto& [setting, value] : values) {
        if (setting->group != group) {
            xml += group.empty() ? "" : "  </Collection>\n";
            xml += "  <Collection" + Attribute("clsid", kCollectionClass) +
                   Attribute("name", Utf8(setting->groupName)) + ">\n";
        }
        group = setting->group;
        xml += ItemOf(key, *setting, value);
    }
    xml += group.empty() ? "" : "  </Collection>\n";
    return xml + "</RegistrySettings>\n";
}

std::string RegistryFile(const std::string& below, const PolicyKey& key,
                         const std::vector<Assignment>& values) {
    std::string text = "Windows Registry Editor Version 5.00\r\n\r\n[" + below + "\\" + key.Path() + "]\r\n";
    for (const auto& [setting, value] : values)
        text += "\"" + std::string(setting->name) + "\"=" + DataOf(value) + "\r\n";
    return "\xFF\xFE" + Utf16Bytes(text + "\r\n");
}

std::string NewUserHive() {
    return "HKEY_USERS\\" + std::string(kMountedHive);
}

// Without delayed expansion a "!" in the path of the file is one. The hive has to be closed again whatever
// happens.
std::string NewUserCommands() {
    const std::string commands =
        "@echo off\n"
        "rem Puts new-user.reg into the hive from which Windows makes those of new users: what it holds is "
        "what they\n"
        "rem begin with. Users who have logged on before keep what they have. Needs administrator's rights.\n"
        "rem\n"
        "rem   new-user.cmd [HIVE]     HIVE is NTUSER.DAT of another profile than the default one\n"
        "setlocal DisableDelayedExpansion\n"
        "set \"hive=%~1\"\n"
        "if not defined hive set \"hive=%SystemDrive%\\Users\\Default\\NTUSER.DAT\"\n"
        "set \"reg=%SystemRoot%\\System32\\reg.exe\"\n"
        "set \"key=HKU\\%1\"\n"
        "if exist \"%hive%\" goto open\n"
        "echo new-user.cmd: there is no \"%hive%\" 1>&2\n"
        "exit /b 2\n"
        ":open\n"
        "\"%reg%\" load \"%key%\" \"%hive%\" >nul\n"
        "if not errorlevel 1 goto import\n"
        "echo new-user.cmd: \"%hive%\" cannot be opened; is it in use, or are these no administrator's "
        "rights? 1>&2\n"
        "exit /b 2\n"
        ":import\n"
        "set \"status=0\"\n"
        "\"%reg%\" import \"%~dp0new-user.reg\" >nul 2>&1\n"
        "if errorlevel 1 set \"status=2\"\n"
        "\"%reg%\" unload \"%key%\" >nul\n"
        "if errorlevel 1 set \"status=2\"\n"
        "if not \"%status%\"==\"0\" echo new-user.cmd: \"%hive%\" did not take the settings 1>&2\n"
        "exit /b %status%\n";
    return Replaced(Filled(commands, kMountedHive), '\n', "\r\n");
}

}  // namespace vmk::policy
