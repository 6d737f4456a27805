#include "host/commands.h"

#include <optional>
#include <vector>

#include "host/about_commands.h"
#include "host/console.h"
#include "host/exit_status.h"
#include "host/failure.h"
#include "host/file_commands.h"
#include "host/json_text.h"
#include "host/meanings.h"
#include "host/preferences_client.h"
#include "host/report.h"
#include "host/stored_settings.h"
#include "host/value_commands.h"

namespace vmk {
namespace {

ComponentSource SourceOf(const CommandLine& line) {
    return line.registered ? ComponentSource::Registered : ComponentSource::BesideProgram;
}

int Edit(const CommandLine& line) {
    PreferencesClient preferences(SourceOf(line));
    preferences.Load(line.key);
    preferences.EnablePages(line.pages.value_or(page_bit::kAllPages));
    preferences.SetTitle(line.title);
    if (!preferences.OpenDialog(line.language)) return kExitCancelled;
    preferences.Store(page_bit::kAllPages, line.key);
    return kExitDone;
}

std::string JsonOf(const std::vector<StoredSetting>& settings, std::optional<PageSet> groups) {
    JsonObject object;
    for (const StoredSetting& setting : settings) {
        if (groups && (*groups & GroupOfSetting(setting.name)) == 0) continue;
        if (setting.number) {
            object.Add(setting.name, std::to_string(*setting.number));
        } else {
            object.Add(setting.name, JsonText(setting.text.value_or(setting.display)));
        }
    }
    return object.Text() + "\n";
}

int Show(const CommandLine& line) {
    std::optional<std::vector<StoredSetting>> settings = ReadStoredSettings(line.key);
    if (!settings) throw Failure("there is no key " + NameOfSettingsKey(line.key));
    if (line.json) {
        WriteOutput(JsonOf(*settings, line.pages));
        return kExitDone;
    }
    if (line.texts) AddMeanings(*settings);
    WriteOutput(FormatSettings(*settings, line.pages));
    return kExitDone;
}

// The groups that resetting changes: two of them have no settings, and reset one of another group.
PageSet GroupsChangedByResetOf(PageSet groups) {
    if (groups & page_bit::kCustomForms) groups |= page_bit::kGeneral;
    if (groups & page_bit::kProfiles) groups |= page_bit::kOptimization;
    return groups;
}

int Reset(const CommandLine& line) {
    const PageSet groups = line.pages.value_or(0);
    PreferencesClient preferences(SourceOf(line));
    preferences.Load(line.key);
    preferences.UseDefaults(groups);
    preferences.Store(GroupsChangedByResetOf(groups), line.key);
    return kExitDone;
}

}  // namespace

int Execute(const CommandLine& line) {
    switch (line.action) {
        case Action::Edit:
            return Edit(line);
        case Action::Show:
            return Show(line);
        case Action::Reset:
            return Reset(line);
        case Action::Get:
            return Get(line);
        case Action::Set:
            return Set(line);
        case Action::Defaults:
            return ShowDefaults(line);
        case Action::Keys:
            return ListKeys(line);
        case Action::Copy:
            return Copy(line);
        case Action::Diff:
            return Diff(line);
        case Action::Validate:
            return Validate(line);
        case Action::Export:
            return Export(line);
        case Action::Import:
            return Import(line);
        case Action::Register:
            RegisterComponent();
            return kExitDone;
        case Action::Unregister:
            UnregisterComponent();
            return kExitDone;
        case Action::Presets:
            return ListPresets(line);
        case Action::Languages:
            return ListLanguages(line);
        case Action::Version:
            return ShowVersions(line);
        case Action::Report:
            return Report(line);
        case Action::Completion:
            return Complete();
    }
    return kExitFailure;
}

}  // namespace vmk
