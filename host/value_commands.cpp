#include "host/value_commands.h"

#include <windows.h>

#include <string_view>

#include "host/console.h"
#include "host/document_file.h"
#include "host/exit_status.h"
#include "host/failure.h"
#include "host/files.h"
#include "host/json_text.h"
#include "host/settings_keys.h"
#include "host/text.h"
#include "host/values.h"

namespace vmk {
namespace {

const SettingInfo& RequireSetting(std::string_view name) {
    const SettingInfo* const setting = FindSetting(name);
    if (!setting)
        throw Failure("there is no setting '" + std::string(name) + "'; vmkprefs defaults lists them all");
    return *setting;
}

// The value as JSON; asterisks for a password unless it may be seen.
std::string JsonOf(const SettingInfo& setting, const Value& value, bool withPasswords) {
    if (setting.secret && !withPasswords) return JsonText(Shown(setting, value) == "\"\"" ? "" : "********");
    return JsonValueOf(value);
}

std::string Bare(const SettingInfo& setting, const Value& value, bool withPasswords) {
    if (const auto* const number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
    if (setting.secret && !withPasswords) return Shown(setting, value) == "\"\"" ? "" : "********";
    return Utf8FromWide(std::get<std::wstring>(value));
}

// One assignment of a command line.
void ReadAssignment(const std::wstring& assignment, bool force, Document& document) {
    const std::size_t equals = assignment.find(L'=');
    if (equals == std::wstring::npos) {
        throw Failure("'" + Utf8FromWide(assignment) + "' is no NAME=VALUE; nothing is changed");
    }
    const SettingInfo& setting = RequireSetting(Utf8FromWide(assignment.substr(0, equals)));
    const std::wstring text = assignment.substr(equals + 1);
    const std::optional<Value> value = ReadValue(setting, text);
    const std::string name(setting.name);
    if (!value) {
        throw Failure(name + ": '" + Utf8FromWide(text) + "' is not " + Expected(setting) +
                      "; nothing is changed");
    }
    const std::optional<std::string> complaint = force ? std::nullopt : Complaint(setting, *value);
    if (complaint) throw Failure(name + ": " + *complaint + "; nothing is changed, --force would store it");
    if (!document.emplace(&setting, *value).second) {
        throw Failure(name + " is given for the second time; nothing is changed");
    }
}

struct Side {
    Document document;
    bool isFile = false;
};

Side ReadSide(const std::wstring& name) {
    if (!LooksLikeFile(name)) {
        const auto key = SubKeyOf(Utf8FromWide(name));
        if (!key) throw Failure("'" + Utf8FromWide(name) + "' is neither a sub-key nor a file");
        return {.document = RequireSettings(*key)};
    }
    DocumentFile file = ReadDocumentFile(name, Strictness::Forced);
    if (!file.faults.empty()) {
        const Fault& fault = file.faults.front();
        throw Failure(Utf8FromWide(name) + ":" + std::to_string(fault.line) + ": " + fault.reason);
    }
    return {.document = std::move(file.document), .isFile = true};
}

std::string ShownOrNothing(const Difference& difference, const std::optional<Value>& value,
                           bool withPasswords) {
    return value ? Shown(*difference.setting, *value, {.withPasswords = withPasswords}) : "(nothing)";
}

std::string JsonOrNull(const Difference& difference, const std::optional<Value>& value, bool withPasswords) {
    return value ? JsonOf(*difference.setting, *value, withPasswords) : "null";
}

}  // namespace

int Get(const CommandLine& line) {
    const Document document = RequireSettings(line.key);
    JsonObject json;
    std::string text;
    const Showing showing{.withPasswords = line.withPasswords, .pagesPerSheet = PagesPerSheet(document)};
    for (const std::wstring& name : line.operands) {
        const SettingInfo& setting = RequireSetting(Utf8FromWide(name));
        const Value& value = document.at(&setting);
        json.Add(setting.name, JsonOf(setting, value, line.withPasswords));
        if (!line.bare) text.append(setting.name).append(" = ");
        text += line.bare ? Bare(setting, value, line.withPasswords) : Shown(setting, value, showing);
        text += "\n";
    }
    WriteOutput(line.json ? json.Text() + "\n" : text);
    return kExitDone;
}

int Set(const CommandLine& line) {
    Document document;
    for (const std::wstring& assignment : line.operands) ReadAssignment(assignment, line.force, document);
    StoreSettings(document, line.key);
    return kExitDone;
}

int ShowDefaults(const CommandLine& line) {
    const Document defaults = Defaults();
    std::string text;
    for (const auto& [setting, value] : defaults) {
        text.append(setting->name).append(" = ").append(Shown(*setting, value)).append("\n");
    }
    WriteOutput(line.json ? WriteJsonDocument(defaults) : text);
    return kExitDone;
}

int ListKeys(const CommandLine& line) {
    JsonList json;
    std::string text;
    for (const std::wstring& key : KeysWithSettings()) {
        const std::wstring name = key.empty() ? L"." : key;
        json.Add(JsonText(name));
        text += Utf8FromWide(name) + "\n";
    }
    WriteOutput(line.json ? json.Text() + "\n" : text);
    return kExitDone;
}

int Copy(const CommandLine& line) {
    SettingsChange change;
    change.Copy(line.operands[0], line.operands[1]);
    change.Commit();
    return kExitDone;
}

int Diff(const CommandLine& line) {
    Side before = ReadSide(line.operands[0]);
    Side after = ReadSide(line.operands[1]);
    if (!line.withPasswords) {
        RemovePasswords(before.document);
        RemovePasswords(after.document);
    }
    std::vector<Difference> differences = Differences(before.document, after.document);
    // A file says nothing of the settings that it leaves out; a key says something of each.
    if (before.isFile != after.isFile) {
        std::erase_if(differences, [](const Difference& each) { return !each.before || !each.after; });
    }
    WriteOutput(FormatDifferences(differences, line));
    return differences.empty() ? kExitDone : kExitFound;
}

std::string FormatDifferences(const std::vector<Difference>& differences, const CommandLine& line) {
    const bool secrets = line.withPasswords;
    JsonList json;
    std::string text;
    for (const Difference& each : differences) {
        const std::string name(each.setting->name);
        text += name + ": " + ShownOrNothing(each, each.before, secrets) + " -> " +
                ShownOrNothing(each, each.after, secrets) + "\n";
        json.Add(R"({"name": )" + JsonText(name) + R"(, "before": )" +
                 JsonOrNull(each, each.before, secrets) + R"(, "after": )" +
                 JsonOrNull(each, each.after, secrets) + "}");
    }
    return line.json ? json.Text() + "\n" : text;
}

void WarnOfLostTexts(const Document& document) {
    for (const auto& [setting, value] : document) {
        const auto* const text = std::get_if<std::wstring>(&value);
        if (!text) continue;
        const std::wstring read = AsReadBack(*text);
        if (read == *text) continue;
        WriteError("vmkprefs: warning: " + std::string(setting->name) + ": a host reads " +
                   Shown(*setting, read) + ", since the ANSI code page does not hold the text\n");
    }
}

void StoreSettings(const Document& document, const std::wstring& subKey) {
    SettingsChange change;
    change.Store(document, subKey);
    change.Commit();
    WarnOfLostTexts(document);
}

}  // namespace vmk
